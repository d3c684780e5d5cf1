// Single samples by way of a state.
#include "fir/fir_state.h"
#include "frame/checks.h"
#include "frame/export.h"
#include "kernels/dot.h"
#include "kernels/ring.h"

namespace mox::fir {
namespace {

template <class C>
MoxStatus firOneScaled(typename C::Data src, typename C::Data* dst, MoxsFIRState* state,
                       int scaleFactor) {
  using kernels::TapOrder;
  using Sum = typename C::Sum;
  if (anyNull(state, dst)) return moxErrNullPtr;
  if (MoxStatus e = requireId(state, C::ids.single)) return e;
  auto& s = stateOf<C>(state);
  const auto* window = kernels::pushSample(s.dlyLine, s.dlyIndex, s.tapsLen,
                                           convert::converted<typename C::Held>(src));
  const Sum sum = kernels::dotProduct<Sum, TapOrder::reversed>(window, s.revTaps, s.tapsLen);
  convert::giveOut(&sum, dst, 1, scaleFactor);
  return moxOk;
}

template <class C>
MoxStatus firOne(typename C::Data src, typename C::Data* dst, MoxsFIRState* state) {
  return firOneScaled<C>(src, dst, state, 0);
}

}  // namespace

MOX_EXPORT(moxsFIROne_32f, firOne<Fir32f>);
MOX_EXPORT(moxsFIROne_32fc, firOne<Fir32fc>);
MOX_EXPORT(moxsFIROne_64f, firOne<Fir64f>);
MOX_EXPORT(moxsFIROne_64fc, firOne<Fir64fc>);
MOX_EXPORT(moxsFIROne32f_16s_Sfs, firOneScaled<Fir32f16s>);

}  // namespace mox::fir
