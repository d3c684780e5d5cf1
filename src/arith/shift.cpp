// Shifts by a count. A count that shifts everything out leaves zeros, or the signs where a signed
// element moves right.
#include <moxsp/arith.h>

#include <algorithm>
#include <type_traits>

#include "arith/element_wise.h"
#include "frame/export.h"
#include "frame/in_place.h"

namespace mox::arith {
namespace {

template <class E>
constexpr int width = 8 * sizeof(E);

// AVX has no shifts of bytes: they move in pairs, and the bits that came from the neighbour go.
using Bytes = I<Mox8u>;
using BytePairs = I<Mox16u>;

struct LeftShift {
  int count;
  auto operator()(auto a) const { return a << count; }
  Bytes operator()(Bytes a) const {
    return Bytes(BytePairs(a) << count) & broadcast<Bytes>(Mox8u(0xFF << count));
  }
};

struct RightShift {
  int count;
  auto operator()(auto a) const { return a >> count; }
  Bytes operator()(Bytes a) const {
    return Bytes(BytePairs(a) >> count) & broadcast<Bytes>(Mox8u(0xFF >> count));
  }
};

template <class Shift, class E>
constexpr bool keepsSign = std::is_signed_v<E>&& std::is_same_v<Shift, RightShift>;

template <class Shift, class E>
MoxStatus shift(const E* src, int val, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (val < 0) return moxErrShift;
  if (val >= width<E> && !keepsSign<Shift, E>)
    move::zeroElements(dst, len);
  else
    mapElements<Stores::bypassing, 16>(Shift{std::min(val, width<E> - 1)}, dst, len, src);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsLShiftC_8u, shift<LeftShift, Mox8u>);
MOX_EXPORT(moxsLShiftC_16u, shift<LeftShift, Mox16u>);
MOX_EXPORT(moxsLShiftC_16s, shift<LeftShift, Mox16s>);
MOX_EXPORT(moxsLShiftC_32s, shift<LeftShift, Mox32s>);
MOX_EXPORT(moxsLShiftC_8u_I, inPlace<shift<LeftShift, Mox8u>>);
MOX_EXPORT(moxsLShiftC_16u_I, inPlace<shift<LeftShift, Mox16u>>);
MOX_EXPORT(moxsLShiftC_16s_I, inPlace<shift<LeftShift, Mox16s>>);
MOX_EXPORT(moxsLShiftC_32s_I, inPlace<shift<LeftShift, Mox32s>>);

MOX_EXPORT(moxsRShiftC_8u, shift<RightShift, Mox8u>);
MOX_EXPORT(moxsRShiftC_16u, shift<RightShift, Mox16u>);
MOX_EXPORT(moxsRShiftC_16s, shift<RightShift, Mox16s>);
MOX_EXPORT(moxsRShiftC_32s, shift<RightShift, Mox32s>);
MOX_EXPORT(moxsRShiftC_8u_I, inPlace<shift<RightShift, Mox8u>>);
MOX_EXPORT(moxsRShiftC_16u_I, inPlace<shift<RightShift, Mox16u>>);
MOX_EXPORT(moxsRShiftC_16s_I, inPlace<shift<RightShift, Mox16s>>);
MOX_EXPORT(moxsRShiftC_32s_I, inPlace<shift<RightShift, Mox32s>>);

}  // namespace mox::arith
