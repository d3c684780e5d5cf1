// The vector functions of sine and cosine.
#include <bit>

#include "arith/sine.h"
#include "arith/vector_function.h"
#include "arith/vector_functions.h"
#include "frame/rounding.h"
#include "frame/rounding_control.h"

namespace mox::arith {
namespace {

using D = V<Mox64f>;

// sin(x + turn pi / 2)
template <int turn>
struct Sine64f {
  using Lanes = D;

  static D lanes(D x) { return of(reduced(x)); }
  static D special(D x) { return notAtMost(absolute(x), largestAngle); }
  static D rare(D x, int&) {
    D result = x;
    for (int bits = signBits(special(x)); bits; bits &= bits - 1) {
      const int lane = std::countr_zero(unsigned(bits));
      result[lane] = of(reducedFar(x[lane]))[0];
    }
    return result;
  }

  static D of(Reduced x) {
    const auto [n, angle, rest] = x;
    const Bits<D> quadrant = quadrantBits(n + turn);
    const D size = select(D(quadrant << 63), cosineOf(angle, rest), sineOf(angle, rest));
    return D(Bits<D>(size) ^ (quadrant & 2) << 62);
  }
};

// Single precision by way of double: the result is rounded once more.
template <int turn>
struct Sine32f {
  using Lanes = V<Mox32f>;
  using InDouble = Sine64f<turn>;

  static V<Mox32f> lanes(V<Mox32f> x) { return inDoubles(x, InDouble::lanes); }
  static V<Mox32f> special(V<Mox32f> x) { return notAtMost(absolute(x), Mox32f(largestAngle)); }
  static V<Mox32f> rare(V<Mox32f> x, int& code) {
    return inDoubles(x, [&](D v) { return InDouble::rare(v, code); });
  }
};

// 2 / pi, after a word of zeros: bit i, counted from the highest of the first word on, has the
// weight 2^(63 - i).
constexpr Mox64u twoOverPi[] = {
    0x0000000000000000, 0xa2f9836e4e441529, 0xfc2757d1f534ddc0, 0xdb6295993c439041,
    0xfe5163abdebbc561, 0xb7246e3a424dd2e0, 0x06492eea09d1921c, 0xfe1deb1cb129a73e,
    0xe88235f52ebb4484, 0xe99c7026b45f7e41, 0x3991d639835339f4, 0x9c845f8bbdf9283b,
    0x1ff897ffde05980f, 0xef2f118b5a0a6d1f, 0x6d367ecf27cb09b7, 0x4f463f669e5fea2d,
    0x7527bac7ebe5f17b, 0x3d0739f78a5292ea, 0x6bfb5fb11f8d5d08, 0x56033046fc7b6bab};

// The 64 bits from bit i on.
Mox64u bitsOfTwoOverPi(int i) {
  const Mox64u *word = twoOverPi + i / 64, shift = i % 64;
  return word[0] << shift | word[1] >> 1 >> (63 - shift);
}

// Tables are the same in every rounding mode of the caller.
template <class Function, class F>
void runToNearest(const F* src, F* dst, int len) {
  const RoundingScope scope(Rounding::nearEven);
  runFunction<Function>(src, dst, len);
}

}  // namespace

// |x| = m 2^e: of 2 / pi those bits count whose products are no multiples of four quarters (Payne
// and Hanek, Radian reduction for trigonometric functions, 1983). 192 of them leave an error of
// 2^-128 quarters, while no double comes closer to a multiple of pi / 2 than 2^-62.
Reduced reducedFar(Mox64f x) {
  const auto all = [](Mox64f v) { return broadcast<D>(v); };
  const Mox64u pattern = std::bit_cast<Mox64u>(x) << 1 >> 1;
  const int exponent = int(pattern >> 52) - 1075;
  if (exponent == 2047 - 1075) return {all(0), all(x - x), all(0)};
  __extension__ typedef unsigned __int128 Wide;
  const Wide m = (pattern & ((Mox64u(1) << 52) - 1)) | Mox64u(1) << 52;
  const int from = exponent + 62;
  const Wide low = m * bitsOfTwoOverPi(from + 128);
  const Wide middle = m * bitsOfTwoOverPi(from + 64) + (low >> 64);
  const Wide top = (m * bitsOfTwoOverPi(from) << 64) + middle;
  // The quarters stand in two bits; half of one more is the sign of the fraction.
  Wide fraction = top << 2 | Mox64u(low) >> 62;
  const bool less = fraction >> 127;
  const int quarters = int(top >> 126) + less;
  if (less) fraction = -fraction;
  const Mox64u high = Mox64u(fraction >> 64);
  const int zeros = high ? std::countl_zero(high) : 64 + std::countl_zero(Mox64u(fraction));
  fraction <<= zeros;
  // Times pi / 2, as the leading 53 bits and the next ones.
  constexpr Mox64u halfPiHigh = 0xc90fdaa22168c234, halfPiLow = 0xc4c6628b80dc1cd1;
  const Mox64u first = Mox64u(fraction >> 64), second = Mox64u(fraction);
  const Wide angle = Wide(first) * halfPiHigh + (Wide(first) * halfPiLow >> 64) +
                     (Wide(second) * halfPiHigh >> 64);
  const Mox64f sign = (x < 0) != less ? -1 : 1;
  const Mox64f unit = sign * powerOfTwo<Mox64f>(-52 - zeros);
  return {all(x < 0 ? -quarters : quarters), all(Mox64f(Mox64s(angle >> 75)) * unit),
          all(Mox64f(Mox64s(Mox64u(angle >> 11) >> 11)) * unit * 0x1p-53)};
}

void ownsSin(const Mox32f* src, Mox32f* dst, int len) { runToNearest<Sine32f<0>>(src, dst, len); }
void ownsCos(const Mox32f* src, Mox32f* dst, int len) { runToNearest<Sine32f<1>>(src, dst, len); }
void ownsSin(const Mox64f* src, Mox64f* dst, int len) { runToNearest<Sine64f<0>>(src, dst, len); }
void ownsCos(const Mox64f* src, Mox64f* dst, int len) { runToNearest<Sine64f<1>>(src, dst, len); }

}  // namespace mox::arith
