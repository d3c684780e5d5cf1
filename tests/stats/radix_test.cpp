#include <gtest/gtest.h>
#include <moxsp.h>

#include <cmath>
#include <numeric>

#include "frame/elements.h"
#include "stats/sort_data.h"

namespace {

using namespace test;

// The order of floats by their bits, told by sign and magnitude; that of integers is their own.
template <class T>
bool precedes(T a, T b) {
  if constexpr (std::is_floating_point_v<T>) {
    const bool negative = std::signbit(a);
    if (negative != std::signbit(b)) return negative;
    mox::BitsOf<T> magnitudes[2];
    std::memcpy(&magnitudes[0], &a, sizeof a);
    std::memcpy(&magnitudes[1], &b, sizeof b);
    return negative ? magnitudes[0] > magnitudes[1] : magnitudes[0] < magnitudes[1];
  } else {
    return a < b;
  }
}

template <class T>
auto inOrder(bool ascending) {
  return [=](T a, T b) { return ascending ? precedes(a, b) : precedes(b, a); };
}

template <class T>
Patterns<T> radixPatterns(long len) {
  auto all = hardPatterns<T>(len);
  Random random(3);
  all.push_back({"one far off", {}});
  for (long i = 0; i < len; ++i) all.back().second.push_back(T(random.below(100)));
  all.back().second.front() = std::numeric_limits<T>::max();
  if constexpr (std::is_floating_point_v<T>) {
    all.push_back({"any bits", {}});
    for (long i = 0; i < len; ++i) all.back().second.push_back(random.anyFloat<T>());
    all.push_back({"zeros and NaN", {}});
    const T nan = std::numeric_limits<T>::quiet_NaN();
    const T special[] = {T(0), -T(0), nan, -nan, std::numeric_limits<T>::infinity()};
    for (long i = 0; i < len; ++i) all.back().second.push_back(special[random.below(5)]);
  }
  return all;
}

template <class T>
using RadixSort = MoxStatus (*)(T*, T*, int);

template <class T>
void expectRadixSorts(RadixSort<T> ascend, RadixSort<T> descend, std::vector<long> lengths) {
  for (long len : lengths)
    for (const auto& [name, data] : radixPatterns<T>(len))
      for (bool ascending : {true, false}) {
        SCOPED_TRACE(name + ", " + std::to_string(len) + (ascending ? " up" : " down"));
        auto expected = data, sorted = data;
        std::sort(expected.begin(), expected.end(), inOrder<T>(ascending));
        std::vector<T> buffer(data.size());
        ASSERT_EQ((ascending ? ascend : descend)(sorted.data(), buffer.data(), int(len)), moxOk);
        ASSERT_TRUE(sameBits(sorted, expected)) << seedNote();
      }
}

#define BOTH(t) moxsSortRadixAscend_##t##_I, moxsSortRadixDescend_##t##_I

TEST(RadixSort, EveryMemberGivesTheTotalOrder) {
  const auto lengths = sortLengths();
  expectRadixSorts<Mox8u>(BOTH(8u), lengths);
  expectRadixSorts<Mox16s>(BOTH(16s), lengths);
  expectRadixSorts<Mox16u>(BOTH(16u), lengths);
  expectRadixSorts<Mox32s>(BOTH(32s), lengths);
  expectRadixSorts<Mox32u>(BOTH(32u), lengths);
  expectRadixSorts<Mox32f>(BOTH(32f), lengths);
  expectRadixSorts<Mox64f>(BOTH(64f), lengths);
}

// Long enough to be dealt out to parts; with one key far off, all others share a part at first.
TEST(RadixSort, LongVectors) {
  expectRadixSorts<Mox32s>(BOTH(32s), {600'001});
  expectRadixSorts<Mox32f>(BOTH(32f), {600'001});
  expectRadixSorts<Mox64f>(BOTH(64f), {600'001});
}
#undef BOTH

template <class T>
using RadixIndex = MoxStatus (*)(const T*, int, Mox32s*, Mox32s*, int);

// Keys as fields of records of `stride` bytes, at the end of each.
template <class T>
void expectRadixIndices(RadixIndex<T> ascend, RadixIndex<T> descend) {
  for (long len : sortLengths())
    for (const auto& [name, data] : radixPatterns<T>(len))
      for (int stride : {int(sizeof(T)), int(sizeof(T)) + 1, 3 * int(sizeof(T)) - 1}) {
        const long field = stride - int(sizeof(T));
        std::vector<unsigned char> records(std::size_t(len * stride), 0xA5);
        for (long i = 0; i < len; ++i)
          std::memcpy(&records[i * stride + field], &data[i], sizeof(T));
        const auto untouched = records;
        for (bool ascending : {true, false}) {
          SCOPED_TRACE(name + ", " + std::to_string(len) + ", stride " + std::to_string(stride) +
                       (ascending ? " up" : " down"));
          std::vector<Mox32s> expected(len), order(len, -1), work(len);
          std::iota(expected.begin(), expected.end(), 0);
          std::stable_sort(expected.begin(), expected.end(),
                           [&keys = data, precede = inOrder<T>(ascending)](int a, int b) {
                             return precede(keys[a], keys[b]);
                           });
          ASSERT_EQ(
              (ascending ? ascend : descend)(reinterpret_cast<const T*>(records.data() + field),
                                             stride, order.data(), work.data(), int(len)),
              moxOk);
          ASSERT_EQ(order, expected) << seedNote();
          ASSERT_EQ(records, untouched);
        }
      }
}

#define BOTH(t) moxsSortRadixIndexAscend_##t, moxsSortRadixIndexDescend_##t

TEST(RadixSortIndex, EveryMemberRanksKeysOfAnyStrideStably) {
  expectRadixIndices<Mox8u>(BOTH(8u));
  expectRadixIndices<Mox16s>(BOTH(16s));
  expectRadixIndices<Mox16u>(BOTH(16u));
  expectRadixIndices<Mox32s>(BOTH(32s));
  expectRadixIndices<Mox32u>(BOTH(32u));
  expectRadixIndices<Mox32f>(BOTH(32f));
}
#undef BOTH

TEST(RadixSortIndex, RefusesStridesBelowAKey) {
  const Mox16u keys[] = {2, 1};
  Mox32s order[] = {-1, -1}, work[] = {-1, -1};
  for (int stride : {1, 0, -2})
    EXPECT_EQ(moxsSortRadixIndexAscend_16u(keys, stride, order, work, 2), moxErrSize);
  EXPECT_EQ(moxsSortRadixIndexAscend_16u(keys, 1, nullptr, work, 2), moxErrNullPtr);
  EXPECT_EQ(order[0], -1);
  EXPECT_EQ(work[0], -1);
}

}  // namespace
