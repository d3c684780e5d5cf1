// Arrays turned end for end, each element through an operation on the way.
#pragma once

#include <type_traits>

#include "frame/elements.h"
#include "frame/vec/vec.h"

namespace mox::move {

// What carries elements from place to place, several or a single one, with no regard to what their
// bits mean. Bytes and words are shuffled in registers of integers.
template <class E>
struct Carrier {
  using Single = BitsOf<E>;
  using Vector = std::conditional_t<sizeof(E) == 8, V<Mox64f>,
                                    std::conditional_t<sizeof(E) == 4, V<Mox32f>, I<Single>>>;
};
template <>
struct Carrier<Mox64fc> {
  using Single = V<Mox64f, 2>;
  using Vector = V<Mox64f>;
};

namespace detail {

template <class E>
using CarrierVector = typename Carrier<E>::Vector;
template <class E>
constexpr long carried = sizeof(CarrierVector<E>) / sizeof(E);

template <class E>
[[gnu::always_inline]] inline CarrierVector<E> reversed(CarrierVector<E> v) {
  constexpr int perHalf = 16 / sizeof(E);
  constexpr int longs = sizeof v / 8;
  if constexpr (sizeof v > 16)
    v = CarrierVector<E>(shuffle<[](int i) { return i ^ (longs - 2); }>(V<Mox64f, longs>(v)));
  return shuffle<[](int i) { return i ^ (perHalf - 1); }>(v);
}

}  // namespace detail

// dst[i] = op(src[len - 1 - i]), where `op` is applied to carriers.
template <class E, class Op>
void reverseCopy(const E* src, E* dst, long len, Op op) {
  using Vector = typename Carrier<E>::Vector;
  constexpr long lanes = detail::carried<E>;
  long i = 0;
  const auto vector = [&](long at) {
    store(dst + at, op(detail::reversed<E>(load<Vector>(src + len - at - lanes))));
  };
  if (len < lanes) {
    for (; i < len; ++i) store(dst + i, op(load<typename Carrier<E>::Single>(src + len - 1 - i)));
    return;
  }
  vector(0);
  i = lanes - long(addressOf(dst) % sizeof(Vector)) / long(sizeof(E));
  for (; i < len - 4 * lanes; i += 4 * lanes)
    for (int j = 0; j < 4; ++j) vector(i + j * lanes);
  for (; i < len - lanes; i += lanes) vector(i);
  vector(len - lanes);
}

template <class E, class Op>
void reverseInPlace(E* srcDst, long len, Op op) {
  using Vector = typename Carrier<E>::Vector;
  using Single = typename Carrier<E>::Single;
  constexpr long lanes = detail::carried<E>;
  long low = 0, high = len;
  // Two vectors may overlap in the middle, where both put the same elements.
  for (; high - low >= lanes; low += lanes, high -= lanes) {
    E* const last = srcDst + high - lanes;
    const auto a = load<Vector>(srcDst + low), b = load<Vector>(last);
    store(srcDst + low, op(detail::reversed<E>(b)));
    store(last, op(detail::reversed<E>(a)));
  }
  for (; low < high; ++low, --high) {
    const auto a = load<Single>(srcDst + low), b = load<Single>(srcDst + high - 1);
    store(srcDst + low, op(b));
    store(srcDst + high - 1, op(a));
  }
}

}  // namespace mox::move
