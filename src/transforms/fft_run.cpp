// The choice between the three ways of running a complex transform, by its order alone.
#include "transforms/fft_complex.h"
#include "transforms/fft_large.h"
#include "transforms/fft_mid.h"
#include "transforms/fft_small.h"

namespace mox {

template <class F, Direction d, template <class> class Layout>
void ownFftRun(const FftSpec<F>& spec, Layout<const F> src, Layout<F> dst, int order, F* work) {
  const bool scaled = d == Direction::forward ? spec.fwdNorm : spec.invNorm;
  if (order <= fftMaxSmallOrder) {
    const auto& kernels = ownFftSmall<F, d, Layout>;
    (scaled ? kernels.scaled : kernels.plain)[order](src, dst, spec.normFactor);
  } else if (order < FftLimits<F>::largeOrder) {
    const F* const twiddle = spec.twiddle;
    ownFftMid<d>(src, dst, 1L << order, twiddle, spec.bitRev, work);
    if (scaled) dst.scale(spec.normFactor, 1L << order);
  } else {
    ownFftLarge<d>(spec, src, dst, order, scaled, work);
  }
}

#define MOX_INSTANTIATE(F, d, Layout)                                                             \
  template void ownFftRun<F, Direction::d, Layout>(const FftSpec<F>&, Layout<const F>, Layout<F>, \
                                                   int, F*)
MOX_INSTANTIATE(Mox32f, forward, Interleaved);
MOX_INSTANTIATE(Mox32f, inverse, Interleaved);
MOX_INSTANTIATE(Mox64f, forward, Interleaved);
MOX_INSTANTIATE(Mox64f, inverse, Interleaved);
MOX_INSTANTIATE(Mox32f, forward, Split);
MOX_INSTANTIATE(Mox32f, inverse, Split);
MOX_INSTANTIATE(Mox64f, forward, Split);
MOX_INSTANTIATE(Mox64f, inverse, Split);

}  // namespace mox
