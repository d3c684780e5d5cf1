/**
 * @file
 * Measures of signals: counts, nearest entries of a table, running sums, normalisation.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox16s x[6] = {1, 2, 3, -4, 5, 6};
 *   Mox32f sums[4], crossings;
 *   moxsSumWindow_16s32f(x, sums, 4, 3);                 // 4 sums of 3 neighbours
 *   for (int i = 0; i < 4; ++i) printf("%g ", sums[i]);  // 6 1 4 7
 *   moxsZeroCrossing_16s32f(x, 6, &crossings, moxZeroCrossingXor);
 *   printf("%g", crossings);  // 2
 * }
 * @endcode
 */
#ifndef MOXSP_MEASURES_H
#define MOXSP_MEASURES_H

#include <moxsp/types.h>

/** @defgroup countinrange CountInRange
 * @ingroup topic_measures
 * The number of elements with `lowerBound < src[i] < upperBound`, for 0 <= i < len.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsCountInRange_32s(const Mox32s* src, int len, int* counts, Mox32s lowerBound,
                                       Mox32s upperBound);
/** @} */

/** @defgroup findnearest FindNearest
 * @ingroup topic_measures
 * The entry of an ascending table that is nearest to a value, and its index; of two at the same
 * distance the lower one. A value that is not above the first entry gives index 0, one not below
 * the last the last index. FindNearest does it for every element of `src`. With entries in another
 * order some entry is found.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` or `tableLen` below 1.
 * @{ */
MOX_API MoxStatus moxsFindNearestOne_16u(Mox16u value, Mox16u* outVal, int* outIndex,
                                         const Mox16u* table, int tableLen);
MOX_API MoxStatus moxsFindNearest_16u(const Mox16u* src, Mox16u* outVals, int* outIndices, int len,
                                      const Mox16u* table, int tableLen);
/** @} */

/** @defgroup sumwindow SumWindow
 * @ingroup topic_measures
 * Running sums: `dst[i]` is the sum of `src[i]` to `src[i + maskSize - 1]`, for 0 <= i < len; `src`
 * holds `len + maskSize - 1` elements.
 *
 * @return ::moxErrNullPtr for a null array, ::moxErrSize for `len` below 1, ::moxErrSumWindowLen
 * for `maskSize` below 1.
 * @note To the bit: `dst[0]` is the exact sum, rounded once, and
 * `dst[i + 1] = dst[i] + Mox32f(src[i + maskSize] - src[i])`. So sums below 2^24 are exact; in
 * larger ones the rounding errors accumulate.
 * @{ */
MOX_API MoxStatus moxsSumWindow_8u32f(const Mox8u* src, Mox32f* dst, int len, int maskSize);
MOX_API MoxStatus moxsSumWindow_16s32f(const Mox16s* src, Mox32f* dst, int len, int maskSize);
/** @} */

/** @defgroup normalize Normalize
 * @ingroup topic_levels
 * Vectors shifted and rescaled: `dst[i] = (src[i] - sub) / div` for 0 <= i < len; for complex
 * elements `sub` is complex and `div` real. The `Sfs` forms multiply the quotient by
 * 2^-scaleFactor, round it to nearest with ties to even and saturate; every factor is valid. `dst`
 * may be `src`.
 *
 * @return ::moxErrNullPtr for a null array, ::moxErrSize for `len` below 1, then ::moxErrDivByZero
 * for a `div` of 0 and, in the floating-point forms, of less than 1.1754944e-38 either way.
 * @note To the bit, in the current rounding mode: each operation is rounded to the type of a part.
 * `moxsNormalize_32f` multiplies by the reciprocal, `(src[i] - sub) * (1 / div)`; the others
 * divide. Integers are `Mox32f(src[i] - sub) / Mox32f(div)`, divided in single precision, before
 * they are scaled.
 * @{ */
MOX_API MoxStatus moxsNormalize_32f(const Mox32f* src, Mox32f* dst, int len, Mox32f sub,
                                    Mox32f div);
MOX_API MoxStatus moxsNormalize_64f(const Mox64f* src, Mox64f* dst, int len, Mox64f sub,
                                    Mox64f div);
MOX_API MoxStatus moxsNormalize_32fc(const Mox32fc* src, Mox32fc* dst, int len, Mox32fc sub,
                                     Mox32f div);
MOX_API MoxStatus moxsNormalize_64fc(const Mox64fc* src, Mox64fc* dst, int len, Mox64fc sub,
                                     Mox64f div);
MOX_API MoxStatus moxsNormalize_16s_Sfs(const Mox16s* src, Mox16s* dst, int len, Mox16s sub,
                                        int div, int scaleFactor);
MOX_API MoxStatus moxsNormalize_16sc_Sfs(const Mox16sc* src, Mox16sc* dst, int len, Mox16sc sub,
                                         int div, int scaleFactor);
/** @} */

/** @defgroup update UpdateLinear and UpdatePower
 * @ingroup topic_measures
 * A recursive mean: `y = alpha * y + (1 - alpha) * x` for each element, in their order, where y is
 * the value at `srcDst`. Linear: `x = src[i] >> shift`, `shift` taken as 0 to 15. Power:
 * `x = (src[i] * src[i]) >> shift`, `shift` taken as 0 to 31. `hint` has no effect.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 1.
 * @note The result saturates to 32 bits. For `alpha` from -180 to 181 it is exact. Beyond, four
 * elements make one step in double precision, with the powers of `alpha` up to the fourth, and the
 * result is rounded to nearest.
 * @{ */
MOX_API MoxStatus moxsUpdateLinear_16s32s_I(const Mox16s* src, int len, Mox32s* srcDst, int shift,
                                            Mox16s alpha, int hint);
MOX_API MoxStatus moxsUpdatePower_16s32s_I(const Mox16s* src, int len, Mox32s* srcDst, int shift,
                                           Mox16s alpha, int hint);
/** @} */

/** What zero crossings are. */
enum {
  moxZeroCrossingProduct = 0, /**< pairs whose product is below 0 */
  moxZeroCrossingXor = 1,     /**< pairs whose sign bits differ */
  moxZeroCrossingSign = 2     /**< half of the sum of |sgn x[i] - sgn x[i - 1]| */
};

/** @defgroup zerocrossing ZeroCrossing
 * @ingroup topic_measures
 * A count over the pairs of neighbouring elements, by the kind of crossing `zcType`. The products
 * are those of `Mox32f`, so that one of tiny numbers may be 0; sgn of NaN is 0. The count is exact
 * before it is rounded to `Mox32f`.
 *
 * @return ::moxErrNullPtr for a null pointer, ::moxErrSize for `len` 0, then
 * ::moxErrZeroCrossingType for another `zcType`. A negative `len` has no pairs.
 * @{ */
MOX_API MoxStatus moxsZeroCrossing_32f(const Mox32f* src, int len, Mox32f* result, int zcType);
MOX_API MoxStatus moxsZeroCrossing_16s32f(const Mox16s* src, int len, Mox32f* result, int zcType);
/** @} */

#endif
