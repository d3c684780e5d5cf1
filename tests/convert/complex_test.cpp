// Complex vectors: parts, conjugates, and integer magnitudes, phases and polar forms.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <moxsp.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <vector>

#include "convert/exact_angle.h"
#include "convert/exact_model.h"
#include "support/exact.h"
#include "support/random.h"

namespace {

const int factors[] = {INT_MIN, -101, -64, -40, -33, -32, -31, -30, -20,    -17, -16,
                       -15,     -14,  -13, -10, -8,  -5,  -3,  -2,  -1,     0,   1,
                       2,       3,    4,   5,   8,   14,  15,  16,  17,     30,  31,
                       32,      33,   34,  62,  63,  64,  65,  101, INT_MAX};

template <class E>
bool sameBits(const std::vector<E>& a, const std::vector<E>& b) {
  return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(E)) == 0;
}

template <class F>
F anyPart(test::Random& random) {
  if constexpr (std::is_floating_point_v<F>)
    return random.anyFloat<F>();
  else
    return random.below(4) ? random.value<F>() : std::numeric_limits<F>::min();
}
template <class E>
std::vector<E> anyNumbers(long len) {
  test::Random random(1);
  std::vector<E> z(len);
  for (E& e : z) {
    e.re = anyPart<mox::Part<E>>(random);
    e.im = anyPart<mox::Part<E>>(random);
  }
  return z;
}

// Lengths with and without whole blocks; the last has its results stored past the cache.
constexpr int lengths[] = {1, 15, 67, 1001, 4 << 20};

template <class F, class E>
struct PartFunctions {
  MoxStatus (*real)(const E*, F*, int);
  MoxStatus (*imag)(const E*, F*, int);
  MoxStatus (*apart)(const E*, F*, F*, int);
  MoxStatus (*together)(const F*, const F*, E*, int);
  MoxStatus (*conj)(const E*, E*, int);
  MoxStatus (*conjInPlace)(E*, int);
  MoxStatus (*conjFlip)(const E*, E*, int);
};

template <class E>
E conjugate(E z) {
  using F = mox::Part<E>;
  if constexpr (std::is_floating_point_v<F>)
    return {z.re, std::copysign(z.im, std::signbit(z.im) ? F(1) : F(-1))};
  else
    return {z.re, F(test::saturated(-test::Int128(z.im), test::rangeOf<F>))};
}

template <class F, class E>
void checkParts(const PartFunctions<F, E>& f) {
  for (const int len : lengths) {
    SCOPED_TRACE(testing::Message() << len << " numbers");
    const auto z = anyNumbers<E>(len);
    std::vector<F> re(len), im(len), zeros(len), gotRe(len), gotIm(len);
    std::vector<E> conj(len), flipped(len), got(len), onlyRe(len), onlyIm(len);
    for (int i = 0; i < len; ++i) {
      re[i] = z[i].re, im[i] = z[i].im;
      conj[i] = flipped[len - 1 - i] = conjugate(z[i]);
      onlyRe[i] = {z[i].re, 0}, onlyIm[i] = {0, z[i].im};
    }
    f.real(z.data(), gotRe.data(), len), f.imag(z.data(), gotIm.data(), len);
    EXPECT_TRUE(sameBits(gotRe, re) && sameBits(gotIm, im));
    f.apart(z.data(), gotIm.data(), gotRe.data(), len);
    EXPECT_TRUE(sameBits(gotRe, im) && sameBits(gotIm, re));
    f.together(re.data(), im.data(), got.data(), len);
    EXPECT_TRUE(sameBits(got, z));
    f.together(re.data(), nullptr, got.data(), len);
    EXPECT_TRUE(sameBits(got, onlyRe));
    f.together(nullptr, im.data(), got.data(), len);
    EXPECT_TRUE(sameBits(got, onlyIm));
    EXPECT_EQ(f.together(nullptr, nullptr, got.data(), len), moxOk);
    EXPECT_TRUE(sameBits(got, std::vector<E>(len)));
    EXPECT_EQ(f.together(nullptr, nullptr, got.data(), 0), moxErrSize);
    f.conj(z.data(), got.data(), len);
    EXPECT_TRUE(sameBits(got, conj));
    got = z;
    f.conjInPlace(got.data(), len);
    EXPECT_TRUE(sameBits(got, conj));
    f.conjFlip(z.data(), got.data(), len);
    EXPECT_TRUE(sameBits(got, flipped));
    got = z;
    f.conjFlip(got.data(), got.data(), len);
    EXPECT_TRUE(sameBits(got, flipped));
  }
}

