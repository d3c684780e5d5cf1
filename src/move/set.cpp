#include <moxsp/move.h>

#include "frame/export.h"
#include "move/fill.h"

namespace mox::move {
namespace {

// Elements of one size share the fill, not the body: `val` arrives in different registers.
template <class E>
MoxStatus set(E val, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, dst)) return s;
  // Wide elements are counted as such, narrow ones by their bytes in 32 bits.
  const long bytes = sizeof(E) < 8 ? int(unsigned(len) * sizeof(E)) : len * long(sizeof(E));
  fill(patternOf(val), dst, bytes);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsSet_8u, set);
MOX_EXPORT(moxsSet_16s, set);
MOX_EXPORT(moxsSet_32f, set);
MOX_EXPORT(moxsSet_32s, set);
MOX_EXPORT(moxsSet_16sc, set);
MOX_EXPORT(moxsSet_64f, set);
MOX_EXPORT(moxsSet_64s, set);
MOX_EXPORT(moxsSet_32fc, set);
MOX_EXPORT(moxsSet_32sc, set);
MOX_EXPORT(moxsSet_64fc, set);
MOX_EXPORT(moxsSet_64sc, set);

}  // namespace mox::move
