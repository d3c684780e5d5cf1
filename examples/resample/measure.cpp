#include "measure.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

// A second's tenth of a sine, resampled, without the ends that meet silence.
std::vector<double> resampledSine(double hz, int inRate, int outRate, const Quality& quality) {
  ChannelResampler resampler(inRate, outRate, quality);
  std::vector<float> x(inRate / 10 + 2 * resampler.taps()), y;
  for (std::size_t i = 0; i < x.size(); ++i)
    x[i] = float(std::sin(2 * std::numbers::pi * hz * double(i) / inRate));
  resampler.push(x, y);
  const long edge = long(resampler.taps() * double(outRate) / inRate) + 1;
  return {y.begin() + std::min(edge, long(y.size()) / 3), y.end()};
}

double powerOf(const std::vector<double>& y) {
  double sum = 0;
  for (const double e : y) sum += e * e;
  return sum / double(y.size());
}

// Takes the sine of this frequency out, in the sense of least squares, and returns its power.
double removeSine(std::vector<double>& y, double turn) {
  double cc = 0, cs = 0, ss = 0, yc = 0, ys = 0;
  for (std::size_t k = 0; k < y.size(); ++k) {
    const double c = std::cos(turn * double(k)), s = std::sin(turn * double(k));
    cc += c * c, cs += c * s, ss += s * s, yc += y[k] * c, ys += y[k] * s;
  }
  const double d = cc * ss - cs * cs, a = (yc * ss - ys * cs) / d, b = (ys * cc - yc * cs) / d;
  for (std::size_t k = 0; k < y.size(); ++k)
    y[k] -= a * std::cos(turn * double(k)) + b * std::sin(turn * double(k));
  return (a * a + b * b) / 2;
}

double decibels(double ratio) { return 10 * std::log10(ratio + 1e-30); }

}  // namespace

Measured measure(int inRate, int outRate, const Quality& quality) {
  Measured m = {1e9, 0};
  const double half = std::min(inRate, outRate) / 2.0;
  for (const double part : {0.05, 0.3, 0.6, 0.9}) {
    auto y = resampledSine(part * half, inRate, outRate, quality);
    const double sine = removeSine(y, 2 * std::numbers::pi * part * half / outRate);
    m.noise = std::min(m.noise, decibels(sine / powerOf(y)));
  }
  if (outRate < inRate)
    m.rejected = -decibels(2 * powerOf(resampledSine(1.1 * half, inRate, outRate, quality)));
  return m;
}
