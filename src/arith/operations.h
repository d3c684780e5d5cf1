// The operations of the element-wise families, on scalars and vectors alike; complex numbers are
// vectors of interleaved parts. Where a vector instruction saturates, an operation has this form
// too. scaled() makes 16-bit results for the one scale factor, `ownFactor`, that needs no wider
// lanes.
#pragma once

#include <limits>

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
  static constexpr int ownFactor = 1;
  template <Of<Mox16s> T>
  static T scaled(T a, T b) {
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
  static constexpr int ownFactor = 1;
  template <Of<Mox16s> T>
  static T scaled(T a, T b) {
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
  static constexpr int ownFactor = 1;
  template <Of<Mox16s> T>
  static T scaled(T a, T b) {
    return Difference::scaled(b, a);
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
    a = inRegister(a), b = inRegister(b);
    return a * b | T(multiplyHigh(a, b) != 0);
  }
  static constexpr int ownFactor = 15;
  template <Of<Mox16s> T>
  static T scaled(T a, T b) {
    a = inRegister(a), b = inRegister(b);
    using Words = Beside<Mox16u, T>;
    constexpr Mox16s least = std::numeric_limits<Mox16s>::min();
    // 0 for a tie, which went up: the last bit of its quotient has to go. Else it is 2 or more.
    const T fromTie = shiftLeft(multiplyLow(a, b), 1) ^ least;
    const T r = multiplyFractions(a, b) & T(addSaturated(Words(fromTie), broadcast<Words>(0xFFFE)));
    return r ^ (r == least);  // the product of -32768 with itself
  }
  template <class T>
  requires(sizeof(Lane<T>) == 2) static auto wide(T a, T b) { return multiplyWide(a, b); }
};
inline constexpr Product product;

struct ProductSum {
  constexpr auto operator()(auto a, auto b, auto c) const { return c + a * b; }

  template <Of<Mox16s> T>
  static auto wide(T a, T b, T c) {
    b = inRegister(b), c = inRegister(c);
    const T one = broadcast<T>(1);
    return BlockHalves{multiplyAddPairs(unpackLow<Mox16s>(a, c), unpackLow<Mox16s>(b, one)),
                       multiplyAddPairs(unpackHigh<Mox16s>(a, c), unpackHigh<Mox16s>(b, one))};
  }
};
inline constexpr ProductSum productSum;

// The factors are used twice each: held in registers, they are loaded once.
struct ComplexProduct {
  auto operator()(auto x, auto y) const {
    x = inRegister(x), y = inRegister(y);
    return times(x, realParts(y), imaginaryParts(y));
  }
};
inline constexpr ComplexProduct complexProduct;

struct ComplexConjugateProduct {
  auto operator()(auto x, auto y) const {
    x = inRegister(x), y = inRegister(y);
    return times(x, realParts(y), -imaginaryParts(y));
  }
};
inline constexpr ComplexConjugateProduct complexConjugateProduct;

struct RealByComplex {
  auto operator()(auto a, auto z) const { return doubled(a) * z; }
};
inline constexpr RealByComplex realByComplex;

}  // namespace mox::arith
