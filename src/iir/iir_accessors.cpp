// What a caller may replace in an IIR state and read from it.
#include "frame/checks.h"
#include "frame/export.h"
#include "iir/iir_delay_line.h"
#include "iir/iir_taps.h"

namespace mox::iir {
namespace {

template <class C>
MoxStatus setTapsScaled(const typename C::Tap* taps, MoxsIIRState* state, int tapsFactor) {
  if (anyNull(taps, state)) return moxErrNullPtr;
  if (MoxStatus e = requireId(state, C::ar, C::biquad)) return e;
  auto& s = stateOf<C>(state);
  const HeldTaps<C> held(taps, 2L * (s.order + 1) * s.sections, tapsFactor);
  if (held.failed()) return moxErrMemAlloc;
  return setTaps(s, held.get(), !isOneOf(state, C::ar));
}

// Floats have no factor.
template <class C>
MoxStatus setTaps(const typename C::Tap* taps, MoxsIIRState* state) {
  return setTapsScaled<C>(taps, state, 0);
}

// Delay lines with elements of the type Line, of the states with these identifiers.
template <class C, class Line, Mox32s... ids>
MoxStatus getDlyLineAs(const MoxsIIRState* state, Line* dlyLine) {
  if (anyNull(state, dlyLine)) return moxErrNullPtr;
  if (MoxStatus e = requireId(state, ids...)) return e;
  readDelayLine(stateOf<C>(state), dlyLine);
  return moxOk;
}
template <class C, class Line, Mox32s... ids>
MoxStatus setDlyLineAs(MoxsIIRState* state, const Line* dlyLine) {
  if (anyNull(state)) return moxErrNullPtr;
  if (MoxStatus e = requireId(state, ids...)) return e;
  writeDelayLine(stateOf<C>(state), dlyLine);
  return moxOk;
}

template <class C>
constexpr auto getDlyLine = getDlyLineAs<C, typename C::Held, C::ar, C::biquad>;
template <class C>
constexpr auto setDlyLine = setDlyLineAs<C, typename C::Held, C::ar, C::biquad>;

}  // namespace

MOX_EXPORT(moxsIIRSetTaps32f_16s, setTaps<Iir32f16s>);
MOX_EXPORT(moxsIIRSetTaps32fc_16sc, setTaps<Iir32fc16sc>);
MOX_EXPORT(moxsIIRSetTaps32s_16s, setTapsScaled<Iir32s16s>);
MOX_EXPORT(moxsIIRSetTaps32sc_16sc, setTapsScaled<Iir32sc16sc>);
MOX_EXPORT(moxsIIRSetTaps64f_16s, setTaps<Iir64f16s>);
MOX_EXPORT(moxsIIRSetTaps64f_32f, setTaps<Iir64f32f>);
MOX_EXPORT(moxsIIRSetTaps64f_32s, setTaps<Iir64f32s>);
MOX_EXPORT(moxsIIRSetTaps64fc_16sc, setTaps<Iir64fc16sc>);
MOX_EXPORT(moxsIIRSetTaps64fc_32fc, setTaps<Iir64fc32fc>);
MOX_EXPORT(moxsIIRSetTaps64fc_32sc, setTaps<Iir64fc32sc>);
MOX_EXPORT(moxsIIRSetTaps_32f, setTaps<Iir32f>);
MOX_EXPORT(moxsIIRSetTaps_32fc, setTaps<Iir32fc>);
MOX_EXPORT(moxsIIRSetTaps_64f, setTaps<Iir64f>);
MOX_EXPORT(moxsIIRSetTaps_64fc, setTaps<Iir64fc>);
MOX_EXPORT(moxsIIRSetTaps32s_16s32f, setTaps<Iir32s16s32f>);
MOX_EXPORT(moxsIIRSetTaps32sc_16sc32fc, setTaps<Iir32sc16sc32fc>);

MOX_EXPORT(moxsIIRGetDlyLine32f_16s, getDlyLine<Iir32f16s>);
MOX_EXPORT(moxsIIRGetDlyLine32fc_16sc, getDlyLine<Iir32fc16sc>);
MOX_EXPORT(moxsIIRGetDlyLine32s_16s, getDlyLine<Iir32s16s>);
MOX_EXPORT(moxsIIRGetDlyLine32sc_16sc, getDlyLine<Iir32sc16sc>);
MOX_EXPORT(moxsIIRGetDlyLine64f_16s, getDlyLine<Iir64f16s>);
MOX_EXPORT(moxsIIRGetDlyLine64f_32f, getDlyLine<Iir64f32f>);
MOX_EXPORT(moxsIIRGetDlyLine64f_32s, getDlyLine<Iir64f32s>);
MOX_EXPORT(moxsIIRGetDlyLine64fc_16sc, getDlyLine<Iir64fc16sc>);
MOX_EXPORT(moxsIIRGetDlyLine64fc_32fc, getDlyLine<Iir64fc32fc>);
MOX_EXPORT(moxsIIRGetDlyLine64fc_32sc, getDlyLine<Iir64fc32sc>);
MOX_EXPORT(moxsIIRGetDlyLine_32f,
           getDlyLineAs<Iir32f, Mox32f, Iir32f::ar, Iir32f::biquad, Iir32f::directForm1>);
MOX_EXPORT(moxsIIRGetDlyLine_32fc, getDlyLine<Iir32fc>);
MOX_EXPORT(moxsIIRGetDlyLine_64f, getDlyLine<Iir64f>);
MOX_EXPORT(moxsIIRGetDlyLine_64fc, getDlyLine<Iir64fc>);
MOX_EXPORT(moxsIIRGetDlyLine64f_DF1_32s, getDlyLineAs<Iir64f32s, Mox32s, Iir64f32s::directForm1>);

MOX_EXPORT(moxsIIRSetDlyLine32f_16s, setDlyLine<Iir32f16s>);
MOX_EXPORT(moxsIIRSetDlyLine32fc_16sc, setDlyLine<Iir32fc16sc>);
MOX_EXPORT(moxsIIRSetDlyLine32s_16s, setDlyLine<Iir32s16s>);
MOX_EXPORT(moxsIIRSetDlyLine32sc_16sc, setDlyLine<Iir32sc16sc>);
MOX_EXPORT(moxsIIRSetDlyLine64f_16s, setDlyLine<Iir64f16s>);
MOX_EXPORT(moxsIIRSetDlyLine64f_32f, setDlyLine<Iir64f32f>);
MOX_EXPORT(moxsIIRSetDlyLine64f_32s, setDlyLine<Iir64f32s>);
MOX_EXPORT(moxsIIRSetDlyLine64fc_16sc, setDlyLine<Iir64fc16sc>);
MOX_EXPORT(moxsIIRSetDlyLine64fc_32fc, setDlyLine<Iir64fc32fc>);
MOX_EXPORT(moxsIIRSetDlyLine64fc_32sc, setDlyLine<Iir64fc32sc>);
MOX_EXPORT(moxsIIRSetDlyLine_32f,
           setDlyLineAs<Iir32f, Mox32f, Iir32f::ar, Iir32f::biquad, Iir32f::directForm1>);
MOX_EXPORT(moxsIIRSetDlyLine_32fc, setDlyLine<Iir32fc>);
MOX_EXPORT(moxsIIRSetDlyLine_64f, setDlyLine<Iir64f>);
MOX_EXPORT(moxsIIRSetDlyLine_64fc, setDlyLine<Iir64fc>);
MOX_EXPORT(moxsIIRSetDlyLine64f_DF1_32s, setDlyLineAs<Iir64f32s, Mox32s, Iir64f32s::directForm1>);

}  // namespace mox::iir
