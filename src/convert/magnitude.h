// Magnitudes and their squares, on the shapes of frame/map_complex.h.
#pragma once

#include "frame/map_complex.h"

namespace mox::convert {

template <class F>
struct Magnitude {
  static constexpr int lanes = lanesOf<F>;
  auto operator()(auto src, long i) const {
    return squareRoot(squaredMagnitude(src.template lanes<V<F>>(i)));
  }
};

// Four numbers of 16-bit parts, interleaved.
inline I<Mox16s> interleavedWords(Array<const Mox16sc> src, long i) {
  return load<I<Mox16s>>(src.p + i);
}
inline I<Mox16s> interleavedWords(Split<const Mox16s> src, long i) {
  const auto half = [i](const Mox16s* p) { return I<Mox16s>(V<Mox64s, 2>{load<Mox64s>(p + i)}); };
  return unpackLow<Mox16s>(half(src.re), half(src.im));
}

// The squares of four magnitudes. The one that 32 bits don't hold, 2^31, is -2^31 here.
[[gnu::always_inline]] inline I<Mox32s> squaredMagnitudeOfWords(auto src, long i) {
  const auto words = interleavedWords(src, i);
  return multiplyAddPairs(words, words);
}

// The same as floats, exact before their one rounding.
[[gnu::always_inline]] inline V<Mox32f> squaredMagnitudeAsFloat(auto src, long i) {
  return absolute(floatsOf(
      join<V<Mox32s>>(squaredMagnitudeOfWords(src, i), squaredMagnitudeOfWords(src, i + 4))));
}

}  // namespace mox::convert
