// Arrays filled with blocks of numbers that are made on the way.
#pragma once

#include <algorithm>
#include <bit>
#include <cstring>

#include "frame/complex_views.h"
#include "frame/map_scaled.h"
#include "gen/block.h"

namespace mox::gen {

// For truncation to the nearest of the integers of D, ties away from zero; floats stay.
template <class D, class F>
[[gnu::always_inline]] inline Block<F> beforeTruncation(const Block<F>& b) {
  if constexpr (std::is_floating_point_v<D>)
    return b;
  else
    return blockOf<F>([&](int j) { return b.v[j] + withSignOf(b.v[j], broadcast<V<F>>(F(0.5))); });
}
template <class D, class F>
[[gnu::always_inline]] inline Pair<Block<F>> beforeTruncation(const Pair<Block<F>>& z) {
  return {beforeTruncation<D>(z.re), beforeTruncation<D>(z.im)};
}

namespace detail {

// A vector truncated and saturated to D in 32 bits. Numbers of single precision fit in those.
template <class D>
[[gnu::always_inline]] inline auto truncatedTo(V<Mox64f> v) {
  using Integers = Beside<Mox32s, V<Mox64f>>;
  if constexpr (std::is_same_v<D, Mox32u>)  // less 2^31 while they are signed
    return saturate<Mox32s>(truncated(v) - 0x1p31) ^
           Integers(broadcast<Beside<Mox32u, Integers>>(1u << 31));
  else
    return saturate<D>(v);
}
template <class D>
[[gnu::always_inline]] inline auto truncatedTo(V<Mox32f> v) {
  return integersOf(v);
}

}  // namespace detail

// A block of real elements: floats rounded, integers truncated.
template <class D, class F>
[[gnu::always_inline]] inline void give(const Block<F>& b, D* dst) {
  if constexpr (std::is_floating_point_v<D>) {
    const auto numbers = inFormat<D>(b);
    for (int j = 0; j < Block<D>::vectors; ++j) store(dst + j * lanesOf<D>, numbers.v[j]);
  } else {
    using Integers = Beside<Mox32s, V<F>>;
    Registers<Integers, Block<F>::vectors> r;
    for (int j = 0; j < Block<F>::vectors; ++j) r.of[j] = detail::truncatedTo<D>(b.v[j]);
    // Registers in which all builds narrow integers.
    const auto four = std::bit_cast<Registers<V<Mox32s, 4>, blockLen / 4>>(r);
    mox::detail::putRegisters(dst, saturatedRegisters<D>(four), mox::detail::plainly);
  }
}

// A block of complex elements.
template <class D, class F>
[[gnu::always_inline]] inline void give(const Pair<Block<F>>& z, D* dst) {
  using P = Part<D>;
  constexpr int lanes = std::min(laneCount<Register<P>>, blockLen);
  using Lanes = V<P, lanes>;
  alignas(vectorBytes) P re[blockLen], im[blockLen];
  give(z.re, re), give(z.im, im);
  for (int j = 0; j < blockLen; j += lanes)
    storeInterleaved(parts(dst + j), Pair<Lanes>{load<Lanes>(re + j), load<Lanes>(im + j)},
                     mox::detail::plainly);
}

// The blocks of a ramp, one after the other.
class RampBlocks {
 public:
  explicit RampBlocks(Ramp<Mox64f> ramp) : ramp_(ramp) {}

  [[gnu::always_inline]] Block<Mox64f> next() {
    const auto block = blockOf<Mox64f>(
        [this](int j) { return lanesFrom<V<Mox64f>>(ramp_, i_ + j * lanesOf<Mox64f>); });
    i_ += blockLen;
    return block;
  }

 private:
  Ramp<Mox64f> ramp_;
  long i_ = 0;
};

// dst[0], dst[1] and so on are what make(count) gives block by block; of the last one only `count`
// numbers are wanted.
template <class D, class Make>
[[gnu::always_inline]] inline void fillBlocks(D* dst, long len, Make make) {
  long i = 0;
  for (; i <= len - blockLen; i += blockLen) give(make(blockLen), dst + i);
  if (i < len) {
    D rest[blockLen];
    give(make(int(len - i)), rest);
    std::memcpy(dst + i, rest, std::size_t(len - i) * sizeof(D));
  }
}

// The same with integers rounded to nearest, ties away from zero.
template <class D, class Make>
[[gnu::always_inline]] inline void fillRounded(D* dst, long len, Make make) {
  fillBlocks(dst, len, [&](int) { return beforeTruncation<Part<D>>(make()); });
}

}  // namespace mox::gen
