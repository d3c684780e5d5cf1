// The stated accuracy of all floating-point functions, against MPFR.
#include "support/accuracy.h"

#include <bit>

#include "support/exact.h"

namespace {

using namespace test;

// Arguments of functions of two numbers (real and imaginary parts, or magnitudes and phases); those
// of one take the first.
struct Numbers {
  std::vector<double> first, second;

  void add(double x, double y = 0) { first.push_back(x), second.push_back(y); }
};
template <class F>
std::vector<F> as(const std::vector<double>& values) {
  return {values.begin(), values.end()};
}

// The exact functions, of numbers in the format of the arguments.
using Exactly = void (*)(mpfr_ptr result, double x, double y);
template <int (*f)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t)>
void of(mpfr_ptr r, double x, double) {
  f(r, Exact(x), MPFR_RNDN);
}
void hypotenuse(mpfr_ptr r, double x, double y) { mpfr_hypot(r, Exact(x), Exact(y), MPFR_RNDN); }
void squares(mpfr_ptr r, double x, double y) {
  const Exact a(x), b(y);
  mpfr_fmma(r, a, a, b, b, MPFR_RNDN);
}
void angle(mpfr_ptr r, double x, double y) { mpfr_atan2(r, Exact(y), Exact(x), MPFR_RNDN); }
template <int (*f)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t)>
void timesMagnitude(mpfr_ptr r, double magnitude, double phase) {
  f(r, Exact(phase), MPFR_RNDN);
  mpfr_mul(r, Exact(magnitude), r, MPFR_RNDN);
}
template <bool imaginary>
void rootPart(mpfr_ptr r, double x, double y) {
  static Exact other(0, 2400);
  imaginary ? exactRoot(other, r, x, y) : exactRoot(r, other, x, y);
}

template <class D, class... S, class T>
void expectBound(const Results<D, S...>& got, Exactly exactly, double bound, double share,
                 const std::vector<T>& x, const std::vector<T>& y) {
  // Parts 2^-1020 apart, whose squares must not drop out, need many bits.
  static Exact few, many(0, 2400);
  Exact& value = exactly == rootPart<false> || exactly == rootPart<true> ? many : few;
  const auto exactAt = [&](std::size_t i) {
    exactly(value, x[i], y[i]);
    return mpfr_get_ld(value, MPFR_RNDN);
  };
  expectWithinUlps(got, bound, share, exactAt);
}

// Rows: a member, its exact function or those of its two parts, the bound in ulps that the header
// states, the share of it that is reached, and the arguments. A share of 0 is for bounds that other
// processors or numbers need.
template <class S, class D>
void expectWithin(Member<const S*, D*, int> member, Exactly exactly, double bound, double share,
                  const Numbers& n) {
  if constexpr (mox::Complex<S>) {
    using F = mox::Part<S>;
    const auto re = as<F>(n.first), im = as<F>(n.second);
    std::vector<S> z;
    for (std::size_t i = 0; i < re.size(); ++i) z.push_back({re[i], im[i]});
    if constexpr (mox::Complex<D>) {
      const auto parts = partsOf(run(member, z));
      expectBound(parts.first, rootPart<false>, bound, share, re, im);
      expectBound(parts.second, rootPart<true>, bound, share, re, im);
    } else {
      expectBound(run(member, z), exactly, bound, share, re, im);
    }
  } else {
    const auto x = as<S>(n.first);
    expectBound(run(member, x), exactly, bound, share, x, as<S>(n.second));
  }
}
template <class S, class D>
void expectWithin(Member<const S*, const S*, D*, int> member, Exactly exactly, double bound,
                  double share, const Numbers& n) {
  const auto x = as<S>(n.first), y = as<S>(n.second);
  if constexpr (mox::Complex<D>) {
    const auto [re, im] = partsOf(run(member, x, y));
    expectBound(re, timesMagnitude<mpfr_cos>, bound, share, x, y);
    expectBound(im, timesMagnitude<mpfr_sin>, bound, share, x, y);
  } else {
    expectBound(run(member, x, y), exactly, bound, share, x, y);
  }
}

