// IIR filters of few taps at far positions. Outputs nearer to one another than the first feedback
// position do not depend on each other and are computed side by side.
#include <moxsp/sparse.h>

#include "frame/export.h"
#include "frame/lifecycle.h"
#include "kernels/delay_store.h"
#include "kernels/sparse_taps.h"

struct MoxsIIRSparseState {
  mox::kernels::HeldSparseTaps forward, back;  // those of the feedback negated
  mox::kernels::DelayStore<Mox32f> inputs, outputs;
  long inputOrder, pieceLen;
  Mox32f* sums;  // the forward terms of a piece
};

namespace mox::iir {
namespace {

struct Sparse {
  using Record = MoxsIIRSparseState;
  struct Shape {
    long forwardLen, backLen, inputOrder, outputOrder;

    constexpr void layout(Arena& arena, Record& r) const {
      r.forward.place(arena, forwardLen);
      r.back.place(arena, backLen);
      r.inputOrder = inputOrder;
      r.pieceLen = kernels::pieceFor(std::max(inputOrder, outputOrder));
      r.inputs.place(arena, inputOrder, r.pieceLen);
      r.outputs.place(arena, outputOrder, r.pieceLen);
      r.sums = arena.place<Mox32f>(std::size_t(r.pieceLen), vectorBytes);
    }
  };
  static constexpr int alignment = 64;
};

MoxStatus shapeOf(const int* nzTapPos, int forwardLen, int backLen, Sparse::Shape& shape) {
  if (forwardLen < 1 || backLen < 1) return moxErrIirOrder;
  const int *forward = nzTapPos, *back = nzTapPos + forwardLen;
  if (!kernels::areRising(forward, forwardLen, 0) || !kernels::areRising(back, backLen, 1))
    return moxErrSparseTapPos;
  shape = {forwardLen, backLen, load<int>(back - 1), load<int>(back + backLen - 1)};
  return fitsInInt<Sparse>(shape) ? moxOk : MoxStatus(moxErrSize);
}

MoxStatus getStateSize(const int* nzTapPos, int nzTapsLen1, int nzTapsLen2, int* size) {
  if (anyNull(nzTapPos, size)) return moxErrNullPtr;
  Sparse::Shape shape;
  if (MoxStatus s = shapeOf(nzTapPos, nzTapsLen1, nzTapsLen2, shape)) return s;
  store(size, int(objectBytes<Sparse>(shape)));
  return moxOk;
}

MoxStatus setDelayLine(MoxsIIRSparseState* state, const Mox32f* dlyLine) {
  if (anyNull(state)) return moxErrNullPtr;
  state->inputs.setLine(dlyLine);
  state->outputs.setLine(dlyLine ? dlyLine + state->inputOrder : nullptr);
  return moxOk;
}
MoxStatus getDelayLine(const MoxsIIRSparseState* state, Mox32f* dlyLine) {
  if (anyNull(state, dlyLine)) return moxErrNullPtr;
  state->inputs.getLine(dlyLine);
  state->outputs.getLine(dlyLine + state->inputOrder);
  return moxOk;
}

MoxStatus initSparse(MoxsIIRSparseState** state, const Mox32f* nzTaps, const int* nzTapPos,
                     int nzTapsLen1, int nzTapsLen2, const Mox32f* dlyLine, Mox8u* buffer) {
  if (anyNull(state, nzTaps, nzTapPos, buffer)) return moxErrNullPtr;
  Sparse::Shape shape;
  if (MoxStatus s = shapeOf(nzTapPos, nzTapsLen1, nzTapsLen2, shape)) return s;
  MoxsIIRSparseState& s = placeObject<Sparse>(buffer, shape);
  s.forward.set(nzTaps, nzTapPos);
  s.back.set(nzTaps + nzTapsLen1, nzTapPos + nzTapsLen1);
  s.back.negate();
  setDelayLine(&s, dlyLine);
  *state = &s;
  return moxOk;
}

// Outputs of a piece from its forward terms.
void feedBack(const MoxsIIRSparseState& s, long len) {
  Mox32f* const y = s.outputs.appended();
  const long run = s.back.firstPosition();
  for (long i = 0; i < len; i += run)
    kernels::sumSparse(s.back, y + i, s.sums + i, y + i, std::min(run, len - i));
}

MoxStatus filterSparse(const Mox32f* src, Mox32f* dst, int len, MoxsIIRSparseState* state) {
  if (MoxStatus e = checkArrays(len, src, dst, state)) return e;
  const MoxsIIRSparseState& s = *state;
  for (long done = 0; done < len; done += s.pieceLen) {
    const long piece = std::min(s.pieceLen, len - done);
    s.inputs.append(src + done, piece);
    kernels::sumSparse(s.forward, s.inputs.appended(), nullptr, s.sums, piece);
    feedBack(s, piece);
    std::memcpy(dst + done, s.outputs.appended(), std::size_t(piece) * sizeof *dst);
    s.inputs.advance(piece);
    s.outputs.advance(piece);
  }
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsIIRSparseGetStateSize_32f, getStateSize);
MOX_EXPORT(moxsIIRSparseInit_32f, initSparse);
MOX_EXPORT(moxsIIRSparseGetDlyLine_32f, getDelayLine);
MOX_EXPORT(moxsIIRSparseSetDlyLine_32f, setDelayLine);
MOX_EXPORT(moxsIIRSparse_32f, filterSparse);

}  // namespace mox::iir
