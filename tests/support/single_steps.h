// Pieces of the single-precision kernels, one operation after the other for one number.
#pragma once

#include <immintrin.h>

namespace test {

// The processor's estimate, and one step of Newton's method.
inline float reciprocalInSteps(float a) {
  const float g = _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(a)));
  return g * (2.0f - a * g);
}

// The arctangent of 0 to 1.
inline float arctanInSteps(float t) {
  const float s = t * t;
  const float p =
      ((0.008561189286410809f * s + 0.2805045545101166f) * s + 1.1202340126037598f) * s + 1.0f;
  const float q =
      ((0.049017589539289474f * s + 0.5650309920310974f) * s + 1.4535671472549438f) * s + 1.0f;
  return t * p * reciprocalInSteps(q);
}

}  // namespace test
