// The record that drives a power-of-two transform, and the orders at which the methods change.
#pragma once

#include <moxsp/types.h>

#include "frame/elements.h"

struct MoxsFFTSpec {
  Mox32s id;  // FftKind; 0 after release
  Mox32s order;
  Mox32s fwdNorm;  // not 0: the direction multiplies by normFactor
  Mox32s invNorm;
  Mox32s hint;     // the caller's, stored untouched
  Mox32s bufSize;  // bytes of work buffer that a run needs, 0 for none
  Mox32s owned;    // 1 when InitAlloc took the memory
};

namespace mox::transforms {

enum FftKind : Mox32s {
  fftComplex16sc = 1,
  fftComplex16s = 2,
  fftReal16s = 3,
  fftComplex32fc = 4,
  fftComplex32f = 5,
  fftReal32f = 6,
  fftComplex64fc = 7,
  fftComplex64f = 8,
  fftReal64f = 9,
  fftComplex32sc = 0x434D414C,
  fftComplex32s = 0x434D414D,
  fftReal32s = 0x434D414E,
  fftReal16s32s = 0x434D414F
};

constexpr int fftMaxDepth = 2;  // levels of rows on the large path

// The whole record for data of type F, Mox32f or Mox64f.
template <class F>
struct FftSpec : MoxsFFTSpec {
  F normFactor;
  int* bitRev;                   // bit-reversal table
  F* twiddle;                    // stage twiddles, of the rows on the large path
  F* realFwdTwiddle;             // real kinds: post-processing of the forward transform
  F* realInvTwiddle;             // real kinds: pre-processing of the inverse one
  F* levelTwiddle[fftMaxDepth];  // large path: outer twiddles, by depth of recursion
};

// Orders at which the methods change.
template <class F>
struct FftLimits;
template <>
struct FftLimits<Mox32f> {
  static constexpr int maxComplexOrder = 28;
  static constexpr int largeOrder = 19;  // from here on complex transforms run blocked
  static constexpr int tileBits = 6;     // log2 of a reordering tile's side
  static constexpr long inCache = 2048;  // elements that the stages finish before moving on
};
template <>
struct FftLimits<Mox64f> {
  static constexpr int maxComplexOrder = 27;
  static constexpr int largeOrder = 18;
  static constexpr int tileBits = 5;
  static constexpr long inCache = 1024;
};
constexpr int fftMaxSmallOrder = 8;      // straight-line complex kernels up to here
constexpr int fftMaxSmallRealOrder = 4;  // straight-line real kernels up to here
constexpr int fftLastBareOrder = 6;      // complex transforms hold no tables up to here

// A record, its tables, and the work buffer of a run start on multiples of this.
constexpr int fftAlignment = 64;
// Bytes up to the next of them.
constexpr long wholeLines(long bytes) { return (bytes + fftAlignment - 1) & -long(fftAlignment); }

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

// From this order on the tables of real transforms have two levels: W[b * fineTwiddles + i] is the
// product of the coarse entry b and the fine entry i, for i = 1 to fineTwiddles. Both tables would
// fill half the data's space in cache otherwise.
constexpr int fftTwoLevelOrder = 18;
template <class F>
constexpr long fineTwiddles = 4096 / sizeof(F);

}  // namespace mox::transforms
