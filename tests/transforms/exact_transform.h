// The sum that defines the transforms, in long double.
#pragma once

#include <complex>
#include <numbers>
#include <vector>

namespace test {

using Complex = std::complex<long double>;

// exp(-2 pi i k / n), its angle reduced in integers, and exact at whole quarters.
inline Complex turn(long k, long n) {
  constexpr Complex quarters[] = {1, {0, -1}, -1, {0, 1}};
  k %= n;
  if (4 * k % n == 0) return quarters[4 * k / n];
  return std::polar(1.0L, -2 * std::numbers::pi_v<long double> * (long double)(k) / n);
}

// The sums over i of x[i] turn(i k, n), or of x[i] times the conjugate: by halves while the length
// is even.
inline std::vector<Complex> exactTransform(const std::vector<Complex>& x, bool inverse = false) {
  const long n = long(x.size());
  std::vector<Complex> turns(n);
  for (long k = 0; k < n; ++k) turns[k] = inverse ? std::conj(turn(k, n)) : turn(k, n);
  // Of the samples from `first` on, every step-th.
  const auto ofPart = [&](auto self, long first, long step) -> std::vector<Complex> {
    const long m = n / step;
    std::vector<Complex> sums(m);
    if (m % 2) {
      for (long k = 0; k < m; ++k)
        for (long i = 0; i < m; ++i) sums[k] += x[first + i * step] * turns[i * k % m * step];
      return sums;
    }
    const auto even = self(self, first, 2 * step), odd = self(self, first + step, 2 * step);
    for (long k = 0; k < m / 2; ++k) {
      const Complex turned = odd[k] * turns[k * step];
      sums[k] = even[k] + turned, sums[k + m / 2] = even[k] - turned;
    }
    return sums;
  };
  return ofPart(ofPart, 0, 1);
}

}  // namespace test
