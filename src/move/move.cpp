#include <moxsp/move.h>

#include "frame/export.h"
#include "move/copy.h"
#include "move/copy_kernels.h"

namespace mox::move {

void moveBytes(const void* from, void* to, long bytes) {
  const auto* src = static_cast<const Mox8u*>(from);
  auto* dst = static_cast<Mox8u*>(to);
  if (bytes <= shortCopyBytes) return copyShort(src, dst, bytes);
  if (addressOf(src) < addressOf(dst)) return copyBackward(src, dst, bytes);
  if (src != dst) copyUpwards(src, dst, bytes);
}

namespace {

template <long elementBytes>
MoxStatus move(const void* src, void* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  moveBytes(src, dst, len * elementBytes);
  return moxOk;
}

}  // namespace

MOX_EXPORT_SHARED(moxsMove_8u, move<1>);
MOX_EXPORT_SHARED(moxsMove_16s, move<2>);
MOX_EXPORT_SHARED(moxsMove_32f, move<4>);
MOX_EXPORT_SHARED(moxsMove_32s, move<4>);
MOX_EXPORT_SHARED(moxsMove_16sc, move<4>);
MOX_EXPORT_SHARED(moxsMove_64f, move<8>);
MOX_EXPORT_SHARED(moxsMove_64s, move<8>);
MOX_EXPORT_SHARED(moxsMove_32fc, move<8>);
MOX_EXPORT_SHARED(moxsMove_32sc, move<8>);
MOX_EXPORT_SHARED(moxsMove_64fc, move<16>);
MOX_EXPORT_SHARED(moxsMove_64sc, move<16>);

}  // namespace mox::move
