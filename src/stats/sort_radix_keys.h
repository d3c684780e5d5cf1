// What the radix sorts know of a key: a map to unsigned integers whose ascending order is the
// order wanted, and the digits of those.
#pragma once

#include <moxsp/types.h>

#include <type_traits>

#include "frame/elements.h"
#include "stats/sort_order.h"

namespace mox {

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
};

// The digits of a key, lowest first.
template <class Bits>
struct Digits;
template <>
struct Digits<Mox8u> {
  static constexpr Digit all[] = {{0, 8}};
};
template <>
struct Digits<Mox16u> {
  static constexpr Digit all[] = {{0, 8}, {8, 8}};
};
template <>
struct Digits<Mox32u> {
  static constexpr Digit all[] = {{0, 11}, {11, 11}, {22, 10}};
};
template <>
struct Digits<Mox64u> {
  static constexpr Digit all[] = {{0, 11}, {11, 11}, {22, 10}, {32, 11}, {43, 11}, {54, 10}};
};

template <class Bits>
constexpr int digitCount = std::extent_v<decltype(Digits<Bits>::all)>;

// Calls visit.template operator()<d>() for every digit d, in order.
template <class Bits>
[[gnu::always_inline]] inline void eachDigit(auto visit) {
  [&]<int... d>(std::integer_sequence<int, d...>) { (visit.template operator()<d>(), ...); }
  (std::make_integer_sequence<int, digitCount<Bits>>());
}

// For every digit a table: how often each of its values occurs; later, where the next key with
// that value goes.
template <class Bits>
class DigitTables {
 public:
  [[gnu::always_inline]] void tally(Bits key) {
    eachDigit<Bits>([&]<int d> { ++entry<d>(key); });
  }

  // Turns counts into places.
  void place() {
    Mox32u* table = entries_;
    for (const Digit& digit : Digits<Bits>::all) {
      Mox32u next = 0;
      for (int v = 0; v < digit.values(); ++v) {
        const Mox32u occurrences = table[v];
        table[v] = next;
        next += occurrences;
      }
      table += digit.values();
    }
  }

  template <int d>
  [[gnu::always_inline]] Mox32u takePlace(Bits key) {
    return entry<d>(key)++;
  }

 private:
  // Where the table of digit d starts; with the number of digits, the size of all.
  static constexpr int start(int d) {
    int sum = 0;
    for (int i = 0; i < d; ++i) sum += Digits<Bits>::all[i].values();
    return sum;
  }

  template <int d>
  Mox32u& entry(Bits key) {
    constexpr Digit digit = Digits<Bits>::all[d];
    return entries_[start(d) + ((key >> digit.shift) & (digit.values() - 1))];
  }

  Mox32u entries_[start(digitCount<Bits>)] = {};
};

}  // namespace mox
