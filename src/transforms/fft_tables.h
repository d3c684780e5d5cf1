// Tables of a transform's record. They stand behind the record in one block, each on a multiple of
// 64 bytes; a builder's result is the place for the next one.
#pragma once

#include "transforms/fft_spec.h"

namespace mox {

// A quarter wave: at[i] = sin(2 pi i / 2^log) for i from 0 to 2^log / 4.
template <class F>
struct QuarterSine {
  const F* at;
  int log;
};

// Up to this order a constant table serves all transforms; larger ones build their own.
constexpr int fftConstantSineOrder = 10;

template <class F>
QuarterSine<F> ownFftConstantSine();

// Builds the quarter wave of `order` at the first multiple of 64 in `initBuf`.
template <class F>
QuarterSine<F> ownFftSinTable(int order, Mox8u* initBuf);

// Bytes of scratch for the quarter wave of a transform of that order, 0 for none.
template <class F>
constexpr int fftInitSize(int order) {
  if (order <= fftConstantSineOrder) return 0;
  return int(fftRoundUp((sizeof(F) << order) / 4 + sizeof(F))) + fftAlignment;
}

// Entry i, for 0 < i < 2^(order - 2), is twice the reversal of i in order - 2 bits.
Mox8u* ownFftBitRevTable(int order, int* table);

// Twiddles of the radix-4 stages of lengths 16 or 32, then four times as long each, up to 2^order:
// W(a) = exp(-2 pi i a / length) for a = j, 2j, 3j, as a vector of real parts and one of imaginary
// parts for each, by vectors of butterflies j.
template <class F>
Mox8u* ownFftTwiddle(int order, QuarterSine<F> sine, F* table);

// Bytes of the tables, and of the work buffer of a run, on the large path.
struct FftLargeSizes {
  long tables, work;
};
template <class F>
constexpr FftLargeSizes ownFftLargeSizes(int order);

// Places and builds the tables of the large path from `next` on; sets bufSize.
template <class F>
Mox8u* ownFftLargeInit(FftSpec<F>& spec, int order, QuarterSine<F> sine, Mox8u* next);

// Places and builds the tables of the complex transform of that order, mid or large, from `next`
// on; sets bufSize.
template <class F>
Mox8u* fftBuildComplexTables(FftSpec<F>& spec, int order, QuarterSine<F> sine, Mox8u* next);

// The large path cuts 2^order numbers into rows, transformed one by one, and joins these in blocks
// of columns over all rows.
template <class F>
struct FftRows {
  int order;  // of a row
  long count, length, columns;

  constexpr explicit FftRows(int whole)
      : order(whole - splitOrder(whole)),
        count(1L << splitOrder(whole)),
        length(1L << order),
        columns(1L << FftLimits<F>::tileBits) {}

 private:
  static constexpr int splitOrder(int whole) {
    return whole < FftLimits<F>::largeOrder + 4 ? 4 : 8;
  }
};

namespace detail {
template <class F>
constexpr FftLargeSizes fftLevelSizes(int order) {
  constexpr long number = 2 * sizeof(F);
  const FftRows<F> rows(order);
  FftLargeSizes sizes;
  if (rows.order < FftLimits<F>::largeOrder)
    sizes = {fftRoundUp(number * rows.length + number), fftRoundUp(number * rows.length)};
  else
    sizes = fftLevelSizes<F>(rows.order);
  sizes.tables += long(sizeof(F)) << order;
  const long block = number * rows.count * rows.columns;
  if (sizes.work < block) sizes.work = block;
  return sizes;
}
}  // namespace detail

template <class F>
constexpr FftLargeSizes ownFftLargeSizes(int order) {
  constexpr int tileBits = FftLimits<F>::tileBits;
  FftLargeSizes sizes = detail::fftLevelSizes<F>(order);
  sizes.tables += long(sizeof(int)) * ((1 << (order - 2 * tileBits)) + (1 << (2 * tileBits - 2)));
  sizes.tables += fftAlignment;
  const long twoTiles = 4 * long(sizeof(F)) << 2 * tileBits;
  if (sizes.work < twoTiles) sizes.work = twoTiles;
  return sizes;
}

}  // namespace mox
