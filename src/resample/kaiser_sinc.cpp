#include "resample/kaiser_sinc.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <numbers>

namespace mox::resample {
namespace {

// exp(-x) I0(x), I0 the modified Bessel function of order zero: its power series and, from 20 on,
// the asymptotic one (Abramowitz and Stegun, 9.6.12 and 9.7.1). Both are exact to rounding.
Mox64f scaledI0(Mox64f x) {
  constexpr Mox64f enough = 0x1p-54;
  Mox64f term = 1, sum = 1;
  if (x < 20) {
    for (int k = 1; term > enough * sum; ++k) sum += term *= x * x / 4 / (k * k);
    return sum * std::exp(-x);
  }
  for (int k = 1; term > enough; ++k) sum += term *= (2 * k - 1) * (2 * k - 1) / (8 * k * x);
  return sum / std::sqrt(2 * std::numbers::pi * x);
}

}  // namespace

KaiserSinc::KaiserSinc(long len, long step, Mox32f rollf, Mox32f alpha)
    : len_(len), step_(step), rollf_(rollf), alpha_(alpha), peak_(scaledI0(alpha)) {
  Mox64f wing = 0;
  for (long i = step; i < len; i += step) wing += at(i);
  gain_ = 1 / (rollf_ + 2 * wing);
}

Mox64f KaiserSinc::at(long i) const {
  if (i == 0) return rollf_;
  const Mox64f x = std::numbers::pi * Mox64f(i) / Mox64f(step_), u = Mox64f(i) / Mox64f(len_ - 1);
  const Mox64f bent = alpha_ * std::sqrt(std::max(1 - u * u, 0.0));
  const Mox64f window = scaledI0(bent) / peak_ * std::exp(bent - alpha_);
  return std::sin(rollf_ * x) / x * window;
}

bool areFilterParameters(Mox32f rollf, Mox32f alpha) {
  return rollf > 0 && rollf <= 1 && alpha >= 1 && alpha <= FLT_MAX;
}

}  // namespace mox::resample
