// Quicksort with a stack of its own.
#pragma once

#include <moxsp/types.h>

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

#include "stats/count_bytes.h"
#include "stats/sort_network.h"
#include "stats/sort_partition.h"
#include "stats/sort_sequence.h"

namespace mox::stats {

constexpr int fewItems = 9;

// Selection of the item that belongs last, again and again: a scan carries it past those behind it,
// and these close up. Equal keys keep their order. All within registers.
template <class Order, int length, class Sequence>
void sortFew(Sequence s, long start) {
  typename Sequence::Item items[length];
  for (int i = 0; i < length; ++i) items[i] = s.item(start + i);
#pragma GCC unroll 9
  for (int last = length - 1; last > 0; --last)
#pragma GCC unroll 9
    for (int i = 0; i < last; ++i) arrange<Order>(items[i], items[i + 1]);
  for (int i = 0; i < length; ++i) s.put(start + i, items[i]);
}

template <class Order, class Sequence>
void sortFew(Sequence s, Segment leaf) {
  static constexpr auto byLength = []<int... lessOne>(std::integer_sequence<int, lessOne...>) {
    return std::array{&sortFew<Order, lessOne + 1, Sequence>...};
  }
  (std::make_integer_sequence<int, fewItems>());
  byLength[leaf.hi - leaf.lo](s, leaf.lo);
}

// How segments up to the longest that is not partitioned are sorted.
template <class Sequence>
struct Leaves {
  explicit Leaves(long /*len*/) {}

  template <class Order>
  void sort(Sequence s, Segment leaf) const {
    sortFew<Order>(s, leaf);
  }

  static constexpr long longest = fewItems;
};

// Keys alone go through the largest network that the whole vector fills.
template <class T>
struct Leaves<PlainKeys<T>> {
  explicit Leaves(long count)
      : len(count),
        longest(count < leastInNetwork
                    ? fewItems
                    : std::min<long>(std::bit_floor(Mox32u(count)), networkKeys<T>)) {}

  template <class Order>
  void sort(PlainKeys<T> s, Segment leaf) const {
    if (len < leastInNetwork)
      sortFew<Order>(s, leaf);
    else
      sortByNetwork<Order>(s.keys, len, leaf);
  }

  static constexpr long leastInNetwork = std::max(16, networkKeys<T, 1>);
  long len, longest;
};

// The larger part of each segment waits while the smaller is sorted, so that the parts that wait
// at one time are fewer than the bits of the length.
template <class Order, class Sequence>
void quickSort(Sequence s, long len) {
  const Leaves<Sequence> leaves(len);
  Segment waiting[32];
  int count = 0;
  Segment segment = {0, len - 1};
  for (;;) {
    while (segment.hi - segment.lo >= leaves.longest) {
      const Cut cut = partition<Order>(s, segment);
      const long left = cut.leftEnd - segment.lo, right = segment.hi - cut.rightStart;
      const Segment parts[] = {{segment.lo, cut.leftEnd}, {cut.rightStart, segment.hi}};
      const bool rightLarger = right > left;
      const Segment larger = parts[rightLarger], smaller = parts[!rightLarger];
      if (std::min(left, right) == 0) {
        segment = larger;
      } else {
        waiting[count++] = larger;
        segment = smaller;
      }
    }
    leaves.template sort<Order>(s, segment);
    if (count == 0) return;
    segment = waiting[--count];
  }
}

// Values alone; long vectors of bytes are counted.
template <class Order, class T>
void sortValues(T* values, long len) {
  constexpr int leastCounted = 128;
  if constexpr (sizeof(T) == 1)
    if (len >= leastCounted) return sortByCounting<Order>(values, len);
  quickSort<Order>(PlainKeys<T>{values}, len);
}

}  // namespace mox::stats
