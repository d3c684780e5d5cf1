// Special lanes of the floating-point elementary functions, and the bits of those whose formula the
// header gives.
#include <gtest/gtest.h>
#include <immintrin.h>
#include <moxsp.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include "arith/ln.h"
#include "support/accuracy.h"
#include "support/random.h"

namespace {

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

Mox32f plainReciprocal(Mox32f a) {
  const Mox32f g = _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(a)));
  return g * (2.0f - a * g);
}

Mox32f plainArctan(Mox32f x) {
  const Mox32f a = std::fabs(x), t = a > 1 ? plainReciprocal(a) : a, s = t * t;
  const Mox32f p =
      ((0.008561189286410809f * s + 0.2805045545101166f) * s + 1.1202340126037598f) * s + 1.0f;
  const Mox32f q =
      ((0.049017589539289474f * s + 0.5650309920310974f) * s + 1.4535671472549438f) * s + 1.0f;
  const Mox32f atan = t * p * plainReciprocal(q);
  return std::copysign(a > 1 ? 1.5707963705062866f - atan : atan, x);
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
  return std::copysign(floatOf(bitsOf(p * plainReciprocal(q)) + (third << 23)), x);
}

using Function = MoxStatus (*)(const Mox32f*, Mox32f*, int);

TEST(ElementarySpecial, FormulasHoldToTheBit) {
  SCOPED_TRACE(test::seedNote());
  struct {
    const char* name;
    Function function;
    Mox32f (*plain)(Mox32f);
    bool positive;
    Mox32f limit;
  } const cases[] = {{"exp", moxsExp_32f, plainExp, false, 87.33654022216797f},
                     {"ln", moxsLn_32f, plainLn, true, std::numeric_limits<Mox32f>::max()},
                     {"arctan", moxsArctan_32f, plainArctan, false, 0x1p120f},
                     {"cubrt", moxsCubrt_32f, plainCubrt, false, 0x1.fffffep127f}};
  test::Random random;
  for (const auto& c : cases) {
    const auto draw = [&] {
      for (;;) {
        Mox32f x = random.anyFloat<Mox32f>();
        if (c.positive) x = std::fabs(x);
        if (std::isnormal(x) && std::fabs(x) <= c.limit) return x;
      }
    };
    std::vector<Mox32f> x(100000), y(x.size());
    for (Mox32f& e : x) e = draw();
    ASSERT_EQ(c.function(x.data(), y.data(), int(x.size())), moxOk);
    for (std::size_t i = 0; i < x.size(); ++i)
      ASSERT_EQ(bitsOf(y[i]), bitsOf(c.plain(x[i]))) << c.name << " of " << std::hexfloat << x[i];
  }
}

struct Value {
  Mox32f x, result;
  MoxStatus status = moxOk;
};

bool same(Mox32f a, Mox32f b) { return std::isnan(b) ? std::isnan(a) : bitsOf(a) == bitsOf(b); }

// Each special value at every position of an array that takes head, blocks and tail; the other
// elements keep the results that they have without it.
template <class Call>
void checkEverywhere(const char* name, Call call, const std::vector<Value>& specials) {
  constexpr int len = 45;
  std::vector<Mox32f> plain(len), expected(len);
  for (int i = 0; i < len; ++i) plain[i] = 0.3f + 0.4f * Mox32f(i);
  ASSERT_EQ(call(plain.data(), expected.data(), len), moxOk) << name;
  for (const Value& v : specials)
    for (int at = 0; at < len; ++at) {
      std::vector<Mox32f> x = plain, y(len);
      x[at] = v.x;
      ASSERT_EQ(call(x.data(), y.data(), len), v.status) << name << " of " << v.x << " at " << at;
      ASSERT_TRUE(same(y[at], v.result)) << name << " of " << v.x << " at " << at << ": " << y[at];
      y[at] = expected[at];
      ASSERT_EQ(y, expected) << name << " of " << v.x << " at " << at;
    }
}

MoxStatus inPlace(MoxStatus (*function)(Mox32f*, int), const Mox32f* src, Mox32f* dst, int len) {
  std::copy(src, src + len, dst);
  return function(dst, len);
}

// A function on doubles, with its arguments and results rounded to float.
template <MoxStatus (*function)(const Mox64f*, Mox64f*, int)>
MoxStatus throughDouble(const Mox32f* src, Mox32f* dst, int len) {
  std::vector<Mox64f> x(src, src + len), y(len);
  const MoxStatus status = function(x.data(), y.data(), len);
  for (int i = 0; i < len; ++i) dst[i] = Mox32f(y[i]);
  return status;
}

