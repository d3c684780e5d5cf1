/**
 * @file
 * Library version and memory; filling, copying, moving and reversing arrays and bit strings.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   Mox32f* x = moxsMalloc_32f(6);  // aligned to 64 bytes
 *   if (!x) return 1;
 *   moxsSet_32f(1, x, 3);
 *   moxsZero_32f(x + 3, 3);
 *   moxsMove_32f(x, x + 1, 5);  // the arrays overlap
 *   x[0] = 9;
 *   moxsFlip_32f_I(x, 6);
 *   for (int i = 0; i < 6; ++i) printf("%g ", x[i]);  // 0 0 1 1 1 9
 *   moxsFree(x);
 * }
 * @endcode
 */
#ifndef MOXSP_MOVE_H
#define MOXSP_MOVE_H

#include <moxsp/types.h>

/** @defgroup version Version
 * @ingroup topic_memory
 * The record is constant: every call returns the same pointer, and nothing is to be released.
 * @{ */
MOX_API const moxLibraryVersion* moxsGetLibVersion(void);
/** @} */

/** @defgroup malloc Memory
 * @ingroup topic_memory
 * Memory aligned to 64 bytes. Each moxsMalloc function returns memory for `len` elements of its
 * type, or null when `len` is below 1 or memory is short. The byte count, `len` times the element
 * size, is computed in 32 bits; keep it below 2^31. The memory is not cleared and is released with
 * moxsFree(), which takes a null pointer as well.
 *
 * @warning A byte count of 2^32 and above wraps, and too little memory is returned without a sign
 * of it: moxsMalloc_64fc(268435457) returns 16 bytes.
 * @{ */
MOX_API Mox8u* moxsMalloc_8u(int len);
MOX_API Mox8s* moxsMalloc_8s(int len);
MOX_API Mox16u* moxsMalloc_16u(int len);
MOX_API Mox16s* moxsMalloc_16s(int len);
MOX_API Mox8sc* moxsMalloc_8sc(int len);
MOX_API Mox32u* moxsMalloc_32u(int len);
MOX_API Mox32s* moxsMalloc_32s(int len);
MOX_API Mox32f* moxsMalloc_32f(int len);
MOX_API Mox16sc* moxsMalloc_16sc(int len);
MOX_API Mox64s* moxsMalloc_64s(int len);
MOX_API Mox64f* moxsMalloc_64f(int len);
MOX_API Mox32sc* moxsMalloc_32sc(int len);
MOX_API Mox32fc* moxsMalloc_32fc(int len);
MOX_API Mox64sc* moxsMalloc_64sc(int len);
MOX_API Mox64fc* moxsMalloc_64fc(int len);
MOX_API void moxsFree(void* p);
/** @} */

/** @defgroup zero Zero
 * @ingroup topic_memory
 * Clears a vector: `dst[i] = 0` for 0 <= i < len, all bytes zero.
 *
 * The byte count, `len` times the element size, is computed in 32 bits: where it reaches 2^31 only
 * the wrapped count of bytes is cleared, none for a negative one. Above 24 MiB the cache is
 * bypassed.
 *
 * @return ::moxErrNullPtr for a null `dst`, then ::moxErrSize for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsZero_8u(Mox8u* dst, int len);
MOX_API MoxStatus moxsZero_16s(Mox16s* dst, int len);
MOX_API MoxStatus moxsZero_32f(Mox32f* dst, int len);
MOX_API MoxStatus moxsZero_32s(Mox32s* dst, int len);
MOX_API MoxStatus moxsZero_16sc(Mox16sc* dst, int len);
MOX_API MoxStatus moxsZero_64f(Mox64f* dst, int len);
MOX_API MoxStatus moxsZero_64s(Mox64s* dst, int len);
MOX_API MoxStatus moxsZero_32fc(Mox32fc* dst, int len);
MOX_API MoxStatus moxsZero_32sc(Mox32sc* dst, int len);
MOX_API MoxStatus moxsZero_64fc(Mox64fc* dst, int len);
MOX_API MoxStatus moxsZero_64sc(Mox64sc* dst, int len);
/** @} */

