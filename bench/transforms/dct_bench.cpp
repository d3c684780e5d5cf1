// The DCT beside FFTW's, planned by measurement.
#include <fftw3.h>
#include <moxsp.h>

#include <cmath>
#include <memory>

#include "support/vectors.h"

namespace {

template <class F>
struct Api;
template <>
struct Api<Mox32f> {
  static constexpr const char *forward = "dct_fwd_32f", *inverse = "dct_inv_32f";
  static constexpr decltype(&moxsDCTFwd_32f) run[] = {moxsDCTFwd_32f, moxsDCTInv_32f};
  static constexpr decltype(&moxsDCTFwdFree_32f) free[] = {moxsDCTFwdFree_32f, moxsDCTInvFree_32f};
  static constexpr decltype(&moxsDCTFwdInitAlloc_32f) init[] = {moxsDCTFwdInitAlloc_32f,
                                                                moxsDCTInvInitAlloc_32f};
  static constexpr decltype(&moxsDCTFwdGetBufSize_32f) bufSize[] = {moxsDCTFwdGetBufSize_32f,
                                                                    moxsDCTInvGetBufSize_32f};
  using Plan = fftwf_plan;
  static constexpr auto plan = fftwf_plan_r2r_1d;
  static constexpr auto execute = fftwf_execute;
  static constexpr auto destroy = fftwf_destroy_plan;
};
template <>
struct Api<Mox64f> {
  static constexpr const char *forward = "dct_fwd_64f", *inverse = "dct_inv_64f";
  static constexpr decltype(&moxsDCTFwd_64f) run[] = {moxsDCTFwd_64f, moxsDCTInv_64f};
  static constexpr decltype(&moxsDCTFwdFree_64f) free[] = {moxsDCTFwdFree_64f, moxsDCTInvFree_64f};
  static constexpr decltype(&moxsDCTFwdInitAlloc_64f) init[] = {moxsDCTFwdInitAlloc_64f,
                                                                moxsDCTInvInitAlloc_64f};
  static constexpr decltype(&moxsDCTFwdGetBufSize_64f) bufSize[] = {moxsDCTFwdGetBufSize_64f,
                                                                    moxsDCTInvGetBufSize_64f};
  using Plan = fftw_plan;
  static constexpr auto plan = fftw_plan_r2r_1d;
  static constexpr auto execute = fftw_execute;
  static constexpr auto destroy = fftw_destroy_plan;
};

template <class F>
struct Data {
  Data(int len, bool isInverse)
      : inverse(isInverse), src(len), dst(len), peerSrc(len), peerDst(len) {
    Api<F>::init[inverse](&spec, len, 0);
    int bytes = 0;
    Api<F>::bufSize[inverse](spec, &bytes);
    work = bytes ? moxsMalloc_8u(bytes) : nullptr;
    plan = Api<F>::plan(len, peerSrc.data(), peerDst.data(), inverse ? FFTW_REDFT01 : FFTW_REDFT10,
                        FFTW_MEASURE);
    for (int i = 0; i < len; ++i) src.data()[i] = peerSrc.data()[i] = F(std::sin(0.1 * i));
  }
  ~Data() {
    Api<F>::destroy(plan);
    Api<F>::free[inverse](spec);
    moxsFree(work);
  }
  Data(const Data&) = delete;
  Data& operator=(const Data&) = delete;

  bool inverse;
  bench::Vector<F> src, dst, peerSrc, peerDst;
  MoxsDCTSpec* spec = nullptr;
  Mox8u* work;
  typename Api<F>::Plan plan;
};

template <class F>
void addCase(int len, bool inverse) {
  const auto d = std::make_shared<Data<F>>(len, inverse);
  const double flops = 2.5 * len * std::log2(len);
  bench::Work work{.bytesRead = double(sizeof(F)) * len, .bytesWritten = double(sizeof(F)) * len};
  (sizeof(F) == 4 ? work.floatOps : work.doubleOps) = flops;
  bench::add(
      inverse ? Api<F>::inverse : Api<F>::forward, len, work, d,
      {{"moxsp", [&d = *d] { Api<F>::run[d.inverse](d.src.data(), d.dst.data(), d.spec, d.work); }},
       {"fftw", [&d = *d] { Api<F>::execute(d.plan); }}});
}

const bool registered = [] {
  for (const bool inverse : {false, true})
    for (const int len : {8, 16, 24, 35, 64, 100, 509, 512, 1000, 4096, 8191}) {
      addCase<Mox32f>(len, inverse);
      addCase<Mox64f>(len, inverse);
    }
  return true;
}();

}  // namespace
