// The scan that finds extrema. The best value starts as the first element, and a later one takes
// its place only when it beats it: so the first of equals wins, a NaN in front stays, and one
// further on never counts. Lanes scan side by side, all of them from the first element on, so that
// this holds in each and no alignment or length shows in a result.
#pragma once

#include <algorithm>
#include <array>
#include <type_traits>

#include "frame/map.h"
#include "frame/vec/vec.h"
#include "stats/pages_ahead.h"

namespace mox::stats {

// Relations: does a beat b, and which of the two stays when b was there first?
struct Larger {
  static auto beats(auto a, auto b) { return a > b; }
  template <class T>
  static T better(T a, T b) {
    return greater(a, b);
  }
};
struct Smaller {
  static auto beats(auto a, auto b) { return a < b; }
  template <class T>
  static T better(T a, T b) {
    return lesser(a, b);
  }
};

// The key under which elements are compared: themselves.
struct Value {
  template <class T>
  T operator()(T x) const {
    return x;
  }
};

// Vectors in a block, after which a scan notes where it stands: few where a block is to be searched
// for the extreme, many where that is rare.
constexpr int fineBlock = 32, coarseBlock = 256;

// An extreme key, and the block in which it is met first.
template <class K>
struct Extreme {
  K key;
  long begin, end;
};

namespace detail {

// The best lane of a vector, in all lanes.
template <class Relation, int apart, class W>
[[gnu::always_inline]] inline W bestLane(W v) {
  if constexpr (apart == 0)
    return v;
  else
    return bestLane<Relation, apart / 2>(
        Relation::better(shuffle<[](int i) { return i ^ apart; }>(v), v));
}

// The progress of a scan under one relation.
template <class Relation, class W>
class Best {
 public:
  explicit Best(W first) : best_(first) {
    for (W& lanes : lanes_) lanes = first;
  }

  // Vectors in a row go to accumulators in turn.
  [[gnu::always_inline]] void take(int j, W keys) {
    lanes_[j % 4] = Relation::better(keys, lanes_[j % 4]);
  }

  // To be called when the elements from `begin` to `end` have been taken.
  [[gnu::always_inline]] void endBlock(long begin, long end) {
    const W joined = Relation::better(Relation::better(lanes_[3], lanes_[2]),
                                      Relation::better(lanes_[1], lanes_[0]));
    if (!anyLane(Relation::beats(joined, best_))) return;
    best_ = bestLane<Relation, laneCount<W> / 2>(joined);
    begin_ = begin;
    end_ = end;
  }

  Extreme<Lane<W>> result() const {
    const W best = best_;  // an element of a member would keep it in memory
    return {best[0], begin_, end_};
  }

 private:
  W lanes_[4], best_;
  long begin_ = 0, end_ = 1;
};

// The same under several relations.
template <class W, class... Relation>
class Scan : Best<Relation, W>... {
 public:
  explicit Scan(W first) : Best<Relation, W>(first)... {}
  [[gnu::always_inline]] void take(int j, W keys) { (Best<Relation, W>::take(j, keys), ...); }
  [[gnu::always_inline]] void endBlock(long begin, long end) {
    (Best<Relation, W>::endBlock(begin, end), ...);
  }
  auto results() const { return std::array{Best<Relation, W>::result()...}; }
};

// A vector of the first elements, when there are not enough of them to load one.
template <class E>
[[gnu::noinline]] Register<E> shortVector(const E* src, long len) {
  auto v = broadcast<Register<E>>(load<E>(src));
  for (long i = 1; i < len; ++i) v[i] = load<E>(src + i);
  return v;
}

}  // namespace detail

// The extreme under each relation, in one pass.
template <int blockVectors, class Key, class... Relation, class E>
[[gnu::always_inline]] inline auto scan(const E* src, long len) {
  using Vector = Register<E>;
  constexpr long lanes = laneCount<Vector>, stepVectors = 8;
  constexpr long step = stepVectors * lanes, block = blockVectors * lanes;
  const auto keys = [src](long i) {
    const auto k = Key()(load<Vector>(src + i));
    if constexpr (sizeof...(Relation) > 1)  // computed once for all
      return inRegister(k);
    else
      return k;
  };
  using W = decltype(keys(0));

  detail::Scan<W, Relation...> scan(broadcast<W>(Key()(load<E>(src))));
  const PagesAhead ahead(src, len);
  const auto takeStep = [&](long i) {
    ahead.template ask<step>(i);
    for (int j = 0; j < stepVectors; ++j) scan.take(j, keys(i + j * lanes));
  };

  long begin = 0;
  if (len < lanes) {
    scan.take(0, Key()(detail::shortVector(src, len)));
  } else {
    // Taking elements twice changes nothing: vectors at either end overlap aligned ones.
    scan.take(0, keys(0));
    long i = peelCount(src) % lanes;
    while (i <= len - step) {
      for (const long end = std::min(i + block, len - step + 1); i < end; i += step) takeStep(i);
      scan.endBlock(begin, i);
      begin = i;
    }
    for (; i <= len - lanes; i += lanes) scan.take(0, keys(i));
    scan.take(1, keys(len - lanes));
  }
  scan.endBlock(begin, len);
  return scan.results();
}

// The index of the first element that has an extreme key; 0 for a NaN, which can only be there.
template <class Key, class E, class K>
[[gnu::always_inline]] inline long indexOf(Extreme<K> extreme, const E* src) {
  using Vector = Register<E>;
  const long last = extreme.end - laneCount<Vector>;
  const auto equal = [&](Vector v) { return Key()(v) == extreme.key; };
  if (last < 0) {
    const auto found = equal(detail::shortVector(src, extreme.end));
    return anyLane(found) ? firstLane(found) : 0;
  }
  // The last vector may reach back beyond the block, to elements that are not so extreme.
  for (long i = extreme.begin; i < extreme.end; i += laneCount<Vector>) {
    const long at = std::min(i, last);
    if (const auto found = equal(load<Vector>(src + at)); anyLane(found))
      return at + firstLane(found);
  }
  return 0;
}

}  // namespace mox::stats
