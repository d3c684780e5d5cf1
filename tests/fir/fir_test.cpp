// Filters with a state, of all combinations of types, at one rate and at changing rates.
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
                                    << r.down << '+' << r.downPhase << ", " << seedNote());
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
      ASSERT_EQ(setTaps<F>(s, taps, factor), moxOk);
    }
    model.expectTaps(s);
    long at = 0;
    std::vector<D> last(x.past.size());
    for (Piece p : pieces) {
      if (p.way == Way::singly && !r.areSingle()) p.way = Way::block;
      if (random.below(4) == 0) {
        ASSERT_EQ(F::getDlyLine(s, last.data()), moxOk);
        ASSERT_EQ(F::setDlyLine(s, last.data()), moxOk);
      }
      std::vector<D> got(long(p.len) * r.up);
      run<F>(s, p, &x.samples[at * r.down], long(p.len) * r.down, got, scale);
      setWay(model, p, n, r);
      model.expectOutputs(x, r, scale, got, at * r.up);
      if (this->HasFatalFailure()) return;
      at += p.len;
    }
    ASSERT_EQ(F::getDlyLine(s, last.data()), moxOk);
    ASSERT_TRUE(sameBits(last, x.lastPast()));
    ASSERT_EQ(F::setDlyLine(s, nullptr), moxOk);
    ASSERT_EQ(F::getDlyLine(s, last.data()), moxOk);
    ASSERT_TRUE(sameBits(last, std::vector<D>(last.size())));
    if constexpr (!isFixedPoint<F>) {
      std::vector<D> got(long(iterations) * r.up);
      last = x.past, model.byFft = false;
      ASSERT_EQ(F::multirateDirect(x.samples.data(), got.data(), iterations, taps.data(), n, r.up,
                                   r.upPhase, r.down, r.downPhase, last.data(), 0),
                moxOk);
      model.expectOutputs(x, r, 0, got);
      ASSERT_TRUE(sameBits(last, x.lastPast()));
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
      if (++turn; this->HasFatalFailure()) return;
    }
}

// In place samples go in chunks of 4224 or 8448, which may change engines in between.
TYPED_TEST(Fir, InPlaceInChunks) {
  for (const int n : {5, 40, 64, 200})
    for (const int len : {1, 511, 512, 4223, 4224, 4225, 4735, 4736, 8448, 8449, 9000}) {
      this->expectSignal(n, {}, {{Way::inPlace, len}}, -9);
      if (this->HasFatalFailure()) return;
    }
  this->expectSignal(5, {3, 0, 2, 0}, {{Way::inPlace, 9000}}, -9);  // would overtake its inputs
}

// Single samples walk to the end of the room for them, and then a block needs all of it.
TYPED_TEST(Fir, ABlockBehindSingleSamples) {
  for (const int n : {15, 63, 300})
    for (int before = 1; before < 100; before += 3) {
      this->expectSignal(n, {}, {{Way::singly, before}, {Way::block, 2113}}, -12);
      if (this->HasFatalFailure()) return;
    }
}

TYPED_TEST(Fir, InAnyPieces) {
  for (const int n : {1, 3, 13, 33, 63, 64, 100})
    for (const int longest : {2 * n + 20, 3000}) {
      this->expectSignal(n, {}, cut(this->random, 6000, longest), -5);
      if (this->HasFatalFailure()) return;
    }
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
          if (++n; this->HasFatalFailure()) return;
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
  for (const auto& c : cases) {
    this->expectSignal(c.taps, c.rates, cut(this->random, c.iterations, c.iterations), -7);
    if (this->HasFatalFailure()) return;
  }
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
  EXPECT_EQ(TypeParam::inPlace(x.data(), 100, state.get(), 0), moxOk);
  EXPECT_EQ(probe.live(), 0);
}

// A state that keeps its rate is a single-rate one, however it is made.
TYPED_TEST(Fir, StatesBeginWithTheirWords) {
  using F = TypeParam;
  const std::vector<typename F::Tap> taps(1);
  MoxsFIRState* s = nullptr;
  EXPECT_EQ(allocFir<F>(&s, F::allocMultirate, taps, nullptr, 0, 3, 3, 1, 0), moxErrFirMrPhase);
  ASSERT_EQ(allocFir<F>(&s, F::allocMultirate, taps, nullptr, 0, 1, 0, 1, 0), moxOk);
  EXPECT_EQ(*reinterpret_cast<Mox32s*>(s), F::id);
  F::free(s);
}

template <class F>
class FloatFir : public Fir<F> {};
TYPED_TEST_SUITE(FloatFir, FloatFirs);

