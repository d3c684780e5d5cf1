// Arrays of complex numbers given as consecutive parts, real part first. Operations on them see the
// real and the imaginary parts of several numbers as two vectors, or those of one as two scalars;
// vectors over 16-bit parts have 32 bits to a lane.
#pragma once

#include <tuple>
#include <type_traits>

#include "frame/map.h"

namespace mox {

template <class T>
struct Pair {
  T re, im;
};
template <class T>
Pair(T, T) -> Pair<T>;

// How many numbers an operand holds: one, or as many as a vector has lanes.
template <class T>
constexpr int numbersIn = 1;
template <class T>
requires(!std::is_arithmetic_v<T>) constexpr int numbersIn<T> = sizeof(T) / sizeof(T{}[0]);

namespace detail {

// The instructions that part and join two vectors stay within blocks of 16 bytes, so the numbers
// are out of order in between. It doesn't matter as long as all operands go the same way.
template <class E, int N>
struct PartingOrder {
  static constexpr int block = 16 / sizeof(E), half = block / 2;
  static constexpr int realPart(int i) {
    const int j = i % block;
    return (j < half ? 0 : N - block) + i / block * block + 2 * j;
  }
  static constexpr int imaginaryPart(int i) { return realPart(i) + 1; }
  static constexpr int joinedLow(int i) {
    const int j = i % block;
    return j % 2 * N + i / block * block + j / 2;
  }
  static constexpr int joinedHigh(int i) { return joinedLow(i) + half; }
};

}  // namespace detail

template <class T, class E>
[[gnu::always_inline]] inline Pair<T> loadPairs(const E* p) {
  if constexpr (numbersIn<T> == 1) {
    return {T(load<E>(p)), T(load<E>(p + 1))};
  } else if constexpr (std::is_same_v<E, Mox16s>) {
    static_assert(std::is_same_v<T, V<Mox32s, 4>>);
    const T both = load<T>(p);
    return {T(V<Mox32u, 4>(both) << 16) >> 16, both >> 16};
  } else {
    using Order = detail::PartingOrder<E, numbersIn<T>>;
    const T a = load<T>(p), b = load<T>(p + numbersIn<T>);
    return {shuffle<Order::realPart>(a, b), shuffle<Order::imaginaryPart>(a, b)};
  }
}

template <class T, class E>
[[gnu::always_inline]] inline void storePairs(E* p, Pair<T> z) {
  if constexpr (numbersIn<T> == 1) {
    store(p, E(z.re));
    store(p + 1, E(z.im));
  } else if constexpr (std::is_same_v<E, Mox16s>) {
    const auto halves = packSaturated<Mox16s>(z.re, z.im);
    store(p, shuffle<[](int i) { return i % 2 * 4 + i / 2; }>(halves));
  } else {
    using Order = detail::PartingOrder<E, numbersIn<T>>;
    store(p, shuffle<Order::joinedLow>(z.re, z.im));
    store(p + numbersIn<T>, shuffle<Order::joinedHigh>(z.re, z.im));
  }
}

// dst = op(src1, src2) over `count` numbers: a peel until `dst` is aligned, where numbers can reach
// the alignment, then operands of the types T in turn, the widest first and a scalar last. All
// loads of a step come before its stores.
template <class... T, class Op, class E>
void mapPairs(Op op, E* dst, long count, const E* src1, const E* src2) {
  long i = 0;
  const auto run = [&]<class Operand>(Operand*, long end) {
    for (; i <= end - numbersIn<Operand>; i += numbersIn<Operand>)
      storePairs(dst + 2 * i,
                 op(loadPairs<Operand>(src1 + 2 * i), loadPairs<Operand>(src2 + 2 * i)));
  };
  using Scalar = std::tuple_element_t<sizeof...(T) - 1, std::tuple<T...>>;
  const int peel = peelCount(reinterpret_cast<Pair<E>*>(dst));
  if (peel + lanesOf<E> <= count) run(static_cast<Scalar*>(nullptr), peel);
  (run(static_cast<T*>(nullptr), count), ...);
}

}  // namespace mox
