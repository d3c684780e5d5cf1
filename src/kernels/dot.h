// A single output: the dot product of a window of samples with taps in either order. The lanes of
// registers are added at the end, so that the order of additions differs from that of a block.
#pragma once

#include "frame/elements.h"
#include "frame/widen.h"
#include "kernels/tap_order.h"

namespace mox::kernels {

namespace detail {

// The taps for the numbers from k on in a window of n numbers, where elements are `width` numbers.
template <class T, TapOrder order, int width, class F>
[[gnu::always_inline]] inline T tapLanes(const F* taps, long n, long k) {
  constexpr int lanes = sizeof(T) / sizeof(F);
  if constexpr (order == TapOrder::reversed)
    return load<T>(taps + k);
  else
    return shuffle<backward<lanes, width>>(load<T>(taps + n - k - lanes));
}

template <TapOrder order, class A>
A tapAt(const A* taps, long n, long k) {
  return load<A>(taps + (order == TapOrder::reversed ? k : n - 1 - k));
}

}  // namespace detail

// From lane 0 on.
template <class T>
auto sumOfLanes(T v) {
  auto sum = v[0];
  for (unsigned i = 1; i < laneCount<T>; ++i) sum += v[i];
  return sum;
}

// Products in the type A of the taps, summed in the type Wide.
template <class Wide, TapOrder order, class A, class D>
Wide dotProduct(const D* window, const A* taps, long n) {
  constexpr int lanes = lanesOf<Wide>;
  using S = V<Wide>;
  using T = V<A, lanes>;
  const auto product = [&](long k) {
    return __builtin_convertvector(
        loadWidened<T>(window + k) * detail::tapLanes<T, order, 1>(taps, n, k), S);
  };
  S sums[4] = {};
  long k = 0;
  for (; k <= n - 4 * lanes; k += 4 * lanes) {
    sums[0] += product(k);
    sums[1] += product(k + lanes);
    sums[2] += product(k + 2 * lanes);
    sums[3] += product(k + 3 * lanes);
  }
  for (; k <= n - lanes; k += lanes) sums[0] += product(k);
  Wide total = sumOfLanes((sums[0] + sums[1]) + (sums[2] + sums[3]));
  for (; k < n; ++k) total += Wide(A(load<D>(window + k)) * detail::tapAt<order>(taps, n, k));
  return total;
}

template <class Wide, TapOrder order, Complex A, Complex D>
A dotProduct(const D* window, const A* taps, long n) {
  using F = Part<A>;
  using T = V<F>;
  constexpr long lanes = lanesOf<F>, numbers = lanes / 2;
  // Straight products are re * re, im * im in turn; crossed ones re * im, im * re.
  T straight[2] = {}, crossed[2] = {};
  const auto add = [&](int i, long k) {
    const T tap = detail::tapLanes<T, order, 2>(parts(taps), 2 * n, 2 * k);
    const T x = loadWidened<T>(parts(window) + 2 * k);
    straight[i] += tap * x;
    crossed[i] += tap * shuffle<[](int j) { return j ^ 1; }>(x);
  };
  long k = 0;
  for (; k <= n - 2 * numbers; k += 2 * numbers) {
    add(0, k);
    add(1, k + numbers);
  }
  for (; k <= n - numbers; k += numbers) add(0, k);
  const T squares = straight[0] + straight[1], zero{};
  const T signedSquares = shuffle<[](int j) { return j % 2 * lanes + j; }>(squares, zero - squares);
  A total = {sumOfLanes(signedSquares), sumOfLanes(crossed[0] + crossed[1])};
  for (; k < n; ++k) {
    const D x = load<D>(window + k);
    const A tap = detail::tapAt<order>(taps, n, k);
    total.re += tap.re * F(x.re) - tap.im * F(x.im);
    total.im += tap.re * F(x.im) + tap.im * F(x.re);
  }
  return total;
}

}  // namespace mox::kernels
