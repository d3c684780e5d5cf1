// Sine and cosine. The angle is reduced to at most pi / 4 by multiples of pi / 2, held in three
// parts (Cody and Waite, Software Manual for the Elementary Functions, 1980), and the power series
// summed far enough that its rest is below the rounding of the result.
#include <cmath>

#include "arith/vector_function.h"
#include "arith/vector_functions.h"
#include "frame/rounding_control.h"

namespace mox {
namespace {

using D = V<Mox64f>;

// The first two parts have 33 bits each, so that their products with n below 2^20 are exact.
constexpr Mox64f halfPi1 = 0x1.921fb544p+0, halfPi2 = 0x1.0b4611a6p-34,
                 halfPi3 = 0x1.3198a2e037073p-69;
constexpr Mox64f largestAngle = 0x1p20;  // beyond it an angle is reduced one by one

struct Reduced {
  D quarters;  // n, an integer
  D angle, rest;
};

inline Reduced reduced(D x) {
  const D n = nearestInteger(x * 0x1.45f306dc9c883p-1);
  const D r = x - n * halfPi1, w = n * halfPi2, angle = r - w;
  return {n, angle, (r - angle) - w - n * halfPi3};
}

// Horner's rule over coefficients from the lowest power on.
template <int count>
[[gnu::always_inline]] inline D polynomial(const Mox64f (&c)[count], D x) {
  D sum = broadcast<D>(c[count - 1]);
  for (int i = count - 2; i >= 0; --i) sum = sum * x + c[i];
  return sum;
}

constexpr Mox64f sineTerms[] = {
    -1 / 6.0,        1 / 120.0,        -1 / 5040.0,          1 / 362880.0,
    -1 / 39916800.0, 1 / 6227020800.0, -1 / 1307674368000.0, 1 / 355687428096000.0};
constexpr Mox64f cosineTerms[] = {
    1 / 24.0,        -1 / 720.0,         1 / 40320.0,          -1 / 3628800.0,
    1 / 479001600.0, -1 / 87178291200.0, 1 / 20922789888000.0, -1 / 6402373705728000.0};

// sin(angle + rest) and cos(angle + rest) to first order in the rest.
inline D sineOf(D angle, D rest) {
  const D s = angle * angle;
  const D correction = angle * s * polynomial(sineTerms, s) + rest * (1 - s * 0.5);
  return angle + correction;
}
inline D cosineOf(D angle, D rest) {
  const D s = angle * angle, half = s * 0.5, head = 1 - half;
  return head + (((1 - head) - half) + (s * s * polynomial(cosineTerms, s) - angle * rest));
}

// sin(x + turn pi / 2)
template <int turn>
struct Sine64f {
  using Element = Mox64f;

  static D lanes(D x) {
    const auto [n, angle, rest] = reduced(x);
    // The quadrant's bits, taken from the number that n + 1.5 * 2^52 holds at its end.
    const Bits<D> quadrant = Bits<D>(n + (0x1.8p52 + turn));
    const D size = select(D(quadrant << 63), cosineOf(angle, rest), sineOf(angle, rest));
    return D(Bits<D>(size) ^ (quadrant & 2) << 62);
  }
  static D special(D x) { return notAtMost(absolute(x), largestAngle); }
  static Mox64f one(Mox64f x, int&) { return turn ? std::cos(x) : std::sin(x); }
};

// Single precision by way of double: the result is rounded once more.
template <int turn>
struct Sine32f {
  using Element = Mox32f;
  using InDouble = Sine64f<turn>;

  static V<Mox32f> lanes(V<Mox32f> x) {
    const D low =
        InDouble::lanes(__builtin_convertvector(__builtin_shufflevector(x, x, 0, 1, 2, 3), D));
    const D high =
        InDouble::lanes(__builtin_convertvector(__builtin_shufflevector(x, x, 4, 5, 6, 7), D));
    const auto a = __builtin_convertvector(low, V<Mox32f, 4>),
               b = __builtin_convertvector(high, V<Mox32f, 4>);
    return __builtin_shufflevector(a, b, 0, 1, 2, 3, 4, 5, 6, 7);
  }
  static V<Mox32f> special(V<Mox32f> x) { return notAtMost(absolute(x), Mox32f(largestAngle)); }
  static Mox32f one(Mox32f x, int& code) { return Mox32f(InDouble::one(x, code)); }
};

// Tables are the same in every rounding mode of the caller.
template <class Function, class F>
int runToNearest(const F* src, F* dst, int len) {
  const RoundingScope scope(Rounding::nearEven);
  return runFunction<Function>(src, dst, len);
}

}  // namespace

const VectorFunction<Mox32f> ownsSin_32f(runToNearest<Sine32f<0>>, 3.43f, 5.18f, 2.63f);
const VectorFunction<Mox32f> ownsCos_32f(runToNearest<Sine32f<1>>, 3.53f, 6.24f, 2.73f);
const VectorFunction<Mox64f> ownsSin_64f(runToNearest<Sine64f<0>>, 9.20f, 16.04f, 6.26f);
const VectorFunction<Mox64f> ownsCos_64f(runToNearest<Sine64f<1>>, 8.99f, 16.23f, 6.42f);

}  // namespace mox
