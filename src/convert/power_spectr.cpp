// Squared magnitudes.
#include <moxsp/complex.h>

#include "convert/complex_bodies.h"
#include "convert/magnitude.h"
#include "frame/complex16.h"
#include "frame/export.h"
#include "frame/rounding.h"

namespace mox::convert {
namespace {

template <class F>
struct Power {
  static constexpr int lanes = lanesOf<F>;
  auto operator()(auto src, long i) const { return squaredMagnitude(src.template lanes<V<F>>(i)); }
};

struct PowerOfWords {
  static constexpr int lanes = lanesOf<Mox32f>;
  auto operator()(auto src, long i) const { return squaredMagnitudeAsFloat(src, i); }
};

// By the scale rule.
template <class Rule>
struct ScaledPower {
  static constexpr int lanes = laneCount<I<Mox16s>>;

  auto operator()(auto src, long i) const {
    const auto half = [&](long at) {
      return rule(unwrapped(squaredMagnitudesOfWords<I<Mox32s>>(src, at)));
    };
    return packInOrder<Mox16s>(half(i), half(i + lanes / 2));
  }

  Rule rule;
};

template <class Source>
void mapPower(int factor, Source src, Mox16s* dst, long len) {
  Scale<Mox16s, 31>(factor).withRule([&]<class Rule>(Rule rule) {
    mapComplex(ScaledPower<Rule>{rule}, src, Array<Mox16s>{dst}, len);
  });
}
MoxStatus powerScaled(const Mox16sc* src, Mox16s* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mapPower(scaleFactor, Array<const Mox16sc>{src}, dst, len);
  return moxOk;
}
MoxStatus powerScaledOfTwo(const Mox16s* srcRe, const Mox16s* srcIm, Mox16s* dst, int len,
                           int scaleFactor) {
  if (MoxStatus s = checkArrays(len, srcRe, srcIm, dst)) return s;
  mapPower(scaleFactor, Split<const Mox16s>{srcRe, srcIm}, dst, len);
  return moxOk;
}

// 2^63, which 64 bits don't hold, is taken as one less here.
MoxStatus powerOfLong(const Mox32sc* src, Mox32s* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  Scale<Mox32s, 63>(scaleFactor).withRule([=](auto rule) {
    for (long i = 0; i < len; ++i) {
      const auto z = load<Mox32sc>(src + i);
      const auto square = [](Mox64s x) { return Mox64u(x * x); };
      const Mox64u power = square(z.re) + square(z.im);
      store(dst + i, saturate<Mox32s>(rule(Mox64s(power - (power >> 63)))));
    }
  });
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsPowerSpectr_32f, mapSplit<Power<Mox32f>>);
MOX_EXPORT(moxsPowerSpectr_64f, mapSplit<Power<Mox64f>>);
MOX_EXPORT(moxsPowerSpectr_32fc, mapInterleaved<Power<Mox32f>>);
MOX_EXPORT(moxsPowerSpectr_64fc, mapInterleaved<Power<Mox64f>>);
MOX_EXPORT(moxsPowerSpectr_16s32f, mapSplit<PowerOfWords>);
MOX_EXPORT(moxsPowerSpectr_16sc32f, mapInterleaved<PowerOfWords>);
MOX_EXPORT(moxsPowerSpectr_16s_Sfs, powerScaledOfTwo);
MOX_EXPORT(moxsPowerSpectr_16sc_Sfs, powerScaled);
MOX_EXPORT(moxsMagSquared_32fc64f, mapInterleaved<Power<Mox64f>>);
MOX_EXPORT(moxsMagSquared_32sc32s_Sfs, powerOfLong);

}  // namespace mox::convert
