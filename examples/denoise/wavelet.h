// Several levels of a wavelet transform, whose bands stay in step with the signal.
#pragma once

#include <vector>

using Band = std::vector<float>;

struct Decomposition {
  std::vector<Band> details;  // the highest octave first
  Band rest;
  std::vector<std::size_t> lengths;  // of the signal at each level
};

Decomposition decompose(Band signal, int levels);
Band compose(const Decomposition& bands);
