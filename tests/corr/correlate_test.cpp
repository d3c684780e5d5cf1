#include "corr/corr_api.h"
#include "support/exact_model.h"

namespace {

using namespace test;

template <class E>
class Correlation : public testing::Test {
 protected:
  using Api = CorrApi<E>;

  static int least(int real, int single, int dbl) {
    return !mox::Complex<E> ? real : sizeof(E) == 8 ? single : dbl;
  }

  void expectAuto(int len, int count) {
    SCOPED_TRACE(testing::Message() << "length " << len);
    const auto x = random.vector<E>(len);
    expectForms<E>(
        {sumsOf(x, x, 1, 0, count), norm(x) * norm(x), std::min(len, count) >= least(856, 152, 368),
         publishedSize<E>(log2Up(2L * len), 1), 64, len},
        [&](auto f, E* y, auto... more) { return f(x.data(), len, y, count, more...); },
        [=](auto... more) {
          return moxsAutoCorrNormGetBufferSize(len, count, Api::dataType, more...);
        },
        Api::autoCorrNorm, Api::autoCorr, Api::autoCorrA, Api::autoCorrB);
  }

  void expectCross(int len1, int len2, int count, int lowLag) {
    SCOPED_TRACE(testing::Message() << len1 << " and " << len2 << ", lags from " << lowLag);
    const auto a = random.vector<E>(len1), b = random.vector<E>(len2);
    const auto sums = sumsOf(a, b, 1, lowLag, count);
    const long kept = std::count_if(sums.begin(), sums.end(), [](auto& s) { return s.terms > 0; });
    const int shorter = std::min(len1, len2), longer = std::max(len1, len2);
    const bool whole = longer < 3 * shorter || long(lowLag) + len1 - 1 > shorter;
    const int order =
        whole ? std::max(log2Up(len1 + len2 - 1L), 1) : std::max(log2Up(2L * shorter), 1) + 1;
    const bool isFft =
        float(shorter) * float(kept) / float(longer) >= least(sizeof(E) == 4 ? 384 : 512, 256, 512);
    expectForms<E>(
        {sums, kept > 0 ? norm(a) * norm(b) : 0, isFft, publishedSize<E>(order, 2), 0, shorter},
        [&](auto f, E* y, auto... more) {
          return f(a.data(), len1, b.data(), len2, y, count, lowLag, more...);
        },
        [=](auto... more) {
          return moxsCrossCorrNormGetBufferSize(len1, len2, count, lowLag, Api::dataType, more...);
        },
        Api::crossCorrNorm, Api::crossCorr);
  }

  Random random{1};
};
using AllFloats = testing::Types<Mox32f, Mox32fc, Mox64f, Mox64fc>;
TYPED_TEST_SUITE(Correlation, AllFloats);

TYPED_TEST(Correlation, OfOneSignalAgreesWithItsSum) {
  const int limit = this->least(856, 152, 368);
  const int cases[][2] = {{1, 1},        {1, 9},       {7, 3},
                          {100, 130},    {700, 260},   {1000, limit - 1},
                          {1000, limit}, {limit, 1100}};
  for (const auto& [len, count] : cases) {
    this->expectAuto(len, count);
    if (this->HasFatalFailure()) return;
  }
}

TYPED_TEST(Correlation, OfTwoSignalsAgreesWithItsSum) {
  const int most = this->least(sizeof(TypeParam) == 4 ? 384 : 512, 256, 512);
  const int lengths[][2] = {{1, 1},     {3, 2},     {5, 80},     {80, 5},     {300, 500},
                            {500, 300}, {600, 600}, {400, 1200}, {1200, 400}, {600, 5000}};
  for (const auto& [len1, len2] : lengths) {
    const int lags[][2] = {{len1 + len2 - 1, 1 - len1},
                           {len1 + len2 + 9, -4 - len1},
                           {40, -20},
                           {9, 3},
                           {10, -10 - len1},
                           {10, len2},
                           {10, len2 - 1},
                           {3, INT_MIN},
                           {3, INT_MAX},
                           {most - 1, -10},
                           {most, 0},
                           {most, -most},
                           {len2, -len1 / 2}};
    for (const auto& [count, lowLag] : lags) {
      this->expectCross(len1, len2, count, lowLag);
      if (this->HasFatalFailure()) return;
    }
  }
}

TEST(CorrelationOfShorts, IsExactOrScaled) {
  Random random(6);
  for (const auto& [len1, len2, outputs, lowLag] :
       {std::array{1, 1, 1, 0}, {300, 200, 520, -305}, {4, 700, 600, 50}, {9, 9, 5, 40}}) {
    const int count = outputs;
    auto a = random.vector<Mox16s>(len1), b = random.vector<Mox16s>(len2);
    std::fill(a.begin(), a.begin() + len1 / 2, -32768);
    std::fill(b.begin(), b.begin() + len2 / 2, -32768);
    std::vector<Mox64s> exact(count);
    ASSERT_EQ(moxsCrossCorr_16s64s(a.data(), len1, b.data(), len2, exact.data(), count, lowLag),
              moxOk);
    const auto sums = sumsOf(a, b, 1, lowLag, count);
    for (int i = 0; i < count; ++i) ASSERT_EQ(exact[i], Mox64s(sums[i].value.real())) << i;

    // What floats hold comes out exact, divided by a power of two as well.
    for (auto* v : {&a, &b})
      for (Mox16s& e : *v) e = Mox16s(e >> 8);
    a.resize(256);
    const int factor = int(random.below(12)) - 2;
    std::vector<Mox16s> cross(count), own(count), byLength(count);
    const auto crossSums = sumsOf(a, b, 1, lowLag, count), ownSums = sumsOf(a, a, 1, 0, count);
    ASSERT_EQ(
        moxsCrossCorr_16s_Sfs(a.data(), 256, b.data(), len2, cross.data(), count, lowLag, factor),
        moxOk);
    EXPECT_EQ(allocationsOf(
                  [&] { return moxsAutoCorr_16s_Sfs(a.data(), 256, own.data(), count, factor); }),
              2);
    ASSERT_EQ(moxsAutoCorr_NormA_16s_Sfs(a.data(), 256, byLength.data(), count, factor - 8), moxOk);
    for (int i = 0; i < count; ++i) {
      const auto scaled = [=](const Sum& sum) {
        return scaledInteger(Int128(sum.value.real()), factor, rangeOf<Mox16s>);
      };
      ASSERT_EQ(cross[i], scaled(crossSums[i])) << i << "; " << seedNote();
      ASSERT_EQ(own[i], scaled(ownSums[i])) << i << "; " << seedNote();
      ASSERT_EQ(byLength[i], own[i]) << i;
    }
    ASSERT_EQ(moxsAutoCorr_NormB_16s_Sfs(a.data(), 256, own.data(), count, factor), moxOk);
    for (int i = 0; i < std::min(count, 256); ++i) {
      const double mean = double(ownSums[i].value.real()) / (256 - i) * std::exp2(-factor);
      ASSERT_NEAR(own[i], std::clamp(mean, -32768.0, 32767.0), 0.51) << i;
    }
  }
}

}  // namespace
