// The public transforms of complex vectors.
#include <moxsp/transforms.h>

#include "frame/export.h"
#include "frame/in_place.h"
#include "frame/work_buffer.h"
#include "transforms/fft_run.h"
#include "transforms/transform_call.h"

namespace mox::transforms {
namespace {

template <Direction d, FftKind kind, class View>
MoxStatus run(typename View::Const src, View dst, const MoxsFFTSpec* object, Mox8u* buffer) {
  using F = typename View::F;
  if (MoxStatus s = checkCall(object, kind, src.anyNull() || dst.anyNull())) return s;
  const auto& spec = static_cast<const FftSpec<F>&>(*object);
  const WorkBuffer work(buffer, ownFftWork(spec, spec.order));
  if (work.failed()) return moxErrMemAlloc;
  ownFftRun<d>(spec, src, dst, spec.order, work.template as<F>());
  return moxOk;
}

template <Direction d, class C>
MoxStatus transform(const C* src, C* dst, const MoxsFFTSpec* spec, Mox8u* buffer) {
  constexpr FftKind kind = sizeof(Part<C>) == 4 ? fftComplex32fc : fftComplex64fc;
  return run<d, kind, Array<C>>({src}, {dst}, spec, buffer);
}

template <Direction d, class F>
MoxStatus transformSplit(const F* srcRe, const F* srcIm, F* dstRe, F* dstIm,
                         const MoxsFFTSpec* spec, Mox8u* buffer) {
  constexpr FftKind kind = sizeof(F) == 4 ? fftComplex32f : fftComplex64f;
  return run<d, kind, Split<F>>({srcRe, srcIm}, {dstRe, dstIm}, spec, buffer);
}

template <Direction d, class F>
MoxStatus transformSplitInPlace(F* srcDstRe, F* srcDstIm, const MoxsFFTSpec* spec, Mox8u* buffer) {
  return transformSplit<d, F>(srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, buffer);
}

}  // namespace

MOX_EXPORT(moxsFFTFwd_CToC_32fc, transform<fwd>);
MOX_EXPORT_BOTH(moxsFFTInv_CToC_32fc, moxsFFTInv_CToC_32fc_I, transform<inv>);
MOX_EXPORT_BOTH(moxsFFTFwd_CToC_64fc, moxsFFTFwd_CToC_64fc_I, transform<fwd>);
MOX_EXPORT_BOTH(moxsFFTInv_CToC_64fc, moxsFFTInv_CToC_64fc_I, transform<inv>);
MOX_EXPORT_IN_PLACE(moxsFFTFwd_CToC_32fc_I, transform<fwd, Mox32fc>);
MOX_EXPORT(moxsFFTFwd_CToC_32f, transformSplit<fwd>);
MOX_EXPORT(moxsFFTInv_CToC_32f, transformSplit<inv>);
MOX_EXPORT(moxsFFTFwd_CToC_64f, transformSplit<fwd>);
MOX_EXPORT(moxsFFTInv_CToC_64f, transformSplit<inv>);
MOX_EXPORT(moxsFFTFwd_CToC_32f_I, transformSplitInPlace<fwd>);
MOX_EXPORT(moxsFFTInv_CToC_32f_I, transformSplitInPlace<inv>);
MOX_EXPORT(moxsFFTFwd_CToC_64f_I, transformSplitInPlace<fwd>);
MOX_EXPORT(moxsFFTInv_CToC_64f_I, transformSplitInPlace<inv>);

}  // namespace mox::transforms
