// Transforms of up to 16 numbers in registers, in natural order, generated from their length: those
// of odd primes by the symmetry of their roots, the others from those of two factors.
#pragma once

#include "frame/unrolled.h"
#include "transforms/fft_butterflies.h"
#include "transforms/turn.h"

namespace mox::transforms {
namespace detail {

constexpr int leastFactor(int n) {
  for (int p = 2; p * p <= n; ++p)
    if (n % p == 0) return p;
  return n;
}
constexpr bool isOddPrime(int n) { return n > 2 && leastFactor(n) == n; }
constexpr bool hasOwnButterfly(int n) { return n == 1 || n == 2 || n == 4 || n == 8; }

// A composite length as a product: of factors without a common divisor where there are such, else
// of equal ones.
struct TwoFactors {
  int p, q;
  bool coprime;
};
constexpr TwoFactors twoFactors(int n) {
  const int least = leastFactor(n);
  int power = least;
  while (n / power % least == 0) power *= least;
  if (power < n) return {power, n / power, true};
  int root = least;
  while (root * root < n) root *= least;
  return {root, root, false};
}

// The multiple of q below p q that leaves 1 when divided by p.
constexpr int idempotent(int p, int q) {
  int multiple = q;
  while (multiple % p != 1) multiple += q;
  return multiple;
}

// Where result l of the k-th transform of q stands in natural order. (In a conditional expression
// GCC with -fsanitize would search for seconds for the idempotents of equal factors, which have
// none.)
constexpr int placeOfResult(TwoFactors factors, int k, int l) {
  const auto [p, q, coprime] = factors;
  if (!coprime) return k + p * l;
  return (k * idempotent(p, q) + l * idempotent(q, p)) % (p * q);
}

// z exp(-2 pi i k / n), or with the conjugate factor.
template <Direction direction, int k, int n, class F, class Z>
[[gnu::always_inline]] inline Z turned(Z z) {
  if constexpr (k == 0) return z;
  constexpr Twiddle<F> w = twiddleOf<F>(k, n);
  constexpr F im = direction == Direction::forward ? w.im : -w.im;
  if constexpr (w.re == 0) return timesImaginary(swapParts(z), im);
  return z * w.re + timesImaginary(swapParts(z), im);
}

}  // namespace detail

// X[j] and X[n-j] are P -+ i Q, with P = a[0] + sum of (a[k] + a[n-k]) cos(2 pi j k / n) and
// Q = sum of (a[k] - a[n-k]) sin(2 pi j k / n) over 0 < k < n/2.
template <Direction direction, class F, class Z, int n>
requires(detail::isOddPrime(n))  //
    [[gnu::always_inline]] inline void butterfly(Z (&a)[n]) {
  constexpr int half = n / 2;
  Z sum[half], difference[half];
  unrolled<half>([&](auto i) {
    constexpr int k = i + 1;
    sum[i] = a[k] + a[n - k];
    difference[i] = swapParts(a[k] - a[n - k]);
  });
  const Z first = a[0];
  unrolled<half>([&](auto i) { a[0] = a[0] + sum[i]; });
  unrolled<half>([&](auto row) {
    constexpr int j = row + 1;
    Z even = first, odd;
    unrolled<half>([&](auto i) {
      constexpr Twiddle<F> w = twiddleOf<F>(j * (i + 1) % n, n);
      constexpr F im = direction == Direction::forward ? w.im : -w.im;
      even = even + sum[i] * w.re;
      const Z term = timesImaginary(difference[i], im);
      odd = i == 0 ? term : odd + term;
    });
    a[j] = even + odd;
    a[n - j] = even - odd;
  });
}

// Of p q numbers: q transforms of p, then p of q. With coprime factors the numbers can be taken in
// an order that needs no twiddles between the two (Good, 1958).
template <Direction direction, class F, class Z, int n>
requires(!detail::isOddPrime(n) && !detail::hasOwnButterfly(n))  //
    [[gnu::always_inline]] inline void butterfly(Z (&a)[n]) {
  constexpr auto factors = detail::twoFactors(n);
  constexpr int p = factors.p, q = factors.q;
  Z columns[p][q];
  unrolled<q>([&](auto c) {
    Z row[p];
    unrolled<p>([&](auto r) {
      constexpr int taken = factors.coprime ? (q * r + p * c) % n : q * r + c;
      row[r] = a[taken];
    });
    butterfly<direction, F>(row);
    unrolled<p>([&](auto k) {
      columns[k][c] = detail::turned < direction, factors.coprime ? 0 : k * c, n, F > (row[k]);
    });
  });
  unrolled<p>([&](auto k) {
    butterfly<direction, F>(columns[k]);
    unrolled<q>([&](auto l) {
      constexpr int given = detail::placeOfResult(factors, k, l);
      a[given] = columns[k][l];
    });
  });
}

}  // namespace mox::transforms
