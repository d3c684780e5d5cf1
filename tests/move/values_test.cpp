#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <bit>
#include <cstring>

#include "support/guarded_array.h"
#include "support/random.h"

namespace {

constexpr int mebibyte = 1 << 20;

// Memory for a fill, all 0x5A, that starts `offset` past an inaccessible page, or ends so far
// before one; behind it or before it are as many bytes that must stay.
class Canvas {
 public:
  Canvas(long bytes, int offset, test::Guard side)
      : bytes_(bytes),
        offset_(side == test::Guard::before ? offset : margin),
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
  test::GuardedArray<Mox8u> memory_;
};

template <class E>
struct Set;
#define SET_OF(type)                              \
  template <>                                     \
  struct Set<Mox##type> {                         \
    static constexpr auto set = moxsSet_##type;   \
    static constexpr auto zero = moxsZero_##type; \
  }
SET_OF(8u);
SET_OF(16s);
SET_OF(32f);
SET_OF(32s);
SET_OF(16sc);
SET_OF(64f);
SET_OF(64s);
SET_OF(32fc);
SET_OF(32sc);
SET_OF(64fc);
SET_OF(64sc);
#undef SET_OF

template <class E>
class Fill : public testing::Test {
 protected:
  // A value all of whose bytes differ, so that a rotated pattern shows.
  static E value() {
    unsigned char bytes[sizeof(E)];
    for (unsigned i = 0; i < sizeof bytes; ++i) bytes[i] = (unsigned char)(0x11 * (i + 1) ^ 0x80);
    return std::bit_cast<E>(bytes);
  }
  static void check(long len, int offset, test::Guard side) {
    const long bytes = len * long(sizeof(E));
    const Canvas set(bytes, offset, side), zero(bytes, offset, side);
    ASSERT_EQ(Set<E>::set(value(), set.array<E>(), int(len)), moxOk);
    ASSERT_TRUE(set.holds(value())) << "len " << len << " offset " << offset;
    ASSERT_EQ(Set<E>::zero(zero.array<E>(), int(len)), moxOk);
    ASSERT_TRUE(zero.holds(E{})) << "len " << len << " offset " << offset;
  }
};
using Elements = testing::Types<Mox8u, Mox16s, Mox32f, Mox32s, Mox16sc, Mox64f, Mox64s, Mox32fc,
                                Mox32sc, Mox64fc, Mox64sc>;
TYPED_TEST_SUITE(Fill, Elements);

TYPED_TEST(Fill, EveryLengthAndOffset) {
  for (long len = 1; len * long(sizeof(TypeParam)) <= 340; ++len)
    for (const int offset : {0, 1, 2, 4, 8, 12, 16, 31})
      for (const test::Guard side : {test::Guard::before, test::Guard::after})
        this->check(len, offset, side);
}

// So long that stores bypass the cache, at odd addresses as well.
TYPED_TEST(Fill, AboveTheCache) {
  const long len = 24 * mebibyte / long(sizeof(TypeParam)) + 5;
  for (const int offset : {0, 3, 8, 31}) this->check(len, offset, test::Guard::before);
  this->check(len, 0, test::Guard::after);
}

// The byte count wraps at 2^32, so only the first element is filled; a negative one fills nothing.
TEST(FillLength, ByteCountsAreReckonedIn32Bits) {
  test::GuardedArray<Mox32s> a(1);
  ASSERT_EQ(moxsSet_32s(7, a.data(), 0x40000001), moxOk);
  EXPECT_EQ(a[0], 7);
  ASSERT_EQ(moxsZero_32s(a.data(), 0x20000000), moxOk);
  EXPECT_EQ(a[0], 7);
  test::GuardedArray<Mox64fc> c(1);
  c[0] = {1, 2};
  ASSERT_EQ(moxsZero_64fc(c.data(), 0x10000001), moxOk);
  EXPECT_EQ(c[0].re, 0);
  EXPECT_EQ(c[0].im, 0);
}

}  // namespace
