// Medians of a window that slides along a vector.
#include <moxsp/median.h>

#include <algorithm>
#include <array>
#include <climits>

#include "frame/in_place.h"
#include "frame/work_buffer.h"
#include "stats/sort_order.h"
#include "stats/sort_radix_passes.h"

namespace mox::stats {
namespace {

template <class T>
T medianOf(T a, T b, T c) {
  return lesser(greater(lesser(a, b), c), greater(a, b));
}

// The network of a window, for scalars and lane by lane. What it finds of three neighbours is
// shared by the windows that hold them; median(shared, x) is that of the window around x which
// begins where shared(0) does. The last neighbours begin `span` elements later.
template <int mask>
struct Network;

template <>
struct Network<3> {
  static constexpr int span = 0;
  static auto shareOf(auto a, auto b, auto c) { return std::array{medianOf(a, b, c)}; }
  static auto median(auto shared, auto) { return shared(0)[0]; }
};

template <>
struct Network<5> {
  static constexpr int span = 3;
  static auto shareOf(auto a, auto b, auto) { return std::array{lesser(a, b), greater(a, b)}; }
  static auto median(auto shared, auto x) { return median(shared(0), shared(3), x); }

  // The lesser of two minima and the greater of two maxima are not the median.
  template <class T>
  static T median(std::array<T, 2> s, std::array<T, 2> t, T x) {
    return medianOf(x, greater(s[0], t[0]), lesser(s[1], t[1]));
  }
};

struct NetworkOfTriples {
  static auto shareOf(auto a, auto b, auto c) {
    const auto least = lesser(a, b), most = greater(a, b), rest = greater(least, c);
    return std::array{lesser(least, c), lesser(rest, most), greater(rest, most)};
  }
};
template <>
struct Network<7> : NetworkOfTriples {
  static constexpr int span = 4;
  // Without the least and the greatest of both triples, four are left.
  static auto median(auto shared, auto x) {
    const auto s = shared(0), t = shared(4);
    return Network<5>::median(std::array{greater(s[0], t[0]), greater(s[1], t[1])},
                              std::array{lesser(s[1], t[1]), lesser(s[2], t[2])}, x);
  }
};
template <>
struct Network<9> : NetworkOfTriples {
  static constexpr int span = 6;
  static auto median(auto shared, auto) {
    const auto s = shared(0), t = shared(3), u = shared(6);
    return medianOf(greater(greater(s[0], t[0]), u[0]), medianOf(s[1], t[1], u[1]),
                    lesser(lesser(s[2], t[2]), u[2]));
  }
};

// Outputs in chunks. The last shares of a chunk serve the next one too, where outputs in place have
// overwritten their elements.
template <int mask, class E>
class NetworkFilter {
  using N = Network<mask>;
  using T = Register<E>;
  static constexpr long half = mask / 2, overlap = std::max<long>(N::span, half),
                        lanes = laneCount<T>, chunkLen = 4096 / sizeof(E);

 public:
  void run(const E* src, E* dst, long len) {
    for (long done = 0; done < len; done += chunkLen) {
      const long count = std::min(chunkLen, len - done);
      share(src, len, done - half, done ? overlap : 0, count + overlap);
      long i = 0;
      for (; i <= count - lanes; i += lanes) filter<T>(src + done, dst + done, i);
      for (; i < count; ++i) filter<E>(src + done, dst + done, i);
      for (auto& row : rows_) std::memmove(row + origin, row + origin + count, overlap * sizeof(E));
    }
  }

 private:
  // What several operations take is loaded once.
  template <class W>
  static W numbersAt(const E* p) {
    const W x = load<W>(p);
    if constexpr (std::is_same_v<W, T>)
      return inRegister(x);
    else
      return x;
  }

  // The shares from..to, those of the neighbours from `start` on being number 0.
  void share(const E* src, long len, long start, long from, long to) {
    const auto at = [=](long i) { return load<E>(src + std::clamp(i, 0L, len - 1)); };
    const auto single = [&](long k) {
      put(k, N::shareOf(at(start + k), at(start + k + 1), at(start + k + 2)));
    };
    long k = from;
    for (; start + k < 0; ++k) single(k);
    for (; k <= to - lanes && start + k + lanes + 2 <= len; k += lanes) {
      const E* const x = src + start + k;
      put(k, N::shareOf(numbersAt<T>(x), numbersAt<T>(x + 1), load<T>(x + 2)));
    }
    for (; k < to; ++k) single(k);
  }

  template <class W>
  void put(long i, W share) {
    for (std::size_t row = 0; row < share.size(); ++row) store(rows_[row] + origin + i, share[row]);
  }

