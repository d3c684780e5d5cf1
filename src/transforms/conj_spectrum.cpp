// The public forms of packed spectra written out.
#include "transforms/conj_spectrum.h"

#include <moxsp/transforms.h>

#include "frame/checks.h"
#include "frame/export.h"

namespace mox::transforms {
namespace {

template <PackedLayout Layout, Complex C>
MoxStatus expand(const Part<C>* src, C* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  expandSpectrum<Layout>(src, dst, len);
  return moxOk;
}

template <PackedLayout Layout, Complex C>
MoxStatus expandInPlace(C* srcDst, int len) {
  return expand<Layout>(parts(srcDst), srcDst, len);
}

}  // namespace

MOX_EXPORT(moxsConjPack_32fc, expand<PackLayout, Mox32fc>);
MOX_EXPORT(moxsConjPack_64fc, expand<PackLayout, Mox64fc>);
MOX_EXPORT(moxsConjPack_16sc, expand<PackLayout, Mox16sc>);
MOX_EXPORT(moxsConjPack_32fc_I, expandInPlace<PackLayout, Mox32fc>);
MOX_EXPORT(moxsConjPack_64fc_I, expandInPlace<PackLayout, Mox64fc>);
MOX_EXPORT(moxsConjPack_16sc_I, expandInPlace<PackLayout, Mox16sc>);
MOX_EXPORT(moxsConjPerm_32fc, expand<PermLayout, Mox32fc>);
MOX_EXPORT(moxsConjPerm_64fc, expand<PermLayout, Mox64fc>);
MOX_EXPORT(moxsConjPerm_16sc, expand<PermLayout, Mox16sc>);
MOX_EXPORT(moxsConjPerm_32fc_I, expandInPlace<PermLayout, Mox32fc>);
MOX_EXPORT(moxsConjPerm_64fc_I, expandInPlace<PermLayout, Mox64fc>);
MOX_EXPORT(moxsConjPerm_16sc_I, expandInPlace<PermLayout, Mox16sc>);
MOX_EXPORT(moxsConjCcs_32fc, expand<CcsLayout, Mox32fc>);
MOX_EXPORT(moxsConjCcs_64fc, expand<CcsLayout, Mox64fc>);
MOX_EXPORT(moxsConjCcs_16sc, expand<CcsLayout, Mox16sc>);
MOX_EXPORT(moxsConjCcs_32fc_I, expandInPlace<CcsLayout, Mox32fc>);
MOX_EXPORT(moxsConjCcs_64fc_I, expandInPlace<CcsLayout, Mox64fc>);
MOX_EXPORT(moxsConjCcs_16sc_I, expandInPlace<CcsLayout, Mox16sc>);

}  // namespace mox::transforms
