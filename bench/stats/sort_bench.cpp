// Sorts beside the standard library's and Highway's vectorised quicksort. Every call sorts a copy
// of random data, for which all sides pay alike.
#include <hwy/contrib/sort/vqsort.h>
#include <hwy/targets.h>
#include <moxsp.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "support/compare.h"

namespace {

template <class T>
struct Keys {
  explicit Keys(long len)
      : random(std::max(len, unforeseen)), keys(len), buffer(len), index(len), indexBuffer(len) {
    std::mt19937_64 engine(1);
    for (T& key : random)
      if constexpr (std::is_floating_point_v<T>)
        key = std::normal_distribution<T>()(engine);
      else
        key = T(engine());
  }
  T* fresh() {
    if (next + keys.size() > random.size()) next = 0;
    std::memcpy(keys.data(), random.data() + next, keys.size() * sizeof(T));
    next += keys.size();
    return keys.data();
  }
  int len() const { return int(keys.size()); }

  // So many keys in turn a processor can't learn by heart, and foretell the branches they take.
  static constexpr long unforeseen = 1 << 18;
  std::size_t next = 0;
  std::vector<T> random, keys, buffer;
  std::vector<Mox32s> index, indexBuffer;
};

template <class T>
using Sort = void (*)(Keys<T>&);

template <class T>
void standardSort(Keys<T>& k) {
  T* keys = k.fresh();
  std::sort(keys, keys + k.len());
}

template <class T>
void vqsort(Keys<T>& k) {
  hwy::Sorter()(k.fresh(), std::size_t(k.len()), hwy::SortAscending());
}

template <class T>
void standardIndexSort(Keys<T>& k) {
  const T* keys = k.fresh();
  std::iota(k.index.begin(), k.index.end(), 0);
  std::sort(k.index.begin(), k.index.end(), [=](int a, int b) { return keys[a] < keys[b]; });
}

template <class T>
void standardStableIndexSort(Keys<T>& k) {
  const T* keys = k.fresh();
  std::iota(k.index.begin(), k.index.end(), 0);
  std::stable_sort(k.index.begin(), k.index.end(), [=](int a, int b) { return keys[a] < keys[b]; });
}

template <class T>
void addSort(const char* family, long len, Sort<T> ours,
             std::vector<std::pair<const char*, Sort<T>>> peers) {
  auto data = std::make_shared<Keys<T>>(len);
  bench::Case c{
      .family = family, .size = len, .work = {}, .ours = [=] { ours(*data); }, .peers = {}};
  for (const auto& [name, sort] : peers)
    c.peers.push_back({name, [=] {
                         sort(*data);
                         bench::clobber(data->keys.data());
                       }});
  bench::add(std::move(c));
}

template <class T, MoxStatus (*sort)(T*, int)>
void plain(Keys<T>& k) {
  sort(k.fresh(), k.len());
}
template <class T, MoxStatus (*sort)(T*, Mox32s*, int)>
void index(Keys<T>& k) {
  sort(k.fresh(), k.index.data(), k.len());
}
template <class T, MoxStatus (*sort)(T*, T*, int)>
void radix(Keys<T>& k) {
  sort(k.fresh(), k.buffer.data(), k.len());
}
template <class T, MoxStatus (*sort)(const T*, int, Mox32s*, Mox32s*, int)>
void radixIndex(Keys<T>& k) {
  sort(k.fresh(), sizeof(T), k.index.data(), k.indexBuffer.data(), k.len());
}

const bool added = [] {
  const bench::Group group("sorts");
#ifndef __AVX2__
  hwy::DisableTargets(HWY_SSE4 - 1);  // the bits below stand for the targets beyond
#endif
  for (long len : {1000L, 100000L, 1000000L}) {
#define PEERS(T)                                            \
  {                                                         \
    {"std::sort", standardSort<T>}, { "vqsort", vqsort<T> } \
  }
#define PLAIN(t) \
  addSort<Mox##t>("sort_" #t, len, plain<Mox##t, moxsSortAscend_##t##_I>, PEERS(Mox##t))
#define RADIX(t) \
  addSort<Mox##t>("radix_" #t, len, radix<Mox##t, moxsSortRadixAscend_##t##_I>, PEERS(Mox##t))
#define INDEX(t)                                                                     \
  addSort<Mox##t>("sort_index_" #t, len, index<Mox##t, moxsSortIndexAscend_##t##_I>, \
                  {{"std::sort", standardIndexSort<Mox##t>}})
#define RADIX_INDEX(t)                                                                      \
  addSort<Mox##t>("radix_index_" #t, len, radixIndex<Mox##t, moxsSortRadixIndexAscend_##t>, \
                  {{"std::stable_sort", standardStableIndexSort<Mox##t>}})
    PLAIN(32f);
    PLAIN(64f);
    PLAIN(32s);
    PLAIN(16s);
    INDEX(32f);
    INDEX(32s);
    RADIX(32u);
    RADIX(32s);
    RADIX(32f);
    RADIX(64f);
    RADIX(16s);
    RADIX_INDEX(32s);
    RADIX_INDEX(16s);
  }
  return true;
}();

}  // namespace
