// Reductions of floats. A floating sum is what the order of its additions makes it, so that order
// belongs to each function's definition. Every family states it as data, and fold() follows it:
//
//   terms    | peel | 0 1 2 3 4 5 6 7 ...           whole steps | rest |
//   lanes    the peel starts lane 0; term i is added to lane i mod `lanes`
//   rest     goes where `tail` says
//   result   the upper half of the lanes is added to the lower half, until one is left
//
// "Four accumulators of four lanes" are sixteen lanes here: registers don't show in an order.
#pragma once

#include <algorithm>
#include <array>
#include <concepts>
#include <cstring>
#include <type_traits>

#include "frame/elements.h"
#include "frame/widen.h"
#include "stats/pages_ahead.h"

namespace mox::stats {

enum class Tail {
  halves,  // lanes/2 terms to the lanes from 0 on, then lanes/4, and so on down to 1, as they fit
  folded,  // after the whole steps: fold to half the lanes, add one more half step if it fits,
           // repeat; from orderBytes on the rest goes in as with `halves`
  single,  // all to lane 0
  pairs,   // to lanes 0 and 1 in turn
  last,    // to the last lane
  serial,  // one by one to the result
};

// Where `at` lanes are left, groups of `group` lanes are added to their neighbours instead of one
// half to the other.
struct Neighbours {
  int at = 0, group = 0;
};

struct Order {
  int lanes;
  Tail tail;
  Neighbours neighbours = {};
  int step = lanes;  // what remains of this is the rest
  // At this lane count lanes are widened to double, their halves added, and the sum added to the
  // total; 0: never. With a block that happens after each `block` terms.
  int widenAt = 0;
  long block = 0;
};

// What joins two values.
struct Plus {
  template <class T>
  T operator()(T a, T b) const {
    return a + b;
  }
};
struct Max {
  template <class T>
  T operator()(T a, T b) const {
    return greater(a, b);  // b beside a NaN
  }
};

// A reduction may keep several sums at once, its channels. terms(as<T>, i) gives an array of one T
// for each channel, where T is a number, for term i, or a vector, for the terms from i on.
template <class T>
inline constexpr std::type_identity<T> as{};
template <class Terms, class F>
concept TermsOf = requires(const Terms& terms) {
  { terms(as<F>, 0L)[0] } -> std::convertible_to<F>;
  terms(as<F>, 0L).size();
};

template <class T, int channels, int parts>
struct Folded {
  T of[channels][parts];
};

// Terms of one source, whose element i gives term i.
template <class Terms, class E>
struct OneSource : Terms {
  const E* source;
};

namespace detail {

// The rest of a sum goes in where this many lanes are left, whatever registers there are.
template <class F>
constexpr int registerLanes = (std::is_integral_v<F> ? integerBytes : orderBytes) / int(sizeof(F));

template <class F, int count_, int channels>
struct Lanes {
  static constexpr int count = count_, width = std::min(count, registerLanes<F>);
  static constexpr int registers = count / width;
  V<F, width> of[channels][registers];
};

template <class Combine, class F, int count, int channels, class Terms>
[[gnu::always_inline]] inline void addTerms(Lanes<F, count, channels>& lanes, const Terms& terms,
                                            long i) {
  using L = Lanes<F, count, channels>;
  for (int r = 0; r < L::registers; ++r) {
    const auto t = terms(as<V<F, L::width>>, i + r * L::width);
    for (int c = 0; c < channels; ++c) lanes.of[c][r] = Combine()(lanes.of[c][r], t[c]);
  }
}

// One fold of the lanes of an array, and of registers.
template <Neighbours neighbours, class Combine, class F>
[[gnu::always_inline]] inline void foldLanes(F* lane, int count) {
  const int group = count == neighbours.at ? neighbours.group : count / 2;
  for (int j = 0; j < count / 2; ++j) {
    const int at = j / group * 2 * group + j % group;
    lane[j] = Combine()(lane[at], lane[at + group]);
  }
}
template <Neighbours neighbours, class Combine, class F, int count, int channels>
[[gnu::always_inline]] inline auto foldLanes(const Lanes<F, count, channels>& lanes) {
  using L = Lanes<F, count, channels>;
  constexpr int half = L::registers / 2;
  Lanes<F, count / 2, channels> folded;
  for (int c = 0; c < channels; ++c)
    for (int r = 0; r < half; ++r) {
      const auto* v = lanes.of[c];
      if constexpr (neighbours.at != count) {
        folded.of[c][r] = Combine()(v[r], v[r + half]);
      } else if constexpr (neighbours.group == L::width) {
        folded.of[c][r] = Combine()(v[2 * r], v[2 * r + 1]);
      } else {
        static_assert(2 * neighbours.group == L::width);
        folded.of[c][r] =
            Combine()(joinLow(v[2 * r], v[2 * r + 1]), joinHigh(v[2 * r], v[2 * r + 1]));
      }
    }
  return folded;
}

template <Order order, class F, int parts, class Combine, class Terms>
class Folding {
  static constexpr int channels = std::tuple_size_v<decltype(std::declval<Terms>()(as<F>, 0L))>;
  using All = Lanes<F, order.lanes, channels>;
  using One = Lanes<F, All::width, channels>;

  static constexpr bool ofOneSource = requires(const Terms& t) { t.source; };
  static constexpr bool widens = order.widenAt > 0;
  static constexpr int totalLanes = widens ? order.widenAt / 2 : One::width;
  using Total = std::conditional_t<widens, Mox64f, F>;

 public:
  using Result = Folded<Total, channels, parts>;

  Folding(const Terms& terms, long n) : terms_(terms), n_(n) {}

