// Linear-phase FIR filters by the window method.
#include <moxsp/fir_design.h>

#include <cmath>
#include <numbers>

#include "frame/export.h"
#include "frame/vec/vec.h"
#include "gen/windows.h"

namespace mox::fir {
namespace {

// What passes between two frequencies, or what does not. A lowpass begins at 0.
struct Band {
  Mox64f low, high;
  bool stops, isHighpass;
};

// sin(2 pi f d) / (pi d), which is 2 f for d = 0.
Mox64f sinc(Mox64f f, Mox64f d) {
  constexpr Mox64f pi = std::numbers::pi;
  return d == 0 ? 2 * f : std::sin(2 * pi * f * d) / (pi * d);
}

// The ideal response at distance d from the middle. A highpass of even length is antisymmetric: it
// turns the phase by a quarter.
Mox64f idealTap(const Band& band, Mox64f d) {
  const bool isBetween = d != std::floor(d);
  if (band.isHighpass && isBetween)
    return std::cos(2 * std::numbers::pi * band.high * d) / (std::numbers::pi * d);
  const Mox64f passed = sinc(band.high, d) - (band.low > 0 ? sinc(band.low, d) : 0);
  return band.stops ? (d == 0 ? 1 : 0) - passed : passed;
}

// Where the gain is to be 1.
Mox64f referenceOf(const Band& band) {
  if (band.isHighpass) return 0.5;
  return band.stops || band.low == 0 ? 0 : (band.low + band.high) / 2;
}

enum WindowType { bartlett, blackmanOpt, hamming, hann };

void applyWindow(int winType, Mox64f* taps, int len) {
  switch (winType) {
    case bartlett:
      gen::winBartlett(taps, taps, len);
      break;
    case blackmanOpt:
      gen::winBlackmanOpt(taps, taps, len);
      break;
    case hamming:
      gen::winHamming(taps, taps, len);
      break;
    case hann:
      gen::winHann(taps, taps, len);
      break;
  }
}

MoxStatus design(const Band& band, Mox64f* taps, int tapsLen, int winType, bool isNormal) {
  if (anyNull(taps)) return moxErrNullPtr;
  if (MoxStatus s = checkLength(tapsLen, 5)) return s;
  const auto isFrequency = [](Mox64f f) { return f > 0 && f < 0.5; };
  if (!isFrequency(band.high) || !(band.low < band.high) ||
      !(band.low == 0 || isFrequency(band.low)))
    return moxErrSize;
  // The half before the middle, and the tap there where the length is odd.
  const int half = tapsLen / 2, count = tapsLen - half;
  const Mox64f middle = Mox64f(tapsLen - 1) / 2;
  for (int i = 0; i < count; ++i) store(taps + i, idealTap(band, middle - i));
  const bool isOdd = band.isHighpass && tapsLen % 2 == 0;
  const auto mirror = [&] {
    for (int i = 0; i < half; ++i)
      store(taps + tapsLen - 1 - i, isOdd ? -load<Mox64f>(taps + i) : load<Mox64f>(taps + i));
  };
  mirror();
  applyWindow(winType, taps, tapsLen);
  if (isNormal) {
    const Mox64f turn = 2 * std::numbers::pi * referenceOf(band);
    Mox64f gain = 0;
    for (int i = 0; i < tapsLen; ++i) {
      const Mox64f angle = turn * (middle - i);
      gain += load<Mox64f>(taps + i) * (isOdd ? std::sin(angle) : std::cos(angle));
    }
    for (int i = 0; i < count; ++i) store(taps + i, load<Mox64f>(taps + i) / std::abs(gain));
  }
  mirror();
  return moxOk;
}

MoxStatus lowpass(Mox64f rFreq, Mox64f* taps, int tapsLen, int winType, int doNormal) {
  return design({0, rFreq, false, false}, taps, tapsLen, winType, doNormal != 0);
}
MoxStatus highpass(Mox64f rFreq, Mox64f* taps, int tapsLen, int winType, int doNormal) {
  return design({0, rFreq, true, true}, taps, tapsLen, winType, doNormal != 0);
}
template <bool stops>
MoxStatus band(Mox64f rLowFreq, Mox64f rHighFreq, Mox64f* taps, int tapsLen, int winType,
               int doNormal) {
  // Not the 0 that stands for a lowpass.
  const Mox64f low = rLowFreq > 0 ? rLowFreq : -1;
  return design({low, rHighFreq, stops, false}, taps, tapsLen, winType, doNormal != 0);
}

}  // namespace

MOX_EXPORT(moxsFIRGenLowpass_64f, lowpass);
MOX_EXPORT(moxsFIRGenHighpass_64f, highpass);
MOX_EXPORT(moxsFIRGenBandpass_64f, band<false>);
MOX_EXPORT(moxsFIRGenBandstop_64f, band<true>);

}  // namespace mox::fir
