// Combs: an echo without and with feedback, by sparse filters.
#include <moxsp.h>

#include "gallery/charts.h"
#include "gallery/pictures.h"
#include "gallery/spectrum.h"
#include "support/require.h"

namespace {

constexpr int delay = 8, len = 512;

std::vector<Mox32f> impulse() {
  std::vector<Mox32f> x(len);
  x[0] = 1;
  return x;
}

// y[i] = x[i] + gain x[i - delay]
std::vector<double> echo(float gain) {
  const float taps[] = {1, gain};
  const int positions[] = {0, delay};
  int size;
  require(moxsFIRSparseGetStateSize_32f(2, delay, &size), "moxsFIRSparseGetStateSize_32f");
  std::vector<Mox8u> memory(size);
  MoxsFIRSparseState* state;
  require(moxsFIRSparseInit_32f(&state, taps, positions, 2, nullptr, memory.data()),
          "moxsFIRSparseInit_32f");
  std::vector<Mox32f> y = impulse();
  require(moxsFIRSparse_32f(y.data(), y.data(), len, state), "moxsFIRSparse_32f");
  return {y.begin(), y.end()};
}

// y[i] = x[i] + gain y[i - delay]
std::vector<double> echoes(float gain) {
  const float taps[] = {1, -gain};
  const int positions[] = {0, delay};
  int size;
  require(moxsIIRSparseGetStateSize_32f(positions, 1, 1, &size), "moxsIIRSparseGetStateSize_32f");
  std::vector<Mox8u> memory(size);
  MoxsIIRSparseState* state;
  require(moxsIIRSparseInit_32f(&state, taps, positions, 1, 1, nullptr, memory.data()),
          "moxsIIRSparseInit_32f");
  std::vector<Mox32f> y = impulse();
  require(moxsIIRSparse_32f(y.data(), y.data(), len, state), "moxsIIRSparse_32f");
  return {y.begin(), y.end()};
}

const struct {
  const char* title;
  std::vector<double> (*filter)(float gain);
} combs[] = {{"One echo after 8 samples", echo}, {"Each echoed again", echoes}};

}  // namespace

void drawSparseFilters(const std::filesystem::path& folder) {
  std::vector<Chart> charts;
  for (const auto& [title, filter] : combs)
    charts.push_back({title,
                      {"cycles a sample", 0, 0.5},
                      {"dB", -15, 15},
                      {responseOf("0.4", filter(0.4f)), responseOf("0.8", filter(0.8f))}});
  drawCharts(folder / "sparse_filters.svg", 2, charts);
}
