// Random numbers against a slow model of their rule, to the bit.
#include "support/members.h"
#include "support/test.h"

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

  // In the arithmetic of floats, or in doubles.
  UniformModel(T low, T high, std::uint32_t seed) : model(seed) {
    using F = std::conditional_t<std::is_integral_v<T>, double, T>;
    mid = double(F(low) + F(high)) * 0.5, range = double(F(high) - F(low)) * 0x1p-32;
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
    ASSERT_OK(initAlloc(&state, x, y, seed));
    for (const int len : callLengths) {
      std::vector<T> dst(len);
      ASSERT_OK(run(dst.data(), len, state));
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
      ASSERT_OK(direct(dst.data(), len, x, y, &seed));
      for (int i = 0; i < len; ++i) expectSame(dst[i], model.next(), y, i);
      ASSERT_EQ(seed, model.model.a);
    }
}

#define EXPECT_STREAM(kind, type, x, y)                                                           \
  expectStream<kind##Model<Mox##type>>(moxsRand##kind##InitAlloc_##type, moxsRand##kind##_##type, \
                                       moxsRand##kind##Free_##type, Mox##type(x), Mox##type(y))
#define EXPECT_DIRECT(kind, type, x, y) \
  expectDirect<kind##Model<Mox##type>>(moxsRand##kind##_Direct_##type, Mox##type(x), Mox##type(y))

TEST(RandUniform, FollowsItsRule) {
  EXPECT_STREAM(Uniform, 8u, 3, 250);
  EXPECT_STREAM(Uniform, 16s, -32768, 32767);
  EXPECT_STREAM(Uniform, 32f, -0.1, 1e6);
  EXPECT_DIRECT(Uniform, 16s, 200, -100);
  EXPECT_DIRECT(Uniform, 32f, 7.7, 7.7);
  EXPECT_DIRECT(Uniform, 64f, -1, 0.3);
}

TEST(RandGauss, FollowsItsRule) {
  EXPECT_STREAM(Gauss, 8u, 100, 90);
  EXPECT_STREAM(Gauss, 16s, -3, 20000);
  EXPECT_STREAM(Gauss, 32f, 0.5, 3);
  EXPECT_DIRECT(Gauss, 16s, 10, -400);
  EXPECT_DIRECT(Gauss, 32f, 1e6, 1);
  EXPECT_DIRECT(Gauss, 64f, -2, 0.7);
}

}  // namespace
