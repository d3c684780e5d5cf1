// The contents of a record's tables, which the layout has placed.
#pragma once

#include "transforms/fft_spec.h"

namespace mox::transforms {

// A quarter wave: at[i] = sin(2 pi i / 2^log) for i from 0 to 2^log / 4.
template <class F>
struct QuarterSine {
  const F* at;
  int log;
};

// Up to this order a constant table serves all transforms; larger ones build their own.
constexpr int fftConstantSineOrder = 10;

// Bytes of scratch for the quarter wave of a transform of that order, 0 for none.
template <class F>
constexpr int fftInitSize(int order) {
  if (order <= fftConstantSineOrder) return 0;
  return int(wholeLines(long(sizeof(F)) * ((1L << order) / 4 + 1))) + fftAlignment;
}

// The quarter wave that a transform of that order takes its twiddles from; `initBuf` has
// fftInitSize() bytes, at any address.
template <class F>
QuarterSine<F> quarterSine(int order, Mox8u* initBuf);

// The tables of the complex transform of that order, mid or large.
template <class F>
void fillComplexTables(const FftSpec<F>& spec, int order, QuarterSine<F> sine);

// Twiddles that join the half-length complex spectrum and the real one. With N = 2^order and
// W[k] = exp(-2 pi i k / N), the passes use k = 1 to N/4 in the order 2, 1, 4, 3, 6, 5 ... Forward:
// entries (cos / 2, 1/2 - sin / 2) of the angle 2 pi k / N, or two levels of W. Inverse: entries W,
// in one or two levels.
template <class F>
void fillRealTables(const FftSpec<F>& spec, int order, QuarterSine<F> sine);

}  // namespace mox::transforms
