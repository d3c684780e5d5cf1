#include "band.h"

#include <algorithm>
#include <cmath>

#include "support/program.h"
#include "support/require.h"

bool Band::stops(double hz) const {
  return hz < low - halfTransition() || hz > high + halfTransition();
}

bool Band::passes(double hz) const {
  const bool aboveLow = low == 0 || hz > low + halfTransition();
  return aboveLow && (high >= rate / 2 || hz < high - halfTransition());
}

std::vector<double> Band::edges() const {
  std::vector<double> all;
  for (double hz : {low, high})
    if (hz > 0 && hz < rate / 2) all.push_back(hz);
  return all;
}

std::string Band::name() const {
  const std::string from = shortNumber(low), to = shortNumber(high);
  if (low == 0) return "lowpass-" + to + "Hz";
  if (high >= rate / 2) return "highpass-" + from + "Hz";
  return "bandpass-" + from + "-" + to + "Hz";
}

std::vector<float> windowedSinc(const Band& band) {
  constexpr int noWindow = -1;
  const double low = band.low / band.rate, high = band.high / band.rate;
  std::vector<double> taps(band.taps);
  if (low == 0)
    require(moxsFIRGenLowpass_64f(high, taps.data(), band.taps, noWindow, 0),
            "moxsFIRGenLowpass_64f");
  else if (high >= 0.5)
    require(moxsFIRGenHighpass_64f(low, taps.data(), band.taps, noWindow, 0),
            "moxsFIRGenHighpass_64f");
  else
    require(moxsFIRGenBandpass_64f(low, high, taps.data(), band.taps, noWindow, 0),
            "moxsFIRGenBandpass_64f");
  require(moxsWinBlackmanStd_64f_I(taps.data(), band.taps), "moxsWinBlackmanStd_64f_I");
  return {taps.begin(), taps.end()};
}

BandLevels levelsOf(const Spectrogram& s, int channel, const Band& band) {
  double stop = 0, pass = 0;
  for (int bin = 0; bin < s.bins; ++bin) {
    const double power = s.channelPower[channel][bin] / s.spread;
    if (band.stops(s.hz(bin))) stop += power;
    if (band.passes(s.hz(bin))) pass += power;
  }
  const auto dB = [](double power) { return 10 * std::log10(std::max(power, 1e-20)); };
  return {dB(stop), dB(pass)};
}
