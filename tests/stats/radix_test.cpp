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
Patterns<T> radixPatterns(long len) {
  auto all = hardPatterns<T>(len);
  Random random(3);
  auto& far = all["one far off"];
  for (long i = 0; i < len; ++i) far.push_back(T(random.below(100)));
  far.front() = std::numeric_limits<T>::max();
  auto& farBehind = all["the last one far off"];
  for (long i = 0; i < len; ++i)
    farBehind.push_back(T(random.below(1 << (sizeof(T) > 2 ? 16 : 6))));
  farBehind.back() = T(std::numeric_limits<T>::max() / 2 + 1);
  // The highest bits are set in all, and the next take all values.
  auto& alike = all["alike in the highest bits"];
  for (long i = 0; i < len; ++i)
    if constexpr (std::is_integral_v<T>)
      alike.push_back(T(std::numeric_limits<T>::max() - random.below(1 << (8 * sizeof(T) - 4))));
    else
      alike.push_back(T(1.5 + random.value<T>() / 2));
  if constexpr (std::is_floating_point_v<T>) {
    const T nan = std::numeric_limits<T>::quiet_NaN();
    const T special[] = {T(0), -T(0), nan, -nan, std::numeric_limits<T>::infinity()};
    for (long i = 0; i < len; ++i) {
      all["any bits"].push_back(random.anyFloat<T>());
      all["zeros and NaN"].push_back(special[random.below(5)]);
    }
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
          return down ? precedes(keys[b], keys[a]) : precedes(keys[a], keys[b]);
        });
        check(data, down, places);
      }
}

template <class T>
void expectRadixSorts(auto up, auto down, const std::vector<long>& lengths) {
  forEachPattern<T>(lengths, [=](const auto& data, bool downwards, const auto& places) {
    auto sorted = data, expected = data, buffer = data;
    for (std::size_t i = 0; i < data.size(); ++i) expected[i] = data[places[i]];
    ASSERT_EQ((downwards ? down : up)(sorted.data(), buffer.data(), int(data.size())), moxOk);
    ASSERT_TRUE(sameBits(sorted, expected));
  });
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
  expectRadixSorts<Mox32u>(BOTH(32u), {600'001});
  expectRadixSorts<Mox32f>(BOTH(32f), {600'001});
  expectRadixSorts<Mox64f>(BOTH(64f), {600'001});
}
#undef BOTH

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
      ASSERT_EQ((downwards ? down : up)(reinterpret_cast<const T*>(&records[field]), stride,
                                        order.data(), work.data(), len),
                moxOk);
      ASSERT_EQ(order, places) << "stride " << stride;
    }
  });
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

}  // namespace
