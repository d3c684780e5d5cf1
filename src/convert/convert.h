// Conversions that other families call: arguments are valid, lengths at least 0.
#pragma once

#include <moxsp/types.h>

#include <algorithm>

#include "frame/control_word.h"
#include "frame/vec/vec.h"

namespace mox::convert {

// Each value as D: exact where D holds it, else rounded in the current mode. For 8s32f, 8u32f,
// 16s32f, 16u32f, 16s64f, 32s32f, 32s64f, 32f64f and 64f32f.
template <class S, class D>
void convertValues(const S* src, D* dst, long len);

// Each integer times 2^-scaleFactor as the float D, rounded once in the current mode. For 16s32f
// and 32s32f.
template <class S, class D>
void convertScaledValues(const S* src, D* dst, long len, int scaleFactor);

// Each float times 2^-scaleFactor as the integer T, rounded under `roundMode` and saturated. For
// 32f8s, 32f8u, 32f16s, 32f16u, 32f32s, 64f16s and 64f32s.
template <class F, class T>
void convertToInteger(const F* src, T* dst, long len, int roundMode, int scaleFactor,
                      Exceptions exceptions = Exceptions::raised);

// Conversions in two steps go by way of pieces that stay in the first-level cache: runs
// step(piece, start, count) over those of an array of `len` elements.
template <class E, class Step>
void inPieces(long len, Step step) {
  constexpr long size = 512;
  alignas(vectorBytes) E piece[size];
  for (long start = 0; start < len; start += size) step(piece, start, std::min(size, len - start));
}

}  // namespace mox::convert
