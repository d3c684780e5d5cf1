// DFTs of lengths that are no powers of two, complex and real, beside FFTW's, planned by
// measurement.
#include <fftw3.h>
#include <moxsp.h>

#include <cmath>
#include <memory>
#include <string>

#include "support/compare.h"

namespace {

// A form of transform on numbers F: ours, and the peer's plan for `n` samples.
template <class F>
struct Peer;
template <>
struct Peer<Mox32f> {
  using Plan = fftwf_plan;
  static Plan complexPlan(int n, Mox32f* src, Mox32f* dst) {
    return fftwf_plan_dft_1d(n, reinterpret_cast<fftwf_complex*>(src),
                             reinterpret_cast<fftwf_complex*>(dst), FFTW_FORWARD, FFTW_MEASURE);
  }
  static Plan realPlan(int n, Mox32f* src, Mox32f* dst) {
    return fftwf_plan_dft_r2c_1d(n, src, reinterpret_cast<fftwf_complex*>(dst), FFTW_MEASURE);
  }
  static constexpr auto execute = fftwf_execute;
  static constexpr auto destroy = fftwf_destroy_plan;
};
template <>
struct Peer<Mox64f> {
  using Plan = fftw_plan;
  static Plan complexPlan(int n, Mox64f* src, Mox64f* dst) {
    return fftw_plan_dft_1d(n, reinterpret_cast<fftw_complex*>(src),
                            reinterpret_cast<fftw_complex*>(dst), FFTW_FORWARD, FFTW_MEASURE);
  }
  static Plan realPlan(int n, Mox64f* src, Mox64f* dst) {
    return fftw_plan_dft_r2c_1d(n, src, reinterpret_cast<fftw_complex*>(dst), FFTW_MEASURE);
  }
  static constexpr auto execute = fftw_execute;
  static constexpr auto destroy = fftw_destroy_plan;
};

struct Api {
  decltype(moxsDFTInitAlloc_C_32fc)* initAlloc;
  decltype(moxsDFTFree_C_32fc)* free;
  decltype(moxsDFTGetBufSize_C_32fc)* getBufSize;
};

// The same arrays serve both, aligned as each likes best.
template <class F, auto forward, auto plan>
class Data {
 public:
  Data(const Api& api, int n) : api_(api), src_(array(n)), dst_(array(n)) {
    plan_ = plan(n, src_, dst_);
    api.initAlloc(&spec_, n, 8, 0);
    int bytes;
    api.getBufSize(spec_, &bytes);
    buffer_ = moxsMalloc_8u(bytes + 1);
    for (int i = 0; i < 2 * n; ++i) src_[i] = F(std::sin(0.1 * i));
  }
  ~Data() {
    Peer<F>::destroy(plan_);
    api_.free(spec_);
    moxsFree(buffer_);
    moxsFree(src_);
    moxsFree(dst_);
  }
  Data(const Data&) = delete;
  Data& operator=(const Data&) = delete;

  void runOurs() const { forward(src_, dst_, spec_, buffer_); }
  void runPeer() const { Peer<F>::execute(plan_); }

 private:
  static F* array(int n) {
    return reinterpret_cast<F*>(moxsMalloc_8u(2 * (n + 1) * int(sizeof(F))));
  }

  const Api& api_;
  F *src_, *dst_;
  MoxsDFTSpec* spec_ = nullptr;
  Mox8u* buffer_;
  typename Peer<F>::Plan plan_;
};

// Planning takes long, so a case gets its data when it first runs.
template <class F, auto forward, auto plan>
void addCase(const char* family, const Api& api, int n, double parts) {
  using Case = Data<F, forward, plan>;
  const auto holder = std::make_shared<std::unique_ptr<Case>>();
  const auto data = [=, &api]() -> const Case& {
    if (!*holder) *holder = std::make_unique<Case>(api, n);
    return **holder;
  };
  bench::Work work{.bytesRead = parts * n * sizeof(F), .bytesWritten = parts * n * sizeof(F)};
  (sizeof(F) == 4 ? work.floatOps : work.doubleOps) = 2.5 * parts * n * std::log2(n);
  bench::add({.family = family,
              .size = n,
              .work = work,
              .ours = [=] { data().runOurs(); },
              .peers = {{"fftw", [=] { data().runPeer(); }}}});
}

constexpr Api c32fc = {moxsDFTInitAlloc_C_32fc, moxsDFTFree_C_32fc, moxsDFTGetBufSize_C_32fc};
constexpr Api c64fc = {moxsDFTInitAlloc_C_64fc, moxsDFTFree_C_64fc, moxsDFTGetBufSize_C_64fc};
constexpr Api r32f = {moxsDFTInitAlloc_R_32f, moxsDFTFree_R_32f, moxsDFTGetBufSize_R_32f};
constexpr Api r64f = {moxsDFTInitAlloc_R_64f, moxsDFTFree_R_64f, moxsDFTGetBufSize_R_64f};

template <auto function, class C, class F>
MoxStatus onParts(const F* src, F* dst, const MoxsDFTSpec* spec, Mox8u* buffer) {
  return function(reinterpret_cast<const C*>(src), reinterpret_cast<C*>(dst), spec, buffer);
}

const bool registered = [] {
  for (const int n :
       {12, 60, 100, 360, 1000, 1500, 2002, 4410, 10080, 53, 509, 8191, 315, 2187, 10395, 65520}) {
    addCase<Mox32f, onParts<moxsDFTFwd_CToC_32fc, Mox32fc, Mox32f>, Peer<Mox32f>::complexPlan>(
        "dft_fwd_32fc", c32fc, n, 2);
    addCase<Mox64f, onParts<moxsDFTFwd_CToC_64fc, Mox64fc, Mox64f>, Peer<Mox64f>::complexPlan>(
        "dft_fwd_64fc", c64fc, n, 2);
    addCase<Mox32f, moxsDFTFwd_RToCCS_32f, Peer<Mox32f>::realPlan>("dft_fwd_32f", r32f, n, 1);
    addCase<Mox64f, moxsDFTFwd_RToCCS_64f, Peer<Mox64f>::realPlan>("dft_fwd_64f", r64f, n, 1);
  }
  return true;
}();

}  // namespace
