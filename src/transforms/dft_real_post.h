// The passes between the complex spectrum Z of pairs of samples and the spectrum of the real
// samples, as fft_real_post.h tells, for any number of pairs and tables in natural order.
#pragma once

#include "transforms/fft_real_post.h"

namespace mox::transforms {
namespace detail {

// step(up, down, k) makes the values from k and from M - k on, of which those on one front are
// conjugates. The last vectors end at M/2, reach back over those before, and so are read first.
template <bool conjugateUp, class F, class Step>
[[gnu::always_inline]] inline void meetAnywhere(const F* src, F* dst, long m, Step step) {
  using T = V<F>;
  constexpr long numbers = lanesOf<F> / 2;
  const auto downPlace = [=](long k) { return 2 * (m - k - numbers + 1); };
  const auto made = [=](long k) __attribute__((always_inline)) {
    T up = load<T>(src + 2 * k), down = numbersReversed(load<T>(src + downPlace(k)));
    if constexpr (conjugateUp)
      up = conjugated(up);
    else
      down = conjugated(down);
    return step(up, down, k);
  };
  const auto put = [=](long k, Fronts<T> r) __attribute__((always_inline)) {
    store(dst + 2 * k, conjugateUp ? conjugated(r.up) : r.up);
    store(dst + downPlace(k), numbersReversed(conjugateUp ? r.down : conjugated(r.down)));
  };
  const long last = m / 2 - numbers + 1;
  const Fronts<T> lastMade = made(last);
  for (long k = 1; k < last; k += numbers) put(k, made(k));
  put(last, lastMade);
}

}  // namespace detail

// In place on the M >= 9 complex values of `data`, but for the first one.
template <class F>
void ownDftRealPost(F* data, long m, const F* table) {
  using T = V<F>;
  detail::meetAnywhere<true>(data, data, m, [=](T up, T down, long k) {
    return detail::joinedByOneProduct(up, down, load<T>(table + 2 * (k - 1)));
  });
}

// `dst` may be `src`; the first of the M complex values stays as it is.
template <class F>
void ownDftRealPre(const F* src, F* dst, long m, const F* table) {
  using T = V<F>;
  detail::meetAnywhere<false>(src, dst, m, [=](T up, T down, long k) {
    return detail::butterfly(up, down, load<T>(table + 2 * (k - 1)));
  });
}

}  // namespace mox::transforms
