// Transforms of 2^7 numbers and more that fit the second-level cache: one area holds the data from
// the first pass to the last, in blocks.
#pragma once

#include "transforms/fft_spec.h"
#include "transforms/fft_stages.h"

namespace mox {

// All stages from the first up to transforms of `len` numbers but the last `left` of them, on
// `blocks` such transforms side by side. The result is the twiddle pointer behind the last.
template <Direction direction, class F>
const F* ownFftStages(F* area, long len, long total, const F* twiddle) {
  const bool odd = __builtin_ctzl(len) % 2;
  long q = odd ? 8 : 4;
  if (odd)
    ownFftRadix4Pass<direction>(area, twiddle, q, total / (4 * q));
  else
    ownFftStage16<direction>(area, twiddle, total / (4 * q));
  twiddle += 6 * q;
  for (q *= 4; 4 * q <= len; q *= 4) {
    ownFftRadix4Pass<direction>(area, twiddle, q, total / (4 * q));
    twiddle += 6 * q;
  }
  return twiddle;
}

// A block that fits the first-level cache is finished before the next one is touched.
template <Direction direction, class F>
const F* ownFftRec(F* area, long len, const F* twiddle) {
  if (len <= FftLimits<F>::rowsInCache) return ownFftStages<direction>(area, len, len, twiddle);
  const long q = len / 4;
  const F* behind = twiddle;
  for (int k = 0; k < 4; ++k) behind = ownFftRec<direction>(area + 2 * k * q, q, twiddle);
  ownFftRadix4Pass<direction>(area, behind, q, 1);
  return behind + 6 * q;
}

// All stages but the last of a transform of n numbers that are in bit-reversed order.
template <Direction direction, class F>
const F* ownFftUpToLast(F* area, long n, const F* twiddle) {
  const long q = n / 4;
  if (n <= FftLimits<F>::rowsInCache) return ownFftStages<direction>(area, q, n, twiddle);
  const F* behind = twiddle;
  for (int k = 0; k < 4; ++k) behind = ownFftRec<direction>(area + 2 * k * q, q, twiddle);
  return behind;
}

template <Direction direction, class Array, class F>
void ownFftMid(Array src, Array dst, long n, const F* twiddle, const int* bitRev, F* work) {
  F* const area = src.workArea(dst, work);
  if (__builtin_ctzl(n) % 2)
    ownFftLeaf<direction, 8>(src, area, bitRev, n);
  else
    ownFftLeaf<direction, 4>(src, area, bitRev, n);
  const F* const last = ownFftUpToLast<direction>(area, n, twiddle);
  ownFftLastPass<direction>(area, dst, last, n / 4);
}

}  // namespace mox