TEST(Complex, PartsAndConjugates) {
  checkParts<Mox16s, Mox16sc>({moxsReal_16sc, moxsImag_16sc, moxsCplxToReal_16sc,
                               moxsRealToCplx_16s, moxsConj_16sc, moxsConj_16sc_I,
                               moxsConjFlip_16sc});
  checkParts<Mox32f, Mox32fc>({moxsReal_32fc, moxsImag_32fc, moxsCplxToReal_32fc,
                               moxsRealToCplx_32f, moxsConj_32fc, moxsConj_32fc_I,
                               moxsConjFlip_32fc});
  checkParts<Mox64f, Mox64fc>({moxsReal_64fc, moxsImag_64fc, moxsCplxToReal_64fc,
                               moxsRealToCplx_64f, moxsConj_64fc, moxsConj_64fc_I,
                               moxsConjFlip_64fc});
}

// Extremes, multiples of right triangles, whose magnitudes are integers that scale to ties, and
// random numbers of all sizes.
template <class E>
std::vector<E> numbersOfAllSizes(long count) {
  using T = mox::Part<E>;
  test::Random random(2);
  std::vector<E> z;
  const T extremes[] = {
      std::numeric_limits<T>::min(), T(std::numeric_limits<T>::min() + 1), -1, 0, 1,
      std::numeric_limits<T>::max()};
  for (const T x : extremes)
    for (const T y : extremes) z.push_back({x, y});
  for (long i = 0; i < count; ++i) {
    const int digits = std::numeric_limits<T>::digits;
    const T k = T(random.below(long(std::numeric_limits<T>::max()) / 5) + 1);
    z.push_back({T(3 * k), T(-4 * k)});
    z.push_back({0, k});
    z.push_back({T(random.value<T>() >> random.below(digits)),
                 T(random.value<T>() >> random.below(digits))});
  }
  return z;
}

template <class E>
struct ScaledFunctions {
  using T = mox::Part<E>;
  MoxStatus (*ofOne)(const E*, T*, int, int);
  MoxStatus (*ofTwo)(const T*, const T*, T*, int, int);  // or null
};

using ExactValue = void (*)(mpfr_ptr result, long re, long im);

void power(mpfr_ptr result, long re, long im) {
  mpfr_set_ui(result, static_cast<unsigned long>(re * re) + static_cast<unsigned long>(im * im),
              MPFR_RNDN);
}
void magnitude(mpfr_ptr result, long re, long im) {
  power(result, re, im);
  mpfr_sqrt(result, result, MPFR_RNDN);
}
void phase(mpfr_ptr result, long re, long im) {
  static test::Exact x(64);
  mpfr_set_si(x.get(), re, MPFR_RNDN);
  mpfr_set_si(result, im, MPFR_RNDN);
  mpfr_atan2(result, result, x.get(), MPFR_RNDN);
}

// Both forms, with all factors, against the exact value.
template <class E>
void expectScaled(const ScaledFunctions<E>& f, const std::vector<E>& z, ExactValue exact) {
  using T = mox::Part<E>;
  const int len = int(z.size());
  std::vector<T> re, im, ofTwo(len);
  for (const E& e : z) re.push_back(e.re), im.push_back(e.im);
  std::vector<std::vector<T>> got;
  for (const int factor : factors) {
    got.emplace_back(len);
    ASSERT_EQ(f.ofOne(z.data(), got.back().data(), len, factor), moxOk);
    if (!f.ofTwo) continue;
    ASSERT_EQ(f.ofTwo(re.data(), im.data(), ofTwo.data(), len, factor), moxOk);
    ASSERT_EQ(ofTwo, got.back()) << "with factor " << factor;
  }
  test::Exact value(200);
  for (int i = 0; i < len; ++i) {
    exact(value.get(), re[i], im[i]);
    for (std::size_t k = 0; k < got.size(); ++k)
      ASSERT_EQ(got[k][i], test::scaledExactly<T>(value.get(), factors[k]))
          << re[i] << ", " << im[i] << " with factor " << factors[k] << "; " << test::seedNote();
  }
}

