// Delay lines as callers hold them.
#pragma once

#include <algorithm>

#include "convert/samples.h"
#include "iir/iir_state.h"

namespace mox::iir {

// Null stands for a delay line of zeros.
template <class E, class Line>
void writeDelayLine(State<E>& s, const Line* dlyLine) {
  if (dlyLine)
    convert::takeIn(dlyLine, s.dlyLine, s.dlyLen);
  else
    std::fill_n(s.dlyLine, s.dlyLen, E{});
}

template <class E, class Line>
void readDelayLine(const State<E>& s, Line* dlyLine) {
  convert::giveOut(s.dlyLine, dlyLine, s.dlyLen, 0);
}

}  // namespace mox::iir
