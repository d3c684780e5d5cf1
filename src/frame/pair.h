// Complex numbers in registers as real parts and imaginary parts: two vectors, or two scalars.
#pragma once

#include "frame/vec/vec.h"

namespace mox {

template <class T>
struct Pair {
  T re, im;

  [[gnu::always_inline]] friend constexpr Pair operator+(Pair a, Pair b) {
    return {a.re + b.re, a.im + b.im};
  }
  [[gnu::always_inline]] friend constexpr Pair operator-(Pair a, Pair b) {
    return {a.re - b.re, a.im - b.im};
  }
  // A real factor: a number, or one for each lane.
  template <class F>
  [[gnu::always_inline]] friend constexpr Pair operator*(Pair a, F factor) {
    return {a.re * factor, a.im * factor};
  }
};
template <class T>
Pair(T, T) -> Pair<T>;

// z w, and z times the conjugate of w.
template <class T>
[[gnu::always_inline]] inline constexpr Pair<T> product(Pair<T> z, Pair<T> w) {
  return {z.re * w.re - z.im * w.im, z.re * w.im + z.im * w.re};
}
template <class T>
[[gnu::always_inline]] inline constexpr Pair<T> conjugateProduct(Pair<T> z, Pair<T> w) {
  return {z.re * w.re + z.im * w.im, z.im * w.re - z.re * w.im};
}

template <class T>
[[gnu::always_inline]] inline constexpr Pair<T> swapParts(Pair<T> z) {
  return {z.im, z.re};
}
template <class T>
[[gnu::always_inline]] inline constexpr T squaredMagnitude(Pair<T> z) {
  return z.re * z.re + z.im * z.im;
}

namespace detail {

// The instructions that deinterleave and interleave two vectors stay within blocks of 16 bytes.
template <class T>
struct DeinterleavedOrder {
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
[[gnu::always_inline]] inline Pair<T> deinterleaved(T a, T b) {
  using Order = detail::DeinterleavedOrder<T>;
  return {shuffle<Order::realPart>(a, b), shuffle<Order::imaginaryPart>(a, b)};
}

// The numbers interleaved: those of the lower half of each block, and of the upper; undoes
// deinterleaved().
template <class T>
[[gnu::always_inline]] inline T interleavedLow(Pair<T> z) {
  return unpackLow<Lane<T>>(z.re, z.im);
}
template <class T>
[[gnu::always_inline]] inline T interleavedHigh(Pair<T> z) {
  return unpackHigh<Lane<T>>(z.re, z.im);
}

// The numbers interleaved, in order.
template <class T>
[[gnu::always_inline]] inline Registers<T, 2> interleaved(Pair<T> z) {
  if constexpr (sizeof(T) == 64) {
    constexpr int lanes = laneCount<T>;
    return {{shuffle<[](int i) { return i % 2 * lanes + i / 2; }>(z.re, z.im),
             shuffle<[](int i) { return i % 2 * lanes + (lanes + i) / 2; }>(z.re, z.im)}};
  } else {
    const T low = interleavedLow(z), high = interleavedHigh(z);
    if constexpr (sizeof(T) == 32)
      return {{joinLow(low, high), joinHigh(low, high)}};
    else
      return {{low, high}};
  }
}

// Consecutive numbers from `z` on, in order.
template <class T>
[[gnu::always_inline]] inline Pair<T> loadDeinterleaved(const Lane<T>* z) {
  constexpr int lanes = laneCount<T>;
  if constexpr (std::is_same_v<Lane<T>, Mox16s>) {
    using Numbers = V<Mox32u, lanes / 2>;
    const auto a = load<Numbers>(z), b = load<Numbers>(z + lanes);
    const auto packed = [](Numbers low, Numbers high) {
      using Signed = Beside<Mox32s, Numbers>;
      return T(packInOrder<Mox16u>(Signed(low), Signed(high)));
    };
    return {packed(a & 0xFFFF, b & 0xFFFF), packed(a >> 16, b >> 16)};
  } else if constexpr (sizeof(T) == 32) {
    // Numbers in order cross the 16-byte blocks of the vectors. One half is loaded once more where
    // it goes, the other is shuffled there: so the processor's loads and shuffles share the work.
    using Half = V<Lane<T>, lanes / 2>;
    const T low = inRegister(load<T>(z));
    const auto lowest = shuffle<[](int i) { return i; }, lanes / 2>(low, low);
    return deinterleaved(join<T>(lowest, load<Half>(z + lanes)), joinHigh(low, load<T>(z + lanes)));
  } else {
    const T a = load<T>(z), b = load<T>(z + lanes);
    return {shuffle<[](int i) { return 2 * i; }>(a, b),
            shuffle<[](int i) { return 2 * i + 1; }>(a, b)};
  }
}

}  // namespace mox
