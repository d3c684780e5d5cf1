// Lanes moved within registers and between them.
#pragma once

#include <utility>

#include "frame/vec/core.h"

namespace mox {

// The results of the lower halves of all 16-byte blocks, and those of the upper halves: the way in
// which wide products leave a register, and in which packBlocks() takes them back.
template <class T>
struct BlockHalves {
  T low, high;
};
template <class T>
BlockHalves(T, T) -> BlockHalves<T>;

namespace detail {
template <class T, int... lane>
[[gnu::always_inline]] inline T broadcastTo(Lane<T> e, std::integer_sequence<int, lane...>) {
  return T{(void(lane), e)...};
}
template <auto index, class T, int... lane>
[[gnu::always_inline]] inline auto shuffleBy(T a, T b, std::integer_sequence<int, lane...>) {
  return __builtin_shufflevector(a, b, index(lane)...);
}
}  // namespace detail

// Every lane holds the same value.
template <class T>
[[gnu::always_inline]] inline T broadcast(Lane<T> e) {
  return detail::broadcastTo<T>(e, std::make_integer_sequence<int, laneCount<T>>());
}

// Lane i of the result is lane index(i) of a, or lane index(i) - N of b. The result has as many
// lanes as they have, or `lanes`.
template <auto index, int lanes, class T>
[[gnu::always_inline]] inline auto shuffle(T a, T b) {
  return detail::shuffleBy<index>(a, b, std::make_integer_sequence<int, lanes>());
}
template <auto index, class T>
[[gnu::always_inline]] inline T shuffle(T a, T b) {
  return shuffle<index, laneCount<T>>(a, b);
}
template <auto index, class T>
[[gnu::always_inline]] inline T shuffle(T a) {
  return shuffle<index>(a, a);
}

// A vector as two halves in the order of its lanes; join() undoes it.
template <class T>
struct Halves {
  T low, high;
};
template <class T>
[[gnu::always_inline]] inline auto halves(T v) {
  constexpr int half = laneCount<T> / 2;
  return Halves<V<Lane<T>, half>>{shuffle<[](int i) { return i; }, half>(v, v),
                                  shuffle<[](int i) { return i + half; }, half>(v, v)};
}
template <class Wide, class Half>
[[gnu::always_inline]] inline Wide join(Half low, Half high) {
  return Wide(shuffle<[](int i) { return i; }, 2 * laneCount<Half>>(low, high));
}

// f of a vector, in registers of integers: of its halves where one is too small.
template <class T, class F>
[[gnu::always_inline]] inline auto inIntegers(T v, F f) {
  if constexpr (sizeof v <= integerBytes) {
    return f(v);
  } else {
    const auto [low, high] = halves(v);
    const auto a = f(low), b = f(high);
    return join<V<Lane<decltype(a)>, 2 * laneCount<decltype(a)>>>(a, b);
  }
}

// Interleaves elements E of the lower (upper) halves of a and b in each 16-byte block, as
// unpcklps and unpckhps do.
template <class E, class T>
[[gnu::always_inline]] inline T unpackLow(T a, T b) {
  constexpr int block = 16 / sizeof(E), lanes = sizeof(T) / sizeof(E);
  using W = V<E, lanes>;
  return T(
      shuffle<[](int i) { return i % 2 * lanes + i / block * block + i % block / 2; }>(W(a), W(b)));
}
template <class E, class T>
[[gnu::always_inline]] inline T unpackHigh(T a, T b) {
  constexpr int block = 16 / sizeof(E), lanes = sizeof(T) / sizeof(E);
  using W = V<E, lanes>;
  return T(
      shuffle<[](int i) { return i % 2 * lanes + i / block * block + block / 2 + i % block / 2; }>(
          W(a), W(b)));
}

// The lower halves of two vectors joined, and the upper ones.
template <class T>
[[gnu::always_inline]] inline T joinLow(T a, T b) {
  constexpr int half = sizeof(T) / sizeof(a[0]) / 2;
  return shuffle<[](int i) { return i < half ? i : i + half; }>(a, b);
}
template <class T>
[[gnu::always_inline]] inline T joinHigh(T a, T b) {
  constexpr int half = sizeof(T) / sizeof(a[0]) / 2;
  return shuffle<[](int i) { return i < half ? i + half : i + 2 * half; }>(a, b);
}

// Rows become columns.
[[gnu::always_inline]] inline void transpose(V<Mox32f, 4> (&r)[4]) {
  const V<Mox32f, 4> a = unpackLow<Mox32f>(r[0], r[1]), b = unpackHigh<Mox32f>(r[0], r[1]);
  const V<Mox32f, 4> c = unpackLow<Mox32f>(r[2], r[3]), d = unpackHigh<Mox32f>(r[2], r[3]);
  r[0] = unpackLow<Mox64f>(a, c);
  r[1] = unpackHigh<Mox64f>(a, c);
  r[2] = unpackLow<Mox64f>(b, d);
  r[3] = unpackHigh<Mox64f>(b, d);
}
[[gnu::always_inline]] inline void transpose(V<Mox64f> (&r)[4]) {
  const V<Mox64f> a = unpackLow<Mox64f>(r[0], r[1]), b = unpackHigh<Mox64f>(r[0], r[1]);
  const V<Mox64f> c = unpackLow<Mox64f>(r[2], r[3]), d = unpackHigh<Mox64f>(r[2], r[3]);
  r[0] = joinLow(a, c);
  r[1] = joinLow(b, d);
  r[2] = joinHigh(a, c);
  r[3] = joinHigh(b, d);
}
[[gnu::always_inline]] inline void transpose(V<Mox32f> (&r)[8]) {
  V<Mox32f> quads[2][4];  // columns of the upper four rows, and of the lower four
  for (int half = 0; half < 2; ++half) {
    const V<Mox32f>* p = r + 4 * half;
    const V<Mox32f> a = unpackLow<Mox32f>(p[0], p[1]), b = unpackHigh<Mox32f>(p[0], p[1]);
    const V<Mox32f> c = unpackLow<Mox32f>(p[2], p[3]), d = unpackHigh<Mox32f>(p[2], p[3]);
    quads[half][0] = unpackLow<Mox64f>(a, c);
    quads[half][1] = unpackHigh<Mox64f>(a, c);
    quads[half][2] = unpackLow<Mox64f>(b, d);
    quads[half][3] = unpackHigh<Mox64f>(b, d);
  }
  for (int i = 0; i < 4; ++i) {
    r[i] = joinLow(quads[0][i], quads[1][i]);
    r[i + 4] = joinHigh(quads[0][i], quads[1][i]);
  }
}

}  // namespace mox
