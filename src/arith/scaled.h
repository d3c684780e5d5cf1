// Integer members of the element-wise families: an exact operation, the scale rule, and vectors as
// narrow as the values allow. The rule is total, so that no factor needs a road of its own: one far
// above the size of the values gives zeros, one far below their signs.
#pragma once

#include <limits>

#include "arith/operations.h"
#include "frame/checks.h"
#include "frame/map_scaled.h"

namespace mox {

// |x| <= 2^bits<E> for the parts of E.
template <class E>
constexpr int bits = std::numeric_limits<Part<E>>::digits;

// Whether T has every value of E.
template <class T, class E>
constexpr bool holds = Limits<T>::min <= Limits<E>::min&& Limits<E>::max <= Limits<T>::max;

// The magnitude of a result.
template <class Op, class A, class B>
constexpr int magnitudeOf = std::is_same_v<Op, Product> ? bits<A> + bits<B>
                                                        : std::max(bits<A>, bits<B>) + 1;

// dst[i] = op(a[i], b[i]) by the scale rule.
template <auto op, class D, class A, class B>
void mapArithmetic(int factor, D* dst, long len, A a, B b) {
  using T = Part<D>;
  using Op = std::remove_cv_t<decltype(op)>;
  using SA = Part<ElementOf<A>>;
  using SB = Part<ElementOf<B>>;
  constexpr int magnitude = magnitudeOf<Op, SA, SB>;
  using Lanes = V<T, 16 / sizeof(T)>;
  const Scale<T, magnitude> scale(factor);
  // lanes(i) makes the results from element i on.
  const auto map = [&](auto rule, auto lanes) __attribute__((always_inline)) {
    mapInteger(
        dst, len,
        [&](long i, int part) {
          using R = Exact<magnitude>;
          return saturate<T>(rule(R(op(R(partFrom(a, i, part)), R(partFrom(b, i, part))))));
        },
        lanes);
  };

  // What an instruction has saturated is as good as the exact value when it gets no smaller.
  constexpr bool lanesHoldSources = holds<T, SA> && holds<T, SB>;
  if constexpr (lanesHoldSources && requires(Lanes v) { op.saturated(v, v); }) {
    if (factor == -1)
      return map(ScaledUp<T, magnitude>(1), [&](long i) {
        const Lanes r = op.saturated(lanesFrom<Lanes>(a, i), lanesFrom<Lanes>(b, i));
        return addSaturated(r, r);
      });
    if (factor <= 0)
      return scale.withUpwardRule([&](auto rule) __attribute__((always_inline)) {
        const auto scaled = rule.template forLanes<Lanes>();
        map(rule, [&](long i) {
          return scaled(op.saturated(lanesFrom<Lanes>(a, i), lanesFrom<Lanes>(b, i)));
        });
      });
  }
  if constexpr (std::is_same_v<Lanes, V<Mox16s, 8>> && requires(Lanes v) { op.halved(v, v); }) {
    if (factor == 1)
      return map(ScaledDown<magnitude>(1),
                 [&](long i) { return op.halved(lanesFrom<Lanes>(a, i), lanesFrom<Lanes>(b, i)); });
  }
  if constexpr (std::is_same_v<T, Mox8u>) {
    // Sixteen bits hold the values, and what the rule adds to them up to these factors.
    using Wide = V<std::conditional_t<(magnitude > 14), Mox16u, Mox16s>, 8>;
    const auto high = broadcast<Wide>(Lane<Wide>(255));
    if (factor < 10)
      return scale.withRule([&](auto rule) __attribute__((always_inline)) {
        const auto scaled = rule.template forLanes<Wide>();
        const auto wide = [&](long i) {
          const Wide r = scaled(Wide(op(lanesFrom<Wide>(a, i), lanesFrom<Wide>(b, i))));
          return V<Mox16s, 8>(magnitude > 14 ? lesser(r, high) : r);
        };
        map(rule, [&](long i) { return packSaturated<Mox8u>(wide(i), wide(i + 8)); });
      });
  }
  if constexpr (std::is_same_v<Lanes, V<Mox16s, 8>> && lanesHoldSources &&
                requires(Lanes v) { op.wide(v, v); })
    return scale.withRule([&](auto rule) __attribute__((always_inline)) {
      map(rule, [&](long i) {
        const auto r = op.wide(lanesFrom<Lanes>(a, i), lanesFrom<Lanes>(b, i));
        return packSaturated<Mox16s>(rule(r.low), rule(r.high));
      });
    });
  else if constexpr (magnitude <= 53)
    mapScaled<magnitude>(factor, op, dst, len, a, b);
  // Doubles round products above 2^53, which saturate all the same up to this factor.
  else if (sizeof(T) == 4 && factor <= 21)
    mapScaled<53>(factor, op, dst, len, a, b);
  else
    mapScaled<magnitude>(factor, op, dst, len, a, b);
}

// dst = op(src1, src2)
template <auto op, class A, class B, class D>
MoxStatus scalePair(const A* src1, const B* src2, D* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  mapArithmetic<op>(scaleFactor, dst, len, src1, src2);
  return moxOk;
}
template <auto op, class S, class D>
MoxStatus scalePairInPlace(const S* src, D* srcDst, int len, int scaleFactor) {
  return scalePair<op>(src, srcDst, srcDst, len, scaleFactor);
}

// Parts of complex elements, treated alike. The length is looked at before the pointers.
template <auto op, Complex E>
MoxStatus scaleParts(const E* src1, const E* src2, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkLength(len)) return s;
  return scalePair<op>(src1, src2, dst, len, scaleFactor);
}
template <auto op, Complex E>
MoxStatus scalePartsInPlace(const E* src, E* srcDst, int len, int scaleFactor) {
  return scaleParts<op>(src, srcDst, srcDst, len, scaleFactor);
}

