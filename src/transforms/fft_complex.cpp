#include "transforms/fft_complex.h"

#include <moxsp/transforms.h>

#include "arith/mul_constant.h"
#include "frame/checks.h"
#include "frame/export.h"
#include "frame/object.h"
#include "frame/work_buffer.h"

namespace mox {
namespace {

template <class F>
void multiply(F factor, Interleaved<F> dst, long n) {
  ownsMulC_I(factor, dst.parts, 2 * n);
}
template <class F>
void multiply(F factor, Split<F> dst, long n) {
  ownsMulC_I(factor, dst.re, n);
  ownsMulC_I(factor, dst.im, n);
}

}  // namespace

template <class F, Direction d, template <class> class Layout>
void ownFftRun(const FftSpec<F>& spec, Layout<const F> src, Layout<F> dst, int order, F* work) {
  constexpr bool forward = d == Direction::forward;
  const bool scales = forward ? spec.fwdNorm : spec.invNorm;
  if (order <= fftMaxSmallOrder) {
    if (scales)
      ownFftSmall<F, d, Layout>::scaled[order](src, dst, spec.normFactor);
    else
      ownFftSmall<F, d, Layout>::plain[order](src, dst);
  } else if (order < FftLimits<F>::largeOrder) {
    constexpr auto mid = forward ? ownFftMid<F, Layout> : ownFftMidInv<F, Layout>;
    mid(src, dst, 1L << order, spec.twiddle, spec.bitRev, work);
    if (scales) multiply(spec.normFactor, dst, 1L << order);
  } else {
    constexpr auto large = forward ? ownFftLarge<F, Layout> : ownFftLargeInv<F, Layout>;
    large(spec, src, dst, order, work);
  }
}

#define MOX_INSTANTIATE(F, Layout)                                                              \
  template void ownFftRun<F, Direction::forward>(const FftSpec<F>&, Layout<const F>, Layout<F>, \
                                                 int, F*);                                      \
  template void ownFftRun<F, Direction::inverse>(const FftSpec<F>&, Layout<const F>, Layout<F>, \
                                                 int, F*)
MOX_INSTANTIATE(Mox32f, Interleaved);
MOX_INSTANTIATE(Mox32f, Split);
MOX_INSTANTIATE(Mox64f, Interleaved);
MOX_INSTANTIATE(Mox64f, Split);
#undef MOX_INSTANTIATE

namespace {

template <Direction d, class F, template <class> class Layout>
MoxStatus run(Layout<const F> src, Layout<F> dst, const MoxsFFTSpec* spec, Mox8u* buffer) {
  const auto& record = static_cast<const FftSpec<F>&>(*spec);
  const WorkBuffer work(buffer, record.bufSize);
  if (work.failed()) return moxErrMemAlloc;
  ownFftRun<F, d>(record, src, dst, record.order, work.template as<F>());
  return moxOk;
}

}  // namespace

template <Direction d, class E>
MoxStatus ownFftCToC(const E* src, E* dst, const MoxsFFTSpec* spec, Mox8u* buffer) {
  using F = Part<E>;
  if (!spec) return moxErrNullPtr;
  if (MoxStatus s = requireId(spec, fftComplexId<E>)) return s;
  if (anyNull(src, dst)) return moxErrNullPtr;
  return run<d>(Interleaved<const F>{parts(src)}, Interleaved<F>{parts(dst)}, spec, buffer);
}

#define MOX_INSTANTIATE(E)                                                                     \
  template MoxStatus ownFftCToC<Direction::forward>(const E*, E*, const MoxsFFTSpec*, Mox8u*); \
  template MoxStatus ownFftCToC<Direction::inverse>(const E*, E*, const MoxsFFTSpec*, Mox8u*)
MOX_INSTANTIATE(Mox32fc);
MOX_INSTANTIATE(Mox64fc);
#undef MOX_INSTANTIATE

namespace {

template <Direction d, class E>
MoxStatus interleavedInPlace(E* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer) {
  return ownFftCToC<d>(srcDst, srcDst, spec, buffer);
}

template <Direction d, class F>
MoxStatus split(const F* srcRe, const F* srcIm, F* dstRe, F* dstIm, const MoxsFFTSpec* spec,
                Mox8u* buffer) {
  if (!spec) return moxErrNullPtr;
  if (MoxStatus s = requireId(spec, sizeof(F) == 4 ? fftComplex32f : fftComplex64f)) return s;
  if (anyNull(srcRe, srcIm, dstRe, dstIm)) return moxErrNullPtr;
  return run<d>(Split<const F>{srcRe, srcIm}, Split<F>{dstRe, dstIm}, spec, buffer);
}

template <Direction d, class F>
MoxStatus splitInPlace(F* srcDstRe, F* srcDstIm, const MoxsFFTSpec* spec, Mox8u* buffer) {
  return split<d, F>(srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, buffer);
}

constexpr Direction fwd = Direction::forward, inv = Direction::inverse;

}  // namespace

MOX_EXPORT(moxsFFTFwd_CToC_32fc, ownFftCToC<fwd, Mox32fc>);
MOX_EXPORT(moxsFFTInv_CToC_32fc, ownFftCToC<inv, Mox32fc>);
MOX_EXPORT(moxsFFTFwd_CToC_64fc, ownFftCToC<fwd, Mox64fc>);
MOX_EXPORT(moxsFFTInv_CToC_64fc, ownFftCToC<inv, Mox64fc>);
MOX_EXPORT(moxsFFTFwd_CToC_32fc_I, interleavedInPlace<fwd, Mox32fc>);
MOX_EXPORT(moxsFFTInv_CToC_32fc_I, interleavedInPlace<inv, Mox32fc>);
MOX_EXPORT(moxsFFTFwd_CToC_64fc_I, interleavedInPlace<fwd, Mox64fc>);
MOX_EXPORT(moxsFFTInv_CToC_64fc_I, interleavedInPlace<inv, Mox64fc>);
MOX_EXPORT(moxsFFTFwd_CToC_32f, split<fwd, Mox32f>);
MOX_EXPORT(moxsFFTInv_CToC_32f, split<inv, Mox32f>);
MOX_EXPORT(moxsFFTFwd_CToC_64f, split<fwd, Mox64f>);
MOX_EXPORT(moxsFFTInv_CToC_64f, split<inv, Mox64f>);
MOX_EXPORT(moxsFFTFwd_CToC_32f_I, splitInPlace<fwd, Mox32f>);
MOX_EXPORT(moxsFFTInv_CToC_32f_I, splitInPlace<inv, Mox32f>);
MOX_EXPORT(moxsFFTFwd_CToC_64f_I, splitInPlace<fwd, Mox64f>);
MOX_EXPORT(moxsFFTInv_CToC_64f_I, splitInPlace<inv, Mox64f>);

}  // namespace mox
