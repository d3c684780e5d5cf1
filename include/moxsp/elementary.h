/**
 * @file
 * Elementary functions: powers and roots, magnitudes, exponentials, logarithms, arctangent.
 *
 * `dst` may be one of the sources. A name ending in `_I` or `_ISfs` writes its result over the
 * source `srcDst`. Integers with `Sfs` follow @ref scaling.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   Mox32f power[3] = {1, 0.01f, 0};
 *   MoxStatus status = moxsLn_32f_I(power, 3);  // a warning, for the zero
 *   if (status < 0) return 1;
 *   moxsMulC_32f_I(4.3429448f, power, 3);                 // 10 / ln(10): decibels
 *   for (int i = 0; i < 3; ++i) printf("%g ", power[i]);  // 0 -20 -inf
 * }
 * @endcode
 */
#ifndef MOXSP_ELEMENTARY_H
#define MOXSP_ELEMENTARY_H

#include <moxsp/types.h>

/** @defgroup sqr Sqr
 * @ingroup topic_elementary
 * Square: `dst[i] = src[i] * src[i]` for 0 <= i < len; complex elements as numbers, (a, b) gives
 * (a * a - b * b, 2 * a * b). The `Sfs` forms give the exact square times 2 to the power
 * `-scaleFactor`, rounded to nearest with ties to even and saturated; every factor is valid.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @note To the bit: floats by one IEEE 754 operation for each product, sum and difference of the
 * formula, in the current rounding mode.
 * @{ */
