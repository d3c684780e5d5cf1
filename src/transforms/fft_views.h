// The layouts in which transforms meet complex data, behind one shape: `load` and `store` move a
// vector of consecutive numbers as a pair of vectors of parts, at an index counted in numbers.
// `loadParted` and `storeParted` may have them in another order, lane i holding number column(i),
// where that saves instructions.
#pragma once

#include <type_traits>

#include "transforms/pairs.h"

namespace mox {

enum class Direction { forward, inverse };

// An array of complex elements.
template <class P>
struct Interleaved {
  using F = std::remove_const_t<P>;
  static constexpr int lanes = lanesOf<F>;
  P* parts;

  Interleaved operator+(long i) const { return {parts + 2 * i}; }
  template <class T = V<F>>
  [[gnu::always_inline]] Pair<T> loadParted(long i) const {
    return loadPairs<T>(parts + 2 * i);
  }
  template <int width = lanes>
  static constexpr int column(int lane) {
    return detail::PartingOrder<F, width>::realPart(lane) / 2;
  }
  template <class T>
  [[gnu::always_inline]] void storeParted(long i, Pair<T> z) const {
    storePairs(parts + 2 * i, z);
  }
  [[gnu::always_inline]] Pair<V<F>> load(long i) const {
    constexpr int half = 16 / sizeof(F);
    const auto halfAt = [&](int n) { return mox::load<V<F, half>>(parts + 2 * i + n * half); };
    const auto join = [&]<int... k>(V<F, half> a, V<F, half> b, std::integer_sequence<int, k...>) {
      return V<F>(__builtin_shufflevector(a, b, k...));
    };
    constexpr auto inOrder = std::make_integer_sequence<int, lanes>();
    const V<F> a = join(halfAt(0), halfAt(2), inOrder), b = join(halfAt(1), halfAt(3), inOrder);
    using Order = detail::PartingOrder<F, lanes>;
    return {shuffle<Order::realPart>(a, b), shuffle<Order::imaginaryPart>(a, b)};
  }
  [[gnu::always_inline]] void store(long i, Pair<V<F>> z) const {
    constexpr int half = lanes / 2;
    const V<F> a = shuffle<detail::PartingOrder<F, lanes>::joinedLow>(z.re, z.im);
    const V<F> b = shuffle<detail::PartingOrder<F, lanes>::joinedHigh>(z.re, z.im);
    constexpr auto lowHalves = [](int k) { return k < half ? k : k + half; };
    constexpr auto highHalves = [](int k) { return k < half ? k + half : k + lanes; };
    mox::store(parts + 2 * i, shuffle<lowHalves>(a, b));
    mox::store(parts + 2 * i + lanes, shuffle<highHalves>(a, b));
  }
};

// An array of real and an array of imaginary parts.
template <class P>
struct Split {
  using F = std::remove_const_t<P>;
  static constexpr int lanes = lanesOf<F>;
  P* re;
  P* im;

  Split operator+(long i) const { return {re + i, im + i}; }
  template <class T = V<F>>
  [[gnu::always_inline]] Pair<T> loadParted(long i) const {
    return {mox::load<T>(re + i), mox::load<T>(im + i)};
  }
  template <int width = lanes>
  static constexpr int column(int lane) {
    return lane;
  }
  template <class T>
  [[gnu::always_inline]] void storeParted(long i, Pair<T> z) const {
    mox::store(re + i, z.re);
    mox::store(im + i, z.im);
  }
  [[gnu::always_inline]] Pair<V<F>> load(long i) const { return loadParted(i); }
  [[gnu::always_inline]] void store(long i, Pair<V<F>> z) const { storeParted(i, z); }
};

// The layout between passes: a vector of real parts, then the vector of their imaginary parts, and
// so on. Indices are multiples of the lane count.
template <class P>
struct BlockSplit {
  using F = std::remove_const_t<P>;
  static constexpr int lanes = lanesOf<F>;
  P* blocks;

  BlockSplit operator+(long i) const { return {blocks + 2 * i}; }
  [[gnu::always_inline]] Pair<V<F>> load(long i) const {
    return {mox::load<V<F>>(blocks + 2 * i), mox::load<V<F>>(blocks + 2 * i + lanes)};
  }
  [[gnu::always_inline]] void store(long i, Pair<V<F>> z) const {
    mox::store(blocks + 2 * i, z.re);
    mox::store(blocks + 2 * i + lanes, z.im);
  }
};

template <class F>
bool sameArrays(Interleaved<const F> a, Interleaved<F> b) {
  return a.parts == b.parts;
}
template <class F>
bool sameArrays(Split<const F> a, Split<F> b) {
  return a.re == b.re && a.im == b.im;
}

}  // namespace mox
