/**
 * @file
 * The Hilbert transform: analytic signals.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox32f x[4] = {3, 0, -3, 0};  // a period of a cosine
 *   Mox32fc z[4];
 *   MoxsHilbertSpec* hilbert;
 *   if (moxsHilbertInitAlloc_32f32fc(&hilbert, 4, 0) != moxOk) return 1;
 *   moxsHilbert_32f32fc(x, z, hilbert);
 *   for (int n = 0; n < 4; ++n) printf("%g ", z[n].re);  // 3 0 -3 0
 *   printf("%g %g", z[1].im, z[3].im);  // 3 -3
 *   moxsHilbertFree_32f32fc(hilbert);
 * }
 * @endcode
 */
#ifndef MOXSP_HILBERT_H
#define MOXSP_HILBERT_H

#include <moxsp/types.h>

/** A Hilbert transform of one length. Read-only during runs. */
typedef struct MoxsHilbertSpec MoxsHilbertSpec;

/** @defgroup hilbert Hilbert
 * @ingroup topic_transforms
 * The analytic signal of the `len` samples for which the object was made: `dst` has the signal as
 * its real parts, and its Hilbert transform as its imaginary parts. It is the inverse DFT of the
 * spectrum of `src` whose positive frequencies are doubled and whose negative ones are 0; frequency
 * 0, and len / 2 for even `len`, stay as they are. Up to `len` 2 the imaginary parts are 0.
 *
 * `moxsHilbertInitAlloc` makes the object, `moxsHilbertFree` releases it. `hint` is stored and has
 * no effect. Each run takes memory and releases it. Threads may share an object. `dst` must not
 * overlap `src`.
 *
 * Integers are transformed in single precision; with `_Sfs` the result is multiplied by
 * 2^-scaleFactor, rounded to nearest, ties to even, and saturated. Any `int` is a valid factor.
 *
 * @return `moxsHilbertInitAlloc`: ::moxErrNullPtr, ::moxErrSize for `len` below 1 or beyond the
 * limits of the DFT (@ref dft_objects), ::moxErrFftOrder for a power of two above 2^28,
 * ::moxErrMemAlloc. `moxsHilbertFree`: ::moxErrNullPtr, ::moxErrContext for an object of another
 * kind. `moxsHilbert`: ::moxErrNullPtr, ::moxErrContext, ::moxErrMemAlloc.
 * @note The relative error in the L2 norm is below 2.5e-7 * sqrt(1 + log2 len).
 * @see Marple, Computing the discrete-time analytic signal via FFT, IEEE Trans. Signal Processing
 * 47, 1999.
 * @{ */
MOX_API MoxStatus moxsHilbertInitAlloc_32f32fc(MoxsHilbertSpec** spec, int len, int hint);
MOX_API MoxStatus moxsHilbertInitAlloc_16s32fc(MoxsHilbertSpec** spec, int len, int hint);
MOX_API MoxStatus moxsHilbertInitAlloc_16s16sc(MoxsHilbertSpec** spec, int len, int hint);
MOX_API MoxStatus moxsHilbertFree_32f32fc(MoxsHilbertSpec* spec);
MOX_API MoxStatus moxsHilbertFree_16s32fc(MoxsHilbertSpec* spec);
MOX_API MoxStatus moxsHilbertFree_16s16sc(MoxsHilbertSpec* spec);
MOX_API MoxStatus moxsHilbert_32f32fc(const Mox32f* src, Mox32fc* dst, const MoxsHilbertSpec* spec);
MOX_API MoxStatus moxsHilbert_16s32fc(const Mox16s* src, Mox32fc* dst, const MoxsHilbertSpec* spec);
MOX_API MoxStatus moxsHilbert_16s16sc_Sfs(const Mox16s* src, Mox16sc* dst,
                                          const MoxsHilbertSpec* spec, int scaleFactor);
/** @} */

#endif
