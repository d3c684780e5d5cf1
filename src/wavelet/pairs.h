// Two bands and the pairs of samples of one signal.
#pragma once

#include "frame/complex_views.h"

namespace mox::wavelet {

// An array of pairs, which drivers align and step through as a destination.
template <class E>
struct PairOf {
  E first, second;
};
template <class E>
PairOf<E>* pairsOf(E* dst) {
  return reinterpret_cast<PairOf<E>*>(dst);
}

// Vectors of `lanes` pairs and single ones: vector(i, put) and one(i) make those from i on.
template <long lanes, int alignment, class D, class One, class Vector>
[[gnu::always_inline]] inline void forPairs(D* dst, long pairs, One one, Vector vector) {
  forBlocks<2 * lanes, alignment, lanes>(
      false, dst, pairs, one,
      [&](long i, auto put)
          __attribute__((always_inline)) { vector(i, put), vector(i + lanes, put); },
      vector);
}

}  // namespace mox::wavelet
