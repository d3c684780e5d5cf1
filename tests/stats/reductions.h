// The model of all reductions of floats: terms dealt to lanes step by step, the lanes folded onto
// one another. Additions of floats depend on their order, so that a result has the bits of its
// scheme and of no other.
#pragma once

#include <gtest/gtest.h>
#include <moxsp/types.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <vector>

#include "support/random.h"

namespace test {

template <class F>
using Lanes = std::vector<F>;

inline const auto plus = [](auto a, auto b) { return a + b; };
// The second one beside a NaN.
inline const auto larger = [](auto a, auto b) { return a > b ? a : b; };

// The upper half of the lanes onto the lower one until `left` are left.
template <class F, class Op = decltype(plus)>
Lanes<F> foldHalves(Lanes<F> lane, std::size_t left, Op op = plus) {
  while (lane.size() > left) {
    const std::size_t half = lane.size() / 2;
    for (std::size_t j = 0; j < half; ++j) lane[j] = op(lane[j], lane[j + half]);
    lane.resize(half);
  }
  return lane;
}

// Quarters of the lanes as two pairs, then the two.
template <class F>
Lanes<F> foldQuarters(const Lanes<F>& lane) {
  const std::size_t n = lane.size() / 4;
  Lanes<F> sum(n);
  for (std::size_t j = 0; j < n; ++j)
    sum[j] = (lane[j] + lane[n + j]) + (lane[2 * n + j] + lane[3 * n + j]);
  return sum;
}

template <class F>
Lanes<double> widen(const Lanes<F>& lane) {
  return {lane.begin(), lane.end()};
}

// Folds to so many lanes, if it says so; then takes terms as often as there are so many, and deals
// them to the first lanes.
struct Step {
  long terms, lanes = terms;
  std::size_t fold = ~0ul;
};
inline Step folded(long lanes) { return {lanes, lanes, std::size_t(lanes)}; }
using Steps = std::vector<Step>;

// Vectors, then halves of them down to single terms.
inline Steps halving(long lanes) {
  Steps steps;
  for (; lanes > 0; lanes /= 2) steps.push_back({lanes});
  return steps;
}

// Terms of any kind that op joins: term(i) is the one with index i, of which i to n are left.
template <class F, class Term, class Op = decltype(plus)>
Lanes<F> deal(Lanes<F> lane, long& i, long n, const Steps& steps, Term term, Op op = plus) {
  for (const Step& s : steps) {
    lane = foldHalves(lane, s.fold, op);
    for (; n - i >= s.terms; i += s.terms)
      for (long j = 0; j < s.terms; ++j) lane[j % s.lanes] = op(lane[j % s.lanes], F(term(i + j)));
  }
  return lane;
}

// Single precision within blocks of 8192 terms, doubles beyond: four lanes, which hold `peeled`.
template <class Term>
Lanes<double> fastBlocks(Lanes<double> total, long i, long n, Term term) {
  const auto add = [&](const Lanes<float>& block) {
    const auto four = foldHalves(widen(foldHalves(block, 8)), 4);
    for (int j = 0; j < 4; ++j) total[j] += four[j];
  };
  while (n - i >= 8192) add(deal(Lanes<float>(32), i, i + 8192, {{32}}, term));
  add(deal(Lanes<float>(32), i, n, {{32}, folded(16), folded(8), {4}, {2}, {1}}, term));
  return total;
}

// A copy of elements that starts `offset` bytes past a boundary of 64.
template <class E>
class Placed {
 public:
  Placed(const std::vector<E>& elements, long offset)
      : memory_(elements.size() * sizeof(E) + 128), address_(std::uintptr_t(memory_.data())) {
    address_ += -address_ % 64 + std::uintptr_t(offset);
    std::memcpy(reinterpret_cast<void*>(address_), elements.data(), elements.size() * sizeof(E));
  }
  operator const E*() const { return reinterpret_cast<const E*>(address_); }

