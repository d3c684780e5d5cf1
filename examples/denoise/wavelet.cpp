#include "wavelet.h"

#include <moxsp.h>

#include <iterator>
#include <memory>

#include "support/require.h"

namespace {

// The filter of 8 taps by Daubechies, least at its end, and what goes with it.
constexpr int taps = 8;
constexpr float low[taps] = {-0.010597401785069032f, 0.0328830116668852f,    0.030841381835560764f,
                             -0.18703481171909309f,  -0.027983769416859854f, 0.6308807679298589f,
                             0.7148465705529157f,    0.2303778133088965f};

struct Filters {
  Filters() {
    for (int k = 0; k < taps; ++k) {
      reversed[k] = low[taps - 1 - k];
      high[k] = k % 2 ? -reversed[k] : reversed[k];
      reversedHigh[k] = k % 2 ? low[k] : -low[k];
    }
  }
  float reversed[taps], high[taps], reversedHigh[taps];
};
const Filters filters;

// Both banks together are late by this.
constexpr int delay = taps - 1;

}  // namespace

Decomposition decompose(Band signal, int levels) {
  Decomposition result;
  for (int level = 0; level < levels; ++level) {
    MoxWTFwdState* made;
    require(moxsWTFwdInitAlloc_32f(&made, low, taps, -1, filters.high, taps, -1),
            "moxsWTFwdInitAlloc_32f");
    const std::unique_ptr<MoxWTFwdState, decltype(&moxsWTFwdFree_32f)> bank(made,
                                                                            moxsWTFwdFree_32f);
    result.lengths.push_back(signal.size());
    // Zeros push the last of the signal through the filters.
    const std::size_t half = (signal.size() + taps) / 2;
    signal.resize(2 * half);
    Band rest(half), detail(half);
    require(moxsWTFwd_32f(signal.data(), rest.data(), detail.data(), int(half), bank.get()),
            "moxsWTFwd_32f");
    result.details.push_back(detail);
    signal = rest;
  }
  result.rest = signal;
  return result;
}

Band compose(const Decomposition& bands) {
  Band signal = bands.rest;
  for (std::size_t level = bands.details.size(); level-- > 0;) {
    MoxWTInvState* made;
    require(moxsWTInvInitAlloc_32f(&made, filters.reversed, taps, 0, filters.reversedHigh, taps, 0),
            "moxsWTInvInitAlloc_32f");
    const std::unique_ptr<MoxWTInvState, decltype(&moxsWTInvFree_32f)> bank(made,
                                                                            moxsWTInvFree_32f);
    Band detail = bands.details[level];
    const std::size_t half = detail.size() + taps / 2;
    detail.resize(half), signal.resize(half);
    Band joined(2 * half);
    require(moxsWTInv_32f(signal.data(), detail.data(), int(half), joined.data(), bank.get()),
            "moxsWTInv_32f");
    signal.assign(joined.begin() + delay, joined.begin() + delay + long(bands.lengths[level]));
  }
  return signal;
}
