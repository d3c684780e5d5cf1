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

// Fills `bytes` bytes, a multiple of the width; nothing for a count below 1.
void fill(const Pattern& pattern, void* dst, long bytes);

inline void zeroBytes(void* dst, long bytes) { fill(Pattern{{}, 1}, dst, bytes); }

template <class E>
void zeroElements(E* dst, long len) {
  zeroBytes(dst, len * long(sizeof(E)));
}

}  // namespace mox::move
