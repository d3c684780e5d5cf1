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

#define FIR_FUNCTIONS(types, tapToken, dataToken, number, taps, len)  \
  using Tap = Mox##tapToken;                                          \
  using Data = Mox##dataToken;                                        \
  static constexpr Mox32s id = number;                                \
  static constexpr int fftTaps = taps, fftLen = len;                  \
  static constexpr auto getStateSize = moxsFIRGetStateSize##types;    \
  static constexpr auto init = moxsFIRInit##types;                    \
  static constexpr auto initAlloc = moxsFIRInitAlloc##types;          \
  static constexpr auto free = moxsFIRFree##types;                    \
  static constexpr auto getTaps = moxsFIRGetTaps##types;              \
  static constexpr auto setTaps = moxsFIRSetTaps##types;              \
  static constexpr auto getDlyLine = moxsFIRGetDlyLine##types;        \
  static constexpr auto setDlyLine = moxsFIRSetDlyLine##types;        \
  static constexpr auto multirateSize = moxsFIRMRGetStateSize##types; \
  static constexpr auto allocMultirate = moxsFIRMRInitAlloc##types

// Combinations of one type: where the engines change, and the word that objects begin with.
#define FIR_FLOAT(t, id, fftTaps, fftLen)                                             \
  struct Fir##t {                                                                     \
    FIR_FUNCTIONS(_##t, t, t, id, fftTaps, fftLen);                                   \
    static constexpr auto run = WithoutScale<moxsFIR_##t>::call;                      \
    static constexpr auto runInPlace = WithoutScale<moxsFIR_##t##_I>::call;           \
    static constexpr auto one = WithoutScale<moxsFIROne_##t>::call;                   \
    static constexpr auto direct = WithoutScale<moxsFIR_Direct_##t>::call;            \
    static constexpr auto directInPlace = WithoutScale<moxsFIR_Direct_##t##_I>::call; \
    static constexpr auto multirateDirect = WithoutScale<moxsFIRMR_Direct_##t>::call; \
    static constexpr auto oneDirect = WithoutScale<moxsFIROne_Direct_##t>::call;      \
  }
FIR_FLOAT(32f, 0x46493031, 64, 512);
FIR_FLOAT(32fc, 0x46493032, 16, 256);
FIR_FLOAT(64f, 0x46493133, 64, 512);
FIR_FLOAT(64fc, 0x46493134, 32, 256);

#define FIR_NARROWED(t, d, id, fftTaps, fftLen)                                            \
  struct Fir##t##d {                                                                       \
    FIR_FUNCTIONS(t##_##d, t, d, id, fftTaps, fftLen);                                     \
    static constexpr auto run = WithoutScale<moxsFIR##t##_##d>::call;                      \
    static constexpr auto runInPlace = WithoutScale<moxsFIR##t##_##d##_I>::call;           \
    static constexpr auto one = WithoutScale<moxsFIROne##t##_##d>::call;                   \
    static constexpr auto direct = WithoutScale<moxsFIR##t##_Direct_##d>::call;            \
    static constexpr auto directInPlace = WithoutScale<moxsFIR##t##_Direct_##d##_I>::call; \
    static constexpr auto multirateDirect = WithoutScale<moxsFIRMR##t##_Direct_##d>::call; \
    static constexpr auto oneDirect = WithoutScale<moxsFIROne##t##_Direct_##d>::call;      \
  }
FIR_NARROWED(64f, 32f, 0x46493137, 64, 512);
FIR_NARROWED(64fc, 32fc, 0x46493138, 32, 256);

#define FIR_SCALED(t, d, id, fftTaps, fftLen)                                \
  struct Fir##t##d {                                                         \
    FIR_FUNCTIONS(t##_##d, t, d, id, fftTaps, fftLen);                       \
    static constexpr auto run = moxsFIR##t##_##d##_Sfs;                      \
    static constexpr auto runInPlace = moxsFIR##t##_##d##_ISfs;              \
    static constexpr auto one = moxsFIROne##t##_##d##_Sfs;                   \
    static constexpr auto direct = moxsFIR##t##_Direct_##d##_Sfs;            \
    static constexpr auto directInPlace = moxsFIR##t##_Direct_##d##_ISfs;    \
    static constexpr auto multirateDirect = moxsFIRMR##t##_Direct_##d##_Sfs; \
    static constexpr auto oneDirect = moxsFIROne##t##_Direct_##d##_Sfs;      \
  }
FIR_SCALED(32f, 16s, 0x46493035, 64, 512);
FIR_SCALED(32fc, 16sc, 0x46493036, 16, 256);
FIR_SCALED(64f, 32s, 0x46493231, 64, 512);
FIR_SCALED(64fc, 32sc, 0x46493232, 32, 256);
FIR_SCALED(64f, 16s, 0x46493235, 64, 512);
FIR_SCALED(64fc, 16sc, 0x46493236, 32, 256);
#undef FIR_NARROWED
#undef FIR_SCALED
#undef FIR_FLOAT
#undef FIR_FUNCTIONS

template <class E>
E number(int value) {
  E e{};
  *mox::parts(&e) = mox::Part<E>(value);
  return e;
}

using AllFirs =
    ::testing::Types<Fir32f, Fir32fc, Fir64f, Fir64fc, Fir64f32f, Fir64fc32fc, Fir32f16s,
                     Fir32fc16sc, Fir64f16s, Fir64fc16sc, Fir64f32s, Fir64fc32sc>;

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
    return Exact(e.re, e.im);
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

// The least error that storing a value as Data makes: half a unit, or a unit roundoff of it.
template <class Data>
long double storeError(Exact value) {
  using P = mox::Part<Data>;
  return std::is_integral_v<P> ? std::sqrt(0.5L)
                               : std::abs(value) * std::numeric_limits<P>::epsilon() / 2;
}

// The nearest value that Data holds, but for the fraction.
template <class Data>
Exact saturated(Exact value) {
  using L = std::numeric_limits<mox::Part<Data>>;
  if constexpr (!L::is_integer) return value;
  const auto part = [](long double v) { return std::clamp<long double>(v, L::min(), L::max()); };
  return {part(value.real()), part(value.imag())};
}

}  // namespace test
