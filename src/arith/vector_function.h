// The frame of a vector function: a first part up to a 32-byte boundary of the source, blocks of 16
// elements, and a tail. Lanes that a kernel finds special go through a routine for one element; the
// other lanes keep their vector results.
#pragma once

#include <algorithm>

#include "frame/map.h"
#include "frame/rounding_control.h"

namespace mox {

// Function has: vector(V<F>) for ordinary lanes, special(V<F>), whose lanes are not 0 where they
// need element(F). Empty lanes of a part hold 0.75, which is harmless everywhere.
template <class F, class Function>
[[gnu::always_inline]] inline V<F> evaluate(const Function& f, V<F> x) {
  V<F> y = f.vector(x);
  if (const auto special = f.special(x); anyLane(special)) [[unlikely]]
    for (int i = 0; i < lanesOf<F>; ++i)
      if (special[i]) y[i] = f.element(x[i]);
  return y;
}

template <class F, class Function>
void evaluatePart(const Function& f, const F* src, F* dst, long count) {
  F lanes[lanesOf<F>];
  std::fill(lanes, lanes + lanesOf<F>, F(0.75));
  for (long i = 0; i < count; ++i) lanes[i] = load<F>(src + i);
  store(lanes, evaluate<F>(f, load<V<F>>(lanes)));
  for (long i = 0; i < count; ++i) store(dst + i, lanes[i]);
}

template <class F, class Function>
void vectorFunction(const Function& f, const F* src, F* dst, long len) {
  if (len < 1 || !src || !dst) return;
  constexpr long block = 16, lanes = lanesOf<F>;
  const RoundingScope scope(Rounding::nearEven, Traps::masked);
  long i = std::min<long>(peelCount(src), len);
  if (i) evaluatePart(f, src, dst, i);
  for (; i <= len - block; i += block) {
    V<F> y[block / lanes];
    for (int j = 0; j < block / lanes; ++j) y[j] = evaluate<F>(f, load<V<F>>(src + i + j * lanes));
    for (int j = 0; j < block / lanes; ++j) store(dst + i + j * lanes, y[j]);
  }
  for (; i < len; i += lanes) evaluatePart(f, src + i, dst + i, std::min(lanes, len - i));
}

}  // namespace mox
