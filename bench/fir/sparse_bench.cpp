#include <moxsp.h>

#include "fir/signals.h"
#include "support/compare.h"

namespace {

constexpr int len = 1 << 16, filterTaps = 256;

void plainSparse(const float* __restrict x, float* __restrict y, int count,
                 const float* __restrict taps, const int* __restrict positions, int n) {
  for (int i = 0; i < count; ++i) {
    float sum = 0;
    for (int k = 0; k < n; ++k) sum += taps[k] * x[i - positions[k]];
    y[i] = sum;
  }
}

// `count` taps spread over those of a filter that sums all of them.
void addSparse(int count) {
  struct Data {
    std::vector<float> taps, all = std::vector<float>(filterTaps),
                             x = bench::noise<float>(len + filterTaps), y = x;
    std::vector<int> positions;
    std::vector<Mox8u> memory;
  };
  auto d = std::make_shared<Data>();
  d->taps = bench::noise<float>(count);
  for (int k = 0; k < count; ++k) {
    d->positions.push_back(k * (filterTaps - 1) / (count - 1));
    d->all[d->positions.back()] = d->taps[k];
  }
  int bytes;
  moxsFIRSparseGetStateSize_32f(count, filterTaps - 1, &bytes);
  d->memory.resize(bytes);
  MoxsFIRSparseState* sparse;
  moxsFIRSparseInit_32f(&sparse, d->taps.data(), d->positions.data(), count, nullptr,
                        d->memory.data());
  MoxsFIRState* state;
  moxsFIRInitAlloc_32f(&state, d->all.data(), filterTaps, nullptr);
  const auto dense = bench::shared(state, moxsFIRFree_32f);
  const float* x = d->x.data() + filterTaps;
  bench::add({.family = "fir_sparse_32f_of_256",
              .size = count,
              .work = {.floatOps = 2.0 * count * len},
              .ours = [=] { moxsFIRSparse_32f(x, d->y.data(), len, sparse); },
              .peers = {{"moxsFIR_32f", [=] { moxsFIR_32f(x, d->y.data(), len, dense.get()); }},
                        {"loop", [=] {
                           plainSparse(x, d->y.data(), len, d->taps.data(), d->positions.data(),
                                       count);
                           bench::clobber(d->y.data());
                         }}}});
}

const bool registered = [] {
  for (const int count : {4, 16, 32, 64}) addSparse(count);
  return true;
}();

}  // namespace
