// The life of filters without delay line.
#include "fir/fir_stream.h"

#include "fir/fir_state.h"
#include "frame/export.h"

namespace mox::fir {
namespace {

MoxStatus streamInit32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen, int upFactor,
                        int upPhase, int downFactor, int downPhase, Mox8u* buffer) {
  if (anyNull(state, taps, buffer)) return moxErrNullPtr;
  const Setup<Fir32f> setup(taps, tapsLen, nullptr, upFactor, upPhase, downFactor, downPhase);
  if (MoxStatus s = setup.check()) return s;
  return mox::init<Kind<Fir32f>>(state, setup.id(true), setup.shape(never), buffer, setup);
}
MoxStatus streamInitAlloc32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen, int upFactor,
                             int upPhase, int downFactor, int downPhase) {
  if (anyNull(state, taps)) return moxErrNullPtr;
  return initAllocFrom<Fir32f>(
      state, {taps, tapsLen, nullptr, upFactor, upPhase, downFactor, downPhase}, true);
}

// The bytes of a single-rate stream are a figure of its own, which holds the object.
std::size_t streamBytes16s(const WordStreamKind::Shape& shape) {
  if (!shape.rates.areSingle()) return objectBytes<WordStreamKind>(shape);
  const std::size_t fixed = shape.tapsLen == 64 ? 1136 : shape.tapsLen == 16 ? 384 : 0;
  return roundUp(2 * std::size_t(shape.tapsLen), 16) + fixed + 96;
}
static_assert(objectBytes<WordStreamKind>({1}) <= 16 + 96);

MoxStatus checkSize16s(const WordStreamKind::Shape& shape) {
  return streamBytes16s(shape) > INT_MAX ? MoxStatus(moxErrFirLen) : moxOk;
}

MoxStatus streamSize16s(int tapsLen, int upFactor, int downFactor, int* size) {
  if (anyNull(size)) return moxErrNullPtr;
  if (tapsLen < 1) return moxErrFirLen;
  const WordStreamKind::Shape shape{tapsLen, {.up = upFactor, .down = downFactor}};
  if (MoxStatus s = shape.rates.checkForSize()) return s;
  if (MoxStatus s = checkSize16s(shape)) return s;
  store(size, int(streamBytes16s(shape)));
  return moxOk;
}

// Runs make(id, shape, fill) on valid arguments.
template <class Make>
MoxStatus makeStream16s(const Mox16s* taps, const WordStreamKind::Shape& shape, int tapsFactor,
                        int rndMode, Make make) {
  if (shape.tapsLen < 1) return moxErrFirLen;
  if (MoxStatus s = shape.rates.check()) return s;
  if (rndMode < 0 || rndMode > 2) return moxErrRoundMode;
  if (MoxStatus s = checkSize16s(shape)) return s;
  constexpr SumRounding roundings[] = {SumRounding::down, SumRounding::nearEven,
                                       SumRounding::halfAway};
  const Mox32s id = shape.rates.areSingle() ? Fir16s::ids.stream : Fir16s::ids.streamMultirate;
  return make(id, shape, [=](WordStream& s) {
    s.rounding = roundings[rndMode];
    holdTaps<Fir16s>(s, taps, tapsFactor);
    return MoxStatus(moxOk);
  });
}

MoxStatus streamInit16s(MoxsFIRState** state, const Mox16s* taps, int tapsLen, int tapsFactor,
                        int upFactor, int upPhase, int downFactor, int downPhase, int rndMode,
                        Mox8u* buffer) {
  if (anyNull(state, taps, buffer)) return moxErrNullPtr;
  return makeStream16s(taps, {tapsLen, {upFactor, upPhase, downFactor, downPhase}}, tapsFactor,
                       rndMode, [=](Mox32s id, const auto& shape, auto fill) {
                         return mox::init<WordStreamKind>(state, id, shape, buffer, fill);
                       });
}
MoxStatus streamInitAlloc16s(MoxsFIRState** state, const Mox16s* taps, int tapsLen, int tapsFactor,
                             int upFactor, int upPhase, int downFactor, int downPhase,
                             int rndMode) {
  if (anyNull(state, taps)) return moxErrNullPtr;
  return makeStream16s(taps, {tapsLen, {upFactor, upPhase, downFactor, downPhase}}, tapsFactor,
                       rndMode, [=](Mox32s id, const auto& shape, auto fill) {
                         return mox::initAlloc<WordStreamKind>(state, id, shape, fill);
                       });
}

// The forms that keep the rate.
MoxStatus singleSize16s(int tapsLen, int* size) { return streamSize16s(tapsLen, 1, 1, size); }
MoxStatus singleInit32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen, Mox8u* buffer) {
  return streamInit32f(state, taps, tapsLen, 1, 0, 1, 0, buffer);
}
MoxStatus singleInitAlloc32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen) {
  return streamInitAlloc32f(state, taps, tapsLen, 1, 0, 1, 0);
}
MoxStatus singleInit16s(MoxsFIRState** state, const Mox16s* taps, int tapsLen, int tapsFactor,
                        int rndMode, Mox8u* buffer) {
  return streamInit16s(state, taps, tapsLen, tapsFactor, 1, 0, 1, 0, rndMode, buffer);
}
MoxStatus singleInitAlloc16s(MoxsFIRState** state, const Mox16s* taps, int tapsLen, int tapsFactor,
                             int rndMode) {
  return streamInitAlloc16s(state, taps, tapsLen, tapsFactor, 1, 0, 1, 0, rndMode);
}

}  // namespace

MOX_EXPORT(moxsFIRStreamGetStateSize_16s, singleSize16s);
MOX_EXPORT(moxsFIRStreamInit_32f, singleInit32f);
MOX_EXPORT(moxsFIRStreamInitAlloc_32f, singleInitAlloc32f);
MOX_EXPORT(moxsFIRStreamInit_16s, singleInit16s);
MOX_EXPORT(moxsFIRStreamInitAlloc_16s, singleInitAlloc16s);
MOX_EXPORT(moxsFIRMRStreamGetStateSize_16s, streamSize16s);
MOX_EXPORT(moxsFIRMRStreamInit_32f, streamInit32f);
MOX_EXPORT(moxsFIRMRStreamInitAlloc_32f, streamInitAlloc32f);
MOX_EXPORT(moxsFIRMRStreamInit_16s, streamInit16s);
MOX_EXPORT(moxsFIRMRStreamInitAlloc_16s, streamInitAlloc16s);

}  // namespace mox::fir
