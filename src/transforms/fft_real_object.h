// The real transform as a kind of object: the tables of the complex transform of half the length,
// and the two that join its spectrum and the real one.
#pragma once

#include "transforms/fft_object.h"
#include "transforms/fft_real_tables.h"

namespace mox {

template <class F>
struct RealKind {
  using Float = F;
  static constexpr FftKind id = fftRealId<F>;
  static constexpr int maxOrder = FftLimits<F>::maxComplexOrder + 1;
  static constexpr int maxSmallOrder = fftMaxSmallRealOrder;

  static bool hasComplexTables(int order) { return order - 1 > fftMaxSmallOrder; }

  static FftSizes sizes(int order) {
    FftSizes sizes = hasComplexTables(order) ? fftComplexSizes<F>(order - 1) : FftSizes{0, 0};
    sizes.tables += 2 * fftRoundUp(2 * long(sizeof(F)) * realTwiddleCount<F>(order));
    return sizes;
  }

  static void buildTables(FftSpec<F>& spec, int order, QuarterSine<F> sine, Mox8u* next) {
    if (hasComplexTables(order)) next = fftBuildComplexTables(spec, order - 1, sine, next);
    spec.realFwdTwiddle = reinterpret_cast<F*>(next);
    next = ownFftRealTwiddleFwd(order, sine, spec.realFwdTwiddle);
    spec.realInvTwiddle = reinterpret_cast<F*>(next);
    ownFftRealTwiddleInv(order, sine, spec.realInvTwiddle);
  }
};

}  // namespace mox
