// Counts, nearest entries, running sums, normalisation, recursive means and zero crossings against
// plain models.
#include <numeric>
#include <set>

#include "support/exact_model.h"

namespace {

using namespace test;

TEST(CountInRange, LeavesOutTheBounds) {
  Random random;
  for (const int len : {1, 3, 16, 37, 1000}) {
    std::vector<Mox32s> x(len);
    for (Mox32s& e : x) e = Mox32s(random.below(9)) - 4;
    x[0] = INT_MIN, x[len / 2] = INT_MAX;
    for (const auto& [low, high] :
         {std::pair(-2, 2), {0, 1}, {3, -3}, {INT_MIN, INT_MAX}, {-4, -2}}) {
      int count = -1, expected = 0;
      for (const Mox32s e : x) expected += low < e && e < high;
      ASSERT_OK(moxsCountInRange_32s(x.data(), len, &count, low, high));
      EXPECT_EQ(count, expected) << low << " to " << high << ", length " << len;
    }
  }
}

TEST(FindNearest, TakesTheLowerOfTwoAtTheSameDistance) {
  Random random;
  for (const int tableLen : {1, 2, 3, 7, 64, 1000}) {
    std::set<Mox16u> entries;
    for (int i = 0; i < tableLen; ++i) entries.insert(Mox16u(random.bits() & ~1u));
    const std::vector<Mox16u> table(entries.begin(), entries.end());
    auto x = random.vector<Mox16u>(500);
    for (const Mox16u e : table) x.insert(x.end(), {e, Mox16u(e + 1), Mox16u(e - 1)});
    const int len = int(x.size()), size = int(table.size());
    std::vector<Mox16u> values(len);
    std::vector<int> indices(len);
    ASSERT_OK(
        moxsFindNearest_16u(x.data(), values.data(), indices.data(), len, table.data(), size));
    for (int i = 0; i < len; ++i) {
      const auto nearest =
          std::ranges::min_element(table, {}, [&](int entry) { return std::abs(entry - x[i]); });
      ASSERT_EQ(indices[i], nearest - table.begin()) << x[i];
      ASSERT_EQ(values[i], *nearest);
      Mox16u value;
      int index;
      ASSERT_OK(moxsFindNearestOne_16u(x[i], &value, &index, table.data(), size));
      ASSERT_TRUE(value == values[i] && index == indices[i]);
    }
  }
}

template <class E>
void checkSumWindow(MoxStatus (*sumWindow)(const E*, Mox32f*, int, int)) {
  Random random;
  bool rounded = false;
  for (const int maskSize : {1, 2, 31, 32, 33, 100000}) {
    constexpr int len = 300;
    std::vector<E> x(len + maskSize - 1);
    for (E& e : x) e = E(std::numeric_limits<E>::max() - random.below(40));
    std::vector<Mox32f> dst(len);
    ASSERT_OK(sumWindow(x.data(), dst.data(), len, maskSize));
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
}

template <class E, class F>
void checkNormalize(MoxStatus (*normalize)(const E*, E*, int, E, F), E sub) {
  constexpr int len = 50, parts = mox::partsPerElement<E>;
  const auto x = Random().vector<E>(len);
  std::vector<E> y(len);
  for (const F div : {F(3), F(-0.1), F(1e30), F(1.1754944e-38)}) {
    ASSERT_OK(normalize(x.data(), y.data(), len, sub, div));
    for (int i = 0; i < len * parts; ++i) {
      const F difference = mox::parts(x.data())[i] - mox::parts(&sub)[i % parts];
      const bool byReciprocal = std::is_same_v<E, Mox32f>;
      ASSERT_EQ(mox::parts(y.data())[i], byReciprocal ? difference * (1 / div) : difference / div)
          << "div " << div << " at " << i;
    }
  }
}

TEST(Normalize, FloatsAreTheirFormula) {
  checkNormalize<Mox32f, Mox32f>(moxsNormalize_32f, 0.3f);
  checkNormalize<Mox64f, Mox64f>(moxsNormalize_64f, 0.3);
  checkNormalize<Mox32fc, Mox32f>(moxsNormalize_32fc, {0.3f, -0.7f});
  checkNormalize<Mox64fc, Mox64f>(moxsNormalize_64fc, {0.3, -0.7});
}

// In single precision, to nearest and saturated.
template <class E>
void checkNormalizeScaled(MoxStatus (*normalize)(const E*, E*, int, E, int, int), E sub) {
  constexpr int len = 65536, parts = mox::partsPerElement<E>;
  std::vector<Mox16s> x(len), y(len);
  std::iota(x.begin(), x.end(), Mox16s(-32768));
  const auto run = [&](int div, int factor) {
    return normalize(reinterpret_cast<const E*>(x.data()), reinterpret_cast<E*>(y.data()),
                     len / parts, sub, div, factor);
  };
  for (const int div : {1, -1, 2, 3, 7, -1000, INT_MIN, INT_MAX})
    for (const int factor : {0, 1, 3, -1, -7, 17, -47, 100, INT_MIN, INT_MAX}) {
      ASSERT_OK(run(div, factor));
      for (int i = 0; i < len; ++i) {
        const Mox32f q = Mox32f(x[i] - mox::parts(&sub)[i % parts]) / Mox32f(div);
        const double r = std::nearbyint(std::ldexp(double(q), -std::clamp(factor, -500, 500)));
        ASSERT_EQ(y[i], std::clamp(r, -32768.0, 32767.0))
            << x[i] << " at " << i << " by " << div << " factor " << factor;
      }
    }
}

TEST(Normalize, IntegersAreDividedInSinglePrecision) {
  for (const Mox16s sub : {0, 1, -32768, 32767}) {
    checkNormalizeScaled<Mox16s>(moxsNormalize_16s_Sfs, sub);
    checkNormalizeScaled<Mox16sc>(moxsNormalize_16sc_Sfs, {sub, Mox16s(~sub)});
  }
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

void checkUpdate(const std::vector<Mox16s>& x, Mox32s start, int shift, int alpha) {
  Mox32s linear = start, power = start;
  const int len = int(x.size());
  ASSERT_OK(moxsUpdateLinear_16s32s_I(x.data(), len, &linear, shift, Mox16s(alpha), 1));
  ASSERT_OK(moxsUpdatePower_16s32s_I(x.data(), len, &power, shift, Mox16s(alpha), 0));
  EXPECT_EQ(linear, updated(x, false, start, shift, alpha)) << len << " " << alpha;
  EXPECT_EQ(power, updated(x, true, start, shift, alpha)) << len << " " << alpha;
}

TEST(Update, IsExactAndSaturates) {
  Random random;
  for (const int len : {1, 2, 3, 4, 7, 8, 100})
    for (const int alpha : {0, 1, -1, 2, -2, 5, 181, -180})
      for (const int shift : {-5, 0, 3, 14, 15, 31, INT_MAX})
        for (const Mox32s start : {0, -77, INT_MIN, INT_MAX})
          checkUpdate(random.vector<Mox16s>(len), start, shift, alpha);
  checkUpdate(std::vector<Mox16s>(1 << 18, -32768), 0, 0, -1);
}

// Values that a double holds at every step, and some that ran away.
TEST(Update, LargeFactorsGoByFourInDouble) {
  for (int len = 1; len <= 9; ++len) {
    std::vector<Mox16s> x(len, 1), zeros(len);
    x.back() = 2;
    for (const int alpha : {182, -181, 1000})
      checkUpdate(x, 1, 0, alpha), checkUpdate(x, 100, 0, alpha);
    checkUpdate(zeros, -1, 0, 32767), checkUpdate(zeros, -1, 0, -32768);
  }
}

template <class E>
void checkCrossings(MoxStatus (*zeroCrossing)(const E*, int, Mox32f*, int),
                    const std::vector<E>& values) {
  Random random;
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
      ASSERT_OK(zeroCrossing(x.data(), len, &got, type));
      ASSERT_EQ(got, expected[type]) << "type " << type << " len " << len;
    }
  }
  Mox32f result = 7;
  EXPECT_OK(zeroCrossing(values.data(), -1, &result, 2));
  EXPECT_EQ(result, 0);
}

TEST(ZeroCrossing, CountsByEveryKind) {
  checkCrossings<Mox16s>(moxsZeroCrossing_16s32f, {0, 1, -1, 32767, -32768, 5});
  checkCrossings<Mox32f>(moxsZeroCrossing_32f,
                         {0.0f, -0.0f, 1, -1, 1e-30f, -1e-30f, INFINITY, -INFINITY, NAN});
}

}  // namespace
