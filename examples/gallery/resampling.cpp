// Two tones from 8 to 48 kHz: with zeros between the samples, and resampled.
#include <moxsp.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "gallery/charts.h"
#include "gallery/pictures.h"
#include "gallery/spectrum.h"
#include "support/require.h"

namespace {

constexpr int inRate = 8000, outRate = 48000, factor = 6, margin = 200, order = 12;
constexpr int outLen = 1 << order, len = outLen / factor + 1;

Chart spectrumOf(const char* title, const Mox32f* y) {
  std::vector<double> x(y, y + outLen);
  require(moxsWinKaiser_64f_I(x.data(), outLen, 30.0 / (outLen - 1)), "moxsWinKaiser_64f_I");
  Curve spectrum{"", {}, decibels(x, order)};
  const double peak = *std::ranges::max_element(spectrum.y);
  for (std::size_t k = 0; k < spectrum.y.size(); ++k) {
    spectrum.x.push_back(double(k) * outRate / outLen / 1000);
    spectrum.y[k] -= peak;
  }
  return {title, {"kHz", 0, outRate / 2000.0}, {"dB", -160, 0}, {spectrum}};
}

std::vector<Mox32f> resampled(const Mox32f* x) {
  int bytes, filterLen, filters, count;
  require(moxsResamplePolyphaseFixedGetSize_32f(inRate, outRate, 192, &bytes, &filterLen, &filters,
                                                moxHintAccurate),
          "moxsResamplePolyphaseFixedGetSize_32f");
  std::vector<Mox8u> memory(bytes);
  auto* state = reinterpret_cast<MoxsResamplePolyphaseFixedState*>(memory.data());
  require(
      moxsResamplePolyphaseFixedInit_32f(inRate, outRate, 192, 0.957f, 13, state, moxHintAccurate),
      "moxsResamplePolyphaseFixedInit_32f");
  std::vector<Mox32f> y(len * factor);
  Mox64f time = 0;
  require(moxsResamplePolyphaseFixed_32f(x, len, y.data(), 1, &time, &count, state),
          "moxsResamplePolyphaseFixed_32f");
  return y;
}

}  // namespace

void drawResampling(const std::filesystem::path& folder) {
  std::vector<Mox32f> x(len + 2 * margin), stuffed(len * factor);
  for (std::size_t i = 0; i < x.size(); ++i)
    for (const double hz : {1000, 3500})
      x[i] += Mox32f(0.45 * std::sin(2 * std::numbers::pi * hz * double(i) / inRate));
  int count, phase = 0;
  require(moxsSampleUp_32f(&x[margin], len, stuffed.data(), &count, factor, &phase),
          "moxsSampleUp_32f");
  drawCharts(folder / "resampling.svg", 2,
             {spectrumOf("SampleUp by 6", stuffed.data()),
              spectrumOf("ResamplePolyphaseFixed, 192 taps", resampled(&x[margin]).data())});
}
