// How the passes of a transform hold the numbers in between. All views give kernels pairs of
// vectors, at an index that counts numbers.
#pragma once

#include "arith/mul_constant.h"
#include "frame/complex_views.h"

namespace mox::transforms {

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
