// Draws the pictures of docs/pictures, which docs/gallery.md shows.
#include <CLI/CLI.hpp>

#include "gallery/pictures.h"
#include "support/program.h"

int main(int argc, char** argv) {
  CLI::App app("Draws windows, filters and resampled tones as SVG files.", "gallery");
  std::filesystem::path folder;
  app.add_option("folder", folder, "where the pictures go")
      ->required()
      ->check(CLI::ExistingDirectory);
  return runProgram(app, argc, argv, [&] {
    drawWindows(folder);
    drawFilters(folder);
    drawIirFilters(folder);
    drawSparseFilters(folder);
    drawResampling(folder);
  });
}
