// Exact arithmetic on complex 16-bit integers. A sum of two
// products of parts lies from -2^31 + 2^16 to 2^31, and wraps in 32 bits for 2^31 alone.
#pragma once

#include <limits>

#include "frame/pair.h"

namespace mox {

// The sum 2^31, which has wrapped to -2^31, as 2^31 - 1: every scale factor turns both into the
// same 16-bit result. A true lane is -1.
template <class Integers>
[[gnu::always_inline]] inline Integers unwrapped(Integers v) {
  return v ^ (v == std::numeric_limits<Lane<Integers>>::min());
}

// x y, part by part.
template <Of<Mox16s> T>
[[gnu::always_inline]] inline auto exactProduct(T x, T y) {
  using Sums = V<Mox32s, laneCount<T> / 2>;
  const T imaginary = T(broadcast<Sums>(-0x10000));
  // There is no -d in 16 bits for every d, but there is ~d, which is -d - 1.
  const Sums re = addWrapping(multiplyAddPairs(x, y ^ imaginary), Sums(x) >> 16);
  return Pair<Sums>{re, unwrapped(multiplyAddPairs(x, swapParts(y)))};
}

// No square but the one that has wrapped is negative.
template <Of<Mox16s> T>
[[gnu::always_inline]] inline auto exactSquaredMagnitude(T z) {
  const auto squares = multiplyAddPairs(z, z);
  return squares ^ (squares >> 31);
}

// The parts saturated and interleaved.
template <Of<Mox32s> T>
[[gnu::always_inline]] inline V<Mox16s, 2 * laneCount<T>> packParts(Pair<T> z) {
  constexpr auto byBlocks = [](int i) { return i / 8 * 8 + i % 2 * 4 + i % 8 / 2; };
  return shuffle<byBlocks>(packBlocks<Mox16s>(BlockHalves{z.re, z.im}));
}

// One product of complex integers with parts of half of R's bits, likewise.
template <class R>
[[gnu::always_inline]] inline Pair<R> exactProduct(Pair<R> x, Pair<R> y) {
  using Unsigned = std::make_unsigned_t<R>;
  const R im = R(Unsigned(x.re * y.im) + Unsigned(x.im * y.re));
  const bool wrapped = im == std::numeric_limits<R>::min();
  return {x.re * y.re - x.im * y.im, wrapped ? std::numeric_limits<R>::max() : im};
}

}  // namespace mox
