// The least-mean-squares rule on a window of floats.
#pragma once

#include "frame/vec/vec.h"

namespace mox::fir {

namespace detail {

inline Mox32f sumOfLanes(V<Mox32f> v) {
  using Half = V<Mox32f, 4>;
  const Half four =
      shuffle<[](int i) { return i; }, 4>(v, v) + shuffle<[](int i) { return i + 4; }, 4>(v, v);
  const Half two = four + shuffle<[](int i) { return i ^ 2; }>(four);
  return two[0] + two[1];
}

// One walk along the taps corrects them by gain * x[k], then takes the sum of their products with
// the window that is one sample later.
template <bool corrects, bool sums>
Mox32f walkTaps(Mox32f* revTaps, long tapsLen, const Mox32f* x, Mox32f gain) {
  const auto at = [&]<class T>(T, long k) __attribute__((always_inline)) {
    T taps = load<T>(revTaps + k);
    if constexpr (corrects) {
      taps += gain * load<T>(x + k);
      store(revTaps + k, taps);
    }
    return sums ? taps * load<T>(x + k + 1) : T{};
  };
  constexpr long lanes = lanesOf<Mox32f>;
  V<Mox32f> sum[2] = {};
  long k = 0;
  for (; k <= tapsLen - 2 * lanes; k += 2 * lanes) {
    sum[0] += at(V<Mox32f>{}, k);
    sum[1] += at(V<Mox32f>{}, k + lanes);
  }
  for (; k <= tapsLen - lanes; k += lanes) sum[0] += at(V<Mox32f>{}, k);
  Mox32f total = sumOfLanes(sum[0] + sum[1]);
  for (; k < tapsLen; ++k) total += at(Mox32f{}, k);
  return total;
}

}  // namespace detail

// For each of `count` windows, each one sample behind the one before: the output y, then
// revTaps[k] += gain * window[k] with gain = gainOf(i, y). x points one sample before the first
// window.
template <class GainOf>
void adapt(Mox32f* revTaps, long tapsLen, const Mox32f* x, long count, GainOf gainOf) {
  Mox32f y = detail::walkTaps<false, true>(revTaps, tapsLen, x, 0);
  for (long i = 0;;) {
    const Mox32f gain = gainOf(i, y);
    ++x;
    if (++i == count) {
      detail::walkTaps<true, false>(revTaps, tapsLen, x, gain);
      return;
    }
    y = detail::walkTaps<true, true>(revTaps, tapsLen, x, gain);
  }
}

}  // namespace mox::fir
