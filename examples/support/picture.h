// The spectrograms before and after, one above the other, as a PNG file.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "support/spectrogram.h"

struct Panel {
  std::string title;
  const Spectrogram& spectrogram;
};

// `marks` are frequencies in Hz, each shown as a line across both panels.
void drawPanels(const std::filesystem::path& file, const Panel& upper, const Panel& lower,
                const std::vector<double>& marks);
