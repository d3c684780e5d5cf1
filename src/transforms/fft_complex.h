// Complex power-of-two transforms on the tables of a record. F is Mox32f or Mox64f, Layout is
// Interleaved or Split; source and destination may be the same arrays.
#pragma once

#include "transforms/fft_spec.h"
#include "transforms/fft_views.h"

namespace mox {

// The transform of any order with the tables of the record, multiplied by normFactor where the
// record asks for it. `order` is the record's, or one less for real kinds; `work` is aligned to 64
// bytes and has the record's bufSize.
template <class F, Direction d, template <class> class Layout>
void ownFftRun(const FftSpec<F>& spec, Layout<const F> src, Layout<F> dst, int order, F* work);

// The kind of object for interleaved elements.
template <class E>
constexpr FftKind fftComplexId = sizeof(Part<E>) == 4 ? fftComplex32fc : fftComplex64fc;

// The body of the public functions on complex elements, with their arguments and statuses.
template <Direction d, class E>
MoxStatus ownFftCToC(const E* src, E* dst, const MoxsFFTSpec* spec, Mox8u* buffer);

}  // namespace mox
