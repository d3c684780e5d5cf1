// The median filter against a sort of each window.
#include "support/test.h"

namespace {

using namespace test;

template <class E>
std::vector<E> sortedWindows(const std::vector<E>& x, long mask) {
  const long len = long(x.size()), half = (mask - 1) / 2;
  std::vector<E> medians, window(2 * half + 1);
  for (long i = 0; i < len; ++i) {
    for (long k = -half; k <= half; ++k) window[k + half] = x[std::clamp(i + k, 0L, len - 1)];
    std::ranges::nth_element(window, window.begin() + half);
    medians.push_back(window[half]);
  }
  return medians;
}

// Of all values, and of few, so that many are equal.
template <class E>
void checkMedians(auto filter, auto inPlace) {
  Random random;
  std::vector<int> masks = {34, 51, 100, 255, 501};
  for (int mask = 1; mask <= 31; ++mask) masks.push_back(mask);
  for (const long len : {1, 2, 3, 4, 5, 9, 40, 300, 5000})
    for (const long values : {5L, 1L << 40}) {
      std::vector<E> x(len);
      for (E& e : x) e = values == 5 ? E(random.below(values)) : random.value<E>();
      for (const int mask : masks) {
        if (len == 5000 && mask > 51) continue;
        const MoxStatus expected = mask % 2 ? moxOk : MoxStatus(moxWarnEvenMedianMask);
        std::vector<E> y(len), z = x;
        ASSERT_EQ(filter(x.data(), y.data(), int(len), mask), expected);
        ASSERT_EQ(inPlace(z.data(), int(len), mask), expected);
        ASSERT_EQ(y, sortedWindows(x, mask)) << "length " << len << ", mask " << mask;
        ASSERT_EQ(z, y) << "in place, length " << len << ", mask " << mask;
      }
    }
}

TEST(FilterMedian, IsTheMiddleOfEachSortedWindow) {
  checkMedians<Mox8u>(moxsFilterMedian_8u, moxsFilterMedian_8u_I);
  checkMedians<Mox16s>(moxsFilterMedian_16s, moxsFilterMedian_16s_I);
  checkMedians<Mox32s>(moxsFilterMedian_32s, moxsFilterMedian_32s_I);
  checkMedians<Mox32f>(moxsFilterMedian_32f, moxsFilterMedian_32f_I);
  checkMedians<Mox64f>(moxsFilterMedian_64f, moxsFilterMedian_64f_I);
}

// Masks far beyond the vector need no more memory than the vector does.
TEST(FilterMedian, TakesMasksOfAnySize) {
  std::vector<Mox32f> x = {5, 1, 4, 9}, y(4);
  const auto expected = sortedWindows(x, 1001);
  for (const int mask : {1001, (1 << 30) + 1, std::numeric_limits<int>::max()}) {
    ASSERT_EQ(moxsFilterMedian_32f(x.data(), y.data(), 4, mask), moxOk);
    EXPECT_EQ(y, expected);
  }
}

TEST(FilterMedian, ForgetsNaNWithItsWindow) {
  Random random;
  for (const int mask : {3, 9, 11, 51}) {
    auto x = random.vector<Mox32f>(300);
    const auto expected = sortedWindows(x, mask);
    x[150] = std::numeric_limits<Mox32f>::quiet_NaN();
    ASSERT_EQ(moxsFilterMedian_32f_I(x.data(), 300, mask), moxOk);
    for (int i = 0; i < 300; ++i)
      ASSERT_TRUE(std::abs(i - 150) <= mask / 2 || x[i] == expected[i]) << mask << " at " << i;
  }
}

}  // namespace
