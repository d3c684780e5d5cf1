// Hoare's partition. Two scans go inwards from the ends of a segment, stop at elements that stand
// on the wrong side of the pivot, and these are exchanged. The scans of up to 64 elements are done
// at once, by comparing vectors: a bit for each element that would stop the scan.
#pragma once

#include <algorithm>
#include <bit>
#include <type_traits>

#include "stats/sort_order.h"
#include "stats/sort_sequence.h"

namespace mox {

// Inclusive bounds.
struct Segment {
  long lo, hi;
};

constexpr int scanBlock = 64;

// Bit k is set where the test does not hold of element k; count is at most 64.
template <class T, class Test>
[[gnu::always_inline]] inline Mox64u stops(const T* elements, int count, Test passes) {
  constexpr int lanes = (std::is_floating_point_v<T> ? vectorBytes : 16) / sizeof(T);
  constexpr unsigned every = (1u << lanes) - 1;
  Mox64u bits = 0;
  int k = 0;
  for (; k <= count - lanes; k += lanes) {
    const unsigned passed = unsigned(signBits(passes(load<V<T, lanes>>(elements + k))));
    bits |= Mox64u(passed ^ every) << k;
  }
  for (; k < count; ++k) bits |= Mox64u(!passes(load<T>(elements + k))) << k;
  return bits;
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
    const int width = int(std::min<long>(scanBlock, (j - i + 1) / 2));
    Mox64u left = stops(s.keys + i, width, fromLeft);
    Mox64u right = stops(s.keys + j + 1 - width, width, fromRight) << (scanBlock - width);
    for (int n = std::min(std::popcount(left), std::popcount(right)); n > 0; --n) {
      const int l = std::countr_zero(left), r = std::countl_zero(right);
      exchange(s, i + l, j - r);
      left &= left - 1;
      right ^= Mox64u(1) << (scanBlock - 1 - r);
    }
    i += left ? std::countr_zero(left) : width;
    j -= right ? std::countl_zero(right) : width;
  }

  const int rest = int(j - i + 1);
  Mox64u left = stops(s.keys + i, rest, fromLeft), right = stops(s.keys + i, rest, fromRight);
  long end = j + 1;
  while (left != 0 && right != 0) {
    const long l = i + std::countr_zero(left), r = i + std::bit_width(right) - 1;
    if (l >= r) break;
    exchange(s, l, r);
    left &= left - 1;
    right ^= std::bit_floor(right);
    end = r;
  }
  return left ? std::min(end, i + std::countr_zero(left)) : end;
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
  // even so, lest a segment be its own part for ever.
  Cut cut = {std::min(split, hi) - 1, std::min(split, hi)};
  while (cut.leftEnd > lo && s.key(cut.leftEnd) == pivot) --cut.leftEnd;
  return cut;
}

}  // namespace mox
