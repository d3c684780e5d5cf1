#include <bit>

#include "stats/sort_data.h"

namespace {

using namespace test;

// The sort told step by step: Hoare's scans one element at a time, on positions of items with their
// places. It is the model for the order in which equal keys leave.
template <class T>
class SlowQuickSort {
 public:
  struct Item {
    T key;
    int place;
  };

  SlowQuickSort(const std::vector<T>& keys, bool ascending) : ascending_(ascending) {
    for (std::size_t i = 0; i < keys.size(); ++i) items_.push_back({keys[i], int(i)});
  }

  const std::vector<Item>& sorted() {
    sort(0, long(items_.size()) - 1);
    return items_;
  }

 private:
  bool before(T a, T b) const { return ascending_ ? a < b : a > b; }
  T at(long i) const { return items_[i].key; }
  void swap(long i, long j) { std::swap(items_[i], items_[j]); }
  void orderPair(long first, long second) {
    if (before(at(second), at(first))) swap(first, second);
  }

  void sort(long lo, long hi) {
    if (hi - lo < 9) {
      std::stable_sort(items_.begin() + lo, items_.begin() + hi + 1,
                       [this](Item a, Item b) { return before(a.key, b.key); });
      return;
    }
    const long mid = lo + (hi - lo + 1) / 2;
    if constexpr (std::is_integral_v<T>) {
      const auto [first, second] = ascending_ ? std::pair(lo, lo + 1) : std::pair(hi, hi - 1);
      if (at(first) < at(second)) swap(first, second);
    }
    orderPair(lo, hi);
    orderPair(mid, hi);
    orderPair(lo, mid);
    const T pivot = at(mid);
    long i = lo + 1, j = hi;
    for (;;) {
      while (i < j && !before(pivot, at(i))) ++i;
      while (i < j && before(pivot, at(j))) --j;
      if (i >= j) break;
      swap(i, j);
      if constexpr (std::is_floating_point_v<T>) ++i, --j;
    }
    long leftEnd = std::is_integral_v<T> ? i - 1 : i, rightStart = j;
    while (leftEnd > lo && !before(at(leftEnd), pivot)) --leftEnd;
    while (std::is_floating_point_v<T> && rightStart < hi && !before(pivot, at(rightStart)))
      ++rightStart;
    sort(lo, leftEnd);
    sort(rightStart, hi);
  }

  bool ascending_;
  std::vector<Item> items_;
};

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

template <class T>
void expectSorted(const std::vector<T>& data, const Sorts<T>& sorts) {
  const int len = int(data.size());
  for (const bool down : {false, true}) {
    auto plain = data, expected = data;
    std::sort(expected.begin(), expected.end());
    if (down) std::reverse(expected.begin(), expected.end());
    ASSERT_EQ(sorts.plain[down](plain.data(), len), moxOk);
    ASSERT_EQ(plain, expected) << "downwards: " << down;

    auto keys = data;
    std::vector<Mox32s> places(data.size(), -1);
    ASSERT_EQ(sorts.index[down](keys.data(), places.data(), len), moxOk);
    SlowQuickSort<T> model(data, !down);
    const auto& items = model.sorted();
    for (int i = 0; i < len; ++i)
      ASSERT_TRUE(keys[i] == items[i].key && places[i] == items[i].place)
          << "at " << i << ", downwards: " << down;
  }
}

template <class T>
void expectSortsHardPatterns(const Sorts<T>& sorts) {
  for (long len : sortLengths())
    for (const auto& [name, data] : hardPatterns<T>(len)) {
      SCOPED_TRACE(name + ", " + std::to_string(len));
      expectSorted(data, sorts);
    }
}

TEST(Sort, EveryMemberSortsAndTellsThePlaces) {
  expectSortsHardPatterns(SORTS(8u));
  expectSortsHardPatterns(SORTS(16s));
  expectSortsHardPatterns(SORTS(16u));
  expectSortsHardPatterns(SORTS(32s));
  expectSortsHardPatterns(SORTS(32f));
  expectSortsHardPatterns(SORTS(64f));
}

TEST(Sort, AllVectorsOfThreeValuesUpToALeaf) {
  for (int len = 1, vectors = 3; len <= 9; ++len, vectors *= 3)
    for (int v = 0; v < vectors; ++v) {
      std::vector<Mox32f> keys;
      for (int digits = v; int(keys.size()) < len; digits /= 3) keys.push_back(float(digits % 3));
      expectSorted(keys, SORTS(32f));
    }
}

// The call must end, and hand back the same bit patterns.
template <class T>
void expectNothingLost(const std::vector<T>& data, const Sorts<T>& sorts) {
  const auto inBitOrder = [](std::vector<T> v) {
    std::sort(v.begin(), v.end(), [](T a, T b) { return std::memcmp(&a, &b, sizeof a) < 0; });
    return v;
  };
  const auto expected = inBitOrder(data);
  const int len = int(data.size());
  for (const bool down : {false, true}) {
    auto keys = data;
    ASSERT_EQ(sorts.plain[down](keys.data(), len), moxOk);
    ASSERT_TRUE(sameBits(inBitOrder(keys), expected));

    keys = data;
    std::vector<Mox32s> places(data.size(), -1);
    ASSERT_EQ(sorts.index[down](keys.data(), places.data(), len), moxOk);
    for (int i = 0; i < len; ++i) ASSERT_EQ(std::memcmp(&keys[i], &data[places[i]], sizeof(T)), 0);
    std::sort(places.begin(), places.end());
    for (int i = 0; i < len; ++i) ASSERT_EQ(places[i], i) << "an index is missing";
  }
}

template <class T>
void expectNaNKept(const Sorts<T>& sorts) {
  const T nan = std::numeric_limits<T>::quiet_NaN();
  // The pivot is the extreme of a segment that a NaN ends.
  expectNothingLost<T>({0, 1, 2, 3, 4, 99, 6, 7, 8, nan}, sorts);
  expectNothingLost<T>({9, 8, 7, 6, 5, -99, 3, 2, 1, nan}, sorts);
  expectNothingLost<T>({0, 1, 2, 3, 4, 99, 6, 7, nan, nan}, sorts);
  Random random(2);
  for (long len : {2, 5, 9, 10, 11, 12, 20, 64, 65, 66, 67, 100, 129, 1000, 20000})
    for (const auto& [name, clean] : hardPatterns<T>(len))
      for (long oneIn : {1L, 2L, 10L, len}) {
        auto data = clean;
        for (T& value : data)
          if (random.below(oneIn) == 0) value = std::copysign(nan, random.value<T>());
        if (oneIn == len) data.back() = nan;
        SCOPED_TRACE(name + ", " + std::to_string(len) + ", one in " + std::to_string(oneIn));
        expectNothingLost(data, sorts);
      }
}

TEST(Sort, EndsAndLosesNothingWithNaN) {
  expectNaNKept(SORTS(32f));
  expectNaNKept(SORTS(64f));
}

TEST(Sort, LongVectorsEnd) {
  for (auto& [name, data] : hardPatterns<Mox32f>(1'000'000)) {
    const auto sumOfBits = [&keys = data] {
      std::uint64_t sum = 0;
      for (const Mox32f x : keys) sum += std::bit_cast<std::uint32_t>(x);
      return sum;
    };
    const std::uint64_t before = sumOfBits();
    ASSERT_EQ(moxsSortAscend_32f_I(data.data(), int(data.size())), moxOk);
    ASSERT_TRUE(std::is_sorted(data.begin(), data.end())) << name;
    ASSERT_EQ(sumOfBits(), before) << name;
  }
}

}  // namespace
