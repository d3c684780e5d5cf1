#include <moxsp/move.h>

#include "frame/in_place.h"
#include "move/flip.h"

namespace mox::move {
namespace {

constexpr auto unchanged = [](auto carrier) { return carrier; };

template <class E>
MoxStatus flip(const E* src, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (src == dst)
    reverseInPlace(dst, len, unchanged);
  else
    reverseCopy(src, dst, len, unchanged);
  return moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsFlip_8u, moxsFlip_8u_I, flip);
MOX_EXPORT_BOTH(moxsFlip_16u, moxsFlip_16u_I, flip);
MOX_EXPORT_BOTH(moxsFlip_32f, moxsFlip_32f_I, flip);
MOX_EXPORT_BOTH(moxsFlip_32fc, moxsFlip_32fc_I, flip);
MOX_EXPORT_BOTH(moxsFlip_64f, moxsFlip_64f_I, flip);
MOX_EXPORT_BOTH(moxsFlip_64fc, moxsFlip_64fc_I, flip);

}  // namespace mox::move
