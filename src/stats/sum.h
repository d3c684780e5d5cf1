// Sums of floating vectors, of which means are made too.
#pragma once

#include "stats/terms.h"

namespace mox::stats {

// With this hint speed goes before accuracy; any other stands for the accurate path.
constexpr int fastHint = 1;

// Doubles from single terms, 16 at a step.
constexpr Order accurateSum = {.lanes = 8, .tail = Tail::serial, .step = 16};
constexpr Order accurateComplexSum = {.lanes = 16, .tail = Tail::serial};

// Single precision within a block of 8192 floats, doubles from block to block.
constexpr Order fastComplexSum = {.lanes = 32, .tail = Tail::folded, .widenAt = 8, .block = 8192};
constexpr Order fastSum = {.lanes = 32,
                           .tail = Tail::folded,
                           .neighbours = {.at = 4, .group = 1},
                           .widenAt = 8,
                           .block = 8192};

constexpr Order doubleComplexSum = {.lanes = 16, .tail = Tail::folded};
constexpr Order doubleSum = {
    .lanes = 16, .tail = Tail::folded, .neighbours = {.at = 4, .group = 1}};
constexpr Order misalignedDoubleSum = {.lanes = 16, .tail = Tail::serial};

// The sum of each part.
template <class E>
using PartSums = std::array<Mox64f, partsPerElement<E>>;

namespace detail {
template <Order order, class F, class E>
PartSums<E> sumInOrder(const E* src, long len, long peel) {
  constexpr int count = partsPerElement<E>;
  const auto identity = [](auto x) { return x; };
  const auto sums = fold<order, F, count>(termsOf(identity, src), count * len, peel);
  PartSums<E> result;
  std::copy_n(sums.of[0], count, result.begin());
  return result;
}
}  // namespace detail

template <class E>
PartSums<E> sumOf(const E* src, long len, int hint = 0) {
  using F = Part<E>;
  constexpr bool real = partsPerElement<E> == 1;
  const bool aligned = isAligned(src, sizeof(F));
  const long n = partsPerElement<E> * len, peel = peelCount<orderBytes>(parts(src));
  if constexpr (sizeof(F) == 4) {
    constexpr Order fast = real ? fastSum : fastComplexSum;
    constexpr Order accurate = real ? accurateSum : accurateComplexSum;
    if (hint == fastHint && aligned) return detail::sumInOrder<fast, Mox32f>(src, len, peel);
    return detail::sumInOrder<accurate, Mox64f>(src, len, aligned ? peel : n);
  } else {
    constexpr Order order = real ? doubleSum : doubleComplexSum;
    if (aligned) return detail::sumInOrder<order, Mox64f>(src, len, peel);
    return detail::sumInOrder<misalignedDoubleSum, Mox64f>(src, len, 0);
  }
}

}  // namespace mox::stats
