#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "fir/fir_api.h"
#include "support/guarded_array.h"

namespace {

template <class F>
class FirStateless : public testing::Test {};
TYPED_TEST_SUITE(FirStateless, test::AllFirs);

// The ring starts at an odd place with a known past; blocks and single samples take turns.
TYPED_TEST(FirStateless, FollowsTheDefiningSumAndKeepsTheRing) {
  using F = TypeParam;
  using D = typename F::Data;
  using P = mox::Part<typename F::Tap>;
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  for (const int n : {1, 2, 3, 5, 8, 16, 31, 32, 100, 480, 610}) {
    auto taps = random.vector<typename F::Tap>(n);
    const auto dly = random.vector<D>(n), src = random.vector<D>(200);
    const test::GuardedArray<D> ring(2 * n);
    const test::GuardedArray<typename F::Tap> guardedTaps(n);
    for (auto& t : taps)
      for (int i = 0; i < mox::partsPerElement<typename F::Tap>; ++i) mox::parts(&t)[i] /= P(2 * n);
    std::copy(taps.begin(), taps.end(), guardedTaps.begin());
    int index = int(random.below(n));
    for (int k = 0; k < n; ++k)
      ring[(index + n - 1 - k) % n] = ring[(index + n - 1 - k) % n + n] = dly[k];
    const auto ref = test::filtered(taps, dly, src);
    std::vector<D> out = src;
    for (int at = 0, way = 0; at < 200; ++way) {
      const int len = way % 3 < 2 ? int(std::min(200L - at, 1 + random.below(40))) : 1;
      D* y = &out[at];
      const auto* t = guardedTaps.data();
      const int before = index;
      ASSERT_EQ(way % 3 == 0   ? F::direct(&src[at], y, len, t, n, ring.data(), &index, 0)
                : way % 3 == 1 ? F::directInPlace(y, len, t, n, ring.data(), &index, 0)
                               : F::oneDirect(src[at], y, t, n, ring.data(), &index, 0),
                moxOk);
      ASSERT_EQ(index, (before + len) % n);
      at += len;
    }
    // The sum of _32f is rounded once, the products before.
    const long double u = std::numeric_limits<P>::epsilon() / 2;
    const long double terms = std::is_same_v<F, test::Fir32f> ? 1 : 2 * n + 2;
    for (int i = 0; i < 200; ++i) {
      const long double bound = u * (terms * ref[i].magnitude + std::abs(ref[i].value)) +
                                test::storeError<D>(ref[i].value);
      ASSERT_LE(std::abs(test::exactly(out[i]) - ref[i].value), bound * 1.001L)
          << n << " taps, output " << i;
    }
    for (int k = 0; k < n && k < 200; ++k) {
      EXPECT_EQ(test::exactly(ring[(index + n - 1 - k) % n]), test::exactly(src[199 - k]));
      EXPECT_EQ(test::exactly(ring[(index + n - 1 - k) % n + n]), test::exactly(src[199 - k]));
    }
  }
}

// 2^24 + 1 - 2^24: a sum in single precision loses the 1.
TEST(FirStateless32f, SumsInDoublePrecision) {
  const Mox32f taps[3] = {1, 1, 1}, src[3] = {0x1p24f, 1, -0x1p24f};
  Mox32f ring[6] = {}, y[3];
  int index = 0;
  ASSERT_EQ(moxsFIR_Direct_32f(src, y, 3, taps, 3, ring, &index), moxOk);
  EXPECT_EQ(y[2], 1);
}

TEST(FirStateless32f, TakesAnyIndexForAPlaceOfTheRing) {
  const Mox32f taps[3] = {0, 0, 1};
  Mox32f ring[6] = {1, 2, 3, 1, 2, 3}, y;
  for (int index : {-1, 2, std::numeric_limits<int>::max() - 1}) {
    const int place = (index % 3 + 3) % 3;
    std::fill_n(ring, 6, 0.0f);
    ring[(place + 1) % 3] = ring[(place + 1) % 3 + 3] = 5;
    ASSERT_EQ(moxsFIROne_Direct_32f(9, &y, taps, 3, ring, &index), moxOk);
    EXPECT_EQ(y, 5);
    EXPECT_EQ(index, (place + 1) % 3);
  }
}

}  // namespace
