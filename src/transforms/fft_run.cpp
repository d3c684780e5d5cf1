// The choice between the three ways of running a complex transform, by its order alone.
#include "transforms/fft_run.h"

#include "transforms/fft_large.h"
#include "transforms/fft_mid.h"
#include "transforms/fft_small.h"

namespace mox::transforms {

template <Direction d, class View, class F>
void ownFftRun(const FftSpec<F>& spec, typename View::Const src, View dst, int order, F* work) {
  const bool scaled = d == Direction::forward ? spec.fwdNorm : spec.invNorm;
  if (order <= fftMaxSmallOrder) {
    const auto& kernels = ownFftSmall<d, View>;
    (scaled ? kernels.scaled : kernels.plain)[order](src, dst, spec.normFactor);
  } else if (order < FftLimits<F>::largeOrder) {
    const F* const twiddle = spec.twiddle;
    ownFftMid<d, View>(src, dst, 1L << order, twiddle, spec.bitRev, work);
    if (scaled) scale(dst, spec.normFactor, 1L << order);
  } else {
    ownFftLarge<d, View>(spec, src, dst, order, scaled, work);
  }
}

#define MOX_INSTANTIATE(F, View)                                                               \
  template void ownFftRun<Direction::forward, View>(const FftSpec<F>&, View::Const, View, int, \
                                                    F*);                                       \
  template void ownFftRun<Direction::inverse, View>(const FftSpec<F>&, View::Const, View, int, F*)
MOX_INSTANTIATE(Mox32f, Array<Mox32fc>);
MOX_INSTANTIATE(Mox64f, Array<Mox64fc>);
MOX_INSTANTIATE(Mox32f, Split<Mox32f>);
MOX_INSTANTIATE(Mox64f, Split<Mox64f>);

}  // namespace mox::transforms
