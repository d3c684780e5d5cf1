#include <bit>

#include "frame/arena.h"
#include "transforms/fft_complex.h"
#include "transforms/fft_stages.h"

namespace mox {
namespace {

template <Direction d, int radix, class Src, class F>
void leafPass(Src src, F* area, long n, const int* bitRev) {
  constexpr int lanes = lanesOf<F>;
  const long stride = n / radix;
  for (long i = 0; i < stride; i += lanes)
    leaf<d, radix>(src + i, stride, BlockSplit<F>{area},
                   [bitRev, i](int column) { return 2L * bitRev[i + column]; });
}

// An aligned destination serves as the work area as long as the source is elsewhere.
template <class F>
F* workArea(Interleaved<const F> src, Interleaved<F> dst, F* work) {
  return isAligned(dst.parts, vectorBytes) && !sameArrays(src, dst) ? dst.parts : work;
}
template <class F>
F* workArea(Split<const F>, Split<F>, F* work) {
  return work;
}

template <Direction d, class F, template <class> class Layout>
void mid(Layout<const F> src, Layout<F> dst, long n, const F* twiddle, const int* bitRev, F* work) {
  const int order = std::countr_zero(std::size_t(n));
  F* const area = workArea(src, dst, work);
  if (order % 2)
    leafPass<d, 8>(src, area, n, bitRev);
  else
    leafPass<d, 16>(src, area, n, bitRev);
  fftStages<d>(BlockSplit<F>{area}, dst, order, twiddle);
}

}  // namespace

template <class F, template <class> class Layout>
void ownFftMid(Layout<const F> src, Layout<F> dst, long n, const F* twiddle, const int* bitRev,
               F* work) {
  mid<Direction::forward>(src, dst, n, twiddle, bitRev, work);
}
template <class F, template <class> class Layout>
void ownFftMidInv(Layout<const F> src, Layout<F> dst, long n, const F* twiddle, const int* bitRev,
                  F* work) {
  mid<Direction::inverse>(src, dst, n, twiddle, bitRev, work);
}

#define MOX_INSTANTIATE(F, Layout)                                                     \
  template void ownFftMid(Layout<const F>, Layout<F>, long, const F*, const int*, F*); \
  template void ownFftMidInv(Layout<const F>, Layout<F>, long, const F*, const int*, F*)
MOX_INSTANTIATE(Mox32f, Interleaved);
MOX_INSTANTIATE(Mox32f, Split);
MOX_INSTANTIATE(Mox64f, Interleaved);
MOX_INSTANTIATE(Mox64f, Split);
#undef MOX_INSTANTIATE

}  // namespace mox
