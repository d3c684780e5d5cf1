// Comparisons of lanes, and what is chosen by them.
#pragma once

#include "frame/vec/core.h"

namespace mox {

// Masks of the lanes that break a bound; NaN breaks every bound, silently.
[[gnu::always_inline]] inline V<Mox32f> notAtMost(V<Mox32f> v, Mox32f limit) {
  return V<Mox32f>(_mm256_cmp_ps(v, _mm256_set1_ps(limit), _CMP_NLE_UQ));
}
[[gnu::always_inline]] inline V<Mox64f> notAtMost(V<Mox64f> v, Mox64f limit) {
  return V<Mox64f>(_mm256_cmp_pd(v, _mm256_set1_pd(limit), _CMP_NLE_UQ));
}
[[gnu::always_inline]] inline V<Mox32f> notAtLeast(V<Mox32f> v, Mox32f limit) {
  return V<Mox32f>(_mm256_cmp_ps(v, _mm256_set1_ps(limit), _CMP_NGE_UQ));
}
[[gnu::always_inline]] inline V<Mox64f> notAtLeast(V<Mox64f> v, Mox64f limit) {
  return V<Mox64f>(_mm256_cmp_pd(v, _mm256_set1_pd(limit), _CMP_NGE_UQ));
}

// The lanes of either mask.
template <class T>
[[gnu::always_inline]] inline T either(T a, T b) {
  return T(Bits<T>(a) | Bits<T>(b));
}

// One bit for each lane: its sign.
[[gnu::always_inline]] inline int signBits(V<Mox32f> v) { return _mm256_movemask_ps(v); }
[[gnu::always_inline]] inline int signBits(V<Mox64f> v) { return _mm256_movemask_pd(v); }
// The same for a comparison of any lanes.
template <class T>
[[gnu::always_inline]] inline int signBits(T v) {
  constexpr int width = sizeof(Lane<T>);
  if constexpr (sizeof v == vectorBytes)
    return signBits(std::conditional_t<width == 4, V<Mox32f>, V<Mox64f>>(v));
  else if constexpr (width == 4)
    return _mm_movemask_ps(__m128(v));
  else if constexpr (width == 8)
    return _mm_movemask_pd(__m128d(v));
  else if constexpr (width == 2)
    return _mm_movemask_epi8(_mm_packs_epi16(__m128i(v), _mm_setzero_si128()));
  else
    return _mm_movemask_epi8(__m128i(v));
}

// Whether a comparison holds in any lane, and the first lane in which it does.
template <class T>
[[gnu::always_inline]] inline bool anyLane(T comparison) {
  if constexpr (sizeof comparison == 16)  // narrow lanes need not be told apart
    return _mm_movemask_epi8(__m128i(comparison)) != 0;
  else
    return signBits(comparison) != 0;
}
template <class T>
[[gnu::always_inline]] inline int firstLane(T comparison) {
  return __builtin_ctz(unsigned(signBits(comparison)));
}

// `yes` in the lanes of the mask, `no` in the others. Spelled out, for GCC takes the intrinsic
// apart into a branch for each lane.
[[gnu::always_inline]] inline V<Mox32f> select(V<Mox32f> mask, V<Mox32f> yes, V<Mox32f> no) {
  V<Mox32f> r;
  asm("vblendvps %3, %2, %1, %0" : "=x"(r) : "x"(no), "xm"(yes), "x"(mask));
  return r;
}
[[gnu::always_inline]] inline V<Mox64f> select(V<Mox64f> mask, V<Mox64f> yes, V<Mox64f> no) {
  V<Mox64f> r;
  asm("vblendvpd %3, %2, %1, %0" : "=x"(r) : "x"(no), "xm"(yes), "x"(mask));
  return r;
}

}  // namespace mox
