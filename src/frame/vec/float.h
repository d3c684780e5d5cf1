// Lanes of floats: rounding, roots, estimates, signs, half floats.
#pragma once

#include "frame/vec/shuffle.h"

namespace mox {

namespace detail {
template <int mode, Of<Mox32f> T>
[[gnu::always_inline]] inline T rounded(T v) {
  if constexpr (sizeof v == 64)
    return T(_mm512_roundscale_ps(v, mode | _MM_FROUND_NO_EXC));
  else
    MOX_BY_WIDTH(T, round_ps(v, mode | _MM_FROUND_NO_EXC));
}
template <int mode, Of<Mox64f> T>
[[gnu::always_inline]] inline T rounded(T v) {
  if constexpr (sizeof v == 64)
    return T(_mm512_roundscale_pd(v, mode | _MM_FROUND_NO_EXC));
  else
    MOX_BY_WIDTH(T, round_pd(v, mode | _MM_FROUND_NO_EXC));
}
}  // namespace detail

// To the nearest integer, ties to even, whatever the rounding mode in force.
template <class T>
[[gnu::always_inline]] inline T nearestInteger(T v) {
  return detail::rounded<_MM_FROUND_TO_NEAREST_INT>(v);
}
template <class T>
[[gnu::always_inline]] inline T truncated(T v) {
  return detail::rounded<_MM_FROUND_TO_ZERO>(v);
}

// To an integer in the rounding mode in force; the minimum for a value that has none.
template <class T>
[[gnu::always_inline]] inline auto toInteger(T v) {
  using R = Beside<Mox32s, T>;
  if constexpr (std::is_same_v<T, V<Mox32f, 16>>)
    return R(_mm512_cvtps_epi32(v));
  else if constexpr (std::is_same_v<T, V<Mox32f, 8>>)
    return R(_mm256_cvtps_epi32(v));
  else if constexpr (std::is_same_v<T, V<Mox32f, 4>>)
    return R(_mm_cvtps_epi32(v));
  else if constexpr (std::is_same_v<T, V<Mox64f, 8>>)
    return R(_mm512_cvtpd_epi32(v));
  else
    return R(_mm256_cvtpd_epi32(v));
}
inline Mox64s toInteger(Mox64f x) { return _mm_cvtsd_si64(_mm_set_sd(x)); }

// The integers that floats hold, in the low bits of a lane, any that fit there; and back.
template <Of<Mox32f> T>
[[gnu::always_inline]] inline Beside<Mox32s, T> integersOf(T v) {
  return __builtin_convertvector(v, Beside<Mox32s, T>);
}
template <Of<Mox32s> T>
[[gnu::always_inline]] inline Beside<Mox32f, T> floatsOf(T v) {
  return __builtin_convertvector(v, Beside<Mox32f, T>);
}

// Half floats, for processors that have the instructions. They are spelled out here, for the
// compiler must not use them of its own accord anywhere.
[[gnu::always_inline]] inline V<Mox32f> halfToFloat(Beside<Mox16u, V<Mox32f>> v) {
  V<Mox32f> r;
  asm("vcvtph2ps %1, %0" : "=x"(r) : "xm"(v));
  return r;
}
template <int rounding>
[[gnu::always_inline]] inline Beside<Mox16u, V<Mox32f>> floatToHalf(V<Mox32f> v) {
  Beside<Mox16u, V<Mox32f>> r;
  asm("vcvtps2ph %2, %1, %0" : "=x"(r) : "x"(v), "i"(rounding));
  return r;
}

// Lane by lane, and for one number.
template <Of<Mox32f> T>
[[gnu::always_inline]] inline T squareRoot(T v) {
  MOX_BY_WIDTH(T, sqrt_ps(v));
}
template <Of<Mox64f> T>
[[gnu::always_inline]] inline T squareRoot(T v) {
  MOX_BY_WIDTH(T, sqrt_pd(v));
}
inline Mox32f squareRoot(Mox32f x) { return _mm_cvtss_f32(_mm_sqrt_ss(_mm_set_ss(x))); }
inline Mox64f squareRoot(Mox64f x) {
  return _mm_cvtsd_f64(_mm_sqrt_sd(_mm_setzero_pd(), _mm_set_sd(x)));
}

// The processor's estimates of 1 / v and 1 / sqrt(v), to about 12 bits. Registers of 64 bytes have
// other estimates, of which results would differ: those take the instruction for each half.
template <Of<Mox32f> T>
[[gnu::always_inline]] inline T reciprocalEstimate(T v) {
  if constexpr (sizeof v == 64)
    return join<T>(reciprocalEstimate(halves(v).low), reciprocalEstimate(halves(v).high));
  else
    MOX_BY_WIDTH(T, rcp_ps(v));
}
template <Of<Mox32f> T>
[[gnu::always_inline]] inline T reciprocalRootEstimate(T v) {
  if constexpr (sizeof v == 64)
    return join<T>(reciprocalRootEstimate(halves(v).low), reciprocalRootEstimate(halves(v).high));
  else
    MOX_BY_WIDTH(T, rsqrt_ps(v));
}

// 1 / v from the processor's estimate and one step of Newton's method: good to a unit or two in the
// last place, the same on processors with the same estimate.
template <Of<Mox32f> T>
[[gnu::always_inline]] inline T refinedReciprocal(T v) {
  const T g = reciprocalEstimate(v);
  return g * (2.0f - v * g);
}

// The value without its sign, and with the sign of another.
template <class T>
[[gnu::always_inline]] inline T absolute(T v) {
  return T(Bits<T>(v) & ~signBit<T>);
}
template <class T>
[[gnu::always_inline]] inline T withSignOf(T signs, T v) {
  return T(Bits<T>(v) | (Bits<T>(signs) & signBit<T>));
}

}  // namespace mox
