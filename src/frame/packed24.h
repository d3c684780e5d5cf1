// Packed samples of 24 bits.
#pragma once

#include "frame/elements.h"
#include "frame/vec/vec.h"

namespace mox {

// A packed sample of 24 bits, least significant byte first: arrays of bytes hold these.
template <class Value>
struct Packed24 {
  Mox8u bytes[3];

  Packed24() = default;
  explicit Packed24(Value v) : bytes{Mox8u(v), Mox8u(v >> 8), Mox8u(v >> 16)} {}
  // The top byte first: its sign, if it has one, fills the rest.
  operator Value() const {
    constexpr bool isSigned = std::is_signed_v<Value>;
    const Value top = Value(std::conditional_t<isSigned, Mox8s, Mox8u>(bytes[2]));
    return top << 16 | Value(bytes[1]) << 8 | Value(bytes[0]);
  }
};
using Packed24s = Packed24<Mox32s>;
using Packed24u = Packed24<Mox32u>;

// The elements of a public prototype: themselves, or the packed samples that its bytes hold.
template <class Packed, class E>
auto* samples(E* p) {
  using Sample = std::conditional_t<std::is_void_v<Packed>, E, Packed>;
  return reinterpret_cast<std::conditional_t<std::is_const_v<E>, const Sample, Sample>*>(p);
}

template <class Value>
struct Limits<Packed24<Value>> {
  static constexpr int digits = Limits<Value>::digits - 8;
  static constexpr Int128 max = Limits<Value>::max >> 8, min = Limits<Value>::min >> 8;
};

namespace detail {
// Byte moves of four lanes: the three bytes of each packed sample to the top of a 32-bit lane, and
// the three low bytes of each lane together. An index with bit 7 set gives a zero byte.
using Block = V<Mox8u, 16>;
constexpr Block spread24 = {255, 0, 1, 2, 255, 3, 4, 5, 255, 6, 7, 8, 255, 9, 10, 11};
constexpr Block gather24 = {0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, 255, 255, 255, 255};
}  // namespace detail

// Samples widened; no byte behind them is read.
template <class Wide, class Value>
[[gnu::always_inline]] inline Wide loadLanes(const Packed24<Value>* p) {
  constexpr int count = laneCount<Wide>;
  if constexpr (count > 4) {
    using Half = V<Lane<Wide>, count / 2>;
    return join<Wide>(loadLanes<Half>(p), loadLanes<Half>(p + count / 2));
  } else {
    const Mox8u* packed = &p->bytes[0];
    const __m128i bytes = _mm_insert_epi32(
        _mm_loadl_epi64(reinterpret_cast<const __m128i*>(packed)), load<int>(packed + 8), 2);
    return Wide(V<Value, 4>(lookUp(detail::Block(bytes), detail::spread24)) >> 8);
  }
}

// The low three bytes of each lane, of sixteen lanes or a multiple of that.
template <class T, int count>
[[gnu::always_inline]] inline auto packedLanes(const Registers<T, count>& lanes) {
  if constexpr (sizeof(T) > 16) {
    Registers<V<Lane<T>, laneCount<T> / 2>, 2 * count> narrow;
    for (int j = 0; j < count; ++j) {
      const auto [low, high] = halves(lanes.of[j]);
      narrow.of[2 * j] = low, narrow.of[2 * j + 1] = high;
    }
    return packedLanes(narrow);
  } else {
    Registers<detail::Block, count / 4 * 3> packed;
    for (int j = 0; j < count / 4; ++j) {
      __m128i v[4];
      for (int k = 0; k < 4; ++k)
        v[k] = __m128i(lookUp(detail::Block(lanes.of[4 * j + k]), detail::gather24));
      packed.of[3 * j] = detail::Block(_mm_or_si128(v[0], _mm_slli_si128(v[1], 12)));
      packed.of[3 * j + 1] =
          detail::Block(_mm_or_si128(_mm_srli_si128(v[1], 4), _mm_slli_si128(v[2], 8)));
      packed.of[3 * j + 2] =
          detail::Block(_mm_or_si128(_mm_srli_si128(v[2], 8), _mm_slli_si128(v[3], 4)));
    }
    return packed;
  }
}

}  // namespace mox
