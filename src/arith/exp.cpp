// The exponential.
#include <moxsp/arith.h>

#include <algorithm>
#include <limits>

#include "arith/vector_function.h"
#include "frame/in_place.h"
#include "frame/map_rounded.h"

namespace mox::arith {
namespace {

// x = exponent * ln(2) + rest with an integer exponent and |rest| about ln(2) / 2 at the most, in
// every rounding mode. For |x| up to 2^31 the products with the first two parts of ln(2) are exact,
// and so are the differences.
struct ExpArgument {
  V<Mox64f> exponent, rest;

  [[gnu::always_inline]] explicit ExpArgument(V<Mox64f> x)
      : exponent(nearestInteger(x * 0x1.71547652b82fep+0)),
        rest(((x - exponent * 0x1.62e428p-1) - exponent * 0x1.fbe8ep-23) -
             exponent * 0x1.ef35793c7673p-45) {}
};

// 2^n for integers n in -1022 to 1023.
[[gnu::always_inline]] inline V<Mox64f> powersOfTwo(V<Mox64f> n) {
  const V<Mox64f> biased = n + (0x1.8p52 + 1023);  // in the low bits of the sum
  return V<Mox64f>(Bits<V<Mox64f>>(biased) << 52);
}

// e^r for the rest of an argument: the Taylor series up to r^13, whose remainder is below 2^-57,
// summed in pairs of terms for a short chain.
[[gnu::always_inline]] inline V<Mox64f> expOfRest(V<Mox64f> r) {
  const V<Mox64f> r2 = r * r, r4 = r2 * r2;
  const V<Mox64f> t3 = r * (1 / 6.0) + 0.5, t5 = r * (1 / 120.0) + 1 / 24.0,
                  t7 = r * (1 / 5040.0) + 1 / 720.0, t9 = r * (1 / 362880.0) + 1 / 40320.0,
                  t11 = r * (1 / 39916800.0) + 1 / 3628800.0,
                  t13 = r * (1 / 6227020800.0) + 1 / 479001600.0;
  const V<Mox64f> tail = ((t13 * r2 + t11) * r4 + (t9 * r2 + t7)) * r4 + (t5 * r2 + t3);
  return (tail * r2 + r) + 1.0;
}

// In double precision.
struct Exp64f {
  using Element = Mox64f;

  static V<Mox64f> lanes(V<Mox64f> x) {
    const ExpArgument argument(x);
    return expOfRest(argument.rest) * powersOfTwo(argument.exponent);
  }

  // Powers of two beyond the exponents of normal numbers.
  static V<Mox64f> special(V<Mox64f> x) { return notAtMost(absolute(x), 708.0); }

  static Mox64f one(Mox64f x, int&) {
    if (x != x) return x + x;
    // Past these bounds nothing changes: infinity, and zero.
    const ExpArgument argument(broadcast<V<Mox64f>>(std::clamp(x, -746.0, 710.0)));
    const V<Mox64f> half = nearestInteger(argument.exponent * 0.5);
    return (expOfRest(argument.rest) * powersOfTwo(half) *
            powersOfTwo(argument.exponent - half))[0];
  }
};

// In single precision: x = n * ln(2) + r, and a polynomial in r.
struct Exp32f {
  using Element = Mox32f;

  static V<Mox32f> lanes(V<Mox32f> x) {
    const V<Mox32f> shifted = x * 1.4426950216293335f + 12582912.0f;
    const V<Mox32f> n = shifted - 12582912.0f;
    const V<Mox32f> r = (x - n * 0.693145751953125f) - n * 1.428606765330187e-06f;
    const V<Mox32f> p =
        ((((r * 0.008291719481348991f + 0.041873522102832794f) * r + 0.16667431592941284f) * r +
          0.4999939203262329f) *
             r +
         0.9999998807907104f) *
            r +
        1.0f;
    return p * V<Mox32f>((Bits<V<Mox32f>>(shifted) + 0x7F) << 23);
  }

  static V<Mox32f> special(V<Mox32f> x) { return notAtMost(absolute(x), 87.33654022216797f); }

  static Mox32f one(Mox32f x, int& code) { return Mox32f(Exp64f::one(x, code)); }
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
