#include "example_test.h"

namespace {

struct Found {
  double seconds, confidence;
  std::string output;
};

Found align(const std::string& arguments) {
  const std::string output = outputOf(ALIGN, arguments);
  return {figureBehind("delay ", output), figureBehind("confidence ", output), output};
}

using Align = ExampleTest;

// Copies of real recordings, later or earlier, filtered, noisy and inverted, in any format.
TEST_F(Align, FindsShiftedFilteredNoisyCopies) {
  std::mt19937 engine(5);
  std::normal_distribution<double> noise(0, 1);
  for (const char* name : {"Front_Center.wav", "Side_Left.wav", "Noise.wav"})
    for (const long shift : {0L, 4321L, -20011L})
      for (const double noiseLevel : {0.0, 0.05}) {
        SCOPED_TRACE(testing::Message() << name << ", " << shift << ", " << noiseLevel);
        const auto x = readSound(sounds + name).samples;
        std::vector<double> copy(x.size() + std::max(shift, 0L));
        double smooth = 0;
        for (long i = 0; i < long(copy.size()); ++i) {
          const long j = i - shift;
          smooth += 0.5 * ((j >= 0 && j < long(x.size()) ? x[j] : 0) - smooth);
          copy[i] = -0.6 * smooth + noiseLevel * noise(engine);
        }
        write("copy.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_24, {48000, 1, copy});
        const Found found = align(sounds + name + " " + path("copy.flac"));
        EXPECT_NEAR(found.seconds * 48000, shift, 2) << found.output;
        EXPECT_GT(found.confidence, 0.2) << found.output;
        EXPECT_THAT(found.output, testing::HasSubstr("inverted"));
        EXPECT_THAT(found.output, testing::Not(testing::HasSubstr("different")));
      }
}

// The second recording has another rate and more channels; both come out at the first one's rate.
TEST_F(Align, WritesBothFromTheSameMomentOn) {
  const auto x = readSound(sounds + "Front_Left.wav").samples;
  constexpr int skipped = 9600;  // 0.2 s
  std::vector<double> stereo;
  for (std::size_t i = skipped; i + 1 < x.size(); i += 2) {
    const double mean = 0.25 * x[i - 1] + 0.5 * x[i] + 0.25 * x[i + 1];
    stereo.insert(stereo.end(), {mean, 0.5 * mean});
  }
  write("half.wav", SF_FORMAT_WAV | SF_FORMAT_FLOAT, {24000, 2, stereo});
  const Found found =
      align(sounds + "Front_Left.wav " + path("half.wav") + " --into " + path("") + " --within 1");
  EXPECT_NEAR(found.seconds, -0.2, 1e-4) << found.output;
  const Sound a = readSound(path("Front_Left-wav-aligned-1.wav")),
              b = readSound(path("half-wav-aligned-2.wav"));
  ASSERT_EQ(a.rate, 48000);
  ASSERT_EQ(b.rate, 48000);
  ASSERT_EQ(b.channels, 2);
  ASSERT_EQ(a.samples.size() * 2, b.samples.size());
  double product = 0, energyA = 0, energyB = 0;
  for (std::size_t i = 0; i < a.samples.size(); ++i) {
    product += a.samples[i] * b.samples[2 * i];
    energyA += a.samples[i] * a.samples[i];
    energyB += b.samples[2 * i] * b.samples[2 * i];
  }
  EXPECT_GT(product / std::sqrt(energyA * energyB), 0.95);
}

TEST_F(Align, DoubtsWhatIsNotTheSameSound) {
  const Found found = align(sounds + "Front_Left.wav " + sounds + "Noise.wav");
  EXPECT_LT(found.confidence, 0.15);
  EXPECT_THAT(found.output, testing::HasSubstr("different"));
  EXPECT_NE(runProgram(ALIGN, sounds + "Noise.wav " + path("none.wav")).exitCode, 0);
}

}  // namespace
