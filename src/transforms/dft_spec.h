// The record that drives a DFT of any length.
#pragma once

#include "frame/vec/core.h"
#include "transforms/dft_analysis.h"
#include "transforms/fft_spec.h"
#include "transforms/length_head.h"

struct MoxsDFTSpec : mox::transforms::LengthHead {};

namespace mox::transforms {

enum DftKind : Mox32s {
  dftComplex16sc = 10,
  dftComplex16s = 11,
  dftReal16s = 12,
  dftComplex32fc = 13,
  dftComplex32f = 14,
  dftReal32f = 15,
  dftComplex64fc = 16,
  dftComplex64f = 17,
  dftReal64f = 18
};

// With a generator g of the residues of an odd prime p, the cosine and the sine of
// 2 pi g^i g^j / p stand at i + j: sums over j become products of neighbours.
template <class F>
struct PrimeTable {
  int half;            // (p - 1) / 2
  int* power;          // g^i mod p for i < half
  F *cosines, *sines;  // of 2 pi g^i / p, for a vector more than i + j comes to

  int prime() const { return 2 * half + 1; }
  static constexpr long roots(int p) { return p - 2 + lanesOf<F>; }
};

// A pass joins `radix` transforms of `rows` numbers into one, for each of `columns` columns.
template <class F>
struct DftPass {
  Mox32s radix, rows, columns;
  F* twiddle;
  PrimeTable<F>* prime;  // of a radix above 16
};

constexpr int dftMaxPasses = 12;
constexpr int mostButterfly = 16;
constexpr bool hasButterfly(int radix) { return radix <= mostButterfly; }

template <class F>
struct DftSpec : MoxsDFTSpec {
  Mox32s fwdNorm, invNorm;  // not 0: the direction multiplies by normFactor
  F normFactor;
  DftMethod method;
  Mox32s core;                         // length of the complex transform that the method computes
  Mox32s convLen;                      // of the chirp method
  Mox32s passes;                       // of the mixed method
  Mox32s realOdd;                      // not 0: on half of the rows, of real samples
  F *realFwdTwiddle, *realInvTwiddle;  // even lengths of real kinds
  PrimeTable<F>* direct;
  FftSpec<F>* fft;
  F *chirp, *filterSpectrum;
  DftSpec* conv;
  DftPass<F> pass[dftMaxPasses];
};

// What the size queries report for the record.
template <class F>
constexpr int dftRecordFigure = sizeof(F) == 4 ? 576 : 584;
static_assert(sizeof(DftSpec<Mox32f>) <= 576 && sizeof(DftSpec<Mox64f>) <= 576);

}  // namespace mox::transforms
