// The mixed-radix method in double precision.
#include "transforms/dft_mixed_run.h"
#include "transforms/dft_real_odd.h"

namespace mox::transforms {

template void primeButterfly(V<Mox64f>*, const PrimeTable<Mox64f>&);
template void ownDftMixed(const DftSpec<Mox64f>&, const Array<const Mox64fc>&,
                          const Array<Mox64fc>&, Mox64f*);
template void ownDftMixed(const DftSpec<Mox64f>&, const Scaled<Array<const Mox64fc>>&,
                          const Scaled<Array<Mox64fc>>&, Mox64f*);
template void ownDftMixed(const DftSpec<Mox64f>&, const Scaled<Split<const Mox64f>>&,
                          const Scaled<Split<Mox64f>>&, Mox64f*);
template void ownDftMixed(const DftSpec<Mox64f>&, const Array<const Mox64fc>&,
                          const Scaled<Placed<Mox64fc>>&, Mox64f*);
template void ownDftMixed(const DftSpec<Mox64f>&, const Scaled<Placed<const Mox64fc>>&,
                          const Scaled<Array<Mox64fc>>&, Mox64f*);
template const Mox64fc* ownDftMixedReal(const DftSpec<Mox64f>&, const Mox64f*, Mox64f*);

}  // namespace mox::transforms
