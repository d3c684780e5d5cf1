// A surface of pixels to draw a picture on, and its PNG file.
#pragma once

#include <cairo.h>

#include <filesystem>
#include <string>

struct Rgb {
  double r, g, b;
};
constexpr Rgb ink = {0.1, 0.1, 0.1}, white = {1, 1, 1};

class Canvas {
 public:
  Canvas(int width, int height);
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  void rectangle(double x, double y, double w, double h, Rgb colour);
  // `align` is 0 for text that starts at x, 0.5 for centred, 1 for text that ends there.
  void text(double x, double y, double size, double align, const std::string& words,
            Rgb colour = ink);
  void write(const std::filesystem::path& file);

 private:
  int width_, height_;
  cairo_surface_t* surface_;
  cairo_t* context_;
};
