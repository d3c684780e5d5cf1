/**
 * @file
 * Element-wise arithmetic.
 *
 * `dst` may be one of the sources; where arrays overlap otherwise the results are undefined. A name
 * ending in `_I` or `_ISfs` writes its result over the source `srcDst`. Saturation is silent.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox32f a[3] = {1, 2, 3}, b[3] = {10, 20, 30};
 *   Mox32f c[3];
 *   moxsSub_32f(a, b, c, 3);                          // the first source is subtracted: b - a
 *   for (int i = 0; i < 3; ++i) printf("%g ", c[i]);  // 9 18 27
 *
 *   Mox16s x[3] = {30000, -5, 7};
 *   moxsAddC_16s_ISfs(30000, x, 3, 1);                // (x + 30000) / 2, no overflow
 *   for (int i = 0; i < 3; ++i) printf("%d ", x[i]);  // 30000 14998 15004
 * }
 * @endcode
 */
#ifndef MOXSP_ARITH_H
#define MOXSP_ARITH_H

#include <moxsp/division.h>
#include <moxsp/elementary.h>
#include <moxsp/logic.h>
#include <moxsp/types.h>

/** @defgroup scaling Scaled integers
 * @ingroup topic_arithmetic
 * Names with `Sfs` scale their integer result: the exact value r of the operation becomes
 * r * 2^-scaleFactor, rounded to nearest with ties to even and saturated to the type of the result.
 * A positive factor divides: 2.5 gives 2, -1.5 gives -2. Every `scaleFactor` is valid: far above
 * the size of r all results are 0, far below it the sign of r alone decides. Results are exact to
 * the bit.
 * @{ */
/** @} */

/** @defgroup add Add
 * @ingroup topic_arithmetic
 * Sums of two vectors, or of a vector and a constant. Add: `dst[i] = src1[i] + src2[i]`, in place
 * `srcDst[i] = src[i] + srcDst[i]`. AddC: `dst[i] = src[i] + val`, and in place
 * `srcDst[i] = srcDst[i] + val`; for 0 <= i < len. Complex elements are added part by part.
 * Integers with `Sfs` follow @ref scaling; without, they saturate at the destination type, and
 * `moxsAdd_8u16u` and `moxsAdd_16s32f` are exact. `dst` may be one of the sources.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1; in the other order
 * by Add of complex elements.
 * @note Floats: each element is one IEEE 754 addition in the current rounding mode, to the bit. A
 * `val` of 0 in `moxsAddC_32f` and `moxsAddC_64f` leaves every element as it is, -0 too.
 * @note `moxsAdd_64s_Sfs` saturates the sum to 64 bits before it scales it.
 * @{ */
