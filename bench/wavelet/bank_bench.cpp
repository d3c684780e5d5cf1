// Filter banks with the filters of 4 and 8 taps by Daubechies beside the loops of their formulas.
#include <moxsp.h>

#include <memory>
#include <string>

#include "fir/signals.h"
#include "support/compare.h"

namespace {

constexpr int len = 1 << 13;  // samples of a band

// x has n - 1 samples before it.
void forward(const float* __restrict x, float* __restrict low, float* __restrict high,
             const float* __restrict h, const float* __restrict g, int n) {
  for (int k = 0; k < len; ++k) {
    float l = 0, u = 0;
    for (int j = 0; j < n; ++j) {
      l += h[j] * x[2 * k + 1 - j];
      u += g[j] * x[2 * k + 1 - j];
    }
    low[k] = l;
    high[k] = u;
  }
}

// The bands have n / 2 samples before them.
void inverse(const float* __restrict low, const float* __restrict high, float* __restrict y,
             const float* __restrict h, const float* __restrict g, int n) {
  for (int k = 0; k < len; ++k)
    for (int parity = 0; parity < 2; ++parity) {
      float sum = 0;
      for (int j = parity; j < n; j += 2) sum += h[j] * low[k - j / 2] + g[j] * high[k - j / 2];
      y[2 * k + parity] = sum;
    }
}

struct Data {
  explicit Data(int n) : h(bench::noise<float>(n)), g(h.rbegin(), h.rend()) {
    moxsWTFwdInitAlloc_32f(&fwd, h.data(), n, -1, g.data(), n, -1);
    moxsWTInvInitAlloc_32f(&inv, h.data(), n, -1, g.data(), n, -1);
  }
  ~Data() {
    moxsWTFwdFree_32f(fwd);
    moxsWTInvFree_32f(inv);
  }
  std::vector<float> h, g, x = bench::noise<float>(2 * len + 64), y = x, low = x, high = x;
  MoxWTFwdState* fwd = nullptr;
  MoxWTInvState* inv = nullptr;
};

void add(int n) {
  const auto d = std::make_shared<Data>(n);
  const bench::Work work = {.floatOps = 4.0 * n * len};
  bench::add({"wt_fwd_32f",
              n,
              work,
              [=] { moxsWTFwd_32f(&d->x[64], d->low.data(), d->high.data(), len, d->fwd); },
              {{"loop", [=] {
                  forward(&d->x[64], d->low.data(), d->high.data(), d->h.data(), d->g.data(), n);
                  bench::clobber(d->low.data());
                }}}});
  bench::add({"wt_inv_32f",
              n,
              work,
              [=] { moxsWTInv_32f(&d->low[64], &d->high[64], len, d->y.data(), d->inv); },
              {{"loop", [=] {
                  inverse(&d->low[64], &d->high[64], d->y.data(), d->h.data(), d->g.data(), n);
                  bench::clobber(d->y.data());
                }}}});
}

const bool registered = [] {
  for (const int n : {4, 8, 20}) add(n);
  return true;
}();

}  // namespace
