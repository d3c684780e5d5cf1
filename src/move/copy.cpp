#include "move/copy.h"

#include <moxsp/move.h>

#include "frame/export.h"
#include "move/copy_kernels.h"

namespace mox::move {

void copyBytes(const void* from, void* to, long bytes) {
  const auto* src = static_cast<const Mox8u*>(from);
  auto* dst = static_cast<Mox8u*>(to);
  if (bytes <= shortCopyBytes) return copyShort(src, dst, bytes);
  copyUpwards(src, dst, bytes);
}

namespace {

// One body for each element size.
template <long elementBytes>
MoxStatus copy(const void* src, void* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  copyBytes(src, dst, len * elementBytes);
  return moxOk;
}

}  // namespace

MOX_EXPORT_SHARED(moxsCopy_8u, copy<1>);
MOX_EXPORT_SHARED(moxsCopy_16s, copy<2>);
MOX_EXPORT_SHARED(moxsCopy_32f, copy<4>);
MOX_EXPORT_SHARED(moxsCopy_32s, copy<4>);
MOX_EXPORT_SHARED(moxsCopy_16sc, copy<4>);
MOX_EXPORT_SHARED(moxsCopy_64f, copy<8>);
MOX_EXPORT_SHARED(moxsCopy_64s, copy<8>);
MOX_EXPORT_SHARED(moxsCopy_32fc, copy<8>);
MOX_EXPORT_SHARED(moxsCopy_32sc, copy<8>);
MOX_EXPORT_SHARED(moxsCopy_64fc, copy<16>);
MOX_EXPORT_SHARED(moxsCopy_64sc, copy<16>);

}  // namespace mox::move
