#include "arith/cubrt.h"

#include <moxsp/arith.h>

#include "arith/vector_function.h"
#include "frame/export.h"
#include "frame/map_rounded.h"

namespace mox::arith {
namespace {

MoxStatus cubrt(const Mox32f* src, Mox32f* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  runFunction<Cubrt32f>(src, dst, len);
  return moxOk;
}

// The root of integers of 32 bits, to about 2^-52: one step of Halley's method on the float's.
// Roots that are integers are made exact, for they decide ties; no other root comes closer to an
// integer than 2^-23.
[[gnu::always_inline]] inline V<Mox64f> cubeRoot(V<Mox64f> x) {
  const V<Mox32f, 4> rounded = __builtin_convertvector(x, V<Mox32f, 4>);
  const V<Mox32f> roots =
      Cubrt32f::lanes(__builtin_shufflevector(rounded, rounded, 0, 1, 2, 3, 0, 1, 2, 3));
  const V<Mox64f> y =
      __builtin_convertvector(__builtin_shufflevector(roots, roots, 0, 1, 2, 3), V<Mox64f>);
  const V<Mox64f> cube = y * y * y;
  const V<Mox64f> root = y - y * (cube - x) / (cube * 2.0 + x), whole = nearestInteger(root);
  return select(notAtMost(absolute(root - whole), 0x1p-30), root, whole);
}

MoxStatus cubrtScaled(const Mox32s* src, Mox16s* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  const ByPowerOfTwo scale(scaleFactor);
  mapRounded([&](V<Mox64f> x) { return scale(cubeRoot(x)); }, dst, len, src);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsCubrt_32f, cubrt);
MOX_EXPORT(moxsCubrt_32s16s_Sfs, cubrtScaled);

}  // namespace mox::arith
