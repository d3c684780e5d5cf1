/**
 * @file
 * Adaptive FIR filters, by the least-mean-squares rule.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   MoxsFIRLMSState* filter;
 *   if (moxsFIRLMSInitAlloc_32f(&filter, NULL, 2, NULL, 0) != moxOk) return 1;
 *   Mox32f x[400], wanted[400], y[400], taps[2];
 *   for (int i = 0; i < 400; ++i) {
 *     x[i] = i * 37 % 101 / 50.0f - 1;
 *     wanted[i] = 3 * x[i] - 2 * (i > 0 ? x[i - 1] : 0);  // a system to find out
 *   }
 *   moxsFIRLMS_32f(x, wanted, y, 400, 0.25f, filter);
 *   moxsFIRLMSGetTaps_32f(filter, taps);
 *   printf("%.3f %.3f", taps[0], taps[1]);  // 3.000 -2.000
 *   moxsFIRLMSFree_32f(filter);
 * }
 * @endcode
 */
#ifndef MOXSP_ADAPTIVE_H
#define MOXSP_ADAPTIVE_H

#include <moxsp/types.h>

/** An adaptive filter of floats. One thread at a time. */
typedef struct MoxsFIRLMSState MoxsFIRLMSState;

/** A fixed-point adaptive filter. One thread at a time. */
typedef struct MoxsFIRLMSMRState MoxsFIRLMSMRState;

/** @defgroup lms_state States of adaptive filters
 * @ingroup topic_filters
 * `InitAlloc` makes a filter of `tapsLen` taps; null `taps` stand for zeros. `dlyLine` holds the
 * last `tapsLen` samples as a ring, in which they stand in order of time from the place
 * `dlyLineIndex` on and go on at its start; null stands for silence. Any index is stored as it is,
 * and a place of the ring modulo `tapsLen`. `GetTaps` gives the taps as they are now, tap 0 first.
 * `Free` ends the filter.
 *
 * @return ::moxErrNullPtr for a null argument other than `taps` of `InitAlloc` and `dlyLine` of
 * `InitAlloc` and `SetDlyLine`; ::moxErrSize for `tapsLen` below 1; ::moxErrMemAlloc without
 * memory; ::moxErrContext for a state of other types.
 * @{ */
MOX_API MoxStatus moxsFIRLMSInitAlloc_32f(MoxsFIRLMSState** state, const Mox32f* taps, int tapsLen,
                                          const Mox32f* dlyLine, int dlyLineIndex);
MOX_API MoxStatus moxsFIRLMSFree_32f(MoxsFIRLMSState* state);
MOX_API MoxStatus moxsFIRLMSGetTaps_32f(const MoxsFIRLMSState* state, Mox32f* taps);
MOX_API MoxStatus moxsFIRLMSGetDlyLine_32f(const MoxsFIRLMSState* state, Mox32f* dlyLine,
                                           int* dlyLineIndex);
MOX_API MoxStatus moxsFIRLMSSetDlyLine_32f(MoxsFIRLMSState* state, const Mox32f* dlyLine,
                                           int dlyLineIndex);
MOX_API MoxStatus moxsFIRLMSInitAlloc32f_16s(MoxsFIRLMSState** state, const Mox32f* taps,
                                             int tapsLen, const Mox16s* dlyLine, int dlyLineIndex);
MOX_API MoxStatus moxsFIRLMSFree32f_16s(MoxsFIRLMSState* state);
MOX_API MoxStatus moxsFIRLMSGetTaps32f_16s(const MoxsFIRLMSState* state, Mox32f* taps);
MOX_API MoxStatus moxsFIRLMSGetDlyLine32f_16s(const MoxsFIRLMSState* state, Mox16s* dlyLine,
                                              int* dlyLineIndex);
MOX_API MoxStatus moxsFIRLMSSetDlyLine32f_16s(MoxsFIRLMSState* state, const Mox16s* dlyLine,
                                              int dlyLineIndex);
/** @} */

