/**
 * @file
 * The median filter, which takes spikes out of a signal and keeps its edges.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   Mox32f x[6] = {1, 1, 9, 2, 8, 8};  // a step from 1 to 8, and a spike
 *   moxsFilterMedian_32f_I(x, 6, 3);
 *   for (int i = 0; i < 6; ++i) printf("%g ", x[i]);  // 1 1 2 8 8 8
 * }
 * @endcode
 */
#ifndef MOXSP_MEDIAN_H
#define MOXSP_MEDIAN_H

#include <moxsp/types.h>

/** @defgroup filtermedian FilterMedian
 * @ingroup topic_filters
 * Each element becomes the median of the `maskSize` elements around it. Beyond the ends of the
 * vector the first and the last element are repeated:
 *
 *     dst[i] = median of src[k], i - h <= k <= i + h, h = (maskSize - 1) / 2,
 *              where src[k] = src[0] for k < 0, and src[len - 1] for k >= len
 *
 * An even `maskSize` acts as `maskSize - 1`. A mask of 1 changes nothing, and no mask changes one
 * or two elements. `dst` may be `src`.
 *
 * Masks of 3, 5, 7 and 9 are networks of minima and maxima, in vectors. Other masks move in a
 * sorted window: an element costs a search in it and a move of part of it. They take memory for the
 * call, twice the smaller of `maskSize` and 2 * len + 1 elements.
 *
 * @return ::moxErrNullPtr for a null array; ::moxErrSize for `len` or `maskSize` below 1;
 * ::moxErrMemAlloc without memory, before anything is written; the warning ::moxWarnEvenMedianMask
 * for an even `maskSize`.
 * @note Exact. Where zeros of both signs compete, the result is either. The median of a window with
 * a NaN is any element of it; other windows are not affected.
 * @{ */
MOX_API MoxStatus moxsFilterMedian_8u(const Mox8u* src, Mox8u* dst, int len, int maskSize);
MOX_API MoxStatus moxsFilterMedian_8u_I(Mox8u* srcDst, int len, int maskSize);
MOX_API MoxStatus moxsFilterMedian_16s(const Mox16s* src, Mox16s* dst, int len, int maskSize);
MOX_API MoxStatus moxsFilterMedian_16s_I(Mox16s* srcDst, int len, int maskSize);
MOX_API MoxStatus moxsFilterMedian_32s(const Mox32s* src, Mox32s* dst, int len, int maskSize);
MOX_API MoxStatus moxsFilterMedian_32s_I(Mox32s* srcDst, int len, int maskSize);
MOX_API MoxStatus moxsFilterMedian_32f(const Mox32f* src, Mox32f* dst, int len, int maskSize);
MOX_API MoxStatus moxsFilterMedian_32f_I(Mox32f* srcDst, int len, int maskSize);
MOX_API MoxStatus moxsFilterMedian_64f(const Mox64f* src, Mox64f* dst, int len, int maskSize);
MOX_API MoxStatus moxsFilterMedian_64f_I(Mox64f* srcDst, int len, int maskSize);
/** @} */

#endif
