#include "band.h"

#include <cmath>
#include <complex>
#include <cstdio>
#include <numbers>
#include <stdexcept>

namespace {

// An analog filter (n2 s^2 + n1 s + n0) / (d2 s^2 + d1 s + d0) with its centre or corner at 1.
struct Prototype {
  double n2, n1, n0, d2, d1, d0;
};

// A is the square root of the gain, G the gain.
struct Type {
  const char* name;
  Prototype (*prototype)(double A, double G, double Q);
};

// R. Bristow-Johnson, Cookbook formulae for audio equalizer biquad filter coefficients.
const Type types[] = {
    {"peak", [](double A, double, double Q) { return Prototype{1, A / Q, 1, 1, 1 / (A * Q), 1}; }},
    {"lowshelf",
     [](double A, double, double Q) {
       const double r = std::sqrt(A) / Q;
       return Prototype{A, A * r, A * A, A, r, 1};
     }},
    {"highshelf",
     [](double A, double, double Q) {
       const double r = std::sqrt(A) / Q;
       return Prototype{A * A, A * r, A, 1, r, A};
     }},
    {"lowpass", [](double, double G, double Q) { return Prototype{0, 0, G, 1, 1 / Q, 1}; }},
    {"highpass", [](double, double G, double Q) { return Prototype{G, 0, 0, 1, 1 / Q, 1}; }},
    {"bandpass", [](double, double G, double Q) { return Prototype{0, G / Q, 0, 1, 1 / Q, 1}; }},
    {"notch", [](double, double G, double Q) { return Prototype{G, 0, G, 1, 1 / Q, 1}; }},
};

const Type* typeNamed(const std::string& name) {
  for (const Type& type : types)
    if (name == type.name) return &type;
  return nullptr;
}

}  // namespace

std::string bandTypes() {
  std::string names;
  for (const Type& type : types) names += (names.empty() ? "" : ", ") + std::string(type.name);
  return names;
}

Band parseBand(const std::string& text) {
  const auto refuse = [&](const std::string& reason) {
    return std::runtime_error("band " + text + ": " + reason);
  };
  Band band;
  const std::size_t colon = text.find(':');
  band.type = text.substr(0, colon);
  if (!typeNamed(band.type)) throw refuse("its type must be one of " + bandTypes());
  char more;
  const char* numbers = colon == text.npos ? "" : text.c_str() + colon;
  if (std::sscanf(numbers, ":%lf:%lf:%lf%c", &band.hz, &band.db, &band.q, &more) != 3)
    throw refuse("needs TYPE:HZ:DB:Q");
  if (!(band.hz > 0) || !(band.q > 0) || !(std::abs(band.db) <= 60) || std::isinf(band.q))
    throw refuse("needs a frequency and a Q above 0 and a gain of at most 60 dB");
  return band;
}

// The bilinear transform puts (1/k) (1 - z^-1) / (1 + z^-1) in the place of s, with k = tan(w/2),
// so that the analog frequency 1 becomes w.
Section sectionOf(const Band& band, double rate) {
  const double gain = std::pow(10, band.db / 20);
  const Prototype p = typeNamed(band.type)->prototype(std::sqrt(gain), gain, band.q);
  const double k = std::tan(std::numbers::pi * band.hz / rate), k2 = k * k;
  return {p.n2 + p.n1 * k + p.n0 * k2, 2 * (p.n0 * k2 - p.n2), p.n2 - p.n1 * k + p.n0 * k2,
          p.d2 + p.d1 * k + p.d0 * k2, 2 * (p.d0 * k2 - p.d2), p.d2 - p.d1 * k + p.d0 * k2};
}

double gainDb(const std::vector<Section>& cascade, double hz, double rate) {
  const std::complex<double> z1 = std::polar(1.0, -2 * std::numbers::pi * hz / rate), z2 = z1 * z1;
  double db = 0;
  for (const Section& s : cascade)
    db += 20 * std::log10(std::abs(s[0] + s[1] * z1 + s[2] * z2) /
                          std::abs(s[3] + s[4] * z1 + s[5] * z2));
  return db;
}
