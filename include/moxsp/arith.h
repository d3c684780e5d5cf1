/**
 * @file
 * Element-wise arithmetic.
 *
 * Unless a group tells otherwise, its functions return ::moxErrNullPtr for a null array, then
 * ::moxErrSize for `len` below 1; a call with such a status has written nothing. `dst` may be one
 * of the sources. A name ending in `_I` or `_ISfs` writes its result over the source `srcDst`.
 * Saturation is silent.
 */
#ifndef MOXSP_ARITH_H
#define MOXSP_ARITH_H

#include <moxsp/types.h>

/** @defgroup scaling Scaled integers
 * Names with `Sfs` scale their integer result: the exact value r of the operation becomes
 * r * 2^-scaleFactor, rounded to nearest with ties to even and saturated to the type of the result.
 * A positive factor divides: 2.5 gives 2, -1.5 gives -2. Every `scaleFactor` is valid: far above
 * the size of r all results are 0, far below it the sign of r alone decides. Results are exact to
 * the bit.
 * @{ */
/** @} */

/** @defgroup add Add
 * Sums. Add: `dst[i] = src1[i] + src2[i]`, in place `srcDst[i] = src[i] + srcDst[i]`. AddC:
 * `dst[i] = src[i] + val`, in place `srcDst[i] = srcDst[i] + val`; for 0 <= i < len.
 * Complex elements are added part by part, and Add over them looks at the length before the
 * pointers. Integers with `Sfs` follow @ref scaling; without, they saturate at the destination
 * type, and `moxsAdd_8u16u` and `moxsAdd_16s32f` are exact.
 *
 * @note Floats: each element is one IEEE 754 addition in the current rounding mode, to the bit. A
 * `val` of 0 in `moxsAddC_32f` and `moxsAddC_64f` leaves every element as it is, -0 too.
 * @note The 64-bit integer forms saturate the sum to 64 bits before they scale it.
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
 * Differences. Sub subtracts its first source: `dst[i] = src2[i] - src1[i]`, in place
 * `srcDst[i] = srcDst[i] - src[i]`. SubC: `dst[i] = src[i] - val`; SubCRev: `dst[i] = val -
 * src[i]`. Complex elements part by part, and Sub over them looks at the length before the
 * pointers. Integers with `Sfs` follow @ref scaling; without, they saturate at the destination
 * type, and `moxsSub_16s32f` is exact.
 *
 * @note Floats: each element is one IEEE 754 subtraction in the current rounding mode, to the bit.
 * A `val` of 0 in `moxsSubC_32f` leaves every element as it is.
 * @note `moxsSub_64s_Sfs` saturates the difference to 64 bits before it scales it.
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
 * Products. Mul: `dst[i] = src1[i] * src2[i]`, in place `srcDst[i] = src[i] * srcDst[i]`. MulC:
 * `dst[i] = src[i] * val`. The complex product of (a, b) and (c, d) is (a*c - b*d, a*d + b*c); a
 * real element multiplies both parts of a complex one. Integers with `Sfs` follow @ref scaling;
 * without, they saturate at the destination type, and `moxsMul_8u16u` is exact.
 *
 * @note Floats: each operation of the formula is rounded by itself in the current rounding mode,
 * and nothing is fused. In `moxsMulC_32f` a `val` of 1 copies the elements to the bit, and one of 0
 * gives +0 for every element, infinities and NaN too.
 * @note `moxsMul_32s_Sfs` with a factor other than 0 computes (double(src1) * 2^-scaleFactor) *
 * double(src2), rounding to nearest in each step, so that a product above 2^53 may differ by one
 * from the exact rule. All other integer forms are exact.
 * @note `moxsMulC_32f16s_Sfs` and `moxsMulC_Low_32f16s` multiply 16-bit data by a float constant in
 * single precision, and round to 16 bits in the current rounding mode; a NaN gives 32767.
 * `moxsMulC_64f64s_ISfs` scales the exact product of integer and double; a NaN gives 0.
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
 * Products added to the destination: `srcDst[i] = srcDst[i] + src1[i] * src2[i]`, with a constant
 * `srcDst[i] = srcDst[i] + src[i] * val`. With `Sfs` the whole sum is scaled by @ref scaling.
 *
 * @note Floats: the product, and then the sum, are each rounded in the current rounding mode.
 * @note `moxsAddProduct_32s_Sfs` is exact with a factor of 0. With a factor of 1 to 62 and of -1 to
 * -30 it scales the product alone, in double precision: (double(src1) * 2^-scaleFactor) *
 * double(src2)
 * + double(srcDst), to nearest in each step. Above 62 all results are 0, at or below -31 the sign
 * of the exact sum alone decides.
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

/** @defgroup logic Logic
 * Bitwise operations: `dst[i] = src1[i] op src2[i]`, in place `srcDst[i] = src[i] op srcDst[i]`;
 * with a constant `dst[i] = src[i] op val`; Not: `dst[i] = ~src[i]`.
 * @{ */
