#include "convert/exact_angle.h"

#include <cstdlib>

#include "frame/rounding.h"

namespace mox::convert {
namespace {

__extension__ typedef unsigned __int128 Wide;

constexpr int fractionBits = 120;

// Numbers of |x| < 128 in units of 2^-120.
using Fixed = Int128;
constexpr Fixed one = Fixed(1) << fractionBits;

Fixed multiply(Fixed a, Fixed b) {
  const Int128 aHigh = a >> 64, bHigh = b >> 64, aLow = Mox64u(a), bLow = Mox64u(b);
  return aHigh * bHigh * 256 + (aHigh * bLow >> 56) + (aLow * bHigh >> 56) +
         Int128(Wide(aLow) * Wide(bLow) >> fractionBits);
}

// a / n for a >= 0, digit by digit, for a division of 128 bits would be a call of the compiler's
// runtime library.
Fixed divide(Fixed a, Mox32u n) {
  Wide quotient = 0;
  Mox64u rest = 0;
  for (int shift = 96; shift >= 0; shift -= 32) {
    rest = rest << 32 | Mox32u(a >> shift);
    quotient |= Wide(rest / n) << shift;
    rest %= n;
  }
  return Fixed(quotient);
}

// 1 - s / ((first + 1)(first + 2)) (1 - s / ((first + 3)(first + 4)) (1 - ...
Fixed powerSeries(Fixed s, Mox32u first) {
  Fixed sum = one;
  for (Mox32u k = 52; k > 0; k -= 2)
    sum = one - divide(multiply(s, sum), (first + k - 1) * (first + k));
  return sum;
}

struct FixedPhasor {
  Fixed cos, sin;
};

// e^(i angle) for an angle of p * 2^exponent up to 2^31, whose fraction has at most 120 bits.
FixedPhasor fixedPhasor(Mox64u p, int exponent) {
  // 2 pi as a number of units of 2^-120, and of 2^-184 after them.
  constexpr Wide turn = Wide(0x6487ed5110b4611) << 64 | 0xa62633145c06e0e6;
  constexpr Mox64u below = 0x8948127044533e63;
  const Mox64u turns =
      Mox64u(Mox64f(p) * powerOfTwo<Mox64f>(exponent) / 0x1.921fb54442d18p+2 + 0.5);
  // Modulo 2^128 in between: a multiple of 2^8 is none there.
  const Wide whole = exponent < 8 ? Wide(p) << (fractionBits + exponent) : 0;
  const Fixed angle = Fixed(whole - turns * turn - (Wide(turns) * below >> 64));
  const Fixed square = multiply(angle, angle);
  return {powerSeries(square, 0), multiply(angle, powerSeries(square, 1))};
}

Fixed size(Fixed x) { return x < 0 ? -x : x; }

}  // namespace

// The number, turned back by the tie's angle, lies above the real axis.
bool isPhaseAboveTie(Mox32s x, Mox32s y, int factor, Mox64s n) {
  const auto [cos, sin] = fixedPhasor(Mox64u(2 * n + 1), factor - 1);
  const auto part = [](Mox64s v) { return Fixed(v) * (Fixed(1) << 88); };
  return multiply(part(std::abs(Mox64s(y))), cos) > multiply(part(x), sin);
}

bool isCoordinateAboveTie(Coordinate coordinate, Mox32s m, Mox32s p, int factor, Mox64s n) {
  const auto [cos, sin] = fixedPhasor(Mox64u(std::abs(Mox64s(p))), factor);
  const Fixed cosine = size(coordinate == Coordinate::re ? cos : sin);
  // In units of 2^-88.
  const Wide value = Wide(multiply(Fixed(std::abs(Mox64s(m))) << 88, cosine));
  const Wide tie = Wide(2 * n + 1) << (87 - factor);
  return value > tie || (value == tie && n % 2 == 1);
}

}  // namespace mox::convert
