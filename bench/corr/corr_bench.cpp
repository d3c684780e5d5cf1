// Convolution and correlation beside FFTW, which has its plan already while ours makes tables in
// each call, and beside plain loops.
#include <moxsp.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "fir/signals.h"
#include "support/compare.h"
#include "support/fftw_filter.h"

namespace {

using bench::noise;

// y[i] = sum over k of h[k] * x[i + k], by stretches of outputs, each a vector in the compiler's
// hands.
void slide(const float* __restrict h, int n, const float* __restrict x, float* __restrict y,
           int count) {
  std::fill_n(y, count, 0.0f);
  for (int k = 0; k < n; ++k)
    for (int i = 0; i < count; ++i) y[i] += h[k] * x[i + k];
}

// Signals with the zeros around the longer one that plain peers want.
struct Data {
  Data(int len1, int len2)
      : longer(noise<float>(len1)),
        shorter(noise<float>(len2)),
        reversed(shorter.rbegin(), shorter.rend()),
        padded(len1 + 2 * len2 - 2),
        y(len1 + len2 - 1) {
    std::copy(longer.begin(), longer.end(), padded.begin() + len2 - 1);
  }
  std::vector<float> longer, shorter, reversed, padded, y;
};

void addConvolution(int len1, int len2) {
  const auto d = std::make_shared<Data>(len1, len2);
  int bytes;
  moxsConvolveGetBufferSize(len1, len2, moxType32f, moxAlgAuto, &bytes);
  const auto buffer = std::make_shared<std::vector<Mox8u>>(bytes);
  const int outputs = len1 + len2 - 1;
  std::vector<std::pair<std::string, bench::Call>> peers = {
      {"loop", [=] {
         slide(d->reversed.data(), len2, d->padded.data(), d->y.data(), outputs);
         bench::clobber(d->y.data());
       }}};
  for (const int size : {4096, 8192, 16384}) {
    const auto fftw = std::make_shared<bench::FftwFilter>(d->shorter.data(), len2, size);
    peers.emplace_back("fftw " + std::to_string(size), [=] {
      fftw->setTaps(d->shorter.data());
      fftw->run(d->padded.data() + len2 - 1, d->y.data(), outputs);
    });
  }
  const bench::Work work = {.floatOps = 2.0 * len1 * len2};
  bench::add({"conv_32f", len1, work,
              [=] { moxsConv_32f(d->longer.data(), len1, d->shorter.data(), len2, d->y.data()); },
              peers});
  bench::add({"convolve_32f", len1, work,
              [=] {
                moxsConvolve_32f(d->longer.data(), len1, d->shorter.data(), len2, d->y.data(),
                                 moxAlgAuto, buffer->data());
              },
              peers});
}

void addCrossCorrelation(int len1, int len2) {
  const auto d = std::make_shared<Data>(len1, len2);
  const int outputs = len1 + len2 - 1;
  std::vector<std::pair<std::string, bench::Call>> peers = {
      {"loop", [=] {
         slide(d->shorter.data(), len2, d->padded.data(), d->y.data(), outputs);
         bench::clobber(d->y.data());
       }}};
  for (const int size : {4096, 8192, 16384}) {
    const auto fftw = std::make_shared<bench::FftwFilter>(d->reversed.data(), len2, size);
    peers.emplace_back("fftw " + std::to_string(size), [=] {
      fftw->setTaps(d->reversed.data());
      fftw->run(d->padded.data() + len2 - 1, d->y.data(), outputs);
    });
  }
  bench::add({"crosscorr_32f",
              len1,
              {.floatOps = 2.0 * len1 * len2},
              [=] {
                moxsCrossCorr_32f(d->shorter.data(), len2, d->longer.data(), len1, d->y.data(),
                                  outputs, 1 - len2);
              },
              peers});
}

// As the definition has it.
void correlate(const float* __restrict x, int len, float* __restrict y, int lags) {
  for (int n = 0; n < lags; ++n) {
    float sum = 0;
    for (int k = 0; k < len - n; ++k) sum += x[k] * x[k + n];
    y[n] = sum;
  }
}

// So few lags are summed unless the caller asks for a transform.
void addAutocorrelation(int len, int lags) {
  const auto d = std::make_shared<Data>(len, lags);
  int bytes;
  moxsAutoCorrNormGetBufferSize(len, lags, moxType32f, moxAlgFft, &bytes);
  const auto buffer = std::make_shared<std::vector<Mox8u>>(bytes);
  const auto fftw = std::make_shared<bench::FftwFilter>(d->longer.data(), len, 8192);
  const auto x = [=] { return d->padded.data() + lags - 1; };
  const std::vector<std::pair<std::string, bench::Call>> peers = {
      {"loop",
       [=] {
         correlate(x(), len, d->y.data(), lags);
         bench::clobber(d->y.data());
       }},
      {"loop by lags",
       [=] {
         slide(x(), len, x(), d->y.data(), lags);
         bench::clobber(d->y.data());
       }},
      {"fftw 8192", [=] { fftw->correlate(x(), len, d->y.data(), lags); }}};
  const bench::Work work = {.floatOps = 2.0 * len * lags};
  bench::add({"autocorr_32f", len, work,
              [=] { moxsAutoCorr_32f(d->longer.data(), len, d->y.data(), lags); }, peers});
  bench::add({"autocorrnorm_32f by fft", len, work,
              [=] {
                moxsAutoCorrNorm_32f(d->longer.data(), len, d->y.data(), lags, moxAlgFft,
                                     buffer->data());
              },
              peers});
}

const bool registered = [] {
  for (const int len : {10000, 100000}) addConvolution(len, 1000);
  addCrossCorrelation(100000, 1000);
  addAutocorrelation(4096, 512);
  return true;
}();

}  // namespace
