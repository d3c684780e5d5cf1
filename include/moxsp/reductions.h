/**
 * @file
 * Reductions: vectors folded into one value.
 *
 * Integer sums are exact up to the scaling of the result; every `scaleFactor` is valid. Floating
 * sums are defined to the bit by the order of their additions, for which docs/additions.md has a
 * table: parallel partial sums, the lanes, take the terms in turn and are added to one another at
 * the end. In most families they start with the first element at a vector boundary, so that the
 * last bits of a sum may depend on the address of its source. Overflow, infinite elements and NaN
 * give what IEEE 754 makes of them, and no status.
 *
 * `hint` 1 selects the fast path, every other value the accurate one. Fast sums and means are off
 * by single-precision errors within blocks alone; the fast StdDev is for data whose mean is not
 * large beside their deviation, see @ref stddev. Norms and dot products of floats add in the type
 * of their result: those of many or large floats want the forms with a `64f` result, or a
 * conversion first.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox32f x[4] = {1, -2, 3, -4};
 *   Mox32f sum, mean, deviation, largest;
 *   moxsSum_32f(x, 4, &sum, 0);  // the hint 0: accurate
 *   moxsMeanStdDev_32f(x, 4, &mean, &deviation, 0);
 *   moxsNorm_Inf_32f(x, 4, &largest);                        // of magnitudes
 *   printf("%g %g %.4f %g", sum, mean, deviation, largest);  // -2 -0.5 3.1091 4
 * }
 * @endcode
 */
#ifndef MOXSP_REDUCTIONS_H
#define MOXSP_REDUCTIONS_H

#include <moxsp/types.h>

/** @defgroup sum Sum
 * @ingroup topic_reductions
 * Sums: `sum = src[0] + ... + src[len - 1]`, complex elements by parts. Integers with `Sfs` give
 * sum * 2^-scaleFactor, rounded and saturated: `32s` to nearest with ties to even, the 16-bit forms
 * in the current mode.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 1.
 * @note `32f`, `32fc`: the accurate path adds doubles. The fast path adds floats in blocks of 8192,
 * and the blocks as doubles; a source that isn't aligned to 4 bytes takes the accurate path. Either
 * rounds to float at the end.
 * @{ */
MOX_API MoxStatus moxsSum_16s32s_Sfs(const Mox16s* src, int len, Mox32s* sum, int scaleFactor);
MOX_API MoxStatus moxsSum_16s_Sfs(const Mox16s* src, int len, Mox16s* sum, int scaleFactor);
MOX_API MoxStatus moxsSum_16sc32sc_Sfs(const Mox16sc* src, int len, Mox32sc* sum, int scaleFactor);
MOX_API MoxStatus moxsSum_16sc_Sfs(const Mox16sc* src, int len, Mox16sc* sum, int scaleFactor);
MOX_API MoxStatus moxsSum_32f(const Mox32f* src, int len, Mox32f* sum, int hint);
MOX_API MoxStatus moxsSum_32fc(const Mox32fc* src, int len, Mox32fc* sum, int hint);
MOX_API MoxStatus moxsSum_32s_Sfs(const Mox32s* src, int len, Mox32s* sum, int scaleFactor);
MOX_API MoxStatus moxsSum_64f(const Mox64f* src, int len, Mox64f* sum);
MOX_API MoxStatus moxsSum_64fc(const Mox64fc* src, int len, Mox64fc* sum);
/** @} */

/** @defgroup mean Mean
 * @ingroup topic_reductions
 * Means: `mean = (src[0] + ... + src[len - 1]) / len`, complex elements by parts. Integers with
 * `Sfs` give mean * 2^-scaleFactor, saturated.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 1.
 * @note Floats: the sum of @ref sum before it is rounded, divided by `len` in double.
 * `moxsMean_64fc` multiplies by 1.0 / len instead, which has been rounded by itself.
 * @note The 16-bit forms divide the scaled sum in double, and round in the current mode.
 * @note `moxsMean_32s_Sfs` rounds the mean to nearest, ties to even, to m, and then scales it by
 * the factor s:
 *
 * | Factor       | Result                                                                     |
 * |--------------|----------------------------------------------------------------------------|
 * | s > 0        | sign(m) * ((abs(m) + b) >> (s mod 32)), b is bit (s - 1) mod 32 of abs(m)  |
 * | 0            | m                                                                          |
 * | -31 to -1    | sum * 2^-s / len to nearest, if the sum fits into 32 bits; else m * 2^-s   |
 * | below -31    | 0 for m = 0, else the limit of its sign                                    |
 *
 * So a mean of 6 with a factor of 2 gives (6 + 1) >> 2 = 1: b is added as 1, not as half of the
 * divisor.
 * @{ */
