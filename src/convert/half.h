// Half floats in software, on vectors: what the processor's instructions give, to the bit.
#pragma once

#include "frame/vec/vec.h"

namespace mox::convert {

enum class HalfRounding { nearEven = 0, zero = 3 };  // as the instruction encodes them

namespace half {
constexpr Mox32u magnitude = 0x7FFF, sign = 0x8000;
constexpr Mox32u leastNormal = 0x0400, largest = 0x7BFF, infinity = 0x7C00, quietNaN = 0x7E00;
constexpr int shift = 13;  // by which exponent and fraction stand higher in a float
}  // namespace half

// The bits of floats. Their exponents are 112 above those of half floats.
namespace single {
constexpr Mox32u magnitude = 0x7FFFFFFF, infinity = 0x7F800000, quietBit = 0x400000;
constexpr Mox32u oneHalf = 0x3F000000, bias = 112u << 23;
constexpr Mox32u leastNormalHalf = bias + (half::leastNormal << half::shift);
}  // namespace single

template <Of<Mox32u> U>
Beside<Mox32f, U> decodeHalf(U bits) {
  const auto u = [](Mox32u x) { return broadcast<U>(x); };
  const U magnitude = bits & half::magnitude, raised = magnitude << half::shift;
  const U quiet = magnitude > half::infinity ? u(single::quietBit) : u(0);
  const U special = (raised + 2 * single::bias) | quiet;
  const U normal = raised + single::bias;
  const U tiny = U(floatsOf(Beside<Mox32s, U>(magnitude)) * 0x1p-24f);
  const U value = magnitude >= half::infinity     ? special
                  : magnitude < half::leastNormal ? tiny
                                                  : normal;
  return Beside<Mox32f, U>(value | (bits & half::sign) << 16);
}

// The rounding mode in force must be the one asked for: a result below the normal numbers is
// rounded by an addition, after which its units are those of the sum.
template <HalfRounding rounding, Of<Mox32f> T>
auto encodeHalf(T x) {
  using U = Beside<Mox32u, T>;
  constexpr bool nearest = rounding == HalfRounding::nearEven;
  const auto u = [](Mox32u e) { return broadcast<U>(e); };
  constexpr Mox32u belowHalf = (1u << (half::shift - 1)) - 1;  // of the last place
  const U magnitude = U(x) & single::magnitude;
  const U rebiased = magnitude - single::bias;
  const U rounded = nearest ? rebiased + belowHalf + (rebiased >> half::shift & 1) : rebiased;
  const U normal = lesser(U(rounded >> half::shift), u(nearest ? half::infinity : half::largest));
  const U tiny = U(T(magnitude) + 0.5f) - single::oneHalf;
  const U nan = (magnitude >> half::shift & (half::leastNormal - 1)) | half::quietNaN;
  const U special = magnitude > single::infinity ? nan : u(half::infinity);
  const U value = magnitude >= single::infinity         ? special
                  : magnitude < single::leastNormalHalf ? tiny
                                                        : normal;
  return U(value | (U(x) >> 16 & half::sign));
}

}  // namespace mox::convert
