// The kernel of second-order sections.
#pragma once

#include "iir/rows.h"

namespace mox::iir {

// A section of order 2, in place. `tap(k, register)` is b[0], b[1], b[2], a[1] or a[2]; `past` the
// last inputs and outputs of the lanes as a state has them; `entering(j)` completes
// inputs of row j.
template <class E, class Tap, class Entering>
[[gnu::always_inline]] inline void filterSecondOrder(Tap tap, Row<E>* past, Row<E>* rows,
                                                     long length, Entering entering) {
  using T = Lanes<E>;
  constexpr int registers = registersOf<E>;
  T x1[registers], x2[registers], y1[registers], y2[registers];
  for (int r = 0; r < registers; ++r)
    x2[r] = past[0].lanes[r], x1[r] = past[1].lanes[r], y2[r] = past[2].lanes[r],
    y1[r] = past[3].lanes[r];
  // The newest numbers take the place of the oldest ones.
  const auto row = [=](long j, T(&xNew)[registers], T(&xOld)[registers], T(&yNew)[registers],
                       T(&yOld)[registers]) {
    const auto complete = entering(j);
    for (int r = 0; r < registers; ++r) {
      const T x = complete(rows[j].lanes[r], r);
      const T y = times(tap(0, r), x) + times(tap(1, r), xNew[r]) + times(tap(2, r), xOld[r]) -
                  times(tap(4, r), yOld[r]) - times(tap(3, r), yNew[r]);
      xOld[r] = x, yOld[r] = y;
      rows[j].lanes[r] = y;
    }
  };
  long j = 0;
  for (; j + 2 <= length; j += 2) row(j, x1, x2, y1, y2), row(j + 1, x2, x1, y2, y1);
  if (j < length) row(j, x1, x2, y1, y2), std::swap(x1, x2), std::swap(y1, y2);
  for (int r = 0; r < registers; ++r)
    past[0].lanes[r] = x2[r], past[1].lanes[r] = x1[r], past[2].lanes[r] = y2[r],
    past[3].lanes[r] = y1[r];
}

constexpr auto asItIs = [](long) { return [](auto x, int) { return x; }; };

}  // namespace mox::iir
