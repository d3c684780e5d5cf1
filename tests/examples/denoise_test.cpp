#include "example_test.h"

namespace {

using Denoise = ExampleTest;

const std::string speech = sounds + "Front_Center.wav";

// With noise of its own level less `decibels`.
Sound noisy(Sound sound, double decibels) {
  double energy = 0;
  for (const double e : sound.samples) energy += e * e;
  const double rms = std::sqrt(energy / double(sound.samples.size()));
  std::mt19937 engine(3);
  std::normal_distribution<double> noise(0, rms * std::pow(10, -decibels / 20));
  for (double& e : sound.samples) e += noise(engine);
  return sound;
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
    write("noisy.wav", SF_FORMAT_WAV | SF_FORMAT_FLOAT, noisy(clean, before));
    const std::string output =
        outputOf(DENOISE, path("noisy.wav") + " " + path("out.wav") + " --clean " + speech);
    const Sound out = readSound(path("out.wav"));
    ASSERT_EQ(out.samples.size(), clean.samples.size());
    EXPECT_GT(signalToNoise(out, clean), before + gain) << output;
    EXPECT_THAT(output, testing::HasSubstr("dB after"));
  }
}

TEST_F(Denoise, LeavesASoundAsItIsWithoutStrength) {
  writeSound("in.wav", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 44100, 2, 10001);
  outputOf(DENOISE, path("in.wav") + " " + path("out.wav") + " --strength 0 --levels 12");
  const Sound in = readSound(path("in.wav")), out = readSound(path("out.wav"));
  for (std::size_t i = 0; i < in.samples.size(); ++i)
    ASSERT_NEAR(in.samples[i], out.samples[i], 5e-6) << i;
}

}  // namespace
