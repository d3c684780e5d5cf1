// Bytes have few values: counting them sorts them.
#pragma once

#include <moxsp/types.h>

#include "move/fill.h"
#include "stats/sort_order.h"

namespace mox::stats {

constexpr int byteValues = 256;

// Consecutive bytes go to different tables, so that in a run of one value no byte waits for the
// counter of the one before.
inline void countBytes(const Mox8u* src, long len, Mox32s (&counts)[byteValues]) {
  constexpr int tables = 4;
  Mox32s partial[tables][byteValues] = {};
  long i = 0;
  for (; i <= len - tables; i += tables)
    for (int t = 0; t < tables; ++t) ++partial[t][src[i + t]];
  for (; i < len; ++i) ++partial[0][src[i]];
  for (int v = 0; v < byteValues; ++v) {
    counts[v] = 0;
    for (const auto& table : partial) counts[v] += table[v];
  }
}

template <class Order>
void sortByCounting(Mox8u* srcDst, long len) {
  Mox32s counts[byteValues];
  countBytes(srcDst, len, counts);
  for (int rank = 0; rank < byteValues; ++rank) {
    const int value = Order::before(0, 1) ? rank : byteValues - 1 - rank;
    move::fill(move::patternOf(Mox8u(value)), srcDst, counts[value]);
    srcDst += counts[value];
  }
}

}  // namespace mox::stats
