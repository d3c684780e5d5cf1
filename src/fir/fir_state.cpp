// The life of FIR states.
#include "fir/fir_state.h"

#include "frame/export.h"

namespace mox::fir {
namespace {

// Filters whose state no int can measure have too many taps.
template <class C>
MoxStatus checkShape(const Shape& shape) {
  return shape.tapsLen < 1 || !fitsInInt<Kind<C>>(shape) ? MoxStatus(moxErrFirLen) : moxOk;
}

template <class C>
MoxStatus getStateSize(int tapsLen, int* size) {
  if (anyNull(size)) return moxErrNullPtr;
  if (MoxStatus s = checkShape<C>({tapsLen})) return s;
  *size = int(objectBytes<Kind<C>>({tapsLen}));
  return moxOk;
}

// Writes the contents of a state.
template <class C>
auto contents(const typename C::Tap* taps, const typename C::Data* dlyLine) {
  return [=](StateOf<C>& s) {
    if (s.hasFft) s.fft.fill();
    writeTaps<C>(s, taps);
    writeDelayLine<C>(s, dlyLine);
    return MoxStatus(moxOk);
  };
}

template <class C, Mox32s id>
MoxStatus initAs(MoxsFIRState** state, const typename C::Tap* taps, int tapsLen,
                 const typename C::Data* dlyLine, Mox8u* buffer) {
  if (anyNull(state, taps, buffer)) return moxErrNullPtr;
  if (MoxStatus s = checkShape<C>({tapsLen})) return s;
  return mox::init<Kind<C>>(state, id, {tapsLen}, buffer, contents<C>(taps, dlyLine));
}
template <class C, Mox32s id>
MoxStatus initAllocAs(MoxsFIRState** state, const typename C::Tap* taps, int tapsLen,
                      const typename C::Data* dlyLine) {
  if (anyNull(state, taps)) return moxErrNullPtr;
  if (MoxStatus s = checkShape<C>({tapsLen})) return s;
  return mox::initAlloc<Kind<C>>(state, id, {tapsLen}, contents<C>(taps, dlyLine));
}

template <class C>
constexpr auto init = initAs<C, C::ids.single>;
template <class C>
constexpr auto initAlloc = initAllocAs<C, C::ids.single>;

template <class C>
MoxStatus streamInit(MoxsFIRState** state, const typename C::Tap* taps, int tapsLen,
                     Mox8u* buffer) {
  return initAs<C, C::ids.stream>(state, taps, tapsLen, nullptr, buffer);
}
template <class C>
MoxStatus streamInitAlloc(MoxsFIRState** state, const typename C::Tap* taps, int tapsLen) {
  return initAllocAs<C, C::ids.stream>(state, taps, tapsLen, nullptr);
}

template <class C>
MoxStatus free(MoxsFIRState* state) {
  return release<Kind<C>>(state, C::ids.single, C::ids.multirate, C::ids.stream,
                          C::ids.streamMultirate);
}

}  // namespace

MOX_EXPORT(moxsFIRGetStateSize_32f, getStateSize<Fir32f>);
MOX_EXPORT(moxsFIRGetStateSize32f_16s, getStateSize<Fir32f>);
MOX_EXPORT(moxsFIRStreamGetStateSize_32f, getStateSize<Fir32f>);
MOX_EXPORT(moxsFIRGetStateSize_32fc, getStateSize<Fir32fc>);
MOX_EXPORT(moxsFIRGetStateSize_64f, getStateSize<Fir64f>);
MOX_EXPORT(moxsFIRGetStateSize_64fc, getStateSize<Fir64fc>);

MOX_EXPORT(moxsFIRInit_32f, init<Fir32f>);
MOX_EXPORT(moxsFIRInit_32fc, init<Fir32fc>);
MOX_EXPORT(moxsFIRInit_64f, init<Fir64f>);
MOX_EXPORT(moxsFIRInit_64fc, init<Fir64fc>);
MOX_EXPORT(moxsFIRInit32f_16s, init<Fir32f16s>);
MOX_EXPORT(moxsFIRStreamInit_32f, streamInit<Fir32f>);

MOX_EXPORT(moxsFIRInitAlloc_32f, initAlloc<Fir32f>);
MOX_EXPORT(moxsFIRInitAlloc_32fc, initAlloc<Fir32fc>);
MOX_EXPORT(moxsFIRInitAlloc_64f, initAlloc<Fir64f>);
MOX_EXPORT(moxsFIRInitAlloc_64fc, initAlloc<Fir64fc>);
MOX_EXPORT(moxsFIRInitAlloc32f_16s, initAlloc<Fir32f16s>);
MOX_EXPORT(moxsFIRStreamInitAlloc_32f, streamInitAlloc<Fir32f>);

MOX_EXPORT(moxsFIRFree_32f, free<Fir32f>);
MOX_EXPORT(moxsFIRFree_32fc, free<Fir32fc>);
MOX_EXPORT(moxsFIRFree_64f, free<Fir64f>);
MOX_EXPORT(moxsFIRFree_64fc, free<Fir64fc>);
MOX_EXPORT(moxsFIRFree32f_16s, free<Fir32f16s>);

}  // namespace mox::fir
