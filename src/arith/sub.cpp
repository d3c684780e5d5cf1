// Differences. Of two vectors the first is the one subtracted; of a vector and a constant, the
// constant, and in the Rev forms the vector.
#include <moxsp/arith.h>

#include "arith/element_wise.h"
#include "frame/export.h"

namespace mox {
namespace {

constexpr auto secondMinusFirst = [](auto a, auto b) { return b - a; };
constexpr auto firstMinusSecond = [](auto a, auto b) { return a - b; };

}  // namespace

MOX_EXPORT(moxsSub_32f, mapPair<secondMinusFirst, Mox32f, Mox32f, Mox32f>);
MOX_EXPORT(moxsSub_64f, mapPair<secondMinusFirst, Mox64f, Mox64f, Mox64f>);
MOX_EXPORT(moxsSub_32f_I, mapPairInPlace<secondMinusFirst, Mox32f, Mox32f>);
MOX_EXPORT(moxsSub_64f_I, mapPairInPlace<secondMinusFirst, Mox64f, Mox64f>);
MOX_EXPORT(moxsSub_32fc, mapParts<secondMinusFirst, Mox32fc>);
MOX_EXPORT(moxsSub_64fc, mapParts<secondMinusFirst, Mox64fc>);
MOX_EXPORT(moxsSub_32fc_I, mapPartsInPlace<secondMinusFirst, Mox32fc>);
MOX_EXPORT(moxsSub_64fc_I, mapPartsInPlace<secondMinusFirst, Mox64fc>);

MOX_EXPORT(moxsSubC_32f, mapUnlessZero<firstMinusSecond, Mox32f>);
MOX_EXPORT(moxsSubC_32f_I, mapUnlessZeroInPlace<firstMinusSecond, Mox32f>);
MOX_EXPORT(moxsSubC_64f, mapConstant<firstMinusSecond, Mox64f>);
MOX_EXPORT(moxsSubC_32fc, mapConstant<firstMinusSecond, Mox32fc>);
MOX_EXPORT(moxsSubC_64fc, mapConstant<firstMinusSecond, Mox64fc>);
MOX_EXPORT(moxsSubC_64f_I, mapConstantInPlace<firstMinusSecond, Mox64f>);
MOX_EXPORT(moxsSubC_32fc_I, mapConstantInPlace<firstMinusSecond, Mox32fc>);
MOX_EXPORT(moxsSubC_64fc_I, mapConstantInPlace<firstMinusSecond, Mox64fc>);

MOX_EXPORT(moxsSubCRev_32f, mapConstant<secondMinusFirst, Mox32f>);
MOX_EXPORT(moxsSubCRev_64f, mapConstant<secondMinusFirst, Mox64f>);
MOX_EXPORT(moxsSubCRev_32fc, mapConstant<secondMinusFirst, Mox32fc>);
MOX_EXPORT(moxsSubCRev_64fc, mapConstant<secondMinusFirst, Mox64fc>);
MOX_EXPORT(moxsSubCRev_32f_I, mapConstantInPlace<secondMinusFirst, Mox32f>);
MOX_EXPORT(moxsSubCRev_64f_I, mapConstantInPlace<secondMinusFirst, Mox64f>);
MOX_EXPORT(moxsSubCRev_32fc_I, mapConstantInPlace<secondMinusFirst, Mox32fc>);
MOX_EXPORT(moxsSubCRev_64fc_I, mapConstantInPlace<secondMinusFirst, Mox64fc>);

}  // namespace mox
