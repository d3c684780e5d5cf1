// Lanes of integers: saturation, whole products, shifts, tables.
#pragma once

#include "frame/vec/shuffle.h"

namespace mox {

// Two vectors as one of half as wide lanes, each saturated to E: vectors that hold consecutive
// elements, and those that a wide product has left by blocks.
template <class E>
[[gnu::always_inline]] inline I<E> packInOrder(I<Mox32s> low, I<Mox32s> high) {
  static_assert(integerBytes == 16, "wider packs go by blocks: put those in order behind them");
  if constexpr (std::is_same_v<E, Mox16s>)
    return I<E>(_mm_packs_epi32(__m128i(low), __m128i(high)));
  else
    return I<E>(_mm_packus_epi32(__m128i(low), __m128i(high)));
}
template <class E>
[[gnu::always_inline]] inline I<E> packInOrder(I<Mox16s> low, I<Mox16s> high) {
  static_assert(integerBytes == 16, "wider packs go by blocks: put those in order behind them");
  if constexpr (std::is_same_v<E, Mox8s>)
    return I<E>(_mm_packs_epi16(__m128i(low), __m128i(high)));
  else
    return I<E>(_mm_packus_epi16(__m128i(low), __m128i(high)));
}
template <class E, class T>
[[gnu::always_inline]] inline I<E> packBlocks(BlockHalves<T> v) {
  return packInOrder<E>(v.low, v.high);
}

// Lane i is the entry of the table at the low four bits of index[i], 0 where its bit 7 is set.
[[gnu::always_inline]] inline I<Mox8u> lookUp(I<Mox8u> table, I<Mox8u> index) {
  return I<Mox8u>(_mm_shuffle_epi8(__m128i(table), __m128i(index)));
}

// Sums and differences lane by lane, saturated to the type of a lane.
[[gnu::always_inline]] inline I<Mox8u> addSaturated(I<Mox8u> a, I<Mox8u> b) {
  return I<Mox8u>(_mm_adds_epu8(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline I<Mox16u> addSaturated(I<Mox16u> a, I<Mox16u> b) {
  return I<Mox16u>(_mm_adds_epu16(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline I<Mox16s> addSaturated(I<Mox16s> a, I<Mox16s> b) {
  return I<Mox16s>(_mm_adds_epi16(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline I<Mox32u> addSaturated(I<Mox32u> a, I<Mox32u> b) {
  const auto r = a + b;
  return r | I<Mox32u>(r < a);
}
// `wrapped` where it is the true result, else the limit on the side of `a`.
[[gnu::always_inline]] inline I<Mox32s> unlessWrapped(I<Mox32s> wrapped, I<Mox32s> a,
                                                      I<Mox32s> wrongSign) {
  const auto limit = a >> 31 ^ 0x7FFFFFFF;
  return I<Mox32s>(_mm_blendv_ps(__m128(wrapped), __m128(limit), __m128(wrongSign)));
}
[[gnu::always_inline]] inline I<Mox32s> addSaturated(I<Mox32s> a, I<Mox32s> b) {
  const auto r = I<Mox32s>(I<Mox32u>(a) + I<Mox32u>(b));
  return unlessWrapped(r, a, (a ^ r) & (b ^ r));
}
[[gnu::always_inline]] inline I<Mox8u> subtractSaturated(I<Mox8u> a, I<Mox8u> b) {
  return I<Mox8u>(_mm_subs_epu8(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline I<Mox16u> subtractSaturated(I<Mox16u> a, I<Mox16u> b) {
  return I<Mox16u>(_mm_subs_epu16(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline I<Mox16s> subtractSaturated(I<Mox16s> a, I<Mox16s> b) {
  return I<Mox16s>(_mm_subs_epi16(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline I<Mox32s> subtractSaturated(I<Mox32s> a, I<Mox32s> b) {
  const auto r = I<Mox32s>(I<Mox32u>(a) - I<Mox32u>(b));
  return unlessWrapped(r, a, (a ^ b) & (a ^ r));
}

// Magnitudes of integers, for scalars and vectors; unsigned, so that each has one.
[[gnu::always_inline]] inline I<Mox16u> magnitude(I<Mox16s> v) {
  return I<Mox16u>(_mm_abs_epi16(__m128i(v)));
}
[[gnu::always_inline]] inline I<Mox32u> magnitude(I<Mox32s> v) {
  return I<Mox32u>(_mm_abs_epi32(__m128i(v)));
}
template <class E>
requires std::is_integral_v<E>
[[gnu::always_inline]] inline auto magnitude(E x) {
  using Unsigned = std::make_unsigned_t<E>;
  return Unsigned(x < 0 ? Unsigned(0) - Unsigned(x) : Unsigned(x));
}

// Sums that may leave 32 bits, and come back with what is added next.
[[gnu::always_inline]] inline I<Mox32s> addWrapping(I<Mox32s> a, I<Mox32s> b) {
  return I<Mox32s>(I<Mox32u>(a) + I<Mox32u>(b));
}

// The upper halves of products.
[[gnu::always_inline]] inline I<Mox16u> multiplyHigh(I<Mox16u> a, I<Mox16u> b) {
  return I<Mox16u>(_mm_mulhi_epu16(__m128i(a), __m128i(b)));
}
// Whole products.
[[gnu::always_inline]] inline BlockHalves<I<Mox32s>> multiplyWide(I<Mox16s> a, I<Mox16s> b) {
  a = inRegister(a), b = inRegister(b);
  const __m128i low = _mm_mullo_epi16(__m128i(a), __m128i(b));
  const __m128i high = _mm_mulhi_epi16(__m128i(a), __m128i(b));
  return {I<Mox32s>(_mm_unpacklo_epi16(low, high)), I<Mox32s>(_mm_unpackhi_epi16(low, high))};
}
[[gnu::always_inline]] inline BlockHalves<I<Mox32u>> multiplyWide(I<Mox16u> a, I<Mox16u> b) {
  a = inRegister(a), b = inRegister(b);
  const __m128i low = _mm_mullo_epi16(__m128i(a), __m128i(b));
  const __m128i high = _mm_mulhi_epu16(__m128i(a), __m128i(b));
  return {I<Mox32u>(_mm_unpacklo_epi16(low, high)), I<Mox32u>(_mm_unpackhi_epi16(low, high))};
}
// a[2i] * b[2i] + a[2i+1] * b[2i+1] in 32 bits, which a sum of 2^31 leaves.
[[gnu::always_inline]] inline I<Mox32s> multiplyAddPairs(I<Mox16s> a, I<Mox16s> b) {
  return I<Mox32s>(_mm_madd_epi16(__m128i(a), __m128i(b)));
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
