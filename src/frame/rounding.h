// The scale rule of integer results: the exact value r of an operation times 2^-factor, rounded to
// nearest with ties to even and saturated to the type of the result. Every factor is valid.
//
// A family says how large its exact values get, as a power of two:
//
//   bound           what r can be
//   31, in vectors  any Mox32s
//   63, in scalars  any Mox64s (64 where r can be 2^63)
//   others          |r| <= 2^bound
//
// From it follow the types that hold r without loss, Exact<bound> for a scalar and
// ExactVector<bound> for vectors; the operation is written once, for both.
#pragma once

#include <algorithm>
#include <bit>
#include <limits>
#include <type_traits>

#include "frame/elements.h"
#include "frame/vec/vec.h"

namespace mox {

template <int bound>
using Exact =
    std::conditional_t<bound <= 30, Mox32s, std::conditional_t<bound <= 63, Mox64s, Int128>>;

// Doubles hold what 32 bits don't: the powers of two that the rule multiplies by leave their 53
// bits as they are, and AVX has no 64-bit arithmetic shift.
template <int bound>
using ExactVector = std::conditional_t<bound <= 31, I<Mox32s>, V<Mox64f>>;

template <int bound>
constexpr bool hasExactVector = bound <= 53;

// 2^n for the exponents of normal numbers.
template <class F>
F powerOfTwo(int n) {
  if constexpr (sizeof(F) == 4)
    return std::bit_cast<F>(Mox32u(127 + n) << 23);
  else
    return std::bit_cast<F>(Mox64u(1023 + n) << 52);
}

// The rules below take scalars and vectors of Exact<bound> and ExactVector<bound>.
// forLanes<W>() is the same rule for integer vectors W of another width, which must hold what the
// rule makes of r on the way; it is made once, before a loop.

// Factor 0: the value itself.
struct Unscaled {
  template <class R>
  R operator()(R r) const {
    return r;
  }
  template <class W>
  Unscaled forLanes() const {
    return {};
  }
};

// Division of integers by 2^n, n > 0, to nearest with ties to even; R is E or a vector of it.
// hasHeadroom says that a bit of E is free for the sum with half a unit.
template <class R, class E, bool hasHeadroom>
class RoundedShift {
  using Unsigned = BitsOf<E>;
  using UnsignedR =
      std::conditional_t<std::is_same_v<R, E>, Unsigned, V<Unsigned, sizeof(R) / sizeof(E)>>;
  static constexpr int bits = 8 * sizeof(E);

 public:
  explicit RoundedShift(int n) : n_(std::min(n, bits - 1)), bias_(lanes((E(1) << (n_ - 1)) - 1)) {
    if constexpr (!hasHeadroom) {
      mask_ = lanes(E((Unsigned(1) << n_) - 1));
      // For n >= bits every result is 0: the bias carries exactly when `whole` is -1.
      if (n >= bits) mask_ = lanes(0), bias_ = lanes(std::numeric_limits<E>::max());
    }
  }

  [[gnu::always_inline]] R operator()(R r) const {
    const R whole = r >> n_;
    if constexpr (hasHeadroom) return (r + bias_ + (whole & 1)) >> n_;
    // The fraction is rounded apart from the whole, and its carry added.
    const auto fraction = UnsignedR(r & mask_) + UnsignedR(bias_) + UnsignedR(whole & 1);
    return whole + R(fraction >> n_);
  }

 private:
  static R lanes(E e) {
    if constexpr (std::is_same_v<R, E>)
      return e;
    else
      return broadcast<R>(e);
  }

  int n_;
  R mask_, bias_;
};

// The same for doubles that are integers up to 2^bound.
template <int bound>
class RoundedQuotient {
 public:
  explicit RoundedQuotient(int n)
      : factor_(broadcast<V<Mox64f>>(powerOfTwo<Mox64f>(-std::min(n, bound + 2)))) {}

  [[gnu::always_inline]] V<Mox64f> operator()(V<Mox64f> r) const {
    return nearestInteger(r * factor_);
  }

 private:
  V<Mox64f> factor_;
};

// A factor above 0: division by 2^n.
template <int bound>
class ScaledDown {
  using Scalar = Exact<bound>;
  using Vector = ExactVector<bound>;

 public:
  explicit ScaledDown(int n) : n_(n), scalar_(n), vector_(n) {}

  [[gnu::always_inline]] Scalar operator()(Scalar r) const { return scalar_(r); }
  [[gnu::always_inline]] Vector operator()(Vector r) const { return vector_(r); }

  template <class W>
  auto forLanes() const {
    return RoundedShift<W, Lane<W>, true>(n_);
  }

