// Transforms of real signals: the complex transform of half the length over pairs of samples, and
// the pass that separates the spectra of even and odd samples.
#include <moxsp/transforms.h>

#include <type_traits>

#include "frame/checks.h"
#include "frame/export.h"
#include "frame/in_place.h"
#include "frame/object.h"
#include "frame/work_buffer.h"
#include "transforms/fft_complex.h"
#include "transforms/fft_real.h"
#include "transforms/fft_real_post.h"
#include "transforms/fft_real_small.h"
#include "transforms/packed_layouts.h"

namespace mox {
namespace {

template <class F>
MoxStatus checkRun(const F* src, const F* dst, const MoxsFFTSpec* spec) {
  if (anyNull(spec)) return moxErrNullPtr;
  if (MoxStatus s = requireId(spec, fftRealId<F>)) return s;
  return anyNull(src, dst) ? MoxStatus(moxErrNullPtr) : moxOk;
}

template <class F>
void runSmall(const RealKernels<F>& kernels, const FftSpec<F>& spec, bool scaled, const F* src,
              F* dst) {
  (scaled ? kernels.scaled : kernels.plain)[spec.order](src, dst, spec.normFactor);
}

// dst[0] and dst[1] become the sum and the difference of two numbers: R[0] and R[N/2] from the
// parts of Z[0], and the other way round.
template <class F>
void storeEnds(F* dst, F a, F b) {
  store(dst, a + b);
  store(dst + 1, a - b);
}

template <class Layout, class F>
MoxStatus forward(const F* src, F* dst, const MoxsFFTSpec* object, Mox8u* buffer) {
  if (MoxStatus s = checkRun(src, dst, object)) return s;
  const auto& spec = static_cast<const FftSpec<F>&>(*object);
  const long n = 1L << spec.order;
  if (spec.order <= fftMaxSmallRealOrder) {
    runSmall(realKernelsFwd<F>, spec, spec.fwdNorm, src, dst);
  } else {
    const WorkBuffer work(buffer, spec.bufSize);
    if (work.failed()) return moxErrMemAlloc;
    ownFftRun<F, Direction::forward, Interleaved>(spec, {src}, {dst}, spec.order - 1, work.as<F>());
    storeEnds(dst, load<F>(dst), load<F>(dst + 1));
    ownFftRealPost(dst, n / 2, spec.realFwdTwiddle);
  }
  if constexpr (!std::is_same_v<Layout, PermLayout>) fromPerm<Layout>(dst, n);
  return moxOk;
}

template <class Layout, class F>
MoxStatus inverse(const F* src, F* dst, const MoxsFFTSpec* object, Mox8u* buffer) {
  if (MoxStatus s = checkRun(src, dst, object)) return s;
  const auto& spec = static_cast<const FftSpec<F>&>(*object);
  const long n = 1L << spec.order;
  if (spec.order <= fftMaxSmallRealOrder) {
    constexpr bool isPerm = std::is_same_v<Layout, PermLayout>;
    if constexpr (!isPerm) toPerm<Layout>(src, dst, n);
    runSmall(realKernelsInv<F>, spec, spec.invNorm, isPerm ? src : dst, dst);
    return moxOk;
  }
  const WorkBuffer work(buffer, spec.bufSize);
  if (work.failed()) return moxErrMemAlloc;
  const F first = load<F>(src), middle = load<F>(src + Layout::middle(n));
  // Pairs that lie where those of Perm do are read from where they are.
  const bool pairsMove = Layout::firstPair(n) != PermLayout::firstPair(n);
  if (pairsMove) toPerm<Layout>(src, dst, n);
  storeEnds(dst, first, middle);
  ownFftRealPre(pairsMove ? dst : src, dst, n / 2, spec.realInvTwiddle);
  ownFftRun<F, Direction::inverse, Interleaved>(spec, {dst}, {dst}, spec.order - 1, work.as<F>());
  return moxOk;
}

}  // namespace

template <class F>
MoxStatus ownFftFwdRToPerm(const F* src, F* dst, const MoxsFFTSpec* spec, Mox8u* buffer) {
  return forward<PermLayout>(src, dst, spec, buffer);
}
template <class F>
MoxStatus ownFftInvPermToR(const F* src, F* dst, const MoxsFFTSpec* spec, Mox8u* buffer) {
  return inverse<PermLayout>(src, dst, spec, buffer);
}
template MoxStatus ownFftFwdRToPerm(const Mox32f*, Mox32f*, const MoxsFFTSpec*, Mox8u*);
template MoxStatus ownFftFwdRToPerm(const Mox64f*, Mox64f*, const MoxsFFTSpec*, Mox8u*);
template MoxStatus ownFftInvPermToR(const Mox32f*, Mox32f*, const MoxsFFTSpec*, Mox8u*);
template MoxStatus ownFftInvPermToR(const Mox64f*, Mox64f*, const MoxsFFTSpec*, Mox8u*);

MOX_EXPORT(moxsFFTFwd_RToPerm_32f, forward<PermLayout, Mox32f>);
MOX_EXPORT(moxsFFTFwd_RToPerm_32f_I, inPlace<forward<PermLayout, Mox32f>>);
MOX_EXPORT(moxsFFTFwd_RToPerm_64f, forward<PermLayout, Mox64f>);
MOX_EXPORT(moxsFFTFwd_RToPerm_64f_I, inPlace<forward<PermLayout, Mox64f>>);
MOX_EXPORT(moxsFFTFwd_RToPack_32f, forward<PackLayout, Mox32f>);
MOX_EXPORT(moxsFFTFwd_RToPack_32f_I, inPlace<forward<PackLayout, Mox32f>>);
MOX_EXPORT(moxsFFTFwd_RToPack_64f, forward<PackLayout, Mox64f>);
MOX_EXPORT(moxsFFTFwd_RToPack_64f_I, inPlace<forward<PackLayout, Mox64f>>);
MOX_EXPORT(moxsFFTFwd_RToCCS_32f, forward<CcsLayout, Mox32f>);
MOX_EXPORT(moxsFFTFwd_RToCCS_32f_I, inPlace<forward<CcsLayout, Mox32f>>);
MOX_EXPORT(moxsFFTFwd_RToCCS_64f, forward<CcsLayout, Mox64f>);
MOX_EXPORT(moxsFFTFwd_RToCCS_64f_I, inPlace<forward<CcsLayout, Mox64f>>);
MOX_EXPORT(moxsFFTInv_PermToR_32f, inverse<PermLayout, Mox32f>);
MOX_EXPORT(moxsFFTInv_PermToR_32f_I, inPlace<inverse<PermLayout, Mox32f>>);
MOX_EXPORT(moxsFFTInv_PermToR_64f, inverse<PermLayout, Mox64f>);
MOX_EXPORT(moxsFFTInv_PermToR_64f_I, inPlace<inverse<PermLayout, Mox64f>>);
MOX_EXPORT(moxsFFTInv_PackToR_32f, inverse<PackLayout, Mox32f>);
MOX_EXPORT(moxsFFTInv_PackToR_32f_I, inPlace<inverse<PackLayout, Mox32f>>);
MOX_EXPORT(moxsFFTInv_PackToR_64f, inverse<PackLayout, Mox64f>);
MOX_EXPORT(moxsFFTInv_PackToR_64f_I, inPlace<inverse<PackLayout, Mox64f>>);
MOX_EXPORT(moxsFFTInv_CCSToR_32f, inverse<CcsLayout, Mox32f>);
MOX_EXPORT(moxsFFTInv_CCSToR_32f_I, inPlace<inverse<CcsLayout, Mox32f>>);
MOX_EXPORT(moxsFFTInv_CCSToR_64f, inverse<CcsLayout, Mox64f>);
MOX_EXPORT(moxsFFTInv_CCSToR_64f_I, inPlace<inverse<CcsLayout, Mox64f>>);

}  // namespace mox
