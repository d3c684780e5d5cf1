// Power over time and frequency, by short-time Fourier transforms of the library.
#pragma once

#include <filesystem>
#include <vector>

#include "band.h"

struct Spectrogram {
  int columns = 0;  // moments
  int bins = 0;     // frequencies from 0 to half the rate
  double rate = 0, seconds = 0;
  std::vector<float> power;  // columns x bins, relative to a full-scale sine

  double hz(int bin) const { return bin * rate / 2 / (bins - 1); }
  float at(int column, int bin) const { return power[std::size_t(column) * bins + bin]; }
};

// Of the mean of all channels, in at most `maxColumns` columns spread over the file.
Spectrogram spectrogramOf(const std::filesystem::path& file, int maxColumns);

struct BandLevels {
  double stop, pass;  // dB relative to a full-scale sine
};

// What lies well outside and well inside the band.
BandLevels levelsOf(const Spectrogram& s, const Band& band);
