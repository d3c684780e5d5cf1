// The program that converts rates, on files of several shapes.
#include "example_test.h"

namespace {

using Resample = ExampleTest;

// A sine on the left, another on the right.
Sound sines(int rate, int channels, long frames) {
  Sound s = {rate, channels, {}};
  for (long i = 0; i < frames; ++i)
    for (int c = 0; c < channels; ++c)
      s.samples.push_back(0.5 * std::sin(2 * M_PI * 1000 * (c + 1) * double(i) / rate));
  return s;
}

TEST_F(Resample, KeepsSinesWhereTheyAreInBlocksOfAnySize) {
  write("in.wav", SF_FORMAT_WAV | SF_FORMAT_FLOAT, sines(44100, 2, 20000));
  for (const int rate : {48000, 16000, 96000, 44100})
    for (const char* block : {"7", "1000", "100000"}) {
      const std::string output =
          outputOf(RESAMPLE, path("in.wav") + " " + path("out.wav") + " --quality best --rate " +
                                 std::to_string(rate) + " --block " + block);
      const Sound out = readSound(path("out.wav"));
      const Sound expected = sines(rate, 2, (20000L * rate + 44099) / 44100);
      const std::size_t count = out.samples.size();
      ASSERT_TRUE(out.rate == rate && out.channels == 2 && count == expected.samples.size());
      for (std::size_t k = count / 5; k < 4 * count / 5; ++k)
        ASSERT_NEAR(out.samples[k], expected.samples[k], 1e-6)
            << rate << " Hz, block " << block << " at " << k / 2;
      EXPECT_GT(figureBehind("noise of a sine", output), 120);
      if (rate < 44100) {
        EXPECT_GT(figureBehind("above the band", output), 100);
      }
    }
}

}  // namespace
