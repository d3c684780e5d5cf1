// Single samples by way of a state.
#include "fir/fir_state.h"
#include "fir/output.h"
#include "frame/checks.h"
#include "frame/export.h"
#include "kernels/dot.h"
#include "kernels/wrapping_dot.h"

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
  const auto* window = s.store.push(convert::converted<typename C::Held>(src));
  const Sum sum = kernels::dotProduct<Sum, TapOrder::reversed>(window, s.heldTaps, s.tapsLen);
  Output<C>(s.tapsFactor, scaleFactor, SumRounding::nearEven)(&sum, dst, 1);
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
MOX_EXPORT(moxsFIROne64f_32f, firOne<Fir64f32f>);
MOX_EXPORT(moxsFIROne64fc_32fc, firOne<Fir64fc32fc>);
MOX_EXPORT(moxsFIROne32f_16s_Sfs, firOneScaled<Fir32f16s>);
MOX_EXPORT(moxsFIROne32fc_16sc_Sfs, firOneScaled<Fir32fc16sc>);
MOX_EXPORT(moxsFIROne64f_16s_Sfs, firOneScaled<Fir64f16s>);
MOX_EXPORT(moxsFIROne64fc_16sc_Sfs, firOneScaled<Fir64fc16sc>);
MOX_EXPORT(moxsFIROne64f_32s_Sfs, firOneScaled<Fir64f32s>);
MOX_EXPORT(moxsFIROne64fc_32sc_Sfs, firOneScaled<Fir64fc32sc>);
MOX_EXPORT(moxsFIROne_32s_Sfs, firOneScaled<Fir64f32s>);
MOX_EXPORT(moxsFIROne_16s_Sfs, firOneScaled<Fir16s>);
MOX_EXPORT(moxsFIROne32s_16s_Sfs, firOneScaled<Fir32s16s>);
MOX_EXPORT(moxsFIROne32sc_16sc_Sfs, firOneScaled<Fir32sc16sc>);

}  // namespace mox::fir
