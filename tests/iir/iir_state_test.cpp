#include "iir/iir_api.h"
#include "support/core_probe.h"

namespace {

using namespace test;

template <class F>
class IirState : public testing::Test {
 protected:
  using Tap = typename F::Tap;
  static MoxStatus setTaps(const std::vector<Tap>& taps, MoxsIIRState* s) {
    if constexpr (hasTapsFactor<F>)
      return F::setTaps(taps.data(), s, tapsFactor);
    else
      return F::setTaps(taps.data(), s);
  }
};
TYPED_TEST_SUITE(IirState, AllIirs);

// Zero taps are refused where the recurrence divides by them, and section by section.
TYPED_TEST(IirState, SetsTheTapsOfSectionsBeforeABadOne) {
  using F = TypeParam;
  Random random(1);
  const auto old = someTaps<F>(random, Shape::cascade, 4);
  for (const int bad : {0, 3})  // b[0] and a[0]
    for (int section = 0; section < 4; ++section) {
      auto taps = someTaps<F>(random, Shape::cascade, 4), mixed = taps;
      std::copy(old.begin() + 6 * section, old.end(), mixed.begin() + 6 * section);
      taps[6 * section + bad] = typename F::Tap{};
      const auto state = makeIir<F>(Shape::cascade, old, 4),
                 twin = makeIir<F>(Shape::cascade, mixed, 4);
      ASSERT_EQ(this->setTaps(taps, state.get()), moxErrDivByZero);
      auto a = random.vector<typename F::Data>(700), b = a;
      ASSERT_OK(F::inPlace(a.data(), 700, state.get(), 0));
      ASSERT_OK(F::inPlace(b.data(), 700, twin.get(), 0));
      EXPECT_EQ(std::memcmp(a.data(), b.data(), 700 * sizeof a[0]), 0) << section;
    }
  auto taps = someTaps<F>(random, Shape::anyOrder, 3);
  taps[0] = typename F::Tap{};
  const auto state = makeIir<F>(Shape::anyOrder, taps, 3);
  EXPECT_OK(this->setTaps(taps, state.get()));
  taps[4] = typename F::Tap{};
  EXPECT_EQ(this->setTaps(taps, state.get()), moxErrDivByZero);
}

// A zero is refused and leaves nothing behind; NaN is a tap like any other.
TEST(IirStates, TakeNaNForATapButNoZero) {
  const Mox32f bad[] = {1, 0, 0, 0, 0, 0};
  CoreProbe probe;
  MoxsIIRState* s = nullptr;
  EXPECT_EQ(moxsIIRInitAlloc_BiQuad_32f(&s, bad, 1, nullptr), moxErrDivByZero);
  EXPECT_EQ(s, nullptr);
  EXPECT_EQ(probe.live(), 0);
  const auto state = makeIir<Iir32f>(Shape::cascade, {NAN, 0, 0, 1, 0, 0}, 1);
  Mox32f x = 1;
  ASSERT_OK(moxsIIR_32f_I(&x, 1, state.get()));
  EXPECT_TRUE(std::isnan(x));
}

// Raw samples are the delay line of direct form I, and each section has its own.
template <class Data>
void expectRawHistory(auto make, auto free, auto run, auto get, auto set, const auto& taps) {
  Random random(3);
  MoxsIIRState *s = nullptr, *twin = nullptr;
  std::vector<Data> x(3008);  // and before it the delay line
  for (Data& v : x) v = Data(random.below(2000) - 1000);
  std::vector<long double> past(x.begin(), x.begin() + 8);
  ASSERT_OK(make(&s, taps.data(), 2, x.data()));
  ASSERT_OK(make(&twin, taps.data(), 2, nullptr));
  ASSERT_OK(set(twin, x.data()));
  auto whole = x, cut = x;
  ASSERT_OK(run(&whole[8], 3000, s));
  for (int at = 8; at < 3008; at += 10) ASSERT_OK(run(&cut[at], 10, twin));
  for (int i = 8; i < 3008; ++i) {
    long double v = x[i];
    for (int k = 0; k < 2; ++k) {
      long double* p = &past[4 * k];
      const auto* t = &taps[6 * k];
      const auto y = (t[0] * v + t[1] * p[1] + t[2] * p[0] - t[4] * p[3] - t[5] * p[2]) / t[3];
      p[0] = p[1], p[1] = v, p[2] = p[3], p[3] = y, v = y;
    }
    ASSERT_NEAR(double(whole[i]), double(v), 0.51);
    ASSERT_NEAR(double(cut[i]), double(v), 0.51);
  }
  ASSERT_OK(get(s, x.data()));
  for (int i = 0; i < 8; ++i) EXPECT_NEAR(double(x[i]), double(past[i]), 0.51) << i;
  EXPECT_OK(free(s));
  EXPECT_OK(free(twin));
}

TEST(IirDirectForm1, GoesOnFromRawSamples) {
  const std::vector<Mox64f> taps = {0.5, 0.2, 0.1, 1, -0.6, 0.3, 0.9, -0.3, 0.2, 2, 0.8, 0.4};
  const std::vector<Mox32f> narrow(taps.begin(), taps.end());
  expectRawHistory<Mox32f>(moxsIIRInitAlloc_BiQuad_DF1_32f, moxsIIRFree_32f, moxsIIR_32f_I,
                           moxsIIRGetDlyLine_32f, moxsIIRSetDlyLine_32f, narrow);
  expectRawHistory<Mox32s>(
      moxsIIRInitAlloc64f_BiQuad_DF1_32s, moxsIIRFree64f_32s,
      [](Mox32s* x, int len, MoxsIIRState* s) { return moxsIIR64f_32s_ISfs(x, len, s, 0); },
      moxsIIRGetDlyLine64f_DF1_32s, moxsIIRSetDlyLine64f_DF1_32s, taps);
  MoxsIIRState* s = nullptr;
  ASSERT_OK(moxsIIRInitAlloc_BiQuad_DF1_32f(&s, narrow.data(), 2, nullptr));
  Mox32f y;
  EXPECT_EQ(moxsIIROne_32f(1, &y, s), moxErrContext);
  EXPECT_EQ(moxsIIRSetTaps_32f(narrow.data(), s), moxErrContext);
  EXPECT_OK(moxsIIRFree_32f(s));
}

}  // namespace
