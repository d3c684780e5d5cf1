// The FFT engine. A transform of N samples gives N - n + 1 outputs of a filter with n taps; the
// n - 1 samples before each stretch of input are transformed with it.
#pragma once

#include <algorithm>

#include "fir/fir_combination.h"
#include "fir/fir_state.h"
#include "fir/fir_transform.h"

namespace mox {

// fftWork = samples filtered circularly; `samples` may be fftWork itself.
template <class A>
MoxStatus filterCircularly(FirState<A>& s, const A* samples) {
  using Transform = FirTransform<A>;
  if (MoxStatus e = Transform::forward(samples, s.fftWork, s.fftSpec, s.fftBuffer)) return e;
  if (MoxStatus e = Transform::multiply(s.fftTaps, s.fftWork, s.fftLen)) return e;
  return Transform::inverse(s.fftWork, s.fftWork, s.fftSpec, s.fftBuffer);
}

// Arrays that don't overlap. After a failure dst is partly written and the history moved.
template <class C>
MoxStatus filterByOverlapSave(FirState<typename C::Acc>& s, const typename C::Data* src,
                              typename C::Data* dst, long len, int scaleFactor) {
  using A = typename C::Acc;
  const long taps = s.tapsLen, size = s.fftLen, history = taps - 1, outputs = size - history;
  A *const work = s.fftWork, *const result = work + history;

  std::copy_n(s.dlyLine + s.dlyIndex + 1, history, work);
  s.dlyIndex = 0;
  const long first = std::min(len, outputs);
  C::enter(src, result, first);
  if (len > outputs)
    C::enter(src + len - taps, s.dlyLine, taps);
  else
    std::copy_n(work + len - 1, taps, s.dlyLine);
  std::fill(result + first, work + size, A{});
  if (MoxStatus e = filterCircularly(s, work)) return e;
  C::leave(result, dst, first, scaleFactor);

  for (long done = outputs; done < len; done += outputs) {
    const auto* in = src + done - history;
    const long samples = std::min(len - done + history, size);
    const auto stretch = [&]() -> const A* {
      if constexpr (!C::converts)
        if (samples == size) return in;
      C::enter(in, work, samples);
      std::fill(work + samples, work + size, A{});
      return work;
    };
    if (MoxStatus e = filterCircularly(s, stretch())) return e;
    C::leave(result, dst + done, std::min(len - done, outputs), scaleFactor);
  }
  return moxOk;
}

}  // namespace mox
