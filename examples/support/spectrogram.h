// Power over time and frequency, by short-time Fourier transforms of the library.
#pragma once

#include <filesystem>
#include <vector>

struct Spectrogram {
  long frames = 0, hop = 0;  // of the sound, and from one column to the next
  int columns = 0;           // moments
  int bins = 0;              // frequencies from 0 to half the rate
  double rate = 0;
  std::vector<float> power;  // columns x bins, relative to a full-scale sine, mean of all channels
  std::vector<std::vector<double>> channelPower;  // of each channel by bins, mean of all columns
  double spread = 0;  // how many bins' worth of power a sine gives in all bins together

  double seconds() const { return double(frames) / rate; }
  double hz(int bin) const { return bin * rate / 2 / (bins - 1); }
  float at(int column, int bin) const { return power[std::size_t(column) * bins + bin]; }
};

// In at most `maxColumns` columns spread over the file. Each sees the sound around its own moment,
// and never beyond either end, where the sudden silence would show as a burst of all frequencies.
Spectrogram spectrogramOf(const std::filesystem::path& file, int maxColumns);
