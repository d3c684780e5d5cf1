// Sums.
#include "stats/sum.h"

#include <moxsp/reductions.h>

#include "frame/checks.h"
#include "frame/export.h"
#include "frame/rounding.h"
#include "stats/integer_sums.h"
#include "stats/scaled_result.h"

namespace mox::stats {
namespace {

template <class E>
void storeSums(E* sum, PartSums<E> sums) {
  for (int p = 0; p < partsPerElement<E>; ++p) store(parts(sum) + p, Part<E>(sums[p]));
}

template <class E>
MoxStatus sumHinted(const E* src, int len, E* sum, int hint) {
  if (MoxStatus s = checkArrays(len, src, sum)) return s;
  storeSums(sum, sumOf(src, len, hint));
  return moxOk;
}

template <class E>
MoxStatus sumDouble(const E* src, int len, E* sum) {
  return sumHinted(src, len, sum, 0);
}

template <class D>
MoxStatus sum16s(const Mox16s* src, int len, D* sum, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, sum)) return s;
  const Mox64f scaled = Mox64f(sumOf16s(src, len)) * scaleMultiplier(scaleFactor);
  store(sum, saturate<D>(heldInteger<Mox32s>(scaled)));
  return moxOk;
}

template <class D>
MoxStatus sum16sc(const Mox16sc* src, int len, D* sum, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, sum)) return s;
  const auto sums = sumOf16sc(src, len);
  for (int p = 0; p < 2; ++p)
    store(parts(sum) + p,
          saturate<Part<D>>(heldInteger<Mox32s>(halvedOrDoubled(Mox64f(sums[p]), scaleFactor))));
  return moxOk;
}

MoxStatus sum32s(const Mox32s* src, int len, Mox32s* sum, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, sum)) return s;
  store(sum, Scale<Mox32s, 62>(scaleFactor).apply(sumOf32s(src, len)));
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsSum_32f, sumHinted<Mox32f>);
MOX_EXPORT(moxsSum_32fc, sumHinted<Mox32fc>);
MOX_EXPORT(moxsSum_64f, sumDouble<Mox64f>);
MOX_EXPORT(moxsSum_64fc, sumDouble<Mox64fc>);
MOX_EXPORT(moxsSum_16s_Sfs, sum16s<Mox16s>);
MOX_EXPORT(moxsSum_16s32s_Sfs, sum16s<Mox32s>);
MOX_EXPORT(moxsSum_16sc_Sfs, sum16sc<Mox16sc>);
MOX_EXPORT(moxsSum_16sc32sc_Sfs, sum16sc<Mox32sc>);
MOX_EXPORT(moxsSum_32s_Sfs, sum32s);

}  // namespace mox::stats
