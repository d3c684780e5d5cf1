// Values of Set, Zero, Copy, Move, Flip and SwapBytes of all element types.
#include <bit>

#include "support/guarded_array.h"
#include "support/test.h"

namespace {

using namespace test;

// A value all of whose bytes differ, so that a rotated pattern shows.
template <class E>
E patterned() {
  unsigned char bytes[sizeof(E)];
  for (unsigned i = 0; i < sizeof bytes; ++i) bytes[i] = (unsigned char)(0x11 * (i + 1) ^ 0x80);
  return std::bit_cast<E>(bytes);
}

// Also so long that stores bypass the cache, at any address.
template <class E>
void expectFills(MoxStatus (*set)(E, E*, int), MoxStatus (*zero)(E*, int)) {
  const int large = (24 << 20) / int(sizeof(E)) + 5;
  for (const int len : {1, 2, 3, 7, 16, 31, 33, 64, 200, large})
    for (const int offset : {0, 3, 8, 31}) {
      if (len != large && offset != 0) continue;
      const GuardedArray<Mox8u> memory(len * sizeof(E) + offset);
      E* const array = reinterpret_cast<E*>(memory.data());
      const auto holds = [&](E val) {
        const Mox8u *first = memory.begin(), *end = first + len * sizeof(E);
        return std::memcmp(first, &val, sizeof val) == 0 &&
               std::equal(first, end - sizeof val, first + sizeof val);
      };
      ASSERT_OK(set(patterned<E>(), array, len));
      ASSERT_TRUE(holds(patterned<E>())) << "len " << len << " offset " << offset;
      ASSERT_OK(zero(array, len));
      ASSERT_TRUE(holds(E{})) << "len " << len << " offset " << offset;
      ASSERT_TRUE(std::all_of(memory.end() - offset, memory.end(), [](Mox8u b) { return b == 0; }));
    }
}

// Byte k of element i comes from the byte place(i, k, len).
template <class E, class Place>
void expectPermutation(MoxStatus (*function)(const E*, E*, int), int size, Place place) {
  Random random;
  for (const int len : {1, 2, 3, 7, 16, 31, 33, 64, 200, 2051}) {
    const auto src = random.vector<Mox8u>(long(len) * size);
    std::vector<Mox8u> dst(src.size()), expected(src.size());
    for (long i = 0; i < len; ++i)
      for (long k = 0; k < size; ++k) expected[i * size + k] = src[place(i, k, len)];
    ASSERT_OK(
        function(reinterpret_cast<const E*>(src.data()), reinterpret_cast<E*>(dst.data()), len));
    ASSERT_EQ(dst, expected) << "len " << len;
  }
}
template <class E>
struct Members {
  MoxStatus (*set)(E, E*, int);
  MoxStatus (*zero)(E*, int);
  MoxStatus (*copy)(const E*, E*, int);
  MoxStatus (*move)(const E*, E*, int);
};
#define MEMBERS(t) \
  Members<Mox##t> { moxsSet_##t, moxsZero_##t, moxsCopy_##t, moxsMove_##t }
template <class... E>
void expectMembers(const Members<E>&... members) {
  const auto expect = []<class T>(const Members<T>& m) {
    const auto place = [](long i, long k, long) { return i * long(sizeof(T)) + k; };
    expectFills(m.set, m.zero);
    expectPermutation(m.copy, sizeof(T), place);
    expectPermutation(m.move, sizeof(T), place);
  };
  (expect(members), ...);
}

TEST(EveryElementType, IsSetClearedCopiedAndMoved) {
  expectMembers(MEMBERS(8u), MEMBERS(16s), MEMBERS(32s), MEMBERS(64s), MEMBERS(32f), MEMBERS(64f),
                MEMBERS(16sc), MEMBERS(32sc), MEMBERS(64sc), MEMBERS(32fc), MEMBERS(64fc));
}

TEST(Permutation, FlipReversesTheElements) {
  const auto expectFlip = []<class E>(MoxStatus (*flip)(const E*, E*, int)) {
    constexpr long size = sizeof(E);
    expectPermutation(flip, size,
                      [](long i, long k, long len) { return (len - 1 - i) * size + k; });
  };
  expectFlip(moxsFlip_8u), expectFlip(moxsFlip_16u), expectFlip(moxsFlip_32f);
  expectFlip(moxsFlip_64f), expectFlip(moxsFlip_32fc), expectFlip(moxsFlip_64fc);
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

// The byte count wraps at 2^32, so only the first element is filled; a negative one fills nothing.
TEST(FillLength, ByteCountsAreReckonedIn32Bits) {
  GuardedArray<Mox32s> a(1);
  ASSERT_OK(moxsSet_32s(7, a.data(), 0x40000001));
  EXPECT_EQ(a[0], 7);
  ASSERT_OK(moxsZero_32s(a.data(), 0x20000000));
  EXPECT_EQ(a[0], 7);
  GuardedArray<Mox64fc> c(1);
  c[0] = {1, 2};
  ASSERT_OK(moxsZero_64fc(c.data(), 0x10000001));
  EXPECT_EQ(c[0].re, 0);
  EXPECT_EQ(c[0].im, 0);
}

}  // namespace
