// What a caller may read and write of a FIR state.
#include "fir/fir_state.h"
#include "frame/checks.h"
#include "frame/export.h"

namespace mox::fir {
namespace {

// Single-rate and multirate states answer alike.
template <class C>
MoxStatus requireState(const MoxsFIRState* state) {
  return requireId(state, C::ids.single, C::ids.multirate);
}

template <class C>
MoxStatus getTaps(const MoxsFIRState* state, typename C::Tap* taps) {
  if (anyNull(state, taps)) return moxErrNullPtr;
  if (MoxStatus s = requireState<C>(state)) return s;
  const auto& s = stateOf<C>(state);
  for (int k = 0; k < s.tapsLen; ++k)
    store(taps + k, convert::converted<typename C::Tap>(s.revTaps[s.tapsLen - 1 - k]));
  return moxOk;
}

template <class C>
MoxStatus setTaps(const typename C::Tap* taps, MoxsFIRState* state) {
  if (anyNull(taps, state)) return moxErrNullPtr;
  if (MoxStatus s = requireState<C>(state)) return s;
  writeTaps<C>(stateOf<C>(state), taps);
  return moxOk;
}

template <class C>
MoxStatus getDlyLine(const MoxsFIRState* state, typename C::Data* dlyLine) {
  if (anyNull(state, dlyLine)) return moxErrNullPtr;
  if (MoxStatus s = requireState<C>(state)) return s;
  const auto& s = stateOf<C>(state);
  const auto* newest = s.dlyLine + s.dlyIndex + s.dlyLen - 1;
  for (int i = 0; i < s.dlyLen; ++i)
    store(dlyLine + i, convert::converted<typename C::Data>(newest[-i]));
  return moxOk;
}

template <class C>
MoxStatus setDlyLine(MoxsFIRState* state, const typename C::Data* dlyLine) {
  if (anyNull(state)) return moxErrNullPtr;
  if (MoxStatus s = requireState<C>(state)) return s;
  writeDelayLine<C>(stateOf<C>(state), dlyLine);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsFIRGetTaps_32f, getTaps<Fir32f>);
MOX_EXPORT(moxsFIRGetTaps_32fc, getTaps<Fir32fc>);
MOX_EXPORT(moxsFIRGetTaps_64f, getTaps<Fir64f>);
MOX_EXPORT(moxsFIRGetTaps_64fc, getTaps<Fir64fc>);
MOX_EXPORT(moxsFIRGetTaps32f_16s, getTaps<Fir32f16s>);

MOX_EXPORT(moxsFIRSetTaps_32f, setTaps<Fir32f>);
MOX_EXPORT(moxsFIRSetTaps_32fc, setTaps<Fir32fc>);
MOX_EXPORT(moxsFIRSetTaps_64f, setTaps<Fir64f>);
MOX_EXPORT(moxsFIRSetTaps_64fc, setTaps<Fir64fc>);
MOX_EXPORT(moxsFIRSetTaps32f_16s, setTaps<Fir32f16s>);

MOX_EXPORT(moxsFIRGetDlyLine_32f, getDlyLine<Fir32f>);
MOX_EXPORT(moxsFIRGetDlyLine_32fc, getDlyLine<Fir32fc>);
MOX_EXPORT(moxsFIRGetDlyLine_64f, getDlyLine<Fir64f>);
MOX_EXPORT(moxsFIRGetDlyLine_64fc, getDlyLine<Fir64fc>);
MOX_EXPORT(moxsFIRGetDlyLine32f_16s, getDlyLine<Fir32f16s>);

MOX_EXPORT(moxsFIRSetDlyLine_32f, setDlyLine<Fir32f>);
MOX_EXPORT(moxsFIRSetDlyLine_32fc, setDlyLine<Fir32fc>);
MOX_EXPORT(moxsFIRSetDlyLine_64f, setDlyLine<Fir64f>);
MOX_EXPORT(moxsFIRSetDlyLine_64fc, setDlyLine<Fir64fc>);
MOX_EXPORT(moxsFIRSetDlyLine32f_16s, setDlyLine<Fir32f16s>);

}  // namespace mox::fir
