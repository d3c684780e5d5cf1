// Exact sums over integer vectors. Terms come as lanes of 32 bits, which take whole blocks of
// elements where they have room for that, and are widened to 64 bits from block to block.
#pragma once

#include <algorithm>
#include <array>

#include "frame/elements.h"
#include "frame/vec.h"

namespace mox {

// A kind of term: from `step` elements of each source it makes four lanes for each channel, which
// stay below 2^32 when `bias` is added to their sum over `block` elements.
struct IntegerTerms {
  long step, block;
  Mox32u bias;
};

// Where real and imaginary parts alternate, the even lanes are real.
struct LaneTotals {
  Mox64s even, odd;
  Mox64s all() const { return even + odd; }
};

namespace detail {

using Lanes32 = V<Mox32u, 4>;

class WideLanes {
 public:
  // The lanes as pairs hold 2^32 * odd + even.
  [[gnu::always_inline]] void add(Lanes32 lanes) {
    const auto pairs = V<Mox64u, 2>(lanes);
    pairs_ += pairs;
    odd_ += pairs >> 32;
  }
  LaneTotals total(Mox64u bias) const {
    const Mox64u odd = odd_[0] + odd_[1], even = pairs_[0] + pairs_[1] - (odd << 32);
    return {Mox64s(even - 2 * bias), Mox64s(odd - 2 * bias)};
  }

