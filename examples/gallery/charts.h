// Line charts in a grid, as an SVG file.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

struct Axis {
  std::string name;
  double from, to;
};

struct Curve {
  std::string name;          // shown where a chart has several
  std::vector<double> x, y;  // x ascends, and may go on beyond its axis
};

struct Chart {
  std::string title;
  Axis x, y;
  std::vector<Curve> curves;
};

void drawCharts(const std::filesystem::path& file, int columns, const std::vector<Chart>& charts);