TEST(ElementarySpecial, SpecialValuesAndWarningsAtEveryPosition) {
  const Mox32f half = 1.5707963705062866f;
  const std::vector<Value> exp = {{infinity, infinity},
                                  {-infinity, 0},
                                  {NAN, NAN},
                                  {0, 1},
                                  {-0.0f, 1},
                                  {200, infinity},
                                  {-200, 0},
                                  {tiny, 1},
                                  {1e30f, infinity},
                                  {-1e30f, 0},
                                  {-103.97208f, tiny},
                                  {-104, 0},
                                  {88.72283f, Mox32f(std::exp(Mox64f(88.72283f)))},
                                  {88.72284f, infinity}};
  const std::vector<Value> ln = {{infinity, infinity},
                                 {NAN, NAN},
                                 {-NAN, NAN},
                                 {1, 0},
                                 {0, -infinity, moxWarnLnZeroArg},
                                 {-0.0f, -infinity, moxWarnLnZeroArg},
                                 {-1, NAN, moxWarnLnNegArg},
                                 {-tiny, NAN, moxWarnLnNegArg},
                                 {-infinity, NAN, moxWarnLnNegArg},
                                 {tiny, -103.27893f},
                                 {0x1.8p-130f, Mox32f(std::log(0x1.8p-130))}};
  const std::vector<Value> arctan = {{infinity, half}, {-infinity, -half}, {NAN, NAN},     {0, 0},
                                     {-0.0f, -0.0f},   {3e38f, half},      {-3e38f, -half}};
  const std::vector<Value> sqrt = {{infinity, infinity},
                                   {NAN, NAN},
                                   {0, 0},
                                   {-0.0f, -0.0f, moxWarnSqrtNegArg},
                                   {-4, NAN, moxWarnSqrtNegArg},
                                   {-infinity, NAN, moxWarnSqrtNegArg},
                                   {4, 2}};
  const std::vector<Value> cubrt = {
      {infinity, infinity}, {-infinity, -infinity}, {NAN, NAN}, {0, 0}, {-0.0f, -0.0f}};
  checkEverywhere("exp", moxsExp_32f, exp);
  checkEverywhere("exp 64f", throughDouble<moxsExp_64f>, exp);
  checkEverywhere("ln", moxsLn_32f, ln);
  checkEverywhere("ln 64f", throughDouble<moxsLn_64f>, ln);
  checkEverywhere(
      "ln in place", [](auto... a) { return inPlace(moxsLn_32f_I, a...); }, ln);
  checkEverywhere("arctan", moxsArctan_32f, arctan);
  checkEverywhere("arctan 64f", throughDouble<moxsArctan_64f>, arctan);
  checkEverywhere("sqrt", moxsSqrt_32f, sqrt);
  checkEverywhere("sqrt 64f", throughDouble<moxsSqrt_64f>, sqrt);
  checkEverywhere("cubrt", moxsCubrt_32f, cubrt);
}

TEST(ElementarySpecial, DoublesBeyondTheRangeOfFloats) {
  const Mox64f x[] = {-745.2, -745.1, 709.782, 709.79, -1e300, 1e300};
  Mox64f y[6];
  ASSERT_EQ(moxsExp_64f(x, y, 6), moxOk);
  EXPECT_EQ(y[0], 0);
  EXPECT_EQ(y[1], 5e-324);
  EXPECT_LT(y[2], HUGE_VAL);
  EXPECT_EQ(y[3], HUGE_VAL);
  EXPECT_EQ(y[4], 0);
  EXPECT_EQ(y[5], HUGE_VAL);
  const Mox32f f[] = {100, -700, infinity, -infinity};
  ASSERT_EQ(moxsExp_32f64f(f, y, 4), moxOk);
  EXPECT_NEAR(y[0] / std::exp(100.0), 1, 1e-15);
  EXPECT_NEAR(y[1] / std::exp(-700.0), 1, 1e-15);
  EXPECT_EQ(y[2], HUGE_VAL);
  EXPECT_EQ(y[3], 0);
  const Mox64f wide[] = {1e300, 5e-324};
  Mox32f narrow[2];
  ASSERT_EQ(moxsLn_64f32f(wide, narrow, 2), moxOk);
  EXPECT_EQ(narrow[0], Mox32f(std::log(1e300)));
  EXPECT_EQ(narrow[1], Mox32f(std::log(5e-324)));
}

TEST(ElementarySpecial, TheRoutineForOneLogarithmServesAllFloats) {
  test::Random random;
  for (int i = 0; i < 200000; ++i) {
    // Near 1, where the table gives way to a series, and anywhere.
    const Mox32f x =
        i % 2 ? Mox32f(1 + random.value<double>() / 64) : std::fabs(random.anyFloat<Mox32f>());
    int code = 0;
    const Mox32f got = mox::lnOfFloat(x, code);
    if (x > 0) {
      ASSERT_LE(test::ulpError(got, std::log((long double)x)), 0.501) << x;
    }
    ASSERT_EQ(code, x == 0 ? mox::lnOfZero : 0);
  }
  for (const Mox32f x : {-1.0f, -infinity}) {
    int code = 0;
    EXPECT_TRUE(std::isnan(mox::lnOfFloat(x, code)));
    EXPECT_EQ(code, 19);
  }
}

