// The public out-of-order transforms.
#include <moxsp/dft_out_ord.h>

#include "frame/export.h"
#include "frame/work_buffer.h"
#include "transforms/dft_out_ord.h"
#include "transforms/transform_call.h"

namespace mox::transforms {
namespace {

template <Direction d, class C>
MoxStatus transform(const C* src, C* dst, const MoxsDFTOutOrdSpec* spec, Mox8u* buffer) {
  using F = Part<C>;
  if (MoxStatus s = checkCall(spec, dftOutOrdId<F>, anyNull(src, dst))) return s;
  const WorkBuffer work(buffer, spec->bufSize);
  if (work.failed()) return moxErrMemAlloc;
  ownDftOutOrd<d>(static_cast<const DftOutOrdSpec<F>&>(*spec), src, dst, work.template as<F>());
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsDFTOutOrdFwd_CToC_32fc, transform<fwd>);
MOX_EXPORT(moxsDFTOutOrdInv_CToC_32fc, transform<inv>);
MOX_EXPORT(moxsDFTOutOrdFwd_CToC_64fc, transform<fwd>);
MOX_EXPORT(moxsDFTOutOrdInv_CToC_64fc, transform<inv>);

}  // namespace mox::transforms
