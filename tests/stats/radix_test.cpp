#include <compare>
#include <numeric>

#include "stats/sort_data.h"

namespace {

using namespace test;

template <class T>
Patterns<T> radixPatterns(long len) {
  auto all = hardPatterns<T>(len);
  using Limits = std::numeric_limits<T>;
  Random random(3);
  const auto add = [&](const char* name, auto value) {
    for (long i = 0; i < len; ++i) all[name].push_back(T(value()));
  };
  add("one far off", [&] { return random.below(100); });
  all["one far off"].front() = Limits::max();
  add("the last one far off", [&] { return random.below(1 << (sizeof(T) > 2 ? 16 : 6)); });
  all["the last one far off"].back() = T(Limits::max() / 2 + 1);
  if constexpr (std::is_floating_point_v<T>) {
    const T special[] = {T(0), -T(0), Limits::quiet_NaN(), -Limits::quiet_NaN(),
                         Limits::infinity()};
    add("alike in the highest bits", [&] { return 1.5 + random.value<T>() / 2; });
    add("any bits", [&] { return random.anyFloat<T>(); });
    add("zeros and NaN", [&] { return special[random.below(5)]; });
  } else {
    // The highest bits are set in all, and the next take all values.
    add("alike in the highest bits",
        [&] { return Limits::max() - random.below(1 << (8 * sizeof(T) - 4)); });
  }
  return all;
}

// Runs check(data, down, places in the stable total order).
template <class T, class Check>
void forEachPattern(const std::vector<long>& lengths, Check check) {
  for (const long len : lengths)
    for (const auto& [name, data] : radixPatterns<T>(len))
      for (const bool down : {false, true}) {
        SCOPED_TRACE(name + ", " + std::to_string(len) + (down ? " down" : " up"));
        std::vector<Mox32s> places(len);
        std::iota(places.begin(), places.end(), 0);
        std::stable_sort(places.begin(), places.end(), [down, &keys = data](int a, int b) {
          // Of floats by sign and magnitude, NaN among them.
          return std::strong_order(keys[down ? b : a], keys[down ? a : b]) < 0;
        });
        check(data, down, places);
      }
}

template <class T>
struct RadixSorts {
  MoxStatus (*up)(T*, T*, int);
  MoxStatus (*down)(T*, T*, int);
};
#define SORTS(t) \
  RadixSorts<Mox##t> { moxsSortRadixAscend_##t##_I, moxsSortRadixDescend_##t##_I }

template <class... T>
void expectRadixSorts(const std::vector<long>& lengths, const RadixSorts<T>&... sorts) {
  const auto expect = [&]<class E>(const RadixSorts<E>& one) {
    forEachPattern<E>(lengths, [=](const auto& data, bool down, const auto& places) {
      auto sorted = data, expected = data, buffer = data;
      for (std::size_t i = 0; i < data.size(); ++i) expected[i] = data[places[i]];
      ASSERT_OK((down ? one.down : one.up)(sorted.data(), buffer.data(), int(data.size())));
      ASSERT_TRUE(sameBits(sorted, expected));
    });
  };
  (expect(sorts), ...);
}

TEST(RadixSort, EveryMemberGivesTheTotalOrder) {
  expectRadixSorts(sortLengths(), SORTS(8u), SORTS(16s), SORTS(16u), SORTS(32s), SORTS(32u),
                   SORTS(32f), SORTS(64f));
}

// Long enough to be dealt out to parts; with one key far off, all others share a part at first.
TEST(RadixSort, LongVectors) {
  expectRadixSorts({600'001}, SORTS(32s), SORTS(32u), SORTS(32f), SORTS(64f));
}

// Keys as fields of records of `stride` bytes, at the end of each.
template <class T>
void expectRadixIndices(auto up, auto down) {
  forEachPattern<T>(sortLengths(), [=](const auto& data, bool downwards, const auto& places) {
    const int len = int(data.size()), size = sizeof(T);
    for (const int stride : {size, size + 1, 3 * size - 1}) {
      const int field = stride - size;
      std::vector<unsigned char> records(std::size_t(len) * stride, 0xA5);
      for (long i = 0; i < len; ++i) std::memcpy(&records[i * stride + field], &data[i], size);
      std::vector<Mox32s> order(len, -1), work(len);
      ASSERT_OK((downwards ? down : up)(reinterpret_cast<const T*>(&records[field]), stride,
                                        order.data(), work.data(), len));
      ASSERT_EQ(order, places) << "stride " << stride;
    }
  });
}

#define EXPECT_INDICES(t) \
  expectRadixIndices<Mox##t>(moxsSortRadixIndexAscend_##t, moxsSortRadixIndexDescend_##t)

TEST(RadixSortIndex, EveryMemberRanksKeysOfAnyStrideStably) {
  EXPECT_INDICES(8u);
  EXPECT_INDICES(16s);
  EXPECT_INDICES(16u);
  EXPECT_INDICES(32s);
  EXPECT_INDICES(32u);
  EXPECT_INDICES(32f);
}

}  // namespace
