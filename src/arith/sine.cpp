// The vector functions of sine and cosine.
#include <cmath>

#include "arith/sine.h"
#include "arith/vector_function.h"
#include "arith/vector_functions.h"
#include "frame/rounding_control.h"

namespace mox::arith {
namespace {

using D = V<Mox64f>;

// sin(x + turn pi / 2)
template <int turn>
struct Sine64f {
  using Element = Mox64f;

  static D lanes(D x) {
    const auto [n, angle, rest] = reduced(x);
    const Bits<D> quadrant = quadrantBits(n + turn);
    const D size = select(D(quadrant << 63), cosineOf(angle, rest), sineOf(angle, rest));
    return D(Bits<D>(size) ^ (quadrant & 2) << 62);
  }
  static D special(D x) { return notAtMost(absolute(x), largestAngle); }
  static Mox64f one(Mox64f x, int&) { return turn ? std::cos(x) : std::sin(x); }
};

// Single precision by way of double: the result is rounded once more.
template <int turn>
struct Sine32f {
  using Element = Mox32f;
  using InDouble = Sine64f<turn>;

  static V<Mox32f> lanes(V<Mox32f> x) {
    const D low =
        InDouble::lanes(__builtin_convertvector(__builtin_shufflevector(x, x, 0, 1, 2, 3), D));
    const D high =
        InDouble::lanes(__builtin_convertvector(__builtin_shufflevector(x, x, 4, 5, 6, 7), D));
    const auto a = __builtin_convertvector(low, V<Mox32f, 4>),
               b = __builtin_convertvector(high, V<Mox32f, 4>);
    return __builtin_shufflevector(a, b, 0, 1, 2, 3, 4, 5, 6, 7);
  }
  static V<Mox32f> special(V<Mox32f> x) { return notAtMost(absolute(x), Mox32f(largestAngle)); }
  static Mox32f one(Mox32f x, int& code) { return Mox32f(InDouble::one(x, code)); }
};

// Tables are the same in every rounding mode of the caller.
template <class Function, class F>
int runToNearest(const F* src, F* dst, int len) {
  const RoundingScope scope(Rounding::nearEven);
  return runFunction<Function>(src, dst, len);
}

}  // namespace

int ownsSin(const Mox32f* src, Mox32f* dst, int len) {
  return runToNearest<Sine32f<0>>(src, dst, len);
}
int ownsCos(const Mox32f* src, Mox32f* dst, int len) {
  return runToNearest<Sine32f<1>>(src, dst, len);
}
int ownsSin(const Mox64f* src, Mox64f* dst, int len) {
  return runToNearest<Sine64f<0>>(src, dst, len);
}
int ownsCos(const Mox64f* src, Mox64f* dst, int len) {
  return runToNearest<Sine64f<1>>(src, dst, len);
}

}  // namespace mox::arith
