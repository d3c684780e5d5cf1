// Sums.
#include "stats/sum.h"

#include <moxsp/reductions.h>

#include "frame/export.h"
#include "frame/rounding.h"
#include "stats/integer_sums.h"
#include "stats/scaled_result.h"

namespace mox::stats {
namespace {

template <class E>
MoxStatus sumHinted(const E* src, int len, E* sum, int hint) {
  if (MoxStatus s = checkArrays(len, src, sum)) return s;
  const auto sums = sumOf(src, len, hint);
  for (int p = 0; p < partsPerElement<E>; ++p) store(parts(sum) + p, Part<E>(sums[p]));
  return moxOk;
}

template <class E>
MoxStatus sumDouble(const E* src, int len, E* sum) {
  return sumHinted(src, len, sum, 0);
}

template <class E, class D>
MoxStatus sumShort(const E* src, int len, D* sum, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, sum)) return s;
  const auto sums = exactSum(src, len);
  for (int p = 0; p < partsPerElement<E>; ++p)
    store(parts(sum) + p, scaledSum<E, Part<D>>(sums[p], scaleFactor));
  return moxOk;
}

MoxStatus sum32s(const Mox32s* src, int len, Mox32s* sum, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, sum)) return s;
  store(sum, Scale<Mox32s, 62>(scaleFactor).apply(exactSum(src, len)[0]));
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsSum_32f, sumHinted);
MOX_EXPORT(moxsSum_32fc, sumHinted);
MOX_EXPORT(moxsSum_64f, sumDouble);
MOX_EXPORT(moxsSum_64fc, sumDouble);
MOX_EXPORT(moxsSum_16s_Sfs, sumShort);
MOX_EXPORT(moxsSum_16s32s_Sfs, sumShort);
MOX_EXPORT(moxsSum_16sc_Sfs, sumShort);
MOX_EXPORT(moxsSum_16sc32sc_Sfs, sumShort);
MOX_EXPORT(moxsSum_32s_Sfs, sum32s);

}  // namespace mox::stats
