// The exponential.
#include <moxsp/arith.h>

#include <algorithm>
#include <limits>

#include "arith/exp.h"
#include "arith/vector_function.h"
#include "frame/in_place.h"
#include "frame/map_rounded.h"

namespace mox::arith {
namespace {

// In double precision.
struct Exp64f {
  using Lanes = Register<Mox64f>;

  static Lanes lanes(Lanes x) { return exponential(x); }

  // Powers of two beyond the exponents of normal numbers.
  static Mask<Lanes> special(Lanes x) { return notAtMost(absolute(x), 708.0); }

  static Lanes rare(Lanes x, int&) {
    // Infinity past the one bound, zero past the other.
    const Lanes zero = {}, isZero = Lanes(x < -746.0);
    const ExpArgument argument(select(isZero, zero, lesser(x, zero + 710.0)));
    // The bits of a subnormal number x are the integer x * 2^1074. Low results are computed times
    // 2^1074 and rounded to integers, because arithmetic on subnormal numbers is slow.
    using Words = Bits<Lanes>;
    const auto where = [](Words mask, Mox64f v) {
      return Lanes(mask & Words(broadcast<Lanes>(v)));
    };
    const Words isLow = Words(argument.exponent < -1000.0);
    const Lanes exponent = argument.exponent + where(isLow, 1074.0);
    const Lanes half = nearestInteger(exponent * 0.5);
    Lanes result = expOfRest(argument.rest) * powersOfTwo(half) * powersOfTwo(exponent - half);
    if (anyLane(isLow)) {
      const Words isSubnormal = isLow & Words(result < 0x1p52);
      const Words rounded = Words(result + where(isSubnormal, 0x1p52));
      result = Lanes(rounded - (((isLow & 1074) - isSubnormal) << 52));
    }
    return select(isZero, zero, select(Lanes(x != x), x + x, result));
  }
};

// In single precision.
struct Exp32f {
  using Lanes = Register<Mox32f>;

  static Lanes lanes(Lanes x) { return exponential(x); }

  static Mask<Lanes> special(Lanes x) { return notAtMost(absolute(x), 87.33654022216797f); }

  // Low results are computed times 2^149, because the bits of a subnormal number x are the integer
  // x * 2^149; high ones by half, because 2^128 is no number. Past 88.75 every result overflows,
  // and below -104 every one is less than half of the least number.
  static Lanes rare(Lanes x, int&) {
    const Lanes zero = {}, clamped = greater(lesser(x, zero + 88.75f), zero - 104.0f);
    const auto isLow = Bits<Lanes>(clamped < 0);
    const Lanes scaled = scaledExponential(clamped, (isLow & 150) - 1);
    const Lanes result = select(Lanes(isLow), Lanes(toInteger(scaled)), scaled * 2.0f);
    return select(Lanes(x != x), x + x, result);
  }
};

// e^x times 2^-factor for integers x. The factor joins the exponent, so that neither has to be in
// the range of a double; beyond 2^100 or 2^-100 every result is at a limit of its type, or 0.
class ScaledExp {
 public:
  explicit ScaledExp(int factor) : factor_(factor) {}

  V<Mox64f> operator()(V<Mox64f> x) const {
    const ExpArgument argument(x);
    const V<Mox64f> exponent = argument.exponent - factor_;
    const V<Mox64f> high = broadcast<V<Mox64f>>(100.0), low = broadcast<V<Mox64f>>(-100.0);
    return expOfRest(argument.rest) * powersOfTwo(greater(lesser(exponent, high), low));
  }

 private:
  Mox64f factor_;
};

template <class E>
MoxStatus expScaled(const E* src, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mapRounded(ScaledExp(scaleFactor), dst, len, src);
  return moxOk;
}

// Arguments of 64 bits count as far as 2^32, where all results are at a limit.
template <>
MoxStatus expScaled(const Mox64s* src, Mox64s* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  constexpr Mox64s far = Mox64s(1) << 32;
  const HiddenExceptions scope;
  const ScaledExp exp(scaleFactor);
  for (int i = 0; i < len; ++i) {
    const Mox64f x = Mox64f(std::clamp(load<Mox64s>(src + i), -far, far));
    const Mox64f r = nearestInteger(exp(broadcast<V<Mox64f>>(x)))[0];
    store(dst + i, r < 0x1p63 ? Mox64s(r) : std::numeric_limits<Mox64s>::max());
  }
  return moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsExp_32f, moxsExp_32f_I, elementary<Exp32f>);
MOX_EXPORT_BOTH(moxsExp_64f, moxsExp_64f_I, elementary<Exp64f>);
MOX_EXPORT(moxsExp_32f64f, elementary<Exp64f>);
MOX_EXPORT_BOTH(moxsExp_16s_Sfs, moxsExp_16s_ISfs, expScaled);
MOX_EXPORT_BOTH(moxsExp_32s_Sfs, moxsExp_32s_ISfs, expScaled);
MOX_EXPORT_BOTH(moxsExp_64s_Sfs, moxsExp_64s_ISfs, expScaled);

}  // namespace mox::arith
