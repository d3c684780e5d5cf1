// The floating-point elementary functions against MPFR. MOXSP_EXHAUSTIVE=1 puts all floats to the
// single-precision ones, against the C library in double precision.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>

#include "support/accuracy.h"
#include "support/exact.h"

namespace {

using namespace test;

template <class S, class D>
using Function = Member<const S*, D*, int>;
using ExactFunction = int (*)(mpfr_ptr result, mpfr_srcptr x, mpfr_rnd_t mode);

// The greatest errors, as the header states them.
struct FloatCase {
  Function<Mox32f, Mox32f> member;
  ExactFunction exact;
  double (*inDouble)(double);
  double bound;
};
const FloatCase floatCases[] = {
    {MEMBER(Exp_32f), mpfr_exp, std::exp, 2.94},
    {MEMBER(Ln_32f), mpfr_log, std::log, 3.94},
    {MEMBER(Arctan_32f), mpfr_atan, std::atan, 5.62},
    {MEMBER(Cubrt_32f), mpfr_cbrt, std::cbrt, 7.74},
    {MEMBER(Sqrt_32f), mpfr_sqrt, std::sqrt, 0.5},
};

std::vector<Mox32f> floatsOfBits(std::uint64_t from, long count, std::uint64_t step) {
  std::vector<Mox32f> x;
  for (; count-- > 0; from += step) x.push_back(std::bit_cast<Mox32f>(std::uint32_t(from)));
  return x;
}

TEST(ElementaryAccuracy, FloatsOverAllExponentsStayWithinTheStatedBounds) {
  constexpr long step = 15013;  // odd, so that all low bits occur
  const auto x = floatsOfBits(0, (1L << 32) / step, step);
  for (const FloatCase& c : floatCases)
    expectWithinUlps(
        run(c.member, x), c.bound, 0.5, [&](auto i) { return exactValue(c.exact, x[i]); }, x);
}

TEST(ElementaryAccuracy, ExhaustiveOverAllFloats) {
  if (!std::getenv("MOXSP_EXHAUSTIVE")) GTEST_SKIP() << "set MOXSP_EXHAUSTIVE=1, some ten minutes";
  constexpr long piece = 1 << 16;
  for (const FloatCase& c : floatCases)
    for (long start = 0; start < 1L << 32; start += piece) {
      const auto x = floatsOfBits(std::uint64_t(start), piece, 1);
      expectWithinUlps(
          run(c.member, x), c.bound + 1e-6, 0, [&](auto i) { return c.inDouble(x[i]); }, x);
    }
}

struct Interval {
  double from, to;
};

// Random arguments, evenly spread, or by their logarithms in a wide interval.
template <class S, class D>
void expectWithin(Function<S, D> member, ExactFunction exact, double bound,
                  std::initializer_list<Interval> intervals) {
  for (const auto& [from, to] : intervals) {
    Random random;
    std::vector<S> x(60000);
    for (S& e : x) {
      const double u = (random.value<double>() + 1) / 2;
      const bool wide = from > 0 && to / from > 1e3;
      e = S(wide ? std::exp2(std::lerp(std::log2(from), std::log2(to), u))
                 : std::lerp(from, to, u));
    }
    expectWithinUlps(
        run(member, x), bound, 0, [&](auto i) { return exactValue(exact, x[i]); }, x);
  }
}

TEST(ElementaryAccuracy, DoublesStayWithinTheStatedBounds) {
  const auto exponents = {Interval{-746, 710}, {-1, 1}, {1e-300, 1e-3}};
  expectWithin(MEMBER(Exp_64f), mpfr_exp, 1.1, exponents);
  expectWithin(MEMBER(Exp_32f64f), mpfr_exp, 1.1, exponents);
  const auto numbers = {Interval{0.25, 4}, {0.99, 1.01}, {1e-300, 1e300}, {5e-324, 1e-307}};
  expectWithin(MEMBER(Ln_64f), mpfr_log, 1.0, numbers);
  expectWithin(MEMBER(Ln_64f32f), mpfr_log, 0.501, numbers);
  expectWithin(MEMBER(Arctan_64f), mpfr_atan, 2.0,
               {{-3, 3}, {0.4, 0.43}, {2.4, 2.43}, {1e-300, 1e300}});
  expectWithin(MEMBER(Sqrt_64f), mpfr_sqrt, 0.5, {{1e-300, 1e300}});
}

// Rounding of single operations may cost a unit or two more, but no digits.
TEST(ElementaryAccuracy, ExponentialsOfDoublesInEveryRoundingMode) {
  Random random;
  std::vector<double> x(20000);
  for (double& e : x) e = 700 * random.value<double>();
  for (const int mode : allRoundings) {
    const auto got = [&] {
      const UnderRounding scope(mode);
      return run(MEMBER(Exp_64f), x);
    }();
    expectWithinUlps(
        got, 4, 0, [&](auto i) { return exactValue(mpfr_exp, x[i]); }, x);
  }
}

template <class E>
void expectRootsWithin(Function<E, E> member, int exponents, double bound) {
  using F = mox::Part<E>;
  Random random;
  std::vector<E> z(20000);
  for (E& e : z) {
    const int common = int(random.below(2 * exponents)) - exponents,
              apart = int(random.below(random.below(2) ? 20 : exponents));
    e.re = std::ldexp(random.value<F>(), common);
    e.im = std::ldexp(random.value<F>(), common - apart);
  }
  const auto [re, im] = partsOf(run(member, z));
  std::vector<std::array<long double, 2>> exact;
  Exact rootRe(0, 2400),
      rootIm(0, 2400);  // of parts 2^-1020 apart, whose squares must not drop out
  for (const E& e : z) {
    exactRoot(rootRe, rootIm, e.re, e.im);
    exact.push_back({mpfr_get_ld(rootRe, MPFR_RNDN), mpfr_get_ld(rootIm, MPFR_RNDN)});
  }
  expectWithinUlps(
      re, bound, 0, [&](auto i) { return exact[i][0]; }, z);
  expectWithinUlps(
      im, bound, 0, [&](auto i) { return exact[i][1]; }, z);
}

TEST(ElementaryAccuracy, ComplexRootsStayWithinTheStatedBoundsAtAllSizes) {
  expectRootsWithin(MEMBER(Sqrt_32fc), 120, 0.501);
  expectRootsWithin(MEMBER(Sqrt_64fc), 1020, 2.2);
}

// Of numbers whose product leaves the range of all floats.
template <class S, class D, class Draw>
void expectSum(MoxStatus (*function)(const S*, int, D*), Draw draw) {
  Random random;
  for (const int len : {3, 100, 5000}) {
    std::vector<S> x(len);
    long double exact = 0;
    for (S& e : x) e = draw(random), exact += exactValue(mpfr_log, e);
    D sum;
    ASSERT_EQ(function(x.data(), len, &sum), moxOk);
    const long double relative = sizeof(D) == 4 ? 0x1.004p-24L : 0x1p-51L;
    EXPECT_NEAR(sum, exact, len * 0x1p-53L + std::fabs(exact) * relative) << len;
  }
}

TEST(ElementaryAccuracy, SumsOfLogarithmsKeepTheirAccuracyWhereProductsLeaveTheRange) {
  const auto mantissa = [](Random& random) { return 1 + std::fabs(random.value<double>()); };
  const auto small = [&](Random& random) {
    return std::ldexp(mantissa(random), -120 - int(random.below(20)));
  };
  expectSum(moxsSumLn_64f, [&](Random& random) {
    return std::ldexp(mantissa(random), int(random.below(2000)) - 1000);
  });
  expectSum(moxsSumLn_32f64f, small);
  expectSum(moxsSumLn_32f, small);
  expectSum(moxsSumLn_16s32f, [](Random& random) { return Mox16s(1 + random.below(32767)); });
}

}  // namespace