// Below the thresholds of the FFT engine the bits don't depend on blocks, alignment or place.
TYPED_TEST(FloatFir, DirectOutputsHaveTheSameBitsInEveryBlock) {
  using F = TypeParam;
  using Sample = typename F::Data;
  for (const int n : {4, 12, F::fftTaps - 1}) {
    const auto taps = someTaps<F>(this->random, n);
    const auto src = this->random.template vector<Sample>(2500);
    std::vector<Sample> whole(2500), cut(2500);
    const auto a = makeFir<F>(taps), b = makeFir<F>(taps);
    ASSERT_EQ(F::run(src.data(), whole.data(), 2500, a.get(), 0), moxOk);
    for (int at = 0; at < 2500;) {
      const int count = int(std::min<long>(1 + this->random.below(400), 2500 - at));
      std::vector<std::byte> room(count * sizeof(Sample) + 64);
      Sample* odd = reinterpret_cast<Sample*>(room.data() + this->random.below(64));  // any address
      std::memcpy(static_cast<void*>(odd), &src[at], count * sizeof(Sample));
      ASSERT_EQ(F::run(odd, &cut[at], count, b.get(), 0), moxOk);
      at += count;
    }
    EXPECT_TRUE(sameBits(whole, cut)) << n << " taps";
  }
}

