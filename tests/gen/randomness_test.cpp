// Whether random numbers look random: moments, counts and spectrum beside those of their law.
#include <gmock/gmock.h>

#include <complex>
#include <numbers>

#include "support/test.h"

namespace {

constexpr int order = 18, len = 1 << order, bins = 64;

// Of numbers with mean 0 and variance 1.
struct Law {
  double evenMoments[5], binWidth;
  double (*below)(double);
};
const Law uniform = {{1, 1, 9 / 5.0, 27 / 7.0, 9}, std::sqrt(12.0) / bins, [](double z) {
                       return std::clamp(0.5 + z / std::sqrt(12.0), 0.0, 1.0);
                     }};
const Law normal = {
    {1, 1, 3, 15, 105}, 8.0 / bins, [](double z) { return std::erfc(-z / std::sqrt(2.0)) / 2; }};

double momentScore(const std::vector<double>& z, const Law& law, int k) {
  double sum = 0;
  for (const double e : z) sum += std::pow(e, k);
  const double want = k % 2 ? 0 : law.evenMoments[k / 2];
  return (sum / len - want) / std::sqrt((law.evenMoments[k] - want * want) / len);
}

double chiSquareScore(const std::vector<double>& z, const Law& law) {
  double counts[bins] = {}, chiSquare = 0;
  for (const double e : z)
    ++counts[std::clamp(int(std::floor(e / law.binWidth)) + bins / 2, 0, bins - 1)];
  const auto below = [&](int bin) {
    return bin == 0 ? 0 : bin == bins ? 1 : law.below((bin - bins / 2) * law.binWidth);
  };
  for (int i = 0; i < bins; ++i) {
    const double want = len * (below(i + 1) - below(i));
    chiSquare += (counts[i] - want) * (counts[i] - want) / want;
  }
  return (chiSquare - (bins - 1)) / std::sqrt(2 * (bins - 1));
}

// The powers of white noise have an exponential distribution: the logarithm of their geometric mean
// over the arithmetic one is minus Euler's constant.
double flatnessScore(const std::vector<double>& z) {
  MoxsFFTSpec* fft;
  EXPECT_OK(moxsFFTInitAlloc_R_64f(&fft, order, 8, 0));
  std::vector<Mox64fc> spectrum(len / 2 + 1);
  EXPECT_OK(moxsFFTFwd_RToCCS_64f(z.data(), &spectrum[0].re, fft, nullptr));
  moxsFFTFree_R_64f(fft);
  constexpr int powers = len / 2 - 1;
  double sum = 0, logs = 0;
  for (int k = 1; k <= powers; ++k) {
    const double power = std::norm(std::complex(spectrum[k].re, spectrum[k].im));
    sum += power, logs += std::log(power);
  }
  constexpr double variance = std::numbers::pi * std::numbers::pi / 6 - 1;
  return (logs / powers - std::log(sum / powers) + std::numbers::egamma) /
         std::sqrt(variance / powers);
}

// How far moments 1 to 4, chi-square and flatness are from their means, in standard deviations.
std::vector<double> scores(const std::vector<double>& z, const Law& law) {
  return {momentScore(z, law, 1), momentScore(z, law, 2), momentScore(z, law, 3),
          momentScore(z, law, 4), chiSquareScore(z, law), flatnessScore(z)};
}

template <class T>
void expectRandom(MoxStatus (*direct)(T*, int, T, T, Mox32u*), T x, T y, const Law& law,
                  double mean, double deviation) {
  std::vector<T> numbers(len);
  Mox32u seed = 12345;
  ASSERT_OK(direct(numbers.data(), len, x, y, &seed));
  std::vector<double> z;
  // Integers are the floors of the numbers.
  for (const T e : numbers) z.push_back((e + std::is_integral_v<T> / 2.0 - mean) / deviation);
  using namespace testing;
  EXPECT_THAT(scores(z, law), Each(AllOf(Gt(-5), Lt(5))));

  // A scale that is two percent too large, and one of four lanes that repeats another.
  auto scaled = z, repeated = z;
  for (double& e : scaled) e *= 1.02;
  for (int i = 0; i < len; i += 4) repeated[i + 1] = z[i];
  EXPECT_THAT(scores(scaled, law), ElementsAre(_, Gt(5), _, Gt(5), Gt(5), _));
  EXPECT_THAT(scores(repeated, law), Contains(Lt(-5)));
}

TEST(RandUniform, LooksRandom) {
  const double root = std::sqrt(12.0);
  expectRandom<Mox16s>(moxsRandUniform_Direct_16s, 0, 32000, uniform, 16000, 32000 / root);
  expectRandom<Mox32f>(moxsRandUniform_Direct_32f, -1, 3, uniform, 1, 4 / root);
  expectRandom<Mox64f>(moxsRandUniform_Direct_64f, -1, 3, uniform, 1, 4 / root);
}

TEST(RandGauss, LooksRandom) {
  expectRandom<Mox16s>(moxsRandGauss_Direct_16s, 16000, 2000, normal, 16000, 2000);
  expectRandom<Mox32f>(moxsRandGauss_Direct_32f, 1, 3, normal, 1, 3);
  expectRandom<Mox64f>(moxsRandGauss_Direct_64f, 1, 3, normal, 1, 3);
}

}  // namespace
