// Values of Copy, Move, Flip and SwapBytes; lengths, alignments and in-place forms are compared
// with these for every function alike.
#include "support/permutation.h"

#include <moxsp.h>

namespace {

using test::expectPermutation;
using test::expectPlaces;

const auto same = [](long i, long) { return i; };
const auto reversed = [](long i, long len) { return len - 1 - i; };

#define EXPECT_COPIES_OF(t)         \
  expectPlaces(moxsCopy_##t, same); \
  expectPlaces(moxsMove_##t, same)

TEST(Permutation, CopyAndMoveKeepTheOrder) {
  EXPECT_COPIES_OF(8u);
  EXPECT_COPIES_OF(16s);
  EXPECT_COPIES_OF(32f);
  EXPECT_COPIES_OF(32s);
  EXPECT_COPIES_OF(16sc);
  EXPECT_COPIES_OF(64f);
  EXPECT_COPIES_OF(64s);
  EXPECT_COPIES_OF(32fc);
  EXPECT_COPIES_OF(32sc);
  EXPECT_COPIES_OF(64fc);
  EXPECT_COPIES_OF(64sc);
}

TEST(Permutation, FlipReversesTheElements) {
  expectPlaces(moxsFlip_8u, reversed);
  expectPlaces(moxsFlip_16u, reversed);
  expectPlaces(moxsFlip_32f, reversed);
  expectPlaces(moxsFlip_32fc, reversed);
  expectPlaces(moxsFlip_64f, reversed);
  expectPlaces(moxsFlip_64fc, reversed);
}

TEST(Permutation, SwapBytesReversesTheBytesOfEachElement) {
  const auto expectSwap = [](auto function, int size) {
    expectPermutation(function, size,
                      [=](long i, long k, long) { return i * size + size - 1 - k; });
  };
  expectSwap(moxsSwapBytes_16u, 2);
  expectSwap(moxsSwapBytes_24u, 3);
  expectSwap(moxsSwapBytes_32u, 4);
  expectSwap(moxsSwapBytes_64u, 8);
}

}  // namespace
