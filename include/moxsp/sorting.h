/**
 * @file
 * Sorting vectors of numbers, and the permutations that sort them.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   Mox32f x[5] = {2.5f, -1, 7, 0, 3};
 *   Mox32s from[5];
 *   moxsSortIndexDescend_32f_I(x, from, 5);
 *   for (int i = 0; i < 5; ++i)
 *     printf("%g (%d) ", x[i], from[i]);  // 7 (2) 3 (4) 2.5 (0) 0 (3) -1 (1)
 * }
 * @endcode
 */
#ifndef MOXSP_SORTING_H
#define MOXSP_SORTING_H

#include <moxsp/types.h>

/** @defgroup sort Comparison sorts
 * @ingroup topic_sorting
 * A vector sorted in place, without a work buffer: `srcDst[i] <= srcDst[i + 1]` after
 * SortAscend and SortIndexAscend, `srcDst[i] >= srcDst[i + 1]` after SortDescend and
 * SortIndexDescend. The Index forms also tell where every element came from: `dstIdx[i]` is the
 * place, counted from 0, that the element now at i had before.
 *
 * Nothing is allocated. Quicksort (Hoare's partition around the median of three), whose stack of
 * pending segments has 32 entries, down to segments that sorting networks take (of values alone
 * those of Batcher, 1968); long vectors of bytes are counted instead. The time grows with
 * len log len, except on vectors made up to defeat the median of three: those take a time that
 * grows with the square of `len`.
 *
 * Equal elements of the Index forms keep their order up to a `len` of 9; beyond it they may leave
 * in any order. A stable sort is @ref radix.
 *
 * @note The two zeros of floats are equal, and keep no defined order. With NaN among the elements
 * the call ends and loses none of them, but the order is undefined.
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1; a call with such
 * a status has written nothing.
 * @{ */
MOX_API MoxStatus moxsSortAscend_8u_I(Mox8u* srcDst, int len);
MOX_API MoxStatus moxsSortAscend_16s_I(Mox16s* srcDst, int len);
MOX_API MoxStatus moxsSortAscend_16u_I(Mox16u* srcDst, int len);
MOX_API MoxStatus moxsSortAscend_32s_I(Mox32s* srcDst, int len);
MOX_API MoxStatus moxsSortAscend_32f_I(Mox32f* srcDst, int len);
MOX_API MoxStatus moxsSortAscend_64f_I(Mox64f* srcDst, int len);
MOX_API MoxStatus moxsSortDescend_8u_I(Mox8u* srcDst, int len);
MOX_API MoxStatus moxsSortDescend_16s_I(Mox16s* srcDst, int len);
MOX_API MoxStatus moxsSortDescend_16u_I(Mox16u* srcDst, int len);
MOX_API MoxStatus moxsSortDescend_32s_I(Mox32s* srcDst, int len);
MOX_API MoxStatus moxsSortDescend_32f_I(Mox32f* srcDst, int len);
MOX_API MoxStatus moxsSortDescend_64f_I(Mox64f* srcDst, int len);
MOX_API MoxStatus moxsSortIndexAscend_8u_I(Mox8u* srcDst, Mox32s* dstIdx, int len);
MOX_API MoxStatus moxsSortIndexAscend_16s_I(Mox16s* srcDst, Mox32s* dstIdx, int len);
MOX_API MoxStatus moxsSortIndexAscend_16u_I(Mox16u* srcDst, Mox32s* dstIdx, int len);
MOX_API MoxStatus moxsSortIndexAscend_32s_I(Mox32s* srcDst, Mox32s* dstIdx, int len);
MOX_API MoxStatus moxsSortIndexAscend_32f_I(Mox32f* srcDst, Mox32s* dstIdx, int len);
MOX_API MoxStatus moxsSortIndexAscend_64f_I(Mox64f* srcDst, Mox32s* dstIdx, int len);
MOX_API MoxStatus moxsSortIndexDescend_8u_I(Mox8u* srcDst, Mox32s* dstIdx, int len);
MOX_API MoxStatus moxsSortIndexDescend_16s_I(Mox16s* srcDst, Mox32s* dstIdx, int len);
MOX_API MoxStatus moxsSortIndexDescend_16u_I(Mox16u* srcDst, Mox32s* dstIdx, int len);
MOX_API MoxStatus moxsSortIndexDescend_32s_I(Mox32s* srcDst, Mox32s* dstIdx, int len);
MOX_API MoxStatus moxsSortIndexDescend_32f_I(Mox32f* srcDst, Mox32s* dstIdx, int len);
MOX_API MoxStatus moxsSortIndexDescend_64f_I(Mox64f* srcDst, Mox32s* dstIdx, int len);
/** @} */

