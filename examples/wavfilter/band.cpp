#include "band.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "support/program.h"

namespace {

// Ideal lowpass at tap offset `t` from the middle; `f` is the cut-off relative to the rate.
double idealLowpass(double f, int t) {
  return t == 0 ? 2 * f : std::sin(2 * std::numbers::pi * f * t) / (std::numbers::pi * t);
}

}  // namespace

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
  const int middle = band.taps / 2;
  std::vector<float> taps(band.taps);
  for (int i = 0; i < band.taps; ++i) {
    const double phase = 2 * std::numbers::pi * (i + 1) / (band.taps + 1);
    const double window = 0.42 - 0.5 * std::cos(phase) + 0.08 * std::cos(2 * phase);
    const double ideal = idealLowpass(band.high / band.rate, i - middle) -
                         idealLowpass(band.low / band.rate, i - middle);
    taps[i] = float(window * ideal);
  }
  return taps;
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
