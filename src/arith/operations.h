// The operations of the element-wise families, on scalars and vectors alike; complex numbers are
// vectors of interleaved parts. Where a vector instruction saturates, or a sum can be halved in its
// own width, an operation has these forms too.
#pragma once

#include "frame/vec/vec.h"

namespace mox::arith {

namespace detail {

// (x & 1) is what halving lost: a tie, which moves an odd floor up to the even integer above it.
template <Of<Mox16s> T>
T halfToEven(T floor, T x) {
  return addSaturated(floor, floor & x & 1);
}

}  // namespace detail

struct Sum {
  constexpr auto operator()(auto a, auto b) const { return a + b; }

  template <class W>
  static auto saturated(W a, W b) -> decltype(addSaturated(a, b)) {
    return addSaturated(a, b);
  }
  // (a + b) / 2 to nearest, ties to even.
  template <Of<Mox16s> T>
  static T halved(T a, T b) {
    const T x = a ^ b;
    return detail::halfToEven(T((a & b) + (x >> 1)), x);
  }
};
inline constexpr Sum sum;

struct Difference {
  constexpr auto operator()(auto a, auto b) const { return a - b; }

  template <class W>
  static auto saturated(W a, W b) -> decltype(subtractSaturated(a, b)) {
    return subtractSaturated(a, b);
  }
  template <Of<Mox16s> T>
  static T halved(T a, T b) {
    const T x = a ^ b;
    return detail::halfToEven(T((x >> 1) - (~a & b)), x);
  }
};
inline constexpr Difference firstMinusSecond;

struct ReverseDifference {
  constexpr auto operator()(auto a, auto b) const { return b - a; }

  template <class W>
  static auto saturated(W a, W b) -> decltype(subtractSaturated(b, a)) {
    return subtractSaturated(b, a);
  }
  template <Of<Mox16s> T>
  static T halved(T a, T b) {
    return Difference::halved(b, a);
  }
};
inline constexpr ReverseDifference secondMinusFirst;

struct Product {
  constexpr auto operator()(auto a, auto b) const { return a * b; }

  template <Of<Mox16s> T>
  static T saturated(T a, T b) {
    return packBlocks<Mox16s>(multiplyWide(a, b));
  }
  template <Of<Mox16u> T>
  static T saturated(T a, T b) {
    return a * b | T(multiplyHigh(a, b) != 0);
  }
  template <Of<Mox16s> T>
  static auto wide(T a, T b) {
    return multiplyWide(a, b);
  }
};
inline constexpr Product product;

// The factors are used twice each: held in registers, they are loaded once.
struct ComplexProduct {
  auto operator()(auto x, auto y) const {
    if constexpr (sizeof x >= 16) x = inRegister(x), y = inRegister(y);
    return addSubtract(x * realParts(y), swapParts(x) * imaginaryParts(y));
  }
};
inline constexpr ComplexProduct complexProduct;

struct ComplexConjugateProduct {
  auto operator()(auto x, auto y) const {
    if constexpr (sizeof x >= 16) x = inRegister(x), y = inRegister(y);
    return addSubtract(x * realParts(y), -(swapParts(x) * imaginaryParts(y)));
  }
};
inline constexpr ComplexConjugateProduct complexConjugateProduct;

struct RealByComplex {
  auto operator()(auto a, auto z) const { return doubled(a) * z; }
};
inline constexpr RealByComplex realByComplex;

}  // namespace mox::arith
