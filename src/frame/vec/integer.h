// Lanes of integers: saturation, whole products, shifts, tables.
#pragma once

#include "frame/vec/shuffle.h"

namespace mox {

// Two vectors joined, each lane saturated to E.
template <class E>
[[gnu::always_inline]] inline V<E, 8> packSaturated(V<Mox32s, 4> low, V<Mox32s, 4> high) {
  if constexpr (std::is_same_v<E, Mox16s>)
    return V<E, 8>(_mm_packs_epi32(__m128i(low), __m128i(high)));
  else
    return V<E, 8>(_mm_packus_epi32(__m128i(low), __m128i(high)));
}
template <class E>
[[gnu::always_inline]] inline V<E, 16> packSaturated(V<Mox16s, 8> low, V<Mox16s, 8> high) {
  if constexpr (std::is_same_v<E, Mox8s>)
    return V<E, 16>(_mm_packs_epi16(__m128i(low), __m128i(high)));
  else
    return V<E, 16>(_mm_packus_epi16(__m128i(low), __m128i(high)));
}

// Lane i is the entry of the table at the low four bits of index[i], 0 where its bit 7 is set.
[[gnu::always_inline]] inline V<Mox8u, 16> lookUp(V<Mox8u, 16> table, V<Mox8u, 16> index) {
  return V<Mox8u, 16>(_mm_shuffle_epi8(__m128i(table), __m128i(index)));
}

// Sums and differences lane by lane, saturated to the type of a lane.
[[gnu::always_inline]] inline V<Mox8u, 16> addSaturated(V<Mox8u, 16> a, V<Mox8u, 16> b) {
  return V<Mox8u, 16>(_mm_adds_epu8(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline V<Mox16u, 8> addSaturated(V<Mox16u, 8> a, V<Mox16u, 8> b) {
  return V<Mox16u, 8>(_mm_adds_epu16(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline V<Mox16s, 8> addSaturated(V<Mox16s, 8> a, V<Mox16s, 8> b) {
  return V<Mox16s, 8>(_mm_adds_epi16(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline V<Mox32u, 4> addSaturated(V<Mox32u, 4> a, V<Mox32u, 4> b) {
  const auto r = a + b;
  return r | V<Mox32u, 4>(r < a);
}
// `wrapped` where it is the true result, else the limit on the side of `a`.
[[gnu::always_inline]] inline V<Mox32s, 4> unlessWrapped(V<Mox32s, 4> wrapped, V<Mox32s, 4> a,
                                                         V<Mox32s, 4> wrongSign) {
  const auto limit = a >> 31 ^ 0x7FFFFFFF;
  return V<Mox32s, 4>(_mm_blendv_ps(__m128(wrapped), __m128(limit), __m128(wrongSign)));
}
[[gnu::always_inline]] inline V<Mox32s, 4> addSaturated(V<Mox32s, 4> a, V<Mox32s, 4> b) {
  const auto r = V<Mox32s, 4>(V<Mox32u, 4>(a) + V<Mox32u, 4>(b));
  return unlessWrapped(r, a, (a ^ r) & (b ^ r));
}
[[gnu::always_inline]] inline V<Mox8u, 16> subtractSaturated(V<Mox8u, 16> a, V<Mox8u, 16> b) {
  return V<Mox8u, 16>(_mm_subs_epu8(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline V<Mox16u, 8> subtractSaturated(V<Mox16u, 8> a, V<Mox16u, 8> b) {
  return V<Mox16u, 8>(_mm_subs_epu16(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline V<Mox16s, 8> subtractSaturated(V<Mox16s, 8> a, V<Mox16s, 8> b) {
  return V<Mox16s, 8>(_mm_subs_epi16(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline V<Mox32s, 4> subtractSaturated(V<Mox32s, 4> a, V<Mox32s, 4> b) {
  const auto r = V<Mox32s, 4>(V<Mox32u, 4>(a) - V<Mox32u, 4>(b));
  return unlessWrapped(r, a, (a ^ b) & (a ^ r));
}

// Magnitudes of integers, for scalars and vectors; unsigned, so that each has one.
[[gnu::always_inline]] inline V<Mox16u, 8> magnitude(V<Mox16s, 8> v) {
  return V<Mox16u, 8>(_mm_abs_epi16(__m128i(v)));
}
[[gnu::always_inline]] inline V<Mox32u, 4> magnitude(V<Mox32s, 4> v) {
  return V<Mox32u, 4>(_mm_abs_epi32(__m128i(v)));
}
template <class E>
requires std::is_integral_v<E>
[[gnu::always_inline]] inline auto magnitude(E x) {
  using Unsigned = std::make_unsigned_t<E>;
  return Unsigned(x < 0 ? Unsigned(0) - Unsigned(x) : Unsigned(x));
}

// Sums that may leave 32 bits, and come back with what is added next.
[[gnu::always_inline]] inline V<Mox32s, 4> addWrapping(V<Mox32s, 4> a, V<Mox32s, 4> b) {
  return V<Mox32s, 4>(V<Mox32u, 4>(a) + V<Mox32u, 4>(b));
}

// The upper halves of products.
[[gnu::always_inline]] inline V<Mox16u, 8> multiplyHigh(V<Mox16u, 8> a, V<Mox16u, 8> b) {
  return V<Mox16u, 8>(_mm_mulhi_epu16(__m128i(a), __m128i(b)));
}
// Whole products.
[[gnu::always_inline]] inline Halves<Mox32s> multiplyWide(V<Mox16s, 8> a, V<Mox16s, 8> b) {
  a = inRegister(a), b = inRegister(b);
  const __m128i low = _mm_mullo_epi16(__m128i(a), __m128i(b));
  const __m128i high = _mm_mulhi_epi16(__m128i(a), __m128i(b));
  return {V<Mox32s, 4>(_mm_unpacklo_epi16(low, high)), V<Mox32s, 4>(_mm_unpackhi_epi16(low, high))};
}
[[gnu::always_inline]] inline Halves<Mox32u> multiplyWide(V<Mox16u, 8> a, V<Mox16u, 8> b) {
  a = inRegister(a), b = inRegister(b);
  const __m128i low = _mm_mullo_epi16(__m128i(a), __m128i(b));
  const __m128i high = _mm_mulhi_epu16(__m128i(a), __m128i(b));
  return {V<Mox32u, 4>(_mm_unpacklo_epi16(low, high)), V<Mox32u, 4>(_mm_unpackhi_epi16(low, high))};
}
// a[2i] * b[2i] + a[2i+1] * b[2i+1] in 32 bits, which a sum of 2^31 leaves.
[[gnu::always_inline]] inline V<Mox32s, 4> multiplyAddPairs(V<Mox16s, 8> a, V<Mox16s, 8> b) {
  return V<Mox32s, 4>(_mm_madd_epi16(__m128i(a), __m128i(b)));
}

// Lanes shifted by up to their width. There is no shift of bytes: those move in pairs, and must not
// have bits that would reach the neighbour.
template <class W>
[[gnu::always_inline]] inline W shiftLeft(W v, int count) {
  const __m128i places = _mm_cvtsi32_si128(count);
  if constexpr (sizeof(Lane<W>) == 4)
    return W(_mm_sll_epi32(__m128i(v), places));
  else
    return W(_mm_sll_epi16(__m128i(v), places));
}

// The quotient of two words by one, where it fits in a word. In the language this is a call of the
// compiler's runtime library.
inline Mox64u divideWide(Mox64u high, Mox64u low, Mox64u divisor) {
  asm("divq %2" : "+a"(low), "+d"(high) : "rm"(divisor) : "cc");
  return low;
}

}  // namespace mox
