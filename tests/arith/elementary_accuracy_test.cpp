// The floating-point elementary functions against MPFR. MOXSP_EXHAUSTIVE=1 puts all floats to the
// single-precision ones, against the C library in double precision.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "support/accuracy.h"
#include "support/exact.h"
#include "support/random.h"

namespace {

template <class S, class D>
using Function = MoxStatus (*)(const S*, D*, int);

// The greatest errors, as the header states them.
struct FloatCase {
  const char* name;
  Function<Mox32f, Mox32f> function;
  test::ExactFunction exact;
  double (*inDouble)(double);
  double bound;
};
const FloatCase floatCases[] = {
    {"exp", moxsExp_32f, mpfr_exp, std::exp, 2.94},
    {"ln", moxsLn_32f, mpfr_log, std::log, 3.94},
    {"arctan", moxsArctan_32f, mpfr_atan, std::atan, 5.62},
    {"cubrt", moxsCubrt_32f, mpfr_cbrt, std::cbrt, 7.74},
    {"sqrt", moxsSqrt_32f, mpfr_sqrt, std::sqrt, 0.5},
};

Mox32f floatOf(std::uint64_t bits) { return std::bit_cast<Mox32f>(std::uint32_t(bits)); }

template <class F>
long double error(F got, long double exact) {
  return test::ulpError(got, test::inRangeOf<F>(exact));
}

class Worst {
 public:
  void see(long double error, double x) {
    if (!(error <= error_)) error_ = error, at_ = x;
  }
  long double error() const { return error_; }
  double at() const { return at_; }

