// Loads that widen: the lanes of one vector from an array of a narrower type, each value exact (a
// 32-bit integer rounds to float in the current mode).
#pragma once

#include "frame/packed24.h"
#include "frame/vec/vec.h"

namespace mox {

namespace detail {

// `bytes` bytes at the bottom of a register.
template <int bytes>
[[gnu::always_inline]] inline auto loadBytes(const void* p) {
  if constexpr (bytes == 2)
    return _mm_cvtsi32_si128(load<Mox16u>(p));
  else if constexpr (bytes == 4)
    return _mm_cvtsi32_si128(load<int>(p));
  else if constexpr (bytes == 8)
    return _mm_loadl_epi64(static_cast<const __m128i*>(p));
  else if constexpr (bytes == 16)
    return load<__m128i>(p);
  else
    return load<__m256i>(p);
}

// Narrower integers in a register of integers.
template <class Wide, class E>
[[gnu::always_inline]] inline Wide integersFrom(const E* p) {
  constexpr bool isSigned = std::is_signed_v<E>;
  if constexpr (sizeof(E) == 3) {
    return loadLanes<Wide>(p);
  } else {
    const auto v = loadBytes<int(sizeof(E)) * laneCount<Wide>>(p);
    if constexpr (sizeof(Lane<Wide>) == 2 && isSigned)
      MOX_BY_WIDTH(Wide, cvtepi8_epi16(v));
    else if constexpr (sizeof(Lane<Wide>) == 2)
      MOX_BY_WIDTH(Wide, cvtepu8_epi16(v));
    else if constexpr (sizeof(E) == 2 && isSigned)
      MOX_BY_WIDTH(Wide, cvtepi16_epi32(v));
    else if constexpr (sizeof(E) == 2)
      MOX_BY_WIDTH(Wide, cvtepu16_epi32(v));
    else if constexpr (isSigned)
      MOX_BY_WIDTH(Wide, cvtepi8_epi32(v));
    else
      MOX_BY_WIDTH(Wide, cvtepu8_epi32(v));
  }
}

// Doubles of narrower numbers. The intrinsics take less than the compiler's own conversion.
template <class Wide, class E>
[[gnu::always_inline]] inline Wide doublesFrom(const E* p) {
  const auto v = loadBytes<4 * laneCount<Wide>>(p);
  if constexpr (std::is_same_v<E, Mox32f>) {
    const auto floats = V<Mox32f, sizeof(v) / 4>(v);
    MOX_BY_WIDTH(Wide, cvtps_pd(floats));
  } else {
    MOX_BY_WIDTH(Wide, cvtepi32_pd(v));
  }
}

}  // namespace detail

// Lanes of `Wide` from p[0], p[1] and so on.
template <class Wide, class E>
[[gnu::always_inline]] inline Wide loadWidened(const E* p) {
  using Integers = Beside<Mox32s, Wide>;
  if constexpr (std::is_same_v<E, Lane<Wide>>) {
    return load<Wide>(p);
  } else if constexpr (std::is_same_v<Lane<Wide>, Mox64f> &&
                       (std::is_same_v<E, Mox32f> || std::is_same_v<E, Mox32s>)) {
    return detail::doublesFrom<Wide>(p);
  } else if constexpr (std::is_same_v<Lane<Wide>, Mox64f> && std::is_same_v<E, Mox32u>) {
    // Less 2^31 while it is an integer.
    const auto less = Integers(load<Beside<Mox32u, Wide>>(p) ^ (1u << 31));
    return __builtin_convertvector(less, Wide) + 0x1p31;
  } else if constexpr (std::is_floating_point_v<Lane<Wide>>) {
    return __builtin_convertvector(loadWidened<Integers>(p), Wide);
  } else if constexpr (std::is_same_v<E, Mox32s> || std::is_same_v<E, Mox32u>) {
    return Wide(load<Beside<E, Wide>>(p));
  } else if constexpr (int(sizeof(Wide)) > integerBytes) {
    using Half = V<Lane<Wide>, laneCount<Wide> / 2>;
    return join<Wide>(loadWidened<Half>(p), loadWidened<Half>(p + laneCount<Half>));
  } else {
    return detail::integersFrom<Wide>(p);
  }
}

}  // namespace mox