MOX_API MoxStatus moxsMean_16s_Sfs(const Mox16s* src, int len, Mox16s* mean, int scaleFactor);
MOX_API MoxStatus moxsMean_16sc_Sfs(const Mox16sc* src, int len, Mox16sc* mean, int scaleFactor);
MOX_API MoxStatus moxsMean_32f(const Mox32f* src, int len, Mox32f* mean, int hint);
MOX_API MoxStatus moxsMean_32fc(const Mox32fc* src, int len, Mox32fc* mean, int hint);
MOX_API MoxStatus moxsMean_32s_Sfs(const Mox32s* src, int len, Mox32s* mean, int scaleFactor);
MOX_API MoxStatus moxsMean_64f(const Mox64f* src, int len, Mox64f* mean);
MOX_API MoxStatus moxsMean_64fc(const Mox64fc* src, int len, Mox64fc* mean);
/** @} */

/** @defgroup stddev StdDev
 * @ingroup topic_reductions
 * Standard deviations with the divisor len - 1: the root of (n * Q - S^2) / (n * (n - 1)), where S
 * is the sum of the n elements, and Q that of their squares. Where rounding leaves n * Q - S^2 not
 * above 0, as it may with equal elements and does with NaN, the result is 0. Integers with `Sfs`
 * are scaled by 2^-scaleFactor, rounded in the current mode and saturated.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 2.
 * @note `32f`: the accurate path adds and squares doubles; the fast path squares and adds floats in
 * blocks of 8192, and the blocks as doubles; a source that isn't aligned to 4 bytes takes the
 * accurate path. The rest is done in double on both.
 * @note S and Q of 16-bit elements are exact.
 * @warning n * Q and S^2 agree in their leading digits when the mean is large beside the deviation.
 * On the fast path nothing is left of the result at a mean of 10,000 deviations; in double
 * precision half of the digits are lost there.
 * @{ */
MOX_API MoxStatus moxsStdDev_16s32s_Sfs(const Mox16s* src, int len, Mox32s* stdDev,
                                        int scaleFactor);
MOX_API MoxStatus moxsStdDev_16s_Sfs(const Mox16s* src, int len, Mox16s* stdDev, int scaleFactor);
MOX_API MoxStatus moxsStdDev_32f(const Mox32f* src, int len, Mox32f* stdDev, int hint);
MOX_API MoxStatus moxsStdDev_64f(const Mox64f* src, int len, Mox64f* stdDev);
/** @} */

/** @defgroup meanstddev MeanStdDev
 * @ingroup topic_reductions
 * Mean and standard deviation (@ref stddev) in one pass over the data. Integers with `Sfs` scale
 * both by 2^-scaleFactor, round in the current mode and saturate.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 2.
 * @note `moxsMeanStdDev_32f` adds in the 80-bit format of the x87 unit, whatever `hint` says; NaN
 * among the elements gives NaN.
 * @{ */
MOX_API MoxStatus moxsMeanStdDev_16s32s_Sfs(const Mox16s* src, int len, Mox32s* mean,
                                            Mox32s* stdDev, int scaleFactor);
MOX_API MoxStatus moxsMeanStdDev_16s_Sfs(const Mox16s* src, int len, Mox16s* mean, Mox16s* stdDev,
                                         int scaleFactor);
MOX_API MoxStatus moxsMeanStdDev_32f(const Mox32f* src, int len, Mox32f* mean, Mox32f* stdDev,
                                     int hint);
MOX_API MoxStatus moxsMeanStdDev_64f(const Mox64f* src, int len, Mox64f* mean, Mox64f* stdDev);
/** @} */