/** @defgroup lms Adaptive filtering
 * @ingroup topic_filters
 * `FIRLMS` filters a block; after each output it corrects the taps by its error:
 *
 *     dst[i] = y = sum of taps[k] * src[i - k]
 *     e = ref[i] - y
 *     taps[k] += 2 * mu * e * src[i - k]
 *
 * Arrays may be the same. `FIRLMSOne_Direct` does this for one sample with the caller's taps, and
 * with `mu * e` in the place of `2 * mu * e`. `dlyLine` is a ring of `2 * tapsLen` samples, as in
 * @ref fir_direct, and `dlyLineIndex` its place. An output of `16s` is y, rounded to nearest with
 * ties to even and saturated; the error is taken of y itself.
 *
 * `FIRLMSOne_DirectQ15` is normalised by the energy of the window, with taps and `muQ15` in units
 * of 2^-15, all in double precision:
 *
 *     E = sum of x[k]^2, y = 2^-15 * sum of taps[k] * x[k]  for x[k] = src[i - k]
 *     taps[k] += muQ15 * (ref - y) / E * x[k]
 *
 * Taps are rounded to nearest, ties to even, and saturated. Where all of the window is 0, the
 * sample enters the ring and nothing else happens: `dst` is not written.
 *
 * The rule is that of Widrow and Hoff, "Adaptive switching circuits", 1960; the normalised one that
 * of Nagumo and Noda, "A learning method for system identification", 1967.
 *
 * @return ::moxErrNullPtr for a null argument; ::moxErrSize for `len` or `tapsLen` below 1;
 * ::moxErrDlyLineIndex for a place outside the ring; ::moxErrContext for a state of other types.
 * @note Sums of `32f` are made in single precision; an output is off by at most
 * tapsLen * u * sum of |taps[k] * x[k]|. NaN and infinities enter the taps and stay there.
 * @note From zeros, on white noise of the power P and with mu = 0.25 / (tapsLen * P), `FIRLMS` of
 * 64 taps finds those of a system, of magnitudes up to 1/16, to within 1e-4 in 2500 samples.
 * @{ */
MOX_API MoxStatus moxsFIRLMS_32f(const Mox32f* src, const Mox32f* ref, Mox32f* dst, int len,
                                 Mox32f mu, MoxsFIRLMSState* state);
MOX_API MoxStatus moxsFIRLMS32f_16s(const Mox16s* src, const Mox16s* ref, Mox16s* dst, int len,
                                    Mox32f mu, MoxsFIRLMSState* state);
MOX_API MoxStatus moxsFIRLMSOne_Direct_32f(Mox32f src, Mox32f ref, Mox32f* dst, Mox32f* taps,
                                           int tapsLen, Mox32f mu, Mox32f* dlyLine,
                                           int* dlyLineIndex);
MOX_API MoxStatus moxsFIRLMSOne_Direct32f_16s(Mox16s src, Mox16s ref, Mox16s* dst, Mox32f* taps,
                                              int tapsLen, Mox32f mu, Mox16s* dlyLine,
                                              int* dlyLineIndex);
MOX_API MoxStatus moxsFIRLMSOne_DirectQ15_16s(Mox16s src, Mox16s ref, Mox16s* dst, Mox32s* taps,
                                              int tapsLen, Mox32s muQ15, Mox16s* dlyLine,
                                              int* dlyLineIndex);
/** @} */

/** @defgroup lms_fixed Fixed-point adaptive filters
 * @ingroup topic_filters
 * Samples of 16 bits, taps of 32, and each step a call. The ring holds
 * `dlyLen = tapsLen * dlyStep + updateDly` samples, and `dlyLineIndex` is the place of the oldest.
 *
 * With x[i] the sample that came i samples before the newest:
 *
 * | Function                   | What it does                                                 |
 * |----------------------------|--------------------------------------------------------------|
 * | `PutVal`                   | takes a sample into the ring                                 |
 * | `One`                      | dst = sum of (taps[k] >> 16) * x[k * dlyStep]                |
 * | `OneVal`                   | `PutVal`, then `One`                                         |
 * | `UpdateTaps`               | taps[k] += w * x[k * dlyStep + updateDly]                    |
 * | `GetTaps`, `SetTaps`       | taps, tap 0 first; null sets zeros                           |
 * | `GetTapsPointer`           | the address of the taps in the state, the last tap first     |
 * | `GetDlyLine`, `SetDlyLine` | the ring and its place; null sets silence                    |
 * | `GetDlyVal`                | the sample at the place `index` of the ring                  |
 * | `SetMu`                    | replaces mu                                                  |
 *
 * where w = (err * mu + 2^14) >> 15.
 *
 * Complex taps are corrected by the conjugates of the samples. Any index of `SetDlyLine` is stored
 * as it is, and a place of the ring modulo `dlyLen`. Null `taps` and `dlyLine` of `InitAlloc` stand
 * for zeros.
 *
 * Results are defined to the bit: all of this is done modulo 2^32, into the range of a signed
 * integer, and shifts drop bits toward minus infinity.
 *
 * @return ::moxErrNullPtr for a null argument, but for those that stand for zeros; `InitAlloc`
 * ::moxErrSize for `tapsLen` or `dlyStep` below 1, a negative `updateDly` or a `dlyLineIndex`
 * outside 0 to dlyLen - 1, and ::moxErrMemAlloc without memory; ::moxErrContext for a state of
 * other types; ::moxErrBadArg for an `index` outside 0 to dlyLen - 1.
 * @{ */
