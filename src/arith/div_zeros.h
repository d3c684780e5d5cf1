// What all divisions of vectors tell of their divisors.
#pragma once

#include <moxsp/types.h>

#include "frame/vec/vec.h"

namespace mox::arith {

// Remembers whether a divisor was zero.
template <class F>
class ZeroDivisors {
 public:
  // Returns the mask of those that are.
  [[gnu::always_inline]] V<F> note(V<F> divisors) {
    const auto zero = V<F>(divisors == V<F>{});
    found_ = either(found_, zero);
    return zero;
  }
  void note(F divisor) { one_ |= divisor == 0; }

  MoxStatus status() const { return one_ || signBits(found_) ? moxWarnDivByZero : moxOk; }

 private:
  V<F> found_ = {};
  bool one_ = false;
};

}  // namespace mox::arith
