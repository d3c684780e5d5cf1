// The record that drives a power-of-two transform. The figures that the size queries report are
// those of these fields with pointers: 88 and 96 bytes, and 64 for the alignment of the block.
#pragma once

#include <moxsp/types.h>

#include "frame/elements.h"

struct MoxsFFTSpec {
  Mox32s id;  // FftKind; 0 after release
  Mox32s order;
  Mox32s fwdNorm;  // not 0: the direction multiplies by normFactor
  Mox32s invNorm;
};

namespace mox {

enum FftKind : Mox32s {
  fftComplex32fc = 4,
  fftComplex32f = 5,
  fftReal32f = 6,
  fftComplex64fc = 7,
  fftComplex64f = 8,
  fftReal64f = 9
};

constexpr int fftMaxDepth = 2;  // levels of rows on the large path

// The whole record for data of type F, Mox32f or Mox64f.
template <class F>
struct FftSpec : MoxsFFTSpec {
  F normFactor;
  Mox32s hint;       // the caller's, stored untouched
  Mox32s bufSize;    // bytes of work buffer that a run needs, 0 for none
  Mox32s allocated;  // 1 when InitAlloc took the block at specMem
  Mox8u* specMem;
  int* bitRev;                   // bit-reversal table
  F* twiddle;                    // stage twiddles, of the rows on the large path
  F* realFwdTwiddle;             // real kinds: post-processing of the forward transform
  F* realInvTwiddle;             // real kinds: pre-processing of the inverse one
  F* levelTwiddle[fftMaxDepth];  // large path: outer twiddles, by depth of recursion
};

static_assert(sizeof(FftSpec<Mox32f>) == 88 && sizeof(FftSpec<Mox64f>) == 96);

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
constexpr int fftMaxSmallOrder = 6;      // straight-line complex kernels up to here
constexpr int fftMaxSmallRealOrder = 4;  // straight-line real kernels up to here

// The block of a record, and every table in it, starts on a multiple of this.
constexpr int fftAlignment = 64;
constexpr long fftRoundUp(long bytes) { return (bytes + fftAlignment - 1) & -long(fftAlignment); }

}  // namespace mox
