// The public transforms of real signals of any length.
#include <moxsp/dft.h>

#include "frame/export.h"
#include "transforms/dft_object.h"
#include "transforms/dft_run.h"
#include "transforms/packed_layouts.h"

namespace mox::transforms {
namespace {

template <class F>
constexpr DftKind kind = sizeof(F) == 4 ? dftReal32f : dftReal64f;

template <PackedLayout Layout, class F>
MoxStatus forward(const F* src, F* dst, const MoxsDFTSpec* spec, Mox8u* buffer) {
  return runDft<DftSpec<F>, F>(
      spec, kind<F>, anyNull(src, dst), buffer,
      [=](const DftSpec<F>& plan, F* work) { ownDftRealForward<Layout>(plan, src, dst, work); });
}
template <PackedLayout Layout, class F>
MoxStatus inverse(const F* src, F* dst, const MoxsDFTSpec* spec, Mox8u* buffer) {
  return runDft<DftSpec<F>, F>(
      spec, kind<F>, anyNull(src, dst), buffer,
      [=](const DftSpec<F>& plan, F* work) { ownDftRealInverse<Layout>(plan, src, dst, work); });
}

}  // namespace

MOX_EXPORT(moxsDFTFwd_RToPerm_32f, forward<PermLayout>);
MOX_EXPORT(moxsDFTFwd_RToPerm_64f, forward<PermLayout>);
MOX_EXPORT(moxsDFTFwd_RToPack_32f, forward<PackLayout>);
MOX_EXPORT(moxsDFTFwd_RToPack_64f, forward<PackLayout>);
MOX_EXPORT(moxsDFTFwd_RToCCS_32f, forward<CcsLayout>);
MOX_EXPORT(moxsDFTFwd_RToCCS_64f, forward<CcsLayout>);
MOX_EXPORT(moxsDFTInv_PermToR_32f, inverse<PermLayout>);
MOX_EXPORT(moxsDFTInv_PermToR_64f, inverse<PermLayout>);
MOX_EXPORT(moxsDFTInv_PackToR_32f, inverse<PackLayout>);
MOX_EXPORT(moxsDFTInv_PackToR_64f, inverse<PackLayout>);
MOX_EXPORT(moxsDFTInv_CCSToR_32f, inverse<CcsLayout>);
MOX_EXPORT(moxsDFTInv_CCSToR_64f, inverse<CcsLayout>);

}  // namespace mox::transforms
