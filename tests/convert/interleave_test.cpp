// Rows of floats joined to interleaved samples and split again.
#include "convert/samples.h"

namespace {

using namespace test;

template <class T, class Join, class Split>
void expectRoundTrip(Join join, Split split) {
  for (const int channels : {1, 2, 3, 511, 512, 513, 1100})
    for (const int len : {1, 5, 86}) {
      SCOPED_TRACE(testing::Message() << channels << " channels, " << len << " frames");
      Random random;
      std::vector<T> interleaved(channels * len), joined(channels * len);
      for (T& sample : interleaved) sample = T(random.value<Mox32s>());
      std::vector<Mox32f> samples(channels * len);
      std::vector<Mox32f*> rows;
      for (int c = 0; c < channels; ++c) rows.push_back(samples.data() + c * len);
      for (const int rounding : allRoundings) {
        const UnderRounding environment(rounding);
        ASSERT_OK(split(raw(interleaved.data()), rows.data(), channels, len));
        for (int c = 0; c < channels; ++c)
          for (int j = 0; j < len; ++j)
            ASSERT_EQ(rows[c][j],
                      float(long(interleaved[j * channels + c])) / float(rangeOf<T>.max + 1));
        ASSERT_OK(join(rows.data(), channels, len, raw(joined.data())));
        ASSERT_TRUE(sameBits(joined, interleaved));
      }
    }
}

TEST(Interleave, JoinUndoesSplit) {
  expectRoundTrip<Mox16s>(moxsJoinScaled_32f16s_D2L, moxsSplitScaled_16s32f_D2L);
  expectRoundTrip<Sample24s>(moxsJoinScaled_32f24s_D2L, moxsSplitScaled_24s32f_D2L);
}

TEST(Interleave, JoinRoundsToNearestAndSaturates) {
  const Mox32f left[] = {1, -1.5f, 0.5f / 32768}, right[] = {-1, 2.0f, 1.5f / 32768};
  const Mox32f* const rows[] = {left, right};
  std::vector<Mox16s> dst(6);
  ASSERT_OK(moxsJoinScaled_32f16s_D2L(rows, 2, 3, dst.data()));
  EXPECT_EQ(dst, (std::vector<Mox16s>{32767, -32768, -32768, 32767, 0, 2}));
}

}  // namespace
