#include "support/canvas.h"

#include <png.h>

#include <cmath>
#include <stdexcept>

#include "support/result_file.h"

double niceStep(double range, int parts) {
  const double raw = range / parts, power = std::pow(10, std::floor(std::log10(raw)));
  for (double factor : {1.0, 2.0, 5.0})
    if (raw <= factor * power) return factor * power;
  return 10 * power;
}

Canvas::Canvas(int width, int height)
    : width_(width),
      height_(height),
      surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
      context_(cairo_create(surface_)) {
  cairo_set_source_rgb(context_, 1, 1, 1);
  cairo_paint(context_);
  cairo_select_font_face(context_, "sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
}

Canvas::~Canvas() {
  cairo_destroy(context_);
  cairo_surface_destroy(surface_);
}

void Canvas::rectangle(double x, double y, double w, double h, Rgb c) {
  cairo_set_source_rgb(context_, c.r, c.g, c.b);
  cairo_rectangle(context_, x, y, w, h);
  cairo_fill(context_);
}

void Canvas::curve(const std::vector<Point>& points, double thickness, Rgb c) {
  cairo_set_source_rgb(context_, c.r, c.g, c.b);
  cairo_set_line_width(context_, thickness);
  cairo_new_path(context_);
  for (const Point& p : points) cairo_line_to(context_, p.x, p.y);
  cairo_stroke(context_);
}

void Canvas::text(double x, double y, double size, double align, const std::string& words, Rgb c) {
  cairo_set_source_rgb(context_, c.r, c.g, c.b);
  cairo_set_font_size(context_, size);
  cairo_text_extents_t extents;
  cairo_text_extents(context_, words.c_str(), &extents);
  cairo_move_to(context_, x - align * extents.x_advance, y);
  cairo_show_text(context_, words.c_str());
}

void Canvas::write(const std::filesystem::path& file) {
  cairo_surface_flush(surface_);
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = width_;
  image.height = height_;
  image.format = PNG_FORMAT_BGRA;
  // The surface leaves its fourth byte undefined; make it opaque.
  unsigned char* pixels = cairo_image_surface_get_data(surface_);
  const int stride = cairo_image_surface_get_stride(surface_);
  for (int y = 0; y < height_; ++y)
    for (int x = 0; x < width_; ++x) pixels[y * stride + 4 * x + 3] = 255;
  ResultFile result(file);
  if (!png_image_write_to_file(&image, result.temporary().c_str(), 0, pixels, stride, nullptr))
    throw std::runtime_error("cannot write " + file.string() + ": " + image.message);
  result.commit();
}
