// Single samples by way of a state.
#include <moxsp/fir.h>

#include "fir/fir_combination.h"
#include "fir/fir_dot.h"
#include "fir/fir_ring.h"
#include "fir/fir_state.h"
#include "frame/checks.h"
#include "frame/export.h"

namespace mox {
namespace {

template <class C>
MoxStatus firOneScaled(typename C::Data src, typename C::Data* dst, MoxsFIRState* state,
                       int scaleFactor) {
  using A = typename C::Acc;
  if (anyNull(state, dst)) return moxErrNullPtr;
  if (MoxStatus e = requireId(state, C::singleRate)) return e;
  auto& s = stateOf<A>(state);
  const A* window = pushSample(s.dlyLine, s.dlyIndex, s.tapsLen, converted<A>(src));
  const A sum = dotProduct<A, TapOrder::reversed>(window, s.revTaps, s.tapsLen);
  C::leave(&sum, dst, 1, scaleFactor);
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

}  // namespace mox
