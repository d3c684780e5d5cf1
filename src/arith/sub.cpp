// Differences. Of two vectors the first is the one subtracted; of a vector and a constant, the
// constant, and in the Rev forms the vector.
#include <moxsp/arith.h>

#include "arith/element_wise.h"
#include "arith/operations.h"
#include "arith/scaled.h"
#include "frame/export.h"
#include "frame/in_place.h"

namespace mox::arith {
MOX_EXPORT(moxsSub_32f, mapPair<secondMinusFirst, Mox32f>);
MOX_EXPORT(moxsSub_64f, mapPair<secondMinusFirst, Mox64f>);
MOX_EXPORT(moxsSub_32f_I, inPlace<mapPair<secondMinusFirst, Mox32f>>);
MOX_EXPORT(moxsSub_64f_I, inPlace<mapPair<secondMinusFirst, Mox64f>>);
MOX_EXPORT(moxsSub_32fc, mapParts<secondMinusFirst, Mox32fc>);
MOX_EXPORT(moxsSub_64fc, mapParts<secondMinusFirst, Mox64fc>);
MOX_EXPORT(moxsSub_32fc_I, inPlace<mapParts<secondMinusFirst, Mox32fc>>);
MOX_EXPORT(moxsSub_64fc_I, inPlace<mapParts<secondMinusFirst, Mox64fc>>);

MOX_EXPORT(moxsSubC_32f, mapUnlessZero<firstMinusSecond, Mox32f>);
MOX_EXPORT(moxsSubC_32f_I, inPlace<mapUnlessZero<firstMinusSecond, Mox32f>>);
MOX_EXPORT(moxsSubC_64f, mapConstant<firstMinusSecond, Mox64f>);
MOX_EXPORT(moxsSubC_32fc, mapConstant<firstMinusSecond, Mox32fc>);
MOX_EXPORT(moxsSubC_64fc, mapConstant<firstMinusSecond, Mox64fc>);
MOX_EXPORT(moxsSubC_64f_I, inPlace<mapConstant<firstMinusSecond, Mox64f>>);
MOX_EXPORT(moxsSubC_32fc_I, inPlace<mapConstant<firstMinusSecond, Mox32fc>>);
MOX_EXPORT(moxsSubC_64fc_I, inPlace<mapConstant<firstMinusSecond, Mox64fc>>);

MOX_EXPORT(moxsSubCRev_32f, mapConstant<secondMinusFirst, Mox32f>);
MOX_EXPORT(moxsSubCRev_64f, mapConstant<secondMinusFirst, Mox64f>);
MOX_EXPORT(moxsSubCRev_32fc, mapConstant<secondMinusFirst, Mox32fc>);
MOX_EXPORT(moxsSubCRev_64fc, mapConstant<secondMinusFirst, Mox64fc>);
MOX_EXPORT(moxsSubCRev_32f_I, inPlace<mapConstant<secondMinusFirst, Mox32f>>);
MOX_EXPORT(moxsSubCRev_64f_I, inPlace<mapConstant<secondMinusFirst, Mox64f>>);
MOX_EXPORT(moxsSubCRev_32fc_I, inPlace<mapConstant<secondMinusFirst, Mox32fc>>);
MOX_EXPORT(moxsSubCRev_64fc_I, inPlace<mapConstant<secondMinusFirst, Mox64fc>>);

MOX_EXPORT(moxsSub_8u_Sfs, scalePair<secondMinusFirst, Mox8u>);
MOX_EXPORT(moxsSub_8u_ISfs, inPlace<scalePair<secondMinusFirst, Mox8u>>);
MOX_EXPORT(moxsSub_16s_Sfs, scalePair<secondMinusFirst, Mox16s>);
MOX_EXPORT(moxsSub_16s_ISfs, inPlace<scalePair<secondMinusFirst, Mox16s>>);
MOX_EXPORT(moxsSub_16u_Sfs, scalePair<secondMinusFirst, Mox16u>);
MOX_EXPORT(moxsSub_16u_ISfs, inPlace<scalePair<secondMinusFirst, Mox16u>>);
MOX_EXPORT(moxsSub_32s_Sfs, scalePair<secondMinusFirst, Mox32s>);
MOX_EXPORT(moxsSub_32s_ISfs, inPlace<scalePair<secondMinusFirst, Mox32s>>);
MOX_EXPORT(moxsSub_16sc_Sfs, scaleParts<secondMinusFirst, Mox16sc>);
MOX_EXPORT(moxsSub_16sc_ISfs, inPlace<scaleParts<secondMinusFirst, Mox16sc>>);
MOX_EXPORT(moxsSub_32sc_Sfs, scaleParts<secondMinusFirst, Mox32sc>);
MOX_EXPORT(moxsSub_32sc_ISfs, inPlace<scaleParts<secondMinusFirst, Mox32sc>>);
MOX_EXPORT(moxsSub_64s_Sfs, scalePair64<secondMinusFirst, Mox64s>);
MOX_EXPORT(moxsSub_16s, saturatePair<secondMinusFirst, Mox16s>);
MOX_EXPORT(moxsSub_16s_I, inPlace<saturatePair<secondMinusFirst, Mox16s>>);
MOX_EXPORT(moxsSub_16s32s_I, inPlace<saturatePair<secondMinusFirst, Mox16s, Mox32s, Mox32s>>);
MOX_EXPORT(moxsSub_16s32f, pairToFloat<secondMinusFirst>);

MOX_EXPORT(moxsSubC_8u_Sfs, scaleConstant<firstMinusSecond, Mox8u>);
MOX_EXPORT(moxsSubC_8u_ISfs, inPlace<scaleConstant<firstMinusSecond, Mox8u>>);
MOX_EXPORT(moxsSubC_16s_Sfs, scaleConstant<firstMinusSecond, Mox16s>);
MOX_EXPORT(moxsSubC_16s_ISfs, inPlace<scaleConstant<firstMinusSecond, Mox16s>>);
MOX_EXPORT(moxsSubC_16u_Sfs, scaleConstant<firstMinusSecond, Mox16u>);
MOX_EXPORT(moxsSubC_16u_ISfs, inPlace<scaleConstant<firstMinusSecond, Mox16u>>);
MOX_EXPORT(moxsSubC_32s_Sfs, scaleConstant<firstMinusSecond, Mox32s>);
MOX_EXPORT(moxsSubC_32s_ISfs, inPlace<scaleConstant<firstMinusSecond, Mox32s>>);
MOX_EXPORT(moxsSubC_16sc_Sfs, scaleConstant<firstMinusSecond, Mox16sc>);
MOX_EXPORT(moxsSubC_16sc_ISfs, inPlace<scaleConstant<firstMinusSecond, Mox16sc>>);
MOX_EXPORT(moxsSubC_32sc_Sfs, scaleConstant<firstMinusSecond, Mox32sc>);
MOX_EXPORT(moxsSubC_32sc_ISfs, inPlace<scaleConstant<firstMinusSecond, Mox32sc>>);
MOX_EXPORT(moxsSubC_16s_I, inPlace<saturateConstant<firstMinusSecond, Mox16s>>);

MOX_EXPORT(moxsSubCRev_8u_Sfs, scaleConstant<secondMinusFirst, Mox8u>);
MOX_EXPORT(moxsSubCRev_8u_ISfs, inPlace<scaleConstant<secondMinusFirst, Mox8u>>);
MOX_EXPORT(moxsSubCRev_16s_Sfs, scaleConstant<secondMinusFirst, Mox16s>);
MOX_EXPORT(moxsSubCRev_16s_ISfs, inPlace<scaleConstant<secondMinusFirst, Mox16s>>);
MOX_EXPORT(moxsSubCRev_16u_Sfs, scaleConstant<secondMinusFirst, Mox16u>);
MOX_EXPORT(moxsSubCRev_16u_ISfs, inPlace<scaleConstant<secondMinusFirst, Mox16u>>);
MOX_EXPORT(moxsSubCRev_32s_Sfs, scaleConstant<secondMinusFirst, Mox32s>);
MOX_EXPORT(moxsSubCRev_32s_ISfs, inPlace<scaleConstant<secondMinusFirst, Mox32s>>);
MOX_EXPORT(moxsSubCRev_16sc_Sfs, scaleConstant<secondMinusFirst, Mox16sc>);
MOX_EXPORT(moxsSubCRev_16sc_ISfs, inPlace<scaleConstant<secondMinusFirst, Mox16sc>>);
MOX_EXPORT(moxsSubCRev_32sc_Sfs, scaleConstant<secondMinusFirst, Mox32sc>);
MOX_EXPORT(moxsSubCRev_32sc_ISfs, inPlace<scaleConstant<secondMinusFirst, Mox32sc>>);
MOX_EXPORT(moxsSubCRev_16s_I, inPlace<saturateConstant<secondMinusFirst, Mox16s>>);

}  // namespace mox::arith
