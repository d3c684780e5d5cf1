// The square root of floats.
#include <moxsp/arith.h>

#include <cmath>
#include <type_traits>

#include "frame/in_place.h"
#include "frame/map.h"

namespace mox::arith {
namespace {

// Remembers whether any element has its sign set.
template <class E>
class SignNote {
  using Lanes = Bits<V<E>>;

 public:
  void see(V<E> x) { lanes_ |= Lanes(x); }
  template <class T>
  void see(T x) {
    if constexpr (std::is_same_v<T, E>)
      few_ |= std::signbit(x);
    else
      few_ |= signBits(x) != 0;
  }

  bool any() const { return few_ || signBits(V<E>(lanes_)); }

 private:
  Lanes lanes_ = {};
  bool few_ = false;
};

template <class E>
MoxStatus squareRoots(const E* src, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  SignNote<E> negative;
  const auto root = [&](auto x) __attribute__((always_inline)) {
    negative.see(x);
    return squareRoot(x);
  };
  mapElements<Stores::bypassing, widestBytes, 1>(root, dst, len, src);
  return negative.any() ? moxWarnSqrtNegArg : moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsSqrt_32f, moxsSqrt_32f_I, squareRoots);
MOX_EXPORT_BOTH(moxsSqrt_64f, moxsSqrt_64f_I, squareRoots);

}  // namespace mox::arith
