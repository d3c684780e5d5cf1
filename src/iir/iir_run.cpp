// Blocks of samples and single samples through a state.
#include "frame/checks.h"
#include "frame/export.h"
#include "frame/in_place.h"
#include "iir/iir_filter.h"
#include "iir/iir_steps.h"

namespace mox::iir {
namespace {

template <class C>
MoxStatus iirScaled(const typename C::Data* src, typename C::Data* dst, int len,
                    MoxsIIRState* state, int scaleFactor) {
  if (MoxStatus e = checkArrays(len, state, src, dst)) return e;
  if (MoxStatus e = requireId(state, C::ar, C::biquad, C::directForm1)) return e;
  filter<C>(stateOf<C>(state), src, dst, len, scaleFactor);
  return moxOk;
}

template <class C>
MoxStatus iirOneScaled(typename C::Data src, typename C::Data* dst, MoxsIIRState* state,
                       int scaleFactor) {
  using Held = typename C::Held;
  if (anyNull(state, dst)) return moxErrNullPtr;
  if (MoxStatus e = requireId(state, C::ar, C::biquad)) return e;
  const Held x = convert::converted<Held>(src);
  const auto y = step(stateOf<C>(state), numberAt(&x));
  convert::giveOut(reinterpret_cast<const Held*>(&y), dst, 1, scaleFactor);
  return moxOk;
}

// Floats have no scale factor.
template <class C>
MoxStatus iir(const typename C::Data* src, typename C::Data* dst, int len, MoxsIIRState* state) {
  return iirScaled<C>(src, dst, len, state, 0);
}
template <class C>
MoxStatus iirOne(typename C::Data src, typename C::Data* dst, MoxsIIRState* state) {
  return iirOneScaled<C>(src, dst, state, 0);
}

}  // namespace

MOX_EXPORT(moxsIIR_32f, iir<Iir32f>);
MOX_EXPORT_IN_PLACE(moxsIIR_32f_I, iir<Iir32f>);
MOX_EXPORT_BOTH(moxsIIR_32fc, moxsIIR_32fc_I, iir<Iir32fc>);
MOX_EXPORT_BOTH(moxsIIR_64f, moxsIIR_64f_I, iir<Iir64f>);
MOX_EXPORT_BOTH(moxsIIR_64fc, moxsIIR_64fc_I, iir<Iir64fc>);
MOX_EXPORT_BOTH(moxsIIR64f_32f, moxsIIR64f_32f_I, iir<Iir64f32f>);
MOX_EXPORT_BOTH(moxsIIR64fc_32fc, moxsIIR64fc_32fc_I, iir<Iir64fc32fc>);
MOX_EXPORT_BOTH(moxsIIR32f_16s_Sfs, moxsIIR32f_16s_ISfs, iirScaled<Iir32f16s>);
MOX_EXPORT_BOTH(moxsIIR32fc_16sc_Sfs, moxsIIR32fc_16sc_ISfs, iirScaled<Iir32fc16sc>);
MOX_EXPORT_BOTH(moxsIIR32s_16s_Sfs, moxsIIR32s_16s_ISfs, iirScaled<Iir32s16s>);
MOX_EXPORT_BOTH(moxsIIR32sc_16sc_Sfs, moxsIIR32sc_16sc_ISfs, iirScaled<Iir32sc16sc>);
MOX_EXPORT_BOTH(moxsIIR64f_16s_Sfs, moxsIIR64f_16s_ISfs, iirScaled<Iir64f16s>);
MOX_EXPORT_BOTH(moxsIIR64f_32s_Sfs, moxsIIR64f_32s_ISfs, iirScaled<Iir64f32s>);
MOX_EXPORT_BOTH(moxsIIR64fc_16sc_Sfs, moxsIIR64fc_16sc_ISfs, iirScaled<Iir64fc16sc>);
MOX_EXPORT_BOTH(moxsIIR64fc_32sc_Sfs, moxsIIR64fc_32sc_ISfs, iirScaled<Iir64fc32sc>);

MOX_EXPORT(moxsIIROne_32f, iirOne<Iir32f>);
MOX_EXPORT(moxsIIROne_32fc, iirOne<Iir32fc>);
MOX_EXPORT(moxsIIROne_64f, iirOne<Iir64f>);
MOX_EXPORT(moxsIIROne_64fc, iirOne<Iir64fc>);
MOX_EXPORT(moxsIIROne64f_32f, iirOne<Iir64f32f>);
MOX_EXPORT(moxsIIROne64fc_32fc, iirOne<Iir64fc32fc>);
MOX_EXPORT(moxsIIROne32f_16s_Sfs, iirOneScaled<Iir32f16s>);
MOX_EXPORT(moxsIIROne32fc_16sc_Sfs, iirOneScaled<Iir32fc16sc>);
MOX_EXPORT(moxsIIROne32s_16s_Sfs, iirOneScaled<Iir32s16s>);
MOX_EXPORT(moxsIIROne32sc_16sc_Sfs, iirOneScaled<Iir32sc16sc>);
MOX_EXPORT(moxsIIROne64f_16s_Sfs, iirOneScaled<Iir64f16s>);
MOX_EXPORT(moxsIIROne64f_32s_Sfs, iirOneScaled<Iir64f32s>);
MOX_EXPORT(moxsIIROne64fc_16sc_Sfs, iirOneScaled<Iir64fc16sc>);
MOX_EXPORT(moxsIIROne64fc_32sc_Sfs, iirOneScaled<Iir64fc32sc>);

}  // namespace mox::iir
