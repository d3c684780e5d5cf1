// Where the tables of a record lie, and how much memory a run needs.
#pragma once

#include <algorithm>

#include "frame/arena.h"
#include "transforms/fft_spec.h"

namespace mox::transforms {

// A record inside another object, and what its shape places behind it; null while measuring.
template <class Record, class Shape>
constexpr Record* placeRecord(Arena& arena, const Shape& shape) {
  auto* const record = arena.place<Record>(1, fftAlignment);
  Record measured{};
  if (record) *record = {};
  shape.layout(arena, record ? *record : measured);
  return record;
}

namespace detail {

template <class E>
constexpr E* placeTable(Arena& arena, long count) {
  return arena.place<E>(std::size_t(count), fftAlignment);
}

// Parts of the stage twiddles of transforms of 2^order numbers: 6 for each butterfly of each stage.
constexpr long stageTwiddleParts(int order) {
  long parts = 0;
  for (int stage = order % 2 ? 5 : 4; stage <= order; stage += 2) parts += 6L << (stage - 2);
  return parts;
}

// Parts of the twiddles of the outer stages: 6 for each butterfly, but 4 for half the butterflies
// of the last stage.
template <class F>
constexpr long outerTwiddleParts(int order) {
  const FftRows<F> rows(order);
  long parts = 0, groups = 1;
  for (; 4 * groups < rows.count; groups *= 4) parts += 6 * groups * rows.length;
  return parts + 2 * groups * rows.length;
}

// Tables of the rows of 2^order numbers, which are cut up once more if they are large themselves.
template <int depth = 0, class F>
constexpr void placeLevels(Arena& arena, FftSpec<F>& spec, int order) {
  const FftRows<F> rows(order);
  if (rows.order < FftLimits<F>::largeOrder)
    spec.twiddle = placeTable<F>(arena, stageTwiddleParts(rows.order));
  else if constexpr (depth + 1 < fftMaxDepth)
    placeLevels<depth + 1>(arena, spec, rows.order);
  spec.levelTwiddle[depth] = placeTable<F>(arena, outerTwiddleParts<F>(order));
}

}  // namespace detail

template <class F>
constexpr void placeComplexTables(Arena& arena, FftSpec<F>& spec, int order) {
  if (order >= FftLimits<F>::largeOrder) {
    spec.bitRev = detail::placeTable<int>(arena, 1L << (order - 2 * FftLimits<F>::tileBits));
    detail::placeLevels(arena, spec, order);
  } else {
    spec.bitRev = detail::placeTable<int>(arena, (1L << (order - 2)) + 1);
    spec.twiddle = detail::placeTable<F>(arena, detail::stageTwiddleParts(order));
  }
}

// Entries of one table of a real transform.
template <class F>
constexpr long realTwiddleCount(int order) {
  const long quarter = (1L << order) / 4;
  return order < fftTwoLevelOrder ? quarter : fineTwiddles<F> + quarter / fineTwiddles<F>;
}

template <class F>
constexpr void placeRealTables(Arena& arena, FftSpec<F>& spec, int order) {
  spec.realFwdTwiddle = detail::placeTable<F>(arena, 2 * realTwiddleCount<F>(order));
  spec.realInvTwiddle = detail::placeTable<F>(arena, 2 * realTwiddleCount<F>(order));
}

// Bytes of work buffer of a complex transform above the small orders: the numbers of the longest
// row that runs by stages, a block of columns, or two tiles.
template <class F>
constexpr long complexWorkBytes(int order) {
  constexpr long number = 2 * sizeof(F);
  if (order < FftLimits<F>::largeOrder) return number << order;
  long bytes = number * 2 << 2 * FftLimits<F>::tileBits;
  for (; order >= FftLimits<F>::largeOrder; order = FftRows<F>(order).order) {
    const FftRows<F> rows(order);
    bytes = std::max(bytes, number * rows.count * rows.columns);
  }
  return std::max(bytes, number << order);
}

}  // namespace mox::transforms
