// What the tests of the example programs share: the programs run as a user runs them, on sound
// files in a folder of their own.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <numeric>
#include <random>
#include <sndfile.hh>
#include <string>
#include <vector>

struct Outcome {
  int exitCode;
  std::string output;  // both streams
};

inline Outcome runProgram(const std::string& program, const std::string& arguments) {
  Outcome outcome{-1, {}};
  FILE* pipe = popen((program + " " + arguments + " 2>&1").c_str(), "r");
  for (int c; (c = std::fgetc(pipe)) != EOF;) outcome.output += char(c);
  outcome.exitCode = WEXITSTATUS(pclose(pipe));
  return outcome;
}

// What a program prints that succeeds.
inline std::string outputOf(const std::string& program, const std::string& arguments) {
  const Outcome outcome = runProgram(program, arguments);
  EXPECT_EQ(outcome.exitCode, 0) << outcome.output;
  return outcome.output;
}

// The first figure behind some words of an output.
inline double figureBehind(const std::string& words, const std::string& output) {
  const std::size_t at = output.find(words);
  EXPECT_NE(at, std::string::npos) << words << " in " << output;
  return at == std::string::npos ? NAN : std::strtod(output.c_str() + at + words.size(), nullptr);
}

struct Sound {
  int rate, channels;
  std::vector<double> samples;  // interleaved
};

inline Sound readSound(const std::filesystem::path& path) {
  SndfileHandle file(path.string());
  Sound s{file.samplerate(), file.channels(), std::vector<double>(file.frames() * file.channels())};
  file.readf(s.samples.data(), file.frames());
  return s;
}

inline const std::string sounds = "/usr/share/sounds/alsa/";

class ExampleTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = std::filesystem::path(testing::TempDir()) / ("example-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder_);
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  std::string path(const std::string& name) const { return (folder_ / name).string(); }

  void write(const std::string& name, int format, const Sound& s) const {
    SndfileHandle(path(name), SFM_WRITE, format, s.channels, s.rate)
        .writef(s.samples.data(), long(s.samples.size()) / s.channels);
  }

  // Noise with a tone, something in every band; then silence.
  void writeSound(const std::string& name, int format, int rate, int channels, long frames,
                  long silence = 0) const {
    std::mt19937 engine(7);
    std::uniform_real_distribution<double> noise(-0.4, 0.4);
    std::vector<double> samples((frames + silence) * channels);
    for (long i = 0; i < frames; ++i)
      for (int c = 0; c < channels; ++c)
        samples[i * channels + c] = noise(engine) + 0.3 * std::sin(0.05 * double(i) * (c + 1));
    write(name, format, {rate, channels, samples});
  }

  std::filesystem::path folder_;
};
