// The driver of integer functions with a scale factor.
#pragma once

#include "frame/map.h"
#include "frame/packed24.h"
#include "frame/rounding.h"
#include "frame/widen.h"

namespace mox {

// Sixteen results saturated to D.
template <class D, class Put>
[[gnu::always_inline]] inline void storeSaturated(D* dst, const V<Mox32s, 4> (&r)[4], Put put) {
  if constexpr (sizeof(D) == 4) {
    for (int j = 0; j < 4; ++j) put(dst + 4 * j, r[j]);
  } else if constexpr (sizeof(D) == 3) {
    storeLanes(dst, r, put);
  } else if constexpr (sizeof(D) == 2) {
    put(dst, packSaturated<D>(r[0], r[1]));
    put(dst + 8, packSaturated<D>(r[2], r[3]));
  } else {
    put(dst,
        packSaturated<D>(packSaturated<Mox16s>(r[0], r[1]), packSaturated<Mox16s>(r[2], r[3])));
  }
}

// Runs one(i) for single elements; blocks go through lanes(), which makes 32-bit integers of
// vectors `Wide`, and are saturated to D.
template <class Wide, Stores stores = Stores::cached, class D, class One, class Op, class... S>
void mapToInteger(One one, Op lanes, D* dst, long len, const S*... src) {
  forBlocks<16>(bypasses<stores, D, S...>(len), dst, len, one, [&](long i, auto put) {
    V<Mox32s, 4> r[4];
    for (int j = 0; j < 4; j += laneCount<Wide> / 4) {
      const auto wide = lanes(loadWidened<Wide>(src + i + 4 * j)...);
      if constexpr (laneCount<Wide> == 4)
        r[j] = saturate<D>(wide);
      else
        r[j] = saturate<D>(halves(wide).low), r[j + 1] = saturate<D>(halves(wide).high);
    }
    storeSaturated(dst + i, r, put);
  });
}

// dst[i] = exact(src[i]...) by the scale rule, where exact stays within 2^magnitude. It takes
// scalars of Exact<magnitude> or, up to 2^53, vectors of four; all loads of a block come before its
// stores.
template <int magnitude, class D, class Op, class... S>
void mapScaled(int factor, Op exact, D* dst, long len, const S*... src) {
  Scale<D, magnitude>(factor).withRule([&](auto rule) {
    const auto one = [&](long i) {
      store(dst + i, saturate<D>(rule(exact(Exact<magnitude>(load<S>(src + i))...))));
    };
    if constexpr (hasExactVector<magnitude>)
      mapToInteger<ExactVector<magnitude>>(
          one, [&](auto... v) { return rule(exact(v...)); }, dst, len, src...);
    else
      for (long i = 0; i < len; ++i) one(i);
  });
}

}  // namespace mox
