// The record of a DCT, and the transforms by it: the statuses are the callers'.
#pragma once

#include <bit>

#include "transforms/inner_dft.h"
#include "transforms/length_head.h"

struct MoxsDCTSpec : mox::transforms::LengthHead {};

namespace mox::transforms {

enum class DctMethod {
  small,   // straight-line kernels
  direct,  // sums over a table of cosines
  dft      // a real DFT of the samples in another order
};
constexpr DctMethod dctMethod(int len) {
  constexpr int mostSmall = 8, leastByDft = 36;
  if (std::has_single_bit(unsigned(len)))
    return len <= mostSmall ? DctMethod::small : DctMethod::dft;
  return len < leastByDft ? DctMethod::direct : DctMethod::dft;
}

// With N = len. Direct: table[i] = cos(2 pi i / 4N), and y[0] is scaled by scale0, all others by
// scaleK. By DFT: cosines and then sines of pi k / 2N, 0 < k < N/2, times the factor of the
// direction; scale0 is that of y[0] and y[N/2].
template <class F>
struct DctSpec : MoxsDCTSpec {
  F scale0, scaleK;
  F* table;
  InnerDft<F> dft;
};

constexpr long dctPairs(long len) { return (len - 1) / 2; }

// By DFT: the numbers of the spectrum, in front of the work memory of the DFT.
template <class F>
constexpr long dctSpectrumBytes(long len) {
  return wholeLines((len + 2) * long(sizeof(F)));
}

// `dst` may be `src`; `work` is aligned to 64 bytes and has the record's bufSize.
template <Direction d, class F>
void ownDctRun(const DctSpec<F>& spec, const F* src, F* dst, F* work);

}  // namespace mox::transforms
