// The three ways to keep the spectrum of n real samples. R[0], and R[n/2] for even n, are real; the
// interior pairs R[k], I[k] lie one behind the other in every layout, so that a layout is told by
// where the pairs begin and where R[n/2] is.
#pragma once

namespace mox {

struct PermLayout {
  static constexpr long firstPair(long n) { return n % 2 ? 1 : 2; }
  static constexpr long middle(long) { return 1; }
  static constexpr bool imaginaryEnds = false;
};

struct PackLayout {
  static constexpr long firstPair(long) { return 1; }
  static constexpr long middle(long n) { return n - 1; }
  static constexpr bool imaginaryEnds = false;
};

struct CcsLayout {
  static constexpr long firstPair(long) { return 2; }
  static constexpr long middle(long n) { return n; }
  static constexpr bool imaginaryEnds = true;  // a place behind R[0] and behind R[n/2], holding 0
};

constexpr bool hasMiddle(long n) { return n % 2 == 0; }
constexpr long interiorPairs(long n) { return (n - 1) / 2; }

}  // namespace mox