TEST(ComplexIntegers, Powers) {
  expectScaled<Mox16sc>({moxsPowerSpectr_16sc_Sfs, moxsPowerSpectr_16s_Sfs},
                        numbersOfAllSizes<Mox16sc>(1000), power);
  expectScaled<Mox32sc>({moxsMagSquared_32sc32s_Sfs, nullptr}, numbersOfAllSizes<Mox32sc>(1000),
                        power);
}

// Numbers whose magnitude is as near as can be to a tie, (n + 1/2) * 2^factor, without being one.
std::vector<Mox32sc> nearHalves() {
  std::vector<Mox32sc> z;
  for (long n = 1000000000; n < 1000002000; ++n) {
    // |(n, k)| is n + 1/2 where k^2 is n + 1/4, and for twice that n + 1/2 over 2^-1.
    const long k = std::lrint(std::sqrt(double(n)));
    z.push_back({Mox32s(n), Mox32s(k)});
    z.push_back({Mox32s(k), Mox32s(-n)});
  }
  for (long k = 20000; k < 21000; ++k) {
    z.push_back({Mox32s(k * k - k), Mox32s(k)}), z.push_back({Mox32s(k * k), Mox32s(k)});
    z.push_back({Mox32s(k * k + k), Mox32s(k)}), z.push_back({Mox32s(k), Mox32s(k * k + 1)});
  }
  return z;
}

TEST(ComplexIntegers, Magnitudes) {
  expectScaled<Mox16sc>({moxsMagnitude_16sc_Sfs, moxsMagnitude_16s_Sfs},
                        numbersOfAllSizes<Mox16sc>(1000), magnitude);
  expectScaled<Mox32sc>({moxsMagnitude_32sc_Sfs, nullptr}, numbersOfAllSizes<Mox32sc>(1000),
                        magnitude);
  expectScaled<Mox32sc>({moxsMagnitude_32sc_Sfs, nullptr}, nearHalves(), magnitude);
}

// Numbers whose phase is nearly (2 n + 1) * 2^(factor - 1): the last fraction before 2^31 in the
// expansion of its tangent.
template <class T>
std::vector<std::pair<T, T>> convergents(long double tangent) {
  std::vector<std::pair<T, T>> found;
  long p[2] = {1, 0}, q[2] = {0, 1};
  for (long double x = tangent;;) {
    const long whole = long(std::floor(x)), top = whole * p[0] + p[1], bottom = whole * q[0] + q[1];
    if (std::max(top, bottom) > std::numeric_limits<T>::max()) return found;
    p[1] = p[0], p[0] = top, q[1] = q[0], q[0] = bottom;
    found.push_back({T(bottom), T(top)});
    if (x == whole) return found;
    x = 1 / (x - whole);
    if (x > 0x1p31L) return found;
  }
}
template <class E>
std::vector<E> nearTies(int count) {
  using T = mox::Part<E>;
  test::Random random(3);
  std::vector<E> z;
  for (int i = 0; i < count; ++i) {
    const int digits = std::numeric_limits<T>::digits;
    const long double unit = std::ldexp(1.0L, -int(random.below(digits - 1)));
    const long double tie =
        (std::floor((long double)random.value<double>() / unit / 1.3L) + 0.5L) * unit;
    for (const auto& [re, im] : convergents<T>(std::tan(std::fabs(tie)))) {
      z.push_back({re, im}), z.push_back({T(-re), im}), z.push_back({im, T(-re)});
    }
  }
  return z;
}

TEST(ComplexIntegers, Phases) {
  expectScaled<Mox16sc>({moxsPhase_16sc_Sfs, moxsPhase_16s_Sfs}, numbersOfAllSizes<Mox16sc>(300),
                        phase);
  expectScaled<Mox32sc>({moxsPhase_32sc_Sfs, nullptr}, numbersOfAllSizes<Mox32sc>(300), phase);
  expectScaled<Mox16sc>({moxsPhase_16sc_Sfs, nullptr}, nearTies<Mox16sc>(50), phase);
  expectScaled<Mox32sc>({moxsPhase_32sc_Sfs, nullptr}, nearTies<Mox32sc>(100), phase);
}

