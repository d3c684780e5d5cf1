// Adaptive filters in 16-bit samples and 32-bit taps, whose steps are calls of their own: take a
// sample in, filter, correct the taps. All sums wrap around in 32 bits.
#include <moxsp/adaptive.h>

#include <algorithm>

#include "fir/lms_kernel.h"
#include "frame/checks.h"
#include "frame/export.h"
#include "frame/lifecycle.h"
#include "frame/widen.h"
#include "kernels/ring.h"
#include "kernels/wrapping_dot.h"

struct MoxsFIRLMSMRState {
  Mox32s id;
  Mox32s owned;
  int tapsLen;
  int dlyStep;    // from a sample that meets a tap to the one that meets the next
  int dlyLen;     // of the ring
  int updateDly;  // samples by which the correction lags behind the filter
  int dlyIndex;   // as the caller gave it: place of the oldest sample
  Mox32s mu;
};

namespace mox::fir {
namespace {

// Real or complex: taps, and the ring of samples, which stand there twice.
template <class T, class D>
struct Record : MoxsFIRLMSMRState {
  using Tap = T;
  using Data = D;
  T* revTaps;
  D* ring;
};

template <class T, class D, char letter>
struct Lms {
  using Tap = T;
  using Data = D;
  using Head = MoxsFIRLMSMRState;
  using Record = fir::Record<T, D>;
  struct Shape {
    int tapsLen, dlyStep, updateDly;

