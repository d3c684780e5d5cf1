// Products of integers, of two vectors and with a constant.
#include <moxsp/arith.h>

#include <cmath>

#include "arith/scaled.h"
#include "frame/in_place.h"

namespace mox::arith {
namespace {

// A double as the integer `mantissa` times 2^exponent: the exact product with one, times a power of
// two, is what the scale rule is about. Infinity counts as a power beyond every limit, NaN as 0.
struct Decomposed {
  Mox64s mantissa = 0;
  long exponent = 0;

  explicit Decomposed(Mox64f x) {
    constexpr int digits = std::numeric_limits<Mox64f>::digits;
    constexpr long beyond = 1L << 40;
    if (std::isinf(x)) {
      mantissa = x < 0 ? -1 : 1;
      exponent = beyond;
    } else if (!std::isnan(x)) {
      int top;
      mantissa = Mox64s(std::ldexp(std::frexp(x, &top), digits));
      exponent = top - digits;
    }
  }
};

MoxStatus mulDoubleConstant64(Mox64f val, Mox64s* srcDst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, srcDst)) return s;
  const HiddenExceptions scope;
  const Decomposed constant(val);
  const long factor = scaleFactor - constant.exponent;
  mapScaled<116>(int(std::clamp(factor, -2000L, 2000L)), product, srcDst, len, srcDst,
                 Same<Mox64s>{constant.mantissa});
  return moxOk;
}

// In single precision: the constant takes the power of two, and stays finite so that 0 times it
// is 0. The rounding mode in force decides.
MoxStatus mulFloatConstant(const Mox16s* src, Mox32f val, Mox16s* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  const HiddenExceptions scope;
  constexpr Mox64f largest = std::numeric_limits<Mox32f>::max();
  const Mox64f scaled = std::ldexp(Mox64f(val), -std::clamp(scaleFactor, -600, 600));
  const auto constant = broadcast<V<Mox32f>>(Mox32f(std::clamp(scaled, -largest, largest)));
  const auto low = broadcast<V<Mox32f>>(-32768.0f), high = broadcast<V<Mox32f>>(32767.0f);
  mapWidened<V<Mox32f>>(
      [=](auto v) { return narrowed<Mox16s>(toInteger(greater(lesser(v * constant, high), low))); },
      dst, len, src);
  return moxOk;
}
MoxStatus mulFloatConstantUnscaled(const Mox16s* src, Mox32f val, Mox16s* dst, int len) {
  return mulFloatConstant(src, val, dst, len, 0);
}

}  // namespace

MOX_EXPORT_BOTH(moxsMul_8u_Sfs, moxsMul_8u_ISfs, scalePair<product>);
MOX_EXPORT_BOTH(moxsMul_16s_Sfs, moxsMul_16s_ISfs, scalePair<product>);
MOX_EXPORT_BOTH(moxsMul_16u_Sfs, moxsMul_16u_ISfs, scalePair<product>);
MOX_EXPORT(moxsMul_16s32s_Sfs, scalePair<product>);
MOX_EXPORT(moxsMul_16u16s_Sfs, scalePair<product>);
MOX_EXPORT(moxsMul_Low_32s_Sfs, scalePair<product>);
MOX_EXPORT_BOTH(moxsMul_32s32sc_Sfs, moxsMul_32s32sc_ISfs, scalePair<product>);
MOX_EXPORT_BOTH(moxsMul_16s, moxsMul_16s_I, saturatePair<product>);
MOX_EXPORT(moxsMul_8u16u, saturatePair<product>);
MOX_EXPORT(moxsMul_16s32f, pairToFloat<product>);

MOX_EXPORT_BOTH(moxsMulC_8u_Sfs, moxsMulC_8u_ISfs, scaleConstant<product>);
MOX_EXPORT_BOTH(moxsMulC_16s_Sfs, moxsMulC_16s_ISfs, scaleConstant<product>);
MOX_EXPORT_BOTH(moxsMulC_16u_Sfs, moxsMulC_16u_ISfs, scaleConstant<product>);
MOX_EXPORT_BOTH(moxsMulC_32s_Sfs, moxsMulC_32s_ISfs, scaleConstant<product>);
MOX_EXPORT_IN_PLACE(moxsMulC_16s_I, saturateConstant<product>);
MOX_EXPORT_IN_PLACE(moxsMulC_64s_ISfs, scaleConstant<product>);
MOX_EXPORT(moxsMulC_64f64s_ISfs, mulDoubleConstant64);
MOX_EXPORT(moxsMulC_32f16s_Sfs, mulFloatConstant);
MOX_EXPORT(moxsMulC_Low_32f16s, mulFloatConstantUnscaled);

}  // namespace mox::arith
