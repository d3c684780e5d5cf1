// Magnitudes as integers: the exact root times 2^-factor, rounded to nearest with ties to even.
#pragma once

#include "convert/magnitude.h"
#include "convert/round_once.h"

namespace mox::convert {

// Whether sqrt(square) * 2^-factor is above n + 1/2, or just that and n odd.
inline bool isAboveTie(Mox64u square, int factor, Mox64s n) {
  __extension__ typedef unsigned __int128 Wide;
  // 2 n + 1 is below 2^35, and a root that is near to it after scaling not much larger.
  const Wide tie = Wide(2 * n + 1);
  const Wide lhs = factor > 0 ? square : Wide(square) << 2 * (1 - factor);
  const Wide root = factor > 0 ? tie << (factor - 1) : tie;
  return lhs > root * root || (lhs == root * root && n % 2 == 1);
}

template <class D>
struct ScaledMagnitude {
  static constexpr int lanes = integerLanes<D>;

  explicit ScaledMagnitude(int scaleFactor) : factor(scaleFactor), scale(scaleFactor) {}

  auto operator()(auto src, long i) const {
    return integersFrom<D>([&](long j) {
      if constexpr (sizeof(D) == 2) {
        // Doubles suffice: a scaled root up to 2^16 that isn't half an odd number keeps more than
        // 2^-36 of itself away from one.
        const auto squares = squaredMagnitudeOfWords(src, i + j);
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
