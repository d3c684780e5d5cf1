// Sums, of two vectors and with a constant.
#include <moxsp/arith.h>

#include "arith/element_wise.h"
#include "arith/operations.h"
#include "arith/scaled.h"
#include "frame/export.h"
#include "frame/in_place.h"

namespace mox::arith {
namespace {

// A factor works on the sum that 64 bits hold.
constexpr auto saturatedSum = [](Int128 a, Int128 b) { return Int128(saturate<Mox64s>(a + b)); };

}  // namespace

MOX_EXPORT(moxsAdd_32f, mapPair<sum, Mox32f>);
MOX_EXPORT(moxsAdd_64f, mapPair<sum, Mox64f>);
MOX_EXPORT(moxsAdd_32f_I, inPlace<mapPair<sum, Mox32f>>);
MOX_EXPORT(moxsAdd_64f_I, inPlace<mapPair<sum, Mox64f>>);
MOX_EXPORT(moxsAdd_32fc, mapParts<sum, Mox32fc>);
MOX_EXPORT(moxsAdd_64fc, mapParts<sum, Mox64fc>);
MOX_EXPORT(moxsAdd_32fc_I, inPlace<mapParts<sum, Mox32fc>>);
MOX_EXPORT(moxsAdd_64fc_I, inPlace<mapParts<sum, Mox64fc>>);

MOX_EXPORT(moxsAddC_32f, mapUnlessZero<sum, Mox32f>);
MOX_EXPORT(moxsAddC_64f, mapUnlessZero<sum, Mox64f>);
MOX_EXPORT(moxsAddC_32f_I, inPlace<mapUnlessZero<sum, Mox32f>>);
MOX_EXPORT(moxsAddC_64f_I, inPlace<mapUnlessZero<sum, Mox64f>>);
MOX_EXPORT(moxsAddC_32fc, mapConstant<sum, Mox32fc>);
MOX_EXPORT(moxsAddC_64fc, mapConstant<sum, Mox64fc>);
MOX_EXPORT(moxsAddC_32fc_I, inPlace<mapConstant<sum, Mox32fc>>);
MOX_EXPORT(moxsAddC_64fc_I, inPlace<mapConstant<sum, Mox64fc>>);

MOX_EXPORT(moxsAdd_8u_Sfs, scalePair<sum, Mox8u>);
MOX_EXPORT(moxsAdd_8u_ISfs, inPlace<scalePair<sum, Mox8u>>);
MOX_EXPORT(moxsAdd_16s_Sfs, scalePair<sum, Mox16s>);
MOX_EXPORT(moxsAdd_16s_ISfs, inPlace<scalePair<sum, Mox16s>>);
MOX_EXPORT(moxsAdd_16u_Sfs, scalePair<sum, Mox16u>);
MOX_EXPORT(moxsAdd_16u_ISfs, inPlace<scalePair<sum, Mox16u>>);
MOX_EXPORT(moxsAdd_32s_Sfs, scalePair<sum, Mox32s>);
MOX_EXPORT(moxsAdd_32s_ISfs, inPlace<scalePair<sum, Mox32s>>);
MOX_EXPORT(moxsAdd_16sc_Sfs, scaleParts<sum, Mox16sc>);
MOX_EXPORT(moxsAdd_16sc_ISfs, inPlace<scaleParts<sum, Mox16sc>>);
MOX_EXPORT(moxsAdd_32sc_Sfs, scaleParts<sum, Mox32sc>);
MOX_EXPORT(moxsAdd_32sc_ISfs, inPlace<scaleParts<sum, Mox32sc>>);
MOX_EXPORT(moxsAdd_64s_Sfs, scalePair64<saturatedSum, Mox64s>);
MOX_EXPORT(moxsAdd_16s, saturatePair<sum, Mox16s>);
MOX_EXPORT(moxsAdd_16s_I, inPlace<saturatePair<sum, Mox16s>>);
MOX_EXPORT(moxsAdd_16u, saturatePair<sum, Mox16u>);
MOX_EXPORT(moxsAdd_32u, saturatePair<sum, Mox32u>);
MOX_EXPORT(moxsAdd_8u16u, saturatePair<sum, Mox8u, Mox8u, Mox16u>);
MOX_EXPORT(moxsAdd_16s32s_I, inPlace<saturatePair<sum, Mox16s, Mox32s, Mox32s>>);
MOX_EXPORT(moxsAdd_16s32f, pairToFloat<sum>);

MOX_EXPORT(moxsAddC_8u_Sfs, scaleConstant<sum, Mox8u>);
MOX_EXPORT(moxsAddC_8u_ISfs, inPlace<scaleConstant<sum, Mox8u>>);
MOX_EXPORT(moxsAddC_16s_Sfs, scaleConstant<sum, Mox16s>);
MOX_EXPORT(moxsAddC_16s_ISfs, inPlace<scaleConstant<sum, Mox16s>>);
MOX_EXPORT(moxsAddC_16u_Sfs, scaleConstant<sum, Mox16u>);
MOX_EXPORT(moxsAddC_16u_ISfs, inPlace<scaleConstant<sum, Mox16u>>);
MOX_EXPORT(moxsAddC_32s_Sfs, scaleConstant<sum, Mox32s>);
MOX_EXPORT(moxsAddC_32s_ISfs, inPlace<scaleConstant<sum, Mox32s>>);
MOX_EXPORT(moxsAddC_16sc_Sfs, scaleConstant<sum, Mox16sc>);
MOX_EXPORT(moxsAddC_16sc_ISfs, inPlace<scaleConstant<sum, Mox16sc>>);
MOX_EXPORT(moxsAddC_32sc_Sfs, scaleConstant<sum, Mox32sc>);
MOX_EXPORT(moxsAddC_32sc_ISfs, inPlace<scaleConstant<sum, Mox32sc>>);
MOX_EXPORT(moxsAddC_16s_I, inPlace<saturateConstant<sum, Mox16s>>);
MOX_EXPORT(moxsAddC_64s_Sfs, scaleConstant64<sum, Mox64s>);
MOX_EXPORT(moxsAddC_64u_Sfs, scaleConstant64<sum, Mox64u>);

}  // namespace mox::arith
