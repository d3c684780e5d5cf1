// How the passes of a transform hold the numbers in between. All views give kernels pairs of
// vectors, at an index that counts numbers.
#pragma once

#include <concepts>

#include "arith/mul_constant.h"
#include "frame/complex_views.h"

namespace mox::transforms {

// What the passes work on: Blocks, or the caller's own arrays where they are split.
template <class A>
concept Area = requires(A area, long i, Pair<V<typename A::F>> numbers) {
  { area.from(i) } -> std::same_as<A>;
  { area.pair(i) } -> std::same_as<Pair<V<typename A::F>>>;
  area.putPair(i, numbers);
};

// A vector of real parts, one of their imaginary parts, and so on.
template <class F_>
struct Blocks {
  using F = F_;
  F* data;

  Blocks from(long i) const { return {data + 2 * i}; }

  [[gnu::always_inline]] Pair<V<F>> pair(long i) const {
    return {load<V<F>>(data + 2 * i), load<V<F>>(data + 2 * i + lanesOf<F>)};
  }
  [[gnu::always_inline]] void putPair(long i, Pair<V<F>> z) const {
    store(data + 2 * i, z.re);
    store(data + 2 * i + lanesOf<F>, z.im);
  }
};

// One number in half a register, its parts side by side; or in two registers, where memory has them
// apart.
[[gnu::always_inline]] inline V<Mox32f, 4> loadNumber(Array<const Mox32fc> view, long i) {
  return V<Mox32f, 4>(V<Mox64f, 2>{load<Mox64f>(view.p + i), 0});
}
[[gnu::always_inline]] inline void storeNumber(Array<Mox32fc> view, long i, V<Mox32f, 4> z) {
  store(view.p + i, V<Mox64f, 2>(z)[0]);
}
[[gnu::always_inline]] inline V<Mox64f, 2> loadNumber(Array<const Mox64fc> view, long i) {
  return load<V<Mox64f, 2>>(view.p + i);
}
[[gnu::always_inline]] inline void storeNumber(Array<Mox64fc> view, long i, V<Mox64f, 2> z) {
  store(view.p + i, z);
}
template <class F>
[[gnu::always_inline]] inline Pair<F> loadNumber(Split<const F> view, long i) {
  return view.number(i);
}
template <class F>
[[gnu::always_inline]] inline void storeNumber(Split<F> view, long i, Pair<F> z) {
  view.putNumber(i, z);
}

template <class F>
void scale(Blocks<F> view, F factor, long count) {
  arith::ownsMulC_I(factor, view.data, 2 * count);
}
template <class E>
void scale(Array<E> view, Part<E> factor, long count) {
  arith::ownsMulC_I(factor, parts(view.p), 2 * count);
}
template <class F>
void scale(Split<F> view, F factor, long count) {
  arith::ownsMulC_I(factor, view.re, count);
  arith::ownsMulC_I(factor, view.im, count);
}

template <class E>
bool sameArrays(Array<const E> a, Array<E> b) {
  return a.p == b.p;
}
template <class F>
bool sameArrays(Split<const F> a, Split<F> b) {
  return a.re == b.re || a.im == b.im;
}

// Where the mid path holds the data between passes: in an aligned destination that isn't the
// source, else in the work memory.
template <class E>
Blocks<Part<E>> midArea(Array<const E> src, Array<E> dst, Part<E>* work) {
  return {!sameArrays(src, dst) && dst.aligned() ? parts(dst.p) : work};
}
template <class F>
Blocks<F> midArea(Split<const F>, Split<F>, F* work) {
  return {work};
}

// Where the large path does: in the destination, in blocks unless its parts are split anyway.
template <class E>
Blocks<Part<E>> largeArea(Array<E> dst) {
  return {parts(dst.p)};
}
template <class F>
Split<F> largeArea(Split<F> dst) {
  return dst;
}

}  // namespace mox::transforms