// All low bits occur, since the step is odd.
Numbers floatsOfAllExponents() {
  Numbers n;
  for (std::uint64_t bits = 0; bits < 1UL << 32; bits += 15013)
    n.add(std::bit_cast<Mox32f>(std::uint32_t(bits)));
  return n;
}

// Evenly spread, or by their logarithms in a wide interval.
Numbers spread(std::initializer_list<std::pair<double, double>> intervals) {
  Random random;
  Numbers n;
  for (const auto& [from, to] : intervals)
    for (int i = 0; i < 30000; ++i) {
      const double u = (random.value<double>() + 1) / 2;
      const bool wide = from > 0 && to / from > 1e3;
      n.add(wide ? std::exp2(std::lerp(std::log2(from), std::log2(to), u))
                 : std::lerp(from, to, u));
    }
  return n;
}

// Parts of all sizes up to 2^exponents, close to each other or far apart.
Numbers partsOfAllSizes(int exponents) {
  Random random;
  Numbers n;
  for (int i = 0; i < 20000; ++i) {
    const int common = int(random.below(2 * exponents)) - exponents,
              apart = int(random.below(random.below(2) ? 20 : exponents));
    n.add(std::ldexp(random.value<double>(), common),
          std::ldexp(random.value<double>(), common - apart));
  }
  return n;
}

// All directions, with parts of all proportions, and those about the seams of the kernels.
Numbers allDirections(int exponents) {
  Random random(1);
  Numbers n;
  const auto part = [&] {
    const double size = std::ldexp(1 + std::fabs(random.value<double>()),
                                   int(random.below(2 * exponents + 1)) - exponents);
    return random.below(2) ? size : -size;
  };
  for (int i = 0; i < 8000; ++i) {
    const double x = part(), other = i % 2 ? x : -x, tangent = 0.3;
    const double nearOne = 1 + std::ldexp(random.value<double>(), -int(random.below(20)));
    n.add(x, part());
    n.add(x, other * nearOne);
    n.add(x, other * nearOne * tangent);
    n.add(x * nearOne * tangent, other);
  }
  return n;
}

Numbers anyWords() {
  Random random(2);
  Numbers n;
  for (int i = 0; i < 30000; ++i) n.add(random.value<Mox16s>(), random.value<Mox16s>());
  for (const int x : {-32768, -1, 0, 1, 32767})
    for (const int y : {-32768, -1, 0, 1, 32767}) n.add(x, y);
  return n;
}

Numbers polar(double largestPhase) {
  Random random(3);
  Numbers n;
  for (int i = 0; i < 6000; ++i) {
    const double scale = std::ldexp(1.0, -int(random.below(30)));
    n.add(random.value<double>(), random.value<double>() * largestPhase * scale);
    n.add(1 + random.value<double>() / 2,
          std::nearbyint(random.value<double>() * largestPhase / 2) * 1.5707963267948966);
  }
  return n;
}

// Every pair of values that are special somewhere.
template <class F>
Numbers specials() {
  using Limits = std::numeric_limits<F>;
  std::vector<double> values = {NAN};
  for (const F v : {F(0), F(1), F(3), Limits::denorm_min(), Limits::min(), 3 * Limits::min(),
                    Limits::max(), Limits::max() / 3, Limits::infinity()})
    values.insert(values.end(), {v, -v});
  Numbers n;
  for (const double x : values)
    for (const double y : values) n.add(x, y);
  return n;
}

TEST(Accuracy, ElementaryFunctionsOfFloats) {
  const Numbers all = floatsOfAllExponents();
  expectWithin(MEMBER(Exp_32f), of<mpfr_exp>, 2.94, 0.5, all);
  expectWithin(MEMBER(Ln_32f), of<mpfr_log>, 3.94, 0.5, all);
  expectWithin(MEMBER(Arctan_32f), of<mpfr_atan>, 5.62, 0.5, all);
  expectWithin(MEMBER(Cubrt_32f), of<mpfr_cbrt>, 7.74, 0.5, all);
  expectWithin(MEMBER(Sqrt_32f), of<mpfr_sqrt>, 0.5, 0.5, all);
}

