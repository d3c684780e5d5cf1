// Fills for the use of other families; the exported Zero and Set stand on them.
#pragma once

#include <moxsp/types.h>

#include <bit>

#include "frame/elements.h"
#include "frame/vec/vec.h"

namespace mox::move {

// A value of 1, 2, 4, 8 or 16 bytes, repeated all over a vector.
struct Pattern {
  V<Mox64u> repeated;
  int width;
};

template <class E>
Pattern patternOf(E val) {
  constexpr int width = sizeof(E);
  if constexpr (width == 16) {
    const auto v = std::bit_cast<V<Mox64u, 2>>(val);
    return {__builtin_shufflevector(v, v, 0, 1, 0, 1), width};
  } else {
    constexpr Mox64u copies = ~Mox64u(0) / BitsOf<E>(-1);
    return {broadcast<V<Mox64u>>(std::bit_cast<BitsOf<E>>(val) * copies), width};
  }
}

// The plain fill, for a count that is a multiple of the width; nothing for one below 1.
void fill(const Pattern& pattern, void* dst, long bytes);
// The same through stores that bypass the cache, from 64 bytes on.
void fillBypassingCache(const Pattern& pattern, void* dst, long bytes);

// These pick the fill that suits the size.
void zeroBytes(void* dst, long bytes);
void setBytes(const Pattern& pattern, void* dst, long bytes);

template <class E>
void zeroElements(E* dst, long len) {
  zeroBytes(dst, len * long(sizeof(E)));
}

template <class E>
void setElements(E val, E* dst, long len) {
  setBytes(patternOf(val), dst, len * long(sizeof(E)));
}

}  // namespace mox::move
