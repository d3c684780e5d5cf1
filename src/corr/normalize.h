// Sums of correlations turned into means.
#pragma once

#include "frame/map.h"

namespace mox::corr {

// What callers name by the second byte of an algorithm selector.
enum class Normalization { none = 0, byLength = 0x100, byTerms = 0x200 };

template <class E>
void multiplyBy(Part<E> factor, E* dst, long len) {
  mapElements([](auto a, auto b) { return a * b; }, parts(dst), len * partsPerElement<E>,
              parts(dst), Same<Part<E>>{factor});
}

// Element i divided by first + i * step, which is an int above 0.
template <class E>
void divideByRamp(long first, int step, E* dst, long len) {
  using F = Part<E>;
  using T = V<F>;
  constexpr int lanes = laneCount<T>, width = partsPerElement<E>;
  Beside<Mox32s, T> divisors;
  for (int j = 0; j < lanes; ++j) divisors[j] = int(first + long(j / width) * step);
  F* const numbers = parts(dst);
  long i = 0;
  for (; i <= len * width - lanes; i += lanes, divisors += lanes / width * step)
    store(numbers + i, load<T>(numbers + i) / __builtin_convertvector(divisors, T));
  for (; i < len * width; ++i)
    store(numbers + i, load<F>(numbers + i) / F(first + i / width * step));
}

}  // namespace mox::corr
