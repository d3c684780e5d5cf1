/**
 * @file
 * Element-wise division.
 *
 * `dst` may be one of the sources; where arrays overlap otherwise the results are undefined. A name
 * ending in `_I` or `_ISfs` writes its result over the source `srcDst`. Saturation is silent.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox32s rate[3] = {44100, 0, 0}, frames[3] = {88200, -1, 0};
 *   Mox32s seconds[3];
 *   MoxStatus status = moxsDiv_32s_Sfs(rate, frames, seconds, 3, 0);  // frames / rate
 *   if (status < 0) return 1;                                         // nothing was written
 *   if (status == moxWarnDivByZero) printf("a rate is zero: ");       // a rate is zero:
 *   for (int i = 0; i < 3; ++i) printf("%d ", seconds[i]);            // 2 -2147483648 0
 * }
 * @endcode
 */
#ifndef MOXSP_DIVISION_H
#define MOXSP_DIVISION_H

#include <moxsp/types.h>

/** @defgroup div Div
 * @ingroup topic_arithmetic
 * Quotients of two vectors. The first source is the divisor: `dst[i] = src2[i] / src1[i]`, in place
 * `srcDst[i] = srcDst[i] / src[i]`. In `moxsDiv_32s16s_Sfs` it is the 16-bit source.
 *
 * Integers follow @ref scaling. The quotient times 2^-scaleFactor is rounded to nearest with ties
 * to even and saturated; `scaleFactor` may have any value. A dividend over a divisor of zero gives
 * the largest value of the type, or the smallest where the dividend is negative; zero over zero
 * gives 0.
 *
 * Complex integers (a, b) / (c, d) = ((a*c + b*d) / n, (b*c - a*d) / n) with n = c*c + d*d: each
 * part is scaled, rounded and saturated by itself. Only a divisor with both parts zero is zero;
 * each part of the dividend then gives its own limit or 0. At factors below -32 every part that
 * isn't 0 is at the limit of its sign.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * ::moxWarnDivByZero if any divisor was zero; all elements have been processed.
 * @note Integer results are exact to the bit, with one exception: `moxsDiv_16s_Sfs` and
 * `moxsDiv_16s_ISfs` at factors of -6 and below round the scaled quotient to single precision and
 * clear its two lowest bits before they round it to an integer. Within 2^-20 of itself from a tie
 * it may count as that tie, and the result differ by one from the exact rule; true ties, which go
 * to the even integer, are exact at every factor.
 * @note Floats: each element is one IEEE 754 division in the current rounding mode, to the bit;
 * over zero it is an infinity, or NaN for a dividend of 0 or NaN. Each operation of the formula for
 * complex elements is rounded by itself in the precision of the elements, so that n overflows or
 * vanishes for divisors far from 1, and both parts are NaN over a divisor of zero.
 * @{ */
MOX_API MoxStatus moxsDiv_8u_Sfs(const Mox8u* src1, const Mox8u* src2, Mox8u* dst, int len,
                                 int scaleFactor);
