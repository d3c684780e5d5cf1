// Reciprocals of elements whose magnitude is raised to a level.
#include <limits>

#include "convert/threshold.h"
#include "convert/threshold_complex.h"
#include "frame/in_place.h"
#include "frame/rounding_control.h"
#include "frame/vec/vec.h"

namespace mox::convert {
namespace {

V<Mox64f> reciprocals(V<Mox64f> y) { return 1 / y; }

// By the processor's estimate; by division where that has no finite result, as for zero, infinity
// and numbers that are not normal.
V<Mox32f> reciprocals(V<Mox32f> y) {
  const V<Mox32f> r = refinedReciprocal(y);
  const V<Mox32f> unfit = notAtMost(absolute(r), std::numeric_limits<Mox32f>::max());
  return signBits(unfit) ? select(unfit, 1 / y, r) : r;
}

// Real elements; tells whether a zero had no level to raise it.
template <class E>
bool mapReciprocals(const E* src, E* dst, long len, E level) {
  bool zero = false;
  forWholeBlocks<lanesOf<E>>(bypasses<Stores::bypassing>(dst, len, src), src, dst, len,
                             [&](const E* from, E* to, auto put) {
                               const V<E> x = load<V<E>>(from);
                               const V<E> y =
                                   withSignOf(x, greater(broadcast<V<E>>(level), absolute(x)));
                               zero |= signBits(V<E>(y == 0)) != 0;
                               put(to, reciprocals(y));
                             });
  return zero;
}

template <class E>
class ComplexReciprocal {
  using F = Part<E>;

 public:
  explicit ComplexReciprocal(F level) : level_(level), square_(level * level) {}

  Pair<V<F>> operator()(Pair<V<F>> z, V<F> m) const {
    const V<F> raised = level_ == 0 ? m : select(V<F>(m < square_), level_ * squareRoot(m), m);
    return Pair<V<F>>{z.re, -z.im} * (1 / raised);
  }

  auto strays(V<F> m) const {
    return either(V<F>(m < Bounds<F>::leastSquare), V<F>(m > Bounds<F>::mostSquare));
  }
  bool strays(F m) const { return m < Bounds<F>::leastSquare || m > Bounds<F>::mostSquare; }

  E one(E z) {
    using W = Wider<F>;
    if (z.re == 0 && z.im == 0) {
      zero_ |= level_ == 0;
      return {1 / level_, 0};
    }
    if (std::isinf(z.re) || std::isinf(z.im))
      return {std::copysign(F(0), z.re), -std::copysign(F(0), z.im)};
    const W m = squaredMagnitude<W>(z), root = std::sqrt(m);
    const W raised = level_ > root ? level_ * root : m;
    return {F(z.re / raised), F(-z.im / raised)};
  }

  bool metZero() const { return zero_; }

 private:
  F level_, square_;
  bool zero_ = false;
};

template <Complex E>
bool mapReciprocals(const E* src, E* dst, long len, Part<E> level) {
  ComplexReciprocal<E> op(level);
  if (level == 0 || squaresWell(level))
    mapMagnitudes(op, src, dst, len);
  else
    for (long i = 0; i < len; ++i) store(dst + i, op.one(load<E>(src + i)));
  return op.metZero();
}

template <class E>
MoxStatus reciprocal(const E* src, E* dst, int len, Part<E> level) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (MoxStatus s = NoNegativeLevel::check(level)) return s;
  const WiderScope<Part<E>> widerScope;
  const RoundingScope scope(Rounding::nearEven, Exceptions::masked);
  return mapReciprocals(src, dst, len, level) ? moxWarnInvZero : moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsThreshold_LTInv_32f, moxsThreshold_LTInv_32f_I, reciprocal);
MOX_EXPORT_BOTH(moxsThreshold_LTInv_64f, moxsThreshold_LTInv_64f_I, reciprocal);
MOX_EXPORT_BOTH(moxsThreshold_LTInv_32fc, moxsThreshold_LTInv_32fc_I, reciprocal);
MOX_EXPORT_BOTH(moxsThreshold_LTInv_64fc, moxsThreshold_LTInv_64fc_I, reciprocal);

}  // namespace mox::convert
