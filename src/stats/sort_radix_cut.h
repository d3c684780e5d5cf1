// Radix sorts of long vectors. A pass over more memory than the caches hold waits at nearly every
// store. So keys are first dealt out to many short parts by their highest bits, through as many
// places as a cache has room for, and each part is then sorted by the bits that remain.
#pragma once

#include <moxsp/types.h>

#include <algorithm>
#include <bit>

#include "frame/vec.h"
#include "stats/sort_radix_passes.h"

namespace mox {

constexpr long longestUncut = 1 << 19;
constexpr int lineBytes = 64;  // of a cache
constexpr int cutBits = 8, cutParts = 1 << cutBits;

// The digits that remain within a part.
template <class Bits>
struct BelowCut;
template <>
struct BelowCut<Mox32u> {
  static constexpr Digit digits[] = {{0, 12}, {12, 12}};
};
template <>
struct BelowCut<Mox64u> {
  static constexpr Digit digits[] = {{0, 12}, {12, 11}, {23, 11}, {34, 11}, {45, 11}};
};

// All keys agree in the bits above so many.
template <class Bits>
int differingBits(const void* keys, long len) {
  using Vector = V<Bits, 16 / sizeof(Bits)>;
  constexpr int lanes = laneCount<Vector>;
  const auto* key = static_cast<const Bits*>(keys);
  const Bits first = load<Bits>(key);
  Vector differing = {};
  long i = 0;
  for (; i <= len - lanes; i += lanes)
    differing |= load<Vector>(key + i) ^ broadcast<Vector>(first);
  Bits bits = 0;
  for (int lane = 0; lane < lanes; ++lane) bits |= differing[lane];
  for (; i < len; ++i) bits |= load<Bits>(key + i) ^ first;
  return std::bit_width(bits);
}

// Deals out the keys by the bits from `shift` on; part p then starts at starts[p]. Two
// stretches of the vector are read side by side, each with places of its own, for with few parts a
// key would often wait for the place that the key before it took.
template <class Key, class T>
void cut(const T* from, T* to, long len, int shift, Mox32u (&starts)[cutParts + 1]) {
  using Bits = typename Key::Bits;
  constexpr int stretches = 2;
  const long stretch = len / stretches;
  const auto eachKey = [&](auto visit) {
    for (long i = 0; i < stretch; ++i)
      for (int s = 0; s < stretches; ++s) visit(s, load<Bits>(from + s * stretch + i));
    for (long i = stretches * stretch; i < len; ++i) visit(stretches - 1, load<Bits>(from + i));
  };
  const auto part = [shift](Bits pattern) {
    return Key::mapped(pattern) >> shift & (cutParts - 1);
  };

  Mox32u places[stretches][cutParts] = {};
  eachKey([&](int s, Bits pattern) { ++places[s][part(pattern)]; });
  Mox32u next = 0;
  for (int p = 0; p < cutParts; ++p) {
    starts[p] = next;
    for (auto& place : places) next += std::exchange(place[p], next);
  }
  starts[cutParts] = next;
  eachKey([&](int s, Bits pattern) {
    T* place = to + places[s][part(pattern)]++;
    store(place, pattern);
    __builtin_prefetch(place + lineBytes / sizeof(T), 1);
  });
}

// Sorts `keys`, which are as good as `other`, into either.
template <class Key, class T>
void sortByParts(T* keys, T* other, long len, bool intoOther) {
  using Bits = typename Key::Bits;
  const int shift = std::max(differingBits<Bits>(keys, len) - cutBits, 0);
  Mox32u starts[cutParts + 1];
  cut<Key>(keys, other, len, shift, starts);
  for (int p = 0; p < cutParts; ++p) {
    const long start = starts[p], length = starts[p + 1] - starts[p];
    if (length > longestUncut && shift > 0)
      sortByParts<Key>(other + start, keys + start, length, !intoOther);
    else if (length > 0)
      sortByDigits<Key, BelowCut<Bits>>(other + start, keys + start, length, !intoOther);
  }
}

}  // namespace mox
