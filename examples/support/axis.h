// Where an axis has its numbers.
#pragma once

#include <cmath>
#include <vector>

// A step of 1, 2 or 5 times a power of ten that gives about `parts` parts.
inline double niceStep(double range, int parts) {
  const double raw = range / parts, power = std::pow(10, std::floor(std::log10(raw)));
  for (double factor : {1.0, 2.0, 5.0})
    if (raw <= factor * power) return factor * power;
  return 10 * power;
}

// The multiples of such a step.
inline std::vector<double> ticks(double from, double to) {
  const double step = niceStep(to - from, 6);
  std::vector<double> all;
  for (double i = std::ceil(from / step); i * step <= to; ++i) all.push_back(i * step);
  return all;
}
