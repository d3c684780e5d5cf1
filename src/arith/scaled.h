// Integer members of the element-wise families: an exact operation, the scale rule, and vectors as
// narrow as the values allow. Every int is a valid factor, so none is a special case: one far above
// the size of the values gives zeros, one far below their signs.
#pragma once

#include <limits>

#include "arith/operations.h"
#include "frame/checks.h"
#include "frame/control_word.h"
#include "frame/map_scaled.h"

namespace mox::arith {

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

// dst[i] = op(a[i], b[i]) by the scale rule, in the first way of this table that serves the factor
// and the type of the result, where the operation has it:
//
//   factor     type               way              lanes
//   -1         not below sources  twiceSaturated   of the result
//   up to 0    not below sources  saturated        of the result
//   its own    16s                scaled           of the result
//   up to 9    8u                 inWords          16 bits, packed to bytes
//   any        16s                wide             32 bits, two products to one result
//   up to 16   16u                wide             the same
//   any        any                exact            32-bit integers, doubles, or one by one
template <auto op, class D, class A, class B>
class Arithmetic {
  using Op = std::remove_cv_t<decltype(op)>;
  using T = Part<D>;
  using SA = Part<ElementOf<A>>;
  using SB = Part<ElementOf<B>>;
  using Register = I<T>;
  static constexpr int magnitude = magnitudeOf<Op, SA, SB>;
  static constexpr bool lanesHoldSources = holds<T, SA> && holds<T, SB>;
  static constexpr bool of16s = std::is_same_v<T, Mox16s>;

 public:
  Arithmetic(int factor, D* dst, long len, A a, B b)
      : scale_(factor), factor_(factor), dst_(dst), len_(len), a_(a), b_(b) {}

  [[gnu::always_inline]] void run() const {
    if constexpr (lanesHoldSources && requires(Register v) { Op::saturated(v, v); }) {
      if (factor_ == -1) return twiceSaturated();
      if (factor_ <= 0) return saturated();
    }
    if constexpr (of16s && lanesHoldSources && requires { Op::ownFactor; })
      if (factor_ == Op::ownFactor) return scaled();
    if constexpr (std::is_same_v<T, Mox8u>)
      if (factor_ <= mostFactorInWords) return inWords();
    if constexpr (lanesHoldSources && requires(Register v) { Op::wide(v, v); })
      wide();
    else
      exact();
  }

 private:
  // The parts of n elements.
  template <int n>
  using Lanes = V<T, n * partsPerElement<D>>;

  // lanes(n, i) makes the results of n elements from element i on.
  [[gnu::always_inline]] void map(auto rule, auto lanes) const {
    mapInteger<integerBytes / sizeof(D), 16 / sizeof(D)>(
        dst_, len_,
        [&](long i, int part) {
          using R = Exact<magnitude>;
          return saturate<T>(rule(R(op(R(partFrom(a_, i, part)), R(partFrom(b_, i, part))))));
        },
        lanes, a_, b_);
  }

  // For factors up to 0 saturating before scaling gives the same result.
  template <int n>
  [[gnu::always_inline]] Lanes<n> saturatedFrom(long i) const {
    return op.saturated(lanesFrom<Lanes<n>>(a_, i), lanesFrom<Lanes<n>>(b_, i));
  }
  [[gnu::always_inline]] void saturated() const {
    scale_.withUpwardRule([&](auto rule) __attribute__((always_inline)) {
      map(rule, [&](auto n, long i) { return rule(saturatedFrom<n>(i)); });
    });
  }
  [[gnu::always_inline]] void twiceSaturated() const {
    map(ScaledUp<T, magnitude>(1), [&](auto n, long i) {
      const auto r = saturatedFrom<n>(i);
      return addSaturated(r, r);
    });
  }

