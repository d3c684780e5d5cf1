// The bands of a parametric equalizer, each a second-order section.
#pragma once

#include <array>
#include <string>
#include <vector>

struct Band {
  std::string type;  // a row of the table in band.cpp
  double hz, db, q;  // centre or corner; gain there, of the shelf or of the pass band; quality
};

// Of a text such as peak:1000:-6:1.4. Throws std::runtime_error with the reason.
Band parseBand(const std::string& text);
std::string bandTypes();

// b[0], b[1], b[2], a[0], a[1], a[2] of one section at a sample rate.
using Section = std::array<double, 6>;
Section sectionOf(const Band& band, double rate);

// The gain of a cascade in dB.
double gainDb(const std::vector<Section>& cascade, double hz, double rate);
