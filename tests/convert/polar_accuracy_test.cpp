// Magnitude, phase and polar forms in floating point, against MPFR.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "support/accuracy.h"
#include "support/exact.h"
#include "support/single_steps.h"

namespace {

using namespace test;

// Real and imaginary parts, or magnitudes and phases.
struct Numbers {
  std::vector<double> first, second;

  void add(double x, double y) { first.push_back(x), second.push_back(y); }
};
template <class F>
std::vector<F> as(const std::vector<double>& values) {
  return {values.begin(), values.end()};
}

template <class S, class D, class... P>
Results<D> results(Member<const S*, const S*, D*, P...> member, const Numbers& n) {
  return run(member, as<S>(n.first), as<S>(n.second));
}
template <mox::Complex E, class D>
Results<D> results(Member<const E*, D*, int> member, const Numbers& n) {
  std::vector<E> z;
  for (std::size_t i = 0; i < n.first.size(); ++i)
    z.push_back({mox::Part<E>(n.first[i]), mox::Part<E>(n.second[i])});
  return run(member, z);
}

using ExactFunction = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t);
int squares(mpfr_ptr r, mpfr_srcptr x, mpfr_srcptr y, mpfr_rnd_t mode) {
  return mpfr_fmma(r, x, x, y, y, mode);
}
int argument(mpfr_ptr r, mpfr_srcptr x, mpfr_srcptr y, mpfr_rnd_t mode) {
  return mpfr_atan2(r, y, x, mode);
}
int cosine(mpfr_ptr r, mpfr_srcptr m, mpfr_srcptr phase, mpfr_rnd_t mode) {
  mpfr_cos(r, phase, mode);
  return mpfr_mul(r, m, r, mode);
}
int sine(mpfr_ptr r, mpfr_srcptr m, mpfr_srcptr phase, mpfr_rnd_t mode) {
  mpfr_sin(r, phase, mode);
  return mpfr_mul(r, m, r, mode);
}

// The bounds are those that the header states. A share of 0 is for bounds that other processors or
// numbers need.
constexpr double tight = 0.7;

template <class D>
void expectBound(const Results<D>& got, ExactFunction function, double bound, double share,
                 const Numbers& n) {
  expectWithinUlps(
      got, bound, share,
      [&](std::size_t i) { return exactValue(function, D(n.first[i]), D(n.second[i])); }, n.first,
      n.second);
}

// Of magnitudes and phases.
template <class F, class E>
void expectCartesian(Member<const F*, const F*, E*, int> toOne,
                     MoxStatus (*toTwo)(const F*, const F*, F*, F*, int), double bound,
                     double share, const Numbers& n) {
  const auto [re, im] = partsOf(results(toOne, n));
  expectBound(re, cosine, bound, share, n);
  expectBound(im, sine, bound, share, n);
  const auto magnitude = as<F>(n.first), phase = as<F>(n.second);
  std::vector<F> onlyRe(magnitude.size()), onlyIm(magnitude.size());
  toTwo(magnitude.data(), phase.data(), onlyRe.data(), onlyIm.data(), int(onlyRe.size()));
  const auto both = [](F a, F b) { return same(a, b); };
  EXPECT_TRUE(std::ranges::equal(onlyRe, re.values, both));
  EXPECT_TRUE(std::ranges::equal(onlyIm, im.values, both));
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

TEST(PolarAccuracy, Magnitudes) {
  const Numbers moderate = allDirections(20), wide = allDirections(120), words = anyWords();
  expectBound(results(MEMBER(Magnitude_32f), moderate), mpfr_hypot, 1.25, tight, moderate);
  expectBound(results(MEMBER(Magnitude_32fc), moderate), mpfr_hypot, 1.25, tight, moderate);
  expectBound(results(MEMBER(Magnitude_64f), wide), mpfr_hypot, 1.25, tight, wide);
  expectBound(results(MEMBER(Magnitude_64fc), wide), mpfr_hypot, 1.25, tight, wide);
  expectBound(results(MEMBER(Magnitude_16s32f), words), mpfr_hypot, 0.86, tight, words);
  expectBound(results(MEMBER(Magnitude_16sc32f), words), mpfr_hypot, 0.86, tight, words);
  expectBound(results(MEMBER(PowerSpectr_16s32f), words), squares, 0.5, tight, words);
  expectBound(results(MEMBER(PowerSpectr_16sc32f), words), squares, 0.5, tight, words);
}

TEST(PolarAccuracy, Phases) {
  const Numbers wide = allDirections(120), words = anyWords();
  for (const Numbers& n : {allDirections(20), wide, specials<Mox32f>()}) {
    expectBound(results(MEMBER(Phase_32f), n), argument, 6.5, 0, n);
    expectBound(results(MEMBER(Phase_32fc), n), argument, 6.5, 0, n);
  }
  expectBound(results(MEMBER(Phase_64f), wide), argument, 1.6, tight, wide);
  expectBound(results(MEMBER(Phase_64fc), wide), argument, 1.6, tight, wide);
  expectBound(results(MEMBER(Phase_16s32f), words), argument, 0.51, tight, words);
  expectBound(results(MEMBER(Phase_16sc32f), words), argument, 0.51, tight, words);
  const Numbers special = specials<Mox64f>();
  expectBound(results(MEMBER(Phase_64f), special), argument, 1.6, 0, special);
  expectBound(results(MEMBER(Phase_64fc), special), argument, 1.6, 0, special);
}

TEST(PolarAccuracy, PolarToCart) {
  const auto expectBoth = [](double share, const Numbers& singles, const Numbers& doubles) {
    expectCartesian(MEMBER(PolarToCart_32fc), moxsPolarToCart_32f, 0.51, share, singles);
    expectCartesian(MEMBER(PolarToCart_64fc), moxsPolarToCart_64f, 1.6, 0, doubles);
  };
  for (const double largestPhase : {3.2, 1000.0, 0x1p20, 0x1p40})
    expectBoth(tight, polar(largestPhase), polar(largestPhase));
  expectBoth(0, specials<Mox32f>(), specials<Mox64f>());
}

// The sum of squares follows IEEE 754, so that the magnitude of (infinity, NaN) is NaN.
TEST(PolarAccuracy, MagnitudesOfSpecialValues) {
  const Numbers n = specials<Mox32f>();
  const auto expectFormula = [&](const auto& got, auto formula) {
    expectEach(
        got, [&](double x, double y) { return formula(float(x), float(y)); }, n.first, n.second);
  };
  const auto power = [](float x, float y) { return x * x + y * y; };
  expectFormula(results(MEMBER(PowerSpectr_32fc), n), power);
  expectFormula(results(MEMBER(Magnitude_32f), n),
                [&](float x, float y) { return std::sqrt(power(x, y)); });
  expectFormula(results(MEMBER(MagSquared_32fc64f), n),
                [](double x, double y) { return x * x + y * y; });
}

// The kernel of single precision, one operation after the other.
float phaseInSteps(float x, float y) {
  const float u = std::fabs(x), v = std::fabs(y), larger = std::max(u, v);
  float a = arctanInSteps(std::min(u, v) * reciprocalInSteps(larger == 0 ? 1.0f : larger));
  if (v > u) a = 1.5707963705062866f - a;
  if (std::signbit(x)) a = 3.1415927410125732f - a;
  return std::copysign(a, y);
}

TEST(PolarAccuracy, SinglePhasesStepByStep) {
  const Numbers n = allDirections(40);
  for (const auto& got : {results(MEMBER(Phase_32fc), n), results(MEMBER(Phase_32f), n)})
    expectEach(got, phaseInSteps, n.first, n.second);
}

}  // namespace
