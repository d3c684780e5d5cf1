// Streams a sound file through a filter, block by block, into another file.
#pragma once

#include <filesystem>
#include <functional>

#include "band.h"

enum class Arithmetic { automatic, integer16, single };

struct FilterJob {
  std::filesystem::path input, output;
  Band band;
  int block = 4096;  // frames
  Arithmetic arithmetic = Arithmetic::automatic;
  std::function<void(double done)> progress;  // called with 0 to 1 after each block
};

// The output has the length of the input: the filter's delay is taken out. 16-bit files run on
// 16-bit samples, others on floats. Throws std::runtime_error with a text for the user.
void filterFile(const FilterJob& job);
