// The median filter against a sort of each window.
#include "support/members.h"

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

template <class E>
auto runInPlace(Member<E*, int, int> m, const std::vector<E>& x, int mask) {
  return resultsOf(
      m.name, x, [=](E* p, int len) { return m.function(p, len, mask); }, x);
}

// Of all values, and of few, so that many are equal.
template <class E>
void checkMedians(Member<const E*, E*, int, int> filter, Member<E*, int, int> inPlace) {
  Random random;
  std::vector<int> masks = {34, 51, 100, 255, 501};
  for (int mask = 1; mask <= 31; ++mask) masks.push_back(mask);
  for (const long len : {1, 2, 3, 4, 5, 9, 40, 300, 5000})
    for (const bool few : {false, true}) {
      auto x = random.vector<E>(len);
      if (few)
        for (E& e : x) e = E(random.below(5));
      for (const int mask : masks) {
        if (len == 5000 && mask > 51) continue;
        const auto expected = sortedWindows(x, mask);
        for (const auto& got : {run(filter, x, mask), runInPlace(inPlace, x, mask)}) {
          ASSERT_EQ(got.status, mask % 2 ? moxOk : MoxStatus(moxWarnEvenMedianMask));
          ASSERT_EQ(got.values, expected) << got.name << ", length " << len << ", mask " << mask;
        }
      }
    }
}

TEST(FilterMedian, IsTheMiddleOfEachSortedWindow) {
  checkMedians(MEMBER(FilterMedian_8u), MEMBER(FilterMedian_8u_I));
  checkMedians(MEMBER(FilterMedian_16s), MEMBER(FilterMedian_16s_I));
  checkMedians(MEMBER(FilterMedian_32s), MEMBER(FilterMedian_32s_I));
  checkMedians(MEMBER(FilterMedian_32f), MEMBER(FilterMedian_32f_I));
  checkMedians(MEMBER(FilterMedian_64f), MEMBER(FilterMedian_64f_I));
}

// Masks far beyond the vector need no more memory than the vector does.
TEST(FilterMedian, TakesMasksOfAnySize) {
  const std::vector<Mox32f> x = {5, 1, 4, 9};
  for (const int mask : {1001, (1 << 30) + 1, std::numeric_limits<int>::max()})
    EXPECT_EQ(run(MEMBER(FilterMedian_32f), x, mask).values, sortedWindows(x, 1001));
}

TEST(FilterMedian, ForgetsNaNWithItsWindow) {
  for (const int mask : {3, 9, 11, 51}) {
    auto x = Random().vector<Mox32f>(300);
    const auto expected = sortedWindows(x, mask);
    x[150] = std::numeric_limits<Mox32f>::quiet_NaN();
    const auto got = runInPlace(MEMBER(FilterMedian_32f_I), x, mask).values;
    for (int i = 0; i < 300; ++i)
      ASSERT_TRUE(std::abs(i - 150) <= mask / 2 || got[i] == expected[i]) << mask << " at " << i;
  }
}

}  // namespace
