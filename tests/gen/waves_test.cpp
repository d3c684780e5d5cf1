// Tones against the cosine and triangles against their recursion, in long double.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <cmath>

#include "support/members.h"
#include "support/random.h"

namespace {

using namespace test;
using L = long double;

constexpr L pi = 3.14159265358979323846264338327950288L;
constexpr Mox64f twoPi = 6.283185307179586;

// What a result may be off: by the bound in units of `magn`, and by rounding.
template <class F>
L allowed(L bound, L magn, L exact) {
  if (std::is_integral_v<F>) return 0.5L + bound * magn;
  return bound * magn + std::fabs(exact) * std::numeric_limits<F>::epsilon();
}

template <class E, class M, class P>
void expectTone(Member<E*, int, M, P, P*, int> tone, int hint, double rFreq, double start,
                int len) {
  using F = mox::Part<E>;
  constexpr int parts = mox::partsPerElement<E>;
  const M magn = 30000;
  P phase = P(start);
  const L first = phase, step = Mox64f(P(rFreq)) * twoPi;
  std::vector<E> dst(len);
  ASSERT_EQ(tone.function(dst.data(), len, magn, P(rFreq), &phase, hint), moxOk) << tone.name;
  const auto* x = mox::parts(dst.data());
  const bool isFast = hint == moxHintFast && sizeof(P) == 4;
  for (long i = 0; i<len; i += len> 100000 ? 101 : 1) {
    const L angle = i * step + first, bound = isFast ? 4e-7L : 1e-14L + 4e-19L * i;
    const L exact[] = {magn * std::cos(angle), magn * std::sin(angle)};
    for (int part = 0; part < parts; ++part)
      ASSERT_LE(std::fabs(x[parts * i + part] - exact[part]), allowed<F>(bound, magn, exact[part]))
          << tone.name << " hint " << hint << " f " << rFreq << " at " << i << " of " << len;
  }
  // The rest of whole turns, as told, to the rounding of the large angle and of the type.
  const L next = step * len + first, off = std::remainder(phase - next, 2 * pi);
  EXPECT_LE(std::fabs(off), next * 0x1p-51L + 8 * std::numeric_limits<P>::epsilon()) << tone.name;
  EXPECT_TRUE(phase >= 0 && phase < twoPi) << tone.name;
}

void expectTones(int hint, double rFreq, double phase, int len) {
  expectTone(MEMBER(Tone_Direct_16s), hint, rFreq, phase, len);
  expectTone(MEMBER(Tone_Direct_16sc), hint, rFreq, phase, len);
  expectTone(MEMBER(Tone_Direct_32f), hint, rFreq, phase, len);
  expectTone(MEMBER(Tone_Direct_32fc), hint, rFreq, phase, len);
  expectTone(MEMBER(Tone_Direct_64f), hint, rFreq, phase, len);
  expectTone(MEMBER(Tone_Direct_64fc), hint, rFreq, phase, len);
}

TEST(Tone, IsTheCosineOfItsPhase) {
  for (const int hint : {moxHintFast, moxHintAccurate})
    for (const double rFreq : {0.0, 1e-6, 0.01, 0.23456, 0.25, 0.4999}) {
      for (const int len : {1, 15, 16, 17, 1023, 1024, 1041, 20000})
        expectTones(hint, rFreq, 0.1 * len - std::floor(0.1 * len / twoPi) * twoPi, len);
    }
  expectTones(moxHintAccurate, 0.1234, 6, 10000000);
  expectTones(moxHintFast, 1e-5, 0, 10000000);
}

// The recursion by which the wave is defined: sample by sample, reflected at both ends.
std::vector<L> triangle(const L magn, L rFreq, L asym, L phase, int len) {
  const L a = pi + asym, b = pi - asym, h = magn * 4 * pi;
  const L fall = -(rFreq * h) / a, rise = rFreq * h / b;
  bool falls = phase < a;
  L x = falls ? magn * (1 - 2 * phase / a) : magn * ((phase - a) * 2 / b - 1);
  std::vector<L> all;
  for (int i = 0; i < len; ++i) {
    all.push_back(x);
    x += falls ? fall : rise;
    if (!falls && x > magn) {
      const L r = (magn + magn * b / a) - x * b / a;
      if (r >= -magn)
        x = r, falls = true;
      else
        x -= h / b;
    } else if (falls && x < -magn) {
      const L r = (-magn * a / b - magn) - x * a / b;
      if (r <= magn)
        x = r, falls = false;
      else
        x += h / a;
    }
  }
  return all;
}

template <class E, class M, class P>
void expectTriangle(Member<E*, int, M, P, P, P*> member, double rFreq, double asym, double start) {
  using F = mox::Part<E>;
  constexpr int parts = mox::partsPerElement<E>, len = 3000;
  const M magn = 30000;
  P phase = P(start);
  // The asymmetry, the phase and the step are those that the function sees.
  const L first = phase, skew = P(asym), freq = Mox64f(P(rFreq)) * twoPi / (2 * pi);
  const L later = std::fmod(first + 1.5L * pi, 2 * pi);
  const std::vector<L> exact[] = {triangle(magn, freq, skew, first, len),
                                  triangle(magn, freq, skew, later, len)};
  std::vector<E> dst(len);
  ASSERT_EQ(member.function(dst.data(), len, magn, P(rFreq), P(asym), &phase), moxOk);
  const auto* x = mox::parts(dst.data());
  const L bound = 1e-14L + 1e-12L * (2 / (pi + skew) + 2 / (pi - skew));
  for (int i = 0; i < parts * len; ++i) {
    const L want = exact[i % parts][std::size_t(i / parts)];
    ASSERT_LE(std::fabs(x[i] - want), allowed<F>(bound, magn, want))
        << member.name << " asym " << asym << " f " << rFreq << " at " << i / parts;
  }
  const L next = freq * 2 * pi * len + first, off = std::remainder(phase - next, 2 * pi);
  EXPECT_LE(std::fabs(off), next * 0x1p-51L + 8 * std::numeric_limits<P>::epsilon());
}

TEST(Triangle, FollowsItsRecursionAtEveryAsymmetry) {
  for (double asym = -3.14; asym < 3.1415; asym += 0.08)
    for (const double rFreq : {0.0, 0.00173, 0.0917, 0.4871}) {
      const double phase = std::fmod(std::fabs(asym) * 2 + rFreq, twoPi);
      expectTriangle(MEMBER(Triangle_Direct_16s), rFreq, asym, phase);
      expectTriangle(MEMBER(Triangle_Direct_16sc), rFreq, asym, phase);
      expectTriangle(MEMBER(Triangle_Direct_32f), rFreq, asym, phase);
      expectTriangle(MEMBER(Triangle_Direct_32fc), rFreq, asym, phase);
      expectTriangle(MEMBER(Triangle_Direct_64f), rFreq, asym, phase);
      expectTriangle(MEMBER(Triangle_Direct_64fc), rFreq, asym, phase);
    }
}

// Without a fall: a saw tooth that starts at its lowest point.
TEST(Triangle, RisesOnlyAtTheLeastAsymmetry) {
  Mox64f x[5], phase = 0;
  ASSERT_EQ(moxsTriangle_Direct_64f(x, 5, 1, 0.25, -twoPi / 2, &phase), moxOk);
  for (int i = 0; i < 5; ++i) EXPECT_NEAR(x[i], i % 4 * 0.5 - 1, 1e-15) << i;
}

struct Q15 {
  Mox16s magn, rFreq;
  int phase, asym;
};
const Q15 q15Waves[] = {{32767, 0, 0, 0},
                        {1, 16383, 205886, -102943},
                        {30000, 5, 100000, 102943},
                        {32767, 7777, 3, 50000}};

// One call, an object in pieces, and the models.
TEST(Q15, WavesAreThoseOfTheirParametersInAnyPieces) {
  constexpr int len = 70000;
  Random random;
  for (const auto& [magn, rFreq, phase, asym] : q15Waves) {
    std::vector<Mox16s> tone(len), wave(len), tonePieces(len), wavePieces(len);
    MoxToneState* t;
    MoxTriangleState* w;
    ASSERT_EQ(moxsToneInitAllocQ15_16s(&t, magn, rFreq, phase), moxOk);
    ASSERT_EQ(moxsTriangleInitAllocQ15_16s(&w, magn, rFreq, phase, asym), moxOk);
    for (int at = 0, piece; at < len; at += piece) {
      piece = int(std::min(1 + random.below(3000), long(len - at)));
      moxsToneQ15_16s(&tonePieces[at], piece, t);
      moxsTriangleQ15_16s(&wavePieces[at], piece, w);
    }
    moxsToneFree(t), moxsTriangleFree(w);
    ASSERT_EQ(moxsToneQ15_Direct_16s(tone.data(), len, magn, rFreq, phase), moxOk);
    ASSERT_EQ(moxsTriangleQ15_Direct_16s(wave.data(), len, magn, rFreq, phase, asym), moxOk);
    const L unit = 0x1p-15L, freq = twoPi * (rFreq * 0x1p-15) / (2 * pi);
    const auto exact = triangle(magn, freq, asym * unit, phase * unit, len);
    for (int i = 0; i < len; ++i) {
      const L cosine = magn * std::cos(2 * pi * freq * i + phase * unit);
      ASSERT_LE(std::fabs(tone[i] - cosine), 0.5L + 1e-6L) << rFreq << ' ' << i;
      ASSERT_LE(std::fabs(wave[i] - exact[std::size_t(i)]), 0.5L + 1e-2L) << rFreq << ' ' << i;
    }
    const auto differences = [](const auto& a, const auto& b) {
      int count = 0;
      for (std::size_t i = 0; i < a.size(); ++i) count += a[i] != b[i];
      return count;
    };
    EXPECT_LE(differences(tone, tonePieces), 1) << rFreq << seedNote();
    EXPECT_LE(differences(wave, wavePieces), 1) << rFreq << seedNote();
  }
}

TEST(Waves, RefusePhasesOutOfRangeBeforeArrays) {
  for (const double bad : {-1e-9, twoPi, 7.0, double(NAN)}) {
    Mox64f phase = bad;
    Mox32f single = Mox32f(bad);
    EXPECT_EQ(moxsTone_Direct_64f(nullptr, 0, 1, 0, &phase, 0), moxErrTonePhase);
    EXPECT_EQ(moxsTriangle_Direct_32f(nullptr, 0, 1, 0, 0, &single), moxErrTrianglePhase);
    EXPECT_TRUE(same(phase, bad));
  }
}

}  // namespace
