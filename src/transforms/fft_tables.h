// The tables that a transform record holds.
#pragma once

#include "transforms/fft_spec.h"

namespace mox {

// A quarter wave: sin(2 pi i / 2^sinLog) for i from 0 to 2^sinLog / 4, the last one exactly 1.
template <class F>
struct QuarterSine {
  const F* values;
  int sinLog;
};

constexpr int fftConstantSineLog = 10;  // up to this order the wave is a constant of the library
template <class F>
QuarterSine<F> constantSine();

// The wave of 2^order points from single- or double-precision angles by the vector functions of
// that precision. The result is the next 64-byte boundary behind it.
template <class F>
F* ownFftSinTable(int order, F* table);

// Entry i is twice the reversal of i in order - 2 bits, for i below 2^(order - 2); a 0 follows. The
// result is the next 64-byte boundary.
Mox8u* ownFftBitRevTable(int order, int* table);

// For each stage the records that its butterflies consume: six runs of lanesOf<F> values, or of
// four where a stage has only four butterflies. The result is the next 64-byte boundary.
template <class F>
F* ownFftTwiddle(int order, QuarterSine<F> sine, F* table);

}  // namespace mox
