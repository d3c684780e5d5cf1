// Twiddles that join the half-length complex spectrum and the real one. With N = 2^order and
// W[k] = exp(-2 pi i k / N), the passes use k = 1 to N/4 in the order 2, 1, 4, 3, 6, 5 ...
#pragma once

#include "frame/arena.h"

namespace mox {

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
// entries W, in one or two levels. `sine` is a quarter wave, sin(2 pi i / 2^sinLog). The result is
// the next 64-byte boundary behind the table.
template <class F>
F* ownFftRealTwiddleFwd(int order, const F* sine, int sinLog, F* table);
template <class F>
F* ownFftRealTwiddleInv(int order, const F* sine, int sinLog, F* table);

}  // namespace mox
