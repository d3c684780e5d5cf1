// Integer members whose contract is floating-point arithmetic.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <cmath>

#include "arith/scaled_members.h"
#include "support/float_environment.h"

namespace {

using namespace test;

Mox32s clampedToNearest(double t) {
  return Mox32s(std::nearbyint(std::fmax(-2147483648.0, std::fmin(2147483647.0, t))));
}

// Products above 2^53, whose last bit the double path and the exact rule see differently, come with
// the lattice's random values.
TEST(DoublePath, ProductsOf32BitsAreRoundedInEveryStep) {
  const auto values = lattice<Mox32s>(60);
  auto pairs = allPairs(values, values);
  // 2^53 + 1 is a tie for a double, and its rest decides a tie of the scaled product.
  pairs.first.insert(pairs.first.end(), {6361 * 69431, 1 << 30});
  pairs.second.insert(pairs.second.end(), {20394401, 3});
  const int len = int(pairs.first.size());
  std::vector<Mox32s> dst(len), expected(len);
  int unlikeExact = 0;
  for (int factor : allFactors()) {
    for (int i = 0; i < len; ++i) {
      const Int128 r = Int128(pairs.first[i]) * pairs.second[i];
      expected[i] = scaled<Mox32s>(r, factor);
      if (factor == 0 || factor < -31 || factor > 62) continue;
      const double s = std::ldexp(1, -factor);
      const Mox32s exact = expected[i];
      expected[i] = clampedToNearest((double(pairs.first[i]) * s) * double(pairs.second[i]));
      unlikeExact += expected[i] != exact;
    }
    for (int rounding : allRoundings) {
      const UnderRounding mode(rounding);
      ASSERT_EQ(moxsMul_32s_Sfs(pairs.first.data(), pairs.second.data(), dst.data(), len, factor),
                moxOk);
      ASSERT_EQ(dst, expected) << "factor " << factor;
      dst = pairs.second;
      ASSERT_EQ(moxsMul_32s_ISfs(pairs.first.data(), dst.data(), len, factor), moxOk);
      ASSERT_EQ(dst, expected) << "in place, factor " << factor;
    }
  }
  EXPECT_GT(unlikeExact, 0) << "no product told the two paths apart";
}

TEST(DoublePath, AddProductScalesTheProductAloneBetweenItsLimits) {
  const auto values = lattice<Mox32s>(20);
  const auto pairs = allPairs(values, values);
  const int len = int(pairs.first.size());
  std::vector<Mox32s> before(len), expected(len);
  for (int i = 0; i < len; ++i) before[i] = values[(i * 31 + i / 50) % values.size()];
  for (int factor : allFactors()) {
    for (int i = 0; i < len; ++i) {
      const Int128 r = before[i] + Int128(pairs.first[i]) * pairs.second[i];
      if (factor > 62)
        expected[i] = 0;
      else if (factor <= -31)
        expected[i] = r > 0 ? INT_MAX : r < 0 ? INT_MIN : 0;
      else if (factor == 0)
        expected[i] = scaled<Mox32s>(r, 0);
      else
        expected[i] = clampedToNearest((double(pairs.first[i]) * std::ldexp(1, -factor)) *
                                           double(pairs.second[i]) +
                                       before[i]);
    }
    for (int rounding : allRoundings) {
      const UnderRounding mode(rounding);
      auto dst = before;
      ASSERT_EQ(
          moxsAddProduct_32s_Sfs(pairs.first.data(), pairs.second.data(), dst.data(), len, factor),
          moxOk);
      ASSERT_EQ(dst, expected) << "factor " << factor;
    }
  }
}

TEST(FloatConstant, IsRoundedInTheModeInForce) {
  const auto words = lattice<Mox16s>(30);
  const int len = int(words.size());
  std::vector<Mox16s> dst(len), expected(len);
  for (int rounding : allRoundings)
    for (float val : {1.0f, 0.3f, -2.7f, 1e-3f, 1.5f, 0.0f})
      for (int factor = -12; factor <= 12; ++factor) {
        const UnderRounding mode(rounding);
        for (int i = 0; i < len; ++i) {
          const volatile float unscaled = float(words[i]) * val;
          const float t = std::ldexp(unscaled, -factor);
          expected[i] = Mox16s(std::nearbyint(std::fmax(-32768.0f, std::fmin(32767.0f, t))));
        }
        ASSERT_EQ(moxsMulC_32f16s_Sfs(words.data(), val, dst.data(), len, factor), moxOk);
        ASSERT_EQ(dst, expected) << val << ", factor " << factor << ", rounding " << rounding;
        if (factor) continue;
        ASSERT_EQ(moxsMulC_Low_32f16s(words.data(), val, dst.data(), len), moxOk);
        ASSERT_EQ(dst, expected) << val << ", the Low form";
      }
}

TEST(FloatConstant, ExtremesSaturateBySign) {
  const Mox16s words[] = {-5, 0, 9};
  Mox16s d[3];
  const auto expect = [&](Mox16s first, Mox16s second, Mox16s third) {
    EXPECT_EQ(d[0], first);
    EXPECT_EQ(d[1], second);
    EXPECT_EQ(d[2], third);
  };
  for (int factor : {INT_MIN, -200}) {
    ASSERT_EQ(moxsMulC_32f16s_Sfs(words, 1, d, 3, factor), moxOk);
    expect(-32768, 0, 32767);
  }
  ASSERT_EQ(moxsMulC_32f16s_Sfs(words, 1, d, 3, INT_MAX), moxOk);
  expect(0, 0, 0);
  ASSERT_EQ(moxsMulC_32f16s_Sfs(words, -INFINITY, d, 3, 0), moxOk);
  expect(32767, 0, -32768);
  // A constant near the largest float, brought down by its factor, doesn't overflow on the way.
  ASSERT_EQ(moxsMulC_32f16s_Sfs(words, 0x1p127f, d, 3, 127), moxOk);
  expect(-5, 0, 9);
}

}  // namespace
