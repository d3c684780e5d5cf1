#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

#include "move/cache_descriptors.h"
#include "support/core_probe.h"
#include "support/guarded_array.h"
#include "support/random.h"

namespace {

constexpr int mebibyte = 1 << 20;
constexpr int limit = 2 * mebibyte;

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

TYPED_TEST(Fill, AboveTheCacheAtEveryOffset) {
  CoreProbe probe;
  probe.fixCacheSize(mebibyte);
  probe.fixCpuid(0, {2, 0x756E6547, 0x6C65746E, 0x49656E69});
  probe.fixCpuid(2, {0x00000001, 0, 0, 0x43});  // 512 KiB
  for (int offset : {0, 1, 2, 4, 8, 12, 16, 31, 32, 60, 63})
    for (long more : {1, 2, 5, 13}) this->check(limit / long(sizeof(TypeParam)) + more, offset);
  EXPECT_GT(probe.cacheQueries(), 0);
  EXPECT_EQ(probe.cpuidQueries() > 0, sizeof(TypeParam) >= 8);
}

// The plain fill of arrays so long that lines are better not loaded, at odd addresses as well.
TYPED_TEST(Fill, FarAboveAnUnknownCache) {
  CoreProbe probe;
  probe.fixCacheSize({});
  probe.fixCpuid(0, {});
  for (int offset : {0, 3}) this->check(33 * mebibyte / long(sizeof(TypeParam)) + 3, offset);
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

struct Decision : testing::Test {
  CoreProbe probe;
  std::vector<Mox64fc> memory = std::vector<Mox64fc>(3 * mebibyte / sizeof(Mox64fc));

  template <class Call>
  int cacheQueries(Call call) {
    const int before = probe.cacheQueries();
    EXPECT_EQ(call(), moxOk);
    return probe.cacheQueries() - before;
  }
  template <class Call>
  int cpuidQueries(Call call) {
    const int before = probe.cpuidQueries();
    EXPECT_EQ(call(), moxOk);
    return probe.cpuidQueries() - before;
  }
  template <class E>
  E* at(long offset) {
    return reinterpret_cast<E*>(reinterpret_cast<Mox8u*>(memory.data()) + offset);
  }
};

TEST_F(Decision, NarrowFillsAskForTheCacheAboveTheLimitOnly) {
  probe.fixCacheSize(mebibyte);
  EXPECT_EQ(cacheQueries([&] { return moxsZero_8u(at<Mox8u>(0), limit); }), 0);
  EXPECT_EQ(cacheQueries([&] { return moxsZero_8u(at<Mox8u>(0), limit + 1); }), 1);
  EXPECT_EQ(cacheQueries([&] { return moxsZero_64fc(at<Mox64fc>(1), limit / 16 + 1); }), 1);
  EXPECT_EQ(cacheQueries([&] { return moxsSet_8u(1, at<Mox8u>(1), limit + 1); }), 1);
  EXPECT_EQ(cacheQueries([&] { return moxsSet_32s(1, at<Mox32s>(4), limit / 4 + 1); }), 1);
  EXPECT_EQ(cacheQueries([&] { return moxsSet_16sc({1, 2}, at<Mox16sc>(4), limit / 4 + 1); }), 1);
}

TEST_F(Decision, NarrowSetsOfUnalignedElementsStayInTheCache) {
  probe.fixCacheSize(mebibyte);
  EXPECT_EQ(cacheQueries([&] { return moxsSet_16s(1, at<Mox16s>(1), limit / 2 + 1); }), 0);
  EXPECT_EQ(cacheQueries([&] { return moxsSet_32s(1, at<Mox32s>(2), limit / 4 + 1); }), 0);
  EXPECT_EQ(cacheQueries([&] { return moxsSet_16sc({1, 2}, at<Mox16sc>(2), limit / 4 + 1); }), 0);
}

TEST_F(Decision, AnUnknownCacheIsNoFailure) {
  for (const std::optional<int> size :
       {std::optional<int>(), std::optional(0), std::optional(-1)}) {
    probe.fixCacheSize(size);
    ASSERT_EQ(moxsSet_8u(9, at<Mox8u>(3), limit + 5), moxOk);
    EXPECT_TRUE(std::all_of(at<Mox8u>(3), at<Mox8u>(limit + 8), [](Mox8u b) { return b == 9; }));
  }
}

TEST_F(Decision, WideSetsReadTheDescriptorsAboveOneMebibyte) {
  probe.fixCpuid(0, {2, 0x756E6547, 0x6C65746E, 0x49656E69});
  probe.fixCpuid(2, {1, 0, 0, 0x43});
  EXPECT_EQ(cpuidQueries([&] { return moxsSet_64f(1, at<Mox64f>(8), 0x20000); }), 0);
  EXPECT_EQ(cpuidQueries([&] { return moxsSet_64f(1, at<Mox64f>(8), 0x20001); }), 2);
  EXPECT_EQ(cpuidQueries([&] { return moxsSet_64fc({1, 2}, at<Mox64fc>(0), 0x10000); }), 0);
  EXPECT_EQ(cpuidQueries([&] { return moxsSet_64fc({1, 2}, at<Mox64fc>(0), 0x10001); }), 2);
  EXPECT_EQ(cpuidQueries([&] { return moxsSet_64s(1, at<Mox64s>(4), 0x10001); }), 2);
  EXPECT_EQ(cpuidQueries([&] { return moxsSet_64s(1, at<Mox64s>(4), 0x10000); }), 0);
  probe.fixCpuid(0, {2, 0, 0, 0});  // another vendor is not asked further
  EXPECT_EQ(cpuidQueries([&] { return moxsSet_64f(1, at<Mox64f>(8), 0x20001); }), 1);
}

long listed(unsigned a, unsigned b = 0, unsigned c = 0, unsigned d = 0) {
  const unsigned leaf2[4] = {a, b, c, d};
  return mox::move::listedCacheBytes(leaf2);
}

TEST(CacheDescriptors, TheLargestOfAllRegistersCounts) {
  EXPECT_EQ(listed(0x00000001, 0, 0, 0x43), 512 << 10);
  EXPECT_EQ(listed(0x665B5001, 0, 0, 0x007A7043), 512 << 10);
  EXPECT_EQ(listed(0x00004301, 0x7D, 0xDD0000, 0x44000000), 3 * mebibyte);
  EXPECT_EQ(listed(0x43EC4401, 0x4D), 24 * mebibyte);
  EXPECT_EQ(listed(0xDC01), 3 * mebibyte / 2);
  EXPECT_EQ(listed(0xEB01), 18 * mebibyte);
}

TEST(CacheDescriptors, UnknownWhereNothingIsListed) {
  EXPECT_EQ(listed(1), 0);
  EXPECT_EQ(listed(0x4301, 0, 0, 0x7A), 512 << 10);
  EXPECT_EQ(listed(0x4302), 0);      // more than one round
  EXPECT_EQ(listed(0x80004301), 0);  // the register is dropped
  EXPECT_EQ(listed(1, 0x800000EC, 0x43), 512 << 10);
  EXPECT_EQ(listed(0xFF01), 0);               // "see leaf 4"
  EXPECT_EQ(listed(0x00000043, 0, 0, 0), 0);  // the lowest byte is the count, no descriptor
}

// Sizes count the 43 entries, each through every register that can hold it.
TEST(CacheDescriptors, EveryEntryIsFoundInEveryRegister) {
  int entries = 0;
  for (unsigned byte = 0; byte < 128 + 128; ++byte) {
    const long size = listed(1 | byte << 8);
    if (size == 0) continue;
    ++entries;
    EXPECT_EQ(listed(1, byte), size);
    EXPECT_EQ(listed(1, 0, byte << 8), size);
    EXPECT_EQ(listed(1, 0, 0, byte << 16), size);
    EXPECT_EQ(listed(1 | byte << 24) != 0, byte < 128);
  }
  EXPECT_EQ(entries, 43);
}

}  // namespace
