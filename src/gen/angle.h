// Evenly spaced angles without the rounding of large ones.
#pragma once

#include <moxsp/types.h>

#include <cmath>

namespace mox::gen {

constexpr Mox64f twoPi = 6.283185307179586;

// phase + n step less whole turns, to the last bits of a double for any n.
inline Mox64f angleAt(long n, Mox64f step, Mox64f phase) {
  constexpr long double turn = 6.283185307179586476925286766559L;
  const long double angle = static_cast<long double>(n) * step + phase;
  return Mox64f(angle - turn * std::floor(angle / turn));
}

}  // namespace mox::gen
