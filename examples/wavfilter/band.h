// The band that a filter lets through, its taps, and what of a sound lies in it.
#pragma once

#include <string>
#include <vector>

#include "support/spectrogram.h"

struct Band {
  double low = 0;   // Hz; 0 for a lowpass
  double high = 0;  // Hz; half the sample rate for a highpass
  double rate = 0;  // samples a second
  int taps = 511;   // odd, so that the filter delays by whole samples

  // From the edge of the band, where the response is one half, to the start of the stop band.
  double halfTransition() const { return 2.75 * rate / taps; }
  bool stops(double hz) const;   // well outside
  bool passes(double hz) const;  // well inside
  std::vector<double> edges() const;
  std::string name() const;  // such as lowpass-1000Hz
};

// Linear-phase taps: the ideal response cut to length by a Blackman window (side lobes below
// -74 dB). See Oppenheim and Schafer, Discrete-Time Signal Processing, section 7.5.
std::vector<float> windowedSinc(const Band& band);

struct BandLevels {
  double stop, pass;  // dB relative to a full-scale sine
};

// What lies well outside and well inside the band in one channel of a sound.
BandLevels levelsOf(const Spectrogram& s, int channel, const Band& band);
