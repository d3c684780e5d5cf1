// What the four kinds of designed FIR filters let through, by the window they are cut out with.
#include <moxsp.h>

#include "gallery/charts.h"
#include "gallery/pictures.h"
#include "gallery/spectrum.h"
#include "support/require.h"

namespace {

constexpr int len = 63;
constexpr double low = 0.15, high = 0.3;

using Design = MoxStatus (*)(Mox64f*, int winType);
const struct {
  const char* name;
  Design design;
} kinds[] = {
    {"Lowpass", [](Mox64f* h, int w) { return moxsFIRGenLowpass_64f(low, h, len, w, 1); }},
    {"Highpass", [](Mox64f* h, int w) { return moxsFIRGenHighpass_64f(high, h, len, w, 1); }},
    {"Bandpass", [](Mox64f* h, int w) { return moxsFIRGenBandpass_64f(low, high, h, len, w, 1); }},
    {"Bandstop", [](Mox64f* h, int w) { return moxsFIRGenBandstop_64f(low, high, h, len, w, 1); }}};

Curve designed(const char* name, Design design, int winType) {
  std::vector<double> taps(len);
  require(design(taps.data(), winType), name);
  return responseOf(name, taps);
}

}  // namespace

void drawFilters(const std::filesystem::path& folder) {
  std::vector<Chart> charts;
  for (const auto& [name, design] : kinds)
    charts.push_back({name,
                      {"cycles a sample", 0, 0.5},
                      {"dB", -120, 0},
                      {designed("none", design, -1), designed("Hamming", design, moxWindowHamming),
                       designed("Blackman", design, moxWindowBlackmanOpt)}});
  drawCharts(folder / "filters.svg", 2, charts);
}
