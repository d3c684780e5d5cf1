// Comparisons of lanes, and what is chosen by them.
#pragma once

#include "frame/vec/shuffle.h"

namespace mox {

// A mask of the lanes of T: a vector whose signs tell, or for registers of 64 bytes the bits that
// their comparisons make. A vector serves there as well, but takes two moves between registers.
template <class T>
struct LaneBits {
  static constexpr int lanes = laneCount<T>;
  std::conditional_t<lanes == 16, __mmask16, __mmask8> bits;

  [[gnu::always_inline]] operator T() const {
    if constexpr (lanes == 16)
      return T(_mm512_movm_epi32(bits));
    else
      return T(_mm512_movm_epi64(bits));
  }
};
template <class T>
using Mask = std::conditional_t<sizeof(T) == 64, LaneBits<T>, T>;

namespace detail {
// The lanes for which a comparison holds.
template <int predicate, Of<Mox32f> T>
[[gnu::always_inline]] inline Mask<T> compared(T a, T b) {
  if constexpr (sizeof a == 64)
    return {_mm512_cmp_ps_mask(a, b, predicate)};
  else
    MOX_BY_WIDTH(T, cmp_ps(a, b, predicate));
}
template <int predicate, Of<Mox64f> T>
[[gnu::always_inline]] inline Mask<T> compared(T a, T b) {
  if constexpr (sizeof a == 64)
    return {_mm512_cmp_pd_mask(a, b, predicate)};
  else
    MOX_BY_WIDTH(T, cmp_pd(a, b, predicate));
}
}  // namespace detail

// Masks of the lanes that break a bound; NaN breaks every bound, silently.
template <class T>
[[gnu::always_inline]] inline Mask<T> notAtMost(T v, Lane<T> limit) {
  return detail::compared<_CMP_NLE_UQ>(v, broadcast<T>(limit));
}
template <class T>
[[gnu::always_inline]] inline Mask<T> notAtLeast(T v, Lane<T> limit) {
  return detail::compared<_CMP_NGE_UQ>(v, broadcast<T>(limit));
}
// The lanes in which a is above b.
template <class T>
[[gnu::always_inline]] inline Mask<T> isAbove(T a, T b) {
  return detail::compared<_CMP_GT_OS>(a, b);
}

// The lanes of either mask.
template <class T>
[[gnu::always_inline]] inline T either(T a, T b) {
  return T(Bits<T>(a) | Bits<T>(b));
}
template <class T>
[[gnu::always_inline]] inline LaneBits<T> either(LaneBits<T> a, LaneBits<T> b) {
  return {decltype(a.bits)(a.bits | b.bits)};
}

// One bit for each lane: its sign.
template <class T>
[[gnu::always_inline]] inline Mox64u signBits(T v) {
  constexpr int width = sizeof(Lane<T>), bytes = sizeof v;
  if constexpr (bytes == 64) {
    if constexpr (width == 8)
      return _mm512_movepi64_mask(__m512i(v));
    else if constexpr (width == 4)
      return _mm512_movepi32_mask(__m512i(v));
    else if constexpr (width == 2)
      return _mm512_movepi16_mask(__m512i(v));
    else
      return _mm512_movepi8_mask(__m512i(v));
  } else if constexpr (width == 8) {
    if constexpr (bytes == 16)
      return unsigned(_mm_movemask_pd(__m128d(v)));
    else
      return unsigned(_mm256_movemask_pd(__m256d(v)));
  } else if constexpr (width == 4) {
    if constexpr (bytes == 16)
      return unsigned(_mm_movemask_ps(__m128(v)));
    else
      return unsigned(_mm256_movemask_ps(__m256(v)));
  } else if constexpr (width == 2 && bytes == 32) {
    const auto [low, high] = halves(v);
    return unsigned(_mm_movemask_epi8(_mm_packs_epi16(__m128i(low), __m128i(high))));
  } else if constexpr (width == 2) {
    return unsigned(_mm_movemask_epi8(_mm_packs_epi16(__m128i(v), _mm_setzero_si128())));
  } else if constexpr (bytes == 32) {
    return unsigned(_mm256_movemask_epi8(__m256i(v)));
  } else {
    return unsigned(_mm_movemask_epi8(__m128i(v)));
  }
}

template <class T>
[[gnu::always_inline]] inline Mox64u signBits(LaneBits<T> v) {
  return v.bits;
}

// Whether a comparison holds in any lane, and the first lane in which it does.
template <class T>
[[gnu::always_inline]] inline bool anyLane(T comparison) {
  if constexpr (sizeof(Lane<T>) < 4 &&
                sizeof comparison < 64)  // narrow lanes need not be told apart
    return signBits(V<Mox8s, sizeof comparison>(comparison)) != 0;
  else
    return signBits(comparison) != 0;
}
template <class T>
[[gnu::always_inline]] inline int firstLane(T comparison) {
  return __builtin_ctzll(signBits(comparison));
}

// `yes` in the lanes of the mask, `no` in the others. Spelled out, for GCC takes the intrinsic
// apart into a branch for each lane.
template <class T>
[[gnu::always_inline]] inline T select(LaneBits<T> mask, T yes, T no) {
  if constexpr (sizeof(Lane<T>) == 4)
    return T(_mm512_mask_mov_epi32(__m512i(no), mask.bits, __m512i(yes)));
  else
    return T(_mm512_mask_mov_epi64(__m512i(no), mask.bits, __m512i(yes)));
}
template <class T>
[[gnu::always_inline]] inline T select(T mask, T yes, T no) {
  T r;
  if constexpr (sizeof r == 64) {
    return select(LaneBits<T>{decltype(LaneBits<T>::bits)(signBits(mask))}, yes, no);
  } else if constexpr (sizeof(Lane<T>) == 4) {
    asm("vblendvps %3, %2, %1, %0" : "=x"(r) : "x"(no), "xm"(yes), "x"(mask));
  } else {
    asm("vblendvpd %3, %2, %1, %0" : "=x"(r) : "x"(no), "xm"(yes), "x"(mask));
  }
  return r;
}

}  // namespace mox
