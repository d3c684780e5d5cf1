// Values of Set, Zero, Copy, Move, Flip and SwapBytes of all element types.
#include <bit>

#include "support/guarded_array.h"
#include "support/test.h"

namespace {

using namespace test;

constexpr int mebibyte = 1 << 20;

// Memory for a fill, all 0x5A, that starts `offset` past an inaccessible page, or ends so far
// before one; behind it or before it are as many bytes that must stay.
class Canvas {
 public:
  Canvas(long bytes, int offset, Guard side)
      : bytes_(bytes),
        offset_(side == Guard::before ? offset : margin),
        memory_(std::size_t(bytes + offset + margin), side) {
    std::fill(memory_.begin(), memory_.end(), blank);
  }
  template <class E>
  E* array() const {
    return reinterpret_cast<E*>(memory_.data() + offset_);
  }
  // `val` over and over, and nothing around it.
  template <class E>
  bool holds(E val) const {
    const auto first = memory_.begin() + offset_, end = first + bytes_;
    const auto isBlank = [](Mox8u b) { return b == blank; };
    return std::all_of(memory_.begin(), first, isBlank) &&
           std::all_of(end, memory_.end(), isBlank) && std::memcmp(first, &val, sizeof val) == 0 &&
           std::equal(first, end - sizeof val, first + sizeof val);
  }

 private:
  static constexpr Mox8u blank = 0x5A;
  static constexpr int margin = 40;
  long bytes_;
  int offset_;
  GuardedArray<Mox8u> memory_;
};

// A value all of whose bytes differ, so that a rotated pattern shows.
template <class E>
E patterned() {
  unsigned char bytes[sizeof(E)];
  for (unsigned i = 0; i < sizeof bytes; ++i) bytes[i] = (unsigned char)(0x11 * (i + 1) ^ 0x80);
  return std::bit_cast<E>(bytes);
}

// Every length and offset; and so long that stores bypass the cache, at odd addresses as well.
template <class E>
void expectFills(MoxStatus (*set)(E, E*, int), MoxStatus (*zero)(E*, int)) {
  const auto check = [=](long len, int offset, Guard side) {
    const long bytes = len * long(sizeof(E));
    const Canvas pattern(bytes, offset, side), zeros(bytes, offset, side);
    ASSERT_OK(set(patterned<E>(), pattern.array<E>(), int(len)));
    ASSERT_TRUE(pattern.holds(patterned<E>())) << "len " << len << " offset " << offset;
    ASSERT_OK(zero(zeros.array<E>(), int(len)));
    ASSERT_TRUE(zeros.holds(E{})) << "len " << len << " offset " << offset;
  };
  for (const Guard side : {Guard::before, Guard::after}) {
    for (long len = 1; len * long(sizeof(E)) <= 340; ++len)
      for (const int offset : {0, 1, 2, 4, 8, 12, 16, 31}) check(len, offset, side);
    const long large = 24 * mebibyte / long(sizeof(E)) + 5;
    for (const int offset : {0, 3, 8, 31}) check(large, offset, side);
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
