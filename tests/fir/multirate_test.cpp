#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "fir/fir_api.h"
#include "support/core_probe.h"
#include "support/guarded_array.h"

namespace {

using test::AllFirs;

struct Rates {
  int up, upPhase, down, downPhase;
};

// The definition: zeros inserted, filtered, outputs dropped. dlyLine holds x[-1], x[-2] ..
template <class Tap, class Data>
std::vector<test::Reference> resampled(const std::vector<Tap>& taps,
                                       const std::vector<Data>& dlyLine,
                                       const std::vector<Data>& src, const Rates& r) {
  std::vector<test::Reference> y(src.size() / r.down * r.up);
  for (long j = 0; j < long(y.size()); ++j)
    for (long k = 0; k < long(taps.size()); ++k) {
      const long place = r.down * j + r.downPhase - k - r.upPhase;
      if (place % r.up != 0) continue;
      const long i = place / r.up;
      if (i < -long(dlyLine.size())) break;
      const test::Exact term =
          test::exactly(taps[k]) * test::exactly(i < 0 ? dlyLine[-1 - i] : src[i]);
      y[j].value += term;
      y[j].magnitude += std::abs(term);
    }
  return y;
}

template <class F>
void expectClose(long terms, const std::vector<test::Reference>& ref,
                 const std::vector<typename F::Data>& got) {
  using D = typename F::Data;
  const long double u = std::numeric_limits<mox::Part<typename F::Tap>>::epsilon() / 2;
  for (std::size_t i = 0; i < ref.size(); ++i) {
    const test::Exact value = test::saturated<D>(ref[i].value);
    ASSERT_LE(std::abs(test::exactly(got[i]) - value),
              2 * u * (terms + 1) * ref[i].magnitude + test::storeError<D>(value))
        << "output " << i << " of " << ref.size();
  }
}

template <class F>
std::vector<typename F::Tap> someTaps(test::Random& random, long n) {
  auto taps = random.vector<typename F::Tap>(n);
  for (auto& t : taps)
    for (int i = 0; i < mox::partsPerElement<typename F::Tap>; ++i) mox::parts(&t)[i] /= 3;
  return taps;
}

template <class F>
class Multirate : public testing::Test {
 protected:
  using D = typename F::Data;

  // One signal in pieces, in place and not, by way of a state, and as a whole without one.
  void expectDefinition(const Rates& r, int n, int iterations) {
    SCOPED_TRACE(testing::Message() << "up " << r.up << '+' << r.upPhase << " down " << r.down
                                    << '+' << r.downPhase << ", " << n << " taps");
    const int history = (n + r.up - 1) / r.up;
    const auto taps = someTaps<F>(random, n);
    const auto dly = random.vector<D>(history), src = random.vector<D>(long(iterations) * r.down);
    const auto ref = resampled(taps, dly, src, r);
    MoxsFIRState* s = nullptr;
    ASSERT_EQ(
        F::allocMultirate(&s, taps.data(), n, r.up, r.upPhase, r.down, r.downPhase, dly.data()),
        moxOk);
    const test::FirHandle state(s, {F::free});
    std::vector<D> y(ref.size()), direct(ref.size()), kept(history), last = dly;
    for (int at = 0; at < iterations;) {
      const int len = int(std::min<long>(1 + random.below(iterations), iterations - at));
      const long inputs = long(len) * r.down, outputs = long(len) * r.up;
      const bool inPlace = random.below(2);
      const test::GuardedArray<D> in(inPlace ? std::max(inputs, outputs) : inputs), out(outputs);
      std::copy_n(&src[long(at) * r.down], inputs, in.begin());
      ASSERT_EQ(
          inPlace ? F::runInPlace(in.data(), len, s, 0) : F::run(in.data(), out.data(), len, s, 0),
          moxOk);
      std::copy_n(inPlace ? in.begin() : out.begin(), outputs, &y[long(at) * r.up]);
      at += len;
    }
    expectClose<F>(n, ref, y);
    ASSERT_EQ(F::multirateDirect(src.data(), direct.data(), iterations, taps.data(), n, r.up,
                                 r.upPhase, r.down, r.downPhase, last.data(), 0),
              moxOk);
    expectClose<F>(n, ref, direct);
    ASSERT_EQ(F::getDlyLine(s, kept.data()), moxOk);
    for (int k = 0; k < history; ++k) {
      const long i = long(src.size()) - 1 - k;
      const auto expected = test::exactly(i >= 0 ? src[i] : dly[-1 - i]);
      ASSERT_EQ(test::exactly(kept[k]), expected);
      ASSERT_EQ(test::exactly(last[k]), expected);
    }
    std::vector<typename F::Tap> gotTaps(n);
    ASSERT_EQ(F::getTaps(s, gotTaps.data()), moxOk);
    ASSERT_EQ(std::memcmp(gotTaps.data(), taps.data(), n * sizeof taps[0]), 0);
  }

