// Integers to narrower integers.
#include <moxsp/convert.h>

#include "frame/checks.h"
#include "frame/export.h"
#include "frame/map_scaled.h"

namespace mox::convert {
namespace {

template <class S, class T>
MoxStatus narrowScaled(const S* src, Public<T>* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mapScaled<8 * sizeof(S) - std::is_signed_v<S>>(
      scaleFactor, [](auto v) { return v; }, reinterpret_cast<T*>(dst), len, src);
  return moxOk;
}

MoxStatus narrow(const Mox32s* src, Mox16s* dst, int len) {
  return narrowScaled<Mox32s, Mox16s>(src, dst, len, 0);
}

}  // namespace

MOX_EXPORT(moxsConvert_16s8s_Sfs, narrowScaled<Mox16s, Mox8s>);
MOX_EXPORT(moxsConvert_32s16s, narrow);
MOX_EXPORT(moxsConvert_32s16s_Sfs, narrowScaled<Mox32s, Mox16s>);
MOX_EXPORT(moxsConvert_32s24s_Sfs, narrowScaled<Mox32s, Packed24s>);
MOX_EXPORT(moxsConvert_32u24u_Sfs, narrowScaled<Mox32u, Packed24u>);
MOX_EXPORT(moxsConvert_64s32s_Sfs, narrowScaled<Mox64s, Mox32s>);

}  // namespace mox::convert
