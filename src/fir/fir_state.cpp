// The life of FIR states.
#include "fir/fir_state.h"

#include "frame/export.h"

namespace mox::fir {
namespace {

template <class C>
MoxStatus getStateSize(int tapsLen, int* size) {
  if (anyNull(size)) return moxErrNullPtr;
  if (tapsLen < 1) return moxErrFirLen;
  const Shape shape = shapeOf<C>(tapsLen, {}, C::leastTapsForFft);
  if (MoxStatus s = checkSize<C>(shape)) return s;
  store(size, int(objectBytes<Kind<C>>(shape)));
  return moxOk;
}

template <class C>
MoxStatus getMultirateStateSize(int tapsLen, int upFactor, int downFactor, int* size) {
  if (anyNull(size)) return moxErrNullPtr;
  if (tapsLen < 1) return moxErrFirLen;
  const Rates rates{.up = upFactor, .down = downFactor};
  if (MoxStatus s = rates.checkForSize()) return s;
  const Shape shape = shapeOf<C>(tapsLen, rates, C::leastTapsForFft);
  if (MoxStatus s = checkSize<C>(shape)) return s;
  store(size, int(objectBytes<Kind<C>>(shape)));
  return moxOk;
}

// `numbers` are those of Setup.
template <class C, class... Numbers>
MoxStatus initWith(MoxsFIRState** state, const typename C::Tap* taps, int tapsLen,
                   Numbers... numbers, const typename C::Data* dlyLine, Mox8u* buffer) {
  if (anyNull(state, taps, buffer)) return moxErrNullPtr;
  const Setup<C> setup(taps, tapsLen, dlyLine, numbers...);
  if (MoxStatus s = setup.check()) return s;
  return mox::init<Kind<C>>(state, setup.id(), setup.shape(C::leastTapsForFft), buffer, setup);
}
template <class C, class... Numbers>
MoxStatus initAllocWith(MoxsFIRState** state, const typename C::Tap* taps, int tapsLen,
                        Numbers... numbers, const typename C::Data* dlyLine) {
  if (anyNull(state, taps)) return moxErrNullPtr;
  return initAllocFrom(state, Setup<C>(taps, tapsLen, dlyLine, numbers...));
}

// With the factor of the taps where the combination takes one.
template <class C, class... Rates>
constexpr auto initOf() {
  if constexpr (takesFactor<C>)
    return initWith<C, int, Rates...>;
  else
    return initWith<C, Rates...>;
}
template <class C, class... Rates>
constexpr auto initAllocOf() {
  if constexpr (takesFactor<C>)
    return initAllocWith<C, int, Rates...>;
  else
    return initAllocWith<C, Rates...>;
}
template <class C>
constexpr auto init = initOf<C>();
template <class C>
constexpr auto initAlloc = initAllocOf<C>();
template <class C>
constexpr auto initMultirate = initOf<C, int, int, int, int>();
template <class C>
constexpr auto initAllocMultirate = initAllocOf<C, int, int, int, int>();

template <class C>
MoxStatus free(MoxsFIRState* state) {
  return release<Kind<C>>(state, C::ids.single, C::ids.multirate, C::ids.stream,
                          C::ids.streamMultirate);
}

}  // namespace

MOX_EXPORT(moxsFIRGetStateSize_32f, getStateSize<Fir32f>);
MOX_EXPORT(moxsFIRGetStateSize_32fc, getStateSize<Fir32fc>);
MOX_EXPORT(moxsFIRGetStateSize_64f, getStateSize<Fir64f>);
MOX_EXPORT(moxsFIRGetStateSize_64fc, getStateSize<Fir64fc>);
MOX_EXPORT(moxsFIRGetStateSize64f_32f, getStateSize<Fir64f>);
MOX_EXPORT(moxsFIRGetStateSize64fc_32fc, getStateSize<Fir64fc>);
MOX_EXPORT(moxsFIRGetStateSize32f_16s, getStateSize<Fir32f>);
MOX_EXPORT(moxsFIRGetStateSize32fc_16sc, getStateSize<Fir32fc>);
MOX_EXPORT(moxsFIRGetStateSize64f_16s, getStateSize<Fir64f>);
MOX_EXPORT(moxsFIRGetStateSize64fc_16sc, getStateSize<Fir64fc>);
MOX_EXPORT(moxsFIRGetStateSize64f_32s, getStateSize<Fir64f>);
MOX_EXPORT(moxsFIRGetStateSize64fc_32sc, getStateSize<Fir64fc>);
MOX_EXPORT(moxsFIRGetStateSize_32s, getStateSize<Fir32s>);
MOX_EXPORT(moxsFIRGetStateSize_16s, getStateSize<Fir16s>);
MOX_EXPORT(moxsFIRGetStateSize32s_16s, getStateSize<Fir32s16s>);
MOX_EXPORT(moxsFIRGetStateSize32sc_16sc, getStateSize<Fir32sc16sc>);
MOX_EXPORT(moxsFIRGetStateSize32s_16s32f, getStateSize<Fir32s16s>);
MOX_EXPORT(moxsFIRGetStateSize32sc_16sc32fc, getStateSize<Fir32sc16sc>);
MOX_EXPORT(moxsFIRStreamGetStateSize_32f, getStateSize<Fir32f>);

MOX_EXPORT(moxsFIRInit_32f, init<Fir32f>);
MOX_EXPORT(moxsFIRInit_32fc, init<Fir32fc>);
MOX_EXPORT(moxsFIRInit_64f, init<Fir64f>);
MOX_EXPORT(moxsFIRInit_64fc, init<Fir64fc>);
MOX_EXPORT(moxsFIRInit64f_32f, init<Fir64f32f>);
MOX_EXPORT(moxsFIRInit64fc_32fc, init<Fir64fc32fc>);
MOX_EXPORT(moxsFIRInit32f_16s, init<Fir32f16s>);
MOX_EXPORT(moxsFIRInit32fc_16sc, init<Fir32fc16sc>);
MOX_EXPORT(moxsFIRInit64f_16s, init<Fir64f16s>);
MOX_EXPORT(moxsFIRInit64fc_16sc, init<Fir64fc16sc>);
MOX_EXPORT(moxsFIRInit64f_32s, init<Fir64f32s>);
MOX_EXPORT(moxsFIRInit64fc_32sc, init<Fir64fc32sc>);
MOX_EXPORT(moxsFIRInit_32s, init<Fir32s>);
MOX_EXPORT(moxsFIRInit_16s, init<Fir16s>);
MOX_EXPORT(moxsFIRInit32s_16s, init<Fir32s16s>);
MOX_EXPORT(moxsFIRInit32sc_16sc, init<Fir32sc16sc>);
MOX_EXPORT(moxsFIRInit32s_16s32f, init<Fir32s16s32f>);
MOX_EXPORT(moxsFIRInit32sc_16sc32fc, init<Fir32sc16sc32fc>);

MOX_EXPORT(moxsFIRInitAlloc_32f, initAlloc<Fir32f>);
MOX_EXPORT(moxsFIRInitAlloc_32fc, initAlloc<Fir32fc>);
MOX_EXPORT(moxsFIRInitAlloc_64f, initAlloc<Fir64f>);
MOX_EXPORT(moxsFIRInitAlloc_64fc, initAlloc<Fir64fc>);
MOX_EXPORT(moxsFIRInitAlloc64f_32f, initAlloc<Fir64f32f>);
MOX_EXPORT(moxsFIRInitAlloc64fc_32fc, initAlloc<Fir64fc32fc>);
MOX_EXPORT(moxsFIRInitAlloc32f_16s, initAlloc<Fir32f16s>);
MOX_EXPORT(moxsFIRInitAlloc32fc_16sc, initAlloc<Fir32fc16sc>);
MOX_EXPORT(moxsFIRInitAlloc64f_16s, initAlloc<Fir64f16s>);
MOX_EXPORT(moxsFIRInitAlloc64fc_16sc, initAlloc<Fir64fc16sc>);
MOX_EXPORT(moxsFIRInitAlloc64f_32s, initAlloc<Fir64f32s>);
MOX_EXPORT(moxsFIRInitAlloc64fc_32sc, initAlloc<Fir64fc32sc>);
MOX_EXPORT(moxsFIRInitAlloc_32s, initAlloc<Fir32s>);
MOX_EXPORT(moxsFIRInitAlloc_16s, initAlloc<Fir16s>);
MOX_EXPORT(moxsFIRInitAlloc32s_16s, initAlloc<Fir32s16s>);
MOX_EXPORT(moxsFIRInitAlloc32sc_16sc, initAlloc<Fir32sc16sc>);
MOX_EXPORT(moxsFIRInitAlloc32s_16s32f, initAlloc<Fir32s16s32f>);
MOX_EXPORT(moxsFIRInitAlloc32sc_16sc32fc, initAlloc<Fir32sc16sc32fc>);

MOX_EXPORT(moxsFIRFree_32f, free<Fir32f>);
MOX_EXPORT(moxsFIRFree_32fc, free<Fir32fc>);
MOX_EXPORT(moxsFIRFree_64f, free<Fir64f>);
MOX_EXPORT(moxsFIRFree_64fc, free<Fir64fc>);
MOX_EXPORT(moxsFIRFree64f_32f, free<Fir64f32f>);
MOX_EXPORT(moxsFIRFree64fc_32fc, free<Fir64fc32fc>);
MOX_EXPORT(moxsFIRFree32f_16s, free<Fir32f16s>);
MOX_EXPORT(moxsFIRFree32fc_16sc, free<Fir32fc16sc>);
MOX_EXPORT(moxsFIRFree64f_16s, free<Fir64f16s>);
MOX_EXPORT(moxsFIRFree64fc_16sc, free<Fir64fc16sc>);
MOX_EXPORT(moxsFIRFree64f_32s, free<Fir64f32s>);
MOX_EXPORT(moxsFIRFree64fc_32sc, free<Fir64fc32sc>);
MOX_EXPORT(moxsFIRFree_32s, free<Fir32s>);
MOX_EXPORT(moxsFIRFree_16s, free<Fir16s>);
MOX_EXPORT(moxsFIRFree32s_16s, free<Fir32s16s>);
MOX_EXPORT(moxsFIRFree32sc_16sc, free<Fir32sc16sc>);

MOX_EXPORT(moxsFIRMRGetStateSize_32f, getMultirateStateSize<Fir32f>);
MOX_EXPORT(moxsFIRMRGetStateSize_32fc, getMultirateStateSize<Fir32fc>);
MOX_EXPORT(moxsFIRMRGetStateSize_64f, getMultirateStateSize<Fir64f>);
MOX_EXPORT(moxsFIRMRGetStateSize_64fc, getMultirateStateSize<Fir64fc>);
MOX_EXPORT(moxsFIRMRGetStateSize64f_32f, getMultirateStateSize<Fir64f>);
MOX_EXPORT(moxsFIRMRGetStateSize64fc_32fc, getMultirateStateSize<Fir64fc>);
MOX_EXPORT(moxsFIRMRGetStateSize32f_16s, getMultirateStateSize<Fir32f>);
MOX_EXPORT(moxsFIRMRGetStateSize32fc_16sc, getMultirateStateSize<Fir32fc>);
MOX_EXPORT(moxsFIRMRGetStateSize64f_16s, getMultirateStateSize<Fir64f>);
MOX_EXPORT(moxsFIRMRGetStateSize64fc_16sc, getMultirateStateSize<Fir64fc>);
MOX_EXPORT(moxsFIRMRGetStateSize64f_32s, getMultirateStateSize<Fir64f>);
MOX_EXPORT(moxsFIRMRGetStateSize64fc_32sc, getMultirateStateSize<Fir64fc>);
MOX_EXPORT(moxsFIRMRGetStateSize_16s, getMultirateStateSize<Fir16s>);
MOX_EXPORT(moxsFIRMRGetStateSize32s_16s, getMultirateStateSize<Fir32s16s>);
MOX_EXPORT(moxsFIRMRGetStateSize32sc_16sc, getMultirateStateSize<Fir32sc16sc>);
MOX_EXPORT(moxsFIRMRGetStateSize32s_16s32f, getMultirateStateSize<Fir32s16s>);
MOX_EXPORT(moxsFIRMRGetStateSize32sc_16sc32fc, getMultirateStateSize<Fir32sc16sc>);
MOX_EXPORT(moxsFIRMRStreamGetStateSize_32f, getMultirateStateSize<Fir32f>);

MOX_EXPORT(moxsFIRMRInit_32f, initMultirate<Fir32f>);
MOX_EXPORT(moxsFIRMRInit_32fc, initMultirate<Fir32fc>);
MOX_EXPORT(moxsFIRMRInit_64f, initMultirate<Fir64f>);
MOX_EXPORT(moxsFIRMRInit_64fc, initMultirate<Fir64fc>);
MOX_EXPORT(moxsFIRMRInit64f_32f, initMultirate<Fir64f32f>);
MOX_EXPORT(moxsFIRMRInit64fc_32fc, initMultirate<Fir64fc32fc>);
MOX_EXPORT(moxsFIRMRInit32f_16s, initMultirate<Fir32f16s>);
MOX_EXPORT(moxsFIRMRInit32fc_16sc, initMultirate<Fir32fc16sc>);
MOX_EXPORT(moxsFIRMRInit64f_16s, initMultirate<Fir64f16s>);
MOX_EXPORT(moxsFIRMRInit64fc_16sc, initMultirate<Fir64fc16sc>);
MOX_EXPORT(moxsFIRMRInit64f_32s, initMultirate<Fir64f32s>);
MOX_EXPORT(moxsFIRMRInit64fc_32sc, initMultirate<Fir64fc32sc>);
MOX_EXPORT(moxsFIRMRInit_16s, initMultirate<Fir16s>);
MOX_EXPORT(moxsFIRMRInit32s_16s, initMultirate<Fir32s16s>);
MOX_EXPORT(moxsFIRMRInit32sc_16sc, initMultirate<Fir32sc16sc>);
MOX_EXPORT(moxsFIRMRInit32s_16s32f, initMultirate<Fir32s16s32f>);
MOX_EXPORT(moxsFIRMRInit32sc_16sc32fc, initMultirate<Fir32sc16sc32fc>);

MOX_EXPORT(moxsFIRMRInitAlloc_32f, initAllocMultirate<Fir32f>);
MOX_EXPORT(moxsFIRMRInitAlloc_32fc, initAllocMultirate<Fir32fc>);
MOX_EXPORT(moxsFIRMRInitAlloc_64f, initAllocMultirate<Fir64f>);
MOX_EXPORT(moxsFIRMRInitAlloc_64fc, initAllocMultirate<Fir64fc>);
MOX_EXPORT(moxsFIRMRInitAlloc64f_32f, initAllocMultirate<Fir64f32f>);
MOX_EXPORT(moxsFIRMRInitAlloc64fc_32fc, initAllocMultirate<Fir64fc32fc>);
MOX_EXPORT(moxsFIRMRInitAlloc32f_16s, initAllocMultirate<Fir32f16s>);
MOX_EXPORT(moxsFIRMRInitAlloc32fc_16sc, initAllocMultirate<Fir32fc16sc>);
MOX_EXPORT(moxsFIRMRInitAlloc64f_16s, initAllocMultirate<Fir64f16s>);
MOX_EXPORT(moxsFIRMRInitAlloc64fc_16sc, initAllocMultirate<Fir64fc16sc>);
MOX_EXPORT(moxsFIRMRInitAlloc64f_32s, initAllocMultirate<Fir64f32s>);
MOX_EXPORT(moxsFIRMRInitAlloc64fc_32sc, initAllocMultirate<Fir64fc32sc>);
MOX_EXPORT(moxsFIRMRInitAlloc_16s, initAllocMultirate<Fir16s>);
MOX_EXPORT(moxsFIRMRInitAlloc32s_16s, initAllocMultirate<Fir32s16s>);
MOX_EXPORT(moxsFIRMRInitAlloc32sc_16sc, initAllocMultirate<Fir32sc16sc>);
MOX_EXPORT(moxsFIRMRInitAlloc32s_16s32f, initAllocMultirate<Fir32s16s32f>);
MOX_EXPORT(moxsFIRMRInitAlloc32sc_16sc32fc, initAllocMultirate<Fir32sc16sc32fc>);

}  // namespace mox::fir
