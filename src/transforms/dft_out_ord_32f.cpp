// The out-of-order DFT in single precision.
#include "transforms/dft_out_ord_run.h"

namespace mox::transforms {

template void ownDftOutOrd<Direction::forward>(const DftOutOrdSpec<Mox32f>&, const Mox32fc*,
                                               Mox32fc*, Mox32f*);
template void ownDftOutOrd<Direction::inverse>(const DftOutOrdSpec<Mox32f>&, const Mox32fc*,
                                               Mox32fc*, Mox32f*);

}  // namespace mox::transforms