// An infinity among zeros: directly it reaches the outputs that it is a term of and no other, by
// way of a spectrum all outputs of a transform. So it tells the engine of each output.
TYPED_TEST(FloatFir, EnginesChangeAtTheirThresholds) {
  using F = TypeParam;
  using Sample = typename F::Data;
  if constexpr (std::is_same_v<typename F::Tap, Sample>) {
    const auto spoilt = [](int n, int len, bool inPlace, int at) {
      std::vector<typename F::Tap> taps(n);
      for (auto& tap : taps) *mox::parts(&tap) = 1;
      std::vector<Sample> x(len);
      *mox::parts(&x[at]) = INFINITY;
      auto y = x;
      const auto state = makeFir<F>(taps);
      if (inPlace)
        F::inPlace(y.data(), len, state.get(), 0);
      else
        F::run(x.data(), y.data(), len, state.get(), 0);
      return std::ranges::count_if(y, [](Sample& v) { return !std::isfinite(*mox::parts(&v)); });
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

TEST(Fir32f16s, ScalesRoundsToEvenAndSaturates) {
  const auto state = makeFir<Fir32f16s>({1});
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
  EXPECT_THAT(run(INT_MAX), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_THAT(run(INT_MIN), ElementsAre(32767, 32767, -32768, -32768, 32767, -32768, 32767, 0));
}

template <class F>
class FixedFir : public testing::Test {};
using FixedFirs = testing::Types<Fir16s, Fir32s16s, Fir32sc16sc, Fir32s16s32f, Fir32sc16sc32fc>;
TYPED_TEST_SUITE(FixedFir, FixedFirs);

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
      ASSERT_EQ(setTaps<F>(state.get(), taps, factor), moxOk);
      Model<F>(taps, factor).expectTaps(state.get());
    }
}

// Taps of 32 bits that are held as doubles, exact here, with a spectrum and without one.
TEST(Fir32s, SumsInDoublePrecision) {
  Random random(14);
  for (const int n : {1, 31, 32, 100}) {
    std::vector<Mox32s> taps(n), src(600), y(600), got(n);
    for (auto& t : taps) t = Mox32s(random.below(2001)) - 1000;
    for (auto& x : src) x = Mox32s(random.below(20001)) - 10000;
    MoxsFIRState *direct = nullptr, *byFft = nullptr;
    int size = 0;
    ASSERT_EQ(moxsFIRGetStateSize_32s(n, &size), moxOk);
    std::vector<Mox8u> memory(size);
    ASSERT_EQ(moxsFIRInit_32s(&direct, taps.data(), n, nullptr, memory.data()), moxOk);
    ASSERT_EQ(moxsFIRInitAlloc_32s(&byFft, taps.data(), n, nullptr), moxOk);
    ASSERT_EQ(moxsFIRGetTaps_32s(direct, got.data()), moxOk);
    EXPECT_EQ(got, taps);
    for (MoxsFIRState* s : {direct, byFft}) {
      ASSERT_EQ(moxsFIR_32s_Sfs(src.data(), y.data(), 600, s, 0), moxOk);
      for (int i = 0; i < 600; ++i) {
        long sum = 0;
        for (int k = 0; k <= std::min(i, n - 1); ++k) sum += long(taps[k]) * src[i - k];
        ASSERT_EQ(y[i], sum) << n << " taps, output " << i;
      }
      ASSERT_EQ(moxsFIROne_32s_Sfs(src[0], y.data(), s, 0), moxOk);
      EXPECT_EQ(moxsFIRFree_32s(s), moxOk);
    }
  }
}

// Taps of another combination that runs the same states.
TEST(Fir32s, GivesTapsTruncatedAndSaturated) {
  const Mox64f taps[] = {2.9, -2.9, 1e10, -1e10, NAN};
  std::vector<Mox32s> got(5);
  const auto state = makeFir<Fir64f32s>({std::begin(taps), std::end(taps)});
  ASSERT_EQ(moxsFIRGetTaps_32s(state.get(), got.data()), moxOk);
  EXPECT_THAT(got, testing::ElementsAre(2, -2, INT_MAX, INT_MIN, INT_MAX));
}

// The spectrum goes where the state with it is too large, not the filter.
TEST(FirSize, LongFiltersDoWithoutASpectrum) {
  int with = 0, without = 0, longest = 0;
  ASSERT_EQ(moxsFIRGetStateSize_32f(66'000'000, &with), moxOk);
  ASSERT_EQ(moxsFIRGetStateSize_32f(67'000'000, &without), moxOk);
  ASSERT_EQ(moxsFIRGetStateSize_32f(170'000'000, &longest), moxOk);
  EXPECT_LT(without, with);
  EXPECT_GT(longest, without);
}

TEST(FirSize, OneServesAllStatesThatHoldFloats) {
  for (const int n : {1, 64, 1000}) {
    int plain = 0, mixed = 0, stream = 0;
    ASSERT_EQ(moxsFIRGetStateSize_32f(n, &plain), moxOk);
    ASSERT_EQ(moxsFIRGetStateSize32f_16s(n, &mixed), moxOk);
    ASSERT_EQ(moxsFIRStreamGetStateSize_32f(n, &stream), moxOk);
    EXPECT_EQ(plain, mixed);
    EXPECT_EQ(plain, stream);
  }
}

// A stream reads its history from the array, and nothing more. make() sets the state up.
template <class F>
void expectStream(Random& random, Model<F>& model, const Rates& r, int n, int len, int scale,
                  auto make) {
  using D = typename F::Data;
  const int history = r.history(n) - (r.downPhase >= r.upPhase);
  const GuardedArray<D> src(len * r.down + history), dst(len * r.up);
  for (auto& x : src) x = random.value<D>();
  MoxsFIRState* s = nullptr;
  ASSERT_EQ(make(&s), moxOk);
  ASSERT_EQ(F::run(src.data(), dst.data(), len, s, scale), moxOk);
  const Signal<D> x = {
      {std::reverse_iterator(src.begin() + history), std::reverse_iterator(src.begin())},
      {src.begin() + history, src.end()}};
  model.expectOutputs(x, r, scale, {dst.begin(), dst.end()});
  EXPECT_EQ(F::run(dst.data(), dst.data(), 1, s, scale), moxErrContext);
  EXPECT_EQ(F::inPlace(dst.data(), 1, s, scale), moxErrContext);
  EXPECT_EQ(F::free(s), moxOk);
}

TEST(FirStream, OfFloats) {
  Random random(8);
  for (const Rates& r :
       {Rates{}, {1, 0, 4, 3}, {3, 0, 2, 0}, {3, 2, 2, 0}, {5, 4, 5, 0}, {40, 39, 3, 0}})
    for (const int n : {1, 3, 4, 7, 16, 64, 70, 1600})  // the last needs more room than a chunk
      for (const int len : {1, 4, 7, 100, 800}) {
        const auto taps = random.vector<Mox32f>(n);
        Model<Fir32f> model(taps, 0);
        expectStream(random, model, r, n, len, 0, [&](MoxsFIRState** s) {
          return r.areSingle() ? moxsFIRStreamInitAlloc_32f(s, taps.data(), n)
                               : moxsFIRMRStreamInitAlloc_32f(s, taps.data(), n, r.up, r.upPhase,
                                                              r.down, r.downPhase);
        });
        if (testing::Test::HasFatalFailure()) return;
      }
}

TEST(FirStream, OfWordsInAllRoundings) {
  Random random(12);
  for (const Rates& r : {Rates{}, {2, 0, 5, 0}, {3, 2, 2, 0}})
    for (const int n : {1, 2, 16, 33, 64})
      for (long shift = -33; shift <= 33; shift += 3)
        for (int mode = 0; mode < 3; ++mode) {
          const auto taps = random.vector<Mox16s>(n);
          Model<Fir16s> model(taps, 4);
          model.rule = Rule(mode);
          int size = 0;
          ASSERT_EQ(r.areSingle() ? moxsFIRStreamGetStateSize_16s(n, &size)
                                  : moxsFIRMRStreamGetStateSize_16s(n, r.up, r.down, &size),
                    moxOk);
          const int fixed = n == 64 ? 1136 : n == 16 ? 384 : 0;
          if (r.areSingle()) {
            ASSERT_EQ(size, ((2 * n + 15) & ~15) + fixed + 96);
          }
          const int slack = int(random.below(16));
          const GuardedArray<Mox8u> memory(size + slack);
          expectStream(random, model, r, n, 1 + int(random.below(600)), model.scaleFor(shift),
                       [&](MoxsFIRState** s) {
                         Mox8u* const buffer = memory.data() + slack;
                         return r.areSingle()
                                    ? moxsFIRStreamInit_16s(s, taps.data(), n, 4, mode, buffer)
                                    : moxsFIRMRStreamInit_16s(s, taps.data(), n, 4, r.up, r.upPhase,
                                                              r.down, r.downPhase, mode, buffer);
                       });
          if (testing::Test::HasFatalFailure()) return;
        }
  MoxsFIRState* s = nullptr;
  const Mox16s tap = 1;
  EXPECT_EQ(moxsFIRStreamInitAlloc_16s(&s, &tap, 1, 0, 3), moxErrRoundMode);
  EXPECT_EQ(moxsFIRStreamInitAlloc_16s(&s, &tap, 0, 0, 3), moxErrFirLen);
}

}  // namespace