  [[gnu::always_inline]] Result run(long peel) {
    F peeled[channels][parts] = {};
    // Lanes of real and imaginary parts keep apart: the last peeled term has the last lane.
    for (; i_ < peel; ++i_) addTo(peeled, (i_ + peel) % parts, i_);

    if constexpr (widens)
      for (int c = 0; c < channels; ++c) std::fill_n(total_[c], totalLanes, Total(0));
    if constexpr (order.block > 0) {
      for (int c = 0; c < channels; ++c) std::copy_n(peeled[c], parts, total_[c]);
      while (n_ - i_ >= order.block) addBlock(All{}, i_ + order.block);
      addBlock(All{}, n_);
    } else {
      addBlock(startingWith(peeled), n_);
    }

    for (int c = 0; c < channels; ++c)
      for (int count = totalLanes; count > parts; count /= 2)
        foldLanes<order.neighbours, Combine>(total_[c], count);
    if constexpr (order.tail == Tail::serial)
      for (long t = 0; i_ < n_; ++t) addTo(total_, t % parts, i_++);
    Result result;
    for (int c = 0; c < channels; ++c)
      for (int p = 0; p < parts; ++p) result.of[c][p] = total_[c][(p + peel) % parts];
    return result;
  }

 private:
  static All startingWith(const F (&peeled)[channels][parts]) {
    using R = V<F, All::width>;
    All lanes = {};
    for (int c = 0; c < channels; ++c)
      if constexpr (parts == 1)
        lanes.of[c][0] = R{peeled[c][0]};
      else
        lanes.of[c][0] = R{peeled[c][0], peeled[c][1]};
    return lanes;
  }

  template <class T, int count>
  [[gnu::always_inline]] void addTo(T (&lanes)[channels][count], long lane, long i) {
    const auto t = terms_(as<F>, i);
    for (int c = 0; c < channels; ++c) lanes[c][lane] = Combine()(lanes[c][lane], T(t[c]));
  }

  // Adds the terms up to `end` to the lanes, and those to the total.
  [[gnu::always_inline]] void addBlock(All lanes, long end) {
    // Long steps keep more loads in flight while the additions wait. Two channels of two sources
    // lack the registers.
    constexpr long longStep = (8 * All::width + order.step - 1) / order.step * order.step;
    if constexpr (ofOneSource || channels == 1) addSteps<longStep>(lanes, end);
    addSteps<order.step>(lanes, end);
    if constexpr (order.tail != Tail::folded && order.tail != Tail::serial)
      if (i_ < end) {
        F lane[channels][All::count];
        std::memcpy(lane, lanes.of, sizeof lane);
        addRest(lane, end);
        std::memcpy(lanes.of, lane, sizeof lane);
      }
    addToTotal(lanes, end);
  }

  template <long step>
  [[gnu::always_inline]] void addSteps(All& lanes, long end) {
    for (const long last = end - step; i_ <= last; i_ += step) {
      if constexpr (ofOneSource && step > order.step)
        PagesAhead(terms_.source, n_).template ask<step>(i_);
      for (long j = 0; j < step; j += order.lanes) addTerms<Combine>(lanes, terms_, i_ + j);
    }
  }

  template <int count>
  [[gnu::always_inline]] void addToTotal(Lanes<F, count, channels> lanes, long end) {
    if constexpr (count > One::width) {
      auto half = foldLanes<order.neighbours, Combine>(lanes);
      if (order.tail == Tail::folded && end - i_ >= count / 2) {
        addTerms<Combine>(half, terms_, i_);
        i_ += count / 2;
      }
      addToTotal(half, end);
    } else {
      F lane[channels][count];
      std::memcpy(lane, lanes.of, sizeof lane);
      if (order.tail == Tail::folded && i_ < end) addRest(lane, end);
      for (int c = 0; c < channels; ++c) {
        if constexpr (widens) {
          for (int left = count; left > order.widenAt; left /= 2)
            foldLanes<order.neighbours, Combine>(lane[c], left);
          for (int j = 0; j < totalLanes; ++j)
            total_[c][j] += Total(lane[c][j]) + Total(lane[c][j + totalLanes]);
        } else {
          std::copy_n(lane[c], totalLanes, total_[c]);
        }
      }
    }
  }

  // Adds what is no whole step, term by term.
  template <int count>
  [[gnu::always_inline]] void addRest(F (&lane)[channels][count], long end) {
    if constexpr (order.tail == Tail::halves || order.tail == Tail::folded) {
      for (int width = count / 2; width > 0; width /= 2)
        if ((end - i_) & width)
          for (int j = 0; j < width; ++j) addTo(lane, j, i_++);
    } else {
      constexpr int first = order.tail == Tail::last ? count - 1 : 0;
      constexpr int cycle = order.tail == Tail::pairs ? 2 : 1;
      for (; end - i_ >= cycle; i_ += cycle)
        for (int j = 0; j < cycle; ++j) addTo(lane, first + j, i_ + j);
      if (i_ < end) addTo(lane, first, i_++);
    }
  }

  Terms terms_;
  long n_, i_ = 0;
  Total total_[channels][totalLanes];
};

}  // namespace detail

// Folds the first n terms in the given order to one number for each channel, or two where real and
// imaginary parts alternate. The first `peel` terms, of n at the most, are peeled.
template <Order order, class F, int parts = 1, class Combine = Plus, TermsOf<F> Terms>
[[gnu::always_inline]] inline auto fold(const Terms& terms, long n, long peel = 0) {
  return detail::Folding<order, F, parts, Combine, Terms>(terms, n).run(std::min(peel, n));
}

}  // namespace mox::stats
