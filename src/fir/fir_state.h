// The state of a FIR filter: taps, history and scratch, in one block of memory.
#pragma once

#include <moxsp/multirate.h>

#include <algorithm>

#include "convert/samples.h"
#include "fir/fir_combination.h"
#include "fir/fixed_point.h"
#include "fir/rates.h"
#include "frame/lifecycle.h"
#include "kernels/delay_store.h"
#include "kernels/striped_dot.h"
#include "transforms/overlap_save.h"

struct MoxsFIRState {
  Mox32s id;
  Mox32s owned;  // 1 when InitAlloc took the memory
  int tapsLen;
  int dlyLen;  // of the delay line that the caller sees
  int tapsFactor;
  mox::fir::Rates rates;
};

namespace mox::fir {

// Samples that one step filters by way of `staging`, and those that one step converts.
constexpr int chunkLen = 4224, pieceLen = chunkLen / 2;

// Up to this many inputs or outputs of a cycle a multirate filter makes the outputs of one phase
// side by side.
constexpr int longestCycle = 16;

// The parts of the engines that only floats have.
template <class Held>
struct Engines {
  bool hasFft;  // else the filter always sums directly
  transforms::OverlapSave<Held> fft;
  bool byCycles;  // else each output of a multirate filter is a sum by itself
  Held* inputs;   // one row for each input of a cycle
  Held* outputs;  // and for each output
};
template <>
struct Engines<Mox16s> {};
template <>
struct Engines<Mox16sc> {};

// The whole record.
template <class HeldTap, class Held, class Sum>
struct State : MoxsFIRState, Engines<Held> {
  HeldTap* heldTaps;  // in the order of TapPhases
  kernels::DelayStore<Held> store;
  Sum* staging;  // results of one chunk before they go to the caller
};

// Cycles that one step of a multirate filter runs through.
constexpr long cyclesOfStep(const Rates& r) {
  return pieceLen / std::max(r.cycleInputs(), r.cycleOutputs());
}

// A step's samples and those before them, in one row for each input of a cycle.
template <class Held>
constexpr kernels::Rows<Held> inputRows(Held* first, const Rates& r, long history) {
  const long count = r.cycleInputs();
  return kernels::rowsOf(first, count, cyclesOfStep(r) + history / count + 1);
}

struct Shape {
  int tapsLen;
  Rates rates = {};
  int leastTapsForFft = never;

  // Transforms are as long as 2 to 4 times the taps; -1 where there is none.
  constexpr int fftOrder() const {
    if (tapsLen < leastTapsForFft || !rates.areSingle()) return -1;
    constexpr int mostOrder = 27;  // samples and spectrum of larger ones take 2^31 bytes
    int order = 3;
    while (1L << (order - 1) <= tapsLen) ++order;
    return order <= mostOrder ? order : -1;
  }

  template <class HeldTap, class Held, class Sum>
  constexpr void layout(Arena& arena, State<HeldTap, Held, Sum>& s) const {
    s.tapsLen = tapsLen;
    s.rates = rates;
    s.dlyLen = int(TapPhases(tapsLen, rates.up).longest());
    s.heldTaps = arena.place<HeldTap>(std::size_t(tapsLen), partAlignment);
    s.store.place(arena, s.dlyLen, pieceLen);
    s.staging = arena.place<Sum>(chunkLen, partAlignment);
    if constexpr (std::is_same_v<Held, Sum>) layoutEngines<Held>(arena, s, s.dlyLen);
  }

