// How sums leave a filter as data.
#pragma once

#include "convert/samples.h"
#include "fir/fir_combination.h"
#include "fir/fixed_point.h"

namespace mox::fir {

// Floats, and integers by the caller's scale factor; floats have none.
template <class C>
class Output {
 public:
  Output(int /*tapsFactor*/, int scaleFactor, SumRounding) : scaleFactor_(scaleFactor) {}

  void operator()(const typename C::Sum* sums, typename C::Data* dst, long len) const {
    convert::giveOut(sums, dst, len, scaleFactor_);
  }

 private:
  int scaleFactor_;
};

// Fixed-point sums are shifted by what the two factors leave.
template <class C>
requires(!isFloating<C>) class Output<C> {
 public:
  Output(int tapsFactor, int scaleFactor, SumRounding rounding)
      : shift_(long(tapsFactor) - scaleFactor), rounding_(rounding) {}

  void operator()(const typename C::Sum* sums, typename C::Data* dst, long len) const {
    shiftSums(parts(sums), parts(dst), len * partsPerElement<typename C::Data>, shift_, rounding_);
  }

 private:
  long shift_;
  SumRounding rounding_;
};

// How blocks round.
template <class C>
constexpr SumRounding blockRounding() {
  if constexpr (!isFloating<C>)
    if (C::blocksRaiseOddSums) return SumRounding::nearEvenOddUp;
  return SumRounding::nearEven;
}

}  // namespace mox::fir
