/**
 * @file
 * Element-wise arithmetic.
 */
#ifndef MOXSP_ARITH_H
#define MOXSP_ARITH_H

#include <moxsp/types.h>

/** @defgroup add Add
 * Sum of two vectors: `dst[i] = src1[i] + src2[i]`, in place `srcDst[i] = src[i] + srcDst[i]`, for
 * 0 <= i < len. Complex elements are added part by part.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1; the complex forms
 * look at the length first.
 * @note Floats: each element is one IEEE 754 addition in the current rounding mode, to the bit.
 * The destination may be one of the sources.
 * @{ */
MOX_API MoxStatus moxsAdd_32f(const Mox32f* src1, const Mox32f* src2, Mox32f* dst, int len);
MOX_API MoxStatus moxsAdd_64f(const Mox64f* src1, const Mox64f* src2, Mox64f* dst, int len);
MOX_API MoxStatus moxsAdd_32fc(const Mox32fc* src1, const Mox32fc* src2, Mox32fc* dst, int len);
MOX_API MoxStatus moxsAdd_64fc(const Mox64fc* src1, const Mox64fc* src2, Mox64fc* dst, int len);
MOX_API MoxStatus moxsAdd_32f_I(const Mox32f* src, Mox32f* srcDst, int len);
MOX_API MoxStatus moxsAdd_64f_I(const Mox64f* src, Mox64f* srcDst, int len);
MOX_API MoxStatus moxsAdd_32fc_I(const Mox32fc* src, Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsAdd_64fc_I(const Mox64fc* src, Mox64fc* srcDst, int len);
/** @} */

#endif
