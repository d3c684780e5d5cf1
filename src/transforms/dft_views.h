// What the passes of a DFT read and write: the caller's arrays under a factor, and work memory.
#pragma once

#include <algorithm>

#include "transforms/complex_vector.h"
#include "transforms/fft_views.h"

namespace mox::transforms {

// body(i) for vectors of numbers from i on that cover `count` numbers; the last one reaches back
// over the one before where count isn't a multiple of their number.
template <class F, class Body>
[[gnu::always_inline]] inline void forVectors(long count, Body body) {
  constexpr long numbers = lanesOf<F> / 2;
  const long last = std::max(count - numbers, 0L);
  for (long i = 0; i < count; i += numbers) body(std::min(i, last));
}

// Numbers in an order of their own: number i stands at at[i].
template <class E>
struct Placed {
  using F = Part<std::remove_const_t<E>>;
  E* p;
  const int* at;

  Placed from(long i) const { return {p, at + i}; }
  [[gnu::always_inline]] V<F> interleaved(long i) const {
    if constexpr (sizeof(F) == 4)
      return V<F>(V<Mox64f>{load<Mox64f>(p + at[i]), load<Mox64f>(p + at[i + 1]),
                            load<Mox64f>(p + at[i + 2]), load<Mox64f>(p + at[i + 3])});
    else
      return join<V<F>>(load<V<F, 2>>(p + at[i]), load<V<F, 2>>(p + at[i + 1]));
  }
  [[gnu::always_inline]] void putInterleaved(long i, V<F> z) const {
    for (int k = 0; k < lanesOf<F> / 2; ++k)
      if constexpr (sizeof(F) == 4)
        store(p + at[i + k], V<Mox64f>(z)[k]);
      else
        store(p + at[i + k], V<F, 2>{z[2 * k], z[2 * k + 1]});
  }
};

// A view whose numbers are multiplied by real factors on their way to registers and from them, real
// and imaginary parts each by one.
template <class View>
struct Scaled {
  using F = typename View::F;
  View view;
  V<F> factors;

  Scaled from(long i) const { return {view.from(i), factors}; }
  [[gnu::always_inline]] V<F> interleaved(long i) const { return view.interleaved(i) * factors; }
  [[gnu::always_inline]] void putInterleaved(long i, V<F> z) const {
    view.putInterleaved(i, z * factors);
  }
  Pair<F> number(long i) const {
    const Pair<F> z = view.number(i);
    return {z.re * factors[0], z.im * factors[1]};
  }
  void putNumber(long i, Pair<F> z) const {
    view.putNumber(i, {z.re * factors[0], z.im * factors[1]});
  }
};

// An inverse transform is a forward one between conjugates, or, where parts have arrays of their
// own, between numbers with their parts swapped.
template <class E>
Scaled<Array<E>> directed(Array<E> view, Direction d, Part<std::remove_const_t<E>> factor) {
  const auto im = d == Direction::forward ? factor : -factor;
  return {view, alternating<V<Part<std::remove_const_t<E>>>>(factor, im)};
}
template <class E>
Scaled<Placed<E>> directed(Placed<E> view, Direction d, Part<std::remove_const_t<E>> factor) {
  return {view, directed(Array<E>{view.p}, d, factor).factors};
}
template <class E>
Scaled<Split<E>> directed(Split<E> view, Direction d, std::remove_const_t<E> factor) {
  const auto factors = broadcast<V<std::remove_const_t<E>>>(factor);
  if (d == Direction::forward) return {view, factors};
  return {{view.im, view.re}, factors};
}

}  // namespace mox::transforms
