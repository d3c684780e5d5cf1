// Complex numbers in a register.
#pragma once

#include "frame/vec/shuffle.h"

namespace mox {

// Complex numbers as interleaved parts, real part first.
template <class T>
[[gnu::always_inline]] inline T realParts(T z) {
  if constexpr (std::is_same_v<T, V<Mox32f>>)
    return T(_mm256_moveldup_ps(z));  // a plain load, where shuffle() takes a shuffle as well
  else
    return shuffle<[](int i) { return i & ~1; }>(z);
}
template <class T>
[[gnu::always_inline]] inline T imaginaryParts(T z) {
  if constexpr (std::is_same_v<T, V<Mox32f>>)
    return T(_mm256_movehdup_ps(z));
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
  if constexpr (std::is_same_v<T, V<Mox32f>>)
    return T(_mm256_addsub_ps(a, b));
  else if constexpr (std::is_same_v<T, V<Mox64f>>)
    return T(_mm256_addsub_pd(a, b));
  else if constexpr (std::is_same_v<T, V<Mox32f, 4>>)
    return T(_mm_addsub_ps(a, b));
  else if constexpr (std::is_same_v<T, V<Mox64f, 2>>)
    return T(_mm_addsub_pd(a, b));
  else
    return shuffle<[](int i) { return i % 2 ? laneCount<T> + i : i; }>(T(a - b), T(a + b));
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