  template <class W>
  void filter(const E* src, E* dst, long i) const {
    const auto shared = [&](int k) {
      std::array<W, rowCount> share;
      for (std::size_t row = 0; row < rowCount; ++row)
        share[row] = numbersAt<W>(rows_[row] + origin + i + k);
      return share;
    };
    store(dst + i, N::median(shared, load<W>(src + i)));
  }

  static constexpr std::size_t rowCount = std::tuple_size_v<decltype(N::shareOf(E(), E(), E()))>;
  // Those of a chunk that are new begin on a vector.
  static constexpr long perVector = vectorBytes / sizeof(E),
                        origin = (8 * perVector - overlap) % perVector;
  alignas(vectorBytes) E rows_[rowCount][origin + overlap + chunkLen + perVector];
};

template <int mask, class E>
void filterByNetwork(const E* src, E* dst, long len) {
  NetworkFilter<mask, E> filter;
  filter.run(src, dst, len);
}

// The keys of a window in the order of the vector, and sorted.
template <class K>
class SortedWindow {
 public:
  SortedWindow(K* memory, long count, K key)
      : ring_(memory), sorted_(memory + count), count_(count) {
    std::fill_n(memory, 2 * count, key);
  }

  K median() const { return sorted_[count_ / 2]; }

  // A key in the place of the oldest one.
  void push(K key) {
    const long from = place(ring_[oldest_]), to = place(key);
    ring_[oldest_] = key;
    if (++oldest_ == count_) oldest_ = 0;
    if (from < to) {
      std::memmove(sorted_ + from, sorted_ + from + 1, std::size_t(to - 1 - from) * sizeof(K));
      sorted_[to - 1] = key;
    } else {
      std::memmove(sorted_ + to + 1, sorted_ + to, std::size_t(from - to) * sizeof(K));
      sorted_[to] = key;
    }
  }

 private:
  // The number of keys below this one.
  long place(K key) const {
    const K* first = sorted_;
    for (long left = count_; left > 0;) {
      const long part = (left + 1) / 2;
      first = first[part - 1] < key ? first + part : first;
      left -= part;
    }
    return first - sorted_;
  }

  K *ring_, *sorted_;
  long count_, oldest_ = 0;
};

template <class E>
MoxStatus filterBySorting(const E* src, E* dst, long len, long half) {
  using Key = RadixKey<E, Ascending>;
  using Bits = typename Key::Bits;
  const long count = 2 * half + 1, bytes = 2 * count * long(sizeof(E));
  if (bytes > INT_MAX) return moxErrMemAlloc;
  const WorkBuffer memory(nullptr, int(bytes));
  if (memory.failed()) return moxErrMemAlloc;
  const auto key = [=](long i) { return Key::mapped(load<Bits>(src + std::min(i, len - 1))); };
  SortedWindow<Bits> window(memory.as<Bits>(), count, key(0));
  for (long i = 1; i <= half; ++i) window.push(key(i));
  for (long i = 0; i < len; ++i) {
    const Bits next = key(i + half + 1);
    store(dst + i, Key::unmapped(window.median()));
    window.push(next);
  }
  return moxOk;
}

template <class E>
MoxStatus runMedian(const E* src, E* dst, long len, long half) {
  switch (half) {
    case 1:
      filterByNetwork<3>(src, dst, len);
      return moxOk;
    case 2:
      filterByNetwork<5>(src, dst, len);
      return moxOk;
    case 3:
      filterByNetwork<7>(src, dst, len);
      return moxOk;
    case 4:
      filterByNetwork<9>(src, dst, len);
      return moxOk;
    default:
      return filterBySorting(src, dst, len, half);
  }
}

template <class E>
MoxStatus filterMedian(const E* src, E* dst, int len, int maskSize) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (MoxStatus s = checkLength(maskSize)) return s;
  // A wider window has as many more copies of the first sample as of the last, with the median
  // between them.
  const long half = std::min((maskSize - 1) / 2, len);
  if (half == 0 || len < 3)
    std::memmove(dst, src, std::size_t(len) * sizeof(E));
  else if (MoxStatus s = runMedian(src, dst, len, half))
    return s;
  return maskSize % 2 ? moxOk : MoxStatus(moxWarnEvenMedianMask);
}

}  // namespace

MOX_EXPORT_BOTH(moxsFilterMedian_8u, moxsFilterMedian_8u_I, filterMedian);
MOX_EXPORT_BOTH(moxsFilterMedian_16s, moxsFilterMedian_16s_I, filterMedian);
MOX_EXPORT_BOTH(moxsFilterMedian_32s, moxsFilterMedian_32s_I, filterMedian);
MOX_EXPORT_BOTH(moxsFilterMedian_32f, moxsFilterMedian_32f_I, filterMedian);
MOX_EXPORT_BOTH(moxsFilterMedian_64f, moxsFilterMedian_64f_I, filterMedian);

}  // namespace mox::stats
