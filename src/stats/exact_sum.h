// Exact sums over integer vectors. Terms come as lanes of 32 bits, which take whole blocks of
// elements where they have room for that, and are widened to 64 bits from block to block.
#pragma once

#include <algorithm>
#include <array>
#include <cstring>

#include "frame/elements.h"
#include "frame/vec/vec.h"
#include "stats/pages_ahead.h"

namespace mox::stats {

// A kind of term: from `step` elements of each source it makes lanes for each channel, each of them
// from `least` to `most`.
struct IntegerTerms {
  long step;
  Mox64s least, most;

  // The steps whose sum 32 bits hold, once `bias` has made it a number from 0 on.
  constexpr long stepsPerBlock() const { return 0xFFFFFFFF / (most - least); }
  constexpr Mox32u bias() const { return Mox32u(-least * stepsPerBlock()); }
};

// Where real and imaginary parts alternate, the even lanes are real.
struct LaneTotals {
  Mox64s even, odd;
  Mox64s all() const { return even + odd; }
};

namespace detail {

using Lanes32 = I<Mox32u>;

class WideLanes {
 public:
  // The lanes as pairs hold 2^32 * odd + even.
  [[gnu::always_inline]] void add(Lanes32 lanes) {
    const auto pairs = I<Mox64u>(lanes);
    pairs_ += pairs;
    odd_ += pairs >> 32;
  }
  void add(const WideLanes& other) {
    pairs_ += other.pairs_;
    odd_ += other.odd_;
  }
  LaneTotals total(Mox64u bias) const {
    Mox64u odd = 0, even = 0;
    for (int i = 0; i < laneCount<I<Mox64u>>; ++i) {
      odd += odd_[i] - bias;
      even += pairs_[i] - (odd_[i] << 32) - bias;
    }
    return {Mox64s(even), Mox64s(odd)};
  }

 private:
  I<Mox64u> pairs_{}, odd_{};
};

// What is left of a source, followed by zeros.
template <class E, long size>
struct Rest {
  Rest(const E* src, long count) { std::memcpy(elements, src, std::size_t(count) * sizeof(E)); }
  E elements[size] = {};
};

}  // namespace detail

// The sum of each channel of terms(src...). Chains of additions go side by side, each over blocks
// of its own.
template <IntegerTerms kind, class Terms, class... E>
auto sumExactly(const Terms& terms, long len, const E*... src) {
  using detail::Lanes32;
  constexpr int channels = std::tuple_size_v<decltype(terms(src...))>, chains = 4 / channels;
  constexpr long stride = chains * kind.step;
  using Lanes = std::array<Lanes32, channels>;

  detail::WideLanes wide[chains][channels];
  Mox64u blocks = 0;
  const auto widen = [&](int chain, const auto& lanes) {
    for (int c = 0; c < channels; ++c) wide[chain][c].add(Lanes32(lanes[c]) + kind.bias());
    ++blocks;
  };
  long i = 0;
  while (len - i >= stride) {
    Lanes lanes[chains] = {};
    const long end = i + std::min(stride * kind.stepsPerBlock(), (len - i) / stride * stride);
    for (; i < end; i += stride) {
      if constexpr (sizeof...(src) == 1) PagesAhead(src..., len).template ask<stride>(i);
      for (int chain = 0; chain < chains; ++chain) {
        const auto t = terms(src + i + chain * kind.step...);
        for (int c = 0; c < channels; ++c) lanes[chain][c] += Lanes32(t[c]);
      }
    }
    for (int chain = 0; chain < chains; ++chain) widen(chain, lanes[chain]);
  }
  for (; len - i >= kind.step; i += kind.step) widen(0, terms(src + i...));
  if (i < len) widen(0, terms(detail::Rest<E, kind.step>(src + i, len - i).elements...));

  std::array<LaneTotals, channels> totals;
  for (int c = 0; c < channels; ++c) {
    for (int chain = 1; chain < chains; ++chain) wide[0][c].add(wide[chain][c]);
    totals[c] = wide[0][c].total(blocks * kind.bias());
  }
  return totals;
}

}  // namespace mox::stats
