#include <liquid/liquid.h>
#include <moxsp.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "fir/signals.h"
#include "support/compare.h"
#include "support/fftw_filter.h"

namespace {

// What a user would write; the compiler computes a vector of outputs at a time.
void plainFir(const float* __restrict x, float* __restrict y, int len, const float* __restrict taps,
              int n) {
  for (int i = 0; i < len; ++i) {
    float sum = 0;
    for (int k = 0; k < n; ++k) sum += taps[k] * x[i - k];
    y[i] = sum;
  }
}

// The same in tiles that stay in the first-level cache while the taps run by.
void tiledFir(const float* __restrict x, float* __restrict y, int len, const float* __restrict taps,
              int n) {
  constexpr int tile = 512;
  for (int i = 0; i < len; i += tile) {
    const int count = std::min(tile, len - i);
    std::fill_n(y + i, count, 0.0f);
    for (int k = 0; k < n; ++k)
      for (int j = 0; j < count; ++j) y[i + j] += taps[k] * x[i + j - k];
  }
}

void plainComplexFir(const Mox32fc* __restrict x, Mox32fc* __restrict y, int len,
                     const Mox32fc* __restrict taps, int n) {
  for (int i = 0; i < len; ++i) {
    float re = 0, im = 0;
    for (int k = 0; k < n; ++k) {
      re += taps[k].re * x[i - k].re - taps[k].im * x[i - k].im;
      im += taps[k].re * x[i - k].im + taps[k].im * x[i - k].re;
    }
    y[i] = {re, im};
  }
}

using bench::noise, bench::shared;

constexpr int len = 1 << 16;

template <class E>
struct Data {
  explicit Data(int taps)
      : h(noise<E>(taps)), padded(noise<E>(len + taps - 1)), x(padded.data() + taps - 1), y(len) {}
  std::vector<E> h, padded;
  const E* x;
  std::vector<E> y;
};

void addReal(int taps) {
  const bench::Group group("filters");
  auto d = std::make_shared<Data<float>>(taps);
  MoxsFIRState* state;
  moxsFIRInitAlloc_32f(&state, d->h.data(), taps, nullptr);
  const auto fir = shared(state, moxsFIRFree_32f);
  const auto liquid = shared(firfilt_rrrf_create(d->h.data(), taps), firfilt_rrrf_destroy);
  std::vector<std::pair<std::string, bench::Call>> peers = {
      {"loop",
       [=] {
         plainFir(d->x, d->y.data(), len, d->h.data(), taps);
         bench::clobber(d->y.data());
       }},
      {"tiled loop",
       [=] {
         tiledFir(d->x, d->y.data(), len, d->h.data(), taps);
         bench::clobber(d->y.data());
       }},
      {"liquid direct", [=] {
         firfilt_rrrf_execute_block(liquid.get(), const_cast<float*>(d->x), len, d->y.data());
       }}};
  const auto atLeast256 = [](int points) { return std::max(256, points); };
  for (const int points :
       std::set{atLeast256(4 * taps), atLeast256(8 * taps), atLeast256(16 * taps)}) {
    const auto fftw = std::make_shared<bench::FftwFilter>(d->h.data(), taps, points);
    peers.emplace_back("fftw " + std::to_string(points),
                       [=] { fftw->run(d->x, d->y.data(), len); });
  }
  bench::add({.family = "fir_32f",
              .size = taps,
              .work = {.floatOps = 2.0 * taps * len},
              .ours = [=] { moxsFIR_32f(d->x, d->y.data(), len, fir.get()); },
              .peers = peers});
}

// The direct engine at any tap count, by way of a state without delay line.
void addDirect(int taps) {
  auto d = std::make_shared<Data<float>>(taps);
  MoxsFIRState* state;
  moxsFIRStreamInitAlloc_32f(&state, d->h.data(), taps);
  const auto fir = shared(state, moxsFIRFree_32f);
  bench::add({.family = "fir_stream_32f",
              .size = taps,
              .work = {.floatOps = 2.0 * taps * len},
              .ours = [=] { moxsFIR_32f(d->padded.data(), d->y.data(), len, fir.get()); },
              .peers = {{"loop", [=] {
                           plainFir(d->x, d->y.data(), len, d->h.data(), taps);
                           bench::clobber(d->y.data());
                         }}}});
}

void addComplex(int taps) {
  const bench::Group group("filters");
  auto d = std::make_shared<Data<Mox32fc>>(taps);
  MoxsFIRState* state;
  moxsFIRInitAlloc_32fc(&state, d->h.data(), taps, nullptr);
  const auto fir = shared(state, moxsFIRFree_32fc);
  auto* h = reinterpret_cast<liquid_float_complex*>(d->h.data());
  auto* x = reinterpret_cast<liquid_float_complex*>(const_cast<Mox32fc*>(d->x));
  auto* y = reinterpret_cast<liquid_float_complex*>(d->y.data());
  const auto direct = shared(firfilt_cccf_create(h, taps), firfilt_cccf_destroy);
  std::vector<std::pair<std::string, bench::Call>> peers = {
      {"loop",
       [=] {
         plainComplexFir(d->x, d->y.data(), len, d->h.data(), taps);
         bench::clobber(d->y.data());
       }},
      {"liquid direct", [=] { firfilt_cccf_execute_block(direct.get(), x, len, y); }}};
  for (const int block : {taps, 4 * taps}) {
    const auto filter = shared(fftfilt_cccf_create(h, taps, block), fftfilt_cccf_destroy);
    peers.emplace_back("liquid fft " + std::to_string(2 * block), [=] {
      for (int i = 0; i < len; i += block) fftfilt_cccf_execute(filter.get(), x + i, y + i);
    });
  }
  bench::add({.family = "fir_32fc",
              .size = taps,
              .work = {.floatOps = 8.0 * taps * len},
              .ours = [=] { moxsFIR_32fc(d->x, d->y.data(), len, fir.get()); },
              .peers = peers});
}

const bool registered = [] {
  for (const int taps : {16, 64, 256, 1024}) addReal(taps);
  for (const int taps : {16, 64, 256, 1024}) addDirect(taps);
  for (const int taps : {16, 64, 256, 1024}) addComplex(taps);
  return true;
}();

}  // namespace
