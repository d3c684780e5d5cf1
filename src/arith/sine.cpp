// Sine and cosine. The angle is reduced to at most pi / 4 by multiples of pi / 2, held in three
// parts (Cody and Waite, Software Manual for the Elementary Functions, 1980), and the power series
// summed far enough that its rest is below the rounding of the result.
#include <cmath>

#include "arith/vector_function.h"
#include "arith/vector_functions.h"

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
struct SineKernel {
  D vector(D x) const {
    const auto [n, angle, rest] = reduced(x);
    // The quadrant's bits, taken from the number that n + 1.5 * 2^52 holds at its end.
    using Bits = V<Mox64u>;
    const Bits quadrant = Bits(n + (0x1.8p52 + turn));
    const D s = sineOf(angle, rest), c = cosineOf(angle, rest);
    const D odd = D(Bits(V<Mox64s>((quadrant & 1) != 0)));
    const Bits magnitude = (Bits(c) & Bits(odd)) | (Bits(s) & ~Bits(odd));
    return D(magnitude ^ (quadrant & 2) << 62);
  }
  V<Mox64s> special(D x) const { return ~((x < largestAngle) & (x > -largestAngle)); }
  Mox64f element(Mox64f x) const { return turn ? std::cos(x) : std::sin(x); }
};

// Single precision by way of double: the result is rounded once more.
template <int turn>
struct SingleSineKernel {
  SineKernel<turn> kernel;

  V<Mox32f> vector(V<Mox32f> x) const {
    const D low =
        kernel.vector(__builtin_convertvector(__builtin_shufflevector(x, x, 0, 1, 2, 3), D));
    const D high =
        kernel.vector(__builtin_convertvector(__builtin_shufflevector(x, x, 4, 5, 6, 7), D));
    const auto a = __builtin_convertvector(low, V<Mox32f, 4>),
               b = __builtin_convertvector(high, V<Mox32f, 4>);
    return __builtin_shufflevector(a, b, 0, 1, 2, 3, 4, 5, 6, 7);
  }
  V<Mox32s> special(V<Mox32f> x) const {
    return ~((x < Mox32f(largestAngle)) & (x > Mox32f(-largestAngle)));
  }
  Mox32f element(Mox32f x) const { return Mox32f(kernel.element(x)); }
};

}  // namespace

void ownsSin(const Mox32f* src, Mox32f* dst, int len) {
  vectorFunction(SingleSineKernel<0>(), src, dst, len);
}
void ownsCos(const Mox32f* src, Mox32f* dst, int len) {
  vectorFunction(SingleSineKernel<1>(), src, dst, len);
}
void ownsSin(const Mox64f* src, Mox64f* dst, int len) {
  vectorFunction(SineKernel<0>(), src, dst, len);
}
void ownsCos(const Mox64f* src, Mox64f* dst, int len) {
  vectorFunction(SineKernel<1>(), src, dst, len);
}

}  // namespace mox
