/**
 * @file
 * Complex vectors: their parts, conjugates, and polar form.
 *
 * `len` counts complex numbers, and i runs from 0 to len - 1. A name with a complex type, such as
 * `32fc` or `16sc32f`, takes one array of numbers, the real part of each first; one with a real
 * type, such as `32f` or `16s32f`, takes the real parts from `srcRe` and the imaginary ones from
 * `srcIm`. A destination whose elements have the size of a source's may be that source.
 *
 * Names with `Sfs` follow @ref scaling. The exact value, irrational as it may be, is scaled and
 * then rounded once, so that integer results are defined to the bit. Bounds in ulps hold for
 * rounding to nearest.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox32fc z[2] = {{3, 4}, {0, -2}};
 *   Mox32f magnitude[2], phase[2];
 *   moxsCartToPolar_32fc(z, magnitude, phase, 2);
 *   printf("%.3f at %.3f, ", magnitude[0], phase[0]);  // 5.000 at 0.927,
 *   printf("%.3f at %.3f", magnitude[1], phase[1]);    // 2.000 at -1.571
 * }
 * @endcode
 */
#ifndef MOXSP_COMPLEX_H
#define MOXSP_COMPLEX_H

#include <moxsp/types.h>

/** @defgroup conj Conj and ConjFlip
 * @ingroup topic_complex_numbers
 * Conjugate numbers: `dst[i] = (re, -im)` of `src[i]`, in place of `srcDst[i]`; ConjFlip those of
 * the elements from the last to the first, `dst[i] = conj(src[len - 1 - i])`, where `dst` may be
 * `src`.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @note To the bit. Floats have the sign of their imaginary part changed, that of zeros and NaN
 * too; the conjugate of an imaginary part of -32768 has 32767.
 * @{ */
