// Magnitudes of a spectrum in decibels.
#pragma once

#include <vector>

// Of a sequence filled up with zeros to 2^order samples, at the frequencies k / 2^order cycles per
// sample for k = 0 to 2^(order - 1).
std::vector<double> decibels(const std::vector<double>& samples, int order);
