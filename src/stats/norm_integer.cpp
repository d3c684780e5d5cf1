// Norms of 16-bit vectors, and of the differences of two: exact values, which factors truncate.
#include <moxsp/reductions.h>

#include <algorithm>
#include <bit>
#include <cstdlib>

#include "frame/control_word.h"
#include "frame/export.h"
#include "stats/integer_sums.h"
#include "stats/terms.h"

namespace mox::stats {
namespace {

struct Inf {
  template <class... E>
  Mox64u operator()(long len, const E*... src) const {
    constexpr Order anyOrder = {.lanes = 32, .tail = Tail::halves};
    const auto terms = [... p = src]<class T>(std::type_identity<T>, long i) {
      if constexpr (std::is_integral_v<T>)
        return std::array{T(std::abs(difference(int(load<Mox16s>(p + i))...)))};
      else
        return std::array{magnitudes(load<I<Mox16s>>(p + i)...)};
    };
    return fold<anyOrder, Mox16u, 1, Max>(ofSources(terms, src...), len).of[0][0];
  }
};

struct L1 {
  template <class... E>
  Mox64u operator()(long len, const E*... src) const {
    return exactSumOfMagnitudes(len, src...);
  }
};

struct L2Sqr {
  template <class... E>
  Mox64u operator()(long len, const E*... src) const {
    return exactSumOfSquares(len, src...);
  }
};

// As a float.
template <class Value>
struct Converted {
  template <class... E>
  Mox32f operator()(long len, const E*... src) const {
    return Mox32f(Mox64f(Mox64s(Value()(len, src...))));
  }
};
struct ConvertedRoot {
  template <class... E>
  Mox32f operator()(long len, const E*... src) const {
    return Mox32f(squareRoot(Mox64f(Mox64s(L2Sqr()(len, src...)))));
  }
};

// Shifts that drop what they shift out, and saturate to the left; without a factor the low bits.
Mox32s shifted(Mox64u value, int factor) {
  constexpr Mox64u max = Limits<Mox32s>::max;
  if (factor == 0) return Mox32s(value);
  if (factor > 0) return Mox32s(std::min(value >> std::min(factor, 63), max));
  const int places = -std::max(factor, -31);
  return Mox32s(value > max >> places ? max : value << places);
}

// Beyond 31 a factor counts modulo 32 for the high half alone.
Mox64s shiftedWide(Mox64u value, int factor) {
  if (factor > 31) return Mox64s(value >> 32 >> factor % 32);
  if (factor >= 0) return Mox64s(value >> factor);
  const int places = -std::max(factor, -63);
  return std::bit_width(value) + places > 63 ? Mox64s(Limits<Mox64s>::max)
                                             : Mox64s(value << places);
}

// The factor is 1 << n in 32 signed bits, n modulo 32: 31 makes it negative.
Mox32s scaledRoot(Mox64u value, int factor) {
  const HiddenExceptions scope;
  const Mox64f root = squareRoot(Mox64f(Mox64s(value)));
  const Mox32u places = factor > 0 ? Mox32u(factor) : -Mox32u(factor);
  const Mox64f power = Mox32s(1u << places % 32);
  const Mox64f scaled = factor > 0 ? root / power : root * power;
  constexpr Mox64f least = Limits<Mox32s>::min, most = Limits<Mox32s>::max;
  return scope.settled(Mox32s(std::clamp(scaled, least, most)));
}

template <class Kind, class D>
MoxStatus norm(const Mox16s* src, int len, D* result) {
  if (MoxStatus s = checkArrays(len, src, result)) return s;
  store(result, Kind()(len, src));
  return moxOk;
}
template <class Kind, class D>
MoxStatus normDiff(const Mox16s* src1, const Mox16s* src2, int len, D* result) {
  if (MoxStatus s = checkArrays(len, src1, src2, result)) return s;
  store(result, Kind()(len, src1, src2));
  return moxOk;
}

template <class Value, auto scale, class D>
MoxStatus scaledNorm(const Mox16s* src, int len, D* result, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, result)) return s;
  store(result, scale(Value()(len, src), scaleFactor));
  return moxOk;
}
template <class Value, auto scale, class D>
MoxStatus scaledNormDiff(const Mox16s* src1, const Mox16s* src2, int len, D* result,
                         int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src1, src2, result)) return s;
  store(result, scale(Value()(len, src1, src2), scaleFactor));
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsNorm_Inf_16s32f, norm<Converted<Inf>>);
MOX_EXPORT(moxsNorm_L1_16s32f, norm<Converted<L1>>);
MOX_EXPORT(moxsNorm_L2_16s32f, norm<ConvertedRoot>);
MOX_EXPORT(moxsNorm_Inf_16s32s_Sfs, scaledNorm<Inf, shifted>);
MOX_EXPORT(moxsNorm_L1_16s32s_Sfs, scaledNorm<L1, shifted>);
MOX_EXPORT(moxsNorm_L1_16s64s_Sfs, scaledNorm<L1, shiftedWide>);
MOX_EXPORT(moxsNorm_L2Sqr_16s64s_Sfs, scaledNorm<L2Sqr, shiftedWide>);
MOX_EXPORT(moxsNorm_L2_16s32s_Sfs, scaledNorm<L2Sqr, scaledRoot>);

MOX_EXPORT(moxsNormDiff_Inf_16s32f, normDiff<Converted<Inf>>);
MOX_EXPORT(moxsNormDiff_L1_16s32f, normDiff<Converted<L1>>);
MOX_EXPORT(moxsNormDiff_L2_16s32f, normDiff<ConvertedRoot>);
MOX_EXPORT(moxsNormDiff_Inf_16s32s_Sfs, scaledNormDiff<Inf, shifted>);
MOX_EXPORT(moxsNormDiff_L1_16s32s_Sfs, scaledNormDiff<L1, shifted>);
MOX_EXPORT(moxsNormDiff_L1_16s64s_Sfs, scaledNormDiff<L1, shiftedWide>);
MOX_EXPORT(moxsNormDiff_L2Sqr_16s64s_Sfs, scaledNormDiff<L2Sqr, shiftedWide>);
MOX_EXPORT(moxsNormDiff_L2_16s32s_Sfs, scaledNormDiff<L2Sqr, scaledRoot>);

}  // namespace mox::stats
