#include "example_test.h"

namespace {

using Reverb = ExampleTest;

constexpr int rate = 8000, frames = 6000;
constexpr int floatWav = SF_FORMAT_WAV | SF_FORMAT_FLOAT;

// The sound is the convolution with what comes of an impulse, channel by channel.
TEST_F(Reverb, IsAConvolutionWithTheRoom) {
  Sound impulse = {rate, 2, std::vector<double>(2 * frames)};
  impulse.samples[0] = impulse.samples[1] = 0.5;
  write("impulse.wav", floatWav, impulse);
  writeSound("sound.wav", floatWav, rate, 2, frames);
  for (const char* name : {"impulse", "sound"}) {
    const std::string in = path(std::string(name) + ".wav"),
                      out = path(std::string(name) + "-r.wav");
    EXPECT_THAT(outputOf(REVERB, in + " " + out + " --time 0.4 --length 5 --width 4 --height 3"),
                testing::HasSubstr("reflections"));
  }
  const Sound x = readSound(path("sound.wav")), h = readSound(path("impulse-r.wav")),
              y = readSound(path("sound-r.wav"));
  const int outputs = int(y.samples.size() / 2);
  ASSERT_GT(outputs, frames + 0.39 * rate);
  ASSERT_EQ(h.samples.size(), y.samples.size());
  double worst = 0;
  for (int c = 0; c < 2; ++c)
    for (int i = 0; i < outputs; i += 7) {
      double sum = 0;
      for (int k = std::max(0, i - frames + 1); k <= i; ++k)
        sum += 2 * h.samples[2 * k + c] * x.samples[2 * (i - k) + c];
      if (std::abs(sum) < 1) worst = std::max(worst, std::abs(sum - y.samples[2 * i + c]));
    }
  EXPECT_LT(worst, 2e-6);

  // Energy that is still to come (Schroeder), from 5 dB to 35 dB below all of it.
  std::vector<double> left(outputs + 1);
  for (int i = outputs; i-- > 0;) left[i] = left[i + 1] + std::pow(h.samples[2 * i], 2);
  const auto fallenBy = [&](double db) {
    int i = 0;
    while (left[i] > left[0] * std::pow(10, -db / 10)) ++i;
    return double(i) / rate;
  };
  EXPECT_NEAR(2 * (fallenBy(35) - fallenBy(5)), 0.4, 0.06);
  EXPECT_NEAR(left[0] * 4, 1, 0.05);
}

}  // namespace
