// The operations of the element-wise families, on scalars and vectors alike; complex numbers are
// vectors of interleaved parts. Where a vector instruction saturates, or a sum can be halved in its
// own width, an operation has these forms too.
#pragma once

#include "frame/vec/vec.h"

namespace mox::arith {

namespace detail {

// (x & 1) is what halving lost: a tie, which moves an odd floor up to the even integer above it.
inline I<Mox16s> halfToEven(I<Mox16s> floor, I<Mox16s> x) {
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
  static I<Mox16s> halved(I<Mox16s> a, I<Mox16s> b) {
    const auto x = a ^ b;
    return detail::halfToEven((a & b) + (x >> 1), x);
  }
};
inline constexpr Sum sum;

struct Difference {
  constexpr auto operator()(auto a, auto b) const { return a - b; }

  template <class W>
  static auto saturated(W a, W b) -> decltype(subtractSaturated(a, b)) {
    return subtractSaturated(a, b);
  }
  static I<Mox16s> halved(I<Mox16s> a, I<Mox16s> b) {
    const auto x = a ^ b;
    return detail::halfToEven((x >> 1) - (~a & b), x);
  }
};
inline constexpr Difference firstMinusSecond;

struct ReverseDifference {
  constexpr auto operator()(auto a, auto b) const { return b - a; }

  template <class W>
  static auto saturated(W a, W b) -> decltype(subtractSaturated(b, a)) {
    return subtractSaturated(b, a);
  }
  static I<Mox16s> halved(I<Mox16s> a, I<Mox16s> b) { return Difference::halved(b, a); }
};
inline constexpr ReverseDifference secondMinusFirst;

struct Product {
  constexpr auto operator()(auto a, auto b) const { return a * b; }

  static I<Mox16s> saturated(I<Mox16s> a, I<Mox16s> b) {
    return packBlocks<Mox16s>(multiplyWide(a, b));
  }
  static I<Mox16u> saturated(I<Mox16u> a, I<Mox16u> b) {
    return a * b | I<Mox16u>(multiplyHigh(a, b) != 0);
  }
  static BlockHalves<I<Mox32s>> wide(I<Mox16s> a, I<Mox16s> b) { return multiplyWide(a, b); }
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
