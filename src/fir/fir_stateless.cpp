// The forms without a state: sample by sample through a ring that the caller holds.
#include <moxsp/fir.h>

#include "fir/fir_combination.h"
#include "fir/fir_dot.h"
#include "fir/fir_ring.h"
#include "frame/checks.h"
#include "frame/export.h"

namespace mox {
namespace {

// Single-precision data is summed in double precision here.
template <class C>
using Wide = std::conditional_t<std::is_same_v<typename C::Data, Mox32f>, Mox64f, typename C::Acc>;

template <class C>
MoxStatus firDirectScaled(const typename C::Data* src, typename C::Data* dst, int len,
                          const typename C::Tap* taps, int tapsLen, typename C::Data* dlyLine,
                          int* dlyLineIndex, int scaleFactor) {
  using D = typename C::Data;
  if (MoxStatus e = checkArrays(len, src, dst)) return e;
  if (anyNull(taps)) return moxErrNullPtr;
  if (tapsLen < 1) return moxErrFirLen;
  if (anyNull(dlyLine, dlyLineIndex)) return moxErrNullPtr;
  int index = load<int>(dlyLineIndex) % tapsLen;  // any index is a place of the ring
  if (index < 0) index += tapsLen;
  for (int i = 0; i < len; ++i) {
    const D* window = pushSample(dlyLine, index, tapsLen, load<D>(src + i));
    const auto sum = typename C::Acc(dotProduct<Wide<C>, TapOrder::forward>(window, taps, tapsLen));
    C::leave(&sum, dst + i, 1, scaleFactor);
  }
  store(dlyLineIndex, index);
  return moxOk;
}

template <class C>
MoxStatus firDirectScaledInPlace(typename C::Data* srcDst, int len, const typename C::Tap* taps,
                                 int tapsLen, typename C::Data* dlyLine, int* dlyLineIndex,
                                 int scaleFactor) {
  return firDirectScaled<C>(srcDst, srcDst, len, taps, tapsLen, dlyLine, dlyLineIndex, scaleFactor);
}
template <class C>
MoxStatus firOneDirectScaled(typename C::Data src, typename C::Data* dst,
                             const typename C::Tap* taps, int tapsLen, typename C::Data* dlyLine,
                             int* dlyLineIndex, int scaleFactor) {
  return firDirectScaled<C>(&src, dst, 1, taps, tapsLen, dlyLine, dlyLineIndex, scaleFactor);
}
template <class C>
MoxStatus firOneDirectScaledInPlace(typename C::Data* srcDst, const typename C::Tap* taps,
                                    int tapsLen, typename C::Data* dlyLine, int* dlyLineIndex,
                                    int scaleFactor) {
  return firDirectScaled<C>(srcDst, srcDst, 1, taps, tapsLen, dlyLine, dlyLineIndex, scaleFactor);
}

// Floats have no scale factor.
template <class C>
MoxStatus firDirect(const typename C::Data* src, typename C::Data* dst, int len,
                    const typename C::Tap* taps, int tapsLen, typename C::Data* dlyLine,
                    int* dlyLineIndex) {
  return firDirectScaled<C>(src, dst, len, taps, tapsLen, dlyLine, dlyLineIndex, 0);
}
template <class C>
MoxStatus firDirectInPlace(typename C::Data* srcDst, int len, const typename C::Tap* taps,
                           int tapsLen, typename C::Data* dlyLine, int* dlyLineIndex) {
  return firDirectScaled<C>(srcDst, srcDst, len, taps, tapsLen, dlyLine, dlyLineIndex, 0);
}
template <class C>
MoxStatus firOneDirect(typename C::Data src, typename C::Data* dst, const typename C::Tap* taps,
                       int tapsLen, typename C::Data* dlyLine, int* dlyLineIndex) {
  return firDirectScaled<C>(&src, dst, 1, taps, tapsLen, dlyLine, dlyLineIndex, 0);
}
template <class C>
MoxStatus firOneDirectInPlace(typename C::Data* srcDst, const typename C::Tap* taps, int tapsLen,
                              typename C::Data* dlyLine, int* dlyLineIndex) {
  return firDirectScaled<C>(srcDst, srcDst, 1, taps, tapsLen, dlyLine, dlyLineIndex, 0);
}

}  // namespace

MOX_EXPORT(moxsFIR_Direct_32f, firDirect<Fir32f>);
MOX_EXPORT(moxsFIR_Direct_32fc, firDirect<Fir32fc>);
MOX_EXPORT(moxsFIR_Direct_64f, firDirect<Fir64f>);
MOX_EXPORT(moxsFIR_Direct_64fc, firDirect<Fir64fc>);
MOX_EXPORT(moxsFIR_Direct_32f_I, firDirectInPlace<Fir32f>);
MOX_EXPORT(moxsFIR_Direct_32fc_I, firDirectInPlace<Fir32fc>);
MOX_EXPORT(moxsFIR_Direct_64f_I, firDirectInPlace<Fir64f>);
MOX_EXPORT(moxsFIR_Direct_64fc_I, firDirectInPlace<Fir64fc>);
MOX_EXPORT(moxsFIROne_Direct_32f, firOneDirect<Fir32f>);
MOX_EXPORT(moxsFIROne_Direct_32fc, firOneDirect<Fir32fc>);
MOX_EXPORT(moxsFIROne_Direct_64f, firOneDirect<Fir64f>);
MOX_EXPORT(moxsFIROne_Direct_64fc, firOneDirect<Fir64fc>);
MOX_EXPORT(moxsFIROne_Direct_32f_I, firOneDirectInPlace<Fir32f>);
MOX_EXPORT(moxsFIROne_Direct_32fc_I, firOneDirectInPlace<Fir32fc>);
MOX_EXPORT(moxsFIROne_Direct_64f_I, firOneDirectInPlace<Fir64f>);
MOX_EXPORT(moxsFIROne_Direct_64fc_I, firOneDirectInPlace<Fir64fc>);
MOX_EXPORT(moxsFIR32f_Direct_16s_Sfs, firDirectScaled<Fir32f16s>);
MOX_EXPORT(moxsFIR32f_Direct_16s_ISfs, firDirectScaledInPlace<Fir32f16s>);
MOX_EXPORT(moxsFIROne32f_Direct_16s_Sfs, firOneDirectScaled<Fir32f16s>);
MOX_EXPORT(moxsFIROne32f_Direct_16s_ISfs, firOneDirectScaledInPlace<Fir32f16s>);

}  // namespace mox