TEST(Accuracy, ElementaryFunctionsOfDoubles) {
  // The least numbers, and what is below them.
  const auto exponents = spread({{-746, 710}, {-1, 1}, {1e-300, 1e-3}, {-745.2, -744}});
  const auto numbers = spread({{0.25, 4}, {0.99, 1.01}, {1e-300, 1e300}, {5e-324, 1e-307}});
  const auto tangents = spread({{-3, 3}, {0.4, 0.43}, {2.4, 2.43}, {1e-300, 1e300}});
  expectWithin(MEMBER(Exp_64f), of<mpfr_exp>, 1.1, 0, exponents);
  expectWithin(MEMBER(Exp_32f64f), of<mpfr_exp>, 1.1, 0, exponents);
  expectWithin(MEMBER(Ln_64f), of<mpfr_log>, 1.2, 0, numbers);
  expectWithin(MEMBER(Ln_64f32f), of<mpfr_log>, 0.501, 0, numbers);
  expectWithin(MEMBER(Arctan_64f), of<mpfr_atan>, 2.0, 0, tangents);
  expectWithin(MEMBER(Sqrt_64f), of<mpfr_sqrt>, 0.5, 0, numbers);
  // Rounding of single operations may cost a unit or two more, but no digits.
  withCallsInAllRoundings([&] {
    expectWithin(MEMBER(Exp_64f), of<mpfr_exp>, 4, 0, spread({{-700, 700}}));
  });
}

TEST(Accuracy, ComplexRoots) {
  expectWithin(MEMBER(Sqrt_32fc), rootPart<false>, 0.501, 0, partsOfAllSizes(120));
  expectWithin(MEMBER(Sqrt_64fc), rootPart<false>, 3.5, 0, partsOfAllSizes(1020));
}

TEST(Accuracy, Magnitudes) {
  const Numbers moderate = allDirections(20), wide = allDirections(120), words = anyWords();
  expectWithin(MEMBER(Magnitude_32f), hypotenuse, 1.25, 0.7, moderate);
  expectWithin(MEMBER(Magnitude_32fc), hypotenuse, 1.25, 0.7, moderate);
  expectWithin(MEMBER(Magnitude_64f), hypotenuse, 1.25, 0.7, wide);
  expectWithin(MEMBER(Magnitude_64fc), hypotenuse, 1.25, 0.7, wide);
  expectWithin(MEMBER(Magnitude_16s32f), hypotenuse, 0.86, 0.7, words);
  expectWithin(MEMBER(Magnitude_16sc32f), hypotenuse, 0.86, 0.7, words);
  expectWithin(MEMBER(PowerSpectr_16s32f), squares, 0.5, 0.7, words);
  expectWithin(MEMBER(PowerSpectr_16sc32f), squares, 0.5, 0.7, words);
}

TEST(Accuracy, Phases) {
  const Numbers wide = allDirections(120), words = anyWords(), special = specials<Mox64f>();
  for (const Numbers& n : {allDirections(20), wide, specials<Mox32f>()}) {
    expectWithin(MEMBER(Phase_32f), angle, 14, 0, n);
    expectWithin(MEMBER(Phase_32fc), angle, 14, 0, n);
  }
  expectWithin(MEMBER(Phase_64f), angle, 1.6, 0.7, wide);
  expectWithin(MEMBER(Phase_64fc), angle, 1.6, 0.7, wide);
  expectWithin(MEMBER(Phase_64f), angle, 1.6, 0, special);
  expectWithin(MEMBER(Phase_64fc), angle, 1.6, 0, special);
  expectWithin(MEMBER(Phase_16s32f), angle, 0.51, 0.7, words);
  expectWithin(MEMBER(Phase_16sc32f), angle, 0.51, 0.7, words);
}