/** @defgroup norm Norm
 * @ingroup topic_reductions
 * Norms: Inf is the largest |src[i]|, L1 the sum of all |src[i]|, L2 the root of the sum of their
 * squares, L2Sqr that sum. The magnitude of a complex number is sqrt(re^2 + im^2).
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 1.
 * @note `32f`, `64f` and their complex forms accumulate in the type of the data; sums of `32fc64f`
 * are widened at the end. So `moxsNorm_L2_32f` is infinite from a sum of squares of 3.4e38 on, of a
 * single 1e25 for example, and has been seen off by 0.011 of its value at 1e8 elements.
 * @note `moxsNorm_L1_32fc64f` takes the root of every four numbers by the processor's estimate of
 * 1 / sqrt(x) and one step of Newton's iteration, unless one of the four is 0: relative errors of
 * the terms stay below 1e-6, the last bits differ between processors, and numbers whose square is
 * subnormal or infinite don't give their magnitude.
 * @note Inf: a NaN replaces the maximum of its lane, and the next number of that lane replaces the
 * NaN. A NaN that is left in a lane at the end gives way to the other lanes, but for the last one.
 * @note 16-bit elements: exact in 64 bits. `16s32f` rounds that to float, L2 the root of it. With
 * `Sfs`:
 * - Inf and L1 to `32s`: a factor of 0 stores the low 32 bits. A factor above 0 shifts right and
 * drops what it shifts out, one below 0 shifts left; both saturate to 2^31 - 1.
 * - L1 and L2Sqr to `64s`: the same in 64 bits. A factor s above 31 gives (x >> 32) >> (s mod 32).
 * - L2 to `32s`: the root divided by 1 << (s mod 32) for s above 0, multiplied by 1 << (-s mod 32)
 * below 0, as 32-bit signed integers, so that 31 changes the sign; truncated and saturated.
 * @{ */
MOX_API MoxStatus moxsNorm_Inf_16s32f(const Mox16s* src, int len, Mox32f* norm);
MOX_API MoxStatus moxsNorm_Inf_16s32s_Sfs(const Mox16s* src, int len, Mox32s* norm,
                                          int scaleFactor);
MOX_API MoxStatus moxsNorm_Inf_32f(const Mox32f* src, int len, Mox32f* norm);
MOX_API MoxStatus moxsNorm_Inf_32fc32f(const Mox32fc* src, int len, Mox32f* norm);
MOX_API MoxStatus moxsNorm_Inf_64f(const Mox64f* src, int len, Mox64f* norm);
MOX_API MoxStatus moxsNorm_Inf_64fc64f(const Mox64fc* src, int len, Mox64f* norm);
MOX_API MoxStatus moxsNorm_L1_16s32f(const Mox16s* src, int len, Mox32f* norm);
MOX_API MoxStatus moxsNorm_L1_16s32s_Sfs(const Mox16s* src, int len, Mox32s* norm, int scaleFactor);
MOX_API MoxStatus moxsNorm_L1_16s64s_Sfs(const Mox16s* src, int len, Mox64s* norm, int scaleFactor);
MOX_API MoxStatus moxsNorm_L1_32f(const Mox32f* src, int len, Mox32f* norm);
MOX_API MoxStatus moxsNorm_L1_32fc64f(const Mox32fc* src, int len, Mox64f* norm);
MOX_API MoxStatus moxsNorm_L1_64f(const Mox64f* src, int len, Mox64f* norm);
MOX_API MoxStatus moxsNorm_L1_64fc64f(const Mox64fc* src, int len, Mox64f* norm);
MOX_API MoxStatus moxsNorm_L2Sqr_16s64s_Sfs(const Mox16s* src, int len, Mox64s* norm,
                                            int scaleFactor);
MOX_API MoxStatus moxsNorm_L2_16s32f(const Mox16s* src, int len, Mox32f* norm);
MOX_API MoxStatus moxsNorm_L2_16s32s_Sfs(const Mox16s* src, int len, Mox32s* norm, int scaleFactor);
MOX_API MoxStatus moxsNorm_L2_32f(const Mox32f* src, int len, Mox32f* norm);
MOX_API MoxStatus moxsNorm_L2_32fc64f(const Mox32fc* src, int len, Mox64f* norm);
MOX_API MoxStatus moxsNorm_L2_64f(const Mox64f* src, int len, Mox64f* norm);
MOX_API MoxStatus moxsNorm_L2_64fc64f(const Mox64fc* src, int len, Mox64f* norm);
/** @} */

