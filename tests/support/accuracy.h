// Measures of how far a result is from its reference.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace test {

// Distance of `got` from the exact value in units in the last place of the format of F; 0 for
// equal infinities and for NaN against NaN, infinity for any other mismatch of those.
template <class F>
long double ulpError(F got, long double exact) {
  if (std::isnan(got) || std::isnan(exact))
    return std::isnan(got) && std::isnan(exact) ? 0 : INFINITY;
  if (std::isinf(got)) {
    if (std::isinf(exact)) return (got > 0) == (exact > 0) ? 0 : INFINITY;
    // An overflow is as wrong as the largest finite value next to it, plus one unit.
    const F largest = std::copysign(std::numeric_limits<F>::max(), got);
    return ulpError(largest, exact) + 1;
  }
  if (std::isinf(exact)) return INFINITY;
  int exponent = std::numeric_limits<F>::min_exponent;
  if (exact != 0) std::frexp(exact, &exponent);
  exponent = std::max(exponent, std::numeric_limits<F>::min_exponent);
  return std::fabs((long double)got - exact) /
         std::ldexp(1.0L, exponent - std::numeric_limits<F>::digits);
}

// Accumulates the relative L2 error of a vector against its reference.
class RelativeError {
 public:
  void add(long double got, long double exact) {
    difference_ += (got - exact) * (got - exact);
    total_ += exact * exact;
  }
  long double value() const {
    return total_ > 0 ? std::sqrt(difference_ / total_) : std::sqrt(difference_);
  }

 private:
  long double difference_ = 0, total_ = 0;
};

}  // namespace test
