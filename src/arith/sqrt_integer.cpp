// The square root of integers: the exact root times 2^-factor, rounded to nearest.
#include <moxsp/arith.h>

#include <bit>

#include "frame/in_place.h"
#include "frame/map_rounded.h"

namespace mox::arith {
namespace {

// For sources up to 32 bits doubles suffice: a scaled root below 2^16 that isn't half an odd number
// keeps more than 2^-36 of itself away from one.
template <class S, class D = S>
MoxStatus rootsScaled(const S* src, D* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  const ByPowerOfTwo scale(scaleFactor);
  const V<Mox64f> zero = broadcast<V<Mox64f>>(0.0);
  V<Mox64f> signs = zero;
  mapRounded(
      [&](V<Mox64f> x) {
        signs = either(signs, x);
        return scale(squareRoot(greater(x, zero)));
      },
      dst, len, src);
  return signBits(signs) ? moxWarnSqrtNegArg : moxOk;
}

__extension__ typedef unsigned __int128 Wide;

// To within some units in the last place: the exact conversion would be a call of the compiler's
// runtime library.
Mox64f approximately(Int128 v) { return Mox64f(Mox64s(v >> 64)) * 0x1p64 + Mox64f(Mox64u(v)); }

// The largest integer whose square is at most v, for v below 2^126; from 2^64 on it may be one less
// where v is just above a square, from where rounding to nearest leads to the same result.
Mox64u floorOfRoot(Wide v) {
  // A double's root is off by 2^-52 of itself; one step of Newton's method leaves less than 2.
  Mox64u root = Mox64u(squareRoot(approximately(Int128(v))));
  if (root == 0) return 0;
  const Int128 rest = Int128(v - Wide(root) * root);
  root += Mox64u(Mox64s(approximately(rest) / (2 * Mox64f(root))));
  while (Wide(root) * root > v) --root;
  return root;
}

// sqrt(x) times 2^-factor to nearest, ties to even, at most `limit`.
Mox64s rootOfOne(Mox64s x, int factor, Mox64s limit) {
  if (x <= 0) return 0;
  if (factor <= 0) {
    // The root of x * 4^n; it is never half an odd number.
    const int n = -std::max(factor, -63);
    if (int(std::bit_width(Mox64u(x))) + 2 * n > 126) return limit;
    const Wide v = Wide(x) << (2 * n);
    const Mox64u root = floorOfRoot(v), up = v - Wide(root) * root > root;
    return Mox64s(std::min(root + up, Mox64u(limit)));
  }
  if (factor > 33) return 0;
  const Mox64u root = floorOfRoot(Wide(x)), rest = root & ((Mox64u(1) << factor) - 1);
  const Mox64u whole = root >> factor, half = Mox64u(1) << (factor - 1);
  const bool beyondHalf = rest > half || (rest == half && root * root != Mox64u(x));
  const bool tieToOdd = rest == half && (whole & 1);
  return Mox64s(std::min(whole + (beyondHalf || tieToOdd), Mox64u(limit)));
}

template <class D>
MoxStatus rootsOfLong(const Mox64s* src, D* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  const HiddenExceptions scope;
  bool negative = false;
  for (int i = 0; i < len; ++i) {
    const Mox64s x = load<Mox64s>(src + i);
    negative |= x < 0;
    store(dst + i, D(rootOfOne(x, scaleFactor, std::numeric_limits<D>::max())));
  }
  return negative ? moxWarnSqrtNegArg : moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsSqrt_8u_Sfs, moxsSqrt_8u_ISfs, rootsScaled);
MOX_EXPORT_BOTH(moxsSqrt_16s_Sfs, moxsSqrt_16s_ISfs, rootsScaled);
MOX_EXPORT_BOTH(moxsSqrt_16u_Sfs, moxsSqrt_16u_ISfs, rootsScaled);
MOX_EXPORT(moxsSqrt_32s16s_Sfs, rootsScaled);
MOX_EXPORT_BOTH(moxsSqrt_64s_Sfs, moxsSqrt_64s_ISfs, rootsOfLong);
MOX_EXPORT(moxsSqrt_64s16s_Sfs, rootsOfLong);

}  // namespace mox::arith
