// Transforms beyond the second-level cache. The numbers are reordered through tiles that run along
// the rows of the caller's array; 2^k rows are transformed one by one; and the outer stages join
// them in narrow blocks of columns that are gathered in work memory.
#pragma once

#include "transforms/fft_mid.h"
#include "transforms/fft_tables.h"

namespace mox::transforms {
namespace detail {

constexpr int reversed(int i, int bits) {
  int r = 0;
  for (; bits > 0; --bits, i >>= 1) r = r << 1 | (i & 1);
  return r;
}

// Numbers whose index is [row, tile, column] go to [column reversed, tile reversed, row reversed]:
// a tile is read in whole rows and written in whole rows, with the first butterflies on the way.
template <Direction direction, int radix, class Source, class Area>
class Tiles {
  using F = typename Area::F;
  using Shape = LeafShape<F, radix>;
  static constexpr int bits = FftLimits<F>::tileBits, side = 1 << bits;
  // Rows that are a power of two apart fall onto the same lines of the cache.
  static constexpr int rowStride = side + (lanesOf<F> / 2) * 2;

 public:
  static constexpr long bufferNumbers = rowStride * side;

  Tiles(Source src, Area area, int order)
      : src_(src), area_(area), rowLength_(1L << (order - bits)) {}

  void fetch(long tile, F* buffer) const {
    for (int row = 0; row < side; ++row)
      for (int column = 0; column < side; column += (lanesOf<F> / 2))
        store(buffer + 2 * (row * rowStride + column),
              src_.interleaved(row * rowLength_ + tile * side + column));
  }

  void put(const F* buffer, long tile) const {
    const Area to = area_.from(tile * side);
    for (int column = 0; column < side; column += Shape::columns)
      for (int block = 0; block < blocks; ++block)
        leafColumns<direction, radix, F>(
            to,
            [=](int k, int part) {
              const int row = k * (side / radix) + rowOf(block, part);
              return load<V<F>>(buffer + 2 * (row * rowStride + column));
            },
            [=, this](int c) {
              return reversed(column + c, bits) * rowLength_ + block * Shape::runs;
            });
  }

 private:
  static constexpr int blocks = side / Shape::runs;

  // The first row of a block's transforms: the bit-reversed number of the first one. Two that share
  // a block are the same quarter of two neighbouring groups of 16.
  static constexpr int rowOf(int block, int part) {
    if constexpr (Shape::sharing == 1) return reversed(block, __builtin_ctz(blocks));
    const int quarter = block & 3, group = block >> 2 << 1 | part;
    return reversed(group << 2 | quarter, 4);
  }

  Source src_;
  Area area_;
  long rowLength_;
};

template <Direction direction, int radix, class Source, class Area, class F>
void reorderTiles(Source src, Area area, bool inPlace, int order, const int* reversedTiles,
                  F* work) {
  const Tiles<direction, radix, Source, Area> tiles(src, area, order);
  F* const other = work + 2 * tiles.bufferNumbers;
  const long count = 1L << (order - 2 * FftLimits<F>::tileBits);
  for (long i = 0; i < count; ++i) {
    const long j = reversedTiles[i];
    if (inPlace && j < i) continue;  // went with its partner
    tiles.fetch(j, work);
    if (inPlace && j != i) {
      tiles.fetch(i, other);
      tiles.put(other, j);
    }
    tiles.put(work, i);
  }
}

// The last outer stage over q columns of the gathered block. Only the first half of the groups has
// twiddles, W^a and W^2a; those of the second half are an eighth and a quarter of a turn on.
template <Direction direction, class F, class Place>
void lastOuterStage(const F* block, const F* twiddle, long q, Place place) {
  using T = V<F>;
  constexpr F diagonal = F(0.70710678118654752440L);
  const Blocks<F> area = {const_cast<F*>(block)};
  const auto step = [&](long j, Pair<T> w1, Pair<T> w2) {
    Pair<T> a[4];
    for (int k = 0; k < 4; ++k) a[k] = area.pair(j + k * q);
    stageButterfly<direction>(a, w1, w2, rotated<Direction::forward>(w1, w2));
    for (int k = 0; k < 4; ++k) place(j + k * q, a[k]);
  };
  for (long j = 0; j < q / 2; j += lanesOf<F>, twiddle += 4 * lanesOf<F>) {
    const auto run = [=](int i) { return load<T>(twiddle + i * lanesOf<F>); };
    const Pair<T> w1 = {run(0), run(1)}, w2 = {run(2), run(3)};
    step(j, w1, w2);
    step(j + q / 2, {(w1.re + w1.im) * diagonal, (w1.im - w1.re) * diagonal}, {w2.im, -w2.re});
  }
}

// The outer stages of 2^order numbers in rows, from `area` to `dst`, which may be the same memory.
template <Direction direction, class Area, class Target, class F>
void joinRows(Area area, Target dst, int order, const F* twiddle, F* work) {
  const FftRows<F> rows(order);
  const Blocks<F> block = {work};
  for (long column = 0; column < rows.length; column += rows.columns) {
    const long c = rows.columns;
    for (long row = 0; row < rows.count; row += 4)
      joinFour<direction>(area.from(row * rows.length + column), rows.length, block.from(row * c),
                          twiddle, c);
    twiddle += 6 * c;
    long q = 4 * c;
    for (; 4 * q < rows.count * c; twiddle += 6 * q, q *= 4)
      ownFftRadix4Pass<direction>(block, twiddle, q, rows.count * c / (4 * q));
    const Target to = dst.from(column);
    lastOuterStage<direction>(work, twiddle, q, [&](long i, Pair<V<F>> z) {
      to.putPair(i / c * rows.length + i % c, z);
    });
    twiddle += 2 * q;
  }
}

// Rows that went through the first pass: transformed, scaled while they are in cache, and joined.
template <Direction direction, int depth = 0, class Area, class Target, class F>
void transformRows(const FftSpec<F>& spec, Area area, Target dst, int order, bool scaled, F* work) {
  const FftRows<F> rows(order);
  for (long row = 0; row < rows.count; ++row) {
    const Area one = area.from(row * rows.length);
    if (rows.order < FftLimits<F>::largeOrder) {
      ownFftRec<direction>(one, rows.length, static_cast<const F*>(spec.twiddle));
      if (scaled) scale(one, spec.normFactor, rows.length);
    } else if constexpr (depth + 1 < fftMaxDepth) {
      transformRows<direction, depth + 1>(spec, one, one, rows.order, scaled, work);
    }
  }
  joinRows<direction>(area, dst, order, static_cast<const F*>(spec.levelTwiddle[depth]), work);
}

}  // namespace detail

template <Direction direction, class View, class F>
void ownFftLarge(const FftSpec<F>& spec, typename View::Const src, View dst, int order, bool scaled,
                 F* work) {
  const auto area = largeArea(dst);
  const bool inPlace = sameArrays(src, dst);
  if (order % 2)
    detail::reorderTiles<direction, 8>(src, area, inPlace, order, spec.bitRev, work);
  else
    detail::reorderTiles<direction, 4>(src, area, inPlace, order, spec.bitRev, work);
  detail::transformRows<direction>(spec, area, dst, order, scaled, work);
}

}  // namespace mox::transforms
