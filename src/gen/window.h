// Windows: a weight serves the element at n from the front and the one at n from the back.
#pragma once

#include <cstring>

#include "frame/in_place.h"
#include "frame/widen.h"
#include "gen/block.h"

namespace mox::gen {

inline MoxStatus checkWindow(const void* src, const void* dst, int len, int least) {
  return anyNull(src, dst) ? MoxStatus(moxErrNullPtr) : checkLength(len, least);
}

namespace detail {

// Weights for vector j of parts, of which an element has one or two.
template <int partsPerElement, class F>
[[gnu::always_inline]] inline V<F> weightsOfParts(const Block<F>& w, int j) {
  constexpr int half = lanesOf<F> / 2;
  if constexpr (partsPerElement == 1) return w.v[j];
  const V<F> v = w.v[j / 2];
  return j % 2 ? shuffle<[](int i) { return half + i / 2; }>(v)
               : shuffle<[](int i) { return i / 2; }>(v);
}

// To the nearest of the integers of 16 bits.
[[gnu::always_inline]] inline Beside<Mox16s, V<Mox32f>> rounded(V<Mox32f> v) {
  const auto low = broadcast<V<Mox32f>>(-32768.0f), high = broadcast<V<Mox32f>>(32767.0f);
  return narrowed<Mox16s>(integersOf(nearestInteger(greater(lesser(v, high), low))));
}

template <class E, class W>
[[gnu::always_inline]] inline void weigh(const Block<W>& w, const E* src, E* dst) {
  constexpr int lanes = lanesOf<W>;
  for (int j = 0; j < Block<W>::vectors * partsPerElement<E>; ++j) {
    const V<W> x = loadWidened<V<W>>(parts(src) + j * lanes);
    const V<W> r = x * weightsOfParts<partsPerElement<E>>(w, j);
    if constexpr (std::is_integral_v<Part<E>>)
      store(parts(dst) + j * lanes, rounded(r));
    else
      store(parts(dst) + j * lanes, __builtin_convertvector(r, V<Part<E>, lanes>));
  }
}

}  // namespace detail

// dst[n] = src[n] w(n) and dst[len - 1 - n] = src[len - 1 - n] w(n); the element in the middle of
// an odd length stays. weights.next() makes the next block of w. `dst` may be `src`.
template <class E, class Weights>
void applyWindow(Weights weights, const E* src, E* dst, long len) {
  const long pairs = len / 2;
  long n = 0;
  for (; n <= pairs - blockLen; n += blockLen) {
    const auto w = weights.next();
    const long back = len - n - blockLen;
    detail::weigh(w, src + n, dst + n);
    detail::weigh(reversed(w), src + back, dst + back);
  }
  if (const long rest = pairs - n; rest > 0) {
    const auto w = weights.next();
    const std::size_t bytes = std::size_t(rest) * sizeof(E);
    E front[blockLen] = {}, back[blockLen] = {};
    E* const lastOnes = back + blockLen - rest;
    std::memcpy(front, src + n, bytes);
    std::memcpy(lastOnes, src + len - n - rest, bytes);
    detail::weigh(w, front, front);
    detail::weigh(reversed(w), back, back);
    std::memcpy(dst + n, front, bytes);
    std::memcpy(dst + len - n - rest, lastOnes, bytes);
  }
  if (len % 2) store(dst + pairs, load<E>(src + pairs));
}

template <class E>
void zeroEnds(E* dst, long len) {
  store(dst, E{});
  store(dst + len - 1, E{});
}

}  // namespace mox::gen
