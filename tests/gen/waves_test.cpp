// Tones and triangles against their formulas, in long double.
#include "support/members.h"
#include "support/windows.h"

namespace {

using namespace test;
using L = long double;

constexpr Mox64f twoPi = 6.283185307179586;

// From 1 at the angle 0 to -1 at pi + asym, and back.
L triangle(L angle, L asym) {
  const L t = angle - 2 * pi * std::floor(angle / (2 * pi)), foot = pi + asym;
  return t < foot ? 1 - 2 * t / foot : 2 * (t - foot) / (pi - asym) - 1;
}

// Runs call(dst, magn, rFreq, phase) and expects shape(angle), for imaginary parts a quarter of a
// turn later, within bound(i) and rounding; then the phase behind the last sample.
template <class E, class M, class P, class Shape, class Bound, class Call>
void expectWave(P rFreq, P start, int len, Shape shape, Bound bound, Call call) {
  using F = mox::Part<E>;
  constexpr int parts = mox::partsPerElement<E>;
  constexpr M magn = 30000;
  SCOPED_TRACE(testing::Message() << "frequency " << rFreq << " from " << start << ", " << len);
  P phase = start;
  std::vector<E> dst(len);
  ASSERT_OK(call(dst.data(), magn, rFreq, &phase));
  const auto* x = mox::parts(dst.data());
  const L step = Mox64f(rFreq) * twoPi;
  for (long i = 0; i<len; i += len> 100000 ? 101 : 1)
    for (int part = 0; part < parts; ++part) {
      const L exact = magn * shape(i * step + start - part * pi / 2);
      const L rounding =
          std::is_integral_v<F> ? 0.5L : std::fabs(exact) * std::numeric_limits<F>::epsilon();
      ASSERT_LE(std::fabs(x[parts * i + part] - exact), bound(i) * magn + rounding) << i;
    }
  // The rest of whole turns, as told, to the rounding of the large angle and of the type.
  const L next = step * len + start, off = std::remainder(phase - next, 2 * pi);
  EXPECT_LE(std::fabs(off), next * 0x1p-51L + 8 * std::numeric_limits<P>::epsilon());
  EXPECT_TRUE(phase >= 0 && phase < twoPi);
}

#define FOR_ALL_TYPES(check, family, ...)    \
  check(MEMBER(family##_16s), __VA_ARGS__);  \
  check(MEMBER(family##_16sc), __VA_ARGS__); \
  check(MEMBER(family##_32f), __VA_ARGS__);  \
  check(MEMBER(family##_32fc), __VA_ARGS__); \
  check(MEMBER(family##_64f), __VA_ARGS__);  \
  check(MEMBER(family##_64fc), __VA_ARGS__)

template <class E, class M, class P>
void expectTone(Member<E*, int, M, P, P*, int> tone, int hint, double rFreq, double start,
                int len) {
  SCOPED_TRACE(testing::Message() << tone.name << ", hint " << hint);
  const bool isFast = hint == moxHintFast && sizeof(P) == 4;
  expectWave<E, M>(
      P(rFreq), P(start), len, [](L angle) { return std::cos(angle); },
      [=](long i) { return isFast ? 4e-7L : 1e-14L + 4e-19L * i; },
      [=](E* dst, M magn, P freq, P* phase) {
        return tone.function(dst, len, magn, freq, phase, hint);
      });
}

TEST(Tone, IsTheCosineOfItsPhase) {
  for (const int hint : {moxHintFast, moxHintAccurate})
    for (const double rFreq : {0.0, 1e-6, 0.01, 0.23456, 0.25, 0.4999})
      for (const int len : {1, 15, 16, 17, 1023, 1024, 1041, 20000}) {
        const double phase = std::fmod(0.1 * len, twoPi);
        FOR_ALL_TYPES(expectTone, Tone_Direct, hint, rFreq, phase, len);
      }
  FOR_ALL_TYPES(expectTone, Tone_Direct, moxHintAccurate, 0.1234, 6, 10000000);
  FOR_ALL_TYPES(expectTone, Tone_Direct, moxHintFast, 1e-5, 0, 10000000);
}

template <class E, class M, class P>
void expectTriangle(Member<E*, int, M, P, P, P*> wave, double rFreq, double asymmetry,
                    double start) {
  SCOPED_TRACE(testing::Message() << wave.name << ", asymmetry " << asymmetry);
  constexpr int len = 3000;
  const P asym = P(asymmetry);
  expectWave<E, M>(
      P(rFreq), P(start), len, [=](L angle) { return triangle(angle, asym); },
      [=](long) { return 1e-14L + 1e-12L * (2 / (pi + asym) + 2 / (pi - asym)); },
      [=](E* dst, M magn, P freq, P* phase) {
        return wave.function(dst, len, magn, freq, asym, phase);
      });
}

TEST(Triangle, FallsAndRisesAtEveryAsymmetry) {
  for (double asym = -3.14; asym < 3.1415; asym += 0.08)
    for (const double rFreq : {0.0, 0.00173, 0.0917, 0.4871}) {
      const double phase = std::fmod(std::fabs(asym) * 2 + rFreq, twoPi);
      FOR_ALL_TYPES(expectTriangle, Triangle_Direct, rFreq, asym, phase);
    }
}

// Without a fall: a saw tooth that starts at its lowest point.
TEST(Triangle, RisesOnlyAtTheLeastAsymmetry) {
  Mox64f x[5], phase = 0;
  ASSERT_OK(moxsTriangle_Direct_64f(x, 5, 1, 0.25, -twoPi / 2, &phase));
  for (int i = 0; i < 5; ++i) EXPECT_NEAR(x[i], i % 4 * 0.5 - 1, 1e-15) << i;
}

// One call, and an object in pieces.
template <class State, class... P, class Exact>
void expectQ15(MoxStatus (*init)(State**, P...), MoxStatus (*run)(Mox16s*, int, State*),
               MoxStatus (*free)(State*), MoxStatus (*direct)(Mox16s*, int, P...), L bound,
               Exact exact, std::type_identity_t<P>... parameters) {
  constexpr int len = 70000;
  Random random;
  std::vector<Mox16s> whole(len), pieces(len);
  State* state;
  ASSERT_OK(init(&state, parameters...));
  for (int at = 0, piece; at < len; at += piece) {
    piece = int(std::min(1 + random.below(3000), long(len - at)));
    run(&pieces[at], piece, state);
  }
  free(state);
  ASSERT_OK(direct(whole.data(), len, parameters...));
  for (int i = 0; i < len; ++i) {
    ASSERT_LE(std::fabs(whole[i] - exact(i)), 0.5L + bound) << i;
    ASSERT_LE(std::fabs(pieces[i] - exact(i)), 0.5L + bound) << i;
  }
}

TEST(Q15, WavesAreThoseOfTheirParametersInAnyPieces) {
  const struct {
    Mox16s magn, rFreq;
    int phase, asym;
  } waves[] = {{32767, 0, 0, 0},
               {1, 16383, 205886, -102943},
               {30000, 5, 100000, 102943},
               {32767, 7777, 3, 50000}};
  for (const auto& [m, rFreq, phase, asym] : waves) {
    const L magn = m, step = twoPi * (rFreq * 0x1p-15), start = phase * 0x1p-15L,
            skew = asym * 0x1p-15L;
    expectQ15(
        moxsToneInitAllocQ15_16s, moxsToneQ15_16s, moxsToneFree, moxsToneQ15_Direct_16s, 1e-6L,
        [=](int i) { return magn * std::cos(i * step + start); }, m, rFreq, phase);
    expectQ15(
        moxsTriangleInitAllocQ15_16s, moxsTriangleQ15_16s, moxsTriangleFree,
        moxsTriangleQ15_Direct_16s, 1e-2L,
        [=](int i) { return magn * triangle(i * step + start, skew); }, m, rFreq, phase, asym);
  }
}

}  // namespace
