/**
 * @file
 * Extrema: the largest and smallest elements of vectors, and where they are.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox16s x[5] = {3, -7, 12, 0, 12};
 *   Mox16s min, max;
 *   int minAt, maxAt;
 *   moxsMinMaxIndx_16s(x, 5, &min, &minAt, &max, &maxAt);
 *   printf("%d at %d, %d at %d", min, minAt, max, maxAt);  // -7 at 1, 12 at 2
 * }
 * @endcode
 */
#ifndef MOXSP_EXTREMA_H
#define MOXSP_EXTREMA_H

#include <moxsp/types.h>

/** @defgroup max Max and Min
 * @ingroup topic_extrema
 * Extrema: the largest or smallest element, or the largest or smallest of the magnitudes.
 * Magnitudes that the type can't hold count as its maximum: of -32768, 32767.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 1.
 * @note Exact, and the same at every address. Floats: a NaN counts only as the first element, and
 * is the result then, for nothing beats it; NaN elsewhere are passed over. Of zeros with both signs
 * the first one is the result.
 * @{ */
MOX_API MoxStatus moxsMax_16s(const Mox16s* src, int len, Mox16s* result);
MOX_API MoxStatus moxsMax_32f(const Mox32f* src, int len, Mox32f* result);
MOX_API MoxStatus moxsMax_32s(const Mox32s* src, int len, Mox32s* result);
MOX_API MoxStatus moxsMax_64f(const Mox64f* src, int len, Mox64f* result);
MOX_API MoxStatus moxsMin_16s(const Mox16s* src, int len, Mox16s* result);
MOX_API MoxStatus moxsMin_32f(const Mox32f* src, int len, Mox32f* result);
MOX_API MoxStatus moxsMin_32s(const Mox32s* src, int len, Mox32s* result);
MOX_API MoxStatus moxsMin_64f(const Mox64f* src, int len, Mox64f* result);
MOX_API MoxStatus moxsMaxAbs_16s(const Mox16s* src, int len, Mox16s* result);
MOX_API MoxStatus moxsMaxAbs_32s(const Mox32s* src, int len, Mox32s* result);
MOX_API MoxStatus moxsMinAbs_16s(const Mox16s* src, int len, Mox16s* result);
MOX_API MoxStatus moxsMinAbs_32s(const Mox32s* src, int len, Mox32s* result);
/** @} */

/** @defgroup maxindx MaxIndx and MinIndx
 * @ingroup topic_extrema
 * Extrema as in @ref max, with the index of the first element that has the value; 0 for a NaN.
 * `index` may be null.
 *
 * @return ::moxErrNullPtr for another null pointer, then ::moxErrSize for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsMaxIndx_16s(const Mox16s* src, int len, Mox16s* result, int* index);
MOX_API MoxStatus moxsMaxIndx_32f(const Mox32f* src, int len, Mox32f* result, int* index);
MOX_API MoxStatus moxsMaxIndx_32s(const Mox32s* src, int len, Mox32s* result, int* index);
MOX_API MoxStatus moxsMaxIndx_64f(const Mox64f* src, int len, Mox64f* result, int* index);
MOX_API MoxStatus moxsMinIndx_16s(const Mox16s* src, int len, Mox16s* result, int* index);
MOX_API MoxStatus moxsMinIndx_32f(const Mox32f* src, int len, Mox32f* result, int* index);
MOX_API MoxStatus moxsMinIndx_32s(const Mox32s* src, int len, Mox32s* result, int* index);
MOX_API MoxStatus moxsMinIndx_64f(const Mox64f* src, int len, Mox64f* result, int* index);
MOX_API MoxStatus moxsMaxAbsIndx_16s(const Mox16s* src, int len, Mox16s* result, int* index);
MOX_API MoxStatus moxsMaxAbsIndx_32s(const Mox32s* src, int len, Mox32s* result, int* index);
MOX_API MoxStatus moxsMinAbsIndx_16s(const Mox16s* src, int len, Mox16s* result, int* index);
MOX_API MoxStatus moxsMinAbsIndx_32s(const Mox32s* src, int len, Mox32s* result, int* index);
/** @} */

/** @defgroup minmax MinMax
 * @ingroup topic_extrema
 * Both extrema as in @ref max in one pass. MinMaxIndx adds the index of the first element that has
 * either value; 0 for a NaN.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsMinMax_16s(const Mox16s* src, int len, Mox16s* min, Mox16s* max);
MOX_API MoxStatus moxsMinMax_16u(const Mox16u* src, int len, Mox16u* min, Mox16u* max);
MOX_API MoxStatus moxsMinMax_32f(const Mox32f* src, int len, Mox32f* min, Mox32f* max);
MOX_API MoxStatus moxsMinMax_32s(const Mox32s* src, int len, Mox32s* min, Mox32s* max);
MOX_API MoxStatus moxsMinMax_32u(const Mox32u* src, int len, Mox32u* min, Mox32u* max);
MOX_API MoxStatus moxsMinMax_64f(const Mox64f* src, int len, Mox64f* min, Mox64f* max);
MOX_API MoxStatus moxsMinMax_8u(const Mox8u* src, int len, Mox8u* min, Mox8u* max);
MOX_API MoxStatus moxsMinMaxIndx_16s(const Mox16s* src, int len, Mox16s* min, int* minIndex,
                                     Mox16s* max, int* maxIndex);
MOX_API MoxStatus moxsMinMaxIndx_16u(const Mox16u* src, int len, Mox16u* min, int* minIndex,
                                     Mox16u* max, int* maxIndex);
MOX_API MoxStatus moxsMinMaxIndx_32f(const Mox32f* src, int len, Mox32f* min, int* minIndex,
                                     Mox32f* max, int* maxIndex);
MOX_API MoxStatus moxsMinMaxIndx_32s(const Mox32s* src, int len, Mox32s* min, int* minIndex,
                                     Mox32s* max, int* maxIndex);
MOX_API MoxStatus moxsMinMaxIndx_32u(const Mox32u* src, int len, Mox32u* min, int* minIndex,
                                     Mox32u* max, int* maxIndex);
MOX_API MoxStatus moxsMinMaxIndx_64f(const Mox64f* src, int len, Mox64f* min, int* minIndex,
                                     Mox64f* max, int* maxIndex);
MOX_API MoxStatus moxsMinMaxIndx_8u(const Mox8u* src, int len, Mox8u* min, int* minIndex,
                                    Mox8u* max, int* maxIndex);
/** @} */

