// The integer elementary functions against exact models.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <climits>
#include <cmath>
#include <deque>
#include <vector>

#include "support/exact.h"
#include "support/random.h"

namespace {

template <class S, class D>
using Scaled = MoxStatus (*)(const S*, D*, int, int);

constexpr int extremeFactors[] = {INT_MIN, INT_MIN + 1, -1000, 1000, INT_MAX};

template <class Check>
void forFactors(Check check) {
  for (int factor = -70; factor <= 70; ++factor) check(factor);
  for (const int factor : extremeFactors) check(factor);
}

// All values of up to 16 bits; of wider types the extremes, small values, powers of two, squares,
// cubes, powers of ten with their neighbours, and random bits of every width.
template <class S>
std::vector<S> values() {
  std::vector<S> all;
  if constexpr (sizeof(S) <= 2) {
    for (int v = std::numeric_limits<S>::min(); v <= std::numeric_limits<S>::max(); ++v)
      all.push_back(S(v));
  } else {
    using Unsigned = std::make_unsigned_t<S>;
    const auto around = [&](Unsigned v) {
      for (int d = -1; d <= 1; ++d) all.push_back(S(v + Unsigned(d))), all.push_back(S(-(v + d)));
    };
    for (unsigned v = 0; v < 300; ++v) around(v);
    for (unsigned b = 8; b < 8 * sizeof(S); ++b) around(Unsigned(1) << b);
    for (Unsigned v = 10; v < std::numeric_limits<S>::max() / 10; v *= 10) around(v);
    for (Unsigned v = 3; v < 46340; v = v * 9 / 8 + 2) around(v * v);
    for (Unsigned v = 3; v < 1290; v = v * 9 / 8 + 2) around(v * v * v);
    test::Random random;
    for (int i = 0; i < 1000; ++i)
      all.push_back(S(random.value<S>() >> random.below(8 * sizeof(S))));
  }
  return all;
}

// An element of a warning: what it holds, and the status, unless another came first.
template <class D>
struct Bad {
  D result;
  MoxStatus status;
};

// `bad` tells of an element without a value, by a status other than moxOk.
template <class S, class D, class BadOf>
void checkScaled(const char* name, Scaled<S, D> function, test::ExactFunction exact, BadOf badOf) {
  SCOPED_TRACE(test::seedNote());
  const std::vector<S> x = values<S>();
  std::deque<test::Exact> value;
  for (const S v : x) {
    value.emplace_back(160);
    if (badOf(v).status != moxOk) continue;
    mpfr_set_si(value.back().get(), long(v), MPFR_RNDN);
    exact(value.back().get(), value.back().get(), MPFR_RNDN);
  }
  MoxStatus status = moxOk;
  for (const S v : x)
    if (status == moxOk) status = badOf(v).status;
  std::vector<D> got(x.size());
  forFactors([&](int factor) {
    ASSERT_EQ(function(x.data(), got.data(), int(x.size()), factor), status) << name;
    for (std::size_t i = 0; i < x.size(); ++i) {
      const Bad<D> bad = badOf(x[i]);
      const D want =
          bad.status == moxOk ? test::scaledExactly<D>(value[i].get(), factor) : bad.result;
      ASSERT_EQ(got[i], want) << name << " of " << long(x[i]) << " factor " << factor;
    }
  });
}

template <class D>
auto always = [](auto) {
  return Bad<D>{0, moxOk};
};
template <class D>
auto negativeIsZero = [](auto v) {
  return Bad<D>{0, v < 0 ? moxWarnSqrtNegArg : moxOk};
};
template <class D>
auto lowestUpToZero = [](auto v) {
  return Bad<D>{std::numeric_limits<D>::min(), v > 0   ? moxOk
                                               : v < 0 ? moxWarnLnNegArg
                                                       : moxWarnLnZeroArg};
};

int square(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t mode) { return mpfr_sqr(r, x, mode); }

int decibels(mpfr_ptr r, mpfr_srcptr x, mpfr_rnd_t mode) {
  mpfr_log10(r, x, mode);
  return mpfr_mul_ui(r, r, 10, mode);
}

TEST(ElementaryIntegers, SquaresAreExact) {
  checkScaled("8u", moxsSqr_8u_Sfs, square, always<Mox8u>);
  checkScaled("16s", moxsSqr_16s_Sfs, square, always<Mox16s>);
  checkScaled("16u", moxsSqr_16u_Sfs, square, always<Mox16u>);
}

TEST(ElementaryIntegers, RootsAreExact) {
  checkScaled("8u", moxsSqrt_8u_Sfs, mpfr_sqrt, always<Mox8u>);
  checkScaled("16s", moxsSqrt_16s_Sfs, mpfr_sqrt, negativeIsZero<Mox16s>);
  checkScaled("16u", moxsSqrt_16u_Sfs, mpfr_sqrt, always<Mox16u>);
  checkScaled("32s16s", moxsSqrt_32s16s_Sfs, mpfr_sqrt, negativeIsZero<Mox16s>);
  checkScaled("64s", moxsSqrt_64s_Sfs, mpfr_sqrt, negativeIsZero<Mox64s>);
  checkScaled("64s16s", moxsSqrt_64s16s_Sfs, mpfr_sqrt, negativeIsZero<Mox16s>);
  checkScaled("cubrt", moxsCubrt_32s16s_Sfs, mpfr_cbrt, always<Mox16s>);
}

TEST(ElementaryIntegers, LogarithmsAreExact) {
  checkScaled("16s", moxsLn_16s_Sfs, mpfr_log, lowestUpToZero<Mox16s>);
  checkScaled("32s", moxsLn_32s_Sfs, mpfr_log, lowestUpToZero<Mox32s>);
  checkScaled("32s16s", moxsLn_32s16s_Sfs, mpfr_log, lowestUpToZero<Mox16s>);
  checkScaled("decibels", moxs10Log10_32s_Sfs, decibels, lowestUpToZero<Mox32s>);
}

TEST(ElementaryIntegers, ExponentialsAreExactUpToTheBitsOfADouble) {
  checkScaled("16s", moxsExp_16s_Sfs, mpfr_exp, always<Mox16s>);
  checkScaled("32s", moxsExp_32s_Sfs, mpfr_exp, always<Mox32s>);
  forFactors([](int factor) {
    const std::vector<Mox64s> x = values<Mox64s>();
    std::vector<Mox64s> got(x.size());
    ASSERT_EQ(moxsExp_64s_Sfs(x.data(), got.data(), int(x.size()), factor), moxOk);
    test::Exact value;
    for (std::size_t i = 0; i < x.size(); ++i) {
      mpfr_set_si(value.get(), x[i], MPFR_RNDN);
      mpfr_exp(value.get(), value.get(), MPFR_RNDN);
      const Mox64s want = test::scaledExactly<Mox64s>(value.get(), factor);
      if (want < LLONG_MAX) {
        mpfr_div_2si(value.get(), value.get(), factor, MPFR_RNDN);
        mpfr_sub_si(value.get(), value.get(), got[i], MPFR_RNDN);
        ASSERT_LE(std::fabs(mpfr_get_d(value.get(), MPFR_RNDN)), 0.5 + std::ldexp(want, -52))
            << x[i] << " factor " << factor;
      } else {
        ASSERT_EQ(got[i], want) << x[i] << " factor " << factor;
      }
    }
  });
}

// e^x * 2^-factor where e^x itself is far beyond the range of a double.
TEST(ElementaryIntegers, AFactorBringsExponentialsBackIntoRange) {
  const Mox32s x[] = {30000, -30000, 1000000000};
  Mox32s got[3];
  test::Exact value;
  for (int i = 0; i < 3; ++i) {
    const int factor = int(std::lround(x[i] / std::log(2.0))) - 20;
    ASSERT_EQ(moxsExp_32s_Sfs(x, got, 3, factor), moxOk);
    mpfr_set_si(value.get(), x[i], MPFR_RNDN);
    mpfr_exp(value.get(), value.get(), MPFR_RNDN);
    EXPECT_EQ(got[i], test::scaledExactly<Mox32s>(value.get(), factor)) << x[i];
    EXPECT_GT(got[i], 100000);
  }
}

// Parts that a complex model has, at a factor.
struct Model {
  test::Exact re, im;
};

template <class Exactly>
void checkComplex(Scaled<Mox16sc, Mox16sc> function, Exactly exactly) {
  SCOPED_TRACE(test::seedNote());
  const Mox16s lattice[] = {-32768, -32767, -30000, -256, -9, -3,  -2,   -1,    0,     1,
                            2,      4,      8,      9,    24, 181, 4096, 16384, 32766, 32767};
  std::vector<Mox16sc> z;
  for (const Mox16s re : lattice)
    for (const Mox16s im : lattice) z.push_back({re, im});
  test::Random random;
  for (int i = 0; i < 1000; ++i) z.push_back(random.value<Mox16sc>());
  for (Mox16s a = -100; a < 100; a += 7)  // squares of integers: ties
    for (Mox16s b = -80; b < 80; b += 3) z.push_back({Mox16s(a * a - b * b), Mox16s(2 * a * b)});
  std::deque<Model> want;
  for (const Mox16sc v : z) exactly(v, want.emplace_back());
  std::vector<Mox16sc> got(z.size());
  forFactors([&](int factor) {
    ASSERT_EQ(function(z.data(), got.data(), int(z.size()), factor), moxOk);
    for (std::size_t i = 0; i < z.size(); ++i) {
      ASSERT_EQ(got[i].re, test::scaledExactly<Mox16s>(want[i].re.get(), factor))
          << z[i].re << ", " << z[i].im << " factor " << factor;
      ASSERT_EQ(got[i].im, test::scaledExactly<Mox16s>(want[i].im.get(), factor))
          << z[i].re << ", " << z[i].im << " factor " << factor;
    }
  });
}

TEST(ElementaryIntegers, ComplexSquaresAndRootsAreExact) {
  checkComplex(moxsSqr_16sc_Sfs, [](Mox16sc z, Model& m) {
    mpfr_set_si(m.re.get(), long(z.re) * z.re - long(z.im) * z.im, MPFR_RNDN);
    mpfr_set_si(m.im.get(), 2L * z.re * z.im, MPFR_RNDN);
  });
  checkComplex(moxsSqrt_16sc_Sfs, [](Mox16sc z, Model& m) {
    mpfr_sqrt_ui(m.re.get(), 1ul * (long(z.re) * z.re + long(z.im) * z.im), MPFR_RNDN);
    mpfr_sub_si(m.im.get(), m.re.get(), z.re, MPFR_RNDN);
    mpfr_add_si(m.re.get(), m.re.get(), z.re, MPFR_RNDN);
    for (mpfr_ptr part : {m.re.get(), m.im.get()}) {
      mpfr_div_2ui(part, part, 1, MPFR_RNDN);
      mpfr_sqrt(part, part, MPFR_RNDN);
    }
    if (z.im < 0) mpfr_neg(m.im.get(), m.im.get(), MPFR_RNDN);
  });
}

TEST(ElementaryIntegers, TheFirstElementWithoutALogarithmDecidesTheStatus) {
  for (const int factor : {0, 3})
    for (int at = 0; at < 40; ++at) {
      std::vector<Mox16s> x(40, 7), y(40);
      x[at] = 0;
      for (int i = at + 1; i < 40; ++i) x[i] = -1;
      EXPECT_EQ(moxsLn_16s_Sfs(x.data(), y.data(), 40, factor), moxWarnLnZeroArg) << at;
      EXPECT_EQ(y[39], -32768);
      if (at < 39) {
        EXPECT_EQ(moxsLn_16s_ISfs(x.data() + at + 1, 39 - at, factor), moxWarnLnNegArg);
      }
    }
}

TEST(ElementaryIntegers, AbsoluteValuesSaturate) {
  const std::vector<Mox16s> shorts = values<Mox16s>();
  std::vector<Mox16s> got(shorts.size());
  ASSERT_EQ(moxsAbs_16s(shorts.data(), got.data(), int(shorts.size())), moxOk);
  for (std::size_t i = 0; i < shorts.size(); ++i)
    ASSERT_EQ(got[i], std::min(std::abs(int(shorts[i])), 32767));
  std::vector<Mox32s> words = values<Mox32s>();
  const std::vector<Mox32s> before = words;
  ASSERT_EQ(moxsAbs_32s_I(words.data(), int(words.size())), moxOk);
  for (std::size_t i = 0; i < words.size(); ++i)
    ASSERT_EQ(words[i], std::min(std::labs(before[i]), 2147483647L));
}

}  // namespace