// dst = op(src, val)
template <auto op, class E>
MoxStatus scaleConstant(const E* src, E val, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mapArithmetic<op>(scaleFactor, dst, len, src, Same<E>{val});
  return moxOk;
}
template <auto op, class E>
MoxStatus scaleConstantInPlace(E val, E* srcDst, int len, int scaleFactor) {
  return scaleConstant<op>(srcDst, val, srcDst, len, scaleFactor);
}

// Without a factor.
template <auto op, class A, class B, class D>
MoxStatus saturatePair(const A* src1, const B* src2, D* dst, int len) {
  return scalePair<op>(src1, src2, dst, len, 0);
}
template <auto op, class S, class D>
MoxStatus saturatePairInPlace(const S* src, D* srcDst, int len) {
  return scalePairInPlace<op>(src, srcDst, len, 0);
}
template <auto op, class E>
MoxStatus saturateConstantInPlace(E val, E* srcDst, int len) {
  return scaleConstantInPlace<op>(val, srcDst, len, 0);
}

// Of 16-bit elements as a float, exact but for the rounding of a product.
template <auto op>
MoxStatus pairToFloat(const Mox16s* src1, const Mox16s* src2, Mox32f* dst, int len) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  mapWidened<V<Mox32f>, Stores::bypassing>(op, dst, len, src1, src2);
  return moxOk;
}

// 64-bit results saturate before they are scaled: a factor works on the saturated value.
template <auto op, class E, class A, class B>
void mapSaturatedFirst(int factor, E* dst, long len, A a, B b) {
  constexpr int magnitude = 65;
  using R = Exact<magnitude>;
  mapScaled<magnitude>(
      factor, [](R x, R y) { return R(saturate<E>(op(x, y))); }, dst, len, a, b);
}
template <auto op, class E>
MoxStatus scalePair64(const E* src1, const E* src2, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  mapSaturatedFirst<op>(scaleFactor, dst, len, src1, src2);
  return moxOk;
}
template <auto op, class E>
MoxStatus scaleConstant64(const E* src, E val, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mapSaturatedFirst<op>(scaleFactor, dst, len, src, Same<E>{val});
  return moxOk;
}

}  // namespace mox
