// Magnitudes and their squares, as operations of mapComplex().
#pragma once

#include "convert/round_once.h"
#include "frame/map_complex.h"

namespace mox::convert {

template <class T>
struct MagnitudeLanes {
  static constexpr int lanes = laneCount<T>;
  auto operator()(auto src, long i) const {
    return squareRoot(squaredMagnitude(src.template lanes<T>(i)));
  }
};
template <class F>
using Magnitude = InWidest<MagnitudeLanes, F>;

// Numbers of 16-bit parts, interleaved.
template <int count>
[[gnu::always_inline]] inline auto interleavedWords(Array<const Mox16sc> src, long i) {
  return load<V<Mox16s, 2 * count>>(src.p + i);
}
template <int count>
[[gnu::always_inline]] inline auto interleavedWords(Split<const Mox16s> src, long i) {
  using Words = V<Mox16s, 2 * count>;
  if constexpr (count > 4) {
    return join<Words>(interleavedWords<count / 2>(src, i),
                       interleavedWords<count / 2>(src, i + count / 2));
  } else {
    const auto four = [i](const Mox16s* p) { return Words(V<Mox64s, 2>{load<Mox64s>(p + i)}); };
    return unpackLow<Mox16s>(four(src.re), four(src.im));
  }
}

// The squares of magnitudes, as many as T has lanes. The one that 32 bits don't hold, 2^31, is
// -2^31 here.
template <class T>
[[gnu::always_inline]] inline Beside<Mox32s, T> squaredMagnitudesOfWords(auto src, long i) {
  constexpr int count = laneCount<T>;
  if constexpr (4 * count > integerBytes) {
    using Half = V<Lane<T>, count / 2>;
    return join<Beside<Mox32s, T>>(squaredMagnitudesOfWords<Half>(src, i),
                                   squaredMagnitudesOfWords<Half>(src, i + count / 2));
  } else {
    const auto words = interleavedWords<count>(src, i);
    return multiplyAddPairs(words, words);
  }
}

// The same as floats, exact before their one rounding.
[[gnu::always_inline]] inline V<Mox32f> squaredMagnitudeAsFloat(auto src, long i) {
  return absolute(floatsOf(squaredMagnitudesOfWords<V<Mox32f>>(src, i)));
}

// Whether sqrt(square) * 2^-factor is above n + 1/2, or just that and n odd.
inline bool isAboveTie(Mox64u square, int factor, Mox64s n) {
  __extension__ typedef unsigned __int128 Wide;
  // 2 n + 1 is below 2^35, and a root that is near to it after scaling not much larger.
  const Wide tie = Wide(2 * n + 1);
  const Wide lhs = factor > 0 ? square : Wide(square) << 2 * (1 - factor);
  const Wide root = factor > 0 ? tie << (factor - 1) : tie;
  return lhs > root * root || (lhs == root * root && n % 2 == 1);
}

// The exact root times 2^-factor, rounded to the nearest integer with ties to even.
template <class D>
struct ScaledMagnitude {
  static constexpr int lanes = integerLanes<D>;

  explicit ScaledMagnitude(int scaleFactor) : factor(scaleFactor), scale(scaleFactor) {}

  auto operator()(auto src, long i) const {
    return integersFrom<D>([&](long j) {
      if constexpr (sizeof(D) == 2) {
        // Doubles suffice: a scaled root up to 2^16 that isn't half an odd number keeps more than
        // 2^-36 of itself away from one.
        const auto squares = squaredMagnitudesOfWords<V<Mox64f>>(src, i + j);
        return nearestInteger(
            scale(squareRoot(absolute(__builtin_convertvector(squares, V<Mox64f>)))));
      } else {
        const auto z = src.template lanes<V<Mox64f>>(i + j);
        return roundedOnce(scale(squareRoot(squaredMagnitude(z))), [&](int lane, Mox64s n) {
          const auto square = [](Mox64f x) { return Mox64u(Mox64s(x) * Mox64s(x)); };
          return isAboveTie(square(z.re[lane]) + square(z.im[lane]), factor, n);
        });
      }
    });
  }

  int factor;
  ByPowerOfTwo scale;
};

}  // namespace mox::convert
