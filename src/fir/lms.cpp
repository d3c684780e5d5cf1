// Adaptive filters with a state, block by block.
#include <moxsp/adaptive.h>

#include <algorithm>

#include "convert/samples.h"
#include "fir/lms_kernel.h"
#include "frame/checks.h"
#include "frame/export.h"
#include "frame/lifecycle.h"
#include "kernels/ring.h"

struct MoxsFIRLMSState {
  Mox32s id;
  Mox32s owned;
  int tapsLen;
  int dlyIndex;  // as the caller gave it: place of the oldest sample in the ring
  Mox32f* revTaps;
  Mox32f* dlyStore;  // a ring of tapsLen samples twice, with room to append new ones
  Mox32f* results;   // of one piece
};

namespace mox::fir {
namespace {

constexpr long pieceLen = 2048;  // samples of one step

template <class D>
constexpr Mox32s lmsId = 0x4c4d5331;
template <>
constexpr Mox32s lmsId<Mox16s> = 0x4c4d5300;

struct LmsKind {
  using Head = MoxsFIRLMSState;
  using Record = MoxsFIRLMSState;
  struct Shape {
    int tapsLen;
    void layout(Arena& arena, Record& s) const {
      const std::size_t taps(tapsLen);
      s.tapsLen = tapsLen;
      s.revTaps = arena.place<Mox32f>(taps, partAlignment);
      s.dlyStore = arena.place<Mox32f>(2 * taps + pieceLen, partAlignment);
      s.results = arena.place<Mox32f>(pieceLen, partAlignment);
    }
  };
  static constexpr int alignment = 16;
  static constexpr bool releaseClearsId = false;
};

template <class D>
void writeRing(MoxsFIRLMSState& s, const D* dlyLine, int dlyLineIndex) {
  std::fill_n(s.dlyStore, 2 * long(s.tapsLen), Mox32f{});
  if (dlyLine)
    for (int copy = 0; copy < 2; ++copy)
      convert::takeIn(dlyLine, s.dlyStore + long(copy) * s.tapsLen, s.tapsLen);
  s.dlyIndex = dlyLineIndex;
}

template <class D>
MoxStatus lmsInitAlloc(MoxsFIRLMSState** state, const Mox32f* taps, int tapsLen, const D* dlyLine,
                       int dlyLineIndex) {
  if (anyNull(state)) return moxErrNullPtr;
  if (MoxStatus e = checkLength(tapsLen)) return e;
  return mox::initAlloc<LmsKind>(state, lmsId<D>, {tapsLen}, [=](MoxsFIRLMSState& s) {
    for (int k = 0; k < tapsLen; ++k)
      s.revTaps[tapsLen - 1 - k] = taps ? load<Mox32f>(taps + k) : 0;
    writeRing(s, dlyLine, dlyLineIndex);
    return MoxStatus(moxOk);
  });
}

template <class D>
MoxStatus lmsFree(MoxsFIRLMSState* state) {
  return release<LmsKind>(state, lmsId<D>);
}

template <class D>
MoxStatus lmsGetTaps(const MoxsFIRLMSState* state, Mox32f* taps) {
  if (anyNull(state, taps)) return moxErrNullPtr;
  if (MoxStatus e = requireId(state, lmsId<D>)) return e;
  for (int k = 0; k < state->tapsLen; ++k) store(taps + k, state->revTaps[state->tapsLen - 1 - k]);
  return moxOk;
}

template <class D>
MoxStatus lmsGetDlyLine(const MoxsFIRLMSState* state, D* dlyLine, int* dlyLineIndex) {
  if (anyNull(state, dlyLine, dlyLineIndex)) return moxErrNullPtr;
  if (MoxStatus e = requireId(state, lmsId<D>)) return e;
  for (int i = 0; i < state->tapsLen; ++i)
    store(dlyLine + i, convert::converted<D>(state->dlyStore[i]));
  store(dlyLineIndex, state->dlyIndex);
  return moxOk;
}

template <class D>
MoxStatus lmsSetDlyLine(MoxsFIRLMSState* state, const D* dlyLine, int dlyLineIndex) {
  if (anyNull(state)) return moxErrNullPtr;
  if (MoxStatus e = requireId(state, lmsId<D>)) return e;
  writeRing(*state, dlyLine, dlyLineIndex);
  return moxOk;
}

// A block's error counts twice: the gain is 2 * mu * e.
template <class D>
void adaptTo(const D* ref, const MoxsFIRLMSState& s, const Mox32f* x, long count, Mox32f mu) {
  adapt(s.revTaps, s.tapsLen, x, count,
        [=, results = s.results, doubleMu = mu + mu](long i, Mox32f y) {
          results[i] = y;
          return doubleMu * (Mox32f(load<D>(ref + i)) - y);
        });
}

// Samples enter piece by piece, so that any array may be another.
template <class D>
MoxStatus lms(const D* src, const D* ref, D* dst, int len, Mox32f mu, MoxsFIRLMSState* state) {
  if (MoxStatus e = checkArrays(len, src, ref, dst, state)) return e;
  if (MoxStatus e = requireId(state, lmsId<D>)) return e;
  MoxsFIRLMSState& s = *state;
  Mox32f* window = s.dlyStore + kernels::ringPlace(s.dlyIndex, s.tapsLen);
  s.dlyIndex = 0;
  for (long done = 0; done < len; done += pieceLen) {
    const long count = std::min(len - done, pieceLen);
    convert::takeIn(src + done, window + s.tapsLen, count);
    adaptTo(ref + done, s, window, count, mu);
    convert::giveOut(s.results, dst + done, count, 0);
    std::memmove(s.dlyStore, window + count, std::size_t(s.tapsLen) * sizeof *window);
    window = s.dlyStore;
  }
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsFIRLMSInitAlloc_32f, lmsInitAlloc<Mox32f>);
MOX_EXPORT(moxsFIRLMSInitAlloc32f_16s, lmsInitAlloc<Mox16s>);
MOX_EXPORT(moxsFIRLMSFree_32f, lmsFree<Mox32f>);
MOX_EXPORT(moxsFIRLMSFree32f_16s, lmsFree<Mox16s>);
MOX_EXPORT(moxsFIRLMSGetTaps_32f, lmsGetTaps<Mox32f>);
MOX_EXPORT(moxsFIRLMSGetTaps32f_16s, lmsGetTaps<Mox16s>);
MOX_EXPORT(moxsFIRLMSGetDlyLine_32f, lmsGetDlyLine<Mox32f>);
MOX_EXPORT(moxsFIRLMSGetDlyLine32f_16s, lmsGetDlyLine<Mox16s>);
MOX_EXPORT(moxsFIRLMSSetDlyLine_32f, lmsSetDlyLine<Mox32f>);
MOX_EXPORT(moxsFIRLMSSetDlyLine32f_16s, lmsSetDlyLine<Mox16s>);
MOX_EXPORT(moxsFIRLMS_32f, lms<Mox32f>);
MOX_EXPORT(moxsFIRLMS32f_16s, lms<Mox16s>);

}  // namespace mox::fir
