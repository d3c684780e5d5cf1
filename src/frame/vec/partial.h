// The beginning of a vector, where memory holds no more of it.
#pragma once

#include <algorithm>

#include "frame/vec/mask.h"
#include "frame/vec/shuffle.h"

namespace mox {

namespace detail {
// The lanes whose sign the mask has, and zeros.
template <class T>
[[gnu::always_inline]] inline T loadMasked(const void* p, T mask) {
  if constexpr (std::is_same_v<T, V<Mox32f, 4>>)
    return T(_mm_maskload_ps(static_cast<const Mox32f*>(p), __m128i(mask)));
  else if constexpr (std::is_same_v<T, V<Mox32f, 8>>)
    return T(_mm256_maskload_ps(static_cast<const Mox32f*>(p), __m256i(mask)));
  else
    return T(_mm256_maskload_pd(static_cast<const Mox64f*>(p), __m256i(mask)));
}
}  // namespace detail

// `count` lanes from memory, and `otherwise` behind them. Nothing behind is read, and nothing is
// put together in memory: a load would wait for the stores.
template <class T>
[[gnu::always_inline]] inline T loadFirst(const void* p, long count, Lane<T> otherwise) {
  constexpr int lanes = laneCount<T>;
  const int loaded = int(std::clamp(count, 0L, long(lanes)));
  if constexpr (sizeof(T) == 64 && sizeof(Lane<T>) == 4) {
    return T(_mm512_mask_loadu_ps(broadcast<T>(otherwise), __mmask16((1u << loaded) - 1), p));
  } else if constexpr (sizeof(T) == 64) {
    return T(_mm512_mask_loadu_pd(broadcast<T>(otherwise), __mmask8((1u << loaded) - 1), p));
  } else {
    struct Window {
      alignas(T) Lane<Bits<T>> words[2 * lanes] = {};
      constexpr Window() { std::fill_n(words, lanes, ~Lane<Bits<T>>()); }
    };
    static constexpr Window window;
    const T mask = load<T>(window.words + lanes - loaded);
    return select(mask, detail::loadMasked(p, mask), broadcast<T>(otherwise));
  }
}

}  // namespace mox
