#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "fir/fir_api.h"
#include "support/guarded_array.h"

namespace {

using test::AllFirs;
using test::filtered;
using test::makeFir;

// Taps of this count whose output fills, but seldom exceeds, the range of 16-bit data.
template <class F>
std::vector<typename F::Tap> someTaps(test::Random& random, long n) {
  auto taps = random.vector<typename F::Tap>(n);
  using P = mox::Part<typename F::Tap>;
  if (std::is_integral_v<mox::Part<typename F::Data>>)
    for (auto& t : taps)
      for (int i = 0; i < mox::partsPerElement<typename F::Tap>; ++i)
        mox::parts(&t)[i] *= P(2 / std::sqrt(double(n)));
  return taps;
}

// How far an output may be from its exact value: the roundings of a chain of as many products as
// taps; by way of a spectrum one rounding of the largest output for each stage of a transform.
template <class F>
void expectClose(const std::vector<typename F::Tap>& taps, const std::vector<test::Reference>& ref,
                 const typename F::Data* got, bool byFft) {
  using P = mox::Part<typename F::Tap>;
  const long double u = std::numeric_limits<P>::epsilon() / 2;
  int stages = 3;
  while (1UL << (stages - 1) <= taps.size()) ++stages;
  long double largest = 0;
  for (const auto& r : ref) largest = std::max(largest, r.magnitude);
  for (std::size_t i = 0; i < ref.size(); ++i) {
    test::Exact value = ref[i].value;
    long double bound = byFft ? stages * u * largest : u * (2 * taps.size() + 2) * ref[i].magnitude;
    value = test::saturated<typename F::Data>(value);
    bound += test::storeError<typename F::Data>(value);
    ASSERT_LE(std::abs(test::exactly(got[i]) - value), bound)
        << "output " << i << " of " << ref.size() << ", " << taps.size() << " taps";
  }
}

template <class F>
bool mayRunByFft(long taps, long len) {
  return taps >= F::fftTaps && len >= F::fftLen;
}

template <class F>
class FirRun : public testing::Test {};
TYPED_TEST_SUITE(FirRun, AllFirs);

// Tap counts about the changes of kernel and engine, lengths about those of engine and step.
TYPED_TEST(FirRun, AgreesWithTheDefiningSumAboutEveryThreshold) {
  using F = TypeParam;
  using D = typename F::Data;
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  for (const int n : {1, 2, 3, 7, 8, 11, 12, 15, 16, 31, 32, 63, 64, 65, 127, 128, 1024, 1025}) {
    const auto taps = someTaps<F>(random, n);
    const int limit = ((n + 7) & ~7) + 1;
    for (const int len : {1, 2, n, limit - 2, limit - 1, limit, limit + 1, limit + 96, 255, 256,
                          511, 512, 513, 2113}) {
      const auto dly = random.vector<D>(n), src = random.vector<D>(len);
      const auto state = makeFir<F>(taps, dly.data());
      ASSERT_TRUE(state);
      const test::GuardedArray<D> in(len), out(len);
      std::copy(src.begin(), src.end(), in.begin());
      ASSERT_EQ(F::run(in.data(), out.data(), len, state.get(), 0), moxOk);
      expectClose<F>(taps, filtered(taps, dly, src), out.data(), mayRunByFft<F>(n, len));
      if (this->HasFatalFailure()) return;
      std::vector<D> kept(n);
      ASSERT_EQ(F::getDlyLine(state.get(), kept.data()), moxOk);
      for (int k = 0; k < n; ++k) {
        const D expected = k < len ? src[len - 1 - k] : dly[k - len];
        ASSERT_EQ(test::exactly(kept[k]), test::exactly(expected)) << n << " taps, len " << len;
      }
    }
  }
}

// In place samples go in chunks of 4224 or 8448, which may change engines in between.
TYPED_TEST(FirRun, InPlaceChunksJoinWithoutASeam) {
  using F = TypeParam;
  using D = typename F::Data;
  test::Random random(1);
  for (const int n : {5, 40, 64, 200})
    for (const int len : {1, 511, 512, 4223, 4224, 4225, 4735, 4736, 8448, 8449, 9000}) {
      const auto taps = someTaps<F>(random, n);
      const auto src = random.vector<D>(len);
      auto plain = src, inPlace = src, same = src;
      const auto a = makeFir<F>(taps), b = makeFir<F>(taps), c = makeFir<F>(taps);
      ASSERT_EQ(F::run(src.data(), plain.data(), len, a.get(), 0), moxOk);
      ASSERT_EQ(F::runInPlace(inPlace.data(), len, b.get(), 0), moxOk);
      ASSERT_EQ(F::run(same.data(), same.data(), len, c.get(), 0), moxOk);
      ASSERT_EQ(std::memcmp(same.data(), inPlace.data(), len * sizeof(D)), 0);
      for (const long at :
           {0L, std::max(0L, len - 40L), std::max(0L, std::min(len - 40L, 4200L))}) {
        const long count = std::min(40L, len - at);
        const auto ref = filtered(taps, {}, src, at, count);
        expectClose<F>(taps, ref, plain.data() + at, mayRunByFft<F>(n, len));
        expectClose<F>(taps, ref, inPlace.data() + at, mayRunByFft<F>(n, len));
        if (this->HasFatalFailure()) return;
      }
    }
}

// Blocks, single samples, in place and not, with new taps and a new delay line in between.
TYPED_TEST(FirRun, AStreamInAnyPiecesIsOneSignal) {
  using F = TypeParam;
  using D = typename F::Data;
  SCOPED_TRACE(test::seedNote());
  test::Random random(2);
  for (const int n : {1, 3, 13, 33, 63, 64, 100}) {
    const auto taps = someTaps<F>(random, n);
    const auto src = random.vector<D>(9000);
    const auto ref = filtered(taps, {}, src);
    const auto state = makeFir<F>(taps);
    std::vector<D> out(src.size());
    for (long at = 0; at < long(src.size());) {
      const int way = int(random.below(5));
      const int len =
          int(std::min(1 + random.below(way == 0 ? 3000 : 2 * n + 20), long(src.size()) - at));
      if (way == 1) {
        std::copy_n(src.begin() + at, len, out.begin() + at);
        ASSERT_EQ(F::runInPlace(out.data() + at, len, state.get(), 0), moxOk);
      } else if (way == 2) {
        for (int i = 0; i < len; ++i)
          ASSERT_EQ(F::one(src[at + i], &out[at + i], state.get(), 0), moxOk);
      } else {
        ASSERT_EQ(F::run(&src[at], &out[at], len, state.get(), 0), moxOk);
      }
      at += len;
      if (random.below(8) == 0) {
        std::vector<D> dly(n);
        ASSERT_EQ(F::getDlyLine(state.get(), dly.data()), moxOk);
        ASSERT_EQ(F::setDlyLine(state.get(), dly.data()), moxOk);
        ASSERT_EQ(F::setTaps(taps.data(), state.get()), moxOk);
      }
    }
    expectClose<F>(taps, ref, out.data(), mayRunByFft<F>(n, 3000));
    if (this->HasFatalFailure()) return;
  }
}

// Single samples walk to the end of the room for them, and then a block needs all of it.
TYPED_TEST(FirRun, ABlockFollowsSingleSamplesAtAnyPlace) {
  using F = TypeParam;
  using D = typename F::Data;
  test::Random random(6);
  for (const int n : {F::fftTaps - 1, 300})
    for (int before = 1; before < 100; before += 3) {
      const auto taps = someTaps<F>(random, n);
      const auto src = random.vector<D>(before + 2113);
      std::vector<D> out(src.size());
      const auto state = makeFir<F>(taps);
      for (int i = 0; i < before; ++i) F::one(src[i], &out[i], state.get(), 0);
      ASSERT_EQ(F::run(&src[before], &out[before], 2113, state.get(), 0), moxOk);
      const auto ref = filtered(taps, {}, src, before, 80);
      expectClose<F>(taps, ref, &out[before], mayRunByFft<F>(n, 2113));
      if (this->HasFatalFailure()) return;
    }
}

TYPED_TEST(FirRun, NewTapsHoldForBothEngines) {
  using F = TypeParam;
  test::Random random(5);
  const auto old = someTaps<F>(random, F::fftTaps), taps = someTaps<F>(random, F::fftTaps);
  for (const int len : {F::fftLen - 1, F::fftLen}) {
    const auto src = random.vector<typename F::Data>(len);
    auto y = src;
    const auto state = makeFir<F>(old);
    ASSERT_EQ(F::setTaps(taps.data(), state.get()), moxOk);
    ASSERT_EQ(F::run(src.data(), y.data(), len, state.get(), 0), moxOk);
    expectClose<F>(taps, filtered(taps, {}, src), y.data(), mayRunByFft<F>(F::fftTaps, len));
  }
}

// Below the thresholds of the FFT engine the bits don't depend on blocks, alignment or place.
TYPED_TEST(FirRun, DirectOutputsHaveTheSameBitsInEveryBlock) {
  using F = TypeParam;
  using D = typename F::Data;
  test::Random random(3);
  for (const int n : {4, 12, F::fftTaps - 1}) {
    const auto taps = someTaps<F>(random, n);
    const int len = 2500;
    std::vector<std::byte> room(len * sizeof(D) + 64);
    const auto src = random.vector<D>(len);
    std::vector<D> whole(len), cut(len);
    const auto a = makeFir<F>(taps), b = makeFir<F>(taps);
    ASSERT_EQ(F::run(src.data(), whole.data(), len, a.get(), 0), moxOk);
    for (int at = 0; at < len;) {
      const int count = int(std::min<long>(1 + random.below(400), len - at));
      D* odd = reinterpret_cast<D*>(room.data() + random.below(64));  // any address
      std::memcpy(static_cast<void*>(odd), &src[at], count * sizeof(D));
      ASSERT_EQ(F::run(odd, &cut[at], count, b.get(), 0), moxOk);
      at += count;
    }
    EXPECT_EQ(std::memcmp(whole.data(), cut.data(), len * sizeof(D)), 0) << n << " taps";
  }
}

// An infinity among zeros: directly it reaches the outputs that it is a term of and no other, by
// way of a spectrum all outputs of a transform. So it tells the engine of each output.
TYPED_TEST(FirRun, EnginesChangeAtTheirThresholds) {
  using F = TypeParam;
  using D = typename F::Data;
  if constexpr (std::is_same_v<typename F::Tap, D>) {
    const auto spoilt = [](int n, int len, bool inPlace, int at) {
      const std::vector<typename F::Tap> taps(n, test::number<typename F::Tap>(1));
      std::vector<D> x(len);
      *mox::parts(&x[at]) = INFINITY;
      auto y = x;
      const auto state = makeFir<F>(taps);
      if (inPlace)
        F::runInPlace(y.data(), len, state.get(), 0);
      else
        F::run(x.data(), y.data(), len, state.get(), 0);
      return std::ranges::count_if(y, [](D& v) { return !std::isfinite(*mox::parts(&v)); });
    };
    const int n = F::fftTaps, len = F::fftLen;
    EXPECT_EQ(spoilt(n - 1, len, false, 100), n - 1);
    EXPECT_EQ(spoilt(n, len - 1, false, 100), n);
    EXPECT_GT(spoilt(n, len, false, 100), n);
    EXPECT_EQ(spoilt(n, 4224, true, 100), n);
    EXPECT_EQ(spoilt(n, 4224 + len - 1, true, 100), n);
    EXPECT_GT(spoilt(n, 4224 + len, true, 100), n);
    EXPECT_EQ(spoilt(n, 4224 + len, true, 4224 + 100), n);
    // The last 50 outputs are what steps of 193 leave over, and are filtered directly.
    if (n == 64) {
      EXPECT_EQ(spoilt(n, 629, false, 400), 193);
    }
  }
}

TEST(FirRun16s, ScalesRoundsToEvenAndSaturates) {
  const std::vector<Mox32f> taps{1};
  const auto state = makeFir<test::Fir32f16s>(taps);
  const Mox16s x[] = {5, 7, -5, -7, 32767, -32768, 1, 0};
  const auto run = [&](int scale) {
    std::vector<Mox16s> y(8), one(8);
    EXPECT_EQ(moxsFIR32f_16s_Sfs(x, y.data(), 8, state.get(), scale), moxOk);
    for (int i = 0; i < 8; ++i) moxsFIROne32f_16s_Sfs(x[i], &one[i], state.get(), scale);
    EXPECT_EQ(y, one);
    return y;
  };
  using testing::ElementsAre;
  EXPECT_THAT(run(1), ElementsAre(2, 4, -2, -4, 16384, -16384, 0, 0));
  EXPECT_THAT(run(-1), ElementsAre(10, 14, -10, -14, 32767, -32768, 2, 0));
  EXPECT_THAT(run(std::numeric_limits<int>::max()), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_THAT(run(std::numeric_limits<int>::min()),
              ElementsAre(32767, 32767, -32768, -32768, 32767, -32768, 32767, 0));
}

TEST(FirStream32f, ReadsItsHistoryFromTheArrayAndNothingMore) {
  test::Random random(4);
  for (const int n : {1, 3, 16, 70, 300, 1600})  // the last needs more room than a chunk
    for (const int len : {1, 4, 7, 100, 1000}) {
      const auto taps = random.vector<Mox32f>(n);
      const test::GuardedArray<Mox32f> src(len + n - 1), dst(len);
      for (auto& x : src) x = random.value<Mox32f>();
      MoxsFIRState* s = nullptr;
      ASSERT_EQ(moxsFIRStreamInitAlloc_32f(&s, taps.data(), n), moxOk);
      ASSERT_EQ(moxsFIR_32f(src.data(), dst.data(), len, s), moxOk);
      const std::vector<Mox32f> all(src.begin(), src.end());
      expectClose<test::Fir32f>(taps, filtered(taps, {}, all, n - 1), dst.data(), false);
      EXPECT_EQ(moxsFIR_32f(dst.data(), dst.data(), len, s), moxErrContext);
      EXPECT_EQ(moxsFIRFree_32f(s), moxOk);
    }
}

}  // namespace