 private:
  long double error_ = 0;
  double at_ = 0;
};

TEST(ElementaryAccuracy, FloatsOverAllExponentsStayWithinTheStatedBounds) {
  constexpr std::uint64_t step = 15013;  // odd, so that all low bits occur
  for (const FloatCase& c : floatCases) {
    std::vector<Mox32f> x, y;
    for (std::uint64_t bits = 0; bits < 1ull << 32; bits += step) x.push_back(floatOf(bits));
    y.resize(x.size());
    c.function(x.data(), y.data(), int(x.size()));
    Worst worst;
    for (std::size_t i = 0; i < x.size(); ++i)
      worst.see(error(y[i], test::exactValue(c.exact, x[i])), x[i]);
    EXPECT_LE(worst.error(), c.bound) << c.name << " at " << std::hexfloat << worst.at();
    EXPECT_GE(worst.error(), c.bound * 0.5) << c.name << ": the stated bound is far from the truth";
  }
}

TEST(ElementaryAccuracy, ExhaustiveOverAllFloats) {
  if (!std::getenv("MOXSP_EXHAUSTIVE")) GTEST_SKIP() << "set MOXSP_EXHAUSTIVE=1, some ten minutes";
  constexpr int piece = 1 << 16;
  std::vector<Mox32f> x(piece), y(piece);
  for (const FloatCase& c : floatCases) {
    Worst worst;
    for (std::uint64_t start = 0; start < 1ull << 32; start += piece) {
      for (int i = 0; i < piece; ++i) x[i] = floatOf(start + i);
      c.function(x.data(), y.data(), piece);
      for (int i = 0; i < piece; ++i) worst.see(error(y[i], c.inDouble(x[i])), x[i]);
    }
    std::printf("%s: %.4Lf ulps at %a\n", c.name, worst.error(), worst.at());
    EXPECT_LE(worst.error(), c.bound + 1e-6) << c.name;
  }
}

struct Range {
  double from, to;
};

// Random arguments in a range, near its ends too where the logarithm of the range is wide.
template <class S, class D>
void checkRange(const char* name, Function<S, D> function, test::ExactFunction exact, Range range,
                double bound) {
  SCOPED_TRACE(test::seedNote());
  constexpr int count = 60000;
  test::Random random;
  std::vector<S> x(count);
  std::vector<D> y(count);
  for (S& e : x) {
    const double u = (random.value<double>() + 1) / 2;
    e = S(range.from > 0 && range.to / range.from > 1e3
              ? std::exp2(std::log2(range.from) + u * (std::log2(range.to) - std::log2(range.from)))
              : range.from + u * (range.to - range.from));
  }
  function(x.data(), y.data(), count);
  Worst worst;
  for (int i = 0; i < count; ++i) worst.see(error(y[i], test::exactValue(exact, x[i])), x[i]);
  EXPECT_LE(worst.error(), bound) << name << " at " << std::hexfloat << worst.at();
}

TEST(ElementaryAccuracy, DoublesStayWithinTheStatedBounds) {
  for (const Range range : {Range{-746, 710}, {-1, 1}, {1e-300, 1e-3}}) {
    checkRange("exp", moxsExp_64f, mpfr_exp, range, 1.1);
    checkRange("exp to double", moxsExp_32f64f, mpfr_exp, range, 1.1);
  }
  for (const Range range : {Range{0.25, 4}, {0.99, 1.01}, {1e-300, 1e300}, {5e-324, 1e-307}}) {
    checkRange("ln", moxsLn_64f, mpfr_log, range, 1.0);
    checkRange("ln to float", moxsLn_64f32f, mpfr_log, range, 0.501);
  }
  for (const Range range : {Range{-3, 3}, {0.4, 0.43}, {2.4, 2.43}, {1e-300, 1e300}})
    checkRange("arctan", moxsArctan_64f, mpfr_atan, range, 2.0);
  checkRange("sqrt", moxsSqrt_64f, mpfr_sqrt, {1e-300, 1e300}, 0.5);
}

// The part of a complex root by its defining formula.
void exactRoot(double re, double im, long double& rootRe, long double& rootIm) {
  static test::Exact a(300), b(300), modulus(300), one(300);
  mpfr_set_d(a.get(), re, MPFR_RNDN);
  mpfr_set_d(b.get(), im, MPFR_RNDN);
  mpfr_hypot(modulus.get(), a.get(), b.get(), MPFR_RNDN);
  const auto part = [&](auto combine) {
    combine(one.get(), modulus.get(), a.get(), MPFR_RNDN);
    mpfr_div_2ui(one.get(), one.get(), 1, MPFR_RNDN);
    mpfr_sqrt(one.get(), one.get(), MPFR_RNDN);
    return mpfr_get_ld(one.get(), MPFR_RNDN);
  };
  rootRe = part(mpfr_add);
  rootIm = std::copysign(part(mpfr_sub), (long double)im);
}

template <class E>
void checkComplexRoots(Function<E, E> function, int exponents, double bound) {
  test::Random random;
  std::vector<E> z(20000), root(z.size());
  for (E& e : z) {
    using F = decltype(e.re);
    e = random.value<E>();
    const int common = int(random.below(2 * exponents)) - exponents, apart = int(random.below(20));
    e.re = F(std::ldexp(e.re, common)), e.im = F(std::ldexp(e.im, common - apart));
  }
  ASSERT_EQ(function(z.data(), root.data(), int(z.size())), moxOk);
  Worst worst;
  for (std::size_t i = 0; i < z.size(); ++i) {
    long double re, im;
    exactRoot(z[i].re, z[i].im, re, im);
    worst.see(test::ulpError(root[i].re, re), z[i].re);
    worst.see(test::ulpError(root[i].im, im), z[i].re);
  }
  EXPECT_LE(worst.error(), bound) << std::hexfloat << worst.at();
}

TEST(ElementaryAccuracy, ComplexRootsStayWithinTheStatedBoundsAtAllSizes) {
  checkComplexRoots(moxsSqrt_32fc, 120, 0.501);
  checkComplexRoots(moxsSqrt_64fc, 1020, 2.2);
}

TEST(ElementaryAccuracy, SumsOfLogarithmsKeepTheirAccuracyWhereProductsLeaveTheRange) {
  test::Random random;
  for (const int len : {1, 3, 15, 16, 17, 100, 5000}) {
    std::vector<Mox64f> x(len);
    std::vector<Mox32f> f(len);
    std::vector<Mox16s> s(len);
    long double sum = 0, sumFloat = 0, sumShort = 0;
    for (int i = 0; i < len; ++i) {
      x[i] = std::ldexp(1 + std::fabs(random.value<double>()), int(random.below(2000)) - 1000);
      f[i] =
          Mox32f(std::ldexp(1 + std::fabs(random.value<double>()), -120 - int(random.below(20))));
      s[i] = Mox16s(1 + random.below(32767));
      sum += test::exactValue(mpfr_log, x[i]);
      sumFloat += test::exactValue(mpfr_log, f[i]);
      sumShort += test::exactValue(mpfr_log, s[i]);
    }
    Mox64f got;
    Mox32f gotFloat;
    const auto allowed = [&](long double v) { return len * 0x1p-53L + std::fabs(v) * 0x1p-51L; };
    ASSERT_EQ(moxsSumLn_64f(x.data(), len, &got), moxOk);
    EXPECT_NEAR(got, sum, allowed(sum)) << len;
    ASSERT_EQ(moxsSumLn_32f64f(f.data(), len, &got), moxOk);
    EXPECT_NEAR(got, sumFloat, allowed(sumFloat)) << len;
    ASSERT_EQ(moxsSumLn_32f(f.data(), len, &gotFloat), moxOk);
    EXPECT_LE(test::ulpError(gotFloat, sumFloat), 0.501) << len;
    ASSERT_EQ(moxsSumLn_16s32f(s.data(), len, &gotFloat), moxOk);
    EXPECT_LE(test::ulpError(gotFloat, sumShort), 0.501) << len;
  }
}

}  // namespace
