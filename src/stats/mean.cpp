// Means.
#include <moxsp/reductions.h>

#include "frame/export.h"
#include "frame/rounding.h"
#include "stats/integer_sums.h"
#include "stats/scaled_result.h"
#include "stats/sum.h"

namespace mox::stats {
namespace {

template <class E>
MoxStatus meanHinted(const E* src, int len, E* mean, int hint) {
  if (MoxStatus s = checkArrays(len, src, mean)) return s;
  const auto sums = sumOf(src, len, hint);
  for (int p = 0; p < partsPerElement<E>; ++p) store(parts(mean) + p, Part<E>(sums[p] / len));
  return moxOk;
}

MoxStatus mean64f(const Mox64f* src, int len, Mox64f* mean) {
  return meanHinted(src, len, mean, 0);
}

// Unlike the real form this one multiplies by a reciprocal, which has been rounded itself.
MoxStatus mean64fc(const Mox64fc* src, int len, Mox64fc* mean) {
  if (MoxStatus s = checkArrays(len, src, mean)) return s;
  const auto sums = sumOf(src, len);
  const Mox64f reciprocal = 1.0 / len;
  store(mean, Mox64fc{sums[0] * reciprocal, sums[1] * reciprocal});
  return moxOk;
}

// x / len to nearest, ties to even.
Mox64s roundedQuotient(Mox64s x, Mox64s len) {
  const Mox64s magnitude = x < 0 ? -x : x;
  const Mox64s quotient = magnitude / len, twice = 2 * (magnitude % len);
  const Mox64s rounded = quotient + (twice > len || (twice == len && quotient % 2));
  return x < 0 ? -rounded : rounded;
}

// In the rounding mode in force. To nearest, integers do: where no place is dropped and the sum has
// room for those that are added.
template <class E>
Mox16s shortMean(Mox64s sum, int len, int factor) {
  if (factor <= 0 && factor >= -15 && roundsToNearest())
    return saturate<Mox16s>(roundedQuotient(sum * (Mox64s(1) << -factor), len));
  const HiddenExceptions scope;
  return scope.settled(saturatedInteger<Mox16s>(scaled<E>(Mox64f(sum), factor) / len));
}

template <class E>
MoxStatus meanShort(const E* src, int len, E* mean, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, mean)) return s;
  const auto sums = exactSum(src, len);
  for (int p = 0; p < partsPerElement<E>; ++p)
    store(parts(mean) + p, shortMean<E>(sums[p], len, scaleFactor));
  return moxOk;
}

// A factor above 0 doesn't round as others do: it adds the highest bit that it drops.
Mox32s scaledDownMean(Mox64s mean, int factor) {
  const Mox32u magnitude = Mox32u(mean < 0 ? -mean : mean), places = Mox32u(factor);
  const Mox32u half = magnitude >> ((places - 1) % 32) & 1;
  const Mox32u scaled = (magnitude + half) >> places % 32;
  return Mox32s(mean < 0 ? -scaled : scaled);
}

Mox32s scaledMean(Mox64s sum, int len, int factor) {
  const Mox64s mean = roundedQuotient(sum, len);
  if (factor > 0) return scaledDownMean(mean, factor);
  if (factor == 0) return Mox32s(mean);
  // A sum that has room for the factor is scaled before it is divided.
  const int places = -std::max(factor, -32);
  if (places < 32 && saturate<Mox32s>(sum) == sum)
    return saturate<Mox32s>(roundedQuotient(sum * (Mox64s(1) << places), len));
  return saturate<Mox32s>(mean * (Mox64s(1) << std::min(places, 31)));
}

MoxStatus mean32s(const Mox32s* src, int len, Mox32s* mean, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, mean)) return s;
  store(mean, scaledMean(exactSum(src, len)[0], len, scaleFactor));
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsMean_32f, meanHinted);
MOX_EXPORT(moxsMean_32fc, meanHinted);
MOX_EXPORT(moxsMean_64f, mean64f);
MOX_EXPORT(moxsMean_64fc, mean64fc);
MOX_EXPORT(moxsMean_16s_Sfs, meanShort);
MOX_EXPORT(moxsMean_16sc_Sfs, meanShort);
MOX_EXPORT(moxsMean_32s_Sfs, mean32s);

}  // namespace mox::stats
