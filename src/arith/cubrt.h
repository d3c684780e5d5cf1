// The cube root of floats.
#pragma once

#include <limits>

#include "frame/vec/vec.h"

namespace mox::arith {

// A rational function of the mantissa; the exponent is divided by 3.
struct Cubrt32f {
  using Element = Mox32f;

  [[gnu::always_inline]] static V<Mox32f> lanes(V<Mox32f> x) {
    const V<Mox32f> a = absolute(x);
    const V<Mox32f> e = floatsOf((V<Mox32s>(a) - 0x3F800000) >> 23) + 1.0f;
    const V<Mox32f> k = truncated(e * 0.3333333432674408f);
    // The third of the multiple of 3 at or above e, and exponent fields that stand for both.
    const V<Mox32f> third = select(notAtMost(e - k * 3.0f, 0.0f), k + 1.0f, k);
    const auto down = integersOf(third * 0x1.8p24f), up = integersOf(third * 0x1p23f);
    const V<Mox32f> m = V<Mox32f>(V<Mox32s>(a) - down);
    const V<Mox32f> p =
        (((m * 45.25483322143555f + 192.2798309326172f) * m + 119.16548156738281f) * m +
         13.432501792907715f) *
            m +
        0.1636161208152771f;
    const V<Mox32f> q =
        (((m * 14.80884075164795f + 151.97140502929688f) * m + 168.5254364013672f) * m +
         33.99059295654297f) *
            m +
        1.0f;
    const V<Mox32f> root = p * refinedReciprocal(q);
    return withSignOf(x, V<Mox32f>(V<Mox32s>(root) + up));
  }

  static V<Mox32f> special(V<Mox32f> x) {
    using Range = std::numeric_limits<Mox32f>;
    const V<Mox32f> a = absolute(x);
    return either(notAtLeast(a, Range::min()), notAtMost(a, Range::max()));
  }

  // Zero, infinity and NaN are their own roots; a subnormal is lifted by 2^24.
  static Mox32f one(Mox32f x, int&) {
    if (x == 0 || !(absolute(broadcast<V<Mox32f>>(x))[0] <= std::numeric_limits<Mox32f>::max()))
      return x + x;
    return lanes(broadcast<V<Mox32f>>(x * 0x1p24f))[0] * 0x1p-8f;
  }
};

}  // namespace mox::arith
