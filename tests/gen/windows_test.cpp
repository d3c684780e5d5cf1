// Windows against their formulas in long double.
#include <gmock/gmock.h>

#include "support/members.h"
#include "support/test.h"
#include "support/values.h"
#include "support/windows.h"

namespace {

using namespace test;
using L = long double;

// All short lengths, both sides of those where kernels change, long ones.
std::vector<int> lengths(int least) {
  std::vector<int> all = {1024, 1025, 1026, 1027, 2047, 2048, 5000, 100001};
  for (int len = least; len < 5000; len += 1 + len / 16) all.push_back(len);
  return all;
}

// A parameter as functions take it: integers in units of 2^-15.
template <class P>
P given(L alpha) {
  return P(std::is_integral_v<P> ? std::ldexp(alpha, 15) : alpha);
}

// |got - w src| is within the bound, of integers beyond half a unit.
template <class E, class... P>
void expectWindow(Member<const E*, E*, int, P...> member, Weight weight, L alpha, double bound,
                  int len) {
  using F = mox::Part<E>;
  constexpr int parts = mox::partsPerElement<E>;
  const auto src = Random(len).vector<E>(len);
  const auto got = run(member, src, given<P>(alpha)...);
  ASSERT_OK(got.status) << member.name << ' ' << len;
  const auto *x = mox::parts(src.data()), *y = mox::parts(got.values.data());
  const L full = std::is_integral_v<F> ? 32768 : 1, half = std::is_integral_v<F> ? 0.5L : 0;
  L worst = 0, w = 0;
  for (int i = 0; i < len * parts; ++i) {
    const int n = std::min(i / parts, len - 1 - i / parts);
    if (i % parts == 0) w = 2 * n == len - 1 ? 1 : weight(n, len - 1, alpha);
    const L exact = half ? std::clamp<L>(w * x[i], -32768, 32767) : w * x[i];
    worst = std::max(worst, std::fabs(y[i] - exact));
  }
  EXPECT_LE(worst, half + bound * full) << member.name << ' ' << len;
}

// `single` and `wide` are the bounds of the header for weights in either format; they grow by
// `growth` an element.
#define EXPECT_WINDOWS(family, least, weight, alpha, single, wide, growth) \
  for (const int len : lengths(least)) {                                   \
    const L a = alpha, af = Mox32f(a);                                     \
    const double s = single * 0x1p-24 * (1 + growth * len),                \
                 d = wide * 0x1p-53 * (1 + growth * len);                  \
    expectWindow(MEMBER(Win##family##_16s), weight, af, s, len);           \
    expectWindow(MEMBER(Win##family##_16sc), weight, af, s, len);          \
    expectWindow(MEMBER(Win##family##_32f), weight, af, s, len);           \
    expectWindow(MEMBER(Win##family##_32fc), weight, af, s, len);          \
    expectWindow(MEMBER(Win##family##_64f), weight, a, d, len);            \
    expectWindow(MEMBER(Win##family##_64fc), weight, a, d, len);           \
  }

TEST(Windows, AreThoseOfTheirFormulas) {
  EXPECT_WINDOWS(Bartlett, 3, bartlett, 0, 4, 4, 0.02);
  EXPECT_WINDOWS(Hann, 3, hann, 0, 1.8, 40, 0);
  EXPECT_WINDOWS(Hamming, 3, hamming, 0, 1.8, 40, 0);
  EXPECT_WINDOWS(BlackmanStd, 3, blackman, -0.16, 4, 60, 0);
  EXPECT_WINDOWS(BlackmanOpt, 4, blackmanOpt, 0, 6, 60, 0);
  for (const L alpha : {-0.3L, 0.0L, 2.5L})
    EXPECT_WINDOWS(Blackman, 3, blackman, alpha, 4 * (1 + 4 * std::fabs(alpha)),
                   40 * (1 + 4 * std::fabs(alpha)), 0);
}

// Of many floats the products alone are rounded.
TEST(Windows, BlackmanOfManyIsRoundedOnce) {
  for (const int len : {1026, 5000}) {
    expectWindow(MEMBER(WinBlackman_32f), blackman, 0.25, 0x1.01p-25, len);
    expectWindow(MEMBER(WinBlackman_32fc), blackman, 0.25, 0x1.01p-25, len);
  }
}

TEST(Windows, KaiserIsThatOfItsFormula) {
  for (const L peak : {0.0L, -0.4L, 4.02L, 12.0L, 37.99L})
    EXPECT_WINDOWS(Kaiser, 2, kaiser, 2 * peak / (len - 1), (4 + 2.5 * std::fabs(peak)),
                   (std::ldexp(6e-6, 53)), 0);
  // Beyond what floats hold on the way.
  for (const L peak : {40.0L, 307.9L})
    for (const int len : {2, 17, 300, 5000}) {
      const L alpha = 2 * peak / (len - 1);
      expectWindow(MEMBER(WinKaiser_16s), kaiser, Mox32f(alpha), 1e-6, len);
      expectWindow(MEMBER(WinKaiser_64fc), kaiser, Mox64f(alpha), 2e-7, len);
    }
}

TEST(Windows, TakeParametersInFixedPoint) {
  for (const int len : {4, 5, 100, 701})
    for (const int alphaQ15 : {-5243, 0, 20000, 27000}) {
      const L alpha = std::ldexp(L(alphaQ15), -15);
      expectWindow(MEMBER(WinBlackmanQ15_16s), blackman, alpha, 1e-6, len);
      expectWindow(MEMBER(WinBlackmanQ15_16sc), blackman, alpha, 1e-6, len);
      expectWindow(MEMBER(WinKaiserQ15_16s), kaiser, alpha, 1e-6, len);
      expectWindow(MEMBER(WinKaiserQ15_16sc), kaiser, alpha, 1e-6, len);
    }
}

// To the bit.
TEST(Windows, OfShortsHaveCosinesAndWeightsInSinglePrecision) {
  constexpr int len = 20001;
  const auto src = Random().vector<Mox16s>(len);
  const auto hann = run(MEMBER(WinHann_16s), src).values,
             hamming = run(MEMBER(WinHamming_16s), src).values;
  for (int i = 0; i < len; ++i) {
    const L cosine = std::cos(2 * pi * i / (len - 1));
    const Mox32f half = Mox32f(0.5L * cosine), other = Mox32f(L(0.46f) * cosine);
    ASSERT_EQ(hann[i], Mox16s(std::nearbyint(src[i] * (0.5f - half)))) << i;
    ASSERT_EQ(hamming[i], Mox16s(std::nearbyint(src[i] * (0.54f - other)))) << i;
  }
}

// The one in the middle of three has its ties away from zero, that of five to even.
TEST(Windows, ScaleBlackman) {
  constexpr int alphaQ15 = -5243;
  const auto scaled = [](const std::vector<Mox16s>& src, int factor) {
    const auto call = [=](Mox16s* p, int len) {
      return moxsWinBlackmanQ15_16s_ISfs(p, len, alphaQ15, factor);
    };
    return resultsOf("WinBlackmanQ15_16s_ISfs", src, call).values;
  };
  forAllFactors([&](int factor) {
    for (const int len : {3, 4, 5, 77}) {
      const auto src = Random(len).vector<Mox16s>(len), got = scaled(src, factor);
      for (int i = 0; i < len; ++i) {
        const int n = std::min(i, len - 1 - i);
        const L w = 2 * n == len - 1 ? 1 : blackman(n, len - 1, std::ldexp(L(alphaQ15), -15));
        const L x = std::ldexp(L(src[i]), -std::clamp(factor, -100, 100));
        ASSERT_NEAR(got[i], std::clamp<L>(x * w, -32768, 32767), 0.5001L + std::fabs(x) * 3e-7L)
            << len << ' ' << i;
      }
    }
  });
  for (const Mox16s sign : {1, -1}) {
    EXPECT_THAT(scaled({sign, sign, sign}, 1), testing::ElementsAre(0, sign, 0));
    EXPECT_EQ(scaled({sign, sign, sign, sign, sign}, 1)[2], 0);
  }
}

TEST(Windows, HaveTheirSpecialEnds) {
  const std::vector<Mox32f> endless = {INFINITY, -3, NAN};
  EXPECT_THAT(run(MEMBER(WinHann_32f), endless).values, testing::ElementsAre(0, -3, 0));
  EXPECT_THAT(run(MEMBER(WinBartlett_32f), endless).values, testing::ElementsAre(0, -3, 0));
  EXPECT_THAT(run(MEMBER(WinBlackman_64f), std::vector<Mox64f>{INFINITY, -3, 1}, 7).values,
              testing::ElementsAre(0, -3, 0));
  for (const int len : {4, 5, 2000}) {
    const auto y = run(MEMBER(WinBlackman_32f), std::vector<Mox32f>(len, INFINITY), 3).values;
    EXPECT_EQ(y.front(), 0);
    EXPECT_EQ(y.back(), 0);
  }
  EXPECT_EQ(run(MEMBER(WinKaiser_32f), std::vector<Mox32f>{-7}, 38).values[0], -7);
}

TEST(Windows, KaiserHasLimits) {
  const std::vector<Mox32f> x(21);
  const std::vector<Mox64f> y(21);
  EXPECT_EQ(run(MEMBER(WinKaiser_32f), x, 3.8001).status, moxErrKaiserAlpha);  // above 38 / 10
  EXPECT_OK(run(MEMBER(WinKaiser_32f), x, 3.7999).status);
  EXPECT_OK(run(MEMBER(WinKaiser_64f), y, 3.8).status);
  EXPECT_EQ(run(MEMBER(WinKaiser_64f), y, -30.81).status, moxErrKaiserAlpha);
}

}  // namespace
