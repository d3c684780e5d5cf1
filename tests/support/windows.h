// Windows by their formulas: w(n), of `last` = len - 1.
#pragma once

#include <cmath>
#include <numbers>

namespace test {

constexpr long double pi = std::numbers::pi_v<long double>;

using Weight = long double (*)(long double n, long double last, long double alpha);
inline long double rectangular(long double, long double, long double) { return 1; }
inline long double bartlett(long double n, long double last, long double) {
  return 1 - std::abs(2 * n / last - 1);
}
inline long double hann(long double n, long double last, long double) {
  return 0.5L - 0.5L * std::cos(2 * pi * n / last);
}
inline long double hamming(long double n, long double last, long double) {
  return 0.54L - 0.46L * std::cos(2 * pi * n / last);
}
inline long double blackman(long double n, long double last, long double alpha) {
  const long double t = 2 * pi * n / last;
  return (alpha + 1) / 2 - std::cos(t) / 2 - alpha / 2 * std::cos(2 * t);
}
inline long double blackmanOpt(long double n, long double last, long double) {
  return blackman(n, last, -std::pow(0.5L / std::cos(pi / last), 2));
}
inline long double kaiser(long double n, long double last, long double alpha) {
  return std::cyl_bessel_i(0.0L, std::fabs(alpha) * std::sqrt(n * (last - n))) /
         std::cyl_bessel_i(0.0L, std::fabs(alpha) * last / 2);
}

}  // namespace test
