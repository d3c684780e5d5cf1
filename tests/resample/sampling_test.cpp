// Samples inserted and removed, in one call and in blocks.
#include "support/test.h"

namespace {

using test::sameBits;

template <class E>
using Sampling = MoxStatus (*)(const E*, int, E*, int*, int, int*);

template <class E>
void checkSampling(Sampling<E> up, Sampling<E> down) {
  test::Random random;
  for (const int factor : {1, 2, 3, 7, 100})
    for (const int len : {1, 2, 5, 47, 48, 331, 5000}) {
      const auto x = random.vector<E>(len);
      const int start = int(random.below(factor));
      std::vector<E> wide(len * factor), expected(len * factor), back(len);
      for (int k = 0; k < len; ++k) expected[start + factor * k] = x[k];
      int count = 0, phase = start;
      ASSERT_OK(up(x.data(), len, wide.data(), &count, factor, &phase));
      ASSERT_EQ(count, len * factor);
      ASSERT_EQ(phase, start);
      ASSERT_TRUE(sameBits(wide, expected)) << len << " by " << factor;

      int taken = 0;
      for (int done = 0, block = 0; done < count; done += block) {
        block = std::min(count - done, 1 + int(random.below(300)));
        int part = -1;
        ASSERT_OK(down(&wide[done], block, back.data() + taken, &part, factor, &phase));
        taken += part;
      }
      ASSERT_EQ(taken, len);
      ASSERT_EQ(phase, start);
      ASSERT_TRUE(sameBits(back, x)) << len << " by " << factor;
      ASSERT_OK(down(wide.data(), count, wide.data(), &taken, factor, &phase));
      wide.resize(len);
      ASSERT_TRUE(sameBits(wide, x)) << "in place, " << len << " by " << factor;
    }
}

TEST(Sampling, PutsSamplesAPhaseApartAndFindsThemAgain) {
  checkSampling<Mox16s>(moxsSampleUp_16s, moxsSampleDown_16s);
  checkSampling<Mox16sc>(moxsSampleUp_16sc, moxsSampleDown_16sc);
  checkSampling<Mox32f>(moxsSampleUp_32f, moxsSampleDown_32f);
  checkSampling<Mox32fc>(moxsSampleUp_32fc, moxsSampleDown_32fc);
  checkSampling<Mox64f>(moxsSampleUp_64f, moxsSampleDown_64f);
  checkSampling<Mox64fc>(moxsSampleUp_64fc, moxsSampleDown_64fc);
}

TEST(Sampling, TakesFactorsUpToTheLargest) {
  Mox32f x[2] = {1, 2}, y[2];
  int count = 5, phase = 0;
  EXPECT_EQ(moxsSampleUp_32f(x, 2, y, &count, INT_MAX, &phase), moxErrSize);
  EXPECT_EQ(count, 5);
  phase = INT_MAX - 1;
  EXPECT_OK(moxsSampleDown_32f(x, 2, y, &count, INT_MAX, &phase));
  EXPECT_EQ(count, 0);
  EXPECT_EQ(phase, INT_MAX - 3);
}

}  // namespace