/** @defgroup maxevery MaxEvery and MinEvery
 * @ingroup topic_extrema
 * The larger or smaller of two elements: in MaxEvery `dst[i] = src1[i] > src2[i] ? src1[i] :
 * src2[i]`, in place `srcDst[i] = src[i] > srcDst[i] ? src[i] : srcDst[i]`; in MinEvery with `<`;
 * for 0 <= i < len. `dst` may be one of the sources.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` 0. A negative `len` is an
 * empty vector: ::moxOk, and nothing is written.
 * @note Floats: beside a NaN, and of zeros with different signs, the second source's element is the
 * result.
 * @{ */
MOX_API MoxStatus moxsMaxEvery_16s_I(const Mox16s* src, Mox16s* srcDst, int len);
MOX_API MoxStatus moxsMaxEvery_16u(const Mox16u* src1, const Mox16u* src2, Mox16u* dst, int len);
MOX_API MoxStatus moxsMaxEvery_16u_I(const Mox16u* src, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsMaxEvery_32f(const Mox32f* src1, const Mox32f* src2, Mox32f* dst, int len);
MOX_API MoxStatus moxsMaxEvery_32f_I(const Mox32f* src, Mox32f* srcDst, int len);
MOX_API MoxStatus moxsMaxEvery_32s_I(const Mox32s* src, Mox32s* srcDst, int len);
MOX_API MoxStatus moxsMaxEvery_64f(const Mox64f* src1, const Mox64f* src2, Mox64f* dst, int len);
MOX_API MoxStatus moxsMaxEvery_64f_I(const Mox64f* src, Mox64f* srcDst, int len);
MOX_API MoxStatus moxsMaxEvery_8u(const Mox8u* src1, const Mox8u* src2, Mox8u* dst, int len);
MOX_API MoxStatus moxsMaxEvery_8u_I(const Mox8u* src, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsMinEvery_16s_I(const Mox16s* src, Mox16s* srcDst, int len);
MOX_API MoxStatus moxsMinEvery_16u(const Mox16u* src1, const Mox16u* src2, Mox16u* dst, int len);
MOX_API MoxStatus moxsMinEvery_16u_I(const Mox16u* src, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsMinEvery_32f(const Mox32f* src1, const Mox32f* src2, Mox32f* dst, int len);
MOX_API MoxStatus moxsMinEvery_32f_I(const Mox32f* src, Mox32f* srcDst, int len);
MOX_API MoxStatus moxsMinEvery_32s_I(const Mox32s* src, Mox32s* srcDst, int len);
MOX_API MoxStatus moxsMinEvery_64f(const Mox64f* src1, const Mox64f* src2, Mox64f* dst, int len);
MOX_API MoxStatus moxsMinEvery_64f_I(const Mox64f* src, Mox64f* srcDst, int len);
MOX_API MoxStatus moxsMinEvery_8u(const Mox8u* src1, const Mox8u* src2, Mox8u* dst, int len);
MOX_API MoxStatus moxsMinEvery_8u_I(const Mox8u* src, Mox8u* srcDst, int len);
/** @} */

/** @defgroup maxorder MaxOrder
 * @ingroup topic_extrema
 * Order of magnitude: the least k such that all |src[i]| < 2^k, for an integer to the bit the
 * length of the largest magnitude. 1 gives 1, 3 gives 2, 4 gives 3, 0.5 gives 0, 0.25 gives -1, and
 * -32768 gives 16. When all elements are zero the order is 0; subnormal floats count as of order
 * -126, in `64f` -1022.
 *
 * @return ::moxErrSize for `len` below 1, then ::moxErrNullPtr for a null pointer.
 * ::moxWarnNaNFound when a float is NaN or infinite: such elements count as 0.
 * @{ */
MOX_API MoxStatus moxsMaxOrder_16s(const Mox16s* src, int len, int* order);
MOX_API MoxStatus moxsMaxOrder_32f(const Mox32f* src, int len, int* order);
MOX_API MoxStatus moxsMaxOrder_32s(const Mox32s* src, int len, int* order);
MOX_API MoxStatus moxsMaxOrder_64f(const Mox64f* src, int len, int* order);
/** @} */

#endif
