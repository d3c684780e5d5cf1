// The mixed-radix method in single precision.
#include "transforms/dft_mixed_run.h"
#include "transforms/dft_real_odd.h"

namespace mox::transforms {

template void primeButterfly(V<Mox32f>*, const PrimeTable<Mox32f>&);
template void ownDftMixed(const DftSpec<Mox32f>&, const Array<const Mox32fc>&,
                          const Array<Mox32fc>&, Mox32f*);
template void ownDftMixed(const DftSpec<Mox32f>&, const Scaled<Array<const Mox32fc>>&,
                          const Scaled<Array<Mox32fc>>&, Mox32f*);
template void ownDftMixed(const DftSpec<Mox32f>&, const Scaled<Split<const Mox32f>>&,
                          const Scaled<Split<Mox32f>>&, Mox32f*);
template void ownDftMixed(const DftSpec<Mox32f>&, const Array<const Mox32fc>&,
                          const Scaled<Placed<Mox32fc>>&, Mox32f*);
template void ownDftMixed(const DftSpec<Mox32f>&, const Scaled<Placed<const Mox32fc>>&,
                          const Scaled<Array<Mox32fc>>&, Mox32f*);
template const Mox32fc* ownDftMixedReal(const DftSpec<Mox32f>&, const Mox32f*, Mox32f*);

}  // namespace mox::transforms
