#include <gtest/gtest.h>
#include <moxsp.h>

#include <cmath>
#include <vector>

#include "convert/samples.h"
#include "support/float_environment.h"
#include "support/guarded_array.h"
#include "support/random.h"

namespace {

template <class T, class Join, class Split>
void expectRoundTrip(Join join, Split split) {
  constexpr test::Range range = test::rangeOfSample<T>;
  const int bits = range.max == 32767 ? 15 : 23;
  for (int channels : {1, 2, 3, 6, 511, 512, 513, 1100})
    for (int len : {1, 2, 5, 85, 86, 300}) {
      if (long(channels) * len > 100000) continue;
      SCOPED_TRACE(testing::Message() << channels << " channels, " << len << " frames");
      test::Random random(channels);
      const test::GuardedArray<T> interleaved(channels * len), joined(channels * len);
      for (T& sample : interleaved)
        for (Mox8u& byte : reinterpret_cast<Mox8u(&)[sizeof(T)]>(sample))
          byte = Mox8u(random.bits());
      const test::GuardedArray<Mox32f> samples(channels * len);
      std::vector<Mox32f*> rows;
      for (int c = 0; c < channels; ++c) rows.push_back(samples.data() + c * len);
      for (int rounding : test::allRoundings) {
        const test::UnderRounding environment(rounding);
        ASSERT_EQ(split(test::raw(interleaved.data()), rows.data(), channels, len), moxOk);
        for (int c = 0; c < channels; ++c)
          for (int j = 0; j < len; ++j)
            ASSERT_EQ(rows[c][j], std::ldexp(float(long(interleaved[j * channels + c])), -bits));
        ASSERT_EQ(join(rows.data(), channels, len, test::raw(joined.data())), moxOk);
        for (int i = 0; i < channels * len; ++i)
          ASSERT_EQ(long(joined[i]), long(interleaved[i])) << "sample " << i;
      }
    }
}

TEST(Interleave, JoinUndoesSplit) {
  expectRoundTrip<Mox16s>(moxsJoinScaled_32f16s_D2L, moxsSplitScaled_16s32f_D2L);
  expectRoundTrip<test::Sample24s>(moxsJoinScaled_32f24s_D2L, moxsSplitScaled_24s32f_D2L);
}

TEST(Interleave, JoinRoundsToNearestAndSaturates) {
  const Mox32f left[] = {1, -1.5f, 0.5f / 32768}, right[] = {-1, 2.0f, 1.5f / 32768};
  const Mox32f* const rows[] = {left, right};
  Mox16s dst[6];
  ASSERT_EQ(moxsJoinScaled_32f16s_D2L(rows, 2, 3, dst), moxOk);
  const Mox16s expected[] = {32767, -32768, -32768, 32767, 0, 2};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(dst[i], expected[i]) << i;
}

TEST(Interleave, ArgumentsAreCheckedFromTheArrayInwards) {
  Mox16s array[2] = {7, 7};
  Mox32f row[1] = {3};
  Mox32f* const rows[] = {row, nullptr};
  EXPECT_EQ(moxsSplitScaled_16s32f_D2L(nullptr, nullptr, 0, 0), moxErrNullPtr);
  EXPECT_EQ(moxsSplitScaled_16s32f_D2L(array, nullptr, 0, 1), moxErrSize);
  EXPECT_EQ(moxsSplitScaled_16s32f_D2L(array, nullptr, 1, 0), moxErrSize);
  EXPECT_EQ(moxsSplitScaled_16s32f_D2L(array, nullptr, 1, 1), moxErrNullPtr);
  EXPECT_EQ(moxsSplitScaled_16s32f_D2L(array, rows, 2, 1), moxErrNullPtr);
  EXPECT_EQ(row[0], 3);
  EXPECT_EQ(moxsJoinScaled_32f16s_D2L(rows, 2, 1, nullptr), moxErrNullPtr);
  EXPECT_EQ(moxsJoinScaled_32f16s_D2L(nullptr, -1, 1, array), moxErrSize);
  EXPECT_EQ(moxsJoinScaled_32f16s_D2L(rows, 2, 1, array), moxErrNullPtr);
  EXPECT_EQ(array[0], 7);
}

}  // namespace
