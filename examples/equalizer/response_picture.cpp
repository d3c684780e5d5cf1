#include "response_picture.h"

#include <algorithm>
#include <cmath>

#include "support/canvas.h"
#include "support/program.h"

namespace {

constexpr int plotWidth = 900, plotHeight = 420, left = 64, top = 40, right = 30, bottom = 50;
constexpr double lowest = 20, deepest = -60;  // Hz, dB
constexpr Rgb grid = {0.88, 0.88, 0.88}, blue = {0.12, 0.35, 0.75}, orange = {0.9, 0.45, 0.05};

// Octaves to the right, decibels upwards.
struct Axes {
  double highest, floor, ceiling;

  double x(double hz) const {
    return left + plotWidth * std::log(hz / lowest) / std::log(highest / lowest);
  }
  double y(double db) const {
    return top + plotHeight * (ceiling - std::clamp(db, floor, ceiling)) / (ceiling - floor);
  }
};

Axes axesOver(const std::vector<Taps>& bands, double rate) {
  Axes axes{rate / 2, -3, 3};
  for (double hz = lowest; hz < axes.highest; hz *= 1.01) {
    const double db = gainDb(bands, hz, rate);
    axes.floor = std::min(axes.floor, std::max(db - 3, deepest));
    axes.ceiling = std::max(axes.ceiling, db + 3);
  }
  return axes;
}

void drawGrid(Canvas& canvas, const Axes& axes) {
  for (double decade = 10; decade < axes.highest; decade *= 10)
    for (int digit = 1; digit < 10; ++digit) {
      const double hz = decade * digit;
      if (hz < lowest || hz > axes.highest) continue;
      canvas.rectangle(axes.x(hz) - 0.5, top, 1, plotHeight, grid);
      if (digit == 1 || digit == 2 || digit == 5)
        canvas.text(axes.x(hz), top + plotHeight + 18, 12, 0.5, shortNumber(hz));
    }
  const double step = niceStep(axes.ceiling - axes.floor, 8);
  for (double i = std::ceil(axes.floor / step); i * step <= axes.ceiling; ++i) {
    canvas.rectangle(left, axes.y(i * step) - 0.5, plotWidth, 1, i == 0 ? ink : grid);
    canvas.text(left - 8, axes.y(i * step) + 4, 12, 1, shortNumber(i * step));
  }
  canvas.text(left - 8, top - 10, 12, 1, "dB");
  canvas.text(left + plotWidth, top + plotHeight + 36, 12, 1, "Hz");
}

}  // namespace

void drawResponse(const std::filesystem::path& file, const std::string& title,
                  const std::vector<Taps>& bands, double rate,
                  const std::vector<Measured>& measured) {
  Canvas canvas(left + plotWidth + right, top + plotHeight + bottom);
  const Axes axes = axesOver(bands, rate);
  drawGrid(canvas, axes);

  std::vector<Point> asked;
  for (double hz = lowest; hz < axes.highest; hz *= 1.003)
    asked.push_back({axes.x(hz), axes.y(gainDb(bands, hz, rate))});
  canvas.curve(asked, 2, blue);
  constexpr double dot = 5;
  for (const Measured& m : measured)
    canvas.rectangle(axes.x(m.hz) - dot / 2, axes.y(m.db) - dot / 2, dot, dot, orange);

  canvas.text(left, top - 10, 15, 0, title);
  canvas.text(left + plotWidth - 90, top - 10, 13, 1, "asked for", blue);
  canvas.text(left + plotWidth, top - 10, 13, 1, "measured", orange);
  canvas.write(file);
}