/** @defgroup normdiff NormDiff
 * @ingroup topic_reductions
 * Norms of differences: @ref norm of src1[i] - src2[i], which is rounded in the type of floating
 * data, and exact for integers.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsNormDiff_Inf_16s32f(const Mox16s* src1, const Mox16s* src2, int len,
                                          Mox32f* norm);
MOX_API MoxStatus moxsNormDiff_Inf_16s32s_Sfs(const Mox16s* src1, const Mox16s* src2, int len,
                                              Mox32s* norm, int scaleFactor);
MOX_API MoxStatus moxsNormDiff_Inf_32f(const Mox32f* src1, const Mox32f* src2, int len,
                                       Mox32f* norm);
MOX_API MoxStatus moxsNormDiff_Inf_32fc32f(const Mox32fc* src1, const Mox32fc* src2, int len,
                                           Mox32f* norm);
MOX_API MoxStatus moxsNormDiff_Inf_64f(const Mox64f* src1, const Mox64f* src2, int len,
                                       Mox64f* norm);
MOX_API MoxStatus moxsNormDiff_Inf_64fc64f(const Mox64fc* src1, const Mox64fc* src2, int len,
                                           Mox64f* norm);
MOX_API MoxStatus moxsNormDiff_L1_16s32f(const Mox16s* src1, const Mox16s* src2, int len,
                                         Mox32f* norm);
MOX_API MoxStatus moxsNormDiff_L1_16s32s_Sfs(const Mox16s* src1, const Mox16s* src2, int len,
                                             Mox32s* norm, int scaleFactor);
MOX_API MoxStatus moxsNormDiff_L1_16s64s_Sfs(const Mox16s* src1, const Mox16s* src2, int len,
                                             Mox64s* norm, int scaleFactor);
MOX_API MoxStatus moxsNormDiff_L1_32f(const Mox32f* src1, const Mox32f* src2, int len,
                                      Mox32f* norm);
MOX_API MoxStatus moxsNormDiff_L1_32fc64f(const Mox32fc* src1, const Mox32fc* src2, int len,
                                          Mox64f* norm);
MOX_API MoxStatus moxsNormDiff_L1_64f(const Mox64f* src1, const Mox64f* src2, int len,
                                      Mox64f* norm);
MOX_API MoxStatus moxsNormDiff_L1_64fc64f(const Mox64fc* src1, const Mox64fc* src2, int len,
                                          Mox64f* norm);
MOX_API MoxStatus moxsNormDiff_L2Sqr_16s64s_Sfs(const Mox16s* src1, const Mox16s* src2, int len,
                                                Mox64s* norm, int scaleFactor);
MOX_API MoxStatus moxsNormDiff_L2_16s32f(const Mox16s* src1, const Mox16s* src2, int len,
                                         Mox32f* norm);
MOX_API MoxStatus moxsNormDiff_L2_16s32s_Sfs(const Mox16s* src1, const Mox16s* src2, int len,
                                             Mox32s* norm, int scaleFactor);
MOX_API MoxStatus moxsNormDiff_L2_32f(const Mox32f* src1, const Mox32f* src2, int len,
                                      Mox32f* norm);
MOX_API MoxStatus moxsNormDiff_L2_32fc64f(const Mox32fc* src1, const Mox32fc* src2, int len,
                                          Mox64f* norm);
MOX_API MoxStatus moxsNormDiff_L2_64f(const Mox64f* src1, const Mox64f* src2, int len,
                                      Mox64f* norm);
MOX_API MoxStatus moxsNormDiff_L2_64fc64f(const Mox64fc* src1, const Mox64fc* src2, int len,
                                          Mox64f* norm);
/** @} */

/** @defgroup dotprod DotProd
 * @ingroup topic_reductions
 * Dot products: `dp = src1[0] * src2[0] + ... + src1[len - 1] * src2[len - 1]`, without
 * conjugation. A name gives the types of the sources, or of both, then that of the result; a real
 * `src1` multiplies both parts of a complex `src2`.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 1.
 * @note Floats are multiplied and added in the type of the result.
 * @note 16-bit elements: exact in 64 bits, then stored, rounded to float, or scaled by
 * 2^-scaleFactor to nearest, ties to even, and saturated; a factor above 31 counts as 31.
 * @note Sums with 32-bit integers run in double, to nearest whatever the mode in force: products of
 * 2^53 and above are rounded. The sum times 2^-scaleFactor, a factor from -31 to 93 (others count
 * as the nearer of them), is rounded to nearest, ties to even, and saturated.
 * @{ */
