// Complex numbers as butterflies see them, which are written once for two forms: a Pair has real
// parts in one vector and imaginary parts in another (or one number in two scalars), a vector of
// floats has the two parts of each number side by side.
#pragma once

#include "frame/pair.h"

namespace mox::transforms {

enum class Direction { forward, inverse };
constexpr Direction fwd = Direction::forward, inv = Direction::inverse;

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

// i s z for a real s, given z with its parts swapped.
template <class T, class F>
[[gnu::always_inline]] inline Pair<T> timesImaginary(Pair<T> swapped, F s) {
  return {swapped.re * -s, swapped.im * s};
}
template <class T, class F>
[[gnu::always_inline]] inline T timesImaginary(T swapped, F s) {
  return swapped * alternating<T>(-s, s);
}

template <class T>
[[gnu::always_inline]] inline T conjugated(T v) {
  constexpr int lanes = laneCount<T>;
  using Bits = V<Mox32u>;
  const T signs = shuffle<[](int i) { return i % 2 * lanes + i; }>(T{}, -T{});
  return T(Bits(v) ^ Bits(signs));
}

// The numbers of a vector in reverse order.
template <class T>
[[gnu::always_inline]] inline T numbersReversed(T v) {
  return shuffle<[](int i) { return laneCount<T> - 2 - i + i % 2 * 2; }>(v);
}

// z w, or z conj(w) in the inverse direction.
template <Direction direction, class T>
[[gnu::always_inline]] inline Pair<T> rotated(Pair<T> z, Pair<T> w) {
  return direction == Direction::forward ? product(z, w) : conjugateProduct(z, w);
}

}  // namespace mox::transforms