MOX_API MoxStatus moxsConj_16sc(const Mox16sc* src, Mox16sc* dst, int len);
MOX_API MoxStatus moxsConj_16sc_I(Mox16sc* srcDst, int len);
MOX_API MoxStatus moxsConj_32fc(const Mox32fc* src, Mox32fc* dst, int len);
MOX_API MoxStatus moxsConj_32fc_I(Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsConj_64fc(const Mox64fc* src, Mox64fc* dst, int len);
MOX_API MoxStatus moxsConj_64fc_I(Mox64fc* srcDst, int len);
MOX_API MoxStatus moxsConjFlip_16sc(const Mox16sc* src, Mox16sc* dst, int len);
MOX_API MoxStatus moxsConjFlip_32fc(const Mox32fc* src, Mox32fc* dst, int len);
MOX_API MoxStatus moxsConjFlip_64fc(const Mox64fc* src, Mox64fc* dst, int len);
/** @} */

/** @defgroup complexparts Real, Imag, CplxToReal and RealToCplx
 * @ingroup topic_complex_numbers
 * Real and imaginary parts moved apart and together, each bit as it was. Real: `dst[i] =
 * re(src[i])`. Imag: `dst[i] = im(src[i])`. CplxToReal: both at once. RealToCplx: `dst[i] =
 * (srcRe[i], srcIm[i])`, where a null source counts as an array of zeros.
 *
 * @return ::moxErrNullPtr for a null array, in RealToCplx for a null `dst` alone; then ::moxErrSize
 * for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsReal_16sc(const Mox16sc* src, Mox16s* dst, int len);
MOX_API MoxStatus moxsReal_32fc(const Mox32fc* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsReal_64fc(const Mox64fc* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsImag_16sc(const Mox16sc* src, Mox16s* dst, int len);
MOX_API MoxStatus moxsImag_32fc(const Mox32fc* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsImag_64fc(const Mox64fc* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsCplxToReal_16sc(const Mox16sc* src, Mox16s* dstRe, Mox16s* dstIm, int len);
MOX_API MoxStatus moxsCplxToReal_32fc(const Mox32fc* src, Mox32f* dstRe, Mox32f* dstIm, int len);
MOX_API MoxStatus moxsCplxToReal_64fc(const Mox64fc* src, Mox64f* dstRe, Mox64f* dstIm, int len);
MOX_API MoxStatus moxsRealToCplx_16s(const Mox16s* srcRe, const Mox16s* srcIm, Mox16sc* dst,
                                     int len);
MOX_API MoxStatus moxsRealToCplx_32f(const Mox32f* srcRe, const Mox32f* srcIm, Mox32fc* dst,
                                     int len);
MOX_API MoxStatus moxsRealToCplx_64f(const Mox64f* srcRe, const Mox64f* srcIm, Mox64fc* dst,
                                     int len);
/** @} */

/** @defgroup magnitude Magnitude
 * @ingroup topic_complex_numbers
 * Magnitudes: `dst[i] = sqrt(re^2 + im^2)`.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @note `32f`, `32fc`, `64f`, `64fc`: the square root of the sum of two squares, each of these four
 * operations rounded to the element type in the current mode; within 1.25 ulp of the magnitude as
 * long as the squares are normal numbers. They overflow to infinity from magnitudes of 1.8e19
 * (double: 1.3e154) on. A NaN in either part gives NaN.
 * @note `16s32f`, `16sc32f`: the sum is exact, and rounded before the root; within 0.86 ulp.
 * @{ */
MOX_API MoxStatus moxsMagnitude_16s32f(const Mox16s* srcRe, const Mox16s* srcIm, Mox32f* dst,
                                       int len);
MOX_API MoxStatus moxsMagnitude_16s_Sfs(const Mox16s* srcRe, const Mox16s* srcIm, Mox16s* dst,
                                        int len, int scaleFactor);
MOX_API MoxStatus moxsMagnitude_16sc32f(const Mox16sc* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsMagnitude_16sc_Sfs(const Mox16sc* src, Mox16s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsMagnitude_32f(const Mox32f* srcRe, const Mox32f* srcIm, Mox32f* dst, int len);
MOX_API MoxStatus moxsMagnitude_32fc(const Mox32fc* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsMagnitude_32sc_Sfs(const Mox32sc* src, Mox32s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsMagnitude_64f(const Mox64f* srcRe, const Mox64f* srcIm, Mox64f* dst, int len);
MOX_API MoxStatus moxsMagnitude_64fc(const Mox64fc* src, Mox64f* dst, int len);
/** @} */

/** @defgroup powerspectr PowerSpectr and MagSquared
 * @ingroup topic_complex_numbers
 * Squared magnitudes: `dst[i] = re^2 + im^2`.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @note `32f`, `32fc`, `64f`, `64fc`: two squares and a sum, each rounded to the element type in
 * the current mode. `16s32f`, `16sc32f`: the exact sum, rounded once. moxsMagSquared_32fc64f():
 * exact squares, whose sum is rounded once.
 * @{ */
MOX_API MoxStatus moxsPowerSpectr_16s32f(const Mox16s* srcRe, const Mox16s* srcIm, Mox32f* dst,
                                         int len);
MOX_API MoxStatus moxsPowerSpectr_16s_Sfs(const Mox16s* srcRe, const Mox16s* srcIm, Mox16s* dst,
                                          int len, int scaleFactor);
MOX_API MoxStatus moxsPowerSpectr_16sc32f(const Mox16sc* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsPowerSpectr_16sc_Sfs(const Mox16sc* src, Mox16s* dst, int len,
                                           int scaleFactor);
MOX_API MoxStatus moxsPowerSpectr_32f(const Mox32f* srcRe, const Mox32f* srcIm, Mox32f* dst,
                                      int len);
MOX_API MoxStatus moxsPowerSpectr_32fc(const Mox32fc* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsPowerSpectr_64f(const Mox64f* srcRe, const Mox64f* srcIm, Mox64f* dst,
                                      int len);
MOX_API MoxStatus moxsPowerSpectr_64fc(const Mox64fc* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsMagSquared_32fc64f(const Mox32fc* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsMagSquared_32sc32s_Sfs(const Mox32sc* src, Mox32s* dst, int len,
                                             int scaleFactor);
/** @} */

/** @defgroup phase Phase
 * @ingroup topic_complex_numbers
 * Angles: `dst[i] = atan2(im, re)`, in radians from -pi to pi. Zeros count with
 * their sign: the phase of (0, 0) is 0, that of (-0, 0) is pi, and the sign of `im` is the sign of
 * the result. An infinite part gives the angle of its axis, two that of the diagonal between; a NaN
 * part gives NaN.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @note `32f`, `32fc`: the rational function of moxsArctan_32f() on the smaller part's quotient by
 * the larger, both divisions by the processor's reciprocal estimate refined once; within 14 ulps
 * by the error of 1.5 * 2^-12 that processors promise for the estimate, of which 8.6 were seen.
 * Results were seen to differ by 5 ulps between processors. Parts so large or small that a
 * reciprocal would leave the range are first scaled by a power of two.
 * @note `64f`, `64fc`: within 1.6 ulp. `16s32f`, `16sc32f`: within 0.51 ulp.
 * @note With `Sfs`, a factor of -13 uses the 16 bits best, for pi * 2^13 is 25736.
 * @{ */
MOX_API MoxStatus moxsPhase_16s32f(const Mox16s* srcRe, const Mox16s* srcIm, Mox32f* dst, int len);
MOX_API MoxStatus moxsPhase_16s_Sfs(const Mox16s* srcRe, const Mox16s* srcIm, Mox16s* dst, int len,
                                    int scaleFactor);
MOX_API MoxStatus moxsPhase_16sc32f(const Mox16sc* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsPhase_16sc_Sfs(const Mox16sc* src, Mox16s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsPhase_32f(const Mox32f* srcRe, const Mox32f* srcIm, Mox32f* dst, int len);
MOX_API MoxStatus moxsPhase_32fc(const Mox32fc* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsPhase_32sc_Sfs(const Mox32sc* src, Mox32s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsPhase_64f(const Mox64f* srcRe, const Mox64f* srcIm, Mox64f* dst, int len);
MOX_API MoxStatus moxsPhase_64fc(const Mox64fc* src, Mox64f* dst, int len);
/** @} */

/** @defgroup polar CartToPolar and PolarToCart
 * @ingroup topic_complex_numbers
 * Both polar coordinates: `dstMagn[i] = sqrt(re^2 + im^2)` and `dstPhase[i] = atan2(im, re)`; and
 * back from them: `(srcMagn[i] * cos(srcPhase[i]), srcMagn[i] * sin(srcPhase[i]))`, to one complex
 * array or to `dstRe` and `dstIm`.
 *
 * CartToPolar writes what Magnitude and Phase of the same type write.
 *
 * With a scale factor the polar coordinates are integers in units of 2^scaleFactor, both of them:
 * CartToPolar multiplies magnitude and phase by 2^-scaleFactor, PolarToCart multiplies them by
 * 2^scaleFactor before it computes, so that it undoes the other at the same factor; both round
 * their results once, to nearest with ties to even, and saturate. PolarToCart without `Sfs` is that
 * with a factor of 0: its phases are whole radians.
 *
 * With factors from -13 to -8, all numbers whose magnitude fits, |z| <= 32767 * 2^scaleFactor, come
 * back from both as they were. For example, with -10:
 * @code
 * const Mox16sc z = {20, -15};
 * Mox16s magnitude, phase;
 * moxsCartToPolar_16sc_Sfs(&z, &magnitude, &phase, 1, -10);  // 25 * 1024 = 25600, -0.6435 * 1024
 * Mox16sc back;                                              // rounded: -659
 * moxsPolarToCart_16sc_Sfs(&magnitude, &phase, &back, 1, -10);  // {20, -15}
 * @endcode
 * In PolarToCart a factor above 16 counts as 16, where all but the smallest cosines saturate.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1. Where CartToPolar
 * lacks one destination alone, and all else is valid, it writes the other and returns
 * ::moxErrNullPtr.
 * @note PolarToCart `32f`, `32fc`: computed in double precision and rounded once more, within 0.51
 * ulp. `64f`, `64fc`: within 2.2 ulps.
 * @{ */
MOX_API MoxStatus moxsCartToPolar_16sc_Sfs(const Mox16sc* src, Mox16s* dstMagn, Mox16s* dstPhase,
                                           int len, int scaleFactor);
MOX_API MoxStatus moxsCartToPolar_32f(const Mox32f* srcRe, const Mox32f* srcIm, Mox32f* dstMagn,
                                      Mox32f* dstPhase, int len);
MOX_API MoxStatus moxsCartToPolar_32fc(const Mox32fc* src, Mox32f* dstMagn, Mox32f* dstPhase,
                                       int len);
MOX_API MoxStatus moxsCartToPolar_64f(const Mox64f* srcRe, const Mox64f* srcIm, Mox64f* dstMagn,
                                      Mox64f* dstPhase, int len);
MOX_API MoxStatus moxsCartToPolar_64fc(const Mox64fc* src, Mox64f* dstMagn, Mox64f* dstPhase,
                                       int len);
MOX_API MoxStatus moxsPolarToCart_16sc(const Mox16s* srcMagn, const Mox16s* srcPhase, Mox16sc* dst,
                                       int len);
MOX_API MoxStatus moxsPolarToCart_16sc_Sfs(const Mox16s* srcMagn, const Mox16s* srcPhase,
                                           Mox16sc* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsPolarToCart_32f(const Mox32f* srcMagn, const Mox32f* srcPhase, Mox32f* dstRe,
                                      Mox32f* dstIm, int len);
MOX_API MoxStatus moxsPolarToCart_32fc(const Mox32f* srcMagn, const Mox32f* srcPhase, Mox32fc* dst,
                                       int len);
MOX_API MoxStatus moxsPolarToCart_32sc(const Mox32s* srcMagn, const Mox32s* srcPhase, Mox32sc* dst,
                                       int len);
MOX_API MoxStatus moxsPolarToCart_64f(const Mox64f* srcMagn, const Mox64f* srcPhase, Mox64f* dstRe,
                                      Mox64f* dstIm, int len);
MOX_API MoxStatus moxsPolarToCart_64fc(const Mox64f* srcMagn, const Mox64f* srcPhase, Mox64fc* dst,
                                       int len);
/** @} */

#endif
