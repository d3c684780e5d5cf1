// FM demodulation: the angle from each point to the next.
#include <moxsp/channel.h>

#include "convert/phase.h"
#include "frame/control_word.h"
#include "frame/export.h"
#include "frame/map_scaled.h"

namespace mox::channel {
namespace {

using Lanes = V<Mox32f>;

// An angle of pi is 2^15. The parts of the product are exact up to 2^24, and their errors 2^-24 of
// the squared magnitudes beyond.
[[gnu::always_inline]] inline Beside<Mox16s, Lanes> frequencies(Pair<Lanes> z, Pair<Lanes> before) {
  constexpr Mox32f scale = 32768 / 3.14159265358979f;
  const auto turns =
      toInteger(nearestInteger(convert::phaseLanes(conjugateProduct(z, before)).value * scale));
  return narrowed<Mox16s>(turns);
}

MoxStatus demodulateFM(const Mox16s* srcRe, const Mox16s* srcIm, Mox16s* dst, int len,
                       Mox16sc* dlyPoint) {
  if (MoxStatus s = checkArrays(len, srcRe, srcIm, dst, dlyPoint)) return s;
  const HiddenExceptions scope;
  const auto pointAt = [=](long i) {
    return Pair<Lanes>{Lanes{Mox32f(load<Mox16s>(srcRe + i))},
                       Lanes{Mox32f(load<Mox16s>(srcIm + i))}};
  };
  const auto pointsFrom = [=](long i) {
    return Pair<Lanes>{loadWidened<Lanes>(srcRe + i), loadWidened<Lanes>(srcIm + i)};
  };
  const Mox16sc first = load<Mox16sc>(dlyPoint);
  const Pair<Lanes> before = {Lanes{Mox32f(first.re)}, Lanes{Mox32f(first.im)}};
  store(dst, Mox16s(frequencies(pointAt(0), before)[0]));
  mapInteger<laneCount<Lanes>, laneCount<Lanes>>(
      dst + 1, len - 1L,
      [=](long i, int) { return Mox16s(frequencies(pointAt(i + 1), pointAt(i))[0]); },
      [=](auto, long i) { return frequencies(pointsFrom(i + 1), pointsFrom(i)); });
  store(dlyPoint, Mox16sc{load<Mox16s>(srcRe + len - 1), load<Mox16s>(srcIm + len - 1)});
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsDemodulateFM_CToR_16s, demodulateFM);

}  // namespace mox::channel
