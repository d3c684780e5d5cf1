// Transforms that don't fit the caches: reordering by square tiles, fused with the leaves; then
// transforms of contiguous rows; then the last stages across the rows, by blocks of columns that
// are gathered into the work area.
#include <cstring>

#include "arith/mul_constant.h"
#include "transforms/fft_complex.h"
#include "transforms/fft_reversal.h"
#include "transforms/fft_stages.h"
#include "transforms/fft_tables.h"

namespace mox {
namespace {

// The destination as it is used between the passes.
template <class F>
BlockSplit<F> areaIn(Interleaved<F> dst) {
  return {dst.parts};
}
template <class F>
Split<F> areaIn(Split<F> dst) {
  return dst;
}

template <class F>
bool isVectorAligned(BlockSplit<F> row) {
  return isAligned(row.blocks, vectorBytes);
}
template <class F>
bool isVectorAligned(Split<F> row) {
  return isAligned(row.re, vectorBytes) && isAligned(row.im, vectorBytes);
}

template <class F>
void multiply(F factor, BlockSplit<F> row, long len) {
  ownsMulC_I(factor, row.blocks, 2 * len);
}
template <class F>
void multiply(F factor, Split<F> row, long len) {
  ownsMulC_I(factor, row.re, len);
  ownsMulC_I(factor, row.im, len);
}

// A dense array in the work area, of the layout of the caller's data.
template <class F>
Interleaved<F> denseLike(Interleaved<F>, F* work, long) {
  return {work};
}
template <class F>
Split<F> denseLike(Split<F>, F* work, long count) {
  return {work, work + count};
}

template <class F>
void copyNumbers(Interleaved<F> from, Interleaved<F> to, long count) {
  std::memcpy(to.parts, from.parts, std::size_t(count) * 2 * sizeof(F));
}
template <class F>
void copyNumbers(Split<F> from, Split<F> to, long count) {
  std::memcpy(to.re, from.re, std::size_t(count) * sizeof(F));
  std::memcpy(to.im, from.im, std::size_t(count) * sizeof(F));
}

template <class F>
constexpr int tileSide = 1 << FftLimits<F>::tileBits;

// The leaves of one tile: rows of the source are columns of the destination, both bit-reversed. The
// strides are those of the rows.
template <Direction d, int leafBits, class Src, class Dst>
void leafTile(Src src, long srcStride, Dst dst, long dstStride) {
  using F = typename Src::F;
  constexpr int tileBits = FftLimits<F>::tileBits, radix = 1 << leafBits;
  constexpr int lowBits = tileBits - leafBits, lowRows = 1 << lowBits;
  for (int first = 0; first < tileSide<F>; first += lanesOf<F>)
    for (int low = 0; low < lowRows; ++low)
      leaf<d, radix>(src + (low * srcStride + first), lowRows * srcStride, dst, [&](int column) {
        return reversed(first + column, tileBits) * dstStride + reversed(low, lowBits) * radix;
      });
}

// Reorders the whole and does the leaves. In place, tiles that change places are done together.
template <Direction d, int leafBits, class F, template <class> class Layout>
void leafTiles(Layout<const F> src, Layout<F> dst, int order, const int* tileRev, F* work) {
  constexpr int tileBits = FftLimits<F>::tileBits, side = tileSide<F>;
  const long rowStride = 1L << (order - tileBits);
  const int tiles = 1 << (order - 2 * tileBits);
  const auto area = areaIn(dst);
  if (!sameArrays(src, dst)) {
    for (long i = 0; i < tiles; ++i)
      leafTile<d, leafBits>(src + tileRev[i], rowStride, area + i * side, rowStride);
    return;
  }
  const Layout<F> copy = denseLike(dst, work, long(side) * side);
  for (long i = 0; i < tiles; ++i) {
    const long here = i * side, there = tileRev[i];
    if (there < here) continue;
    for (int row = 0; row < side; ++row)
      copyNumbers(dst + (there + row * rowStride), copy + row * side, side);
    if (there != here) leafTile<d, leafBits>(dst + here, rowStride, area + there, rowStride);
    leafTile<d, leafBits>(copy, side, area + here, rowStride);
  }
}

// The stages of a row behind its leaves, in the work area if the row isn't aligned.
template <Direction d, class View, class F>
void ownFftRow(View row, int order, const F* twiddle, F* work) {
  if (isVectorAligned(row)) return fftStages<d>(row, row, order, twiddle);
  const BlockSplit<F> copy{work};
  for (long i = 0; i < 1L << order; i += lanesOf<F>) copy.store(i, row.load(i));
  fftStages<d>(copy, row, order, twiddle);
}

// Column i of row r of a block of columns, `pitch` numbers from row to row, at r * columns + i.
template <class View>
struct ColumnBlock {
  using F = typename View::F;
  View view;
  long pitch;

