// Products of floats, of two vectors and with a constant.
#include <moxsp/arith.h>

#include "arith/element_wise.h"
#include "arith/mul_constant.h"
#include "arith/operations.h"
#include "frame/in_place.h"

namespace mox::arith {

template <class F>
void ownsMulC(const F* src, F factor, F* dst, long count) {
  if (factor == 0)
    move::zeroElements(dst, count);
  else if (factor != 1)
    mapElements<Stores::bypassing>(product, dst, count, src, Same<F>{factor});
  else if (src != dst)
    move::copyElements(src, dst, count);
}
template void ownsMulC(const Mox32f*, Mox32f, Mox32f*, long);
template void ownsMulC(const Mox64f*, Mox64f, Mox64f*, long);

namespace {

// Of the public functions, the one in single precision alone.
MoxStatus mulConstant(const Mox32f* src, Mox32f val, Mox32f* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  ownsMulC(src, val, dst, len);
  return moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsMul_32f, moxsMul_32f_I, mapPair<product>);
MOX_EXPORT_BOTH(moxsMul_64f, moxsMul_64f_I, mapPair<product>);
MOX_EXPORT_BOTH(moxsMul_32fc, moxsMul_32fc_I, mapPair<complexProduct>);
MOX_EXPORT_BOTH(moxsMul_64fc, moxsMul_64fc_I, mapPair<complexProduct>);
MOX_EXPORT_BOTH(moxsMul_32f32fc, moxsMul_32f32fc_I, mapPair<realByComplex>);

MOX_EXPORT_BOTH(moxsMulC_32f, moxsMulC_32f_I, mulConstant);
MOX_EXPORT_BOTH(moxsMulC_64f, moxsMulC_64f_I, mapConstant<product>);
MOX_EXPORT_BOTH(moxsMulC_32fc, moxsMulC_32fc_I, mapConstant<complexProduct>);
MOX_EXPORT_BOTH(moxsMulC_64fc, moxsMulC_64fc_I, mapConstant<complexProduct>);

}  // namespace mox::arith