 private:
  std::vector<unsigned char> memory_;
  std::uintptr_t address_;
};

// Magnitudes that differ by up to 2^20, so that nearly every addition rounds.
template <class E>
std::vector<E> roundingData(long len, std::uint64_t stream) {
  Random random(stream);
  std::vector<E> v = random.vector<E>(len);
  for (E& e : v)
    for (int p = 0; p < mox::partsPerElement<E>; ++p)
      mox::parts(&e)[p] *= mox::Part<E>(std::ldexp(1.0, int(random.below(20))));
  return v;
}

// What a reduction gets: elements that start `offset` bytes past a boundary.
template <class F>
struct Operands {
  const F *x, *y;  // y where there are two sources
  long len, offset;

  // Elements before the next multiple of `alignment`; none when no element starts there.
  long peel(long alignment) const {
    const long missing = (alignment - offset % alignment) % alignment;
    return missing % sizeof(F) ? 0 : std::min<long>(len, missing / sizeof(F));
  }
};

template <class F, class D, class A, class>
concept OfOne = std::is_invocable_v<F, const A*, int, D*>;
template <class F, class D, class A, class B>
concept OfTwo = std::is_invocable_v<F, const A*, const B*, int, D*>;
template <class F, class D, class A, class B>
concept Reduction = OfOne<F, D, A, B> || OfTwo<F, D, A, B>;

// What a function of one source or two stores: one result, or two of one source.
template <class D, class Function, class A, class B>
void store(std::vector<mox::Part<D>>& results, Function f, const A* x, const B* y, int len) {
  D d[2];
  MoxStatus status;
  int count = 1;
  if constexpr (OfOne<Function, D, A, B>)
    status = f(x, len, d);
  else if constexpr (OfTwo<Function, D, A, B>)
    status = f(x, y, len, d);
  else
    status = f(x, len, &d[0], &d[1]), count = 2;
  EXPECT_EQ(status, moxOk);
  results.insert(results.end(), mox::parts(d), mox::parts(d + count));
}

// A function without its last argument, a hint or a scale factor.
template <class F>
auto with(F f, int last) {
  return [=](auto... a) -> decltype(f(a..., last)) { return f(a..., last); };
}

using Results = std::vector<long double>;

// Compares all that the functions store with model(operands), rounded to that format, at every
// short length and address, and about the ends of blocks.
template <class D, class A, class Model, class... Functions>
void expectReduction(Model model, long shortest, Functions... functions) {
  using F = mox::Part<D>;
  auto x = roundingData<A>(65536 + 31, 3);
  const auto y = roundingData<A>(65536 + 31, 4);
  for (std::size_t i = 5; i < x.size(); i += 37) x[i] = {};
  const auto likes = x;
  // Large terms that cancel one another leave the roundings of wide lanes in sight.
  for (std::size_t i = 0; i + 7 < x.size(); i += 11)
    for (int p = 0; p < mox::partsPerElement<A>; ++p)
      mox::parts(&x[i + 7])[p] = -(mox::parts(&x[i])[p] *= mox::Part<A>(0x1p36));
  const auto check = [&](const std::vector<A>& data, long len, long offset) {
    const Placed<A> first({data.begin(), data.begin() + len}, offset);
    const Placed<A> second({y.begin(), y.begin() + len}, 5 * offset % 48);
    std::vector<F> got, expected;
    (store<D, Functions, A, A>(got, functions, first, second, int(len)), ...);
    for (const long double e : model(Operands<A>{data.data(), y.data(), len, offset}))
      expected.push_back(F(e));
    ASSERT_EQ(got.size(), expected.size());
    ASSERT_EQ(std::memcmp(got.data(), expected.data(), got.size() * sizeof(F)), 0)
        << "length " << len << ", offset " << offset << ": " << testing::PrintToString(got)
        << " instead of " << testing::PrintToString(expected) << ", " << seedNote();
  };
  for (long len = shortest; len <= 70; ++len)
    for (long offset = 0; offset < 33; ++offset) {
      check(x, len, offset);
      check(likes, len, offset);  // a large term without its partner hides the others
    }
  for (const long block : {4096L, 8192L, 16384L, 65536L})
    for (const long len : {block - 1, block, block + 1, block + 7, block + 31})
      for (const long offset : {0L, 3L, 4L, 8L, 12L, 16L, 28L}) check(x, len, offset);
}

}  // namespace test
