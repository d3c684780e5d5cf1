// Every sample twice, in rings of `taps` places one behind the other, so that the last `taps`
// samples always lie in one stretch.
#pragma once

#include "frame/vec/vec.h"

namespace mox::kernels {

// The place that any index stands for.
inline int ringPlace(int index, int len) {
  const int place = index % len;
  return place < 0 ? place + len : place;
}

// Takes in a sample and returns the window that ends with it.
template <class D>
const D* pushSample(D* ring, int& index, int taps, D sample) {
  store(ring + index, sample);
  store(ring + index + taps, sample);
  if (++index == taps) index = 0;
  return ring + index;
}

}  // namespace mox::kernels