MOX_API MoxStatus moxsAdd_32f(const Mox32f* src1, const Mox32f* src2, Mox32f* dst, int len);
MOX_API MoxStatus moxsAdd_64f(const Mox64f* src1, const Mox64f* src2, Mox64f* dst, int len);
MOX_API MoxStatus moxsAdd_32fc(const Mox32fc* src1, const Mox32fc* src2, Mox32fc* dst, int len);
MOX_API MoxStatus moxsAdd_64fc(const Mox64fc* src1, const Mox64fc* src2, Mox64fc* dst, int len);
MOX_API MoxStatus moxsAdd_32f_I(const Mox32f* src, Mox32f* srcDst, int len);
MOX_API MoxStatus moxsAdd_64f_I(const Mox64f* src, Mox64f* srcDst, int len);
MOX_API MoxStatus moxsAdd_32fc_I(const Mox32fc* src, Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsAdd_64fc_I(const Mox64fc* src, Mox64fc* srcDst, int len);
MOX_API MoxStatus moxsAdd_8u_Sfs(const Mox8u* src1, const Mox8u* src2, Mox8u* dst, int len,
                                 int scaleFactor);
MOX_API MoxStatus moxsAdd_8u_ISfs(const Mox8u* src, Mox8u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsAdd_8u16u(const Mox8u* src1, const Mox8u* src2, Mox16u* dst, int len);
MOX_API MoxStatus moxsAdd_16s(const Mox16s* src1, const Mox16s* src2, Mox16s* dst, int len);
MOX_API MoxStatus moxsAdd_16s_I(const Mox16s* src, Mox16s* srcDst, int len);
MOX_API MoxStatus moxsAdd_16s_Sfs(const Mox16s* src1, const Mox16s* src2, Mox16s* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsAdd_16s_ISfs(const Mox16s* src, Mox16s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsAdd_16sc_Sfs(const Mox16sc* src1, const Mox16sc* src2, Mox16sc* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsAdd_16sc_ISfs(const Mox16sc* src, Mox16sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsAdd_16s32f(const Mox16s* src1, const Mox16s* src2, Mox32f* dst, int len);
MOX_API MoxStatus moxsAdd_16s32s_I(const Mox16s* src, Mox32s* srcDst, int len);
MOX_API MoxStatus moxsAdd_16u(const Mox16u* src1, const Mox16u* src2, Mox16u* dst, int len);
MOX_API MoxStatus moxsAdd_16u_Sfs(const Mox16u* src1, const Mox16u* src2, Mox16u* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsAdd_16u_ISfs(const Mox16u* src, Mox16u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsAdd_32u(const Mox32u* src1, const Mox32u* src2, Mox32u* dst, int len);
MOX_API MoxStatus moxsAdd_32s_Sfs(const Mox32s* src1, const Mox32s* src2, Mox32s* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsAdd_32s_ISfs(const Mox32s* src, Mox32s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsAdd_32sc_Sfs(const Mox32sc* src1, const Mox32sc* src2, Mox32sc* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsAdd_32sc_ISfs(const Mox32sc* src, Mox32sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsAdd_64s_Sfs(const Mox64s* src1, const Mox64s* src2, Mox64s* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsAddC_8u_Sfs(const Mox8u* src, Mox8u val, Mox8u* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsAddC_8u_ISfs(Mox8u val, Mox8u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsAddC_16s_Sfs(const Mox16s* src, Mox16s val, Mox16s* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsAddC_16s_ISfs(Mox16s val, Mox16s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsAddC_16u_Sfs(const Mox16u* src, Mox16u val, Mox16u* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsAddC_16u_ISfs(Mox16u val, Mox16u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsAddC_16sc_Sfs(const Mox16sc* src, Mox16sc val, Mox16sc* dst, int len,
                                    int scaleFactor);
MOX_API MoxStatus moxsAddC_16sc_ISfs(Mox16sc val, Mox16sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsAddC_32s_Sfs(const Mox32s* src, Mox32s val, Mox32s* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsAddC_32s_ISfs(Mox32s val, Mox32s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsAddC_32sc_Sfs(const Mox32sc* src, Mox32sc val, Mox32sc* dst, int len,
                                    int scaleFactor);
MOX_API MoxStatus moxsAddC_32sc_ISfs(Mox32sc val, Mox32sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsAddC_16s_I(Mox16s val, Mox16s* srcDst, int len);
MOX_API MoxStatus moxsAddC_64s_Sfs(const Mox64s* src, Mox64s val, Mox64s* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsAddC_64u_Sfs(const Mox64u* src, Mox64u val, Mox64u* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsAddC_32f(const Mox32f* src, Mox32f val, Mox32f* dst, int len);
MOX_API MoxStatus moxsAddC_32f_I(Mox32f val, Mox32f* srcDst, int len);
MOX_API MoxStatus moxsAddC_32fc(const Mox32fc* src, Mox32fc val, Mox32fc* dst, int len);
MOX_API MoxStatus moxsAddC_32fc_I(Mox32fc val, Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsAddC_64f(const Mox64f* src, Mox64f val, Mox64f* dst, int len);
MOX_API MoxStatus moxsAddC_64f_I(Mox64f val, Mox64f* srcDst, int len);
MOX_API MoxStatus moxsAddC_64fc(const Mox64fc* src, Mox64fc val, Mox64fc* dst, int len);
MOX_API MoxStatus moxsAddC_64fc_I(Mox64fc val, Mox64fc* srcDst, int len);
/** @} */

/** @defgroup sub Sub
 * @ingroup topic_arithmetic
 * Differences of two vectors, or of a vector and a constant. Sub subtracts its first source:
 * `dst[i] = src2[i] - src1[i]`, in place `srcDst[i] = srcDst[i] - src[i]`. SubC: `dst[i] = src[i] -
 * val`; SubCRev: `dst[i] = val - src[i]`; for 0 <= i < len. Complex elements are subtracted part by
 * part. Integers with `Sfs` follow @ref scaling; without, they saturate at the destination type,
 * and `moxsSub_16s32f` is exact. `dst` may be one of the sources.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1; in the other order
 * by Sub of complex elements.
 * @note Floats: each element is one IEEE 754 subtraction in the current rounding mode, to the bit.
 * A `val` of 0 in `moxsSubC_32f` leaves every element as it is.
 * @{ */
MOX_API MoxStatus moxsSub_8u_Sfs(const Mox8u* src1, const Mox8u* src2, Mox8u* dst, int len,
                                 int scaleFactor);
MOX_API MoxStatus moxsSub_8u_ISfs(const Mox8u* src, Mox8u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSub_16s(const Mox16s* src1, const Mox16s* src2, Mox16s* dst, int len);
MOX_API MoxStatus moxsSub_16s_I(const Mox16s* src, Mox16s* srcDst, int len);
MOX_API MoxStatus moxsSub_16s_Sfs(const Mox16s* src1, const Mox16s* src2, Mox16s* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsSub_16s_ISfs(const Mox16s* src, Mox16s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSub_16sc_Sfs(const Mox16sc* src1, const Mox16sc* src2, Mox16sc* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsSub_16sc_ISfs(const Mox16sc* src, Mox16sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSub_16s32f(const Mox16s* src1, const Mox16s* src2, Mox32f* dst, int len);
MOX_API MoxStatus moxsSub_16s32s_I(const Mox16s* src, Mox32s* srcDst, int len);
MOX_API MoxStatus moxsSub_16u_Sfs(const Mox16u* src1, const Mox16u* src2, Mox16u* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsSub_16u_ISfs(const Mox16u* src, Mox16u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSub_32s_Sfs(const Mox32s* src1, const Mox32s* src2, Mox32s* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsSub_32s_ISfs(const Mox32s* src, Mox32s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSub_32sc_Sfs(const Mox32sc* src1, const Mox32sc* src2, Mox32sc* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsSub_32sc_ISfs(const Mox32sc* src, Mox32sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSub_64s_Sfs(const Mox64s* src1, const Mox64s* src2, Mox64s* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsSub_32f(const Mox32f* src1, const Mox32f* src2, Mox32f* dst, int len);
MOX_API MoxStatus moxsSub_32f_I(const Mox32f* src, Mox32f* srcDst, int len);
MOX_API MoxStatus moxsSub_32fc(const Mox32fc* src1, const Mox32fc* src2, Mox32fc* dst, int len);
MOX_API MoxStatus moxsSub_32fc_I(const Mox32fc* src, Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsSub_64f(const Mox64f* src1, const Mox64f* src2, Mox64f* dst, int len);
MOX_API MoxStatus moxsSub_64f_I(const Mox64f* src, Mox64f* srcDst, int len);
MOX_API MoxStatus moxsSub_64fc(const Mox64fc* src1, const Mox64fc* src2, Mox64fc* dst, int len);
MOX_API MoxStatus moxsSub_64fc_I(const Mox64fc* src, Mox64fc* srcDst, int len);
MOX_API MoxStatus moxsSubC_8u_Sfs(const Mox8u* src, Mox8u val, Mox8u* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsSubC_8u_ISfs(Mox8u val, Mox8u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSubC_16s_Sfs(const Mox16s* src, Mox16s val, Mox16s* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsSubC_16s_ISfs(Mox16s val, Mox16s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSubC_16u_Sfs(const Mox16u* src, Mox16u val, Mox16u* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsSubC_16u_ISfs(Mox16u val, Mox16u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSubC_16sc_Sfs(const Mox16sc* src, Mox16sc val, Mox16sc* dst, int len,
                                    int scaleFactor);
MOX_API MoxStatus moxsSubC_16sc_ISfs(Mox16sc val, Mox16sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSubC_32s_Sfs(const Mox32s* src, Mox32s val, Mox32s* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsSubC_32s_ISfs(Mox32s val, Mox32s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSubC_32sc_Sfs(const Mox32sc* src, Mox32sc val, Mox32sc* dst, int len,
                                    int scaleFactor);
MOX_API MoxStatus moxsSubC_32sc_ISfs(Mox32sc val, Mox32sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSubC_16s_I(Mox16s val, Mox16s* srcDst, int len);
MOX_API MoxStatus moxsSubC_32f(const Mox32f* src, Mox32f val, Mox32f* dst, int len);
MOX_API MoxStatus moxsSubC_32f_I(Mox32f val, Mox32f* srcDst, int len);
MOX_API MoxStatus moxsSubC_32fc(const Mox32fc* src, Mox32fc val, Mox32fc* dst, int len);
MOX_API MoxStatus moxsSubC_32fc_I(Mox32fc val, Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsSubC_64f(const Mox64f* src, Mox64f val, Mox64f* dst, int len);
MOX_API MoxStatus moxsSubC_64f_I(Mox64f val, Mox64f* srcDst, int len);
MOX_API MoxStatus moxsSubC_64fc(const Mox64fc* src, Mox64fc val, Mox64fc* dst, int len);
MOX_API MoxStatus moxsSubC_64fc_I(Mox64fc val, Mox64fc* srcDst, int len);
MOX_API MoxStatus moxsSubCRev_8u_Sfs(const Mox8u* src, Mox8u val, Mox8u* dst, int len,
                                     int scaleFactor);
MOX_API MoxStatus moxsSubCRev_8u_ISfs(Mox8u val, Mox8u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSubCRev_16s_Sfs(const Mox16s* src, Mox16s val, Mox16s* dst, int len,
                                      int scaleFactor);
MOX_API MoxStatus moxsSubCRev_16s_ISfs(Mox16s val, Mox16s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSubCRev_16u_Sfs(const Mox16u* src, Mox16u val, Mox16u* dst, int len,
                                      int scaleFactor);
MOX_API MoxStatus moxsSubCRev_16u_ISfs(Mox16u val, Mox16u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSubCRev_16sc_Sfs(const Mox16sc* src, Mox16sc val, Mox16sc* dst, int len,
                                       int scaleFactor);
MOX_API MoxStatus moxsSubCRev_16sc_ISfs(Mox16sc val, Mox16sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSubCRev_32s_Sfs(const Mox32s* src, Mox32s val, Mox32s* dst, int len,
                                      int scaleFactor);
MOX_API MoxStatus moxsSubCRev_32s_ISfs(Mox32s val, Mox32s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSubCRev_32sc_Sfs(const Mox32sc* src, Mox32sc val, Mox32sc* dst, int len,
                                       int scaleFactor);
MOX_API MoxStatus moxsSubCRev_32sc_ISfs(Mox32sc val, Mox32sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsSubCRev_16s_I(Mox16s val, Mox16s* srcDst, int len);
MOX_API MoxStatus moxsSubCRev_32f(const Mox32f* src, Mox32f val, Mox32f* dst, int len);
MOX_API MoxStatus moxsSubCRev_32f_I(Mox32f val, Mox32f* srcDst, int len);
MOX_API MoxStatus moxsSubCRev_32fc(const Mox32fc* src, Mox32fc val, Mox32fc* dst, int len);
MOX_API MoxStatus moxsSubCRev_32fc_I(Mox32fc val, Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsSubCRev_64f(const Mox64f* src, Mox64f val, Mox64f* dst, int len);
MOX_API MoxStatus moxsSubCRev_64f_I(Mox64f val, Mox64f* srcDst, int len);
MOX_API MoxStatus moxsSubCRev_64fc(const Mox64fc* src, Mox64fc val, Mox64fc* dst, int len);
MOX_API MoxStatus moxsSubCRev_64fc_I(Mox64fc val, Mox64fc* srcDst, int len);
/** @} */

/** @defgroup mul Mul
 * @ingroup topic_arithmetic
 * Products of two vectors, or of a vector and a constant. Mul: `dst[i] = src1[i] * src2[i]`, in
 * place `srcDst[i] = src[i] * srcDst[i]`. MulC: `dst[i] = src[i] * val`; for 0 <= i < len. The
 * complex product of (a, b) and (c, d) is (a*c - b*d, a*d + b*c); a real element multiplies both
 * parts of a complex one. Integers with `Sfs` follow @ref scaling; without, they saturate at the
 * destination type, and `moxsMul_8u16u` is exact. `dst` may be one of the sources.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @note Floats: each operation of the formula is rounded by itself in the current rounding mode,
 * and nothing is fused. In `moxsMulC_32f` a `val` of 1 copies the elements to the bit, and one of 0
 * gives +0 for every element, infinities and NaN too.
 * @note `moxsMul_32s_Sfs` and `moxsMul_32s_ISfs` with a factor other than 0 compute
 * `(double(src1) * 2^-scaleFactor) * double(src2)`, rounding to nearest in each step, so that a
 * product above 2^53 may differ by one from the exact rule. All other integer forms are exact.
 * @note `moxsMulC_32f16s_Sfs` and, without a factor, `moxsMulC_Low_32f16s` multiply 16-bit data by
 * a float constant in single precision, and round to 16 bits in the current rounding mode; a NaN
 * gives 32767. `moxsMulC_64f64s_ISfs` scales the exact product of integer and double; a NaN gives
 * 0. With an infinite constant of either, 0 gives 0 and everything else the limit of its sign.
 * @{ */
MOX_API MoxStatus moxsMul_8u_Sfs(const Mox8u* src1, const Mox8u* src2, Mox8u* dst, int len,
                                 int scaleFactor);
MOX_API MoxStatus moxsMul_8u_ISfs(const Mox8u* src, Mox8u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMul_8u16u(const Mox8u* src1, const Mox8u* src2, Mox16u* dst, int len);
MOX_API MoxStatus moxsMul_16s(const Mox16s* src1, const Mox16s* src2, Mox16s* dst, int len);
MOX_API MoxStatus moxsMul_16s_I(const Mox16s* src, Mox16s* srcDst, int len);
MOX_API MoxStatus moxsMul_16s_Sfs(const Mox16s* src1, const Mox16s* src2, Mox16s* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsMul_16s_ISfs(const Mox16s* src, Mox16s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMul_16sc_Sfs(const Mox16sc* src1, const Mox16sc* src2, Mox16sc* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsMul_16sc_ISfs(const Mox16sc* src, Mox16sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMul_16s32f(const Mox16s* src1, const Mox16s* src2, Mox32f* dst, int len);
MOX_API MoxStatus moxsMul_16s32s_Sfs(const Mox16s* src1, const Mox16s* src2, Mox32s* dst, int len,
                                     int scaleFactor);
MOX_API MoxStatus moxsMul_16u16s_Sfs(const Mox16u* src1, const Mox16s* src2, Mox16s* dst, int len,
                                     int scaleFactor);
MOX_API MoxStatus moxsMul_16u_Sfs(const Mox16u* src1, const Mox16u* src2, Mox16u* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsMul_16u_ISfs(const Mox16u* src, Mox16u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMul_32s_Sfs(const Mox32s* src1, const Mox32s* src2, Mox32s* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsMul_32s_ISfs(const Mox32s* src, Mox32s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMul_32sc_Sfs(const Mox32sc* src1, const Mox32sc* src2, Mox32sc* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsMul_32sc_ISfs(const Mox32sc* src, Mox32sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMul_32s32sc_Sfs(const Mox32s* src1, const Mox32sc* src2, Mox32sc* dst,
                                      int len, int scaleFactor);
MOX_API MoxStatus moxsMul_32s32sc_ISfs(const Mox32s* src, Mox32sc* srcDst, int len,
                                       int scaleFactor);
MOX_API MoxStatus moxsMul_Low_32s_Sfs(const Mox32s* src1, const Mox32s* src2, Mox32s* dst, int len,
                                      int scaleFactor);
MOX_API MoxStatus moxsMul_32f(const Mox32f* src1, const Mox32f* src2, Mox32f* dst, int len);
MOX_API MoxStatus moxsMul_32f_I(const Mox32f* src, Mox32f* srcDst, int len);
MOX_API MoxStatus moxsMul_32fc(const Mox32fc* src1, const Mox32fc* src2, Mox32fc* dst, int len);
MOX_API MoxStatus moxsMul_32fc_I(const Mox32fc* src, Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsMul_32f32fc(const Mox32f* src1, const Mox32fc* src2, Mox32fc* dst, int len);
MOX_API MoxStatus moxsMul_32f32fc_I(const Mox32f* src, Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsMul_64f(const Mox64f* src1, const Mox64f* src2, Mox64f* dst, int len);
MOX_API MoxStatus moxsMul_64f_I(const Mox64f* src, Mox64f* srcDst, int len);
MOX_API MoxStatus moxsMul_64fc(const Mox64fc* src1, const Mox64fc* src2, Mox64fc* dst, int len);
MOX_API MoxStatus moxsMul_64fc_I(const Mox64fc* src, Mox64fc* srcDst, int len);
MOX_API MoxStatus moxsMulC_8u_Sfs(const Mox8u* src, Mox8u val, Mox8u* dst, int len,
                                  int scaleFactor);
MOX_API MoxStatus moxsMulC_8u_ISfs(Mox8u val, Mox8u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMulC_16s_Sfs(const Mox16s* src, Mox16s val, Mox16s* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsMulC_16s_ISfs(Mox16s val, Mox16s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMulC_16u_Sfs(const Mox16u* src, Mox16u val, Mox16u* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsMulC_16u_ISfs(Mox16u val, Mox16u* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMulC_16sc_Sfs(const Mox16sc* src, Mox16sc val, Mox16sc* dst, int len,
                                    int scaleFactor);
MOX_API MoxStatus moxsMulC_16sc_ISfs(Mox16sc val, Mox16sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMulC_32s_Sfs(const Mox32s* src, Mox32s val, Mox32s* dst, int len,
                                   int scaleFactor);
MOX_API MoxStatus moxsMulC_32s_ISfs(Mox32s val, Mox32s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMulC_32sc_Sfs(const Mox32sc* src, Mox32sc val, Mox32sc* dst, int len,
                                    int scaleFactor);
MOX_API MoxStatus moxsMulC_32sc_ISfs(Mox32sc val, Mox32sc* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMulC_16s_I(Mox16s val, Mox16s* srcDst, int len);
MOX_API MoxStatus moxsMulC_32f(const Mox32f* src, Mox32f val, Mox32f* dst, int len);
MOX_API MoxStatus moxsMulC_32f_I(Mox32f val, Mox32f* srcDst, int len);
MOX_API MoxStatus moxsMulC_32fc(const Mox32fc* src, Mox32fc val, Mox32fc* dst, int len);
MOX_API MoxStatus moxsMulC_32fc_I(Mox32fc val, Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsMulC_64f(const Mox64f* src, Mox64f val, Mox64f* dst, int len);
MOX_API MoxStatus moxsMulC_64f_I(Mox64f val, Mox64f* srcDst, int len);
MOX_API MoxStatus moxsMulC_64fc(const Mox64fc* src, Mox64fc val, Mox64fc* dst, int len);
MOX_API MoxStatus moxsMulC_64fc_I(Mox64fc val, Mox64fc* srcDst, int len);
MOX_API MoxStatus moxsMulC_32f16s_Sfs(const Mox16s* src, Mox32f val, Mox16s* dst, int len,
                                      int scaleFactor);
MOX_API MoxStatus moxsMulC_64s_ISfs(Mox64s val, Mox64s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMulC_64f64s_ISfs(Mox64f val, Mox64s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMulC_Low_32f16s(const Mox16s* src, Mox32f val, Mox16s* dst, int len);
/** @} */

/** @defgroup addproduct AddProduct
 * @ingroup topic_arithmetic
 * Products added to the destination: `srcDst[i] = srcDst[i] + src1[i] * src2[i]`, with a constant
 * `srcDst[i] = srcDst[i] + src[i] * val`. With `Sfs` the whole sum is scaled by @ref scaling,
 * but for `32s`, see below.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @note Floats: the product, and then the sum, are each rounded in the current rounding mode.
 * @note `moxsAddProduct_32s_Sfs` is exact with a factor of 0. With a factor of 1 to 62 and of -1 to
 * -30 it scales the product alone, in double precision, to nearest in each step:
 * `(double(src1) * 2^-scaleFactor) * double(src2) + double(srcDst)`. Above 62 all results are 0, at
 * or below -31 the sign of the exact sum alone decides.
 * @{ */
MOX_API MoxStatus moxsAddProduct_16s_Sfs(const Mox16s* src1, const Mox16s* src2, Mox16s* srcDst,
                                         int len, int scaleFactor);
MOX_API MoxStatus moxsAddProduct_16s32s_Sfs(const Mox16s* src1, const Mox16s* src2, Mox32s* srcDst,
                                            int len, int scaleFactor);
MOX_API MoxStatus moxsAddProduct_32s_Sfs(const Mox32s* src1, const Mox32s* src2, Mox32s* srcDst,
                                         int len, int scaleFactor);
MOX_API MoxStatus moxsAddProduct_32f(const Mox32f* src1, const Mox32f* src2, Mox32f* srcDst,
                                     int len);
MOX_API MoxStatus moxsAddProduct_32fc(const Mox32fc* src1, const Mox32fc* src2, Mox32fc* srcDst,
                                      int len);
MOX_API MoxStatus moxsAddProduct_64f(const Mox64f* src1, const Mox64f* src2, Mox64f* srcDst,
                                     int len);
MOX_API MoxStatus moxsAddProduct_64fc(const Mox64fc* src1, const Mox64fc* src2, Mox64fc* srcDst,
                                      int len);
MOX_API MoxStatus moxsAddProductC_32f(const Mox32f* src, Mox32f val, Mox32f* srcDst, int len);
/** @} */

#endif
