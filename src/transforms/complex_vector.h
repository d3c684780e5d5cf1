// Complex numbers as butterflies see them, which are written once for two forms: a Pair has real
// parts in one vector and imaginary parts in another (or one number in two scalars), a vector of
// floats has the two parts of each number side by side.
#pragma once

#include "frame/pair.h"

namespace mox::transforms {

enum class Direction { forward, inverse };

// a - i b and a + i b; the other way round in the inverse direction.
template <class Z>
struct QuarterTurns {
  Z first, second;
};
template <Direction direction, class T>
[[gnu::always_inline]] inline QuarterTurns<Pair<T>> quarterTurns(Pair<T> a, Pair<T> b) {
  const Pair<T> minus = {a.re + b.im, a.im - b.re}, plus = {a.re - b.im, a.im + b.re};
  if constexpr (direction == Direction::forward) return {minus, plus};
  return {plus, minus};
}
template <Direction direction, class T>
[[gnu::always_inline]] inline QuarterTurns<T> quarterTurns(T a, T b) {
  const T swapped = swapParts(b);
  const T minus = addSubtract(a, -swapped), plus = addSubtract(a, swapped);
  if constexpr (direction == Direction::forward) return {minus, plus};
  return {plus, minus};
}

// z w, or z conj(w) in the inverse direction.
template <Direction direction, class T>
[[gnu::always_inline]] inline Pair<T> rotated(Pair<T> z, Pair<T> w) {
  return direction == Direction::forward ? product(z, w) : conjugateProduct(z, w);
}

}  // namespace mox::transforms
