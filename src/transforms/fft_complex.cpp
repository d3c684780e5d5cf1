#include "transforms/fft_complex.h"

#include <moxsp/transforms.h>

#include "frame/checks.h"
#include "frame/elements.h"
#include "frame/export.h"
#include "frame/in_place.h"
#include "frame/object.h"
#include "frame/work_buffer.h"

namespace mox {
namespace {

// The record first, then the data.
template <Direction d, FftKind kind, class F, template <class> class Layout, class... P>
MoxStatus run(Layout<const F> src, Layout<F> dst, const MoxsFFTSpec* object, Mox8u* buffer,
              const P*... data) {
  if (anyNull(object)) return moxErrNullPtr;
  if (MoxStatus s = requireId(object, kind)) return s;
  if (anyNull(data...)) return moxErrNullPtr;
  const auto& spec = static_cast<const FftSpec<F>&>(*object);
  const WorkBuffer work(buffer, spec.bufSize);
  if (work.failed()) return moxErrMemAlloc;
  ownFftRun<F, d, Layout>(spec, src, dst, spec.order, work.template as<F>());
  return moxOk;
}

template <Direction d, class C>
MoxStatus transform(const C* src, C* dst, const MoxsFFTSpec* spec, Mox8u* buffer) {
  using F = Part<C>;
  return run<d, fftComplexId<C>, F>(Interleaved<const F>{parts(src)}, Interleaved<F>{parts(dst)},
                                    spec, buffer, src, dst);
}

template <Direction d, class F>
MoxStatus transformSplit(const F* srcRe, const F* srcIm, F* dstRe, F* dstIm,
                         const MoxsFFTSpec* spec, Mox8u* buffer) {
  constexpr FftKind kind = sizeof(F) == 4 ? fftComplex32f : fftComplex64f;
  return run<d, kind, F>(Split<const F>{srcRe, srcIm}, Split<F>{dstRe, dstIm}, spec, buffer, srcRe,
                         srcIm, dstRe, dstIm);
}

template <Direction d, class F>
MoxStatus transformSplitInPlace(F* srcDstRe, F* srcDstIm, const MoxsFFTSpec* spec, Mox8u* buffer) {
  return transformSplit<d, F>(srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, buffer);
}

constexpr Direction fwd = Direction::forward, inv = Direction::inverse;

}  // namespace

template <Direction d, class E>
MoxStatus ownFftCToC(const E* src, E* dst, const MoxsFFTSpec* spec, Mox8u* buffer) {
  return transform<d>(src, dst, spec, buffer);
}
template MoxStatus ownFftCToC<fwd>(const Mox32fc*, Mox32fc*, const MoxsFFTSpec*, Mox8u*);
template MoxStatus ownFftCToC<inv>(const Mox32fc*, Mox32fc*, const MoxsFFTSpec*, Mox8u*);
template MoxStatus ownFftCToC<fwd>(const Mox64fc*, Mox64fc*, const MoxsFFTSpec*, Mox8u*);
template MoxStatus ownFftCToC<inv>(const Mox64fc*, Mox64fc*, const MoxsFFTSpec*, Mox8u*);

MOX_EXPORT(moxsFFTFwd_CToC_32fc, transform<fwd, Mox32fc>);
MOX_EXPORT(moxsFFTInv_CToC_32fc, transform<inv, Mox32fc>);
MOX_EXPORT(moxsFFTFwd_CToC_64fc, transform<fwd, Mox64fc>);
MOX_EXPORT(moxsFFTInv_CToC_64fc, transform<inv, Mox64fc>);
MOX_EXPORT(moxsFFTFwd_CToC_32fc_I, inPlace<transform<fwd, Mox32fc>>);
MOX_EXPORT(moxsFFTInv_CToC_32fc_I, inPlace<transform<inv, Mox32fc>>);
MOX_EXPORT(moxsFFTFwd_CToC_64fc_I, inPlace<transform<fwd, Mox64fc>>);
MOX_EXPORT(moxsFFTInv_CToC_64fc_I, inPlace<transform<inv, Mox64fc>>);
MOX_EXPORT(moxsFFTFwd_CToC_32f, transformSplit<fwd, Mox32f>);
MOX_EXPORT(moxsFFTInv_CToC_32f, transformSplit<inv, Mox32f>);
MOX_EXPORT(moxsFFTFwd_CToC_64f, transformSplit<fwd, Mox64f>);
MOX_EXPORT(moxsFFTInv_CToC_64f, transformSplit<inv, Mox64f>);
MOX_EXPORT(moxsFFTFwd_CToC_32f_I, transformSplitInPlace<fwd, Mox32f>);
MOX_EXPORT(moxsFFTInv_CToC_32f_I, transformSplitInPlace<inv, Mox32f>);
MOX_EXPORT(moxsFFTFwd_CToC_64f_I, transformSplitInPlace<fwd, Mox64f>);
MOX_EXPORT(moxsFFTInv_CToC_64f_I, transformSplitInPlace<inv, Mox64f>);

}  // namespace mox
