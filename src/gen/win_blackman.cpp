// The Blackman windows.
#include <moxsp/windows.h>

#include <algorithm>
#include <cmath>

#include "frame/rounding.h"
#include "frame/rounding_control.h"
#include "gen/oscillator.h"
#include "gen/window.h"
#include "gen/windows.h"

namespace mox::gen {
namespace {

// scale ((alpha + 0.5) - c - 4 alpha c^2) with c = 0.5 cos(n theta), which is
// scale ((alpha + 1) / 2 - 0.5 cos(n theta) - alpha / 2 cos(2 n theta)). Computed in the format F;
// only the cosine comes from double.
template <class F>
class Blackman {
 public:
  Blackman(F alpha, int len, F scale = 1)
      : offset_(alpha + F(0.5)),
        square_(-4 * alpha),
        scale_(scale),
        cosine_(0.5, twoPi / (len - 1), 0) {}

  [[gnu::always_inline]] Block<F> next() {
    const auto c = inFormat<F>(cosine_.cosines());
    cosine_.advance();
    return blockOf<F>([&](int j) {
      const V<F> x = c.v[j];
      return (square_ * (x * x) + (offset_ - x)) * scale_;
    });
  }

 private:
  F offset_, square_, scale_;
  Oscillator<Mox64f> cosine_;
};

// Floats have weights in double where there are many.
constexpr int mostSinglePairs = 512;

// The scale is for integers.
template <class E>
void applyBlackman(const E* src, E* dst, int len, FloatOf<E> alpha, Mox32f scale = 1) {
  const ResultScope<E> scope;
  constexpr bool isSingle = std::is_same_v<Part<E>, Mox32f>;
  const auto apply = [&]<class F>(F parameter) {
    applyWindow(Blackman<F>(parameter, len, scale), src, dst, len);
  };
  if constexpr (isSingle)
    len / 2 > mostSinglePairs ? apply(Mox64f(alpha)) : apply(alpha);
  else
    apply(alpha);
  if (isSingle || len == 3) zeroEnds(dst, len);
}

constexpr Mox32f fromQ15 = 0x1p-15f;

template <class E>
MoxStatus winBlackmanStd(const E* src, E* dst, int len) {
  const ResultScope<E> scope;
  return winBlackman(src, dst, len, FloatOf<E>(-0.16));
}

template <class E>
MoxStatus winBlackmanQ15(const E* src, E* dst, int len, int alphaQ15) {
  const ResultScope<E> scope;
  return winBlackman(src, dst, len, Mox32f(alphaQ15) * fromQ15);
}

// Weights times 2^-scaleFactor, the one in the middle too. Among three elements the one in the
// middle has ties away from zero.
MoxStatus winBlackmanScaled(Mox16s* srcDst, int len, int alphaQ15, int scaleFactor) {
  if (MoxStatus s = checkWindow(srcDst, srcDst, len, 3)) return s;
  const NearestScope scope;
  // Beyond 2^100 either way results are at a limit, or 0.
  const Mox32f scale = powerOfTwo<Mox32f>(-std::clamp(scaleFactor, -100, 100));
  Mox16s* const middle = srcDst + len / 2;
  const Mox32f peak = load<Mox16s>(middle) * scale;
  applyBlackman(srcDst, srcDst, len, Mox32f(alphaQ15) * fromQ15, scale);
  if (len % 2) {
    const Mox32f whole = len == 3 ? std::trunc(peak + std::copysign(0.5f, peak)) : peak;
    store(middle, detail::rounded(broadcast<V<Mox32f>>(whole))[0]);
  }
  return moxOk;
}

}  // namespace

template <class E>
MoxStatus winBlackman(const E* src, E* dst, int len, FloatOf<E> alpha) {
  if (MoxStatus s = checkWindow(src, dst, len, 3)) return s;
  applyBlackman(src, dst, len, alpha);
  return moxOk;
}

// The side lobes fall fastest with this parameter.
template <class E>
MoxStatus winBlackmanOpt(const E* src, E* dst, int len) {
  if (MoxStatus s = checkLength(len, 4)) return s;
  const ResultScope<E> scope;
  const Mox64f ratio = 0.5 / std::cos(twoPi / 2 / (len - 1));
  return winBlackman(src, dst, len, FloatOf<E>(-(ratio * ratio)));
}

MOX_EXPORT_BOTH(moxsWinBlackman_16s, moxsWinBlackman_16s_I, winBlackman);
MOX_EXPORT_BOTH(moxsWinBlackman_16sc, moxsWinBlackman_16sc_I, winBlackman);
MOX_EXPORT_BOTH(moxsWinBlackman_32f, moxsWinBlackman_32f_I, winBlackman);
MOX_EXPORT_BOTH(moxsWinBlackman_32fc, moxsWinBlackman_32fc_I, winBlackman);
MOX_EXPORT_BOTH(moxsWinBlackman_64f, moxsWinBlackman_64f_I, winBlackman);
MOX_EXPORT_BOTH(moxsWinBlackman_64fc, moxsWinBlackman_64fc_I, winBlackman);

MOX_EXPORT_BOTH(moxsWinBlackmanStd_16s, moxsWinBlackmanStd_16s_I, winBlackmanStd);
MOX_EXPORT_BOTH(moxsWinBlackmanStd_16sc, moxsWinBlackmanStd_16sc_I, winBlackmanStd);
MOX_EXPORT_BOTH(moxsWinBlackmanStd_32f, moxsWinBlackmanStd_32f_I, winBlackmanStd);
MOX_EXPORT_BOTH(moxsWinBlackmanStd_32fc, moxsWinBlackmanStd_32fc_I, winBlackmanStd);
MOX_EXPORT_BOTH(moxsWinBlackmanStd_64f, moxsWinBlackmanStd_64f_I, winBlackmanStd);
MOX_EXPORT_BOTH(moxsWinBlackmanStd_64fc, moxsWinBlackmanStd_64fc_I, winBlackmanStd);

MOX_EXPORT_BOTH(moxsWinBlackmanOpt_16s, moxsWinBlackmanOpt_16s_I, winBlackmanOpt);
MOX_EXPORT_BOTH(moxsWinBlackmanOpt_16sc, moxsWinBlackmanOpt_16sc_I, winBlackmanOpt);
MOX_EXPORT_BOTH(moxsWinBlackmanOpt_32f, moxsWinBlackmanOpt_32f_I, winBlackmanOpt);
MOX_EXPORT_BOTH(moxsWinBlackmanOpt_32fc, moxsWinBlackmanOpt_32fc_I, winBlackmanOpt);
MOX_EXPORT_BOTH(moxsWinBlackmanOpt_64f, moxsWinBlackmanOpt_64f_I, winBlackmanOpt);
MOX_EXPORT_BOTH(moxsWinBlackmanOpt_64fc, moxsWinBlackmanOpt_64fc_I, winBlackmanOpt);

MOX_EXPORT_BOTH(moxsWinBlackmanQ15_16s, moxsWinBlackmanQ15_16s_I, winBlackmanQ15);
MOX_EXPORT_BOTH(moxsWinBlackmanQ15_16sc, moxsWinBlackmanQ15_16sc_I, winBlackmanQ15);
MOX_EXPORT(moxsWinBlackmanQ15_16s_ISfs, winBlackmanScaled);

template MoxStatus winBlackman(const Mox64f*, Mox64f*, int, Mox64f);
template MoxStatus winBlackmanOpt(const Mox64f*, Mox64f*, int);

}  // namespace mox::gen
