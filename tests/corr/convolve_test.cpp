#include "corr/corr_api.h"
#include "support/exact_model.h"

namespace {

using namespace test;

template <class F>
constexpr auto conv = moxsConv_32f;
template <>
constexpr auto conv<Mox64f> = moxsConv_64f;
template <class F>
constexpr auto convolve = moxsConvolve_32f;
template <>
constexpr auto convolve<Mox64f> = moxsConvolve_64f;

TYPED_SUITE(Convolution, Mox32f, Mox64f);

TYPED_TEST(Convolution, AgreesWithItsSumAboutEveryChoice) {
  using F = TypeParam;
  Random random(1);
  const int lengths[][2] = {{1, 1},     {2, 1},     {45, 4},    {256, 255}, {256, 256},
                            {257, 256}, {448, 64},  {449, 64},  {2000, 63}, {2000, 64},
                            {191, 64},  {192, 64},  {383, 128}, {384, 128}, {1000, 334},
                            {999, 333}, {300, 300}, {5000, 100}};
  for (const auto& [longer, shorter] : lengths)
    for (const bool exchanged : {false, true}) {
      SCOPED_TRACE(testing::Message() << longer << " by " << shorter);
      auto a = random.vector<F>(longer), b = random.vector<F>(shorter);
      if (exchanged) std::swap(a, b);
      const int n = int(a.size()), m = int(b.size()), outputs = n + m - 1;
      const int order = longer >= 3 * shorter ? std::max(log2Up(2 * shorter), 1) + 1
                                              : std::max(log2Up(outputs), 2);
      expectForms<F>(
          {sumsOf(a, b, -1, 0, outputs), norm(a) * norm(b), outputs >= 512 && shorter >= 64,
           publishedSize<F>(order, 2), 64},
          [&](auto f, F* y, auto... more) { return f(a.data(), n, b.data(), m, y, more...); },
          [=](int algType, int* bytes) {
            return moxsConvolveGetBufferSize(n, m, CorrApi<F>::dataType, Mox8u(algType), bytes);
          },
          convolve<F>, conv<F>);
    }
}

TEST(Convolution, RefusesWhatNoTransformHolds) {
  int bytes = 7;
  const int most = 1 << 30;
  EXPECT_EQ(moxsConvolveGetBufferSize(most, most, moxType64f, moxAlgAuto, &bytes), moxErrFftOrder);
  EXPECT_EQ(bytes, 0);
  EXPECT_OK(moxsConvolveGetBufferSize(most, most, moxType64f, moxAlgDirect, &bytes));
  EXPECT_EQ(moxsConvolveGetBufferSize(8, 8, moxType32fc, moxAlgAuto, &bytes), moxErrDataType);
  EXPECT_EQ(bytes, 0);
}

TEST(Convolution, LeavesOutTermsWithoutBothFactors) {
  std::vector<Mox32f> a(70, 1), b(50, 1), y(119);
  b.back() = INFINITY;
  ASSERT_OK(moxsConv_32f(a.data(), 70, b.data(), 50, y.data()));
  for (int i = 0; i < 119; ++i) EXPECT_EQ(y[i], i < 49 ? i + 1 : INFINITY) << i;
}

// Sums are small enough to be exact in floats; a transform is wrong by one unit at the most.
TEST(Convolution, ScalesShorts) {
  Random random(2);
  const int lengths[][2] = {{5, 3}, {3, 5}, {4095, 60}, {4097, 63}, {400, 113}};
  for (const auto& lens : lengths)
    for (const int factor : {0, 1, 4, 40, -1, -9, INT_MIN}) {
      const int n = lens[0], m = lens[1];
      auto a = random.vector<Mox16s>(n), b = random.vector<Mox16s>(m), y = a;
      for (Mox16s& e : a) e >>= 7;
      for (Mox16s& e : b) e >>= 7;
      y.resize(n + m - 1);
      ASSERT_OK(moxsConv_16s_Sfs(a.data(), n, b.data(), m, y.data(), factor));
      expectScaled(y, sumsOf(a, b, -1, 0, n + m - 1), factor, unchanged, n == 400 ? 1.5 : 0.5);
    }
}

TEST(ConvBiased, TakesAnyStretch) {
  Random random(3);
  const int shapes[][4] = {{4, 45, 41, 4},     {11, 50, 40, 10},    {16, 56, 40, 16},
                           {31, 70, 40, 30},   {40, 40, 40, 0},     {60, 60, 60, 0},
                           {160, 160, 160, 0}, {300, 20, 500, 7},   {3, 4, 20, 100},
                           {20, 300, 9, -15},  {5, 5, 30, INT_MIN}, {5, 5, 30, INT_MAX},
                           {1, 1, 1, 0},       {600, 700, 800, 200}};
  for (const auto& [n, m, count, bias] : shapes) {
    SCOPED_TRACE(testing::Message() << n << ' ' << m << ' ' << count << ' ' << bias);
    const auto a = random.vector<Mox32f>(n), b = random.vector<Mox32f>(m);
    std::vector<Mox32f> y(count, 5);
    ASSERT_OK(moxsConvBiased_32f(a.data(), n, b.data(), m, y.data(), count, bias));
    expectNear(y, sumsOf(a, b, -1, bias, count), 0, unchanged);
  }
}

TEST(ConvCyclic, WrapsAround) {
  Random random(4);
  for (int turn = 0; turn < 300; ++turn) {
    const auto x = random.vector<Mox32f>(8), h = random.vector<Mox32f>(8);
    const auto z = random.vector<Mox32fc>(4);
    auto words = random.vector<Mox16s>(8), others = random.vector<Mox16s>(8);
    if (turn == 0) words.assign(8, -32768), others = words;
    const int factor = turn % 3 ? int(random.below(70)) - 35 : 16;
    Mox32f y[8];
    Mox32fc w[8];
    Mox16s v[8];
    ASSERT_OK(moxsConvCyclic8x8_32f(x.data(), h.data(), y));
    ASSERT_OK(moxsConvCyclic4x4_32f32fc(x.data(), z.data(), w));
    ASSERT_OK(moxsConvCyclic8x8_16s_Sfs(words.data(), others.data(), v, factor));
    for (int k = 0; k < 8; ++k) {
      Exact real = 0, complex = 0;
      Mox32u sum = 0;  // modulo 2^32
      for (int j = 0; j < 8; ++j) {
        real += exactly(x[j]) * exactly(h[(k - j + 8) % 8]);
        if (j < 4) complex += exactly(x[j]) * exactly(z[(k - j + 8) % 4]);
        sum += Mox32u(words[j] * others[(k - j + 8) % 8]);
      }
      ASSERT_LT(std::abs(exactly(y[k]) - real), 1e-6);
      ASSERT_LT(std::abs(exactly(w[k % 4]) - complex), 1e-6);
      ASSERT_EQ(v[k], scaledInteger(Mox32s(sum), std::clamp(factor, -31, 31), rangeOf<Mox16s>))
          << k << ", factor " << factor;
    }
  }
}

}  // namespace
