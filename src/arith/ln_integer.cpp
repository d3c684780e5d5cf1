// The logarithms of integers, natural and in decibels.
#include <moxsp/arith.h>

#include <limits>

#include "arith/ln.h"
#include "frame/in_place.h"
#include "frame/map_rounded.h"

namespace mox::arith {
namespace {

// Remembers the kind of the first element at or below 0, and gives all of them the lowest result.
class LnNote {
 public:
  // `result` where x is above 0.
  [[gnu::always_inline]] V<Mox64f> lowestWithout(V<Mox64f> x, V<Mox64f> result) {
    const V<Mox64f> bad = notAtLeast(x, 1.0);
    if (signBits(bad)) [[unlikely]] {
      for (int i = 0; i < laneCount<V<Mox64f>>; ++i) note(x[i]);
      return select(bad, broadcast<V<Mox64f>>(-std::numeric_limits<Mox64f>::infinity()), result);
    }
    return result;
  }
  template <Of<Mox16s> T>
  [[gnu::always_inline]] T lowestWithout(T x, T result) {
    const auto bad = x < Mox16s(1);
    if (anyLane(bad)) [[unlikely]] {
      for (int i = 0; i < laneCount<T>; ++i) note(x[i]);
      return bad ? broadcast<T>(std::numeric_limits<Mox16s>::min()) : result;
    }
    return result;
  }

  MoxStatus status() const { return lnStatus(code_); }

 private:
  template <class T>
  void note(T x) {
    if (code_ == 0 && x < T(1)) code_ = x == T(0) ? lnOfZero : lnOfNegative;
  }

  int code_ = 0;
};

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
  const ByPowerOfTwo scale(scaleFactor);
  LnNote note;
  mapRounded([&](V<Mox64f> x) { return note.lowestWithout(x, scale(Logarithm()(x))); }, dst, len,
             src);
  return note.status();
}

// Without a factor: the number of bounds that the element passes, each the last integer below
// e^(k + 1/2).
MoxStatus lnByBounds(const Mox16s* src, Mox16s* dst, int len) {
  LnNote note;
  const auto rounded = [&]<class Lanes>(Lanes x) {
    Lanes passed = {};
    for (Mox16s bound : {1, 4, 12, 33, 90, 244, 665, 1808, 4914, 13359}) passed -= Lanes(x > bound);
    return note.lowestWithout(x, passed);
  };
  forSteps<laneCount<I<Mox16s>>, 2, 8>(
      false, dst, len,
      [&](auto n, long i) { return Registers{rounded(load<V<Mox16s, n>>(src + i))}; },
      [&](long i) { store(dst + i, rounded(broadcast<V<Mox16s, 8>>(load<Mox16s>(src + i)))[0]); });
  return note.status();
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
