// Sines and cosines of fractions of a turn, at compile time.
#pragma once

namespace mox {

namespace detail {
// The Taylor series of the cosine, or for odd exponents of the sine, up to an eighth of a turn.
constexpr long double taylorSeries(bool odd, long double x) {
  constexpr int terms = 13;
  long double sum = 1;
  for (int k = 2 * terms + odd; k > 1; k -= 2) sum = 1 - x * x / (k * (k - 1)) * sum;
  return odd ? x * sum : sum;
}
}  // namespace detail

// sin(2 pi i / n), i >= 0; n is a multiple of 8.
constexpr long double sineOfTurn(int i, int n) {
  constexpr long double pi = 3.14159265358979323846264338327950288L;
  i %= n;
  if (i >= n / 2) return -sineOfTurn(i - n / 2, n);
  if (i > n / 4) i = n / 2 - i;
  return i <= n / 8 ? detail::taylorSeries(true, 2 * pi * i / n)
                    : detail::taylorSeries(false, 2 * pi * (n / 4 - i) / n);
}

constexpr long double cosineOfTurn(int i, int n) { return sineOfTurn(i + n / 4, n); }

}  // namespace mox
