// The driver of functions on complex numbers: from arrays of real or complex elements, or of their
// parts, to such arrays.
#pragma once

#include <algorithm>

#include "frame/complex_views.h"
#include "frame/map.h"

namespace mox {

// op(src, i) makes the results from element i on, Op::lanes of them. An operation in the widest
// registers may name one in narrower ones as Op::Narrower, for what does not fill them.
template <class Op, class Source>
concept ComplexOperation = ComplexView<Source> && requires(Op op, Source src, long i) {
  Op::lanes;
  op(src, i);
};

// An operation in the widest registers of E. Where these are wider than V<E>, its Narrower form
// works in V<E>.
template <template <class> class Lanes, class E>
struct InWidest : Lanes<Register<E>> {
  using Narrower = Lanes<V<E>>;
};
template <template <class> class Lanes, class E>
requires std::is_same_v<Register<E>, V<E>>
struct InWidest<Lanes, E> : Lanes<V<E>> {
};

namespace detail {

// Elements in parts that fill no more than the lanes: empty ones compute the function of 0.
template <class Op, class Source, class Target>
[[gnu::noinline]] void mapParts(Op op, Source src, Target dst, long len) {
  for (long i = 0; i < len; i += Op::lanes) {
    const long count = std::min(long(Op::lanes), len - i);
    typename Source::template Piece<Op::lanes> in;
    typename Target::template Piece<Op::lanes> out;
    in.load(src.from(i), count);
    out.array().store(0, op(in.array(), 0), [](void* p, auto v) { storeAligned(p, v); });
    out.store(dst.from(i), count);
  }
}

template <Stores stores, class Op, class Source, class Target>
void mapFromBoundary(Op op, Source src, Target dst, long len);

template <class Op, class Source, class Target>
[[gnu::always_inline]] inline void mapRest(Op op, Source src, Target dst, long len) {
  if constexpr (requires { typename Op::Narrower; })
    mapFromBoundary<Stores::cached>(typename Op::Narrower(), src, dst, len);
  else
    mapParts(op, src, dst, len);
}

// From a place on where `dst` is aligned, if it ever is. The last call is a tail call, so no
// registers are saved: short arrays gain.
template <Stores stores, class Op, class Source, class Target>
[[gnu::noinline]] void mapFromBoundary(Op op, Source src, Target dst, long len) {
  constexpr long block = Op::lanes;
  const bool bypass = stores == Stores::bypassing &&
                      len > bypassBytes / (Source::bytes + Target::bytes) && dst.aligned();
  long i = 0;
  if (bypass) {
    for (; i <= len - block; i += block)
      dst.store(i, op(src, i), [](void* p, auto v) { storeStream(p, v); });
    streamFence();
  } else {
    // A round of few instructions takes up to twice as long where it crosses a cache line.
#pragma GCC unroll 2
    for (; i <= len - block; i += block)
      dst.store(i, op(src, i), [](void* p, auto v) { mox::store(p, v); });
  }
  if (i < len) mapRest(op, src.from(i), dst.from(i), len - i);
}

}  // namespace detail

// Applies `op` to all elements. Results are stored before the next are made, so that `dst` may be a
// source.
template <Stores stores = Stores::cached, class Op, ComplexView Source, ComplexView Target>
requires ComplexOperation<Op, Source>
[[gnu::always_inline]] inline void mapComplex(Op op, Source src, Target dst, long len) {
  if (const long peel = dst.peel(); peel > 0 && peel + Op::lanes <= len) {
    detail::mapRest(op, src, dst, peel);
    src = src.from(peel), dst = dst.from(peel), len -= peel;
  }
  detail::mapFromBoundary<stores>(op, src, dst, len);
}

}  // namespace mox
