// The drivers of element-wise kernels: a peel until the destination is aligned, blocks of vectors,
// and a tail; all three apply the same operation.
#pragma once

#include <algorithm>

#include "frame/elements.h"
#include "frame/vec/vec.h"
#include "frame/widen.h"

namespace mox {

// Elements before `p` reaches the alignment; none when it never does.
template <int alignment = vectorBytes, class E>
int peelCount(const E* p) {
  const int past = int(addressOf(p) & (alignment - 1)), missing = past ? alignment - past : 0;
  return missing % int(sizeof(E)) ? 0 : missing / int(sizeof(E));
}

// Whether the stores of a large call bypass the cache.
enum class Stores { cached, bypassing };

// Beyond this many bytes, sources and destination together, the last-level cache would hand the
// destination's lines on to memory anyway, having read them first.
constexpr long bypassBytes = 24L << 20;

// A source whose elements are all the same: functions with a constant pass it where others pass an
// array.
template <class E>
struct Same {
  E value;
};

// A source whose element i is first + step * i, the product and the sum each rounded.
template <class E>
struct Ramp {
  E first, step;
};

namespace detail {
template <class E>
E elementOf(const E*);
template <class E>
E elementOf(Same<E>);
template <class E>
E elementOf(Ramp<E>);
}  // namespace detail

// The element type of a source, be it an array, a constant or a ramp.
template <class Source>
using ElementOf = decltype(detail::elementOf(std::declval<Source>()));

// One element as an operation sees it: complex ones are a vector of two parts.
template <class E>
using Single = typename std::conditional_t<Complex<E>, detail::VectorOf<Part<E>, 2>,
                                           std::type_identity<E>>::type;

// The parts of the elements from i on, each widened to a lane of `Wide`.
template <class Wide, class E>
[[gnu::always_inline]] inline Wide lanesFrom(const E* src, long i) {
  return loadWidened<Wide>(parts(src + i));
}
template <class Wide, class E>
[[gnu::always_inline]] inline Wide lanesFrom(Same<E> src, long) {
  constexpr int count = partsPerElement<E>;
  Wide first = {};
  for (int part = 0; part < count; ++part) first[part] = Lane<Wide>(parts(&src.value)[part]);
  // Unlike lanes set one by one, a shuffle moves out of the loop around it.
  return shuffle<[](int i) { return i % count; }>(first);
}

template <class Wide, class E>
[[gnu::always_inline]] inline Wide lanesFrom(Ramp<E> src, long i) {
  Wide index = {};
  for (int lane = 0; lane < laneCount<Wide>; ++lane) index[lane] = lane / partsPerElement<E>;
  index += Lane<Wide>(i);
  return index * lanesFrom<Wide>(Same<E>{src.step}, i) + lanesFrom<Wide>(Same<E>{src.first}, i);
}

template <class E>
[[gnu::always_inline]] inline Single<E> singleFrom(const E* src, long i) {
  return load<Single<E>>(src + i);
}
template <class E>
[[gnu::always_inline]] inline Single<E> singleFrom(Same<E> src, long) {
  return load<Single<E>>(&src.value);
}
template <class E>
[[gnu::always_inline]] inline Single<E> singleFrom(Ramp<E> src, long i) {
  return load<Single<E>>(&src.step) * Part<E>(i) + load<Single<E>>(&src.first);
}

// One part of element i; a real element stands for both parts.
template <class E>
[[gnu::always_inline]] inline Part<E> partFrom(const E* src, long i, int part) {
  return load<Part<E>>(parts(src + i) + part % partsPerElement<E>);
}
template <class E>
[[gnu::always_inline]] inline Part<E> partFrom(Same<E> src, long, int part) {
  return parts(&src.value)[part % partsPerElement<E>];
}

template <class D, class Source>
bool isSameArray(const D* dst, Source src) {
  if constexpr (std::is_pointer_v<Source>)
    return addressOf(dst) == addressOf(src);
  else
    return false;
}

// Whether a block of `bytes` of results overwrites elements of `src` that come after it.
template <class D, class Source>
bool runsAhead(const D* dst, Source src, long bytes) {
  if constexpr (std::is_pointer_v<Source>)
    return addressOf(dst) - addressOf(src) - 1 < std::uintptr_t(bytes - 1);
  else
    return false;
}

// A destination that is read as well is in the cache already.
template <Stores stores, class D, class... Source>
bool bypasses(const D* dst, long len, Source... src) {
  constexpr long bytes =
      sizeof(D) + ((std::is_pointer_v<Source> ? sizeof(ElementOf<Source>) : 0) + ... + 0);
  return stores == Stores::bypassing && len > bypassBytes / bytes &&
         !(isSameArray(dst, src) || ...);
}

// Runs one(i) for single elements and eachBlock(i, put) for blocks of elements from i on, which
// stores its vectors through put(place, vector). `fewer`, where there is one, does the same for
// `step` elements, of what is left for the tail.
template <long block, int alignment = vectorBytes, long step = block, class D, class One,
          class Block, class... Fewer>
[[gnu::always_inline]] inline void forBlocks(bool bypass, D* dst, long len, One one,
                                             Block eachBlock, Fewer... fewer) {
  const auto plain = [](void* p, auto v) { store(p, v); };
  const auto stream = [](void* p, auto v) { storeStream(p, v); };
  long i = 0;
  if (const int peel = peelCount<alignment>(dst); peel + block <= len) {
    for (; i < peel; ++i) one(i);
    if (bypass && isAligned(dst + i, alignment)) {
      for (; i <= len - block; i += block) eachBlock(i, stream);
      streamFence();
    } else {
      for (; i <= len - block; i += block) eachBlock(i, plain);
    }
  }
  if constexpr (sizeof...(fewer) > 0)
    for (; i <= len - step; i += step) (fewer(i, plain), ...);
  for (; i < len; ++i) one(i);
}

// Runs eachBlock(from, to, put) for whole blocks of `count` elements only. What is left goes
// through a block of its own, filled up with copies of its last element.
template <long count, class S, class D, class Block>
[[gnu::always_inline]] inline void forWholeBlocks(bool bypass, const S* src, D* dst, long len,
                                                  Block eachBlock) {
  const auto plain = [](void* p, auto v) { store(p, v); };
  const auto stream = [](void* p, auto v) { storeStream(p, v); };
  const auto part = [&](long from, long elements) {
    S in[count];
    D out[count];
    for (long j = 0; j < count; ++j) in[j] = load<S>(src + from + std::min(j, elements - 1));
    eachBlock(in, out, plain);
    for (long j = 0; j < elements; ++j) store(dst + from + j, out[j]);
  };
  // Only stores that bypass the cache want an aligned destination.
  long i = bypass ? std::min(long(peelCount(dst)), len) : 0;
  if (i > 0) part(0, i);
  if (bypass && isAligned(dst + i, vectorBytes)) {
    for (; i <= len - count; i += count) eachBlock(src + i, dst + i, stream);
    streamFence();
  } else {
    for (; i <= len - count; i += count) eachBlock(src + i, dst + i, plain);
  }
  if (i < len) part(i, len - i);
}

// dst[i] = op(src[i]...), where a source is an array, `Same` or `Ramp`. `op` takes scalars or
// vectors, complex elements as interleaved parts; results are stored before the next are made,
// which keeps the processor's loads and stores in step, so that `dst` may be one of the sources. An
// operation that takes long by itself gains nothing from a block of several vectors, and has a
// shorter tail without.
template <Stores stores = Stores::cached, int width = vectorBytes, long leastBlock = 16, class D,
          class Op, class... Source>
[[gnu::always_inline]] inline void mapElements(Op op, D* dst, long len, Source... src) {
  constexpr long lanes = width / long(std::max({sizeof(D), sizeof(ElementOf<Source>)...}));
  // The same number of bytes through narrow registers takes more instructions: share the loop's.
  constexpr long vecsAtLeast = width < vectorBytes ? 4 : 1;
  constexpr long block = std::max(vecsAtLeast * lanes, leastBlock), vecs = block / lanes;
  const auto atLanes = [&]<class E>(std::type_identity<E>, auto source, long i) {
    return lanesFrom<V<Part<E>, lanes * partsPerElement<E>>>(source, i);
  };
  const auto vectors = [&]<int count>(std::integral_constant<int, count>) {
    return [&](long i, auto put) __attribute__((always_inline)) {
      for (long j = i; j < i + count * lanes; j += lanes)
        put(dst + j, V<Part<D>, lanes * partsPerElement<D>>(
                         op(atLanes(std::type_identity<ElementOf<Source>>(), src, j)...)));
    };
  };
  forBlocks<block, vectorBytes, lanes>(
      bypasses<stores>(dst, len, src...), dst, len,
      [&](long i) { store(dst + i, Single<D>(op(singleFrom(src, i)...))); },
      vectors(std::integral_constant<int, vecs>()), vectors(std::integral_constant<int, 1>()));
}

// The same with sources widened to the lanes of `Wide`. `op` takes vectors only: a single element
// goes through the first lane of one.
template <class Wide, Stores stores = Stores::cached, class D, class Op, class... Source>
[[gnu::always_inline]] inline void mapWidened(Op op, D* dst, long len, Source... src) {
  constexpr long lanes = laneCount<Wide>, vecs = 16 / lanes;
  forBlocks<16>(
      bypasses<stores>(dst, len, src...), dst, len,
      [&](long i) { store(dst + i, D(op(Wide{Lane<Wide>(partFrom(src, i, 0))}...)[0])); },
      [&](long i, auto put) {
        decltype(op(lanesFrom<Wide>(src, 0)...)) r[vecs];
        for (int j = 0; j < vecs; ++j) r[j] = op(lanesFrom<Wide>(src, i + j * lanes)...);
        for (int j = 0; j < vecs; ++j) put(dst + i + j * lanes, r[j]);
      });
}

}  // namespace mox
