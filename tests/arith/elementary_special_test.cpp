// Special lanes of the floating-point elementary functions, and the bits of those whose formula the
// header gives.
#include <gtest/gtest.h>
#include <immintrin.h>
#include <moxsp.h>

#include <bit>
#include <cmath>
#include <limits>
#include <vector>

#include "arith/ln.h"
#include "support/accuracy.h"
#include "support/single_steps.h"

namespace {

using namespace test;

constexpr Mox32f infinity = std::numeric_limits<Mox32f>::infinity();
constexpr Mox32f tiny = std::numeric_limits<Mox32f>::denorm_min();

std::uint32_t bitsOf(Mox32f x) { return std::bit_cast<std::uint32_t>(x); }
Mox32f floatOf(std::uint32_t bits) { return std::bit_cast<Mox32f>(bits); }

// The formulas for one number, step by step.
Mox32f plainExp(Mox32f x) {
  const Mox32f sum = x * 1.4426950216293335f + 12582912.0f, n = sum - 12582912.0f;
  const Mox32f r = (x - n * 0.693145751953125f) - n * 1.428606765330187e-06f;
  Mox32f p = 0.008291719481348991f;
  for (const Mox32f c : {0.041873522102832794f, 0.16667431592941284f, 0.4999939203262329f,
                         0.9999998807907104f, 1.0f})
    p = p * r + c;
  return p * floatOf((bitsOf(sum) + 0x7F) << 23);
}

Mox32f plainLn(Mox32f x) {
  const std::int32_t above = std::int32_t(bitsOf(x) - 0x3F2AAAAB);
  const Mox32f e = Mox32f(above >> 23), m = floatOf((above & 0x7FFFFF) + 0x3F2AAAAB), r = m - 1;
  Mox32f q = -0.15177205204963684f;
  for (const Mox32f c : {0.16964881122112274f, -0.16462457180023193f, 0.19822503626346588f,
                         -0.25004664063453674f, 0.33336564898490906f, -0.5f})
    q = q * r + c;
  return e * 0.6931471824645996f + (r + r * r * q);
}

Mox32f plainArctan(Mox32f x) {
  const Mox32f a = std::fabs(x);
  const Mox32f r =
      a > 1 ? 1.5707963705062866f - arctanInSteps(reciprocalInSteps(a)) : arctanInSteps(a);
  return std::copysign(r, x);
}

Mox32f plainCubrt(Mox32f x) {
  const Mox32f a = std::fabs(x);
  const int e = ((std::int32_t(bitsOf(a)) - 0x3F800000) >> 23) + 1;
  const int k = int(Mox32f(e) * 0.3333333432674408f);
  int d = e - 3 * k;
  if (d > 0) d -= 3;
  const int e3 = e - d;
  const Mox32f m = floatOf(bitsOf(a) - (std::uint32_t(e3) << 23));
  const Mox32f p = (((45.25483322143555f * m + 192.2798309326172f) * m + 119.16548156738281f) * m +
                    13.432501792907715f) *
                       m +
                   0.1636161208152771f;
  const Mox32f q = (((14.80884075164795f * m + 151.97140502929688f) * m + 168.5254364013672f) * m +
                    33.99059295654297f) *
                       m +
                   1.0f;
  const std::uint32_t third = std::uint32_t(int(Mox32f(e3) * 0.3333333432674408f));
  return std::copysign(floatOf(bitsOf(p * reciprocalInSteps(q)) + (third << 23)), x);
}

using Function = Member<const Mox32f*, Mox32f*, int>;

TEST(ElementarySpecial, FormulasHoldToTheBit) {
  SCOPED_TRACE(seedNote());
  Random random;
  const auto expectFormula = [&](Function member, Mox32f (*plain)(Mox32f), auto isServed) {
    std::vector<Mox32f> x;
    while (x.size() < 100000)
      if (const Mox32f e = random.anyFloat<Mox32f>(); std::isnormal(e) && isServed(e))
        x.push_back(e);
    expectEach(run(member, x), plain, x);
  };
  const auto all = [](Mox32f) { return true; };
  expectFormula(MEMBER(Exp_32f), plainExp, [](Mox32f x) { return std::fabs(x) < 87.33654f; });
  expectFormula(MEMBER(Ln_32f), plainLn, [](Mox32f x) { return x > 0; });
  expectFormula(MEMBER(Arctan_32f), plainArctan, [](Mox32f x) { return std::fabs(x) < 0x1p120f; });
  expectFormula(MEMBER(Cubrt_32f), plainCubrt, all);
}

TEST(ElementarySpecial, SpecialValuesAndWarningsAtEveryPosition) {
  const auto expectBoth = [](auto single, auto twice, MoxStatus status,
                             const std::vector<Special>& specials) {
    expectEverywhere(single, status, specials);
    expectEverywhere(twice, status, specials);
  };
  const auto inf = infinity, half = 1.5707963705062866f;
  const auto exp = MEMBER(Exp_32f), ln = MEMBER(Ln_32f), arctan = MEMBER(Arctan_32f),
             sqrt = MEMBER(Sqrt_32f);
  const auto exp64 = MEMBER(Exp_64f), ln64 = MEMBER(Ln_64f), arctan64 = MEMBER(Arctan_64f),
             sqrt64 = MEMBER(Sqrt_64f);
  expectBoth(exp, exp64, moxOk, {{inf, inf}, {-inf, 0}, {NAN, NAN}, {0, 1}, {-0.0f, 1}});
  expectBoth(exp, exp64, moxOk, {{200, inf}, {-200, 0}, {1e30f, inf}, {-1e30f, 0}, {tiny, 1}});
  expectBoth(exp, exp64, moxOk, {{-103.97208f, tiny}, {-104, 0}, {88.72284f, inf}});
  expectBoth(exp, exp64, moxOk, {{88.72283f, Mox32f(std::exp(Mox64f(88.72283f)))}});
  expectBoth(ln, ln64, moxOk, {{inf, inf}, {NAN, NAN}, {-NAN, NAN}, {1, 0}, {tiny, -103.27893f}});
  expectBoth(ln, ln64, moxOk, {{0x1.8p-130f, Mox32f(std::log(0x1.8p-130))}});
  expectBoth(ln, ln64, moxWarnLnZeroArg, {{0, -inf}, {-0.0f, -inf}});
  expectBoth(ln, ln64, moxWarnLnNegArg, {{-1, NAN}, {-tiny, NAN}, {-inf, NAN}});
  expectBoth(arctan, arctan64, moxOk, {{inf, half}, {-inf, -half}, {NAN, NAN}, {0, 0}});
  expectBoth(arctan, arctan64, moxOk, {{-0.0f, -0.0f}, {3e38f, half}, {-3e38f, -half}});
  expectBoth(sqrt, sqrt64, moxOk, {{inf, inf}, {NAN, NAN}, {0, 0}, {4, 2}});
  expectBoth(sqrt, sqrt64, moxWarnSqrtNegArg, {{-0.0f, -0.0f}, {-4, NAN}, {-inf, NAN}});
  const std::vector<Mox32f> zeroFirst = {1, 0, -1};  // the first decides
  EXPECT_EQ(run(ln, zeroFirst).status, moxWarnLnZeroArg);
  expectEverywhere(MEMBER(Cubrt_32f), moxOk,
                   {{inf, inf}, {-inf, -inf}, {NAN, NAN}, {0, 0}, {-0.0f, -0.0f}});
}

// Near 1, where the table gives way to a series, and anywhere.
TEST(ElementarySpecial, TheRoutineForOneLogarithmServesAllFloats) {
  Random random;
  for (int i = 0; i < 200000; ++i) {
    const Mox32f x = i % 2 ? 1 + random.value<Mox32f>() / 64 : random.anyFloat<Mox32f>();
    int code = 0;
    const Mox32f got = mox::arith::lnOfFloat(x, code);
    ASSERT_LE(ulpError(std::fabs(got), std::fabs(std::log((long double)x))), 0.501) << x;
    ASSERT_EQ(code, x == 0 ? mox::arith::lnOfZero : x < 0 ? mox::arith::lnOfNegative : 0) << x;
  }
}

TEST(ElementarySpecial, SumsOfLogarithmsWarnAtEveryPosition) {
  const auto expectSum = []<class S, class D>(MoxStatus (*function)(const S*, int, D*), S special,
                                              MoxStatus status, D expected) {
    for (int at = 0; at < 37; ++at) {
      std::vector<S> x(37, 1);
      x[at] = special;
      D sum;
      EXPECT_EQ(function(x.data(), 37, &sum), status) << special << " at " << at;
      EXPECT_TRUE(same(sum, expected)) << special << " at " << at << " gives " << sum;
      x.insert(x.begin(), {S(1), S(0)});  // the first that has none decides
      EXPECT_EQ(function(x.data(), 39, &sum), moxWarnLnZeroArg);
    }
  };
  expectSum(moxsSumLn_32f, 0.0f, moxWarnLnZeroArg, -infinity);
  expectSum(moxsSumLn_32f, -infinity, moxWarnLnNegArg, Mox32f(NAN));
  expectSum(moxsSumLn_32f, infinity, moxOk, infinity);
  expectSum(moxsSumLn_16s32f, Mox16s(-1), moxWarnLnNegArg, Mox32f(NAN));
  expectSum(moxsSumLn_64f, 5e-324, moxOk, std::log(5e-324));
}

TEST(ElementarySpecial, SquaresOfFloatsAreTheirFormulas) {
  const auto expectSquares = []<class E>(Member<const E*, E*, int> member) {
    const auto square = [](E z) {
      if constexpr (mox::Complex<E>)
        return E{z.re * z.re - z.im * z.im, z.re * z.im + z.im * z.re};
      else
        return z * z;
    };
    const auto x = Random().specials<E>(1000);
    expectEach(run(member, x), square, x);
  };
  expectSquares(MEMBER(Sqr_32f));
  expectSquares(MEMBER(Sqr_64f));
  expectSquares(MEMBER(Sqr_32fc));
  expectSquares(MEMBER(Sqr_64fc));
}

TEST(ElementarySpecial, AbsoluteFloatsLoseTheirSignAlone) {
  const auto expectBits = []<class F>(Member<const F*, F*, int> member, auto unsignedBits) {
    const auto x = Random().specials<F>(1000);
    const auto y = run(member, x).values;
    for (std::size_t i = 0; i < x.size(); ++i)
      ASSERT_TRUE(
          sameBits(y[i], std::bit_cast<F>(std::bit_cast<mox::BitsOf<F>>(x[i]) & unsignedBits)))
          << x[i];
  };
  expectBits(MEMBER(Abs_32f), Mox32u(0x7FFFFFFF));
  expectBits(MEMBER(Abs_64f), ~(Mox64u(1) << 63));
}

TEST(ElementarySpecial, ComplexRootsOfSpecialValues) {
  const double inf = HUGE_VAL;
  const std::vector<Mox64fc> z = {{0, 0},   {-0.0, -0.0}, {-4, 0},   {-4, -0.0},
                                  {1, inf}, {NAN, -inf},  {inf, -3}, {-inf, -3}};
  const std::vector<Mox64fc> roots = {{0, 0},     {0, -0.0},   {0, 2},      {0, -2},
                                      {inf, inf}, {inf, -inf}, {inf, -0.0}, {0, -inf}};
  expectAt(
      run(MEMBER(Sqrt_64fc), z), [&](std::size_t i) { return roots[i]; }, z);
}

TEST(ElementarySpecial, UnmaskedExceptionsDoNotTrapAndStayUnmasked) {
  const std::vector<Mox32f> x = {NAN, infinity, -1, 0, tiny, 1e30f, -1e30f, 3};
  const UnmaskedExceptions scope;
  EXPECT_GE(run(MEMBER(Exp_32f), x).status, moxOk);
  EXPECT_GE(run(MEMBER(Ln_32f), x).status, moxOk);
}

TEST(ElementarySpecial, SumsOfLogarithmsCountSubnormalNumbers) {
  std::vector<Mox64f> x(4001);
  long double expected = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    x[i] = std::ldexp(1.0 + double(i), -1070);
    expected += std::log((long double)(x[i]));
  }
  Mox64f sum = 0;
  ASSERT_EQ(moxsSumLn_64f(x.data(), int(x.size()), &sum), moxOk);
  EXPECT_NEAR(sum, double(expected), double(x.size()) * 0x1p-53 + 0x1p-30);
}

}  // namespace
