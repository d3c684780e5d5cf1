#include "gallery/spectrum.h"

#include <moxsp.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "support/require.h"

std::vector<double> decibels(const std::vector<double>& samples, int order) {
  const int len = 1 << order;
  MoxsFFTSpec* made;
  require(moxsFFTInitAlloc_R_64f(&made, order, moxNormNone, moxHintNone), "FFTInitAlloc_R_64f");
  const std::unique_ptr<MoxsFFTSpec, decltype(&moxsFFTFree_R_64f)> spec(made, moxsFFTFree_R_64f);
  std::vector<double> padded(len), power(len / 2 + 1);
  std::vector<Mox64fc> spectrum(len / 2 + 1);
  std::copy(samples.begin(), samples.end(), padded.begin());
  require(moxsFFTFwd_RToCCS_64f(padded.data(), &spectrum[0].re, spec.get(), nullptr),
          "FFTFwd_RToCCS_64f");
  for (std::size_t k = 0; k < power.size(); ++k) {
    const auto [re, im] = spectrum[k];
    power[k] = 10 * std::log10(std::max(re * re + im * im, 1e-30));
  }
  return power;
}

Curve responseOf(const std::string& name, const std::vector<double>& b,
                 const std::vector<double>& a) {
  constexpr int order = 10;
  Curve response{name, {}, decibels(b, order)};
  const std::vector<double> feedback = decibels(a, order);
  for (std::size_t k = 0; k < response.y.size(); ++k) {
    response.x.push_back(double(k) / (1 << order));
    response.y[k] -= feedback[k];
  }
  return response;
}
