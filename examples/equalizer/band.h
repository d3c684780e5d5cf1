// The bands of an equalizer, each an IIR filter.
#pragma once

#include <string>
#include <vector>

// b[0] .. b[n], a[0] .. a[n] of a filter of order n.
using Taps = std::vector<double>;

// Of a text such as peak:1000:-6:1.4 or butterworth-highpass:80:4. Throws std::runtime_error with
// the reason.
Taps bandTaps(const std::string& text, double rate);
std::string bandSyntax();

// The gain of all bands together in dB.
double gainDb(const std::vector<Taps>& bands, double hz, double rate);
