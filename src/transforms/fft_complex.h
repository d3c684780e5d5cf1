// Complex power-of-two transforms on the tables of a record, for the transforms built on them. F is
// Mox32f or Mox64f, Layout is Interleaved or Split. Forward and inverse differ in the sign of i
// alone; a transform may run in place, with equal source and destination.
#pragma once

#include "transforms/fft_spec.h"
#include "transforms/fft_views.h"

namespace mox {

// Straight-line kernels by order; the scaled ones multiply the result by a factor.
template <class F, Direction d, template <class> class Layout>
struct ownFftSmall {
  using Kernel = void (*)(Layout<const F> src, Layout<F> dst);
  using ScaledKernel = void (*)(Layout<const F> src, Layout<F> dst, F factor);
  static const Kernel plain[fftMaxSmallOrder + 1];
  static const ScaledKernel scaled[fftMaxSmallOrder + 1];
};

// Orders above those, below FftLimits<F>::largeOrder. `work` has room for n elements and is
// aligned to 64 bytes.
template <class F, template <class> class Layout>
void ownFftMid(Layout<const F> src, Layout<F> dst, long n, const F* twiddle, const int* bitRev,
               F* work);
template <class F, template <class> class Layout>
void ownFftMidInv(Layout<const F> src, Layout<F> dst, long n, const F* twiddle, const int* bitRev,
                  F* work);

// Orders from FftLimits<F>::largeOrder on. These multiply by normFactor where the record asks for
// it.
template <class F, template <class> class Layout>
void ownFftLarge(const FftSpec<F>& spec, Layout<const F> src, Layout<F> dst, int order, F* work);
template <class F, template <class> class Layout>
void ownFftLargeInv(const FftSpec<F>& spec, Layout<const F> src, Layout<F> dst, int order, F* work);

// The transform of any order with the tables of the record, multiplied by normFactor where the
// record asks for it. `order` is below the record's for real kinds.
template <class F, Direction d, template <class> class Layout>
void ownFftRun(const FftSpec<F>& spec, Layout<const F> src, Layout<F> dst, int order, F* work);

// The kind of object for interleaved elements.
template <class E>
constexpr FftKind fftComplexId = sizeof(Part<E>) == 4 ? fftComplex32fc : fftComplex64fc;

// The body of the public functions on complex elements, with their arguments and statuses.
template <Direction d, class E>
MoxStatus ownFftCToC(const E* src, E* dst, const MoxsFFTSpec* spec, Mox8u* buffer);

}  // namespace mox
