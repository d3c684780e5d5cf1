#include <moxsp/move.h>

#include "frame/checks.h"
#include "frame/export.h"
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

MOX_EXPORT(moxsFlip_8u, flip<Mox8u>);
MOX_EXPORT(moxsFlip_16u, flip<Mox16u>);
MOX_EXPORT(moxsFlip_32f, flip<Mox32f>);
MOX_EXPORT(moxsFlip_32fc, flip<Mox32fc>);
MOX_EXPORT(moxsFlip_64f, flip<Mox64f>);
MOX_EXPORT(moxsFlip_64fc, flip<Mox64fc>);
MOX_EXPORT(moxsFlip_8u_I, inPlace<flip<Mox8u>>);
MOX_EXPORT(moxsFlip_16u_I, inPlace<flip<Mox16u>>);
MOX_EXPORT(moxsFlip_32f_I, inPlace<flip<Mox32f>>);
MOX_EXPORT(moxsFlip_32fc_I, inPlace<flip<Mox32fc>>);
MOX_EXPORT(moxsFlip_64f_I, inPlace<flip<Mox64f>>);
MOX_EXPORT(moxsFlip_64fc_I, inPlace<flip<Mox64fc>>);

}  // namespace mox::move
