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
MoxStatus getTapsAlone(const MoxsFIRState* state, typename C::Tap* taps) {
  using Tap = typename C::Tap;
  if (anyNull(state, taps)) return moxErrNullPtr;
  if (MoxStatus s = requireState<C>(state)) return s;
  const auto& s = stateOf<C>(state);
  TapPhases(s.tapsLen, s.rates.up).forEachTap([&](long k, long place) {
    const auto held = s.heldTaps[place];
    if constexpr (isFloating<C>)
      store(taps + k, convert::converted<Tap>(held));
    else
      for (int i = 0; i < partsPerElement<Tap>; ++i)
        store(parts(taps + k) + i, callersTap<Part<Tap>>(parts(&held)[i], s.tapsFactor));
  });
  return moxOk;
}
template <class C>
MoxStatus getTapsAndFactor(const MoxsFIRState* state, typename C::Tap* taps, int* tapsFactor) {
  if (anyNull(tapsFactor)) return moxErrNullPtr;
  if (MoxStatus s = getTapsAlone<C>(state, taps)) return s;
  store(tapsFactor, state->tapsFactor);
  return moxOk;
}

template <class C>
MoxStatus setTapsAndFactor(const typename C::Tap* taps, MoxsFIRState* state, int tapsFactor) {
  if (anyNull(taps, state)) return moxErrNullPtr;
  if (MoxStatus s = requireState<C>(state)) return s;
  writeTaps<C>(stateOf<C>(state), taps, tapsFactor);
  return moxOk;
}
template <class C>
MoxStatus setTapsAlone(const typename C::Tap* taps, MoxsFIRState* state) {
  return setTapsAndFactor<C>(taps, state, 0);
}

template <class C>
constexpr auto getTaps = [] {
  if constexpr (takesFactor<C>)
    return getTapsAndFactor<C>;
  else
    return getTapsAlone<C>;
}();
template <class C>
constexpr auto setTaps = [] {
  if constexpr (takesFactor<C>)
    return setTapsAndFactor<C>;
  else
    return setTapsAlone<C>;
}();

template <class C>
MoxStatus getDlyLine(const MoxsFIRState* state, typename C::Data* dlyLine) {
  if (anyNull(state, dlyLine)) return moxErrNullPtr;
  if (MoxStatus s = requireState<C>(state)) return s;
  stateOf<C>(state).store.getLine(dlyLine);
  return moxOk;
}

template <class C>
MoxStatus setDlyLine(MoxsFIRState* state, const typename C::Data* dlyLine) {
  if (anyNull(state)) return moxErrNullPtr;
  if (MoxStatus s = requireState<C>(state)) return s;
  stateOf<C>(state).store.setLine(dlyLine);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsFIRGetTaps_32f, getTaps<Fir32f>);
MOX_EXPORT(moxsFIRGetTaps_32fc, getTaps<Fir32fc>);
MOX_EXPORT(moxsFIRGetTaps_64f, getTaps<Fir64f>);
MOX_EXPORT(moxsFIRGetTaps_64fc, getTaps<Fir64fc>);
MOX_EXPORT(moxsFIRGetTaps64f_32f, getTaps<Fir64f32f>);
MOX_EXPORT(moxsFIRGetTaps64fc_32fc, getTaps<Fir64fc32fc>);
MOX_EXPORT(moxsFIRGetTaps32f_16s, getTaps<Fir32f16s>);
MOX_EXPORT(moxsFIRGetTaps32fc_16sc, getTaps<Fir32fc16sc>);
MOX_EXPORT(moxsFIRGetTaps64f_16s, getTaps<Fir64f16s>);
MOX_EXPORT(moxsFIRGetTaps64fc_16sc, getTaps<Fir64fc16sc>);
MOX_EXPORT(moxsFIRGetTaps64f_32s, getTaps<Fir64f32s>);
MOX_EXPORT(moxsFIRGetTaps64fc_32sc, getTaps<Fir64fc32sc>);
MOX_EXPORT(moxsFIRGetTaps_32s, getTaps<Fir32s>);
MOX_EXPORT(moxsFIRGetTaps_16s, getTaps<Fir16s>);
MOX_EXPORT(moxsFIRGetTaps32s_16s, getTaps<Fir32s16s>);
MOX_EXPORT(moxsFIRGetTaps32sc_16sc, getTaps<Fir32sc16sc>);
MOX_EXPORT(moxsFIRGetTaps32s_16s32f, getTaps<Fir32s16s32f>);
MOX_EXPORT(moxsFIRGetTaps32sc_16sc32fc, getTaps<Fir32sc16sc32fc>);

