// Angles as integers: radians times 2^-factor, rounded to nearest.
#pragma once

#include "convert/exact_angle.h"
#include "convert/phase.h"
#include "convert/round_once.h"

namespace mox::convert {

template <class D>
struct ScaledPhase {
  static constexpr int lanes = integerLanes<D>;

  explicit ScaledPhase(int scaleFactor) : factor(scaleFactor), scale(scaleFactor) {}

  auto operator()(auto src, long i) const {
    return integersFrom<D>([&](long j) {
      const auto z = src.template lanes<V<Mox64f>>(i + j);
      return roundedOnce(scale(phaseLanes(z).value), [&](int lane, Mox64s n) {
        return isPhaseAboveTie(Mox32s(z.re[lane]), Mox32s(z.im[lane]), factor, n);
      });
    });
  }

  int factor;
  ByPowerOfTwo scale;
};

}  // namespace mox::convert
