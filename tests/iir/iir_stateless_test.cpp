#include <gtest/gtest.h>

#include <algorithm>

#include "iir/iir_api.h"

namespace {

using Words = std::vector<Mox16s>;

// The rule of single samples in 64-bit arithmetic, cut to 32 bits after each operation.
Mox32s wrapped(Mox64s v) { return Mox32s(Mox32u(Mox64u(v))); }

Mox32s stepOf(const Mox16s* taps, int order, Mox32s* d, Mox32s x) {
  const int s = taps[order + 1] & 31;
  const Mox32s sum = wrapped(Mox64s(taps[0]) * x + d[0]);
  const Mox64s half = (Mox64s(1) << ((s + 31) & 31)) - 1;
  const Mox32s y = wrapped(sum + ((sum >> s) & 1) + half) >> s;
  for (int i = 0; i < order; ++i)
    d[i] =
        wrapped(wrapped(Mox64s(taps[i + 1]) * x) -
                Mox64s(wrapped(Mox64s(taps[order + 2 + i]) * y)) + (i + 1 < order ? d[i + 1] : 0));
  return y;
}

// Full-range taps and sums wrap all the time; shifts of 0 and beyond 31 among them.
TEST(IirStateless, SingleSamplesWrapAndRoundByTheRule) {
  test::Random random;
  SCOPED_TRACE(test::seedNote());
  for (int round = 0; round < 3000; ++round) {
    const int order = int(1 + random.below(6)), numBq = int(1 + random.below(3));
    const int shifts[] = {0, 1, 2, 14, 15, 30, 31, 32, 33, 32767};
    const auto shift = [&] { return Mox16s(shifts[random.below(10)]); };
    Words taps = random.vector<Mox16s>(2 * order + 2), sections = random.vector<Mox16s>(6 * numBq);
    taps[std::size_t(order + 1)] = shift();
    for (int k = 0; k < numBq; ++k) sections[std::size_t(6 * k + 3)] = shift();
    auto d = random.vector<Mox32s>(order), dq = random.vector<Mox32s>(2 * numBq), e = d, eq = dq;
    for (int i = 0; i < 20; ++i) {
      const Mox16s x = random.value<Mox16s>();
      Mox16s y, yq = x;
      ASSERT_EQ(moxsIIROne_Direct_16s(x, &y, taps.data(), order, d.data()), moxOk);
      ASSERT_EQ(y, std::clamp(stepOf(taps.data(), order, e.data(), x), -32768, 32767))
          << taps[std::size_t(order + 1)];
      ASSERT_EQ(d, e);
      ASSERT_EQ(moxsIIROne_BiQuadDirect_16s_I(&yq, sections.data(), numBq, dq.data()), moxOk);
      Mox32s v = x;
      for (int k = 0; k < numBq; ++k)
        v = stepOf(&sections[std::size_t(6 * k)], 2, &eq[std::size_t(2 * k)], v);
      ASSERT_EQ(yq, std::clamp(v, -32768, 32767));
      ASSERT_EQ(dq, eq);
    }
  }
  const Mox16s zeroShift[] = {1, 0, 0, 0};
  Mox32s d = 0;
  Mox16s y;
  ASSERT_EQ(moxsIIROne_Direct_16s(5, &y, zeroShift, 1, &d), moxOk);
  EXPECT_EQ(y, -32768);  // 5 + 1 + 2^31 - 1 has wrapped
}

TEST(IirStateless, ANegativeShiftStopsACascade) {
  Words taps = {3, 1, 2, 2, 1, 1, 3, 1, 2, -1, 1, 1};
  Mox32s d[4] = {1, 2, 3, 4};
  Mox16s x[3] = {100, 200, 300}, y = 77;
  EXPECT_EQ(moxsIIR_BiQuadDirect_16s_I(x, 3, taps.data(), 2, d), moxErrIirTapFactor);
  EXPECT_EQ(moxsIIR_Direct_16s_I(x, 0, taps.data() + 6, 2, d),
            moxErrIirTapFactor);  // before the length
  EXPECT_EQ(x[0], 100);
  EXPECT_EQ(d[0], 1);
  EXPECT_EQ(moxsIIROne_BiQuadDirect_16s(100, &y, taps.data(), 2, d), moxErrIirTapFactor);
  EXPECT_EQ(y, 77);
  Mox32s first[2] = {1, 2};
  stepOf(taps.data(), 2, first, 100);
  EXPECT_EQ(d[0], first[0]);
  EXPECT_EQ(d[1], first[1]);
  EXPECT_EQ(d[2], 3);
}

// Blocks run in floats, whose delay line goes back in units of 2^-s.
TEST(IirStateless, BlocksFilterByFloats) {
  test::Random random(1);
  for (const bool cascade : {false, true})
    for (const int len : {1, 50, 700, 5000}) {
      const Words taps =
          cascade ? Words{8192, 4096, 2048, 14, -9000, 3000, 4000, -200, 500, 13, 1000, 900}
                  : Words{8192, 4096, 2048, 100, 14, -9000, 3000, 500};
      std::vector<double> scaled(taps.begin(), taps.end());
      const int order = cascade ? 2 : 3, sections = cascade ? 2 : 1;
      std::vector<Mox32s> d(std::size_t(order * sections), 100000);
      for (int k = 0; k < sections; ++k) {
        const std::size_t at = std::size_t(2 * (order + 1) * k);
        const int s = taps[at + std::size_t(order) + 1];
        for (int i = 0; i < 2 * (order + 1); ++i)
          scaled[at + std::size_t(i)] = std::ldexp(scaled[at + std::size_t(i)], -s);
        scaled[at + std::size_t(order) + 1] = 1;
      }
      test::Recurrence exact(cascade ? test::Shape::cascade : test::Shape::anyOrder, scaled,
                             cascade ? 2 : 3);
      const auto shiftOf = [&](int i) {
        return int(taps[std::size_t(2 * (order + 1) * (i / order) + order + 1)]);
      };
      for (int i = 0; i < order * sections; ++i)
        exact.d[std::size_t(i)] = std::ldexp(100000.0L, -shiftOf(i));
      const auto src = random.vector<Mox16s>(len);
      Words y(src.size());
      ASSERT_EQ((cascade ? moxsIIR_BiQuadDirect_16s : moxsIIR_Direct_16s)(
                    src.data(), y.data(), len, taps.data(), cascade ? 2 : 3, d.data()),
                moxOk);
      for (int i = 0; i < len; ++i)
        ASSERT_NEAR(y[std::size_t(i)],
                    double(std::clamp(exact(src[std::size_t(i)]).real(), -32768.0L, 32767.0L)),
                    0.52);
      for (int i = 0; i < order * sections; ++i)
        ASSERT_NEAR(d[std::size_t(i)],
                    double(std::ldexp(exact.d[std::size_t(i)].real(), shiftOf(i))), 2000);
    }
}

}  // namespace
