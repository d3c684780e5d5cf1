// Straight-line transforms of up to 16 real samples, on the half of the spectrum that isn't
// redundant: by decimation in time of even lengths, and by the sums themselves of odd ones.
#pragma once

#include "frame/pair.h"
#include "frame/unrolled.h"
#include "frame/vec/vec.h"
#include "transforms/fft_spec.h"
#include "transforms/packed_layouts.h"
#include "transforms/turn.h"

namespace mox::transforms {
namespace detail {

// X[0] to X[n/2]; no imaginary parts at the ends.
template <class F, int n>
struct HalfSpectrum {
  F re[n / 2 + 1], im[n / 2 + 1];
};

// z * exp(-2 pi i k / n), or with the conjugate factor.
template <int k, int n, bool conjugate, class F>
[[gnu::always_inline]] inline Pair<F> turned(Pair<F> z) {
  constexpr Twiddle<F> w = twiddleOf<F>(k, n);
  if constexpr (k * 8 == n) {
    if constexpr (conjugate) return {w.re * (z.re - z.im), w.re * (z.re + z.im)};
    return {w.re * (z.re + z.im), w.re * (z.im - z.re)};
  } else {
    constexpr F c = w.re, s = -w.im;
    if constexpr (conjugate) return {c * z.re - s * z.im, c * z.im + s * z.re};
    return {c * z.re + s * z.im, c * z.im - s * z.re};
  }
}

// The spectrum of x[0], x[stride], x[2 * stride] and so on.
template <int n, int stride, class F>
[[gnu::always_inline]] inline HalfSpectrum<F, n> analysed(const F* x) {
  HalfSpectrum<F, n> r;
  if constexpr (n % 2) {
    r.re[0] = x[0];
    unrolled<n / 2>([&](auto i) { r.re[0] += x[(i + 1) * stride] + x[(n - 1 - i) * stride]; });
    unrolled<n / 2>([&](auto row) {
      constexpr int k = row + 1;
      r.re[k] = x[0];
      r.im[k] = 0;
      unrolled<n / 2>([&](auto i) {
        constexpr Twiddle<F> w = twiddleOf<F>(k * (i + 1) % n, n);
        const F a = x[(i + 1) * stride], b = x[(n - 1 - i) * stride];
        r.re[k] += (a + b) * w.re;
        r.im[k] += (a - b) * w.im;
      });
    });
  } else if constexpr (n == 2) {
    r.re[0] = x[0] + x[stride];
    r.re[1] = x[0] - x[stride];
  } else {
    const auto even = analysed<n / 2, 2 * stride>(x), odd = analysed<n / 2, 2 * stride>(x + stride);
    r.re[0] = even.re[0] + odd.re[0];
    r.re[n / 2] = even.re[0] - odd.re[0];
    if constexpr (n % 4 == 0) {
      r.re[n / 4] = even.re[n / 4];
      r.im[n / 4] = -odd.re[n / 4];
    }
    unrolled<interiorPairs(n / 2)>([&](auto i) {
      constexpr int k = i + 1;
      const Pair<F> t = turned<k, n, false>(Pair<F>{odd.re[k], odd.im[k]});
      r.re[k] = even.re[k] + t.re;
      r.im[k] = even.im[k] + t.im;
      r.re[n / 2 - k] = even.re[k] - t.re;
      r.im[n / 2 - k] = t.im - even.im[k];
    });
  }
  return r;
}

// The inverse, without a factor: n times the samples that have this spectrum.
template <int n, int stride, class F>
[[gnu::always_inline]] inline void synthesise(const HalfSpectrum<F, n>& s, F* x) {
  if constexpr (n % 2) {
    x[0] = s.re[0];
    unrolled<n / 2>([&](auto i) { x[0] += 2 * s.re[i + 1]; });
    unrolled<n / 2>([&](auto row) {
      constexpr int k = row + 1;
      F even = s.re[0], odd = 0;
      unrolled<n / 2>([&](auto i) {
        constexpr Twiddle<F> w = twiddleOf<F>(k * (i + 1) % n, n);
        even += 2 * s.re[i + 1] * w.re;
        odd += 2 * s.im[i + 1] * w.im;
      });
      x[k * stride] = even + odd;
      x[(n - k) * stride] = even - odd;
    });
  } else if constexpr (n == 2) {
    x[0] = s.re[0] + s.re[1];
    x[stride] = s.re[0] - s.re[1];
  } else {
    HalfSpectrum<F, n / 2> even, odd;
    even.re[0] = s.re[0] + s.re[n / 2];
    odd.re[0] = s.re[0] - s.re[n / 2];
    if constexpr (n % 4 == 0) {
      even.re[n / 4] = 2 * s.re[n / 4];
      odd.re[n / 4] = -2 * s.im[n / 4];
    }
    unrolled<interiorPairs(n / 2)>([&](auto i) {
      constexpr int k = i + 1, mirror = n / 2 - k;
      even.re[k] = s.re[k] + s.re[mirror];
      even.im[k] = s.im[k] - s.im[mirror];
      const Pair<F> t = turned<k, n, true>(Pair<F>{s.re[k] - s.re[mirror], s.im[k] + s.im[mirror]});
      odd.re[k] = t.re;
      odd.im[k] = t.im;
    });
    synthesise<n / 2, 2 * stride>(even, x);
    synthesise<n / 2, 2 * stride>(odd, x + stride);
  }
}

template <bool scaled, class F>
[[gnu::always_inline]] inline void storeScaled(F* p, F value, F factor) {
  store(p, scaled ? value * factor : value);
}

}  // namespace detail

// A kernel reads `src` before it writes `dst`; its plain form takes a factor and ignores it.
template <class F>
using RealKernel = void (*)(const F* src, F* dst, F factor);

// Samples to a Perm spectrum.
template <class F, int n, bool scaled>
void ownRealSmallFwd(const F* src, F* dst, F factor) {
  F x[n];
  unrolled<n>([&](auto i) { x[i] = load<F>(src + i); });
  const auto spectrum = detail::analysed<n, 1>(x);
  detail::storeScaled<scaled>(dst, spectrum.re[0], factor);
  if constexpr (hasMiddle(n)) detail::storeScaled<scaled>(dst + 1, spectrum.re[n / 2], factor);
  unrolled<interiorPairs(n)>([&](auto i) {
    F* const pair = dst + PermLayout::firstPair(n) + 2 * i;
    detail::storeScaled<scaled>(pair, spectrum.re[i + 1], factor);
    detail::storeScaled<scaled>(pair + 1, spectrum.im[i + 1], factor);
  });
}

// A Perm spectrum to samples.
template <class F, int n, bool scaled>
void ownRealSmallInv(const F* src, F* dst, F factor) {
  detail::HalfSpectrum<F, n> spectrum;
  spectrum.re[0] = load<F>(src);
  if constexpr (hasMiddle(n)) spectrum.re[n / 2] = load<F>(src + 1);
  unrolled<interiorPairs(n)>([&](auto i) {
    const F* const pair = src + PermLayout::firstPair(n) + 2 * i;
    spectrum.re[i + 1] = load<F>(pair);
    spectrum.im[i + 1] = load<F>(pair + 1);
  });
  F x[n];
  detail::synthesise<n, 1>(spectrum, x);
  unrolled<n>([&](auto i) { detail::storeScaled<scaled>(dst + i, x[i], factor); });
}

// By order, plain and scaled.
template <class F>
struct RealKernels {
  RealKernel<F> plain[fftMaxSmallRealOrder + 1], scaled[fftMaxSmallRealOrder + 1];
};
template <class F>
constexpr RealKernels<F> realKernelsFwd = {
    {ownRealSmallFwd<F, 1, false>, ownRealSmallFwd<F, 2, false>, ownRealSmallFwd<F, 4, false>,
     ownRealSmallFwd<F, 8, false>, ownRealSmallFwd<F, 16, false>},
    {ownRealSmallFwd<F, 1, true>, ownRealSmallFwd<F, 2, true>, ownRealSmallFwd<F, 4, true>,
     ownRealSmallFwd<F, 8, true>, ownRealSmallFwd<F, 16, true>}};
template <class F>
constexpr RealKernels<F> realKernelsInv = {
    {ownRealSmallInv<F, 1, false>, ownRealSmallInv<F, 2, false>, ownRealSmallInv<F, 4, false>,
     ownRealSmallInv<F, 8, false>, ownRealSmallInv<F, 16, false>},
    {ownRealSmallInv<F, 1, true>, ownRealSmallInv<F, 2, true>, ownRealSmallInv<F, 4, true>,
     ownRealSmallInv<F, 8, true>, ownRealSmallInv<F, 16, true>}};

}  // namespace mox::transforms
