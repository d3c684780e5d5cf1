// Triangles, whose fall and rise may take different times.
#include <moxsp/generators.h>

#include "frame/export.h"
#include "frame/rounding_control.h"
#include "gen/wave_q15.h"

struct MoxTriangleState : mox::gen::WaveState {};

namespace mox::gen {
namespace {

constexpr WaveErrors triangleErrors = {moxErrTriangleMagn, moxErrTriangleFreq, moxErrTriangleAsym,
                                       moxErrTrianglePhase};

// Falls from `magn` at the angle 0 to -magn at pi + asym, and rises to `magn` at 2 pi: the larger
// of the two lines, each of which is below -magn where the other holds.
class Triangle {
 public:
  explicit Triangle(const Wave& w)
      : magn_(w.magn),
        foot_(twoPi / 2 + w.asym),
        fall_(2 / foot_),
        rise_(2 / (twoPi / 2 - w.asym)) {}

  [[gnu::always_inline]] Block<Mox64f> operator()(const Block<Mox64f>& angles) const {
    return blockOf<Mox64f>([&](int j) {
      const V<Mox64f> angle = angles.v[j];
      const V<Mox64f> t = angle - truncated(angle * (1 / twoPi)) * twoPi;
      const V<Mox64f> falling = 1 - t * fall_, rising = (t - foot_) * rise_ - 1;
      return lesser(greater(falling, rising), broadcast<V<Mox64f>>(1.0)) * magn_;
    });
  }

 private:
  Mox64f magn_, foot_, fall_, rise_;
};

// The imaginary part is a quarter of a period behind, as the sine is behind the cosine.
template <class E>
void fillTriangle(E* dst, long len, long n, const Wave& wave) {
  fillByAngle(dst, len, n, wave, [triangle = Triangle(wave)](const Block<Mox64f>& angles) {
    if constexpr (Complex<E>)
      return Pair<Block<Mox64f>>{
          triangle(angles),
          triangle(blockOf<Mox64f>([&](int j) { return angles.v[j] + 0.75 * twoPi; }))};
    else
      return triangle(angles);
  });
}

template <class E>
MoxStatus triangleDirect(E* dst, int len, Part<E> magn, FloatOf<E> rFreq, FloatOf<E> asym,
                         FloatOf<E>* phase) {
  return runDirect(dst, len, {Mox64f(magn), rFreq, 0, asym}, phase, triangleErrors,
                   [&](const Wave& w) { fillTriangle(dst, len, 0, w); });
}

struct TriangleQ15 {
  using State = MoxTriangleState;
  static constexpr Mox32s id = 0x434D4149;
  static constexpr const WaveErrors& errors = triangleErrors;

  static void fill(Mox16s* dst, long len, long n, const Wave& wave) {
    fillTriangle(dst, len, n, wave);
  }
};

MoxStatus triangleInit(MoxTriangleState* state, Mox16s magn, Mox16s rFreqQ15, Mox32s phaseQ15,
                       Mox32s asymQ15) {
  return initQ15<TriangleQ15>(state, {magn, rFreqQ15, phaseQ15, asymQ15});
}
MoxStatus triangleInitAlloc(MoxTriangleState** out, Mox16s magn, Mox16s rFreqQ15, Mox32s phaseQ15,
                            Mox32s asymQ15) {
  return initAllocQ15<TriangleQ15>(out, {magn, rFreqQ15, phaseQ15, asymQ15});
}
MoxStatus triangleDirectQ15(Mox16s* dst, int len, Mox16s magn, Mox16s rFreqQ15, Mox32s phaseQ15,
                            Mox32s asymQ15) {
  return runDirectQ15<TriangleQ15>(dst, len, {magn, rFreqQ15, phaseQ15, asymQ15});
}

}  // namespace

MOX_EXPORT(moxsTriangle_Direct_16s, triangleDirect);
MOX_EXPORT(moxsTriangle_Direct_16sc, triangleDirect);
MOX_EXPORT(moxsTriangle_Direct_32f, triangleDirect);
MOX_EXPORT(moxsTriangle_Direct_32fc, triangleDirect);
MOX_EXPORT(moxsTriangle_Direct_64f, triangleDirect);
MOX_EXPORT(moxsTriangle_Direct_64fc, triangleDirect);

MOX_EXPORT(moxsTriangleGetStateSizeQ15_16s, recordSize<MoxTriangleState>);
MOX_EXPORT(moxsTriangleInitQ15_16s, triangleInit);
MOX_EXPORT(moxsTriangleInitAllocQ15_16s, triangleInitAlloc);
MOX_EXPORT(moxsTriangleFree, freeQ15<TriangleQ15>);
MOX_EXPORT(moxsTriangleQ15_16s, runQ15<TriangleQ15>);
MOX_EXPORT(moxsTriangleQ15_Direct_16s, triangleDirectQ15);

}  // namespace mox::gen
