// Differences. Of two vectors the first is the one subtracted; of a vector and a constant, the
// constant, and in the Rev forms the vector.
#include <moxsp/arith.h>

#include "arith/element_wise.h"
#include "arith/operations.h"
#include "arith/scaled.h"
#include "frame/in_place.h"

namespace mox::arith {
MOX_EXPORT_BOTH(moxsSub_32f, moxsSub_32f_I, mapPair<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSub_64f, moxsSub_64f_I, mapPair<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSub_32fc, moxsSub_32fc_I, mapParts<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSub_64fc, moxsSub_64fc_I, mapParts<secondMinusFirst>);

MOX_EXPORT_BOTH(moxsSubC_32f, moxsSubC_32f_I, mapUnlessZero<firstMinusSecond>);
MOX_EXPORT_BOTH(moxsSubC_64f, moxsSubC_64f_I, mapConstant<firstMinusSecond>);
MOX_EXPORT_BOTH(moxsSubC_32fc, moxsSubC_32fc_I, mapConstant<firstMinusSecond>);
MOX_EXPORT_BOTH(moxsSubC_64fc, moxsSubC_64fc_I, mapConstant<firstMinusSecond>);

MOX_EXPORT_BOTH(moxsSubCRev_32f, moxsSubCRev_32f_I, mapConstant<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSubCRev_64f, moxsSubCRev_64f_I, mapConstant<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSubCRev_32fc, moxsSubCRev_32fc_I, mapConstant<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSubCRev_64fc, moxsSubCRev_64fc_I, mapConstant<secondMinusFirst>);

MOX_EXPORT_BOTH(moxsSub_8u_Sfs, moxsSub_8u_ISfs, scalePair<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSub_16s_Sfs, moxsSub_16s_ISfs, scalePair<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSub_16u_Sfs, moxsSub_16u_ISfs, scalePair<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSub_32s_Sfs, moxsSub_32s_ISfs, scalePair<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSub_16sc_Sfs, moxsSub_16sc_ISfs, scaleParts<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSub_32sc_Sfs, moxsSub_32sc_ISfs, scaleParts<secondMinusFirst>);
MOX_EXPORT(moxsSub_64s_Sfs, scalePair<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSub_16s, moxsSub_16s_I, saturatePair<secondMinusFirst>);
MOX_EXPORT_IN_PLACE(moxsSub_16s32s_I, saturatePair<secondMinusFirst>);
MOX_EXPORT(moxsSub_16s32f, pairToFloat<secondMinusFirst>);

MOX_EXPORT_BOTH(moxsSubC_8u_Sfs, moxsSubC_8u_ISfs, scaleConstant<firstMinusSecond>);
MOX_EXPORT_BOTH(moxsSubC_16s_Sfs, moxsSubC_16s_ISfs, scaleConstant<firstMinusSecond>);
MOX_EXPORT_BOTH(moxsSubC_16u_Sfs, moxsSubC_16u_ISfs, scaleConstant<firstMinusSecond>);
MOX_EXPORT_BOTH(moxsSubC_32s_Sfs, moxsSubC_32s_ISfs, scaleConstant<firstMinusSecond>);
MOX_EXPORT_BOTH(moxsSubC_16sc_Sfs, moxsSubC_16sc_ISfs, scaleConstant<firstMinusSecond>);
MOX_EXPORT_BOTH(moxsSubC_32sc_Sfs, moxsSubC_32sc_ISfs, scaleConstant<firstMinusSecond>);
MOX_EXPORT_IN_PLACE(moxsSubC_16s_I, saturateConstant<firstMinusSecond>);

MOX_EXPORT_BOTH(moxsSubCRev_8u_Sfs, moxsSubCRev_8u_ISfs, scaleConstant<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSubCRev_16s_Sfs, moxsSubCRev_16s_ISfs, scaleConstant<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSubCRev_16u_Sfs, moxsSubCRev_16u_ISfs, scaleConstant<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSubCRev_32s_Sfs, moxsSubCRev_32s_ISfs, scaleConstant<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSubCRev_16sc_Sfs, moxsSubCRev_16sc_ISfs, scaleConstant<secondMinusFirst>);
MOX_EXPORT_BOTH(moxsSubCRev_32sc_Sfs, moxsSubCRev_32sc_ISfs, scaleConstant<secondMinusFirst>);
MOX_EXPORT_IN_PLACE(moxsSubCRev_16s_I, saturateConstant<secondMinusFirst>);

}  // namespace mox::arith
