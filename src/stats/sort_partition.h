// Hoare's partition. Two scans go inwards from the ends of a segment, stop at elements that stand
// on the wrong side of the pivot, and these are exchanged. The scans of up to 64 elements are done
// at once, by comparing vectors: a bit for each element that would stop the scan.
#pragma once

#include <algorithm>
#include <bit>
#include <type_traits>

#include "stats/sort_order.h"
#include "stats/sort_sequence.h"

namespace mox::stats {

// Inclusive bounds.
struct Segment {
  long lo, hi;
};

constexpr int scanBlock = 64;

// Bit k is set where the test does not hold of element k; count is at most 64.
template <class T, class Test>
[[gnu::always_inline]] inline Mox64u stops(const T* elements, int count, Test passes) {
  constexpr int lanes = laneCount<Register<T>>;
  constexpr Mox64u every = ~Mox64u(0) >> (64 - lanes);
  Mox64u bits = 0;
  int k = 0;
  for (; k <= count - lanes; k += lanes) {
    const Mox64u passed = signBits(passes(load<Register<T>>(elements + k)));
    bits |= (passed ^ every) << k;
  }
  for (; k < count; ++k) bits |= Mox64u(!passes(load<T>(elements + k))) << k;
  return bits;
}

// The lowest `width` bits in reverse. The processor finds the lowest bit faster than the highest.
[[gnu::always_inline]] inline Mox64u mirrored(Mox64u bits, int width) {
  bits = __builtin_bswap64(bits);
  bits = (bits >> 4 & 0x0F0F0F0F0F0F0F0F) | (bits & 0x0F0F0F0F0F0F0F0F) << 4;
  bits = (bits >> 2 & 0x3333333333333333) | (bits & 0x3333333333333333) << 2;
  bits = (bits >> 1 & 0x5555555555555555) | (bits & 0x5555555555555555) << 1;
  return bits >> (scanBlock - width);
}

// The number of the lowest bit, which is cleared.
[[gnu::always_inline]] inline int takeFirst(Mox64u& bits) {
  const int first = __builtin_ctzll(bits);
  bits &= bits - 1;
  return first;
}

// Exchanges elements of [i, j] until none before the place returned belongs behind the pivot, and
// none from there on before it.
template <class Order, class Sequence>
long separate(Sequence s, long i, long j, typename Sequence::Key pivot) {
  using T = typename Sequence::Key;
  const auto fromLeft = [pivot](auto v) {
    if constexpr (std::is_same_v<decltype(v), T>)
      return Order::notAfter(v, pivot);
    else
      return Order::notAfter(v, broadcast<decltype(v)>(pivot));
  };
  const auto fromRight = [pivot](auto v) {
    if constexpr (std::is_same_v<decltype(v), T>)
      return Order::before(pivot, v);
    else
      return Order::before(broadcast<decltype(v)>(pivot), v);
  };

  while (j - i >= scanBlock) {
    const int width = int(std::min<long>(scanBlock, (j - i) / 2));
    Mox64u left = stops(s.keys + i, width, fromLeft);
    Mox64u right = mirrored(stops(s.keys + j + 1 - width, width, fromRight), width);
    for (int n = std::min(std::popcount(left), std::popcount(right)); n > 0; --n)
      exchange(s, i + takeFirst(left), j - takeFirst(right));
    i += left ? takeFirst(left) : width;
    j -= right ? takeFirst(right) : width;
  }

  const int rest = int(j - i + 1);
  Mox64u left = stops(s.keys + i, rest, fromLeft);
  Mox64u right = mirrored(stops(s.keys + i, rest, fromRight), rest);
  int end = rest;  // what stands from here on belongs behind the pivot
  while (left != 0) {
    const int l = takeFirst(left), r = right ? rest - 1 - takeFirst(right) : l;
    if (l >= r) return i + std::min(l, end);
    exchange(s, i + l, i + r);
    end = r;
  }
  return i + end;
}

struct Cut {
  long leftEnd, rightStart;
};

// Splits a segment around the median of its ends and its middle; of integers the pair at the front
// (descending: at the back) is put in descending order first. What equals the pivot and stands
// next to the cut belongs to neither side.
template <class Order, class Sequence>
Cut partition(Sequence s, Segment segment) {
  const auto [lo, hi] = segment;
  const long mid = lo + (hi - lo + 1) / 2;
  if constexpr (std::is_integral_v<typename Sequence::Key>) {
    const long front = std::is_same_v<Order, Ascending> ? lo : hi;
    const long next = std::is_same_v<Order, Ascending> ? lo + 1 : hi - 1;
    auto a = s.item(front), b = s.item(next);
    arrange<Descending>(a, b);
    s.put(front, a);
    s.put(next, b);
  }
  auto first = s.item(lo), middle = s.item(mid), last = s.item(hi);
  arrange<Order>(first, last);
  arrange<Order>(middle, last);
  arrange<Order>(first, middle);
  s.put(lo, first);
  s.put(mid, middle);
  s.put(hi, last);

  const auto pivot = middle.key;
  const long split = separate<Order>(s, lo + 1, hi, pivot);
  // Where a NaN stands at the end, all can be before the split. The end stays out of the left side
  // even so, so that every segment shrinks.
  Cut cut = {std::min(split, hi) - 1, std::min(split, hi)};
  while (cut.leftEnd > lo && s.key(cut.leftEnd) == pivot) --cut.leftEnd;
  return cut;
}

}  // namespace mox::stats
