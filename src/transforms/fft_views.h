// How callers hold complex data, interleaved or split into real and imaginary parts, and how the
// passes hold them in between. All give the same vectors to the kernels, at an index that counts
// numbers.
#pragma once

#include <type_traits>

#include "arith/mul_constant.h"
#include "transforms/complex_vector.h"

namespace mox {

// An array of complex elements.
template <class P>
struct Interleaved {
  using F = std::remove_const_t<P>;
  P* parts;

  Interleaved from(long i) const { return {parts + 2 * i}; }

  // numbersInMixed<F> numbers.
  [[gnu::always_inline]] Mixed<F> mixed(long i) const { return {load<V<F>>(parts + 2 * i)}; }
  [[gnu::always_inline]] void putMixed(long i, Mixed<F> z) const { store(parts + 2 * i, z.v); }

  // lanesOf<F> numbers.
  [[gnu::always_inline]] void putLanes(long i, Lanes<V<F>> z) const {
    const V<F> a = unpackLow<F>(z.re, z.im), b = unpackHigh<F>(z.re, z.im);
    store(parts + 2 * i, joinLow(a, b));
    store(parts + 2 * i + lanesOf<F>, joinHigh(a, b));
  }

  Lanes<F> number(long i) const { return {load<F>(parts + 2 * i), load<F>(parts + 2 * i + 1)}; }
  void putNumber(long i, Lanes<F> z) const {
    store(parts + 2 * i, z.re);
    store(parts + 2 * i + 1, z.im);
  }

  void scale(F factor, long count) const { ownsMulC_I(factor, parts, 2 * count); }
};

// An array of real and an array of imaginary parts.
template <class P>
struct Split {
  using F = std::remove_const_t<P>;
  P *re, *im;

  Split from(long i) const { return {re + i, im + i}; }

  [[gnu::always_inline]] Mixed<F> mixed(long i) const {
    constexpr int n = numbersInMixed<F>;
    const auto a = load<V<F, n>>(re + i), b = load<V<F, n>>(im + i);
    return {shuffle<[](int k) { return k % 2 * n + k / 2; }, 2 * n>(a, b)};
  }
  [[gnu::always_inline]] void putMixed(long i, Mixed<F> z) const {
    constexpr int n = numbersInMixed<F>;
    store(re + i, shuffle<[](int k) { return 2 * k; }, n>(z.v, z.v));
    store(im + i, shuffle<[](int k) { return 2 * k + 1; }, n>(z.v, z.v));
  }

  [[gnu::always_inline]] Lanes<V<F>> lanes(long i) const {
    return {load<V<F>>(re + i), load<V<F>>(im + i)};
  }
  [[gnu::always_inline]] void putLanes(long i, Lanes<V<F>> z) const {
    store(re + i, z.re);
    store(im + i, z.im);
  }

  Lanes<F> number(long i) const { return {load<F>(re + i), load<F>(im + i)}; }
  void putNumber(long i, Lanes<F> z) const {
    store(re + i, z.re);
    store(im + i, z.im);
  }

  void scale(F factor, long count) const {
    ownsMulC_I(factor, re, count);
    ownsMulC_I(factor, im, count);
  }
};

// The layout between passes: lanesOf<F> real parts, their imaginary parts, and so on.
template <class F_>
struct Blocks {
  using F = F_;
  F* data;

  Blocks from(long i) const { return {data + 2 * i}; }

  [[gnu::always_inline]] Lanes<V<F>> lanes(long i) const {
    return {load<V<F>>(data + 2 * i), load<V<F>>(data + 2 * i + lanesOf<F>)};
  }
  [[gnu::always_inline]] void putLanes(long i, Lanes<V<F>> z) const {
    store(data + 2 * i, z.re);
    store(data + 2 * i + lanesOf<F>, z.im);
  }

  void scale(F factor, long count) const { ownsMulC_I(factor, data, 2 * count); }
};

template <class F>
bool sameArrays(Interleaved<const F> a, Interleaved<F> b) {
  return a.parts == b.parts;
}
template <class F>
bool sameArrays(Split<const F> a, Split<F> b) {
  return a.re == b.re || a.im == b.im;
}

// Where the mid path holds the data between passes: in an aligned destination that isn't the
// source, else in the work memory.
template <class F>
Blocks<F> midArea(Interleaved<const F> src, Interleaved<F> dst, F* work) {
  const bool inDst = !sameArrays(src, dst) && isAligned(dst.parts, vectorBytes);
  return {inDst ? dst.parts : work};
}
template <class F>
Blocks<F> midArea(Split<const F>, Split<F>, F* work) {
  return {work};
}

// Where the large path does: in the destination, in blocks unless its parts are split anyway.
template <class F>
Blocks<F> largeArea(Interleaved<F> dst) {
  return {dst.parts};
}
template <class F>
Split<F> largeArea(Split<F> dst) {
  return dst;
}

}  // namespace mox
