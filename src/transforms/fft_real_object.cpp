// Objects of the real transforms: the tables of the complex transform of half the length, and the
// two that join its spectrum and the real one.
#include <moxsp/transforms.h>

#include "frame/export.h"
#include "transforms/fft_object.h"
#include "transforms/fft_real_tables.h"

namespace mox {
namespace {

template <class F>
struct RealKind {
  using Float = F;
  static constexpr FftKind id = fftRealId<F>;
  static constexpr int maxOrder = FftLimits<F>::maxComplexOrder + 1;
  static constexpr int maxSmallOrder = fftMaxSmallRealOrder;

  static bool hasComplexTables(int order) { return order - 1 > fftMaxSmallOrder; }

  static FftSizes sizes(int order) {
    FftSizes sizes = hasComplexTables(order) ? fftComplexSizes<F>(order - 1) : FftSizes{0, 0};
    sizes.tables += 2 * fftRoundUp(2 * long(sizeof(F)) * realTwiddleCount<F>(order));
    return sizes;
  }

  static void buildTables(FftSpec<F>& spec, int order, QuarterSine<F> sine, Mox8u* next) {
    if (hasComplexTables(order)) next = fftBuildComplexTables(spec, order - 1, sine, next);
    spec.realFwdTwiddle = reinterpret_cast<F*>(next);
    next = ownFftRealTwiddleFwd(order, sine, spec.realFwdTwiddle);
    spec.realInvTwiddle = reinterpret_cast<F*>(next);
    ownFftRealTwiddleInv(order, sine, spec.realInvTwiddle);
  }
};

}  // namespace

MOX_EXPORT(moxsFFTGetSize_R_32f, fftGetSize<RealKind<Mox32f>>);
MOX_EXPORT(moxsFFTInit_R_32f, fftInit<RealKind<Mox32f>>);
MOX_EXPORT(moxsFFTInitAlloc_R_32f, fftInitAlloc<RealKind<Mox32f>>);
MOX_EXPORT(moxsFFTFree_R_32f, fftFree<RealKind<Mox32f>>);
MOX_EXPORT(moxsFFTGetBufSize_R_32f, fftGetBufSize<RealKind<Mox32f>>);
MOX_EXPORT(moxsFFTGetSize_R_64f, fftGetSize<RealKind<Mox64f>>);
MOX_EXPORT(moxsFFTInit_R_64f, fftInit<RealKind<Mox64f>>);
MOX_EXPORT(moxsFFTInitAlloc_R_64f, fftInitAlloc<RealKind<Mox64f>>);
MOX_EXPORT(moxsFFTFree_R_64f, fftFree<RealKind<Mox64f>>);
MOX_EXPORT(moxsFFTGetBufSize_R_64f, fftGetBufSize<RealKind<Mox64f>>);

}  // namespace mox
