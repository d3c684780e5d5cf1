#include <array>

#include "support/test.h"

namespace {

using test::Random;
using Floats = std::vector<Mox32f>;

// The functions of a direction.
template <class D>
struct Forward;
template <class D>
struct Inverse;
#define DIRECTION_API(Direction, name, D, type)                  \
  template <>                                                    \
  struct Direction<D> {                                          \
    using State = MoxWT##name##State;                            \
    static constexpr auto init = moxsWT##name##InitAlloc_##type; \
    static constexpr auto run = moxsWT##name##_##type;           \
    static constexpr auto get = moxsWT##name##GetDlyLine_##type; \
    static constexpr auto set = moxsWT##name##SetDlyLine_##type; \
    static constexpr auto free = moxsWT##name##Free_##type;      \
  }
#define BANK_API(D, type, inverseType)  \
  DIRECTION_API(Forward, Fwd, D, type); \
  DIRECTION_API(Inverse, Inv, D, inverseType)
BANK_API(Mox32f, 32f, 32f);
BANK_API(Mox8s, 8s32f, 32f8s);
BANK_API(Mox8u, 8u32f, 32f8u);
BANK_API(Mox16s, 16s32f, 32f16s);
BANK_API(Mox16u, 16u32f, 32f16u);

struct Channel {
  Floats taps;
  int offset;
  int len() const { return int(taps.size()); }
  Floats dlyLine() const {
    Floats line(std::max(len() - 1 + offset, 0));
    line.reserve(1);  // no null where there is none
    return line;
  }
};
struct Bank {
  Channel low, high;
};

// Runs run(k, n, state) over `len` samples of a band, at once or in random blocks. Now and then a
// new state takes over with the delay lines of the last one, where the sample i before the next
// block is kept(band, k, i).
template <class Api, class Run, class Kept>
void stream(const Bank& bank, int len, Random* cuts, Run run, Kept kept) {
  using State = typename Api::State;
  const Channel &low = bank.low, &high = bank.high;
  const auto make = [&] {
    State* state = nullptr;
    EXPECT_OK(Api::init(&state, low.taps.data(), low.len(), low.offset, high.taps.data(),
                        high.len(), high.offset));
    return state;
  };
  State* state = make();
  for (int k = 0, n; k < len; k += n) {
    n = cuts ? int(std::min<long>(len - k, 1 + cuts->below(cuts->below(8) ? 20 : 1200))) : len;
    if (cuts && cuts->below(3) == 0) {
      Floats lines[] = {low.dlyLine(), high.dlyLine()};
      EXPECT_OK(Api::get(state, lines[0].data(), lines[1].data()));
      for (const int band : {0, 1})
        for (int i = 1; i <= int(lines[band].size()); ++i)
          EXPECT_EQ(lines[band][lines[band].size() - i], kept(band, k, i));
      Api::free(state);
      state = make();
      EXPECT_OK(Api::set(state, lines[0].data(), lines[1].data()));
    }
    EXPECT_OK(run(k, n, state));
  }
  Api::free(state);
}

struct Bands {
  Floats low, high;
};

template <class D>
Bands analyse(const Bank& bank, const std::vector<D>& x, Random* cuts = nullptr) {
  const int len = int(x.size()) / 2;
  Bands bands = {Floats(len), Floats(len)};
  stream<Forward<D>>(
      bank, len, cuts,
      [&](int k, int n, auto* state) {
        return Forward<D>::run(&x[2 * k], &bands.low[k], &bands.high[k], n, state);
      },
      [&](int, int k, int i) { return 2 * k >= i ? Mox32f(x[2 * k - i]) : 0; });
  return bands;
}
template <class D>
std::vector<D> synthesise(const Bank& bank, const Bands& bands, Random* cuts = nullptr) {
  const int len = int(bands.low.size());
  std::vector<D> y(2 * len);
  stream<Inverse<D>>(
      bank, len, cuts,
      [&](int k, int n, auto* state) {
        return Inverse<D>::run(&bands.low[k], &bands.high[k], n, &y[2 * k], state);
      },
      [&](int band, int k, int i) {
        return i % 2 && 2 * k >= i ? (band ? bands.high : bands.low)[k - (i + 1) / 2] : 0;
      });
  return y;
}

TYPED_SUITE(FilterBank, Mox32f, Mox8s, Mox8u, Mox16s, Mox16u);

// Both banks against their sums, at every offset, whole and in blocks.
TYPED_TEST(FilterBank, FollowsItsFormulas) {
  using D = TypeParam;
  constexpr bool isInteger = std::is_integral_v<D>;
  const long double most = isInteger ? std::numeric_limits<D>::max() : 1;
  constexpr int len = 2600;
  Random random(1);
  for (const int lenLow : {1, 2, 3, 8, 33, 1500})
    for (const auto& [offsLow, offsHigh] :
         {std::pair(-1, -1), {0, 0}, {-1, 3}, {6, 0}, {1, 1200}}) {
      SCOPED_TRACE(testing::Message() << lenLow << " taps, offsets " << offsLow << ' ' << offsHigh);
      const Bank f = {{random.vector<Mox32f>(lenLow), offsLow},
                      {random.vector<Mox32f>(5), offsHigh}};
      const auto x = random.vector<D>(2 * len);
      const Bands bands = analyse(f, x), cut = analyse(f, x, &random);
      ASSERT_TRUE(bands.low == cut.low && bands.high == cut.high);
      const long double bound = 1e-6L * most;
      const auto expectBand = [&](const Channel& c, const Floats& band) {
        for (int k = 0; k < len; ++k) {
          long double sum = 0;
          for (int j = 0; j < c.len(); ++j)
            if (const int i = 2 * k - c.offset - j; i >= 0) sum += (long double)c.taps[j] * x[i];
          ASSERT_LE(std::fabs(band[k] - sum), bound * lenLow) << k;
        }
      };
      expectBand(f.low, bands.low);
      expectBand(f.high, bands.high);

      // Bands whose outputs reach a little beyond the range of the type.
      Bands in = {random.vector<Mox32f>(len), random.vector<Mox32f>(len)};
      for (Floats* band : {&in.low, &in.high})
        for (Mox32f& e : *band) e *= Mox32f(most / std::sqrt(lenLow));
      const auto y = synthesise<D>(f, in);
      ASSERT_EQ(y, synthesise<D>(f, in, &random));
      for (int n = 0; n < 2 * len; ++n) {
        long double sum = 0;
        const auto add = [&](const Channel& c, const Floats& band) {
          for (int j = 0; j < c.len(); ++j)
            if (const int twice = n - 1 - c.offset - j; twice >= 0 && twice % 2 == 0)
              sum += (long double)c.taps[j] * band[twice / 2];
        };
        add(f.low, in.low);
        add(f.high, in.high);
        if (isInteger) sum = std::clamp<long double>(sum, std::numeric_limits<D>::min(), most);
        ASSERT_LE(std::fabs(y[n] - sum), isInteger ? 0.5L + 4 * bound : 4 * bound) << n;
      }
    }
}

// Low-pass filters of analysis and synthesis that reconstruct perfectly.
struct Wavelet {
  Floats forward, inverse;
};

// Haar's and Daubechies' wavelets, whose synthesis reverses the analysis, and the 9/7 pair.
std::vector<Wavelet> wavelets() {
  std::vector<Wavelet> all = {
      {{0.037828456F, -0.023849465F, -0.110624404F, 0.377402856F, 0.852698679F, 0.377402856F,
        -0.110624404F, -0.023849465F, 0.037828456F},
       {-0.064538883F, -0.040689418F, 0.418092273F, 0.788485616F, 0.418092273F, -0.040689418F,
        -0.064538883F}}};
  for (const Floats& h :
       {Floats{0.707106781F, 0.707106781F},
        {0.482962913F, 0.836516304F, 0.224143868F, -0.129409523F},
        {0.332670553F, 0.806891509F, 0.459877502F, -0.135011020F, -0.085441274F, 0.035226292F},
        {0.230377813F, 0.714846571F, 0.630880768F, -0.027983769F, -0.187034812F, 0.030841382F,
         0.032883012F, -0.010597402F},
        {0.160102398F, 0.603829270F, 0.724308528F, 0.138428146F, -0.242294887F, -0.032244870F,
         0.077571494F, -0.006241490F, -0.012580752F, 0.003335725F}})
    all.push_back({h, {h.rbegin(), h.rend()}});
  return all;
}

// h[0], -h[1], h[2] .. times `sign`.
Floats alternating(Floats h, Mox32f sign) {
  for (Mox32f& e : h) e *= sign, sign = -sign;
  return h;
}

// Integers come back to the bit.
TYPED_TEST(FilterBank, ReconstructsPerfectly) {
  using D = TypeParam;
  Random random(2);
  for (const auto& [h, g] : wavelets())
    for (const auto& [low, lowInverse, high, highInverse] :
         {std::array{-1, 0, -1, 0}, {0, -1, 0, -1}, {4, 3, 4, 3}, {3, 0, 1, 2}}) {
      const Bank forward = {{h, low}, {alternating(g, 1), high}},
                 inverse = {{g, lowInverse}, {alternating(h, -1), highInverse}};
      const auto x = random.vector<D>(5000);
      const auto y = synthesise<D>(inverse, analyse(forward, x, &random), &random);
      const int delay = int(h.size() + g.size()) / 2 + low + lowInverse;
      for (int n = 0; n < int(y.size()); ++n)
        ASSERT_NEAR(y[n], n < delay ? 0 : x[n - delay], std::is_integral_v<D> ? 0 : 1e-6)
            << n << ", " << h.size() << " taps, offset " << low;
    }
}

}  // namespace
