#include "fir/fixed_point.h"

namespace mox::fir {
namespace {

using Sums = I<Mox32s>;
using Bits = I<Mox32u>;
constexpr long width = 2 * laneCount<Sums>;  // results of a step

template <class Rule>
void mapSums(const Mox32s* sums, Mox16s* dst, long len, Rule rule) {
  const auto step = [&](const Mox32s* from) {
    return packInOrder<Mox16s>(rule(load<Sums>(from)), rule(load<Sums>(from + laneCount<Sums>)));
  };
  long i = 0;
  for (; i <= len - width; i += width) store(dst + i, step(sums + i));
  if (i == len) return;
  Mox32s last[width] = {};
  std::copy(sums + i, sums + len, last);
  const auto results = step(last);
  for (int k = 0; i < len; ++i, ++k) store(dst + i, Mox16s(results[unsigned(k)]));
}

// The fraction is rounded apart from the whole, so that no sum leaves 32 bits.
template <class Bias>
auto shiftedRight(int places, Bias bias) {
  return [=, mask = broadcast<Bits>((1u << places) - 1)](Sums v) {
    const Sums whole = v >> places;
    return whole + Sums(((Bits(v) & mask) + Bits(bias(v, whole))) >> places);
  };
}

}  // namespace

void shiftSums(const Mox32s* sums, Mox16s* dst, long len, long shift, SumRounding rounding) {
  const int places = int(std::min(std::abs(shift), 31L));
  if (shift > 0) return mapSums(sums, dst, len, [=](Sums v) { return shiftLeft(v, places); });
  if (shift == 0) {
    // Values are stopped far above the limit of 16 bits, where 1 more changes nothing.
    const Sums stop = broadcast<Sums>(1 << 30);
    if (rounding == SumRounding::nearEvenOddUp)
      return mapSums(sums, dst, len, [=](Sums v) { return lesser(v, stop) + (v & 1); });
    return mapSums(sums, dst, len, [](Sums v) { return v; });
  }
  const Mox32s half = 1 << (places - 1);
  switch (rounding) {
    case SumRounding::down:
      return mapSums(sums, dst, len, [=](Sums v) { return v >> places; });
    case SumRounding::halfAway:
      return mapSums(sums, dst, len,
                     shiftedRight(places, [=](Sums v, Sums) { return half + (v >> 31); }));
    default:
      return mapSums(sums, dst, len, shiftedRight(places, [=](Sums, Sums whole) {
                       return half - 1 + (whole & 1);
                     }));
  }
}

}  // namespace mox::fir
