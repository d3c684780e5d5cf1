// Pairs of numbers one behind the other, and the same numbers on two fronts that come from both
// ends of an array.
#pragma once

#include "frame/complex_views.h"

namespace mox::transforms {
namespace detail {

template <class T>
T reversed(T v) {
  if constexpr (std::is_arithmetic_v<T>)
    return v;
  else
    return shuffle<[](int i) { return laneCount<T> - 1 - i; }>(v);
}

template <class F, class Step>
[[gnu::always_inline]] inline void forLanes(long count, Step step) {
  long i = 0;
  for (; i <= count - lanesOf<F>; i += lanesOf<F>) step(V<F>(), i, lanesOf<F>);
  for (; i < count; ++i) step(F(), i, 1L);
}

}  // namespace detail

// Pairs that lie one behind the other become the numbers of two fronts, one of which goes up from
// `up`, and the other down from `down`: op() of the pair i gives up[i] and down[-i].
template <class F, class Op>
void pairsToFronts(const F* pairs, F* up, F* down, long count, Op op) {
  detail::forLanes<F>(
      count, [=]<class T>(T, long i, long lanes) __attribute__((always_inline)) {
        Pair<T> z;
        if constexpr (std::is_same_v<T, F>)
          z = {load<F>(pairs + 2 * i), load<F>(pairs + 2 * i + 1)};
        else
          z = loadDeinterleaved<T>(pairs + 2 * i);
        z = op(z, i);
        store(up + i, z.re);
        store(down - i - (lanes - 1), detail::reversed(z.im));
      });
}
// And back.
template <class F, class Op>
void frontsToPairs(const F* up, const F* down, F* pairs, long count, Op op) {
  detail::forLanes<F>(
      count, [=]<class T>(T, long i, long lanes) __attribute__((always_inline)) {
        const Pair<T> z =
            op(Pair<T>{load<T>(up + i), detail::reversed(load<T>(down - i - (lanes - 1)))}, i);
        if constexpr (std::is_same_v<T, F>) {
          store(pairs + 2 * i, z.re);
          store(pairs + 2 * i + 1, z.im);
        } else {
          storeInterleaved(pairs + 2 * i, z, mox::detail::plainly);
        }
      });
}

}  // namespace mox::transforms
