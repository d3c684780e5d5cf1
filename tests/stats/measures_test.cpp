// Counts, nearest entries, running sums, normalisation, recursive means and zero crossings against
// plain models.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <vector>

#include "support/random.h"

namespace {

__extension__ typedef __int128 Int128;

TEST(CountInRange, LeavesOutTheBounds) {
  test::Random random;
  for (const int len : {1, 3, 16, 37, 1000}) {
    std::vector<Mox32s> x(len);
    for (Mox32s& e : x) e = Mox32s(random.below(9)) - 4;
    x[0] = INT_MIN, x[len / 2] = INT_MAX;
    const Mox32s bounds[][2] = {{-2, 2}, {0, 1}, {3, -3}, {INT_MIN, INT_MAX}, {-4, -2}};
    for (const auto& between : bounds) {
      const auto inside = [&](Mox32s e) { return between[0] < e && e < between[1]; };
      int count = -1;
      ASSERT_EQ(moxsCountInRange_32s(x.data(), len, &count, between[0], between[1]), moxOk);
      EXPECT_EQ(count, std::count_if(x.begin(), x.end(), inside));
    }
  }
}

TEST(FindNearest, TakesTheLowerOfTwoAtTheSameDistance) {
  test::Random random;
  for (const int tableLen : {1, 2, 3, 7, 64, 1000}) {
    std::vector<Mox16u> table;
    for (int i = 0; i < tableLen; ++i) table.push_back(Mox16u(random.bits() & ~1u));
    std::sort(table.begin(), table.end());
    table.erase(std::unique(table.begin(), table.end()), table.end());
    std::vector<Mox16u> x = {0, 65535};
    for (const Mox16u e : table) x.insert(x.end(), {e, Mox16u(e + 1), Mox16u(e - 1)});
    for (int i = 0; i < 500; ++i) x.push_back(Mox16u(random.bits()));
    const int len = int(x.size()), entries = int(table.size());
    std::vector<Mox16u> values(len);
    std::vector<int> indices(len);
    ASSERT_EQ(
        moxsFindNearest_16u(x.data(), values.data(), indices.data(), len, table.data(), entries),
        moxOk);
    for (int i = 0; i < len; ++i) {
      const auto nearest = std::min_element(table.begin(), table.end(), [&](int a, int b) {
        return std::abs(a - x[i]) < std::abs(b - x[i]);
      });
      ASSERT_EQ(indices[i], nearest - table.begin()) << x[i];
      ASSERT_EQ(values[i], *nearest);
      Mox16u value;
      int index;
      ASSERT_EQ(moxsFindNearestOne_16u(x[i], &value, &index, table.data(), entries), moxOk);
      ASSERT_TRUE(value == values[i] && index == indices[i]);
    }
  }
}

template <class E>
void checkSumWindow(MoxStatus (*sumWindow)(const E*, Mox32f*, int, int)) {
  test::Random random;
  bool rounded = false;
  for (const int maskSize : {1, 2, 31, 32, 33, 100000}) {
    constexpr int len = 300;
    std::vector<E> x(len + maskSize - 1);
    for (E& e : x) e = E(std::numeric_limits<E>::max() - random.below(40));
    std::vector<Mox32f> dst(len);
    ASSERT_EQ(sumWindow(x.data(), dst.data(), len, maskSize), moxOk);
    long exact = 0;
    for (int i = 0; i < maskSize; ++i) exact += x[i];
    Mox32f sum = Mox32f(exact);
    for (int i = 0; i < len; ++i) {
      ASSERT_EQ(dst[i], sum) << "mask " << maskSize << " at " << i;
      rounded |= double(sum) != double(exact);
      if (i + 1 == len) break;
      sum += Mox32f(x[i + maskSize] - x[i]);
      exact += x[i + maskSize] - x[i];
    }
  }
  EXPECT_TRUE(rounded) << "no sum was beyond 2^24";
}

TEST(SumWindow, FollowsTheRunningSum) {
  checkSumWindow(moxsSumWindow_8u32f);
  checkSumWindow(moxsSumWindow_16s32f);
  Mox8u x[1] = {};
  Mox32f y = 7;
  EXPECT_EQ(moxsSumWindow_8u32f(x, &y, 1, 0), moxErrSumWindowLen);
  EXPECT_EQ(moxsSumWindow_8u32f(x, &y, 0, 0), moxErrSize);
  EXPECT_EQ(y, 7);
}

template <class E, class F>
void checkNormalize(MoxStatus (*normalize)(const E*, E*, int, E, F), E sub) {
  test::Random random;
  constexpr int len = 50, width = sizeof(E) / sizeof(F);
  const auto x = random.vector<E>(len);
  std::vector<E> y(len);
  for (const F div : {F(3), F(-0.1), F(1e30), F(1.1754944e-38)}) {
    ASSERT_EQ(normalize(x.data(), y.data(), len, sub, div), moxOk);
    const F factor = 1 / div;
    for (int i = 0; i < len * width; ++i) {
      const auto part = [](const E* p, int k) { return reinterpret_cast<const F*>(p)[k]; };
      const F difference = part(x.data(), i) - part(&sub, i % width);
      ASSERT_EQ(part(y.data(), i), difference * factor) << "div " << div << " at " << i;
    }
  }
  for (const F div : {F(0), F(-0.0), F(1.1754942e-38), F(-1e-39)})
    EXPECT_EQ(normalize(x.data(), y.data(), len, sub, div), moxErrDivByZero);
}

TEST(Normalize, FloatsAreTheirFormula) {
  checkNormalize<Mox32f, Mox32f>(moxsNormalize_32f, 0.3f);
  checkNormalize<Mox64f, Mox64f>(moxsNormalize_64f, 0.3);
  checkNormalize<Mox32fc, Mox32f>(moxsNormalize_32fc, {0.3f, -0.7f});
  checkNormalize<Mox64fc, Mox64f>(moxsNormalize_64fc, {0.3, -0.7});
}

Mox16s normalized(int x, int sub, int div, int factor) {
  const Mox32f quotient = Mox32f(x - sub) / Mox32f(div);
  const double r = std::nearbyint(std::ldexp(double(quotient), -std::clamp(factor, -500, 500)));
  return Mox16s(std::clamp(r, -32768.0, 32767.0));
}

TEST(Normalize, IntegersAreDividedInSinglePrecision) {
  constexpr int len = 65536;
  std::vector<Mox16s> x(len), y(len);
  for (int i = 0; i < len; ++i) x[i] = Mox16s(i - 32768);
  for (const Mox16s sub : {0, 1, -32768, 32767})
    for (const int div : {1, -1, 2, 3, 7, -1000, INT_MIN, INT_MAX})
      for (const int factor : {0, 1, 3, -1, -7, 17, -47, 100, INT_MIN, INT_MAX}) {
        ASSERT_EQ(moxsNormalize_16s_Sfs(x.data(), y.data(), len, sub, div, factor), moxOk);
        for (int i = 0; i < len; ++i)
          ASSERT_EQ(y[i], normalized(x[i], sub, div, factor))
              << x[i] << " less " << sub << " by " << div << " factor " << factor;
        const Mox16sc both = {sub, Mox16s(~sub)};
        Mox16sc z[25];
        ASSERT_EQ(moxsNormalize_16sc_Sfs(reinterpret_cast<const Mox16sc*>(&x[700]), z, 25, both,
                                         div, factor),
                  moxOk);
        for (int i = 0; i < 25; ++i) {
          ASSERT_EQ(z[i].re, normalized(x[700 + 2 * i], both.re, div, factor));
          ASSERT_EQ(z[i].im, normalized(x[701 + 2 * i], both.im, div, factor));
        }
      }
  EXPECT_EQ(moxsNormalize_16s_Sfs(x.data(), y.data(), len, 0, 0, 0), moxErrDivByZero);
}

// The exact mean, or the side to which it ran away.
Mox32s updated(const std::vector<Mox16s>& x, bool power, Mox32s start, int shift, int alpha) {
  Int128 y = start;
  const Int128 far = Int128(1) << 100;
  for (const int e : x) {
    const int term = (power ? e * e : e) >> std::clamp(shift, 0, power ? 31 : 15);
    y = std::clamp<Int128>(alpha * y + Int128(1 - alpha) * term, -far, far);
  }
  return Mox32s(std::clamp<Int128>(y, INT_MIN, INT_MAX));
}

TEST(Update, IsExactAndSaturates) {
  test::Random random;
  for (const int len : {1, 2, 3, 4, 7, 8, 100})
    for (const int alpha : {0, 1, -1, 2, -2, 5, 181, -180})
      for (const int shift : {-5, 0, 3, 14, 15, 31, INT_MAX})
        for (const Mox32s start : {0, -77, INT_MIN, INT_MAX}) {
          const auto x = random.vector<Mox16s>(len);
          Mox32s linear = start, power = start;
          ASSERT_EQ(moxsUpdateLinear_16s32s_I(x.data(), len, &linear, shift, Mox16s(alpha), 1),
                    moxOk);
          ASSERT_EQ(moxsUpdatePower_16s32s_I(x.data(), len, &power, shift, Mox16s(alpha), 0),
                    moxOk);
          ASSERT_EQ(linear, updated(x, false, start, shift, alpha)) << len << " " << alpha;
          ASSERT_EQ(power, updated(x, true, start, shift, alpha)) << len << " " << alpha;
        }
}

// Values that a double holds at every step, and some that ran away.
TEST(Update, LargeFactorsGoByFourInDouble) {
  const auto check = [](int alpha, const std::vector<Mox16s>& x, Mox32s start) {
    Mox32s linear = start, power = start;
    const int len = int(x.size());
    ASSERT_EQ(moxsUpdateLinear_16s32s_I(x.data(), len, &linear, 0, Mox16s(alpha), 0), moxOk);
    ASSERT_EQ(moxsUpdatePower_16s32s_I(x.data(), len, &power, 0, Mox16s(alpha), 0), moxOk);
    EXPECT_EQ(linear, updated(x, false, start, 0, alpha)) << len << " " << alpha;
    EXPECT_EQ(power, updated(x, true, start, 0, alpha)) << len << " " << alpha;
  };
  for (int len = 1; len <= 9; ++len) {
    std::vector<Mox16s> x(len, 1);
    x.back() = 2;
    for (const int alpha : {182, -181, 1000}) check(alpha, x, 1), check(alpha, x, 100);
    for (const int alpha : {32767, -32768}) check(alpha, std::vector<Mox16s>(len), -1);
  }
}

template <class E>
void checkCrossings(MoxStatus (*zeroCrossing)(const E*, int, Mox32f*, int),
                    const std::vector<E>& values) {
  test::Random random;
  const auto sign = [](E v) { return (v > 0) - (v < 0); };
  for (int len = 1; len < 60; ++len) {
    std::vector<E> x(len);
    for (E& e : x) e = values[random.below(long(values.size()))];
    Mox32f expected[3] = {}, got;
    for (int i = 1; i < len; ++i) {
      const Mox32f a = Mox32f(x[i - 1]), b = Mox32f(x[i]);
      expected[0] += a * b < 0;
      expected[1] += std::signbit(a) != std::signbit(b);
      expected[2] += 0.5f * Mox32f(std::abs(sign(x[i]) - sign(x[i - 1])));
    }
    for (int type = 0; type < 3; ++type) {
      ASSERT_EQ(zeroCrossing(x.data(), len, &got, type), moxOk);
      ASSERT_EQ(got, expected[type]) << "type " << type << " len " << len;
    }
  }
  Mox32f result = 7;
  for (const int type : {3, -1, INT_MIN})
    EXPECT_EQ(zeroCrossing(values.data(), 2, &result, type), moxErrZeroCrossingType);
  EXPECT_EQ(result, 7);
  EXPECT_EQ(zeroCrossing(values.data(), -1, &result, 2), moxOk);
  EXPECT_EQ(result, 0);
}

TEST(ZeroCrossing, CountsByEveryKind) {
  checkCrossings<Mox16s>(moxsZeroCrossing_16s32f, {0, 1, -1, 32767, -32768, 5});
  checkCrossings<Mox32f>(moxsZeroCrossing_32f,
                         {0.0f, -0.0f, 1, -1, 1e-30f, -1e-30f, INFINITY, -INFINITY, NAN});
}

}  // namespace
