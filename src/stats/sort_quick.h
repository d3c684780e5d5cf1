// Quicksort with a stack of its own.
#pragma once

#include <moxsp/types.h>

#include "stats/sort_partition.h"
#include "stats/sort_sequence.h"

namespace mox {

constexpr int leafLength = 9;

// Selection of the last item, again and again: a scan carries the one that belongs behind all
// before it, and those close up behind it. Equal keys keep their order.
template <class Order, class Sequence>
void sortLeaf(Sequence s, Segment leaf) {
  for (long last = leaf.hi; last > leaf.lo; --last) {
    auto carried = s.item(leaf.lo);
    for (long i = leaf.lo + 1; i <= last; ++i) {
      auto next = s.item(i);
      arrange<Order>(carried, next);
      s.put(i - 1, carried);
      carried = next;
    }
    s.put(last, carried);
  }
}

// The larger part of each segment waits while the smaller is sorted, so that the parts that wait
// at one time are fewer than the bits of the length.
template <class Order, class Sequence>
void quickSort(Sequence s, long len) {
  Segment waiting[32];
  int count = 0;
  Segment segment = {0, len - 1};
  for (;;) {
    while (segment.hi - segment.lo >= leafLength) {
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
    sortLeaf<Order>(s, segment);
    if (count == 0) return;
    segment = waiting[--count];
  }
}

}  // namespace mox
