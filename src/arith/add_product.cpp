// Products added to what the destination holds.
#include <moxsp/arith.h>

#include "arith/element_wise.h"
#include "arith/operations.h"
#include "frame/export.h"
#include "frame/map_scaled.h"

namespace mox::arith {
namespace {

// srcDst = srcDst + op(src1, src2)
template <auto op, class E>
MoxStatus addProduct(const E* src1, const E* src2, E* srcDst, int len) {
  if (MoxStatus s = checkArrays(len, src1, src2, srcDst)) return s;
  mapElements([](auto a, auto b, auto c) { return c + op(a, b); }, srcDst, len, src1, src2, srcDst);
  return moxOk;
}

MoxStatus addProductConstant(const Mox32f* src, Mox32f val, Mox32f* srcDst, int len) {
  if (MoxStatus s = checkArrays(len, src, srcDst)) return s;
  mapElements([](auto a, auto b, auto c) { return c + a * b; }, srcDst, len, src, Same<Mox32f>{val},
              srcDst);
  return moxOk;
}

// With integers the whole sum is scaled.
template <class D>
MoxStatus addProductScaled(const Mox16s* src1, const Mox16s* src2, D* srcDst, int len,
                           int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src1, src2, srcDst)) return s;
  if constexpr (std::is_same_v<D, Mox16s>)
    Scale<D, 31, true>(scaleFactor).withRule([&](auto rule) {
      mapWide<31>(rule, productSum, srcDst, len, src1, src2, srcDst);
    });
  else
    mapScaled<32>(scaleFactor, productSum, srcDst, len, src1, src2, srcDst);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsAddProduct_32f, addProduct<product>);
MOX_EXPORT(moxsAddProduct_64f, addProduct<product>);
MOX_EXPORT(moxsAddProduct_32fc, addProduct<complexProduct>);
MOX_EXPORT(moxsAddProduct_64fc, addProduct<complexProduct>);
MOX_EXPORT(moxsAddProduct_16s_Sfs, addProductScaled);
MOX_EXPORT(moxsAddProduct_16s32s_Sfs, addProductScaled);
MOX_EXPORT(moxsAddProductC_32f, addProductConstant);

}  // namespace mox::arith