/** @defgroup set Set
 * @ingroup topic_memory
 * Fills a vector with one value: `dst[i] = val` for 0 <= i < len, copied bit by bit (a NaN keeps
 * its payload).
 *
 * For elements of 1, 2 and 4 bytes the byte count is computed in 32 bits: where it reaches 2^31
 * only the wrapped count of bytes is filled, none for a negative one. Wider elements are all
 * filled. Above 24 MiB the cache is bypassed.
 *
 * @return ::moxErrNullPtr for a null `dst`, then ::moxErrSize for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsSet_8u(Mox8u val, Mox8u* dst, int len);
MOX_API MoxStatus moxsSet_16s(Mox16s val, Mox16s* dst, int len);
MOX_API MoxStatus moxsSet_32f(Mox32f val, Mox32f* dst, int len);
MOX_API MoxStatus moxsSet_32s(Mox32s val, Mox32s* dst, int len);
MOX_API MoxStatus moxsSet_16sc(Mox16sc val, Mox16sc* dst, int len);
MOX_API MoxStatus moxsSet_64f(Mox64f val, Mox64f* dst, int len);
MOX_API MoxStatus moxsSet_64s(Mox64s val, Mox64s* dst, int len);
MOX_API MoxStatus moxsSet_32fc(Mox32fc val, Mox32fc* dst, int len);
MOX_API MoxStatus moxsSet_32sc(Mox32sc val, Mox32sc* dst, int len);
MOX_API MoxStatus moxsSet_64fc(Mox64fc val, Mox64fc* dst, int len);
MOX_API MoxStatus moxsSet_64sc(Mox64sc val, Mox64sc* dst, int len);
/** @} */

/** @defgroup copy Copy
 * @ingroup topic_memory
 * Copies a vector: `dst[i] = src[i]` for 0 <= i < len, for any number of bytes. The arrays must not
 * overlap; see moxsMove_8u() and its family for those that may.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsCopy_8u(const Mox8u* src, Mox8u* dst, int len);
MOX_API MoxStatus moxsCopy_16s(const Mox16s* src, Mox16s* dst, int len);
MOX_API MoxStatus moxsCopy_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsCopy_32s(const Mox32s* src, Mox32s* dst, int len);
MOX_API MoxStatus moxsCopy_16sc(const Mox16sc* src, Mox16sc* dst, int len);
MOX_API MoxStatus moxsCopy_64f(const Mox64f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsCopy_64s(const Mox64s* src, Mox64s* dst, int len);
MOX_API MoxStatus moxsCopy_32fc(const Mox32fc* src, Mox32fc* dst, int len);
MOX_API MoxStatus moxsCopy_32sc(const Mox32sc* src, Mox32sc* dst, int len);
MOX_API MoxStatus moxsCopy_64fc(const Mox64fc* src, Mox64fc* dst, int len);
MOX_API MoxStatus moxsCopy_64sc(const Mox64sc* src, Mox64sc* dst, int len);
/** @} */

/** @defgroup move Move
 * @ingroup topic_memory
 * Copies a vector as if through a third one: `dst[i]` becomes the former `src[i]` for 0 <= i < len,
 * whichever way the arrays overlap.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsMove_8u(const Mox8u* src, Mox8u* dst, int len);
MOX_API MoxStatus moxsMove_16s(const Mox16s* src, Mox16s* dst, int len);
MOX_API MoxStatus moxsMove_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsMove_32s(const Mox32s* src, Mox32s* dst, int len);
MOX_API MoxStatus moxsMove_16sc(const Mox16sc* src, Mox16sc* dst, int len);
MOX_API MoxStatus moxsMove_64f(const Mox64f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsMove_64s(const Mox64s* src, Mox64s* dst, int len);
MOX_API MoxStatus moxsMove_32fc(const Mox32fc* src, Mox32fc* dst, int len);
MOX_API MoxStatus moxsMove_32sc(const Mox32sc* src, Mox32sc* dst, int len);
MOX_API MoxStatus moxsMove_64fc(const Mox64fc* src, Mox64fc* dst, int len);
MOX_API MoxStatus moxsMove_64sc(const Mox64sc* src, Mox64sc* dst, int len);
/** @} */

