// Elements less a constant, divided by another.
#include <moxsp/measures.h>

#include <algorithm>
#include <cmath>

#include "frame/control_word.h"
#include "frame/export.h"
#include "frame/map_scaled.h"

namespace mox::stats {
namespace {

template <class E>
MoxStatus normalize(const E* src, E* dst, int len, E sub, Part<E> div) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (std::fabs(div) < Part<E>(1.1754944e-38)) return moxErrDivByZero;
  const auto map = [=](auto quotient) {
    mapElements<Stores::bypassing>([=](auto a, auto b) { return quotient(a - b); }, dst, len, src,
                                   Same<E>{sub});
  };
  if constexpr (std::is_same_v<E, Mox32f>)
    map([reciprocal = 1 / div](auto x) { return x * reciprocal; });
  else
    map([div](auto x) { return x / div; });
  return moxOk;
}

template <class E>
MoxStatus normalizeScaled(const E* src, E* dst, int len, E sub, int div, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (div == 0) return moxErrDivByZero;
  const HiddenExceptions scope;
  using T = V<Mox32f>;
  // Past 2^60 either way every quotient is 0, or beyond all limits.
  const Mox32f divisor = Mox32f(div);
  const Mox32f factor = powerOfTwo<Mox32f>(-std::clamp(scaleFactor, -60, 60));
  const T high = broadcast<T>(0x1p30f), low = -high;
  const auto lanes = [=](T a, T b) {
    return integersOf(nearestInteger(greater(lesser((a - b) / divisor * factor, high), low)));
  };
  const auto one = [=](long i) {
    for (int part = 0; part < partsPerElement<E>; ++part) {
      const auto all = [=](auto source) { return broadcast<T>(Mox32f(partFrom(source, i, part))); };
      const Mox32s r = lanes(all(src), all(Same<E>{sub}))[0];
      store(parts(dst + i) + part, saturate<Mox16s>(r));
    }
  };
  mapToInteger<T>(one, lanes, dst, len, src, Same<E>{sub});
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsNormalize_32f, normalize);
MOX_EXPORT(moxsNormalize_64f, normalize);
MOX_EXPORT(moxsNormalize_32fc, normalize);
MOX_EXPORT(moxsNormalize_64fc, normalize);
MOX_EXPORT(moxsNormalize_16s_Sfs, normalizeScaled);
MOX_EXPORT(moxsNormalize_16sc_Sfs, normalizeScaled);

}  // namespace mox::stats
