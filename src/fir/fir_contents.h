// What the caller puts into a state: taps and delay line, both in reverse order.
#pragma once

#include <algorithm>

#include "fir/fir_combination.h"
#include "fir/fir_state.h"
#include "fir/fir_transform.h"
#include "frame/vec/vec.h"

namespace mox {

template <class C>
void writeTaps(FirState<typename C::Acc>& s, const typename C::Tap* taps) {
  for (int k = 0; k < s.tapsLen; ++k)
    s.revTaps[s.tapsLen - 1 - k] = converted<typename C::Acc>(load<typename C::Tap>(taps + k));
}

// The newest sample comes first in `dlyLine`; null stands for silence.
template <class C>
void writeDelayLine(FirState<typename C::Acc>& s, const typename C::Data* dlyLine) {
  s.dlyIndex = 0;
  if (!dlyLine) {
    std::fill_n(s.dlyLine, s.dlyLen, typename C::Acc{});
    return;
  }
  for (int i = 0; i < s.dlyLen; ++i)
    s.dlyLine[s.dlyLen - 1 - i] = converted<typename C::Acc>(load<typename C::Data>(dlyLine + i));
}

// The spectrum of the taps, behind which the FFT engine needs zeros.
template <class A>
MoxStatus transformTaps(FirState<A>& s) {
  std::reverse_copy(s.revTaps, s.revTaps + s.tapsLen, s.fftTaps);
  std::fill(s.fftTaps + s.tapsLen, s.fftTaps + s.fftLen, A{});
  return FirTransform<A>::forward(s.fftTaps, s.fftTaps, s.fftSpec, s.fftBuffer);
}

// From now on the filter runs direct.
template <class A>
void dropFftPath(FirState<A>& s) {
  s.fftLen = -1;
  s.fftSpec = nullptr;
  s.fftTaps = nullptr;
  s.fftBuffer = nullptr;
}

}  // namespace mox
