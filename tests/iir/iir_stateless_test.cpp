#include "iir/iir_api.h"

namespace {

using namespace test;

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
  Random random;
  for (int round = 0; round < 3000; ++round) {
    const int order = int(1 + random.below(6)), numBq = int(1 + random.below(3));
    const int shifts[] = {0, 1, 2, 14, 15, 30, 31, 32, 33, 32767};
    const auto shift = [&] { return Mox16s(shifts[random.below(10)]); };
    Words taps = random.vector<Mox16s>(2 * order + 2), sections = random.vector<Mox16s>(6 * numBq);
    taps[order + 1] = shift();
    for (int k = 0; k < numBq; ++k) sections[6 * k + 3] = shift();
    auto d = random.vector<Mox32s>(order), dq = random.vector<Mox32s>(2 * numBq), e = d, eq = dq;
    for (int i = 0; i < 20; ++i) {
      const Mox16s x = random.value<Mox16s>();
      Mox16s y, yq = x;
      ASSERT_OK(moxsIIROne_Direct_16s(x, &y, taps.data(), order, d.data()));
      ASSERT_EQ(y, std::clamp(stepOf(taps.data(), order, e.data(), x), -32768, 32767))
          << taps[order + 1];
      ASSERT_EQ(d, e);
      ASSERT_OK(moxsIIROne_BiQuadDirect_16s_I(&yq, sections.data(), numBq, dq.data()));
      Mox32s v = x;
      for (int k = 0; k < numBq; ++k) v = stepOf(&sections[6 * k], 2, &eq[2 * k], v);
      ASSERT_EQ(yq, std::clamp(v, -32768, 32767));
      ASSERT_EQ(dq, eq);
    }
  }
  const Mox16s zeroShift[] = {1, 0, 0, 0};
  Mox32s d = 0;
  Mox16s y;
  ASSERT_OK(moxsIIROne_Direct_16s(5, &y, zeroShift, 1, &d));
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

// Blocks are those of a state with float taps and sums in units of 2^-s.
TEST(IirStateless, BlocksFilterByFloats) {
  Random random(1);
  const Words taps = {8192, 4096, 2048, 14, -9000, 3000, 4000, -200, 500, 13, 1000, 900};
  for (const int sections : {1, 2})
    for (const int len : {1, 50, 5000}) {
      std::vector<Mox32f> held, sums;
      std::vector<Mox32s> d = random.vector<Mox32s>(2 * sections);
      const auto scaled = [&](double v, int section) {
        return Mox32f(std::ldexp(v, -taps[6 * section + 3]));
      };
      for (int i = 0; i < 6 * sections; ++i)
        held.push_back(i % 6 == 3 ? 1 : scaled(taps[i], i / 6));
      for (int i = 0; i < 2 * sections; ++i) sums.push_back(scaled(Mox32f(d[i]), i / 2));
      const bool cascade = sections == 2;  // a single section has an order, too
      const auto state =
          makeIir<Iir32f16s>(cascade ? Shape::cascade : Shape::anyOrder, held, 2, sums.data());
      auto x = random.vector<Mox16s>(len), y = x;
      ASSERT_OK(moxsIIR32f_16s_ISfs(x.data(), len, state.get(), 0));
      const auto direct = cascade ? moxsIIR_BiQuadDirect_16s_I : moxsIIR_Direct_16s_I;
      ASSERT_OK(direct(y.data(), len, taps.data(), 2, d.data()));
      EXPECT_EQ(x, y);
      ASSERT_OK(moxsIIRGetDlyLine32f_16s(state.get(), sums.data()));
      for (int i = 0; i < 2 * sections; ++i)
        EXPECT_EQ(d[i], std::clamp(std::nearbyint(std::ldexp(double(sums[i]), taps[i / 2 * 6 + 3])),
                                   -0x1p31, 0x1p31 - 1));
    }
}

}  // namespace
