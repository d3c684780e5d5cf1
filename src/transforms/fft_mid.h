// Transforms of 2^7 numbers and more that one area holds from the first pass to the last.
#pragma once

#include "transforms/fft_spec.h"
#include "transforms/fft_stages.h"

namespace mox::transforms {

// The stages behind the leaves up to transforms of `len` numbers, over `total` numbers that hold
// several of them. The result is the twiddle pointer behind the last stage.
template <Direction direction, class Area, class F>
const F* ownFftStages(Area area, long len, long total, const F* twiddle) {
  const bool odd = __builtin_ctzl(len) % 2;
  long q = odd ? 8 : 4, blocks = total >> (odd ? 5 : 4);
  if (odd)
    ownFftRadix4Pass<direction>(area, twiddle, q, blocks);
  else
    ownFftStage16<direction>(area, twiddle, blocks);
  twiddle += 6 * q;
  while (4 * (q *= 4) <= len) {
    ownFftRadix4Pass<direction>(area, twiddle, q, blocks >>= 2);
    twiddle += 6 * q;
  }
  return twiddle;
}

// A block that fits the first-level cache is finished before the next one is touched.
template <Direction direction, class Area, class F>
const F* ownFftRec(Area area, long len, const F* twiddle) {
  if (len <= FftLimits<F>::inCache) return ownFftStages<direction>(area, len, len, twiddle);
  const long q = len / 4;
  const F* behind = twiddle;
  for (int k = 0; k < 4; ++k) behind = ownFftRec<direction>(area.from(k * q), q, twiddle);
  ownFftRadix4Pass<direction>(area, behind, q, 1);
  return behind + 6 * q;
}

template <Direction direction, class View, class F>
void ownFftMid(typename View::Const src, View dst, long n, const F* twiddle, const int* bitRev,
               F* work) {
  const Blocks<F> area = midArea(src, dst, work);
  if (__builtin_ctzl(n) % 2)
    ownFftLeaf<direction, 8>(src, area, bitRev, n);
  else
    ownFftLeaf<direction, 4>(src, area, bitRev, n);
  const long q = n / 4;
  const F* last = twiddle;
  if (n <= FftLimits<F>::inCache)
    last = ownFftStages<direction>(area, q, n, twiddle);
  else
    for (int k = 0; k < 4; ++k) last = ownFftRec<direction>(area.from(k * q), q, twiddle);
  joinFour<direction>(area, q, dst, last, q);
}

}  // namespace mox::transforms
