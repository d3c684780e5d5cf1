// What the logarithms of integers do about elements that have none.
#pragma once

#include <limits>

#include "arith/ln.h"

namespace mox::arith {

// Remembers the kind of the first element at or below 0, and gives all of them the lowest result.
class LnNote {
 public:
  // `result` where x is above 0.
  [[gnu::always_inline]] V<Mox64f> lowestWithout(V<Mox64f> x, V<Mox64f> result) {
    const V<Mox64f> bad = notAtLeast(x, 1.0);
    if (signBits(bad)) [[unlikely]] {
      for (int i = 0; i < 4; ++i) note(x[i]);
      return select(bad, broadcast<V<Mox64f>>(-std::numeric_limits<Mox64f>::infinity()), result);
    }
    return result;
  }
  [[gnu::always_inline]] I<Mox16s> lowestWithout(I<Mox16s> x, I<Mox16s> result) {
    const auto bad = x < Mox16s(1);
    if (_mm_movemask_epi8(__m128i(bad))) [[unlikely]] {
      for (int i = 0; i < 8; ++i) note(x[i]);
      return bad ? broadcast<I<Mox16s>>(std::numeric_limits<Mox16s>::min()) : result;
    }
    return result;
  }

  MoxStatus status() const { return lnStatus(code_); }

 private:
  template <class T>
  void note(T x) {
    if (code_ == 0 && x < T(1)) code_ = x == T(0) ? lnOfZero : lnOfNegative;
  }

  int code_ = 0;
};

}  // namespace mox::arith
