// Products of two spectra of one layout: the spectrum of a circular convolution, or with the
// conjugate of one of them of a circular correlation.
#include <moxsp/transforms.h>

#include "frame/checks.h"
#include "frame/export.h"
#include "frame/in_place.h"
#include "transforms/packed_product.h"

namespace mox::transforms {
namespace {

template <PackedLayout Layout, class F>
MoxStatus mul(const F* src1, const F* src2, F* dst, int len) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  mulPacked<Layout>(src1, src2, dst, len);
  return moxOk;
}

template <PackedLayout Layout, class F>
MoxStatus mulConjugate(const F* src, F* srcDst, int len) {
  if (MoxStatus s = checkArrays(len, src, srcDst)) return s;
  mulPackedConjugate<Layout>(src, srcDst, srcDst, len);
  return moxOk;
}

template <PackedLayout Layout>
MoxStatus mulScaled(const Mox16s* src1, const Mox16s* src2, Mox16s* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  const Scale<Mox16s, 31> scale(scaleFactor);
  forEnds<Layout>(len, [=](long place) {
    store(dst + place, scale.apply(load<Mox16s>(src1 + place) * load<Mox16s>(src2 + place)));
  });
  arith::mulComplexScaled(scaleFactor, interior<Layout>(dst, len), interiorPairs(len),
                          interior<Layout>(src1, len), interior<Layout>(src2, len));
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsMulPack_32f, mul<PackLayout>);
MOX_EXPORT_BOTH(moxsMulPack_64f, moxsMulPack_64f_I, mul<PackLayout>);
MOX_EXPORT_IN_PLACE(moxsMulPack_32f_I, mul<PackLayout, Mox32f>);
MOX_EXPORT_BOTH(moxsMulPerm_32f, moxsMulPerm_32f_I, mul<PermLayout>);
MOX_EXPORT_BOTH(moxsMulPerm_64f, moxsMulPerm_64f_I, mul<PermLayout>);
MOX_EXPORT_BOTH(moxsMulPack_16s_Sfs, moxsMulPack_16s_ISfs, mulScaled<PackLayout>);
MOX_EXPORT_BOTH(moxsMulPerm_16s_Sfs, moxsMulPerm_16s_ISfs, mulScaled<PermLayout>);
MOX_EXPORT(moxsMulPackConj_32f_I, mulConjugate<PackLayout>);
MOX_EXPORT(moxsMulPackConj_64f_I, mulConjugate<PackLayout>);

}  // namespace mox::transforms
