// Sums, of two vectors and with a constant.
#include <moxsp/arith.h>

#include "arith/element_wise.h"
#include "arith/operations.h"
#include "arith/scaled.h"
#include "frame/export.h"

namespace mox {
namespace {

// A factor works on the sum that 64 bits hold.
constexpr auto saturatedSum = [](Int128 a, Int128 b) { return Int128(saturate<Mox64s>(a + b)); };

}  // namespace

MOX_EXPORT(moxsAdd_32f, mapPair<sum, Mox32f, Mox32f, Mox32f>);
MOX_EXPORT(moxsAdd_64f, mapPair<sum, Mox64f, Mox64f, Mox64f>);
MOX_EXPORT(moxsAdd_32f_I, mapPairInPlace<sum, Mox32f, Mox32f>);
MOX_EXPORT(moxsAdd_64f_I, mapPairInPlace<sum, Mox64f, Mox64f>);
MOX_EXPORT(moxsAdd_32fc, mapParts<sum, Mox32fc>);
MOX_EXPORT(moxsAdd_64fc, mapParts<sum, Mox64fc>);
MOX_EXPORT(moxsAdd_32fc_I, mapPartsInPlace<sum, Mox32fc>);
MOX_EXPORT(moxsAdd_64fc_I, mapPartsInPlace<sum, Mox64fc>);

MOX_EXPORT(moxsAddC_32f, mapUnlessZero<sum, Mox32f>);
MOX_EXPORT(moxsAddC_64f, mapUnlessZero<sum, Mox64f>);
MOX_EXPORT(moxsAddC_32f_I, mapUnlessZeroInPlace<sum, Mox32f>);
MOX_EXPORT(moxsAddC_64f_I, mapUnlessZeroInPlace<sum, Mox64f>);
MOX_EXPORT(moxsAddC_32fc, mapConstant<sum, Mox32fc>);
MOX_EXPORT(moxsAddC_64fc, mapConstant<sum, Mox64fc>);
MOX_EXPORT(moxsAddC_32fc_I, mapConstantInPlace<sum, Mox32fc>);
MOX_EXPORT(moxsAddC_64fc_I, mapConstantInPlace<sum, Mox64fc>);

MOX_EXPORT(moxsAdd_8u_Sfs, scalePair<sum, Mox8u, Mox8u, Mox8u>);
MOX_EXPORT(moxsAdd_8u_ISfs, scalePairInPlace<sum, Mox8u, Mox8u>);
MOX_EXPORT(moxsAdd_16s_Sfs, scalePair<sum, Mox16s, Mox16s, Mox16s>);
MOX_EXPORT(moxsAdd_16s_ISfs, scalePairInPlace<sum, Mox16s, Mox16s>);
MOX_EXPORT(moxsAdd_16u_Sfs, scalePair<sum, Mox16u, Mox16u, Mox16u>);
MOX_EXPORT(moxsAdd_16u_ISfs, scalePairInPlace<sum, Mox16u, Mox16u>);
MOX_EXPORT(moxsAdd_32s_Sfs, scalePair<sum, Mox32s, Mox32s, Mox32s>);
MOX_EXPORT(moxsAdd_32s_ISfs, scalePairInPlace<sum, Mox32s, Mox32s>);
MOX_EXPORT(moxsAdd_16sc_Sfs, scaleParts<sum, Mox16sc>);
MOX_EXPORT(moxsAdd_16sc_ISfs, scalePartsInPlace<sum, Mox16sc>);
MOX_EXPORT(moxsAdd_32sc_Sfs, scaleParts<sum, Mox32sc>);
MOX_EXPORT(moxsAdd_32sc_ISfs, scalePartsInPlace<sum, Mox32sc>);
MOX_EXPORT(moxsAdd_64s_Sfs, scalePair64<saturatedSum, Mox64s>);
MOX_EXPORT(moxsAdd_16s, saturatePair<sum, Mox16s, Mox16s, Mox16s>);
MOX_EXPORT(moxsAdd_16s_I, saturatePairInPlace<sum, Mox16s, Mox16s>);
MOX_EXPORT(moxsAdd_16u, saturatePair<sum, Mox16u, Mox16u, Mox16u>);
MOX_EXPORT(moxsAdd_32u, saturatePair<sum, Mox32u, Mox32u, Mox32u>);
MOX_EXPORT(moxsAdd_8u16u, saturatePair<sum, Mox8u, Mox8u, Mox16u>);
MOX_EXPORT(moxsAdd_16s32s_I, saturatePairInPlace<sum, Mox16s, Mox32s>);
MOX_EXPORT(moxsAdd_16s32f, pairToFloat<sum>);

MOX_EXPORT(moxsAddC_8u_Sfs, scaleConstant<sum, Mox8u>);
MOX_EXPORT(moxsAddC_8u_ISfs, scaleConstantInPlace<sum, Mox8u>);
MOX_EXPORT(moxsAddC_16s_Sfs, scaleConstant<sum, Mox16s>);
MOX_EXPORT(moxsAddC_16s_ISfs, scaleConstantInPlace<sum, Mox16s>);
MOX_EXPORT(moxsAddC_16u_Sfs, scaleConstant<sum, Mox16u>);
MOX_EXPORT(moxsAddC_16u_ISfs, scaleConstantInPlace<sum, Mox16u>);
MOX_EXPORT(moxsAddC_32s_Sfs, scaleConstant<sum, Mox32s>);
MOX_EXPORT(moxsAddC_32s_ISfs, scaleConstantInPlace<sum, Mox32s>);
MOX_EXPORT(moxsAddC_16sc_Sfs, scaleConstant<sum, Mox16sc>);
MOX_EXPORT(moxsAddC_16sc_ISfs, scaleConstantInPlace<sum, Mox16sc>);
MOX_EXPORT(moxsAddC_32sc_Sfs, scaleConstant<sum, Mox32sc>);
MOX_EXPORT(moxsAddC_32sc_ISfs, scaleConstantInPlace<sum, Mox32sc>);
MOX_EXPORT(moxsAddC_16s_I, saturateConstantInPlace<sum, Mox16s>);
MOX_EXPORT(moxsAddC_64s_Sfs, scaleConstant64<sum, Mox64s>);
MOX_EXPORT(moxsAddC_64u_Sfs, scaleConstant64<sum, Mox64u>);

}  // namespace mox
