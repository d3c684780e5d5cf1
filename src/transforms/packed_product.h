// Products of packed spectra.
#pragma once

#include "arith/mul_complex.h"
#include "transforms/packed_layouts.h"

namespace mox::transforms {

// The interior pairs of a spectrum as complex numbers.
template <class Layout, class F>
auto* interior(F* spectrum, long n) {
  using C = std::conditional_t<std::is_const_v<F>, const ComplexOf<std::remove_const_t<F>>,
                               ComplexOf<std::remove_const_t<F>>>;
  return reinterpret_cast<C*>(spectrum + Layout::firstPair(n));
}

// real(place) for R[0] and R[n/2], where both factors are real.
template <class Layout>
void forEnds(long n, auto real) {
  real(0);
  if (hasMiddle(n)) real(Layout::middle(n));
}

// dst = src1 src2, where dst may be one of the sources.
template <class Layout, class F>
void mulPacked(const F* src1, const F* src2, F* dst, long n) {
  forEnds<Layout>(
      n, [=](long place) { store(dst + place, load<F>(src1 + place) * load<F>(src2 + place)); });
  arith::mulComplex(interior<Layout>(src1, n), interior<Layout>(src2, n), interior<Layout>(dst, n),
                    interiorPairs(n));
}

// dst = src1 times the conjugate of src2.
template <class Layout, class F>
void mulPackedConjugate(const F* src1, const F* src2, F* dst, long n) {
  forEnds<Layout>(
      n, [=](long place) { store(dst + place, load<F>(src1 + place) * load<F>(src2 + place)); });
  arith::mulComplexConjugate(interior<Layout>(src1, n), interior<Layout>(src2, n),
                             interior<Layout>(dst, n), interiorPairs(n));
}

}  // namespace mox::transforms
