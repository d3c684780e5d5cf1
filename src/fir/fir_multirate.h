// Filters that change the rate. Two engines: outputs of the same phase side by side, or each output
// as a sum by itself, where there are too many phases for that. No product with an inserted zero is
// made in either.
#pragma once

#include <climits>

#include "fir/fir_state.h"
#include "fir/fir_stream.h"
#include "fir/output.h"
#include "frame/work_buffer.h"
#include "kernels/dot.h"
#include "kernels/sliding_dot.h"
#include "kernels/striped_dot.h"
#include "kernels/wrapping_dot.h"

namespace mox::fir {

// At most `most` sums, one by one, of the outputs whose newest sample comes before `end`. x points
// to sample 0. Returns how many were made.
template <class Sum, class HeldTap, class Held>
long sumSingly(const Held* x, const HeldTap* taps, const TapPhases& phases, PhaseWalk& walk,
               long end, Sum* sums, long most) {
  long made = 0;
  for (; made < most && walk.newest < end; ++made, walk.next()) {
    const long count = phases.count(walk.phase);
    sums[made] = kernels::dotProduct<Sum, kernels::TapOrder::reversed>(
        x + walk.newest - count + 1, taps + phases.first(walk.phase), count);
  }
  return made;
}

// `len` iterations. No output is written over a sample that is still to be read.
template <class C>
void filterSingly(StateOf<C>& s, const typename C::Data* src, typename C::Data* dst, long len,
                  const Output<C>& output) {
  const Rates& r = s.rates;
  const TapPhases phases(s.tapsLen, r.up);
  PhaseWalk walk(r);
  const long inputs = len * r.down, outputs = len * r.up;
  const auto* const x = s.store.appended();
  for (long taken = 0, made = 0; taken < inputs;) {
    const long piece = std::min<long>(pieceLen, inputs - taken);
    s.store.append(src + taken, piece);
    taken += piece;
    const long end = taken < inputs && r.up <= r.down ? std::min(taken, outputs) : outputs;
    for (long count = 1; made < end && count > 0; made += count) {
      count = sumSingly(x, s.heldTaps, phases, walk, piece, s.staging,
                        std::min<long>(chunkLen, end - made));
      output(s.staging, dst + made, count);
    }
    s.store.advance(piece);
    walk.newest -= piece;
  }
}

// Sums of the outputs of `cycles` cycles in order. x points to sample 0, behind the history.
template <class HeldTap, class Held, class Sum>
void sumCycles(const State<HeldTap, Held, Sum>& s, const Held* x, long history, long cycles,
               Sum* sums) {
  const long inputs = s.rates.cycleInputs(), outputs = s.rates.cycleOutputs();
  const auto in = inputRows(s.inputs, s.rates, s.dlyLen);
  if (inputs > 1) kernels::deal(x - history, history + cycles * inputs, in);
  const TapPhases phases(s.tapsLen, s.rates.up);
  PhaseWalk walk(s.rates);
  for (long i = 0; i < outputs; ++i, walk.next()) {
    Sum* const to = outputs > 1 ? s.outputs + i * cycles : sums;
    const long count = phases.count(walk.phase), start = walk.newest - count + 1;
    const HeldTap* const taps = s.heldTaps + phases.first(walk.phase);
    if (count == 0)
      std::fill_n(to, cycles, Sum{});
    else if (inputs > 1)
      kernels::filterStriped(in, history + start, to, cycles, taps, count);
    else
      kernels::filterWindow(x + start, to, cycles, taps, count);
  }
  if (outputs > 1) kernels::collect(kernels::Rows<Sum>{s.outputs, outputs, cycles}, cycles, sums);
}

// Runs step(done, cycles) over the cycles of `len` iterations.
template <class Step>
void forCycles(const Rates& r, long len, Step step) {
  const long cycles = len * (r.up / r.cycleOutputs()), most = cyclesOfStep(r);
  for (long done = 0; done < cycles; done += most) step(done, std::min(most, cycles - done));
}

template <class C>
void filterByCycles(StateOf<C>& s, const typename C::Data* src, typename C::Data* dst, long len,
                    const Output<C>& output) {
  const long inputs = s.rates.cycleInputs(), outputs = s.rates.cycleOutputs();
  forCycles(s.rates, len, [&](long done, long cycles) {
    const auto* const x = s.store.appended();
    s.store.append(src + done * inputs, cycles * inputs);
    // All samples of the step have been copied by now, so that outputs may go in their place.
    auto* const to = dst + done * outputs;
    if constexpr (converts<C>) {
      sumCycles(s, x, s.dlyLen, cycles, s.staging);
      output(s.staging, to, cycles * outputs);
    } else {
      sumCycles(s, x, s.dlyLen, cycles, to);
    }
    s.store.advance(cycles * inputs);
  });
}

// In place, outputs of a growing rate would overtake the inputs: those are copied first.
template <class C>
MoxStatus runMultirate(MoxsFIRState* state, const typename C::Data* src, typename C::Data* dst,
                       long len, int scaleFactor) {
  auto& s = stateOf<C>(state);
  const bool overtakes = src == dst && s.rates.up > s.rates.down;
  const long bytes = overtakes ? len * s.rates.down * long(sizeof *src) : 0;
  const WorkBuffer copy(nullptr, bytes);
  if (copy.failed()) return moxErrMemAlloc;
  if (overtakes)
    src =
        static_cast<const typename C::Data*>(std::memcpy(copy.as<void>(), src, std::size_t(bytes)));

  const Output<C> output(s.tapsFactor, scaleFactor, blockRounding<C>());
  if constexpr (isFloating<C>)
    if (s.byCycles) {
      filterByCycles<C>(s, src, dst, len, output);
      return moxOk;
    }
  filterSingly<C>(s, src, dst, len, output);
  return moxOk;
}

inline MoxStatus runStreamMultirate32f(MoxsFIRState* state, const Mox32f* src, Mox32f* dst,
                                       long len, int) {
  if (src == dst) return moxErrContext;
  const auto& s = stateOf<Fir32f>(state);
  const long history = streamHistory(s);
  if (s.byCycles) {
    const long inputs = s.rates.cycleInputs(), outputs = s.rates.cycleOutputs();
    forCycles(s.rates, len, [&](long done, long cycles) {
      sumCycles(s, src + history + done * inputs, history, cycles, dst + done * outputs);
    });
  } else {
    PhaseWalk walk(s.rates);
    sumSingly(src + history, s.heldTaps, TapPhases(s.tapsLen, s.rates.up), walk, LONG_MAX, dst,
              len * s.rates.up);
  }
  return moxOk;
}

inline MoxStatus runStreamMultirate16s(MoxsFIRState* state, const Mox16s* src, Mox16s* dst,
                                       long len, int scaleFactor) {
  const TapPhases phases(state->tapsLen, state->rates.up);
  PhaseWalk walk(state->rates);
  return runWordStream(state, src, dst, len * state->rates.up, scaleFactor,
                       [&](const WordStream& s, long, Mox32s* sums, long count) {
                         sumSingly(src + streamHistory(s), s.heldTaps, phases, walk, LONG_MAX, sums,
                                   count);
                       });
}

}  // namespace mox::fir
