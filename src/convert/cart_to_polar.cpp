// Magnitude and phase together.
#include <moxsp/complex.h>

#include "convert/magnitude.h"
#include "convert/phase.h"
#include "frame/export.h"

namespace mox::convert {
namespace {

template <class MagnitudeOp, class PhaseOp>
struct Polar {
  static constexpr int lanes = MagnitudeOp::lanes;
  auto operator()(auto src, long i) const { return Pair{magnitude(src, i), phase(src, i)}; }

  MagnitudeOp magnitude;
  PhaseOp phase;
};

// As if magnitudes were computed first, then phases: each may fail without the other.
template <class MagnitudeOp, class PhaseOp, class Source, class D>
MoxStatus mapPolar(MagnitudeOp magnitude, PhaseOp phase, Source src, D* dstMagn, D* dstPhase,
                   int len) {
  const MoxStatus first = src.anyNull() ? MoxStatus(moxErrNullPtr) : checkArrays(len, dstMagn);
  const MoxStatus second = src.anyNull() ? MoxStatus(moxErrNullPtr) : checkArrays(len, dstPhase);
  if (!first && !second)
    mapComplex(Polar<MagnitudeOp, PhaseOp>{magnitude, phase}, src, Split<D>{dstMagn, dstPhase},
               len);
  else if (!first)
    mapComplex(magnitude, src, Array<D>{dstMagn}, len);
  else if (!second)
    mapComplex(phase, src, Array<D>{dstPhase}, len);
  return first ? first : second;
}

template <class E, class F>
MoxStatus cartToPolar(const E* src, F* dstMagn, F* dstPhase, int len) {
  return mapPolar(Magnitude<F>(), Phase<F>(), Array<const E>{src}, dstMagn, dstPhase, len);
}
template <class F>
MoxStatus cartToPolarOfTwo(const F* srcRe, const F* srcIm, F* dstMagn, F* dstPhase, int len) {
  return mapPolar(Magnitude<F>(), Phase<F>(), Split<const F>{srcRe, srcIm}, dstMagn, dstPhase, len);
}
MoxStatus cartToPolarScaled(const Mox16sc* src, Mox16s* dstMagn, Mox16s* dstPhase, int len,
                            int scaleFactor) {
  const HiddenExceptions scope;
  return mapPolar(ScaledMagnitude<Mox16s>(scaleFactor), ScaledPhase<Mox16s>(scaleFactor),
                  Array<const Mox16sc>{src}, dstMagn, dstPhase, len);
}

}  // namespace

MOX_EXPORT(moxsCartToPolar_32f, cartToPolarOfTwo);
MOX_EXPORT(moxsCartToPolar_64f, cartToPolarOfTwo);
MOX_EXPORT(moxsCartToPolar_32fc, cartToPolar);
MOX_EXPORT(moxsCartToPolar_64fc, cartToPolar);
MOX_EXPORT(moxsCartToPolar_16sc_Sfs, cartToPolarScaled);

}  // namespace mox::convert
