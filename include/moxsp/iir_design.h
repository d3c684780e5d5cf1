/**
 * @file
 * Design of IIR filters.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 * #include <stdlib.h>
 *
 * int main(void) {
 *   Mox64f taps[6];  // b[0] b[1] b[2] a[0] a[1] a[2]
 *   int size;
 *   moxsIIRGenGetBufferSize(2, &size);
 *   Mox8u* buffer = malloc((size_t)size);
 *   moxsIIRGenLowpass_64f(0.25, 0, taps, 2, 0, buffer);
 *   for (int i = 0; i < 6; ++i) printf("%.3f ", taps[i]);  // 0.293 0.586 0.293 1.000 0.000 0.172
 *   free(buffer);
 * }
 * @endcode
 */
#ifndef MOXSP_IIR_DESIGN_H
#define MOXSP_IIR_DESIGN_H

#include <moxsp/types.h>

/** @defgroup iir_design Design of IIR filters
 * @ingroup topic_filters
 * The taps of a lowpass or highpass filter of `order` 1 to 12, as moxsIIRInit_64f() takes them:
 * b[0..order], a[0..order], a[0] = 1. `filterType` 0 is a Butterworth filter, 1 a Chebyshev filter
 * of type I with a passband ripple of `ripple` dB, which a Butterworth filter ignores. `rFreq` is
 * the edge of the passband as a fraction of the sampling rate: the gain is 1/sqrt(2) there
 * (Butterworth) or -`ripple` dB (Chebyshev). `buffer` has the bytes that `GetBufferSize` tells.
 *
 * The analogue prototype goes through the bilinear transform, with the edge prewarped
 * (Oppenheim and Schafer, Discrete-Time Signal Processing, chapter 7).
 *
 * Taps are within 1e-13 of the exact ones: a relative to the largest of its magnitudes, b each. But
 * a high order at a low edge has no stable direct form in double precision. The poles of the
 * rounded taps leave the unit circle for Butterworth lowpass filters of order 6 at 0.0001, 8 at
 * 0.001, 10 at 0.005 and 12 at 0.01, for Chebyshev ones with 1 dB of order 8 at 0.003 and 10 at
 * 0.01. Cascades of filters of lower order do better: docs/cookbook/cascade.md designs one.
 *
 * @return ::moxErrNullPtr for a null pointer; ::moxErrIirGenOrder for `order` outside 1 to 12, in
 * `GetBufferSize` too; ::moxErrIirGenFreq unless 0 < `rFreq` < 0.5; ::moxErrBadArg for an unknown
 * `filterType`; ::moxErrIirGenRipple for a Chebyshev filter unless 0 < `ripple` <= 60.
 * @{ */
MOX_API MoxStatus moxsIIRGenGetBufferSize(int order, int* bufferSize);
MOX_API MoxStatus moxsIIRGenLowpass_64f(Mox64f rFreq, Mox64f ripple, Mox64f* taps, int order,
                                        int filterType, Mox8u* buffer);
MOX_API MoxStatus moxsIIRGenHighpass_64f(Mox64f rFreq, Mox64f ripple, Mox64f* taps, int order,
                                         int filterType, Mox8u* buffer);
/** @} */

#endif
