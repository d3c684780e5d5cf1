// Transforms of 16-bit complex numbers that one area holds: the first pass takes the integers as
// floats, and the last one rounds its results, so that conversions cost no passes of their own.
#pragma once

#include "frame/rounding.h"
#include "frame/rounding_control.h"
#include "transforms/fft_mid.h"

namespace mox::transforms {

struct WordSource {
  using F = Mox32f;
  const Mox16sc* p;

  [[gnu::always_inline]] V<F> interleaved(long i) const { return loadWidened<V<F>>(parts(p + i)); }
};

// Parts times the factor, rounded to nearest and saturated.
struct WordTarget {
  using F = Mox32f;
  using Const = WordSource;
  Mox16sc* p;
  F factor;

  [[gnu::always_inline]] void putPair(long i, Pair<V<F>> z) const {
    const auto re = words(z.re), im = words(z.im);
    store(p + i, unpackLow<Mox16s>(re, im));
    store(p + i + laneCount<V<F>> / 2, unpackHigh<Mox16s>(re, im));
  }

 private:
  // The conversion gives the least integer for what is below all, and would for what is above.
  [[gnu::always_inline]] Beside<Mox16s, V<F>> words(V<F> v) const {
    const V<F> most = broadcast<V<F>>(F(Limits<Mox16s>::max));
    return narrowed<Mox16s>(toInteger(lesser(v * factor, most)));
  }
};

inline Blocks<Mox32f> midArea(WordSource, WordTarget, Mox32f* work) { return {work}; }

// Whether ownFftWords() takes an order, and a factor with which no result is subnormal.
inline bool isForWords(int order, int scaleFactor) {
  constexpr int mostFactor = 60;
  return order > fftLastBareOrder && order < FftLimits<Mox32f>::largeOrder &&
         scaleFactor >= -mostFactor && scaleFactor <= mostFactor;
}

// `dst` may be `src`.
template <Direction d>
void ownFftWords(const FftSpec<Mox32f>& spec, const Mox16sc* src, Mox16sc* dst, int scaleFactor,
                 Mox32f* work) {
  const RoundingScope scope(Rounding::nearEven, Exceptions::hidden);
  const bool scaled = d == Direction::forward ? spec.fwdNorm : spec.invNorm;
  const Mox32f factor = powerOfTwo<Mox32f>(-scaleFactor) * (scaled ? spec.normFactor : 1);
  ownFftMid<d, WordTarget>({src}, {dst, factor}, 1L << spec.order, spec.twiddle, spec.bitRev, work);
}

}  // namespace mox::transforms
