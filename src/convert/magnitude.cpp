#include "convert/magnitude.h"

#include <moxsp/complex.h>

#include "convert/complex_bodies.h"
#include "frame/export.h"

namespace mox::convert {
namespace {

// Of 16-bit parts as floats.
struct MagnitudeOfWords {
  static constexpr int lanes = lanesOf<Mox32f>;
  auto operator()(auto src, long i) const { return squareRoot(squaredMagnitudeAsFloat(src, i)); }
};

}  // namespace

MOX_EXPORT(moxsMagnitude_32f, mapSplit<Magnitude<Mox32f>>);
MOX_EXPORT(moxsMagnitude_64f, mapSplit<Magnitude<Mox64f>>);
MOX_EXPORT(moxsMagnitude_32fc, mapInterleaved<Magnitude<Mox32f>>);
MOX_EXPORT(moxsMagnitude_64fc, mapInterleaved<Magnitude<Mox64f>>);
MOX_EXPORT(moxsMagnitude_16s32f, mapSplit<MagnitudeOfWords>);
MOX_EXPORT(moxsMagnitude_16sc32f, mapInterleaved<MagnitudeOfWords>);
MOX_EXPORT(moxsMagnitude_16s_Sfs, mapSplitScaled<ScaledMagnitude<Mox16s>>);
MOX_EXPORT(moxsMagnitude_16sc_Sfs, mapInterleavedScaled<ScaledMagnitude<Mox16s>>);
MOX_EXPORT(moxsMagnitude_32sc_Sfs, mapInterleavedScaled<ScaledMagnitude<Mox32s>>);

}  // namespace mox::convert