// magnitude * cos(phase) or sin(phase), all in units of 2^factor before the one rounding.
template <class T>
T cartesianExactly(decltype(&mpfr_cos) function, T magnitude, T phase, int factor) {
  static test::Exact value(300), angle(120);
  mpfr_set_si_2exp(angle.get(), phase, factor, MPFR_RNDN);
  function(value.get(), angle.get(), MPFR_RNDN);
  mpfr_mul_si(value.get(), value.get(), magnitude, MPFR_RNDN);
  return test::scaledExactly<T>(value.get(), -factor);
}

TEST(ComplexIntegers, PolarToCart) {
  test::Random random(4);
  std::vector<Mox16s> magnitude, phase;
  for (const Mox16s m : {-32768, -1, 0, 1, 3, 32767})
    for (const Mox16s p : {-32768, -22, 0, 11, 355, 32767})
      magnitude.push_back(m), phase.push_back(p);
  for (int i = 0; i < 1000; ++i) {
    magnitude.push_back(Mox16s(random.value<Mox16s>() >> random.below(15)));
    phase.push_back(Mox16s(random.value<Mox16s>() >> random.below(15)));
  }
  const int len = int(magnitude.size());
  std::vector<Mox16sc> got(len);
  for (const int factor : factors) {
    moxsPolarToCart_16sc_Sfs(magnitude.data(), phase.data(), got.data(), len, factor);
    const int counted = std::min(std::max(factor, -100), 16);
    for (int i = 0; i < len; ++i) {
      ASSERT_EQ(got[i].re, cartesianExactly(mpfr_cos, magnitude[i], phase[i], counted))
          << magnitude[i] << " at " << phase[i] << " with factor " << factor;
      ASSERT_EQ(got[i].im, cartesianExactly(mpfr_sin, magnitude[i], phase[i], counted))
          << magnitude[i] << " at " << phase[i] << " with factor " << factor;
    }
  }
  std::vector<Mox16sc> unscaled(len);
  moxsPolarToCart_16sc(magnitude.data(), phase.data(), got.data(), len);
  moxsPolarToCart_16sc_Sfs(magnitude.data(), phase.data(), unscaled.data(), len, 0);
  EXPECT_TRUE(sameBits(got, unscaled));
}

// Among a million results of 31 bits some lie within 2^-20 of a tie.
TEST(ComplexIntegers, LongPolarToCartNearTies) {
  constexpr int len = 1 << 20;
  test::Random random(5);
  const auto magnitude = random.vector<Mox32s>(len), phase = random.vector<Mox32s>(len);
  std::vector<Mox32sc> got(len);
  moxsPolarToCart_32sc(magnitude.data(), phase.data(), got.data(), len);
  int ties = 0;
  for (int i = 0; i < len; ++i) {
    const long double exact = magnitude[i] * std::cos((long double)phase[i]);
    const long double rest = std::fabs(exact - std::rint(exact));
    if (rest < 0.499999L) {
      ASSERT_EQ(got[i].re, std::lrint(exact)) << magnitude[i] << " at " << phase[i];
    } else {
      ++ties;
      ASSERT_EQ(got[i].re, cartesianExactly(mpfr_cos, magnitude[i], phase[i], 0))
          << magnitude[i] << " at " << phase[i];
    }
  }
  EXPECT_GE(ties, 1);
}

// Of factors with which hardly any result comes so near to a tie that it is asked for.
TEST(ComplexIntegers, TiesOfCoordinates) {
  test::Random random(7);
  test::Exact value(300), angle(120), tie(120);
  for (int i = 0; i < 20000; ++i) {
    const int factor = int(random.below(37)) - 20, m = random.value<Mox16s>(),
              p = random.value<Mox16s>();
    mpfr_set_si_2exp(angle.get(), p, factor, MPFR_RNDN);
    (i % 2 ? mpfr_sin : mpfr_cos)(value.get(), angle.get(), MPFR_RNDN);
    mpfr_mul_si(value.get(), value.get(), m, MPFR_RNDN);
    mpfr_mul_2si(value.get(), value.get(), factor, MPFR_RNDN);
    mpfr_abs(value.get(), value.get(), MPFR_RNDN);
    for (const long offset : {-1, 0, 1}) {
      const long n = std::max(0L, mpfr_get_si(value.get(), MPFR_RNDD) + offset);
      mpfr_set_si_2exp(tie.get(), 2 * n + 1, -1, MPFR_RNDN);
      const auto coordinate = i % 2 ? mox::Coordinate::im : mox::Coordinate::re;
      ASSERT_EQ(mox::isCoordinateAboveTie(coordinate, m, p, factor, n),
                mpfr_greater_p(value.get(), tie.get()) != 0)
          << m << " at " << p << " with factor " << factor << ", from " << n;
    }
  }
}

