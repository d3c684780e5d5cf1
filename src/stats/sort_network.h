// Sorting networks in registers for segments of a few dozen keys.
#pragma once

#include <algorithm>
#include <bit>

#include "frame/unrolled.h"
#include "stats/sort_order.h"
#include "stats/sort_partition.h"

namespace mox::stats {

// The keys that a network holds in one register. straighten() puts rows of up to 32 bytes in order.
template <class T>
using NetworkRow = V<T, std::min(registerBytes<T>, 32) / int(sizeof(T))>;

// The number of rows of the largest network.
template <class T>
constexpr int networkRows = std::min(16, 128 / laneCount<NetworkRow<T>>);
// The number of keys that `rows` rows hold.
template <class T, int rows = networkRows<T>>
constexpr int networkKeys = rows* laneCount<NetworkRow<T>>;

namespace detail {

// Rank i stands in lane i / rows of row i % rows. Each is compared with the one whose number
// differs in the bits of `mask`; the lower of the two ranks gets the key that belongs first, and
// keeps its own where the two are equal or one is NaN.
template <class Order, int mask, int rows, class Row>
[[gnu::always_inline]] inline void exchangeRanks(Row (&a)[rows]) {
  constexpr int rowMask = mask % rows, laneMask = mask / rows, lanes = laneCount<Row>;
  constexpr int topBit = int(std::bit_floor(unsigned(mask)));
  Row partners[rows];
#pragma GCC unroll 16
  for (int r = 0; r < rows; ++r)
    partners[r] = shuffle<[](int lane) { return lane ^ laneMask; }>(a[r ^ rowMask]);
#pragma GCC unroll 16
  for (int r = 0; r < rows; ++r) {
    const Row first = Order::first(a[r], partners[r]), second = Order::second(partners[r], a[r]);
    if constexpr (topBit < rows)
      a[r] = r & topBit ? second : first;
    else
      a[r] = shuffle<[](int lane) { return lane * rows & topBit ? lanes + lane : lane; }>(first,
                                                                                          second);
  }
}

// Batcher's bitonic sort: runs of 2, 4, 8 ... are merged from two, the second taken backwards.
template <class Order, int length = 2, int rows, class Row>
[[gnu::always_inline]] inline void sortRanks(Row (&a)[rows]) {
  if constexpr (length <= rows * laneCount<Row>) {
    exchangeRanks<Order, length - 1>(a);
    unrolled<std::countr_zero(unsigned(length)) - 1>(
        [&](auto step) { exchangeRanks<Order, (length / 4 >> step)>(a); });
    sortRanks<Order, 2 * length>(a);
  }
}

// Puts the ranks in order along the rows. Each round of interleaving makes the highest bit of the
// row the lowest bit of the lane within a 16-byte block; the last one puts blocks together.
template <int rows, class Row>
[[gnu::always_inline]] inline void straighten(Row (&a)[rows]) {
  using E = Lane<Row>;
  const auto deal = [&](auto pair) {
    Row dealt[rows];
    for (int i = 0; i < rows / 2; ++i) pair(dealt, i);
    std::copy_n(dealt, rows, a);
  };
  for (int n = 1; n < rows; n *= 2)
    deal([&](Row* dealt, int i) {
      dealt[2 * i] = unpackLow<E>(a[i], a[i + rows / 2]);
      dealt[2 * i + 1] = unpackHigh<E>(a[i], a[i + rows / 2]);
    });
  if constexpr (rows > 1 && sizeof(Row) == 32)
    deal([&](Row* dealt, int i) {
      dealt[i] = joinLow(a[2 * i], a[2 * i + 1]);
      dealt[i + rows / 2] = joinHigh(a[2 * i], a[2 * i + 1]);
    });
}

template <class Order, int rows, class T>
[[gnu::flatten]] void sortRegisters(T* keys) {
  using Row = NetworkRow<T>;
  constexpr int lanes = laneCount<Row>;
  Row a[rows];
  for (int r = 0; r < rows; ++r) a[r] = load<Row>(keys + r * lanes);
  sortRanks<Order>(a);
  straighten(a);
  for (int r = 0; r < rows; ++r) store(keys + r * lanes, a[r]);
}

}  // namespace detail

// Sorts a segment of a partitioned vector of `len` keys. The neighbours that fill the network are
// in order with the segment, so that they stay on their sides of it.
template <class Order, int rows = 1, class T>
void sortByNetwork(T* keys, long len, Segment leaf) {
  constexpr int window = networkKeys<T, rows>;
  if constexpr (rows < networkRows<T>)
    if (leaf.hi - leaf.lo >= window) return sortByNetwork<Order, 2 * rows>(keys, len, leaf);
  detail::sortRegisters<Order, rows>(keys + std::min(leaf.lo, len - window));
}

}  // namespace mox::stats
