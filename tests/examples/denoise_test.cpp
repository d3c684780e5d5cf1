#include <gmock/gmock.h>

#include <cmath>

#include "example_test.h"

namespace {

using Denoise = ExampleTest;

const std::string speech = "/usr/share/sounds/alsa/Front_Center.wav";

// Writes speech with noise of its own level less `decibels`.
void writeNoisy(const std::string& name, const Sound& clean, double decibels) {
  double energy = 0;
  for (const double e : clean.samples) energy += e * e;
  const double rms = std::sqrt(energy / double(clean.samples.size()));
  std::mt19937 engine(3);
  std::normal_distribution<double> noise(0, rms * std::pow(10, -decibels / 20));
  std::vector<double> noisy = clean.samples;
  for (double& e : noisy) e += noise(engine);
  SndfileHandle(name, SFM_WRITE, SF_FORMAT_WAV | SF_FORMAT_FLOAT, clean.channels, clean.rate)
      .writef(noisy.data(), long(noisy.size()) / clean.channels);
}

double signalToNoise(const Sound& sound, const Sound& clean) {
  double signal = 0, noise = 0;
  for (std::size_t i = 0; i < clean.samples.size(); ++i) {
    signal += clean.samples[i] * clean.samples[i];
    noise += std::pow(sound.samples[i] - clean.samples[i], 2);
  }
  return 10 * std::log10(signal / noise);
}

// What is gained on speech in white noise.
TEST_F(Denoise, RaisesTheSignalAboveTheNoise) {
  const Sound clean = readSound(speech);
  const struct { double before, gain; } cases[] = {{0, 9}, {5, 7.5}, {10, 6}, {20, 2.5}};
  for (const auto& [before, gain] : cases) {
    writeNoisy(path("noisy.wav"), clean, before);
    const Outcome outcome =
        runProgram(DENOISE, path("noisy.wav") + " " + path("out.wav") + " --clean " + speech);
    ASSERT_EQ(outcome.exitCode, 0) << outcome.output;
    const Sound out = readSound(path("out.wav"));
    ASSERT_EQ(out.samples.size(), clean.samples.size());
    EXPECT_GT(signalToNoise(out, clean), before + gain) << outcome.output;
    EXPECT_THAT(outcome.output, testing::HasSubstr("dB after"));
  }
}

TEST_F(Denoise, LeavesASoundAsItIsWithoutStrength) {
  writeSound("in.wav", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 44100, 2, 10001);
  const Outcome outcome =
      runProgram(DENOISE, path("in.wav") + " " + path("out.wav") + " --strength 0 --levels 12");
  ASSERT_EQ(outcome.exitCode, 0) << outcome.output;
  const Sound in = readSound(path("in.wav")), out = readSound(path("out.wav"));
  for (std::size_t i = 0; i < in.samples.size(); ++i)
    ASSERT_NEAR(in.samples[i], out.samples[i], 5e-6) << i;
}

}  // namespace
