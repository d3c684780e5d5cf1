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

}  // namespace mox
