// What a filter did to a sound, measured from the files before and after.
#pragma once

#include <filesystem>
#include <vector>

struct Measured {
  double hz, db;
};

// The gain at the strongest frequency of each 24th of an octave, where it is strong enough to tell.
std::vector<Measured> measureResponse(const std::filesystem::path& before,
                                      const std::filesystem::path& after);
