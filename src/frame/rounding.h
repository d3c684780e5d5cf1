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
using ExactVector = std::conditional_t<bound <= 31, I<Mox32s>, Register<Mox64f>>;

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

// The rules below take scalars of Exact<bound>, vectors of ExactVector<bound>, and vectors of other
// integers that hold what the rule makes of r on the way.

// Factor 0: the value itself.
struct Unscaled {
  template <class R>
  R operator()(R r) const {
    return r;
  }
};

namespace detail {

// Scalars or lanes.
template <class R>
struct LanesOf {
  using type = R;
};
template <class R>
requires(!std::is_arithmetic_v<R> && !std::is_same_v<R, Int128>) struct LanesOf<R> {
  using type = Lane<R>;
};
template <class R>
using Number = typename LanesOf<R>::type;

template <class R>
[[gnu::always_inline]] inline R all(Number<R> e) {
  if constexpr (std::is_same_v<R, Number<R>>)
    return e;
  else
    return broadcast<R>(e);
}

}  // namespace detail

// A factor above 0: division by 2^n, to nearest with ties to even. With `stopping`, values to
// which half a unit cannot be added are lowered first: they saturate the result in any case.
template <int bound, bool stopping = false>
class ScaledDown {
 public:
  explicit ScaledDown(int n) : n_(n) {}

  template <class R>
  [[gnu::always_inline]] R operator()(R r) const {
    using E = detail::Number<R>;
    // A bit is free for the sum with half a unit.
    constexpr bool hasHeadroom = sizeof(E) == 2 || bound < 8 * int(sizeof(E)) - 1;
    if constexpr (std::is_floating_point_v<E>)
      return nearestInteger(r * powerOfTwo<Mox64f>(-std::min(n_, bound + 2)));
    else if constexpr (hasHeadroom)
      return shiftedInHeadroom(r);
    else if constexpr (stopping)
      return shiftedInHeadroom(
          lesser(r, detail::all<R>(std::numeric_limits<E>::max() - (E(1) << (n_ - 1)))));
    else
      return shifted(r);
  }

 private:
  template <class R>
  [[gnu::always_inline]] R shiftedInHeadroom(R r) const {
    using E = detail::Number<R>;
    const int n = std::min(n_, 8 * int(sizeof(E)) - 1);
    const R whole = r >> n, bias = detail::all<R>(E((E(1) << (n - 1)) - 1));
    return (r + bias + (whole & 1)) >> n;
  }

  // The fraction is rounded apart from the whole, and its carry added.
  template <class R>
  [[gnu::always_inline]] R shifted(R r) const {
    using E = detail::Number<R>;
    using Bits = BitsOf<E>;
    constexpr int bits = 8 * sizeof(E);
    const int n = std::min(n_, bits - 1);
    // For n >= bits every result is 0: the bias carries exactly when `whole` is -1.
    const E mask = n_ >= bits ? E(0) : E((Bits(1) << n) - 1);
    const E bias = n_ >= bits ? std::numeric_limits<E>::max() : E((E(1) << (n - 1)) - 1);
    const R whole = r >> n;
    if constexpr (std::is_same_v<R, E>) {
      return whole + R((Bits(r & mask) + Bits(bias) + Bits(whole & 1)) >> n);
    } else {
      using UnsignedR = Beside<Bits, R>;
      const auto fraction = UnsignedR(r & detail::all<R>(mask)) + UnsignedR(detail::all<R>(bias)) +
                            UnsignedR(whole & 1);
      return whole + R(fraction >> n);
    }
  }

  int n_;
};

// A factor below 0: multiplication by 2^n, stopped at the limits of T before it can wrap. From 2^n
// above the largest value of T on the sign alone decides.
template <class T, int bound>
class ScaledUp {
  using Scalar = Exact<bound>;
  static_assert(Int128(Scalar(Limits<T>::max)) == Limits<T>::max, "name a larger bound");

 public:
  explicit ScaledUp(int n)
      : n_(std::min(n, Limits<T>::digits)),
        high_(Scalar(Limits<T>::max >> n_)),
        low_(Scalar(Limits<T>::min >> n_)) {}

  [[gnu::always_inline]] Scalar operator()(Scalar r) const {
    if (r > high_) return Scalar(Limits<T>::max);
    if (r < low_) return Scalar(Limits<T>::min);
    return r << n_;
  }

  template <class R>
  [[gnu::always_inline]] R operator()(R r) const {
    using E = Lane<R>;
    if constexpr (std::is_floating_point_v<E>) {
      return r * powerOfTwo<Mox64f>(n_);
    } else {
      const R high = broadcast<R>(E(high_)), ones = broadcast<R>(E((Int128(1) << n_) - 1));
      R stopped = lesser(r, high);
      if constexpr (std::is_signed_v<E>) stopped = greater(stopped, broadcast<R>(E(low_)));
      return shiftLeft(stopped, std::min(n_, 8 * int(sizeof(E)))) | (R(r > high) & ones);
    }
  }

 private:
  int n_;
  Scalar high_, low_;
};

// The nearest value of T. Doubles, which are integers by now, come out as 32-bit integers, and
// vectors of those stand for packs to narrow; for 24 bits there is no such pack.
template <class T, class R>
[[gnu::always_inline]] inline auto saturate(R r) {
  if constexpr (Of<R, Mox32s> && std::is_integral_v<T>) {
    return r;
  } else if constexpr (Of<R, Mox32s>) {
    return greater(lesser(r, broadcast<R>(Mox32s(Limits<T>::max))),
                   broadcast<R>(Mox32s(Limits<T>::min)));
  } else if constexpr (Of<R, Mox64f>) {
    static_assert(Limits<T>::max < Int128(1) << 31, "no lanes for this type");
    const auto high = broadcast<R>(Mox64f(Limits<T>::max)),
               low = broadcast<R>(Mox64f(Limits<T>::min));
    return __builtin_convertvector(greater(lesser(r, high), low), Beside<Mox32s, R>);
  } else {
    return T(std::clamp<Int128>(r, Limits<T>::min, Limits<T>::max));
  }
}

// What the factor of a call asks for. withRule() names the rule once, around a loop, so that the
// loop has no branch on it; it is inlined, so that the loop's arrays stay in registers. apply() is
// for code whose time isn't spent here. `addsHalf` says that values of bound 31 stay below
// 2^31 - 2^15, so that half a unit of a factor up to 16 can be added to them.
template <class T, int bound, bool addsHalf = false>
class Scale {
 public:
  explicit Scale(int factor) : factor_(factor) {}

  template <class Loop>
  [[gnu::always_inline]] void withRule(Loop loop) const {
    if (factor_ <= 0)
      withUpwardRule(loop);
    else if (factor_ <= mostStopping)
      loop(ScaledDown<bound - addsHalf, (mostStopping > 0)>(factor_));
    else
      loop(ScaledDown<bound>(factor_));
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
  // Up to this factor 32 bits, less half a unit, hold more than all results of T.
  static constexpr int mostStopping = bound == 31 ? 31 - Limits<T>::digits : 0;

  int factor_;
};

}  // namespace mox
