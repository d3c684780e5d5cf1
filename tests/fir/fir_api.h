// The FIR functions by combination of types.
#pragma once

#include "support/filters.h"
#include "support/test.h"

namespace test {

// What is set up from taps of one type; what runs has the types of the taps and of the data.
#define FIR_STATES(types, run, tap, data)                           \
  using Tap = Mox##tap;                                             \
  using Data = Mox##data;                                           \
  static constexpr auto initAlloc = moxsFIRInitAlloc##types;        \
  static constexpr auto getTaps = moxsFIRGetTaps##types;            \
  static constexpr auto setTaps = moxsFIRSetTaps##types;            \
  static constexpr auto allocMultirate = moxsFIRMRInitAlloc##types; \
  static constexpr auto free = moxsFIRFree##run;                    \
  static constexpr auto getDlyLine = moxsFIRGetDlyLine##run;        \
  static constexpr auto setDlyLine = moxsFIRSetDlyLine##run

// What runs, by names that end in `sfs` and `isfs`, taken as they are or with WITHOUT_SCALE.
#define WITHOUT_SCALE(f) WithoutScale<f>::call
#define FIR_RUN(types, data, with, sfs, isfs)                                       \
  static constexpr auto run = with(moxsFIR##types##_##data##sfs);                   \
  static constexpr auto inPlace = with(moxsFIR##types##_##data##isfs);              \
  static constexpr auto one = with(moxsFIROne##types##_##data##sfs);                \
  static constexpr auto direct = with(moxsFIR##types##_Direct_##data##sfs);         \
  static constexpr auto directInPlace = with(moxsFIR##types##_Direct_##data##isfs); \
  static constexpr auto oneDirect = with(moxsFIROne##types##_Direct_##data##sfs)
#define FIR_MULTIRATE(types, data, with, sfs) \
  static constexpr auto multirateDirect = with(moxsFIRMR##types##_Direct_##data##sfs)

// Floats, and integers by way of floats: where the engine changes to that by FFT.
#define FIR_BY_FLOATS(name, types, tap, data, with, sfs, isfs, taps, len) \
  struct Fir##name {                                                      \
    FIR_STATES(types##_##data, types##_##data, tap, data);                \
    FIR_RUN(types, data, with, sfs, isfs);                                \
    FIR_MULTIRATE(types, data, with, sfs);                                \
    static constexpr int fftTaps = taps, fftLen = len;                    \
  }
#define FIR_FLOAT(name, types, tap, data, taps, len) \
  FIR_BY_FLOATS(name, types, tap, data, WITHOUT_SCALE, , _I, taps, len)
#define FIR_SCALED(types, data, taps, len) \
  FIR_BY_FLOATS(types##data, types, types, data, , _Sfs, _ISfs, taps, len)
// Sums in 32 bits that wrap around: the largest integer tap, in a state and without one.
#define FIR_FIXED(name, types, run, tap, data, mostTap, mostDirectTap, multirate) \
  struct Fir##name {                                                              \
    FIR_STATES(types, run##_##data, tap, data);                                   \
    FIR_RUN(run, data, , _Sfs, _ISfs);                                            \
    static constexpr int fftTaps = INT_MAX, fftLen = INT_MAX;                     \
    static constexpr long limit = mostTap, directLimit = mostDirectTap;           \
    multirate                                                                     \
  }

FIR_FLOAT(32f, , 32f, 32f, 64, 512);
FIR_FLOAT(32fc, , 32fc, 32fc, 16, 256);
FIR_FLOAT(64f, , 64f, 64f, 64, 512);
FIR_FLOAT(64fc, , 64fc, 64fc, 32, 256);
FIR_FLOAT(64f32f, 64f, 64f, 32f, 64, 512);
FIR_FLOAT(64fc32fc, 64fc, 64fc, 32fc, 32, 256);
FIR_SCALED(32f, 16s, 64, 512);
FIR_SCALED(32fc, 16sc, 16, 256);
FIR_SCALED(64f, 32s, 64, 512);
FIR_SCALED(64fc, 32sc, 32, 256);
FIR_SCALED(64f, 16s, 64, 512);
FIR_SCALED(64fc, 16sc, 32, 256);
FIR_FIXED(16s, _16s, , 16s, 16s, 32767, 32766, );
FIR_FIXED(32s16s, 32s_16s, 32s, 32s, 16s, 32766, 32766, FIR_MULTIRATE(32s, 16s, , _Sfs););
FIR_FIXED(32sc16sc, 32sc_16sc, 32sc, 32sc, 16sc, 32766, 32766, FIR_MULTIRATE(32sc, 16sc, , _Sfs););
FIR_FIXED(32s16s32f, 32s_16s32f, 32s, 32f, 16s, 0, 0, );
FIR_FIXED(32sc16sc32fc, 32sc_16sc32fc, 32sc, 32fc, 16sc, 0, 0, );
#undef FIR_FIXED
#undef FIR_SCALED
#undef FIR_MULTIRATE
#undef FIR_BY_FLOATS
#undef FIR_RUN
#undef WITHOUT_SCALE
#undef FIR_FLOAT
#undef FIR_STATES

#define FLOAT_FIRS                                                                             \
  Fir32f, Fir32fc, Fir64f, Fir64fc, Fir64f32f, Fir64fc32fc, Fir32f16s, Fir32fc16sc, Fir64f16s, \
      Fir64fc16sc, Fir64f32s, Fir64fc32sc
using FloatFirs = ::testing::Types<FLOAT_FIRS>;
using AllFirs =
    ::testing::Types<FLOAT_FIRS, Fir16s, Fir32s16s, Fir32sc16sc, Fir32s16s32f, Fir32sc16sc32fc>;
#undef FLOAT_FIRS

template <class F>
constexpr bool isFixedPoint = F::fftTaps == INT_MAX;
template <class F>
constexpr bool takesFactor = std::is_integral_v<mox::Part<typename F::Tap>>;

struct Rates {
  int up = 1, upPhase = 0, down = 1, downPhase = 0;

  bool areSingle() const { return up == 1 && down == 1; }
  // Samples before the first one that are met.
  int history(int taps) const { return (taps + up - 1) / up; }
};

using FirHandle = Handle<MoxsFIRState>;

// By initAlloc, or by allocMultirate with rates.
template <class F>
MoxStatus allocFir(MoxsFIRState** s, auto alloc, const std::vector<typename F::Tap>& taps,
                   const typename F::Data* dlyLine, int factor, auto... rates) {
  if constexpr (takesFactor<F>)
    return alloc(s, taps.data(), int(taps.size()), factor, rates..., dlyLine);
  else
    return alloc(s, taps.data(), int(taps.size()), rates..., dlyLine);
}

template <class F>
FirHandle makeFir(const std::vector<typename F::Tap>& taps,
                  const typename F::Data* dlyLine = nullptr, const Rates& r = {}, int factor = 0) {
  MoxsFIRState* s = nullptr;
  EXPECT_OK(r.areSingle() ? allocFir<F>(&s, F::initAlloc, taps, dlyLine, factor)
                          : allocFir<F>(&s, F::allocMultirate, taps, dlyLine, factor, r.up,
                                        r.upPhase, r.down, r.downPhase));
  return FirHandle(s, {F::free});
}

template <class F>
MoxStatus setTaps(MoxsFIRState* s, const std::vector<typename F::Tap>& taps, int factor) {
  if constexpr (takesFactor<F>)
    return F::setTaps(taps.data(), s, factor);
  else
    return F::setTaps(taps.data(), s);
}

}  // namespace test
