// Scaled products of 32-bit integers in double precision, to nearest in each step.
#include <moxsp/arith.h>

#include "arith/element_wise.h"
#include "arith/scaled.h"
#include "frame/in_place.h"
#include "frame/rounding_control.h"

namespace mox::arith {
namespace {

using Doubles = V<Mox64f>;

Beside<Mox32s, Doubles> toNearest(Doubles t) {
  const auto high = broadcast<Doubles>(2147483647.0), low = broadcast<Doubles>(-2147483648.0);
  return toInteger(greater(lesser(t, high), low));
}

// A factor of 0 leaves the product exact. Below -31 the sign decides, and above 62 all is 0: there
// the exact rule says the same.
MoxStatus mul(const Mox32s* src1, const Mox32s* src2, Mox32s* dst, int len, int scaleFactor) {
  if (scaleFactor == 0 || scaleFactor < -31 || scaleFactor > 62)
    return scalePair<product>(src1, src2, dst, len, scaleFactor);
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  const RoundingScope scope(Rounding::nearEven, Exceptions::hidden);
  const auto factor = broadcast<Doubles>(powerOfTwo<Mox64f>(-scaleFactor));
  mapWidened<Doubles>([=](auto a, auto b) { return toNearest(a * factor * b); }, dst, len, src1,
                      src2);
  return moxOk;
}

// Scaling the product alone, by factors between the two limits; the exact rule scales the sum.
MoxStatus addProduct(const Mox32s* src1, const Mox32s* src2, Mox32s* srcDst, int len,
                     int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src1, src2, srcDst)) return s;
  if (scaleFactor > 62) {
    move::zeroElements(srcDst, len);
  } else if (scaleFactor == 0 || scaleFactor <= -31) {
    // Doubles round sums above 2^53, which saturate with or without that.
    const HiddenExceptions scope;
    mapScaled<53>(
        scaleFactor, [](auto a, auto b, auto c) { return c + a * b; }, srcDst, len, src1, src2,
        srcDst);
  } else {
    const RoundingScope scope(Rounding::nearEven, Exceptions::hidden);
    const auto factor = broadcast<Doubles>(powerOfTwo<Mox64f>(-scaleFactor));
    mapWidened<Doubles>([=](auto a, auto b, auto c) { return toNearest(a * factor * b + c); },
                        srcDst, len, src1, src2, srcDst);
  }
  return moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsMul_32s_Sfs, moxsMul_32s_ISfs, mul);
MOX_EXPORT(moxsAddProduct_32s_Sfs, addProduct);

}  // namespace mox::arith
