// The program that converts rates, on files of several shapes.
#include <gmock/gmock.h>

#include <cmath>
#include <cstring>

#include "example_test.h"

namespace {

Outcome resample(const std::string& arguments) { return runProgram(RESAMPLE, arguments); }

using Resample = ExampleTest;

// A sine on the left, another on the right.
void writeSines(const std::string& name, int format, int rate, int channels, long frames) {
  std::vector<double> x(frames * channels);
  for (long i = 0; i < frames; ++i)
    for (int c = 0; c < channels; ++c)
      x[i * channels + c] = 0.5 * std::sin(2 * M_PI * 1000 * (c + 1) * double(i) / rate);
  SndfileHandle(name, SFM_WRITE, format, channels, rate).writef(x.data(), frames);
}

TEST_F(Resample, KeepsSinesWhereTheyAreInBlocksOfAnySize) {
  writeSines(path("in.wav"), SF_FORMAT_WAV | SF_FORMAT_FLOAT, 44100, 2, 20000);
  for (const int rate : {48000, 16000, 96000, 44100})
    for (const char* block : {"7", "1000", "100000"}) {
      const Outcome r =
          resample(path("in.wav") + " " + path("out.wav") + " --quality best --rate " +
                   std::to_string(rate) + " --block " + block);
      ASSERT_EQ(r.exitCode, 0) << r.output;
      const Sound out = readSound(path("out.wav"));
      ASSERT_EQ(out.rate, rate);
      ASSERT_EQ(out.channels, 2);
      const long frames = long(out.samples.size()) / 2;
      ASSERT_EQ(frames, (20000L * rate + 44099) / 44100);
      for (long k = frames / 5; k < 4 * frames / 5; ++k)
        for (int c = 0; c < 2; ++c)
          ASSERT_NEAR(out.samples[2 * k + c],
                      0.5 * std::sin(2 * M_PI * 1000 * (c + 1) * double(k) / rate), 1e-6)
              << rate << " Hz, block " << block << " at " << k;
    }
}

TEST_F(Resample, TellsWhatItDid) {
  writeSines(path("in.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 48000, 1, 5000);
  const Outcome r = resample(path("in.flac") + " " + path("out.flac") + " --rate 16000");
  ASSERT_EQ(r.exitCode, 0) << r.output;
  EXPECT_THAT(r.output, testing::HasSubstr("48000 to 16000 Hz by 1 filters of 384 taps"));
  double noise = 0, down = 0;
  const char* at = std::strstr(r.output.c_str(), "noise of a sine");
  ASSERT_NE(at, nullptr) << r.output;
  ASSERT_EQ(std::sscanf(at, "noise of a sine %lf", &noise), 1);
  EXPECT_GT(noise, 120);
  at = std::strstr(r.output.c_str(), "above the band");
  ASSERT_NE(at, nullptr) << r.output;
  ASSERT_EQ(std::sscanf(at, "above the band %lf", &down), 1);
  EXPECT_GT(down, 100);
}

TEST_F(Resample, SaysWhatIsWrong) {
  writeSines(path("in.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1, 100);
  const std::string in = path("in.wav"), out = " " + path("out.wav");
  for (const auto& [arguments, text] : {std::pair(path("none.wav") + out, "cannot read"),
                                        {in + " " + in, "same file"},
                                        {in + " " + path("out.xyz"), "xyz"},
                                        {in + out + " --rate 10", "--rate"},
                                        {in + out + " --quality superb", "--quality"},
                                        {in, "output"}}) {
    const Outcome r = resample(arguments);
    EXPECT_NE(r.exitCode, 0);
    EXPECT_THAT(r.output, testing::HasSubstr(text));
  }
  EXPECT_FALSE(std::filesystem::exists(path("out.wav")));
}

}  // namespace
