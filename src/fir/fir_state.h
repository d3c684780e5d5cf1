// The state of a FIR filter: taps, history and scratch, in one block of memory.
#pragma once

#include <moxsp/transforms.h>

struct MoxsFIRState {
  Mox32s id;
  int tapsLen;
  int dlyLen;    // of the delay line that the caller sees
  int dlyIndex;  // place of the oldest of the last tapsLen samples in the delay store
  int fftLen;    // below 1: the filter always runs direct
  int owned;     // 1 when InitAlloc took the memory
};

namespace mox {

// The whole record of a filter whose taps and samples are held as A.
template <class A>
struct FirState : MoxsFIRState {
  A* revTaps;
  A* dlyLine;  // delay store: the samples oldest first, with room to append new ones
  A* staging;  // results of one chunk before they go to the caller
  MoxsFFTSpec* fftSpec;
  A* fftTaps;  // spectrum of the taps
  A* fftWork;  // fftLen samples or their spectrum
  Mox8u* fftBuffer;
};

// Samples that one step filters by way of `staging`, and those that one step converts.
constexpr int firChunk = 4224, firPiece = firChunk / 2;

template <class A>
FirState<A>& stateOf(MoxsFIRState* state) {
  return *static_cast<FirState<A>*>(state);
}
template <class A>
const FirState<A>& stateOf(const MoxsFIRState* state) {
  return *static_cast<const FirState<A>*>(state);
}

}  // namespace mox
