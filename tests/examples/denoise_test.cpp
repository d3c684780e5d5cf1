#include "example_test.h"

namespace {

using Denoise = ExampleTest;

double energy(const std::vector<double>& v) {
  return std::inner_product(v.begin(), v.end(), v.begin(), 0.0);
}

// In decibels.
double signalToNoise(std::vector<double> sound, const std::vector<double>& clean) {
  std::transform(sound.begin(), sound.end(), clean.begin(), sound.begin(), std::minus());
  return 10 * std::log10(energy(clean) / energy(sound));
}

// Speech in white noise, of its own level or less.
TEST_F(Denoise, RaisesTheSignalAboveTheNoise) {
  const std::string speech = sounds + "Front_Center.wav";
  const Sound clean = readSound(speech);
  const double rms = std::sqrt(energy(clean.samples) / double(clean.samples.size()));
  const struct { double before, gain; } cases[] = {{0, 9}, {5, 7.5}, {10, 6}, {20, 2.5}};
  for (const auto& [before, gain] : cases) {
    Sound noisy = clean;
    std::mt19937 engine(3);
    std::normal_distribution<double> noise(0, rms * std::pow(10, -before / 20));
    for (double& e : noisy.samples) e += noise(engine);
    write("noisy.wav", SF_FORMAT_WAV | SF_FORMAT_FLOAT, noisy);
    const std::string output =
        outputOf(DENOISE, path("noisy.wav") + " " + path("out.wav") + " --clean " + speech);
    const Sound out = readSound(path("out.wav"));
    ASSERT_EQ(out.samples.size(), clean.samples.size());
    EXPECT_GT(signalToNoise(out.samples, clean.samples), before + gain) << output;
    EXPECT_THAT(output, testing::HasSubstr("dB after"));
  }
}

TEST_F(Denoise, LeavesASoundAsItIsWithoutStrength) {
  writeSound("in.wav", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 44100, 2, 10001);
  outputOf(DENOISE, path("in.wav") + " " + path("out.wav") + " --strength 0 --levels 12");
  EXPECT_GT(signalToNoise(readSound(path("out.wav")).samples, readSound(path("in.wav")).samples),
            100);
}

}  // namespace
