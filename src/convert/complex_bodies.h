// Function bodies of the complex families: an operation of frame/map_complex.h, and where the
// numbers come from. With a scale factor the operation is made from it.
#pragma once

#include "frame/checks.h"
#include "frame/control_word.h"
#include "frame/map_complex.h"

namespace mox::convert {

template <class Op, class E, class D>
MoxStatus mapInterleaved(const E* src, D* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mapComplex<Stores::bypassing>(Op(), Array<const E>{src}, Array<D>{dst}, len);
  return moxOk;
}
template <class Op, class F, class D>
MoxStatus mapSplit(const F* srcRe, const F* srcIm, D* dst, int len) {
  if (MoxStatus s = checkArrays(len, srcRe, srcIm, dst)) return s;
  mapComplex<Stores::bypassing>(Op(), Split<const F>{srcRe, srcIm}, Array<D>{dst}, len);
  return moxOk;
}

template <class Op, class E, class D>
MoxStatus mapInterleavedScaled(const E* src, D* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  const HiddenExceptions scope;
  mapComplex(Op(scaleFactor), Array<const E>{src}, Array<D>{dst}, len);
  return moxOk;
}
template <class Op, class F, class D>
MoxStatus mapSplitScaled(const F* srcRe, const F* srcIm, D* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, srcRe, srcIm, dst)) return s;
  const HiddenExceptions scope;
  mapComplex(Op(scaleFactor), Split<const F>{srcRe, srcIm}, Array<D>{dst}, len);
  return moxOk;
}

}  // namespace mox::convert
