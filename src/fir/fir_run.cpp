// Blocks of samples. What runs is chosen by the identifier of the state.
#include "fir/fir_multirate.h"
#include "fir/fir_single.h"
#include "fir/fir_stream.h"
#include "frame/checks.h"
#include "frame/export.h"
#include "frame/in_place.h"

namespace mox::fir {
namespace {

// The states that a combination's functions run, and how.
template <class C>
struct Run {
  Mox32s id;
  MoxStatus (*run)(MoxsFIRState* state, const typename C::Data* src, typename C::Data* dst,
                   long len, int scaleFactor);
};
template <class C>
constexpr Run<C> runs[] = {{C::ids.single, runSingle<C>}, {C::ids.multirate, runMultirate<C>}};
template <>
constexpr Run<Fir32f> runs<Fir32f>[] = {{Fir32f::ids.single, runSingle<Fir32f>},
                                        {Fir32f::ids.multirate, runMultirate<Fir32f>},
                                        {Fir32f::ids.stream, runStream32f},
                                        {Fir32f::ids.streamMultirate, runStreamMultirate32f}};
template <>
constexpr Run<Fir16s> runs<Fir16s>[] = {{Fir16s::ids.single, runSingle<Fir16s>},
                                        {Fir16s::ids.multirate, runMultirate<Fir16s>},
                                        {Fir16s::ids.stream, runStream16s},
                                        {Fir16s::ids.streamMultirate, runStreamMultirate16s}};

template <class C>
MoxStatus firScaled(const typename C::Data* src, typename C::Data* dst, int len,
                    MoxsFIRState* state, int scaleFactor) {
  if (MoxStatus e = checkArrays(len, state, src, dst)) return e;
  for (const Run<C>& run : runs<C>)
    if (isOneOf(state, run.id)) return run.run(state, src, dst, len, scaleFactor);
  return moxErrContext;
}

template <class C>
MoxStatus fir(const typename C::Data* src, typename C::Data* dst, int len, MoxsFIRState* state) {
  return firScaled<C>(src, dst, len, state, 0);
}

}  // namespace

MOX_EXPORT(moxsFIR_32f, fir<Fir32f>);
MOX_EXPORT_IN_PLACE(moxsFIR_32f_I, fir<Fir32f>);
MOX_EXPORT_BOTH(moxsFIR_32fc, moxsFIR_32fc_I, fir<Fir32fc>);
MOX_EXPORT_BOTH(moxsFIR_64f, moxsFIR_64f_I, fir<Fir64f>);
MOX_EXPORT_BOTH(moxsFIR_64fc, moxsFIR_64fc_I, fir<Fir64fc>);
MOX_EXPORT_BOTH(moxsFIR64f_32f, moxsFIR64f_32f_I, fir<Fir64f32f>);
MOX_EXPORT_BOTH(moxsFIR64fc_32fc, moxsFIR64fc_32fc_I, fir<Fir64fc32fc>);
MOX_EXPORT_BOTH(moxsFIR32f_16s_Sfs, moxsFIR32f_16s_ISfs, firScaled<Fir32f16s>);
MOX_EXPORT_BOTH(moxsFIR32fc_16sc_Sfs, moxsFIR32fc_16sc_ISfs, firScaled<Fir32fc16sc>);
MOX_EXPORT_BOTH(moxsFIR64f_16s_Sfs, moxsFIR64f_16s_ISfs, firScaled<Fir64f16s>);
MOX_EXPORT_BOTH(moxsFIR64fc_16sc_Sfs, moxsFIR64fc_16sc_ISfs, firScaled<Fir64fc16sc>);
MOX_EXPORT_BOTH(moxsFIR64f_32s_Sfs, moxsFIR64f_32s_ISfs, firScaled<Fir64f32s>);
MOX_EXPORT_BOTH(moxsFIR64fc_32sc_Sfs, moxsFIR64fc_32sc_ISfs, firScaled<Fir64fc32sc>);
MOX_EXPORT_BOTH(moxsFIR_32s_Sfs, moxsFIR_32s_ISfs, firScaled<Fir64f32s>);
MOX_EXPORT_BOTH(moxsFIR_16s_Sfs, moxsFIR_16s_ISfs, firScaled<Fir16s>);
MOX_EXPORT_BOTH(moxsFIR32s_16s_Sfs, moxsFIR32s_16s_ISfs, firScaled<Fir32s16s>);
MOX_EXPORT_BOTH(moxsFIR32sc_16sc_Sfs, moxsFIR32sc_16sc_ISfs, firScaled<Fir32sc16sc>);

}  // namespace mox::fir
