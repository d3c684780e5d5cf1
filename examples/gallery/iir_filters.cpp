// What designed IIR filters let through, by their order and by their ripple.
#include <moxsp.h>

#include "gallery/charts.h"
#include "gallery/pictures.h"
#include "gallery/spectrum.h"
#include "support/require.h"

namespace {

struct Kind {
  const char* name;
  decltype(&moxsIIRGenLowpass_64f) design;
  double edge;
};
const Kind kinds[] = {{"lowpass", moxsIIRGenLowpass_64f, 0.1},
                      {"highpass", moxsIIRGenHighpass_64f, 0.3}};

// A Butterworth filter without ripple, a Chebyshev filter with it.
Curve designed(const Kind& kind, int order, double ripple, const std::string& name) {
  int size;
  require(moxsIIRGenGetBufferSize(order, &size), "moxsIIRGenGetBufferSize");
  std::vector<Mox8u> buffer(size);
  std::vector<double> taps(2 * (order + 1));
  require(kind.design(kind.edge, ripple, taps.data(), order, ripple > 0, buffer.data()), kind.name);
  const auto half = taps.begin() + order + 1;
  return responseOf(name, {taps.begin(), half}, {half, taps.end()});
}

}  // namespace

void drawIirFilters(const std::filesystem::path& folder) {
  const Axis frequency = {"cycles a sample", 0, 0.5};
  std::vector<Chart> charts;
  for (const double ripple : {0.0, 1.0})
    for (const Kind& kind : kinds) {
      const std::string type = ripple > 0 ? "Chebyshev " : "Butterworth ";
      charts.push_back({type + kind.name, frequency, {"dB", -100, 0}, {}});
      for (const int order : {2, 4, 8})
        charts.back().curves.push_back(
            designed(kind, order, ripple, "order " + std::to_string(order)));
    }
  for (const Kind& kind : kinds)
    charts.push_back({"Order 5, " + std::string(kind.name),
                      frequency,
                      {"dB", -6, 3},
                      {designed(kind, 5, 0, "Butterworth"), designed(kind, 5, 1, "1 dB"),
                       designed(kind, 5, 3, "3 dB")}});
  drawCharts(folder / "iir_filters.svg", 2, charts);
}
