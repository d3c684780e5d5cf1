// The passes of the radix sorts. Keys are mapped to unsigned integers whose ascending order is the
// order wanted, and those are sorted by one digit after the other, the lowest first.
#pragma once

#include <moxsp/types.h>

#include <algorithm>
#include <array>
#include <type_traits>
#include <utility>

#include "frame/elements.h"
#include "frame/vec/vec.h"
#include "move/copy.h"
#include "stats/sort_order.h"

namespace mox::stats {

// Two's complement numbers are in order once the sign bit is turned; so are floats, but for the
// negative ones, which run backwards. The descending map is the complement of the ascending one:
// equal keys thus stay in order of appearance.
template <class T, class Order>
struct RadixKey {
  using Bits = BitsOf<T>;
  static constexpr int top = 8 * sizeof(T) - 1;
  static constexpr Bits sign = Bits(Bits(1) << top), all = Bits(~Bits(0));
  static constexpr Bits turned = std::is_same_v<Order, Ascending> ? 0 : all;

  static Bits mapped(Bits pattern) {
    if constexpr (std::is_floating_point_v<T>)
      return pattern ^ turned ^ (negative(pattern) | sign);
    else
      return Bits(pattern ^ turned ^ (std::is_signed_v<T> ? sign : 0));
  }
  static Bits unmapped(Bits key) {
    key ^= turned;
    if constexpr (std::is_floating_point_v<T>)
      return key ^ (~negative(key) | sign);
    else
      return Bits(key ^ (std::is_signed_v<T> ? sign : 0));
  }

 private:
  // All bits where the sign is set, without a branch.
  static Bits negative(Bits pattern) { return Bits(std::make_signed_t<Bits>(pattern) >> top); }
};

struct Digit {
  int shift, bits;

  constexpr int values() const { return 1 << bits; }
  constexpr auto of(auto key) const { return key >> shift & (values() - 1); }
};

// The digits of whole keys, lowest first.
template <class Bits>
struct WholeKeys;
template <>
struct WholeKeys<Mox8u> {
  static constexpr Digit digits[] = {{0, 8}};
};
template <>
struct WholeKeys<Mox16u> {
  static constexpr Digit digits[] = {{0, 8}, {8, 8}};
};
template <>
struct WholeKeys<Mox32u> {
  static constexpr Digit digits[] = {{0, 11}, {11, 11}, {22, 10}};
};
template <>
struct WholeKeys<Mox64u> {
  static constexpr Digit digits[] = {{0, 11}, {11, 11}, {22, 10}, {32, 11}, {43, 11}, {54, 10}};
};

template <class Digits>
constexpr int digitCount = std::extent_v<decltype(Digits::digits)>;

// Calls visit.template operator()<d>() for every digit d, in order.
template <class Digits>
[[gnu::always_inline]] inline void eachDigit(auto visit) {
  [&]<int... d>(std::integer_sequence<int, d...>) { (visit.template operator()<d>(), ...); }
  (std::make_integer_sequence<int, digitCount<Digits>>());
}

// For every digit a table: how often each of its values occurs; later, where the next key with
// that value goes.
template <class Digits>
class DigitTables {
 public:
  [[gnu::always_inline]] void tally(auto key) {
    eachDigit<Digits>([&]<int d> { ++entry<d>(key); });
  }

  // Turns counts into places: sums of the counts before, four at a time.
  void place() {
    using Four = V<Mox32u, 4>;
    Mox32u* table = entries_;
    for (const Digit& digit : Digits::digits) {
      Four next = {};
      for (int v = 0; v < digit.values(); v += 4) {
        const auto counts = load<Four>(table + v);
        Four sums = counts + shuffle<[](int i) { return i < 1 ? i : i + 3; }>(Four{}, counts);
        sums += shuffle<[](int i) { return i < 2 ? i : i + 2; }>(Four{}, sums);
        store(table + v, next + sums - counts);
        next += shuffle<[](int) { return 3; }>(sums);
      }
      table += digit.values();
    }
  }

  template <int d>
  [[gnu::always_inline]] Mox32u takePlace(auto key) {
    return entry<d>(key)++;
  }

  // Where the keys with each value of digit d end: where those with the next one start.
  template <int d>
  auto ends(long len) const {
    std::array<Mox32u, Digits::digits[d].values()> result;
    std::copy_n(entries_ + start(d) + 1, result.size() - 1, result.begin());
    result.back() = Mox32u(len);
    return result;
  }

 private:
  // Where the table of digit d starts; with the number of digits, the size of all.
  static constexpr int start(int d) {
    int sum = 0;
    for (int i = 0; i < d; ++i) sum += Digits::digits[i].values();
    return sum;
  }

  template <int d>
  Mox32u& entry(auto key) {
    constexpr Digit digit = Digits::digits[d];
    return entries_[start(d) + digit.of(key)];
  }

  Mox32u entries_[start(digitCount<Digits>)] = {};
};

// Each pass stores the keys in the order of one digit, and leaves keys of the same digit as they
// were: the last pass leaves them sorted, in `keys` after an even number of passes, else in
// `other`. Whole floats crowd in few values of the highest digit and would wait for each other's
// places: their last pass works from both ends.
template <class Key, class Digits, class T>
[[gnu::noinline]] void sortByDigits(T* keys, T* other, long len) {
  using Bits = typename Key::Bits;
  constexpr int last = digitCount<Digits> - 1;
  constexpr bool crowded = std::is_floating_point_v<T> && std::is_same_v<Digits, WholeKeys<Bits>>;
  DigitTables<Digits> tables;
  for (long i = 0; i < len; ++i) tables.tally(Key::mapped(load<Bits>(keys + i)));
  tables.place();
  eachDigit<Digits>([&]<int d> {
    const T* from = d % 2 ? other : keys;
    T* to = d % 2 ? keys : other;
    const auto move = [&](long i, auto takePlace) {
      const Bits stored = load<Bits>(from + i);
      const Bits key = d == 0 ? Key::mapped(stored) : stored;
      store(to + takePlace(key), d == last ? Key::unmapped(key) : key);
    };
    const auto near = [&](Bits key) { return tables.template takePlace<d>(key); };
    if constexpr (d < last || !crowded) {
      for (long i = 0; i < len; ++i) move(i, near);
    } else {
      auto ends = tables.template ends<d>(len);
      const auto far = [&](Bits key) { return --ends[Digits::digits[d].of(key)]; };
      for (long i = 0; i < len / 2; ++i) move(i, near), move(len - 1 - i, far);
      if (len % 2) move(len / 2, near);
    }
  });
}

// The same, into the array that is wanted.
template <class Key, class Digits, class T>
void sortByDigits(T* keys, T* other, long len, bool intoOther) {
  sortByDigits<Key, Digits>(keys, other, len);
  constexpr bool inOther = digitCount<Digits> % 2;
  if (inOther && !intoOther) move::copyElements(other, keys, len);
  if (!inOther && intoOther) move::copyElements(keys, other, len);
}

}  // namespace mox::stats
