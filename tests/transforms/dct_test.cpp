// The DCT against its sum in long double, by every method and on both sides of their limits.
#include <array>
#include <numbers>

#include "support/accuracy.h"
#include "support/test.h"

namespace {

template <class T>
struct Api;
#define DCT_API(T, t, suffix)                                                              \
  template <>                                                                              \
  struct Api<T> {                                                                          \
    static constexpr std::array size = {moxsDCTFwdGetSize_##t, moxsDCTInvGetSize_##t};     \
    static constexpr std::array init = {moxsDCTFwdInitAlloc_##t, moxsDCTInvInitAlloc_##t}; \
    static constexpr std::array free = {moxsDCTFwdFree_##t, moxsDCTInvFree_##t};           \
    static constexpr std::array run = {moxsDCTFwd_##t##suffix, moxsDCTInv_##t##suffix};    \
  };
DCT_API(Mox32f, 32f, )
DCT_API(Mox64f, 64f, )
DCT_API(Mox16s, 16s, _Sfs)

template <class T, class... Factor>
std::vector<T> transformed(const std::vector<T>& x, bool inverse, Factor... factor) {
  MoxsDCTSpec* spec = nullptr;
  std::vector<T> y(x.size());
  EXPECT_OK(Api<T>::init[inverse](&spec, int(x.size()), 0));
  EXPECT_OK(Api<T>::run[inverse](x.data(), y.data(), spec, factor..., nullptr));
  EXPECT_OK(Api<T>::free[inverse](spec));
  return y;
}

template <class T>
std::vector<long double> exactly(const std::vector<T>& x, bool inverse) {
  const long n = long(x.size());
  std::vector<long double> cosines(4 * n), y(n);
  for (long i = 0; i < 4 * n; ++i)
    cosines[i] = std::cos(std::numbers::pi_v<long double> * i / (2 * n));
  const auto scale = [n](long k) { return std::sqrt((k ? 2.0L : 1.0L) / n); };
  for (long k = 0; k < n; ++k)
    for (long i = 0; i < n; ++i) {
      const long double c = scale(k) * cosines[(2 * i + 1) * k % (4 * n)];
      inverse ? y[i] += c * x[k] : y[k] += c * x[i];
    }
  return y;
}

template <class F>
long double bound(long n) {
  return (sizeof(F) == 4 ? 3e-7L : 6e-16L) * std::sqrt(2 + std::log2((long double)n));
}

template <class F>
void expectNear(const std::vector<F>& got, const auto& expected) {
  test::RelativeError error;
  for (std::size_t i = 0; i < got.size(); ++i) error.add(got[i], expected[i]);
  EXPECT_LE(error.value(), bound<F>(long(got.size())));
}

TYPED_SUITE(Dct, Mox32f, Mox64f);

TYPED_TEST(Dct, FollowsItsSumInBothDirections) {
  test::Random random;
  std::vector<long> lengths = {211, 256, 509, 512, 1000, 1024, 1025, 2002};
  for (long n = 1; n <= 150; ++n) lengths.push_back(n);
  for (const long n : lengths)
    for (const bool inverse : {false, true}) {
      SCOPED_TRACE(testing::Message() << "length " << n << " inverse " << inverse);
      const auto x = random.vector<TypeParam>(n);
      expectNear(transformed(x, inverse), exactly(x, inverse));
    }
}

// Also a constant, of which all but y[0] is 0.
TYPED_TEST(Dct, ComesBackAtLargeLengths) {
  test::Random random(1);
  for (const long n : {4096, 8191, 10080, 20011, 65536, 100000, 100003, 131071}) {
    SCOPED_TRACE(testing::Message() << "length " << n);
    const auto x = random.vector<TypeParam>(n);
    const auto y = transformed(x, false);
    long double energy = 0, spectralEnergy = 0;
    for (long i = 0; i < n; ++i)
      energy += (long double)x[i] * x[i], spectralEnergy += (long double)y[i] * y[i];
    EXPECT_NEAR(spectralEnergy / energy, 1, 2 * bound<TypeParam>(n));
    expectNear(transformed(y, true), x);

    std::vector<long double> only(n);
    only[0] = 0.5L * std::sqrt((long double)n);
    expectNear(transformed(std::vector<TypeParam>(n, 0.5), false), only);
  }
}

TEST(DctOfIntegers, IsScaledAndSaturated) {
  test::Random random(2);
  for (const long n : {1, 2, 3, 4, 8, 12, 16, 35, 36, 37, 64, 100})
    for (const bool inverse : {false, true})
      for (const int factor : {0, 1, 5, -3, 40, INT_MAX, INT_MIN}) {
        SCOPED_TRACE(testing::Message() << "length " << n << " factor " << factor);
        const auto x = random.vector<Mox16s>(n);
        const auto exact = exactly(x, inverse);
        const auto got = transformed(x, inverse, factor);
        const long double scale = std::exp2(-(long double)std::clamp(factor, -99, 99));
        const long double error = 32768 * scale * std::sqrt((long double)n) * bound<Mox32f>(n);
        for (long i = 0; i < n; ++i)
          test::expectRounded<Mox16s>(got[i], scale * exact[i], n == 1 ? 0 : error);
      }
}

TEST(DctSizes, AreTheDocumentedFigures) {
  const struct {
    int len, spec[3], work[3];  // of floats, doubles and integers
  } figures[] = {{1, {132, 132, 88}, {0, 0, 0}},
                 {8, {132, 132, 220}, {0, 0, 96}},
                 {35, {752, 1312, 840}, {204, 344, 408}}};
  for (const auto& [len, spec, work] : figures)
    for (int i = 0; i < 6; ++i) {
      const auto query = std::array{Api<Mox32f>::size, Api<Mox64f>::size, Api<Mox16s>::size}[i / 2];
      int sizes[3];
      ASSERT_OK(query[i % 2](len, 0, sizes, sizes + 1, sizes + 2));
      EXPECT_EQ(sizes[0], spec[i / 2]) << len;
      EXPECT_EQ(sizes[1], 0) << len;
      EXPECT_EQ(sizes[2], work[i / 2]) << len;
    }
}

}  // namespace