/** @defgroup flip Flip
 * @ingroup topic_memory
 * Reverses a vector: `dst[i] = src[len - 1 - i]` for 0 <= i < len; the in-place forms do the same
 * with srcDst, and so does the plain form where `src` equals `dst`. Otherwise the arrays must not
 * overlap. Complex elements are kept whole.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsFlip_8u(const Mox8u* src, Mox8u* dst, int len);
MOX_API MoxStatus moxsFlip_8u_I(Mox8u* srcDst, int len);
MOX_API MoxStatus moxsFlip_16u(const Mox16u* src, Mox16u* dst, int len);
MOX_API MoxStatus moxsFlip_16u_I(Mox16u* srcDst, int len);
MOX_API MoxStatus moxsFlip_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsFlip_32f_I(Mox32f* srcDst, int len);
MOX_API MoxStatus moxsFlip_32fc(const Mox32fc* src, Mox32fc* dst, int len);
MOX_API MoxStatus moxsFlip_32fc_I(Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsFlip_64f(const Mox64f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsFlip_64f_I(Mox64f* srcDst, int len);
MOX_API MoxStatus moxsFlip_64fc(const Mox64fc* src, Mox64fc* dst, int len);
MOX_API MoxStatus moxsFlip_64fc_I(Mox64fc* srcDst, int len);
/** @} */

/** @defgroup swapbytes SwapBytes
 * @ingroup topic_memory
 * Reverses the bytes within each element, so that big-endian samples become little-endian ones and
 * the other way round. A 24-bit element is three bytes, and `len` counts such elements. `src` may
 * equal `dst`.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsSwapBytes_16u(const Mox16u* src, Mox16u* dst, int len);
MOX_API MoxStatus moxsSwapBytes_16u_I(Mox16u* srcDst, int len);
MOX_API MoxStatus moxsSwapBytes_24u(const Mox8u* src, Mox8u* dst, int len);
MOX_API MoxStatus moxsSwapBytes_24u_I(Mox8u* srcDst, int len);
MOX_API MoxStatus moxsSwapBytes_32u(const Mox32u* src, Mox32u* dst, int len);
MOX_API MoxStatus moxsSwapBytes_32u_I(Mox32u* srcDst, int len);
MOX_API MoxStatus moxsSwapBytes_64u(const Mox64u* src, Mox64u* dst, int len);
MOX_API MoxStatus moxsSwapBytes_64u_I(Mox64u* srcDst, int len);
/** @} */

/** @defgroup bitcopy Bit copy
 * @ingroup topic_bits
 * Copies `len` bits from `src` to `dst`. Of an offset the low three bits count: the string begins
 * in the very byte that `src` or `dst` points at. Bits of the first and last byte outside the
 * string keep their values, and bytes outside it are neither read nor written. The strings must not
 * overlap.
 *
 * moxsCopy_1u() and moxsCopyLE_1u(), which are one function, number the bits of a byte from the
 * highest to the lowest; moxsCopyBE_1u() from the lowest to the highest.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1 or a negative
 * offset.
 * @{ */
MOX_API MoxStatus moxsCopy_1u(const Mox8u* src, int srcBitOffset, Mox8u* dst, int dstBitOffset,
                              int len);
MOX_API MoxStatus moxsCopyLE_1u(const Mox8u* src, int srcBitOffset, Mox8u* dst, int dstBitOffset,
                                int len);
MOX_API MoxStatus moxsCopyBE_1u(const Mox8u* src, int srcBitOffset, Mox8u* dst, int dstBitOffset,
                                int len);
/** @} */

/** @defgroup packbits PackBits
 * @ingroup topic_bits
 * Writes the low `bitWidths[i]` bits of `src[i]` for 0 <= i < len one after the other into a bit
 * string, the most significant bit first. The string begins in `dst[0]` after the top
 * `dstBitOffset mod 8` bits, which keep their values, as do the bits behind its end in its last
 * byte. A width above 32 counts as 32, a negative one as 0. `*dstBitLen` receives the number of
 * bits written, 2^31 - 1 where it is more than that.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 1 or a negative
 * offset; ::moxWarnBitWidth when a width was clamped.
 * @{ */
MOX_API MoxStatus moxsPackBits_32u8u(const Mox32u* src, const int* bitWidths, int len, Mox8u* dst,
                                     int dstBitOffset, int* dstBitLen);
/** @} */

#endif
