#include "picture.h"

#include <cairo.h>
#include <png.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <vector>

namespace {

constexpr int plotWidth = 900, plotHeight = 300, left = 64, top = 40, gap = 72, right = 90;
constexpr int width = left + plotWidth + right, height = top + 2 * plotHeight + 2 * gap;
constexpr double floorDb = -100, ceilingDb = -10;

struct Rgb {
  double r, g, b;
};

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

class Canvas {
 public:
  Canvas()
      : surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
        context_(cairo_create(surface_)) {
    cairo_set_source_rgb(context_, 1, 1, 1);
    cairo_paint(context_);
    cairo_select_font_face(context_, "sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  }
  ~Canvas() {
    cairo_destroy(context_);
    cairo_surface_destroy(surface_);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  void rectangle(double x, double y, double w, double h, Rgb c) {
    cairo_set_source_rgb(context_, c.r, c.g, c.b);
    cairo_rectangle(context_, x, y, w, h);
    cairo_fill(context_);
  }

  // `align` is 0 for text that starts at x, 0.5 for centred, 1 for text that ends there.
  void text(double x, double y, double size, double align, const std::string& words) {
    cairo_set_source_rgb(context_, 0.1, 0.1, 0.1);
    cairo_set_font_size(context_, size);
    cairo_text_extents_t extents;
    cairo_text_extents(context_, words.c_str(), &extents);
    cairo_move_to(context_, x - align * extents.x_advance, y);
    cairo_show_text(context_, words.c_str());
  }

  void write(const std::filesystem::path& file) {
    cairo_surface_flush(surface_);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = height;
    image.format = PNG_FORMAT_BGRA;
    // The surface leaves its fourth byte undefined; make it opaque.
    unsigned char* pixels = cairo_image_surface_get_data(surface_);
    const int stride = cairo_image_surface_get_stride(surface_);
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < width; ++x) pixels[y * stride + 4 * x + 3] = 255;
    if (!png_image_write_to_file(&image, file.string().c_str(), 0, pixels, stride, nullptr))
      throw std::runtime_error("cannot write " + file.string() + ": " + image.message);
  }

 private:
  cairo_surface_t* surface_;
  cairo_t* context_;
};

// A step of 1, 2 or 5 times a power of ten that gives about `parts` parts.
double niceStep(double range, int parts) {
  const double raw = range / parts, power = std::pow(10, std::floor(std::log10(raw)));
  for (double factor : {1.0, 2.0, 5.0})
    if (raw <= factor * power) return factor * power;
  return 10 * power;
}

std::string number(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%g", value);
  return text;
}

// The strongest bin that falls on a pixel decides its colour, so that narrow lines stay visible.
double dbAt(const Spectrogram& s, int x, int y) {
  const int column = std::min(int(std::int64_t(x) * s.columns / plotWidth), s.columns - 1);
  const int from = (plotHeight - 1 - y) * (s.bins - 1) / plotHeight;
  const int to = std::max(from + 1, (plotHeight - y) * (s.bins - 1) / plotHeight);
  float power = 1e-20f;
  for (int bin = from; bin < to; ++bin) power = std::max(power, s.at(column, bin));
  return 10 * std::log10(power);
}

void drawPanel(Canvas& canvas, int panelTop, const Panel& panel) {
  const Spectrogram& s = panel.spectrogram;
  canvas.text(left, panelTop - 10, 15, 0, panel.title);
  for (int y = 0; y < plotHeight; ++y)
    for (int x = 0; x < plotWidth; ++x)
      canvas.rectangle(left + x, panelTop + y, 1, 1, colourOf(dbAt(s, x, y)));

  const double kilohertz = s.rate / 2000, step = niceStep(kilohertz, 6);
  for (double f = 0; f <= kilohertz; f += step) {
    const double y = panelTop + plotHeight * (1 - f / kilohertz);
    canvas.rectangle(left - 5, y - 0.5, 5, 1, {0.1, 0.1, 0.1});
    canvas.text(left - 8, y + 4, 12, 1, number(f));
  }
  const double timeStep = niceStep(s.seconds, 8);
  for (double t = 0; t <= s.seconds; t += timeStep) {
    const double x = left + plotWidth * t / s.seconds;
    canvas.rectangle(x - 0.5, panelTop + plotHeight, 1, 5, {0.1, 0.1, 0.1});
    canvas.text(x, panelTop + plotHeight + 18, 12, 0.5, number(t));
  }
  canvas.text(left - 8, panelTop - 10, 12, 1, "kHz");
  canvas.text(left + plotWidth, panelTop + plotHeight + 34, 12, 1, "seconds");
}

void drawScale(Canvas& canvas) {
  const int x = left + plotWidth + 20, y = top;
  for (int i = 0; i < plotHeight; ++i)
    canvas.rectangle(x, y + i, 14, 1,
                     colourOf(ceilingDb + (floorDb - ceilingDb) * i / (plotHeight - 1)));
  for (double db = ceilingDb; db >= floorDb; db -= 30)
    canvas.text(x + 20, y + 4 + (db - ceilingDb) / (floorDb - ceilingDb) * plotHeight, 12, 0,
                number(db));
  canvas.text(x, y - 10, 12, 0, "dBFS");
}

}  // namespace

void drawPanels(const std::filesystem::path& file, const Panel& upper, const Panel& lower) {
  Canvas canvas;
  drawPanel(canvas, top, upper);
  drawPanel(canvas, top + plotHeight + gap, lower);
  drawScale(canvas);
  canvas.write(file);
}
