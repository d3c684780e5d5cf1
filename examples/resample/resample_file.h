// Streams a sound file from one rate to another.
#pragma once

#include <filesystem>
#include <functional>

#include "channel_resampler.h"

struct ResampleJob {
  std::filesystem::path input, output;
  int rate = 48000;  // of the output
  Quality quality;
  int block = 4096;                           // frames
  std::function<void(double done)> progress;  // called with 0 to 1 after each block
};

// Throws std::runtime_error with a text for the user.
void resampleFile(const ResampleJob& job);
