// Standard deviations of floating vectors against lanes in plain code, bit for bit.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <cmath>
#include <limits>

#include "stats/lanes.h"
#include "stats/placed.h"

namespace {

using namespace test;

template <class F>
struct Moments {
  F sum, squares;
};

double deviation(Moments<double> m, double n) {
  const double t = n * m.squares - m.sum * m.sum;
  return t > 0 ? std::sqrt(t / (n * (n - 1))) : 0;
}

// Doubles in a number of lanes; what is left goes to halves of them.
template <class F>
Moments<double> doubleMoments(const F* x, long n, long peel, std::size_t lanes) {
  Lanes<double> s(lanes), q(lanes);
  const auto add = [&](long j, double v) { s[j] += v, q[j] += v * v; };
  long i = 0;
  for (; i < peel; ++i) add(0, x[i]);
  for (const long step = long(lanes); n - i >= step; i += step)
    for (long j = 0; j < step; ++j) add(j, x[i + j]);
  for (long odd = long(lanes) / 2; odd > 0; odd /= 2)
    if (n - i >= odd)
      for (long j = 0; j < odd; ++j) add(j, x[i++]);
  return {foldHalves(s, 1)[0], foldHalves(q, 1)[0]};
}

Moments<double> fastMoments(const float* x, long n, long peel) {
  float s = 0, q = 0;
  for (long i = 0; i < peel; ++i) s += x[i], q += x[i] * x[i];
  return {foldPairs(fastBlocks(n, peel, {s, 0, 0, 0}, [=](long i) { return x[i]; })),
          foldPairs(fastBlocks(n, peel, {q, 0, 0, 0}, [=](long i) { return x[i] * x[i]; }))};
}

Moments<long double> extendedMoments(const float* x, long n) {
  long double s[2] = {}, q[2] = {};
  const auto add = [&](int j, long double v) { s[j] += v, q[j] += v * v; };
  long i = 0;
  for (; n - i >= 4; i += 4)
    for (int j = 0; j < 4; ++j) add(j % 2, x[i + j]);
  s[0] += s[1], q[0] += q[1];
  for (; i < n; ++i) add(0, x[i]);
  return {s[0], q[0]};
}

TEST(StdDev, Floats) {
  const auto data = roundingData<Mox32f>(65536 + 31, 9);
  const Mox32f* x = data.data();
  atLengthsAndOffsets(2, [&](long len, long offset) {
    const Placed<Mox32f> src({x, x + len}, offset);
    const auto accurate = doubleMoments(x, len, peelOf(offset, 16, 4, len), 16);
    const auto fast = offset % 4 ? accurate : fastMoments(x, len, peelOf(offset, 32, 4, len));
    Mox32f got, mean;
    ASSERT_EQ(moxsStdDev_32f(src, int(len), &got, 0), moxOk);
    ASSERT_TRUE(same(got, Mox32f(deviation(accurate, double(len))), at(len, offset)));
    ASSERT_EQ(moxsStdDev_32f(src, int(len), &got, 1), moxOk);
    ASSERT_TRUE(same(got, Mox32f(deviation(fast, double(len))), at(len, offset) + ", fast"));

    const auto m = extendedMoments(x, len);
    const long double n = (long double)len;
    ASSERT_EQ(moxsMeanStdDev_32f(src, int(len), &mean, &got, int(offset)), moxOk);
    ASSERT_TRUE(same(mean, Mox32f(m.sum / n), at(len, offset) + ", mean"));
    const long double variance = (m.squares * n - m.sum * m.sum) / (n * (n - 1));
    ASSERT_TRUE(same(got, Mox32f(std::sqrt(variance)), at(len, offset) + ", with mean"));
  });
}

TEST(StdDev, Doubles) {
  const auto data = roundingData<Mox64f>(65536 + 31, 10);
  const Mox64f* x = data.data();
  atLengthsAndOffsets(2, [&](long len, long offset) {
    const Placed<Mox64f> src({x, x + len}, offset);
    const auto m = doubleMoments(x, len, offset >> 3 & 1, 4);
    Mox64f got, mean;
    ASSERT_EQ(moxsStdDev_64f(src, int(len), &got), moxOk);
    ASSERT_TRUE(same(got, deviation(m, double(len)), at(len, offset)));
    ASSERT_EQ(moxsMeanStdDev_64f(src, int(len), &mean, &got), moxOk);
    ASSERT_TRUE(same(got, deviation(m, double(len)), at(len, offset) + ", with mean"));
    ASSERT_TRUE(same(mean, m.sum / double(len), at(len, offset) + ", mean"));
  });
}

TEST(StdDev, OfEqualElementsAndOfNaN) {
  const std::vector<Mox32f> equal(777, 0.1f);
  std::vector<Mox32f> withNaN = equal;
  withNaN[500] = NAN;
  Mox32f got, mean;
  for (const int hint : {0, 1}) {
    ASSERT_EQ(moxsStdDev_32f(withNaN.data(), 777, &got, hint), moxOk);
    EXPECT_EQ(got, 0);
  }
  ASSERT_EQ(moxsStdDev_32f(std::vector<Mox32f>(777, 3.0f).data(), 777, &got, 0), moxOk);
  EXPECT_EQ(got, 0);
  // The squares of 0.1f over 777 elements are exact in 64 bits, but for the last sums.
  ASSERT_EQ(moxsMeanStdDev_32f(equal.data(), 777, &mean, &got, 0), moxOk);
  EXPECT_EQ(mean, 0.1f);
  EXPECT_LT(got, 1e-9f);
  ASSERT_EQ(moxsMeanStdDev_32f(withNaN.data(), 777, &mean, &got, 0), moxOk);
  EXPECT_TRUE(std::isnan(mean) && std::isnan(got));
}

}  // namespace
