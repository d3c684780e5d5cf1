// Thresholds on the magnitudes of complex elements.
#include "support/accuracy.h"

namespace {

using namespace test;

template <class E>
struct Members {
  using F = mox::Part<E>;
  Member<const E*, E*, int, F> lt, gt;
  Member<const E*, E*, int, F, E> ltVal, gtVal;
  Member<const E*, E*, int, F, int> by;
};
#define MEMBERS_OF(t)                                                                \
  Members<Mox##t> {                                                                  \
    MEMBER(Threshold_LT_##t), MEMBER(Threshold_GT_##t), MEMBER(Threshold_LTVal_##t), \
        MEMBER(Threshold_GTVal_##t), MEMBER(Threshold_##t)                           \
  }

enum Order { below, at, above, unordered, near };

// Where the magnitude is in relation to the level. The rounding of squares may decide about those
// near to it, not about small integers.
template <class E>
Order compare(E z, mox::Part<E> level) {
  const long double re = z.re, im = z.im, l = level, m = re * re + im * im, square = l * l;
  if (std::isnan(re) || std::isnan(im) || std::isnan(l)) return unordered;
  const long double epsilon = std::numeric_limits<mox::Part<E>>::epsilon();
  const bool small = std::trunc(m) == m && m < 1000 && std::trunc(square) == square;
  if (!small && std::fabs(m - square) <= 4 * epsilon * square) return near;
  return m < square ? below : m > square ? above : at;
}

struct Exact {
  long double re, im;
};

// The element at the given level; an infinite part outweighs all finite ones.
Exact atLevel(auto z, long double level) {
  long double re = z.re, im = z.im;
  if (re == 0 && im == 0) return {level, 0};
  if (std::isinf(re) || std::isinf(im)) {
    re = std::copysign(std::isinf(re) ? 1 : 0, re);
    im = std::copysign(std::isinf(im) ? 1 : 0, im);
  }
  const long double factor = level / std::hypot(re, im);
  return {re == 0 ? re : re * factor, im == 0 ? im : im * factor};
}

void expectNear(auto got, Exact exact, long double bound) {
  const auto error = [](auto part, long double wanted) {
    if constexpr (std::is_integral_v<decltype(part)>)
      return std::fabs(part - wanted);
    else
      return ulpError(part, wanted);
  };
  ASSERT_LE(error(got.re, exact.re), bound) << got.re << " for " << exact.re;
  ASSERT_LE(error(got.im, exact.im), bound) << got.im << " for " << exact.im;
}

// Random elements about the level and of all sizes, also such whose squared magnitude is next to
// overflow; zeros, Pythagorean triples with a magnitude of the level and next to it, infinities and
// NaN.
template <class E>
std::vector<E> manyElements(mox::Part<E> level) {
  using F = mox::Part<E>;
  using Limits = std::numeric_limits<F>;
  Random random;
  std::vector<E> v = random.vector<E>(500);
  for (F re : {F(0), F(level / 5 * 3), F(-level), F(level / 2), F(1)})
    for (F im : {F(0), F(level / 5 * 4), F(level), F(-1)}) v.push_back({re, im});
  for (F part : {Limits::lowest(), Limits::max()})
    v.push_back({part, part}), v.push_back({part, 0});
  if constexpr (std::is_floating_point_v<F>) {
    for (F part : {F(-0.0), Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(),
                   Limits::max(), Limits::denorm_min(), std::nextafter(level, F(0)),
                   std::nextafter(level, Limits::infinity())})
      for (F other : {part, F(0), F(3)}) v.push_back({part, other}), v.push_back({other, part});
    const F root = std::ldexp(F(1), Limits::max_exponent / 2);
    for (int i = 0; i < 5000; ++i) {
      const E z = random.value<E>();
      v.push_back({root * (F(0.7) + F(0.25) * z.re), root * F(0.3) * z.im});
      if (i >= 500) continue;
      v.push_back({random.anyFloat<F>(), random.anyFloat<F>()});
      if (std::isfinite(level * 2)) v.push_back({z.re * level * 2, z.im * level * 2});
    }
  }
  return v;
}

// Elements that the relation passes stay to the bit, others are `bound` from the exact ones at
// most.
template <class E>
void expectAll(const Members<E>& members, const std::vector<mox::Part<E>>& levels,
               long double bound) {
  for (const auto level : levels) {
    const E value = {9, -7};
    const auto src = manyElements<E>(level);
    const auto low = run(members.lt, src, level).values, high = run(members.gt, src, level).values,
               lowValue = run(members.ltVal, src, level, value).values,
               highValue = run(members.gtVal, src, level, value).values;
    EXPECT_TRUE(sameBits(run(members.by, src, level, moxThresholdLess).values, low));
    EXPECT_TRUE(sameBits(run(members.by, src, level, moxThresholdGreater).values, high));
    for (std::size_t i = 0; i < src.size(); ++i) {
      SCOPED_TRACE(text(src[i]) + ", level " + text(level));
      const Order order = compare(src[i], level);
      if (order == near) continue;
      const auto expectMoved = [&](E got, bool isMoved) {
        if (isMoved)
          expectNear(got, atLevel(src[i], level), bound);
        else
          ASSERT_TRUE(sameBits(got, src[i])) << text(got);
      };
      expectMoved(low[i], order == below);
      if (level == 0)
        ASSERT_TRUE(sameBits(high[i], E{}));
      else
        expectMoved(high[i], order == above);
      ASSERT_TRUE(sameBits(lowValue[i], order == below || order == unordered ? value : src[i]));
      ASSERT_TRUE(sameBits(highValue[i], order == above || order == unordered ? value : src[i]));
    }
  }
}

TEST(ThresholdComplex, MagnitudesAgainstLevels) {
  expectAll(MEMBERS_OF(32fc),
            {0, 5, 0.3f, 1e-12f, 1e-30f, 1e-45f, 1e17f, 1e25f, 3e38f, INFINITY, NAN}, 8);
  expectAll(MEMBERS_OF(64fc),
            {0, 5, 0.3, 1e-119, 1e-200, 5e-324, 1e149, 1e200, 1e308, INFINITY, NAN}, 4);
  expectAll(MEMBERS_OF(16sc), {0, 1, 5, 100, 12345, 32767}, 0.5L + 1e-9L);
}

template <class E, class F = mox::Part<E>>
void expectReciprocals(Member<const E*, E*, int, F> member, const std::vector<Given<F>>& levels) {
  for (const F level : levels) {
    const auto src = manyElements<E>(level);
    const auto got = run(member, src, level);
    ASSERT_EQ(got.status, level == 0 ? moxWarnInvZero : moxOk);
    for (std::size_t i = 0; i < src.size(); ++i) {
      SCOPED_TRACE(text(src[i]) + ", level " + text(level));
      const E z = src[i], r = got.values[i];
      const Exact unit = atLevel(z, 1);
      const long double root = std::hypot((long double)z.re, (long double)z.im);
      const auto over = [&](long double x) { return x == 0 ? x : x / std::fmax(root, level); };
      if (compare(z, 1) == unordered)
        ASSERT_TRUE(std::isnan(r.re) || std::isnan(r.im));
      else
        expectNear(r, {over(unit.re), over(root == 0 ? 0 : -unit.im)}, 3);
    }
  }
}

TEST(ThresholdComplex, ReciprocalsOfRaisedMagnitudes) {
  expectReciprocals(MEMBER(Threshold_LTInv_32fc), {0, 0.5f, 1e-12f, 1e-40f, 1e20f, 3e38f});
  expectReciprocals(MEMBER(Threshold_LTInv_64fc), {0, 0.5, 1e-120, 5e-324, 1e200, 1e308});
  const std::vector<Mox32fc> noZero = {{2, 1}};
  EXPECT_OK(run(MEMBER(Threshold_LTInv_32fc), noZero, 0).status);
}

// Beyond the range of squares doubles go through the x87 unit, whose precision the caller may
// lower.
TEST(ThresholdComplex, KeepsItsDigitsWhereTheX87IsAtSinglePrecision) {
  const Mox64fc z = {1.2345678901234567e-200, 9.8765432109876543e-201};
  for (const auto function : {moxsThreshold_LT_64fc, moxsThreshold_LTInv_64fc}) {
    Mox64fc results[2];
    for (const unsigned short word : {0x037F, 0x007F}) {  // the last one of single precision
      asm volatile("fldcw %0" : : "m"(word));
      const MoxStatus status = function(&z, &results[word == 0x007F], 1, 1e-190);
      asm volatile("fninit");
      ASSERT_OK(status);
    }
    EXPECT_TRUE(sameBits(results[0], results[1]));
  }
}

}  // namespace
