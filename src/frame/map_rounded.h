// The driver of integer functions whose values are not integers: they are computed in double
// precision, rounded to nearest with ties to even, and saturated.
#pragma once

#include <algorithm>

#include "frame/control_word.h"
#include "frame/map_scaled.h"

namespace mox {

// Multiplies by 2^-factor. Past 2^100 either way results are at a limit of any type, or 0.
class ByPowerOfTwo {
 public:
  explicit ByPowerOfTwo(int factor) : power_(powerOfTwo<Mox64f>(-std::clamp(factor, -100, 100))) {}

  template <class T>
  T operator()(T v) const {
    return v * power_;
  }

 private:
  Mox64f power_;
};

// dst[i] = op(src[i]), rounded and saturated; op takes and gives a vector of doubles. A single
// element fills all of its lanes.
template <class D, class Op, class S>
void mapRounded(Op op, D* dst, int len, const S* src) {
  const HiddenExceptions scope;
  const auto lanes = [&](V<Mox64f> x) { return nearestInteger(op(x)); };
  const auto one = [&](long i) {
    const V<Mox64f> x = broadcast<V<Mox64f>>(Mox64f(load<S>(src + i)));
    store(dst + i, D(saturate<D>(lanes(x))[0]));
  };
  mapToInteger<V<Mox64f>>(one, lanes, dst, len, src);
}

}  // namespace mox
