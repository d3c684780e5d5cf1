/**
 * @file
 * The discrete cosine transform, type II and back, orthonormal, of any length.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox32f x[4] = {1, 2, 3, 4};
 *   Mox32f y[4];
 *   MoxsDCTSpec* dct;
 *   if (moxsDCTFwdInitAlloc_32f(&dct, 4, 0) != moxOk) return 1;
 *   moxsDCTFwd_32f(x, y, dct, NULL);
 *   for (int k = 0; k < 4; ++k) printf("%.3f ", y[k]);  // 5.000 -2.230 0.000 -0.159
 *   moxsDCTFwdFree_32f(dct);
 * }
 * @endcode
 */
#ifndef MOXSP_DCT_H
#define MOXSP_DCT_H

#include <moxsp/types.h>

/** A cosine transform of one length in one direction. Read-only during runs. */
typedef struct MoxsDCTSpec MoxsDCTSpec;

/** @defgroup dct_objects Objects of the DCT
 * @ingroup topic_transforms
 * An object for each direction, of any length from 1 on: `moxsDCTFwd` and `moxsDCTInv` take their
 * own. `GetSize` tells the bytes of the object, of the scratch memory that its initialisation
 * needs, and of the work buffer of a run, each with the slack for its alignment to 64 bytes. `Init`
 * sets the object up in `specMem` and stores its address, which is inside `specMem`, in `spec`;
 * `initBuf` may be released when it returns, and may be null where the query told 0. `InitAlloc`
 * takes the memory itself; end with `Free`, which only invalidates an object that lies in the
 * caller's memory. `GetBufSize` tells the bytes of the work buffer once more. `hint` is stored and
 * has no effect.
 *
 * The object is only read by runs: threads may share it, each with a work buffer of its own.
 *
 * @return `GetSize` and `Init`: ::moxErrSize for `len` below 1, then ::moxErrNullPtr, then
 * ::moxErrSize for a length beyond 0x1FFFFFF in `GetSize` and 0x3FFFFFF in `Init`, 0xFFFFFFF where
 * it is a power of two, or for an object that an `int` cannot tell the size of; `Init` at last
 * ::moxErrNullPtr for an `initBuf` that is needed. `InitAlloc`: ::moxErrNullPtr, ::moxErrSize as
 * `GetSize`, ::moxErrMemAlloc. `Free` and `GetBufSize`: ::moxErrNullPtr, ::moxErrContext for an
 * object of another kind or one that was freed.
 * @{ */
MOX_API MoxStatus moxsDCTFwdGetSize_16s(int len, int hint, int* specSize, int* initSize,
                                        int* workSize);
MOX_API MoxStatus moxsDCTFwdGetSize_32f(int len, int hint, int* specSize, int* initSize,
                                        int* workSize);
MOX_API MoxStatus moxsDCTFwdGetSize_64f(int len, int hint, int* specSize, int* initSize,
                                        int* workSize);
MOX_API MoxStatus moxsDCTFwdInit_16s(MoxsDCTSpec** spec, int len, int hint, Mox8u* specMem,
                                     Mox8u* initBuf);
MOX_API MoxStatus moxsDCTFwdInit_32f(MoxsDCTSpec** spec, int len, int hint, Mox8u* specMem,
                                     Mox8u* initBuf);
MOX_API MoxStatus moxsDCTFwdInit_64f(MoxsDCTSpec** spec, int len, int hint, Mox8u* specMem,
                                     Mox8u* initBuf);
MOX_API MoxStatus moxsDCTFwdInitAlloc_16s(MoxsDCTSpec** spec, int len, int hint);
MOX_API MoxStatus moxsDCTFwdInitAlloc_32f(MoxsDCTSpec** spec, int len, int hint);
MOX_API MoxStatus moxsDCTFwdInitAlloc_64f(MoxsDCTSpec** spec, int len, int hint);
MOX_API MoxStatus moxsDCTFwdFree_16s(MoxsDCTSpec* spec);
MOX_API MoxStatus moxsDCTFwdFree_32f(MoxsDCTSpec* spec);
MOX_API MoxStatus moxsDCTFwdFree_64f(MoxsDCTSpec* spec);
MOX_API MoxStatus moxsDCTFwdGetBufSize_16s(const MoxsDCTSpec* spec, int* size);
MOX_API MoxStatus moxsDCTFwdGetBufSize_32f(const MoxsDCTSpec* spec, int* size);
MOX_API MoxStatus moxsDCTFwdGetBufSize_64f(const MoxsDCTSpec* spec, int* size);
MOX_API MoxStatus moxsDCTInvGetSize_16s(int len, int hint, int* specSize, int* initSize,
                                        int* workSize);
MOX_API MoxStatus moxsDCTInvGetSize_32f(int len, int hint, int* specSize, int* initSize,
                                        int* workSize);
MOX_API MoxStatus moxsDCTInvGetSize_64f(int len, int hint, int* specSize, int* initSize,
                                        int* workSize);
