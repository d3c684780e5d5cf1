// Products of complex integers, of two vectors and with a constant.
#include <moxsp/arith.h>

#include "arith/mul_complex.h"
#include "frame/in_place.h"

namespace mox::arith {
namespace {

template <class E>
MoxStatus mul(const E* src1, const E* src2, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  mulComplexScaled(scaleFactor, dst, len, src1, src2);
  return moxOk;
}

template <class E>
MoxStatus mulConstant(const E* src, E val, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mulComplexScaled(scaleFactor, dst, len, src, Same<E>{val});
  return moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsMul_16sc_Sfs, moxsMul_16sc_ISfs, mul);
MOX_EXPORT_BOTH(moxsMul_32sc_Sfs, moxsMul_32sc_ISfs, mul);
MOX_EXPORT_BOTH(moxsMulC_16sc_Sfs, moxsMulC_16sc_ISfs, mulConstant);
MOX_EXPORT_BOTH(moxsMulC_32sc_Sfs, moxsMulC_32sc_ISfs, mulConstant);

}  // namespace mox::arith
