// The record of an out-of-order DFT. Frequencies are decimated by the prime factors of the length
// up to 13, in rising order: a stage of radix R splits each block of R * columns numbers into R
// blocks of `columns`, one behind the other. What the last stage leaves are the leaves.
#pragma once

#include "transforms/dft_butterflies.h"
#include "transforms/dft_layout.h"

struct MoxsDFTOutOrdSpec : mox::transforms::LengthHead {};

namespace mox::transforms {

template <class F>
constexpr Mox32s dftOutOrdId = sizeof(F) == 4 ? 0x434D414A : 0x434D414B;

constexpr int outOrdMaxStages = 27;
constexpr int outOrdMostFactor = 13;
constexpr int outOrdMostTile = 352;          // numbers of a leaf
constexpr long outOrdWholeBytes = 36 << 10;  // of the stack, to a length without stages

enum class OutOrdLeaf : Mox32s {
  radix,  // a butterfly
  tile,   // stages of their own, on as many leaves at a time as a register has lanes
  plan,   // a length without factors up to 13
  whole   // the length itself, by the passes of its plan, of which one puts or finds the bins
};

// The radices of the stages, then those of the stages in a tile.
struct OutOrdRadices {
  int stages = 0, tileStages = 0;
  int radix[outOrdMaxStages] = {};
  int leaf = 1;
  OutOrdLeaf kind = OutOrdLeaf::radix;
  bool coprime = false;  // the radices in a tile have no common divisors
};

// The radices that take the fewest instructions on vectors of that many lanes. Each is a product of
// up to 16 of factors that follow one another in rising order.
OutOrdRadices outOrdRadices(int len, long lanes);

// Where a transform of n numbers puts bin k: the digits of k by the prime factors of n up to 13, in
// rising order, reversed.
constexpr int digitReversed(int k, int n) {
  int place = 0;
  for (int rest = n; rest > 1;) {
    const int p = detail::leastFactor(rest);
    if (p > outOrdMostFactor) return place + k;
    rest /= p;
    place += k % p * rest;
    k /= p;
  }
  return place;
}

template <class F>
struct OutOrdStage {
  Mox32s radix, columns;
  F* twiddle;  // W^(j t) for j from 1 on, W = exp(-2 pi i / (radix * columns)), by steps of t
};

template <class F>
struct DftOutOrdSpec : MoxsDFTOutOrdSpec {
  F fwdFactor, invFactor;
  OutOrdRadices radices;
  OutOrdStage<F> stage[outOrdMaxStages];
  int *natural, *placed;  // where a tile has the numbers of a leaf, before its stages and behind
  int* place;             // where each bin of a whole length stands
  DftSpec<F>* leafPlan;
};

// From natural order to the plan's, and back. `dst` may be `src`.
template <Direction d, class F>
void ownDftOutOrd(const DftOutOrdSpec<F>& plan, const ComplexOf<F>* src, ComplexOf<F>* dst,
                  F* work);

}  // namespace mox::transforms
