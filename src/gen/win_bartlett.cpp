// The triangular window.
#include <moxsp/windows.h>

#include "frame/map.h"
#include "frame/rounding_control.h"
#include "gen/window.h"
#include "gen/windows.h"

namespace mox::gen {
namespace {

// Lanes of n step, which move on by sums.
template <class F>
class Slope {
 public:
  explicit Slope(F step)
      : lanes_(lanesFrom<V<F>>(Ramp<F>{0, step}, 0)), onward_(lanesOf<F> * step) {}

  [[gnu::always_inline]] Block<F> next() {
    return blockOf<F>([this](int) {
      const V<F> now = lanes_;
      lanes_ += onward_;
      return now;
    });
  }

 private:
  V<F> lanes_;
  F onward_;
};

}  // namespace

template <class E>
MoxStatus winBartlett(const E* src, E* dst, int len) {
  if (MoxStatus s = checkWindow(src, dst, len, 3)) return s;
  const ResultScope<E> scope;
  using F = FloatOf<E>;
  applyWindow(Slope<F>(F(2) / F(len - 1)), src, dst, len);
  if (len == 3) zeroEnds(dst, len);
  return moxOk;
}

MOX_EXPORT_BOTH(moxsWinBartlett_16s, moxsWinBartlett_16s_I, winBartlett);
MOX_EXPORT_BOTH(moxsWinBartlett_16sc, moxsWinBartlett_16sc_I, winBartlett);
MOX_EXPORT_BOTH(moxsWinBartlett_32f, moxsWinBartlett_32f_I, winBartlett);
MOX_EXPORT_BOTH(moxsWinBartlett_32fc, moxsWinBartlett_32fc_I, winBartlett);
MOX_EXPORT_BOTH(moxsWinBartlett_64f, moxsWinBartlett_64f_I, winBartlett);
MOX_EXPORT_BOTH(moxsWinBartlett_64fc, moxsWinBartlett_64fc_I, winBartlett);

}  // namespace mox::gen
