// Real transforms beside FFTW's, planned by measurement, from order 4 to 20.
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
  static constexpr auto init = moxsFFTInitAlloc_R_32f;
  static constexpr auto free = moxsFFTFree_R_32f;
  static constexpr auto forward = moxsFFTFwd_RToPerm_32f;
  static constexpr auto inverse = moxsFFTInv_PermToR_32f;
  static constexpr const char* type = "32f";
  using Plan = fftwf_plan;
  using Bin = fftwf_complex;
  static constexpr auto planForward = fftwf_plan_dft_r2c_1d;
  static constexpr auto planInverse = fftwf_plan_dft_c2r_1d;
  static constexpr auto execute = fftwf_execute;
  static constexpr auto destroy = fftwf_destroy_plan;
};
template <>
struct Api<Mox64f> {
  static constexpr auto init = moxsFFTInitAlloc_R_64f;
  static constexpr auto free = moxsFFTFree_R_64f;
  static constexpr auto forward = moxsFFTFwd_RToPerm_64f;
  static constexpr auto inverse = moxsFFTInv_PermToR_64f;
  static constexpr const char* type = "64f";
  using Plan = fftw_plan;
  using Bin = fftw_complex;
  static constexpr auto planForward = fftw_plan_dft_r2c_1d;
  static constexpr auto planInverse = fftw_plan_dft_c2r_1d;
  static constexpr auto execute = fftw_execute;
  static constexpr auto destroy = fftw_destroy_plan;
};

// Everything that both libraries run on, aligned as each likes best.
template <class F>
class Data {
 public:
  Data(int order, bool inverse) : n(1 << order) {
    src = array();
    dst = array();
    peerSrc = array();
    peerDst = array();
    Api<F>::init(&spec, order, 8, 0);
    const auto bins = [](F* p) { return reinterpret_cast<typename Api<F>::Bin*>(p); };
    plan = inverse ? Api<F>::planInverse(n, bins(peerSrc), peerDst, FFTW_MEASURE)
                   : Api<F>::planForward(n, peerSrc, bins(peerDst), FFTW_MEASURE);
    work = moxsMalloc_8u(64 + int(sizeof(F)) * 2 * n);
    for (int i = 0; i < n; ++i) src[i] = peerSrc[i] = F(std::sin(0.1 * i));
  }
  ~Data() {
    Api<F>::destroy(plan);
    Api<F>::free(spec);
    for (F* p : {src, dst, peerSrc, peerDst}) fftw_free(p);
    moxsFree(work);
  }
  Data(const Data&) = delete;
  Data& operator=(const Data&) = delete;

  int n;
  F *src, *dst, *peerSrc, *peerDst;
  MoxsFFTSpec* spec = nullptr;
  Mox8u* work;
  typename Api<F>::Plan plan;

 private:
  F* array() const { return static_cast<F*>(fftw_malloc(sizeof(F) * (n + 2))); }
};

// Planning takes long, so a case gets its data when it first runs.
template <class F>
void addCase(int order, bool inverse) {
  const auto holder = std::make_shared<std::unique_ptr<Data<F>>>();
  const auto data = [=]() -> Data<F>& {
    if (!*holder) *holder = std::make_unique<Data<F>>(order, inverse);
    return **holder;
  };
  const double n = std::ldexp(1, order), flops = 2.5 * n * order;
  bench::Work work{.bytesRead = n * sizeof(F), .bytesWritten = n * sizeof(F)};
  (sizeof(F) == 4 ? work.floatOps : work.doubleOps) = flops;
  const auto ours = inverse ? Api<F>::inverse : Api<F>::forward;
  bench::add(
      {.family = std::string(inverse ? "fft_inv_perm_to_r_" : "fft_fwd_r_to_perm_") + Api<F>::type,
       .size = long(n),
       .work = work,
       .ours =
           [=] {
             Data<F>& d = data();
             ours(d.src, d.dst, d.spec, d.work);
           },
       .peers = {{"fftw", [=] { Api<F>::execute(data().plan); }}}});
}

const bool registered = [] {
  const bench::Group group("transforms");
  for (const bool inverse : {false, true})
    for (int order = 4; order <= 20; ++order) {
      addCase<Mox32f>(order, inverse);
      addCase<Mox64f>(order, inverse);
    }
  return true;
}();

}  // namespace
