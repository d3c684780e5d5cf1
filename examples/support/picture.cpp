#include "support/picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "support/axis.h"
#include "support/canvas.h"
#include "support/program.h"

namespace {

constexpr int plotWidth = 900, plotHeight = 300, left = 64, top = 40, gap = 72, right = 90;
constexpr int width = left + plotWidth + right, height = top + 2 * plotHeight + 2 * gap;
constexpr double floorDb = -100, ceilingDb = -10;

// Dark to bright in steps that look even to the eye, as perceptual colour maps do.
Rgb colourOf(double db) {
  constexpr std::array<Rgb, 6> stops = {{{0.02, 0.02, 0.10},
                                         {0.23, 0.06, 0.44},
                                         {0.55, 0.16, 0.50},
                                         {0.87, 0.29, 0.41},
                                         {0.99, 0.62, 0.43},
                                         {0.99, 0.99, 0.75}}};
  const double x =
      std::clamp((db - floorDb) / (ceilingDb - floorDb), 0.0, 1.0) * (stops.size() - 1);
  const int i = std::min(int(x), int(stops.size()) - 2);
  const double f = x - i;
  const Rgb &a = stops[i], &b = stops[i + 1];
  return {a.r + f * (b.r - a.r), a.g + f * (b.g - a.g), a.b + f * (b.b - a.b)};
}

// The axis of time: seconds for a short sound, minutes and hours as a clock tells them.
class TimeAxis {
 public:
  explicit TimeAxis(double seconds) {
    constexpr int parts = 8;
    if (seconds < 120) {
      step = niceStep(seconds, parts);
      return;
    }
    unit_ = seconds < 7200 ? 60 : 3600;
    unitName = seconds < 7200 ? "minutes" : "hours";
    for (double s : {15, 30, 60, 120, 300, 600, 900, 1800, 3600})
      if (step = s; seconds <= parts * s) return;
    while (seconds > parts * step) step *= 2;
  }

  std::string label(double seconds) const {
    if (unit_ == 1) return shortNumber(seconds);
    const long sixtieths = std::lround(seconds * 60 / unit_);
    char text[32];
    std::snprintf(text, sizeof text, "%ld:%02ld", sixtieths / 60, sixtieths % 60);
    return text;
  }

  double step = 1;  // seconds
  const char* unitName = "seconds";

 private:
  int unit_ = 1;  // seconds
};

// The strongest bin that falls on a pixel decides its colour, so that narrow lines stay visible.
double dbAt(const Spectrogram& s, int x, int y) {
  const int column = std::min(int((x + 0.5) / plotWidth * s.frames / s.hop), s.columns - 1);
  const int from = (plotHeight - 1 - y) * (s.bins - 1) / plotHeight;
  const int to = std::max(from + 1, (plotHeight - y) * (s.bins - 1) / plotHeight);
  float power = 1e-20f;
  for (int bin = from; bin < to; ++bin) power = std::max(power, s.at(column, bin));
  return 10 * std::log10(power);
}

void drawMark(Canvas& canvas, int panelTop, double hz, double halfRate) {
  constexpr int dash = 6, space = 4, labelHeight = 16;
  const int y = std::clamp(int(std::lround(plotHeight * (1 - hz / halfRate))), 0, plotHeight - 1);
  for (int x = 0; x < plotWidth; x += dash + space)
    canvas.rectangle(left + x, panelTop + y, std::min(dash, plotWidth - x), 1, white);
  const int baseline = panelTop + y + (y < labelHeight ? labelHeight : -5);
  const std::string label = shortNumber(hz) + " Hz";
  canvas.text(left + 7, baseline + 1, 12, 0, label, ink);  // a shadow, for bright ground
  canvas.text(left + 6, baseline, 12, 0, label, white);
}

void drawPanel(Canvas& canvas, int panelTop, const Panel& panel, const std::vector<double>& marks) {
  const Spectrogram& s = panel.spectrogram;
  canvas.text(left, panelTop - 10, 15, 0, panel.title);
  for (int y = 0; y < plotHeight; ++y)
    for (int x = 0; x < plotWidth; ++x)
      canvas.rectangle(left + x, panelTop + y, 1, 1, colourOf(dbAt(s, x, y)));
  for (double hz : marks) drawMark(canvas, panelTop, hz, s.rate / 2);

  const double kilohertz = s.rate / 2000, step = niceStep(kilohertz, 6);
  for (double f = 0; f <= kilohertz; f += step) {
    const double y = panelTop + plotHeight * (1 - f / kilohertz);
    canvas.rectangle(left - 5, y - 0.5, 5, 1, ink);
    canvas.text(left - 8, y + 4, 12, 1, shortNumber(f));
  }
  const TimeAxis time(s.seconds());
  for (double t = 0; t <= s.seconds(); t += time.step) {
    const double x = left + plotWidth * t / s.seconds();
    canvas.rectangle(x - 0.5, panelTop + plotHeight, 1, 5, ink);
    canvas.text(x, panelTop + plotHeight + 18, 12, 0.5, time.label(t));
  }
  canvas.text(left - 8, panelTop - 10, 12, 1, "kHz");
  canvas.text(left + plotWidth, panelTop + plotHeight + 34, 12, 1, time.unitName);
}

void drawScale(Canvas& canvas) {
  const int x = left + plotWidth + 20, y = top;
  for (int i = 0; i < plotHeight; ++i)
    canvas.rectangle(x, y + i, 14, 1,
                     colourOf(ceilingDb + (floorDb - ceilingDb) * i / (plotHeight - 1)));
  for (double db = ceilingDb; db >= floorDb; db -= 30)
    canvas.text(x + 20, y + 4 + (db - ceilingDb) / (floorDb - ceilingDb) * plotHeight, 12, 0,
                shortNumber(db));
  canvas.text(x, y - 10, 12, 0, "dBFS");
}

}  // namespace

void drawPanels(const std::filesystem::path& file, const Panel& upper, const Panel& lower,
                const std::vector<double>& marks) {
  Canvas canvas(width, height);
  drawPanel(canvas, top, upper, marks);
  drawPanel(canvas, top + plotHeight + gap, lower, marks);
  drawScale(canvas);
  canvas.write(file);
}
