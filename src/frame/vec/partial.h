// The beginning of a vector, where memory holds no more of it.
#pragma once

#include <algorithm>

#include "frame/vec/mask.h"
#include "frame/vec/shuffle.h"

namespace mox {

// `count` lanes from memory, and `otherwise` behind them. Nothing behind is read, and nothing is
// put together in memory: a load would wait for the stores.
template <class T>
[[gnu::always_inline]] inline T loadFirst(const void* p, long count, Lane<T> otherwise) {
  constexpr int lanes = laneCount<T>;
  struct Window {
    alignas(T) Lane<Bits<T>> words[2 * lanes] = {};
    constexpr Window() { std::fill_n(words, lanes, ~Lane<Bits<T>>()); }
  };
  static constexpr Window window;
  const T mask = load<T>(window.words + lanes - std::clamp(count, 0L, long(lanes)));
  if constexpr (sizeof(Lane<T>) == 4)
    return select(mask, T(_mm256_maskload_ps(static_cast<const Mox32f*>(p), __m256i(mask))),
                  broadcast<T>(otherwise));
  else
    return select(mask, T(_mm256_maskload_pd(static_cast<const Mox64f*>(p), __m256i(mask))),
                  broadcast<T>(otherwise));
}

}  // namespace mox
