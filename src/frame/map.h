// The drivers of element-wise kernels. The destination is filled in steps of whole registers, of
// which the first and the last one overlap their neighbours; arrays shorter than a step are filled
// in narrower ones.
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
bool bypasses([[maybe_unused]] const D* dst, long len, Source... src) {
  constexpr long bytes =
      sizeof(D) + ((std::is_pointer_v<Source> ? sizeof(ElementOf<Source>) : 0) + ... + 0);
  return stores == Stores::bypassing && len > bypassBytes / bytes &&
         !(isSameArray(dst, src) || ...);
}

namespace detail {

template <int n>
constexpr std::integral_constant<int, n> stepOf;

template <class T, int count>
[[gnu::always_inline]] inline void putRegisters(void* dst, const Registers<T, count>& r, auto put) {
  for (int j = 0; j < count; ++j) put(static_cast<char*>(dst) + j * sizeof(T), r.of[j]);
}

constexpr auto plainly = [](void* p, auto v) { store(p, v); };
constexpr auto bypassingCache = [](void* p, auto v) { storeStream(p, v); };

template <int step, class D>
constexpr int stepAlignment = sizeof(D) % 3 ? std::min(widestBytes, step* int(sizeof(D))) : 16;
// Where the loop starts: at the last element at or below `step` where `dst` is aligned, if there is
// one. A branch lets the loop begin before the answer is there. Two sources that are aligned at
// `step` outweigh the destination, unless its stores are to bypass the cache.
template <int step, class D, class... Source>
long alignedStart(bool bypass, const D* dst, Source... src) {
  constexpr int alignment = stepAlignment<step, D>;
  const auto past = addressOf(dst + step) & (alignment - 1);
  if (past == 0) [[likely]]
    return step;
  if constexpr (sizeof...(Source) > 1 && (std::is_pointer_v<Source> && ...))
    if (!bypass && (isAligned(src, alignment) && ...)) return step;
  return past % sizeof(D) ? step : step - long(past / sizeof(D));
}

}  // namespace detail

// Fills dst in steps: at(n, i) makes the results of the n elements from i on, where n is the type
// of a number; one(i) stores that of a single element. `vecs` steps make a round of the loop, which
// starts where the destination is aligned. The first step and the last one, which ends with the
// array, may overlap those of the loop: they are made before all others, and stored after them. So
// `dst` may be a source, and each element is the function of what it was. Arrays shorter than a
// step are filled in narrower ones, down to `least` elements. The sources, where they are named,
// have a say in where the loop starts.
template <int step, int vecs, int least, class D, class At, class One, class... Source>
[[gnu::always_inline]] inline void forSteps(bool bypass, D* dst, long len, At at, One one,
                                            Source... src) {
  using namespace detail;
  if constexpr (step < least) {
    for (long i = 0; i < len; ++i) one(i);
  } else if (len < step) {
    forSteps<step / 2, 0, least>(false, dst, len, at, one);
  } else {
    const auto first = at(stepOf<step>, 0), last = at(stepOf<step>, len - step);
    // Arrays that narrower steps fill (`vecs` is 0) are shorter than two such steps.
    if constexpr (vecs > 0)
      if (len > 2 * step) {
        long i = alignedStart<step>(bypass, dst, src...);
        const auto rounds = [&](auto put) __attribute__((always_inline)) {
          constexpr int round = vecs * step;
          for (; i <= len - step - round; i += round)
            for (int j = 0; j < round; j += step)
              putRegisters(dst + i + j, at(stepOf<step>, i + j), put);
        };
        if (bypass && isAligned(dst + i, stepAlignment<step, D>)) {
          rounds(bypassingCache);
          streamFence();
        } else {
          rounds(plainly);
        }
        for (; i < len - step; i += step) putRegisters(dst + i, at(stepOf<step>, i), plainly);
      }
    putRegisters(dst, first, plainly);
    putRegisters(dst + len - step, last, plainly);
  }
}

// Runs eachBlock(from, to, put) for whole blocks of `count` elements only. What is left goes
// through a block of its own, filled up with copies of its last element.
template <long count, class S, class D, class Block>
[[gnu::always_inline]] inline void forWholeBlocks(bool bypass, const S* src, D* dst, long len,
                                                  Block eachBlock) {
  using detail::plainly;
  const auto part = [&](long from, long elements) {
    S in[count];
    D out[count];
    for (long j = 0; j < count; ++j) in[j] = load<S>(src + from + std::min(j, elements - 1));
    eachBlock(in, out, plainly);
    for (long j = 0; j < elements; ++j) store(dst + from + j, out[j]);
  };
  // Only stores that bypass the cache want an aligned destination.
  long i = bypass ? std::min(long(peelCount(dst)), len) : 0;
  if (i > 0) part(0, i);
  if (bypass && isAligned(dst + i, vectorBytes)) {
    for (; i <= len - count; i += count) eachBlock(src + i, dst + i, detail::bypassingCache);
    streamFence();
  } else {
    for (; i <= len - count; i += count) eachBlock(src + i, dst + i, plainly);
  }
  if (i < len) part(i, len - i);
}

// dst[i] = op(src[i]...), where a source is an array, `Same` or `Ramp`. `op` takes scalars or
// vectors, complex elements as interleaved parts; results are stored before the next are made,
// which keeps the processor's loads and stores in step, so that `dst` may be one of the sources. A
// round stores `vecs` registers: by default four, which keep the processor's store unit busy; two
// for registers of 64 bytes and for complex elements, whose operations gain nothing from four.
template <Stores stores = Stores::cached, int width = widestBytes, int vecs = 0, class D, class Op,
          class... Source>
[[gnu::always_inline]] inline void mapElements(Op op, D* dst, long len, Source... src) {
  constexpr int widest = int(std::max({sizeof(D), sizeof(ElementOf<Source>)...}));
  constexpr int lanes = width / widest, least = 16 / widest;
  constexpr int ownVecs = width < 64 && !Complex<D> ? 4 : 2;
  const auto atLanes = [&]<class E>(std::type_identity<E>, auto n, auto source, long i) {
    return lanesFrom<V<Part<E>, n * partsPerElement<E>>>(source, i);
  };
  forSteps<lanes, vecs ? vecs : ownVecs, least>(
      bypasses<stores>(dst, len, src...), dst, len,
      [&](auto n, long i) __attribute__((always_inline)) {
        using R = V<Part<D>, n * partsPerElement<D>>;
        return Registers<R>{R(op(atLanes(std::type_identity<ElementOf<Source>>(), n, src, i)...))};
      },
      [&](long i) { store(dst + i, Single<D>(op(singleFrom(src, i)...))); }, src...);
}

// The same with sources widened to the lanes of `Wide`. `op` takes vectors only: a single element
// goes through the first lane of one.
template <class Wide, Stores stores = Stores::cached, class D, class Op, class... Source>
[[gnu::always_inline]] inline void mapWidened(Op op, D* dst, long len, Source... src) {
  constexpr int lanes = laneCount<Wide>;
  forSteps<lanes, std::max(1, 16 / lanes), lanes>(
      bypasses<stores>(dst, len, src...), dst, len,
      [&](auto, long i)
          __attribute__((always_inline)) { return Registers{op(lanesFrom<Wide>(src, i)...)}; },
      [&](long i) { store(dst + i, D(op(Wide{Lane<Wide>(partFrom(src, i, 0))}...)[0])); });
}

}  // namespace mox
