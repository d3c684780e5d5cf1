#include <liquid/liquid.h>
#include <moxsp.h>

#include "fir/signals.h"
#include "support/compare.h"

namespace {

constexpr int len = 1 << 12;

void plainLms(const float* __restrict x, const float* __restrict ref, float* __restrict y,
              int count, float* __restrict revTaps, int n, float mu) {
  for (int i = 0; i < count; ++i) {
    const float* window = x + i;
    float sum = 0;
    for (int k = 0; k < n; ++k) sum += revTaps[k] * window[k];
    y[i] = sum;
    const float gain = 2 * mu * (ref[i] - sum);
    for (int k = 0; k < n; ++k) revTaps[k] += gain * window[k];
  }
}

void addLms(int taps) {
  struct Data {
    std::vector<float> h, padded, ref, y = std::vector<float>(len);
  };
  auto d = std::make_shared<Data>(Data{
      std::vector<float>(taps), bench::noise<float>(len + taps - 1), bench::noise<float>(len)});
  const float mu = 0.0001f;
  MoxsFIRLMSState* state;
  moxsFIRLMSInitAlloc_32f(&state, nullptr, taps, nullptr, 0);
  const auto lms = bench::shared(state, moxsFIRLMSFree_32f);
  const auto liquid = bench::shared(eqlms_rrrf_create(nullptr, taps), eqlms_rrrf_destroy);
  eqlms_rrrf_set_bw(liquid.get(), 0.01f);
  const float* x = d->padded.data() + taps - 1;
  bench::add({.family = "lms_32f",
              .size = taps,
              .work = {.floatOps = 4.0 * taps * len},
              .ours = [=] { moxsFIRLMS_32f(x, d->ref.data(), d->y.data(), len, mu, lms.get()); },
              .peers = {{"loop",
                         [=] {
                           plainLms(d->padded.data(), d->ref.data(), d->y.data(), len, d->h.data(),
                                    taps, mu);
                           bench::clobber(d->y.data());
                         }},
                        {"liquid", [=] {
                           for (int i = 0; i < len; ++i) {
                             float out;
                             eqlms_rrrf_push_block(liquid.get(), const_cast<float*>(x + i), 1);
                             eqlms_rrrf_execute(liquid.get(), &out);
                             eqlms_rrrf_step(liquid.get(), d->ref[i], out);
                             d->y[i] = out;
                           }
                         }}}});
}

const bool registered = [] {
  for (const int taps : {16, 64, 256}) addLms(taps);
  return true;
}();

}  // namespace
