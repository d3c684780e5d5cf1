// Floating sums, means and standard deviations against their schemes of lanes, bit for bit.
#include <gtest/gtest.h>
#include <moxsp.h>

#include "stats/reductions.h"

namespace {

using namespace test;

// Sums of one sequence or of two that alternate, such as the parts of complex elements. Lanes count
// from the first aligned number, which may belong to the second sequence.
template <class F>
struct Numbers : Operands<F> {
  long parts;
  bool aligned() const { return this->offset % sizeof(F) == 0; }
  long peeled() const { return this->peel(32); }
  auto term() const {
    return [x = this->x](long i) { return x[i]; };
  }
  template <class W>
  Lanes<W> turned(Lanes<W> sums) const {
    if (peeled() % parts) std::swap(sums[0], sums[1]);
    return sums;
  }
  template <class W>
  Lanes<W> head() const {
    long i = 0;
    return turned(deal(Lanes<W>(parts), i, peeled(), {{parts}, {1}}, term()));
  }
  Lanes<double> joined(const Lanes<double>& four) const {
    return parts == 1 ? foldQuarters(four) : turned(foldHalves(four, 2));
  }
};

Lanes<double> accurateSum(const Numbers<float>& d) {
  long i = 0;
  if (!d.aligned() || d.len < d.peeled() + 16)
    return deal(Lanes<double>(d.parts), i, d.len, {{d.parts}}, d.term());
  Lanes<double> lane = d.head<double>();
  lane.resize(8 * d.parts);
  i = d.peeled();
  return d.turned(deal(lane, i, d.len, {{16, 8 * d.parts}, folded(d.parts), {1}}, d.term()));
}

Lanes<double> fastSum(const Numbers<float>& d) {
  if (!d.aligned()) return accurateSum(d);
  Lanes<double> lane = widen(d.head<float>());
  lane.resize(4);
  return d.joined(fastBlocks(lane, d.peeled(), d.len, d.term()));
}

Lanes<double> doubleSum(const Numbers<double>& d) {
  Lanes<double> lane = d.head<double>();
  lane.resize(16);
  long i = d.peeled();
  if (d.aligned())
    return d.joined(deal(lane, i, d.len, {{16}, folded(8), folded(4), {2}, {1}}, d.term()));
  return deal(lane, i, d.len, {{16}, folded(d.parts)}, d.term());
}

template <class E, class Model, class Sum, class Mean>
void expectSums(Model model, Sum sum, Mean mean) {
  constexpr long parts = mox::partsPerElement<E>;
  const auto results = [=](const Operands<E>& o) {
    const Lanes<double> s = model({{mox::parts(o.x), nullptr, parts * o.len, o.offset}, parts});
    const double n = double(o.len);
    Results all(s.begin(), s.end());
    for (const double part : s)
      all.push_back(std::is_same_v<E, Mox64fc> ? part * (1 / n) : part / n);
    return all;
  };
  expectReduction<E, E>(results, 1, sum, mean);
}

TEST(Sum, Fast) {
  expectSums<Mox32f>(fastSum, with(moxsSum_32f, 1), with(moxsMean_32f, 1));
  expectSums<Mox32fc>(fastSum, with(moxsSum_32fc, 1), with(moxsMean_32fc, 1));
}
TEST(Sum, Accurate) {
  expectSums<Mox32f>(accurateSum, with(moxsSum_32f, 2), with(moxsMean_32f, -7));
  expectSums<Mox32fc>(accurateSum, with(moxsSum_32fc, 0), with(moxsMean_32fc, 2));
}
TEST(Sum, Doubles) {
  expectSums<Mox64f>(doubleSum, moxsSum_64f, moxsMean_64f);
  expectSums<Mox64fc>(doubleSum, moxsSum_64fc, moxsMean_64fc);
}

// Of a reduction of the elements and of their squares, which have the format P.
template <class P, class F, class Reduce>
long double deviation(const Operands<F>& o, Reduce reduce) {
  const auto sum = reduce([&](long i) { return o.x[i]; });
  const auto squares = reduce([&](long i) { return P(o.x[i]) * o.x[i]; });
  const decltype(sum) n = o.len, t = n * squares - sum * sum;
  return t > 0 ? std::sqrt(t / (n * (n - 1))) : 0;
}

auto inDoubles(long n, long peel, long lanes) {
  return [=](auto term) {
    long i = 0;
    const auto head = deal(Lanes<double>(lanes), i, peel, {{1}}, term);
    return foldHalves(deal(head, i, n, halving(lanes), term), 1)[0];
  };
}

TEST(StdDev, Floats) {
  const auto model = [](const Operands<Mox32f>& o) -> Results {
    const auto doubles = inDoubles(o.len, o.peel(16), 16);
    const auto fast = [&](auto term) {
      long i = 0;
      Lanes<double> head = widen(deal(Lanes<float>(1), i, o.peel(32), {{1}}, term));
      head.resize(4);
      return foldQuarters(fastBlocks(head, i, o.len, term))[0];
    };
    const auto extended = [&](auto term) {
      long i = 0;
      return deal(Lanes<long double>(2), i, o.len, {{4, 2}, folded(1)}, term)[0];
    };
    const long double accurate = deviation<double>(o, doubles);
    return {accurate, o.offset % 4 ? accurate : deviation<float>(o, fast),
            extended([&](long i) { return o.x[i]; }) / o.len, deviation<long double>(o, extended)};
  };
  expectReduction<Mox32f, Mox32f>(model, 2, with(moxsStdDev_32f, 0), with(moxsStdDev_32f, 1),
                                  with(moxsMeanStdDev_32f, 1));
}

TEST(StdDev, Doubles) {
  const auto model = [](const Operands<Mox64f>& o) -> Results {
    const auto reduce = inDoubles(o.len, o.offset >> 3 & 1, 4);
    const double mean = reduce([&](long i) { return o.x[i]; }) / double(o.len);
    const long double d = deviation<double>(o, reduce);
    return {d, mean, d};
  };
  expectReduction<Mox64f, Mox64f>(model, 2, moxsStdDev_64f, moxsMeanStdDev_64f);
}

TEST(StdDev, OfEqualElementsAndOfNaN) {
  std::vector<Mox32f> x(777, 3.0f);
  Mox32f got, mean;
  const auto stdDev = [&](int hint) {
    EXPECT_EQ(moxsStdDev_32f(x.data(), 777, &got, hint), moxOk);
    return got;
  };
  EXPECT_EQ(stdDev(0), 0);
  x[500] = NAN;
  EXPECT_EQ(stdDev(0), 0);
  EXPECT_EQ(stdDev(1), 0);
  ASSERT_EQ(moxsMeanStdDev_32f(x.data(), 777, &mean, &got, 0), moxOk);
  EXPECT_TRUE(std::isnan(mean) && std::isnan(got));
}

}  // namespace
