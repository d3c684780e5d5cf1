// The state of a FIR filter: taps, history and scratch, in one block of memory.
#pragma once

#include <moxsp/fir.h>

#include <algorithm>

#include "convert/samples.h"
#include "fir/fir_combination.h"
#include "frame/lifecycle.h"
#include "transforms/overlap_save.h"

struct MoxsFIRState {
  Mox32s id;
  Mox32s owned;  // 1 when InitAlloc took the memory
  int tapsLen;
  int dlyLen;    // of the delay line that the caller sees
  int dlyIndex;  // place of the oldest of the last tapsLen samples in the delay store
};

namespace mox::fir {

// Samples that one step filters by way of `staging`, and those that one step converts.
constexpr int chunkLen = 4224, pieceLen = chunkLen / 2;

// The least taps with an FFT path, by the type of samples held.
template <class Held>
constexpr int leastTapsForFft = 64;
template <>
inline constexpr int leastTapsForFft<Mox32fc> = 16;
template <>
inline constexpr int leastTapsForFft<Mox64fc> = 32;

// The whole record.
template <class HeldTap, class Held, class Sum>
struct State : MoxsFIRState {
  HeldTap* revTaps;
  Held* dlyLine;  // delay store: the samples oldest first, with room to append new ones
  Sum* staging;   // results of one chunk before they go to the caller
  bool hasFft;    // else the filter always runs direct
  transforms::OverlapSave<Held> fft;
};

// The first samples of a long block go through the delay store, for they need the history before
// them; the others are read where they are. All of a short block go through it.
template <class Held>
constexpr long outputsFromStore(long tapsLen) {
  return long(roundUp(std::size_t(tapsLen), sizeof(Part<Held>) == 4 && !Complex<Held> ? 8 : 4));
}

struct Shape {
  int tapsLen;

  // Transforms are as long as 2 to 4 times the taps; -1 where there is none.
  template <class Held>
  constexpr int fftOrder() const {
    if (tapsLen < leastTapsForFft<Held>) return -1;
    constexpr int mostOrder = 27;  // samples and spectrum of larger ones take 2^31 bytes
    int order = 3;
    while (1L << (order - 1) <= tapsLen) ++order;
    return order <= mostOrder ? order : -1;
  }

  template <class HeldTap, class Held, class Sum>
  constexpr void layout(Arena& arena, State<HeldTap, Held, Sum>& s) const {
    s.tapsLen = s.dlyLen = tapsLen;
    const std::size_t taps(tapsLen);
    const long appended = std::max(outputsFromStore<Held>(tapsLen), long(pieceLen));
    s.revTaps = arena.place<HeldTap>(taps, partAlignment);
    s.dlyLine = arena.place<Held>(2 * taps + std::size_t(appended), partAlignment);
    s.staging = arena.place<Sum>(chunkLen, partAlignment);
    const int order = fftOrder<Held>();
    s.hasFft = order > 0;
    if (s.hasFft) s.fft.place(arena, tapsLen, order);
  }
};

// A combination as a kind of object.
template <class C>
struct Kind {
  using Head = MoxsFIRState;
  using Record = State<typename C::HeldTap, typename C::Held, typename C::Sum>;
  using Shape = fir::Shape;
  static constexpr int alignment = 16;
  static constexpr bool releaseClearsId = false;
};

template <class C>
using StateOf = typename Kind<C>::Record;
template <class C>
StateOf<C>& stateOf(MoxsFIRState* state) {
  return *static_cast<StateOf<C>*>(state);
}
template <class C>
const StateOf<C>& stateOf(const MoxsFIRState* state) {
  return *static_cast<const StateOf<C>*>(state);
}

// Taps are held in reverse order.
template <class C>
void writeTaps(StateOf<C>& s, const typename C::Tap* taps) {
  for (int k = 0; k < s.tapsLen; ++k)
    s.revTaps[s.tapsLen - 1 - k] =
        convert::converted<typename C::HeldTap>(load<typename C::Tap>(taps + k));
  if (s.hasFft) s.fft.setTaps(std::reverse_iterator(s.revTaps + s.tapsLen));
}

// The newest sample comes first in `dlyLine`; null stands for silence.
template <class C>
void writeDelayLine(StateOf<C>& s, const typename C::Data* dlyLine) {
  using Held = typename C::Held;
  s.dlyIndex = 0;
  for (int i = 0; i < s.dlyLen; ++i)
    s.dlyLine[s.dlyLen - 1 - i] =
        dlyLine ? convert::converted<Held>(load<typename C::Data>(dlyLine + i)) : Held{};
}

}  // namespace mox::fir
