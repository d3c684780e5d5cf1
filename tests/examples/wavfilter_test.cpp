#include <fstream>

#include "example_test.h"

namespace {

std::string wavfilter(const std::string& arguments) { return outputOf(WAVFILTER, arguments); }

using WavFilter = ExampleTest;

// The filter's formula again, in double precision and straight from its definition.
std::vector<double> bandTaps(double low, double high, double rate, int count) {
  std::vector<double> taps(count);
  for (int i = 0; i < count; ++i) {
    const double t = i - (count - 1) / 2.0, u = double(i) / (count - 1);
    const auto lowpass = [&](double hz) {
      return t == 0 ? 2 * hz / rate : std::sin(2 * M_PI * hz / rate * t) / (M_PI * t);
    };
    taps[i] = (lowpass(high) - lowpass(low)) *
              (0.42 - 0.5 * std::cos(2 * M_PI * u) + 0.08 * std::cos(4 * M_PI * u));
  }
  return taps;
}

// The largest difference between the written file and the same filter in double precision, held
// within full scale.
double largestDifference(const Sound& in, const Sound& out, const std::vector<double>& taps) {
  const long frames = long(in.samples.size()) / in.channels, half = long(taps.size()) / 2;
  double largest = 0;
  for (long i = 0; i < frames; ++i)
    for (int c = 0; c < in.channels; ++c) {
      double sum = 0;
      for (long k = 0; k < long(taps.size()); ++k)
        if (const long j = i + half - k; j >= 0 && j < frames)
          sum += taps[k] * in.samples[j * in.channels + c];
      largest = std::max(largest,
                         std::abs(std::clamp(sum, -1.0, 1.0) - out.samples[i * in.channels + c]));
    }
  return largest;
}

TEST_F(WavFilter, SixteenBitStereoLowpassMatchesTheFormulaToHalfAStep) {
  writeSound("in.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 2, 20000);
  wavfilter(path("in.wav") + " " + path("out.wav") + " --lowpass 3000 --taps 255 --block 1000");
  const Sound in = readSound(path("in.wav")), out = readSound(path("out.wav"));
  ASSERT_TRUE(out.rate == 44100 && out.samples.size() == in.samples.size());
  EXPECT_LT(largestDifference(in, out, bandTaps(0, 3000, 44100, 255)), 0.51 / 32768);
}

// The edges of a loud square wave overshoot in a filter, and are held within full scale.
TEST_F(WavFilter, FloatBandpassMatchesTheFormulaInBlocksOfAnySize) {
  Sound square = {22050, 1, {}};
  for (int i = 0; i < 8000; ++i) square.samples.push_back(i / 10 % 2 ? 0.98 : -0.98);
  write("in.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_24, square);
  const auto taps = bandTaps(1000, 4000, 22050, 101);
  for (const char* block : {"1", "37", "512", "30000"}) {
    wavfilter("--bandpass 1000 4000 " + path("in.flac") + " " + path("out.wav") +
              " --taps 101 --arithmetic float --block " + block);
    EXPECT_LT(largestDifference(readSound(path("in.flac")), readSound(path("out.wav")), taps), 1e-6)
        << "block " << block;
  }
}

// A tone lies in no stop band, whatever its channels cancel in a mean and wherever it ends.
TEST_F(WavFilter, LevelsAreThoseOfEachChannelAndEndWithTheSound) {
  Sound tone = {44100, 2, {}};
  for (int i = 0; i < 9000; ++i)
    for (const double sign : {1, -1}) tone.samples.push_back(sign * 0.5 * std::sin(0.1 * i));
  write("in.wav", SF_FORMAT_WAV | SF_FORMAT_FLOAT, tone);
  const std::string low = wavfilter(path("in.wav") + " " + path("out.wav") + " --lowpass 5000");
  for (const char* channel : {"channel 1", "channel 2"}) {
    const std::string ofChannel = low.substr(std::min(low.find(channel), low.size()));
    EXPECT_LT(figureBehind("stop band", ofChannel), -90) << channel;
    EXPECT_NEAR(figureBehind("pass band", ofChannel), -6.02, 0.1) << channel;
  }
  const std::string high = wavfilter(path("in.wav") + " " + path("out.wav") + " --highpass 5000");
  EXPECT_NEAR(figureBehind("stop band", high), -6.02, 0.1);
  EXPECT_LT(figureBehind("before,", high), -60);
}

TEST_F(WavFilter, ResultsHaveTheirOwnNamesAndPictures) {
  writeSound("a.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 8000, 1, 9000);
  for (const auto& [options, name] : {std::pair("", "lowpass-1000Hz"),
                                      {" --highpass 500.5", "highpass-500.5Hz"},
                                      {" --bandpass 500 900", "bandpass-500-900Hz"}}) {
    wavfilter("--into " + folder_.string() + options + " " + path("a.flac"));
    const std::string result = path(std::string("a-flac-") + name);
    EXPECT_EQ(readSound(result + ".wav").samples.size(), 9000) << name;
    EXPECT_GT(std::filesystem::file_size(result + ".png"), 5000) << name;
  }
}

TEST_F(WavFilter, AnInterruptedRunLeavesTheFormerResult) {
  writeSound("in.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 1, 400000);
  std::ofstream(path("out.wav")) << "former";
  const std::string job = WAVFILTER " " + path("in.wav") + " " + path("out.wav") +
                          " --arithmetic float --block 1 --taps 65535";
  // The signal is sent once the temporary file is there.
  const std::string script = job + " & pid=$!; until ls " + folder_.string() +
                             " | grep -q part; do kill -0 $pid || exit 99; done; "
                             "kill -TERM $pid; wait $pid";
  EXPECT_EQ(WEXITSTATUS(std::system(script.c_str())), 130);
  std::string text;
  std::ifstream(path("out.wav")) >> text;
  EXPECT_EQ(text, "former");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 2);
}

TEST_F(WavFilter, RefusesWhatItCannotDoWithAReason) {
  writeSound("in.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 8000, 1, 500);
  const std::string in = path("in.wav"), out = " " + path("out.wav");
  const std::pair<std::string, const char*> refusals[] = {
      {path("none.wav") + out + " --lowpass 100", "cannot read"},
      {in + out + " --lowpass 4000", "half the sample rate"},
      {in + out + " --bandpass 2000 1000", "lower frequency first"},
      {in + out + " --lowpass 0", "0 is no frequency above 0 Hz"},
      {in + out + " --lowpass 100 --taps 10", "odd"},
      {in + out + " --lowpass 100 --block 0", "block"},
      {in + out + " --lowpass 100 --highpass 200", "at most 1"},
      {in, "--into"},
      {in + " " + path("out.mp3"), "must end in .wav, .flac, .ogg"},
      {in + out + " --picture " + path("p.jpg"), "must end in .png"},
      {in + " /proc/none/out.wav --lowpass 100", "cannot write"},
      {in + " " + in + " --lowpass 100", "same file"}};
  for (const auto& [arguments, reason] : refusals) {
    const Outcome outcome = runProgram(WAVFILTER, arguments);
    EXPECT_NE(outcome.exitCode, 0) << arguments;
    EXPECT_THAT(outcome.output, testing::HasSubstr(reason)) << arguments;
    EXPECT_FALSE(std::filesystem::exists(path("out.wav"))) << arguments;
  }
}

}  // namespace
