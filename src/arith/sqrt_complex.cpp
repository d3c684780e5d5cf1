// The square root of complex numbers.

#include <moxsp/arith.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "frame/in_place.h"
#include "frame/map_rounded.h"
#include "frame/pair.h"

namespace mox::arith {
namespace {

using ComplexLanes = Pair<V<Mox64f>>;

// One part of the root is sqrt((|re| + |z|) / 2), the other im over twice that: nothing cancels.
// Serves zero and all z whose |z|^2 is in the range of normal numbers.
[[gnu::always_inline]] inline ComplexLanes complexRoot(ComplexLanes z) {
  const V<Mox64f> modulus = squareRoot(z.re * z.re + z.im * z.im);
  const V<Mox64f> larger = squareRoot((absolute(z.re) + modulus) * 0.5);
  const V<Mox64f> divisor =  // never 0, so that the other part of the root of zero is zero
      greater(larger + larger, broadcast<V<Mox64f>>(std::numeric_limits<Mox64f>::min()));
  const V<Mox64f> other = z.im / divisor;
  const V<Mox64f> left = notAtLeast(z.re, 0.0);
  return {select(left, absolute(other), larger),
          withSignOf(z.im, select(left, larger, absolute(other)))};
}

ComplexLanes broadcastPair(Mox64f re, Mox64f im) {
  return {broadcast<V<Mox64f>>(re), broadcast<V<Mox64f>>(im)};
}

// The lanes that complexRoot() does not serve: infinities, NaN, and squares out of range.
V<Mox64f> outOfRange(ComplexLanes z) {
  const V<Mox64f> square = z.re * z.re + z.im * z.im;
  return either(notAtLeast(square, 0x1p-900), notAtMost(square, 0x1p1000));
}

// Special values as the C standard has them.
Mox64fc rootOfOne(Mox64f re, Mox64f im) {
  constexpr Mox64f infinity = std::numeric_limits<Mox64f>::infinity();
  if (std::isinf(im)) return {infinity, im};
  if (std::isnan(re) || (std::isnan(im) && !std::isinf(re))) return {re + im, re + im};
  if (std::isinf(re)) {
    const Mox64f zero = std::isnan(im) ? im : std::copysign(0.0, im);
    return re > 0 ? Mox64fc{re, zero} : Mox64fc{std::fabs(zero), std::copysign(infinity, im)};
  }
  const bool small = std::fabs(re) < 1 && std::fabs(im) < 1;
  const Mox64f scale = small ? 0x1p600 : 0x1p-600, back = small ? 0x1p-300 : 0x1p300;
  const ComplexLanes root = complexRoot(broadcastPair(re * scale, im * scale));
  // The smaller part of a number may be lost in scaling, but not that of the root.
  const Mox64f larger = std::max(root.re[0], std::fabs(root.im[0])) * back;
  const Mox64f other = std::fabs(im) / std::max(2 * larger, std::numeric_limits<Mox64f>::min());
  return re < 0 ? Mox64fc{other, std::copysign(larger, im)}
                : Mox64fc{larger, std::copysign(other, im)};
}

void repairRoots(ComplexLanes z, int bits, ComplexLanes& root) {
  for (int lane = 0; lane < laneCount<V<Mox64f>>; ++lane) {
    if (!(bits >> lane & 1)) continue;
    const Mox64fc one = rootOfOne(z.re[lane], z.im[lane]);
    root.re[lane] = one.re, root.im[lane] = one.im;
  }
}

// dst[i] = finish(root of src[i]), where finish() makes lanes of parts from lanes of doubles.
template <class E, class Finish>
void mapRoots(const E* src, E* dst, int len, Finish finish) {
  using Lanes = V<Mox64f>;
  constexpr int count = laneCount<Lanes>;
  const auto block = [&](const E* from, E* to) {
    const Lanes low = loadWidened<Lanes>(parts(from)),
                high = loadWidened<Lanes>(parts(from + count / 2));
    const ComplexLanes z = deinterleaved(low, high);
    ComplexLanes root = complexRoot(z);
    if constexpr (!std::is_integral_v<Part<E>>)
      if (const int bits = signBits(outOfRange(z))) [[unlikely]]
        repairRoots(z, bits, root);
    store(to, finish(interleavedLow(root)));
    store(to + count / 2, finish(interleavedHigh(root)));
  };
  int i = 0;
  for (; i <= len - count; i += count) block(src + i, dst + i);
  if (i < len) {
    E in[count] = {}, out[count];
    for (int j = 0; i + j < len; ++j) in[j] = load<E>(src + i + j);
    block(in, out);
    for (int j = 0; i + j < len; ++j) store(dst + i + j, out[j]);
  }
}

template <class E>
MoxStatus complexRoots(const E* src, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mapRoots(src, dst, len,
           [](V<Mox64f> v) { return __builtin_convertvector(v, Beside<Part<E>, V<Mox64f>>); });
  return moxOk;
}

MoxStatus complexRootsScaled(const Mox16sc* src, Mox16sc* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  const HiddenExceptions scope;
  const ByPowerOfTwo scale(scaleFactor);
  mapRoots(src, dst, len, [&](V<Mox64f> v) {
    return __builtin_convertvector(saturate<Mox16s>(nearestInteger(scale(v))),
                                   Beside<Mox16s, V<Mox64f>>);
  });
  return moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsSqrt_32fc, moxsSqrt_32fc_I, complexRoots);
MOX_EXPORT_BOTH(moxsSqrt_64fc, moxsSqrt_64fc_I, complexRoots);
MOX_EXPORT_BOTH(moxsSqrt_16sc_Sfs, moxsSqrt_16sc_ISfs, complexRootsScaled);

}  // namespace mox::arith
