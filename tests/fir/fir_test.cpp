// Filters with a state and without one, of all combinations of types, at one rate and at changing
// rates.
#include <gmock/gmock.h>

#include "fir/fir_model.h"
#include "support/core_probe.h"

namespace {

using namespace test;

template <class F>
class Fir : public testing::Test {
 protected:
  using Tap = typename F::Tap;
  using D = typename F::Data;

  // One signal in pieces through a state, whose taps and delay line are set again on the way, and
  // as a whole without one.
  void expectSignal(int n, const Rates& r, const std::vector<Piece>& pieces, long shift = 0) {
    SCOPED_TRACE(testing::Message() << n << " taps, up " << r.up << '+' << r.upPhase << " down "
                                    << r.down << '+' << r.downPhase);
    int iterations = 0;
    for (const Piece& p : pieces) iterations += p.len;
    const auto taps = someTaps<F>(random, n);
    const Signal<D> x = {random.vector<D>(r.history(n)),
                         random.vector<D>(long(iterations) * r.down)};
    const int factor = int(random.below(40)) - 20;
    Model<F> model(taps, factor);
    const int scale = model.scaleFor(shift);

    const bool taught = random.below(2);
    const auto state = makeFir<F>(taught ? random.vector<Tap>(n) : taps, x.past.data(), r, factor);
    MoxsFIRState* const s = state.get();
    if (taught) {
      ASSERT_OK(setTaps<F>(s, taps, factor));
    }
    model.expectTaps(s);
    std::vector<D> last(x.past.size());
    for (Piece p : pieces) {
      if (p.way == Way::singly && !r.areSingle()) p.way = Way::block;
      if (random.below(4) == 0) {
        ASSERT_OK(F::getDlyLine(s, last.data()));
        ASSERT_OK(F::setDlyLine(s, last.data()));
      }
      std::vector<D> got(long(p.len) * r.up);
      run<F>(s, p, &x.samples[p.at * r.down], long(p.len) * r.down, got, scale);
      setWay(model, p, n, r);
      model.expectOutputs(x, r, scale, got, p.at * r.up);
    }
    ASSERT_OK(F::getDlyLine(s, last.data()));
    ASSERT_TRUE(sameBits(last, x.lastPast()));
    ASSERT_OK(F::setDlyLine(s, nullptr));
    ASSERT_OK(F::getDlyLine(s, last.data()));
    ASSERT_TRUE(sameBits(last, std::vector<D>(last.size())));
    if constexpr (requires { F::multirateDirect; }) {
      std::vector<D> got(long(iterations) * r.up);
      last = x.past;
      const auto direct = [&](auto... tapsFactor) {
        return F::multirateDirect(x.samples.data(), got.data(), iterations, taps.data(), n,
                                  tapsFactor..., r.up, r.upPhase, r.down, r.downPhase, last.data(),
                                  scale);
      };
      if constexpr (isFixedPoint<F>)
        ASSERT_OK(direct(factor));
      else
        ASSERT_OK(direct());
      setWay(model, {Way::block, r.areSingle() ? iterations : 0}, n, r);
      model.expectOutputs(x, r, scale, got);
      ASSERT_TRUE(sameBits(last, x.lastPast()));
    }
    if constexpr (!isFixedPoint<F> || takesFactor<F>)
      if (r.areSingle()) expectRing(taps, x, factor, shift);
  }