MOX_API MoxStatus moxsDCTInvInit_16s(MoxsDCTSpec** spec, int len, int hint, Mox8u* specMem,
                                     Mox8u* initBuf);
MOX_API MoxStatus moxsDCTInvInit_32f(MoxsDCTSpec** spec, int len, int hint, Mox8u* specMem,
                                     Mox8u* initBuf);
MOX_API MoxStatus moxsDCTInvInit_64f(MoxsDCTSpec** spec, int len, int hint, Mox8u* specMem,
                                     Mox8u* initBuf);
MOX_API MoxStatus moxsDCTInvInitAlloc_16s(MoxsDCTSpec** spec, int len, int hint);
MOX_API MoxStatus moxsDCTInvInitAlloc_32f(MoxsDCTSpec** spec, int len, int hint);
MOX_API MoxStatus moxsDCTInvInitAlloc_64f(MoxsDCTSpec** spec, int len, int hint);
MOX_API MoxStatus moxsDCTInvFree_16s(MoxsDCTSpec* spec);
MOX_API MoxStatus moxsDCTInvFree_32f(MoxsDCTSpec* spec);
MOX_API MoxStatus moxsDCTInvFree_64f(MoxsDCTSpec* spec);
MOX_API MoxStatus moxsDCTInvGetBufSize_16s(const MoxsDCTSpec* spec, int* size);
MOX_API MoxStatus moxsDCTInvGetBufSize_32f(const MoxsDCTSpec* spec, int* size);
MOX_API MoxStatus moxsDCTInvGetBufSize_64f(const MoxsDCTSpec* spec, int* size);
/** @} */

/** @defgroup dct DCT
 * @ingroup topic_transforms
 * Forward, with N = `len` of the object:
 *
 *     y[k] = s[k] * sum of x[n] * cos((2n + 1) k pi / 2N),  0 <= n, k < N
 *
 * with s[0] = 1/sqrt(N) and s[k] = sqrt(2/N) for k > 0. Inverse, the transpose of it:
 * x[n] = sum of s[k] * y[k] * cos((2n + 1) k pi / 2N). Each gives the other's input back.
 *
 * Integers are transformed in single precision, and the result is multiplied by 2^-scaleFactor,
 * rounded to nearest, ties to even, and saturated. Any `int` is a valid factor.
 *
 * `dst` may be `src`. `buffer` has the bytes that the object asks for and lies at any address.
 * Without one, a null pointer, a run takes memory and releases it, unless it needs none.
 *
 * Method: straight-line code for lengths 1, 2, 4 and 8; sums for others below 36, 16 apart; else a
 * real DFT of the samples in another order, and one rotation for each pair of its numbers.
 *
 * @return ::moxErrNullPtr for a null pointer, ::moxErrContext for an object of another kind or
 * direction, ::moxErrMemAlloc when there is no `buffer` and no memory.
 * @note The relative error in the L2 norm is below 3e-7 * sqrt(2 + log2 N) for `_32f` and
 * 6e-16 * sqrt(2 + log2 N) for `_64f`. For the lengths below 36 that are not powers of two, results
 * of `_32f` depend on the processor's estimate of 1 / sqrt(x).
 * @see Makhoul, A fast cosine transform in one and two dimensions, IEEE Trans. ASSP 28, 1980.
 * @{ */
MOX_API MoxStatus moxsDCTFwd_32f(const Mox32f* src, Mox32f* dst, const MoxsDCTSpec* spec,
                                 Mox8u* buffer);
MOX_API MoxStatus moxsDCTFwd_32f_I(Mox32f* srcDst, const MoxsDCTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsDCTFwd_64f(const Mox64f* src, Mox64f* dst, const MoxsDCTSpec* spec,
                                 Mox8u* buffer);
MOX_API MoxStatus moxsDCTFwd_64f_I(Mox64f* srcDst, const MoxsDCTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsDCTFwd_16s_Sfs(const Mox16s* src, Mox16s* dst, const MoxsDCTSpec* spec,
                                     int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsDCTFwd_16s_ISfs(Mox16s* srcDst, const MoxsDCTSpec* spec, int scaleFactor,
                                      Mox8u* buffer);
MOX_API MoxStatus moxsDCTInv_32f(const Mox32f* src, Mox32f* dst, const MoxsDCTSpec* spec,
                                 Mox8u* buffer);
MOX_API MoxStatus moxsDCTInv_32f_I(Mox32f* srcDst, const MoxsDCTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsDCTInv_64f(const Mox64f* src, Mox64f* dst, const MoxsDCTSpec* spec,
                                 Mox8u* buffer);
MOX_API MoxStatus moxsDCTInv_64f_I(Mox64f* srcDst, const MoxsDCTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsDCTInv_16s_Sfs(const Mox16s* src, Mox16s* dst, const MoxsDCTSpec* spec,
                                     int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsDCTInv_16s_ISfs(Mox16s* srcDst, const MoxsDCTSpec* spec, int scaleFactor,
                                      Mox8u* buffer);
/** @} */

#endif
