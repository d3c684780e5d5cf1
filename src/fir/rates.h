// Filters that change the rate: with u[up * i + upPhase] = x[i], zeros elsewhere, and z = u
// filtered, the outputs are y[j] = z[down * j + downPhase].
#pragma once

#include <moxsp/types.h>

#include <algorithm>
#include <numeric>

namespace mox::fir {

struct Rates {
  int up = 1, upPhase = 0, down = 1, downPhase = 0;

  constexpr bool areSingle() const { return up == 1 && down == 1; }
  // Inputs and outputs after which the phases recur.
  constexpr int cycleInputs() const { return down / std::gcd(up, down); }
  constexpr int cycleOutputs() const { return up / std::gcd(up, down); }

  constexpr bool haveFactors() const { return up >= 1 && down >= 1; }
  // Size queries, which get no phases, answer to a bad factor as to a bad phase.
  constexpr MoxStatus checkForSize() const {
    return haveFactors() ? moxOk : MoxStatus(moxErrFirMrPhase);
  }
  constexpr MoxStatus check() const {
    if (!haveFactors()) return moxErrFirMrFactor;
    const auto within = [](int phase, int factor) { return phase >= 0 && phase < factor; };
    return within(upPhase, up) && within(downPhase, down) ? moxOk : MoxStatus(moxErrFirMrPhase);
  }
};

// An output meets every up-th tap: those of its phase. Taps are held phase after phase, those of
// one phase in reverse order; of a filter that keeps its rate, simply in reverse order.
class TapPhases {
 public:
  constexpr TapPhases(int tapsLen, int up) : up_(up), whole_(tapsLen / up), rest_(tapsLen % up) {}

  constexpr long longest() const { return whole_ + (rest_ > 0); }
  long count(long phase) const { return whole_ + (phase < rest_); }
  long first(long phase) const { return phase * whole_ + std::min(phase, rest_); }
  // f(k, place) for every tap k and the place where it is held.
  template <class F>
  void forEachTap(F f) const {
    for (long phase = 0, place = 0; phase < up_ && count(phase) > 0; ++phase)
      for (long i = count(phase); i-- > 0; ++place) f(phase + i * up_, place);
  }

 private:
  long up_, whole_, rest_;
};

// Walks from output to output: the newest sample that reaches one, -1 at the least, and its phase.
class PhaseWalk {
 public:
  explicit PhaseWalk(const Rates& r)
      : newest(r.downPhase >= r.upPhase ? (r.downPhase - r.upPhase) / r.up : -1),
        phase(r.downPhase - r.upPhase - newest * r.up),
        up_(r.up),
        samples_(r.down / r.up),
        phases_(r.down % r.up) {}

  void next() {
    newest += samples_;
    phase += phases_;
    if (phase >= up_) phase -= up_, ++newest;
  }

  long newest, phase;

 private:
  long up_, samples_, phases_;
};

}  // namespace mox::fir
