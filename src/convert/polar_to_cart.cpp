// Complex numbers from magnitude and phase.
#include <moxsp/complex.h>

#include <algorithm>
#include <bit>

#include "arith/sine.h"
#include "convert/exact_angle.h"
#include "convert/round_once.h"
#include "frame/export.h"
#include "frame/map_complex.h"

namespace mox::convert {
namespace {

using Lanes = V<Mox64f>;

[[gnu::noinline, gnu::cold]] Pair<Lanes> repairPhasors(Lanes x, Pair<Lanes> z, int lanes) {
  for (; lanes; lanes &= lanes - 1) {
    const int lane = std::countr_zero(unsigned(lanes));
    const Pair<Lanes> one = arith::phasor(arith::reducedFar(x[lane]));
    z.re[lane] = one.re[0];
    z.im[lane] = one.im[0];
  }
  return z;
}

// cos(x) and sin(x) for any x.
[[gnu::always_inline]] inline Pair<Lanes> anyPhasor(Lanes x) {
  const Pair<Lanes> z = arith::phasor(arith::reduced(x));
  if (const int lanes = signBits(notAtMost(absolute(x), arith::largestAngle))) [[unlikely]]
    return repairPhasors(x, z, lanes);
  return z;
}

[[gnu::always_inline]] inline Pair<Lanes> cartesian(Lanes magnitude, Lanes phase) {
  const Pair<Lanes> z = anyPhasor(phase);
  return {magnitude * z.re, magnitude * z.im};
}

// Sources are pairs of a magnitude and a phase.
template <class F>
struct Cartesian;

template <>
struct Cartesian<Mox64f> {
  static constexpr int lanes = laneCount<Lanes>;
  auto operator()(auto src, long i) const {
    const auto [magnitude, phase] = src.template lanes<Lanes>(i);
    return cartesian(magnitude, phase);
  }
};

// By way of double precision: the result is rounded once more.
template <>
struct Cartesian<Mox32f> {
  static constexpr int lanes = lanesOf<Mox32f>;
  auto operator()(auto src, long i) const {
    const auto low = Cartesian<Mox64f>()(src, i), high = Cartesian<Mox64f>()(src, i + lanes / 2);
    const auto floats = [](Lanes a, Lanes b) {
      using Half = Beside<Mox32f, Lanes>;
      return join<V<Mox32f>>(__builtin_convertvector(a, Half), __builtin_convertvector(b, Half));
    };
    return Pair{floats(low.re, high.re), floats(low.im, high.im)};
  }
};

// From integers in units of 2^factor.
template <class D>
class ScaledCartesian {
 public:
  static constexpr int lanes = integerLanes<D>;

  explicit ScaledCartesian(int factor)
      : factor_(std::clamp(factor, -20, 16)), unit_(powerOfTwo<Mox64f>(factor_)) {}

  auto operator()(auto src, long i) const {
    constexpr int count = laneCount<Lanes>;
    Pair<Lanes> r[lanes / count];
    for (int j = 0; j < lanes / count; ++j) {
      const auto [magnitude, phase] = src.template lanes<Lanes>(i + count * j);
      r[j] = rounded(magnitude, phase);
    }
    return Pair{integersFrom<D>([&](long j) { return r[j / count].re; }),
                integersFrom<D>([&](long j) { return r[j / count].im; })};
  }

 private:
  [[gnu::always_inline]] Pair<Lanes> rounded(Lanes magnitude, Lanes phase) const {
    const Pair<Lanes> z = cartesian(magnitude * unit_, phase * unit_);
    const auto decide = [&](Coordinate coordinate) {
      return [=, this](int lane, Mox64s n) {
        return isCoordinateAboveTie(coordinate, Mox32s(magnitude[lane]), Mox32s(phase[lane]),
                                    factor_, n);
      };
    };
    return {roundedOnce(z.re, decide(Coordinate::re)), roundedOnce(z.im, decide(Coordinate::im))};
  }

  int factor_;
  Mox64f unit_;
};

template <class F, class E>
MoxStatus polarToCart(const F* srcMagn, const F* srcPhase, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, srcMagn, srcPhase, dst)) return s;
  mapComplex(Cartesian<F>(), Split<const F>{srcMagn, srcPhase}, Array<E>{dst}, len);
  return moxOk;
}
template <class F>
MoxStatus polarToTwo(const F* srcMagn, const F* srcPhase, F* dstRe, F* dstIm, int len) {
  if (MoxStatus s = checkArrays(len, srcMagn, srcPhase, dstRe, dstIm)) return s;
  mapComplex(Cartesian<F>(), Split<const F>{srcMagn, srcPhase}, Split<F>{dstRe, dstIm}, len);
  return moxOk;
}
template <class F, class E>
MoxStatus polarToCartScaled(const F* srcMagn, const F* srcPhase, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, srcMagn, srcPhase, dst)) return s;
  const HiddenExceptions scope;
  mapComplex(ScaledCartesian<F>(scaleFactor), Split<const F>{srcMagn, srcPhase}, Array<E>{dst},
             len);
  return moxOk;
}
template <class F, class E>
MoxStatus polarToCartUnscaled(const F* srcMagn, const F* srcPhase, E* dst, int len) {
  return polarToCartScaled(srcMagn, srcPhase, dst, len, 0);
}

}  // namespace

MOX_EXPORT(moxsPolarToCart_32f, polarToTwo);
MOX_EXPORT(moxsPolarToCart_64f, polarToTwo);
MOX_EXPORT(moxsPolarToCart_32fc, polarToCart);
MOX_EXPORT(moxsPolarToCart_64fc, polarToCart);
MOX_EXPORT(moxsPolarToCart_16sc, polarToCartUnscaled);
MOX_EXPORT(moxsPolarToCart_32sc, polarToCartUnscaled);
MOX_EXPORT(moxsPolarToCart_16sc_Sfs, polarToCartScaled);

}  // namespace mox::convert
