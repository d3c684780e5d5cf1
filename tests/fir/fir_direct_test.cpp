// Filters without a state: taps, ring and place of the oldest sample are the caller's.
#include <climits>

#include "fir/fir_model.h"
#include "support/guarded_array.h"

namespace {

using namespace test;

template <class F>
class FirDirect : public testing::Test {};
TYPED_TEST_SUITE(FirDirect, DirectFirs);

// 16-bit taps are fractions; others of integers have a factor.
template <class F>
constexpr bool areFractions = std::is_same_v<F, Fir16s>;
template <class F>
Model<F> modelOf(const std::vector<typename F::Tap>& taps, int factor) {
  if constexpr (isFixedPoint<F>) {
    return {taps, areFractions<F> ? -15 : factor, F::directLimit};
  } else {
    Model<F> model(taps, 0);
    // The sum of floats is rounded once, the products before.
    if (std::is_same_v<F, Fir32f>) model.terms = 2;
    return model;
  }
}

// The ring starts at an odd place with a known past; blocks and single samples take turns.
TYPED_TEST(FirDirect, FollowsTheDefinitionAndKeepsTheRing) {
  using F = TypeParam;
  using D = typename F::Data;
  Random random;
  SCOPED_TRACE(seedNote());
  for (const int n : {1, 2, 3, 5, 8, 16, 31, 32, 37, 100, 480, 610})
    for (long shift = isFixedPoint<F> ? -20 : 0; shift <= (isFixedPoint<F> ? 4 : 0); ++shift) {
      const auto taps = someTaps<F>(random, n);
      const GuardedArray<typename F::Tap> guardedTaps(n);
      std::copy(taps.begin(), taps.end(), guardedTaps.begin());
      const Signal<D> x = {random.vector<D>(n), random.vector<D>(200)};
      const auto model = modelOf<F>(taps, 3);
      const int scale = model.scaleFor(shift);
      const GuardedArray<D> ring(2 * n);
      int index = int(random.below(n));
      for (int k = 0; k < 2 * n; ++k) ring[(index + 2 * n - 1 - k) % (2 * n)] = x.past[k % n];
      const auto call = [&](auto f, auto... samples) {
        if constexpr (takesFactor<F> && !areFractions<F>)
          return f(samples..., guardedTaps.data(), n, 3, ring.data(), &index, scale);
        else
          return f(samples..., guardedTaps.data(), n, ring.data(), &index, scale);
      };
      std::vector<D> y = x.samples;
      for (int at = 0, way = 0; at < 200; ++way) {
        const int len = way % 3 < 2 ? int(std::min(200L - at, 1 + random.below(40))) : 1;
        const int before = index;
        ASSERT_EQ(way % 3 == 0   ? call(F::direct, &x.samples[at], &y[at], len)
                  : way % 3 == 1 ? call(F::directInPlace, &y[at], len)
                                 : call(F::oneDirect, x.samples[at], &y[at]),
                  moxOk);
        ASSERT_EQ(index, areFractions<F> && way % 3 < 2 ? 0 : (before + len) % n);
        at += len;
      }
      model.expectOutputs(x, {}, scale, y);
      if (this->HasFatalFailure()) return;
      const auto last = x.lastPast();
      for (int k = 0; k < 2 * n; ++k)
        ASSERT_EQ(exactly(ring[(index + 2 * n - 1 - k) % (2 * n)]), exactly(last[k % n]));
    }
}

// 2^24 + 1 - 2^24: a sum in single precision loses the 1.
TEST(FirDirect32f, SumsInDoublePrecision) {
  const Mox32f taps[3] = {1, 1, 1}, src[3] = {0x1p24f, 1, -0x1p24f};
  Mox32f ring[6] = {}, y[3];
  int index = 0;
  ASSERT_EQ(moxsFIR_Direct_32f(src, y, 3, taps, 3, ring, &index), moxOk);
  EXPECT_EQ(y[2], 1);
}

TEST(FirDirect32f, TakesAnyIndexForAPlaceOfTheRing) {
  const Mox32f taps[3] = {0, 0, 1};
  for (int index : {-1, 2, INT_MAX - 1}) {
    const int place = (index % 3 + 3) % 3;
    Mox32f ring[6] = {}, y;
    ring[(place + 1) % 3] = ring[(place + 1) % 3 + 3] = 5;
    ASSERT_EQ(moxsFIROne_Direct_32f(9, &y, taps, 3, ring, &index), moxOk);
    EXPECT_EQ(y, 5);
    EXPECT_EQ(index, (place + 1) % 3);
  }
}

TEST(FirDirect16s, TakesNoIndexOutsideTheRing) {
  const Mox16s tap = 1;
  Mox16s y = 0, ring[2] = {};
  for (int place : {-1, 1}) {
    EXPECT_EQ(moxsFIR_Direct_16s_Sfs(&y, &y, 1, &tap, 1, ring, &place, 0), moxErrDlyLineIndex);
    EXPECT_EQ(moxsFIROne_Direct_16s_Sfs(1, &y, &tap, 1, ring, &place, 0), moxErrDlyLineIndex);
  }
}

}  // namespace
