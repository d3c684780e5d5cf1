// Arrays of complex numbers given as consecutive parts, real part first. Operations on them see the
// real and the imaginary parts of several numbers as two vectors, or those of one as two scalars;
// vectors over 16-bit parts have 32 bits to a lane.
#pragma once

#include <tuple>
#include <type_traits>

#include "frame/map.h"
#include "frame/pair.h"

namespace mox {

// How many numbers an operand holds: one, or as many as a vector has lanes.
template <class T>
constexpr int numbersIn = 1;
template <class T>
requires(!std::is_arithmetic_v<T>) constexpr int numbersIn<T> = sizeof(T) / sizeof(T{}[0]);

// The numbers of two vectors are out of order in between, which doesn't matter as long as all
// operands go the same way.
template <class T, class E>
[[gnu::always_inline]] inline Pair<T> loadPairs(const E* p) {
  if constexpr (numbersIn<T> == 1) {
    return {T(load<E>(p)), T(load<E>(p + 1))};
  } else if constexpr (std::is_same_v<E, Mox16s>) {
    static_assert(std::is_same_v<T, V<Mox32s, 4>>);
    const T both = load<T>(p);
    return {T(V<Mox32u, 4>(both) << 16) >> 16, both >> 16};
  } else {
    return parted(load<T>(p), load<T>(p + numbersIn<T>));
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
    store(p, interleavedLow(z));
    store(p + numbersIn<T>, interleavedHigh(z));
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
