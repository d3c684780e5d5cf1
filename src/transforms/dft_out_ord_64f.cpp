// The out-of-order DFT in double precision.
#include "transforms/dft_out_ord_run.h"

namespace mox::transforms {

template void ownDftOutOrd<Direction::forward>(const DftOutOrdSpec<Mox64f>&, const Mox64fc*,
                                               Mox64fc*, Mox64f*);
template void ownDftOutOrd<Direction::inverse>(const DftOutOrdSpec<Mox64f>&, const Mox64fc*,
                                               Mox64fc*, Mox64f*);

}  // namespace mox::transforms
