// Sums of integer vectors, of their magnitudes, squares and products, all exact; overloads by the
// type of the elements. Of complex elements there are two sums, of the real and imaginary parts.
#pragma once

#include "stats/exact_sum.h"

namespace mox::stats {

// Magnitudes of numbers, or of their differences, as unsigned numbers of 16 bits.
inline I<Mox16u> magnitudes(I<Mox16s> x) { return magnitude(x); }
inline I<Mox16u> magnitudes(I<Mox16s> a, I<Mox16s> b) {
  return I<Mox16u>(greater(a, b)) - I<Mox16u>(lesser(a, b));
}

namespace detail {

using Words = I<Mox16s>;

// What a step over registers of E adds to a lane.
constexpr long words = laneCount<Words>, elements = laneCount<Lanes32>;
constexpr Mox64s least16 = Limits<Mox16s>::min, most16 = Limits<Mox16s>::max;
constexpr IntegerTerms numbers = {.step = words, .least = 2 * least16, .most = 2 * most16};
constexpr IntegerTerms complexNumbers = {.step = elements, .least = least16, .most = most16};
constexpr IntegerTerms wideNumbers = {
    .step = elements, .least = Limits<Mox32s>::min, .most = Limits<Mox32s>::max};
constexpr IntegerTerms unsignedNumbers = {.step = words, .least = 0, .most = 2 * 65535};
constexpr IntegerTerms squares = {.step = words, .least = 0, .most = 2 * least16 * least16};
constexpr IntegerTerms unsignedSquares = {.step = words, .least = 0, .most = 65535LL * 65535};
// The sum of two products of 16-bit numbers, or their difference. The one sum that wraps, 2^31, is
// right again with the bias.
constexpr Mox64s leastSum = least16 * most16 - least16 * least16, mostSum = 2 * least16 * least16;
constexpr IntegerTerms products = {.step = words, .least = leastSum, .most = mostSum};
constexpr IntegerTerms complexProducts = {.step = elements, .least = leastSum, .most = mostSum};

inline Lanes32 addPairs(Words a, Words b) { return Lanes32(multiplyAddPairs(a, b)); }
inline Lanes32 addPairs(Words a) { return addPairs(a, Words{} + 1); }
inline Lanes32 addUnsignedPairs(I<Mox16u> x) { return (Lanes32(x) & 0xFFFF) + (Lanes32(x) >> 16); }

}  // namespace detail

inline std::array<Mox64s, 1> exactSum(const Mox16s* src, long len) {
  const auto terms = [](const Mox16s* p) {
    return std::array{detail::addPairs(load<detail::Words>(p))};
  };
  return {sumExactly<detail::numbers>(terms, len, src)[0].all()};
}
inline std::array<Mox64s, 1> exactSum(const Mox32s* src, long len) {
  const auto terms = [](const Mox32s* p) { return std::array{load<detail::Lanes32>(p)}; };
  return {sumExactly<detail::wideNumbers>(terms, len, src)[0].all()};
}
inline std::array<Mox64s, 2> exactSum(const Mox16sc* src, long len) {
  const auto terms = [](const Mox16sc* p) {
    const auto z = load<detail::Words>(p);
    const auto real = detail::Words(detail::Lanes32{} + 1),
               imaginary = detail::Words(detail::Lanes32{} + 0x10000);
    return std::array{detail::addPairs(z, real), detail::addPairs(z, imaginary)};
  };
  const auto sums = sumExactly<detail::complexNumbers>(terms, len, src);
  return {sums[0].all(), sums[1].all()};
}

inline Mox64u exactSumOfMagnitudes(long len, const Mox16s* src) {
  const auto terms = [](const Mox16s* p) {
    const auto x = load<detail::Words>(p);
    return std::array{detail::addPairs(x, (x >> 15) | 1)};
  };
  return Mox64u(sumExactly<detail::unsignedNumbers>(terms, len, src)[0].all());
}
inline Mox64u exactSumOfMagnitudes(long len, const Mox16s* src1, const Mox16s* src2) {
  const auto terms = [](const Mox16s* a, const Mox16s* b) {
    const auto d = magnitudes(load<detail::Words>(a), load<detail::Words>(b));
    return std::array{detail::addUnsignedPairs(d)};
  };
  return Mox64u(sumExactly<detail::unsignedNumbers>(terms, len, src1, src2)[0].all());
}

inline Mox64u exactSumOfSquares(long len, const Mox16s* src) {
  const auto terms = [](const Mox16s* p) {
    const auto x = load<detail::Words>(p);
    return std::array{detail::addPairs(x, x)};
  };
  return Mox64u(sumExactly<detail::squares>(terms, len, src)[0].all());
}
// Of differences, whose squares leave no room for another in a lane.
inline Mox64u exactSumOfSquares(long len, const Mox16s* src1, const Mox16s* src2) {
  const auto terms = [](const Mox16s* a, const Mox16s* b) {
    const auto d = magnitudes(load<detail::Words>(a), load<detail::Words>(b));
    const auto squares = multiplyWide(d, d);
    return std::array{squares.low, squares.high};
  };
  const auto sums = sumExactly<detail::unsignedSquares>(terms, len, src1, src2);
  return Mox64u(sums[0].all()) + Mox64u(sums[1].all());
}

// The sum and the sum of squares.
inline std::array<Mox64s, 2> exactMoments(const Mox16s* src, long len) {
  const auto terms = [](const Mox16s* p) {
    const auto x = load<detail::Words>(p);
    return std::array{detail::addPairs(x), detail::addPairs(x, x)};
  };
  const auto sums = sumExactly<detail::products>(terms, len, src);
  return {sums[0].all(), sums[1].all()};
}

inline std::array<Mox64s, 1> exactDot(const Mox16s* a, const Mox16s* b, long len) {
  const auto terms = [](const Mox16s* x, const Mox16s* y) {
    return std::array{detail::addPairs(load<detail::Words>(x), load<detail::Words>(y))};
  };
  return {sumExactly<detail::products>(terms, len, a, b)[0].all()};
}
inline std::array<Mox64s, 2> exactDot(const Mox16s* a, const Mox16sc* b, long len) {
  using detail::Words;
  const auto terms = [](const Mox16s* p, const Mox16sc* q) {
    // x0 x1 x0 x1 x2 x3 x2 x3 beside r0 r1 i0 i1 r2 r3 i2 i3
    using Pairs = V<Mox32u, laneCount<Words> / 4>;
    const auto pairs = load<Pairs>(p);
    const auto x = Words(shuffle<[](int i) { return i / 2; }, 2 * laneCount<Pairs>>(pairs, pairs));
    const auto z = shuffle<[](int i) { return i / 4 * 4 + i % 2 * 2 + i / 2 % 2; }>(load<Words>(q));
    return std::array{detail::addPairs(x, z)};
  };
  const auto sums = sumExactly<detail::complexProducts>(terms, len, a, b);
  return {sums[0].even, sums[0].odd};
}
inline std::array<Mox64s, 2> exactDot(const Mox16sc* a, const Mox16sc* b, long len) {
  using detail::Words, detail::Lanes32, detail::addPairs;
  const auto terms = [](const Mox16sc* p, const Mox16sc* q) {
    const auto w = load<Words>(p), z = load<Words>(q);
    const auto real = Words(Lanes32(w) & 0xFFFF), imaginary = Words(Lanes32(w) & ~0xFFFFu);
    return std::array{addPairs(real, z) - addPairs(imaginary, z), addPairs(w, swapParts(z))};
  };
  const auto sums = sumExactly<detail::complexProducts>(terms, len, a, b);
  return {sums[0].all(), sums[1].all()};
}

}  // namespace mox::stats
