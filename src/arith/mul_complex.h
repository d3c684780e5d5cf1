// Products of complex vectors, of which all families with such products are made; lengths may be 0.
#pragma once

#include "arith/operations.h"
#include "frame/complex16.h"
#include "frame/map_scaled.h"

namespace mox::arith {

// dst[i] = src1[i] * src2[i], where dst may be one of the sources.
template <Complex E>
void mulComplex(const E* src1, const E* src2, E* dst, long len) {
  mapElements(complexProduct, dst, len, src1, src2);
}
// src1[i] times the conjugate of src2[i].
template <Complex E>
void mulComplexConjugate(const E* src1, const E* src2, E* dst, long len) {
  mapElements(complexConjugateProduct, dst, len, src1, src2);
}

namespace detail {
template <class R>
Pair<R> pairFrom(auto src, long i) {
  return {R(partFrom(src, i, 0)), R(partFrom(src, i, 1))};
}
}  // namespace detail

// By the scale rule; a source is an array or `Same`.
template <class A, class B>
void mulComplexScaled(int factor, Mox16sc* dst, long len, A a, B b) {
  using R = Exact<31>;
  Scale<Mox16s, 31>(factor).withRule([&](auto rule) {
    mapInteger<integerBytes / sizeof(Mox16sc), 16 / sizeof(Mox16sc)>(
        dst, len,
        [&](long i, int part) {
          const auto z = exactProduct(detail::pairFrom<R>(a, i), detail::pairFrom<R>(b, i));
          return saturate<Mox16s>(rule(part ? z.im : z.re));
        },
        [&](auto n, long i) {
          using Parts = V<Mox16s, 2 * n>;
          const auto z = exactProduct(lanesFrom<Parts>(a, i), lanesFrom<Parts>(b, i));
          return packParts(Pair{rule(z.re), rule(z.im)});
        },
        a, b);
  });
}
template <class A, class B>
void mulComplexScaled(int factor, Mox32sc* dst, long len, A a, B b) {
  using R = Exact<63>;
  Scale<Mox32s, 63>(factor).withRule([&](auto rule) {
    for (long i = 0; i < len; ++i) {
      const auto z = exactProduct(detail::pairFrom<R>(a, i), detail::pairFrom<R>(b, i));
      store(dst + i, Mox32sc{saturate<Mox32s>(rule(z.re)), saturate<Mox32s>(rule(z.im))});
    }
  });
}

}  // namespace mox::arith
