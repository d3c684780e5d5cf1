// Complex transforms beside FFTW's, planned by measurement, from order 4 to 20.
#include <fftw3.h>
#include <moxsp.h>

#include <cmath>
#include <memory>
#include <string>

#include "support/compare.h"

namespace {

template <class F>
struct Api;
template <>
struct Api<Mox32f> {
  using Element = Mox32fc;
  static constexpr auto init = moxsFFTInitAlloc_C_32fc;
  static constexpr auto free = moxsFFTFree_C_32fc;
  static constexpr auto bufSize = moxsFFTGetBufSize_C_32fc;
  static constexpr auto forward = moxsFFTFwd_CToC_32fc;
  static constexpr const char* family = "fft_fwd_32fc";
  using Plan = fftwf_plan;
  using Peer = fftwf_complex;
  static constexpr auto plan = fftwf_plan_dft_1d;
  static constexpr auto execute = fftwf_execute;
  static constexpr auto destroy = fftwf_destroy_plan;
};
template <>
struct Api<Mox64f> {
  using Element = Mox64fc;
  static constexpr auto init = moxsFFTInitAlloc_C_64fc;
  static constexpr auto free = moxsFFTFree_C_64fc;
  static constexpr auto bufSize = moxsFFTGetBufSize_C_64fc;
  static constexpr auto forward = moxsFFTFwd_CToC_64fc;
  static constexpr const char* family = "fft_fwd_64fc";
  using Plan = fftw_plan;
  using Peer = fftw_complex;
  static constexpr auto plan = fftw_plan_dft_1d;
  static constexpr auto execute = fftw_execute;
  static constexpr auto destroy = fftw_destroy_plan;
};

// The same arrays serve both, aligned as each likes best.
template <class F>
class Data {
  using Element = typename Api<F>::Element;
  using Peer = typename Api<F>::Peer;

 public:
  explicit Data(int order) : n_(1 << order), src_(array()), dst_(array()) {
    plan_ = Api<F>::plan(n_, reinterpret_cast<Peer*>(src_), reinterpret_cast<Peer*>(dst_),
                         FFTW_FORWARD, FFTW_MEASURE);
    Api<F>::init(&spec_, order, 8, 0);
    int bytes;
    Api<F>::bufSize(spec_, &bytes);
    buffer_ = moxsMalloc_8u(bytes + 1);
    for (int i = 0; i < n_; ++i) src_[i] = {F(std::sin(0.1 * i)), F(std::cos(0.2 * i))};
  }
  ~Data() {
    Api<F>::destroy(plan_);
    Api<F>::free(spec_);
    moxsFree(buffer_);
    moxsFree(src_);
    moxsFree(dst_);
  }
  Data(const Data&) = delete;
  Data& operator=(const Data&) = delete;

  void runOurs() const { Api<F>::forward(src_, dst_, spec_, buffer_); }
  void runPeer() const { Api<F>::execute(plan_); }

 private:
  Element* array() const {
    return reinterpret_cast<Element*>(moxsMalloc_8u(n_ * int(sizeof(Element))));
  }

  int n_;
  Element *src_, *dst_;
  MoxsFFTSpec* spec_ = nullptr;
  Mox8u* buffer_;
  typename Api<F>::Plan plan_;
};

// Planning takes long, so a case gets its data when it first runs.
template <class F>
void addCase(int order) {
  const auto holder = std::make_shared<std::unique_ptr<Data<F>>>();
  const auto data = [=]() -> const Data<F>& {
    if (!*holder) *holder = std::make_unique<Data<F>>(order);
    return **holder;
  };
  const double n = std::ldexp(1, order);
  bench::Work work{.bytesRead = 2 * n * sizeof(F), .bytesWritten = 2 * n * sizeof(F)};
  (sizeof(F) == 4 ? work.floatOps : work.doubleOps) = 5 * n * order;
  bench::add({.family = Api<F>::family,
              .size = long(n),
              .work = work,
              .ours = [=] { data().runOurs(); },
              .peers = {{"fftw", [=] { data().runPeer(); }}}});
}

const bool registered = [] {
  const bench::Group group("transforms");
  for (int order = 4; order <= 20; ++order) addCase<Mox32f>(order);
  for (int order = 4; order <= 20; ++order) addCase<Mox64f>(order);
  return true;
}();

}  // namespace
