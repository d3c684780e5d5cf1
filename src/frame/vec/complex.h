// Complex numbers in a register.
#pragma once

#include "frame/vec/shuffle.h"

namespace mox {

// Complex numbers as interleaved parts, real part first. In single precision the instructions are
// named: a plain load does their work, where shuffle() takes a shuffle as well.
template <class T>
[[gnu::always_inline]] inline T realParts(T z) {
  if constexpr (std::is_same_v<Lane<T>, Mox32f> && sizeof z >= 16)
    MOX_BY_WIDTH(T, moveldup_ps(z));
  else
    return shuffle<[](int i) { return i & ~1; }>(z);
}
template <class T>
[[gnu::always_inline]] inline T imaginaryParts(T z) {
  if constexpr (std::is_same_v<Lane<T>, Mox32f> && sizeof z >= 16)
    MOX_BY_WIDTH(T, movehdup_ps(z));
  else
    return shuffle<[](int i) { return i | 1; }>(z);
}
template <class T>
[[gnu::always_inline]] inline T swapParts(T z) {
  return shuffle<[](int i) { return i ^ 1; }>(z);
}
// The two values in turn.
template <class T, class E>
[[gnu::always_inline]] inline T alternating(E even, E odd) {
  const T v = {even, odd};
  return shuffle<[](int i) { return i % 2; }>(v);
}
// The real parts of a - b and the imaginary parts of a + b.
template <class T>
[[gnu::always_inline]] inline T addSubtract(T a, T b) {
  constexpr bool single = std::is_same_v<Lane<T>, Mox32f>, of64f = std::is_same_v<Lane<T>, Mox64f>;
  if constexpr (single && sizeof a >= 16)
    MOX_BY_WIDTH(T, addsub_ps(a, b));
  else if constexpr (of64f && sizeof a >= 16)
    MOX_BY_WIDTH(T, addsub_pd(a, b));
  else
    return shuffle<[](int i) { return i % 2 ? laneCount<T> + i : i; }>(T(a - b), T(a + b));
}
// z (re + i im), where the lanes of re and im come in pairs.
template <class T, class F>
[[gnu::always_inline]] inline T times(T z, F re, F im) {
  // Registers of 64 bytes have no instruction for addSubtract(). The signs of a constant change
  // before the loop.
  if constexpr (sizeof z == 64)
    return z * re +
           swapParts(z) * T(Bits<T>(im) ^ alternating<Bits<T>>(signBit<T>, Lane<Bits<T>>(0)));
  else
    return addSubtract(z * re, swapParts(z) * im);
}
// Each real number twice, to go with both parts of a complex one.
template <class T>
[[gnu::always_inline]] inline auto doubled(T a) {
  if constexpr (std::is_arithmetic_v<T>)
    return a;
  else
    return shuffle<[](int i) { return i / 2; }, 2 * laneCount<T>>(a, a);
}

}  // namespace mox
