// Shifts by a count. A count that shifts everything out leaves zeros, or the signs where a signed
// element moves right.
#include <moxsp/arith.h>

#include <algorithm>
#include <type_traits>

#include "arith/element_wise.h"
#include "frame/in_place.h"

namespace mox::arith {
namespace {

template <class E>
constexpr int width = 8 * sizeof(E);

// There are no shifts of bytes: they move in pairs, and the bits that came from the neighbour go.
template <Of<Mox8u> T>
auto inPairs(T bytes) {
  return V<Mox16u, sizeof(T) / 2>(bytes);
}

struct LeftShift {
  int count;
  auto operator()(auto a) const { return a << count; }
  template <Of<Mox8u> T>
  T operator()(T a) const {
    return T(inPairs(a) << count) & broadcast<T>(Mox8u(0xFF << count));
  }
};

struct RightShift {
  int count;
  auto operator()(auto a) const { return a >> count; }
  template <Of<Mox8u> T>
  T operator()(T a) const {
    return T(inPairs(a) >> count) & broadcast<T>(Mox8u(0xFF >> count));
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
    mapElements<Stores::bypassing, integerBytes>(Shift{std::min(val, width<E> - 1)}, dst, len, src);
  return moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsLShiftC_8u, moxsLShiftC_8u_I, shift<LeftShift>);
MOX_EXPORT_BOTH(moxsLShiftC_16u, moxsLShiftC_16u_I, shift<LeftShift>);
MOX_EXPORT_BOTH(moxsLShiftC_16s, moxsLShiftC_16s_I, shift<LeftShift>);
MOX_EXPORT_BOTH(moxsLShiftC_32s, moxsLShiftC_32s_I, shift<LeftShift>);

MOX_EXPORT_BOTH(moxsRShiftC_8u, moxsRShiftC_8u_I, shift<RightShift>);
MOX_EXPORT_BOTH(moxsRShiftC_16u, moxsRShiftC_16u_I, shift<RightShift>);
MOX_EXPORT_BOTH(moxsRShiftC_16s, moxsRShiftC_16s_I, shift<RightShift>);
MOX_EXPORT_BOTH(moxsRShiftC_32s, moxsRShiftC_32s_I, shift<RightShift>);

}  // namespace mox::arith