 private:
  int n_;
  RoundedShift<Scalar, Scalar, bound != 63> scalar_;
  std::conditional_t<bound <= 31, RoundedShift<Vector, Mox32s, bound != 31>, RoundedQuotient<bound>>
      vector_;
};

// A factor below 0: multiplication by 2^n, stopped at the limits of T before it can wrap. From 2^n
// above the largest value of T on the sign alone decides.
template <class T, int bound>
class ScaledUp {
  using Scalar = Exact<bound>;
  using Vector = ExactVector<bound>;
  static_assert(Int128(Scalar(Limits<T>::max)) == Limits<T>::max, "name a larger bound");

 public:
  explicit ScaledUp(int n)
      : n_(std::min(n, Limits<T>::digits)),
        high_(Scalar(Limits<T>::max >> n_)),
        low_(Scalar(Limits<T>::min >> n_)) {
    if constexpr (bound <= 31) {
      highLanes_ = broadcast<Vector>(Mox32s(high_));
      lowLanes_ = broadcast<Vector>(Mox32s(low_));
      ones_ = broadcast<Vector>(Mox32s((Int128(1) << n_) - 1));
    } else {
      factor_ = broadcast<Vector>(powerOfTwo<Mox64f>(n_));
    }
  }

  [[gnu::always_inline]] Scalar operator()(Scalar r) const {
    if (r > high_) return Scalar(Limits<T>::max);
    if (r < low_) return Scalar(Limits<T>::min);
    return r << n_;
  }

  [[gnu::always_inline]] Vector operator()(Vector r) const {
    if constexpr (bound <= 31)
      return (greater(lesser(r, highLanes_), lowLanes_) << n_) | ((r > highLanes_) & ones_);
    else
      return r * factor_;
  }

  template <class W>
  auto forLanes() const {
    using E = Lane<W>;
    const auto high = broadcast<W>(E(high_)), low = broadcast<W>(E(low_)),
               ones = broadcast<W>(E((Int128(1) << n_) - 1));
    const int count = n_ < 8 * int(sizeof(E)) ? n_ : 8 * int(sizeof(E));
    return [=](W r) {
      W stopped = lesser(r, high);
      if constexpr (std::is_signed_v<E>) stopped = greater(stopped, low);
      return shiftLeft(stopped, count) | (W(r > high) & ones);
    };
  }

 private:
  int n_;
  Scalar high_, low_;
  I<Mox32s> highLanes_, lowLanes_, ones_;
  V<Mox64f> factor_;
};

// The nearest value of T. Four doubles, which are integers by now, come out as 32-bit integers, and
// vectors of those stand for packInOrder() to narrow; for 24 bits there is no such pack.
template <class T, class R>
auto saturate(R r) {
  if constexpr (std::is_same_v<R, I<Mox32s>> && std::is_integral_v<T>) {
    return r;
  } else if constexpr (std::is_same_v<R, I<Mox32s>>) {
    return greater(lesser(r, broadcast<R>(Mox32s(Limits<T>::max))),
                   broadcast<R>(Mox32s(Limits<T>::min)));
  } else if constexpr (std::is_same_v<R, V<Mox64f>>) {
    static_assert(Limits<T>::max < Int128(1) << 31, "no lanes for this type");
    const auto high = broadcast<R>(Mox64f(Limits<T>::max)),
               low = broadcast<R>(Mox64f(Limits<T>::min));
    return __builtin_convertvector(greater(lesser(r, high), low), I<Mox32s>);
  } else {
    return T(std::clamp<Int128>(r, Limits<T>::min, Limits<T>::max));
  }
}

// What the factor of a call asks for. withRule() names the rule once, around a loop, so that the
// loop has no branch on it; it is inlined, so that the loop's arrays stay in registers. apply() is
// for code whose time isn't spent here.
template <class T, int bound>
class Scale {
 public:
  explicit Scale(int factor) : factor_(factor) {}

  template <class Loop>
  [[gnu::always_inline]] void withRule(Loop loop) const {
    if (factor_ > 0)
      loop(ScaledDown<bound>(factor_));
    else
      withUpwardRule(loop);
  }

  // For factors of 0 and below.
  template <class Loop>
  [[gnu::always_inline]] void withUpwardRule(Loop loop) const {
    if (factor_ == 0)
      loop(Unscaled());
    else
      loop(ScaledUp<T, bound>(-std::max(factor_, -1000)));
  }

  template <class R>
  T apply(R r) const {
    T result;
    withRule([&](auto rule) { result = saturate<T>(rule(Exact<bound>(r))); });
    return result;
  }

 private:
  int factor_;
};

}  // namespace mox
