// The passes of a transform. A leaf pass puts the data into bit-reversed order and does the first
// butterflies; radix-4 passes follow, four times as long each.
#pragma once

#include "transforms/fft_butterflies.h"
#include "transforms/fft_spec.h"

namespace mox {

// log2 of the radix of the leaves. A leaf of 16 stands for the first two radix-4 stages.
constexpr int fftLeafBits(int order) { return order % 2 ? 3 : 4; }
// The twiddles of the stage of length 16 are in the leaf's code.
constexpr int fftLeafTwiddles(int order) { return order % 2 ? 0 : 24; }

// Transforms of `radix` elements that lie `stride` apart in `src`, as many side by side as a vector
// has lanes. The result of column i goes to dst, from number place(i) on.
template <Direction d, int radix, class Src, class Dst, class Place>
[[gnu::always_inline]] inline void leaf(Src src, long stride, Dst dst, Place place) {
  using F = typename Src::F;
  using T = V<F>;
  constexpr int lanes = lanesOf<F>;
  Pair<T> x[radix];
  for (int i = 0; i < radix; ++i) x[i] = src.loadParted(i * stride);
  dft<d, radix, 1, F>(x);
  for (int block = 0; block < radix; block += lanes) {
    T re[lanes], im[lanes];
    for (int i = 0; i < lanes; ++i) {
      re[i] = x[dftPlace<radix>(block + i)].re;
      im[i] = x[dftPlace<radix>(block + i)].im;
    }
    transpose(re);
    transpose(im);
    for (int i = 0; i < lanes; ++i) dst.store(place(Src::column(i)) + block, Pair<T>{re[i], im[i]});
  }
}

template <class T, class F>
[[gnu::always_inline]] inline Pair<T> loadTwiddle(const F* runs, int multiple) {
  constexpr int lanes = laneCount<T>;
  return {load<T>(runs + (2 * multiple - 2) * lanes), load<T>(runs + (2 * multiple - 1) * lanes)};
}

// One vector of butterflies over the quarters a[0] to a[3], which are in bit-reversed order.
template <Direction d, class T, class F>
[[gnu::always_inline]] inline Radix4<d, T> twiddledRadix4(const Pair<T> (&a)[4], const F* twiddle) {
  return {a[0], twiddled<d>(a[1], loadTwiddle<T>(twiddle, 2)),
          twiddled<d>(a[2], loadTwiddle<T>(twiddle, 1)),
          twiddled<d>(a[3], loadTwiddle<T>(twiddle, 3))};
}

// The butterflies of one block of 4 * q numbers.
template <Direction d, class Src, class Dst, class F>
[[gnu::always_inline]] inline void radix4Block(Src src, Dst dst, const F* twiddle, long q) {
  using T = V<F>;
  constexpr int lanes = lanesOf<F>;
  for (long j = 0; j < q; j += lanes, twiddle += 6 * lanes) {
    const Pair<T> a[4] = {src.load(j), src.load(j + q), src.load(j + 2 * q), src.load(j + 3 * q)};
    const Radix4<d, T> r = twiddledRadix4<d>(a, twiddle);
    dst.store(j, r.out0);
    dst.store(j + q, r.out1);
    dst.store(j + 2 * q, r.out2);
    dst.store(j + 3 * q, r.out3);
  }
}

// In place, over consecutive blocks. The result is the twiddles of the next stage.
template <Direction d, class View, class F>
const F* ownFftRadix4Pass(View area, const F* twiddle, long q, long blocks) {
  for (long b = 0; b < blocks; ++b) radix4Block<d>(area + 4 * b * q, area + 4 * b * q, twiddle, q);
  return twiddle + 6 * q;
}

// The stages behind the leaves up to the length `len`, whose parity is that of the transform. A
// block that fits the cache is finished before the next one is touched.
template <Direction d, class View, class F>
const F* ownFftRec(View area, long len, const F* twiddle, int leafBits) {
  long q = 1L << leafBits;
  if (len <= FftLimits<F>::inCache) {
    for (; q < len; q *= 4) twiddle = ownFftRadix4Pass<d>(area, twiddle, q, len / (4 * q));
    return twiddle;
  }
  const F* next = twiddle;
  for (int quarter = 0; quarter < 4; ++quarter)
    next = ownFftRec<d>(area + quarter * (len / 4), len / 4, twiddle, leafBits);
  return ownFftRadix4Pass<d>(area, next, len / 4, 1);
}

// All stages behind the leaves, the last one from `area` to `dst`, which may be the same.
template <Direction d, class View, class Dst, class F>
void fftStages(View area, Dst dst, int order, const F* twiddle) {
  const long quarter = 1L << (order - 2);
  const int leafBits = fftLeafBits(order);
  twiddle += fftLeafTwiddles(order);
  const F* last = twiddle;
  if (quarter * 4 <= FftLimits<F>::inCache) {
    for (long q = 1L << leafBits; q < quarter; q *= 4)
      last = ownFftRadix4Pass<d>(area, last, q, quarter / q);
  } else {
    for (int i = 0; i < 4; ++i) last = ownFftRec<d>(area + i * quarter, quarter, twiddle, leafBits);
  }
  radix4Block<d>(area, dst, last, quarter);
}

}  // namespace mox
