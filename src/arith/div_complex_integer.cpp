// Quotients of complex integers, of two vectors and by a constant.
#include <moxsp/division.h>

#include <climits>

#include "arith/division.h"
#include "arith/scaled.h"
#include "frame/complex16.h"
#include "frame/in_place.h"
#include "frame/rounding_control.h"

namespace mox::arith {
namespace {

using Doubles = V<Mox64f>;
using Sums = Beside<Mox32s, Doubles>;
using Words = V<Mox16s, 2 * laneCount<Sums>>;  // as many elements

// Divisors, ready for any number of dividends.
struct Divisor {
  Words value, conjugate;  // the conjugate as (c, ~d): there is no -d in 16 bits for every d
  Sums zero;               // a mask
  Doubles reciprocal;      // of the square of the magnitude, scaled
};

class Kernel : public ByReciprocal<Doubles> {
 public:
  using ByReciprocal::ByReciprocal;

  [[gnu::always_inline]] Divisor prepared(Words divisor) {
    const Words imaginary = Words(broadcast<Sums>(-0x10000));
    // 2^31 comes out as -2^31.
    const Sums square = multiplyAddPairs(divisor, divisor);
    return {divisor, divisor ^ imaginary, square == 0,
            ByReciprocal::prepared(absolute(asDoubles(square)))};
  }

  // Over zero the parts of the dividend take the place of the sums of products, which are 0.
  [[gnu::always_inline]] Words quotients(Words dividend, const Divisor& divisor) const {
    const Sums re = Sums(dividend) << 16 >> 16, im = Sums(dividend) >> 16;
    const Sums reSum = multiplyAddPairs(dividend, divisor.value);
    const Sums imSum = addWrapping(multiplyAddPairs(swapParts(dividend), divisor.conjugate), re);
    return packParts(Pair{rounded(unwrapped(reSum) | (re & divisor.zero), divisor),
                          rounded(imSum | (im & divisor.zero), divisor)});
  }

 private:
  static Doubles asDoubles(Sums v) { return __builtin_convertvector(v, Doubles); }

  Sums rounded(Sums numerator, const Divisor& divisor) const {
    return roundedTo<moxRoundNearEven, Mox16s>(quotient(asDoubles(numerator), divisor.reciprocal));
  }
};

// The divisor is an array or `Same`. noinline keeps arithmetic on the constant behind the
// RoundingScope of our caller.
template <class A>
[[gnu::noinline]] MoxStatus mapQuotients(Kernel kernel, Mox16sc* dst, long len, A divisor,
                                         const Mox16sc* dividend) {
  const auto map = [&](auto quotients, auto... src) {
    const auto single = [](auto source, long i) {
      const Mox16s re = partFrom(source, i, 0), im = partFrom(source, i, 1);
      return alternating<Words>(re, im);
    };
    constexpr int step = laneCount<Sums>;
    mapInteger<step, step>(
        dst, len, [&](long i, int part) { return quotients(single(src, i)...)[part]; },
        [&](auto, long i) { return quotients(lanesFrom<Words>(src, i)...); });
  };
  if constexpr (std::is_pointer_v<A>) {
    map([&](Words a, Words b) { return kernel.quotients(b, kernel.prepared(a)); }, divisor,
        dividend);
  } else {
    const Divisor prepared = kernel.prepared(lanesFrom<Words>(divisor, 0));
    map([&](Words b) { return kernel.quotients(b, prepared); }, dividend);
  }
  return kernel.status();
}

// At factors below `lowest` every part that isn't 0 is at a limit.
template <class A>
MoxStatus divide(int factor, int lowest, Mox16sc* dst, long len, A divisor,
                 const Mox16sc* dividend) {
  const RoundingScope scope(Rounding::nearEven, Exceptions::hidden);
  return mapQuotients(Kernel(factor < lowest ? INT_MIN : factor), dst, len, divisor, dividend);
}

MoxStatus div(const Mox16sc* src1, const Mox16sc* src2, Mox16sc* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  return divide(scaleFactor, -32, dst, len, src1, src2);
}

MoxStatus divConstant(const Mox16sc* src, Mox16sc val, Mox16sc* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (val.re == 0 && val.im == 0) return moxErrDivByZero;
  return divide(scaleFactor, -16, dst, len, Same<Mox16sc>{val}, src);
}

}  // namespace

MOX_EXPORT_BOTH(moxsDiv_16sc_Sfs, moxsDiv_16sc_ISfs, div);
MOX_EXPORT_BOTH(moxsDivC_16sc_Sfs, moxsDivC_16sc_ISfs, divConstant);

}  // namespace mox::arith
