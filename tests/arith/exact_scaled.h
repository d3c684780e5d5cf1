// Exact results under the scale rule, of real and complex integers alike.
#pragma once

#include "support/exact_model.h"
#include "support/members.h"
#include "support/values.h"

namespace test {

// Complex numbers of 128 bits.
struct WideComplex {
  Int128 re, im;
};
inline WideComplex operator+(WideComplex a, WideComplex b) { return {a.re + b.re, a.im + b.im}; }
inline WideComplex operator-(WideComplex a, WideComplex b) { return {a.re - b.re, a.im - b.im}; }
inline WideComplex operator*(WideComplex a, WideComplex b) {
  return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
inline WideComplex operator*(Int128 a, WideComplex b) { return {a * b.re, a * b.im}; }

template <class E>
auto widened(E e) {
  if constexpr (mox::Complex<E>)
    return WideComplex{e.re, e.im};
  else
    return Int128(e);
}

template <class D>
D scaled(Int128 r, int factor) {
  return D(scaledInteger(r, factor, rangeOf<D>));
}
template <class D>
D scaled(WideComplex r, int factor) {
  using T = mox::Part<D>;
  return {scaled<T>(r.re, factor), scaled<T>(r.im, factor)};
}

}  // namespace test
