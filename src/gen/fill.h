// Arrays filled with blocks of numbers that are made on the way.
#pragma once

#include <cstring>

#include "frame/complex_views.h"
#include "frame/map_scaled.h"
#include "gen/block.h"

namespace mox::gen {

namespace detail {

// The four registers of integers of a block, rounded to nearest with ties away from zero: half a
// unit is added by sign, and the sum truncated.
template <class D>
[[gnu::always_inline]] inline void roundInto(I<Mox32s> (&r)[4], const Block<Mox64f>& b) {
  for (int j = 0; j < 4; ++j)
    r[j] = saturate<D>(b.v[j] + withSignOf(b.v[j], broadcast<V<Mox64f>>(0.5)));
}
template <class D>
[[gnu::always_inline]] inline void roundInto(I<Mox32s> (&r)[4], const Block<Mox32f>& b) {
  for (int j = 0; j < 2; ++j) {
    const auto sum = b.v[j] + withSignOf(b.v[j], broadcast<V<Mox32f>>(0.5f));
    const auto [low, high] = halves(integersOf(sum));
    r[2 * j] = low, r[2 * j + 1] = high;
  }
}

}  // namespace detail

// A block of real elements. Floats of single precision that become integers fit in 32 bits.
template <class D, class F>
[[gnu::always_inline]] inline void give(const Block<F>& b, D* dst) {
  const auto put = [](void* p, auto v) { store(p, v); };
  if constexpr (std::is_floating_point_v<D>) {
    const auto numbers = inFormat<D>(b);
    for (int j = 0; j < Block<D>::vectors; ++j) put(dst + j * lanesOf<D>, numbers.v[j]);
  } else {
    I<Mox32s> r[4];
    if constexpr (std::is_same_v<D, Mox32u>) {  // as the difference to 2^31, which fits in 32 bits
      const auto half = broadcast<V<Mox64f>>(0x1p31);
      detail::roundInto<Mox32s>(r, blockOf<F>([&](int j) {
        const V<F> sum = b.v[j] + withSignOf(b.v[j], broadcast<V<F>>(0.5));
        return truncated(sum) - half;
      }));
      for (int j = 0; j < 4; ++j) r[j] ^= I<Mox32s>(broadcast<I<Mox32u>>(1u << 31));
    } else {
      detail::roundInto<D>(r, b);
    }
    storeSaturated(dst, r, put);
  }
}

// A block of complex elements.
template <class D, class F>
[[gnu::always_inline]] inline void give(const Pair<Block<F>>& z, D* dst) {
  using P = Part<D>;
  using Lanes = Register<P>;
  constexpr int lanes = laneCount<Lanes>;
  alignas(vectorBytes) P re[blockLen], im[blockLen];
  give(z.re, re), give(z.im, im);
  for (int j = 0; j < blockLen; j += lanes)
    storeInterleaved(parts(dst + j), Pair<Lanes>{load<Lanes>(re + j), load<Lanes>(im + j)},
                     [](void* p, auto v) { store(p, v); });
}

// dst[0], dst[1] and so on are what make() gives block by block.
template <class D, class Make>
[[gnu::always_inline]] inline void fillBlocks(D* dst, long len, Make make) {
  long i = 0;
  for (; i <= len - blockLen; i += blockLen) give(make(), dst + i);
  if (i < len) {
    D rest[blockLen];
    give(make(), rest);
    std::memcpy(dst + i, rest, std::size_t(len - i) * sizeof(D));
  }
}

}  // namespace mox::gen
