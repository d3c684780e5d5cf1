// Measures of how far a result is from its reference.
#pragma once

#include <utility>

#include "support/members.h"
#include "support/test.h"

namespace test {

// Distance of `got` from the exact value in units in the last place of the format of F; 0 for
// equal infinities and for NaN against NaN, infinity for any other mismatch of those, and for a
// wrong sign. What rounds to infinity is that.
template <class F>
long double ulpError(F got, long double exact) {
  if (std::isnan(got) || std::isnan(exact))
    return std::isnan(got) && std::isnan(exact) ? 0 : INFINITY;
  if (std::signbit(got) != std::signbit(exact)) return INFINITY;
  const bool isOut = std::isinf(F(exact));
  if (isOut || std::isinf(got)) {
    // An overflow is as wrong as the largest finite value next to it, plus one unit.
    if (isOut) return std::isinf(got) ? 0 : INFINITY;
    return ulpError(std::copysign(std::numeric_limits<F>::max(), got), exact) + 1;
  }
  int exponent = std::numeric_limits<F>::min_exponent;
  if (exact != 0) std::frexp(exact, &exponent);
  exponent = std::max(exponent, std::numeric_limits<F>::min_exponent);
  return std::fabs((long double)got - exact) /
         std::ldexp(1.0L, exponent - std::numeric_limits<F>::digits);
}

// The errors of results against exactAt(i) are up to `bound`, and the greatest is no less than
// `share` of it.
template <class D, class... S>
void expectWithinUlps(const Results<D, S...>& got, double bound, double share, auto exactAt) {
  ASSERT_GE(got.status, moxOk) << got.name;
  long double worst = 0;
  std::size_t at = 0;
  for (std::size_t i = 0; i < got.values.size(); ++i)
    if (const long double error = ulpError(got.values[i], exactAt(i)); !(error <= worst))
      worst = error, at = i;
  EXPECT_LE(worst, bound) << got.name << " of " << sourcesAt(got, at) << "gives "
                          << text(got.values[at]);
  EXPECT_GE(worst, share * bound) << got.name << ": the header could promise more";
}

// Results on complex elements by parts.
template <mox::Complex E, class... S>
auto partsOf(const Results<E, S...>& z) {
  const Results<mox::Part<E>, S...> none = {z.name, z.status, {}, z.sources};
  std::pair parts = {none, none};
  for (const E& e : z.values)
    parts.first.values.push_back(e.re), parts.second.values.push_back(e.im);
  return parts;
}

// An integer result is the exact one, held in its range and rounded, or within `error` of that.
template <class P>
void expectRounded(long double got, long double exact, long double error) {
  using Limits = std::numeric_limits<P>;
  const long double held = std::clamp<long double>(exact, Limits::min(), Limits::max());
  if (error == 0)
    ASSERT_EQ(got, std::nearbyint(held));
  else
    ASSERT_LE(std::fabs(got - held), 0.5L + error) << got << " for " << exact;
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
