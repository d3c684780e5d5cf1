// Floats to integers under a rounding mode, scaled and saturated.
#include <moxsp/convert.h>

#include "convert/convert.h"
#include "frame/export.h"
#include "frame/map_scaled.h"
#include "frame/rounding_control.h"

namespace mox::convert {
namespace {

// All modes but to nearest run under truncation.
Rounding controlFor(int roundMode) {
  return roundMode == moxRoundNearEven ? Rounding::nearEven : Rounding::zero;
}

bool addsHalf(int roundMode) { return roundMode != moxRoundZero && roundMode != moxRoundNearEven; }

// One half with the sign of each lane.
template <class Vector>
Vector signedHalf(Vector v) {
  return withSignOf(v, broadcast<Vector>(Lane<Vector>(0.5)));
}

// The mode's kernel on vectors. It stops values at the upper limit, where NaN ends as well; at the
// lower one the conversion itself yields the minimum of 32 bits, which saturation narrows.
template <class T, bool half>
struct Kernel {
  template <class Vector>
  [[gnu::always_inline]] auto operator()(Vector v) const {
    using F = Lane<Vector>;
    constexpr F limit = F(Limits<T>::max);
    if constexpr (Int128(limit) != Limits<T>::max) {
      // The maximum is no float. The conversion yields the minimum for what reaches 2^31: turning
      // all bits makes it the maximum.
      if constexpr (half) v += signedHalf(v);
      return toInteger(v) ^ ~(v < limit);
    } else {
      v = lesser(v, broadcast<Vector>(limit));
      if constexpr (half) v += signedHalf(v);
      return toInteger(v);
    }
  }
};

template <class T, bool half, class F>
void runKernel(const F* src, T* dst, long len, F scale) {
  constexpr Kernel<T, half> kernel;
  mapToInteger<Register<F>, Stores::bypassing, true>(
      [&](long i) { store(dst + i, saturate<T>(kernel(V<F>{load<F>(src + i) * scale})[0])); },
      [=](auto v) { return kernel(v * scale); }, dst, len, src);
}

template <class F>
constexpr int largestPower = std::numeric_limits<F>::max_exponent - 2;  // normal up and down

template <class F, class T>
void convertScaled(const F* src, T* dst, long len, int roundMode, F scale, Exceptions exceptions) {
  const RoundingScope scope(controlFor(roundMode), exceptions);
  if (addsHalf(roundMode))
    runKernel<T, true>(src, dst, len, scale);
  else
    runKernel<T, false>(src, dst, len, scale);
}

template <class Packed = void, class F, class D>
MoxStatus convert(const F* src, D* dst, int len, int roundMode, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  convertToInteger(src, samples<Packed>(dst), len, roundMode, scaleFactor, Exceptions::hidden);
  return moxOk;
}

// A factor as two powers of two: one of them is as much of it as a normal number can be.
template <class F>
struct TwoPowers {
  explicit TwoPowers(int scaleFactor) {
    const int n = std::clamp(scaleFactor, -2 * largestPower<F>, 2 * largestPower<F>);
    const int near = std::clamp(n, -largestPower<F>, largestPower<F>);
    first = powerOfTwo<F>(-near), second = powerOfTwo<F>(near - n);
  }
  F first, second;
};

// 64-bit integers, one by one: they have no vector conversion. The length is taken as unsigned, and
// a NaN gives the minimum here, as the processor's conversion has it.
MoxStatus convert64s(const Mox64f* src, Mox64s* dst, int len, int roundMode, int scaleFactor) {
  if (anyNull(src, dst)) return moxErrNullPtr;
  if (len == 0) return moxErrSize;
  const long count = unsigned(len);
  const TwoPowers<Mox64f> scale(scaleFactor);
  const bool half = addsHalf(roundMode);
  const RoundingScope scope(controlFor(roundMode), Exceptions::hidden);
  for (long i = 0; i < count; ++i) {
    Mox64f x = load<Mox64f>(src + i) * scale.first * scale.second;
    if (half) x += x < 0 ? -0.5 : 0.5;
    store(dst + i, x >= 0x1p63 ? Mox64s(Limits<Mox64s>::max) : toInteger(x));
  }
  return moxOk;
}

}  // namespace

// A factor beyond the exponents of F is applied in two steps, the first of them to pieces of the
// source; what underflows there is far below one half.
template <class F, class T>
void convertToInteger(const F* src, T* dst, long len, int roundMode, int scaleFactor,
                      Exceptions exceptions) {
  const TwoPowers<F> scale(scaleFactor);
  if (scale.second == 1) return convertScaled(src, dst, len, roundMode, scale.first, exceptions);
  const HiddenExceptions scope;
  inPieces<F>(len, [&](F* piece, long start, long count) {
    mapElements([&](auto v) { return v * scale.first; }, piece, count, src + start);
    convertScaled(piece, dst + start, count, roundMode, scale.second, exceptions);
  });
}

template void convertToInteger(const Mox32f*, Mox8s*, long, int, int, Exceptions);
template void convertToInteger(const Mox32f*, Mox8u*, long, int, int, Exceptions);
template void convertToInteger(const Mox32f*, Mox16s*, long, int, int, Exceptions);
template void convertToInteger(const Mox32f*, Mox16u*, long, int, int, Exceptions);
template void convertToInteger(const Mox32f*, Packed24s*, long, int, int, Exceptions);
template void convertToInteger(const Mox32f*, Mox32s*, long, int, int, Exceptions);
template void convertToInteger(const Mox64f*, Mox16s*, long, int, int, Exceptions);
template void convertToInteger(const Mox64f*, Mox32s*, long, int, int, Exceptions);

MOX_EXPORT(moxsConvert_32f8s_Sfs, convert);
MOX_EXPORT(moxsConvert_32f8u_Sfs, convert);
MOX_EXPORT(moxsConvert_32f16s_Sfs, convert);
MOX_EXPORT(moxsConvert_32f16u_Sfs, convert);
MOX_EXPORT(moxsConvert_32f24s_Sfs, convert<Packed24s>);
MOX_EXPORT(moxsConvert_32f24u_Sfs, convert<Packed24u>);
MOX_EXPORT(moxsConvert_32f32s_Sfs, convert);
MOX_EXPORT(moxsConvert_64f16s_Sfs, convert);
MOX_EXPORT(moxsConvert_64f32s_Sfs, convert);
MOX_EXPORT(moxsConvert_64f64s_Sfs, convert64s);

}  // namespace mox::convert
