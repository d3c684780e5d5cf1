// Products of floats, of two vectors and with a constant.
#include <moxsp/arith.h>

#include "arith/element_wise.h"
#include "arith/mul_constant.h"
#include "arith/operations.h"
#include "frame/export.h"
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

MOX_EXPORT(moxsMul_32f, mapPair<product, Mox32f>);
MOX_EXPORT(moxsMul_64f, mapPair<product, Mox64f>);
MOX_EXPORT(moxsMul_32f_I, inPlace<mapPair<product, Mox32f>>);
MOX_EXPORT(moxsMul_64f_I, inPlace<mapPair<product, Mox64f>>);
MOX_EXPORT(moxsMul_32fc, mapPair<complexProduct, Mox32fc>);
MOX_EXPORT(moxsMul_64fc, mapPair<complexProduct, Mox64fc>);
MOX_EXPORT(moxsMul_32fc_I, inPlace<mapPair<complexProduct, Mox32fc>>);
MOX_EXPORT(moxsMul_64fc_I, inPlace<mapPair<complexProduct, Mox64fc>>);
MOX_EXPORT(moxsMul_32f32fc, mapPair<realByComplex, Mox32f, Mox32fc, Mox32fc>);
MOX_EXPORT(moxsMul_32f32fc_I, inPlace<mapPair<realByComplex, Mox32f, Mox32fc, Mox32fc>>);

MOX_EXPORT(moxsMulC_32f, mulConstant);
MOX_EXPORT(moxsMulC_32f_I, inPlace<mulConstant>);
MOX_EXPORT(moxsMulC_64f, mapConstant<product, Mox64f>);
MOX_EXPORT(moxsMulC_64f_I, inPlace<mapConstant<product, Mox64f>>);
MOX_EXPORT(moxsMulC_32fc, mapConstant<complexProduct, Mox32fc>);
MOX_EXPORT(moxsMulC_64fc, mapConstant<complexProduct, Mox64fc>);
MOX_EXPORT(moxsMulC_32fc_I, inPlace<mapConstant<complexProduct, Mox32fc>>);
MOX_EXPORT(moxsMulC_64fc_I, inPlace<mapConstant<complexProduct, Mox64fc>>);

}  // namespace mox::arith
