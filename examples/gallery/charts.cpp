#include "gallery/charts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <stdexcept>

#include "support/axis.h"
#include "support/program.h"
#include "support/result_file.h"

namespace {

constexpr int chartWidth = 400, chartHeight = 220;
constexpr int left = 52, right = 16, top = 28, bottom = 40;
constexpr int plotWidth = chartWidth - left - right, plotHeight = chartHeight - top - bottom;
constexpr std::array colours = {"#1b6ca8", "#c8553d", "#3c8d53", "#8a5ea8", "#b08a1e"};

class Svg {
 public:
  Svg(int width, int height) {
    out_ << std::fixed << std::setprecision(1)
         << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << width << "\" height=\""
         << height << "\" font-family=\"sans-serif\" font-size=\"12\">\n"
         << "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
  }

  void text(double x, double y, const char* anchor, const std::string& words) {
    out_ << "<text x=\"" << x << "\" y=\"" << y << "\" text-anchor=\"" << anchor
         << "\" fill=\"#222222\">" << words << "</text>\n";
  }

  // x[i] and y[i] are the corners.
  template <class X, class Y>
  void line(std::size_t corners, X x, Y y, const char* colour) {
    out_ << "<polyline fill=\"none\" stroke=\"" << colour << "\" points=\"";
    for (std::size_t i = 0; i < corners; ++i) out_ << x(i) << ',' << y(i) << ' ';
    out_ << "\"/>\n";
  }
  void line(double x1, double y1, double x2, double y2, const char* colour) {
    line(
        2, [=](auto i) { return i ? x2 : x1; }, [=](auto i) { return i ? y2 : y1; }, colour);
  }

  void write(const std::filesystem::path& file) {
    ResultFile result(file);
    std::ofstream stream(result.temporary());
    if (!(stream << out_.str() << "</svg>\n" << std::flush))
      throw std::runtime_error("cannot write " + file.string());
    result.commit();
  }

 private:
  std::ostringstream out_;
};

void drawChart(Svg& svg, double x0, double y0, const Chart& chart) {
  const auto xOf = [&](double x) {
    return x0 + left + plotWidth * (x - chart.x.from) / (chart.x.to - chart.x.from);
  };
  const auto yOf = [&](double y) {
    const double share = (y - chart.y.from) / (chart.y.to - chart.y.from);
    return y0 + top + plotHeight * (1 - std::clamp(share, 0.0, 1.0));
  };
  svg.text(x0 + left, y0 + top - 10, "start", chart.title);
  for (const double x : ticks(chart.x.from, chart.x.to)) {
    svg.line(xOf(x), y0 + top, xOf(x), y0 + top + plotHeight, "#dddddd");
    svg.text(xOf(x), y0 + top + plotHeight + 16, "middle", shortNumber(x));
  }
  for (const double y : ticks(chart.y.from, chart.y.to)) {
    svg.line(x0 + left, yOf(y), x0 + left + plotWidth, yOf(y), "#dddddd");
    svg.text(x0 + left - 6, yOf(y) + 4, "end", shortNumber(y));
  }
  svg.text(x0 + left + plotWidth, y0 + chartHeight - 8, "end", chart.x.name);
  svg.text(x0 + 2, y0 + top - 10, "start", chart.y.name);
  std::string legend;
  for (std::size_t k = 0; k < chart.curves.size(); ++k) {
    const Curve& c = chart.curves[k];
    const char* colour = colours[k % colours.size()];
    const auto end = std::upper_bound(c.x.begin(), c.x.end(), chart.x.to);
    svg.line(
        std::size_t(end - c.x.begin()), [&](auto i) { return xOf(c.x[i]); },
        [&](auto i) { return yOf(c.y[i]); }, colour);
    if (k > 0) legend += "&#160; &#160;";
    legend += std::string("<tspan fill=\"") + colour + "\">" + c.name + "</tspan>";
  }
  if (chart.curves.size() > 1) svg.text(x0 + left + plotWidth, y0 + top - 10, "end", legend);
}

}  // namespace

void drawCharts(const std::filesystem::path& file, int columns, const std::vector<Chart>& charts) {
  const int rows = (int(charts.size()) + columns - 1) / columns;
  Svg svg(columns * chartWidth, rows * chartHeight);
  for (int i = 0; i < int(charts.size()); ++i)
    drawChart(svg, i % columns * chartWidth, i / columns * chartHeight, charts[std::size_t(i)]);
  svg.write(file);
}
