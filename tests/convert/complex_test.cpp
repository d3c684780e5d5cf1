// Complex vectors: parts, conjugates, and integer magnitudes, phases and polar forms.
#include <deque>

#include "support/exact.h"
#include "support/exact_model.h"
#include "support/members.h"
#include "support/values.h"

namespace {

using namespace test;

Mox16s anyPart(Random& random, Mox16s) {
  return random.below(4) ? random.value<Mox16s>() : Mox16s(-32768);
}
template <std::floating_point F>
F anyPart(Random& random, F) {
  return random.anyFloat<F>();
}
Mox16s negated(Mox16s x) { return Mox16s(std::min(-x, 32767)); }
template <std::floating_point F>
F negated(F x) {
  return std::copysign(x, std::signbit(x) ? F(1) : F(-1));
}

// The long ones have their results stored past the cache.
template <class F, class E>
void expectParts(Member<const E*, F*, int> real, Member<const E*, F*, int> imag,
                 Member<const E*, E*, int> conj, Member<const E*, E*, int> conjFlip,
                 MoxStatus (*apart)(const E*, F*, F*, int),
                 MoxStatus (*together)(const F*, const F*, E*, int)) {
  for (const int len : {1001, 4 << 20}) {
    SCOPED_TRACE(len);
    Random random(1);
    std::vector<F> re(len), im(len), gotRe(len), gotIm(len);
    std::vector<E> z(len), got(len), conjugates(len), onlyRe(len), onlyIm(len), none(len);
    for (int i = 0; i < len; ++i) {
      re[i] = anyPart(random, F()), im[i] = anyPart(random, F());
      z[i] = {re[i], im[i]}, onlyRe[i] = {re[i], 0}, onlyIm[i] = {0, im[i]};
      conjugates[i] = {re[i], negated(im[i])};
    }
    EXPECT_TRUE(sameBits(run(real, z).values, re) && sameBits(run(imag, z).values, im));
    apart(z.data(), gotIm.data(), gotRe.data(), len);
    EXPECT_TRUE(sameBits(gotRe, im) && sameBits(gotIm, re));
    const auto expectTogether = [&](const F* fromRe, const F* fromIm, const std::vector<E>& all) {
      EXPECT_OK(together(fromRe, fromIm, got.data(), len));
      EXPECT_TRUE(sameBits(got, all));
    };
    expectTogether(re.data(), im.data(), z);
    expectTogether(re.data(), nullptr, onlyRe);
    expectTogether(nullptr, im.data(), onlyIm);
    expectTogether(nullptr, nullptr, none);
    EXPECT_TRUE(sameBits(run(conj, z).values, conjugates));
    std::reverse(z.begin(), z.end());
    EXPECT_TRUE(sameBits(run(conjFlip, z).values, conjugates));
  }
}

#define EXPECT_PARTS_OF(t, tc)                                                                \
  expectParts(MEMBER(Real_##tc), MEMBER(Imag_##tc), MEMBER(Conj_##tc), MEMBER(ConjFlip_##tc), \
              moxsCplxToReal_##tc, moxsRealToCplx_##t)

TEST(Complex, PartsAndConjugates) {
  EXPECT_PARTS_OF(16s, 16sc);
  EXPECT_PARTS_OF(32f, 32fc);
  EXPECT_PARTS_OF(64f, 64fc);
}

// Extremes, multiples of right triangles, whose magnitudes are integers that scale to ties, and
// random numbers of all sizes.
template <class E>
std::vector<E> numbersOfAllSizes(long count) {
  using Limits = std::numeric_limits<mox::Part<E>>;
  Random random(2);
  std::vector<E> z = lattice<E>(0);
  const auto add = [&](long re, long im) { z.push_back({mox::Part<E>(re), mox::Part<E>(im)}); };
  for (long i = 0; i < count; ++i) {
    const long k = random.below(long(Limits::max()) / 5) + 1;
    const auto any = [&] { return random.value<mox::Part<E>>() >> random.below(Limits::digits); };
    add(3 * k, -4 * k), add(0, k), add(any(), any());
  }
  return z;
}

void power(mpfr_ptr result, long re, long im) {
  mpfr_set_ui(result, static_cast<unsigned long>(re * re) + static_cast<unsigned long>(im * im),
              MPFR_RNDN);
}
void magnitude(mpfr_ptr result, long re, long im) {
  power(result, re, im);
  mpfr_sqrt(result, result, MPFR_RNDN);
}
void phase(mpfr_ptr result, long re, long im) {
  mpfr_atan2(result, Exact(im, 64), Exact(re, 64), MPFR_RNDN);
}

// Of complex numbers, and of two parts where there is such a form, against the exact value.
template <class E, class T = mox::Part<E>, class... Two>
void expectExact(void (*exactly)(mpfr_ptr, long, long), const std::vector<E>& z,
                 Member<const E*, T*, int, int> member, Two... ofTwo) {
  std::vector<T> re, im;
  std::deque<Exact> exact;
  for (const E& e : z) {
    re.push_back(e.re), im.push_back(e.im);
    exactly(exact.emplace_back(), e.re, e.im);
  }
  forAllFactors([&](int factor) {
    const auto want = [&](std::size_t i) { return scaledExactly<T>(exact[i], factor); };
    expectAt(run(member, z, factor), want);
    (expectAt(run(ofTwo, re, im, factor), want), ...);
  });
}

// Numbers whose magnitude is as near as can be to a tie, (n + 1/2) * 2^factor, without being one.
std::vector<Mox32sc> nearHalves() {
  std::vector<Mox32sc> z;
  // |(n, k)| is n + 1/2 where k^2 is n + 1/4, and for twice that n + 1/2 over 2^-1.
  for (Mox32s k = 20000; k < 21000; ++k)
    for (const Mox32s n : {k * k - k, k * k, k * k + k, k * k + 1}) z.push_back({n, k});
  // With factors -1 and -2.
  for (Mox32s k = 10000; k < 10100; ++k)
    z.push_back({8 * k * k, 2 * k}), z.push_back({-k, 4 * k * k});
  return z;
}

// Numbers whose phase is nearly (2 n + 1) * 2^(factor - 1): fractions in the range of the parts, in
// the expansion of its tangent.
template <class E>
std::vector<E> nearTies(int count) {
  using T = mox::Part<E>;
  Random random(3);
  std::vector<E> z;
  for (int i = 0; i < count; ++i) {
    const long double unit = std::ldexp(1.0L, -int(random.below(8 * sizeof(T) - 2)));
    const long double tie = (std::floor(random.value<double>() / unit / 1.3L) + 0.5L) * unit;
    long double x = std::tan(std::fabs(tie));
    for (long p[2] = {1, 0}, q[2] = {0, 1}; x <= 0x1p31L;) {
      const long whole = long(x), top = whole * p[0] + p[1], bottom = whole * q[0] + q[1];
      if (std::max(top, bottom) > std::numeric_limits<T>::max()) break;
      p[1] = p[0], p[0] = top, q[1] = q[0], q[0] = bottom, x = 1 / (x - whole);
      const T re = T(bottom), im = T(top);
      z.insert(z.end(), {{re, im}, {T(-re), im}, {im, T(-re)}});
    }
  }
  return z;
}

TEST(ComplexIntegers, PowersMagnitudesAndPhases) {
  const auto words = numbersOfAllSizes<Mox16sc>(1000);
  const auto longs = numbersOfAllSizes<Mox32sc>(1000);
  expectExact(power, words, MEMBER(PowerSpectr_16sc_Sfs), MEMBER(PowerSpectr_16s_Sfs));
  expectExact(power, longs, MEMBER(MagSquared_32sc32s_Sfs));
  expectExact(magnitude, words, MEMBER(Magnitude_16sc_Sfs), MEMBER(Magnitude_16s_Sfs));
  expectExact(magnitude, longs, MEMBER(Magnitude_32sc_Sfs));
  expectExact(magnitude, nearHalves(), MEMBER(Magnitude_32sc_Sfs));
  expectExact(phase, words, MEMBER(Phase_16sc_Sfs), MEMBER(Phase_16s_Sfs));
  expectExact(phase, longs, MEMBER(Phase_32sc_Sfs));
  expectExact(phase, nearTies<Mox16sc>(50), MEMBER(Phase_16sc_Sfs));
  expectExact(phase, nearTies<Mox32sc>(100), MEMBER(Phase_32sc_Sfs));
}

// magnitude * cos(phase) or sin(phase), all in units of 2^factor before the one rounding.
template <class T>
T cartesian(decltype(&mpfr_cos) function, T magnitude, T phase, int factor) {
  static Exact value(0, 300), angle(0, 120);
  mpfr_set_si_2exp(angle, phase, factor, MPFR_RNDN);
  function(value, angle, MPFR_RNDN);
  mpfr_mul_si(value, value, magnitude, MPFR_RNDN);
  return scaledExactly<T>(value, -factor);
}

TEST(ComplexIntegers, PolarToCart) {
  auto [magnitudes, phases] =
      allPairs<Mox16s, Mox16s>({-32768, -1, 0, 1, 3, 32767}, {-32768, -22, 0, 11, 355, 32767});
  Random random(4);
  for (int i = 0; i < 1000; ++i) {
    magnitudes.push_back(Mox16s(random.value<Mox16s>() >> random.below(15)));
    phases.push_back(Mox16s(random.value<Mox16s>() >> random.below(15)));
  }
  const auto model = [](int factor) {
    return [factor = std::clamp(factor, -100, 16)](Mox16s m, Mox16s p) {
      return Mox16sc{cartesian(mpfr_cos, m, p, factor), cartesian(mpfr_sin, m, p, factor)};
    };
  };
  for (const int factor :
       {INT_MIN, -101, -64, -32, -21, -20, -17, -16, -15, -14, -13, -10, -8, -5,     -3,
        -2,      -1,   0,   1,   2,   5,   8,   14,  15,  16,  17,  31,  64, INT_MAX}) {
    SCOPED_TRACE(factor);
    expectEach(run(MEMBER(PolarToCart_16sc_Sfs), magnitudes, phases, factor), model(factor));
  }
  expectEach(run(MEMBER(PolarToCart_16sc), magnitudes, phases), model(0));
}

// Among a million results of 31 bits some lie within 2^-20 of a tie.
TEST(ComplexIntegers, LongPolarToCartNearTies) {
  Random random(5);
  const auto m = random.vector<Mox32s>(1 << 20), p = random.vector<Mox32s>(1 << 20);
  const auto got = run(MEMBER(PolarToCart_32sc), m, p).values;
  int ties = 0;
  for (std::size_t i = 0; i < m.size(); ++i) {
    const long double exact = m[i] * std::cos((long double)p[i]);
    const bool isTie = std::fabs(exact - std::rint(exact)) >= 0.499999L;
    ties += isTie;
    ASSERT_EQ(got[i].re, isTie ? cartesian(mpfr_cos, m[i], p[i], 0) : std::lrint(exact))
        << m[i] << " at " << p[i];
  }
  EXPECT_GE(ties, 1);
  // Within 3e-10 of a tie, with angles near an odd multiple of pi, where a series needs most terms.
  const std::vector<Mox32s> magnitudes = {1666211200, 1647687819, 1100494955, 292310135, 988877223},
                            phases = {22, 22, 355, 355, 104348};
  expectEach(run(MEMBER(PolarToCart_32sc), magnitudes, phases), [](Mox32s magnitude, Mox32s phase) {
    return Mox32sc{cartesian(mpfr_cos, magnitude, phase, 0),
                   cartesian(mpfr_sin, magnitude, phase, 0)};
  });
}

// Each output is written whether or not the other can be.
template <class F, class E, class... Factor>
void expectCartToPolar(MoxStatus (*ofOne)(const E*, F*, F*, int, Factor...),
                       Member<const E*, F*, int, Factor...> magnitudes,
                       Member<const E*, F*, int, Factor...> phases, Factor... factor) {
  const int len = 77;
  const auto z = Random(6).vector<E>(len);
  const auto m = run(magnitudes, z, factor...).values, p = run(phases, z, factor...).values;
  std::vector<F> first(len), second(len);
  EXPECT_EQ(ofOne(z.data(), nullptr, second.data(), len, factor...), moxErrNullPtr);
  EXPECT_EQ(ofOne(z.data(), first.data(), nullptr, len, factor...), moxErrNullPtr);
  EXPECT_TRUE(sameBits(first, m) && sameBits(second, p));
}
template <class F>
void expectPartsToPolar(MoxStatus (*ofTwo)(const F*, const F*, F*, F*, int),
                        Member<const F*, const F*, F*, int> magnitudes,
                        Member<const F*, const F*, F*, int> phases) {
  auto re = Random(6).vector<F>(77), im = Random(7).vector<F>(77);
  const auto m = run(magnitudes, re, im).values, p = run(phases, re, im).values;
  EXPECT_OK(ofTwo(re.data(), im.data(), re.data(), im.data(), 77));
  EXPECT_TRUE(sameBits(re, m) && sameBits(im, p));
}

TEST(Complex, CartToPolarIsMagnitudeAndPhase) {
  expectCartToPolar(moxsCartToPolar_32fc, MEMBER(Magnitude_32fc), MEMBER(Phase_32fc));
  expectCartToPolar(moxsCartToPolar_64fc, MEMBER(Magnitude_64fc), MEMBER(Phase_64fc));
  for (const int factor : {-13, -8, 0, 3})
    expectCartToPolar(moxsCartToPolar_16sc_Sfs, MEMBER(Magnitude_16sc_Sfs), MEMBER(Phase_16sc_Sfs),
                      factor);
  expectPartsToPolar(moxsCartToPolar_32f, MEMBER(Magnitude_32f), MEMBER(Phase_32f));
  expectPartsToPolar(moxsCartToPolar_64f, MEMBER(Magnitude_64f), MEMBER(Phase_64f));
}

// The double that comes closest of all to a multiple of pi / 2.
TEST(Polar, TheAngleNextToAQuarterKeepsItsDigits) {
  const Mox64f one = 1, phase = 0x1.6ac5b262ca1ffp+849;
  Mox64fc z;
  ASSERT_OK(moxsPolarToCart_64fc(&one, &phase, &z, 1));
  EXPECT_DOUBLE_EQ(z.re, -4.68716592425462761112e-19);
  EXPECT_EQ(z.im, 1);
}

}  // namespace
