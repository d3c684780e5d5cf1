// The passes of the transforms that work through memory: a first pass that reorders, stages that
// join four transforms into one, and a last stage that gives the result back in the caller's order.
// An Area holds the data in between: Blocks, or the caller's own arrays where they are split.
#pragma once

#include "transforms/fft_butterflies.h"
#include "transforms/fft_views.h"

namespace mox {

// W^j, W^2j and W^3j of lanesOf<F> butterflies, stored as six runs.
template <class F>
struct StageTwiddles {
  Lanes<V<F>> w1, w2, w3;
};
template <class F>
[[gnu::always_inline]] inline StageTwiddles<F> loadTwiddles(const F* p) {
  const auto run = [p](int i) { return load<V<F>>(p + i * lanesOf<F>); };
  return {{run(0), run(1)}, {run(2), run(3)}, {run(4), run(5)}};
}

// The quarters of a transform lie in bit-reversed order: the second turns by W^2j, the third by
// W^j.
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

// Four transforms of q numbers that lie `stride` apart in `src` become one of 4 q in `dst`.
template <Direction direction, class Source, class Target, class F>
[[gnu::always_inline]] inline void joinFour(Source src, long stride, Target dst, const F* twiddle,
                                            long q) {
  for (long j = 0; j < q; j += lanesOf<F>, twiddle += 6 * lanesOf<F>) {
    Lanes<V<F>> a[4];
    for (int k = 0; k < 4; ++k) a[k] = src.lanes(j + k * stride);
    const auto [w1, w2, w3] = loadTwiddles(twiddle);
    stageButterfly<direction>(a, w1, w2, w3);
    for (int k = 0; k < 4; ++k) dst.putLanes(j + k * q, a[k]);
  }
}

// Each of `blocks` blocks of 4 q numbers: four transforms become one.
template <Direction direction, class Area, class F>
void ownFftRadix4Pass(Area area, const F* twiddle, long q, long blocks) {
  for (long b = 0; b < blocks; ++b)
    joinFour<direction>(area.from(4 * q * b), q, area.from(4 * q * b), twiddle, q);
}

// Where the four numbers of a transform fill half a vector only, two groups share one.
template <Direction direction, class Area>
void ownFftStage16(Area area, const Mox32f* twiddle, long blocks) {
  using T = V<Mox32f>;
  const auto run = [twiddle](int i) {
    const auto half = load<V<Mox32f, 4>>(twiddle + 4 * i);
    return __builtin_shufflevector(half, half, 0, 1, 2, 3, 0, 1, 2, 3);
  };
  const Lanes<T> w1 = {run(0), run(1)}, w2 = {run(2), run(3)}, w3 = {run(4), run(5)};
  for (long i = 0; i < 16 * blocks; i += 32) {
    Lanes<T> g[4], a[4];
    for (int k = 0; k < 4; ++k) g[k] = area.lanes(i + 8 * k);
    for (int k = 0; k < 2; ++k) {
      a[2 * k] = {joinLow(g[k].re, g[k + 2].re), joinLow(g[k].im, g[k + 2].im)};
      a[2 * k + 1] = {joinHigh(g[k].re, g[k + 2].re), joinHigh(g[k].im, g[k + 2].im)};
    }
    stageButterfly<direction>(a, w1, w2, w3);
    for (int k = 0; k < 2; ++k) {
      g[k] = {joinLow(a[2 * k].re, a[2 * k + 1].re), joinLow(a[2 * k].im, a[2 * k + 1].im)};
      g[k + 2] = {joinHigh(a[2 * k].re, a[2 * k + 1].re), joinHigh(a[2 * k].im, a[2 * k + 1].im)};
    }
    for (int k = 0; k < 4; ++k) area.putLanes(i + 8 * k, g[k]);
  }
}
template <Direction direction, class Area>
void ownFftStage16(Area area, const Mox64f* twiddle, long blocks) {
  ownFftRadix4Pass<direction>(area, twiddle, 4, blocks);
}

// How the first pass takes its numbers: `runs` of them n / runs apart become vectors of their own,
// and after it each of `columns` such sets fills whole blocks.
template <class F, int radix>
struct LeafShape {
  static constexpr int runs = radix < lanesOf<F> ? lanesOf<F> : radix;
  static constexpr int columns = numbersInMixed<F>;
};

// run(k) gives number k of all columns; place(c) is where the transforms of column c go.
template <Direction direction, int radix, class F, class Area, class Run, class Place>
[[gnu::always_inline]] inline void leafColumns(Area area, Run run, Place place) {
  using Shape = LeafShape<F, radix>;
  constexpr int l = lanesOf<F>, sharing = Shape::runs / radix;
  V<F> rows[Shape::runs];
  for (int part = 0; part < sharing; ++part) {
    Mixed<F> a[radix];
    for (int k = 0; k < radix; ++k) a[k] = run(k * sharing + part);
    butterfly<direction, F>(a);
    for (int k = 0; k < radix; ++k) rows[part * radix + k] = a[k].v;
  }
  for (int block = 0; block < Shape::runs; block += l) {
    V<F> square[l];
    for (int k = 0; k < l; ++k) square[k] = rows[block + k];
    transpose(square);
    for (int c = 0; c < Shape::columns; ++c)
      area.putLanes(place(c) + block, {square[2 * c], square[2 * c + 1]});
  }
}

// Transforms of `radix` numbers, each put where its bit-reversed index is.
template <Direction direction, int radix, class Source, class Area>
void ownFftLeaf(Source src, Area area, const int* bitRev, long n) {
  using F = typename Area::F;
  using Shape = LeafShape<F, radix>;
  const long stride = n / Shape::runs;
  for (long i = 0; i < stride; i += Shape::columns)
    leafColumns<direction, radix, F>(
        area, [=](int k) { return src.mixed(i + k * stride); },
        [=](int c) { return 2L * bitRev[i + c]; });
}

}  // namespace mox
