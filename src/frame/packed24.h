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
// the three low bytes of each lane together. A negative index gives a zero byte.
constexpr V<Mox8s, 16> spread24 = {-1, 0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11};
constexpr V<Mox8s, 16> gather24 = {0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1};

[[gnu::always_inline]] inline V<Mox8s, 16> moveBytes(V<Mox8s, 16> v, V<Mox8s, 16> places) {
  return V<Mox8s, 16>(_mm_shuffle_epi8(__m128i(v), __m128i(places)));
}
}  // namespace detail

// Four samples widened; no byte behind them is read.
template <class Value>
[[gnu::always_inline]] inline V<Value, 4> loadLanes(const Packed24<Value>* p) {
  const __m128i bytes = _mm_insert_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)),
                                         load<int>(p->bytes + 8), 2);
  return V<Value, 4>(detail::moveBytes(V<Mox8s, 16>(bytes), detail::spread24)) >> 8;
}

// Sixteen samples, the low three bytes of each lane.
template <class Value, class Put>
[[gnu::always_inline]] inline void storeLanes(Packed24<Value>* p, const I<Mox32s> (&lanes)[4],
                                              Put put) {
  __m128i v[4];
  for (int j = 0; j < 4; ++j)
    v[j] = __m128i(detail::moveBytes(V<Mox8s, 16>(lanes[j]), detail::gather24));
  put(p->bytes, _mm_or_si128(v[0], _mm_slli_si128(v[1], 12)));
  put(p->bytes + 16, _mm_or_si128(_mm_srli_si128(v[1], 4), _mm_slli_si128(v[2], 8)));
  put(p->bytes + 32, _mm_or_si128(_mm_srli_si128(v[2], 8), _mm_slli_si128(v[3], 4)));
}

}  // namespace mox
