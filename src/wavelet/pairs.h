// Two bands and the pairs of samples of one signal.
#pragma once

#include "frame/complex_views.h"

namespace mox::wavelet {

// An array of pairs, which the driver aligns and steps through as a destination.
template <class E>
struct PairOf {
  E first, second;
};

// dst[2 i] and dst[2 i + 1] for all pairs i: vectors(i) makes the two of `lanes` pairs from i on,
// one(i) stores those of one.
template <int lanes, class E, class Vectors, class One>
[[gnu::always_inline]] inline void joinPairs(E* dst, long pairs, Vectors vectors, One one) {
  forSteps<lanes, 2, lanes>(
      false, reinterpret_cast<PairOf<E>*>(dst),
      pairs, [&](auto, long i) __attribute__((always_inline)) { return interleaved(vectors(i)); },
      one);
}

// The other way: vectors(i) stores what `lanes` pairs from i on become, in arrays that overlap no
// source, so that a step may be taken twice.
template <int lanes, class Vectors, class One>
[[gnu::always_inline]] inline void splitPairs(long pairs, Vectors vectors, One one) {
  long i = 0;
  for (; i <= pairs - lanes; i += lanes) vectors(i);
  if (i == pairs) return;
  if (pairs >= lanes)
    vectors(pairs - lanes);
  else
    for (; i < pairs; ++i) one(i);
}

}  // namespace mox::wavelet
