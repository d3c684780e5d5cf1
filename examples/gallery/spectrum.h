// Magnitudes of a spectrum in decibels.
#pragma once

#include <string>
#include <vector>

#include "gallery/charts.h"

// Of a sequence filled up with zeros to 2^order samples, at the frequencies k / 2^order cycles per
// sample for k = 0 to 2^(order - 1).
std::vector<double> decibels(const std::vector<double>& samples, int order);

// The response of the filter with the taps b[k] and, of its feedback, a[k], over cycles per sample.
Curve responseOf(const std::string& name, const std::vector<double>& b,
                 const std::vector<double>& a = {1});
