// Adaptive filters without a state, sample by sample; taps and ring are the caller's.
#include <moxsp/adaptive.h>

#include "convert/samples.h"
#include "frame/checks.h"
#include "frame/export.h"
#include "kernels/dot.h"
#include "kernels/ring.h"

namespace mox::fir {
namespace {

template <class D, class T>
MoxStatus checkOne(const D* dst, const T* taps, int tapsLen, const D* dlyLine,
                   const int* dlyLineIndex) {
  if (MoxStatus e = checkArrays(tapsLen, dst, taps, dlyLine, dlyLineIndex)) return e;
  const int index = load<int>(dlyLineIndex);
  return index < 0 || index >= tapsLen ? MoxStatus(moxErrDlyLineIndex) : moxOk;
}

// Takes the sample into the ring, moves its place on and returns the window.
template <class D>
const D* enterRing(D sample, D* dlyLine, int* dlyLineIndex, int tapsLen) {
  int index = load<int>(dlyLineIndex);
  const D* window = kernels::pushSample(dlyLine, index, tapsLen, sample);
  store(dlyLineIndex, index);
  return window;
}

// f(k, tap, x, whole) for all taps from k on and the samples that they meet, as lanes of W; where
// they are not whole, in the first lane alone beside zeros.
template <class W, class T, class D, class F>
void forTaps(const T* taps, const D* window, long n, F f) {
  constexpr int lanes = laneCount<W>;
  long k = 0;
  for (; k <= n - lanes; k += lanes)
    f(k, loadWidened<W>(taps + k),
      shuffle<kernels::backward<lanes, 1>>(loadWidened<W>(window + n - k - lanes)),
      std::true_type());
  for (; k < n; ++k)
    f(k, W{Lane<W>(load<T>(taps + k))}, W{Lane<W>(load<D>(window + n - 1 - k))}, std::false_type());
}
template <class T, class R, bool whole>
void storeTaps(T* taps, R lanes, std::bool_constant<whole>) {
  if constexpr (whole)
    store(taps, lanes);
  else
    store(taps, T(lanes[0]));
}

template <class D>
MoxStatus lmsOne(D src, D ref, D* dst, Mox32f* taps, int tapsLen, Mox32f mu, D* dlyLine,
                 int* dlyLineIndex) {
  if (MoxStatus e = checkOne(dst, taps, tapsLen, dlyLine, dlyLineIndex)) return e;
  const D* window = enterRing(src, dlyLine, dlyLineIndex, tapsLen);
  const auto y =
      kernels::dotProduct<Mox32f, kernels::TapOrder::forward>(window, taps, long(tapsLen));
  const Mox32f gain = mu * (Mox32f(ref) - y);
  using W = V<Mox32f>;
  forTaps<W>(taps, window, tapsLen,
             [=](long k, W tap, W x, auto whole) { storeTaps(taps + k, tap + gain * x, whole); });
  convert::giveOut(&y, dst, 1, 0);
  return moxOk;
}

// Normalised by the energy of the window; taps are in units of 2^-15.
MoxStatus lmsOneQ15(Mox16s src, Mox16s ref, Mox16s* dst, Mox32s* taps, int tapsLen, Mox32s muQ15,
                    Mox16s* dlyLine, int* dlyLineIndex) {
  if (MoxStatus e = checkOne(dst, taps, tapsLen, dlyLine, dlyLineIndex)) return e;
  const Mox16s* window = enterRing(src, dlyLine, dlyLineIndex, tapsLen);
  using W = V<Mox64f>;
  W products{}, squares{};
  forTaps<W>(taps, window, tapsLen, [&](long, W tap, W x, auto) {
    products += tap * x;
    squares += x * x;
  });
  const Mox64f energy = kernels::sumOfLanes(squares);
  if (energy == 0) return moxOk;  // silence teaches nothing
  const Mox64f y = kernels::sumOfLanes(products) * 0x1p-15;
  const Mox64f gain = Mox64f(muQ15) * (Mox64f(ref) - y) / energy;
  const W most = broadcast<W>(0x1p31 - 1);
  forTaps<W>(taps, window, tapsLen, [=](long k, W tap, W x, auto whole) {
    storeTaps(taps + k, toInteger(nearestInteger(lesser(tap + x * gain, most))), whole);
  });
  convert::giveOut(&y, dst, 1, 0);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsFIRLMSOne_Direct_32f, lmsOne<Mox32f>);
MOX_EXPORT(moxsFIRLMSOne_Direct32f_16s, lmsOne<Mox16s>);
MOX_EXPORT(moxsFIRLMSOne_DirectQ15_16s, lmsOneQ15);

}  // namespace mox::fir
