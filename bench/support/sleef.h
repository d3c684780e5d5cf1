// SLEEF's function for the registers of the program, such as u10 for 1.0 ulp.
#pragma once

#include <sleef.h>

#if defined __AVX512F__
#define SLEEF_32F(name, bound) Sleef_##name##f16_##bound##avx512f
#define SLEEF_64F(name, bound) Sleef_##name##d8_##bound##avx512f
#elif defined __AVX2__
#define SLEEF_32F(name, bound) Sleef_##name##f8_##bound##avx2
#define SLEEF_64F(name, bound) Sleef_##name##d4_##bound##avx2
#else
#define SLEEF_32F(name, bound) Sleef_##name##f8_##bound##avx
#define SLEEF_64F(name, bound) Sleef_##name##d4_##bound##avx
#endif