  // The first samples again, by way of a ring of the caller's that starts at any place. 16-bit taps
  // are fractions there.
  void expectRing(const std::vector<Tap>& taps, Signal<D> x, int factor, long shift) {
    constexpr bool areFractions = std::is_same_v<F, Fir16s>;
    const int n = int(taps.size()), len = int(std::min(x.samples.size(), std::size_t(200)));
    x.samples.resize(len);
    const auto model = directModel(taps, areFractions ? -15 : factor);
    const int scale = model.scaleFor(shift);
    const GuardedArray<Tap> guardedTaps(n);
    std::copy(taps.begin(), taps.end(), guardedTaps.begin());
    const GuardedArray<D> ring(2 * n);
    const int start = int(random.below(n));
    // Any index is a place of the ring, but with fractions.
    int index = areFractions ? start : start + n * int(random.below(3) - 1);
    for (int k = 0; k < 2 * n; ++k) ring[(start + 2 * n - 1 - k) % (2 * n)] = x.past[k % n];
    const auto call = [&](auto f, auto... samples) {
      if constexpr (takesFactor<F> && !areFractions)
        return f(samples..., guardedTaps.data(), n, factor, ring.data(), &index, scale);
      else
        return f(samples..., guardedTaps.data(), n, ring.data(), &index, scale);
    };
    std::vector<D> y = x.samples;
    int place = start;
    for (const Piece& p : cut(random, len, 40)) {
      if (p.way == Way::block)
        ASSERT_OK(call(F::direct, &x.samples[p.at], &y[p.at], p.len));
      else if (p.way == Way::inPlace)
        ASSERT_OK(call(F::directInPlace, &y[p.at], p.len));
      else
        for (long i = p.at; i < p.at + p.len; ++i)
          ASSERT_OK(call(F::oneDirect, x.samples[i], &y[i]));
      place = areFractions && p.way != Way::singly ? 0 : (place + p.len) % n;
      ASSERT_EQ(index, place);
    }
    model.expectOutputs(x, {}, scale, y);
    const auto last = x.lastPast();
    for (int k = 0; k < 2 * n; ++k)
      ASSERT_EQ(exactly(ring[(place + 2 * n - 1 - k) % (2 * n)]), exactly(last[k % n]));
    index = n;
    ASSERT_EQ(call(F::oneDirect, D{}, &y[0]), areFractions ? moxErrDlyLineIndex : moxOk);
  }
  static Model<F> directModel(const std::vector<Tap>& taps, int factor) {
    if constexpr (isFixedPoint<F>) {
      return {taps, factor, F::directLimit};
    } else {
      Model<F> model(taps, 0);
      // The sum of floats is rounded once, the products before.
      if (std::is_same_v<F, Fir32f>) model.terms = 2;
      return model;
    }
  }

  // Blocks with 16-bit taps raise odd sums; those of floats may go by way of a spectrum.
  static void setWay(Model<F>& model, const Piece& p, int n, const Rates& r) {
    const bool isBlock = p.way != Way::singly;
    if constexpr (isFixedPoint<F>)
      model.rule = std::is_same_v<F, Fir16s> && isBlock ? Rule::oddUp : Rule::nearEven;
    else
      model.byFft = isBlock && r.areSingle() && n >= F::fftTaps && p.len >= F::fftLen;
  }

