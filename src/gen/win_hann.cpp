// The windows that are a constant less a cosine.
#include "frame/rounding_control.h"
#include "gen/oscillator.h"
#include "gen/window.h"
#include "gen/windows.h"

#include <moxsp/windows.h>

namespace mox::gen {
namespace {

// offset - amplitude cos(n theta) as weights of elements E: computed in single precision for
// integers, else in double.
template <class E>
class RaisedCosine {
  using F = std::conditional_t<std::is_integral_v<Part<E>>, Mox32f, Mox64f>;

 public:
  RaisedCosine(Mox64f offset, Mox64f amplitude, int len)
      : offset_(F(offset)), cosine_(F(amplitude), twoPi / (len - 1), 0) {}

  [[gnu::always_inline]] Block<FloatOf<E>> next() {
    const auto c = inFormat<F>(cosine_.cosines());
    cosine_.advance();
    return inFormat<FloatOf<E>>(blockOf<F>([&](int j) { return offset_ - c.v[j]; }));
  }

 private:
  F offset_;
  Oscillator<Mox64f> cosine_;
};

}  // namespace

template <class E>
MoxStatus winHann(const E* src, E* dst, int len) {
  if (MoxStatus s = checkWindow(src, dst, len, 3)) return s;
  const ResultScope<E> scope;
  applyWindow(RaisedCosine<E>(0.5, 0.5, len), src, dst, len);
  if (len == 3) zeroEnds(dst, len);
  return moxOk;
}

template <class E>
MoxStatus winHamming(const E* src, E* dst, int len) {
  if (MoxStatus s = checkWindow(src, dst, len, 3)) return s;
  const ResultScope<E> scope;
  applyWindow(RaisedCosine<E>(0.54, 0.46, len), src, dst, len);
  return moxOk;
}

MOX_EXPORT_BOTH(moxsWinHann_16s, moxsWinHann_16s_I, winHann);
MOX_EXPORT_BOTH(moxsWinHann_16sc, moxsWinHann_16sc_I, winHann);
MOX_EXPORT_BOTH(moxsWinHann_32f, moxsWinHann_32f_I, winHann);
MOX_EXPORT_BOTH(moxsWinHann_32fc, moxsWinHann_32fc_I, winHann);
MOX_EXPORT_BOTH(moxsWinHann_64f, moxsWinHann_64f_I, winHann);
MOX_EXPORT_BOTH(moxsWinHann_64fc, moxsWinHann_64fc_I, winHann);

MOX_EXPORT_BOTH(moxsWinHamming_16s, moxsWinHamming_16s_I, winHamming);
MOX_EXPORT_BOTH(moxsWinHamming_16sc, moxsWinHamming_16sc_I, winHamming);
MOX_EXPORT_BOTH(moxsWinHamming_32f, moxsWinHamming_32f_I, winHamming);
MOX_EXPORT_BOTH(moxsWinHamming_32fc, moxsWinHamming_32fc_I, winHamming);
MOX_EXPORT_BOTH(moxsWinHamming_64f, moxsWinHamming_64f_I, winHamming);
MOX_EXPORT_BOTH(moxsWinHamming_64fc, moxsWinHamming_64fc_I, winHamming);

template MoxStatus winHann(const Mox64f*, Mox64f*, int);
template MoxStatus winHamming(const Mox64f*, Mox64f*, int);

}  // namespace mox::gen
