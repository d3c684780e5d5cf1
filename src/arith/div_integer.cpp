// Quotients of integers, of two vectors and with a constant on either side.
#include <moxsp/division.h>

#include <bit>
#include <climits>

#include "arith/division.h"
#include "arith/scaled.h"
#include "frame/in_place.h"
#include "frame/rounding_control.h"

namespace mox::arith {
namespace {

// dst[i] = dividend / divisor, either of them an array or `Same`. noinline keeps arithmetic on the
// constant behind the RoundingScope of our caller.
template <class W, int rounding, class Kernel, class D, class A, class B>
[[gnu::noinline]] MoxStatus mapQuotients(Kernel kernel, D* dst, long len, A divisor, B dividend) {
  const auto result = [&](W b, W prepared) {
    return roundedTo<rounding, D>(kernel.quotient(b, prepared));
  };
  const auto map = [&](auto lanes, auto... src) {
    const auto one = [&](long i) {
      const auto r = lanes(broadcast<W>(Lane<W>(partFrom(src, i, 0)))...);
      store(dst + i, saturate<D>(Mox32s(r[0])));
    };
    mapToInteger<W>(one, lanes, dst, len, src...);
  };
  if constexpr (std::is_pointer_v<A>) {
    map([&](W a, W b) { return result(b, kernel.prepared(a)); }, divisor, dividend);
  } else {
    const W prepared = kernel.prepared(broadcast<W>(Lane<W>(divisor.value)));
    map([&](W b) { return result(b, prepared); }, dividend);
  }
  return kernel.status();
}

// The smallest factor at which a kernel of W tells a quotient from the integers and ties beside it:
// it is at least 1 / (2 * divisor) away from them, and this also as a fraction of itself, with the
// power of two of a negative factor, 1 / (2 * dividend).
template <class W, class D, class A, class B>
constexpr int lowestFactor = [] {
  constexpr int precision = std::numeric_limits<Lane<W>>::digits - 3;
  return 1 + bits<A> + bits<D> <= precision ? INT_MIN : bits<B> + 1 - precision;
}();

// dividend / divisor * 2^n to nearest, in integers. A divisor of zero counts as a very small one,
// and from 2^63 on the dividend is beyond all quotients.
template <class T>
T scaledUpQuotient(Mox32s dividend, Mox32s divisor, int n) {
  const Mox64u b = absoluteValue(dividend), a = absoluteValue(divisor);
  const bool negative = (dividend ^ divisor) < 0;
  if (b == 0) return 0;
  if (a == 0 || std::bit_width(b) + n > 63) return saturatedTo<T>(~Mox64u(0), negative);
  const Mox64u scaled = b << n;
  return saturatedTo<T>(nearestQuotient(scaled / a, scaled % a, a), negative);
}

template <class D>
MoxStatus divideOneByOne(int factor, D* dst, long len, const D* divisor, const D* dividend) {
  bool zero = false;
  const int n = -std::max(factor, -1000);
  for (long i = 0; i < len; ++i) {
    const D a = load<D>(divisor + i);
    zero |= a == 0;
    store(dst + i, scaledUpQuotient<D>(load<D>(dividend + i), a, n));
  }
  return zero ? moxWarnDivByZero : moxOk;
}

template <int rounding = moxRoundNearEven, class D, class A, class B>
MoxStatus divide(int factor, D* dst, long len, A divisor, B dividend) {
  using EA = ElementOf<A>;
  using EB = ElementOf<B>;
  using Floats = V<Mox32f>;
  using Doubles = V<Mox64f>;
  const RoundingScope scope(Rounding::nearEven, Exceptions::hidden);
  if constexpr (sizeof(EB) <= 2)
    if (factor >= lowestFactor<Floats, D, EA, EB>)
      return mapQuotients<Floats, rounding>(ByReciprocal<Floats>(factor), dst, len, divisor,
                                            dividend);
  constexpr int lowest = lowestFactor<Doubles, D, EA, EB>;
  if constexpr (lowest != INT_MIN)
    if (factor < lowest) return divideOneByOne(factor, dst, len, divisor, dividend);
  return mapQuotients<Doubles, rounding>(ByReciprocal<Doubles>(factor), dst, len, divisor,
                                         dividend);
}

template <class A, class B = A, class D = A>
MoxStatus div(const A* src1, const B* src2, D* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  return divide(scaleFactor, dst, len, src1, src2);
}

// Its results at low factors are those of single precision.
MoxStatus div16s(const Mox16s* src1, const Mox16s* src2, Mox16s* dst, int len, int scaleFactor) {
  using Floats = V<Mox32f>;
  if (scaleFactor >= lowestFactor<Floats, Mox16s, Mox16s, Mox16s>)
    return div(src1, src2, dst, len, scaleFactor);
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  const RoundingScope scope(Rounding::nearEven, Exceptions::hidden);
  return mapQuotients<Floats, moxRoundNearEven>(ByDivision<Floats>(scaleFactor), dst, len, src1,
                                                src2);
}

template <class E>
MoxStatus divRounded(const E* src1, const E* src2, E* dst, int len, int rndMode, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  switch (rndMode) {
    case moxRoundZero:
      return divide<moxRoundZero>(scaleFactor, dst, len, src1, src2);
    case moxRoundNearEven:
      return divide<moxRoundNearEven>(scaleFactor, dst, len, src1, src2);
    case moxRoundHalfAway:
      return divide<moxRoundHalfAway>(scaleFactor, dst, len, src1, src2);
  }
  return moxErrRoundMode;
}

template <class E>
MoxStatus divConstant(const E* src, E val, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (val == 0) return moxErrDivByZero;
  return divide(scaleFactor, dst, len, Same<E>{val}, src);
}

MoxStatus divConstantReversed(const Mox16u* src, Mox16u val, Mox16u* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  return divide(0, dst, len, src, Same<Mox16u>{val});
}

}  // namespace

MOX_EXPORT_BOTH(moxsDiv_8u_Sfs, moxsDiv_8u_ISfs, div);
MOX_EXPORT_BOTH(moxsDiv_16s_Sfs, moxsDiv_16s_ISfs, div16s);
MOX_EXPORT_BOTH(moxsDiv_16u_Sfs, moxsDiv_16u_ISfs, div);
MOX_EXPORT_BOTH(moxsDiv_32s_Sfs, moxsDiv_32s_ISfs, div);
MOX_EXPORT(moxsDiv_32s16s_Sfs, div);

MOX_EXPORT_BOTH(moxsDiv_Round_8u_Sfs, moxsDiv_Round_8u_ISfs, divRounded);
MOX_EXPORT_BOTH(moxsDiv_Round_16s_Sfs, moxsDiv_Round_16s_ISfs, divRounded);
MOX_EXPORT_BOTH(moxsDiv_Round_16u_Sfs, moxsDiv_Round_16u_ISfs, divRounded);

MOX_EXPORT_BOTH(moxsDivC_8u_Sfs, moxsDivC_8u_ISfs, divConstant);
MOX_EXPORT_BOTH(moxsDivC_16s_Sfs, moxsDivC_16s_ISfs, divConstant);
MOX_EXPORT_BOTH(moxsDivC_16u_Sfs, moxsDivC_16u_ISfs, divConstant);

MOX_EXPORT_BOTH(moxsDivCRev_16u, moxsDivCRev_16u_I, divConstantReversed);

}  // namespace mox::arith
