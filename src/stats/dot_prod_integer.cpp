// Dot products of 16-bit numbers: exact in 64 bits, then stored, converted or scaled.
#include <moxsp/reductions.h>

#include <algorithm>

#include "frame/export.h"
#include "frame/rounding.h"
#include "stats/integer_sums.h"

namespace mox::stats {
namespace {

template <class A, class B, class D, class Finish>
MoxStatus dotProdFinished(const A* src1, const B* src2, int len, D* dp, Finish finish) {
  if (MoxStatus s = checkArrays(len, src1, src2, dp)) return s;
  const auto sums = exactDot(src1, src2, len);
  for (std::size_t p = 0; p < sums.size(); ++p) store(parts(dp) + p, finish(sums[p]));
  return moxOk;
}

// Wide integers as they are, floats rounded.
template <class A, class B, class D>
MoxStatus dotProd(const A* src1, const B* src2, int len, D* dp) {
  return dotProdFinished(src1, src2, len, dp, [](Mox64s sum) { return Part<D>(sum); });
}

// The scale rule, except that no factor above 31 divides by more.
template <class A, class B, class D>
MoxStatus dotProdScaled(const A* src1, const B* src2, int len, D* dp, int scaleFactor) {
  constexpr int magnitude = 62;
  return dotProdFinished(src1, src2, len, dp, [=](Mox64s sum) {
    return Scale<Part<D>, magnitude>(std::min(scaleFactor, 31)).apply(sum);
  });
}

}  // namespace

MOX_EXPORT(moxsDotProd_16s64s, dotProd);
MOX_EXPORT(moxsDotProd_16s32f, dotProd);
MOX_EXPORT(moxsDotProd_16s_Sfs, dotProdScaled);
MOX_EXPORT(moxsDotProd_16s32s_Sfs, dotProdScaled);

MOX_EXPORT(moxsDotProd_16s16sc64sc, dotProd);
MOX_EXPORT(moxsDotProd_16s16sc32fc, dotProd);
MOX_EXPORT(moxsDotProd_16s16sc_Sfs, dotProdScaled);
MOX_EXPORT(moxsDotProd_16s16sc32sc_Sfs, dotProdScaled);

MOX_EXPORT(moxsDotProd_16sc64sc, dotProd);
MOX_EXPORT(moxsDotProd_16sc32fc, dotProd);
MOX_EXPORT(moxsDotProd_16sc_Sfs, dotProdScaled);
MOX_EXPORT(moxsDotProd_16sc32sc_Sfs, dotProdScaled);

}  // namespace mox::stats
