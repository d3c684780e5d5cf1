#include <moxsp/arith.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "frame/in_place.h"
#include "frame/map.h"

namespace mox::arith {
namespace {

template <class E>
struct Absolute {
  template <class T>
  T operator()(T x) const {
    if constexpr (std::is_integral_v<E>) {
      const auto m = magnitude(x);
      return T(m - (m >> std::numeric_limits<E>::digits));  // one less where it has no sign left
    } else if constexpr (std::is_same_v<T, E>) {
      return std::fabs(x);
    } else {
      return absolute(x);
    }
  }
};

template <class E>
MoxStatus abs(const E* src, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mapElements<Stores::bypassing, registerBytes<E>>(Absolute<E>(), dst, len, src);
  return moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsAbs_16s, moxsAbs_16s_I, abs);
MOX_EXPORT_BOTH(moxsAbs_32s, moxsAbs_32s_I, abs);
MOX_EXPORT_BOTH(moxsAbs_32f, moxsAbs_32f_I, abs);
MOX_EXPORT_BOTH(moxsAbs_64f, moxsAbs_64f_I, abs);

}  // namespace mox::arith
