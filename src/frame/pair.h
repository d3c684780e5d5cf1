// Complex numbers in registers as real parts and imaginary parts: two vectors, or two scalars.
#pragma once

#include "frame/vec/vec.h"

namespace mox {

template <class T>
struct Pair {
  T re, im;
};
template <class T>
Pair(T, T) -> Pair<T>;

namespace detail {

// The instructions that part and interleave two vectors stay within blocks of 16 bytes.
template <class T>
struct PartingOrder {
  static constexpr int lanes = laneCount<T>, block = 16 / sizeof(Lane<T>), half = block / 2;
  static constexpr int realPart(int i) {
    const int j = i % block;
    return (j < half ? 0 : lanes - block) + i / block * block + 2 * j;
  }
  static constexpr int imaginaryPart(int i) { return realPart(i) + 1; }
};

}  // namespace detail

// The parts of the numbers that two vectors hold interleaved: those in a block of `a`, then those
// in the same block of `b`. That is the order of the numbers if a vector is one block, or if `a`
// has the blocks 0 and 2, and `b` 1 and 3.
template <class T>
[[gnu::always_inline]] inline Pair<T> parted(T a, T b) {
  using Order = detail::PartingOrder<T>;
  return {shuffle<Order::realPart>(a, b), shuffle<Order::imaginaryPart>(a, b)};
}

// The numbers interleaved: those of the lower half of each block, and of the upper.
template <class T>
[[gnu::always_inline]] inline T interleavedLow(Pair<T> z) {
  return unpackLow<Lane<T>>(z.re, z.im);
}
template <class T>
[[gnu::always_inline]] inline T interleavedHigh(Pair<T> z) {
  return unpackHigh<Lane<T>>(z.re, z.im);
}

// Consecutive numbers from `z` on, in order.
template <class T>
[[gnu::always_inline]] inline Pair<T> loadParted(const Lane<T>* z) {
  constexpr int lanes = laneCount<T>;
  if constexpr (std::is_same_v<T, V<Mox16s, 8>>) {
    const auto a = load<V<Mox32u, 4>>(z), b = load<V<Mox32u, 4>>(z + lanes);
    const auto packed = [](auto low, auto high) {
      return T(packSaturated<Mox16u>(V<Mox32s, 4>(low), V<Mox32s, 4>(high)));
    };
    return {packed(a & 0xFFFF, b & 0xFFFF), packed(a >> 16, b >> 16)};
  } else if constexpr (sizeof(T) == 16) {
    return parted(load<T>(z), load<T>(z + lanes));
  } else {
    // Parting takes the halves of two vectors across. One half is loaded once more where it goes,
    // the other is shuffled there: so the processor's loads and its shuffles share the work.
    using Half = V<Lane<T>, lanes / 2>;
    const T low = inRegister(load<T>(z));
    const auto lowest = shuffle<[](int i) { return i; }, lanes / 2>(low, low);
    return parted(join<T>(lowest, load<Half>(z + lanes)), joinHigh(low, load<T>(z + lanes)));
  }
}

}  // namespace mox
