/**
 * @file
 * Taps of linear-phase FIR filters.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   Mox64f taps[5];
 *   moxsFIRGenLowpass_64f(0.2, taps, 5, moxWindowHamming, 1);
 *   for (int i = 0; i < 5; ++i) printf("%.3f ", taps[i]);  // 0.010 0.220 0.539 0.220 0.010
 * }
 * @endcode
 */
#ifndef MOXSP_FIR_DESIGN_H
#define MOXSP_FIR_DESIGN_H

#include <moxsp/types.h>

/** The window that a response is cut out by; any other value leaves it as it is. */
enum {
  moxWindowBartlett = 0,    /**< moxsWinBartlett_64f() */
  moxWindowBlackmanOpt = 1, /**< moxsWinBlackmanOpt_64f() */
  moxWindowHamming = 2,     /**< moxsWinHamming_64f() */
  moxWindowHann = 3         /**< moxsWinHann_64f() */
};

/** @defgroup firgen FIRGenLowpass, FIRGenHighpass, FIRGenBandpass, FIRGenBandstop
 * @ingroup topic_filters
 * The window method: the ideal response of a band, cut to `tapsLen` taps by the window `winType`.
 * Frequencies are relative to the sample rate. At distance d from the middle of the taps, which is
 * (tapsLen - 1) / 2, and with s(f) = sin(2 pi f d) / (pi d), 2 f for d = 0:
 *
 *     lowpass   s(rFreq)
 *     highpass  -s(rFreq), 1 - s(rFreq) for d = 0; of even length cos(2 pi rFreq d) / (pi d)
 *     bandpass  s(rHighFreq) - s(rLowFreq)
 *     bandstop  the negative bandpass, plus 1 for d = 0
 *
 * A bandstop filter needs an odd `tapsLen`: an even one has no tap at d = 0, and lets the band
 * pass. The second half mirrors the first, so that a filter delays by (tapsLen - 1) / 2 samples;
 * that of a highpass of even length is its negative. With `doNormal` other than 0 the taps are
 * divided by the magnitude of the response at 0 (lowpass, bandstop), at half the sample rate
 * (highpass), or in the middle of the band (bandpass). The edges of the band are where the response
 * is about one half.
 *
 * @return ::moxErrNullPtr for a null array; ::moxErrSize for `tapsLen` below 5, for a frequency not
 * between 0 and 0.5, and for a low one not below the high one.
 * @note Symmetric to the bit; within 1e-14 of the formula. See Oppenheim and Schafer,
 * Discrete-Time Signal Processing, 7.5.
 * @{ */
MOX_API MoxStatus moxsFIRGenLowpass_64f(Mox64f rFreq, Mox64f* taps, int tapsLen, int winType,
                                        int doNormal);
MOX_API MoxStatus moxsFIRGenHighpass_64f(Mox64f rFreq, Mox64f* taps, int tapsLen, int winType,
                                         int doNormal);
MOX_API MoxStatus moxsFIRGenBandpass_64f(Mox64f rLowFreq, Mox64f rHighFreq, Mox64f* taps,
                                         int tapsLen, int winType, int doNormal);
MOX_API MoxStatus moxsFIRGenBandstop_64f(Mox64f rLowFreq, Mox64f rHighFreq, Mox64f* taps,
                                         int tapsLen, int winType, int doNormal);
/** @} */

#endif
