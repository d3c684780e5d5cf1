// The two laws of G.711, and the tables that follow from them.
//
// The low seven bits of a code, once the inversion of the line is undone, tell an interval: three
// bits for a segment, four for one of the equal steps within it. The value of a code is that of the
// first interval of its segment plus its number of steps. Bit 7 is set unless the sample is
// negative.
#pragma once

#include <moxsp/types.h>

#include <algorithm>
#include <array>

namespace mox::convert {

struct ALaw {
  static constexpr Mox8u inversion = 0x55;
  static constexpr int step(int segment) { return 16 << std::max(segment - 1, 0); }
  static constexpr int first(int segment) { return segment == 0 ? 8 : 264 << (segment - 1); }
  // The level of a value of 1: a sine that reaches 2^15 has 3.14 dBm0.
  static constexpr double level = 1.4354894 / 32768;

  // Whether a float has the sign of its code from before it is rounded.
  static constexpr bool signOfUnrounded = false;
};

struct MuLaw {
  static constexpr Mox8u inversion = 0x7F;
  static constexpr int step(int segment) { return 8 << segment; }
  static constexpr int first(int segment) { return (132 << segment) - 132; }
  // The upper end of the last interval, 4 * 8159, has 3.17 dBm0.
  static constexpr double level = 1.4404560 / 32636;
  static constexpr bool signOfUnrounded = true;
};

template <class Law>
constexpr int valueOf(int interval) {
  return Law::first(interval >> 4) + (interval & 15) * Law::step(interval >> 4);
}

using TableOf16 = std::array<Mox8u, 16>;

// One byte for each segment.
template <class ByteOf>
constexpr TableOf16 tableOfSegments(ByteOf byteOf) {
  TableOf16 table = {};
  for (int segment = 0; segment < 8; ++segment) table[segment] = Mox8u(byteOf(segment));
  return table;
}

// The interval of law To whose value is nearest in level.
template <class From, class To>
constexpr int nearestInterval(int interval) {
  const double wanted = valueOf<From>(interval) * From::level;
  const auto distance = [wanted](int other) {
    const double d = valueOf<To>(other) * To::level - wanted;
    return d < 0 ? -d : d;
  };
  int nearest = 0;
  for (int other = 1; other < 128; ++other)
    if (distance(other) < distance(nearest)) nearest = other;
  return nearest;
}

// The codes of law To for those of From, without the sign.
template <class From, class To>
constexpr std::array<Mox8u, 128> translation() {
  std::array<Mox8u, 128> table = {};
  for (int code = 0; code < 128; ++code)
    table[code] = Mox8u(nearestInterval<From, To>(code ^ From::inversion) ^ To::inversion);
  return table;
}

}  // namespace mox::convert
