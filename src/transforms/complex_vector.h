// Complex numbers in registers, in the two forms that the transforms use: Lanes has real parts in
// one vector and imaginary parts in another (or one number in two scalars), Mixed has the two
// parts of each number side by side. Butterflies are written once, for both.
#pragma once

#include "frame/vec/vec.h"

namespace mox {

enum class Direction { forward, inverse };

template <class T>
struct Lanes {
  T re, im;

  [[gnu::always_inline]] friend Lanes operator+(Lanes a, Lanes b) {
    return {a.re + b.re, a.im + b.im};
  }
  [[gnu::always_inline]] friend Lanes operator-(Lanes a, Lanes b) {
    return {a.re - b.re, a.im - b.im};
  }
  template <class F>
  [[gnu::always_inline]] friend Lanes operator*(Lanes a, F factor) {
    return {a.re * factor, a.im * factor};
  }
};

template <class F>
struct Mixed {
  V<F> v;

  [[gnu::always_inline]] friend Mixed operator+(Mixed a, Mixed b) { return {a.v + b.v}; }
  [[gnu::always_inline]] friend Mixed operator-(Mixed a, Mixed b) { return {a.v - b.v}; }
  [[gnu::always_inline]] friend Mixed operator*(Mixed a, F factor) { return {a.v * factor}; }
};

template <class F>
constexpr int numbersInMixed = lanesOf<F> / 2;

// a - i b and a + i b; the other way round in the inverse direction.
template <class Z>
struct QuarterTurns {
  Z first, second;
};
template <Direction direction, class T>
[[gnu::always_inline]] inline QuarterTurns<Lanes<T>> quarterTurns(Lanes<T> a, Lanes<T> b) {
  const Lanes<T> minus = {a.re + b.im, a.im - b.re}, plus = {a.re - b.im, a.im + b.re};
  if constexpr (direction == Direction::forward) return {minus, plus};
  return {plus, minus};
}
template <Direction direction, class F>
[[gnu::always_inline]] inline QuarterTurns<Mixed<F>> quarterTurns(Mixed<F> a, Mixed<F> b) {
  const V<F> swapped = swapParts(b.v);
  const Mixed<F> minus = {addSubtract(a.v, -swapped)}, plus = {addSubtract(a.v, swapped)};
  if constexpr (direction == Direction::forward) return {minus, plus};
  return {plus, minus};
}

// z w, or z conj(w) in the inverse direction.
template <Direction direction, class T>
[[gnu::always_inline]] inline Lanes<T> rotated(Lanes<T> z, Lanes<T> w) {
  if constexpr (direction == Direction::forward)
    return {z.re * w.re - z.im * w.im, z.re * w.im + z.im * w.re};
  return {z.re * w.re + z.im * w.im, z.im * w.re - z.re * w.im};
}

}  // namespace mox