  long place(long i) const {
    constexpr int tileBits = FftLimits<F>::tileBits;
    return (i >> tileBits) * pitch + (i & (tileSide<F> - 1));
  }
  ColumnBlock operator+(long i) const { return {view + place(i), pitch}; }
  [[gnu::always_inline]] Pair<V<F>> load(long i) const { return view.load(place(i)); }
  [[gnu::always_inline]] void store(long i, Pair<V<F>> z) const { view.store(place(i), z); }
};

// The butterflies j and j + q / 2 of the last stage, whose factors differ by an eighth of a turn in
// W(j) and a quarter in W(2j): as two layers of radix 2, for the table has no W(3j).
template <Direction d, bool secondHalf, class Src, class Dst, class F>
[[gnu::always_inline]] inline void lastButterfly(Src src, Dst dst, long j, long q,
                                                 const F* twiddle) {
  using T = V<F>;
  const Pair<T> w1 = loadTwiddle<T>(twiddle, 1), w2 = loadTwiddle<T>(twiddle, 2);
  const Pair<T> a0 = src.load(j), a2 = src.load(j + 2 * q);
  const Pair<T> b1 = twiddled<d>(src.load(j + q), w2), b3 = twiddled<d>(src.load(j + 3 * q), w2);
  Pair<T> s, diff, t, u;
  if constexpr (secondHalf) {
    s = plusQuarterTurned<d>(a0, b1);
    diff = minusQuarterTurned<d>(a0, b1);
    t = eighthTurned<d, F>(plusQuarterTurned<d>(a2, b3));
    u = eighthTurned<d, F>(minusQuarterTurned<d>(a2, b3));
  } else {
    s = a0 + b1;
    diff = a0 - b1;
    t = a2 + b3;
    u = a2 - b3;
  }
  t = twiddled<d>(t, w1);
  u = twiddled<d>(u, w1);
  dst.store(j, s + t);
  dst.store(j + q, plusQuarterTurned<d>(diff, u));
  dst.store(j + 2 * q, s - t);
  dst.store(j + 3 * q, minusQuarterTurned<d>(diff, u));
}

template <Direction d, class Src, class Dst, class F>
const F* lastColumnStage(Src src, Dst dst, const F* twiddle, long q) {
  constexpr int lanes = lanesOf<F>;
  for (long j = 0; j < q / 2; j += lanes, twiddle += 4 * lanes) {
    lastButterfly<d, false>(src, dst, j, q, twiddle);
    lastButterfly<d, true>(src, dst, j + q / 2, q, twiddle);
  }
  return twiddle;
}

// The last splitOrder / 2 stages, across the rows.
template <Direction d, class View, class Out, class F>
void columnPasses(View data, Out out, int rowOrder, int splitOrder, const F* twiddle, F* work) {
  constexpr int columns = tileSide<F>;
  const long rows = 1L << splitOrder, pitch = 1L << rowOrder;
  const BlockSplit<F> dense{work};
  for (long first = 0; first < pitch; first += columns) {
    const ColumnBlock<View> from{data + first, pitch};
    const ColumnBlock<Out> to{out + first, pitch};
    for (long row = 0; row < rows; row += 4)
      radix4Block<d>(from + row * columns, dense + row * columns, twiddle, columns);
    twiddle += 6 * columns;
    long q = 4 * columns;
    for (; q < rows / 4 * columns; q *= 4)
      twiddle = ownFftRadix4Pass<d>(dense, twiddle, q, rows * columns / (4 * q));
    twiddle = lastColumnStage<d>(dense, to, twiddle, q);
  }
}

template <Direction d, class View, class Out, class F>
void rowsAndColumns(const FftSpec<F>& spec, View data, Out out, int order, int depth, F factor,
                    F* work) {
  const int splitOrder = fftSplitOrder<F>(order), rowOrder = order - splitOrder;
  for (long i = 0; i < 1L << splitOrder; ++i) {
    const View row = data + (i << rowOrder);
    if (rowOrder < FftLimits<F>::largeOrder) {
      ownFftRow<d>(row, rowOrder, spec.twiddle, work);
      multiply(factor, row, 1L << rowOrder);
    } else {
      rowsAndColumns<d>(spec, row, row, rowOrder, depth + 1, factor, work);
    }
  }
  columnPasses<d>(data, out, rowOrder, splitOrder, static_cast<const F*>(spec.levelTwiddle[depth]),
                  work);
}

template <Direction d, class F, template <class> class Layout>
void large(const FftSpec<F>& spec, Layout<const F> src, Layout<F> dst, int order, F* work) {
  if (order % 2)
    leafTiles<d, 3>(src, dst, order, spec.bitRev, work);
  else
    leafTiles<d, 4>(src, dst, order, spec.bitRev, work);
  const bool scales = d == Direction::forward ? spec.fwdNorm : spec.invNorm;
  rowsAndColumns<d>(spec, areaIn(dst), dst, order, 0, scales ? spec.normFactor : F(1), work);
}

}  // namespace

template <class F, template <class> class Layout>
void ownFftLarge(const FftSpec<F>& spec, Layout<const F> src, Layout<F> dst, int order, F* work) {
  large<Direction::forward>(spec, src, dst, order, work);
}
template <class F, template <class> class Layout>
void ownFftLargeInv(const FftSpec<F>& spec, Layout<const F> src, Layout<F> dst, int order,
                    F* work) {
  large<Direction::inverse>(spec, src, dst, order, work);
}

#define MOX_INSTANTIATE(F, Layout)                                                   \
  template void ownFftLarge(const FftSpec<F>&, Layout<const F>, Layout<F>, int, F*); \
  template void ownFftLargeInv(const FftSpec<F>&, Layout<const F>, Layout<F>, int, F*)
MOX_INSTANTIATE(Mox32f, Interleaved);
MOX_INSTANTIATE(Mox32f, Split);
MOX_INSTANTIATE(Mox64f, Interleaved);
MOX_INSTANTIATE(Mox64f, Split);
#undef MOX_INSTANTIATE

}  // namespace mox
