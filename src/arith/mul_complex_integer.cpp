// Products of complex integers, of two vectors and with a constant.
#include <moxsp/arith.h>

#include "arith/mul_complex.h"
#include "frame/checks.h"
#include "frame/export.h"
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

MOX_EXPORT(moxsMul_16sc_Sfs, mul<Mox16sc>);
MOX_EXPORT(moxsMul_16sc_ISfs, inPlace<mul<Mox16sc>>);
MOX_EXPORT(moxsMul_32sc_Sfs, mul<Mox32sc>);
MOX_EXPORT(moxsMul_32sc_ISfs, inPlace<mul<Mox32sc>>);
MOX_EXPORT(moxsMulC_16sc_Sfs, mulConstant<Mox16sc>);
MOX_EXPORT(moxsMulC_16sc_ISfs, inPlace<mulConstant<Mox16sc>>);
MOX_EXPORT(moxsMulC_32sc_Sfs, mulConstant<Mox32sc>);
MOX_EXPORT(moxsMulC_32sc_ISfs, inPlace<mulConstant<Mox32sc>>);

}  // namespace mox::arith