MOX_API MoxStatus moxsSqr_8u_Sfs(const Mox8u* src, Mox8u* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqr_8u_ISfs(Mox8u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqr_16s_Sfs(const Mox16s* src, Mox16s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqr_16s_ISfs(Mox16s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqr_16u_Sfs(const Mox16u* src, Mox16u* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqr_16u_ISfs(Mox16u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqr_16sc_Sfs(const Mox16sc* src, Mox16sc* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqr_16sc_ISfs(Mox16sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqr_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsSqr_32f_I(Mox32f* srcDst, int len);
MOX_API MoxStatus moxsSqr_32fc(const Mox32fc* src, Mox32fc* dst, int len);
MOX_API MoxStatus moxsSqr_32fc_I(Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsSqr_64f(const Mox64f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsSqr_64f_I(Mox64f* srcDst, int len);
MOX_API MoxStatus moxsSqr_64fc(const Mox64fc* src, Mox64fc* dst, int len);
MOX_API MoxStatus moxsSqr_64fc_I(Mox64fc* srcDst, int len);
/** @} */

/** @defgroup sqrt Sqrt
 * @ingroup topic_elementary
 * Square root: `dst[i] = sqrt(src[i])` for 0 <= i < len. Complex forms give the principal root,
 * whose real part isn't negative, with the special values of C's `csqrt`. The `Sfs` forms give the
 * root times 2 to the power `-scaleFactor`, rounded to nearest with ties to even and saturated;
 * every factor is valid.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * ::moxWarnSqrtNegArg when an element is negative: such an integer gives 0; a float gives NaN. For
 * floats the sign bit alone counts, so that -0.0 warns as well, and stays -0.0. The complex forms
 * never warn.
 * @note Real floats: one IEEE 754 square root, to the bit, in the current rounding mode. Real
 * integers: the exact value of the rule. Complex floats: each part within 0.51 ulp for `32fc` and
 * 3.5 ulps for `64fc`. `16sc`: each part is rounded from a double; only within 2^-36 of a tie can
 * it be the other neighbour.
 * @{ */
MOX_API MoxStatus moxsSqrt_8u_Sfs(const Mox8u* src, Mox8u* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqrt_8u_ISfs(Mox8u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqrt_16s_Sfs(const Mox16s* src, Mox16s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqrt_16s_ISfs(Mox16s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqrt_16u_Sfs(const Mox16u* src, Mox16u* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqrt_16u_ISfs(Mox16u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqrt_16sc_Sfs(const Mox16sc* src, Mox16sc* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqrt_16sc_ISfs(Mox16sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqrt_64s_Sfs(const Mox64s* src, Mox64s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqrt_64s_ISfs(Mox64s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqrt_32s16s_Sfs(const Mox32s* src, Mox16s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqrt_64s16s_Sfs(const Mox64s* src, Mox16s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsSqrt_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsSqrt_32f_I(Mox32f* srcDst, int len);
MOX_API MoxStatus moxsSqrt_32fc(const Mox32fc* src, Mox32fc* dst, int len);
MOX_API MoxStatus moxsSqrt_32fc_I(Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsSqrt_64f(const Mox64f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsSqrt_64f_I(Mox64f* srcDst, int len);
MOX_API MoxStatus moxsSqrt_64fc(const Mox64fc* src, Mox64fc* dst, int len);
MOX_API MoxStatus moxsSqrt_64fc_I(Mox64fc* srcDst, int len);
/** @} */

/** @defgroup cubrt Cubrt
 * @ingroup topic_elementary
 * Cube root: `dst[i] = cbrt(src[i])` for 0 <= i < len, with the sign of the element. Zeros,
 * infinities and NaN are their own roots. The `Sfs` form gives the root times 2 to the power
 * `-scaleFactor`, rounded to nearest with ties to even and saturated; every factor is valid.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @note `32f`: a rational function of degree 4 over the mantissa, divided by the processor's
 * reciprocal estimate and one step of Newton's method; within 7.74 ulps over all floats.
 * Results depend on the estimate, and were seen to differ by 3 ulps between processors. `32s16s`:
 * the exact value of the rule.
 * @{ */
MOX_API MoxStatus moxsCubrt_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsCubrt_32s16s_Sfs(const Mox32s* src, Mox16s* dst, int len, int scaleFactor);
/** @} */

/** @defgroup abs Abs
 * @ingroup topic_elementary
 * Absolute value: `dst[i] = |src[i]|` for 0 <= i < len. The least integer, whose opposite doesn't
 * exist, gives the greatest: -32768 gives 32767. Of a float the sign bit is cleared, of NaN too.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsAbs_16s(const Mox16s* src, Mox16s* dst, int len);
MOX_API MoxStatus moxsAbs_16s_I(Mox16s* srcDst, int len);
MOX_API MoxStatus moxsAbs_32s(const Mox32s* src, Mox32s* dst, int len);
MOX_API MoxStatus moxsAbs_32s_I(Mox32s* srcDst, int len);
MOX_API MoxStatus moxsAbs_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsAbs_32f_I(Mox32f* srcDst, int len);
MOX_API MoxStatus moxsAbs_64f(const Mox64f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsAbs_64f_I(Mox64f* srcDst, int len);
/** @} */

/** @defgroup exp Exp
 * @ingroup topic_elementary
 * Exponential: `dst[i] = exp(src[i])` for 0 <= i < len. Overflow gives infinity, underflow
 * subnormals and zero, NaN gives NaN. The `Sfs` forms give the exponential times 2 to the power
 * `-scaleFactor`, rounded to nearest with ties to even and saturated; every factor is valid, also
 * where the exponential itself would leave the range of a double.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1. Nothing warns.
 * @note `32f`: x = n ln(2) + r in two steps and a polynomial of degree 5 in r, all in single
 * precision; within 2.94 ulps over all floats. `64f`, `32f64f`: the Taylor series after the same
 * reduction; within 1.1 ulps. Integers are rounded from a double's value: the nearest integer,
 * except that a value within 2^-52 of itself from a tie may give the other neighbour, and results
 * of `64s` above 2^52 carry 52 bits. The bounds hold for rounding to nearest.
 * @{ */
MOX_API MoxStatus moxsExp_16s_Sfs(const Mox16s* src, Mox16s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsExp_16s_ISfs(Mox16s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsExp_32s_Sfs(const Mox32s* src, Mox32s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsExp_32s_ISfs(Mox32s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsExp_64s_Sfs(const Mox64s* src, Mox64s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsExp_64s_ISfs(Mox64s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsExp_32f64f(const Mox32f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsExp_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsExp_32f_I(Mox32f* srcDst, int len);
MOX_API MoxStatus moxsExp_64f(const Mox64f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsExp_64f_I(Mox64f* srcDst, int len);
/** @} */

/** @defgroup ln Ln
 * @ingroup topic_elementary
 * Natural logarithm: `dst[i] = ln(src[i])` for 0 <= i < len. Infinity gives infinity, NaN gives
 * NaN. The `Sfs` forms give the logarithm times 2 to the power `-scaleFactor`, rounded to nearest
 * with ties to even and saturated; every factor is valid.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * ::moxWarnLnZeroArg when an element is zero, ::moxWarnLnNegArg when one is negative, minus
 * infinity included; with both kinds the first one decides. A zero float gives minus infinity, a
 * negative one NaN; integers of both kinds give the least value of the result's type under every
 * factor.
 * @note `32f`: the exponent times ln(2) and a polynomial of degree 7 in the mantissa less 1, all in
 * single precision; within 3.94 ulps over all positive floats. `64f`: the series of 2 artanh(s),
 * s = f / (2 + f) for a mantissa 1 + f; within 1.2 ulps. `64f32f`: the same, rounded to float.
 * Integers are rounded from a double's value: the nearest integer, except that a value within 2^-51
 * of itself from a tie may give the other neighbour. The bounds hold for rounding to nearest.
 * @{ */
MOX_API MoxStatus moxsLn_16s_Sfs(const Mox16s* src, Mox16s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsLn_16s_ISfs(Mox16s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsLn_32s_Sfs(const Mox32s* src, Mox32s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsLn_32s_ISfs(Mox32s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsLn_32s16s_Sfs(const Mox32s* src, Mox16s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsLn_64f32f(const Mox64f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsLn_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsLn_32f_I(Mox32f* srcDst, int len);
MOX_API MoxStatus moxsLn_64f(const Mox64f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsLn_64f_I(Mox64f* srcDst, int len);
/** @} */

/** @defgroup log10 10Log10
 * @ingroup topic_elementary
 * Decibels of a power: `dst[i] = 10 * log10(src[i])` times 2 to the power `-scaleFactor` for
 * 0 <= i < len, rounded to nearest with ties to even and saturated; every factor is valid.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1; warnings and the
 * results that go with them are those of Ln.
 * @note Powers of ten are exact, and other values rounded from a double: the nearest integer,
 * except that a value within 2^-50 of itself from a tie may give the other neighbour.
 * @{ */
MOX_API MoxStatus moxs10Log10_32s_Sfs(const Mox32s* src, Mox32s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxs10Log10_32s_ISfs(Mox32s* srcDst, int len, int scaleFactor);
/** @} */

/** @defgroup sumln SumLn
 * @ingroup topic_elementary
 * Sum of natural logarithms: `*sum` = the sum of ln(src[i]) over 0 <= i < len.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 1.
 * ::moxWarnLnZeroArg when an element is zero, ::moxWarnLnNegArg when one is negative, minus
 * infinity included; with both kinds the first one decides. The sum is then minus infinity or NaN.
 * @note Computed in double precision as the logarithm of a product, exponents apart: the error is
 * below len * 2^-53, plus 2 ulps of the result.
 * @{ */
MOX_API MoxStatus moxsSumLn_32f(const Mox32f* src, int len, Mox32f* sum);
MOX_API MoxStatus moxsSumLn_64f(const Mox64f* src, int len, Mox64f* sum);
MOX_API MoxStatus moxsSumLn_32f64f(const Mox32f* src, int len, Mox64f* sum);
MOX_API MoxStatus moxsSumLn_16s32f(const Mox16s* src, int len, Mox32f* sum);
/** @} */

/** @defgroup arctan Arctan
 * @ingroup topic_elementary
 * Arctangent: `dst[i] = atan(src[i])` for 0 <= i < len, from -pi/2 to pi/2. Zero keeps its sign,
 * infinities give plus or minus pi/2, NaN gives NaN.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @note `32f`: a rational function of |x| or its reciprocal, in single precision, where reciprocals
 * are the processor's estimate and one step of Newton's method; within 5.62 ulps over all floats.
 * Results depend on the estimate, and were seen to differ by 1 ulp between processors. `64f`: a
 * polynomial after reduction to |t| <= tan(pi/8); within 2 ulps. The bounds hold for rounding to
 * nearest.
 * @{ */
MOX_API MoxStatus moxsArctan_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsArctan_32f_I(Mox32f* srcDst, int len);
MOX_API MoxStatus moxsArctan_64f(const Mox64f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsArctan_64f_I(Mox64f* srcDst, int len);
/** @} */

#endif
