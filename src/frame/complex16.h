// Exact arithmetic on complex 16-bit integers, four to a register of 16 bytes. A sum of two
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
[[gnu::always_inline]] inline Pair<I<Mox32s>> exactProduct(I<Mox16s> x, I<Mox16s> y) {
  const auto imaginary = I<Mox16s>(broadcast<I<Mox32s>>(-0x10000));
  // There is no -d in 16 bits for every d, but there is ~d, which is -d - 1.
  const auto re = addWrapping(multiplyAddPairs(x, y ^ imaginary), I<Mox32s>(x) >> 16);
  return {re, unwrapped(multiplyAddPairs(x, swapParts(y)))};
}

// No square but the one that has wrapped is negative.
[[gnu::always_inline]] inline I<Mox32s> exactSquaredMagnitude(I<Mox16s> z) {
  const auto squares = multiplyAddPairs(z, z);
  return squares ^ (squares >> 31);
}

// The parts saturated and interleaved.
[[gnu::always_inline]] inline I<Mox16s> packParts(Pair<I<Mox32s>> z) {
  constexpr auto interleaved = [](int i) { return i / 8 * 8 + i % 2 * 4 + i % 8 / 2; };
  return shuffle<interleaved>(packBlocks<Mox16s>(BlockHalves{z.re, z.im}));
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
