// Each window, and its spectrum.
#include <moxsp.h>

#include <numeric>

#include "gallery/charts.h"
#include "gallery/pictures.h"
#include "gallery/spectrum.h"
#include "support/require.h"

namespace {

constexpr int len = 64, order = 12;

MoxStatus kaiser(Mox64f* x, int n) { return moxsWinKaiser_64f_I(x, n, 17.0 / (n - 1)); }

const struct {
  const char* name;
  MoxStatus (*apply)(Mox64f*, int);
} windows[] = {{"Bartlett", moxsWinBartlett_64f_I},
               {"Hann", moxsWinHann_64f_I},
               {"Hamming", moxsWinHamming_64f_I},
               {"Blackman, standard", moxsWinBlackmanStd_64f_I},
               {"Blackman, optimum", moxsWinBlackmanOpt_64f_I},
               {"Kaiser, p = 8.5", kaiser}};

}  // namespace

void drawWindows(const std::filesystem::path& folder) {
  std::vector<Chart> charts;
  for (const auto& window : windows) {
    std::vector<double> w(len, 1);
    require(window.apply(w.data(), len), window.name);
    std::vector<double> n(len);
    std::iota(n.begin(), n.end(), 0);
    const double sum = std::accumulate(w.begin(), w.end(), 0.0);
    for (double& x : w) x /= sum;  // a constant has 0 dB
    Curve spectrum{"", {}, decibels(w, order)};
    for (std::size_t k = 0; k < spectrum.y.size(); ++k)
      spectrum.x.push_back(double(k) * len / (1 << order));
    for (double& x : w) x *= sum;
    charts.push_back({window.name, {"sample", 0, len - 1}, {"weight", 0, 1}, {{"", n, w}}});
    charts.push_back({"", {"cycles in the window", 0, 16}, {"dB", -120, 0}, {spectrum}});
  }
  drawCharts(folder / "windows.svg", 2, charts);
}
