#include <moxsp/arith.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <type_traits>

#include "frame/in_place.h"
#include "frame/map.h"

namespace mox::arith {
namespace {

template <class E>
struct Absolute {
  template <class T>
  T operator()(T x) const {
    if constexpr (std::is_integral_v<T>) {
      return T(std::min(std::abs(Mox64s(x)), Mox64s(Limits<T>::max)));
    } else if constexpr (std::is_integral_v<E>) {
      // -x is ~x + 1, where ~x is x ^ sign; the one value that overflows goes back by one.
      using Word = Beside<std::make_unsigned_t<E>, T>;
      constexpr int top = 8 * sizeof(E) - 1;
      const T sign = T(x >> top);
      const Word opposite = Word(Word(x ^ sign) - Word(sign));
      return T(opposite - Word(opposite >> top));
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
  mapElements<Stores::cached, registerBytes<E>>(Absolute<E>(), dst, len, src);
  return moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsAbs_16s, moxsAbs_16s_I, abs);
MOX_EXPORT_BOTH(moxsAbs_32s, moxsAbs_32s_I, abs);
MOX_EXPORT_BOTH(moxsAbs_32f, moxsAbs_32f_I, abs);
MOX_EXPORT_BOTH(moxsAbs_64f, moxsAbs_64f_I, abs);

}  // namespace mox::arith
