// The model of all reductions of floats: a row of docs/additions.md, followed term by term.
// Additions of floats depend on their order, so that a result has the bits of its row and of no
// other.
#pragma once

#include <type_traits>

#include "support/test.h"

namespace test {

template <class F>
using Lanes = std::vector<F>;

enum class Rest { halves, folded, single, pairs, last, serial };
struct Order {
  long lanes;
  Rest rest;
  long step = lanes;
  long parts = 1;          // that alternate
  long to = parts;         // lanes that the fold leaves
  long at = 0, group = 0;  // in the fold of `at` lanes, groups are added to their neighbours
};

inline const auto plus = [](auto a, auto b) { return a + b; };
// The second one beside a NaN.
inline const auto larger = [](auto a, auto b) { return a > b ? a : b; };

template <class F, class Op>
void foldOnce(Lanes<F>& lane, const Order& o, Op op) {
  const long half = long(lane.size()) / 2, group = 2 * half == o.at ? o.group : half;
  for (long j = 0; j < half; ++j) {
    const long from = j / group * 2 * group + j % group;
    lane[j] = op(lane[from], lane[from + group]);
  }
  lane.resize(half);
}
template <class F, class Op = decltype(plus)>
Lanes<F> folded(Lanes<F> lane, const Order& o, Op op = plus) {
  while (long(lane.size()) > o.to) foldOnce(lane, o, op);
  return lane;
}

// The terms up to n, of which the first `peel` are peeled: term(i) is number i. Of parts that
// alternate, the first result is that of the first term behind the peel.
template <class F, class Term, class Op = decltype(plus)>
Lanes<F> reduced(const Order& o, long n, long peel, Term term, Op op = plus, long i = 0) {
  Lanes<F> lane(o.lanes);
  const auto add = [&](long j, long k) { lane[j] = op(lane[j], F(term(k))); };
  const auto addWidth = [&](long width) {
    for (long j = 0; j < width; ++j) add(j, i++);
  };
  for (; i < peel; ++i) add((i + peel) % o.parts, i);
  for (; n - i >= o.step; i += o.step)
    for (long j = 0; j < o.step; ++j) add(j % o.lanes, i + j);

  constexpr long leastFolded = 32 / sizeof(F);
  while (o.rest == Rest::folded && long(lane.size()) > leastFolded) {
    foldOnce(lane, o, op);
    if (n - i >= long(lane.size())) addWidth(long(lane.size()));
  }
  if (o.rest == Rest::halves || o.rest == Rest::folded)
    for (long width = long(lane.size()) / 2; width > 0; width /= 2)
      if ((n - i) & width) addWidth(width);
  const long cycle = o.rest == Rest::pairs ? 2 : 1, first = o.rest == Rest::last ? o.lanes - 1 : 0;
  if (o.rest != Rest::serial)
    for (long t = 0; i < n; ++i, ++t) add(first + t % cycle, i);
  lane = folded(lane, o, op);
  for (long t = 0; i < n; ++i, ++t) add(t % o.parts, i);
  return lane;
}

template <class F>
Lanes<double> widen(const Lanes<F>& lane) {
  return {lane.begin(), lane.end()};
}

// The fast forms: single precision within blocks of 8192 terms, a total of four doubles beyond.
Lanes<double> reducedFast(long parts, long n, long peel, auto term) {
  long i = peel;
  Lanes<double> total = widen(reduced<float>({parts, Rest::serial, 1, parts}, peel, peel, term));
  total.resize(4);
  for (bool last = false; !last; i += 8192) {
    last = n - i < 8192;
    const auto block = reduced<float>({.lanes = 32, .rest = Rest::folded, .to = 8},
                                      last ? n : i + 8192, 0, term, plus, i);
    for (int j = 0; j < 4; ++j) total[j] += double(block[j]) + double(block[j + 4]);
  }
  Order order = {.lanes = 4, .rest = Rest::serial, .parts = parts};
  if (parts == 1) order.at = 4, order.group = 1;
  return folded(total, order);
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

// Terms of `size` bytes before the next multiple of `alignment`; none where no term starts there.
inline long peelOf(long offset, long size, long alignment, long n) {
  const long missing = (alignment - offset % alignment) % alignment;
  return missing % size ? 0 : std::min(n, missing / size);
}

// What a reduction gets: elements that start `offset` bytes past a boundary.
template <class A, class B = A>
struct Operands {
  const A* x;
  const B* y;  // where there are two sources
  long len, offset;
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
  EXPECT_OK(status);
  results.insert(results.end(), mox::parts(d), mox::parts(d + count));
}

// A function without its last argument, a hint or a scale factor.
auto with(auto f, int last) {
  return [=](auto... a) -> decltype(f(a..., last)) { return f(a..., last); };
}

using Results = std::vector<long double>;

// Compares all that the functions store with model(operands), rounded to that format, at every
// short length and address, and about the ends of blocks.
template <class D, class A, class B = A, class Model, class... Functions>
void expectReduction(Model model, long shortest, Functions... functions) {
  using F = mox::Part<D>;
  auto x = roundingData<A>(65536 + 31, 3);
  const auto y = roundingData<B>(65536 + 31, 4);
  for (std::size_t i = 5; i < x.size(); i += 37) x[i] = {};
  const auto likes = x;
  // Large terms that cancel one another leave the roundings of wide lanes in sight.
  for (std::size_t i = 0; i + 7 < x.size(); i += 11)
    for (int p = 0; p < mox::partsPerElement<A>; ++p)
      mox::parts(&x[i + 7])[p] = -(mox::parts(&x[i])[p] *= mox::Part<A>(0x1p36));
  const auto check = [&](const std::vector<A>& data, long len, long offset) {
    const Placed<A> first({data.begin(), data.begin() + len}, offset);
    const Placed<B> second({y.begin(), y.begin() + len}, 5 * offset % 48);
    std::vector<F> got, expected;
    (store<D, Functions, A, B>(got, functions, first, second, int(len)), ...);
    for (const long double e : model(Operands<A, B>{data.data(), y.data(), len, offset}))
      expected.push_back(F(e));
    ASSERT_TRUE(sameBits(got, expected))
        << "length " << len << ", offset " << offset << ": " << testing::PrintToString(got)
        << " instead of " << testing::PrintToString(expected);
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