TEST(ComplexIntegers, PolarToCartUndoesCartToPolar) {
  for (int factor = -13; factor <= -8; ++factor) {
    const int limit = 32768 >> -factor;
    std::vector<Mox16sc> z;
    for (int re = -limit; re <= limit; ++re)
      for (int im = -limit; im <= limit; ++im)
        if (std::hypot(re, im) <= std::ldexp(32767.0, factor))
          z.push_back({Mox16s(re), Mox16s(im)});
    const int len = int(z.size());
    std::vector<Mox16s> magnitude(len), phase(len), alone(len);
    std::vector<Mox16sc> back(len);
    moxsCartToPolar_16sc_Sfs(z.data(), magnitude.data(), phase.data(), len, factor);
    moxsPolarToCart_16sc_Sfs(magnitude.data(), phase.data(), back.data(), len, factor);
    EXPECT_TRUE(sameBits(back, z)) << "with factor " << factor;
    moxsMagnitude_16sc_Sfs(z.data(), alone.data(), len, factor);
    EXPECT_EQ(magnitude, alone);
    moxsPhase_16sc_Sfs(z.data(), alone.data(), len, factor);
    EXPECT_EQ(phase, alone);
  }
  const Mox16sc z = {20, -15};
  Mox16s magnitude, phase;
  moxsCartToPolar_16sc_Sfs(&z, &magnitude, &phase, 1, -10);
  EXPECT_EQ(magnitude, 25600);
  EXPECT_EQ(phase, -659);
}

// Each output is written whether or not the other can be, and onto a source too.
template <class F, class E>
void checkCartToPolar(MoxStatus (*ofOne)(const E*, F*, F*, int),
                      MoxStatus (*ofTwo)(const F*, const F*, F*, F*, int),
                      MoxStatus (*magnitude)(const E*, F*, int),
                      MoxStatus (*phase)(const E*, F*, int)) {
  test::Random random(6);
  const int len = 77;
  const auto z = random.vector<E>(len);
  std::vector<F> wantedMagnitude(len), wantedPhase(len), first(len), second(len);
  magnitude(z.data(), wantedMagnitude.data(), len);
  phase(z.data(), wantedPhase.data(), len);
  const auto expectBoth = [&] {
    EXPECT_TRUE(sameBits(first, wantedMagnitude) && sameBits(second, wantedPhase));
    std::fill(first.begin(), first.end(), F(9)), std::fill(second.begin(), second.end(), F(9));
  };
  EXPECT_EQ(ofOne(z.data(), first.data(), second.data(), len), moxOk);
  expectBoth();
  EXPECT_EQ(ofOne(z.data(), nullptr, second.data(), len), moxErrNullPtr);
  EXPECT_EQ(ofOne(z.data(), first.data(), nullptr, len), moxErrNullPtr);
  expectBoth();
  EXPECT_EQ(ofOne(z.data(), nullptr, second.data(), 0), moxErrNullPtr);
  EXPECT_EQ(second[0], F(9));
  for (int i = 0; i < len; ++i) first[i] = z[i].re, second[i] = z[i].im;
  EXPECT_EQ(ofTwo(first.data(), second.data(), first.data(), second.data(), len), moxOk);
  expectBoth();
}

TEST(Complex, CartToPolarIsMagnitudeAndPhase) {
  checkCartToPolar(moxsCartToPolar_32fc, moxsCartToPolar_32f, moxsMagnitude_32fc, moxsPhase_32fc);
  checkCartToPolar(moxsCartToPolar_64fc, moxsCartToPolar_64f, moxsMagnitude_64fc, moxsPhase_64fc);
}

}  // namespace
