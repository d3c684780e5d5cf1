// The logarithms of integers, natural and in decibels.
#include <moxsp/arith.h>

#include <limits>

#include "arith/ln.h"
#include "frame/in_place.h"
#include "frame/map_rounded.h"

namespace mox::arith {
namespace {

// The first element without a logarithm decides the status. It is sought before a result may take
// its place.
template <class S>
MoxStatus statusOf(const S* src, long len) {
  using Lanes = I<S>;
  long i = 0;
  while (i <= len - laneCount<Lanes> && !anyLane(load<Lanes>(src + i) < S(1)))
    i += laneCount<Lanes>;
  while (i < len && load<S>(src + i) > 0) ++i;
  if (i == len) return moxOk;
  return load<S>(src + i) == 0 ? moxWarnLnZeroArg : moxWarnLnNegArg;
}

struct Natural {
  V<Mox64f> operator()(V<Mox64f> x) const { return lnOf(LnArgument(x)); }
};

// 10 * log10(x). Only a power of ten has an integer in decibels, and no other result of a 32-bit
// integer comes closer to one than 2^-34: those are made exact, for they decide ties.
struct Decibels {
  V<Mox64f> operator()(V<Mox64f> x) const {
    const V<Mox64f> r = lnOf(LnArgument(x)) * 0x1.15f2ced384f29p+2, whole = nearestInteger(r);
    return select(notAtMost(absolute(r - whole), 0x1p-40), r, whole);
  }
};

template <class Logarithm, class S, class D>
MoxStatus scaled(const S* src, D* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  const MoxStatus status = statusOf(src, len);
  const ByPowerOfTwo scale(scaleFactor);
  const auto lowest = broadcast<V<Mox64f>>(-std::numeric_limits<Mox64f>::infinity());
  mapRounded([&](V<Mox64f> x) { return select(notAtLeast(x, 1.0), lowest, scale(Logarithm()(x))); },
             dst, len, src);
  return status;
}

// Without a factor: the number of bounds that the element passes, each the last integer below
// e^(k + 1/2).
MoxStatus lnByBounds(const Mox16s* src, Mox16s* dst, int len) {
  const MoxStatus status = statusOf(src, len);
  const auto rounded = []<class Lanes>(Lanes x) {
    Lanes passed = {};
    for (Mox16s bound : {1, 4, 12, 33, 90, 244, 665, 1808, 4914, 13359}) passed -= Lanes(x > bound);
    return x < Mox16s(1) ? broadcast<Lanes>(std::numeric_limits<Mox16s>::min()) : passed;
  };
  forSteps<laneCount<I<Mox16s>>, 2, 8>(
      false, dst, len,
      [&](auto n, long i) { return Registers{rounded(load<V<Mox16s, n>>(src + i))}; },
      [&](long i) { store(dst + i, rounded(broadcast<V<Mox16s, 8>>(load<Mox16s>(src + i)))[0]); });
  return status;
}

MoxStatus lnShort(const Mox16s* src, Mox16s* dst, int len, int scaleFactor) {
  if (scaleFactor != 0) return scaled<Natural>(src, dst, len, scaleFactor);
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  return lnByBounds(src, dst, len);
}

}  // namespace

MOX_EXPORT_BOTH(moxsLn_16s_Sfs, moxsLn_16s_ISfs, lnShort);
MOX_EXPORT_BOTH(moxsLn_32s_Sfs, moxsLn_32s_ISfs, scaled<Natural>);
MOX_EXPORT(moxsLn_32s16s_Sfs, scaled<Natural>);
MOX_EXPORT_BOTH(moxs10Log10_32s_Sfs, moxs10Log10_32s_ISfs, scaled<Decibels>);

}  // namespace mox::arith
