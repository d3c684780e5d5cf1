#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <moxsp.h>

#include <cmath>
#include <limits>

#include "support/random.h"

namespace {

// 23 elements behind a 32-byte line minus 7: the shortest array that has peel, block and no tail.
TEST(Add, PeelBlockAndTailAgreeAtEveryLengthAndOffset) {
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  for (int offset = 0; offset < 8; ++offset)
    for (int len = 1; len <= 70; ++len) {
      const auto a = random.vector<Mox32f>(len), b = random.vector<Mox32f>(len);
      alignas(32) Mox32f dst[80];
      ASSERT_EQ(moxsAdd_32f(a.data(), b.data(), dst + offset, len), moxOk);
      for (int i = 0; i < len; ++i)
        ASSERT_EQ(dst[offset + i], a[i] + b[i]) << "offset " << offset << " len " << len;
    }
}

TEST(Add, ComplexFormsLookAtTheLengthFirst) {
  EXPECT_EQ(moxsAdd_32fc(nullptr, nullptr, nullptr, 0), moxErrSize);
  EXPECT_EQ(moxsAdd_64fc_I(nullptr, nullptr, 0), moxErrSize);
  EXPECT_EQ(moxsAdd_32fc(nullptr, nullptr, nullptr, 1), moxErrNullPtr);
  EXPECT_EQ(moxsAdd_32f(nullptr, nullptr, nullptr, 0), moxErrNullPtr);
}

TEST(Add, ComplexElementsAreAddedByParts) {
  const Mox64fc a[2] = {{1, 2}, {3, 4}};
  Mox64fc b[2] = {{10, 20}, {30, 40}};
  ASSERT_EQ(moxsAdd_64fc_I(a, b, 2), moxOk);
  EXPECT_EQ(b[0].re, 11);
  EXPECT_EQ(b[0].im, 22);
  EXPECT_EQ(b[1].re, 33);
  EXPECT_EQ(b[1].im, 44);
}

TEST(Add, SpecialValuesFollowIeeeAdditionInEveryLane) {
  constexpr double inf = std::numeric_limits<double>::infinity();
  const double pairs[][2] = {{inf, -inf}, {inf, 1}, {-0.0, -0.0},
                             {-0.0, 0.0}, {NAN, 1}, {5e-324, 5e-324}};
  for (const auto& [x, y] : pairs) {
    std::vector<double> a(40, x), b(40, y), sum(40);
    ASSERT_EQ(moxsAdd_64f(a.data(), b.data(), sum.data(), 40), moxOk);
    for (double s : sum) {
      if (std::isnan(x + y))
        EXPECT_TRUE(std::isnan(s));
      else
        EXPECT_TRUE(s == x + y && std::signbit(s) == std::signbit(x + y)) << x << " + " << y;
    }
  }
}

}  // namespace
