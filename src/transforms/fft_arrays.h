// How callers hold complex data: interleaved, or real and imaginary parts in arrays of their own.
// Both give the same vectors to the kernels.
#pragma once

#include "transforms/complex_vector.h"

namespace mox {

// Parts of lanesOf<F> numbers to and from interleaved order.
template <class F>
struct InterleavedParts {
  V<F> low, high;
};
template <class F>
[[gnu::always_inline]] inline InterleavedParts<F> interleaved(Lanes<V<F>> z) {
  const V<F> a = unpackLow<F>(z.re, z.im), b = unpackHigh<F>(z.re, z.im);
  return {joinLow(a, b), joinHigh(a, b)};
}
template <class F>
[[gnu::always_inline]] inline Lanes<V<F>> separated(V<F> low, V<F> high) {
  const V<F> a = joinLow(low, high), b = joinHigh(low, high);
  constexpr int lanes = lanesOf<F>, block = 16 / sizeof(F);
  constexpr auto even = [](int i) {
    const int j = i % block * 2;
    return (j < block ? 0 : lanes - block) + i / block * block + j;
  };
  return {shuffle<even>(a, b), shuffle<[](int i) { return even(i) + 1; }>(a, b)};
}

template <class F>
struct Interleaved {
  using Number = F;
  F* data;

  Interleaved from(long i) const { return {data + 2 * i}; }

  // An aligned destination that isn't the source holds the data between the passes itself.
  F* workArea(Interleaved dst, F* work) const {
    return dst.data != data && isAligned(dst.data, vectorBytes) ? dst.data : work;
  }

  // numbersInMixed<F> numbers from number i on.
  [[gnu::always_inline]] Mixed<F> mixed(long i) const { return {load<V<F>>(data + 2 * i)}; }
  [[gnu::always_inline]] void putMixed(long i, Mixed<F> z) const { store(data + 2 * i, z.v); }

  // lanesOf<F> numbers.
  [[gnu::always_inline]] Lanes<V<F>> lanes(long i) const {
    return separated<F>(load<V<F>>(data + 2 * i), load<V<F>>(data + 2 * i + lanesOf<F>));
  }
  [[gnu::always_inline]] void putLanes(long i, Lanes<V<F>> z) const {
    const auto [low, high] = interleaved<F>(z);
    store(data + 2 * i, low);
    store(data + 2 * i + lanesOf<F>, high);
  }

  [[gnu::always_inline]] Lanes<F> number(long i) const {
    return {load<F>(data + 2 * i), load<F>(data + 2 * i + 1)};
  }
  [[gnu::always_inline]] void putNumber(long i, Lanes<F> z) const {
    store(data + 2 * i, z.re);
    store(data + 2 * i + 1, z.im);
  }
};

template <class F>
struct Split {
  using Number = F;
  F *re, *im;

  Split from(long i) const { return {re + i, im + i}; }
  F* workArea(Split, F* work) const { return work; }

  [[gnu::always_inline]] Mixed<F> mixed(long i) const {
    using Half = V<F, numbersInMixed<F>>;
    const Half a = load<Half>(re + i), b = load<Half>(im + i);
    return {[&]<int... k>(std::integer_sequence<int, k...>){
        return V<F>(__builtin_shufflevector(a, b, (k % 2 * numbersInMixed<F> + k / 2)...));
  }
  (std::make_integer_sequence<int, lanesOf<F>>())
};
}  // namespace mox
[[gnu::always_inline]] void putMixed(long i, Mixed<F> z) const {
  [&]<int... k>(std::integer_sequence<int, k...>) {
    store(re + i, __builtin_shufflevector(z.v, z.v, (2 * k)...));
    store(im + i, __builtin_shufflevector(z.v, z.v, (2 * k + 1)...));
  }
  (std::make_integer_sequence<int, numbersInMixed<F>>());
}

[[gnu::always_inline]] Lanes<V<F>> lanes(long i) const {
  return {load<V<F>>(re + i), load<V<F>>(im + i)};
}
[[gnu::always_inline]] void putLanes(long i, Lanes<V<F>> z) const {
  store(re + i, z.re);
  store(im + i, z.im);
}

[[gnu::always_inline]] Lanes<F> number(long i) const { return {load<F>(re + i), load<F>(im + i)}; }
[[gnu::always_inline]] void putNumber(long i, Lanes<F> z) const {
  store(re + i, z.re);
  store(im + i, z.im);
}
}
;

// The work layout between the first and the last pass: blocks of lanesOf<F> real parts followed by
// their imaginary parts. Number i, a multiple of lanesOf<F>, starts at 2 i.
template <class F>
[[gnu::always_inline]] inline Lanes<V<F>> loadBlock(const F* area) {
  return {load<V<F>>(area), load<V<F>>(area + lanesOf<F>)};
}
template <class F>
[[gnu::always_inline]] inline void storeBlock(F* area, Lanes<V<F>> z) {
  storeAligned(area, z.re);
  storeAligned(area + lanesOf<F>, z.im);
}

}  // namespace mox
