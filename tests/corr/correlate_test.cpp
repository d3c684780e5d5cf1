#include "corr/corr_api.h"

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
  for (const auto& [len, count] : cases) this->expectAuto(len, count);
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
                           {len2, -len1 / 2},
                           {40, std::min(len1, len2) - len1 + 1}};  // the last for sections
    for (const auto& [count, lowLag] : lags) this->expectCross(len1, len2, count, lowLag);
  }
}

TEST(CorrelationOfShorts, IsExactIn64Bits) {
  Random random(6);
  const int cases[][4] = {{1, 1, 1, 0}, {300, 200, 520, -305}, {4, 700, 600, 50}, {9, 9, 5, 40}};
  for (const auto& [len1, len2, count, lowLag] : cases) {
    auto a = random.vector<Mox16s>(len1), b = random.vector<Mox16s>(len2);
    std::fill(a.begin(), a.begin() + len1 / 2, -32768);
    std::fill(b.begin(), b.begin() + len2 / 2, -32768);
    std::vector<Mox64s> y(count);
    ASSERT_OK(moxsCrossCorr_16s64s(a.data(), len1, b.data(), len2, y.data(), count, lowLag));
    const auto sums = sumsOf(a, b, 1, lowLag, count);
    for (int i = 0; i < count; ++i) ASSERT_EQ(y[i], Mox64s(sums[i].value.real())) << i;
  }
}

// Of what floats hold.
TEST(CorrelationOfShorts, IsScaled) {
  Random random(7);
  constexpr int len = 256, count = 520, lowLag = -260;
  auto a = random.vector<Mox16s>(len), b = random.vector<Mox16s>(len);
  for (auto* v : {&a, &b})
    for (Mox16s& e : *v) e = Mox16s(e >> 8);
  const auto cross = sumsOf(a, b, 1, lowLag, count), own = sumsOf(a, a, 1, 0, count);
  for (const int factor : {-2, 0, 3, 9}) {
    std::vector<Mox16s> y(count);
    const auto expectAuto = [&](auto f, int byFactor, auto divisor, double error = 0.5) {
      ASSERT_OK(f(a.data(), len, y.data(), count, byFactor));
      expectScaled(y, own, byFactor, divisor, error);
    };
    ASSERT_OK(moxsCrossCorr_16s_Sfs(a.data(), len, b.data(), len, y.data(), count, lowLag, factor));
    expectScaled(y, cross, factor, unchanged);
    expectAuto(moxsAutoCorr_16s_Sfs, factor, unchanged);
    expectAuto(moxsAutoCorr_NormA_16s_Sfs, factor - 8, [](const Sum&) { return len; });
    expectAuto(moxsAutoCorr_NormB_16s_Sfs, factor - 8, overTerms, 0.51);
  }
}

}  // namespace
