// The transforms of a good plan: the statuses are the callers'. Sources and destinations may be the
// same arrays; `work` is aligned to 64 bytes and has the plan's bufSize.
#pragma once

#include "transforms/complex_vector.h"
#include "transforms/dft_spec.h"
#include "transforms/fft_views.h"

namespace mox::transforms {

// The complex transform of a plan, or of half the length in a real plan of even length, times the
// factor that the plan has for the direction. View is Array or Split.
template <Direction d, class View, class F>
void ownDftRun(const DftSpec<F>& plan, typename View::Const src, View dst, F* work);

// Of real plans: samples to a spectrum, and back.
template <class Layout, class F>
void ownDftRealForward(const DftSpec<F>& plan, const F* src, F* dst, F* work);
template <class Layout, class F>
void ownDftRealInverse(const DftSpec<F>& plan, const F* src, F* dst, F* work);

}  // namespace mox::transforms