TEST(ElementarySpecial, SumsOfLogarithmsWarnAtEveryPosition) {
  for (int len : {1, 16, 37})
    for (int at = 0; at < len; ++at) {
      std::vector<Mox32f> x(len, 2.0f);
      Mox32f sum;
      x[at] = 0;
      EXPECT_EQ(moxsSumLn_32f(x.data(), len, &sum), moxWarnLnZeroArg);
      EXPECT_EQ(sum, -infinity);
      x[at] = -infinity;
      EXPECT_EQ(moxsSumLn_32f(x.data(), len, &sum), moxWarnLnNegArg);
      EXPECT_TRUE(std::isnan(sum));
      x[at] = infinity;
      EXPECT_EQ(moxsSumLn_32f(x.data(), len, &sum), moxOk);
      EXPECT_EQ(sum, infinity);
      std::vector<Mox16s> s(len, 2);
      s[at] = -1;
      EXPECT_EQ(moxsSumLn_16s32f(s.data(), len, &sum), moxWarnLnNegArg);
      EXPECT_TRUE(std::isnan(sum));
      std::vector<Mox64f> d(len, 1.0);
      d[at] = 5e-324;
      Mox64f wide;
      EXPECT_EQ(moxsSumLn_64f(d.data(), len, &wide), moxOk);
      EXPECT_NEAR(wide, std::log(5e-324), 1e-12);
    }
}

template <class E, class F>
void checkSquares(MoxStatus (*function)(const E*, E*, int), F plain) {
  const std::vector<E> x = test::Random().vector<E>(1000);
  std::vector<E> y(x.size());
  ASSERT_EQ(function(x.data(), y.data(), int(x.size())), moxOk);
  for (std::size_t i = 0; i < x.size(); ++i)
    ASSERT_TRUE(std::memcmp(&y[i], std::array{plain(x[i])}.data(), sizeof(E)) == 0) << i;
}

TEST(ElementarySpecial, SquaresOfFloatsAreTheirFormulas) {
  checkSquares(moxsSqr_32f, [](Mox32f x) { return x * x; });
  checkSquares(moxsSqr_64f, [](Mox64f x) { return x * x; });
  const auto complex = [](auto z) {
    return decltype(z){z.re * z.re - z.im * z.im, z.re * z.im + z.im * z.re};
  };
  checkSquares<Mox32fc>(moxsSqr_32fc, complex);
  checkSquares<Mox64fc>(moxsSqr_64fc, complex);
}

TEST(ElementarySpecial, AbsoluteFloatsLoseTheirSignAlone) {
  test::Random random;
  std::vector<Mox32f> x(10000), y(x.size());
  for (Mox32f& e : x) e = random.anyFloat<Mox32f>();
  const std::vector<Mox64f> wide(x.begin(), x.end());
  std::vector<Mox64f> got(wide.size());
  ASSERT_EQ(moxsAbs_32f(x.data(), y.data(), int(x.size())), moxOk);
  ASSERT_EQ(moxsAbs_64f(wide.data(), got.data(), int(wide.size())), moxOk);
  for (std::size_t i = 0; i < x.size(); ++i) {
    ASSERT_EQ(bitsOf(y[i]), bitsOf(x[i]) & 0x7FFFFFFF);
    ASSERT_TRUE(!std::signbit(got[i]) && (got[i] == std::fabs(wide[i]) || std::isnan(wide[i])));
  }
}

TEST(ElementarySpecial, ComplexRootsOfSpecialValues) {
  const double inf = HUGE_VAL;
  const Mox64fc z[] = {{0, 0},         {-0.0, -0.0}, {-4, 0},    {-4, -0.0},
                       {1, inf},       {NAN, -inf},  {inf, -3},  {-inf, -3},
                       {1e308, 1e308}, {5e-324, 0},  {0, 5e-324}};
  const Mox64fc want[] = {{0, 0},     {0, -0.0},   {0, 2},      {0, -2},
                          {inf, inf}, {inf, -inf}, {inf, -0.0}, {0, -inf}};
  Mox64fc got[11];
  ASSERT_EQ(moxsSqrt_64fc(z, got, 11), moxOk);
  for (int i = 0; i < 8; ++i) {
    EXPECT_EQ(got[i].re, want[i].re) << i;
    EXPECT_EQ(got[i].im, want[i].im) << i;
    EXPECT_EQ(std::signbit(got[i].im), std::signbit(want[i].im)) << i;
  }
  EXPECT_NEAR(got[8].re / 1.0986841134678099e154, 1, 1e-15);
  EXPECT_NEAR(got[9].re / std::sqrt(5e-324), 1, 1e-15);
  EXPECT_NEAR(got[10].im / (std::sqrt(5e-324) * std::sqrt(0.5)), 1, 1e-15);
}

TEST(ElementarySpecial, UnmaskedExceptionsDoNotTrapAndStayUnmasked) {
  const unsigned before = _mm_getcsr();
  const Mox32f x[] = {NAN, infinity, -1, 0, tiny, 1e30f, -1e30f, 3};
  Mox32f y[8];
  const unsigned unmasked = (before & ~0x1F80u) & ~0x3Fu;
  for (const Function function : {moxsExp_32f, moxsLn_32f}) {
    _mm_setcsr(unmasked);
    function(x, y, 8);
    const unsigned after = _mm_getcsr();
    _mm_setcsr(before);
    EXPECT_EQ(after, unmasked);
  }
}

}  // namespace
