// The life of IIR states.
#include "iir/iir_state.h"

#include "frame/export.h"
#include "iir/iir_delay_line.h"
#include "iir/iir_taps.h"

namespace mox::iir {
namespace {

// The caller's delay line: raw samples in direct form I, else sums in the type of the state.
template <class C, Form form>
using DlyLine = std::conditional_t<form == Form::directForm1, typename C::Data, typename C::Held>;

template <class C, Form form>
MoxStatus getStateSize(int count, int* size) {
  if (anyNull(size)) return moxErrNullPtr;
  const Shape shape = {form, count};
  if (count < 1 || !fitsInInt<Kind<C>>(shape)) return moxErrIirOrder;
  store(size, int(objectBytes<Kind<C>>(shape)));
  return moxOk;
}

// Writes the contents of a state.
template <class C, Form form>
auto contents(const HeldTaps<C>& taps, const DlyLine<C, form>* dlyLine) {
  return [&taps, dlyLine](StateOf<C>& s) {
    writeDelayLine(s, dlyLine);
    return setTaps(s, taps.get(), form != Form::ar);
  };
}

template <class C, Form form>
MoxStatus initScaled(MoxsIIRState** state, const typename C::Tap* taps, int count, int tapsFactor,
                     const DlyLine<C, form>* dlyLine, Mox8u* buffer) {
  if (anyNull(state, taps, buffer)) return moxErrNullPtr;
  const Shape shape = {form, count};
  if (count < 1 || !fitsInInt<Kind<C>>(shape)) return moxErrIirOrder;
  const HeldTaps<C> held(taps, shape.taps(), tapsFactor);
  if (held.failed()) return moxErrMemAlloc;
  return mox::init<Kind<C>>(state, C::idOf(form), shape, buffer, contents<C, form>(held, dlyLine));
}
template <class C, Form form>
MoxStatus initAllocScaled(MoxsIIRState** state, const typename C::Tap* taps, int count,
                          int tapsFactor, const DlyLine<C, form>* dlyLine) {
  if (anyNull(state, taps)) return moxErrNullPtr;
  if (count < 1) return moxErrIirOrder;
  const Shape shape = {form, count};
  if (!fitsInInt<Kind<C>>(shape)) return moxErrMemAlloc;
  const HeldTaps<C> held(taps, shape.taps(), tapsFactor);
  if (held.failed()) return moxErrMemAlloc;
  return mox::initAlloc<Kind<C>>(state, C::idOf(form), shape, contents<C, form>(held, dlyLine));
}

// Floats have no factor.
template <class C, Form form>
MoxStatus init(MoxsIIRState** state, const typename C::Tap* taps, int count,
               const DlyLine<C, form>* dlyLine, Mox8u* buffer) {
  return initScaled<C, form>(state, taps, count, 0, dlyLine, buffer);
}
template <class C, Form form>
MoxStatus initAlloc(MoxsIIRState** state, const typename C::Tap* taps, int count,
                    const DlyLine<C, form>* dlyLine) {
  return initAllocScaled<C, form>(state, taps, count, 0, dlyLine);
}

template <class C>
MoxStatus free(MoxsIIRState* state) {
  return release<Kind<C>>(state, C::ar, C::biquad, C::directForm1);
}

}  // namespace

MOX_EXPORT(moxsIIRGetStateSize32f_16s, getStateSize<Iir32f16s, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize32f_BiQuad_16s, getStateSize<Iir32f16s, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize32fc_16sc, getStateSize<Iir32fc16sc, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize32fc_BiQuad_16sc, getStateSize<Iir32fc16sc, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize32s_16s, getStateSize<Iir32s16s, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize32s_BiQuad_16s, getStateSize<Iir32s16s, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize32sc_16sc, getStateSize<Iir32sc16sc, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize32sc_BiQuad_16sc, getStateSize<Iir32sc16sc, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize64f_16s, getStateSize<Iir64f16s, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize64f_BiQuad_16s, getStateSize<Iir64f16s, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize64f_32f, getStateSize<Iir64f32f, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize64f_BiQuad_32f, getStateSize<Iir64f32f, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize64f_32s, getStateSize<Iir64f32s, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize64f_BiQuad_32s, getStateSize<Iir64f32s, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize64fc_16sc, getStateSize<Iir64fc16sc, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize64fc_BiQuad_16sc, getStateSize<Iir64fc16sc, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize64fc_32fc, getStateSize<Iir64fc32fc, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize64fc_BiQuad_32fc, getStateSize<Iir64fc32fc, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize64fc_32sc, getStateSize<Iir64fc32sc, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize64fc_BiQuad_32sc, getStateSize<Iir64fc32sc, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize_32f, getStateSize<Iir32f, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize_BiQuad_32f, getStateSize<Iir32f, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize_32fc, getStateSize<Iir32fc, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize_BiQuad_32fc, getStateSize<Iir32fc, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize_64f, getStateSize<Iir64f, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize_BiQuad_64f, getStateSize<Iir64f, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize_64fc, getStateSize<Iir64fc, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize_BiQuad_64fc, getStateSize<Iir64fc, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize32s_16s32f, getStateSize<Iir32s16s32f, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize32s_BiQuad_16s32f, getStateSize<Iir32s16s32f, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize32sc_16sc32fc, getStateSize<Iir32sc16sc32fc, Form::ar>);
MOX_EXPORT(moxsIIRGetStateSize32sc_BiQuad_16sc32fc, getStateSize<Iir32sc16sc32fc, Form::biquad>);
MOX_EXPORT(moxsIIRGetStateSize_BiQuad_DF1_32f, getStateSize<Iir32f, Form::directForm1>);
MOX_EXPORT(moxsIIRGetStateSize64f_BiQuad_DF1_32s, getStateSize<Iir64f32s, Form::directForm1>);

MOX_EXPORT(moxsIIRInit32f_16s, init<Iir32f16s, Form::ar>);
MOX_EXPORT(moxsIIRInit32f_BiQuad_16s, init<Iir32f16s, Form::biquad>);
MOX_EXPORT(moxsIIRInit32fc_16sc, init<Iir32fc16sc, Form::ar>);
MOX_EXPORT(moxsIIRInit32fc_BiQuad_16sc, init<Iir32fc16sc, Form::biquad>);
MOX_EXPORT(moxsIIRInit32s_16s, initScaled<Iir32s16s, Form::ar>);
MOX_EXPORT(moxsIIRInit32s_BiQuad_16s, initScaled<Iir32s16s, Form::biquad>);
MOX_EXPORT(moxsIIRInit32sc_16sc, initScaled<Iir32sc16sc, Form::ar>);
MOX_EXPORT(moxsIIRInit32sc_BiQuad_16sc, initScaled<Iir32sc16sc, Form::biquad>);
MOX_EXPORT(moxsIIRInit64f_16s, init<Iir64f16s, Form::ar>);
MOX_EXPORT(moxsIIRInit64f_BiQuad_16s, init<Iir64f16s, Form::biquad>);
MOX_EXPORT(moxsIIRInit64f_32f, init<Iir64f32f, Form::ar>);
MOX_EXPORT(moxsIIRInit64f_BiQuad_32f, init<Iir64f32f, Form::biquad>);
MOX_EXPORT(moxsIIRInit64f_32s, init<Iir64f32s, Form::ar>);
MOX_EXPORT(moxsIIRInit64f_BiQuad_32s, init<Iir64f32s, Form::biquad>);
MOX_EXPORT(moxsIIRInit64fc_16sc, init<Iir64fc16sc, Form::ar>);
MOX_EXPORT(moxsIIRInit64fc_BiQuad_16sc, init<Iir64fc16sc, Form::biquad>);
MOX_EXPORT(moxsIIRInit64fc_32fc, init<Iir64fc32fc, Form::ar>);
MOX_EXPORT(moxsIIRInit64fc_BiQuad_32fc, init<Iir64fc32fc, Form::biquad>);
MOX_EXPORT(moxsIIRInit64fc_32sc, init<Iir64fc32sc, Form::ar>);
MOX_EXPORT(moxsIIRInit64fc_BiQuad_32sc, init<Iir64fc32sc, Form::biquad>);
MOX_EXPORT(moxsIIRInit_32f, init<Iir32f, Form::ar>);
MOX_EXPORT(moxsIIRInit_BiQuad_32f, init<Iir32f, Form::biquad>);
MOX_EXPORT(moxsIIRInit_32fc, init<Iir32fc, Form::ar>);
MOX_EXPORT(moxsIIRInit_BiQuad_32fc, init<Iir32fc, Form::biquad>);
MOX_EXPORT(moxsIIRInit_64f, init<Iir64f, Form::ar>);
MOX_EXPORT(moxsIIRInit_BiQuad_64f, init<Iir64f, Form::biquad>);
MOX_EXPORT(moxsIIRInit_64fc, init<Iir64fc, Form::ar>);
MOX_EXPORT(moxsIIRInit_BiQuad_64fc, init<Iir64fc, Form::biquad>);
MOX_EXPORT(moxsIIRInit32s_16s32f, init<Iir32s16s32f, Form::ar>);
MOX_EXPORT(moxsIIRInit32s_BiQuad_16s32f, init<Iir32s16s32f, Form::biquad>);
MOX_EXPORT(moxsIIRInit32sc_16sc32fc, init<Iir32sc16sc32fc, Form::ar>);
MOX_EXPORT(moxsIIRInit32sc_BiQuad_16sc32fc, init<Iir32sc16sc32fc, Form::biquad>);
MOX_EXPORT(moxsIIRInit_BiQuad_DF1_32f, init<Iir32f, Form::directForm1>);
MOX_EXPORT(moxsIIRInit64f_BiQuad_DF1_32s, init<Iir64f32s, Form::directForm1>);

MOX_EXPORT(moxsIIRInitAlloc32f_16s, initAlloc<Iir32f16s, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc32f_BiQuad_16s, initAlloc<Iir32f16s, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc32fc_16sc, initAlloc<Iir32fc16sc, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc32fc_BiQuad_16sc, initAlloc<Iir32fc16sc, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc32s_16s, initAllocScaled<Iir32s16s, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc32s_BiQuad_16s, initAllocScaled<Iir32s16s, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc32sc_16sc, initAllocScaled<Iir32sc16sc, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc32sc_BiQuad_16sc, initAllocScaled<Iir32sc16sc, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc64f_16s, initAlloc<Iir64f16s, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc64f_BiQuad_16s, initAlloc<Iir64f16s, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc64f_32f, initAlloc<Iir64f32f, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc64f_BiQuad_32f, initAlloc<Iir64f32f, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc64f_32s, initAlloc<Iir64f32s, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc64f_BiQuad_32s, initAlloc<Iir64f32s, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc64fc_16sc, initAlloc<Iir64fc16sc, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc64fc_BiQuad_16sc, initAlloc<Iir64fc16sc, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc64fc_32fc, initAlloc<Iir64fc32fc, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc64fc_BiQuad_32fc, initAlloc<Iir64fc32fc, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc64fc_32sc, initAlloc<Iir64fc32sc, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc64fc_BiQuad_32sc, initAlloc<Iir64fc32sc, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc_32f, initAlloc<Iir32f, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc_BiQuad_32f, initAlloc<Iir32f, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc_32fc, initAlloc<Iir32fc, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc_BiQuad_32fc, initAlloc<Iir32fc, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc_64f, initAlloc<Iir64f, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc_BiQuad_64f, initAlloc<Iir64f, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc_64fc, initAlloc<Iir64fc, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc_BiQuad_64fc, initAlloc<Iir64fc, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc32s_16s32f, initAlloc<Iir32s16s32f, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc32s_BiQuad_16s32f, initAlloc<Iir32s16s32f, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc32sc_16sc32fc, initAlloc<Iir32sc16sc32fc, Form::ar>);
MOX_EXPORT(moxsIIRInitAlloc32sc_BiQuad_16sc32fc, initAlloc<Iir32sc16sc32fc, Form::biquad>);
MOX_EXPORT(moxsIIRInitAlloc_BiQuad_DF1_32f, initAlloc<Iir32f, Form::directForm1>);
MOX_EXPORT(moxsIIRInitAlloc64f_BiQuad_DF1_32s, initAlloc<Iir64f32s, Form::directForm1>);

MOX_EXPORT(moxsIIRFree32f_16s, free<Iir32f16s>);
MOX_EXPORT(moxsIIRFree32fc_16sc, free<Iir32fc16sc>);
MOX_EXPORT(moxsIIRFree32s_16s, free<Iir32s16s>);
MOX_EXPORT(moxsIIRFree32sc_16sc, free<Iir32sc16sc>);
MOX_EXPORT(moxsIIRFree64f_16s, free<Iir64f16s>);
MOX_EXPORT(moxsIIRFree64f_32f, free<Iir64f32f>);
MOX_EXPORT(moxsIIRFree64f_32s, free<Iir64f32s>);
MOX_EXPORT(moxsIIRFree64fc_16sc, free<Iir64fc16sc>);
MOX_EXPORT(moxsIIRFree64fc_32fc, free<Iir64fc32fc>);
MOX_EXPORT(moxsIIRFree64fc_32sc, free<Iir64fc32sc>);
MOX_EXPORT(moxsIIRFree_32f, free<Iir32f>);
MOX_EXPORT(moxsIIRFree_32fc, free<Iir32fc>);
MOX_EXPORT(moxsIIRFree_64f, free<Iir64f>);
MOX_EXPORT(moxsIIRFree_64fc, free<Iir64fc>);

}  // namespace mox::iir
