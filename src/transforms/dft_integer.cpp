// Transforms of 16-bit vectors of any length, through those of floats.
#include <moxsp/dft.h>

#include "frame/export.h"
#include "transforms/dft_object.h"
#include "transforms/dft_run.h"
#include "transforms/integer_run.h"
#include "transforms/packed_layouts.h"

namespace mox::transforms {
namespace {

struct DftIntegerSpec : MoxsDFTSpec {
  DftSpec<Mox32f>* plan;
};

template <DftKind kind, bool real>
struct IntegerKind {
  using Head = MoxsDFTSpec;
  using Record = DftIntegerSpec;
  struct Shape {
    DftShape<Mox32f> floats;
    void layout(Arena& arena, DftIntegerSpec& spec) const {
      spec.plan = placeRecord<DftSpec<Mox32f>>(arena, floats);
    }
  };
  static constexpr DftKind id = kind;
  static constexpr bool isReal = real;
  static constexpr int alignment = fftAlignment;
  static constexpr bool releaseClearsId = true;
};
using C16sc = IntegerKind<dftComplex16sc, false>;
using C16s = IntegerKind<dftComplex16s, false>;
using R16s = IntegerKind<dftReal16s, true>;

template <class Kind>
MoxStatus initAlloc(MoxsDFTSpec** object, int len, int flag, int hint) {
  if (anyNull(object)) return moxErrNullPtr;
  const DftShape<Mox32f> floats{len, Kind::isReal};
  if (MoxStatus s = checkDft(floats, flag)) return s;
  const long area = (Kind::isReal ? 1 : 2) * long(sizeof(Mox32f)) * len + 64;
  const long bufSize = floats.sizes().work + area;
  if (bufSize > INT_MAX) return moxErrSize;
  return mox::initAlloc<Kind>(object, Kind::id, {floats}, [&](DftIntegerSpec& spec) {
    spec.len = len;
    spec.hint = hint;
    spec.bufSize = Mox32s(bufSize);
    return fillWithScratch(*spec.plan, floats, flag, hint);
  });
}

// What has as many places as there are samples.
struct Samples {
  static constexpr long places(long n) { return n; }
};

// run(plan, view, work) transforms the data as floats in place. The area behind the work memory of
// the floating plan holds them.
template <DftKind kind, class From, class To, class Source, class Target, class Run>
MoxStatus runIntegers(Source src, Target dst, const MoxsDFTSpec* memory, int scaleFactor,
                      Mox8u* buffer, Run run) {
  return runDft<DftIntegerSpec, Mox32f>(memory, kind, src.anyNull() || dst.anyNull(), buffer,
                                        [=](const DftIntegerSpec& spec, Mox32f* work) {
                                          const DftSpec<Mox32f>& plan = *spec.plan;
                                          integerRun(src, From::places(plan.len), dst,
                                                     To::places(plan.len), scaleFactor,
                                                     work + plan.bufSize / int(sizeof(Mox32f)),
                                                     [&](auto view) { run(plan, view, work); });
                                        });
}

template <Direction d>
MoxStatus transform(const Mox16sc* src, Mox16sc* dst, const MoxsDFTSpec* spec, int scaleFactor,
                    Mox8u* buffer) {
  return runIntegers<dftComplex16sc, Samples, Samples>(
      Array<const Mox16sc>{src}, Array<Mox16sc>{dst}, spec, scaleFactor, buffer,
      [](const DftSpec<Mox32f>& plan, Array<Mox32fc> data, Mox32f* work) {
        ownDftRun<d>(plan, {data.p}, data, work);
      });
}
template <Direction d>
MoxStatus transformSplit(const Mox16s* srcRe, const Mox16s* srcIm, Mox16s* dstRe, Mox16s* dstIm,
                         const MoxsDFTSpec* spec, int scaleFactor, Mox8u* buffer) {
  return runIntegers<dftComplex16s, Samples, Samples>(
      Split<const Mox16s>{srcRe, srcIm}, Split<Mox16s>{dstRe, dstIm}, spec, scaleFactor, buffer,
      [](const DftSpec<Mox32f>& plan, Split<Mox32f> data, Mox32f* work) {
        ownDftRun<d>(plan, {data.re, data.im}, data, work);
      });
}
template <PackedLayout Layout>
MoxStatus forward(const Mox16s* src, Mox16s* dst, const MoxsDFTSpec* spec, int scaleFactor,
                  Mox8u* buffer) {
  return runIntegers<dftReal16s, Samples, Layout>(
      Array<const Mox16s>{src}, Array<Mox16s>{dst}, spec, scaleFactor, buffer,
      [](const DftSpec<Mox32f>& plan, Array<Mox32f> data, Mox32f* work) {
        ownDftRealForward<Layout>(plan, data.p, data.p, work);
      });
}
template <PackedLayout Layout>
MoxStatus inverse(const Mox16s* src, Mox16s* dst, const MoxsDFTSpec* spec, int scaleFactor,
                  Mox8u* buffer) {
  return runIntegers<dftReal16s, Layout, Samples>(
      Array<const Mox16s>{src}, Array<Mox16s>{dst}, spec, scaleFactor, buffer,
      [](const DftSpec<Mox32f>& plan, Array<Mox32f> data, Mox32f* work) {
        ownDftRealInverse<Layout>(plan, data.p, data.p, work);
      });
}

}  // namespace

MOX_EXPORT(moxsDFTInitAlloc_C_16sc, initAlloc<C16sc>);
MOX_EXPORT(moxsDFTInitAlloc_C_16s, initAlloc<C16s>);
MOX_EXPORT(moxsDFTInitAlloc_R_16s, initAlloc<R16s>);
MOX_EXPORT(moxsDFTFree_C_16sc, freeDft<C16sc>);
MOX_EXPORT(moxsDFTFree_C_16s, freeDft<C16s>);
MOX_EXPORT(moxsDFTFree_R_16s, freeDft<R16s>);
MOX_EXPORT(moxsDFTGetBufSize_C_16sc, getDftBufSize<C16sc>);
MOX_EXPORT(moxsDFTGetBufSize_C_16s, getDftBufSize<C16s>);
MOX_EXPORT(moxsDFTGetBufSize_R_16s, getDftBufSize<R16s>);
MOX_EXPORT(moxsDFTFwd_CToC_16sc_Sfs, transform<fwd>);
MOX_EXPORT(moxsDFTInv_CToC_16sc_Sfs, transform<inv>);
MOX_EXPORT(moxsDFTFwd_CToC_16s_Sfs, transformSplit<fwd>);
MOX_EXPORT(moxsDFTInv_CToC_16s_Sfs, transformSplit<inv>);
MOX_EXPORT(moxsDFTFwd_RToPerm_16s_Sfs, forward<PermLayout>);
MOX_EXPORT(moxsDFTFwd_RToPack_16s_Sfs, forward<PackLayout>);
MOX_EXPORT(moxsDFTFwd_RToCCS_16s_Sfs, forward<CcsLayout>);
MOX_EXPORT(moxsDFTInv_PermToR_16s_Sfs, inverse<PermLayout>);
MOX_EXPORT(moxsDFTInv_PackToR_16s_Sfs, inverse<PackLayout>);
MOX_EXPORT(moxsDFTInv_CCSToR_16s_Sfs, inverse<CcsLayout>);

}  // namespace mox::transforms