MOX_EXPORT(moxsFIRSetTaps_32f, setTaps<Fir32f>);
MOX_EXPORT(moxsFIRSetTaps_32fc, setTaps<Fir32fc>);
MOX_EXPORT(moxsFIRSetTaps_64f, setTaps<Fir64f>);
MOX_EXPORT(moxsFIRSetTaps_64fc, setTaps<Fir64fc>);
MOX_EXPORT(moxsFIRSetTaps64f_32f, setTaps<Fir64f32f>);
MOX_EXPORT(moxsFIRSetTaps64fc_32fc, setTaps<Fir64fc32fc>);
MOX_EXPORT(moxsFIRSetTaps32f_16s, setTaps<Fir32f16s>);
MOX_EXPORT(moxsFIRSetTaps32fc_16sc, setTaps<Fir32fc16sc>);
MOX_EXPORT(moxsFIRSetTaps64f_16s, setTaps<Fir64f16s>);
MOX_EXPORT(moxsFIRSetTaps64fc_16sc, setTaps<Fir64fc16sc>);
MOX_EXPORT(moxsFIRSetTaps64f_32s, setTaps<Fir64f32s>);
MOX_EXPORT(moxsFIRSetTaps64fc_32sc, setTaps<Fir64fc32sc>);
MOX_EXPORT(moxsFIRSetTaps_32s, setTaps<Fir32s>);
MOX_EXPORT(moxsFIRSetTaps_16s, setTaps<Fir16s>);
MOX_EXPORT(moxsFIRSetTaps32s_16s, setTaps<Fir32s16s>);
MOX_EXPORT(moxsFIRSetTaps32sc_16sc, setTaps<Fir32sc16sc>);
MOX_EXPORT(moxsFIRSetTaps32s_16s32f, setTaps<Fir32s16s32f>);
MOX_EXPORT(moxsFIRSetTaps32sc_16sc32fc, setTaps<Fir32sc16sc32fc>);

MOX_EXPORT(moxsFIRGetDlyLine_32f, getDlyLine<Fir32f>);
MOX_EXPORT(moxsFIRGetDlyLine_32fc, getDlyLine<Fir32fc>);
MOX_EXPORT(moxsFIRGetDlyLine_64f, getDlyLine<Fir64f>);
MOX_EXPORT(moxsFIRGetDlyLine_64fc, getDlyLine<Fir64fc>);
MOX_EXPORT(moxsFIRGetDlyLine64f_32f, getDlyLine<Fir64f32f>);
MOX_EXPORT(moxsFIRGetDlyLine64fc_32fc, getDlyLine<Fir64fc32fc>);
MOX_EXPORT(moxsFIRGetDlyLine32f_16s, getDlyLine<Fir32f16s>);
MOX_EXPORT(moxsFIRGetDlyLine32fc_16sc, getDlyLine<Fir32fc16sc>);
MOX_EXPORT(moxsFIRGetDlyLine64f_16s, getDlyLine<Fir64f16s>);
MOX_EXPORT(moxsFIRGetDlyLine64fc_16sc, getDlyLine<Fir64fc16sc>);
MOX_EXPORT(moxsFIRGetDlyLine64f_32s, getDlyLine<Fir64f32s>);
MOX_EXPORT(moxsFIRGetDlyLine64fc_32sc, getDlyLine<Fir64fc32sc>);
MOX_EXPORT(moxsFIRGetDlyLine_16s, getDlyLine<Fir16s>);
MOX_EXPORT(moxsFIRGetDlyLine32s_16s, getDlyLine<Fir32s16s>);
MOX_EXPORT(moxsFIRGetDlyLine32sc_16sc, getDlyLine<Fir32sc16sc>);

MOX_EXPORT(moxsFIRSetDlyLine_32f, setDlyLine<Fir32f>);
MOX_EXPORT(moxsFIRSetDlyLine_32fc, setDlyLine<Fir32fc>);
MOX_EXPORT(moxsFIRSetDlyLine_64f, setDlyLine<Fir64f>);
MOX_EXPORT(moxsFIRSetDlyLine_64fc, setDlyLine<Fir64fc>);
MOX_EXPORT(moxsFIRSetDlyLine64f_32f, setDlyLine<Fir64f32f>);
MOX_EXPORT(moxsFIRSetDlyLine64fc_32fc, setDlyLine<Fir64fc32fc>);
MOX_EXPORT(moxsFIRSetDlyLine32f_16s, setDlyLine<Fir32f16s>);
MOX_EXPORT(moxsFIRSetDlyLine32fc_16sc, setDlyLine<Fir32fc16sc>);
MOX_EXPORT(moxsFIRSetDlyLine64f_16s, setDlyLine<Fir64f16s>);
MOX_EXPORT(moxsFIRSetDlyLine64fc_16sc, setDlyLine<Fir64fc16sc>);
MOX_EXPORT(moxsFIRSetDlyLine64f_32s, setDlyLine<Fir64f32s>);
MOX_EXPORT(moxsFIRSetDlyLine64fc_32sc, setDlyLine<Fir64fc32sc>);
MOX_EXPORT(moxsFIRSetDlyLine_16s, setDlyLine<Fir16s>);
MOX_EXPORT(moxsFIRSetDlyLine32s_16s, setDlyLine<Fir32s16s>);
MOX_EXPORT(moxsFIRSetDlyLine32sc_16sc, setDlyLine<Fir32sc16sc>);

}  // namespace mox::fir
