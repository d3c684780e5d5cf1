// The Kaiser window.
#include <moxsp/windows.h>

#include <cmath>

#include "frame/map.h"
#include "frame/rounding_control.h"
#include "gen/bessel.h"
#include "gen/window.h"
#include "gen/windows.h"

namespace mox::gen {
namespace {

// I0(alpha sqrt(n (len - 1 - n))) / peak, computed in the format F and rounded to the format of
// weights.
template <class Series, class F, class Weight>
class Kaiser {
 public:
  Kaiser(F alpha, int len, Mox64f peak) : alpha_(alpha), last_(F(len - 1)), scale_(F(1 / peak)) {}

  [[gnu::always_inline]] Block<Weight> next() {
    const auto w = blockOf<F>([this](int j) {
      const auto n = lanesFrom<V<F>>(Ramp<F>{0, 1}, n_ + j * lanesOf<F>);
      return besselI0<Series>(absolute(alpha_ * squareRoot((last_ - n) * n))) * scale_;
    });
    n_ += blockLen;
    return inFormat<Weight>(w);
  }

 private:
  long n_ = 0;
  F alpha_, last_, scale_;
};

// The largest argument of I0, in the middle of the window. Beyond the first limit floats overflow
// on the way.
constexpr Mox64f singleLimit = 38, limit = 308;

template <class E>
MoxStatus applyKaiser(const E* src, E* dst, int len, Mox64f alpha) {
  if (MoxStatus s = checkWindow(src, dst, len, 1)) return s;
  const ResultScope<E> scope;
  const Mox64f peak = std::fabs(alpha) * (len - 1) * 0.5;
  if (peak > (std::is_same_v<Part<E>, Mox32f> ? singleLimit : limit)) return moxErrKaiserAlpha;
  using F = FloatOf<E>;
  using Series = std::conditional_t<std::is_same_v<F, Mox64f>, FineI0, CoarseI0>;
  const Mox64f atPeak = besselI0<Series>(broadcast<V<Mox64f>>(peak))[0];
  if (std::is_integral_v<Part<E>> && peak > singleLimit)
    applyWindow(Kaiser<Series, Mox64f, F>(alpha, len, atPeak), src, dst, len);
  else
    applyWindow(Kaiser<Series, F, F>(F(alpha), len, atPeak), src, dst, len);
  return moxOk;
}

template <class E>
MoxStatus winKaiserQ15(const E* src, E* dst, int len, int alphaQ15) {
  return applyKaiser(src, dst, len, alphaQ15 * 0x1p-15);
}

}  // namespace

template <class E>
MoxStatus winKaiser(const E* src, E* dst, int len, FloatOf<E> alpha) {
  return applyKaiser(src, dst, len, alpha);
}

MOX_EXPORT_BOTH(moxsWinKaiser_16s, moxsWinKaiser_16s_I, winKaiser);
MOX_EXPORT_BOTH(moxsWinKaiser_16sc, moxsWinKaiser_16sc_I, winKaiser);
MOX_EXPORT_BOTH(moxsWinKaiser_32f, moxsWinKaiser_32f_I, winKaiser);
MOX_EXPORT_BOTH(moxsWinKaiser_32fc, moxsWinKaiser_32fc_I, winKaiser);
MOX_EXPORT_BOTH(moxsWinKaiser_64f, moxsWinKaiser_64f_I, winKaiser);
MOX_EXPORT_BOTH(moxsWinKaiser_64fc, moxsWinKaiser_64fc_I, winKaiser);
MOX_EXPORT_BOTH(moxsWinKaiserQ15_16s, moxsWinKaiserQ15_16s_I, winKaiserQ15);
MOX_EXPORT_BOTH(moxsWinKaiserQ15_16sc, moxsWinKaiserQ15_16sc_I, winKaiserQ15);

template MoxStatus winKaiser(const Mox64f*, Mox64f*, int, Mox64f);

}  // namespace mox::gen
