// FIR filters of few taps at far positions.
#include <moxsp/sparse.h>

#include "frame/export.h"
#include "frame/lifecycle.h"
#include "kernels/delay_store.h"
#include "kernels/sparse_taps.h"

struct MoxsFIRSparseState {
  mox::kernels::HeldSparseTaps taps;
  mox::kernels::DelayStore<Mox32f> history;
};

namespace mox::fir {
namespace {

struct Sparse {
  using Record = MoxsFIRSparseState;
  struct Shape {
    long tapsLen, order;
    constexpr void layout(Arena& arena, Record& r) const {
      r.taps.place(arena, tapsLen);
      r.history.place(arena, order);
    }
  };
  static constexpr int alignment = 64;
};

MoxStatus getStateSize(int nzTapsLen, int order, int* size) {
  if (anyNull(size)) return moxErrNullPtr;
  if (nzTapsLen < 1 || nzTapsLen > order + 1L) return moxErrFirLen;
  const Sparse::Shape shape{nzTapsLen, order};
  if (!fitsInInt<Sparse>(shape)) return moxErrSize;
  store(size, int(objectBytes<Sparse>(shape)));
  return moxOk;
}

MoxStatus initSparse(MoxsFIRSparseState** state, const Mox32f* nzTaps, const int* nzTapPos,
                     int nzTapsLen, const Mox32f* dlyLine, Mox8u* buffer) {
  if (anyNull(state, nzTaps, nzTapPos, buffer)) return moxErrNullPtr;
  if (nzTapsLen < 1) return moxErrFirLen;
  if (!kernels::areRising(nzTapPos, nzTapsLen, 0)) return moxErrSparseTapPos;
  const Sparse::Shape shape{nzTapsLen, load<int>(nzTapPos + nzTapsLen - 1)};
  if (!fitsInInt<Sparse>(shape)) return moxErrSize;
  MoxsFIRSparseState& s = placeObject<Sparse>(buffer, shape);
  s.taps.set(nzTaps, nzTapPos);
  s.history.setLine(dlyLine);
  *state = &s;
  return moxOk;
}

MoxStatus getDelayLine(const MoxsFIRSparseState* state, Mox32f* dlyLine) {
  if (anyNull(state, dlyLine)) return moxErrNullPtr;
  state->history.getLine(dlyLine);
  return moxOk;
}
MoxStatus setDelayLine(MoxsFIRSparseState* state, const Mox32f* dlyLine) {
  if (anyNull(state)) return moxErrNullPtr;
  state->history.setLine(dlyLine);
  return moxOk;
}

MoxStatus filterSparse(const Mox32f* src, Mox32f* dst, int len, MoxsFIRSparseState* state) {
  if (MoxStatus s = checkArrays(len, src, dst, state)) return s;
  state->history.run(src, dst, len, [=](const Mox32f* newest, Mox32f* to, long count) {
    kernels::sumSparse(state->taps, newest, nullptr, to, count);
  });
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsFIRSparseGetStateSize_32f, getStateSize);
MOX_EXPORT(moxsFIRSparseInit_32f, initSparse);
MOX_EXPORT(moxsFIRSparseGetDlyLine_32f, getDelayLine);
MOX_EXPORT(moxsFIRSparseSetDlyLine_32f, setDelayLine);
MOX_EXPORT(moxsFIRSparse_32f, filterSparse);

}  // namespace mox::fir
