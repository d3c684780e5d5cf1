// Lanes of floats: rounding, roots, estimates, signs, half floats.
#pragma once

#include "frame/vec/core.h"

namespace mox {

// To the nearest integer, ties to even, whatever the rounding mode in force.
[[gnu::always_inline]] inline V<Mox64f> nearestInteger(V<Mox64f> v) {
  return V<Mox64f>(_mm256_round_pd(v, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
}

[[gnu::always_inline]] inline V<Mox32f> nearestInteger(V<Mox32f> v) {
  return V<Mox32f>(_mm256_round_ps(v, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
}

// To an integer in the rounding mode in force; the minimum for a value that has none.
[[gnu::always_inline]] inline V<Mox32s> toInteger(V<Mox32f> v) {
  return V<Mox32s>(_mm256_cvtps_epi32(v));
}
[[gnu::always_inline]] inline Beside<Mox32s, V<Mox64f>> toInteger(V<Mox64f> v) {
  return Beside<Mox32s, V<Mox64f>>(_mm256_cvtpd_epi32(v));
}
inline Mox64s toInteger(Mox64f x) { return _mm_cvtsd_si64(_mm_set_sd(x)); }

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
template <class T>
[[gnu::always_inline]] inline T squareRoot(T v) {
  if constexpr (std::is_same_v<T, V<Mox32f>>)
    return T(_mm256_sqrt_ps(v));
  else if constexpr (std::is_same_v<T, V<Mox64f>>)
    return T(_mm256_sqrt_pd(v));
  else if constexpr (std::is_same_v<T, V<Mox32f, 4>>)
    return T(_mm_sqrt_ps(v));
  else if constexpr (std::is_same_v<T, V<Mox64f, 2>>)
    return T(_mm_sqrt_pd(v));
  else if constexpr (std::is_same_v<T, Mox32f>)
    return _mm_cvtss_f32(_mm_sqrt_ss(_mm_set_ss(v)));
  else
    return _mm_cvtsd_f64(_mm_sqrt_sd(_mm_setzero_pd(), _mm_set_sd(v)));
}

// The processor's estimates of 1 / v and 1 / sqrt(v), to about 12 bits.
[[gnu::always_inline]] inline V<Mox32f> reciprocalEstimate(V<Mox32f> v) {
  return V<Mox32f>(_mm256_rcp_ps(v));
}
[[gnu::always_inline]] inline V<Mox32f, 4> reciprocalRootEstimate(V<Mox32f, 4> v) {
  return V<Mox32f, 4>(_mm_rsqrt_ps(v));
}

// The same of 1 / sqrt(v).
[[gnu::always_inline]] inline V<Mox32f> reciprocalRootEstimate(V<Mox32f> v) {
  return V<Mox32f>(_mm256_rsqrt_ps(v));
}

// 1 / v from the processor's estimate and one step of Newton's method: good to a unit or two in the
// last place, the same on processors with the same estimate.
[[gnu::always_inline]] inline V<Mox32f> refinedReciprocal(V<Mox32f> v) {
  const V<Mox32f> g = reciprocalEstimate(v);
  return g * (2.0f - v * g);
}

[[gnu::always_inline]] inline V<Mox32f> truncated(V<Mox32f> v) {
  return V<Mox32f>(_mm256_round_ps(v, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC));
}
[[gnu::always_inline]] inline V<Mox64f> truncated(V<Mox64f> v) {
  return V<Mox64f>(_mm256_round_pd(v, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC));
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

// The integers that floats hold, in the low bits of a lane; any that fit there.
[[gnu::always_inline]] inline V<Mox32s> integersOf(V<Mox32f> v) {
  return V<Mox32s>(_mm256_cvttps_epi32(v));
}
[[gnu::always_inline]] inline V<Mox32f> floatsOf(V<Mox32s> v) {
  return V<Mox32f>(_mm256_cvtepi32_ps(__m256i(v)));
}

}  // namespace mox
