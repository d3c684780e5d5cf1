// Vectors that are hard on sorts.
#pragma once

#include <map>

#include "support/test.h"

namespace test {

template <class T>
using Patterns = std::map<std::string, std::vector<T>>;

// Random over the whole range, and orders that mislead a choice of pivots.
template <class T>
Patterns<T> hardPatterns(long len) {
  Random random{std::uint64_t(len)};
  const auto make = [&](auto valueAt) {
    std::vector<T> v;
    for (long i = 0; i < len; ++i) v.push_back(T(valueAt(i)));
    return v;
  };
  using Limit = std::numeric_limits<T>;
  const T extremes[] = {Limit::lowest(), Limit::max(), T(0), T(1), T(-1)};
  auto halfSorted = random.vector<T>(len);
  std::sort(halfSorted.begin(), halfSorted.begin() + len / 2);
  const double n = double(len);
  Patterns<T> all = {
      {"random", random.vector<T>(len)},
      {"half sorted", halfSorted},
      {"few values", make([&](long) { return random.below(4) + 1; })},
      {"two values", make([](long i) { return i % 2; })},
      {"all equal", make([](long) { return 7; })},
      {"rising", make([=](long i) { return double(i) * 120 / n; })},
      {"falling", make([=](long i) { return double(len - i) * 120 / n; })},
      {"organ pipe", make([=](long i) { return double(std::min(i, len - i)) * 240 / n; })},
      {"saw", make([](long i) { return i % 97; })},
      {"one out of place", make([=](long i) { return i == len - 1 ? 0 : i % 120 + 1; })},
      {"extremes", make([&](long) { return extremes[random.below(5)]; })},
  };
  if constexpr (Limit::has_infinity) {
    const T special[] = {-Limit::infinity(), Limit::infinity(), Limit::denorm_min(), T(0), T(1)};
    all["infinities"] = make([&](long) { return special[random.below(5)]; });
  }
  return all;
}

// Lengths about the limits of the steps, and a few long ones.
inline std::vector<long> sortLengths() {
  std::vector<long> lengths = {63,  64,  65,  66,  67,  73,  74,  75,   126,  127,
                               128, 129, 130, 138, 139, 200, 257, 1000, 4099, 70001};
  for (long len = 1; len <= 40; ++len) lengths.push_back(len);
  return lengths;
}

}  // namespace test
