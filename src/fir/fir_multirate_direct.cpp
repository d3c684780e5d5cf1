// Multirate filters without a state: one is made for the call.
#include "fir/fir_multirate.h"
#include "fir/fir_single.h"
#include "frame/checks.h"
#include "frame/export.h"
#include "frame/in_place.h"

namespace mox::fir {
namespace {

template <class C>
MoxStatus directWithFactor(const typename C::Data* src, typename C::Data* dst, int numIters,
                           const typename C::Tap* taps, int tapsLen, int tapsFactor, int upFactor,
                           int upPhase, int downFactor, int downPhase, typename C::Data* dlyLine,
                           int scaleFactor) {
  if (MoxStatus e = checkArrays(numIters, src, dst, taps, dlyLine)) return e;
  const Setup<C> setup(taps, tapsLen, dlyLine, tapsFactor, upFactor, upPhase, downFactor,
                       downPhase);
  MoxsFIRState* state;
  if (MoxStatus e = initAllocFrom(&state, setup)) return e;
  const MoxStatus status =
      (setup.rates.areSingle() ? runSingle<C> : runMultirate<C>)(state, src, dst, numIters,
                                                                 scaleFactor);
  if (status == moxOk) stateOf<C>(state).store.getLine(dlyLine);
  moxFree(state);
  return status;
}
template <class C>
MoxStatus directScaled(const typename C::Data* src, typename C::Data* dst, int numIters,
                       const typename C::Tap* taps, int tapsLen, int upFactor, int upPhase,
                       int downFactor, int downPhase, typename C::Data* dlyLine, int scaleFactor) {
  return directWithFactor<C>(src, dst, numIters, taps, tapsLen, 0, upFactor, upPhase, downFactor,
                             downPhase, dlyLine, scaleFactor);
}
template <class C>
MoxStatus direct(const typename C::Data* src, typename C::Data* dst, int numIters,
                 const typename C::Tap* taps, int tapsLen, int upFactor, int upPhase,
                 int downFactor, int downPhase, typename C::Data* dlyLine) {
  return directScaled<C>(src, dst, numIters, taps, tapsLen, upFactor, upPhase, downFactor,
                         downPhase, dlyLine, 0);
}

}  // namespace

MOX_EXPORT(moxsFIRMR_Direct_32f, direct<Fir32f>);
MOX_EXPORT_IN_PLACE(moxsFIRMR_Direct_32f_I, direct<Fir32f>);
MOX_EXPORT_BOTH(moxsFIRMR_Direct_32fc, moxsFIRMR_Direct_32fc_I, direct<Fir32fc>);
MOX_EXPORT_BOTH(moxsFIRMR_Direct_64f, moxsFIRMR_Direct_64f_I, direct<Fir64f>);
MOX_EXPORT_BOTH(moxsFIRMR_Direct_64fc, moxsFIRMR_Direct_64fc_I, direct<Fir64fc>);
MOX_EXPORT_BOTH(moxsFIRMR64f_Direct_32f, moxsFIRMR64f_Direct_32f_I, direct<Fir64f32f>);
MOX_EXPORT_BOTH(moxsFIRMR64fc_Direct_32fc, moxsFIRMR64fc_Direct_32fc_I, direct<Fir64fc32fc>);
MOX_EXPORT_BOTH(moxsFIRMR32f_Direct_16s_Sfs, moxsFIRMR32f_Direct_16s_ISfs, directScaled<Fir32f16s>);
MOX_EXPORT_BOTH(moxsFIRMR32fc_Direct_16sc_Sfs, moxsFIRMR32fc_Direct_16sc_ISfs,
                directScaled<Fir32fc16sc>);
MOX_EXPORT_BOTH(moxsFIRMR64f_Direct_16s_Sfs, moxsFIRMR64f_Direct_16s_ISfs, directScaled<Fir64f16s>);
MOX_EXPORT_BOTH(moxsFIRMR64fc_Direct_16sc_Sfs, moxsFIRMR64fc_Direct_16sc_ISfs,
                directScaled<Fir64fc16sc>);
MOX_EXPORT_BOTH(moxsFIRMR64f_Direct_32s_Sfs, moxsFIRMR64f_Direct_32s_ISfs, directScaled<Fir64f32s>);
MOX_EXPORT_BOTH(moxsFIRMR64fc_Direct_32sc_Sfs, moxsFIRMR64fc_Direct_32sc_ISfs,
                directScaled<Fir64fc32sc>);
MOX_EXPORT_BOTH(moxsFIRMR32s_Direct_16s_Sfs, moxsFIRMR32s_Direct_16s_ISfs,
                directWithFactor<Fir32s16s>);
MOX_EXPORT_BOTH(moxsFIRMR32sc_Direct_16sc_Sfs, moxsFIRMR32sc_Direct_16sc_ISfs,
                directWithFactor<Fir32sc16sc>);

}  // namespace mox::fir
