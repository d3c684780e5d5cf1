// How much later one recording of a sound starts than another.
#pragma once

#include <vector>

#include "support/whole_sound.h"

struct Delay {
  long frames;        // of the second recording behind the first
  bool isInverted;    // it has the other sign
  double similarity;  // correlation coefficient at that delay, 0 to 1
  double confidence;  // 1 less the next best correlation over the best, 0 to 1
};

// Looks at delays up to `most` frames either way.
Delay findDelay(const WholeSound& first, const WholeSound& second, long most);

// The sound at another rate.
void resample(WholeSound& sound, int rate);
