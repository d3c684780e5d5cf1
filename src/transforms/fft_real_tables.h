// Twiddles that join the half-length complex spectrum and the real one. With N = 2^order and
// W[k] = exp(-2 pi i k / N), the passes use k = 1 to N/4 in the order 2, 1, 4, 3, 6, 5 ...
#pragma once

#include "transforms/fft_tables.h"

namespace mox {

template <class F>
constexpr FftKind fftRealId = sizeof(F) == 4 ? fftReal32f : fftReal64f;

// From this order on the tables have two levels: W[b * fineTwiddles + i] is the product of the
// coarse entry b and the fine entry i, for i = 1 to fineTwiddles. Both tables would fill half the
// data's space in cache otherwise.
constexpr int fftTwoLevelOrder = 18;
template <class F>
constexpr long fineTwiddles = 4096 / sizeof(F);

// Entries of one table.
template <class F>
constexpr long realTwiddleCount(int order) {
  const long quarter = (1L << order) / 4;
  return order < fftTwoLevelOrder ? quarter : fineTwiddles<F> + quarter / fineTwiddles<F>;
}

// Forward: entries (cos / 2, 1/2 - sin / 2) of the angle 2 pi k / N, or two levels of W. Inverse:
// entries W, in one or two levels. The result is the place for the next table.
template <class F>
Mox8u* ownFftRealTwiddleFwd(int order, QuarterSine<F> sine, F* table);
template <class F>
Mox8u* ownFftRealTwiddleInv(int order, QuarterSine<F> sine, F* table);

}  // namespace mox
