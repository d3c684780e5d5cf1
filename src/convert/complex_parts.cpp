// Real and imaginary parts, moved apart and together.
#include <moxsp/complex.h>

#include "convert/complex_bodies.h"
#include "frame/export.h"
#include "move/fill.h"

namespace mox::convert {
namespace {

// Both parts, from one shape to another.
template <class F>
struct Both {
  static constexpr int lanes = laneCount<Register<F>>;
  auto operator()(auto src, long i) const { return src.template lanes<Register<F>>(i); }
};
template <class F>
struct RealPart : Both<F> {
  auto operator()(auto src, long i) const { return Both<F>::operator()(src, i).re; }
};
template <class F>
struct ImaginaryPart : Both<F> {
  auto operator()(auto src, long i) const { return Both<F>::operator()(src, i).im; }
};

// Numbers with one part zero, from an array of the other.
template <class F>
struct OnlyReal : Both<F> {
  auto operator()(auto src, long i) const {
    return Pair{Both<F>::operator()(src, i), Register<F>{}};
  }
};
template <class F>
struct OnlyImaginary : Both<F> {
  auto operator()(auto src, long i) const {
    return Pair{Register<F>{}, Both<F>::operator()(src, i)};
  }
};

template <class E, class F>
MoxStatus realParts(const E* src, F* dst, int len) {
  return mapInterleaved<RealPart<F>>(src, dst, len);
}
template <class E, class F>
MoxStatus imaginaryParts(const E* src, F* dst, int len) {
  return mapInterleaved<ImaginaryPart<F>>(src, dst, len);
}

template <class E, class F>
MoxStatus complexToReal(const E* src, F* dstRe, F* dstIm, int len) {
  if (MoxStatus s = checkArrays(len, src, dstRe, dstIm)) return s;
  mapComplex<Stores::bypassing>(Both<F>(), Array<const E>{src}, Split<F>{dstRe, dstIm}, len);
  return moxOk;
}

template <class F, class E>
MoxStatus realToComplex(const F* srcRe, const F* srcIm, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, dst)) return s;
  const auto map = [=](auto op, auto src) {
    mapComplex<Stores::bypassing>(op, src, Array<E>{dst}, len);
  };
  if (srcRe && srcIm)
    map(Both<F>(), Split<const F>{srcRe, srcIm});
  else if (srcRe)
    map(OnlyReal<F>(), Array<const F>{srcRe});
  else if (srcIm)
    map(OnlyImaginary<F>(), Array<const F>{srcIm});
  else
    move::zeroElements(dst, len);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsReal_16sc, realParts);
MOX_EXPORT(moxsReal_32fc, realParts);
MOX_EXPORT(moxsReal_64fc, realParts);
MOX_EXPORT(moxsImag_16sc, imaginaryParts);
MOX_EXPORT(moxsImag_32fc, imaginaryParts);
MOX_EXPORT(moxsImag_64fc, imaginaryParts);
MOX_EXPORT(moxsCplxToReal_16sc, complexToReal);
MOX_EXPORT(moxsCplxToReal_32fc, complexToReal);
MOX_EXPORT(moxsCplxToReal_64fc, complexToReal);
MOX_EXPORT(moxsRealToCplx_16s, realToComplex);
MOX_EXPORT(moxsRealToCplx_32f, realToComplex);
MOX_EXPORT(moxsRealToCplx_64f, realToComplex);

}  // namespace mox::convert