  [[gnu::always_inline]] void scaled() const {
    map(ScaledDown<magnitude>(Op::ownFactor), [&](auto n, long i) {
      return op.scaled(lanesFrom<Lanes<n>>(a_, i), lanesFrom<Lanes<n>>(b_, i));
    });
  }

  // Sixteen bits hold values of bytes and what the rule adds to them: 255 * 255 + 2^8 < 2^16.
  static constexpr int mostFactorInWords = 9;
  [[gnu::always_inline]] void inWords() const {
    using Word = std::conditional_t<(magnitude > 14), Mox16u, Mox16s>;
    scale_.withRule([&](auto rule) __attribute__((always_inline)) {
      map(rule, [&](auto n, long i) {
        using Words = V<Word, n / 2>;
        const auto words = [&](long from) {
          const Words r = rule(Words(op(lanesFrom<Words>(a_, from), lanesFrom<Words>(b_, from))));
          return Beside<Mox16s, Words>(magnitude > 14 ? lesser(r, broadcast<Words>(255)) : r);
        };
        return packInOrder<Mox8u>(words(i), words(i + n / 2));
      });
    });
  }

  // Unsigned products have no bit free for the sum with half a unit.
  static constexpr int mostFactorInLongs = 32 - bits<T>;
  [[gnu::always_inline]] void wide() const {
    const auto by = [&](auto rule) __attribute__((always_inline)) {
      mapWide<magnitude>(rule, op, dst_, len_, a_, b_);
    };
    if constexpr (of16s)
      scale_.withRule(by);
    else if (factor_ <= mostFactorInLongs)
      by(ScaledDown<magnitude, true>(factor_));
    else
      exact();
  }

  // Doubles round products above 2^53; up to this factor those saturate 32 bits in any case.
  static constexpr int mostFactorInDoubles = 53 - 32;
  [[gnu::always_inline]] void exact() const {
    if constexpr (magnitude > 53 && sizeof(T) == 4)
      if (factor_ <= mostFactorInDoubles) {
        const HiddenExceptions scope;
        return mapScaled<53>(factor_, op, dst_, len_, a_, b_);
      }
    mapScaled<magnitude>(factor_, op, dst_, len_, a_, b_);
  }

  Scale<T, magnitude> scale_;
  int factor_;
  D* dst_;
  long len_;
  A a_;
  B b_;
};

template <auto op, class D, class A, class B>
void mapArithmetic(int factor, D* dst, long len, A a, B b) {
  Arithmetic<op, D, A, B>(factor, dst, len, a, b).run();
}

// dst = op(src1, src2)
template <auto op, class A, class B = A, class D = A>
MoxStatus scalePair(const A* src1, const B* src2, D* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  mapArithmetic<op>(scaleFactor, dst, len, src1, src2);
  return moxOk;
}

// Parts of complex elements, treated alike. The length is looked at before the pointers.
template <auto op, Complex E>
MoxStatus scaleParts(const E* src1, const E* src2, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkLength(len)) return s;
  return scalePair<op>(src1, src2, dst, len, scaleFactor);
}

// dst = op(src, val)
template <auto op, class E>
MoxStatus scaleConstant(const E* src, E val, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mapArithmetic<op>(scaleFactor, dst, len, src, Same<E>{val});
  return moxOk;
}

// Without a factor.
template <auto op, class A, class B = A, class D = A>
MoxStatus saturatePair(const A* src1, const B* src2, D* dst, int len) {
  return scalePair<op>(src1, src2, dst, len, 0);
}
template <auto op, class E>
MoxStatus saturateConstant(const E* src, E val, E* dst, int len) {
  return scaleConstant<op>(src, val, dst, len, 0);
}

// Of 16-bit elements as a float, exact but for the rounding of a product.
template <auto op>
MoxStatus pairToFloat(const Mox16s* src1, const Mox16s* src2, Mox32f* dst, int len) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  mapWidened<V<Mox32f>, Stores::bypassing>(op, dst, len, src1, src2);
  return moxOk;
}

}  // namespace mox::arith
