/**
 * @file
 * The spectrum of a vector at one or two frequencies.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox32f x[8] = {1, 2, 1, 0, 1, 2, 1, 0};  // two periods of a sine above 1
 *   Mox32fc bin;
 *   moxsGoertz_32f(x, 8, &bin, 0.25f);
 *   printf("%.3f ", bin.im);  // -4.000
 *   moxsGoertz_32f(x, 8, &bin, 0);
 *   printf("%.3f", bin.re);  // 8.000
 * }
 * @endcode
 */
#ifndef MOXSP_GOERTZEL_H
#define MOXSP_GOERTZEL_H

#include <moxsp/types.h>

/** @defgroup goertzel Goertz
 * @ingroup topic_transforms
 * The spectrum at the relative frequency `f`, a fraction of the sampling rate with 0 <= f < 1:
 *
 *     dst = sum of x[n] * exp(i w (len - n)),  w = 2 pi f,  over 0 <= n < len
 *
 * This is the forward transform at `f` times exp(i w len). For f = k / len the factor is 1, and
 * `dst` the bin k of a transform of `len` samples. GoertzTwo gives `dst[0]` and `dst[1]` at the two
 * frequencies `relFreq[0]` and `relFreq[1]` in one pass over `src`. Q15 forms take `f` times 2^15.
 *
 * Integer forms: the sum times 2^-scaleFactor, rounded to nearest and saturated.
 *
 * @return ::moxErrNullPtr, ::moxErrSize for `len` below 1, ::moxErrRelFreq for a frequency that is
 * below 0, not below 1, or NaN. A negative frequency of `moxsGoertzQ15` is refused before all else,
 * one of `moxsGoertzTwoQ15` behind a null `relFreqQ15`.
 * @note `_64f` and `_64fc` are defined to the bit, given c = cos(w) and s = sin(w) in double
 * precision: with s1 = s2 = 0, for each n in turn t = s1 * (c + c) + (x[n] - s2), s2 = s1, s1 = t;
 * then dst = s1 * (c + i s) - s2. All others compute in double precision, with several samples side
 * by side. The error of a part of `dst` is below (2^-24 + 2^-57 len^2) * sum of |x[n]|, that of an
 * integer 1/2 more.
 * @see Goertzel, An algorithm for the evaluation of finite trigonometric series, Amer. Math.
 * Monthly 65, 1958.
 * @{ */
MOX_API MoxStatus moxsGoertz_32f(const Mox32f* src, int len, Mox32fc* dst, Mox32f relFreq);
MOX_API MoxStatus moxsGoertz_32fc(const Mox32fc* src, int len, Mox32fc* dst, Mox32f relFreq);
MOX_API MoxStatus moxsGoertz_64f(const Mox64f* src, int len, Mox64fc* dst, Mox64f relFreq);
MOX_API MoxStatus moxsGoertz_64fc(const Mox64fc* src, int len, Mox64fc* dst, Mox64f relFreq);
MOX_API MoxStatus moxsGoertz_16s_Sfs(const Mox16s* src, int len, Mox16sc* dst, Mox32f relFreq,
                                     int scaleFactor);
MOX_API MoxStatus moxsGoertz_16sc_Sfs(const Mox16sc* src, int len, Mox16sc* dst, Mox32f relFreq,
                                      int scaleFactor);
MOX_API MoxStatus moxsGoertzQ15_16sc_Sfs(const Mox16sc* src, int len, Mox16sc* dst,
                                         Mox16s relFreqQ15, int scaleFactor);
MOX_API MoxStatus moxsGoertzTwo_32f(const Mox32f* src, int len, Mox32fc* dst,
                                    const Mox32f* relFreq);
MOX_API MoxStatus moxsGoertzTwo_32fc(const Mox32fc* src, int len, Mox32fc* dst,
                                     const Mox32f* relFreq);
MOX_API MoxStatus moxsGoertzTwo_64f(const Mox64f* src, int len, Mox64fc* dst,
                                    const Mox64f* relFreq);
MOX_API MoxStatus moxsGoertzTwo_64fc(const Mox64fc* src, int len, Mox64fc* dst,
                                     const Mox64f* relFreq);
MOX_API MoxStatus moxsGoertzTwo_16sc_Sfs(const Mox16sc* src, int len, Mox16sc* dst,
                                         const Mox32f* relFreq, int scaleFactor);
MOX_API MoxStatus moxsGoertzTwoQ15_16sc_Sfs(const Mox16sc* src, int len, Mox16sc* dst,
                                            const Mox16s* relFreqQ15, int scaleFactor);
/** @} */

#endif
