#include <moxsp/move.h>

#include "frame/checks.h"
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
  setBytes(patternOf(val), dst, bytes);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsSet_8u, set<Mox8u>);
MOX_EXPORT(moxsSet_16s, set<Mox16s>);
MOX_EXPORT(moxsSet_32f, set<Mox32f>);
MOX_EXPORT(moxsSet_32s, set<Mox32s>);
MOX_EXPORT(moxsSet_16sc, set<Mox16sc>);
MOX_EXPORT(moxsSet_64f, set<Mox64f>);
MOX_EXPORT(moxsSet_64s, set<Mox64s>);
MOX_EXPORT(moxsSet_32fc, set<Mox32fc>);
MOX_EXPORT(moxsSet_32sc, set<Mox32sc>);
MOX_EXPORT(moxsSet_64fc, set<Mox64fc>);
MOX_EXPORT(moxsSet_64sc, set<Mox64sc>);

}  // namespace mox::move
