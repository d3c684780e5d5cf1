// Floating sums and means against lanes in plain code, bit for bit.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <array>

#include "stats/lanes.h"
#include "stats/placed.h"

namespace {

using namespace test;

// n numbers, of which `parts` alternate, at an address of that offset; sums of each part.
struct Numbers {
  long n, offset;
  int parts;
  long size;  // bytes of a number
  long peel() const { return peelOf(offset, 32, size, n); }
  bool aligned() const { return offset % size == 0; }
};
using Sums = std::array<double, 2>;

Sums serialSum(const Numbers& d, const float* x) {
  Sums s{};
  for (long i = 0; i < d.n; ++i) s[i % d.parts] += x[i];
  return s;
}

Sums accurateSum(const Numbers& d, const float* x) {
  const long peel = d.peel();
  if (d.n < 16 || !d.aligned() || d.n < peel + 16) return serialSum(d, x);
  Sums head{};
  for (long i = 0; i < peel; ++i) head[i % d.parts] += x[i];
  Lanes<double> lane(d.parts == 1 ? 8 : 16);
  for (int p = 0; p < d.parts; ++p) lane[(p + peel) % d.parts] = head[p];
  long i = peel;
  for (; d.n - i >= 16; i += 16)
    for (std::size_t j = 0; j < 16; ++j) lane[j % lane.size()] += x[i + long(j)];
  lane = foldHalves(lane, d.parts);
  Sums s{};
  for (int p = 0; p < d.parts; ++p) s[p] = lane[(p + peel) % d.parts];
  for (; i < d.n; ++i) s[i % d.parts] += x[i];
  return s;
}

Sums fastSum(const Numbers& d, const float* x) {
  if (!d.aligned()) return accurateSum(d, x);
  const long peel = d.peel();
  float head[2] = {};
  for (long i = 0; i < peel; ++i) head[i % d.parts] += x[i];
  Lanes<double> lane(4);
  for (int p = 0; p < d.parts; ++p) lane[(p + peel) % d.parts] = head[p];
  lane = fastBlocks(d.n, peel, lane, [&](long i) { return x[i]; });
  if (d.parts == 1) return {foldPairs(lane), 0};
  lane = foldHalves(lane, 2);
  return {lane[peel % 2], lane[(1 + peel) % 2]};
}

Sums doubleSum(const Numbers& d, const double* x) {
  const long peel = d.peel();
  Lanes<double> a(16);
  long i = 0;
  if (!d.aligned()) {
    for (; d.n - i >= 16; i += 16)
      for (int j = 0; j < 16; ++j) a[j] += x[i + j];
    a = foldHalves(a, d.parts);
    a.resize(2);
    for (; i < d.n; ++i) a[i % d.parts] += x[i];
    return {a[0], a[1]};
  }
  for (; i < peel; ++i) a[(i + peel) % d.parts] += x[i];
  for (; d.n - i >= 16; i += 16)
    for (int j = 0; j < 16; ++j) a[j] += x[i + j];
  for (const int odd : {8, 4, 2, 1}) {
    if (odd >= 4) a = foldHalves(a, odd);
    if (d.n - i < odd) continue;
    for (int j = 0; j < odd; ++j) a[j] += x[i++];
  }
  if (d.parts == 1) return {foldPairs(a), 0};
  a = foldHalves(a, 2);
  return {a[peel % 2], a[(1 + peel) % 2]};
}

template <class E>
std::array<mox::Part<E>, 2> rounded(Sums s) {
  return {mox::Part<E>(s[0]), mox::Part<E>(s[1])};
}

template <class E, class Call>
void expectSums(Call call, std::array<mox::Part<E>, 2> expected, const std::string& what) {
  E got{};
  ASSERT_EQ(call(&got), moxOk);
  for (int p = 0; p < mox::partsPerElement<E>; ++p)
    ASSERT_TRUE(same(mox::parts(&got)[p], expected[p], what));
}

template <class E, class Sum, class Mean, class Model, class... Hint>
void sweep(Sum sum, Mean mean, Model model, bool reciprocal, Hint... hint) {
  const auto data = roundingData<E>(65536 + 31, 1);
  atLengthsAndOffsets(1, [&](long len, long offset) {
    constexpr int parts = mox::partsPerElement<E>;
    const Placed<E> src({data.begin(), data.begin() + len}, offset);
    const Numbers numbers{parts * len, offset, parts, sizeof(mox::Part<E>)};
    const Sums sums = model(numbers, mox::parts(data.data()));
    const auto scaled = [&](double s) { return reciprocal ? s * (1.0 / len) : s / len; };
    const std::string what = at(len, offset);
    expectSums<E>([&](E* out) { return sum(src, int(len), out, hint...); }, rounded<E>(sums), what);
    expectSums<E>([&](E* out) { return mean(src, int(len), out, hint...); },
                  rounded<E>({scaled(sums[0]), scaled(sums[1])}), what + ", mean");
  });
}

TEST(Sum, FastFloats) { sweep<Mox32f>(moxsSum_32f, moxsMean_32f, fastSum, false, 1); }
TEST(Sum, AccurateFloats) { sweep<Mox32f>(moxsSum_32f, moxsMean_32f, accurateSum, false, 2); }
TEST(Sum, FastComplex) { sweep<Mox32fc>(moxsSum_32fc, moxsMean_32fc, fastSum, false, 1); }
TEST(Sum, AccurateComplex) { sweep<Mox32fc>(moxsSum_32fc, moxsMean_32fc, accurateSum, false, 0); }
TEST(Sum, Doubles) { sweep<Mox64f>(moxsSum_64f, moxsMean_64f, doubleSum, false); }
TEST(Sum, ComplexDoubles) { sweep<Mox64fc>(moxsSum_64fc, moxsMean_64fc, doubleSum, true); }

TEST(Sum, HintOneAloneIsFast) {
  const auto data = roundingData<Mox32f>(20000, 2);
  int differing = 0;
  for (int len = 19000; len < 20000; ++len) {
    Mox32f fast, accurate, other;
    ASSERT_EQ(moxsSum_32f(data.data(), len, &fast, 1), moxOk);
    ASSERT_EQ(moxsSum_32f(data.data(), len, &accurate, 0), moxOk);
    ASSERT_EQ(moxsSum_32f(data.data(), len, &other, -7), moxOk);
    ASSERT_EQ(accurate, other);
    differing += fast != accurate;
  }
  EXPECT_GT(differing, 100);
}

}  // namespace
