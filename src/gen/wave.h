// What tones and triangles share: their parameters, and the phase from call to call.
#pragma once

#include "frame/checks.h"
#include "gen/angle.h"
#include "gen/fill.h"

namespace mox::gen {

// `rFreq` cycles a sample from `phase` on; the asymmetry is that of triangles.
struct Wave {
  Mox64f magn, rFreq, phase, asym;

  Mox64f step() const { return twoPi * rFreq; }
};

struct WaveErrors {
  MoxStatus magn, freq, asym, phase;
};

inline MoxStatus checkWave(const Wave& w, const WaveErrors& errors) {
  constexpr Mox64f pi = twoPi / 2;
  if (!(w.magn > 0)) return errors.magn;
  if (!(w.rFreq >= 0 && w.rFreq < 0.5)) return errors.freq;
  if (!(w.asym >= -pi && w.asym < pi)) return errors.asym;
  if (!(w.phase >= 0 && w.phase < twoPi)) return errors.phase;
  return moxOk;
}

// The body of the forms whose phase is the caller's: fill(wave) fills `dst`.
template <class E, class Fill>
MoxStatus runDirect(E* dst, int len, Wave wave, FloatOf<E>* phase, const WaveErrors& errors,
                    Fill fill) {
  if (anyNull(phase)) return moxErrNullPtr;
  wave.phase = load<FloatOf<E>>(phase);
  if (MoxStatus s = checkWave(wave, errors)) return s;
  if (MoxStatus s = checkArrays(len, dst)) return s;
  const ResultScope<E> scope;
  fill(wave);
  const Mox64f p = wave.step() * len + wave.phase;
  const auto left = FloatOf<E>(p - twoPi * std::floor(p * 0.15915494309189535));
  store(phase, left >= 0 && left < twoPi ? left : FloatOf<E>(0));
  return moxOk;
}

// dst[i] = at(the angle of sample n + i), less some turns; stretch by stretch, since large angles
// are coarse.
template <class E, class At>
void fillByAngle(E* dst, long len, long n, const Wave& wave, At at) {
  constexpr long stretch = 1024;
  for (long i = 0; i < len; i += stretch) {
    RampBlocks angles({angleAt(n + i, wave.step(), wave.phase), wave.step()});
    fillRounded(dst + i, std::min(stretch, len - i), [&] { return at(angles.next()); });
  }
}

}  // namespace mox::gen
