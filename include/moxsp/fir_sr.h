/**
 * @file
 * FIR filters whose history the caller keeps.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 * #include <stdlib.h>
 *
 * int main(void) {
 *   const Mox32f taps[3] = {1, 2, 3};
 *   const Mox32f x[5] = {1, 2, 3, 4, 5};
 *   Mox32f history[2] = {10, 20};  // x[-1], x[-2]
 *   Mox32f y[5];
 *   int specSize, bufSize;
 *   moxsFIRSRGetSize(3, moxType32f, &specSize, &bufSize);
 *   MoxsFIRSRSpec* filter = malloc((size_t)specSize);
 *   Mox8u* buffer = malloc((size_t)bufSize);
 *   moxsFIRSRInit_32f(taps, 3, moxAlgAuto, filter);
 *   moxsFIRSR_32f(x, y, 5, history, history, filter, buffer);
 *   for (int i = 0; i < 5; ++i) printf("%g ", y[i]);  // 81 34 10 16 22
 *   printf("| %g %g\n", history[0], history[1]);      // | 5 4
 *   free(buffer);
 *   free(filter);
 * }
 * @endcode
 */
#ifndef MOXSP_FIR_SR_H
#define MOXSP_FIR_SR_H

#include <moxsp/types.h>

/** Taps and method of a filter, in the caller's memory at any address: each call finds the object
 * there by itself. Calls only read it, so that any number of streams and threads share one, each
 * with a buffer of its own. It carries no identifier: what is passed must be one. */
typedef struct MoxsFIRSRSpec MoxsFIRSRSpec;

/** @defgroup fir_sr FIR filters with the history as an argument
 * @ingroup topic_filters
 * Filters y[i] = sum over k of `taps[k] * x[i - k]` for 0 <= k < `tapsLen`.
 *
 * `GetSize` tells the bytes of the object and of the buffer of a call, for a `dataType` of
 * ::moxType32f or ::moxType64f. `Init` copies the taps. `algType` is ::moxAlgDirect, ::moxAlgFft or
 * ::moxAlgAuto, which takes transforms from 64 taps and 512 samples on.
 *
 * `dlySrc` holds the `tapsLen - 1` samples before the first one, the newest first; null stands for
 * silence. `dlyDst`, unless it is null, receives those before the next call's first sample. So
 * `dlyDst` of one call is `dlySrc` of the next, and may be the same array. A delay line that
 * moxsFIRGetDlyLine_32f() gives can be passed as `dlySrc`. `dst` may be `src`.
 *
 * Directly, each output is one chain of products and sums from the oldest sample to the newest,
 * with an error of at most (tapsLen + 1) eps sum |taps[k] x[i - k]|, eps = 2^-24 or 2^-53: it does
 * not depend on how a stream is cut into blocks. Transforms have 4 to 8 times as many points as the
 * filter has taps, and at least 8; the error is at most 8 eps |taps| |x|, with the Euclidean norm
 * of the samples nearer to i than 16 tapsLen + 64. A NaN or an infinity spreads over one transform.
 *
 * @return ::moxErrSize for `tapsLen` below 1 or too large for sizes below 2^31, before anything
 * else, and for `len` below 1; ::moxErrDataType for another `dataType`; ::moxErrNullPtr for a null
 * argument other than `dlySrc` and `dlyDst`; ::moxErrAlgType for another `algType`.
 * @{ */
MOX_API MoxStatus moxsFIRSRGetSize(int tapsLen, int dataType, int* specSize, int* bufSize);
MOX_API MoxStatus moxsFIRSRInit_32f(const Mox32f* taps, int tapsLen, int algType,
                                    MoxsFIRSRSpec* spec);
MOX_API MoxStatus moxsFIRSRInit_64f(const Mox64f* taps, int tapsLen, int algType,
                                    MoxsFIRSRSpec* spec);
MOX_API MoxStatus moxsFIRSR_32f(const Mox32f* src, Mox32f* dst, int len, const Mox32f* dlySrc,
                                Mox32f* dlyDst, const MoxsFIRSRSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFIRSR_64f(const Mox64f* src, Mox64f* dst, int len, const Mox64f* dlySrc,
                                Mox64f* dlyDst, const MoxsFIRSRSpec* spec, Mox8u* buffer);
/** @} */

#endif
