#include <gtest/gtest.h>

#include "fir/fir_api.h"

namespace {

using test::makeFir;

template <class F>
class FirState : public testing::Test {};
TYPED_TEST_SUITE(FirState, test::AllFirs);

TYPED_TEST(FirState, GivesBackTapsAndDelayLine) {
  using F = TypeParam;
  using D = typename F::Data;
  test::Random random(1);
  for (const int n : {1, 7, 90}) {
    const auto taps = random.vector<typename F::Tap>(n), others = random.vector<typename F::Tap>(n);
    const auto dly = random.vector<D>(n);
    const auto state = makeFir<F>(taps, dly.data());
    std::vector<typename F::Tap> gotTaps(n);
    std::vector<D> gotDly(n);
    const auto expectContents = [&](const auto& t, const auto& d) {
      ASSERT_EQ(F::getTaps(state.get(), gotTaps.data()), moxOk);
      ASSERT_EQ(F::getDlyLine(state.get(), gotDly.data()), moxOk);
      EXPECT_EQ(std::memcmp(gotTaps.data(), t.data(), n * sizeof t[0]), 0);
      EXPECT_EQ(std::memcmp(gotDly.data(), d.data(), n * sizeof d[0]), 0);
    };
    expectContents(taps, dly);
    ASSERT_EQ(F::setTaps(others.data(), state.get()), moxOk);
    expectContents(others, dly);
    D y;  // moves the window, which SetDlyLine puts back
    ASSERT_EQ(F::one(dly[0], &y, state.get(), 0), moxOk);
    ASSERT_EQ(F::setDlyLine(state.get(), dly.data()), moxOk);
    expectContents(others, dly);
    ASSERT_EQ(F::setDlyLine(state.get(), nullptr), moxOk);
    expectContents(others, std::vector<D>(n));
  }
}

// The spectrum goes where the state with it is too large, not the filter.
TEST(FirState32f, LongFiltersDoWithoutASpectrum) {
  int with = 0, without = 0, longest = 0;
  ASSERT_EQ(moxsFIRGetStateSize_32f(50'000'000, &with), moxOk);
  ASSERT_EQ(moxsFIRGetStateSize_32f(60'000'000, &without), moxOk);
  ASSERT_EQ(moxsFIRGetStateSize_32f(67'108'863, &longest), moxOk);
  EXPECT_LT(without, with);
  EXPECT_GT(longest, without);
}

TEST(FirState32f, OneSizeServesAllStatesThatHoldFloats) {
  for (const int n : {1, 64, 1000}) {
    int plain = 0, mixed = 0, stream = 0;
    ASSERT_EQ(moxsFIRGetStateSize_32f(n, &plain), moxOk);
    ASSERT_EQ(moxsFIRGetStateSize32f_16s(n, &mixed), moxOk);
    ASSERT_EQ(moxsFIRStreamGetStateSize_32f(n, &stream), moxOk);
    EXPECT_EQ(plain, mixed);
    EXPECT_EQ(plain, stream);
  }
}

}  // namespace
