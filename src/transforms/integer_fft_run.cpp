// Transforms of integers, which run those of floats.
#include <moxsp/integer_fft.h>

#include "frame/export.h"
#include "frame/in_place.h"
#include "frame/rounding_control.h"
#include "transforms/fft_run.h"
#include "transforms/integer_fft.h"
#include "transforms/integer_fft_mid.h"
#include "transforms/integer_run.h"
#include "transforms/packed_layouts.h"
#include "transforms/transform_call.h"

namespace mox::transforms {
namespace {

// body(spec, n, area, work) runs on the object of floats, with memory for the numbers as floats.
template <class Kind, class Source, class Target, class Body>
MoxStatus checked(Source src, Target dst, const MoxsFFTSpec* object, Mox8u* buffer, Body body) {
  using F = typename Kind::Float;
  if (MoxStatus s = checkCall(object, Kind::id, src.anyNull() || dst.anyNull())) return s;
  const int order = object->order;
  if (!Kind::hasArea(order)) return moxErrMemAlloc;
  const WorkBuffer memory(buffer, object->bufSize);
  if (memory.failed()) return moxErrMemAlloc;
  if (Kind::isBare(order)) {
    F area[3];  // of the two places of a CCS spectrum, or of a real number and one to spare
    body(FftSpec<F>{}, 1, area, static_cast<F*>(nullptr));
  } else {
    F* const area = memory.as<F>();
    body(*static_cast<const IntegerFftSpec<F>*>(object)->floats, 1L << order, area,
         area + Kind::areaBytes(order) / long(sizeof(F)));
  }
  return moxOk;
}

template <class E>
Array<const E> constant(Array<E> a) {
  return {a.p};
}
template <class F>
Split<const F> constant(Split<F> a) {
  return {a.re, a.im};
}

template <Direction d, class Kind, class View>
MoxStatus run(typename View::Const src, View dst, const MoxsFFTSpec* object, int scaleFactor,
              Mox8u* buffer) {
  const auto body = [=](const auto& spec, long n, auto* area, auto* work) {
    if constexpr (std::is_same_v<View, Array<Mox16sc>>)
      if (isForWords(spec.order, scaleFactor))
        return ownFftWords<d>(spec, src.p, dst.p, scaleFactor, work);
    integerRun(src, n, dst, n, scaleFactor, area,
               [&](auto data) { ownFftRun<d>(spec, constant(data), data, spec.order, work); });
  };
  return checked<Kind>(src, dst, object, buffer, body);
}

template <Direction d, class C>
MoxStatus transform(const C* src, C* dst, const MoxsFFTSpec* spec, int scaleFactor, Mox8u* buffer) {
  using Kind = std::conditional_t<std::is_same_v<C, Mox16sc>, C16sc, C32sc>;
  return run<d, Kind, Array<C>>({src}, {dst}, spec, scaleFactor, buffer);
}

template <Direction d, class T>
MoxStatus transformSplit(const T* srcRe, const T* srcIm, T* dstRe, T* dstIm,
                         const MoxsFFTSpec* spec, int scaleFactor, Mox8u* buffer) {
  using Kind = std::conditional_t<std::is_same_v<T, Mox16s>, C16s, C32s>;
  return run<d, Kind, Split<T>>({srcRe, srcIm}, {dstRe, dstIm}, spec, scaleFactor, buffer);
}
template <Direction d, class T>
MoxStatus transformSplitInPlace(T* srcDstRe, T* srcDstIm, const MoxsFFTSpec* spec, int scaleFactor,
                                Mox8u* buffer) {
  return transformSplit<d>(srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, scaleFactor, buffer);
}

// By the types of samples and of their spectrum.
template <class T, class S>
using RealKindFor = std::conditional_t<!std::is_same_v<T, S>, R16s32s,
                                       std::conditional_t<std::is_same_v<T, Mox16s>, R16s, R32s>>;

template <PackedLayout Layout, class T, class S>
MoxStatus forward(const T* src, S* dst, const MoxsFFTSpec* object, int scaleFactor, Mox8u* buffer) {
  const Array<const T> from{src};
  const Array<S> to{dst};
  return checked<RealKindFor<T, S>>(
      from, to, object, buffer, [=](const auto& spec, long n, auto* area, auto* work) {
        integerRun(from, n, to, Layout::places(n), scaleFactor, area, [&](auto data) {
          runRealForward(spec, data.p, data.p, work);
          fromPerm<Layout>(data.p, n);
        });
      });
}

template <PackedLayout Layout, class S, class T>
MoxStatus inverse(const S* src, T* dst, const MoxsFFTSpec* object, int scaleFactor, Mox8u* buffer) {
  const Array<const S> from{src};
  const Array<T> to{dst};
  return checked<RealKindFor<T, S>>(
      from, to, object, buffer, [=](const auto& spec, long n, auto* area, auto* work) {
        integerRun(from, Layout::places(n), to, n, scaleFactor, area, [&](auto data) {
          toPerm<Layout>(data.p, data.p, n);
          runRealInverse(spec, data.p, data.p, work);
        });
      });
}

}  // namespace

MOX_EXPORT_BOTH(moxsFFTFwd_CToC_16sc_Sfs, moxsFFTFwd_CToC_16sc_ISfs, transform<fwd>);
MOX_EXPORT_BOTH(moxsFFTInv_CToC_16sc_Sfs, moxsFFTInv_CToC_16sc_ISfs, transform<inv>);
MOX_EXPORT_BOTH(moxsFFTFwd_CToC_32sc_Sfs, moxsFFTFwd_CToC_32sc_ISfs, transform<fwd>);
MOX_EXPORT_BOTH(moxsFFTInv_CToC_32sc_Sfs, moxsFFTInv_CToC_32sc_ISfs, transform<inv>);
MOX_EXPORT(moxsFFTFwd_CToC_16s_Sfs, transformSplit<fwd>);
MOX_EXPORT(moxsFFTInv_CToC_16s_Sfs, transformSplit<inv>);
MOX_EXPORT(moxsFFTFwd_CToC_32s_Sfs, transformSplit<fwd>);
MOX_EXPORT(moxsFFTInv_CToC_32s_Sfs, transformSplit<inv>);
MOX_EXPORT(moxsFFTFwd_CToC_16s_ISfs, transformSplitInPlace<fwd>);
MOX_EXPORT(moxsFFTInv_CToC_16s_ISfs, transformSplitInPlace<inv>);
MOX_EXPORT(moxsFFTFwd_CToC_32s_ISfs, transformSplitInPlace<fwd>);
MOX_EXPORT(moxsFFTInv_CToC_32s_ISfs, transformSplitInPlace<inv>);

MOX_EXPORT_BOTH(moxsFFTFwd_RToPerm_16s_Sfs, moxsFFTFwd_RToPerm_16s_ISfs, forward<PermLayout>);
MOX_EXPORT_BOTH(moxsFFTFwd_RToPack_16s_Sfs, moxsFFTFwd_RToPack_16s_ISfs, forward<PackLayout>);
MOX_EXPORT_BOTH(moxsFFTFwd_RToCCS_16s_Sfs, moxsFFTFwd_RToCCS_16s_ISfs, forward<CcsLayout>);
MOX_EXPORT_BOTH(moxsFFTFwd_RToCCS_32s_Sfs, moxsFFTFwd_RToCCS_32s_ISfs, forward<CcsLayout>);
MOX_EXPORT(moxsFFTFwd_RToCCS_16s32s_Sfs, forward<CcsLayout>);
MOX_EXPORT_BOTH(moxsFFTInv_PermToR_16s_Sfs, moxsFFTInv_PermToR_16s_ISfs, inverse<PermLayout>);
MOX_EXPORT_BOTH(moxsFFTInv_PackToR_16s_Sfs, moxsFFTInv_PackToR_16s_ISfs, inverse<PackLayout>);
MOX_EXPORT_BOTH(moxsFFTInv_CCSToR_16s_Sfs, moxsFFTInv_CCSToR_16s_ISfs, inverse<CcsLayout>);
MOX_EXPORT_BOTH(moxsFFTInv_CCSToR_32s_Sfs, moxsFFTInv_CCSToR_32s_ISfs, inverse<CcsLayout>);
MOX_EXPORT(moxsFFTInv_CCSToR_32s16s_Sfs, inverse<CcsLayout>);

}  // namespace mox::transforms
