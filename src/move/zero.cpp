#include <moxsp/move.h>

#include "frame/export.h"
#include "move/fill.h"

namespace mox::move {
namespace {

// One body for each element size.
template <unsigned elementBytes>
MoxStatus zero(void* dst, int len) {
  if (MoxStatus s = checkArrays(len, dst)) return s;
  zeroBytes(dst, int(unsigned(len) * elementBytes));
  return moxOk;
}

}  // namespace

MOX_EXPORT_SHARED(moxsZero_8u, zero<1>);
MOX_EXPORT_SHARED(moxsZero_16s, zero<2>);
MOX_EXPORT_SHARED(moxsZero_32f, zero<4>);
MOX_EXPORT_SHARED(moxsZero_32s, zero<4>);
MOX_EXPORT_SHARED(moxsZero_16sc, zero<4>);
MOX_EXPORT_SHARED(moxsZero_64f, zero<8>);
MOX_EXPORT_SHARED(moxsZero_64s, zero<8>);
MOX_EXPORT_SHARED(moxsZero_32fc, zero<8>);
MOX_EXPORT_SHARED(moxsZero_32sc, zero<8>);
MOX_EXPORT_SHARED(moxsZero_64fc, zero<16>);
MOX_EXPORT_SHARED(moxsZero_64sc, zero<16>);

}  // namespace mox::move
