// The passes of the transforms that work through memory: a first pass that reorders, stages that
// join four transforms into one, and a last stage that gives the result back in the caller's order.
#pragma once

#include "transforms/fft_arrays.h"
#include "transforms/fft_butterflies.h"

namespace mox {

// W^j, W^2j and W^3j of lanesOf<F> butterflies: six runs in the order in which they are stored.
template <class F>
struct StageTwiddles {
  Lanes<V<F>> w1, w2, w3;
};
template <class F>
constexpr long twiddlesPerButterfly = 6;

template <class F>
[[gnu::always_inline]] inline StageTwiddles<F> loadTwiddles(const F* p) {
  constexpr int l = lanesOf<F>;
  const auto run = [p](int i) { return load<V<F>>(p + i * l); };
  return {{run(0), run(1)}, {run(2), run(3)}, {run(4), run(5)}};
}

// The quarters of a block lie in bit-reversed order: the second turns by W^2j, the third by W^j.
template <Direction direction, class T>
[[gnu::always_inline]] inline void stageButterfly(Lanes<T> (&a)[4], Lanes<T> w1, Lanes<T> w2,
                                                  Lanes<T> w3) {
  const Lanes<T> b1 = rotated<direction>(a[1], w2), b2 = rotated<direction>(a[2], w1),
                 b3 = rotated<direction>(a[3], w3);
  const Lanes<T> s = a[0] + b1, d = a[0] - b1, t = b2 + b3, u = b2 - b3;
  const auto [first, third] = quarterTurns<direction>(d, u);
  a[0] = s + t;
  a[1] = first;
  a[2] = s - t;
  a[3] = third;
}

// Each of `blocks` blocks of 4 q numbers: four transforms of q numbers become one.
template <Direction direction, class F>
void ownFftRadix4Pass(F* area, const F* twiddle, long q, long blocks) {
  constexpr long l = lanesOf<F>;
  for (; blocks > 0; --blocks, area += 8 * q) {
    const F* w = twiddle;
    for (long j = 0; j < q; j += l, w += 6 * l) {
      F* const p = area + 2 * j;
      Lanes<V<F>> a[4] = {loadBlock(p), loadBlock(p + 2 * q), loadBlock(p + 4 * q),
                          loadBlock(p + 6 * q)};
      const auto [w1, w2, w3] = loadTwiddles(w);
      stageButterfly<direction>(a, w1, w2, w3);
      for (int k = 0; k < 4; ++k) storeBlock(p + 2 * k * q, a[k]);
    }
  }
}

// The last stage of a transform of 4 q numbers, from the area to the caller's array.
template <Direction direction, class Array, class F>
void ownFftLastPass(const F* area, Array dst, const F* twiddle, long q) {
  constexpr long l = lanesOf<F>;
  for (long j = 0; j < q; j += l, twiddle += 6 * l) {
    const F* const p = area + 2 * j;
    Lanes<V<F>> a[4] = {loadBlock(p), loadBlock(p + 2 * q), loadBlock(p + 4 * q),
                        loadBlock(p + 6 * q)};
    const auto [w1, w2, w3] = loadTwiddles(twiddle);
    stageButterfly<direction>(a, w1, w2, w3);
    for (int k = 0; k < 4; ++k) dst.putLanes(j + k * q, a[k]);
  }
}

// Where a butterfly's four numbers of a stage fill half a block only, two groups share a vector.
template <Direction direction>
void ownFftStage16(Mox32f* area, const Mox32f* twiddle, long blocks) {
  using T = V<Mox32f>;
  const auto run = [twiddle](int i) {
    const auto half = load<V<Mox32f, 4>>(twiddle + 4 * i);
    return __builtin_shufflevector(half, half, 0, 1, 2, 3, 0, 1, 2, 3);
  };
  const Lanes<T> w1 = {run(0), run(1)}, w2 = {run(2), run(3)}, w3 = {run(4), run(5)};
  for (; blocks > 0; blocks -= 2, area += 64) {
    Lanes<T> g[4], a[4];
    for (int k = 0; k < 4; ++k) g[k] = loadBlock(area + 16 * k);
    for (int k = 0; k < 2; ++k) {
      a[2 * k] = {joinLow(g[k].re, g[k + 2].re), joinLow(g[k].im, g[k + 2].im)};
      a[2 * k + 1] = {joinHigh(g[k].re, g[k + 2].re), joinHigh(g[k].im, g[k + 2].im)};
    }
    stageButterfly<direction>(a, w1, w2, w3);
    for (int k = 0; k < 2; ++k) {
      g[k] = {joinLow(a[2 * k].re, a[2 * k + 1].re), joinLow(a[2 * k].im, a[2 * k + 1].im)};
      g[k + 2] = {joinHigh(a[2 * k].re, a[2 * k + 1].re), joinHigh(a[2 * k].im, a[2 * k + 1].im)};
    }
    for (int k = 0; k < 4; ++k) storeBlock(area + 16 * k, g[k]);
  }
}

template <Direction direction>
void ownFftStage16(Mox64f* area, const Mox64f* twiddle, long blocks) {
  ownFftRadix4Pass<direction>(area, twiddle, 4, blocks);
}

// The first pass: transforms of `radix` numbers that lie n / radix apart, each written to the place
// of its bit-reversed index. Where a transform fills half a block, two that share one run together.
template <Direction direction, int radix, class Array, class F>
void ownFftLeaf(Array src, F* area, const int* bitRev, long n) {
  constexpr int l = lanesOf<F>, columns = l / 2, runs = radix < l ? l : radix;
  const long stride = n / runs;
  for (long i = 0; i < stride; i += columns) {
    Mixed<F> rows[runs];
    if constexpr (runs == radix) {
      for (int k = 0; k < runs; ++k) rows[k] = src.mixed(i + k * stride);
      butterfly<direction, F>(rows);
    } else {
      for (int half = 0; half < 2; ++half) {
        Mixed<F> r[radix];
        for (int k = 0; k < radix; ++k) r[k] = src.mixed(i + (2 * k + half) * stride);
        butterfly<direction, F>(r);
        for (int k = 0; k < radix; ++k) rows[half * radix + k] = r[k];
      }
    }
    for (int block = 0; block < runs / l; ++block) {
      V<F> square[l];
      for (int k = 0; k < l; ++k) square[k] = rows[block * l + k].v;
      transpose(square);
      for (int c = 0; c < columns; ++c)
        storeBlock(area + 4L * bitRev[i + c] + 2 * l * block,
                   Lanes<V<F>>{square[2 * c], square[2 * c + 1]});
    }
  }
}

}  // namespace mox