 private:
  template <class Held>
  constexpr void layoutEngines(Arena& arena, Engines<Held>& s, long history) const {
    const int order = fftOrder();
    s.hasFft = order > 0;
    if (s.hasFft) s.fft.place(arena, tapsLen - 1, order);
    const int inputs = rates.cycleInputs(), outputs = rates.cycleOutputs();
    s.byCycles = !rates.areSingle() && std::max(inputs, outputs) <= longestCycle;
    if (!s.byCycles) return;
    const auto rows = inputRows<Held>(nullptr, rates, history);
    s.inputs = arena.place<Held>(std::size_t(rows.elements()), partAlignment);
    s.outputs = arena.place<Held>(std::size_t(outputs * cyclesOfStep(rates)), partAlignment);
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

// How a combination's taps are held, made from all of a caller's.
template <class C>
auto tapScale(const typename C::Tap* taps, int tapsLen, int tapsFactor) {
  using E = Part<typename C::Tap>;
  const long count = long(tapsLen) * partsPerElement<typename C::Tap>;
  if constexpr (std::is_integral_v<E>)
    return TapScale<E>(parts(taps), count, tapsFactor, C::mostTap);
  else
    return TapScale<E>(parts(taps), count);
}

// In a record with heldTaps, and with tapsFactor, where taps have one.
template <class C, class Record>
void holdTaps(Record& s, const typename C::Tap* taps, int tapsFactor) {
  using Tap = typename C::Tap;
  const TapPhases phases(s.tapsLen, s.rates.up);
  if constexpr (isFloating<C>) {
    phases.forEachTap([&](long k, long place) {
      s.heldTaps[place] = convert::converted<typename C::HeldTap>(load<Tap>(taps + k));
    });
  } else {
    const auto scale = tapScale<C>(taps, s.tapsLen, tapsFactor);
    s.tapsFactor = scale.factor();
    phases.forEachTap([&](long k, long place) {
      for (int i = 0; i < partsPerElement<Tap>; ++i)
        parts(s.heldTaps + place)[i] = scale(load<Part<Tap>>(parts(taps + k) + i));
    });
  }
}

template <class C>
void writeTaps(StateOf<C>& s, const typename C::Tap* taps, int tapsFactor) {
  holdTaps<C>(s, taps, tapsFactor);
  if constexpr (isFloating<C>)
    if (s.hasFft) s.fft.setTaps(s.tapsLen, [&](long k) { return s.heldTaps[s.tapsLen - 1 - k]; });
}

// Filters whose state no int can measure have too many taps.
template <class C>
MoxStatus checkSize(const Shape& shape) {
  return fitsInInt<Kind<C>>(shape) ? moxOk : MoxStatus(moxErrFirLen);
}

// A filter runs without the spectrum of its taps where no int can measure the state with it.
template <class C>
Shape shapeOf(int tapsLen, const Rates& rates, int leastTapsForFft) {
  const Shape shape{tapsLen, rates, leastTapsForFft};
  return fitsInInt<Kind<C>>(shape) ? shape : Shape{tapsLen, rates};
}

// What the Init functions are given, and the forms without a state that make one for a call. The
// numbers behind the tap count are the factor of the taps, the rates, both or none.
template <class C>
struct Setup {
  using Tap = typename C::Tap;
  using Data = typename C::Data;

  Setup(const Tap* t, int n, const Data* d) : taps(t), tapsLen(n), dlyLine(d) {}
  Setup(const Tap* t, int n, const Data* d, int factor) : Setup(t, n, d) { tapsFactor = factor; }
  Setup(const Tap* t, int n, const Data* d, int up, int upPhase, int down, int downPhase)
      : Setup(t, n, d) {
    rates = {up, upPhase, down, downPhase};
  }
  Setup(const Tap* t, int n, const Data* d, int factor, int up, int upPhase, int down,
        int downPhase)
      : Setup(t, n, d, up, upPhase, down, downPhase) {
    tapsFactor = factor;
  }

  const Tap* taps;
  int tapsLen;
  const Data* dlyLine;
  int tapsFactor = 0;
  Rates rates = {};

  MoxStatus check() const {
    if (tapsLen < 1) return moxErrFirLen;
    if (MoxStatus s = rates.check()) return s;
    return checkSize<C>(shape(C::leastTapsForFft));
  }
  Shape shape(int leastTapsForFft) const { return shapeOf<C>(tapsLen, rates, leastTapsForFft); }
  Mox32s id(bool isStream = false) const {
    if (rates.areSingle()) return isStream ? C::ids.stream : C::ids.single;
    return isStream ? C::ids.streamMultirate : C::ids.multirate;
  }

  MoxStatus operator()(StateOf<C>& s) const {
    if constexpr (isFloating<C>)
      if (s.hasFft) s.fft.fill();
    writeTaps<C>(s, taps, tapsFactor);
    s.store.setLine(dlyLine);
    return moxOk;
  }
};

template <class C>
MoxStatus initAllocFrom(MoxsFIRState** state, const Setup<C>& setup, bool isStream = false) {
  if (MoxStatus s = setup.check()) return s;
  const int leastTapsForFft = isStream ? never : C::leastTapsForFftAlloc;
  return mox::initAlloc<Kind<C>>(state, setup.id(isStream), setup.shape(leastTapsForFft), setup);
}

}  // namespace mox::fir
