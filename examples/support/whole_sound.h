// Sounds in memory as a whole, channel by channel.
#pragma once

#include <vector>

#include "support/sound_file.h"

using Channel = std::vector<float>;

struct WholeSound {
  SndfileHandle file;  // tells the format of what is written
  int rate;
  std::vector<Channel> channels;

  long frames() const { return long(channels[0].size()); }
};

WholeSound readWhole(const std::filesystem::path& path);
// Writes `count` frames from `first` on.
void writePart(const std::filesystem::path& path, const WholeSound& sound, long first, long count);
