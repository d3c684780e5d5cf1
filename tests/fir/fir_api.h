// The FIR functions by combination of types, and what their results are measured against.
#pragma once

#include <moxsp.h>

#include <cmath>
#include <complex>
#include <memory>
#include <vector>

#include "frame/elements.h"
#include "support/random.h"

namespace test {

// Functions of floats with the signature of the scaled ones, so that tests are written once.
template <auto f>
struct WithoutScale;
template <class... P, MoxStatus (*f)(P...)>
struct WithoutScale<f> {
  static MoxStatus call(P... p, int) { return f(p...); }
};

#define FIR_FUNCTIONS(types, tapToken, dataToken, taps, len)   \
  using Tap = Mox##tapToken;                                   \
  using Data = Mox##dataToken;                                 \
  static constexpr int fftTaps = taps, fftLen = len;           \
  static constexpr auto initAlloc = moxsFIRInitAlloc##types;   \
  static constexpr auto free = moxsFIRFree##types;             \
  static constexpr auto getTaps = moxsFIRGetTaps##types;       \
  static constexpr auto setTaps = moxsFIRSetTaps##types;       \
  static constexpr auto getDlyLine = moxsFIRGetDlyLine##types; \
  static constexpr auto setDlyLine = moxsFIRSetDlyLine##types

// Combinations of one type, and where their engines change.
#define FIR_FLOAT(t, fftTaps, fftLen)                                                 \
  struct Fir##t {                                                                     \
    FIR_FUNCTIONS(_##t, t, t, fftTaps, fftLen);                                       \
    static constexpr auto run = WithoutScale<moxsFIR_##t>::call;                      \
    static constexpr auto runInPlace = WithoutScale<moxsFIR_##t##_I>::call;           \
    static constexpr auto one = WithoutScale<moxsFIROne_##t>::call;                   \
    static constexpr auto direct = WithoutScale<moxsFIR_Direct_##t>::call;            \
    static constexpr auto directInPlace = WithoutScale<moxsFIR_Direct_##t##_I>::call; \
    static constexpr auto oneDirect = WithoutScale<moxsFIROne_Direct_##t>::call;      \
  }
FIR_FLOAT(32f, 64, 512);
FIR_FLOAT(32fc, 16, 256);
FIR_FLOAT(64f, 64, 512);
FIR_FLOAT(64fc, 32, 256);
struct Fir32f16s {
  FIR_FUNCTIONS(32f_16s, 32f, 16s, 64, 512);
  static constexpr auto run = moxsFIR32f_16s_Sfs;
  static constexpr auto runInPlace = moxsFIR32f_16s_ISfs;
  static constexpr auto one = moxsFIROne32f_16s_Sfs;
  static constexpr auto direct = moxsFIR32f_Direct_16s_Sfs;
  static constexpr auto directInPlace = moxsFIR32f_Direct_16s_ISfs;
  static constexpr auto oneDirect = moxsFIROne32f_Direct_16s_Sfs;
};
#undef FIR_FLOAT
#undef FIR_FUNCTIONS

template <class E>
E number(int value) {
  E e{};
  *mox::parts(&e) = mox::Part<E>(value);
  return e;
}

using AllFirs = ::testing::Types<Fir32f, Fir32fc, Fir64f, Fir64fc, Fir32f16s>;

struct FirFree {
  MoxStatus (*free)(MoxsFIRState*);
  void operator()(MoxsFIRState* s) const { free(s); }
};
using FirHandle = std::unique_ptr<MoxsFIRState, FirFree>;

template <class F>
FirHandle makeFir(const std::vector<typename F::Tap>& taps,
                  const typename F::Data* dlyLine = nullptr) {
  MoxsFIRState* s = nullptr;
  if (F::initAlloc(&s, taps.data(), int(taps.size()), dlyLine) != moxOk) s = nullptr;
  return FirHandle(s, {F::free});
}

using Exact = std::complex<long double>;

template <class E>
Exact exactly(E e) {
  if constexpr (mox::Complex<E>)
    return {e.re, e.im};
  else
    return Exact(e);
}

// y[i] and the sum of the magnitudes of its terms.
struct Reference {
  Exact value;
  long double magnitude;
};

// The defining sum; dlyLine holds x[-1], x[-2] ... and may be empty for silence.
template <class Tap, class Data>
std::vector<Reference> filtered(const std::vector<Tap>& taps, const std::vector<Data>& dlyLine,
                                const std::vector<Data>& src, long first = 0, long len = -1) {
  if (len < 0) len = long(src.size()) - first;
  std::vector<Reference> y(len);
  for (long j = 0; j < len; ++j) {
    long double re = 0, im = 0, magnitude = 0;
    for (long k = 0, i = first + j; k < long(taps.size()); ++k) {
      if (i < k && dlyLine.empty()) break;
      const Exact t = exactly(taps[k]), x = exactly(i < k ? dlyLine[k - i - 1] : src[i - k]);
      re += t.real() * x.real() - t.imag() * x.imag();
      im += t.real() * x.imag() + t.imag() * x.real();
      magnitude += std::sqrt(std::norm(t) * std::norm(x));
    }
    y[j] = {{re, im}, magnitude};
  }
  return y;
}

}  // namespace test
