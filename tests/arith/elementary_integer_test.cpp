// The integer elementary functions against exact models.
#include <deque>

#include "support/exact.h"
#include "support/members.h"
#include "support/values.h"

namespace {

using namespace test;

// With squares, cubes and powers of ten and their neighbours among values of many bits.
template <class S>
std::vector<S> values() {
  std::vector<S> all = allOrMany<S>();
  if constexpr (sizeof(S) > 2) {
    const auto around = [&](long v) {
      for (const long near : {v - 1, v, v + 1}) all.push_back(S(near)), all.push_back(S(-near));
    };
    for (long v = 0; v < 300; ++v) around(v);
    for (long v = 10; v < std::numeric_limits<S>::max() / 10; v *= 10) around(v);
    for (long v = 3; v < 46340; v = v * 9 / 8 + 2) around(v * v);
    for (long v = 3; v < 1290; v = v * 9 / 8 + 2) around(v * v * v);
  }
  return all;
}

// Where a function has values. Elsewhere there is a warning, of which the first counts, and 0, or
// the lowest result where there is no logarithm.
enum Domain { all, notNegative, positive };

MoxStatus statusOf(long x, Domain domain) {
  if (domain == positive) return x > 0 ? moxOk : x < 0 ? moxWarnLnNegArg : moxWarnLnZeroArg;
  return domain == notNegative && x < 0 ? moxWarnSqrtNegArg : moxOk;
}

template <class S, class D>
void expectScaled(Member<const S*, D*, int, int> member, auto function, Domain domain = all) {
  const auto x = values<S>();
  std::deque<Exact> exact;
  MoxStatus status = moxOk;
  for (const S v : x) {
    mpfr_ptr value = exact.emplace_back(v, 160);
    if (statusOf(v, domain) == moxOk)
      function(value, value, MPFR_RNDN);
    else if (status == moxOk)
      status = statusOf(v, domain);
  }
  const D without = domain == positive ? std::numeric_limits<D>::min() : 0;
  forAllFactors([&](int factor) {
    expectAt(run(member, x, factor).warning(status), [&](std::size_t i) {
      return statusOf(x[i], domain) == moxOk ? scaledExactly<D>(exact[i], factor) : without;
    });
  });
}

int decibels(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t mode) {
  mpfr_log10(r, x, mode);
  return mpfr_mul_ui(r, r, 10, mode);
}

TEST(ElementaryIntegers, AreExact) {
  expectScaled(MEMBER(Sqr_8u_Sfs), mpfr_sqr);
  expectScaled(MEMBER(Sqr_16s_Sfs), mpfr_sqr);
  expectScaled(MEMBER(Sqr_16u_Sfs), mpfr_sqr);
  expectScaled(MEMBER(Sqrt_8u_Sfs), mpfr_sqrt);
  expectScaled(MEMBER(Sqrt_16s_Sfs), mpfr_sqrt, notNegative);
  expectScaled(MEMBER(Sqrt_16u_Sfs), mpfr_sqrt);
  expectScaled(MEMBER(Sqrt_32s16s_Sfs), mpfr_sqrt, notNegative);
  expectScaled(MEMBER(Sqrt_64s_Sfs), mpfr_sqrt, notNegative);
  expectScaled(MEMBER(Sqrt_64s16s_Sfs), mpfr_sqrt, notNegative);
  expectScaled(MEMBER(Cubrt_32s16s_Sfs), mpfr_cbrt);
  expectScaled(MEMBER(Ln_16s_Sfs), mpfr_log, positive);
  expectScaled(MEMBER(Ln_32s_Sfs), mpfr_log, positive);
  expectScaled(MEMBER(Ln_32s16s_Sfs), mpfr_log, positive);
  expectScaled(MEMBER(10Log10_32s_Sfs), decibels, positive);
  expectScaled(MEMBER(Exp_16s_Sfs), mpfr_exp);
  expectScaled(MEMBER(Exp_32s_Sfs), mpfr_exp);
}

// Of 64 bits up to those of a double, in rounding to nearest.
TEST(ElementaryIntegers, LongExponentials) {
  const auto x = values<Mox64s>();
  std::deque<Exact> exact;
  for (const Mox64s v : x) {
    mpfr_ptr value = exact.emplace_back(v);
    mpfr_exp(value, value, MPFR_RNDN);
  }
  Exact scaled;
  for (const int factor : allFactors()) {
    const auto got = run(MEMBER(Exp_64s_Sfs), x, factor).values;
    for (std::size_t i = 0; i < x.size(); ++i) {
      mpfr_div_2si(scaled, exact[i], factor, MPFR_RNDN);
      const long double want = std::fmin(mpfr_get_ld(scaled, MPFR_RNDN), (long double)LLONG_MAX);
      const long double bound = want == LLONG_MAX ? 0 : 0.5L + std::ldexp(want, -52);
      ASSERT_LE(std::fabs(got[i] - want), bound) << x[i] << ", factor " << factor;
    }
  }
}

// e^x * 2^-factor where e^x itself is far beyond the range of a double.
TEST(ElementaryIntegers, AFactorBringsExponentialsBackIntoRange) {
  for (const Mox32s x : {30000, -30000, 1000000000}) {
    const int factor = int(std::lround(x / std::log(2.0))) - 20;
    Exact value(x);
    mpfr_exp(value, value, MPFR_RNDN);
    const Mox32s want = scaledExactly<Mox32s>(value, factor);
    EXPECT_GT(want, 100000);
    EXPECT_EQ(run(MEMBER(Exp_32s_Sfs), std::vector(1, x), factor).values[0], want) << x;
  }
}

// exactly(z, re, im) makes the parts.
void expectComplex(Member<const Mox16sc*, Mox16sc*, int, int> member, auto exactly) {
  auto z = lattice<Mox16sc>(1500);
  for (Mox16s a = -100; a < 100; a += 7)  // squares of integers: ties
    for (Mox16s b = -80; b < 80; b += 3) z.push_back({Mox16s(a * a - b * b), Mox16s(2 * a * b)});
  std::deque<Exact> re, im;
  for (const Mox16sc v : z) exactly(v, re.emplace_back(), im.emplace_back());
  forAllFactors([&](int factor) {
    expectAt(run(member, z, factor), [&](std::size_t i) {
      return Mox16sc{scaledExactly<Mox16s>(re[i], factor), scaledExactly<Mox16s>(im[i], factor)};
    });
  });
}

TEST(ElementaryIntegers, ComplexSquaresAndRootsAreExact) {
  expectComplex(MEMBER(Sqr_16sc_Sfs), [](Mox16sc z, mpfr_ptr re, mpfr_ptr im) {
    mpfr_set_si(re, long(z.re) * z.re - long(z.im) * z.im, MPFR_RNDN);
    mpfr_set_si(im, 2L * z.re * z.im, MPFR_RNDN);
  });
  expectComplex(MEMBER(Sqrt_16sc_Sfs),
                [](Mox16sc z, mpfr_ptr re, mpfr_ptr im) { exactRoot(re, im, z.re, z.im); });
}

TEST(ElementaryIntegers, TheFirstElementWithoutALogarithmDecidesTheStatus) {
  for (const int factor : {0, 3})
    for (int at = 0; at < 40; ++at) {
      std::vector<Mox16s> x(40, 7);
      std::fill(x.begin() + at, x.end(), Mox16s(-1));
      EXPECT_EQ(run(MEMBER(Ln_16s_Sfs), x, factor).status, moxWarnLnNegArg) << at;
      x[at] = 0;
      EXPECT_EQ(run(MEMBER(Ln_16s_Sfs), x, factor).status, moxWarnLnZeroArg) << at;
    }
}

TEST(ElementaryIntegers, AbsoluteValuesSaturate) {
  const auto words = values<Mox16s>();
  const auto longs = values<Mox32s>();
  expectEach(run(MEMBER(Abs_16s), words), [](long x) { return std::min(std::abs(x), 32767L); });
  expectEach(run(MEMBER(Abs_32s), longs),
             [](long x) { return std::min(std::abs(x), 0x7FFFFFFFL); });
}

}  // namespace
