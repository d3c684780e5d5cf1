// Transforms of real signals: the complex transform of half the length over pairs of samples, and
// the pass that separates the spectra of even and odd samples.
#include <moxsp/transforms.h>

#include <type_traits>

#include "frame/export.h"
#include "frame/in_place.h"
#include "frame/work_buffer.h"
#include "transforms/fft_real_post.h"
#include "transforms/fft_run.h"
#include "transforms/packed_layouts.h"
#include "transforms/real_small.h"
#include "transforms/transform_call.h"

namespace mox::transforms {
namespace {

template <class F>
void runSmall(const RealKernels<F>& kernels, const FftSpec<F>& spec, bool scaled, const F* src,
              F* dst) {
  (scaled ? kernels.scaled : kernels.plain)[spec.order](src, dst, spec.normFactor);
}

// Pairs of samples as complex numbers.
template <Direction d, class F>
void runOnPairs(const FftSpec<F>& spec, const F* src, F* dst, F* work) {
  using C = ComplexOf<F>;
  ownFftRun<d, Array<C>>(spec, {reinterpret_cast<const C*>(src)}, {reinterpret_cast<C*>(dst)},
                         spec.order - 1, work);
}

template <PackedLayout Layout, class F>
void runForward(const FftSpec<F>& spec, const F* src, F* dst, F* work) {
  const long n = 1L << spec.order;
  if (spec.order <= fftMaxSmallRealOrder) {
    runSmall(realKernelsFwd<F>, spec, spec.fwdNorm, src, dst);
  } else {
    runOnPairs<Direction::forward>(spec, src, dst, work);
    storeEnds(dst, load<F>(dst), load<F>(dst + 1));
    ownFftRealPost(dst, n / 2, spec.realFwdTwiddle);
  }
  if constexpr (!std::is_same_v<Layout, PermLayout>) fromPerm<Layout>(dst, n);
}

template <PackedLayout Layout, class F>
void runInverse(const FftSpec<F>& spec, const F* src, F* dst, F* work) {
  const long n = 1L << spec.order;
  if (spec.order <= fftMaxSmallRealOrder) {
    constexpr bool isPerm = std::is_same_v<Layout, PermLayout>;
    if constexpr (!isPerm) toPerm<Layout>(src, dst, n);
    runSmall(realKernelsInv<F>, spec, spec.invNorm, isPerm ? src : dst, dst);
    return;
  }
  const F first = load<F>(src), middle = load<F>(src + Layout::middle(n));
  // Pairs that lie where those of Perm do are read from where they are.
  const bool pairsMove = Layout::firstPair(n) != PermLayout::firstPair(n);
  if (pairsMove) toPerm<Layout>(src, dst, n);
  storeEnds(dst, first, middle);
  ownFftRealPre(pairsMove ? dst : src, dst, n / 2, spec.realInvTwiddle);
  runOnPairs<Direction::inverse>(spec, dst, dst, work);
}

template <class F, class Run>
MoxStatus checked(const F* src, F* dst, const MoxsFFTSpec* object, Mox8u* buffer, Run run) {
  constexpr FftKind kind = sizeof(F) == 4 ? fftReal32f : fftReal64f;
  if (MoxStatus s = checkCall(object, kind, anyNull(src, dst))) return s;
  const auto& spec = static_cast<const FftSpec<F>&>(*object);
  const WorkBuffer work(buffer, ownFftWork(spec, spec.order - 1));
  if (work.failed()) return moxErrMemAlloc;
  run(spec, src, dst, work.as<F>());
  return moxOk;
}

template <PackedLayout Layout, class F>
MoxStatus forward(const F* src, F* dst, const MoxsFFTSpec* spec, Mox8u* buffer) {
  return checked(src, dst, spec, buffer, runForward<Layout, F>);
}
template <PackedLayout Layout, class F>
MoxStatus inverse(const F* src, F* dst, const MoxsFFTSpec* spec, Mox8u* buffer) {
  return checked(src, dst, spec, buffer, runInverse<Layout, F>);
}

}  // namespace

template <class F>
void runRealForward(const FftSpec<F>& spec, const F* src, F* dst, F* work) {
  runForward<PermLayout>(spec, src, dst, work);
}
template <class F>
void runRealInverse(const FftSpec<F>& spec, const F* src, F* dst, F* work) {
  runInverse<PermLayout>(spec, src, dst, work);
}
template void runRealForward(const FftSpec<Mox32f>&, const Mox32f*, Mox32f*, Mox32f*);
template void runRealForward(const FftSpec<Mox64f>&, const Mox64f*, Mox64f*, Mox64f*);
template void runRealInverse(const FftSpec<Mox32f>&, const Mox32f*, Mox32f*, Mox32f*);
template void runRealInverse(const FftSpec<Mox64f>&, const Mox64f*, Mox64f*, Mox64f*);

MOX_EXPORT_BOTH(moxsFFTFwd_RToPerm_32f, moxsFFTFwd_RToPerm_32f_I, forward<PermLayout>);
MOX_EXPORT_BOTH(moxsFFTFwd_RToPerm_64f, moxsFFTFwd_RToPerm_64f_I, forward<PermLayout>);
MOX_EXPORT_BOTH(moxsFFTFwd_RToPack_32f, moxsFFTFwd_RToPack_32f_I, forward<PackLayout>);
MOX_EXPORT_BOTH(moxsFFTFwd_RToPack_64f, moxsFFTFwd_RToPack_64f_I, forward<PackLayout>);
MOX_EXPORT_BOTH(moxsFFTFwd_RToCCS_32f, moxsFFTFwd_RToCCS_32f_I, forward<CcsLayout>);
MOX_EXPORT_BOTH(moxsFFTFwd_RToCCS_64f, moxsFFTFwd_RToCCS_64f_I, forward<CcsLayout>);
MOX_EXPORT_BOTH(moxsFFTInv_PermToR_32f, moxsFFTInv_PermToR_32f_I, inverse<PermLayout>);
MOX_EXPORT_BOTH(moxsFFTInv_PermToR_64f, moxsFFTInv_PermToR_64f_I, inverse<PermLayout>);
MOX_EXPORT_BOTH(moxsFFTInv_PackToR_32f, moxsFFTInv_PackToR_32f_I, inverse<PackLayout>);
MOX_EXPORT_BOTH(moxsFFTInv_PackToR_64f, moxsFFTInv_PackToR_64f_I, inverse<PackLayout>);
MOX_EXPORT_BOTH(moxsFFTInv_CCSToR_32f, moxsFFTInv_CCSToR_32f_I, inverse<CcsLayout>);
MOX_EXPORT_BOTH(moxsFFTInv_CCSToR_64f, moxsFFTInv_CCSToR_64f_I, inverse<CcsLayout>);

}  // namespace mox::transforms
