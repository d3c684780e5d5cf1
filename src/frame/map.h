// The road of an element-wise kernel: a peel until the destination is aligned, blocks of vectors,
// and a tail; all three apply the same operation.
#pragma once

#include <algorithm>

#include "frame/vec.h"
#include "frame/widen.h"

namespace mox {

// Elements before `dst` reaches a vector boundary; none when it never does.
template <class D>
int peelCount(const D* dst) {
  const int past = int(addressOf(dst) & (vectorBytes - 1));
  const int missing = past ? vectorBytes - past : 0;
  return missing % int(sizeof(D)) ? 0 : missing / int(sizeof(D));
}

// Whether the stores of a large call bypass the cache.
enum class Stores { cached, bypassing };

// Beyond this many bytes, sources and destination together, the last-level cache would hand the
// destination's lines on to memory anyway, having read them first.
constexpr long bypassBytes = 24L << 20;

// For `len` elements of each array of types E.
template <Stores stores, class... E>
bool bypasses(long len) {
  return stores == Stores::bypassing && len > bypassBytes / long((sizeof(E) + ...));
}

// Runs one(i) for single elements and eachBlock(i, put) for blocks of elements from i on, which
// stores its vectors through put(place, vector).
template <long block, class D, class One, class Block>
[[gnu::always_inline]] inline void forBlocks(bool bypass, D* dst, long len, One one,
                                             Block eachBlock) {
  const auto plain = [](void* p, auto v) { store(p, v); };
  const auto stream = [](void* p, auto v) { storeStream(p, v); };
  long i = 0;
  if (const int peel = peelCount(dst); peel + block <= len) {
    for (; i < peel; ++i) one(i);
    if (bypass && isAligned(dst + i, vectorBytes)) {
      for (; i <= len - block; i += block) eachBlock(i, stream);
      streamFence();
    } else {
      for (; i <= len - block; i += block) eachBlock(i, plain);
    }
  }
  for (; i < len; ++i) one(i);
}

// dst[i] = op(src[i]...). `op` takes scalars or vectors; all loads of a block come before its
// stores, so that `dst` may be one of the sources.
template <Stores stores = Stores::cached, class D, class Op, class... S>
void mapElements(Op op, D* dst, long len, const S*... src) {
  constexpr long lanes = vectorBytes / long(std::max({sizeof(D), sizeof(S)...}));
  constexpr long block = std::max(lanes, 16L), vecs = block / lanes;
  forBlocks<block>(
      bypasses<stores, D, S...>(len), dst, len,
      [&](long i) { store(dst + i, D(op(load<S>(src + i)...))); },
      [&](long i, auto put) {
        V<D, lanes> r[vecs];
        for (int j = 0; j < vecs; ++j) r[j] = op(load<V<S, lanes>>(src + i + j * lanes)...);
        for (int j = 0; j < vecs; ++j) put(dst + i + j * lanes, r[j]);
      });
}

// The same with sources widened to the lanes of `Wide`. `op` takes vectors only: a single element
// goes through the first lane of one.
template <class Wide, Stores stores = Stores::cached, class D, class Op, class S>
void mapWidened(Op op, D* dst, long len, const S* src) {
  constexpr long lanes = laneCount<Wide>, vecs = 16 / lanes;
  forBlocks<16>(
      bypasses<stores, D, S>(len), dst, len,
      [&](long i) { store(dst + i, D(op(Wide{Lane<Wide>(load<S>(src + i))})[0])); },
      [&](long i, auto put) {
        decltype(op(Wide{})) r[vecs];
        for (int j = 0; j < vecs; ++j) r[j] = op(loadWidened<Wide>(src + i + j * lanes));
        for (int j = 0; j < vecs; ++j) put(dst + i + j * lanes, r[j]);
      });
}

}  // namespace mox
