#include "stats/sort_data.h"

namespace {

using namespace test;

// The plain forms and those with places, upwards and downwards.
template <class T>
struct Sorts {
  MoxStatus (*plain[2])(T*, int);
  MoxStatus (*index[2])(T*, Mox32s*, int);
};
#define SORTS(t)                                                \
  Sorts<Mox##t> {                                               \
    {moxsSortAscend_##t##_I, moxsSortDescend_##t##_I}, {        \
      moxsSortIndexAscend_##t##_I, moxsSortIndexDescend_##t##_I \
    }                                                           \
  }

// The keys in order, and each with its place; of equal keys of up to nine in the order of their
// places. With NaN among them calls end, and hand back the same bits in any order.
template <class T>
void expectSorted(const std::vector<T>& data, const Sorts<T>& sorts, bool hasNaN = false) {
  const int len = int(data.size());
  const auto inBitOrder = [](std::vector<T> v) {
    std::ranges::sort(v, [](T a, T b) { return std::memcmp(&a, &b, sizeof a) < 0; });
    return v;
  };
  const auto expected = inBitOrder(data);
  for (const bool down : {false, true}) {
    SCOPED_TRACE(down ? "downwards" : "upwards");
    const auto inOrder = [=](T a, T b) { return hasNaN || (down ? a >= b : a <= b); };
    auto plain = data, keys = data;
    std::vector<Mox32s> places(len, -1);
    ASSERT_OK(sorts.plain[down](plain.data(), len));
    ASSERT_OK(sorts.index[down](keys.data(), places.data(), len));
    ASSERT_TRUE(sameBits(inBitOrder(plain), expected));
    for (int i = 0; i < len; ++i) {
      ASSERT_TRUE(sameBits(keys[i], data.at(places[i]))) << "at " << i;
      if (i == 0) continue;
      ASSERT_TRUE(inOrder(plain[i - 1], plain[i]) && inOrder(keys[i - 1], keys[i])) << "at " << i;
      ASSERT_TRUE(len > 9 || keys[i - 1] != keys[i] || places[i - 1] < places[i]) << "at " << i;
    }
    std::ranges::sort(places);
    for (int i = 0; i < len; ++i) ASSERT_EQ(places[i], i) << "an index is missing";
  }
}

template <class T>
void expectSortsHardPatterns(const std::vector<long>& lengths, const Sorts<T>& sorts) {
  for (const long len : lengths)
    for (const auto& [name, data] : hardPatterns<T>(len)) {
      SCOPED_TRACE(name + ", " + std::to_string(len));
      expectSorted(data, sorts);
    }
}

TEST(Sort, EveryMemberSortsAndTellsThePlaces) {
  const auto expectAll = [](auto... sorts) {
    (expectSortsHardPatterns(sortLengths(), sorts), ...);
  };
  expectAll(SORTS(8u), SORTS(16s), SORTS(16u), SORTS(32s), SORTS(32f), SORTS(64f));
}

TEST(Sort, LongVectorsEnd) { expectSortsHardPatterns({300'001}, SORTS(32f)); }

TEST(Sort, AllVectorsOfThreeValuesUpToALeaf) {
  for (int len = 1, vectors = 3; len <= 9; ++len, vectors *= 3)
    for (int v = 0; v < vectors; ++v) {
      std::vector<Mox32f> keys;
      for (int digits = v; int(keys.size()) < len; digits /= 3) keys.push_back(float(digits % 3));
      expectSorted(keys, SORTS(32f));
    }
}

template <class T>
void expectNaNKept(const Sorts<T>& sorts) {
  const T nan = std::numeric_limits<T>::quiet_NaN();
  // The pivot is the extreme of a segment that a NaN ends.
  for (const std::vector<T>& data : {std::vector<T>{0, 1, 2, 3, 4, 99, 6, 7, 8, nan},
                                     {9, 8, 7, 6, 5, -99, 3, 2, 1, nan},
                                     {0, 1, 2, 3, 4, 99, 6, 7, nan, nan}})
    expectSorted(data, sorts, true);
  Random random(2);
  for (long len : {2, 5, 9, 10, 11, 12, 20, 64, 65, 66, 67, 100, 129, 1000, 20000})
    for (auto& [name, data] : hardPatterns<T>(len))
      for (long oneIn : {1L, 2L, 10L, len}) {
        auto spoilt = data;
        for (T& value : spoilt)
          if (random.below(oneIn) == 0) value = std::copysign(nan, random.value<T>());
        if (oneIn == len) spoilt.back() = nan;
        SCOPED_TRACE(name + ", " + std::to_string(len) + ", one in " + std::to_string(oneIn));
        expectSorted(spoilt, sorts, true);
      }
}

TEST(Sort, EndsAndLosesNothingWithNaN) {
  expectNaNKept(SORTS(32f));
  expectNaNKept(SORTS(64f));
}

}  // namespace
