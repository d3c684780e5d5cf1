// Median filters beside what one would write: a sorting network for each output, which the compiler
// makes vectors of, and a selection in each window.
#include <moxsp.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "fir/signals.h"
#include "support/compare.h"

namespace {

// Exchanges that bring the median of 9 to the middle: N. Devillard, "Fast median search: an ANSI C
// implementation", 1998.
constexpr std::pair<int, int> exchanges9[] = {
    {1, 2}, {4, 5}, {7, 8}, {0, 1}, {3, 4}, {6, 7}, {1, 2}, {4, 5}, {7, 8}, {0, 3},
    {5, 8}, {4, 7}, {3, 6}, {1, 4}, {2, 5}, {4, 7}, {4, 2}, {6, 4}, {4, 2}};

template <class E>
void network9(const E* x, E* y, long len) {
  for (long i = 0; i < len - 8; ++i) {
    E w[9];
    for (int k = 0; k < 9; ++k) w[k] = x[i + k];
#pragma GCC unroll 19
    for (const auto& [a, b] : exchanges9) {
      const E low = w[a] < w[b] ? w[a] : w[b], high = w[a] < w[b] ? w[b] : w[a];
      w[a] = low, w[b] = high;
    }
    y[i + 4] = w[4];
  }
}

template <class E>
void selection(const E* x, E* y, long len, long mask) {
  E window[512];
  for (long i = 0; i <= len - mask; ++i) {
    std::memcpy(window, x + i, mask * sizeof(E));
    std::nth_element(window, window + mask / 2, window + mask);
    y[i + mask / 2] = window[mask / 2];
  }
}

template <class E>
void add(const char* type, MoxStatus (*filter)(const E*, E*, int, int)) {
  constexpr int len = 100000;
  const auto x = std::make_shared<std::vector<E>>(bench::noise<E>(len));
  const auto y = std::make_shared<std::vector<E>>(len);
  for (const int mask : {3, 5, 7, 9, 51, 501}) {
    bench::Case c{.family = std::string("median_") + type,
                  .size = mask,
                  .work = {},
                  .ours = [=] { filter(x->data(), y->data(), len, mask); },
                  .peers = {{"nth_element", [=] {
                               selection(x->data(), y->data(), len, mask);
                               bench::clobber(y->data());
                             }}}};
    if (mask == 9)
      c.peers.push_back({"network", [=] {
                           network9(x->data(), y->data(), len);
                           bench::clobber(y->data());
                         }});
    bench::add(std::move(c));
  }
}

const bool registered = [] {
  add<Mox32f>("32f", moxsFilterMedian_32f);
  add<Mox64f>("64f", moxsFilterMedian_64f);
  add<Mox16s>("16s", moxsFilterMedian_16s);
  add<Mox8u>("8u", moxsFilterMedian_8u);
  return true;
}();

}  // namespace
