// The public transforms of complex vectors of any length.
#include <moxsp/dft.h>

#include "frame/export.h"
#include "transforms/dft_object.h"
#include "transforms/dft_run.h"

namespace mox::transforms {
namespace {

template <Direction d, DftKind kind, class View>
MoxStatus run(typename View::Const src, View dst, const MoxsDFTSpec* spec, Mox8u* buffer) {
  using F = typename View::F;
  return runDft<DftSpec<F>, F>(
      spec, kind, src.anyNull() || dst.anyNull(), buffer,
      [=](const DftSpec<F>& plan, F* work) { ownDftRun<d>(plan, src, dst, work); });
}

template <Direction d, class C>
MoxStatus transform(const C* src, C* dst, const MoxsDFTSpec* spec, Mox8u* buffer) {
  constexpr DftKind kind = sizeof(Part<C>) == 4 ? dftComplex32fc : dftComplex64fc;
  return run<d, kind, Array<C>>({src}, {dst}, spec, buffer);
}
template <Direction d, class F>
MoxStatus transformSplit(const F* srcRe, const F* srcIm, F* dstRe, F* dstIm,
                         const MoxsDFTSpec* spec, Mox8u* buffer) {
  constexpr DftKind kind = sizeof(F) == 4 ? dftComplex32f : dftComplex64f;
  return run<d, kind, Split<F>>({srcRe, srcIm}, {dstRe, dstIm}, spec, buffer);
}

}  // namespace

MOX_EXPORT(moxsDFTFwd_CToC_32fc, transform<fwd>);
MOX_EXPORT(moxsDFTInv_CToC_32fc, transform<inv>);
MOX_EXPORT(moxsDFTFwd_CToC_64fc, transform<fwd>);
MOX_EXPORT(moxsDFTInv_CToC_64fc, transform<inv>);
MOX_EXPORT(moxsDFTFwd_CToC_32f, transformSplit<fwd>);
MOX_EXPORT(moxsDFTInv_CToC_32f, transformSplit<inv>);
MOX_EXPORT(moxsDFTFwd_CToC_64f, transformSplit<fwd>);
MOX_EXPORT(moxsDFTInv_CToC_64f, transformSplit<inv>);

}  // namespace mox::transforms
