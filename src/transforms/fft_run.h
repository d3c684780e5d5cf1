// Power-of-two transforms on the tables of a good record: the statuses are the callers'. Source and
// destination may be the same arrays; `work` is aligned to 64 bytes and has the record's bufSize.
#pragma once

#include "transforms/complex_vector.h"
#include "transforms/fft_spec.h"
#include "transforms/fft_views.h"

namespace mox::transforms {

// The complex transform of 2^order numbers, multiplied by normFactor where the record asks for it.
// `order` is the record's, or one less for real kinds; View is Array or Split.
template <Direction d, class View, class F>
void ownFftRun(const FftSpec<F>& spec, typename View::Const src, View dst, int order, F* work);

// Bytes of work memory that it uses.
template <class F>
long ownFftWork(const FftSpec<F>& spec, int order) {
  return order <= fftMaxSmallOrder ? 0 : spec.bufSize;
}

// The transform of real samples to a spectrum in Perm layout, and back.
template <class F>
void runRealForward(const FftSpec<F>& spec, const F* src, F* dst, F* work);
template <class F>
void runRealInverse(const FftSpec<F>& spec, const F* src, F* dst, F* work);

}  // namespace mox::transforms
