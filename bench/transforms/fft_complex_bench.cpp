// Complex transforms beside FFTW, planned by measurement; forward, out of place.
#include <fftw3.h>
#include <moxsp.h>

#include <cstddef>
#include <memory>

#include "support/compare.h"

namespace {

struct Single {
  using E = Mox32fc;
  static constexpr const char* family = "fft_32fc";
  static constexpr bool isDouble = false;
  using Plan = fftwf_plan;
  static auto makePlan(int n, E* src, E* dst) {
    return std::shared_ptr<void>(
        fftwf_plan_dft_1d(n, reinterpret_cast<fftwf_complex*>(src),
                          reinterpret_cast<fftwf_complex*>(dst), FFTW_FORWARD, FFTW_MEASURE),
        [](void* p) { fftwf_destroy_plan(static_cast<Plan>(p)); });
  }
  static void execute(void* p) { fftwf_execute(static_cast<Plan>(p)); }
  static constexpr auto initAlloc = moxsFFTInitAlloc_C_32fc;
  static constexpr auto getBufSize = moxsFFTGetBufSize_C_32fc;
  static constexpr auto free = moxsFFTFree_C_32fc;
  static constexpr auto forward = moxsFFTFwd_CToC_32fc;
};

struct Double {
  using E = Mox64fc;
  static constexpr const char* family = "fft_64fc";
  static constexpr bool isDouble = true;
  using Plan = fftw_plan;
  static auto makePlan(int n, E* src, E* dst) {
    return std::shared_ptr<void>(
        fftw_plan_dft_1d(n, reinterpret_cast<fftw_complex*>(src),
                         reinterpret_cast<fftw_complex*>(dst), FFTW_FORWARD, FFTW_MEASURE),
        [](void* p) { fftw_destroy_plan(static_cast<Plan>(p)); });
  }
  static void execute(void* p) { fftw_execute(static_cast<Plan>(p)); }
  static constexpr auto initAlloc = moxsFFTInitAlloc_C_64fc;
  static constexpr auto getBufSize = moxsFFTGetBufSize_C_64fc;
  static constexpr auto free = moxsFFTFree_C_64fc;
  static constexpr auto forward = moxsFFTFwd_CToC_64fc;
};

template <class Precision>
void addOrder(int order) {
  using E = typename Precision::E;
  const int n = 1 << order;
  struct Data {
    explicit Data(int len)
        : src(reinterpret_cast<E*>(moxsMalloc_8u(len * int(sizeof(E))))),
          dst(reinterpret_cast<E*>(moxsMalloc_8u(len * int(sizeof(E))))) {}
    ~Data() {
      Precision::free(spec);
      moxsFree(buffer);
      moxsFree(src);
      moxsFree(dst);
    }
    E *src, *dst;
    MoxsFFTSpec* spec = nullptr;
    Mox8u* buffer = nullptr;
    std::shared_ptr<void> plan;
  };
  // Built at the first call, so that cases that a filter leaves out cost nothing.
  auto data = std::make_shared<std::shared_ptr<Data>>();
  const auto get = [=]() -> Data& {
    if (!*data) {
      *data = std::make_shared<Data>(n);
      Data& d = **data;
      int size = 0;
      Precision::initAlloc(&d.spec, order, 8, 0);
      Precision::getBufSize(d.spec, &size);
      d.buffer = moxsMalloc_8u(size);
      d.plan = Precision::makePlan(n, d.src, d.dst);
      for (int i = 0; i < n; ++i) d.src[i] = {i % 7 - 3.f, i % 5 - 2.f};
    }
    return **data;
  };
  const double flops = 5.0 * n * order, bytes = double(sizeof(E)) * n;
  bench::add({.family = Precision::family,
              .size = n,
              .work = {.bytesRead = bytes,
                       .bytesWritten = bytes,
                       .floatOps = Precision::isDouble ? 0 : flops,
                       .doubleOps = Precision::isDouble ? flops : 0},
              .ours =
                  [=] {
                    Data& d = get();
                    Precision::forward(d.src, d.dst, d.spec, d.buffer);
                  },
              .peers = {{"fftw", [=] { Precision::execute(get().plan.get()); }}}});
}

const bool registered = [] {
  for (int order = 4; order <= 20; ++order) addOrder<Single>(order);
  for (int order = 4; order <= 20; ++order) addOrder<Double>(order);
  return true;
}();

}  // namespace
