// The scale rule of integer results: the exact value r of an operation times 2^-factor, rounded to
// nearest with ties to even and saturated to the type of the result. Every factor is valid.
//
// A family says how large its exact values get: `magnitude` stands for |r| <= 2^magnitude. From it
// follow the types that hold r without loss, Exact<magnitude> for a scalar and
// ExactVector<magnitude> for four lanes; the operation is written once, for both.
#pragma once

#include <algorithm>
#include <bit>
#include <type_traits>

#include "frame/elements.h"
#include "frame/vec.h"

namespace mox {

// Scalars keep one bit free, so that half a unit can be added to any value.
template <int magnitude>
using Exact = std::conditional_t<magnitude <= 30, Mox32s,
                                 std::conditional_t<magnitude <= 62, Mox64s, Int128>>;

// Magnitude 31 stands for all values of 32 bits. Doubles hold larger ones: the powers of two that
// the rule multiplies by leave their 53 bits as they are, and AVX has no 64-bit arithmetic shift.
template <int magnitude>
using ExactVector = std::conditional_t<magnitude <= 31, V<Mox32s, 4>, V<Mox64f, 4>>;

template <int magnitude>
constexpr bool hasExactVector = magnitude <= 53;

// 2^n for the exponents of normal doubles.
inline Mox64f powerOfTwo(int n) { return std::bit_cast<Mox64f>(Mox64u(1023 + n) << 52); }

// Factor 0: the value itself.
struct Unscaled {
  template <class R>
  R operator()(R r) const {
    return r;
  }
};

// A factor above 0: division by 2^n to nearest, ties to even. A divisor of at least four times the
// largest value gives 0, as do all larger ones.
template <int magnitude>
class ScaledDown {
 public:
  explicit ScaledDown(int n) : n_(n) {}

  template <class R>
  R operator()(R r) const {
    if constexpr (std::is_same_v<R, V<Mox64f, 4>>) {
      return nearestInteger(r * powerOfTwo(-std::min(n_, magnitude + 2)));
    } else if constexpr (std::is_same_v<R, V<Mox32s, 4>> && magnitude == 31) {
      // No bit is free: the fraction is rounded apart from the whole. From 2^32 on the parity of
      // the whole alone, -1 or 0, decides on a carry that makes it 0.
      const int n = std::min(n_, 31);
      const Mox32u mask = n_ > 31 ? 0 : (Mox32u(1) << n) - 1;
      const Mox32u bias = (n_ > 31 ? Mox32u(1) << 31 : Mox32u(1) << (n - 1)) - 1;
      const R whole = r >> n;
      const auto carry = (V<Mox32u, 4>(r) & mask) + bias + V<Mox32u, 4>(whole & 1);
      return whole + R(carry >> n);
    } else {
      using Lane = std::conditional_t<std::is_same_v<R, V<Mox32s, 4>>, Mox32s, R>;
      const int n = std::min(n_, int(8 * sizeof(Lane)) - 1);
      return (r + ((Lane(1) << (n - 1)) - 1) + ((r >> n) & 1)) >> n;
    }
  }

 private:
  int n_;
};

// A factor below 0: multiplication by 2^n, stopped at the limits of T before it can wrap. From 2^n
// above the limits of T on the sign alone decides.
template <class T>
class ScaledUp {
 public:
  explicit ScaledUp(int n) : n_(std::min(n, Limits<T>::digits)) {}

  template <class R>
  R operator()(R r) const {
    if constexpr (std::is_same_v<R, V<Mox64f, 4>>) {
      return r * powerOfTwo(n_);
    } else if constexpr (std::is_same_v<R, V<Mox32s, 4>>) {
      const Mox32s high = Mox32s(Limits<T>::max >> n_), low = Mox32s(Limits<T>::min >> n_);
      const Mox32s ones = Mox32s((Mox32u(1) << n_) - 1);
      const R within = greater(lesser(r, broadcast<R>(high)), broadcast<R>(low));
      return (within << n_) | ((r > high) & ones);
    } else {
      if (r > R(Limits<T>::max >> n_)) return R(Limits<T>::max);
      if (r < R(Limits<T>::min >> n_)) return R(Limits<T>::min);
      return r << n_;
    }
  }

 private:
  int n_;
};

// The nearest value of T. Four doubles, which are integers by now, come out as 32-bit integers, and
// vectors of those stand for packSaturated() to narrow; for 24 bits there is no such pack.
template <class T, class R>
auto saturate(R r) {
  if constexpr (std::is_same_v<R, V<Mox32s, 4>> && std::is_integral_v<T>) {
    return r;
  } else if constexpr (std::is_same_v<R, V<Mox32s, 4>>) {
    return greater(lesser(r, broadcast<R>(Mox32s(Limits<T>::max))),
                   broadcast<R>(Mox32s(Limits<T>::min)));
  } else if constexpr (std::is_same_v<R, V<Mox64f, 4>>) {
    static_assert(Limits<T>::max < Int128(1) << 31, "no lanes for this type");
    const auto high = broadcast<R>(Mox64f(Limits<T>::max)),
               low = broadcast<R>(Mox64f(Limits<T>::min));
    return __builtin_convertvector(greater(lesser(r, high), low), V<Mox32s, 4>);
  } else {
    return T(std::clamp<Int128>(r, Limits<T>::min, Limits<T>::max));
  }
}

// What the factor of a call asks for. withRule() names the rule once, around a loop, so that the
// loop has no branch on it; apply() is for code whose time isn't spent here.
template <class T, int magnitude>
class Scale {
 public:
  explicit Scale(int factor) : factor_(factor) {}

  template <class Loop>
  void withRule(Loop loop) const {
    if (factor_ == 0)
      loop(Unscaled());
    else if (factor_ > 0)
      loop(ScaledDown<magnitude>(factor_));
    else
      loop(ScaledUp<T>(-std::max(factor_, -1000)));
  }

  template <class R>
  T apply(R r) const {
    T result;
    withRule([&](auto rule) { result = saturate<T>(rule(Exact<magnitude>(r))); });
    return result;
  }

 private:
  int factor_;
};

}  // namespace mox
