// Conversions in two steps, by way of a piece of memory that stays in the first-level cache.
#pragma once

#include <algorithm>

namespace mox::convert {

// Runs step(piece, start, count) over pieces of an array of `len` elements.
template <class E, class Step>
void inPieces(long len, Step step) {
  constexpr long size = 512;
  alignas(32) E piece[size];
  for (long start = 0; start < len; start += size) step(piece, start, std::min(size, len - start));
}

}  // namespace mox::convert
