// Thresholds on complex floats.
#include "convert/threshold_complex.h"

#include "convert/threshold.h"
#include "frame/in_place.h"
#include "move/copy.h"
#include "move/fill.h"

namespace mox::convert {
namespace {

// Elements with the magnitude `level` and their own phase, where the relation holds.
template <class Relation, class E>
class ToLevel {
  using F = Part<E>;

 public:
  explicit ToLevel(F level) : level_(level), square_(level * level) {}

  Pair<V<F>> operator()(Pair<V<F>> z, V<F> m) const {
    const Pair<V<F>> atLevel = z * factors(m);
    const auto changes = V<F>(Relation::changes(m, broadcast<V<F>>(square_)));
    return {select(changes, atLevel.re, z.re), select(changes, atLevel.im, z.im)};
  }

  // Magnitudes that change, and are too small or too large for the factor.
  auto strays(auto m) const {
    constexpr bool fromBelow = Relation::changes(0, 1);
    const F bound = fromBelow ? Bounds<F>::leastSquare : Bounds<F>::mostSquare;
    return Relation::changes(m, decltype(m){} + bound);
  }

  E one(E z) const {
    using W = Wider<F>;
    if (z.re == 0 && z.im == 0) return {level_, 0};
    const auto unlessInfinite = [&](F part, F other) {
      return std::isinf(part) ? std::copysign(F(1), part) : std::isinf(other) ? F(0) * part : part;
    };
    const E finite = {unlessInfinite(z.re, z.im), unlessInfinite(z.im, z.re)};
    const W factor = W(level_) / std::sqrt(squaredMagnitude<W>(finite));
    // No product for a zero: an infinite level would make it NaN.
    return {finite.re == 0 ? finite.re : F(finite.re * factor),
            finite.im == 0 ? finite.im : F(finite.im * factor)};
  }

 private:
  V<F> factors(V<F> m) const {
    if constexpr (sizeof(F) == 4) {
      const V<F> g = reciprocalRootEstimate(m);
      return 0.5f * level_ * g * (3.0f - m * g * g);
    } else {
      return level_ / squareRoot(m);
    }
  }

  F level_, square_;
};

template <class Relation, class E>
MoxStatus magnitude(const E* src, E* dst, int len, Part<E> level) {
  using F = Part<E>;
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (MoxStatus s = NoNegativeLevel::check(level)) return s;
  const WiderScope<F> scope;
  const ToLevel<Relation, E> op(level);
  if (level == 0) {
    if (Relation::changes(1, 0))
      move::zeroElements(dst, len);
    else if (src != dst)
      move::copyElements(src, dst, len);
  } else if (squaresWell(level)) {
    mapMagnitudes(op, src, dst, len);
  } else {
    using W = Wider<F>;
    for (long i = 0; i < len; ++i) {
      const E z = load<E>(src + i);
      const bool changes = Relation::changes(squaredMagnitude<W>(z), W(level) * W(level));
      store(dst + i, changes ? op.one(z) : z);
    }
  }
  return moxOk;
}

template <class Relation, class E>
MoxStatus replace(const E* src, E* dst, int len, Part<E> level, E value) {
  using F = Part<E>;
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (MoxStatus s = NoNegativeLevel::check(level)) return s;
  const WiderScope<F> scope;
  if (squaresWell(level)) {
    const F square = level * level;
    mapElements<Stores::bypassing>(
        [=](auto z, auto other) {
          const auto squares = z * z;
          return where(Relation::keeps(squares + swapParts(squares), decltype(z){} + square), z,
                       other);
        },
        dst, len, src, Same<E>{value});
  } else {
    using W = Wider<F>;
    for (long i = 0; i < len; ++i) {
      const E z = load<E>(src + i);
      const bool keeps = Relation::keeps(squaredMagnitude<W>(z), W(level) * W(level));
      store(dst + i, keeps ? z : value);
    }
  }
  return moxOk;
}

template <class E>
MoxStatus magnitudeBy(const E* src, E* dst, int len, Part<E> level, int relOp) {
  return byOperator<NoNegativeLevel, magnitude<LT, E>, magnitude<GT, E>>(src, dst, len, level,
                                                                         relOp);
}

}  // namespace

MOX_EXPORT_BOTH(moxsThreshold_32fc, moxsThreshold_32fc_I, magnitudeBy);
MOX_EXPORT_BOTH(moxsThreshold_64fc, moxsThreshold_64fc_I, magnitudeBy);

MOX_EXPORT_BOTH(moxsThreshold_LT_32fc, moxsThreshold_LT_32fc_I, magnitude<LT>);
MOX_EXPORT_BOTH(moxsThreshold_LT_64fc, moxsThreshold_LT_64fc_I, magnitude<LT>);

MOX_EXPORT_BOTH(moxsThreshold_GT_32fc, moxsThreshold_GT_32fc_I, magnitude<GT>);
MOX_EXPORT_BOTH(moxsThreshold_GT_64fc, moxsThreshold_GT_64fc_I, magnitude<GT>);

MOX_EXPORT_BOTH(moxsThreshold_LTVal_32fc, moxsThreshold_LTVal_32fc_I, replace<LTVal>);
MOX_EXPORT_BOTH(moxsThreshold_LTVal_64fc, moxsThreshold_LTVal_64fc_I, replace<LTVal>);

MOX_EXPORT_BOTH(moxsThreshold_GTVal_32fc, moxsThreshold_GTVal_32fc_I, replace<GTVal>);
MOX_EXPORT_BOTH(moxsThreshold_GTVal_64fc, moxsThreshold_GTVal_64fc_I, replace<GTVal>);

}  // namespace mox::convert
