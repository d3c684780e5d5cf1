// Random numbers against a slow model of their rule, to the bit, and their distribution.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <cmath>
#include <complex>
#include <numeric>

#include "support/members.h"
#include "support/random.h"

namespace {

using namespace test;

// The rule, step by step.
struct Model {
  std::uint32_t lcg = 1131199209, a, b, c;
  std::int32_t carry = -1;

  explicit Model(std::uint32_t seed)
      : a(seed), b(a * 69069 + 1013904243), c(b * 69069 + 1013904243) {}

  std::int32_t next() {
    const auto t = std::int32_t(b - c + std::uint32_t(carry));
    carry = t < 0 ? -1 : 0;
    c = b, b = a, a = std::uint32_t(t) - (t < 0 ? 18 : 0);
    lcg = lcg * 69069 + 1013904243;
    return std::int32_t(a + lcg);
  }
};

template <class T>
struct UniformModel {
  Model model;
  double mid, range;

  UniformModel(T low, T high, std::uint32_t seed) : model(seed) {
    if constexpr (std::is_floating_point_v<T>)
      mid = double(low + high) * 0.5, range = double(high - low) * 0x1p-32;
    else
      mid = (int(low) + int(high)) * 0.5, range = (int(high) - int(low)) * 0x1p-32;
  }
  T next() { return T(mid + range * model.next()); }
};

template <class T>
struct GaussModel {
  Model model;
  T mean, stdDev;
  double p = 0, f = 0;
  bool isWaiting = false;

