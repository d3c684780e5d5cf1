// Values of Flip and SwapBytes; lengths, alignments and in-place forms are compared with these for
// every function alike.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <vector>

#include "support/random.h"

namespace {

// `place(i, len, k)` is the byte of the source that belongs at byte k of element i.
template <class E, class Place>
void check(MoxStatus (*function)(const E*, E*, int), int size, Place place) {
  test::Random random;
  for (int len = 1; len <= 200; len += 1 + len / 90) {
    const auto src = random.vector<Mox8u>(len * size);
    std::vector<Mox8u> dst(src.size()), expected(src.size());
    for (int i = 0; i < len; ++i)
      for (int k = 0; k < size; ++k) expected[i * size + k] = src[place(i, len, k)];
    ASSERT_EQ(
        function(reinterpret_cast<const E*>(src.data()), reinterpret_cast<E*>(dst.data()), len),
        moxOk);
    ASSERT_EQ(dst, expected) << "len " << len;
  }
}

template <class E>
void checkFlip(MoxStatus (*flip)(const E*, E*, int)) {
  constexpr int size = sizeof(E);
  check(flip, size, [](int i, int len, int k) { return (len - 1 - i) * size + k; });
}

TEST(Flip, ReversesTheElements) {
  checkFlip(moxsFlip_8u);
  checkFlip(moxsFlip_16u);
  checkFlip(moxsFlip_32f);
  checkFlip(moxsFlip_32fc);
  checkFlip(moxsFlip_64f);
  checkFlip(moxsFlip_64fc);
}

template <class E>
void checkSwap(MoxStatus (*swap)(const E*, E*, int), int size) {
  check(swap, size, [size](int i, int, int k) { return i * size + size - 1 - k; });
}

TEST(SwapBytes, ReversesTheBytesOfEachElement) {
  checkSwap(moxsSwapBytes_16u, 2);
  checkSwap(moxsSwapBytes_24u, 3);
  checkSwap(moxsSwapBytes_32u, 4);
  checkSwap(moxsSwapBytes_64u, 8);
}

}  // namespace
