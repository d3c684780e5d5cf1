// The forms without a state: sample by sample through a ring that the caller holds.
#include <moxsp/fir_direct.h>

#include "fir/fir_single.h"
#include "frame/checks.h"
#include "frame/export.h"
#include "frame/in_place.h"
#include "kernels/dot.h"
#include "kernels/ring.h"
#include "kernels/wrapping_dot.h"

namespace mox::fir {
namespace {

// Sums of the caller's taps, as they are.
template <class C>
struct Products {
  // Single-precision data with taps of its kind is summed in double precision here.
  using Wide =
      std::conditional_t<std::is_same_v<typename C::Data, Mox32f>, Mox64f, typename C::Sum>;

  Products(const typename C::Tap* taps, int tapsLen, int) : taps_(taps), tapsLen_(tapsLen) {}
  int factor() const { return 0; }
  typename C::Sum operator()(const typename C::Data* window) const {
    return typename C::Sum(
        kernels::dotProduct<Wide, kernels::TapOrder::forward>(window, taps_, tapsLen_));
  }

 private:
  const typename C::Tap* taps_;
  long tapsLen_;
};

// Fixed-point taps are shifted on their way.
template <class C>
requires(!isFloating<C>) class Products<C> {
 public:
  Products(const typename C::Tap* taps, int tapsLen, int tapsFactor)
      : scale_(tapScale<C>(taps, tapsLen, tapsFactor)),
        taps_(taps, tapsLen, scale_.shift()),
        tapsLen_(tapsLen) {}
  int factor() const { return scale_.factor(); }
  typename C::Sum operator()(const typename C::Data* window) const {
    return kernels::wrappingDot(window, taps_, tapsLen_);
  }

 private:
  TapScale<Part<typename C::Tap>> scale_;
  kernels::WordTaps<kernels::TapOrder::forward, typename C::Tap> taps_;
  long tapsLen_;
};

MoxStatus checkDirect(const void* src, const void* dst, int len, const void* taps, int tapsLen,
                      const void* dlyLine, const int* dlyLineIndex) {
  if (anyNull(src, dst)) return moxErrNullPtr;
  if (MoxStatus e = checkLength(len)) return e;
  if (anyNull(taps)) return moxErrNullPtr;
  if (tapsLen < 1) return moxErrFirLen;
  return anyNull(dlyLine, dlyLineIndex) ? MoxStatus(moxErrNullPtr) : moxOk;
}

template <class C>
MoxStatus firDirectWithFactor(const typename C::Data* src, typename C::Data* dst, int len,
                              const typename C::Tap* taps, int tapsLen, int tapsFactor,
                              typename C::Data* dlyLine, int* dlyLineIndex, int scaleFactor) {
  using D = typename C::Data;
  if (MoxStatus e = checkDirect(src, dst, len, taps, tapsLen, dlyLine, dlyLineIndex)) return e;
  int index = kernels::ringPlace(load<int>(dlyLineIndex), tapsLen);
  const Products<C> products(taps, tapsLen, tapsFactor);
  const Output<C> output(products.factor(), scaleFactor, SumRounding::nearEven);
  for (int i = 0; i < len; ++i) {
    const auto sum = products(kernels::pushSample(dlyLine, index, tapsLen, load<D>(src + i)));
    output(&sum, dst + i, 1);
  }
  store(dlyLineIndex, index);
  return moxOk;
}
template <class C>
MoxStatus firDirectScaled(const typename C::Data* src, typename C::Data* dst, int len,
                          const typename C::Tap* taps, int tapsLen, typename C::Data* dlyLine,
                          int* dlyLineIndex, int scaleFactor) {
  return firDirectWithFactor<C>(src, dst, len, taps, tapsLen, 0, dlyLine, dlyLineIndex,
                                scaleFactor);
}
// Floats have no scale factor.
template <class C>
MoxStatus firDirect(const typename C::Data* src, typename C::Data* dst, int len,
                    const typename C::Tap* taps, int tapsLen, typename C::Data* dlyLine,
                    int* dlyLineIndex) {
  return firDirectScaled<C>(src, dst, len, taps, tapsLen, dlyLine, dlyLineIndex, 0);
}

// The forms with 16-bit taps, which look at the index. A block goes through a state.
MoxStatus checkDirect16s(const void* src, const void* dst, int len, const void* taps, int tapsLen,
                         const void* dlyLine, const int* dlyLineIndex) {
  if (MoxStatus e = checkDirect(src, dst, len, taps, tapsLen, dlyLine, dlyLineIndex)) return e;
  const int index = load<int>(dlyLineIndex);
  return index < 0 || index >= tapsLen ? MoxStatus(moxErrDlyLineIndex) : moxOk;
}
MoxStatus firDirect16s(const Mox16s* src, Mox16s* dst, int len, const Mox16s* taps, int tapsLen,
                       Mox16s* dlyLine, int* dlyLineIndex, int scaleFactor) {
  using C = FirDirect16s;
  if (MoxStatus e = checkDirect16s(src, dst, len, taps, tapsLen, dlyLine, dlyLineIndex)) return e;
  MoxsFIRState* state;
  if (MoxStatus e = initAllocFrom<C>(&state, {taps, tapsLen, nullptr, C::tapsFactor})) return e;
  auto& store = stateOf<C>(state).store;
  store.takeIn(dlyLine + load<int>(dlyLineIndex), tapsLen);
  runSingle<C>(state, src, dst, len, scaleFactor);
  for (Mox16s* copy : {dlyLine, dlyLine + tapsLen}) convert::takeIn(store.history(), copy, tapsLen);
  mox::store(dlyLineIndex, 0);
  moxFree(state);
  return moxOk;
}
MoxStatus firOneDirect16s(const Mox16s* src, Mox16s* dst, int len, const Mox16s* taps, int tapsLen,
                          Mox16s* dlyLine, int* dlyLineIndex, int scaleFactor) {
  if (MoxStatus e = checkDirect16s(src, dst, len, taps, tapsLen, dlyLine, dlyLineIndex)) return e;
  return firDirectWithFactor<FirDirect16s>(src, dst, len, taps, tapsLen, FirDirect16s::tapsFactor,
                                           dlyLine, dlyLineIndex, scaleFactor);
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
MOX_EXPORT_IN_PLACE(moxsFIR_Direct_32f_I, firDirect<Fir32f>);
MOX_EXPORT_BOTH(moxsFIR_Direct_32fc, moxsFIR_Direct_32fc_I, firDirect<Fir32fc>);
MOX_EXPORT_BOTH(moxsFIR_Direct_64f, moxsFIR_Direct_64f_I, firDirect<Fir64f>);
MOX_EXPORT_BOTH(moxsFIR_Direct_64fc, moxsFIR_Direct_64fc_I, firDirect<Fir64fc>);
MOX_EXPORT_BOTH(moxsFIR64f_Direct_32f, moxsFIR64f_Direct_32f_I, firDirect<Fir64f32f>);
MOX_EXPORT_BOTH(moxsFIR64fc_Direct_32fc, moxsFIR64fc_Direct_32fc_I, firDirect<Fir64fc32fc>);
MOX_EXPORT_BOTH(moxsFIR32f_Direct_16s_Sfs, moxsFIR32f_Direct_16s_ISfs, firDirectScaled<Fir32f16s>);
MOX_EXPORT_BOTH(moxsFIR32fc_Direct_16sc_Sfs, moxsFIR32fc_Direct_16sc_ISfs,
                firDirectScaled<Fir32fc16sc>);
MOX_EXPORT_BOTH(moxsFIR64f_Direct_16s_Sfs, moxsFIR64f_Direct_16s_ISfs, firDirectScaled<Fir64f16s>);
MOX_EXPORT_BOTH(moxsFIR64fc_Direct_16sc_Sfs, moxsFIR64fc_Direct_16sc_ISfs,
                firDirectScaled<Fir64fc16sc>);
MOX_EXPORT_BOTH(moxsFIR64f_Direct_32s_Sfs, moxsFIR64f_Direct_32s_ISfs, firDirectScaled<Fir64f32s>);
MOX_EXPORT_BOTH(moxsFIR64fc_Direct_32sc_Sfs, moxsFIR64fc_Direct_32sc_ISfs,
                firDirectScaled<Fir64fc32sc>);
MOX_EXPORT_BOTH(moxsFIR32s_Direct_16s_Sfs, moxsFIR32s_Direct_16s_ISfs,
                firDirectWithFactor<Fir32s16s>);
MOX_EXPORT_BOTH(moxsFIR32sc_Direct_16sc_Sfs, moxsFIR32sc_Direct_16sc_ISfs,
                firDirectWithFactor<Fir32sc16sc>);
MOX_EXPORT_BOTH(moxsFIR_Direct_16s_Sfs, moxsFIR_Direct_16s_ISfs, firDirect16s);

MOX_EXPORT(moxsFIROne_Direct_32f, oneSample<firDirect<Fir32f>>);
MOX_EXPORT(moxsFIROne_Direct_32f_I, oneSampleInPlace<firDirect<Fir32f>>);
MOX_EXPORT(moxsFIROne_Direct_32fc, oneSample<firDirect<Fir32fc>>);
MOX_EXPORT(moxsFIROne_Direct_32fc_I, oneSampleInPlace<firDirect<Fir32fc>>);
MOX_EXPORT(moxsFIROne_Direct_64f, oneSample<firDirect<Fir64f>>);
MOX_EXPORT(moxsFIROne_Direct_64f_I, oneSampleInPlace<firDirect<Fir64f>>);
MOX_EXPORT(moxsFIROne_Direct_64fc, oneSample<firDirect<Fir64fc>>);
MOX_EXPORT(moxsFIROne_Direct_64fc_I, oneSampleInPlace<firDirect<Fir64fc>>);
MOX_EXPORT(moxsFIROne64f_Direct_32f, oneSample<firDirect<Fir64f32f>>);
MOX_EXPORT(moxsFIROne64f_Direct_32f_I, oneSampleInPlace<firDirect<Fir64f32f>>);
MOX_EXPORT(moxsFIROne64fc_Direct_32fc, oneSample<firDirect<Fir64fc32fc>>);
MOX_EXPORT(moxsFIROne64fc_Direct_32fc_I, oneSampleInPlace<firDirect<Fir64fc32fc>>);
MOX_EXPORT(moxsFIROne32f_Direct_16s_Sfs, oneSample<firDirectScaled<Fir32f16s>>);
MOX_EXPORT(moxsFIROne32f_Direct_16s_ISfs, oneSampleInPlace<firDirectScaled<Fir32f16s>>);
MOX_EXPORT(moxsFIROne32fc_Direct_16sc_Sfs, oneSample<firDirectScaled<Fir32fc16sc>>);
MOX_EXPORT(moxsFIROne32fc_Direct_16sc_ISfs, oneSampleInPlace<firDirectScaled<Fir32fc16sc>>);
MOX_EXPORT(moxsFIROne64f_Direct_16s_Sfs, oneSample<firDirectScaled<Fir64f16s>>);
MOX_EXPORT(moxsFIROne64f_Direct_16s_ISfs, oneSampleInPlace<firDirectScaled<Fir64f16s>>);
MOX_EXPORT(moxsFIROne64fc_Direct_16sc_Sfs, oneSample<firDirectScaled<Fir64fc16sc>>);
MOX_EXPORT(moxsFIROne64fc_Direct_16sc_ISfs, oneSampleInPlace<firDirectScaled<Fir64fc16sc>>);
MOX_EXPORT(moxsFIROne64f_Direct_32s_Sfs, oneSample<firDirectScaled<Fir64f32s>>);
MOX_EXPORT(moxsFIROne64f_Direct_32s_ISfs, oneSampleInPlace<firDirectScaled<Fir64f32s>>);
MOX_EXPORT(moxsFIROne64fc_Direct_32sc_Sfs, oneSample<firDirectScaled<Fir64fc32sc>>);
MOX_EXPORT(moxsFIROne64fc_Direct_32sc_ISfs, oneSampleInPlace<firDirectScaled<Fir64fc32sc>>);
MOX_EXPORT(moxsFIROne32s_Direct_16s_Sfs, oneSample<firDirectWithFactor<Fir32s16s>>);
MOX_EXPORT(moxsFIROne32s_Direct_16s_ISfs, oneSampleInPlace<firDirectWithFactor<Fir32s16s>>);
MOX_EXPORT(moxsFIROne32sc_Direct_16sc_Sfs, oneSample<firDirectWithFactor<Fir32sc16sc>>);
MOX_EXPORT(moxsFIROne32sc_Direct_16sc_ISfs, oneSampleInPlace<firDirectWithFactor<Fir32sc16sc>>);
MOX_EXPORT(moxsFIROne_Direct_16s_Sfs, oneSample<firOneDirect16s>);
MOX_EXPORT(moxsFIROne_Direct_16s_ISfs, oneSampleInPlace<firOneDirect16s>);

}  // namespace mox::fir
