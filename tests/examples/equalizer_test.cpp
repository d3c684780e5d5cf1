#include <complex>

#include "example_test.h"

namespace {

using Equalizer = ExampleTest;

std::complex<double> spectrumAt(const Sound& sound, int channel, double w) {
  std::complex<double> sum = 0;
  const std::complex<double> turn = std::polar(1.0, -w);
  for (std::size_t i = sound.samples.size() / sound.channels; i-- > 0;)
    sum = sum * turn + sound.samples[i * sound.channels + channel];
  return sum;
}

double decibelsBetween(const Sound& before, const Sound& after, int channel, double hz) {
  const double w = 2 * M_PI * hz / before.rate;
  return 20 * std::log10(std::abs(spectrumAt(after, channel, w) / spectrumAt(before, channel, w)));
}

// Of a sound that ends in silence, the spectrum after over the spectrum before is the response:
// where it is known of each type, and everywhere as the program has measured it.
TEST_F(Equalizer, TheWrittenFileHasTheResponseThatWasAskedFor) {
  const struct {
    const char* bands;
    int rate, channels;
    std::vector<std::pair<double, double>> decibels;  // at frequencies
  } cases[] = {
      {"peak:1000:-12:4", 48000, 2, {{20, 0}, {883.1, -6}, {1000, -12}, {1132.3, -6}, {20000, 0}}},
      {"lowshelf:120:5:0.7071", 48000, 1, {{4, 5}, {120, 2.5}, {10000, 0}}},
      {"highshelf:8000:-6:0.7071", 44100, 1, {{40, 0}, {8000, -3}, {21500, -6}}},
      {"notch:3000:-2:1", 44100, 1, {{30, -2}, {1871.7, -5.01}, {4740.6, -5.01}, {21000, -2}}},
      {"highpass:300:0:0.8", 8000, 1, {{300, -1.94}, {3900, 0}}},
      {"lowpass:9000:-3:2", 96000, 1, {{30, -3}, {9000, 3.02}}},
      {"bandpass:700:3:0.5", 8000, 2, {{700, 3}, {296.2, -0.01}, {1522.7, -0.01}}},
      {"butterworth-highpass:400:3", 44100, 1, {{400, -3.01}, {200, -18.13}, {20000, 0}}},
      {"chebyshev-lowpass:16000:2:0.5", 44100, 1, {{10, -0.5}, {13960, 0}, {16000, -0.5}}},
      {"chebyshev-highpass:450:3:2", 48000, 1, {{450, -2}, {519.4, 0}, {23900, 0}}},
      {"peak:40:9:3 --band butterworth-lowpass:19000:12", 48000, 1, {{40, 9}, {19000, -3.01}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.bands);
    writeSound("in.wav", SF_FORMAT_WAV | SF_FORMAT_FLOAT, c.rate, c.channels, 100000, 40000);
    const std::string output =
        outputOf(EQUALIZER, path("in.wav") + " " + path("out.wav") + " --block 1000 --picture " +
                                path("out.png") + " --band " + c.bands);
    const Sound before = readSound(path("in.wav")), after = readSound(path("out.wav"));
    ASSERT_EQ(after.samples.size(), before.samples.size());
    for (const auto& [hz, expected] : c.decibels)
      for (int channel = 0; channel < c.channels; ++channel)
        EXPECT_NEAR(decibelsBetween(before, after, channel, hz), expected, 0.1) << hz << " Hz";
    EXPECT_LT(figureBehind("measured from ", output), 100);
    EXPECT_LT(figureBehind("at most ", output), 0.1);
    EXPECT_GT(std::filesystem::file_size(path("out.png")), 5000);
  }
}

}  // namespace