/** @defgroup radix Radix sorts
 * @ingroup topic_sorting
 * Stable sorts by the digits of the keys, least significant first, in a time that grows with
 * `len` alone. SortRadixAscend and SortRadixDescend sort a vector in place; SortRadixIndexAscend
 * and SortRadixIndexDescend leave the keys as they are and give the permutation that sorts them:
 * `dstIdx[i]` is the number, counted from 0, of the key that ranks i-th. Equal keys keep their
 * order of appearance, in both directions.
 *
 * Floats are ordered by their bit patterns, a total order: negative NaN, negative infinity,
 * negative numbers, -0, +0, positive numbers, positive infinity, positive NaN; descending is the
 * reverse.
 *
 * Work memory comes from the caller: `buffer` has room for `len` elements of the type sorted,
 * `tmpIdx` for `len` indices. What they hold after the call is of no meaning. They are required
 * in every form, and must not overlap the other arrays.
 *
 * Key i of the Index forms stands `i * srcStrideBytes` bytes after `src`, so that a key can be one
 * field of an array of records. The stride need not be a multiple of the size of a key.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1 or
 * `srcStrideBytes` below the size of a key; a call with such a status has written nothing.
 * @{ */
MOX_API MoxStatus moxsSortRadixAscend_8u_I(Mox8u* srcDst, Mox8u* buffer, int len);
MOX_API MoxStatus moxsSortRadixAscend_16s_I(Mox16s* srcDst, Mox16s* buffer, int len);
MOX_API MoxStatus moxsSortRadixAscend_16u_I(Mox16u* srcDst, Mox16u* buffer, int len);
MOX_API MoxStatus moxsSortRadixAscend_32s_I(Mox32s* srcDst, Mox32s* buffer, int len);
MOX_API MoxStatus moxsSortRadixAscend_32u_I(Mox32u* srcDst, Mox32u* buffer, int len);
MOX_API MoxStatus moxsSortRadixAscend_32f_I(Mox32f* srcDst, Mox32f* buffer, int len);
MOX_API MoxStatus moxsSortRadixAscend_64f_I(Mox64f* srcDst, Mox64f* buffer, int len);
MOX_API MoxStatus moxsSortRadixDescend_8u_I(Mox8u* srcDst, Mox8u* buffer, int len);
MOX_API MoxStatus moxsSortRadixDescend_16s_I(Mox16s* srcDst, Mox16s* buffer, int len);
MOX_API MoxStatus moxsSortRadixDescend_16u_I(Mox16u* srcDst, Mox16u* buffer, int len);
MOX_API MoxStatus moxsSortRadixDescend_32s_I(Mox32s* srcDst, Mox32s* buffer, int len);
MOX_API MoxStatus moxsSortRadixDescend_32u_I(Mox32u* srcDst, Mox32u* buffer, int len);
MOX_API MoxStatus moxsSortRadixDescend_32f_I(Mox32f* srcDst, Mox32f* buffer, int len);
MOX_API MoxStatus moxsSortRadixDescend_64f_I(Mox64f* srcDst, Mox64f* buffer, int len);
MOX_API MoxStatus moxsSortRadixIndexAscend_8u(const Mox8u* src, int srcStrideBytes, Mox32s* dstIdx,
                                              Mox32s* tmpIdx, int len);
MOX_API MoxStatus moxsSortRadixIndexAscend_16s(const Mox16s* src, int srcStrideBytes,
                                               Mox32s* dstIdx, Mox32s* tmpIdx, int len);
MOX_API MoxStatus moxsSortRadixIndexAscend_16u(const Mox16u* src, int srcStrideBytes,
                                               Mox32s* dstIdx, Mox32s* tmpIdx, int len);
MOX_API MoxStatus moxsSortRadixIndexAscend_32s(const Mox32s* src, int srcStrideBytes,
                                               Mox32s* dstIdx, Mox32s* tmpIdx, int len);
MOX_API MoxStatus moxsSortRadixIndexAscend_32u(const Mox32u* src, int srcStrideBytes,
                                               Mox32s* dstIdx, Mox32s* tmpIdx, int len);
MOX_API MoxStatus moxsSortRadixIndexAscend_32f(const Mox32f* src, int srcStrideBytes,
                                               Mox32s* dstIdx, Mox32s* tmpIdx, int len);
MOX_API MoxStatus moxsSortRadixIndexDescend_8u(const Mox8u* src, int srcStrideBytes, Mox32s* dstIdx,
                                               Mox32s* tmpIdx, int len);
MOX_API MoxStatus moxsSortRadixIndexDescend_16s(const Mox16s* src, int srcStrideBytes,
                                                Mox32s* dstIdx, Mox32s* tmpIdx, int len);
MOX_API MoxStatus moxsSortRadixIndexDescend_16u(const Mox16u* src, int srcStrideBytes,
                                                Mox32s* dstIdx, Mox32s* tmpIdx, int len);
MOX_API MoxStatus moxsSortRadixIndexDescend_32s(const Mox32s* src, int srcStrideBytes,
                                                Mox32s* dstIdx, Mox32s* tmpIdx, int len);
MOX_API MoxStatus moxsSortRadixIndexDescend_32u(const Mox32u* src, int srcStrideBytes,
                                                Mox32s* dstIdx, Mox32s* tmpIdx, int len);
MOX_API MoxStatus moxsSortRadixIndexDescend_32f(const Mox32f* src, int srcStrideBytes,
                                                Mox32s* dstIdx, Mox32s* tmpIdx, int len);
/** @} */

#endif
