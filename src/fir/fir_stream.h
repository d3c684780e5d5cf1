// Filters without delay line: the samples before the first are in the array.
#pragma once

#include "fir/fir_state.h"
#include "fir/output.h"
#include "kernels/sliding_dot.h"
#include "kernels/wrapping_dot.h"

namespace mox::fir {

// The samples of a stream that stand before sample 0.
inline long streamHistory(const MoxsFIRState& s) {
  return s.dlyLen - (s.rates.downPhase >= s.rates.upPhase);
}

// The fixed-point stream's record is small enough for the size that its query promises.
struct WordStream : MoxsFIRState {
  SumRounding rounding;
  Mox16s* heldTaps;  // in the order of TapPhases
};

struct WordStreamKind {
  using Head = MoxsFIRState;
  using Record = WordStream;
  struct Shape {
    int tapsLen;
    Rates rates = {};

    constexpr void layout(Arena& arena, Record& s) const {
      s.tapsLen = tapsLen;
      s.rates = rates;
      s.dlyLen = int(TapPhases(tapsLen, rates.up).longest());
      s.heldTaps = arena.place<Mox16s>(std::size_t(tapsLen));
    }
  };
  static constexpr int alignment = 16, partAlignment = 2;
  static constexpr bool releaseClearsId = false;
};

inline MoxStatus runStream32f(MoxsFIRState* state, const Mox32f* src, Mox32f* dst, long len, int) {
  if (src == dst) return moxErrContext;
  const auto& s = stateOf<Fir32f>(state);
  kernels::filterWindow(src, dst, len, s.heldTaps, s.tapsLen);
  return moxOk;
}

// Runs sum(stream, done, sums, count) for piece after piece of the outputs.
template <class Sum>
MoxStatus runWordStream(const MoxsFIRState* state, const Mox16s* src, Mox16s* dst, long outputs,
                        int scaleFactor, Sum sum) {
  if (src == dst) return moxErrContext;
  const auto& s = *static_cast<const WordStream*>(state);
  const Output<Fir16s> output(s.tapsFactor, scaleFactor, s.rounding);
  constexpr long piece = 480;
  Mox32s sums[piece];
  for (long done = 0; done < outputs; done += piece) {
    const long count = std::min(piece, outputs - done);
    sum(s, done, sums, count);
    output(sums, dst + done, count);
  }
  return moxOk;
}
inline MoxStatus runStream16s(MoxsFIRState* state, const Mox16s* src, Mox16s* dst, long len,
                              int scaleFactor) {
  return runWordStream(state, src, dst, len, scaleFactor,
                       [=](const WordStream& s, long done, Mox32s* sums, long count) {
                         kernels::filterWindow(src + done, sums, count, s.heldTaps, s.tapsLen);
                       });
}

}  // namespace mox::fir