 private:
  V<Mox64u, 2> pairs_{}, odd_{};
};

// What is left of a source, followed by zeros.
template <class E, long size>
struct Rest {
  Rest(const E* src, long count) { std::memcpy(elements, src, std::size_t(count) * sizeof(E)); }
  E elements[size] = {};
};

}  // namespace detail

// The sum of each channel of terms(src...).
template <IntegerTerms kind, class Terms, class... E>
auto sumExactly(const Terms& terms, long len, const E*... src) {
  using detail::Lanes32;
  constexpr long channels = std::tuple_size_v<decltype(terms(src...))>;
  detail::WideLanes wide[channels];
  Mox64u blocks = 0;
  const auto widen = [&](const auto& lanes) {
    for (int c = 0; c < channels; ++c) wide[c].add(Lanes32(lanes[c]) + kind.bias);
    ++blocks;
  };
  long i = 0;
  while (len - i >= kind.step) {
    auto lanes = terms(src + i...);
    const long end = i + std::min(kind.block, len - i);
    for (i += kind.step; kind.block > kind.step && end - i >= kind.step; i += kind.step) {
      const auto t = terms(src + i...);
      for (int c = 0; c < channels; ++c) lanes[c] += t[c];
    }
    widen(lanes);
  }
  if (i < len) widen(terms(detail::Rest<E, kind.step>(src + i, len - i).elements...));
  std::array<LaneTotals, channels> totals;
  for (int c = 0; c < channels; ++c) totals[c] = wide[c].total(blocks * kind.bias);
  return totals;
}

namespace detail {

using Words = V<Mox16s, 8>;

constexpr long blockElements = 65536;
constexpr Mox32u signedBias = 1u << 31;
// Sums of two products of 16-bit numbers, and differences of two, are at least minus this, and at
// most 2^31. The one value that wraps, 2^31, is right again with the bias.
constexpr Mox32u productBias = 0x7FFF8000;

// Magnitudes of numbers, or of their differences, as unsigned numbers of 16 bits.
inline V<Mox16u, 8> magnitudes(Words x) {
  return V<Mox16u, 8>(greater(x, Words(-V<Mox16u, 8>(x))));
}
inline V<Mox16u, 8> magnitudes(Words a, Words b) {
  return V<Mox16u, 8>(greater(a, b)) - V<Mox16u, 8>(lesser(a, b));
}

inline Lanes32 addPairs(Words a, Words b) { return Lanes32(multiplyAddPairs(a, b)); }
// Unsigned neighbours added.
inline Lanes32 pairSums(V<Mox16u, 8> x) { return (Lanes32(x) & 0xFFFF) + (Lanes32(x) >> 16); }

}  // namespace detail

inline Mox64s sumOf16s(const Mox16s* src, long len) {
  using namespace detail;
  return sumExactly<{8, blockElements, signedBias}>(
             [](const Mox16s* x) { return std::array{addPairs(load<Words>(x), Words{} + 1)}; }, len,
             src)[0]
      .all();
}

inline std::array<Mox64s, 2> sumOf16sc(const Mox16sc* src, long len) {
  using namespace detail;
  const auto sums = sumExactly<{4, blockElements, signedBias}>(
      [](const Mox16sc* z) {
        const auto x = load<Words>(z);
        return std::array{addPairs(x, Words{1, 0, 1, 0, 1, 0, 1, 0}),
                          addPairs(x, Words{0, 1, 0, 1, 0, 1, 0, 1})};
      },
      len, src);
  return {sums[0].all(), sums[1].all()};
}

inline Mox64s sumOf32s(const Mox32s* src, long len) {
  using namespace detail;
  return sumExactly<{4, 4, signedBias}>(
             [](const Mox32s* x) { return std::array{load<Lanes32>(x)}; }, len, src)[0]
      .all();
}

template <class... E>
Mox64u sumOfMagnitudes16s(long len, const E*... src) {
  using namespace detail;
  return Mox64u(
      sumExactly<{8, blockElements, 0}>(
          [](const E*... x) { return std::array{pairSums(magnitudes(load<Words>(x)...))}; }, len,
          src...)[0]
          .all());
}

inline Mox64u sumOfSquares16s(long len, const Mox16s* src) {
  using namespace detail;
  return Mox64u(sumExactly<{8, 8, 0}>(
                    [](const Mox16s* p) {
                      const auto x = load<Words>(p);
                      return std::array{addPairs(x, x)};
                    },
                    len, src)[0]
                    .all());
}
// Squares of 16 unsigned bits leave no room for another.
inline Mox64u sumOfSquares16s(long len, const Mox16s* src1, const Mox16s* src2) {
  using namespace detail;
  const auto sums = sumExactly<{8, 8, 0}>(
      [](const Mox16s* a, const Mox16s* b) {
        const auto d = magnitudes(load<Words>(a), load<Words>(b));
        const auto squares = multiplyWide(d, d);
        return std::array{squares.low, squares.high};
      },
      len, src1, src2);
  return Mox64u(sums[0].all()) + Mox64u(sums[1].all());
}

// The sum and the sum of squares.
inline std::array<Mox64s, 2> exactMomentsOf16s(const Mox16s* src, long len) {
  using namespace detail;
  const auto sums = sumExactly<{8, 8, productBias}>(
      [](const Mox16s* p) {
        const auto x = load<Words>(p);
        return std::array{addPairs(x, Words{} + 1), addPairs(x, x)};
      },
      len, src);
  return {sums[0].all(), sums[1].all()};
}

inline Mox64s dotOf16s(const Mox16s* a, const Mox16s* b, long len) {
  using namespace detail;
  return sumExactly<{8, 8, productBias}>(
             [](const Mox16s* x, const Mox16s* y) {
               return std::array{addPairs(load<Words>(x), load<Words>(y))};
             },
             len, a, b)[0]
      .all();
}

inline std::array<Mox64s, 2> dotOf16s16sc(const Mox16s* a, const Mox16sc* b, long len) {
  using namespace detail;
  const auto sums = sumExactly<{4, 4, productBias}>(
      [](const Mox16s* x, const Mox16sc* z) {
        // r0 r1 i0 i1 r2 r3 i2 i3 beside x0 x1 x0 x1 x2 x3 x2 x3
        const auto sorted =
            shuffle<[](int i) { return i / 4 * 4 + i % 2 * 2 + i / 2 % 2; }>(load<Words>(z));
        const auto real = V<Mox32u, 4>(V<Mox64u, 2>{load<Mox64u>(x)});
        return std::array{addPairs(Words(shuffle<[](int i) { return i / 2; }>(real)), sorted)};
      },
      len, a, b);
  return {sums[0].even, sums[0].odd};
}

inline std::array<Mox64s, 2> dotOf16sc(const Mox16sc* a, const Mox16sc* b, long len) {
  using namespace detail;
  const auto sums = sumExactly<{4, 4, productBias}>(
      [](const Mox16sc* x, const Mox16sc* y) {
        const auto w = load<Words>(x), z = load<Words>(y);
        const auto real = Words(Lanes32(w) & 0xFFFF), imaginary = Words(Lanes32(w) & ~0xFFFFu);
        return std::array{addPairs(real, z) - addPairs(imaginary, z), addPairs(w, swapParts(z))};
      },
      len, a, b);
  return {sums[0].all(), sums[1].all()};
}

}  // namespace mox
