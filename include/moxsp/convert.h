/**
 * @file
 * Conversions between element types.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox16s pcm[3] = {16384, -32768, 100};
 *   Mox32f sample[3];
 *   Mox8u packed[9];
 *   moxsConvert_16s32f_Sfs(pcm, sample, 3, 15);                        // / 2^15
 *   for (int i = 0; i < 3; ++i) printf("%g ", sample[i]);              // 0.5 -1 0.00305176
 *   moxsConvert_32f24s_Sfs(sample, packed, 3, moxRoundNearEven, -23);  // * 2^23
 *   printf("%02x %02x %02x", packed[0], packed[1], packed[2]);         // 00 00 40
 * }
 * @endcode
 */
#ifndef MOXSP_CONVERT_H
#define MOXSP_CONVERT_H

#include <moxsp/companding.h>
#include <moxsp/complex.h>
#include <moxsp/threshold.h>
#include <moxsp/types.h>

/** @defgroup convert Convert
 * @ingroup topic_conversion
 * Each element in another type: `dst[i]` is the value of `src[i]`, for 0 <= i < len. A name gives
 * the source type, then the destination type. Packed 24-bit samples are three bytes each, least
 * significant first, and `len` counts samples.
 *
 * Arrays must not overlap, except that a destination whose elements have the size of the source's
 * may be the source.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1. Values beyond the
 * range of integers saturate, those beyond the range of floats become infinite or the largest
 * float, as the rounding mode has it; no status tells.
 * @note Results are defined to the bit. The rounding mode in force is unchanged after each call.
 * @{ */

/** @name To a wider type, or to floats
 * Exact, but for `32s32f`, `64s64f` and `64f32f`, which round in the current mode: one IEEE 754
 * conversion each.
 * @{ */
