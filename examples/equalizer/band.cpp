#include "band.h"

#include <moxsp.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdio>
#include <numbers>
#include <span>
#include <stdexcept>

#include "support/program.h"
#include "support/require.h"

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

// Filters of order 1 to 12 that the library designs.
struct Design {
  const char* name;
  decltype(&moxsIIRGenLowpass_64f) taps;
  bool chebyshev;
};

const Design designs[] = {{"butterworth-lowpass", moxsIIRGenLowpass_64f, false},
                          {"butterworth-highpass", moxsIIRGenHighpass_64f, false},
                          {"chebyshev-lowpass", moxsIIRGenLowpass_64f, true},
                          {"chebyshev-highpass", moxsIIRGenHighpass_64f, true}};

template <class Row, std::size_t rows>
const Row* rowNamed(const Row (&table)[rows], const std::string& name) {
  const Row* row = std::ranges::find(table, name, &Row::name);
  return row == std::end(table) ? nullptr : row;
}

template <class Row, std::size_t rows>
std::string names(const Row (&table)[rows]) {
  std::string all;
  for (const Row& row : table) all += (all.empty() ? "" : ", ") + std::string(row.name);
  return all;
}

// The three numbers of :1000:-6:1.4; none of another text.
std::vector<double> numbersOf(const char* text) {
  std::vector<double> numbers;
  double number;
  for (int used; std::sscanf(text, ":%lf%n", &number, &used) == 1; text += used)
    numbers.push_back(number);
  return *text ? std::vector<double>() : numbers;
}

void demand(bool met, const std::string& reason) {
  if (!met) throw std::runtime_error(reason);
}

// HZ:DB:Q. The bilinear transform puts (1/k) (1 - z^-1) / (1 + z^-1) in the place of s, with
// k = tan(w/2), so that the analog frequency 1 becomes w.
Taps tapsOf(const Type& type, double edge, double db, double Q) {
  demand(std::abs(db) <= 60 && Q > 0 && !std::isinf(Q),
         "needs a gain of at most 60 dB and a Q above 0");
  const double gain = std::pow(10, db / 20);
  const Prototype p = type.prototype(std::sqrt(gain), gain, Q);
  const double k = std::tan(std::numbers::pi * edge), k2 = k * k;
  return {p.n2 + p.n1 * k + p.n0 * k2, 2 * (p.n0 * k2 - p.n2), p.n2 - p.n1 * k + p.n0 * k2,
          p.d2 + p.d1 * k + p.d0 * k2, 2 * (p.d0 * k2 - p.d2), p.d2 - p.d1 * k + p.d0 * k2};
}

// HZ:ORDER or HZ:ORDER:RIPPLE.
Taps tapsOf(const Design& design, double edge, double order, double ripple) {
  demand(order >= 1 && order <= 12 && order == std::floor(order), "needs an order of 1 to 12");
  demand(!design.chebyshev || (ripple > 0 && ripple <= 60), "needs a ripple above 0 to 60 dB");
  const int n = int(order);
  int bytes;
  require(moxsIIRGenGetBufferSize(n, &bytes), "moxsIIRGenGetBufferSize");
  std::vector<Mox8u> buffer(bytes);
  Taps taps(2 * (n + 1));
  require(design.taps(edge, ripple, taps.data(), n, design.chebyshev, buffer.data()), design.name);
  const double edgeDb = design.chebyshev ? -ripple : -10 * std::log10(2);
  demand(std::abs(gainDb({taps}, edge, 1) - edgeDb) < 0.001,
         "its order is too high for so low or high a frequency: doubles do not hold its taps");
  return taps;
}

Taps parsed(const std::string& text, double rate) {
  const std::size_t colon = std::min(text.find(':'), text.size());
  const Type* type = rowNamed(types, text.substr(0, colon));
  const Design* design = rowNamed(designs, text.substr(0, colon));
  demand(type || design, "its type must be one of " + names(types) + ", " + names(designs));
  std::vector<double> n = numbersOf(&text[colon]);
  if (type)
    demand(n.size() == 3, "needs TYPE:HZ:DB:Q");
  else if (design->chebyshev)
    demand(n.size() == 3, "needs TYPE:HZ:ORDER:RIPPLE");
  else
    demand(n.size() == 2, "needs TYPE:HZ:ORDER");
  n.resize(3);
  demand(n[0] > 0 && n[0] < rate / 2, "needs a frequency above 0 and below half the sample rate, " +
                                          shortNumber(rate / 2) + " Hz");
  return type ? tapsOf(*type, n[0] / rate, n[1], n[2]) : tapsOf(*design, n[0] / rate, n[1], n[2]);
}

}  // namespace

std::string bandSyntax() {
  return "TYPE:HZ:DB:Q such as peak:1000:-6:1.4, of the types " + names(types) +
         "; TYPE:HZ:ORDER, and :RIPPLE in dB behind it for Chebyshev, of the types " +
         names(designs);
}

Taps bandTaps(const std::string& text, double rate) {
  try {
    return parsed(text, rate);
  } catch (const std::runtime_error& e) {
    throw std::runtime_error("band " + text + ": " + e.what());
  }
}

double gainDb(const std::vector<Taps>& bands, double hz, double rate) {
  const std::complex<double> z1 = std::polar(1.0, -2 * std::numbers::pi * hz / rate);
  const auto magnitude = [&](std::span<const double> c) {  // of the sum of c[k] z^-k
    std::complex<double> sum = 0;
    for (std::size_t k = c.size(); k-- > 0;) sum = sum * z1 + c[k];
    return std::abs(sum);
  };
  double db = 0;
  for (const Taps& taps : bands) {
    const std::span all(taps);
    const std::size_t half = taps.size() / 2;
    db += 20 * std::log10(magnitude(all.first(half)) / magnitude(all.subspan(half)));
  }
  return db;
}
