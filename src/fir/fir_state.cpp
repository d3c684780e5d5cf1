#include "fir/fir_state.h"

#include <moxsp/fir.h>

#include "fir/fir_contents.h"
#include "fir/fir_layout.h"
#include "frame/checks.h"
#include "frame/export.h"
#include "support/moxcore.h"

namespace mox {
namespace {

MoxStatus checkTapsLen(int tapsLen) { return tapsLen < 1 ? MoxStatus(moxErrFirLen) : moxOk; }

// Filters whose state no int can measure have too many taps.
template <class A>
MoxStatus getStateSize(int tapsLen, int* size) {
  if (anyNull(size)) return moxErrNullPtr;
  if (MoxStatus s = checkTapsLen(tapsLen)) return s;
  const FirLayout<A> layout(tapsLen);
  if (!layout.fits()) return moxErrFirLen;
  *size = int(layout.bytes());
  return moxOk;
}

// A filter whose transform can't be made runs direct.
template <class C>
FirState<typename C::Acc>* build(const FirLayout<typename C::Acc>& layout, Mox8u* memory,
                                 const typename C::Tap* taps, const typename C::Data* dlyLine) {
  using A = typename C::Acc;
  Mox8u *specMemory, *scratch;
  FirState<A>* s = layout.place(memory, specMemory, scratch);
  writeTaps<C>(*s, taps);
  writeDelayLine<C>(*s, dlyLine);
  if (s->fftLen > 0) {
    MoxStatus status = FirTransform<A>::init(&s->fftSpec, layout.order(), specMemory, scratch);
    if (status == moxOk) status = transformTaps(*s);
    if (status != moxOk) dropFftPath(*s);
  }
  return s;
}

template <class C, Mox32s id>
MoxStatus initAs(MoxsFIRState** state, const typename C::Tap* taps, int tapsLen,
                 const typename C::Data* dlyLine, Mox8u* buffer) {
  if (anyNull(state, taps, buffer)) return moxErrNullPtr;
  if (MoxStatus s = checkTapsLen(tapsLen)) return s;
  const FirLayout<typename C::Acc> layout(tapsLen);
  if (!layout.fits()) return moxErrFirLen;
  *state = build<C>(layout, buffer, taps, dlyLine);
  (*state)->id = id;
  return moxOk;
}

// The record is the start of its block, which moxMalloc aligns.
template <class C, Mox32s id>
MoxStatus initAllocAs(MoxsFIRState** state, const typename C::Tap* taps, int tapsLen,
                      const typename C::Data* dlyLine) {
  if (anyNull(state, taps)) return moxErrNullPtr;
  int size;
  if (MoxStatus s = getStateSize<typename C::Acc>(tapsLen, &size)) return s;
  auto* memory = static_cast<Mox8u*>(moxMalloc(size));
  if (!memory) return moxErrMemAlloc;
  if (MoxStatus s = initAs<C, id>(state, taps, tapsLen, dlyLine, memory)) {
    moxFree(memory);
    return s;
  }
  (*state)->owned = 1;
  return moxOk;
}

template <class C>
constexpr auto init = initAs<C, C::singleRate>;
template <class C>
constexpr auto initAlloc = initAllocAs<C, C::singleRate>;

template <class C>
MoxStatus streamInit(MoxsFIRState** state, const typename C::Tap* taps, int tapsLen,
                     Mox8u* buffer) {
  return initAs<C, C::stream>(state, taps, tapsLen, nullptr, buffer);
}
template <class C>
MoxStatus streamInitAlloc(MoxsFIRState** state, const typename C::Tap* taps, int tapsLen) {
  return initAllocAs<C, C::stream>(state, taps, tapsLen, nullptr);
}

template <class C>
MoxStatus release(MoxsFIRState* state) {
  if (anyNull(state)) return moxErrNullPtr;
  const bool isStream = C::hasStream && isOneOf(state, C::stream, C::streamMultirate);
  if (!isStream && !isOneOf(state, C::singleRate, C::multirate)) return moxErrContext;
  if (state->owned) moxFree(state);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsFIRGetStateSize_32f, getStateSize<Mox32f>);
MOX_EXPORT(moxsFIRGetStateSize32f_16s, getStateSize<Mox32f>);
MOX_EXPORT(moxsFIRStreamGetStateSize_32f, getStateSize<Mox32f>);
MOX_EXPORT(moxsFIRGetStateSize_32fc, getStateSize<Mox32fc>);
MOX_EXPORT(moxsFIRGetStateSize_64f, getStateSize<Mox64f>);
MOX_EXPORT(moxsFIRGetStateSize_64fc, getStateSize<Mox64fc>);

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

MOX_EXPORT(moxsFIRFree_32f, release<Fir32f>);
MOX_EXPORT(moxsFIRFree_32fc, release<Fir32fc>);
MOX_EXPORT(moxsFIRFree_64f, release<Fir64f>);
MOX_EXPORT(moxsFIRFree_64fc, release<Fir64fc>);
MOX_EXPORT(moxsFIRFree32f_16s, release<Fir32f16s>);

}  // namespace mox
