// The spectrograms before and after, one above the other, as a PNG file.
#pragma once

#include <filesystem>
#include <string>

#include "spectrogram.h"

struct Panel {
  std::string title;
  const Spectrogram& spectrogram;
};

void drawPanels(const std::filesystem::path& file, const Panel& upper, const Panel& lower);
