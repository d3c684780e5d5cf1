// Half floats in software, on vectors: what the processor's instructions give, to the bit.
#pragma once

#include "frame/vec.h"

namespace mox {

enum class HalfRounding { nearEven = 0, zero = 3 };  // as the instruction encodes them

// A half float's exponent and fraction move up by 13 bits; its exponent is 112 below that of a
// float.
inline V<Mox32f, 4> decodeHalf(V<Mox32u, 4> half) {
  using U = V<Mox32u, 4>;
  const auto u = [](Mox32u x) { return broadcast<U>(x); };
  const U magnitude = half & 0x7FFF;
  const U quiet = magnitude > 0x7C00u ? u(0x400000) : u(0);
  const U special = ((magnitude << 13) + (224u << 23)) | quiet;
  const U normal = (magnitude << 13) + (112u << 23);
  const U tiny = U(__builtin_convertvector(V<Mox32s, 4>(magnitude), V<Mox32f, 4>) * 0x1p-24f);
  const U value = magnitude >= 0x7C00u ? special : magnitude < 0x400u ? tiny : normal;
  return V<Mox32f, 4>(value | (half & 0x8000) << 16);
}

// The rounding mode in force must be the one asked for: a result below the normal numbers is
// rounded by an addition, after which its units are those of the sum.
template <HalfRounding rounding>
V<Mox32u, 4> encodeHalf(V<Mox32f, 4> x) {
  using U = V<Mox32u, 4>;
  constexpr bool nearest = rounding == HalfRounding::nearEven;
  const auto u = [](Mox32u e) { return broadcast<U>(e); };
  const U magnitude = U(x) & 0x7FFFFFFF;
  const U rebiased = magnitude - (112u << 23);
  const U rounded = nearest ? rebiased + 0xFFF + (rebiased >> 13 & 1) : rebiased;
  const U normal = lesser(U(rounded >> 13), u(nearest ? 0x7C00 : 0x7BFF));
  const U tiny = U(V<Mox32f, 4>(magnitude) + 0.5f) - 0x3F000000;
  const U nan = (magnitude >> 13 & 0x3FF) | 0x7E00;
  const U special = magnitude > 0x7F800000u ? nan : u(0x7C00);
  const U value = magnitude >= 0x7F800000u ? special : magnitude < 0x38800000u ? tiny : normal;
  return value | (U(x) >> 16 & 0x8000);
}

}  // namespace mox
