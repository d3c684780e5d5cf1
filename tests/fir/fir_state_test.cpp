#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "fir_api.h"
#include "support/core_probe.h"
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
  for (const int n : {1, 2, 9, 63, 64, 130, 700}) {
    int size = 0;
    ASSERT_EQ(F::getStateSize(n, &size), moxOk);
    for (int slack = 0; slack < 64; slack += slack < 20 ? 1 : 11) {
      const test::GuardedBytes memory(size + slack, test::Guard::after);
      for (int i = 0; i < size + slack; ++i) memory.data()[i] = std::byte(random.bits());
      const auto taps = random.vector<typename F::Tap>(n);
      const auto src = random.vector<D>(4800);
      std::vector<D> a(src.size()), b(src.size());
      MoxsFIRState* s = nullptr;
      auto* buffer = reinterpret_cast<Mox8u*>(memory.data() + slack);
      ASSERT_EQ(F::init(&s, taps.data(), n, nullptr, buffer), moxOk);
      ASSERT_EQ(reinterpret_cast<Mox8u*>(s),
                buffer + (-reinterpret_cast<std::uintptr_t>(buffer) & 15));
      ASSERT_EQ(*reinterpret_cast<Mox32s*>(s), F::id);
      const auto twin = makeFir<F>(taps);
      a = b = src;
      ASSERT_EQ(F::runInPlace(a.data(), int(a.size()), s, 0), moxOk);
      ASSERT_EQ(F::runInPlace(b.data(), int(b.size()), twin.get(), 0), moxOk);
      ASSERT_EQ(std::memcmp(a.data(), b.data(), a.size() * sizeof(D)), 0);
      ASSERT_EQ(F::free(s), moxOk);  // and the state goes on
      ASSERT_EQ(F::run(src.data(), a.data(), 600, s, 0), moxOk);
      ASSERT_EQ(F::run(src.data(), b.data(), 600, twin.get(), 0), moxOk);
      ASSERT_EQ(std::memcmp(a.data(), b.data(), 600 * sizeof(D)), 0);
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

TYPED_TEST(FirState, BadArgumentsInTheirOrder) {
  using F = TypeParam;
  const auto tap = test::number<typename F::Tap>(1);
  typename F::Tap gotTap;
  Mox8u* const buffer = reinterpret_cast<Mox8u*>(&gotTap);
  MoxsFIRState* s = nullptr;
  int size = 77;
  EXPECT_EQ(F::getStateSize(0, nullptr), moxErrNullPtr);
  for (const int n : {0, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    EXPECT_EQ(F::getStateSize(n, &size), moxErrFirLen);
    EXPECT_EQ(F::init(&s, &tap, n, nullptr, buffer), moxErrFirLen);
    EXPECT_EQ(F::initAlloc(&s, &tap, n, nullptr), moxErrFirLen);
  }
  EXPECT_EQ(F::init(nullptr, &tap, 0, nullptr, buffer), moxErrNullPtr);
  EXPECT_EQ(F::initAlloc(nullptr, &tap, 0, nullptr), moxErrNullPtr);
  EXPECT_EQ(size, 77);
  EXPECT_EQ(s, nullptr);
}

TYPED_TEST(FirState, ReleasesWhatItTookAndTakesNothingElse) {
  using F = TypeParam;
  using D = typename F::Data;
  const std::vector<typename F::Tap> taps(100, test::number<typename F::Tap>(1));
  CoreProbe probe;
  MoxsFIRState* s = nullptr;
  int failed = 0;
  for (;; ++failed) {
    probe.failAllocation(failed + 1);
    const MoxStatus status = F::initAlloc(&s, taps.data(), 100, nullptr);
    if (status == moxOk) break;
    ASSERT_EQ(status, moxErrMemAlloc);
    ASSERT_EQ(probe.live(), 0);
    ASSERT_EQ(s, nullptr);
  }
  EXPECT_GT(failed, 0);
  const int taken = probe.allocations();
  std::vector<D> x(5000, test::number<D>(1));
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

TEST(FirState32f, AStreamHasNeitherTapsNorDelayLineToShow) {
  const Mox32f tap = 1;
  MoxsFIRState* s = nullptr;
  EXPECT_EQ(moxsFIRStreamInitAlloc_32f(nullptr, &tap, 1), moxErrNullPtr);
  EXPECT_EQ(moxsFIRStreamInitAlloc_32f(&s, &tap, 0), moxErrFirLen);
  int size;
  ASSERT_EQ(moxsFIRStreamGetStateSize_32f(1, &size), moxOk);
  std::vector<Mox8u> memory(size);
  ASSERT_EQ(moxsFIRStreamInit_32f(&s, &tap, 1, memory.data()), moxOk);
  Mox32f x;
  EXPECT_EQ(moxsFIRGetTaps_32f(s, &x), moxErrContext);
  EXPECT_EQ(moxsFIRSetTaps_32f(&tap, s), moxErrContext);
  EXPECT_EQ(moxsFIRGetDlyLine_32f(s, &x), moxErrContext);
  EXPECT_EQ(moxsFIRSetDlyLine_32f(s, &tap), moxErrContext);
  EXPECT_EQ(moxsFIRFree_32f(s), moxOk);
}

}  // namespace
