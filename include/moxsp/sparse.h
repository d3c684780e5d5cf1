/**
 * @file
 * Filters with few taps at far positions: echoes, combs, paths of a radio wave.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 * #include <stdlib.h>
 *
 * int main(void) {
 *   const Mox32f taps[2] = {1, 0.5f};  // a sound and its echo 3 samples later
 *   const int positions[2] = {0, 3};
 *   Mox32f x[6] = {8, 0, 0, 0, 4, 0};
 *   int size;
 *   MoxsFIRSparseState* echo;
 *   moxsFIRSparseGetStateSize_32f(2, 3, &size);
 *   Mox8u* memory = malloc((size_t)size);
 *   if (moxsFIRSparseInit_32f(&echo, taps, positions, 2, NULL, memory) != moxOk) return 1;
 *   moxsFIRSparse_32f(x, x, 6, echo);
 *   for (int i = 0; i < 6; ++i) printf("%g ", x[i]);  // 8 0 0 4 4 0
 *   free(memory);
 * }
 * @endcode
 */
#ifndef MOXSP_SPARSE_H
#define MOXSP_SPARSE_H

#include <moxsp/types.h>

/** A sparse FIR filter in the caller's memory. One thread at a time. It carries no identifier: what
 * is passed as a state must be one. */
typedef struct MoxsFIRSparseState MoxsFIRSparseState;
/** A sparse IIR filter, likewise. */
typedef struct MoxsIIRSparseState MoxsIIRSparseState;

/** @defgroup fir_sparse Sparse FIR filters
 * @ingroup topic_filters
 * Filters y[i] = sum over k of `nzTaps[k] * x[i - nzTapPos[k]]` for 0 <= k < `nzTapsLen`.
 * Positions are not negative and rise strictly; the last one is the order.
 *
 * `GetStateSize` tells the bytes that `Init` needs, at any address. `Init` copies taps, positions
 * and delay line and stores the address of the state, which is inside `buffer`; nothing has to be
 * released. A delay line holds the last `order` inputs, the newest first; null stands for silence.
 *
 * `dst` may be `src`. Results are defined to the bit: the products are rounded to `Mox32f` and
 * added from the first to the last, each sum rounded. So they do not depend on how a stream is cut
 * into blocks.
 *
 * @return ::moxErrNullPtr for a null argument other than `dlyLine` of `Init` and `SetDlyLine`;
 * ::moxErrFirLen for `nzTapsLen` below 1 or, in `GetStateSize`, above `order + 1`;
 * ::moxErrSparseTapPos for positions that are negative or do not rise; ::moxErrSize for `len` below
 * 1 or a state of 2^31 bytes or more.
 * @{ */
MOX_API MoxStatus moxsFIRSparseGetStateSize_32f(int nzTapsLen, int order, int* size);
MOX_API MoxStatus moxsFIRSparseInit_32f(MoxsFIRSparseState** state, const Mox32f* nzTaps,
                                        const int* nzTapPos, int nzTapsLen, const Mox32f* dlyLine,
                                        Mox8u* buffer);
MOX_API MoxStatus moxsFIRSparseGetDlyLine_32f(const MoxsFIRSparseState* state, Mox32f* dlyLine);
MOX_API MoxStatus moxsFIRSparseSetDlyLine_32f(MoxsFIRSparseState* state, const Mox32f* dlyLine);
MOX_API MoxStatus moxsFIRSparse_32f(const Mox32f* src, Mox32f* dst, int len,
                                    MoxsFIRSparseState* state);
/** @} */

/** @defgroup iir_sparse Sparse IIR filters
 * @ingroup topic_filters
 * Filters y[i] = sum over k of `b[k] * x[i - p[k]]` - sum over k of `a[k] * y[i - q[k]]`. `nzTaps`
 * holds the `nzTapsLen1` taps b and then the `nzTapsLen2` taps a, `nzTapPos` the positions p and
 * then q. Each part's positions rise strictly, p from 0 on and q from 1 on: the tap at position 0
 * of the feedback is 1 and is not given.
 *
 * Set-up is that of @ref fir_sparse. A delay line holds as many inputs as the last position p
 * tells, the newest first, and then as many outputs as the last position q tells.
 *
 * `dst` may be `src`. Results are defined to the bit: products with inputs are added from the first
 * to the last and products with outputs then subtracted, each product and sum rounded to `Mox32f`.
 * A filter that is not stable runs into infinities. The larger the first position q, the faster the
 * filter: that many outputs are computed side by side.
 *
 * @return ::moxErrNullPtr for a null argument other than `dlyLine` of `Init` and `SetDlyLine`;
 * ::moxErrIirOrder for a number of taps below 1; ::moxErrSparseTapPos for positions p that are
 * negative, positions q below 1 and those that do not rise; ::moxErrSize for `len` below 1 or a
 * state of 2^31 bytes or more.
 * @{ */
MOX_API MoxStatus moxsIIRSparseGetStateSize_32f(const int* nzTapPos, int nzTapsLen1, int nzTapsLen2,
                                                int* size);
MOX_API MoxStatus moxsIIRSparseInit_32f(MoxsIIRSparseState** state, const Mox32f* nzTaps,
                                        const int* nzTapPos, int nzTapsLen1, int nzTapsLen2,
                                        const Mox32f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRSparseGetDlyLine_32f(const MoxsIIRSparseState* state, Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRSparseSetDlyLine_32f(MoxsIIRSparseState* state, const Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRSparse_32f(const Mox32f* src, Mox32f* dst, int len,
                                    MoxsIIRSparseState* state);
/** @} */

#endif
