// Dot products of 16-bit numbers: exact in 64 bits, then stored, converted or scaled.
#include <moxsp/reductions.h>

#include <algorithm>

#include "frame/checks.h"
#include "frame/export.h"
#include "frame/rounding.h"
#include "stats/integer_sums.h"

namespace mox::stats {
namespace {

// One sum, or that of either part.
std::array<Mox64s, 1> exactDot(const Mox16s* a, const Mox16s* b, long len) {
  return {dotOf16s(a, b, len)};
}
std::array<Mox64s, 2> exactDot(const Mox16s* a, const Mox16sc* b, long len) {
  return dotOf16s16sc(a, b, len);
}
std::array<Mox64s, 2> exactDot(const Mox16sc* a, const Mox16sc* b, long len) {
  return dotOf16sc(a, b, len);
}

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

MOX_EXPORT(moxsDotProd_16s64s, dotProd<Mox16s, Mox16s, Mox64s>);
MOX_EXPORT(moxsDotProd_16s32f, dotProd<Mox16s, Mox16s, Mox32f>);
MOX_EXPORT(moxsDotProd_16s_Sfs, dotProdScaled<Mox16s, Mox16s, Mox16s>);
MOX_EXPORT(moxsDotProd_16s32s_Sfs, dotProdScaled<Mox16s, Mox16s, Mox32s>);

MOX_EXPORT(moxsDotProd_16s16sc64sc, dotProd<Mox16s, Mox16sc, Mox64sc>);
MOX_EXPORT(moxsDotProd_16s16sc32fc, dotProd<Mox16s, Mox16sc, Mox32fc>);
MOX_EXPORT(moxsDotProd_16s16sc_Sfs, dotProdScaled<Mox16s, Mox16sc, Mox16sc>);
MOX_EXPORT(moxsDotProd_16s16sc32sc_Sfs, dotProdScaled<Mox16s, Mox16sc, Mox32sc>);

MOX_EXPORT(moxsDotProd_16sc64sc, dotProd<Mox16sc, Mox16sc, Mox64sc>);
MOX_EXPORT(moxsDotProd_16sc32fc, dotProd<Mox16sc, Mox16sc, Mox32fc>);
MOX_EXPORT(moxsDotProd_16sc_Sfs, dotProdScaled<Mox16sc, Mox16sc, Mox16sc>);
MOX_EXPORT(moxsDotProd_16sc32sc_Sfs, dotProdScaled<Mox16sc, Mox16sc, Mox32sc>);

}  // namespace mox::stats
