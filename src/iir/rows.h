// A block of samples as rows of lanes, so that one instruction works on as many places of a signal
// as a register has lanes: each lane is a stretch of consecutive samples, and row j holds sample j
// of every stretch.
#pragma once

#include <algorithm>

#include "frame/elements.h"
#include "frame/pair.h"

namespace mox::iir {

// One number, and one in each lane.
template <class E>
using Scalar = std::conditional_t<Complex<E>, Pair<Part<E>>, Part<E>>;
template <class E>
using Lanes = std::conditional_t<Complex<E>, Pair<V<Part<E>>>, V<Part<E>>>;

// A recursion waits for its last output. A second register of lanes is computed meanwhile; complex
// numbers are two registers anyway.
template <class E>
constexpr int registersOf = Complex<E> ? 1 : 2;
template <class E>
struct Row {
  Lanes<E> lanes[registersOf<E>];
};
template <class E>
constexpr int stretchesOf = registersOf<E>* lanesOf<Part<E>>;

template <class T>
[[gnu::always_inline]] inline T times(T a, T b) {
  return a * b;
}
template <class T>
[[gnu::always_inline]] inline Pair<T> times(Pair<T> a, Pair<T> b) {
  return product(a, b);
}

// A number in every lane.
template <class E>
[[gnu::always_inline]] inline Lanes<E> everyLane(const E* p) {
  using F = Part<E>;
  if constexpr (Complex<E>)
    return {broadcast<V<F>>(load<F>(parts(p))), broadcast<V<F>>(load<F>(parts(p) + 1))};
  else
    return broadcast<V<F>>(load<F>(p));
}

// The number of one stretch.
template <class E>
long placeIn(const Row<E>&, int stretch) {
  constexpr int lanes = lanesOf<Part<E>>;
  return stretch / lanes * lanes * partsPerElement<E> + stretch % lanes;
}
template <class E>
Scalar<E> numberOf(const Row<E>& row, int stretch) {
  const auto* p = reinterpret_cast<const Part<E>*>(&row) + placeIn(row, stretch);
  if constexpr (Complex<E>)
    return {p[0], p[lanesOf<Part<E>>]};
  else
    return *p;
}
template <class E>
void setNumber(Row<E>& row, int stretch, Scalar<E> value) {
  auto* p = reinterpret_cast<Part<E>*>(&row) + placeIn(row, stretch);
  if constexpr (Complex<E>)
    p[0] = value.re, p[lanesOf<Part<E>>] = value.im;
  else
    *p = value;
}

// Rows are read and written in tiles: as many as a register has numbers.
template <class E>
constexpr int tileRows = lanesOf<Part<E>> / partsPerElement<E>;

namespace detail {

// One register after the other: the lines of more stretches might not stay in the cache from tile
// to tile. The last tile covers rows of the one before it where the length is no multiple.
template <class E, class Tile>
void forTiles(long length, Tile tile) {
  for (int r = 0; r < registersOf<E>; ++r)
    for (long j = 0; j < length; j += tileRows<E>) tile(std::min(j, length - tileRows<E>), r);
}

}  // namespace detail

// `start(stretch)` is where the samples of a stretch lie.
template <class E, class Start>
void loadRows(Start start, long length, Row<E>* rows) {
  using T = V<Part<E>>;
  constexpr int lanes = lanesOf<Part<E>>, numbers = partsPerElement<E>;
  detail::forTiles<E>(length, [=](long at, int r) {
    T tile[lanes];
    for (int i = 0; i < lanes; ++i) tile[i] = load<T>(start(r * lanes + i) + at);
    transpose(tile);
    for (int i = 0; i < lanes; ++i)
      storeAligned(reinterpret_cast<T*>(&rows[at + i / numbers].lanes[r]) + i % numbers, tile[i]);
  });
}

// `row(j, register)` is what goes to row j.
template <class E, class Row, class Start>
void storeRows(Row row, long length, Start start) {
  using T = V<Part<E>>;
  constexpr int lanes = lanesOf<Part<E>>, numbers = partsPerElement<E>;
  detail::forTiles<E>(length, [=](long at, int r) {
    T tile[lanes];
    for (int i = 0; i < lanes; i += numbers) {
      const Lanes<E> value = row(at + i / numbers, r);
      std::memcpy(tile + i, &value, sizeof value);
    }
    transpose(tile);
    for (int i = 0; i < lanes; ++i) store(start(r * lanes + i) + at, tile[i]);
  });
}
template <class E, class Start>
void storeRows(const Row<E>* rows, long length, Start start) {
  storeRows<E>([=](long j, int r) { return rows[j].lanes[r]; }, length, start);
}

}  // namespace mox::iir
