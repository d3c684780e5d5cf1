// Integers to narrower integers.
#include <moxsp/convert.h>

#include "frame/export.h"
#include "frame/map_scaled.h"

namespace mox::convert {
namespace {

template <class Packed = void, class S, class D>
MoxStatus narrowScaled(const S* src, D* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mapScaled<8 * sizeof(S) - std::is_signed_v<S>>(
      scaleFactor, [](auto v) { return v; }, samples<Packed>(dst), len, src);
  return moxOk;
}

MoxStatus narrow(const Mox32s* src, Mox16s* dst, int len) { return narrowScaled(src, dst, len, 0); }

}  // namespace

MOX_EXPORT(moxsConvert_16s8s_Sfs, narrowScaled);
MOX_EXPORT(moxsConvert_32s16s, narrow);
MOX_EXPORT(moxsConvert_32s16s_Sfs, narrowScaled);
MOX_EXPORT(moxsConvert_32s24s_Sfs, narrowScaled<Packed24s>);
MOX_EXPORT(moxsConvert_32u24u_Sfs, narrowScaled<Packed24u>);
MOX_EXPORT(moxsConvert_64s32s_Sfs, narrowScaled);

}  // namespace mox::convert
