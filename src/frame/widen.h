// Loads that widen: the lanes of one vector from an array of a narrower type, each value exact (a
// 32-bit integer rounds to float in the current mode).
#pragma once

#include "frame/packed24.h"
#include "frame/vec/vec.h"

namespace mox {

// Lanes of `Wide` from p[0], p[1] and so on.
template <class Wide, class E>
[[gnu::always_inline]] inline Wide loadWidened(const E* p) {
  if constexpr (std::is_same_v<E, Lane<Wide>>) {
    return load<Wide>(p);
  } else if constexpr (std::is_same_v<Wide, V<Mox32f>>) {
    // The two halves of an integer register are joined for one conversion.
    using Half = I<Mox32s>;
    return Wide(_mm256_cvtepi32_ps(
        join<__m256i>(loadWidened<Half>(p), loadWidened<Half>(p + laneCount<Half>))));
  } else if constexpr (std::is_same_v<Wide, V<Mox64f>>) {
    if constexpr (std::is_same_v<E, Mox32f>)
      return Wide(_mm256_cvtps_pd(load<__m128>(p)));
    else if constexpr (std::is_same_v<E, Mox32u>)  // less 2^31 while it is an integer
      return Wide(_mm256_cvtepi32_pd(load<__m128i>(p) ^ __m128i(broadcast<I<Mox32u>>(1u << 31)))) +
             0x1p31;
    else
      return Wide(_mm256_cvtepi32_pd(__m128i(loadWidened<I<Mox32s>>(p))));
  } else if constexpr (std::is_same_v<Wide, V<Mox32f, 4>>) {
    return __builtin_convertvector(loadWidened<I<Mox32s>>(p), Wide);
  } else if constexpr (sizeof(Wide) == integerBytes && sizeof(Lane<Wide>) == 2) {
    const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
    return Wide(std::is_signed_v<E> ? _mm_cvtepi8_epi16(bytes) : _mm_cvtepu8_epi16(bytes));
  } else {
    static_assert(sizeof(Wide) == integerBytes && sizeof(Lane<Wide>) == 4);
    if constexpr (sizeof(E) == 3) {
      return Wide(loadLanes(p));
    } else if constexpr (sizeof(E) == 2) {
      const __m128i words = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
      return Wide(std::is_signed_v<E> ? _mm_cvtepi16_epi32(words) : _mm_cvtepu16_epi32(words));
    } else {
      const __m128i bytes = _mm_cvtsi32_si128(load<int>(p));
      return Wide(std::is_signed_v<E> ? _mm_cvtepi8_epi32(bytes) : _mm_cvtepu8_epi32(bytes));
    }
  }
}

}  // namespace mox
