// What a resampler does to sines.
#pragma once

#include "channel_resampler.h"

struct Measured {
  double noise;     // dB below a sine in the pass band, at worst
  double rejected;  // dB of a sine 10 % above half the new rate; 0 where the rate does not fall
};

Measured measure(int inRate, int outRate, const Quality& quality);