  GaussModel(T m, T deviation, std::uint32_t seed) : model(seed), mean(m), stdDev(deviation) {}
  T next() {
    isWaiting = !isWaiting;
    if (!isWaiting) return result(double(stdDev) * p * f);
    double q, s;
    do {
      p = model.next() * 0x1p-31, q = model.next() * 0x1p-31;
      s = p * p + q * q;
    } while (s >= 1 || s == 0);
    f = std::sqrt(-2 * std::log(s) / s);
    return result(double(stdDev) * q * f);
  }
  T result(double r) const {
    if constexpr (std::is_floating_point_v<T>)
      return mean + T(r);
    else
      return T(std::clamp<double>(mean + r, std::numeric_limits<T>::min(),
                                  std::numeric_limits<T>::max()));
  }
};

// One of the double-precision logarithm's last bits is free; the rest is exact.
template <class T>
void expectSame(T got, T want, T spread, int i) {
  if constexpr (std::is_same_v<T, Mox64f>)
    ASSERT_NEAR(got, want, 0x1p-50 * (std::fabs(spread) * 8 + std::fabs(want))) << i;
  else
    ASSERT_EQ(got, want) << i;
}

const std::uint32_t seeds[] = {0, 1, 12345, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, 0xFFFFFFEE};
const int callLengths[] = {1, 2, 15, 16, 17, 33, 3, 7, 500, 1, 1, 32, 31};

template <class M, class State, class T>
void expectStream(MoxStatus (*initAlloc)(State**, T, T, Mox32u), MoxStatus (*run)(T*, int, State*),
                  MoxStatus (*free)(State*), T x, T y) {
  for (const std::uint32_t seed : seeds) {
    M model(x, y, seed);
    State* state;
    ASSERT_EQ(initAlloc(&state, x, y, seed), moxOk);
    for (const int len : callLengths) {
      std::vector<T> dst(len);
      ASSERT_EQ(run(dst.data(), len, state), moxOk);
      for (int i = 0; i < len; ++i) expectSame(dst[i], model.next(), y, i);
    }
    free(state);
  }
}

template <class M, class T>
void expectDirect(MoxStatus (*direct)(T*, int, T, T, Mox32u*), T x, T y) {
  for (std::uint32_t seed : seeds)
    for (const int len : callLengths) {
      M model(x, y, seed);
      std::vector<T> dst(len);
      ASSERT_EQ(direct(dst.data(), len, x, y, &seed), moxOk);
      for (int i = 0; i < len; ++i) expectSame(dst[i], model.next(), y, i);
      ASSERT_EQ(seed, model.model.a);
    }
}

TEST(RandUniform, FollowsItsRule) {
  expectStream<UniformModel<Mox8u>>(moxsRandUniformInitAlloc_8u, moxsRandUniform_8u,
                                    moxsRandUniformFree_8u, Mox8u(3), Mox8u(250));
  expectStream<UniformModel<Mox16s>>(moxsRandUniformInitAlloc_16s, moxsRandUniform_16s,
                                     moxsRandUniformFree_16s, Mox16s(-32768), Mox16s(32767));
  expectStream<UniformModel<Mox32f>>(moxsRandUniformInitAlloc_32f, moxsRandUniform_32f,
                                     moxsRandUniformFree_32f, -0.1f, 1e6f);
  expectDirect<UniformModel<Mox16s>>(moxsRandUniform_Direct_16s, Mox16s(200), Mox16s(-100));
  expectDirect<UniformModel<Mox32f>>(moxsRandUniform_Direct_32f, 7.7f, 7.7f);
  expectDirect<UniformModel<Mox64f>>(moxsRandUniform_Direct_64f, -1.0, 0.3);
}

TEST(RandGauss, FollowsItsRule) {
  expectStream<GaussModel<Mox8u>>(moxsRandGaussInitAlloc_8u, moxsRandGauss_8u, moxsRandGaussFree_8u,
                                  Mox8u(100), Mox8u(90));
  expectStream<GaussModel<Mox16s>>(moxsRandGaussInitAlloc_16s, moxsRandGauss_16s,
                                   moxsRandGaussFree_16s, Mox16s(-3), Mox16s(20000));
  expectStream<GaussModel<Mox32f>>(moxsRandGaussInitAlloc_32f, moxsRandGauss_32f,
                                   moxsRandGaussFree_32f, 0.5f, 3.0f);
  expectDirect<GaussModel<Mox16s>>(moxsRandGauss_Direct_16s, Mox16s(10), Mox16s(-400));
  expectDirect<GaussModel<Mox32f>>(moxsRandGauss_Direct_32f, 1e6f, 1.0f);
  expectDirect<GaussModel<Mox64f>>(moxsRandGauss_Direct_64f, -2.0, 0.7);
}

std::vector<Mox64f> uniforms(int len) {
  std::vector<Mox64f> x(len);
  Mox32u seed = 20;
  moxsRandUniform_Direct_64f(x.data(), len, 0, 1, &seed);
  return x;
}
std::vector<Mox64f> normals(int len) {
  std::vector<Mox64f> x(len);
  Mox32u seed = 21;
  moxsRandGauss_Direct_64f(x.data(), len, 0, 1, &seed);
  return x;
}

// sum of x^k / n within five standard errors.
void expectMoment(const std::vector<Mox64f>& x, int k, double mean, double meanOfSquare) {
  double sum = 0;
  for (const double e : x) sum += std::pow(e, k);
  EXPECT_NEAR(sum / double(x.size()), mean,
              5 * std::sqrt((meanOfSquare - mean * mean) / double(x.size())))
      << k;
}

// `u` is even over 0 to 1: chi-square over cells within five deviations of its mean.
void expectEven(const std::vector<Mox64f>& u) {
  constexpr int cells = 1000;
  std::vector<int> count(cells);
  for (const double e : u) ++count[std::size_t(std::min(e * cells, cells - 1.0))];
  double chiSquare = 0;
  const double expected = double(u.size()) / cells;
  for (const int c : count) chiSquare += (c - expected) * (c - expected) / expected;
  EXPECT_NEAR(chiSquare, cells - 1, 5 * std::sqrt(2.0 * cells));
}

// The mean power of bands of the spectrum is that of white noise, within five deviations.
void expectFlat(std::vector<Mox64f> x, double variance) {
  constexpr int order = 18, len = 1 << order, bands = 64, width = len / 2 / bands;
  const double mean = std::accumulate(x.begin(), x.begin() + len, 0.0) / len;
  for (double& e : x) e -= mean;
  MoxsFFTSpec* spec;
  ASSERT_EQ(moxsFFTInitAlloc_R_64f(&spec, order, moxNormNone, 0), moxOk);
  std::vector<std::complex<Mox64f>> z(len / 2 + 1);
  moxsFFTFwd_RToCCS_64f(x.data(), reinterpret_cast<Mox64f*>(z.data()), spec, nullptr);
  moxsFFTFree_R_64f(spec);
  for (int band = 0; band < bands; ++band) {
    double power = 0;
    for (int k = 0; k < width; ++k) power += std::norm(z[std::size_t(1 + band * width + k)]);
    EXPECT_NEAR(power / (width * variance * len), 1, 5 / std::sqrt(double(width))) << band;
  }
}

TEST(RandUniform, IsEvenAndWhite) {
  const auto x = uniforms(1000000);
  for (int k = 1; k <= 6; ++k) expectMoment(x, k, 1.0 / (k + 1), 1.0 / (2 * k + 1));
  expectEven(x);
  expectFlat(x, 1 / 12.0);
}

TEST(RandGauss, IsNormalAndWhite) {
  const auto x = normals(1000000);
  const double even[] = {1, 1, 3, 15, 105, 945, 10395};  // the means of x^(2 k)
  for (int k = 1; k <= 6; ++k) expectMoment(x, k, k % 2 ? 0 : even[k / 2], even[k]);
  std::vector<Mox64f> shares;
  for (const double e : x) shares.push_back(0.5 * std::erfc(-e / std::sqrt(2)));
  expectEven(shares);
  expectFlat(x, 1);
}

}  // namespace
