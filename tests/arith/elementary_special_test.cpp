// Special lanes of the floating-point elementary functions, and those whose formula the header
// gives.
#include "support/accuracy.h"

namespace {

using namespace test;

constexpr Mox32f infinity = std::numeric_limits<Mox32f>::infinity();
constexpr Mox32f tiny = std::numeric_limits<Mox32f>::denorm_min();

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
  // Doubles are compared as doubles where floats are zero.
  const std::vector<double> least = {-746, -745.1, -infinity}, expected = {0, 5e-324, 0};
  EXPECT_EQ(run(exp64, least).values, expected);
  expectBoth(ln, ln64, moxOk, {{inf, inf}, {NAN, NAN}, {-NAN, NAN}, {1, 0}, {tiny, -103.27893f}});
  expectBoth(ln, ln64, moxOk, {{0x1.8p-130f, Mox32f(std::log(0x1.8p-130))}});
  expectBoth(ln, ln64, moxWarnLnZeroArg, {{0, -inf}, {-0.0f, -inf}});
  expectBoth(ln, ln64, moxWarnLnNegArg, {{-1, NAN}, {-tiny, NAN}, {-inf, NAN}});
  const std::vector<Mox32f> zeroFirst = {1, 0, -1};  // the first decides
  EXPECT_EQ(run(ln, zeroFirst).status, moxWarnLnZeroArg);
  expectBoth(arctan, arctan64, moxOk, {{inf, half}, {-inf, -half}, {NAN, NAN}, {0, 0}});
  expectBoth(arctan, arctan64, moxOk, {{-0.0f, -0.0f}, {3e38f, half}, {-3e38f, -half}});
  expectBoth(sqrt, sqrt64, moxOk, {{inf, inf}, {NAN, NAN}, {0, 0}, {4, 2}});
  expectBoth(sqrt, sqrt64, moxWarnSqrtNegArg, {{-0.0f, -0.0f}, {-4, NAN}, {-inf, NAN}});
  expectEverywhere(MEMBER(Cubrt_32f), moxOk,
                   {{inf, inf}, {-inf, -inf}, {NAN, NAN}, {0, 0}, {-0.0f, -0.0f}});
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
    const auto x = Random().specials<E>(1000);
    expectEach(run(member, x), [](E z) {
      if constexpr (mox::Complex<E>)
        return E{z.re * z.re - z.im * z.im, z.re * z.im + z.im * z.re};
      else
        return z * z;
    });
  };
  expectSquares(MEMBER(Sqr_32f)), expectSquares(MEMBER(Sqr_64f));
  expectSquares(MEMBER(Sqr_32fc)), expectSquares(MEMBER(Sqr_64fc));
}

TEST(ElementarySpecial, AbsoluteFloatsLoseTheirSignAlone) {
  const auto expectBits = []<class F>(Member<const F*, F*, int> member) {
    const auto x = Random().specials<F>(1000);
    const auto y = run(member, x).values;
    for (std::size_t i = 0; i < x.size(); ++i)
      ASSERT_TRUE(sameBits(y[i], std::copysign(x[i], F(1)))) << x[i];
  };
  expectBits(MEMBER(Abs_32f));
  expectBits(MEMBER(Abs_64f));
}

TEST(ElementarySpecial, ComplexRootsOfSpecialValues) {
  const double inf = HUGE_VAL;
  const std::vector<Mox64fc> z = {{0, 0},   {-0.0, -0.0}, {-4, 0},   {-4, -0.0},
                                  {1, inf}, {NAN, -inf},  {inf, -3}, {-inf, -3}};
  const std::vector<Mox64fc> roots = {{0, 0},     {0, -0.0},   {0, 2},      {0, -2},
                                      {inf, inf}, {inf, -inf}, {inf, -0.0}, {0, -inf}};
  expectAt(run(MEMBER(Sqrt_64fc), z), [&](std::size_t i) { return roots[i]; });
}

TEST(ElementarySpecial, UnmaskedExceptionsDoNotTrapAndStayUnmasked) {
  const std::vector<Mox32f> x = {NAN, infinity, -1, 0, tiny, 1e30f, -1e30f, 3};
  const UnmaskedExceptions scope;
  EXPECT_GE(run(MEMBER(Exp_32f), x).status, moxOk);
  EXPECT_GE(run(MEMBER(Ln_32f), x).status, moxOk);
}

}  // namespace
