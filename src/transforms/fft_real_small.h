// Straight-line transforms of 2^order real samples for orders 0 to 4, by decimation in time on the
// half of the spectrum that isn't redundant.
#pragma once

#include <utility>

#include "frame/pair.h"
#include "frame/vec/vec.h"
#include "transforms/fft_spec.h"

namespace mox::transforms {
namespace detail {

// X[0] to X[n/2]; no imaginary parts at the ends.
template <class F, int n>
struct HalfSpectrum {
  F re[n / 2 + 1], im[n / 2 + 1];
};

template <int count, class Body>
[[gnu::always_inline]] inline void unrolled(Body body) {
  [&]<int... i>(std::integer_sequence<int, i...>) { (body(std::integral_constant<int, i>()), ...); }
  (std::make_integer_sequence<int, count>());
}

// z * exp(-2 pi i k / n), or with the conjugate factor; k / n is 1/16, 1/8 or 3/16.
template <int k, int n, bool conjugate, class F>
[[gnu::always_inline]] inline Pair<F> turned(Pair<F> z) {
  constexpr F diagonal = F(0.70710678118654752440L);
  constexpr F longer = F(0.92387953251128675613L), shorter = F(0.38268343236508977173L);
  static_assert(k * 16 / n >= 1 && k * 16 / n <= 3);
  if constexpr (k * 8 == n) {
    if constexpr (conjugate) return {diagonal * (z.re - z.im), diagonal * (z.re + z.im)};
    return {diagonal * (z.re + z.im), diagonal * (z.im - z.re)};
  } else {
    constexpr F c = k == 1 ? longer : shorter, s = k == 1 ? shorter : longer;
    if constexpr (conjugate) return {c * z.re - s * z.im, c * z.im + s * z.re};
    return {c * z.re + s * z.im, c * z.im - s * z.re};
  }
}

// The spectrum of x[0], x[stride], x[2 * stride] and so on.
template <int n, int stride, class F>
[[gnu::always_inline]] inline HalfSpectrum<F, n> analysed(const F* x) {
  HalfSpectrum<F, n> r;
  if constexpr (n == 1) {
    r.re[0] = x[0];
  } else if constexpr (n == 2) {
    r.re[0] = x[0] + x[stride];
    r.re[1] = x[0] - x[stride];
  } else {
    const auto even = analysed<n / 2, 2 * stride>(x), odd = analysed<n / 2, 2 * stride>(x + stride);
    r.re[0] = even.re[0] + odd.re[0];
    r.re[n / 2] = even.re[0] - odd.re[0];
    r.re[n / 4] = even.re[n / 4];
    r.im[n / 4] = -odd.re[n / 4];
    unrolled<n / 4 - 1>([&](auto i) {
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
  if constexpr (n == 1) {
    x[0] = s.re[0];
  } else if constexpr (n == 2) {
    x[0] = s.re[0] + s.re[1];
    x[stride] = s.re[0] - s.re[1];
  } else {
    HalfSpectrum<F, n / 2> even, odd;
    even.re[0] = s.re[0] + s.re[n / 2];
    odd.re[0] = s.re[0] - s.re[n / 2];
    even.re[n / 4] = 2 * s.re[n / 4];
    odd.re[n / 4] = -2 * s.im[n / 4];
    unrolled<n / 4 - 1>([&](auto i) {
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
template <class F, int order, bool scaled>
void ownFftRealSmallFwd(const F* src, F* dst, F factor) {
  constexpr int n = 1 << order;
  F x[n];
  detail::unrolled<n>([&](auto i) { x[i] = load<F>(src + i); });
  const auto spectrum = detail::analysed<n, 1>(x);
  detail::storeScaled<scaled>(dst, spectrum.re[0], factor);
  if constexpr (n > 1) detail::storeScaled<scaled>(dst + 1, spectrum.re[n / 2], factor);
  if constexpr (n > 2)
    detail::unrolled<n / 2 - 1>([&](auto i) {
      constexpr int k = i + 1;
      detail::storeScaled<scaled>(dst + 2 * k, spectrum.re[k], factor);
      detail::storeScaled<scaled>(dst + 2 * k + 1, spectrum.im[k], factor);
    });
}

// A Perm spectrum to samples.
template <class F, int order, bool scaled>
void ownFftRealSmallInv(const F* src, F* dst, F factor) {
  constexpr int n = 1 << order;
  detail::HalfSpectrum<F, n> spectrum;
  spectrum.re[0] = load<F>(src);
  if constexpr (n > 1) spectrum.re[n / 2] = load<F>(src + 1);
  if constexpr (n > 2)
    detail::unrolled<n / 2 - 1>([&](auto i) {
      constexpr int k = i + 1;
      spectrum.re[k] = load<F>(src + 2 * k);
      spectrum.im[k] = load<F>(src + 2 * k + 1);
    });
  F x[n];
  detail::synthesise<n, 1>(spectrum, x);
  detail::unrolled<n>([&](auto i) { detail::storeScaled<scaled>(dst + i, x[i], factor); });
}

// By order, plain and scaled.
template <class F>
struct RealKernels {
  RealKernel<F> plain[fftMaxSmallRealOrder + 1], scaled[fftMaxSmallRealOrder + 1];
};
template <class F>
constexpr RealKernels<F> realKernelsFwd = {
    {ownFftRealSmallFwd<F, 0, false>, ownFftRealSmallFwd<F, 1, false>,
     ownFftRealSmallFwd<F, 2, false>, ownFftRealSmallFwd<F, 3, false>,
     ownFftRealSmallFwd<F, 4, false>},
    {ownFftRealSmallFwd<F, 0, true>, ownFftRealSmallFwd<F, 1, true>, ownFftRealSmallFwd<F, 2, true>,
     ownFftRealSmallFwd<F, 3, true>, ownFftRealSmallFwd<F, 4, true>}};
template <class F>
constexpr RealKernels<F> realKernelsInv = {
    {ownFftRealSmallInv<F, 0, false>, ownFftRealSmallInv<F, 1, false>,
     ownFftRealSmallInv<F, 2, false>, ownFftRealSmallInv<F, 3, false>,
     ownFftRealSmallInv<F, 4, false>},
    {ownFftRealSmallInv<F, 0, true>, ownFftRealSmallInv<F, 1, true>, ownFftRealSmallInv<F, 2, true>,
     ownFftRealSmallInv<F, 3, true>, ownFftRealSmallInv<F, 4, true>}};

}  // namespace mox::transforms