MOX_API MoxStatus moxsConvert_8s16s(const Mox8s* src, Mox16s* dst, int len);
MOX_API MoxStatus moxsConvert_8s32f(const Mox8s* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsConvert_8u32f(const Mox8u* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsConvert_16s32s(const Mox16s* src, Mox32s* dst, int len);
MOX_API MoxStatus moxsConvert_16s32f(const Mox16s* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsConvert_16u32f(const Mox16u* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsConvert_24s32s(const Mox8u* src, Mox32s* dst, int len);
MOX_API MoxStatus moxsConvert_24s32f(const Mox8u* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsConvert_24u32u(const Mox8u* src, Mox32u* dst, int len);
MOX_API MoxStatus moxsConvert_24u32f(const Mox8u* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsConvert_32s32f(const Mox32s* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsConvert_32s64f(const Mox32s* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsConvert_32f64f(const Mox32f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsConvert_64s64f(const Mox64s* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsConvert_64f32f(const Mox64f* src, Mox32f* dst, int len);
/** @} */

/** @name Integers to floats with a factor
 * `dst[i] = src[i] * 2^-scaleFactor`: the value converted as above, then multiplied once, in the
 * current rounding mode. The power of two stays finite with every source: a `scaleFactor` below
 * -112 counts as -112 (`16s32f`), below -96 as -96 (`32s32f`), below -1008 as -1008 (`16s64f`),
 * below -992 as -992 (`32s64f`). Large factors lead through the subnormal numbers to 0, rounded
 * once.
 * @{ */
MOX_API MoxStatus moxsConvert_16s32f_Sfs(const Mox16s* src, Mox32f* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsConvert_16s64f_Sfs(const Mox16s* src, Mox64f* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsConvert_32s32f_Sfs(const Mox32s* src, Mox32f* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsConvert_32s64f_Sfs(const Mox32s* src, Mox64f* dst, int len, int scaleFactor);
/** @} */

/** @name Floats to integers
 * `dst[i] = round(src[i] * 2^-scaleFactor)`, saturated. `roundMode` is ::moxRoundZero,
 * ::moxRoundNearEven or ::moxRoundHalfAway; any other value counts as ::moxRoundHalfAway. Rounding
 * is of the exact scaled value: 0.49999997 half away is 0. Every `scaleFactor` is valid: far above
 * 0 all results are 0, far below 0 a value other than 0 gives the limit on its side.
 *
 * A NaN gives the maximum of the destination's type, in `64f64s` the minimum.
 *
 * moxsConvert_64f64s_Sfs() returns ::moxErrSize only for a `len` of 0: it takes the length as an
 * unsigned number, of which a negative `len` is a very large one.
 * @{ */
MOX_API MoxStatus moxsConvert_32f8s_Sfs(const Mox32f* src, Mox8s* dst, int len, int roundMode,
                                        int scaleFactor);
MOX_API MoxStatus moxsConvert_32f8u_Sfs(const Mox32f* src, Mox8u* dst, int len, int roundMode,
                                        int scaleFactor);
MOX_API MoxStatus moxsConvert_32f16s_Sfs(const Mox32f* src, Mox16s* dst, int len, int roundMode,
                                         int scaleFactor);
MOX_API MoxStatus moxsConvert_32f16u_Sfs(const Mox32f* src, Mox16u* dst, int len, int roundMode,
                                         int scaleFactor);
MOX_API MoxStatus moxsConvert_32f24s_Sfs(const Mox32f* src, Mox8u* dst, int len, int roundMode,
                                         int scaleFactor);
MOX_API MoxStatus moxsConvert_32f24u_Sfs(const Mox32f* src, Mox8u* dst, int len, int roundMode,
                                         int scaleFactor);
MOX_API MoxStatus moxsConvert_32f32s_Sfs(const Mox32f* src, Mox32s* dst, int len, int roundMode,
                                         int scaleFactor);
MOX_API MoxStatus moxsConvert_64f16s_Sfs(const Mox64f* src, Mox16s* dst, int len, int roundMode,
                                         int scaleFactor);
MOX_API MoxStatus moxsConvert_64f32s_Sfs(const Mox64f* src, Mox32s* dst, int len, int roundMode,
                                         int scaleFactor);
MOX_API MoxStatus moxsConvert_64f64s_Sfs(const Mox64f* src, Mox64s* dst, int len, int roundMode,
                                         int scaleFactor);
/** @} */

/** @name Integers to narrower integers
 * `dst[i] = src[i] * 2^-scaleFactor`, rounded to nearest with ties to even and saturated. Every
 * `scaleFactor` is valid. `32s16s` saturates only.
 * @{ */
MOX_API MoxStatus moxsConvert_16s8s_Sfs(const Mox16s* src, Mox8s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsConvert_32s16s(const Mox32s* src, Mox16s* dst, int len);
MOX_API MoxStatus moxsConvert_32s16s_Sfs(const Mox32s* src, Mox16s* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsConvert_32s24s_Sfs(const Mox32s* src, Mox8u* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsConvert_32u24u_Sfs(const Mox32u* src, Mox8u* dst, int len, int scaleFactor);
MOX_API MoxStatus moxsConvert_64s32s_Sfs(const Mox64s* src, Mox32s* dst, int len, int scaleFactor);
/** @} */

/** @name Half floats
 * IEEE 754 binary16. Widening is exact; a signalling NaN becomes quiet, and its payload moves up.
 * Narrowing rounds under `roundMode`, whatever the mode in force: ::moxRoundZero leaves a value
 * beyond the range at the largest finite half float, ::moxRoundNearEven makes it infinite.
 * ::moxRoundHalfAway is not offered; any other value counts as ::moxRoundNearEven. `16f16s` widens
 * and goes on as the floats to integers above, any other value counting as ::moxRoundHalfAway
 * there.
 *
 * @return After the pointers and the length, ::moxErrRoundMode for ::moxRoundHalfAway.
 * @note Results are the same whether or not the processor has instructions for half floats.
 * @{ */
MOX_API MoxStatus moxsConvert_16f32f(const Mox16f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsConvert_32f16f(const Mox32f* src, Mox16f* dst, int len, int roundMode);
MOX_API MoxStatus moxsConvert_16s16f(const Mox16s* src, Mox16f* dst, int len, int roundMode);
MOX_API MoxStatus moxsConvert_16f16s_Sfs(const Mox16f* src, Mox16s* dst, int len, int roundMode,
                                         int scaleFactor);
/** @} */
/** @} */

/** @defgroup interleave JoinScaled and SplitScaled
 * @ingroup topic_conversion
 * Samples between one row of floats a channel and one array of integers in which the channels
 * alternate: sample `j` of channel `c`, for 0 <= j < len and 0 <= c < channels, is element
 * `j * channels + c`.
 *
 * Split brings full-scale integers to the range -1 to 1: `dstRows[c][j] = src[j * channels + c] /
 * 2^15`, for 24 bits `/ 2^23`, which is exact. Join is its inverse: `dst[j * channels + c] =
 * srcRows[c][j] * 2^15` (`* 2^23`) to nearest, ties to even, saturated; a NaN gives the maximum.
 * Arrays must not overlap.
 *
 * @return ::moxErrNullPtr for a null interleaved array, then ::moxErrSize for `channels` or `len`
 * below 1, then ::moxErrNullPtr for a null array of rows or a null row.
 * @{ */
MOX_API MoxStatus moxsJoinScaled_32f16s_D2L(const Mox32f* const* srcRows, int channels, int len,
                                            Mox16s* dst);
MOX_API MoxStatus moxsJoinScaled_32f24s_D2L(const Mox32f* const* srcRows, int channels, int len,
                                            Mox8u* dst);
MOX_API MoxStatus moxsSplitScaled_16s32f_D2L(const Mox16s* src, Mox32f* const* dstRows,
                                             int channels, int len);
MOX_API MoxStatus moxsSplitScaled_24s32f_D2L(const Mox8u* src, Mox32f* const* dstRows, int channels,
                                             int len);
/** @} */

#endif
