// The passes of the transforms that work through memory: a first pass that reorders, stages that
// join four transforms into one, and a last stage that gives the result back in the caller's order.
// An Area holds the data in between: Blocks, or the caller's own arrays where they are split.
#pragma once

#include <algorithm>

#include "transforms/fft_butterflies.h"
#include "transforms/fft_views.h"

namespace mox::transforms {

// W^j, W^2j and W^3j of lanesOf<F> butterflies, stored as six runs.
template <class F>
struct StageTwiddles {
  Pair<V<F>> w1, w2, w3;
};
template <class F>
[[gnu::always_inline]] inline StageTwiddles<F> loadTwiddles(const F* p) {
  const auto run = [p](int i) { return inRegister(load<V<F>>(p + i * lanesOf<F>)); };
  return {{run(0), run(1)}, {run(2), run(3)}, {run(4), run(5)}};
}

// The quarters of a transform lie in bit-reversed order: the second turns by W^2j, the third by
// W^j.
template <Direction direction, class T>
[[gnu::always_inline]] inline void stageButterfly(Pair<T> (&a)[4], Pair<T> w1, Pair<T> w2,
                                                  Pair<T> w3) {
  const Pair<T> b1 = rotated<direction>(a[1], w2), b2 = rotated<direction>(a[2], w1),
                b3 = rotated<direction>(a[3], w3);
  const Pair<T> s = a[0] + b1, d = a[0] - b1, t = b2 + b3, u = b2 - b3;
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
    Pair<V<F>> a[4];
    for (int k = 0; k < 4; ++k) {
      a[k] = src.pair(j + k * stride);
      a[k] = {inRegister(a[k].re), inRegister(a[k].im)};
    }
    const auto [w1, w2, w3] = loadTwiddles(twiddle);
    stageButterfly<direction>(a, w1, w2, w3);
    for (int k = 0; k < 4; ++k) dst.putPair(j + k * q, a[k]);
  }
}

// Each of `blocks` blocks of 4 q numbers: four transforms become one.
template <Direction direction, class Area, class F>
void ownFftRadix4Pass(Area area, const F* twiddle, long q, long blocks) {
  for (long b = 0; b < blocks; ++b)
    joinFour<direction>(area.from(4 * q * b), q, area.from(4 * q * b), twiddle, q);
}

// The four numbers of a transform fill half a vector only. So the first pass has put those of two
// groups into one, and this stage takes them apart.
template <Direction direction, class Area>
void ownFftStage16(Area area, const Mox32f* twiddle, long blocks) {
  using T = V<Mox32f>;
  const auto run = [twiddle](int i) {
    const auto half = load<V<Mox32f, 4>>(twiddle + 4 * i);
    return shuffle<[](int k) { return k % 4; }, 8>(half, half);
  };
  const Pair<T> w1 = {run(0), run(1)}, w2 = {run(2), run(3)}, w3 = {run(4), run(5)};
  for (long i = 0; i < 16 * blocks; i += 32) {
    Pair<T> a[4];
    for (int k = 0; k < 4; ++k) a[k] = area.pair(i + 8 * k);
    stageButterfly<direction>(a, w1, w2, w3);
    for (int k = 0; k < 2; ++k) {
      const Pair<T>&x = a[2 * k], &y = a[2 * k + 1];
      area.putPair(i + 8 * k, {joinLow(x.re, y.re), joinLow(x.im, y.im)});
      area.putPair(i + 16 + 8 * k, {joinHigh(x.re, y.re), joinHigh(x.im, y.im)});
    }
  }
}
template <Direction direction, class Area>
void ownFftStage16(Area area, const Mox64f* twiddle, long blocks) {
  ownFftRadix4Pass<direction>(area, twiddle, 4, blocks);
}

// How the first pass takes its numbers: `runs` vectors of `columns` columns, in which transforms
// that fill part of a block share it with those of `sharing` - 1 other groups of 16.
template <class F, int radix>
struct LeafShape {
  static constexpr int runs = radix < lanesOf<F> ? lanesOf<F> : radix;
  static constexpr int sharing = runs / radix;
  static constexpr int columns = (lanesOf<F> / 2);
};

// run(k, part) gives number k of the transforms in that part of a block, for all columns; place(c)
// is where the block of column c goes.
template <Direction direction, int radix, class F, class Area, class Run, class Place>
[[gnu::always_inline]] inline void leafColumns(Area area, Run run, Place place) {
  using Shape = LeafShape<F, radix>;
  constexpr int l = lanesOf<F>;
  V<F> rows[Shape::runs];
  for (int part = 0; part < Shape::sharing; ++part) {
    V<F> a[radix];
    for (int k = 0; k < radix; ++k) a[k] = run(k, part);
    butterfly<direction, F>(a);
    for (int k = 0; k < radix; ++k) rows[part * radix + k] = a[k];
  }
  for (int block = 0; block < Shape::runs; block += l) {
    V<F> square[l];
    for (int k = 0; k < l; ++k) square[k] = rows[block + k];
    transpose(square);
    for (int c = 0; c < Shape::columns; ++c)
      area.putPair(place(c) + block, {square[2 * c], square[2 * c + 1]});
  }
}

// Visits columns 0 to `count` - 1, some at a step. Those whose places are neighbours are far apart,
// so a line of one row of columns is followed by a line of the next, lest every store be to another
// page.
template <long step>
[[gnu::always_inline]] inline void eachColumn(long count, auto visit) {
  constexpr long rows = 16, line = 8;
  const long apart = std::max(count / rows, line);
  for (long start = 0; start < apart; start += line)
    for (long first = start; first < count; first += apart)
      for (long i = first; i < first + line; i += step) visit(i);
}

// Transforms of `radix` numbers, each put where its bit-reversed index is; of those that share
// blocks, the same quarters of two neighbouring groups of 16 are together.
template <Direction direction, int radix, class Array, class Area>
void ownFftLeaf(Array src, Area area, const int* bitRev, long n) {
  using F = typename Area::F;
  using Shape = LeafShape<F, radix>;
  constexpr bool shared = Shape::sharing > 1;
  const long stride = n / radix, partner = n / 32;
  eachColumn<Shape::columns>(stride / Shape::sharing, [&](long column) {
    // Where blocks are shared, every other run of `partner` columns goes along with the one before.
    const long i = shared ? column + (column & -partner) : column;
    leafColumns<direction, radix, F>(
        area, [=](int k, int part) { return src.interleaved(i + k * stride + part * partner); },
        [=](int c) {
          // Bits 2 and 3 are the quarter of a group of 16. The quarters of a group and its
          // neighbour take turns, so that each is twice as far from the start of the two.
          const long place = 2L * bitRev[i + c];
          return shared ? (place & -32) + (place & 12) * 2 : place;
        });
  });
}

}  // namespace mox::transforms
