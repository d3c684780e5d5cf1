// Lanes of integers: saturation, whole products, shifts, tables.
#pragma once

#include "frame/vec/mask.h"
#include "frame/vec/shuffle.h"

namespace mox {

namespace detail {
// The narrow lanes, by 16-byte blocks of two vectors of wide ones, in the order of those.
template <class T>
[[gnu::always_inline]] inline T blocksInOrder(T packed) {
  constexpr int blocks = sizeof(T) / 16;
  if constexpr (blocks == 1) {
    return packed;
  } else {
    // Each block holds half a block of the first vector, then half a block of the second.
    constexpr auto order = [](int i) { return i % blocks * 2 + i / blocks; };
    return T(shuffle<order>(V<Mox64s, 2 * blocks>(packed)));
  }
}
}  // namespace detail

// Two vectors as one of half as wide lanes, each saturated to E. packBlocks() takes them as a wide
// product has left them; packInOrder() takes vectors that hold consecutive elements.
template <class E, class T>
[[gnu::always_inline]] inline V<E, sizeof(T) / sizeof(E)> packBlocks(BlockHalves<T> v) {
  using R = V<E, sizeof(T) / sizeof(E)>;
  if constexpr (std::is_same_v<E, Mox16s>)
    MOX_BY_WIDTH(R, packs_epi32(raw(v.low), raw(v.high)));
  else if constexpr (std::is_same_v<E, Mox16u>)
    MOX_BY_WIDTH(R, packus_epi32(raw(v.low), raw(v.high)));
  else if constexpr (std::is_same_v<E, Mox8s>)
    MOX_BY_WIDTH(R, packs_epi16(raw(v.low), raw(v.high)));
  else
    MOX_BY_WIDTH(R, packus_epi16(raw(v.low), raw(v.high)));
}
template <class E, class T>
[[gnu::always_inline]] inline V<E, sizeof(T) / sizeof(E)> packInOrder(T low, T high) {
  return detail::blocksInOrder(packBlocks<E>(BlockHalves{low, high}));
}

// As many lanes of half the width, each saturated to E.
template <class E, class T>
[[gnu::always_inline]] inline Beside<E, T> narrowed(T v) {
  constexpr int lanes = laneCount<T>;
  if constexpr (sizeof v > 16) {
    const auto [low, high] = halves(v);
    return packInOrder<E>(low, high);
  } else {
    const auto full = shuffle<[](int i) { return i % lanes; }, 16 / int(sizeof(Lane<T>))>(v, v);
    const auto packed = packInOrder<E>(full, full);
    return shuffle<[](int i) { return i; }, lanes>(packed, packed);
  }
}

// Lane i is the entry of the table at the low four bits of index[i], 0 where its bit 7 is set. The
// table is repeated in each 16-byte block.
template <Of<Mox8u> T>
[[gnu::always_inline]] inline T lookUp(T table, T index) {
  MOX_BY_WIDTH(T, shuffle_epi8(raw(table), raw(index)));
}

// Sums that may leave 32 bits, and come back with what is added next.
template <Of<Mox32s> T>
[[gnu::always_inline]] inline T addWrapping(T a, T b) {
  using Unsigned = Beside<Mox32u, T>;
  return T(Unsigned(a) + Unsigned(b));
}

// Sums and differences lane by lane, saturated to the type of a lane.
template <Of<Mox8u> T>
[[gnu::always_inline]] inline T addSaturated(T a, T b) {
  MOX_BY_WIDTH(T, adds_epu8(raw(a), raw(b)));
}
template <Of<Mox16u> T>
[[gnu::always_inline]] inline T addSaturated(T a, T b) {
  MOX_BY_WIDTH(T, adds_epu16(raw(a), raw(b)));
}
template <Of<Mox16s> T>
[[gnu::always_inline]] inline T addSaturated(T a, T b) {
  MOX_BY_WIDTH(T, adds_epi16(raw(a), raw(b)));
}
template <Of<Mox32u> T>
[[gnu::always_inline]] inline T addSaturated(T a, T b) {
  const T r = a + b;
  return r | T(r < a);
}
template <Of<Mox8u> T>
[[gnu::always_inline]] inline T subtractSaturated(T a, T b) {
  MOX_BY_WIDTH(T, subs_epu8(raw(a), raw(b)));
}
template <Of<Mox16u> T>
[[gnu::always_inline]] inline T subtractSaturated(T a, T b) {
  MOX_BY_WIDTH(T, subs_epu16(raw(a), raw(b)));
}
template <Of<Mox16s> T>
[[gnu::always_inline]] inline T subtractSaturated(T a, T b) {
  MOX_BY_WIDTH(T, subs_epi16(raw(a), raw(b)));
}

// `wrapped` where it is the true result, else the limit on the side of `a`.
template <Of<Mox32s> T>
[[gnu::always_inline]] inline T unlessWrapped(T wrapped, T a, T wrongSign) {
  using F = Beside<Mox32f, T>;
  return T(select(F(wrongSign), F(a >> 31 ^ 0x7FFFFFFF), F(wrapped)));
}
template <Of<Mox32s> T>
[[gnu::always_inline]] inline T addSaturated(T a, T b) {
  a = inRegister(a), b = inRegister(b);
  const T r = addWrapping(a, b);
  return unlessWrapped(r, a, (a ^ r) & (b ^ r));
}
template <Of<Mox32s> T>
[[gnu::always_inline]] inline T subtractSaturated(T a, T b) {
  using Unsigned = Beside<Mox32u, T>;
  a = inRegister(a), b = inRegister(b);
  const T r = T(Unsigned(a) - Unsigned(b));
  return unlessWrapped(r, a, (a ^ b) & (a ^ r));
}

// Magnitudes of integers, for scalars and vectors; unsigned, so that each has one.
template <Of<Mox16s> T>
[[gnu::always_inline]] inline auto magnitude(T v) {
  using R = Beside<Mox16u, T>;
  MOX_BY_WIDTH(R, abs_epi16(raw(v)));
}
template <Of<Mox32s> T>
[[gnu::always_inline]] inline auto magnitude(T v) {
  using R = Beside<Mox32u, T>;
  MOX_BY_WIDTH(R, abs_epi32(raw(v)));
}
template <class E>
requires std::is_integral_v<E>
[[gnu::always_inline]] inline auto magnitude(E x) {
  using Unsigned = std::make_unsigned_t<E>;
  return Unsigned(x < 0 ? Unsigned(0) - Unsigned(x) : Unsigned(x));
}

// The upper and the lower halves of products.
template <Of<Mox16s> T>
[[gnu::always_inline]] inline T multiplyHigh(T a, T b) {
  MOX_BY_WIDTH(T, mulhi_epi16(raw(a), raw(b)));
}
template <Of<Mox16u> T>
[[gnu::always_inline]] inline T multiplyHigh(T a, T b) {
  MOX_BY_WIDTH(T, mulhi_epu16(raw(a), raw(b)));
}
template <class T>
[[gnu::always_inline]] inline T multiplyLow(T a, T b) {
  using Words = Beside<Mox16u, T>;  // no overflow of signed ones
  return T(Words(a) * Words(b));
}
// Products over 2^15, rounded to nearest with ties upwards; that of -32768 with itself wraps.
template <Of<Mox16s> T>
[[gnu::always_inline]] inline T multiplyFractions(T a, T b) {
  MOX_BY_WIDTH(T, mulhrs_epi16(raw(a), raw(b)));
}
// Whole products of 16-bit lanes.
template <class T>
[[gnu::always_inline]] inline auto multiplyWide(T a, T b) {
  a = inRegister(a), b = inRegister(b);
  using Whole = std::conditional_t<std::is_signed_v<Lane<T>>, Mox32s, Mox32u>;
  using R = V<Whole, laneCount<T> / 2>;
  const T low = multiplyLow(a, b), high = multiplyHigh(a, b);
  return BlockHalves{R(unpackLow<Mox16u>(low, high)), R(unpackHigh<Mox16u>(low, high))};
}
// a[2i] * b[2i] + a[2i+1] * b[2i+1] in 32 bits, which a sum of 2^31 leaves.
template <Of<Mox16s> T>
[[gnu::always_inline]] inline auto multiplyAddPairs(T a, T b) {
  using R = V<Mox32s, laneCount<T> / 2>;
  MOX_BY_WIDTH(R, madd_epi16(raw(a), raw(b)));
}

// Lanes shifted by up to their width. There is no shift of bytes: those move in pairs, and must not
// have bits that would reach the neighbour.
template <class T>
[[gnu::always_inline]] inline T shiftLeft(T v, int count) {
  const __m128i places = _mm_cvtsi32_si128(count);
  if constexpr (sizeof(Lane<T>) == 4)
    MOX_BY_WIDTH(T, sll_epi32(raw(v), places));
  else
    MOX_BY_WIDTH(T, sll_epi16(raw(v), places));
}

// The quotient of two words by one, where it fits in a word. In the language this is a call of the
// compiler's runtime library.
inline Mox64u divideWide(Mox64u high, Mox64u low, Mox64u divisor) {
  asm("divq %2" : "+a"(low), "+d"(high) : "rm"(divisor) : "cc");
  return low;
}

}  // namespace mox
