#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>

#include "fir/fir_api.h"
#include "support/alloc_failures.h"
#include "support/guarded_array.h"

namespace {

using test::makeFir;

template <class F>
class FirState : public testing::Test {};
TYPED_TEST_SUITE(FirState, test::AllFirs);

// At the worst address of memory that ends at an inaccessible page, filled with noise; one call of
// each engine touches all parts.
TYPED_TEST(FirState, LivesInTheBytesThatItAsksFor) {
  using F = TypeParam;
  using D = typename F::Data;
  test::Random random;
  for (const int n : {1, 9, 63, 64, 130, 700}) {
    int size = 0;
    ASSERT_EQ(F::getStateSize(n, &size), moxOk);
    for (int slack = 0; slack < 64; slack += slack < 20 ? 1 : 11) {
      const test::GuardedArray<Mox8u> memory(size + slack);
      for (Mox8u& b : memory) b = Mox8u(random.bits());
      const auto taps = random.vector<typename F::Tap>(n);
      MoxsFIRState* s = nullptr;
      Mox8u* const buffer = memory.data() + slack;
      ASSERT_EQ(F::init(&s, taps.data(), n, nullptr, buffer), moxOk);
      ASSERT_EQ(reinterpret_cast<Mox8u*>(s), buffer + (-std::uintptr_t(buffer) & 15));
      ASSERT_EQ(*reinterpret_cast<Mox32s*>(s), F::id);
      const auto twin = makeFir<F>(taps);
      for (const int len : {4800, 600}) {
        auto a = random.vector<D>(len), b = a;
        ASSERT_EQ(F::runInPlace(a.data(), len, s, 0), moxOk);
        ASSERT_EQ(F::runInPlace(b.data(), len, twin.get(), 0), moxOk);
        ASSERT_EQ(std::memcmp(a.data(), b.data(), len * sizeof(D)), 0);
        ASSERT_EQ(F::free(s), moxOk);  // and the state goes on
      }
    }
  }
}

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

TYPED_TEST(FirState, TakesMemoryWhenItIsMadeAndNotAgain) {
  using F = TypeParam;
  const std::vector<typename F::Tap> taps(100, test::number<typename F::Tap>(1));
  std::vector<typename F::Data> x(5000, test::number<typename F::Data>(1));
  MoxsFIRState* s = nullptr;
  const auto make = [&] { return F::initAlloc(&s, taps.data(), 100, nullptr); };
  EXPECT_GT(test::failEachAllocation(make, [&] { EXPECT_EQ(s, nullptr); }), 0);
  EXPECT_EQ(F::free(s), moxOk);
  CoreProbe probe;
  EXPECT_EQ(make(), moxOk);
  const int taken = probe.allocations();
  EXPECT_EQ(F::runInPlace(x.data(), 5000, s, 0), moxOk);
  EXPECT_EQ(F::setTaps(taps.data(), s), moxOk);
  EXPECT_EQ(probe.allocations(), taken);
  EXPECT_EQ(F::free(s), moxOk);
  EXPECT_EQ(probe.live(), 0);
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
