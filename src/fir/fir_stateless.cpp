// The forms without a state: sample by sample through a ring that the caller holds.
#include <moxsp/fir.h>

#include "convert/samples.h"
#include "fir/fir_combination.h"
#include "frame/checks.h"
#include "frame/export.h"
#include "frame/in_place.h"
#include "kernels/dot.h"
#include "kernels/ring.h"

namespace mox::fir {
namespace {

// Single-precision data is summed in double precision here.
template <class C>
using Wide = std::conditional_t<std::is_same_v<typename C::Data, Mox32f>, Mox64f, typename C::Sum>;

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
    const D* window = kernels::pushSample(dlyLine, index, tapsLen, load<D>(src + i));
    const auto sum = typename C::Sum(
        kernels::dotProduct<Wide<C>, kernels::TapOrder::forward>(window, taps, tapsLen));
    convert::giveOut(&sum, dst + i, 1, scaleFactor);
  }
  store(dlyLineIndex, index);
  return moxOk;
}

// Floats have no scale factor.
template <class C>
MoxStatus firDirect(const typename C::Data* src, typename C::Data* dst, int len,
                    const typename C::Tap* taps, int tapsLen, typename C::Data* dlyLine,
                    int* dlyLineIndex) {
  return firDirectScaled<C>(src, dst, len, taps, tapsLen, dlyLine, dlyLineIndex, 0);
}

// The forms of a body that take one sample.
template <auto body, class = decltype(body)>
struct OneSample;
template <auto body, class E, class... Rest>
struct OneSample<body, MoxStatus (*)(const E*, E*, int, Rest...)> {
  static MoxStatus run(E src, E* dst, Rest... rest) { return body(&src, dst, 1, rest...); }
  static MoxStatus runInPlace(E* srcDst, Rest... rest) { return body(srcDst, srcDst, 1, rest...); }
};
template <auto body>
constexpr auto oneSample = OneSample<body>::run;
template <auto body>
constexpr auto oneSampleInPlace = OneSample<body>::runInPlace;

}  // namespace

MOX_EXPORT(moxsFIR_Direct_32f, firDirect<Fir32f>);
MOX_EXPORT(moxsFIR_Direct_32fc, firDirect<Fir32fc>);
MOX_EXPORT(moxsFIR_Direct_64f, firDirect<Fir64f>);
MOX_EXPORT(moxsFIR_Direct_64fc, firDirect<Fir64fc>);
MOX_EXPORT(moxsFIR_Direct_32f_I, inPlace<firDirect<Fir32f>>);
MOX_EXPORT(moxsFIR_Direct_32fc_I, inPlace<firDirect<Fir32fc>>);
MOX_EXPORT(moxsFIR_Direct_64f_I, inPlace<firDirect<Fir64f>>);
MOX_EXPORT(moxsFIR_Direct_64fc_I, inPlace<firDirect<Fir64fc>>);
MOX_EXPORT(moxsFIROne_Direct_32f, oneSample<firDirect<Fir32f>>);
MOX_EXPORT(moxsFIROne_Direct_32fc, oneSample<firDirect<Fir32fc>>);
MOX_EXPORT(moxsFIROne_Direct_64f, oneSample<firDirect<Fir64f>>);
MOX_EXPORT(moxsFIROne_Direct_64fc, oneSample<firDirect<Fir64fc>>);
MOX_EXPORT(moxsFIROne_Direct_32f_I, oneSampleInPlace<firDirect<Fir32f>>);
MOX_EXPORT(moxsFIROne_Direct_32fc_I, oneSampleInPlace<firDirect<Fir32fc>>);
MOX_EXPORT(moxsFIROne_Direct_64f_I, oneSampleInPlace<firDirect<Fir64f>>);
MOX_EXPORT(moxsFIROne_Direct_64fc_I, oneSampleInPlace<firDirect<Fir64fc>>);
MOX_EXPORT(moxsFIR32f_Direct_16s_Sfs, firDirectScaled<Fir32f16s>);
MOX_EXPORT(moxsFIR32f_Direct_16s_ISfs, inPlace<firDirectScaled<Fir32f16s>>);
MOX_EXPORT(moxsFIROne32f_Direct_16s_Sfs, oneSample<firDirectScaled<Fir32f16s>>);
MOX_EXPORT(moxsFIROne32f_Direct_16s_ISfs, oneSampleInPlace<firDirectScaled<Fir32f16s>>);

}  // namespace mox::fir
