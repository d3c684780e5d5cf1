#include "example_test.h"

namespace {

using Align = ExampleTest;

const std::string original = sounds + "Front_Left.wav";

// A stereo copy at half the rate, filtered, noisy and inverted, that begins later or earlier.
TEST_F(Align, FindsANoisyCopyAndWritesBothFromTheSameMomentOn) {
  std::mt19937 engine(5);
  std::normal_distribution<double> noise(0, 0.02);
  const auto x = readSound(original).samples;
  const auto at = [&](long i) { return i >= 0 && i < long(x.size()) ? x[i] : 0; };
  for (const long delay : {4800, -9600}) {
    std::vector<double> stereo;
    for (long i = -delay; i < long(x.size()); i += 2)
      for (const double gain : {-1.0, -0.5})
        stereo.push_back(gain * (0.25 * at(i - 1) + 0.5 * at(i) + 0.25 * at(i + 1)) +
                         noise(engine));
    write("copy.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_24, {24000, 2, stereo});
    const std::string output =
        outputOf(ALIGN, original + " " + path("copy.flac") + " --into " + path("") + " --within 1");
    EXPECT_NEAR(figureBehind("delay ", output), double(delay) / 48000, 1e-4);
    EXPECT_GT(figureBehind("confidence ", output), 0.2) << output;
    EXPECT_THAT(output, testing::HasSubstr("inverted"));
    const Sound a = readSound(path("Front_Left-wav-aligned-1.wav")),
                b = readSound(path("copy-flac-aligned-2.wav"));
    ASSERT_TRUE(a.rate == 48000 && b.rate == 48000 && b.channels == 2);
    ASSERT_EQ(a.samples.size() * 2, b.samples.size());
    double product = 0, energyA = 0, energyB = 0;
    for (std::size_t i = 0; i < a.samples.size(); ++i) {
      product += a.samples[i] * b.samples[2 * i];
      energyA += a.samples[i] * a.samples[i];
      energyB += b.samples[2 * i] * b.samples[2 * i];
    }
    EXPECT_LT(product / std::sqrt(energyA * energyB), -0.9);
  }
}

TEST_F(Align, DoubtsWhatIsNotTheSameSound) {
  const std::string output = outputOf(ALIGN, original + " " + sounds + "Noise.wav");
  EXPECT_LT(figureBehind("confidence ", output), 0.15);
  EXPECT_THAT(output, testing::HasSubstr("different"));
}

}  // namespace
