// The driver of integer functions with a scale factor.
#pragma once

#include "frame/map.h"
#include "frame/packed24.h"
#include "frame/rounding.h"
#include "frame/widen.h"

namespace mox {

// Sixteen results, four to a vector, saturated to D.
template <class D>
[[gnu::always_inline]] inline void storeSaturated(D* dst, const V<Mox32s, 4> (&r)[4]) {
  if constexpr (sizeof(D) == 4) {
    for (int j = 0; j < 4; ++j) store(dst + 4 * j, r[j]);
  } else if constexpr (sizeof(D) == 3) {
    storeLanes(dst, r);
  } else if constexpr (sizeof(D) == 2) {
    store(dst, packSaturated<D>(r[0], r[1]));
    store(dst + 8, packSaturated<D>(r[2], r[3]));
  } else {
    store(dst,
          packSaturated<D>(packSaturated<Mox16s>(r[0], r[1]), packSaturated<Mox16s>(r[2], r[3])));
  }
}

// dst[i] = exact(src[i]...) by the scale rule, where exact stays within 2^magnitude. It takes
// scalars of Exact<magnitude> or, up to 2^53, vectors of four; all loads of a block come before its
// stores.
template <int magnitude, class D, class Op, class... S>
void mapScaled(int factor, Op exact, D* dst, long len, const S*... src) {
  Scale<D, magnitude>(factor).withRule([&](auto rule) {
    const auto element = [&](long i) {
      store(dst + i, saturate<D>(rule(exact(Exact<magnitude>(load<S>(src + i))...))));
    };
    long i = 0;
    if constexpr (hasExactVector<magnitude>) {
      constexpr long block = 16;
      if (const int peel = peelCount(dst); peel + block <= len) {
        for (; i < peel; ++i) element(i);
        for (; i <= len - block; i += block) {
          V<Mox32s, 4> r[4];
          for (int j = 0; j < 4; ++j)
            r[j] =
                saturate<D>(rule(exact(loadWidened<ExactVector<magnitude>>(src + i + 4 * j)...)));
          storeSaturated(dst + i, r);
        }
      }
    }
    for (; i < len; ++i) element(i);
  });
}

}  // namespace mox
