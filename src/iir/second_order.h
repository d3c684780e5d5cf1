// The kernel of second-order sections.
#pragma once

#include "iir/rows.h"

namespace mox::iir {

// A section of order 2, in place. `tap(k, register)` is b[0], b[1], b[2], a[1] or a[2]; `past` the
// last inputs and outputs of the lanes as a state has them; `entering` completes an input.
template <class E, class Tap, class Entering>
[[gnu::always_inline]] inline void filterRows(Tap tap, Row<E>* past, Row<E>* rows, long length,
                                              Entering entering) {
  using T = Lanes<E>;
  constexpr int registers = registersOf<E>;
  T x1[registers], x2[registers], y1[registers], y2[registers];
  for (int r = 0; r < registers; ++r)
    x2[r] = past[0].lanes[r], x1[r] = past[1].lanes[r], y2[r] = past[2].lanes[r],
    y1[r] = past[3].lanes[r];
  for (long j = 0; j < length; ++j)
    for (int r = 0; r < registers; ++r) {
      const T x = entering(rows[j].lanes[r], j, r);
      const T y = times(tap(0, r), x) + times(tap(1, r), x1[r]) + times(tap(2, r), x2[r]) -
                  times(tap(4, r), y2[r]) - times(tap(3, r), y1[r]);
      x2[r] = x1[r], x1[r] = x;
      y2[r] = y1[r], y1[r] = y;
      rows[j].lanes[r] = y;
    }
  for (int r = 0; r < registers; ++r)
    past[0].lanes[r] = x2[r], past[1].lanes[r] = x1[r], past[2].lanes[r] = y2[r],
    past[3].lanes[r] = y1[r];
}

constexpr auto asItIs = [](auto x, long, int) { return x; };

}  // namespace mox::iir
