// The cube root, of floats and of integers.
#include <moxsp/arith.h>

#include <limits>

#include "arith/vector_function.h"
#include "frame/export.h"
#include "frame/map_rounded.h"

namespace mox::arith {
namespace {

// A rational function of the mantissa; the exponent is divided by 3.
struct Cubrt32f {
  using Lanes = Register<Mox32f>;

  template <Of<Mox32f> T>
  [[gnu::always_inline]] static T lanes(T x) {
    using Integers = Beside<Mox32s, T>;
    const T a = absolute(x);
    const T e = floatsOf((Integers(a) - 0x3F800000) >> 23) + 1.0f;
    const T k = truncated(e * 0.3333333432674408f);
    // The third of the multiple of 3 at or above e, and exponent fields that stand for both.
    const T third = select(notAtMost(e - k * 3.0f, 0.0f), k + 1.0f, k);
    const auto down = integersOf(third * 0x1.8p24f), up = integersOf(third * 0x1p23f);
    const T m = T(Integers(a) - down);
    const T p = (((m * 45.25483322143555f + 192.2798309326172f) * m + 119.16548156738281f) * m +
                 13.432501792907715f) *
                    m +
                0.1636161208152771f;
    const T q = (((m * 14.80884075164795f + 151.97140502929688f) * m + 168.5254364013672f) * m +
                 33.99059295654297f) *
                    m +
                1.0f;
    const T root = p * refinedReciprocal(q);
    return withSignOf(x, T(Integers(root) + up));
  }

  static Mask<Lanes> special(Lanes x) {
    using Range = std::numeric_limits<Mox32f>;
    const Lanes a = absolute(x);
    return either(notAtLeast(a, Range::min()), notAtMost(a, Range::max()));
  }

  // Zero, infinity and NaN are their own roots; a subnormal is lifted by 2^24.
  static Lanes rare(Lanes x, int&) {
    const auto isBeyond = notAtMost(absolute(x), std::numeric_limits<Mox32f>::max());
    const Lanes isZero = Lanes(x == 0.0f);
    return select(either(isZero, Lanes(isBeyond)), x + x, lanes(x * 0x1p24f) * 0x1p-8f);
  }
};

// The root of integers of 32 bits, to about 2^-52: one step of Halley's method on the float's.
// Roots that are integers are made exact, for they decide ties; no other root comes closer to an
// integer than 2^-23.
[[gnu::always_inline]] inline V<Mox64f> cubeRoot(V<Mox64f> x) {
  const auto rounded = __builtin_convertvector(x, Beside<Mox32f, V<Mox64f>>);
  const V<Mox32f> roots = Cubrt32f::lanes(join<V<Mox32f>>(rounded, rounded));
  const V<Mox64f> y = __builtin_convertvector(halves(roots).low, V<Mox64f>);
  const V<Mox64f> cube = y * y * y;
  const V<Mox64f> root = y - y * (cube - x) / (cube * 2.0 + x), whole = nearestInteger(root);
  return select(notAtMost(absolute(root - whole), 0x1p-30), root, whole);
}

MoxStatus cubrtScaled(const Mox32s* src, Mox16s* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  const ByPowerOfTwo scale(scaleFactor);
  mapRounded([&](V<Mox64f> x) { return scale(cubeRoot(x)); }, dst, len, src);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsCubrt_32f, elementary<Cubrt32f>);
MOX_EXPORT(moxsCubrt_32s16s_Sfs, cubrtScaled);

}  // namespace mox::arith
