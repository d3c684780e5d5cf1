// Tones and triangles of 16 bits with parameters in units of 2^-15, with a state and without.
#pragma once

#include "gen/record.h"
#include "gen/wave.h"

namespace mox::gen {

struct WaveState : RecordHead {
  Wave wave;
  Mox64s count;  // of samples so far
};
static_assert(sizeof(WaveState) == 48, "the size has been published");

// The parameters of a wave, and what is wrong with them.
struct WaveQ15 {
  Mox16s magn, rFreq;
  Mox32s phase, asym = 0;

  MoxStatus check(const WaveErrors& errors) const {
    if (magn < 1) return errors.magn;
    if (rFreq < 0 || rFreq > 16383) return errors.freq;
    if (phase < 0 || phase > 205886) return errors.phase;
    if (asym < -102943 || asym > 102943) return errors.asym;
    return moxOk;
  }
  Wave wave() const {
    constexpr Mox64f unit = 0x1p-15;
    return {Mox64f(magn), rFreq * unit, phase * unit, asym * unit};
  }
};

// A kind has the state `State`, `id`, `errors`, and fill(dst, len, n, wave) from sample n on.
template <class Kind>
MoxStatus initQ15(typename Kind::State* state, const WaveQ15& w) {
  if (anyNull(state)) return moxErrNullPtr;
  if (MoxStatus s = w.check(Kind::errors)) return s;
  store(state, typename Kind::State{{{Kind::id}, w.wave(), 0}});
  return moxOk;
}
template <class Kind>
MoxStatus initAllocQ15(typename Kind::State** out, const WaveQ15& w) {
  if (anyNull(out)) return moxErrNullPtr;
  if (MoxStatus s = w.check(Kind::errors)) return s;
  return allocRecord(out, typename Kind::State{{{Kind::id}, w.wave(), 0}});
}
template <class Kind>
MoxStatus freeQ15(typename Kind::State* state) {
  return freeRecord(state, Kind::id);
}

template <class Kind>
MoxStatus runQ15(Mox16s* dst, int len, typename Kind::State* state) {
  return runRecord(dst, len, state, Kind::id, [&](auto& s) {
    const NearestScope scope;
    Kind::fill(dst, len, s.count, s.wave);
    s.count += len;
  });
}

template <class Kind>
MoxStatus runDirectQ15(Mox16s* dst, int len, const WaveQ15& w) {
  if (MoxStatus s = checkArrays(len, dst)) return s;
  if (MoxStatus s = w.check(Kind::errors)) return s;
  const NearestScope scope;
  Kind::fill(dst, len, 0, w.wave());
  return moxOk;
}

}  // namespace mox::gen
