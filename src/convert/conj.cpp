// Conjugates.
#include <moxsp/complex.h>

#include "convert/conj.h"
#include "frame/in_place.h"
#include "frame/map.h"
#include "move/flip.h"

namespace mox::convert {
namespace {

template <class E>
MoxStatus conj(const E* src, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mapElements<Stores::bypassing, registerBytes<Part<E>>>(Conjugate<E>(), dst, len, src);
  return moxOk;
}

template <class E>
MoxStatus conjFlip(const E* src, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (src == dst)
    move::reverseInPlace(dst, len, Conjugate<E>());
  else
    move::reverseCopy(src, dst, len, Conjugate<E>());
  return moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsConj_16sc, moxsConj_16sc_I, conj);
MOX_EXPORT_BOTH(moxsConj_32fc, moxsConj_32fc_I, conj);
MOX_EXPORT_BOTH(moxsConj_64fc, moxsConj_64fc_I, conj);
MOX_EXPORT(moxsConjFlip_16sc, conjFlip);
MOX_EXPORT(moxsConjFlip_32fc, conjFlip);
MOX_EXPORT(moxsConjFlip_64fc, conjFlip);

}  // namespace mox::convert