MOX_API MoxStatus moxsAnd_8u(const Mox8u* src1, const Mox8u* src2, Mox8u* dst, int len);
MOX_API MoxStatus moxsAnd_8u_I(const Mox8u* src, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsAnd_16u(const Mox16u* src1, const Mox16u* src2, Mox16u* dst, int len);
MOX_API MoxStatus moxsAnd_16u_I(const Mox16u* src, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsAnd_32u(const Mox32u* src1, const Mox32u* src2, Mox32u* dst, int len);
MOX_API MoxStatus moxsAnd_32u_I(const Mox32u* src, Mox32u* srcDst, int len);
MOX_API MoxStatus moxsOr_8u(const Mox8u* src1, const Mox8u* src2, Mox8u* dst, int len);
MOX_API MoxStatus moxsOr_8u_I(const Mox8u* src, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsOr_16u(const Mox16u* src1, const Mox16u* src2, Mox16u* dst, int len);
MOX_API MoxStatus moxsOr_16u_I(const Mox16u* src, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsOr_32u(const Mox32u* src1, const Mox32u* src2, Mox32u* dst, int len);
MOX_API MoxStatus moxsOr_32u_I(const Mox32u* src, Mox32u* srcDst, int len);
MOX_API MoxStatus moxsXor_8u(const Mox8u* src1, const Mox8u* src2, Mox8u* dst, int len);
MOX_API MoxStatus moxsXor_8u_I(const Mox8u* src, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsXor_16u(const Mox16u* src1, const Mox16u* src2, Mox16u* dst, int len);
MOX_API MoxStatus moxsXor_16u_I(const Mox16u* src, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsXor_32u(const Mox32u* src1, const Mox32u* src2, Mox32u* dst, int len);
MOX_API MoxStatus moxsXor_32u_I(const Mox32u* src, Mox32u* srcDst, int len);
MOX_API MoxStatus moxsAndC_8u(const Mox8u* src, Mox8u val, Mox8u* dst, int len);
MOX_API MoxStatus moxsAndC_8u_I(Mox8u val, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsAndC_16u(const Mox16u* src, Mox16u val, Mox16u* dst, int len);
MOX_API MoxStatus moxsAndC_16u_I(Mox16u val, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsAndC_32u(const Mox32u* src, Mox32u val, Mox32u* dst, int len);
MOX_API MoxStatus moxsAndC_32u_I(Mox32u val, Mox32u* srcDst, int len);
MOX_API MoxStatus moxsOrC_8u(const Mox8u* src, Mox8u val, Mox8u* dst, int len);
MOX_API MoxStatus moxsOrC_8u_I(Mox8u val, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsOrC_16u(const Mox16u* src, Mox16u val, Mox16u* dst, int len);
MOX_API MoxStatus moxsOrC_16u_I(Mox16u val, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsOrC_32u(const Mox32u* src, Mox32u val, Mox32u* dst, int len);
MOX_API MoxStatus moxsOrC_32u_I(Mox32u val, Mox32u* srcDst, int len);
MOX_API MoxStatus moxsXorC_8u(const Mox8u* src, Mox8u val, Mox8u* dst, int len);
MOX_API MoxStatus moxsXorC_8u_I(Mox8u val, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsXorC_16u(const Mox16u* src, Mox16u val, Mox16u* dst, int len);
MOX_API MoxStatus moxsXorC_16u_I(Mox16u val, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsXorC_32u(const Mox32u* src, Mox32u val, Mox32u* dst, int len);
MOX_API MoxStatus moxsXorC_32u_I(Mox32u val, Mox32u* srcDst, int len);
MOX_API MoxStatus moxsNot_8u(const Mox8u* src, Mox8u* dst, int len);
MOX_API MoxStatus moxsNot_8u_I(Mox8u* srcDst, int len);
MOX_API MoxStatus moxsNot_16u(const Mox16u* src, Mox16u* dst, int len);
MOX_API MoxStatus moxsNot_16u_I(Mox16u* srcDst, int len);
MOX_API MoxStatus moxsNot_32u(const Mox32u* src, Mox32u* dst, int len);
MOX_API MoxStatus moxsNot_32u_I(Mox32u* srcDst, int len);
/** @} */

/** @defgroup shift Shifts
 * Shifts by `val` bits: `dst[i] = src[i] << val` and `dst[i] = src[i] >> val`. A left shift drops
 * the high bits, without saturation; a right shift of signed elements brings in copies of the sign.
 * From the width of the element on, all bits are shifted out: the results are 0, or the sign (0 or
 * -1) where signed elements move right.
 *
 * @return ::moxErrShift for a negative `val`, behind the tests of pointers and length.
 * @{ */
MOX_API MoxStatus moxsLShiftC_8u(const Mox8u* src, int val, Mox8u* dst, int len);
MOX_API MoxStatus moxsLShiftC_8u_I(int val, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsLShiftC_16u(const Mox16u* src, int val, Mox16u* dst, int len);
MOX_API MoxStatus moxsLShiftC_16u_I(int val, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsLShiftC_16s(const Mox16s* src, int val, Mox16s* dst, int len);
MOX_API MoxStatus moxsLShiftC_16s_I(int val, Mox16s* srcDst, int len);
MOX_API MoxStatus moxsLShiftC_32s(const Mox32s* src, int val, Mox32s* dst, int len);
MOX_API MoxStatus moxsLShiftC_32s_I(int val, Mox32s* srcDst, int len);
MOX_API MoxStatus moxsRShiftC_8u(const Mox8u* src, int val, Mox8u* dst, int len);
MOX_API MoxStatus moxsRShiftC_8u_I(int val, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsRShiftC_16u(const Mox16u* src, int val, Mox16u* dst, int len);
MOX_API MoxStatus moxsRShiftC_16u_I(int val, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsRShiftC_16s(const Mox16s* src, int val, Mox16s* dst, int len);
MOX_API MoxStatus moxsRShiftC_16s_I(int val, Mox16s* srcDst, int len);
MOX_API MoxStatus moxsRShiftC_32s(const Mox32s* src, int val, Mox32s* dst, int len);
MOX_API MoxStatus moxsRShiftC_32s_I(int val, Mox32s* srcDst, int len);
/** @} */

/** @defgroup sqr Sqr
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
 * 2.2 ulps for `64fc`. `16sc`: each part is rounded from a double; only within 2^-36 of a tie can
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
 * Cube root: `dst[i] = cbrt(src[i])` for 0 <= i < len, with the sign of the element. Zeros,
 * infinities and NaN are their own roots. The `Sfs` form gives the root times 2 to the power
 * `-scaleFactor`, rounded to nearest with ties to even and saturated; every factor is valid.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @note `32f`: a rational function of degree 4 over the mantissa, divided by the processor's
 * reciprocal estimate and one step of Newton's method; within 7.74 ulps over all floats, the last
 * bit depending on the processor's estimate. `32s16s`: the exact value of the rule.
 * @{ */
MOX_API MoxStatus moxsCubrt_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsCubrt_32s16s_Sfs(const Mox32s* src, Mox16s* dst, int len, int scaleFactor);
/** @} */

/** @defgroup abs Abs
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
 * s = f / (2 + f) for a mantissa 1 + f; within 1 ulp. `64f32f`: the same, rounded to float.
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
 * Arctangent: `dst[i] = atan(src[i])` for 0 <= i < len, from -pi/2 to pi/2. Zero keeps its sign,
 * infinities give plus or minus pi/2, NaN gives NaN.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @note `32f`: a rational function of |x| or its reciprocal, in single precision, where reciprocals
 * are the processor's estimate and one step of Newton's method; within 5.62 ulps over all floats,
 * the last bit depending on the processor's estimate. `64f`: a polynomial after reduction to |t| <=
 * tan(pi/8); within 2 ulps. The bounds hold for rounding to nearest.
 * @{ */
MOX_API MoxStatus moxsArctan_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsArctan_32f_I(Mox32f* srcDst, int len);
MOX_API MoxStatus moxsArctan_64f(const Mox64f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsArctan_64f_I(Mox64f* srcDst, int len);
/** @} */

#endif