// With one array of complex elements the bound holds; with two of parts the bits are the same.
template <class F, class E>
void expectCartesian(Member<const F*, const F*, E*, int> toOne,
                     MoxStatus (*toTwo)(const F*, const F*, F*, F*, int), double bound,
                     double share, const Numbers& n) {
  expectWithin(toOne, {}, bound, share, n);
  const auto m = as<F>(n.first), p = as<F>(n.second);
  const auto [re, im] = partsOf(run(toOne, m, p));
  std::vector<F> onlyRe(m.size()), onlyIm(m.size());
  toTwo(m.data(), p.data(), onlyRe.data(), onlyIm.data(), int(m.size()));
  const auto both = [](F a, F b) { return same(a, b); };
  EXPECT_TRUE(std::ranges::equal(onlyRe, re.values, both));
  EXPECT_TRUE(std::ranges::equal(onlyIm, im.values, both));
}

TEST(Accuracy, PolarToCart) {
  const auto expectBoth = [](double share, const Numbers& singles, const Numbers& doubles) {
    expectCartesian(MEMBER(PolarToCart_32fc), moxsPolarToCart_32f, 0.51, share, singles);
    expectCartesian(MEMBER(PolarToCart_64fc), moxsPolarToCart_64f, 2.2, 0, doubles);
  };
  for (const double largestPhase : {3.2, 1000.0, 0x1p20, 0x1p40})
    expectBoth(0.7, polar(largestPhase), polar(largestPhase));
  expectBoth(0, specials<Mox32f>(), specials<Mox64f>());
}

// The sum of squares follows IEEE 754, so that the magnitude of (infinity, NaN) is NaN.
TEST(Accuracy, MagnitudesOfSpecialValues) {
  const Numbers n = specials<Mox32f>();
  const auto x = as<Mox32f>(n.first), y = as<Mox32f>(n.second);
  std::vector<Mox32fc> z;
  for (std::size_t i = 0; i < x.size(); ++i) z.push_back({x[i], y[i]});
  const auto power = [](auto a, auto b) { return a * a + b * b; };
  expectEach(run(MEMBER(PowerSpectr_32fc), z), [&](Mox32fc e) { return power(e.re, e.im); });
  expectEach(run(MEMBER(Magnitude_32f), x, y),
             [&](Mox32f a, Mox32f b) { return std::sqrt(power(a, b)); });
  expectEach(run(MEMBER(MagSquared_32fc64f), z),
             [&](Mox32fc e) { return power(double(e.re), double(e.im)); });
}

// Of numbers whose product leaves the range of all floats, and of many with one mantissa.
template <class S, class D, class Draw>
void expectSum(MoxStatus (*function)(const S*, int, D*), Draw draw) {
  Random random;
  for (const int len : {3, 100, 5000, 40000}) {
    std::vector<S> x(len);
    long double exact = 0;
    for (S& e : x) {
      e = len == 40000 ? S(1.41) : draw(random);
      exact += std::log((long double)e);
    }
    D sum;
    ASSERT_OK(function(x.data(), len, &sum));
    const long double relative = sizeof(D) == 4 ? 0x1.004p-24L : 0x1p-51L;
    EXPECT_NEAR(sum, exact, len * 0x1p-53L + std::fabs(exact) * relative) << len;
  }
}

TEST(Accuracy, SumsOfLogarithmsWhereProductsLeaveTheRange) {
  const auto mantissa = [](Random& random) { return 1 + std::fabs(random.value<double>()); };
  const auto small = [&](Random& random) {
    return std::ldexp(mantissa(random), -120 - int(random.below(20)));
  };
  expectSum(moxsSumLn_64f, [&](Random& random) {
    return std::ldexp(mantissa(random), int(random.below(2070)) - 1070);  // subnormal ones, too
  });
  expectSum(moxsSumLn_32f64f, small);
  expectSum(moxsSumLn_32f, small);
  expectSum(moxsSumLn_16s32f, [](Random& random) { return Mox16s(1 + random.below(32767)); });
}

}  // namespace
