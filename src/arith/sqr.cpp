#include <moxsp/arith.h>

#include "arith/mul_complex.h"
#include "frame/checks.h"
#include "frame/elements.h"
#include "frame/export.h"
#include "frame/in_place.h"
#include "frame/map_scaled.h"

namespace mox::arith {
namespace {

template <class E>
MoxStatus square(const E* src, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if constexpr (Complex<E>)
    mulComplex(src, src, dst, len);
  else
    mapElements([](auto x) { return x * x; }, dst, len, src);
  return moxOk;
}

template <class E>
MoxStatus squareScaled(const E* src, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if constexpr (Complex<E>)
    mulComplexScaled(scaleFactor, dst, len, src, src);
  else
    mapScaled<2 * 8 * sizeof(E) - 2 * std::is_signed_v<E>>(
        scaleFactor, [](auto x) { return x * x; }, dst, len, src);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsSqr_32f, square<Mox32f>);
MOX_EXPORT(moxsSqr_64f, square<Mox64f>);
MOX_EXPORT(moxsSqr_32fc, square<Mox32fc>);
MOX_EXPORT(moxsSqr_64fc, square<Mox64fc>);
MOX_EXPORT(moxsSqr_32f_I, inPlace<square<Mox32f>>);
MOX_EXPORT(moxsSqr_64f_I, inPlace<square<Mox64f>>);
MOX_EXPORT(moxsSqr_32fc_I, inPlace<square<Mox32fc>>);
MOX_EXPORT(moxsSqr_64fc_I, inPlace<square<Mox64fc>>);
MOX_EXPORT(moxsSqr_8u_Sfs, squareScaled<Mox8u>);
MOX_EXPORT(moxsSqr_16s_Sfs, squareScaled<Mox16s>);
MOX_EXPORT(moxsSqr_16u_Sfs, squareScaled<Mox16u>);
MOX_EXPORT(moxsSqr_16sc_Sfs, squareScaled<Mox16sc>);
MOX_EXPORT(moxsSqr_8u_ISfs, inPlace<squareScaled<Mox8u>>);
MOX_EXPORT(moxsSqr_16s_ISfs, inPlace<squareScaled<Mox16s>>);
MOX_EXPORT(moxsSqr_16u_ISfs, inPlace<squareScaled<Mox16u>>);
MOX_EXPORT(moxsSqr_16sc_ISfs, inPlace<squareScaled<Mox16sc>>);

}  // namespace mox::arith
