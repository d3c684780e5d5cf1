// Quotients of floats, of two vectors and with a constant on either side.
#include <moxsp/division.h>

#include "arith/division.h"
#include "arith/mul_constant.h"
#include "frame/in_place.h"
#include "frame/map.h"

namespace mox::arith {
namespace {

// dividend / divisor; complex elements are vectors of interleaved parts.
template <class E, class W>
[[gnu::always_inline]] inline W quotient(W divisor, W dividend) {
  if constexpr (Complex<E>) {
    const W re = realParts(divisor), im = imaginaryParts(divisor);
    const W products = times(dividend, re, -im);
    const W square = re * re + im * im;
    // Compilers may divide two floats in a register of four, where 0 / 0 raises an exception.
    if constexpr (sizeof(W) < 16)
      return W{inRegister(products[0]) / square[0], inRegister(products[1]) / square[0]};
    else
      return products / square;
  } else {
    return dividend / divisor;
  }
}

template <class Op, class E, class... Source>
void mapDivision(Op op, E* dst, long len, Source... src) {
  mapElements<Stores::bypassing, widestBytes, Complex<E> ? 2 : 1>(op, dst, len, src...);
}

// Either side is an array or `Same`.
template <class E, class Divisor, class Dividend>
MoxStatus divideNoting(E* dst, int len, Divisor divisor, Dividend dividend) {
  ZeroDivisors<Part<E>> zeros;
  mapDivision(
      [&](auto a, auto b) __attribute__((always_inline)) {
        if constexpr (Complex<E>)
          zeros.noteComplex(a);
        else
          zeros.note(a);
        return quotient<E>(a, b);
      },
      dst, len, divisor, dividend);
  return zeros.status();
}

template <class E>
MoxStatus div(const E* src1, const E* src2, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  return divideNoting(dst, len, src1, src2);
}

template <class E>
bool isZero(E val) {
  if constexpr (Complex<E>)
    return val.re == 0 && val.im == 0;
  else
    return val == 0;
}

template <class E>
MoxStatus divConstant(const E* src, E val, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (isZero(val)) return moxErrDivByZero;
  if constexpr (std::is_same_v<E, Mox32f>)
    ownsMulC(src, 1 / val, dst, len);
  else
    mapDivision([](auto a, auto b) { return quotient<E>(a, b); }, dst, len, Same<E>{val}, src);
  return moxOk;
}

MoxStatus divConstantReversed(const Mox32f* src, Mox32f val, Mox32f* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  return divideNoting(dst, len, src, Same<Mox32f>{val});
}

}  // namespace

MOX_EXPORT_BOTH(moxsDiv_32f, moxsDiv_32f_I, div);
MOX_EXPORT_BOTH(moxsDiv_64f, moxsDiv_64f_I, div);
MOX_EXPORT_BOTH(moxsDiv_32fc, moxsDiv_32fc_I, div);
MOX_EXPORT_BOTH(moxsDiv_64fc, moxsDiv_64fc_I, div);

MOX_EXPORT_BOTH(moxsDivC_32f, moxsDivC_32f_I, divConstant);
MOX_EXPORT_BOTH(moxsDivC_64f, moxsDivC_64f_I, divConstant);
MOX_EXPORT_BOTH(moxsDivC_32fc, moxsDivC_32fc_I, divConstant);
MOX_EXPORT_BOTH(moxsDivC_64fc, moxsDivC_64fc_I, divConstant);

MOX_EXPORT_BOTH(moxsDivCRev_32f, moxsDivCRev_32f_I, divConstantReversed);

}  // namespace mox::arith