  Random random{7};
};
TYPED_TEST_SUITE(Fir, AllFirs);

// Tap counts about the changes of kernel and engine, lengths about those of engine and step; in
// fixed point all shifts within the clamp and beyond.
TYPED_TEST(Fir, AboutEveryThreshold) {
  long turn = 0;
  for (const int n :
       {1, 2, 3, 4, 7, 8, 9, 11, 12, 15, 16, 31, 32, 33, 63, 64, 65, 127, 128, 300, 1024, 1025})
    for (const int limit = ((n + 7) & ~7) + 1;
         const int len : {1, 2, n, limit - 2, limit - 1, limit, limit + 1, limit + 96, 255, 256,
                          511, 512, 513, 2113}) {
      this->expectSignal(n, {}, {{turn % 5 ? Way::block : Way::singly, len}}, turn % 69 - 34);
      ++turn;
    }
}

// In place samples go in chunks of 4224 or 8448, which may change engines in between.
TYPED_TEST(Fir, InPlaceInChunks) {
  for (const int n : {5, 40, 64, 200})
    for (const int len : {1, 511, 512, 4223, 4224, 4225, 4735, 4736, 8448, 8449, 9000})
      this->expectSignal(n, {}, {{Way::inPlace, len}}, -9);
  this->expectSignal(5, {3, 0, 2, 0}, {{Way::inPlace, 9000}}, -9);  // would overtake its inputs
}

// Single samples walk to the end of the room for them, and then a block needs all of it.
TYPED_TEST(Fir, ABlockBehindSingleSamples) {
  for (const int n : {15, 63, 300})
    for (int before = 1; before < 100; before += 3)
      this->expectSignal(n, {}, {{Way::singly, before}, {Way::block, 2113, before}}, -12);
}

TYPED_TEST(Fir, InAnyPieces) {
  for (const int n : {1, 3, 13, 33, 63, 64, 100})
    for (const int longest : {2 * n + 20, 3000})
      this->expectSignal(n, {}, cut(this->random, 6000, longest), -5);
}

TYPED_TEST(Fir, AtAllRatesInAllPhases) {
  int n = 0;
  for (int up = 1; up <= 7; ++up)
    for (int down = 1; down <= 7; ++down)
      for (int upPhase = 0; upPhase < up; ++upPhase)
        for (int downPhase = 0; downPhase < down; ++downPhase) {
          const int len = 1 + int(this->random.below(60));
          this->expectSignal(n % 40 + 1, {up, upPhase, down, downPhase},
                             cut(this->random, len, len), n % 21 - 16);
          ++n;
        }
}

// Cycles that are too long for the side-by-side engine, taps and signals of several pieces.
TYPED_TEST(Fir, AtRatesOfLongCycles) {
  const struct {
    Rates rates;
    int taps, iterations;
  } cases[] = {{{1, 0, 40, 7}, 100, 70},    {{40, 33, 1, 0}, 1, 70},
               {{17, 16, 16, 0}, 300, 130}, {{160, 9, 147, 2}, 1000, 12},
               {{16, 3, 15, 0}, 77, 400},   {{1, 0, 4, 3}, 2500, 1500},
               {{4, 3, 1, 0}, 400, 3000},   {{1, 0, 3000, 5}, 9, 3},
               {{6, 5, 4, 3}, 5, 900},      {{2999, 2998, 3000, 0}, 3500, 1}};
  for (const auto& c : cases)
    this->expectSignal(c.taps, c.rates, cut(this->random, c.iterations, c.iterations), -7);
}

// A growing rate in place takes a copy of the inputs; without memory nothing is touched.
TYPED_TEST(Fir, KeepsTheInputsWhenItCannotCopyThem) {
  const auto state =
      makeFir<TypeParam>(std::vector<typename TypeParam::Tap>(5), nullptr, {3, 0, 1, 0});
  auto x = this->random.template vector<typename TypeParam::Data>(300);
  const auto before = x;
  CoreProbe probe;
  probe.failAllocation(1);
  EXPECT_EQ(TypeParam::inPlace(x.data(), 100, state.get(), 0), moxErrMemAlloc);
  EXPECT_TRUE(sameBits(x, before));
  EXPECT_OK(TypeParam::inPlace(x.data(), 100, state.get(), 0));
  EXPECT_EQ(probe.live(), 0);
}

// A state that keeps its rate is a single-rate one, however it is made.
TYPED_TEST(Fir, AtOneRateTakesSingleSamplesHoweverItIsMade) {
  using F = TypeParam;
  const std::vector<typename F::Tap> taps(1);
  MoxsFIRState* s = nullptr;
  ASSERT_OK(allocFir<F>(&s, F::allocMultirate, taps, nullptr, 0, 1, 0, 1, 0));
  typename F::Data y;
  EXPECT_OK(F::one({}, &y, s, 0));
  F::free(s);
}

template <class F>
class FloatFir : public Fir<F> {};
TYPED_TEST_SUITE(FloatFir, FloatFirs);

// Below the thresholds of the FFT engine the bits don't depend on blocks, alignment or place.
TYPED_TEST(FloatFir, DirectOutputsHaveTheSameBitsInEveryBlock) {
  using F = TypeParam;
  for (const int n : {4, 12, F::fftTaps - 1}) {
    const auto taps = someTaps<F>(this->random, n);
    const auto x = this->random.template vector<typename F::Data>(2500);
    const auto a = makeFir<F>(taps), b = makeFir<F>(taps);
    auto whole = x, inPieces = x;
    run<F>(a.get(), {Way::block, 2500}, x.data(), 2500, whole, 0);
    for (Piece p : cut(this->random, 2500, 400)) {
      if (p.way == Way::singly) p.way = Way::block;
      std::vector<typename F::Data> got(p.len);
      run<F>(b.get(), p, &x[p.at], p.len, got, 0);
      std::copy(got.begin(), got.end(), &inPieces[p.at]);
    }
    EXPECT_TRUE(sameBits(whole, inPieces)) << n << " taps";
  }
}

// An infinity among zeros: directly it reaches the outputs that it is a term of and no other, by
// way of a spectrum all outputs of a transform. So it tells the engine of each output.
template <class F>
long spoiltOutputs(int n, int len, bool inPlace) {
  const std::vector taps(n, one<typename F::Tap>());
  std::vector<typename F::Data> x(len), y(len);
  *mox::parts(&x[100]) = INFINITY;
  run<F>(makeFir<F>(taps).get(), {inPlace ? Way::inPlace : Way::block, len}, x.data(), len, y, 0);
  return std::ranges::count_if(y, [](auto& v) { return !std::isfinite(*mox::parts(&v)); });
}
TYPED_SUITE(SameTypeFir, Fir32f, Fir32fc, Fir64f, Fir64fc);
TYPED_TEST(SameTypeFir, EnginesChangeAtTheirThresholds) {
  const int n = TypeParam::fftTaps, len = TypeParam::fftLen, chunk = 4224;
  EXPECT_EQ(spoiltOutputs<TypeParam>(n - 1, len, false), n - 1);
  EXPECT_EQ(spoiltOutputs<TypeParam>(n, len - 1, false), n);
  EXPECT_GT(spoiltOutputs<TypeParam>(n, len, false), n);
  EXPECT_EQ(spoiltOutputs<TypeParam>(n, chunk + len - 1, true), n);
  EXPECT_GT(spoiltOutputs<TypeParam>(n, chunk + len, true), n);
}

TYPED_SUITE(IntegerFir, Fir32f16s, Fir32fc16sc, Fir64f16s, Fir64fc16sc, Fir64f32s, Fir64fc32sc);
TYPED_TEST(IntegerFir, ScalesRoundsToEvenAndSaturates) {
  expectScaledOutputs<TypeParam>(makeFir<TypeParam>({one<typename TypeParam::Tap>()}).get());
}

TYPED_SUITE(FixedFir, Fir16s, Fir32s16s, Fir32sc16sc, Fir32s16s32f, Fir32sc16sc32fc);

// What makes taps fit, at its limits; new taps replace the factor.
TYPED_TEST(FixedFir, MakesTapsFit) {
  using F = TypeParam;
  using P = mox::Part<typename F::Tap>;
  using L = std::numeric_limits<P>;
  const int factor = INT_MAX - 20;
  for (const double limit : {0.0, 1.0, 32766.0, 32767.0, 32768.0, 65533.0, 65534.0, 0x1p31 - 1,
                             1e-30, 0.4999, 1e9, 1e38})
    for (const double sign : {1.0, -1.0}) {
      const P value = P(std::clamp<double>(sign * limit, double(L::lowest()), double(L::max())));
      std::vector<typename F::Tap> taps(3);
      mox::parts(taps.data())[1] = value, mox::parts(taps.data())[2] = P(value / 3);
      const auto state = makeFir<F>(std::vector<typename F::Tap>(3));
      ASSERT_OK(setTaps<F>(state.get(), taps, factor));
      Model<F>(taps, factor).expectTaps(state.get());
    }
}

// Taps of 32 bits are those of the same doubles, with a spectrum and without one.
TEST(Fir32s, IsTheFilterOfItsTapsAsDoubles) {
  Random random(14);
  for (const int n : {1, 31, 32, 100}) {
    std::vector<Mox32s> taps(n), got(n), y(600), expected(600);
    for (auto& t : taps) t = Mox32s(random.below(2001)) - 1000;
    const auto src = random.vector<Mox32s>(600);
    const auto doubles = makeFir<Fir64f32s>({taps.begin(), taps.end()});
    MoxsFIRState* s = nullptr;
    ASSERT_OK(moxsFIRInitAlloc_32s(&s, taps.data(), n, nullptr));
    ASSERT_OK(moxsFIRGetTaps_32s(s, got.data()));
    EXPECT_EQ(got, taps);
    ASSERT_OK(moxsFIR_32s_Sfs(src.data(), y.data(), 600, s, 9));
    ASSERT_OK(moxsFIR64f_32s_Sfs(src.data(), expected.data(), 600, doubles.get(), 9));
    EXPECT_EQ(y, expected) << n << " taps";
    ASSERT_OK(moxsFIROne_32s_Sfs(src[0], y.data(), s, 9));
    ASSERT_OK(moxsFIROne64f_32s_Sfs(src[0], expected.data(), doubles.get(), 9));
    EXPECT_EQ(y[0], expected[0]);
    EXPECT_OK(moxsFIRFree_32s(s));
  }
}

// Taps of another combination that runs the same states.
TEST(Fir32s, GivesTapsTruncatedAndSaturated) {
  const Mox64f taps[] = {2.9, -2.9, 1e10, -1e10, NAN};
  std::vector<Mox32s> got(5);
  const auto state = makeFir<Fir64f32s>({std::begin(taps), std::end(taps)});
  ASSERT_OK(moxsFIRGetTaps_32s(state.get(), got.data()));
  EXPECT_THAT(got, testing::ElementsAre(2, -2, INT_MAX, INT_MIN, INT_MAX));
}

}  // namespace