MOX_API MoxStatus moxsFIRLMSMRInitAlloc32s_16s(MoxsFIRLMSMRState** state, const Mox32s* taps,
                                               int tapsLen, const Mox16s* dlyLine, int dlyLineIndex,
                                               int dlyStep, int updateDly, Mox32s mu);
MOX_API MoxStatus moxsFIRLMSMRFree32s_16s(MoxsFIRLMSMRState* state);
MOX_API MoxStatus moxsFIRLMSMRGetTaps32s_16s(const MoxsFIRLMSMRState* state, Mox32s* taps);
MOX_API MoxStatus moxsFIRLMSMRSetTaps32s_16s(MoxsFIRLMSMRState* state, const Mox32s* taps);
MOX_API MoxStatus moxsFIRLMSMRGetTapsPointer32s_16s(MoxsFIRLMSMRState* state, Mox32s** pointer);
MOX_API MoxStatus moxsFIRLMSMRGetDlyLine32s_16s(const MoxsFIRLMSMRState* state, Mox16s* dlyLine,
                                                int* dlyLineIndex);
MOX_API MoxStatus moxsFIRLMSMRSetDlyLine32s_16s(MoxsFIRLMSMRState* state, const Mox16s* dlyLine,
                                                int dlyLineIndex);
MOX_API MoxStatus moxsFIRLMSMRGetDlyVal32s_16s(const MoxsFIRLMSMRState* state, Mox16s* val,
                                               int index);
MOX_API MoxStatus moxsFIRLMSMRPutVal32s_16s(Mox16s val, MoxsFIRLMSMRState* state);
MOX_API MoxStatus moxsFIRLMSMRSetMu32s_16s(MoxsFIRLMSMRState* state, Mox32s mu);
MOX_API MoxStatus moxsFIRLMSMROne32s_16s(Mox32s* dst, MoxsFIRLMSMRState* state);
MOX_API MoxStatus moxsFIRLMSMROneVal32s_16s(Mox16s val, Mox32s* dst, MoxsFIRLMSMRState* state);
MOX_API MoxStatus moxsFIRLMSMRUpdateTaps32s_16s(Mox32s err, MoxsFIRLMSMRState* state);
MOX_API MoxStatus moxsFIRLMSMRInitAlloc32sc_16sc(MoxsFIRLMSMRState** state, const Mox32sc* taps,
                                                 int tapsLen, const Mox16sc* dlyLine,
                                                 int dlyLineIndex, int dlyStep, int updateDly,
                                                 Mox32s mu);
MOX_API MoxStatus moxsFIRLMSMRFree32sc_16sc(MoxsFIRLMSMRState* state);
MOX_API MoxStatus moxsFIRLMSMRGetTaps32sc_16sc(const MoxsFIRLMSMRState* state, Mox32sc* taps);
MOX_API MoxStatus moxsFIRLMSMRSetTaps32sc_16sc(MoxsFIRLMSMRState* state, const Mox32sc* taps);
MOX_API MoxStatus moxsFIRLMSMRGetTapsPointer32sc_16sc(MoxsFIRLMSMRState* state, Mox32sc** pointer);
MOX_API MoxStatus moxsFIRLMSMRGetDlyLine32sc_16sc(const MoxsFIRLMSMRState* state, Mox16sc* dlyLine,
                                                  int* dlyLineIndex);
MOX_API MoxStatus moxsFIRLMSMRSetDlyLine32sc_16sc(MoxsFIRLMSMRState* state, const Mox16sc* dlyLine,
                                                  int dlyLineIndex);
MOX_API MoxStatus moxsFIRLMSMRGetDlyVal32sc_16sc(const MoxsFIRLMSMRState* state, Mox16sc* val,
                                                 int index);
MOX_API MoxStatus moxsFIRLMSMRPutVal32sc_16sc(Mox16sc val, MoxsFIRLMSMRState* state);
MOX_API MoxStatus moxsFIRLMSMRSetMu32sc_16sc(MoxsFIRLMSMRState* state, Mox32s mu);
MOX_API MoxStatus moxsFIRLMSMROne32sc_16sc(Mox32sc* dst, MoxsFIRLMSMRState* state);
MOX_API MoxStatus moxsFIRLMSMROneVal32sc_16sc(Mox16sc val, Mox32sc* dst, MoxsFIRLMSMRState* state);
MOX_API MoxStatus moxsFIRLMSMRUpdateTaps32sc_16sc(Mox32sc err, MoxsFIRLMSMRState* state);
/** @} */

#endif
