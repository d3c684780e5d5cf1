// The direct method, for primes that no other method serves: with a[k] and b[k] the sum and the
// difference of x[k] and x[n-k],
//
//   X[j], X[n-j] = P -+ i Q,  P = x[0] + sum of a[k] cos(2 pi j k / n),
//                             Q = sum of b[k] sin(2 pi j k / n),  0 < k < n/2.
//
// Indices go by powers of a generator of the residues of n: then those of the cosines and sines of
// a sum are neighbours (Rader, 1968).
#pragma once

#include "transforms/dft_spec.h"
#include "transforms/dft_views.h"

namespace mox::transforms {

// give(j, P, Q) for all j, of sums and differences in the order of the table, each of `parts`
// parts.
template <int parts, class F, class Give>
[[gnu::always_inline]] inline void primeSums(const PrimeTable<F>& table, const F* first, const F* a,
                                             const F* b, Give give) {
  constexpr int lanes = lanesOf<F>;
  for (int i = 0; i < table.half; i += lanes) {
    V<F> even[parts], odd[parts];
    for (int part = 0; part < parts; ++part)
      even[part] = broadcast<V<F>>(first[part]), odd[part] = V<F>{};
    for (int k = 0; k < table.half; ++k) {
      const V<F> c = load<V<F>>(table.cosines + i + k), s = load<V<F>>(table.sines + i + k);
      for (int part = 0; part < parts; ++part) {
        even[part] += broadcast<V<F>>(a[parts * k + part]) * c;
        odd[part] += broadcast<V<F>>(b[parts * k + part]) * s;
      }
    }
    for (int lane = 0; lane < std::min(lanes, table.half - i); ++lane)
      give(table.power[i + lane], even, odd, lane);
  }
}

// `work` has room for n - 1 numbers.
template <class F, class View>
void ownDftDirect(const PrimeTable<F>& table, const Scaled<typename View::Const>& src,
                  const Scaled<View>& dst, F* work) {
  const int n = table.prime();
  F *const a = work, *const b = work + 2 * table.half;
  const Pair<F> first = src.number(0);
  Pair<F> sum = first;
  for (int i = 0; i < table.half; ++i) {
    const int k = table.power[i];
    const Pair<F> x = src.number(k), y = src.number(n - k), s = x + y, d = x - y;
    sum = sum + s;
    a[2 * i] = s.re, a[2 * i + 1] = s.im;
    b[2 * i] = d.re, b[2 * i + 1] = d.im;
  }
  dst.putNumber(0, sum);
  const F start[2] = {first.re, first.im};
  primeSums<2>(table, start, a, b, [=](int j, auto& even, auto& odd, int lane) {
    const Pair<F> p = {even[0][lane], even[1][lane]}, q = {odd[1][lane], -odd[0][lane]};
    dst.putNumber(j, p + q);
    dst.putNumber(n - j, p - q);
  });
}

// Samples to a Perm spectrum, and back; `work` has room for n - 1 reals.
template <class F>
void ownDftDirectReal(const PrimeTable<F>& table, const F* src, F* dst, F factor, F* work) {
  const int n = table.prime();
  F *const a = work, *const b = work + table.half;
  const F first = load<F>(src);
  F sum = first;
  for (int i = 0; i < table.half; ++i) {
    const int k = table.power[i];
    const F x = load<F>(src + k), y = load<F>(src + n - k);
    a[i] = x + y;
    b[i] = x - y;
    sum += a[i];
  }
  store(dst, sum * factor);
  primeSums<1>(table, &first, a, b, [=](int j, auto& even, auto& odd, int lane) {
    F* const pair = dst + 2 * std::min(j, n - j) - 1;
    store(pair, even[0][lane] * factor);
    store(pair + 1, (j <= n / 2 ? -odd[0][lane] : odd[0][lane]) * factor);
  });
}
template <class F>
void ownDftDirectRealInverse(const PrimeTable<F>& table, const F* src, F* dst, F factor, F* work) {
  const int n = table.prime();
  F *const a = work, *const b = work + table.half;
  const F first = load<F>(src);
  F sum = first;
  for (int i = 0; i < table.half; ++i) {
    const int k = table.power[i];
    const F* const pair = src + 2 * std::min(k, n - k) - 1;
    const F im = load<F>(pair + 1);
    a[i] = 2 * load<F>(pair);
    b[i] = -2 * (k <= n / 2 ? im : -im);
    sum += a[i];
  }
  store(dst, sum * factor);
  primeSums<1>(table, &first, a, b, [=](int j, auto& even, auto& odd, int lane) {
    store(dst + j, (even[0][lane] + odd[0][lane]) * factor);
    store(dst + n - j, (even[0][lane] - odd[0][lane]) * factor);
  });
}

}  // namespace mox::transforms
