// The state of an IIR filter in one block of memory: a cascade of sections of the same order, which
// is a single section where the order is the caller's choice.
#pragma once

#include <moxsp/iir.h>

#include "frame/lifecycle.h"
#include "iir/iir_combination.h"
#include "iir/rows.h"

struct MoxsIIRState {
  Mox32s id;
  Mox32s owned;  // 1 when InitAlloc took the memory
  int order;     // of each section
  int sections;
  int dlyLen;  // of the delay line that the caller sees
};

namespace mox::iir {

// The most samples that a stretch of a block has, and the largest order whose sections filter
// stretches: a stretch has at least as many samples.
constexpr int mostLength = 256, mostOrder = 128;

// From the response to one past output to the next. No power of two, so that responses do not fall
// onto the same lines of the cache.
constexpr long responseStride = mostLength + 16;

// Taps and pasts of sections of order 2 are read in tiles of this many numbers.
constexpr int tileNumbers = 8, readBeyond = tileNumbers - 4;

template <class E>
struct State : MoxsIIRState {
  bool isDirectForm1, filtersStretches;
  int length;     // the most samples of a stretch that the responses allow
  E* taps;        // of each section b[0..order], a[1..order], divided by a[0]
  E* dlyLine;     // of each section the sums that enter the next `order` outputs; in direct form I
                  // it is `past`
  E* past;        // of each section the last `order` inputs, then outputs; the oldest first
  E* response;    // of each section what a past output adds to the next ones
  int* reach;     // of each section the outputs for which `response` is held
  Row<E>* rows;   // a block on its way through the sections, below `order` rows of its past
  Row<E>* input;  // the block that enters, likewise; sections of order 2 work in place
  Row<E>* before[2];  // what precedes each stretch of a section's input and output
  E* staging;         // samples of a piece that are converted

  long tapsOf(int section) const { return long(2 * order + 1) * section; }
  long pastOf(int section) const { return 2L * order * section; }
  long responseOf(int section) const { return order * responseStride * section; }
};

// Samples that are converted in one step: those that set a block off, and the block.
template <class E>
long pieceLen(const State<E>& s) {
  return long(s.order) + stretchesOf<E> * mostLength;
}

struct Shape {
  Form form;
  int count;  // the order, or of a cascade the number of sections

  // The caller's: b[0..order], a[0..order] of each section.
  constexpr long taps() const { return form == Form::ar ? 2L * count + 2 : 6L * count; }

  template <class E>
  constexpr void layout(Arena& arena, State<E>& s) const {
    s.isDirectForm1 = form == Form::directForm1;
    s.order = form == Form::ar ? count : 2;
    s.sections = form == Form::ar ? 1 : count;
    s.filtersStretches = s.order <= mostOrder;
    const std::size_t order(s.order), sections(s.sections);
    s.dlyLen = int(order * sections * (s.isDirectForm1 ? 2 : 1));
    s.taps = arena.place<E>((2 * order + 1) * sections + readBeyond, partAlignment);
    s.past = arena.place<E>(2 * order * sections + readBeyond, partAlignment);
    s.dlyLine = s.isDirectForm1 ? s.past : arena.place<E>(order * sections, partAlignment);
    s.staging = arena.place<E>(std::size_t(pieceLen(s)), partAlignment);
    if (!s.filtersStretches) return;
    s.response = arena.place<E>(order * responseStride * sections, partAlignment);
    s.reach = arena.place<int>(sections, partAlignment);
    s.rows = arena.place<Row<E>>(order + mostLength, partAlignment);
    if (order != 2) s.input = arena.place<Row<E>>(order + mostLength, partAlignment);
    for (Row<E>*& before : s.before) before = arena.place<Row<E>>(order, partAlignment);
  }
};

// A combination as a kind of object.
template <class C>
struct Kind {
  using Head = MoxsIIRState;
  using Record = State<typename C::Held>;
  using Shape = iir::Shape;
  static constexpr int alignment = 32;
  static constexpr bool releaseClearsId = false;
};

template <class C>
using StateOf = typename Kind<C>::Record;
template <class C>
StateOf<C>& stateOf(MoxsIIRState* state) {
  return *static_cast<StateOf<C>*>(state);
}
template <class C>
const StateOf<C>& stateOf(const MoxsIIRState* state) {
  return *static_cast<const StateOf<C>*>(state);
}

}  // namespace mox::iir
