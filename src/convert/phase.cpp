#include "convert/phase.h"

#include <moxsp/complex.h>

#include "convert/complex_bodies.h"
#include "frame/export.h"

namespace mox::convert {
namespace {

// Of 16-bit parts as floats, by way of double precision.
struct PhaseOfWords {
  static constexpr int lanes = lanesOf<Mox32f>;
  auto operator()(auto src, long i) const {
    const auto half = [&](long at) {
      return __builtin_convertvector(phaseLanes(src.template lanes<V<Mox64f>>(at)).value,
                                     Beside<Mox32f, V<Mox64f>>);
    };
    return join<V<Mox32f>>(half(i), half(i + lanes / 2));
  }
};

}  // namespace

MOX_EXPORT(moxsPhase_32f, mapSplit<Phase<Mox32f>>);
MOX_EXPORT(moxsPhase_64f, mapSplit<Phase<Mox64f>>);
MOX_EXPORT(moxsPhase_32fc, mapInterleaved<Phase<Mox32f>>);
MOX_EXPORT(moxsPhase_64fc, mapInterleaved<Phase<Mox64f>>);
MOX_EXPORT(moxsPhase_16s32f, mapSplit<PhaseOfWords>);
MOX_EXPORT(moxsPhase_16sc32f, mapInterleaved<PhaseOfWords>);
MOX_EXPORT(moxsPhase_16s_Sfs, mapSplitScaled<ScaledPhase<Mox16s>>);
MOX_EXPORT(moxsPhase_16sc_Sfs, mapInterleavedScaled<ScaledPhase<Mox16s>>);
MOX_EXPORT(moxsPhase_32sc_Sfs, mapInterleavedScaled<ScaledPhase<Mox32s>>);

}  // namespace mox::convert