MOX_API MoxStatus moxsDiv_8u_ISfs(const Mox8u* src, Mox8u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsDiv_16s_Sfs(const Mox16s* src1, const Mox16s* src2, Mox16s* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsDiv_16s_ISfs(const Mox16s* src, Mox16s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsDiv_16u_Sfs(const Mox16u* src1, const Mox16u* src2, Mox16u* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsDiv_16u_ISfs(const Mox16u* src, Mox16u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsDiv_16sc_Sfs(const Mox16sc* src1, const Mox16sc* src2, Mox16sc* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsDiv_16sc_ISfs(const Mox16sc* src, Mox16sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsDiv_32s_Sfs(const Mox32s* src1, const Mox32s* src2, Mox32s* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsDiv_32s_ISfs(const Mox32s* src, Mox32s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsDiv_32s16s_Sfs(const Mox16s* src1, const Mox32s* src2, Mox16s* dst, int len,
                                     int scaleFactor);
MOX_API MoxStatus moxsDiv_32f(const Mox32f* src1, const Mox32f* src2, Mox32f* dst, int len);
MOX_API MoxStatus moxsDiv_32f_I(const Mox32f* src, Mox32f* srcDst, int len);
MOX_API MoxStatus moxsDiv_32fc(const Mox32fc* src1, const Mox32fc* src2, Mox32fc* dst, int len);
MOX_API MoxStatus moxsDiv_32fc_I(const Mox32fc* src, Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsDiv_64f(const Mox64f* src1, const Mox64f* src2, Mox64f* dst, int len);
MOX_API MoxStatus moxsDiv_64f_I(const Mox64f* src, Mox64f* srcDst, int len);
MOX_API MoxStatus moxsDiv_64fc(const Mox64fc* src1, const Mox64fc* src2, Mox64fc* dst, int len);
MOX_API MoxStatus moxsDiv_64fc_I(const Mox64fc* src, Mox64fc* srcDst, int len);
/** @} */

/** @defgroup divround Div_Round
 * @ingroup topic_arithmetic
 * Quotients as in @ref div, rounded by `rndMode`: ::moxRoundZero, ::moxRoundNearEven or
 * ::moxRoundHalfAway. Exact to the bit at every factor.
 * @return ::moxErrNullPtr for a null array, ::moxErrSize for `len` below 1, then ::moxErrRoundMode
 * for any other mode; ::moxWarnDivByZero if any divisor was zero.
 * @{ */
MOX_API MoxStatus moxsDiv_Round_8u_Sfs(const Mox8u* src1, const Mox8u* src2, Mox8u* dst, int len,
                                       int rndMode, int scaleFactor);
MOX_API MoxStatus moxsDiv_Round_8u_ISfs(const Mox8u* src, Mox8u* srcDst, int len, int rndMode,
                                        int scaleFactor);
MOX_API MoxStatus moxsDiv_Round_16s_Sfs(const Mox16s* src1, const Mox16s* src2, Mox16s* dst,
                                        int len, int rndMode, int scaleFactor);
MOX_API MoxStatus moxsDiv_Round_16s_ISfs(const Mox16s* src, Mox16s* srcDst, int len, int rndMode,
                                         int scaleFactor);
MOX_API MoxStatus moxsDiv_Round_16u_Sfs(const Mox16u* src1, const Mox16u* src2, Mox16u* dst,
                                        int len, int rndMode, int scaleFactor);
MOX_API MoxStatus moxsDiv_Round_16u_ISfs(const Mox16u* src, Mox16u* srcDst, int len, int rndMode,
                                         int scaleFactor);
/** @} */

/** @defgroup divc DivC
 * @ingroup topic_arithmetic
 * Quotients by a constant: `dst[i] = src[i] / val`, in place `srcDst[i] = srcDst[i] / val`.
 * Integers and complex elements as in @ref div; integer results are exact to the bit at every
 * factor. Parts of complex integers are at the limit of their sign at factors below -16.
 * @return ::moxErrNullPtr for a null array, ::moxErrSize for `len` below 1, then ::moxErrDivByZero
 * for a `val` of zero, in both parts if it is complex.
 * @note `moxsDivC_32f` multiplies by 1 / `val`, rounded to single precision, as `moxsMulC_32f`
 * does: a result can be off by about one unit in the last place from the quotient, a `val` of 1
 * copies the elements to the bit, and an infinite one gives +0 for every element. `moxsDivC_64f`
 * divides.
 * @{ */
MOX_API MoxStatus moxsDivC_8u_Sfs(const Mox8u* src, Mox8u val, Mox8u* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsDivC_8u_ISfs(Mox8u val, Mox8u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsDivC_16s_Sfs(const Mox16s* src, Mox16s val, Mox16s* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsDivC_16s_ISfs(Mox16s val, Mox16s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsDivC_16u_Sfs(const Mox16u* src, Mox16u val, Mox16u* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsDivC_16u_ISfs(Mox16u val, Mox16u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsDivC_16sc_Sfs(const Mox16sc* src, Mox16sc val, Mox16sc* dst, int len,
                                    int scaleFactor);
MOX_API MoxStatus moxsDivC_16sc_ISfs(Mox16sc val, Mox16sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsDivC_64s_ISfs(Mox64s val, Mox64s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsDivC_32f(const Mox32f* src, Mox32f val, Mox32f* dst, int len);
MOX_API MoxStatus moxsDivC_32f_I(Mox32f val, Mox32f* srcDst, int len);
MOX_API MoxStatus moxsDivC_32fc(const Mox32fc* src, Mox32fc val, Mox32fc* dst, int len);
MOX_API MoxStatus moxsDivC_32fc_I(Mox32fc val, Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsDivC_64f(const Mox64f* src, Mox64f val, Mox64f* dst, int len);
MOX_API MoxStatus moxsDivC_64f_I(Mox64f val, Mox64f* srcDst, int len);
MOX_API MoxStatus moxsDivC_64fc(const Mox64fc* src, Mox64fc val, Mox64fc* dst, int len);
MOX_API MoxStatus moxsDivC_64fc_I(Mox64fc val, Mox64fc* srcDst, int len);
/** @} */

/** @defgroup divcrev DivCRev
 * @ingroup topic_arithmetic
 * A constant over a vector: `dst[i] = val / src[i]`, in place `srcDst[i] = val / srcDst[i]`, with
 * results as in @ref div, at a factor of 0. A `val` of 0 is no error.
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * ::moxWarnDivByZero if any element was zero.
 * @{ */
MOX_API MoxStatus moxsDivCRev_16u(const Mox16u* src, Mox16u val, Mox16u* dst, int len);
MOX_API MoxStatus moxsDivCRev_16u_I(Mox16u val, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsDivCRev_32f(const Mox32f* src, Mox32f val, Mox32f* dst, int len);
MOX_API MoxStatus moxsDivCRev_32f_I(Mox32f val, Mox32f* srcDst, int len);
/** @} */

#endif
