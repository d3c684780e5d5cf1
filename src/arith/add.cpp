// Sums, of two vectors and with a constant.
#include <moxsp/arith.h>

#include "arith/element_wise.h"
#include "arith/operations.h"
#include "arith/scaled.h"
#include "frame/in_place.h"

namespace mox::arith {
namespace {

// A factor works on the sum that 64 bits hold.
constexpr auto saturatedSum = [](Int128 a, Int128 b) { return Int128(saturate<Mox64s>(a + b)); };

}  // namespace

MOX_EXPORT_BOTH(moxsAdd_32f, moxsAdd_32f_I, mapPair<sum>);
MOX_EXPORT_BOTH(moxsAdd_64f, moxsAdd_64f_I, mapPair<sum>);
MOX_EXPORT_BOTH(moxsAdd_32fc, moxsAdd_32fc_I, mapParts<sum>);
MOX_EXPORT_BOTH(moxsAdd_64fc, moxsAdd_64fc_I, mapParts<sum>);

MOX_EXPORT_BOTH(moxsAddC_32f, moxsAddC_32f_I, mapUnlessZero<sum>);
MOX_EXPORT_BOTH(moxsAddC_64f, moxsAddC_64f_I, mapUnlessZero<sum>);
MOX_EXPORT_BOTH(moxsAddC_32fc, moxsAddC_32fc_I, mapConstant<sum>);
MOX_EXPORT_BOTH(moxsAddC_64fc, moxsAddC_64fc_I, mapConstant<sum>);

MOX_EXPORT_BOTH(moxsAdd_8u_Sfs, moxsAdd_8u_ISfs, scalePair<sum>);
MOX_EXPORT_BOTH(moxsAdd_16s_Sfs, moxsAdd_16s_ISfs, scalePair<sum>);
MOX_EXPORT_BOTH(moxsAdd_16u_Sfs, moxsAdd_16u_ISfs, scalePair<sum>);
MOX_EXPORT_BOTH(moxsAdd_32s_Sfs, moxsAdd_32s_ISfs, scalePair<sum>);
MOX_EXPORT_BOTH(moxsAdd_16sc_Sfs, moxsAdd_16sc_ISfs, scaleParts<sum>);
MOX_EXPORT_BOTH(moxsAdd_32sc_Sfs, moxsAdd_32sc_ISfs, scaleParts<sum>);
MOX_EXPORT(moxsAdd_64s_Sfs, scalePair<saturatedSum>);
MOX_EXPORT_BOTH(moxsAdd_16s, moxsAdd_16s_I, saturatePair<sum>);
MOX_EXPORT(moxsAdd_16u, saturatePair<sum>);
MOX_EXPORT(moxsAdd_32u, saturatePair<sum>);
MOX_EXPORT(moxsAdd_8u16u, saturatePair<sum>);
MOX_EXPORT_IN_PLACE(moxsAdd_16s32s_I, saturatePair<sum>);
MOX_EXPORT(moxsAdd_16s32f, pairToFloat<sum>);

MOX_EXPORT_BOTH(moxsAddC_8u_Sfs, moxsAddC_8u_ISfs, scaleConstant<sum>);
MOX_EXPORT_BOTH(moxsAddC_16s_Sfs, moxsAddC_16s_ISfs, scaleConstant<sum>);
MOX_EXPORT_BOTH(moxsAddC_16u_Sfs, moxsAddC_16u_ISfs, scaleConstant<sum>);
MOX_EXPORT_BOTH(moxsAddC_32s_Sfs, moxsAddC_32s_ISfs, scaleConstant<sum>);
MOX_EXPORT_BOTH(moxsAddC_16sc_Sfs, moxsAddC_16sc_ISfs, scaleConstant<sum>);
MOX_EXPORT_BOTH(moxsAddC_32sc_Sfs, moxsAddC_32sc_ISfs, scaleConstant<sum>);
MOX_EXPORT_IN_PLACE(moxsAddC_16s_I, saturateConstant<sum>);
MOX_EXPORT(moxsAddC_64s_Sfs, scaleConstant<sum>);
MOX_EXPORT(moxsAddC_64u_Sfs, scaleConstant<sum>);

}  // namespace mox::arith
