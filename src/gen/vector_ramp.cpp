// Straight lines.
#include <moxsp/generators.h>

#include "frame/export.h"
#include "frame/rounding_control.h"
#include "gen/fill.h"

namespace mox::gen {
namespace {

template <class E>
MoxStatus vectorRamp(E* dst, int len, FloatOf<E> offset, FloatOf<E> slope) {
  if (MoxStatus s = checkArrays(len, dst)) return s;
  const ResultScope<E> scope;
  RampBlocks line({offset, slope});
  fillRounded(dst, len, [&] { return line.next(); });
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsVectorRamp_8s, vectorRamp);
MOX_EXPORT(moxsVectorRamp_8u, vectorRamp);
MOX_EXPORT(moxsVectorRamp_16s, vectorRamp);
MOX_EXPORT(moxsVectorRamp_16u, vectorRamp);
MOX_EXPORT(moxsVectorRamp_32s, vectorRamp);
MOX_EXPORT(moxsVectorRamp_32u, vectorRamp);
MOX_EXPORT(moxsVectorRamp_32f, vectorRamp);
MOX_EXPORT(moxsVectorRamp_64f, vectorRamp);

// The same lines under another name.
MOX_EXPORT(moxsVectorSlope_8s, vectorRamp);
MOX_EXPORT(moxsVectorSlope_8u, vectorRamp);
MOX_EXPORT(moxsVectorSlope_16s, vectorRamp);
MOX_EXPORT(moxsVectorSlope_16u, vectorRamp);
MOX_EXPORT(moxsVectorSlope_32s, vectorRamp);
MOX_EXPORT(moxsVectorSlope_32u, vectorRamp);
MOX_EXPORT(moxsVectorSlope_32f, vectorRamp);
MOX_EXPORT(moxsVectorSlope_64f, vectorRamp);

}  // namespace mox::gen
