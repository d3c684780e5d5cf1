// The passes between the half-length complex spectrum Z and the spectrum X of the real signal of
// length N = 2M, whose even samples are the real and whose odd samples the imaginary parts:
//
//   forward   X[k] = E - i W O,  X[M-k] = conj(E + i W O),
//             E = (Z[k] + conj Z[M-k]) / 2,  O = (Z[k] - conj Z[M-k]) / 2,  W = exp(-2 pi i k / N)
//   inverse   Z[k] = P + i conj(W) Q,  Z[M-k] = conj(P - i conj(W) Q), twice the true Z,
//             P = X[k] + conj X[M-k],  Q = X[k] - conj X[M-k]
//
// for k = 1 to M/2. One front of vectors goes up from k = 1, the other down from M - 1; both reach
// M/2 and find the same value for it. With conjugates taken on the upward front in the forward
// direction and on the downward front in the inverse, both run the same butterfly.
#pragma once

#include "frame/vec/vec.h"
#include "transforms/complex_vector.h"
#include "transforms/fft_spec.h"

namespace mox::transforms {
namespace detail {

// Vectors of interleaved complex values, lanesOf<F> / 2 in each. With v = (z1, z2, z3, z4) going up
// and (z4, z3, z2, z1) going down, both become (z2, z1, z4, z3): the upward one swaps neighbours
// and the downward one blocks of two.
template <class T>
[[gnu::always_inline]] inline T neighboursSwapped(T v) {
  return shuffle<[](int i) { return i ^ 2; }>(v);
}
template <class T>
[[gnu::always_inline]] inline T blocksReversed(T v) {
  return shuffle<[](int i) { return i ^ (laneCount<T> - 4); }>(v);
}

// Neighbours swapped on their way from and to memory. A double-precision pair goes as two halves:
// each lies within one of the vectors that the transform has just stored, and in one cache line.
[[gnu::always_inline]] inline V<Mox32f> loadSwapped(const Mox32f* p) {
  return neighboursSwapped(load<V<Mox32f>>(p));
}
[[gnu::always_inline]] inline V<Mox64f> loadSwapped(const Mox64f* p) {
  return join<V<Mox64f>>(load<V<Mox64f, 2>>(p + 2), load<V<Mox64f, 2>>(p));
}
[[gnu::always_inline]] inline void storeSwapped(Mox32f* p, V<Mox32f> v) {
  store(p, neighboursSwapped(v));
}
[[gnu::always_inline]] inline void storeSwapped(Mox64f* p, V<Mox64f> v) {
  store(p + 2, shuffle<[](int i) { return i; }, 2>(v, v));
  store(p, shuffle<[](int i) { return i + 2; }, 2>(v, v));
}

template <class T>
struct Fronts {
  T up, down;
};

// (P + i conj(W) Q, P - i conj(W) Q)
template <class T>
[[gnu::always_inline]] inline Fronts<T> butterfly(T up, T down, T w) {
  const T sum = up + down, turned = times(up - down, imaginaryParts(w), realParts(w));
  return {sum + turned, sum - turned};
}

// With A = (1/2 - sin/2) - i cos/2 the two are conj Z[M-k] + A D and conj(Z[k] - A D), where
// D = Z[k] - conj Z[M-k]: one product, and no halving.
template <class T>
[[gnu::always_inline]] inline Fronts<T> joinedByOneProduct(T up, T down, T entry) {
  const T turned = times(up - down, imaginaryParts(entry), realParts(entry));
  return {down + turned, up - turned};
}

// step(up, down, i) for the values k = first + i; `conjugateUp` tells the front that is conjugated.
template <bool conjugateUp, class F, class Step>
[[gnu::always_inline]] inline void meetInTheMiddle(const F* src, F* dst, long m, long first,
                                                   long count, Step step) {
  using T = V<F>;
  constexpr long numbers = lanesOf<F> / 2;
  for (long i = 0; i < count; i += numbers) {
    const long up = 2 * (first + i), down = 2 * (m - first - i - numbers + 1);
    T z = loadSwapped(src + up), y = blocksReversed(load<T>(src + down));
    if constexpr (conjugateUp)
      z = conjugated(z);
    else
      y = conjugated(y);
    const Fronts<T> r = step(z, y, i);
    storeSwapped(dst + up, conjugateUp ? conjugated(r.up) : r.up);
    store(dst + down, blocksReversed(conjugateUp ? r.down : conjugated(r.down)));
  }
}

// The whole pass with W formed from two levels.
template <bool conjugateUp, class F>
void meetByTwoLevels(const F* src, F* dst, long m, const F* table) {
  using T = V<F>;
  constexpr long fine = fineTwiddles<F>;
  const F* coarse = table + 2 * fine;
  for (long first = 1; first < m / 2; first += fine, coarse += 2) {
    const T re = broadcast<T>(coarse[0]), im = broadcast<T>(coarse[1]);
    meetInTheMiddle<conjugateUp>(src, dst, m, first, fine, [=](T up, T down, long i) {
      if constexpr (conjugateUp) up *= F(0.5), down *= F(0.5);  // the inverse has no halving
      return butterfly(up, down, times(load<T>(table + 2 * i), re, im));
    });
  }
}

}  // namespace detail

// dst[0] and dst[1] become the sum and the difference of two numbers: X[0] and X[M] from the parts
// of Z[0], and the other way round.
template <class F>
void storeEnds(F* dst, F a, F b) {
  store(dst, a + b);
  store(dst + 1, a - b);
}

// In place on the M complex values of `data`, but for the first one.
template <class F>
void ownFftRealPost(F* data, long m, const F* table) {
  using T = V<F>;
  if (2 * m >= 1L << fftTwoLevelOrder) return detail::meetByTwoLevels<true>(data, data, m, table);
  detail::meetInTheMiddle<true>(data, data, m, 1, m / 2, [=](T up, T down, long i) {
    return detail::joinedByOneProduct(up, down, load<T>(table + 2 * i));
  });
}

// `dst` may be `src`; the first of the M complex values stays as it is.
template <class F>
void ownFftRealPre(const F* src, F* dst, long m, const F* table) {
  using T = V<F>;
  if (2 * m >= 1L << fftTwoLevelOrder) return detail::meetByTwoLevels<false>(src, dst, m, table);
  detail::meetInTheMiddle<false>(src, dst, m, 1, m / 2, [=](T up, T down, long i) {
    return detail::butterfly(up, down, load<T>(table + 2 * i));
  });
}

}  // namespace mox::transforms
