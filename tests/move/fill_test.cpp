#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <bit>
#include <cstring>

#include "support/guarded_array.h"
#include "support/random.h"

namespace {

constexpr int mebibyte = 1 << 20;

// Memory for a fill at `offset`, all 0x5A; pages that guard it catch stores behind the fill.
class Canvas {
 public:
  Canvas(int bytes, int offset) : offset_(offset), memory_(unsigned(bytes + offset)) {
    std::fill(memory_.begin(), memory_.end(), blank);
  }
  template <class E>
  E* array() const {
    return reinterpret_cast<E*>(memory_.data() + offset_);
  }
  // `val` over and over from the offset on, and nothing before it.
  template <class E>
  bool holds(E val) const {
    const auto first = memory_.begin() + offset_;
    return std::count(memory_.begin(), first, blank) == offset_ &&
           std::memcmp(first, &val, sizeof val) == 0 &&
           std::equal(first, memory_.end() - sizeof val, first + sizeof val);
  }

 private:
  static constexpr Mox8u blank = 0x5A;
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
  static void check(long len, int offset) {
    const int bytes = int(len * long(sizeof(E)));
    const Canvas set(bytes, offset), zero(bytes, offset);
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
  for (int offset = 0; offset < 33; ++offset)
    for (long len = 1; len * long(sizeof(TypeParam)) <= 340; ++len) this->check(len, offset);
}

// So long that stores bypass the cache, at odd addresses as well.
TYPED_TEST(Fill, AboveTheCache) {
  for (int offset : {0, 3, 8, 12, 33})
    this->check(24 * mebibyte / long(sizeof(TypeParam)) + 5, offset);
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
