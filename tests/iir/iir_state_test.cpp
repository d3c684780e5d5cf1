#include <gtest/gtest.h>

#include <limits>

#include "frame/arena.h"
#include "iir/iir_api.h"
#include "support/alloc_failures.h"
#include "support/guarded_array.h"

namespace {

using test::makeIir;
using test::Shape;
using test::someTaps;

template <class F>
class IirState : public testing::Test {
 protected:
  using Tap = typename F::Tap;
  static MoxStatus initAt(MoxsIIRState** s, Shape shape, const std::vector<Tap>& taps, int count,
                          Mox8u* buffer) {
    const auto init = [&](auto f) {
      if constexpr (test::hasTapsFactor<F>)
        return f(s, taps.data(), count, test::tapsFactor, nullptr, buffer);
      else
        return f(s, taps.data(), count, nullptr, buffer);
    };
    return shape == Shape::cascade ? init(F::initBiQuad) : init(F::init);
  }
  static MoxStatus setTaps(const std::vector<Tap>& taps, MoxsIIRState* s) {
    if constexpr (test::hasTapsFactor<F>)
      return F::setTaps(taps.data(), s, test::tapsFactor);
    else
      return F::setTaps(taps.data(), s);
  }
};
TYPED_TEST_SUITE(IirState, test::AllIirs);

// At the worst address of memory that ends at an inaccessible page, filled with noise.
TYPED_TEST(IirState, LivesInTheBytesThatItAsksFor) {
  using F = TypeParam;
  using D = typename F::Data;
  test::Random random;
  for (const auto& [shape, count] : {std::pair{Shape::anyOrder, 1},
                                     {Shape::anyOrder, 9},
                                     {Shape::anyOrder, 129},
                                     {Shape::cascade, 1},
                                     {Shape::cascade, 7}}) {
    int size = 0;
    ASSERT_EQ((shape == Shape::cascade ? F::sizeBiQuad : F::size)(count, &size), moxOk);
    for (int slack = 0; slack < 64; slack += slack < 20 ? 3 : 11) {
      const test::GuardedArray<Mox8u> memory(size + slack);
      for (Mox8u& b : memory) b = Mox8u(random.bits());
      const auto taps = someTaps<F>(random, shape, count);
      MoxsIIRState* s = nullptr;
      Mox8u* const buffer = memory.data() + slack;
      ASSERT_EQ(this->initAt(&s, shape, taps, count, buffer), moxOk);
      ASSERT_EQ(reinterpret_cast<Mox8u*>(s), mox::alignUp(buffer, 32));
      const auto twin = makeIir<F>(shape, taps, count);
      auto a = random.vector<D>(2100), b = a;
      ASSERT_EQ(F::runInPlace(a.data(), 2100, s, 0), moxOk);
      ASSERT_EQ(F::runInPlace(b.data(), 2100, twin.get(), 0), moxOk);
      ASSERT_EQ(std::memcmp(a.data(), b.data(), 2100 * sizeof(D)), 0);
      ASSERT_EQ(F::free(s), moxOk);
    }
  }
}

// Zero taps are refused where the recurrence divides by them, and section by section.
TYPED_TEST(IirState, SetsTheTapsOfSectionsBeforeABadOne) {
  using F = TypeParam;
  test::Random random(1);
  const auto old = someTaps<F>(random, Shape::cascade, 4);
  for (const int bad : {0, 3})  // b[0] and a[0]
    for (int section = 0; section < 4; ++section) {
      auto taps = someTaps<F>(random, Shape::cascade, 4), mixed = taps;
      std::copy(old.begin() + 6 * section, old.end(), mixed.begin() + 6 * section);
      taps[std::size_t(6 * section + bad)] = typename F::Tap{};
      const auto state = makeIir<F>(Shape::cascade, old, 4),
                 twin = makeIir<F>(Shape::cascade, mixed, 4);
      ASSERT_EQ(this->setTaps(taps, state.get()), moxErrDivByZero);
      auto a = random.vector<typename F::Data>(700), b = a;
      ASSERT_EQ(F::runInPlace(a.data(), 700, state.get(), 0), moxOk);
      ASSERT_EQ(F::runInPlace(b.data(), 700, twin.get(), 0), moxOk);
      EXPECT_EQ(std::memcmp(a.data(), b.data(), 700 * sizeof a[0]), 0) << section;
      MoxsIIRState* none = nullptr;
      std::vector<Mox8u> memory(100000);
      EXPECT_EQ(this->initAt(&none, Shape::cascade, taps, 4, memory.data()), moxErrDivByZero);
      EXPECT_EQ(none, nullptr);
    }
  auto taps = someTaps<F>(random, Shape::anyOrder, 3);
  taps[0] = typename F::Tap{};
  const auto state = makeIir<F>(Shape::anyOrder, taps, 3);
  EXPECT_EQ(this->setTaps(taps, state.get()), moxOk);
  taps[4] = typename F::Tap{};
  EXPECT_EQ(this->setTaps(taps, state.get()), moxErrDivByZero);
}

TYPED_TEST(IirState, ReleasesAllWhenMemoryOrTapsFail) {
  using F = TypeParam;
  test::Random random(2);
  auto taps = someTaps<F>(random, Shape::cascade, 3);
  MoxsIIRState* s = nullptr;
  const auto make = [&] {
    if constexpr (test::hasTapsFactor<F>)
      return F::makeBiQuad(&s, taps.data(), 3, test::tapsFactor, nullptr);
    else
      return F::makeBiQuad(&s, taps.data(), 3, nullptr);
  };
  CoreProbe probe;
  EXPECT_GT(test::failEachAllocation(make, [&] { EXPECT_EQ(s, nullptr); }), 0);
  const auto set = [&] { return this->setTaps(taps, s); };
  EXPECT_EQ(test::failEachAllocation(set), test::hasTapsFactor<F> ? 1 : 0);
  EXPECT_EQ(F::free(s), moxOk);
  taps[3] = typename F::Tap{};
  EXPECT_EQ(make(), moxErrDivByZero);
  EXPECT_EQ(probe.live(), 0);
}

TYPED_TEST(IirState, TellsSizesUpToTheLargestInt) {
  using F = TypeParam;
  for (const auto size : {F::size, F::sizeBiQuad}) {
    int bytes = 77;
    EXPECT_EQ(size(std::numeric_limits<int>::max(), &bytes), moxErrIirOrder);
    EXPECT_EQ(bytes, 77);
    EXPECT_EQ(size(100000, &bytes), moxOk);
    EXPECT_GT(bytes, 100000);
  }
}

// NaN is not zero: it is a tap like any other.
TEST(IirStates, TakeNaNForATap) {
  const auto state = makeIir<test::Iir32f>(Shape::cascade, {NAN, 0, 0, 1, 0, 0}, 1);
  std::vector<Mox32f> x(300, 1);
  ASSERT_EQ(moxsIIR_32f_I(x.data(), 300, state.get()), moxOk);
  EXPECT_TRUE(std::isnan(x[299]));
}

// Raw samples are the delay line of direct form I, and each section has its own.
template <class Data>
void expectRawHistory(auto make, auto free, auto run, auto get, auto set, const auto& taps) {
  test::Random random(3);
  MoxsIIRState *s = nullptr, *twin = nullptr;
  std::vector<Data> d(8), kept(8);
  for (Data& v : d) v = Data(random.below(2000) - 1000);
  ASSERT_EQ(make(&s, taps.data(), 2, d.data()), moxOk);
  ASSERT_EQ(make(&twin, taps.data(), 2, nullptr), moxOk);
  ASSERT_EQ(set(twin, d.data()), moxOk);
  std::vector<Data> x(3000);
  for (Data& v : x) v = Data(random.below(2000) - 1000);
  auto whole = x, cut = x;
  ASSERT_EQ(run(whole.data(), 3000, s), moxOk);
  for (int at = 0; at < 3000; at += 10) ASSERT_EQ(run(&cut[std::size_t(at)], 10, twin), moxOk);
  std::vector<long double> past(d.begin(), d.end());
  for (int i = 0; i < 3000; ++i) {
    long double v = x[std::size_t(i)];
    for (int k = 0; k < 2; ++k) {
      long double* p = &past[std::size_t(4 * k)];
      const auto* t = &taps[std::size_t(6 * k)];
      const long double y =
          (t[0] * v + t[1] * p[1] + t[2] * p[0] - t[4] * p[3] - t[5] * p[2]) / t[3];
      p[0] = p[1], p[1] = v, p[2] = p[3], p[3] = y, v = y;
    }
    const long double bound = std::is_integral_v<Data> ? 0.51L : 0.01L;
    ASSERT_NEAR(double(whole[std::size_t(i)]), double(v), double(bound));
    ASSERT_NEAR(double(cut[std::size_t(i)]), double(v), double(bound));
  }
  ASSERT_EQ(get(s, kept.data()), moxOk);
  for (int i = 0; i < 8; ++i)
    EXPECT_NEAR(double(kept[std::size_t(i)]), double(past[std::size_t(i)]), 0.51) << i;
  EXPECT_EQ(free(s), moxOk);
  EXPECT_EQ(free(twin), moxOk);
}

TEST(IirDirectForm1, GoesOnFromRawSamples) {
  const std::vector<Mox32f> taps = {0.5f, 0.2f,  0.1f, 1, -0.6f, 0.3f,
                                    0.9f, -0.3f, 0.2f, 2, 0.8f,  0.4f};
  const std::vector<Mox64f> wide(taps.begin(), taps.end());
  expectRawHistory<Mox32f>(moxsIIRInitAlloc_BiQuad_DF1_32f, moxsIIRFree_32f, moxsIIR_32f_I,
                           moxsIIRGetDlyLine_32f, moxsIIRSetDlyLine_32f, taps);
  const auto run = [](Mox32s* x, int len, MoxsIIRState* s) {
    return moxsIIR64f_32s_ISfs(x, len, s, 0);
  };
  expectRawHistory<Mox32s>(moxsIIRInitAlloc64f_BiQuad_DF1_32s, moxsIIRFree64f_32s, run,
                           moxsIIRGetDlyLine64f_DF1_32s, moxsIIRSetDlyLine64f_DF1_32s, wide);
  MoxsIIRState* s = nullptr;
  ASSERT_EQ(moxsIIRInitAlloc_BiQuad_DF1_32f(&s, taps.data(), 2, nullptr), moxOk);
  Mox32f y;
  EXPECT_EQ(moxsIIROne_32f(1, &y, s), moxErrContext);
  EXPECT_EQ(moxsIIRSetTaps_32f(taps.data(), s), moxErrContext);
  EXPECT_EQ(moxsIIRFree_32f(s), moxOk);
}

// Every object carries the word of its combination and form.
TEST(IirStates, BeginWithTheirWords) {
  const std::vector<Mox64f> taps = {1, 0, 0, 1, 0, 0};
  MoxsIIRState* s = nullptr;
  const auto word = [&] { return *reinterpret_cast<const Mox32s*>(s); };
  ASSERT_EQ(moxsIIRInitAlloc64f_BiQuad_32s(&s, taps.data(), 1, nullptr), moxOk);
  EXPECT_EQ(word(), 0x49493232);
  EXPECT_EQ(moxsIIRFree_64f(s), moxErrContext);
  EXPECT_EQ(moxsIIRFree64f_32s(s), moxOk);
  ASSERT_EQ(moxsIIRInitAlloc64f_BiQuad_DF1_32s(&s, taps.data(), 1, nullptr), moxOk);
  EXPECT_EQ(word(), 0x49493330);
  EXPECT_EQ(moxsIIRFree64f_32s(s), moxOk);
  ASSERT_EQ(moxsIIRInitAlloc_64f(&s, taps.data(), 2, nullptr), moxOk);
  EXPECT_EQ(word(), 0x49493133);
  EXPECT_EQ(moxsIIRFree_64f(s), moxOk);
}

}  // namespace
