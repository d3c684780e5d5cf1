// Sampled sinusoids.
#include <moxsp/generators.h>

#include "arith/sine.h"
#include "frame/export.h"
#include "frame/rounding_control.h"
#include "gen/oscillator.h"
#include "gen/wave_q15.h"

struct MoxToneState : mox::gen::WaveState {};

namespace mox::gen {
namespace {

constexpr WaveErrors toneErrors = {moxErrToneMagn, moxErrToneFreq, moxErrToneFreq, moxErrTonePhase};

// Computed in the format F.
template <class F, class E>
void fillTone(E* dst, long len, const Wave& wave) {
  Oscillator<F> oscillator(wave.magn, wave.step(), wave.phase);
  const auto block = [&] {
    if constexpr (Complex<E>)
      return Pair<Block<F>>{oscillator.cosines(), oscillator.sines()};
    else
      return oscillator.cosines();
  };
  fillRounded(dst, len, [&] {
    const auto now = block();
    oscillator.advance();
    return now;
  });
}

template <class E>
MoxStatus toneDirect(E* dst, int len, Part<E> magn, FloatOf<E> rFreq, FloatOf<E>* phase, int hint) {
  return runDirect(dst, len, {Mox64f(magn), rFreq, 0, 0}, phase, toneErrors, [&](const Wave& w) {
    if (hint == moxHintFast)
      fillTone<FloatOf<E>>(dst, len, w);
    else
      fillTone<Mox64f>(dst, len, w);
  });
}

// Every sample is a cosine by itself.
struct ToneQ15 {
  using State = MoxToneState;
  static constexpr Mox32s id = 0x434D4148;
  static constexpr const WaveErrors& errors = toneErrors;

  static void fill(Mox16s* dst, long len, long n, const Wave& wave) {
    fillByAngle(dst, len, n, wave, [&](const Block<Mox64f>& angles) {
      return blockOf<Mox64f>(
          [&](int j) { return arith::phasor(arith::reduced(angles.v[j])).re * wave.magn; });
    });
  }
};

MoxStatus toneInit(MoxToneState* state, Mox16s magn, Mox16s rFreqQ15, Mox32s phaseQ15) {
  return initQ15<ToneQ15>(state, {magn, rFreqQ15, phaseQ15});
}
MoxStatus toneInitAlloc(MoxToneState** out, Mox16s magn, Mox16s rFreqQ15, Mox32s phaseQ15) {
  return initAllocQ15<ToneQ15>(out, {magn, rFreqQ15, phaseQ15});
}
MoxStatus toneDirectQ15(Mox16s* dst, int len, Mox16s magn, Mox16s rFreqQ15, Mox32s phaseQ15) {
  return runDirectQ15<ToneQ15>(dst, len, {magn, rFreqQ15, phaseQ15});
}

}  // namespace

MOX_EXPORT(moxsTone_Direct_16s, toneDirect);
MOX_EXPORT(moxsTone_Direct_16sc, toneDirect);
MOX_EXPORT(moxsTone_Direct_32f, toneDirect);
MOX_EXPORT(moxsTone_Direct_32fc, toneDirect);
MOX_EXPORT(moxsTone_Direct_64f, toneDirect);
MOX_EXPORT(moxsTone_Direct_64fc, toneDirect);

MOX_EXPORT(moxsToneGetStateSizeQ15_16s, recordSize<MoxToneState>);
MOX_EXPORT(moxsToneInitQ15_16s, toneInit);
MOX_EXPORT(moxsToneInitAllocQ15_16s, toneInitAlloc);
MOX_EXPORT(moxsToneFree, freeQ15<ToneQ15>);
MOX_EXPORT(moxsToneQ15_16s, runQ15<ToneQ15>);
MOX_EXPORT(moxsToneQ15_Direct_16s, toneDirectQ15);

}  // namespace mox::gen
