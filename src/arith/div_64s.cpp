// Quotients of 64-bit integers by a constant, in arithmetic of two words.
#include <moxsp/division.h>

#include <bit>

#include "arith/division.h"
#include "frame/export.h"
#include "frame/vec/vec.h"

namespace mox::arith {
namespace {

__extension__ typedef unsigned __int128 Wide;

// Division of two words by one without a division: Möller and Granlund, Improved division by
// invariant integers, 2011.
class WideDivisor {
 public:
  explicit WideDivisor(Mox64u divisor)
      : shift_(std::countl_zero(divisor)),
        divisor_(divisor << shift_),
        reciprocal_(divideWide(~divisor_, ~Mox64u(0), divisor_)) {}

  struct Result {
    Mox64u quotient, remainder;
  };

  // For a dividend whose quotient fits in a word.
  Result divide(Wide dividend) const {
    dividend <<= shift_;
    const Mox64u high = Mox64u(dividend >> 64), low = Mox64u(dividend);
    const Wide estimate = Wide(reciprocal_) * high + dividend;
    Mox64u quotient = Mox64u(estimate >> 64) + 1;
    Mox64u remainder = low - quotient * divisor_;
    if (remainder > Mox64u(estimate)) --quotient, remainder += divisor_;
    return {quotient, remainder >> shift_};
  }

 private:
  int shift_;
  Mox64u divisor_, reciprocal_;  // the divisor with its highest bit set, 2^128 / divisor - 2^64
};

// Magnitudes of quotients times 2^-factor, to nearest with ties to even; one that is too large for
// a word stands for all of those.
class ScaledQuotient {
 public:
  ScaledQuotient(Mox64u divisor, int factor)
      : value_(divisor), divisor_(divisor), factor_(std::clamp(factor, -128, 64)) {}

  Mox64u operator()(Mox64u dividend) const {
    return factor_ > 0 ? scaledDown(dividend, factor_) : scaledUp(dividend, -factor_);
  }

 private:
  static constexpr Mox64u tooLarge = ~Mox64u(0);

  Mox64u scaledUp(Mox64u dividend, int n) const {
    if (dividend == 0) return 0;
    if (n > std::countl_zero(dividend) + 64) return tooLarge;
    const Wide scaled = Wide(dividend) << n;
    if (scaled >> 63 >= value_) return tooLarge;
    const auto r = divisor_.divide(scaled);
    return nearestQuotient(r.quotient, r.remainder, value_);
  }

  // A remainder of the division only keeps the rest of the quotient from being a tie.
  Mox64u scaledDown(Mox64u dividend, int n) const {
    if (n > 63) return 0;
    const auto r = divisor_.divide(dividend);
    const Mox64u whole = r.quotient >> n, half = Mox64u(1) << (n - 1);
    const Mox64u rest = r.quotient & (2 * half - 1);
    return whole + (rest > half || (rest == half && (r.remainder || (whole & 1))));
  }

  Mox64u value_;
  WideDivisor divisor_;
  int factor_;
};

MoxStatus divConstant64InPlace(Mox64s val, Mox64s* srcDst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, srcDst)) return s;
  if (val == 0) return moxErrDivByZero;
  const ScaledQuotient quotient(absoluteValue(val), scaleFactor);
  for (long i = 0; i < len; ++i) {
    const Mox64s x = load<Mox64s>(srcDst + i);
    store(srcDst + i, saturatedTo<Mox64s>(quotient(absoluteValue(x)), (x < 0) != (val < 0)));
  }
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsDivC_64s_ISfs, divConstant64InPlace);

}  // namespace mox::arith
