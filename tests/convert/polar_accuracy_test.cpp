// Magnitude, phase and polar forms in floating point, against MPFR.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <immintrin.h>
#include <moxsp.h>

#include <cmath>
#include <functional>
#include <limits>
#include <vector>

#include "support/accuracy.h"
#include "support/exact.h"
#include "support/random.h"

namespace {

// A real and an imaginary part, or a magnitude and a phase.
struct Numbers {
  std::vector<double> first, second;

  void add(double x, double y) { first.push_back(x), second.push_back(y); }
  int len() const { return int(first.size()); }
};

template <class E>
std::vector<E> as(const std::vector<double>& values) {
  return {values.begin(), values.end()};
}
template <class E>
std::vector<E> complexFrom(const Numbers& n) {
  std::vector<E> z;
  for (int i = 0; i < n.len(); ++i)
    z.push_back({mox::Part<E>(n.first[i]), mox::Part<E>(n.second[i])});
  return z;
}

// What a function makes of numbers in one call, widened to double.
using Results = std::function<std::vector<double>(const Numbers&)>;

template <class S, class D>
Results fromTwo(MoxStatus (*function)(const S*, const S*, D*, int)) {
  return [=](const Numbers& n) {
    const auto first = as<S>(n.first), second = as<S>(n.second);
    std::vector<D> dst(n.first.size());
    EXPECT_EQ(function(first.data(), second.data(), dst.data(), n.len()), moxOk);
    return std::vector<double>(dst.begin(), dst.end());
  };
}
template <mox::Complex E, class D>
Results fromOne(MoxStatus (*function)(const E*, D*, int)) {
  return [=](const Numbers& n) {
    const auto src = complexFrom<E>(n);
    std::vector<D> dst(src.size());
    EXPECT_EQ(function(src.data(), dst.data(), n.len()), moxOk);
    return std::vector<double>(dst.begin(), dst.end());
  };
}
enum Which { re, im };
template <class F>
Results toTwo(Which which, MoxStatus (*function)(const F*, const F*, F*, F*, int)) {
  return [=](const Numbers& n) {
    const auto magnitude = as<F>(n.first), phase = as<F>(n.second);
    std::vector<F> dst[2] = {magnitude, magnitude};
    EXPECT_EQ(function(magnitude.data(), phase.data(), dst[re].data(), dst[im].data(), n.len()),
              moxOk);
    return std::vector<double>(dst[which].begin(), dst[which].end());
  };
}
template <class F, mox::Complex E>
Results toOne(Which which, MoxStatus (*function)(const F*, const F*, E*, int)) {
  return [=](const Numbers& n) {
    const auto magnitude = as<F>(n.first), phase = as<F>(n.second);
    std::vector<E> dst(magnitude.size());
    EXPECT_EQ(function(magnitude.data(), phase.data(), dst.data(), n.len()), moxOk);
    std::vector<double> parts;
    for (const E& z : dst) parts.push_back(which == re ? z.re : z.im);
    return parts;
  };
}

using Exact = int (*)(mpfr_ptr result, mpfr_srcptr first, mpfr_srcptr second);

constexpr mpfr_rnd_t near = MPFR_RNDN;
int squares(mpfr_ptr r, mpfr_srcptr x, mpfr_srcptr y) { return mpfr_fmma(r, x, x, y, y, near); }
int modulus(mpfr_ptr r, mpfr_srcptr x, mpfr_srcptr y) { return mpfr_hypot(r, x, y, near); }
int argument(mpfr_ptr r, mpfr_srcptr x, mpfr_srcptr y) { return mpfr_atan2(r, y, x, near); }
int cosine(mpfr_ptr r, mpfr_srcptr m, mpfr_srcptr phase) {
  mpfr_cos(r, phase, near);
  return mpfr_mul(r, m, r, near);
}
int sine(mpfr_ptr r, mpfr_srcptr m, mpfr_srcptr phase) {
  mpfr_sin(r, phase, near);
  return mpfr_mul(r, m, r, near);
}

long double exactValue(Exact function, double x, double y) {
  static test::Exact first(64), second(64), result(200);
  mpfr_set_d(first.get(), x, near);
  mpfr_set_d(second.get(), y, near);
  function(result.get(), first.get(), second.get());
  return mpfr_get_ld(result.get(), near);
}

// Infinite where it is not a matter of units: a wrong sign of zero, NaN for a number.
template <class F>
long double errorOf(double got, long double exact) {
  const long double wanted = test::inRangeOf<F>(exact);
  if (!std::isnan(wanted) && std::signbit(got) != std::signbit(wanted)) return INFINITY;
  return test::ulpError(F(got), wanted);
}

template <class F>
struct Case {
  const char* name;
  Exact exact;
  double bound;  // as the header states it
  Results results;
};

// The greatest error, within the bound and not far below it.
template <class F>
void expectBound(const Case<F>& c, const Numbers& numbers, bool tight) {
  SCOPED_TRACE(c.name);
  const auto got = c.results(numbers);
  long double greatest = 0;
  int at = 0;
  for (int i = 0; i < numbers.len(); ++i) {
    const long double error =
        errorOf<F>(got[i], exactValue(c.exact, F(numbers.first[i]), F(numbers.second[i])));
    if (!(error <= greatest)) greatest = error, at = i;
  }
  EXPECT_LE(greatest, c.bound) << "at " << numbers.first[at] << ", " << numbers.second[at]
                               << ", which gives " << got[at] << "; " << test::seedNote();
  if (tight) {
    EXPECT_GE(greatest, 0.7 * c.bound) << "the header could promise more";
  }
}

// All directions, with parts of all proportions, and those about the seams of the kernels.
Numbers allDirections(int exponents) {
  test::Random random(1);
  Numbers n;
  const auto part = [&] {
    const double size = std::ldexp(1 + std::fabs(random.value<double>()),
                                   int(random.below(2 * exponents + 1)) - exponents);
    return random.below(2) ? size : -size;
  };
  for (int i = 0; i < 8000; ++i) {
    const double x = part(),
                 nearOne = 1 + std::ldexp(random.value<double>(), -int(random.below(20)));
    const double tangent = 0.3;
    n.add(x, part());
    n.add(x, (i % 2 ? x : -x) * nearOne);
    n.add(x, (i % 2 ? x : -x) * nearOne * tangent);
    n.add(x * nearOne * tangent, i % 2 ? x : -x);
  }
  return n;
}

Numbers anyWords() {
  test::Random random(2);
  Numbers n;
  for (int i = 0; i < 30000; ++i) n.add(random.value<Mox16s>(), random.value<Mox16s>());
  for (const int x : {-32768, -1, 0, 1, 32767})
    for (const int y : {-32768, -1, 0, 1, 32767}) n.add(x, y);
  return n;
}

Numbers polar(double largestPhase) {
  test::Random random(3);
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
Numbers specials(double largest, double smallest, double normal) {
  std::vector<double> values;
  for (const double v :
       {0.0, 1.0, 3.0, smallest, normal, 3 * normal, largest, largest / 3, double(INFINITY)})
    values.push_back(v), values.push_back(-v);
  values.push_back(NAN);
  Numbers n;
  for (const double x : values)
    for (const double y : values) n.add(x, y);
  return n;
}
template <class F>
Numbers specials() {
  using Limits = std::numeric_limits<F>;
  return specials(Limits::max(), Limits::denorm_min(), Limits::min());
}

const Case<Mox32f> magnitudes32[] = {
    {"Magnitude_32f", modulus, 1.25, fromTwo(moxsMagnitude_32f)},
    {"Magnitude_32fc", modulus, 1.25, fromOne(moxsMagnitude_32fc)}};
const Case<Mox64f> magnitudes64[] = {
    {"Magnitude_64f", modulus, 1.25, fromTwo(moxsMagnitude_64f)},
    {"Magnitude_64fc", modulus, 1.25, fromOne(moxsMagnitude_64fc)}};
const Case<Mox32f> ofWords[] = {
    {"Magnitude_16s32f", modulus, 0.86, fromTwo(moxsMagnitude_16s32f)},
    {"Magnitude_16sc32f", modulus, 0.86, fromOne(moxsMagnitude_16sc32f)},
    {"PowerSpectr_16s32f", squares, 0.5, fromTwo(moxsPowerSpectr_16s32f)},
    {"PowerSpectr_16sc32f", squares, 0.5, fromOne(moxsPowerSpectr_16sc32f)},
    {"Phase_16s32f", argument, 0.51, fromTwo(moxsPhase_16s32f)},
    {"Phase_16sc32f", argument, 0.51, fromOne(moxsPhase_16sc32f)}};
const Case<Mox32f> phases32[] = {{"Phase_32f", argument, 6.5, fromTwo(moxsPhase_32f)},
                                 {"Phase_32fc", argument, 6.5, fromOne(moxsPhase_32fc)}};
const Case<Mox64f> phases64[] = {{"Phase_64f", argument, 1.6, fromTwo(moxsPhase_64f)},
                                 {"Phase_64fc", argument, 1.6, fromOne(moxsPhase_64fc)}};
const Case<Mox32f> cartesians32[] = {
    {"PolarToCart_32f re", cosine, 0.51, toTwo(re, moxsPolarToCart_32f)},
    {"PolarToCart_32f im", sine, 0.51, toTwo(im, moxsPolarToCart_32f)},
    {"PolarToCart_32fc re", cosine, 0.51, toOne(re, moxsPolarToCart_32fc)},
    {"PolarToCart_32fc im", sine, 0.51, toOne(im, moxsPolarToCart_32fc)}};
const Case<Mox64f> cartesians64[] = {
    {"PolarToCart_64f re", cosine, 1.6, toTwo(re, moxsPolarToCart_64f)},
    {"PolarToCart_64f im", sine, 1.6, toTwo(im, moxsPolarToCart_64f)},
    {"PolarToCart_64fc re", cosine, 1.6, toOne(re, moxsPolarToCart_64fc)},
    {"PolarToCart_64fc im", sine, 1.6, toOne(im, moxsPolarToCart_64fc)}};

TEST(PolarAccuracy, InAllDirections) {
  const Numbers moderate = allDirections(20), wide = allDirections(120);
  for (const auto& c : magnitudes32) expectBound(c, moderate, true);
  for (const auto& c : magnitudes64) expectBound(c, wide, true);
  // Another make of processor has other estimates.
  for (const auto& c : phases32) expectBound(c, moderate, false), expectBound(c, wide, false);
  for (const auto& c : phases64) expectBound(c, wide, true);
}

TEST(PolarAccuracy, OfWords) {
  for (const auto& c : ofWords) expectBound(c, anyWords(), true);
}

TEST(PolarAccuracy, PolarToCart) {
  for (const double largestPhase : {3.2, 1000.0, 0x1p20, 0x1p40}) {
    for (const auto& c : cartesians32) expectBound(c, polar(largestPhase), true);
    for (const auto& c : cartesians64) expectBound(c, polar(largestPhase), false);
  }
}

// The sum of squares follows IEEE 754, so that the magnitude of (infinity, NaN) is NaN; phases are
// as those of the C library.
TEST(PolarAccuracy, OfSpecialValues) {
  for (const auto& c : phases32) expectBound(c, specials<Mox32f>(), false);
  for (const auto& c : phases64) expectBound(c, specials<Mox64f>(), false);
  for (const auto& c : cartesians32) expectBound(c, specials<Mox32f>(), false);
  for (const auto& c : cartesians64) expectBound(c, specials<Mox64f>(), false);
  const Numbers n = specials<Mox32f>();
  const auto magnitudes = fromTwo(moxsMagnitude_32f)(n);
  const auto powers = fromOne(moxsPowerSpectr_32fc)(n), wide = fromOne(moxsMagSquared_32fc64f)(n);
  for (int i = 0; i < n.len(); ++i) {
    const float x = float(n.first[i]), y = float(n.second[i]), power = x * x + y * y;
    SCOPED_TRACE(testing::Message() << x << ", " << y);
    EXPECT_THAT(powers[i], testing::NanSensitiveDoubleEq(power));
    EXPECT_THAT(magnitudes[i], testing::NanSensitiveDoubleEq(std::sqrt(power)));
    EXPECT_THAT(wide[i], testing::NanSensitiveDoubleEq(double(x) * x + double(y) * y));
  }
}

// The kernel of single precision, one operation after the other.
float phaseInSteps(float x, float y) {
  const auto reciprocal = [](float v) {
    const float g = _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(v)));
    return g * (2.0f - v * g);
  };
  const float u = std::fabs(x), v = std::fabs(y), larger = std::max(u, v);
  const float t = std::min(u, v) * reciprocal(larger == 0 ? 1.0f : larger), s = t * t;
  const float p =
      ((0.008561189286410809f * s + 0.2805045545101166f) * s + 1.1202340126037598f) * s + 1.0f;
  const float q =
      ((0.049017589539289474f * s + 0.5650309920310974f) * s + 1.4535671472549438f) * s + 1.0f;
  float a = t * p * reciprocal(q);
  if (v > u) a = 1.5707963705062866f - a;
  if (std::signbit(x)) a = 3.1415927410125732f - a;
  return std::copysign(a, y);
}

TEST(PolarAccuracy, SinglePhasesStepByStep) {
  const Numbers n = allDirections(40);
  const auto got = fromOne(moxsPhase_32fc)(n), ofTwo = fromTwo(moxsPhase_32f)(n);
  for (int i = 0; i < n.len(); ++i) {
    ASSERT_EQ(got[i], phaseInSteps(float(n.first[i]), float(n.second[i])))
        << n.first[i] << ", " << n.second[i];
    ASSERT_EQ(ofTwo[i], got[i]);
  }
}

}  // namespace
