// Products of complex vectors.
#pragma once

#include "frame/elements.h"
#include "frame/vec.h"

namespace mox {

namespace detail {

// (a + bi)(c + di) = ac - bd + (bc + ad) i, of as many numbers as a vector has pairs of lanes.
template <class T>
[[gnu::always_inline]] inline T complexProduct(T x, T y) {
  constexpr int lanes = sizeof(T) / sizeof(x[0]);
  const T re = shuffle<[](int i) { return i & ~1; }>(y);
  const T im = shuffle<[](int i) { return i | 1; }>(y);
  const T straight = x * re, crossed = shuffle<[](int i) { return i ^ 1; }>(x) * im;
  return shuffle<[](int i) { return i % 2 * lanes + i; }>(straight - crossed, straight + crossed);
}

}  // namespace detail

// dst[i] = src1[i] * src2[i], where dst may be one of the sources; len may be 0.
template <Complex E>
void mulComplex(const E* src1, const E* src2, E* dst, long len) {
  using F = Part<E>;
  constexpr long numbers = lanesOf<F> / 2;
  const auto step = [&]<class T>(long i, T*) {
    store(parts(dst + i),
          detail::complexProduct(load<T>(parts(src1 + i)), load<T>(parts(src2 + i))));
  };
  long i = 0;
  for (; i <= len - numbers; i += numbers) step(i, static_cast<V<F>*>(nullptr));
  for (; i < len; ++i) step(i, static_cast<V<F, 2>*>(nullptr));
}

}  // namespace mox
