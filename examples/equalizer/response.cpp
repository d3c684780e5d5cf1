#include "response.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>

#include "support/program.h"
#include "support/sound_file.h"
#include "support/windowed_transform.h"

namespace {

constexpr int maxOrder = 22;

// The filter starts at rest with the sound, so that nothing is cut off there; at the end the window
// fades, for the filter still rings. A sound that ends in silence is measured exactly.
std::vector<float> fadingWindow(int length) {
  std::vector<float> window(length, 1);
  const int fade = length / 4;
  for (int i = 0; i < fade; ++i)
    window[length - 1 - i] = float(0.5 - 0.5 * std::cos(std::numbers::pi * (i + 0.5) / fade));
  return window;
}

// By frequency from 0 to half the rate, of all channels together.
std::vector<double> powerSpectrum(SndfileHandle file) {
  const int length = int(std::min<sf_count_t>(file.frames(), 1 << maxOrder));
  WindowedTransform transform(std::bit_width(unsigned(length)), fadingWindow(length));
  std::vector<float> frames(std::size_t(length) * file.channels());
  file.readf(frames.data(), length);
  std::vector<double> power(transform.bins());
  for (int c = 0; c < file.channels(); ++c) {
    checkInterrupt();
    const std::vector<Mox32fc>& spectrum = transform(frames, file.channels(), c);
    for (int bin = 0; bin < transform.bins(); ++bin)
      power[bin] += std::pow(std::hypot(spectrum[bin].re, spectrum[bin].im), 2);
  }
  return power;
}

}  // namespace

std::vector<Measured> measureResponse(const std::filesystem::path& before,
                                      const std::filesystem::path& after) {
  constexpr double lowest = 20, stepsPerOctave = 24;
  const SndfileHandle sound = openSound(before);
  const std::vector<double> x = powerSpectrum(sound), y = powerSpectrum(openSound(after));
  const int last = int(x.size()) - 1;
  const double hzPerBin = sound.samplerate() / 2.0 / last;
  // Forty decibels above what rounding to 16 bits adds to a bin.
  const double audible = 1e4 * sound.channels() / (6.0 * last) / std::pow(2, 30);

  std::vector<Measured> response;
  const double step = std::exp2(1 / stepsPerOctave);
  for (double hz = lowest; hz * step < last * hzPerBin; hz *= step) {
    const int from = int(hz / hzPerBin) + 1, to = int(hz * step / hzPerBin) + 1;
    if (from == to) continue;
    const auto strongest = std::max_element(&x[from], &x[to]) - &x[0];
    if (std::min(x[strongest], y[strongest]) > audible)
      response.push_back(
          {double(strongest) * hzPerBin, 10 * std::log10(y[strongest] / x[strongest])});
  }
  return response;
}
