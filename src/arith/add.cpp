// Sums, of two vectors and with a constant.
#include <moxsp/arith.h>

#include "arith/element_wise.h"
#include "frame/export.h"

namespace mox {
namespace {

constexpr auto sum = [](auto a, auto b) { return a + b; };

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

}  // namespace mox
