// Packed spectra written out: all len complex values, the second half from the conjugates.
#pragma once

#include <limits>
#include <type_traits>

#include "frame/elements.h"
#include "transforms/complex_vector.h"
#include "transforms/packed_layouts.h"

namespace mox::transforms {
namespace detail {

// -a; the one integer that has no negative saturates.
template <class P, class T>
[[gnu::always_inline]] inline T negated(T a) {
  if constexpr (std::is_floating_point_v<P>)
    return -a;
  else if constexpr (std::is_same_v<T, P>)
    return a == std::numeric_limits<P>::min() ? std::numeric_limits<P>::max() : P(-a);
  else
    return ~a - T(a != std::numeric_limits<P>::min());  // a true lane is -1
}

// The conjugates in reverse order.
template <class P, class T>
[[gnu::always_inline]] inline T mirrored(T v) {
  constexpr int lanes = laneCount<T>;
  const T reversed = numbersReversed(v);
  return shuffle<[](int i) { return i % 2 * lanes + i; }>(reversed, negated<P>(reversed));
}

template <class P>
void storePair(P* p, Pair<P> z) {
  store(p, z.re);
  store(p + 1, z.im);
}

// Pairs k = 1 to `count` to their places at 2k, and their conjugates to those at 2 * (len - k). It
// goes from the top down, since in place the pairs can lie one part below where they must go.
template <class P>
void expandPairs(const P* pair, P* dst, long count, long len) {
  using Vector = V<P, std::is_floating_point_v<P> ? lanesOf<P> : lanesOf<P> / 2>;
  constexpr long block = sizeof(Vector) / sizeof(P) / 2;
  long k = count;
  for (; k >= block; k -= block) {
    const Vector v = load<Vector>(pair + 2 * (k - block));
    store(dst + 2 * (len - k), mirrored<P>(v));
    store(dst + 2 * (k - block + 1), v);
  }
  for (; k > 0; --k) {
    const P re = load<P>(pair + 2 * (k - 1)), im = load<P>(pair + 2 * (k - 1) + 1);
    storePair(dst + 2 * (len - k), Pair<P>{re, negated<P>(im)});
    storePair(dst + 2 * k, Pair<P>{re, im});
  }
}

}  // namespace detail

// In place `src` holds the packed form in the first reals of `dst`.
template <PackedLayout Layout, Complex C>
void expandSpectrum(const Part<C>* src, C* dst, long len) {
  using P = Part<C>;
  // In place the pairs move over the ends, so these are read first.
  const auto end = [=](long place) {
    return Pair<P>{load<P>(src + place), Layout::imaginaryEnds ? load<P>(src + place + 1) : P(0)};
  };
  const Pair<P> first = end(0);
  const Pair<P> middle = hasMiddle(len) ? end(Layout::middle(len)) : Pair<P>{};
  detail::expandPairs(src + Layout::firstPair(len), parts(dst), interiorPairs(len), len);
  detail::storePair(parts(dst), first);
  if (hasMiddle(len)) detail::storePair(parts(dst) + len, middle);
}

}  // namespace mox::transforms
