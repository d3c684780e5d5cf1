#include <moxsp/arith.h>

#include "arith/mul_complex.h"
#include "arith/scaled.h"
#include "frame/in_place.h"

namespace mox::arith {
namespace {

template <class E>
MoxStatus square(const E* src, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if constexpr (Complex<E>)
    mulComplex(src, src, dst, len);
  else
    mapElements<Stores::bypassing>([](auto x) { return x * x; }, dst, len, src);
  return moxOk;
}

template <class E>
MoxStatus squareScaled(const E* src, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if constexpr (Complex<E>)
    mulComplexScaled(scaleFactor, dst, len, src, src);
  else
    mapArithmetic<product>(scaleFactor, dst, len, src, src);
  return moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsSqr_32f, moxsSqr_32f_I, square);
MOX_EXPORT_BOTH(moxsSqr_64f, moxsSqr_64f_I, square);
MOX_EXPORT_BOTH(moxsSqr_32fc, moxsSqr_32fc_I, square);
MOX_EXPORT_BOTH(moxsSqr_64fc, moxsSqr_64fc_I, square);
MOX_EXPORT_BOTH(moxsSqr_8u_Sfs, moxsSqr_8u_ISfs, squareScaled);
MOX_EXPORT_BOTH(moxsSqr_16s_Sfs, moxsSqr_16s_ISfs, squareScaled);
MOX_EXPORT_BOTH(moxsSqr_16u_Sfs, moxsSqr_16u_ISfs, squareScaled);
MOX_EXPORT_BOTH(moxsSqr_16sc_Sfs, moxsSqr_16sc_ISfs, squareScaled);

}  // namespace mox::arith
