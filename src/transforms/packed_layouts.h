// The three ways to keep the spectrum of n real samples. R[0], and R[n/2] for even n, are real; the
// interior pairs R[k], I[k] lie one behind the other in every layout, so that a layout is told by
// where the pairs begin and where R[n/2] is.
#pragma once

#include <concepts>
#include <cstring>

#include "frame/vec/vec.h"

namespace mox::transforms {

struct PermLayout {
  static constexpr long firstPair(long n) { return n % 2 ? 1 : 2; }
  static constexpr long middle(long) { return 1; }
  static constexpr long places(long n) { return n; }
  static constexpr bool imaginaryEnds = false;
};

struct PackLayout {
  static constexpr long firstPair(long) { return 1; }
  static constexpr long middle(long n) { return n - 1; }
  static constexpr long places(long n) { return n; }
  static constexpr bool imaginaryEnds = false;
};

struct CcsLayout {
  static constexpr long firstPair(long) { return 2; }
  static constexpr long middle(long n) { return n; }
  static constexpr long places(long n) { return n / 2 * 2 + 2; }
  static constexpr bool imaginaryEnds = true;  // a place behind R[0] and behind R[n/2], holding 0
};

template <class L>
concept PackedLayout = requires(long n) {
  { L::firstPair(n) } -> std::same_as<long>;
  { L::middle(n) } -> std::same_as<long>;
  { L::places(n) } -> std::same_as<long>;
  { L::imaginaryEnds } -> std::convertible_to<bool>;
};

constexpr bool hasMiddle(long n) { return n % 2 == 0; }
constexpr long interiorPairs(long n) { return (n - 1) / 2; }

// The interior pairs from one layout's places to another's; the arrays may be one.
template <PackedLayout From, PackedLayout To, class E>
void movePairs(const E* src, E* dst, long n) {
  src += From::firstPair(n), dst += To::firstPair(n);
  if (src != dst) std::memmove(dst, src, 2 * interiorPairs(n) * sizeof(E));
}

// Turns a Perm spectrum into another layout in place.
template <PackedLayout Layout, class E>
void fromPerm(E* p, long n) {
  const E middle = hasMiddle(n) ? load<E>(p + PermLayout::middle(n)) : E(0);
  movePairs<PermLayout, Layout>(p, p, n);
  if (hasMiddle(n)) store(p + Layout::middle(n), middle);
  if constexpr (Layout::imaginaryEnds) {
    store(p + 1, E(0));
    if (hasMiddle(n)) store(p + Layout::middle(n) + 1, E(0));
  }
}

// Copies a spectrum of any layout to its Perm form; `dst` may be `src`.
template <PackedLayout Layout, class E>
void toPerm(const E* src, E* dst, long n) {
  const E first = load<E>(src), middle = hasMiddle(n) ? load<E>(src + Layout::middle(n)) : E(0);
  movePairs<Layout, PermLayout>(src, dst, n);
  store(dst, first);
  if (hasMiddle(n)) store(dst + PermLayout::middle(n), middle);
}

}  // namespace mox::transforms
