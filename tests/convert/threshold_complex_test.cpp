// Thresholds on the magnitudes of complex elements.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include "frame/elements.h"
#include "support/accuracy.h"
#include "support/random.h"

namespace {

template <class E>
struct Members {
  using F = mox::Part<E>;
  MoxStatus (*lt)(const E*, E*, int, F);
  MoxStatus (*gt)(const E*, E*, int, F);
  MoxStatus (*ltVal)(const E*, E*, int, F, E);
  MoxStatus (*gtVal)(const E*, E*, int, F, E);
  MoxStatus (*byOperator)(E*, int, F, int);
  MoxStatus (*inverse)(const E*, E*, int, F);
};
constexpr Members<Mox32fc> single = {moxsThreshold_LT_32fc,    moxsThreshold_GT_32fc,
                                     moxsThreshold_LTVal_32fc, moxsThreshold_GTVal_32fc,
                                     moxsThreshold_32fc_I,     moxsThreshold_LTInv_32fc};
constexpr Members<Mox64fc> twice = {moxsThreshold_LT_64fc,    moxsThreshold_GT_64fc,
                                    moxsThreshold_LTVal_64fc, moxsThreshold_GTVal_64fc,
                                    moxsThreshold_64fc_I,     moxsThreshold_LTInv_64fc};
constexpr Members<Mox16sc> integer = {moxsThreshold_LT_16sc,    moxsThreshold_GT_16sc,
                                      moxsThreshold_LTVal_16sc, moxsThreshold_GTVal_16sc,
                                      moxsThreshold_16sc_I,     nullptr};

// -1, 0, 1 as the magnitude is below, at or above the level; 2 for NaN. `near` tells cases that the
// rounding of squares may decide: not those where they are small integers.
template <class E>
int compare(E z, mox::Part<E> level, bool* near = nullptr) {
  const long double re = z.re, im = z.im, l = level;
  if (std::isnan(re) || std::isnan(im)) return 2;
  const long double m = re * re + im * im, square = l * l;
  const long double epsilon = std::numeric_limits<mox::Part<E>>::epsilon();
  const bool small = std::trunc(m) == m && m < 1000 && std::trunc(square) == square;
  if (near) *near = !small && std::fabs(m - square) <= 4 * epsilon * square;
  return m < square ? -1 : m > square ? 1 : 0;
}

struct Exact {
  long double re, im;
};

// The element at the given level; an infinite part outweighs all finite ones.
template <class E>
Exact atLevel(E z, long double level) {
  long double re = z.re, im = z.im;
  if (re == 0 && im == 0) return {level, 0};
  if (std::isinf(re) || std::isinf(im)) {
    re = std::copysign(std::isinf(re) ? 1 : 0, re);
    im = std::copysign(std::isinf(im) ? 1 : 0, im);
  }
  const long double factor = level / std::hypot(re, im);
  return {re == 0 ? re : re * factor, im == 0 ? im : im * factor};
}

template <class F>
long double error(F got, long double exact) {
  if constexpr (std::is_integral_v<F>)
    return std::fabs(got - exact);
  else
    return test::ulpError(got, std::isinf(F(exact)) ? (long double)F(exact) : exact);
}

template <class E>
bool same(E a, E b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

// All members on `src`: elements that the relation passes stay to the bit, others are `bound` from
// the exact ones at most.
template <class E>
void expectAll(const Members<E>& members, const std::vector<E>& src, mox::Part<E> level,
               long double bound) {
  const int len = int(src.size());
  const E value = {9, -7};
  std::vector<E> low(src.size()), high = low, lowValue = low, highValue = low, inPlace = src;
  ASSERT_EQ(members.lt(src.data(), low.data(), len, level), moxOk);
  ASSERT_EQ(members.gt(src.data(), high.data(), len, level), moxOk);
  ASSERT_EQ(members.ltVal(src.data(), lowValue.data(), len, level, value), moxOk);
  ASSERT_EQ(members.gtVal(src.data(), highValue.data(), len, level, value), moxOk);
  ASSERT_EQ(members.byOperator(inPlace.data(), len, level, moxThresholdLess), moxOk);
  EXPECT_TRUE(std::equal(low.begin(), low.end(), inPlace.begin(), same<E>));
  inPlace = src;
  ASSERT_EQ(members.byOperator(inPlace.data(), len, level, moxThresholdGreater), moxOk);
  EXPECT_TRUE(std::equal(high.begin(), high.end(), inPlace.begin(), same<E>));

  for (int i = 0; i < len; ++i) {
    SCOPED_TRACE(testing::Message() << "(" << src[i].re << ", " << src[i].im << "), level " << level
                                    << ", element " << i);
    bool near = false;
    const int order = compare(src[i], level, &near);
    if (near) continue;
    const auto expectLevel = [&](E got) {
      const Exact exact = atLevel(src[i], level);
      ASSERT_LE(error(got.re, exact.re), bound) << got.re << " for " << exact.re;
      ASSERT_LE(error(got.im, exact.im), bound) << got.im << " for " << exact.im;
    };
    if (order == -1)
      expectLevel(low[i]);
    else
      ASSERT_TRUE(same(low[i], src[i]));
    if (level == 0)
      ASSERT_TRUE(same(high[i], E{}));
    else if (order == 1)
      expectLevel(high[i]);
    else
      ASSERT_TRUE(same(high[i], src[i]));
    ASSERT_TRUE(same(lowValue[i], order == -1 || order == 2 ? value : src[i]));
    ASSERT_TRUE(same(highValue[i], order == 1 || order == 2 ? value : src[i]));
  }
}

// Zeros, Pythagorean triples with a magnitude of the level and next to it, infinities and NaN.
template <class E>
std::vector<E> specialElements(mox::Part<E> level) {
  using F = mox::Part<E>;
  using Range = std::numeric_limits<F>;
  std::vector<E> v;
  for (F re : {F(0), F(level / 5 * 3), F(-level), F(level / 2), F(1)})
    for (F im : {F(0), F(level / 5 * 4), F(level), F(-1)}) v.push_back({re, im});
  if constexpr (std::is_floating_point_v<F>)
    for (F part : {F(-0.0), Range::infinity(), -Range::infinity(), Range::quiet_NaN(), Range::max(),
                   Range::denorm_min(), std::nextafter(level, F(0)),
                   std::nextafter(level, Range::infinity())})
      for (F other : {part, F(0), F(3)}) v.push_back({part, other}), v.push_back({other, part});
  else
    for (F part : {Range::min(), Range::max()}) v.push_back({part, part}), v.push_back({part, 0});
  return v;
}

template <class E>
void expectAllLevels(const Members<E>& members, const std::vector<mox::Part<E>>& levels,
                     long double bound) {
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  for (const auto level : levels) {
    auto src = specialElements<E>(level);
    for (int i = 0; i < 500; ++i) {
      using F = mox::Part<E>;
      E z = random.value<E>();
      if constexpr (std::is_floating_point_v<F>)
        if (std::isfinite(level * 2)) z = {z.re * level * 2, z.im * level * 2};
      src.push_back(z);
      if constexpr (std::is_floating_point_v<F>)
        src.push_back({random.anyFloat<F>(), random.anyFloat<F>()});
    }
    for (int start = 0; start < 9; ++start)  // other lanes, other tails
      expectAll(members, std::vector<E>(src.begin() + start, src.end()), level, bound);
  }
}

TEST(ThresholdComplex, MagnitudesAgainstLevels) {
  const auto infinity = std::numeric_limits<Mox32f>::infinity();
  expectAllLevels(single, {0, 5, 0.3f, 1e-12f, 1e-30f, 1e-45f, 1e17f, 1e25f, 3e38f, infinity}, 8);
  expectAllLevels(twice, {0, 5, 0.3, 1e-119, 1e-200, 5e-324, 1e149, 1e200, 1e308, infinity}, 4);
  expectAllLevels(integer, {0, 1, 5, 100, 12345, 32767}, 0.5L + 1e-9L);
}

TEST(ThresholdComplex, ANaNLevelPassesAllButValues) {
  const Mox32fc src[] = {{1, 2}, {0, 0}, {INFINITY, 1}}, value = {7, 7};
  Mox32fc dst[3];
  for (auto function : {moxsThreshold_LT_32fc, moxsThreshold_GT_32fc}) {
    ASSERT_EQ(function(src, dst, 3, NAN), moxOk);
    EXPECT_EQ(0, std::memcmp(src, dst, sizeof src));
  }
  ASSERT_EQ(moxsThreshold_LTVal_32fc(src, dst, 3, NAN, value), moxOk);
  for (Mox32fc z : dst) EXPECT_TRUE(same(z, value));
}

template <class E>
void expectReciprocals(const Members<E>& members, const std::vector<mox::Part<E>>& levels) {
  using F = mox::Part<E>;
  test::Random random;
  for (const F level : levels) {
    auto src = specialElements<E>(level);
    for (int i = 0; i < 500; ++i) src.push_back({random.anyFloat<F>(), random.value<F>()});
    for (int i = 0; i < 500; ++i) src.push_back(random.value<E>());
    std::vector<E> dst(src.size());
    ASSERT_EQ(members.inverse(src.data(), dst.data(), int(src.size()), level),
              level == 0 ? moxWarnInvZero : moxOk);
    for (std::size_t i = 0; i < src.size(); ++i) {
      const E z = src[i];
      if (compare(z, 1) == 2) {
        ASSERT_TRUE(std::isnan(dst[i].re) || std::isnan(dst[i].im));
        continue;
      }
      const long double root = std::hypot((long double)z.re, (long double)z.im);
      const Exact unit = atLevel(z, 1);
      const auto over = [=](long double x) { return x == 0 ? x : x / std::fmax(root, level); };
      ASSERT_LE(error(dst[i].re, over(unit.re)), 5)
          << z.re << ", " << z.im << ", level " << level << " gives " << dst[i].re;
      ASSERT_LE(error(dst[i].im, over(-unit.im)), 5)
          << z.re << ", " << z.im << ", level " << level << " gives " << dst[i].im;
    }
  }
}

TEST(ThresholdComplex, ReciprocalsOfRaisedMagnitudes) {
  expectReciprocals(single, {0, 0.5f, 1e-12f, 1e-40f, 1e20f, 3e38f});
  expectReciprocals(twice, {0, 0.5, 1e-120, 5e-324, 1e200, 1e308});
  Mox32fc one[] = {{2, 1}};
  EXPECT_EQ(moxsThreshold_LTInv_32fc_I(one, 1, 0), moxOk);
}

}  // namespace