  test::Random random{7};
};
TYPED_TEST_SUITE(Multirate, AllFirs);

TYPED_TEST(Multirate, FollowsTheDefinitionInAllPhases) {
  SCOPED_TRACE(test::seedNote());
  int n = 0;
  for (int up = 1; up <= 7; ++up)
    for (int down = 1; down <= 7; ++down)
      for (int upPhase = 0; upPhase < up; ++upPhase)
        for (int downPhase = 0; downPhase < down; ++downPhase) {
          this->expectDefinition({up, upPhase, down, downPhase}, n++ % 40 + 1,
                                 1 + int(this->random.below(60)));
          if (this->HasFatalFailure()) return;
        }
}

// Cycles that are too long for the side-by-side engine, taps and signals of several pieces.
TYPED_TEST(Multirate, FollowsTheDefinitionAtAnyLength) {
  SCOPED_TRACE(test::seedNote());
  const struct {
    Rates rates;
    int taps, iterations;
  } cases[] = {{{1, 0, 40, 7}, 100, 70},    {{40, 33, 1, 0}, 1, 70},
               {{17, 16, 16, 0}, 300, 130}, {{160, 9, 147, 2}, 1000, 12},
               {{16, 3, 15, 0}, 77, 400},   {{1, 0, 4, 3}, 2500, 1500},
               {{4, 3, 1, 0}, 400, 3000},   {{1, 0, 3000, 5}, 9, 3},
               {{6, 5, 4, 3}, 5, 900},      {{2999, 2998, 3000, 0}, 3500, 1}};
  for (const auto& c : cases) {
    this->expectDefinition(c.rates, c.taps, c.iterations);
    if (this->HasFatalFailure()) return;
  }
}

TYPED_TEST(Multirate, RefusesBadFactorsAndPhases) {
  using F = TypeParam;
  const auto tap = test::number<typename F::Tap>(1);
  int size;
  for (const int bad : {0, -1, std::numeric_limits<int>::min()}) {
    EXPECT_EQ(F::multirateSize(1, bad, 1, &size), moxErrFirMrPhase);
    EXPECT_EQ(F::multirateSize(1, 1, bad, &size), moxErrFirMrPhase);
  }
  MoxsFIRState* s = nullptr;
  const auto alloc = [&](int n, Rates r) {
    return F::allocMultirate(&s, &tap, n, r.up, r.upPhase, r.down, r.downPhase, nullptr);
  };
  EXPECT_EQ(alloc(0, {0, 9, 0, 9}), moxErrFirLen);
  EXPECT_EQ(alloc(1, {0, 9, 1, 0}), moxErrFirMrFactor);
  EXPECT_EQ(alloc(1, {1, 0, -1, 9}), moxErrFirMrFactor);
  EXPECT_EQ(alloc(1, {3, 3, 1, 0}), moxErrFirMrPhase);
  EXPECT_EQ(alloc(1, {1, 0, 3, -1}), moxErrFirMrPhase);
  EXPECT_EQ(s, nullptr);
  ASSERT_EQ(alloc(1, {1, 0, 1, 0}), moxOk);
  EXPECT_EQ(*reinterpret_cast<Mox32s*>(s), F::id);
  F::free(s);
  ASSERT_EQ(alloc(1, {2, 0, 1, 0}), moxOk);
  typename F::Data y{};
  EXPECT_EQ(F::one(y, &y, s, 0), moxErrContext);
  F::free(s);
}

// A growing rate in place takes a copy of the inputs; without memory nothing is touched.
TYPED_TEST(Multirate, KeepsTheInputsWhenItCannotCopyThem) {
  using F = TypeParam;
  const std::vector<typename F::Tap> taps(5, test::number<typename F::Tap>(1));
  MoxsFIRState* s = nullptr;
  ASSERT_EQ(F::allocMultirate(&s, taps.data(), 5, 3, 0, 1, 0, nullptr), moxOk);
  const test::FirHandle state(s, {F::free});
  auto x = this->random.template vector<typename F::Data>(300);
  const auto before = x;
  CoreProbe probe;
  probe.failAllocation(1);
  EXPECT_EQ(F::runInPlace(x.data(), 100, s, 0), moxErrMemAlloc);
  EXPECT_EQ(std::memcmp(x.data(), before.data(), 300 * sizeof x[0]), 0);
  EXPECT_EQ(F::runInPlace(x.data(), 100, s, 0), moxOk);
  EXPECT_EQ(probe.live(), 0);
}

TEST(MultirateStream32f, ReadsItsHistoryFromTheArrayAndNothingMore) {
  test::Random random(8);
  for (const Rates& r :
       {Rates{1, 0, 4, 3}, {3, 0, 2, 0}, {3, 2, 2, 0}, {5, 4, 5, 0}, {40, 39, 3, 0}})
    for (const int n : {1, 4, 7, 64})
      for (const int len : {1, 5, 800}) {
        const auto taps = random.vector<Mox32f>(n);
        const int history = (n + r.up - 1) / r.up - (r.downPhase >= r.upPhase);
        const test::GuardedArray<Mox32f> src(len * r.down + history), dst(len * r.up);
        for (auto& x : src) x = random.value<Mox32f>();
        MoxsFIRState* s = nullptr;
        ASSERT_EQ(
            moxsFIRMRStreamInitAlloc_32f(&s, taps.data(), n, r.up, r.upPhase, r.down, r.downPhase),
            moxOk);
        ASSERT_EQ(moxsFIR_32f(src.data(), dst.data(), len, s), moxOk);
        const std::vector<Mox32f> dly(std::reverse_iterator(src.begin() + history),
                                      std::reverse_iterator(src.begin())),
            x(src.begin() + history, src.end());
        expectClose<test::Fir32f>(n, resampled(taps, dly, x, r), {dst.begin(), dst.end()});
        EXPECT_EQ(moxsFIR_32f(dst.data(), dst.data(), len, s), moxErrContext);
        EXPECT_EQ(moxsFIRFree_32f(s), moxOk);
        if (testing::Test::HasFatalFailure()) return;
      }
}

}  // namespace
