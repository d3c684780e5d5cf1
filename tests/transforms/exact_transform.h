// The sum that defines the transforms, in long double, and the factors of their flags.
#pragma once

#include <complex>
#include <map>
#include <numbers>
#include <vector>

#include "support/random.h"

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

struct Flag {
  int value;
  double forward, inverse;  // the factors are n to these powers
};
constexpr Flag flags[] = {{8, 0, 0}, {1, -1, 0}, {2, 0, -1}, {4, -0.5, -0.5}};

// Noise of a length, of 16-bit integers, and its spectrum.
struct Noise {
  std::vector<Complex> signal, spectrum;

  static const Noise& of(long n) {
    static std::map<long, Noise> made;
    Noise& noise = made[n];
    if (!noise.signal.empty()) return noise;
    Random random;
    for (long i = 0; i < n; ++i)
      noise.signal.emplace_back(random.value<Mox16s>(), random.value<Mox16s>());
    noise.spectrum = exactTransform(noise.signal);
    return noise;
  }
  // Bin k for the samples, or for their real parts alone.
  Complex bin(long k, bool real) const {
    if (!real) return spectrum[k];
    return (spectrum[k] + std::conj(spectrum[k ? spectrum.size() - k : 0])) / 2.0L;
  }
};

}  // namespace test
