// The choice between the methods of a plan.
#include "transforms/dft_run.h"

#include "arith/mul_complex.h"
#include "transforms/conj_spectrum.h"
#include "transforms/dft_direct.h"
#include "transforms/dft_mixed.h"
#include "transforms/dft_real_post.h"
#include "transforms/dft_small.h"
#include "transforms/fft_run.h"
#include "transforms/fronts.h"
#include "transforms/real_small.h"

namespace mox::transforms {
namespace {

// The factor of a direction.
template <Direction d, class F>
F factorOf(const DftSpec<F>& plan) {
  return (d == Direction::forward ? plan.fwdNorm : plan.invNorm) ? plan.normFactor : F(1);
}

// x[k] chirp[k] convolved with the conjugate of the chirp is X[k] / chirp[k] (Bluestein, 1970).
template <class F, class View>
void ownDftChirp(const DftSpec<F>& plan, const Scaled<typename View::Const>& src,
                 const Scaled<View>& dst, F* work) {
  using C = ComplexOf<F>;
  const Array<C> area = {reinterpret_cast<C*>(work)};
  const long n = plan.core, length = plan.convLen;
  const auto timesChirp = [&plan](V<F> z, long k) {
    const V<F> w = load<V<F>>(plan.chirp + 2 * k);
    return times(z, realParts(w), imaginaryParts(w));
  };
  // The last vector reaches back over results, which may have replaced their source.
  constexpr long numbers = lanesOf<F> / 2;
  const V<F> last = timesChirp(src.interleaved(n - numbers), n - numbers);
  for (long k = 0; k < n - numbers; k += numbers)
    area.putInterleaved(k, timesChirp(src.interleaved(k), k));
  area.putInterleaved(n - numbers, last);
  std::fill(area.p + n, area.p + length, C{});
  F* const behind = work + 2 * length;
  ownDftRun<Direction::forward, Array<C>>(*plan.conv, {area.p}, area, behind);
  arith::mulComplex(area.p, reinterpret_cast<const C*>(plan.filterSpectrum), area.p, length);
  ownDftRun<Direction::inverse, Array<C>>(*plan.conv, {area.p}, area, behind);
  const V<F> lastResult = timesChirp(area.interleaved(n - numbers), n - numbers);
  for (long k = 0; k < n - numbers; k += numbers)
    dst.putInterleaved(k, timesChirp(area.interleaved(k), k));
  dst.putInterleaved(n - numbers, lastResult);
}

// Apart from the other methods, which need no room for views on the stack.
template <Direction d, class View, class F>
[[gnu::noinline]] void runByTables(const DftSpec<F>& plan, typename View::Const src, View dst,
                                   F* work) {
  const F factor = factorOf<d>(plan);
  if constexpr (d == Direction::forward && std::is_same_v<View, Array<ComplexOf<F>>>)
    if (plan.method == DftMethod::mixed && factor == 1) return ownDftMixed(plan, src, dst, work);
  const auto source = directed(src, d, F(1));
  const auto target = directed(dst, d, factor);
  if (plan.method == DftMethod::mixed) return ownDftMixed(plan, source, target, work);
  if (plan.method == DftMethod::direct)
    return ownDftDirect<F, View>(*plan.direct, source, target, work);
  ownDftChirp<F, View>(plan, source, target, work);
}

template <Direction d, class F>
void runOnPairs(const DftSpec<F>& plan, const F* src, F* dst, F* work) {
  using C = ComplexOf<F>;
  ownDftRun<d, Array<C>>(plan, {reinterpret_cast<const C*>(src)}, {reinterpret_cast<C*>(dst)},
                         work);
}

template <class F>
bool isHalved(const DftSpec<F>& plan) {
  return plan.realFwdTwiddle != nullptr;
}

// Straight-line kernels by length less 1.
template <class F>
constexpr auto realSmallFwd = kernelTable<RealKernel<F>, DftLimits<F>::mostSmall>([](auto i) {
  return ownRealSmallFwd<F, i + 1, true>;
});
template <class F>
constexpr auto realSmallInv = kernelTable<RealKernel<F>, DftLimits<F>::mostSmall>([](auto i) {
  return ownRealSmallInv<F, i + 1, true>;
});

// Work memory for the numbers of a transform whose data are real.
template <class F>
ComplexOf<F>* widened(const DftSpec<F>& plan, F* work) {
  const long behind = plan.method == DftMethod::mixed ? mixedWorkBytes(plan) / long(sizeof(F)) : 0;
  return reinterpret_cast<ComplexOf<F>*>(work + behind);
}

// A Perm spectrum of real samples.
template <class F>
void realForward(const DftSpec<F>& plan, const F* src, F* dst, F* work) {
  using C = ComplexOf<F>;
  const long n = plan.len;
  const F factor = factorOf<Direction::forward>(plan);
  if (n <= DftLimits<F>::mostSmall) return realSmallFwd<F>[n - 1](src, dst, factor);
  if (plan.method == DftMethod::fft) return runRealForward(*plan.fft, src, dst, work);
  if (isHalved(plan)) {
    runOnPairs<Direction::forward>(plan, src, dst, work);
    storeEnds(dst, load<F>(dst), load<F>(dst + 1));
    return ownDftRealPost(dst, n / 2, plan.realFwdTwiddle);
  }
  if (plan.method == DftMethod::direct)
    return ownDftDirectReal(*plan.direct, src, dst, factor, work);
  if (plan.realOdd) {
    const C* const bins = ownDftMixedReal(plan, src, work);
    store(dst, bins[0].re * factor);
    return arith::ownsMulC(&bins[1].re, factor, dst + 1, n - 1);
  }
  C* const numbers = widened(plan, work);
  for (long i = n - 1; i >= 0; --i) numbers[i] = {load<F>(src + i), 0};
  ownDftRun<Direction::forward, Array<C>>(plan, {numbers}, {numbers}, work);
  store(dst, numbers[0].re);
  std::memcpy(dst + 1, numbers + 1, std::size_t(n - 1) * sizeof(F));
}

// With H[k] = X[k].re + X[k].im and H[n - k] = X[k].re - X[k].im the samples are the sums of
// H[k] (cos + sin)(2 pi k t / n): the parts of a transform of real numbers (Hartley, 1942) once
// more added and subtracted.
template <class F>
void sumsAndDifferences(const F* pairs, F* dst, long n, F factor) {
  pairsToFronts(pairs, dst + 1, dst + n - 1, n / 2, [factor](auto z, long) {
    return Pair{(z.re + z.im) * factor, (z.re - z.im) * factor};
  });
}

// From a Perm spectrum, to samples.
template <class F>
void realInverse(const DftSpec<F>& plan, const F* src, F* dst, F* work) {
  using C = ComplexOf<F>;
  const long n = plan.len;
  const F factor = factorOf<Direction::inverse>(plan);
  if (n <= DftLimits<F>::mostSmall) return realSmallInv<F>[n - 1](src, dst, factor);
  if (plan.method == DftMethod::fft) return runRealInverse(*plan.fft, src, dst, work);
  if (isHalved(plan)) {
    const F first = load<F>(src), middle = load<F>(src + 1);
    ownDftRealPre(src, dst, n / 2, plan.realInvTwiddle);
    storeEnds(dst, first, middle);
    return runOnPairs<Direction::inverse>(plan, dst, dst, work);
  }
  if (plan.method == DftMethod::direct)
    return ownDftDirectRealInverse(*plan.direct, src, dst, factor, work);
  C* const numbers = widened(plan, work);
  if (plan.realOdd) {
    F* const sums = parts(numbers);
    store(sums, load<F>(src));
    sumsAndDifferences(src + 1, sums, n, F(1));
    const C* const bins = ownDftMixedReal(plan, sums, work);
    store(dst, bins[0].re * factor);
    return sumsAndDifferences(&bins[1].re, dst, n, factor);
  }
  expandSpectrum<PermLayout>(src, numbers, n);
  ownDftRun<Direction::inverse, Array<C>>(plan, {numbers}, {numbers}, work);
  for (long i = 0; i < n; ++i) store(dst + i, numbers[i].re);
}

}  // namespace

template <Direction d, class View, class F>
void ownDftRun(const DftSpec<F>& plan, typename View::Const src, View dst, F* work) {
  if (plan.method == DftMethod::small)
    return ownDftSmall<d, View>[plan.core - 1](src, dst, factorOf<d>(plan));
  if (plan.method == DftMethod::fft)
    return ownFftRun<d, View>(*plan.fft, src, dst, plan.fft->order, work);
  runByTables<d>(plan, src, dst, work);
}

template <class Layout, class F>
void ownDftRealForward(const DftSpec<F>& plan, const F* src, F* dst, F* work) {
  realForward(plan, src, dst, work);
  if constexpr (!std::is_same_v<Layout, PermLayout>) fromPerm<Layout>(dst, plan.len);
}

template <class Layout, class F>
void ownDftRealInverse(const DftSpec<F>& plan, const F* src, F* dst, F* work) {
  if constexpr (std::is_same_v<Layout, PermLayout>) return realInverse(plan, src, dst, work);
  toPerm<Layout>(src, dst, plan.len);
  realInverse(plan, dst, dst, work);
}

#define MOX_INSTANTIATE_VIEW(F, View)                                                          \
  template void ownDftRun<Direction::forward, View>(const DftSpec<F>&, View::Const, View, F*); \
  template void ownDftRun<Direction::inverse, View>(const DftSpec<F>&, View::Const, View, F*)
#define MOX_INSTANTIATE_LAYOUT(F, Layout)                                       \
  template void ownDftRealForward<Layout>(const DftSpec<F>&, const F*, F*, F*); \
  template void ownDftRealInverse<Layout>(const DftSpec<F>&, const F*, F*, F*)
#define MOX_INSTANTIATE(F)                      \
  MOX_INSTANTIATE_VIEW(F, Array<ComplexOf<F>>); \
  MOX_INSTANTIATE_VIEW(F, Split<F>);            \
  MOX_INSTANTIATE_LAYOUT(F, PermLayout);        \
  MOX_INSTANTIATE_LAYOUT(F, PackLayout);        \
  MOX_INSTANTIATE_LAYOUT(F, CcsLayout)
MOX_INSTANTIATE(Mox32f);
MOX_INSTANTIATE(Mox64f);

}  // namespace mox::transforms
