// The IIR functions by combination of types, and the recurrence that their results are measured
// against.
#pragma once

#include "support/filters.h"
#include "support/test.h"

namespace test {

#define IIR_STATE(types, suffix, tap, data, held)                              \
  using Tap = Mox##tap;                                                        \
  using Data = Mox##data;                                                      \
  using Held = Mox##held;                                                      \
  static constexpr auto make = moxsIIRInitAlloc##types##suffix;                \
  static constexpr auto makeBiQuad = moxsIIRInitAlloc##types##_BiQuad##suffix; \
  static constexpr auto free = moxsIIRFree##types##suffix;                     \
  static constexpr auto getDlyLine = moxsIIRGetDlyLine##types##suffix;         \
  static constexpr auto setDlyLine = moxsIIRSetDlyLine##types##suffix;         \
  static constexpr auto setTaps = moxsIIRSetTaps##types##suffix
#define IIR(name, types, suffix, tap, data, held, with, sfs, isfs)      \
  struct name {                                                         \
    IIR_STATE(types, suffix, tap, data, held);                          \
    static constexpr auto run = with(moxsIIR##types##suffix##sfs);      \
    static constexpr auto inPlace = with(moxsIIR##types##suffix##isfs); \
    static constexpr auto one = with(moxsIIROne##types##suffix##sfs);   \
  }
#define WITHOUT_SCALE(f) WithoutScale<f>::call
#define IIR_FLOAT(name, types, suffix, tap, data) \
  IIR(name, types, suffix, tap, data, tap, WITHOUT_SCALE, , _I)
#define IIR_SCALED(name, types, suffix, tap, data, held) \
  IIR(name, types, suffix, tap, data, held, , _Sfs, _ISfs)
IIR_FLOAT(Iir32f, , _32f, 32f, 32f);
IIR_FLOAT(Iir32fc, , _32fc, 32fc, 32fc);
IIR_FLOAT(Iir64f, , _64f, 64f, 64f);
IIR_FLOAT(Iir64fc, , _64fc, 64fc, 64fc);
IIR_FLOAT(Iir64f32f, 64f, _32f, 64f, 32f);
IIR_FLOAT(Iir64fc32fc, 64fc, _32fc, 64fc, 32fc);
IIR_SCALED(Iir32f16s, 32f, _16s, 32f, 16s, 32f);
IIR_SCALED(Iir32fc16sc, 32fc, _16sc, 32fc, 16sc, 32fc);
IIR_SCALED(Iir64f16s, 64f, _16s, 64f, 16s, 64f);
IIR_SCALED(Iir64fc16sc, 64fc, _16sc, 64fc, 16sc, 64fc);
IIR_SCALED(Iir64f32s, 64f, _32s, 64f, 32s, 64f);
IIR_SCALED(Iir64fc32sc, 64fc, _32sc, 64fc, 32sc, 64fc);
IIR_SCALED(Iir32s16s, 32s, _16s, 32s, 16s, 32f);
IIR_SCALED(Iir32sc16sc, 32sc, _16sc, 32sc, 16sc, 32fc);
#undef IIR_FLOAT
#undef WITHOUT_SCALE
#undef IIR
#undef IIR_SCALED
#undef IIR_STATE

using AllIirs = ::testing::Types<Iir32f, Iir32fc, Iir64f, Iir64fc, Iir64f32f, Iir64fc32fc,
                                 Iir32f16s, Iir32fc16sc, Iir64f16s, Iir64fc16sc, Iir64f32s,
                                 Iir64fc32sc, Iir32s16s, Iir32sc16sc>;

// Integer taps are in units of 2^-tapsFactor.
constexpr int tapsFactor = 24;
template <class F>
constexpr bool hasTapsFactor = !std::is_same_v<typename F::Tap, typename F::Held>;

using IirHandle = Handle<MoxsIIRState>;

enum class Shape { anyOrder, cascade };

template <class F>
IirHandle makeIir(Shape shape, const std::vector<typename F::Tap>& taps, int count,
                  const typename F::Held* dlyLine = nullptr) {
  MoxsIIRState* s = nullptr;
  const auto make = [&](auto f) {
    if constexpr (hasTapsFactor<F>)
      return f(&s, taps.data(), count, tapsFactor, dlyLine);
    else
      return f(&s, taps.data(), count, dlyLine);
  };
  EXPECT_OK(shape == Shape::cascade ? make(F::makeBiQuad) : make(F::make));
  return IirHandle(s, {F::free});
}

template <class E>
E rounded(Exact z) {
  const auto part = [](long double v) {
    return mox::Part<E>(std::is_integral_v<mox::Part<E>> ? std::nearbyint(v) : v);
  };
  if constexpr (mox::Complex<E>)
    return {part(z.real()), part(z.imag())};
  else
    return part(z.real());
}

// A cascade of sections b[0..order], a[0..order] that runs by the recurrence of the transposed
// direct form II.
struct Recurrence {
  int order, sections;
  std::vector<Exact> taps, d;

  template <class Tap>
  Recurrence(Shape shape, const std::vector<Tap>& t, int count)
      : order(shape == Shape::cascade ? 2 : count),
        sections(shape == Shape::cascade ? count : 1),
        d(order * sections) {
    for (const Tap& tap : t)
      taps.push_back(std::is_integral_v<mox::Part<Tap>> ? exactly(tap) * 0x1p-24L : exactly(tap));
  }

  Exact operator()(Exact x) {
    for (int k = 0; k < sections; ++k) {
      const Exact *b = &taps[2 * (order + 1) * k], *a = b + order + 1;
      Exact* s = &d[order * k];
      const Exact y = b[0] / a[0] * x + s[0];
      for (int i = 0; i < order; ++i)
        s[i] = (b[i + 1] * x - a[i + 1] * y) / a[0] + (i + 1 < order ? s[i + 1] : 0);
      x = y;
    }
    return x;
  }
  template <class Data>
  std::vector<Exact> outputsFor(const std::vector<Data>& src) {
    std::vector<Exact> outputs;
    for (const Data& x : src) outputs.push_back((*this)(exactly(x)));
    return outputs;
  }
};

// Stable taps: random ones, with feedback small enough for any order, about the gain 1.
template <class F>
std::vector<typename F::Tap> someTaps(Random& random, Shape shape, int count) {
  using Tap = typename F::Tap;
  const int order = shape == Shape::cascade ? 2 : count,
            sections = shape == Shape::cascade ? count : 1;
  const double unit = hasTapsFactor<F> ? 0x1p24 : 1;
  std::vector<Tap> taps;
  for (int k = 0; k < sections; ++k)
    for (int i = 0; i < 2 * (order + 1); ++i) {
      const auto v =
          exactly(random.value<std::conditional_t<mox::Complex<Tap>, Mox64fc, Mox64f>>());
      const long double size = i <= order ? 0.5 / std::sqrt(order + 1.0) : 0.6 / order;
      taps.push_back(rounded<Tap>((i == order + 1 ? Exact(1.25) : v * size) * Exact(unit)));
    }
  return taps;
}

}  // namespace test
