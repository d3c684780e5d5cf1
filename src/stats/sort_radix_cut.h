// Radix sorts of long vectors. A pass over more memory than the caches hold waits at nearly every
// store. So keys are first dealt out to many short parts by their highest bits, through as many
// places as a cache has room for, and each part is then sorted by the bits that remain. Floats
// crowd in few exponents: where few of the places would be in use, more bits are taken.
#pragma once

#include <moxsp/types.h>

#include <algorithm>
#include <bit>

#include "frame/vec/vec.h"
#include "stats/sort_radix_passes.h"

namespace mox::stats {

// Up to here the vector and its buffer stay in the caches.
template <class T>
constexpr long longestUncut = (4 << 20) / sizeof(T);
constexpr int lineBytes = 64;  // of a cache
constexpr int cutBits = 8, cutParts = 1 << cutBits;
constexpr int fineBits = 11, fineParts = 1 << fineBits;

// The digits that remain within a part when the highest `bits` bits are taken off.
template <class Bits, int bits>
struct Below;
template <>
struct Below<Mox32u, cutBits> {
  static constexpr Digit digits[] = {{0, 12}, {12, 12}};
};
template <>
struct Below<Mox32u, fineBits> {
  static constexpr Digit digits[] = {{0, 11}, {11, 10}};
};
template <>
struct Below<Mox64u, cutBits> {
  static constexpr Digit digits[] = {{0, 12}, {12, 11}, {23, 11}, {34, 11}, {45, 11}};
};
template <>
struct Below<Mox64u, fineBits> {
  static constexpr Digit digits[] = {{0, 11}, {11, 11}, {22, 11}, {33, 10}, {43, 10}};
};

// The number of low bits in which keys differ. Most often the first few keys show them all.
template <class Bits>
int differingBits(const Bits* keys, long len) {
  using Vector = I<Bits>;
  constexpr int lanes = laneCount<Vector>;
  constexpr long block = 1024;
  const Bits first = load<Bits>(keys);
  Bits differing = 0;
  for (long i = 0; i < len && std::bit_width(differing) < 8 * int(sizeof(Bits));) {
    Vector wide = {};
    const long end = std::min(i + block, len);
    for (; i <= end - lanes; i += lanes) wide |= load<Vector>(keys + i) ^ broadcast<Vector>(first);
    for (; i < end; ++i) differing |= load<Bits>(keys + i) ^ first;
    for (int lane = 0; lane < lanes; ++lane) differing |= wide[lane];
  }
  return std::bit_width(differing);
}

// Part p is the keys whose bits from `shift` on, modulo `count`, are p; it starts at starts[p].
struct Parts {
  int shift, count;
  Mox32u starts[fineParts + 1];
};

// Deals out keys that differ in the lowest `bits` bits. Two stretches of the vector are read side
// by side, each with places of its own, for with few parts a key would often wait for the place
// that the key before it took.
template <class Key, class T>
Parts cut(const T* from, T* to, long len, int bits) {
  using Bits = typename Key::Bits;
  constexpr int stretches = 2;
  const long stretch = len / stretches;
  const auto eachKey = [&](int shift, int count, auto visit) {
    const auto key = [=](long i) { return load<Bits>(from + i); };
    const auto visitPart = [=](int s, Bits k) {
      visit(s, k, Key::mapped(k) >> shift & (count - 1));
    };
    for (long i = 0; i < stretch; ++i)
      for (int s = 0; s < stretches; ++s) visitPart(s, key(s * stretch + i));
    for (long i = stretches * stretch; i < len; ++i) visitPart(stretches - 1, key(i));
  };

  Parts parts;
  parts.shift = std::max(bits - fineBits, 0);
  parts.count = fineParts;
  Mox32u places[stretches][fineParts] = {};
  eachKey(parts.shift, parts.count, [&](int s, Bits, auto part) { ++places[s][part]; });
  int inUse = 0;
  for (int p = 0; p < fineParts; ++p) inUse += (places[0][p] | places[1][p]) != 0;
  if (inUse > cutParts) {
    constexpr int joined = fineBits - cutBits;
    parts.shift += joined;
    parts.count = cutParts;
    for (auto& place : places)
      for (int p = 0; p < fineParts; ++p) place[p >> joined] += std::exchange(place[p], 0);
  }

  Mox32u next = 0;
  for (int p = 0; p < parts.count; ++p) {
    parts.starts[p] = next;
    for (auto& place : places) next += std::exchange(place[p], next);
  }
  parts.starts[parts.count] = next;
  eachKey(parts.shift, parts.count, [&](int s, Bits k, auto part) {
    T* place = to + places[s][part]++;
    store(place, k);
    __builtin_prefetch(place + lineBytes / sizeof(T), 1);
  });
  return parts;
}

// Sorts `keys` with `other` as scratch, into the one that `intoOther` tells.
template <class Key, class T>
void sortByParts(T* keys, T* other, long len, bool intoOther) {
  using Bits = typename Key::Bits;
  const Parts parts =
      cut<Key>(keys, other, len, differingBits(reinterpret_cast<const Bits*>(keys), len));
  const bool fine = parts.shift <= int(8 * sizeof(Bits)) - fineBits;
  for (int p = 0; p < parts.count; ++p) {
    const long start = parts.starts[p], length = parts.starts[p + 1] - start;
    T *part = other + start, *spare = keys + start;
    if (length > longestUncut<T> && parts.shift > 0)
      sortByParts<Key>(part, spare, length, !intoOther);
    else if (length > 0 && fine)
      sortByDigits<Key, Below<Bits, fineBits>>(part, spare, length, !intoOther);
    else if (length > 0)
      sortByDigits<Key, Below<Bits, cutBits>>(part, spare, length, !intoOther);
  }
}

}  // namespace mox::stats
