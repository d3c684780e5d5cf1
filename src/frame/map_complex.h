// The driver of functions on complex numbers, whose parts lie interleaved in one array or apart in
// two; results come in these shapes as well. A shape tells where elements are:
//   lanes<T>(i)           those from i on as a vector T, or a Pair of it if they are complex
//   store(i, value, put)  the same way back, through put(place, vector)
//   from(i)               the shape without its first i elements
//   Piece                 room for a block of elements, with a shape of its own, array()
#pragma once

#include <algorithm>

#include "frame/map.h"
#include "frame/pair.h"

namespace mox {

constexpr long complexBlock = 16;

// Consecutive numbers from `z` on, each part widened to a lane of T.
template <class T, class F>
[[gnu::always_inline]] inline Pair<T> loadPartedAs(const F* z) {
  constexpr int lanes = laneCount<T>;
  if constexpr (std::is_same_v<F, Lane<T>>) {
    return loadParted<T>(z);
  } else if constexpr (lanes == 8) {
    const Pair low = loadPartedAs<V<Mox32s, 4>>(z), high = loadPartedAs<V<Mox32s, 4>>(z + lanes);
    return {floatsOf(join<V<Mox32s, 8>>(low.re, high.re)),
            floatsOf(join<V<Mox32s, 8>>(low.im, high.im))};
  } else if constexpr (std::is_same_v<T, V<Mox32s, 4>>) {
    const T words = load<T>(z);
    return {T(V<Mox32u, 4>(words) << 16) >> 16, words >> 16};
  } else {
    using Exact = std::conditional_t<sizeof(F) == 2, Mox32s, F>;
    const auto parts = loadPartedAs<V<Exact, lanes>>(z);
    return {__builtin_convertvector(parts.re, T), __builtin_convertvector(parts.im, T)};
  }
}

template <class T>
[[gnu::always_inline]] inline void storeInterleaved(Lane<T>* z, Pair<T> v, auto put) {
  const T low = interleavedLow(v), high = interleavedHigh(v);
  if constexpr (sizeof(T) == 16)
    put(z, low), put(z + laneCount<T>, high);
  else
    put(z, joinLow(low, high)), put(z + laneCount<T>, joinHigh(low, high));
}

// One array, of real or of complex elements.
template <class E>
struct Array {
  using Value = std::remove_const_t<E>;
  static constexpr long bytes = sizeof(E);

  E* p;

  struct Piece {
    alignas(vectorBytes) Value e[complexBlock];
    Array array() { return {e}; }
    void load(Array src, long count) {
      for (long at = 0; at < long(sizeof e); at += vectorBytes)
        storeAligned(reinterpret_cast<Mox8u*>(e) + at, V<Mox8u>{});
      std::memcpy(e, src.p, std::size_t(count * bytes));
    }
    void store(Array dst, long count) const { std::memcpy(dst.p, e, std::size_t(count * bytes)); }
  };

  bool anyNull() const { return p == nullptr; }
  Array from(long i) const { return {p + i}; }
  int peel() const { return peelCount(p); }
  bool aligned() const { return isAligned(p, vectorBytes); }

  template <class T>
  [[gnu::always_inline]] auto lanes(long i) const {
    if constexpr (Complex<Value>)
      return loadPartedAs<T>(parts(p + i));
    else
      return loadWidened<T>(p + i);
  }
  template <class T>
  [[gnu::always_inline]] void store(long i, T v, auto put) const {
    if constexpr (Complex<Value>)
      storeInterleaved(parts(p + i), v, put);
    else
      put(p + i, v);
  }
};

// Two arrays of the parts of complex elements.
template <class F>
struct TwoArrays {
  static constexpr long bytes = 2 * sizeof(F);

  F *re, *im;

  struct Piece {
    typename Array<F>::Piece re, im;
    TwoArrays array() { return {re.e, im.e}; }
    void load(TwoArrays src, long count) { re.load({src.re}, count), im.load({src.im}, count); }
    void store(TwoArrays dst, long count) const {
      re.store({dst.re}, count), im.store({dst.im}, count);
    }
  };

  bool anyNull() const { return re == nullptr || im == nullptr; }
  TwoArrays from(long i) const { return {re + i, im + i}; }
  int peel() const { return peelCount(re); }
  bool aligned() const { return isAligned(re, vectorBytes) && isAligned(im, vectorBytes); }

  template <class T>
  [[gnu::always_inline]] Pair<T> lanes(long i) const {
    return {loadWidened<T>(re + i), loadWidened<T>(im + i)};
  }
  template <class T>
  [[gnu::always_inline]] void store(long i, Pair<T> v, auto put) const {
    put(re + i, v.re);
    put(im + i, v.im);
  }
};

namespace detail {

// Elements in parts that fill no more than a block: empty lanes compute the function of 0.
template <class Op, class Source, class Target>
[[gnu::noinline]] void mapParts(Op op, Source src, Target dst, long len) {
  for (long i = 0; i < len; i += complexBlock) {
    const long count = std::min(complexBlock, len - i);
    typename Source::Piece in;
    typename Target::Piece out;
    in.load(src.from(i), count);
    for (int j = 0; j < complexBlock; j += Op::lanes)
      out.array().store(j, op(in.array(), j), [](void* p, auto v) { storeAligned(p, v); });
    out.store(dst.from(i), count);
  }
}

// From a place on where `dst` is aligned, if it ever is. It calls another function as its last act
// only, and so need not save registers, which a short call would notice.
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
    for (; i <= len - block; i += block)
      dst.store(i, op(src, i), [](void* p, auto v) { mox::store(p, v); });
  }
  if (i < len) mapParts(op, src.from(i), dst.from(i), len - i);
}

}  // namespace detail

// Applies `op` to all elements: op(src, i) makes the results from element i on, Op::lanes of them;
// they are stored before the next are made, so that `dst` may be a source.
template <Stores stores = Stores::cached, class Op, class Source, class Target>
[[gnu::always_inline]] inline void mapComplex(Op op, Source src, Target dst, long len) {
  if (const long peel = std::min(long(dst.peel()), len)) {
    detail::mapParts(op, src, dst, peel);
    src = src.from(peel), dst = dst.from(peel), len -= peel;
  }
  detail::mapFromBoundary<stores>(op, src, dst, len);
}

}  // namespace mox
