// A surface of pixels to draw a picture on, and its PNG file.
#pragma once

#include <cairo.h>

#include <filesystem>
#include <string>
#include <vector>

struct Rgb {
  double r, g, b;
};
constexpr Rgb ink = {0.1, 0.1, 0.1}, white = {1, 1, 1};

struct Point {
  double x, y;
};

// A step of 1, 2 or 5 times a power of ten that cuts an axis into about `parts` parts.
double niceStep(double range, int parts);

class Canvas {
 public:
  Canvas(int width, int height);
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  void rectangle(double x, double y, double w, double h, Rgb colour);
  void curve(const std::vector<Point>& points, double thickness, Rgb colour);
  // `align` is 0 for text that starts at x, 0.5 for centred, 1 for text that ends there.
  void text(double x, double y, double size, double align, const std::string& words,
            Rgb colour = ink);
  void write(const std::filesystem::path& file);

 private:
  int width_, height_;
  cairo_surface_t* surface_;
  cairo_t* context_;
};