MOX_API MoxStatus moxsDotProd_16s16sc32fc(const Mox16s* src1, const Mox16sc* src2, int len,
                                          Mox32fc* dp);
MOX_API MoxStatus moxsDotProd_16s16sc32sc_Sfs(const Mox16s* src1, const Mox16sc* src2, int len,
                                              Mox32sc* dp, int scaleFactor);
MOX_API MoxStatus moxsDotProd_16s16sc64sc(const Mox16s* src1, const Mox16sc* src2, int len,
                                          Mox64sc* dp);
MOX_API MoxStatus moxsDotProd_16s16sc_Sfs(const Mox16s* src1, const Mox16sc* src2, int len,
                                          Mox16sc* dp, int scaleFactor);
MOX_API MoxStatus moxsDotProd_16s32f(const Mox16s* src1, const Mox16s* src2, int len, Mox32f* dp);
MOX_API MoxStatus moxsDotProd_16s32s32s_Sfs(const Mox16s* src1, const Mox32s* src2, int len,
                                            Mox32s* dp, int scaleFactor);
MOX_API MoxStatus moxsDotProd_16s32s_Sfs(const Mox16s* src1, const Mox16s* src2, int len,
                                         Mox32s* dp, int scaleFactor);
MOX_API MoxStatus moxsDotProd_16s64s(const Mox16s* src1, const Mox16s* src2, int len, Mox64s* dp);
MOX_API MoxStatus moxsDotProd_16s_Sfs(const Mox16s* src1, const Mox16s* src2, int len, Mox16s* dp,
                                      int scaleFactor);
MOX_API MoxStatus moxsDotProd_16sc32fc(const Mox16sc* src1, const Mox16sc* src2, int len,
                                       Mox32fc* dp);
MOX_API MoxStatus moxsDotProd_16sc32sc_Sfs(const Mox16sc* src1, const Mox16sc* src2, int len,
                                           Mox32sc* dp, int scaleFactor);
MOX_API MoxStatus moxsDotProd_16sc64sc(const Mox16sc* src1, const Mox16sc* src2, int len,
                                       Mox64sc* dp);
MOX_API MoxStatus moxsDotProd_16sc_Sfs(const Mox16sc* src1, const Mox16sc* src2, int len,
                                       Mox16sc* dp, int scaleFactor);
MOX_API MoxStatus moxsDotProd_32f(const Mox32f* src1, const Mox32f* src2, int len, Mox32f* dp);
MOX_API MoxStatus moxsDotProd_32f32fc(const Mox32f* src1, const Mox32fc* src2, int len,
                                      Mox32fc* dp);
MOX_API MoxStatus moxsDotProd_32f32fc64fc(const Mox32f* src1, const Mox32fc* src2, int len,
                                          Mox64fc* dp);
MOX_API MoxStatus moxsDotProd_32f64f(const Mox32f* src1, const Mox32f* src2, int len, Mox64f* dp);
MOX_API MoxStatus moxsDotProd_32fc(const Mox32fc* src1, const Mox32fc* src2, int len, Mox32fc* dp);
MOX_API MoxStatus moxsDotProd_32fc64fc(const Mox32fc* src1, const Mox32fc* src2, int len,
                                       Mox64fc* dp);
MOX_API MoxStatus moxsDotProd_32s32sc_Sfs(const Mox32s* src1, const Mox32sc* src2, int len,
                                          Mox32sc* dp, int scaleFactor);
MOX_API MoxStatus moxsDotProd_32s_Sfs(const Mox32s* src1, const Mox32s* src2, int len, Mox32s* dp,
                                      int scaleFactor);
MOX_API MoxStatus moxsDotProd_32sc_Sfs(const Mox32sc* src1, const Mox32sc* src2, int len,
                                       Mox32sc* dp, int scaleFactor);
MOX_API MoxStatus moxsDotProd_64f(const Mox64f* src1, const Mox64f* src2, int len, Mox64f* dp);
MOX_API MoxStatus moxsDotProd_64f64fc(const Mox64f* src1, const Mox64fc* src2, int len,
                                      Mox64fc* dp);
MOX_API MoxStatus moxsDotProd_64fc(const Mox64fc* src1, const Mox64fc* src2, int len, Mox64fc* dp);
/** @} */

#endif