    long dlyLen() const { return long(tapsLen) * dlyStep + updateDly; }
    void layout(Arena& arena, Record& s) const {
      s.tapsLen = tapsLen;
      s.dlyStep = dlyStep;
      s.updateDly = updateDly;
      s.dlyLen = int(dlyLen());
      s.revTaps = arena.place<T>(std::size_t(tapsLen), partAlignment);
      s.ring = arena.place<D>(2 * std::size_t(dlyLen()), partAlignment);
    }
  };
  static constexpr int alignment = 16;
  static constexpr bool releaseClearsId = false;
  static constexpr Mox32s id = 0x4c4d5300 | letter;
};
using Lms32s16s = Lms<Mox32s, Mox16s, 'R'>;
using Lms32sc16sc = Lms<Mox32sc, Mox16sc, 'C'>;

template <class K>
typename K::Record& recordOf(MoxsFIRLMSMRState* state) {
  return *static_cast<typename K::Record*>(state);
}
template <class K>
const typename K::Record& recordOf(const MoxsFIRLMSMRState* state) {
  return *static_cast<const typename K::Record*>(state);
}

template <class R>
void writeTaps(R& s, const typename R::Tap* taps) {
  for (int k = 0; k < s.tapsLen; ++k)
    s.revTaps[s.tapsLen - 1 - k] = taps ? load<typename R::Tap>(taps + k) : typename R::Tap{};
}
template <class R>
void writeRing(R& s, const typename R::Data* dlyLine, int dlyLineIndex) {
  for (int i = 0; i < s.dlyLen; ++i)
    s.ring[i] = s.ring[i + s.dlyLen] =
        dlyLine ? load<typename R::Data>(dlyLine + i) : typename R::Data{};
  s.dlyIndex = dlyLineIndex;
}

template <class K>
MoxStatus initAlloc(MoxsFIRLMSMRState** state, const typename K::Tap* taps, int tapsLen,
                    const typename K::Data* dlyLine, int dlyLineIndex, int dlyStep, int updateDly,
                    Mox32s mu) {
  if (anyNull(state)) return moxErrNullPtr;
  const typename K::Shape shape{tapsLen, dlyStep, updateDly};
  if (tapsLen < 1 || dlyStep < 1 || updateDly < 0) return moxErrSize;
  if (dlyLineIndex < 0 || dlyLineIndex >= shape.dlyLen()) return moxErrSize;
  if (shape.dlyLen() > INT_MAX) return moxErrMemAlloc;
  return mox::initAlloc<K>(state, K::id, shape, [=](auto& s) {
    s.mu = mu;
    writeTaps(s, taps);
    writeRing(s, dlyLine, dlyLineIndex);
    return MoxStatus(moxOk);
  });
}

template <class K>
MoxStatus free(MoxsFIRLMSMRState* state) {
  return release<K>(state, K::id);
}

template <class K, class... P>
MoxStatus check(const MoxsFIRLMSMRState* state, const P*... others) {
  return anyNull(state, others...) ? MoxStatus(moxErrNullPtr) : requireId(state, K::id);
}

template <class K>
MoxStatus getTaps(const MoxsFIRLMSMRState* state, typename K::Tap* taps) {
  if (MoxStatus e = check<K>(state, taps)) return e;
  const auto& s = recordOf<K>(state);
  for (int k = 0; k < s.tapsLen; ++k) store(taps + k, s.revTaps[s.tapsLen - 1 - k]);
  return moxOk;
}
template <class K>
MoxStatus setTaps(MoxsFIRLMSMRState* state, const typename K::Tap* taps) {
  if (MoxStatus e = check<K>(state)) return e;
  writeTaps(recordOf<K>(state), taps);
  return moxOk;
}
template <class K>
MoxStatus getTapsPointer(MoxsFIRLMSMRState* state, typename K::Tap** pointer) {
  if (MoxStatus e = check<K>(state, pointer)) return e;
  store(pointer, recordOf<K>(state).revTaps);
  return moxOk;
}

template <class K>
MoxStatus getDlyLine(const MoxsFIRLMSMRState* state, typename K::Data* dlyLine, int* dlyLineIndex) {
  if (MoxStatus e = check<K>(state, dlyLine, dlyLineIndex)) return e;
  std::memcpy(dlyLine, recordOf<K>(state).ring, std::size_t(state->dlyLen) * sizeof *dlyLine);
  store(dlyLineIndex, state->dlyIndex);
  return moxOk;
}
template <class K>
MoxStatus setDlyLine(MoxsFIRLMSMRState* state, const typename K::Data* dlyLine, int dlyLineIndex) {
  if (MoxStatus e = check<K>(state)) return e;
  writeRing(recordOf<K>(state), dlyLine, dlyLineIndex);
  return moxOk;
}
template <class K>
MoxStatus getDlyVal(const MoxsFIRLMSMRState* state, typename K::Data* val, int index) {
  if (MoxStatus e = check<K>(state, val)) return e;
  if (index < 0 || index >= state->dlyLen) return moxErrBadArg;
  store(val, recordOf<K>(state).ring[index]);
  return moxOk;
}

template <class K>
MoxStatus setMu(MoxsFIRLMSMRState* state, Mox32s mu) {
  if (MoxStatus e = check<K>(state)) return e;
  state->mu = mu;
  return moxOk;
}

template <class K>
MoxStatus putVal(typename K::Data val, MoxsFIRLMSMRState* state) {
  if (MoxStatus e = check<K>(state)) return e;
  state->dlyIndex = kernels::ringPlace(state->dlyIndex, state->dlyLen);
  kernels::pushSample(recordOf<K>(state).ring, state->dlyIndex, state->dlyLen, val);
  return moxOk;
}

// The sample that meets the last tap, `delay` samples before the newest that can.
template <class R>
const typename R::Data* oldestMet(const R& s, int delay) {
  return s.ring + kernels::ringPlace(s.dlyIndex, s.dlyLen) + delay + s.dlyStep - 1;
}

// The upper halves of taps count here.
Mox32s sumOfProducts(const Record<Mox32s, Mox16s>& s, const Mox16s* x) {
  using kernels::TapOrder, kernels::WordTaps;
  if (s.dlyStep == 1)
    return kernels::wrappingDot(x, WordTaps<TapOrder::reversed, Mox32s>(s.revTaps, s.tapsLen, 16),
                                s.tapsLen);
  Mox32u sum = 0;
  for (long k = 0; k < s.tapsLen; ++k) sum += Mox32u((s.revTaps[k] >> 16) * x[k * s.dlyStep]);
  return Mox32s(sum);
}
Mox32sc sumOfProducts(const Record<Mox32sc, Mox16sc>& s, const Mox16sc* x) {
  using kernels::TapOrder, kernels::WordTaps;
  if (s.dlyStep == 1)
    return kernels::wrappingDot(x, WordTaps<TapOrder::reversed, Mox32sc>(s.revTaps, s.tapsLen, 16),
                                s.tapsLen);
  Mox32u re = 0, im = 0;
  for (long k = 0; k < s.tapsLen; ++k) {
    const Mox32s tapRe = s.revTaps[k].re >> 16, tapIm = s.revTaps[k].im >> 16;
    const Mox16sc d = x[k * s.dlyStep];
    re += Mox32u(tapRe * d.re) - Mox32u(tapIm * d.im);
    im += Mox32u(tapRe * d.im) + Mox32u(tapIm * d.re);
  }
  return {Mox32s(re), Mox32s(im)};
}

template <class K>
MoxStatus one(typename K::Tap* dst, MoxsFIRLMSMRState* state) {
  if (MoxStatus e = check<K>(state, dst)) return e;
  const auto& s = recordOf<K>(state);
  store(dst, sumOfProducts(s, oldestMet(s, s.updateDly)));
  return moxOk;
}
template <class K>
MoxStatus oneVal(typename K::Data val, typename K::Tap* dst, MoxsFIRLMSMRState* state) {
  if (MoxStatus e = check<K>(state, dst)) return e;
  putVal<K>(val, state);
  return one<K>(dst, state);
}

// err * mu in units of 2^15, with a half added.
Mox32u weight(Mox32s err, Mox32s mu) {
  return Mox32u(Mox32s(Mox32u(err) * Mox32u(mu) + 16384) >> 15);
}

void add(Mox32s& sum, Mox32u term) { sum = Mox32s(Mox32u(sum) + term); }

MoxStatus updateTaps(Mox32s err, MoxsFIRLMSMRState* state) {
  if (MoxStatus e = check<Lms32s16s>(state)) return e;
  const auto& s = recordOf<Lms32s16s>(state);
  const Mox32u w = weight(err, s.mu);
  const Mox16s* d = oldestMet(s, 0);
  long k = 0;
  if (s.dlyStep == 1) {
    using W = I<Mox32u>;
    for (constexpr int lanes = laneCount<W>; k <= s.tapsLen - lanes; k += lanes)
      store(s.revTaps + k, load<W>(s.revTaps + k) + W(loadWidened<I<Mox32s>>(d + k)) * w);
  }
  for (; k < s.tapsLen; ++k) add(s.revTaps[k], w * Mox32u(d[k * s.dlyStep]));
  return moxOk;
}

// By the conjugates of the samples.
MoxStatus updateComplexTaps(Mox32sc err, MoxsFIRLMSMRState* state) {
  if (MoxStatus e = check<Lms32sc16sc>(state)) return e;
  const auto& s = recordOf<Lms32sc16sc>(state);
  const Mox32u re = weight(err.re, s.mu), im = weight(err.im, s.mu);
  const Mox16sc* d = oldestMet(s, 0);
  for (long k = 0; k < s.tapsLen; ++k) {
    const Mox32u dRe = Mox32u(d[k * s.dlyStep].re), dIm = Mox32u(d[k * s.dlyStep].im);
    add(s.revTaps[k].re, dRe * re + dIm * im);
    add(s.revTaps[k].im, dRe * im - dIm * re);
  }
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsFIRLMSMRInitAlloc32s_16s, initAlloc<Lms32s16s>);
MOX_EXPORT(moxsFIRLMSMRInitAlloc32sc_16sc, initAlloc<Lms32sc16sc>);
MOX_EXPORT(moxsFIRLMSMRFree32s_16s, free<Lms32s16s>);
MOX_EXPORT(moxsFIRLMSMRFree32sc_16sc, free<Lms32sc16sc>);
MOX_EXPORT(moxsFIRLMSMRGetTaps32s_16s, getTaps<Lms32s16s>);
MOX_EXPORT(moxsFIRLMSMRGetTaps32sc_16sc, getTaps<Lms32sc16sc>);
MOX_EXPORT(moxsFIRLMSMRSetTaps32s_16s, setTaps<Lms32s16s>);
MOX_EXPORT(moxsFIRLMSMRSetTaps32sc_16sc, setTaps<Lms32sc16sc>);
MOX_EXPORT(moxsFIRLMSMRGetTapsPointer32s_16s, getTapsPointer<Lms32s16s>);
MOX_EXPORT(moxsFIRLMSMRGetTapsPointer32sc_16sc, getTapsPointer<Lms32sc16sc>);
MOX_EXPORT(moxsFIRLMSMRGetDlyLine32s_16s, getDlyLine<Lms32s16s>);
MOX_EXPORT(moxsFIRLMSMRGetDlyLine32sc_16sc, getDlyLine<Lms32sc16sc>);
MOX_EXPORT(moxsFIRLMSMRSetDlyLine32s_16s, setDlyLine<Lms32s16s>);
MOX_EXPORT(moxsFIRLMSMRSetDlyLine32sc_16sc, setDlyLine<Lms32sc16sc>);
MOX_EXPORT(moxsFIRLMSMRGetDlyVal32s_16s, getDlyVal<Lms32s16s>);
MOX_EXPORT(moxsFIRLMSMRGetDlyVal32sc_16sc, getDlyVal<Lms32sc16sc>);
MOX_EXPORT(moxsFIRLMSMRSetMu32s_16s, setMu<Lms32s16s>);
MOX_EXPORT(moxsFIRLMSMRSetMu32sc_16sc, setMu<Lms32sc16sc>);
MOX_EXPORT(moxsFIRLMSMRPutVal32s_16s, putVal<Lms32s16s>);
MOX_EXPORT(moxsFIRLMSMRPutVal32sc_16sc, putVal<Lms32sc16sc>);
MOX_EXPORT(moxsFIRLMSMROne32s_16s, one<Lms32s16s>);
MOX_EXPORT(moxsFIRLMSMROne32sc_16sc, one<Lms32sc16sc>);
MOX_EXPORT(moxsFIRLMSMROneVal32s_16s, oneVal<Lms32s16s>);
MOX_EXPORT(moxsFIRLMSMROneVal32sc_16sc, oneVal<Lms32sc16sc>);
MOX_EXPORT(moxsFIRLMSMRUpdateTaps32s_16s, updateTaps);
MOX_EXPORT(moxsFIRLMSMRUpdateTaps32sc_16sc, updateComplexTaps);

}  // namespace mox::fir
