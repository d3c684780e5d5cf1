/**
 * @file
 * FIR filters.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox32f taps[3] = {0.25f, 0.5f, 0.25f};
 *   Mox32f x[6] = {4, 0, 0, 8, 8, 8};
 *   MoxsFIRState* filter;
 *   if (moxsFIRInitAlloc_32f(&filter, taps, 3, NULL) != moxOk) return 1;
 *   moxsFIR_32f_I(x, 3, filter);                      // a stream may come in blocks of any length
 *   moxsFIR_32f_I(x + 3, 3, filter);                  // the state remembers the last samples
 *   for (int i = 0; i < 6; ++i) printf("%g ", x[i]);  // 1 2 1 2 6 8
 *   moxsFIRFree_32f(filter);
 * }
 * @endcode
 */
#ifndef MOXSP_FIR_H
#define MOXSP_FIR_H

#include <moxsp/types.h>

/** A FIR filter: taps, delay line and scratch. One thread at a time. */
typedef struct MoxsFIRState MoxsFIRState;

/**
 * @page fir_names Names of the FIR families
 * A filter computes `y[i] = sum of taps[k] * x[i - k]` over 0 <= k < tapsLen. A name ends with the
 * type of the taps and that of the data: `32f_16s` filters 16-bit samples with float taps, `_32f`
 * floats with floats. The samples x[-1], x[-2] .. before the first one come from the delay line, an
 * array of `tapsLen` samples of the data's type, the newest first; the last of them has no effect
 * on any output.
 *
 * Taps of floats are held, and samples summed, in the type of the taps; those of `_32s` in
 * `64f`. The other integer taps are fixed-point numbers, see @ref fir_fixed.
 */

/**
 * @page fir_fixed Fixed-point taps
 * `_16s`, `32s_16s`, `32sc_16sc`, `32s_16s32f` and `32sc_16sc32fc` hold taps of 16 bits and one
 * `tapsFactor` for all: a tap stands for the held number times 2^tapsFactor.
 *
 * | Taps of the caller            | Held                                                     |
 * |-------------------------------|----------------------------------------------------------|
 * | `_16s`                        | themselves; if one is -32768, all shifted right by 1     |
 * | `32s_16s`, `32sc_16sc`        | shifted right until no magnitude is above 32766          |
 * | `32s_16s32f`, `32sc_16sc32fc` | times 2^p, rounded half away from zero and saturated     |
 *
 * The last take the p that brings the largest magnitude to at most 32767 and to at least half of
 * that, within -33 to 33. The places of a shift are added to the caller's `tapsFactor`, which
 * saturates; with floats it is -p. `32s_16s32f` makes states of `32s_16s`, whose other functions
 * run them; `32sc_16sc32fc` those of `32sc_16sc`.
 *
 * Sums of products are taken modulo 2^32, into the range of a signed integer, and shifted by
 * s = tapsFactor - scaleFactor, which is taken as -31 to 31:
 *
 * | Shift   | Output, saturated to 16 bits                                                 |
 * |---------|------------------------------------------------------------------------------|
 * | s > 0   | the sum times 2^s modulo 2^32                                                |
 * | s < 0   | the sum times 2^s, rounded to nearest, ties to even                          |
 * | s = 0   | the sum; but blocks of `_16s` add 1 to odd sums                              |
 *
 * Stream states of `_16s` round by `rndMode` where s < 0: 0 toward minus infinity, 1 to nearest
 * with ties to even, 2 to nearest with ties away from zero. They add nothing where s = 0.
 *
 * Results are defined to the bit.
 */

/** @defgroup fir_state States of FIR filters
 * @ingroup topic_filters
 * `GetStateSize` tells the bytes that `Init` needs, at any address. `Init` sets the filter up there
 * and stores the address of its state, which is inside `buffer`; `InitAlloc` takes the memory
 * itself. `dlyLine` holds the samples before the first one; null stands for silence. Taps and
 * delay line are copied. Fixed-point taps are followed by their `tapsFactor` (@ref fir_fixed).
 * `Free` releases what `InitAlloc` took and leaves other states as they are; it also takes the
 * multirate states of its types (moxsp/multirate.h).
 *
 * A `Stream` state has no delay line: moxsFIR_32f() and moxsFIR_16s_Sfs() then read
 * `len + tapsLen - 1` samples. `rndMode` of `_16s` is told in @ref fir_fixed.
 *
 * From 64 taps on (16 in `32fc`, 32 in `64fc`) a filter of floats holds its taps' spectrum, too,
 * for long blocks of samples: 2^(s+1) points, where s is the least integer with 2^s > tapsLen. It
 * does so as long as the whole state stays below 2^31 bytes: up to about 66 million taps of `32f`,
 * 33 million of `32fc` and `64f`, 16 million of `64fc`. Longer filters are summed directly.
 * `_32s` holds the spectrum from 32 taps on in states of `InitAlloc`, and none in those of `Init`.
 * Fixed-point taps and streams are always summed directly.
 *
 * @return ::moxErrNullPtr for a null argument other than `dlyLine`; ::moxErrFirLen for `tapsLen`
 * below 1 or a state of 2^31 bytes or more; ::moxErrRoundMode for `rndMode` other than 0, 1, 2;
 * `InitAlloc` ::moxErrMemAlloc without memory; `Free` ::moxErrContext for a state of other types.
 * @{ */
MOX_API MoxStatus moxsFIRGetStateSize32f_16s(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit32f_16s(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                     const Mox16s* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc32f_16s(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                          const Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRFree32f_16s(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize32fc_16sc(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit32fc_16sc(MoxsFIRState** state, const Mox32fc* taps, int tapsLen,
                                       const Mox16sc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc32fc_16sc(MoxsFIRState** state, const Mox32fc* taps, int tapsLen,
                                            const Mox16sc* dlyLine);
MOX_API MoxStatus moxsFIRFree32fc_16sc(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize32s_16s(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit32s_16s(MoxsFIRState** state, const Mox32s* taps, int tapsLen,
                                     int tapsFactor, const Mox16s* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc32s_16s(MoxsFIRState** state, const Mox32s* taps, int tapsLen,
                                          int tapsFactor, const Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRFree32s_16s(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize32sc_16sc(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit32sc_16sc(MoxsFIRState** state, const Mox32sc* taps, int tapsLen,
                                       int tapsFactor, const Mox16sc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc32sc_16sc(MoxsFIRState** state, const Mox32sc* taps, int tapsLen,
                                            int tapsFactor, const Mox16sc* dlyLine);
MOX_API MoxStatus moxsFIRFree32sc_16sc(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize64f_16s(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit64f_16s(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                     const Mox16s* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc64f_16s(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                          const Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRFree64f_16s(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize64f_32f(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit64f_32f(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                     const Mox32f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc64f_32f(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                          const Mox32f* dlyLine);
MOX_API MoxStatus moxsFIRFree64f_32f(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize64f_32s(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit64f_32s(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                     const Mox32s* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc64f_32s(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                          const Mox32s* dlyLine);
MOX_API MoxStatus moxsFIRFree64f_32s(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize64fc_16sc(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit64fc_16sc(MoxsFIRState** state, const Mox64fc* taps, int tapsLen,
                                       const Mox16sc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc64fc_16sc(MoxsFIRState** state, const Mox64fc* taps, int tapsLen,
                                            const Mox16sc* dlyLine);
MOX_API MoxStatus moxsFIRFree64fc_16sc(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize64fc_32fc(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit64fc_32fc(MoxsFIRState** state, const Mox64fc* taps, int tapsLen,
                                       const Mox32fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc64fc_32fc(MoxsFIRState** state, const Mox64fc* taps, int tapsLen,
                                            const Mox32fc* dlyLine);
MOX_API MoxStatus moxsFIRFree64fc_32fc(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize64fc_32sc(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit64fc_32sc(MoxsFIRState** state, const Mox64fc* taps, int tapsLen,
                                       const Mox32sc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc64fc_32sc(MoxsFIRState** state, const Mox64fc* taps, int tapsLen,
                                            const Mox32sc* dlyLine);
MOX_API MoxStatus moxsFIRFree64fc_32sc(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize_16s(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit_16s(MoxsFIRState** state, const Mox16s* taps, int tapsLen,
                                  int tapsFactor, const Mox16s* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc_16s(MoxsFIRState** state, const Mox16s* taps, int tapsLen,
                                       int tapsFactor, const Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRFree_16s(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize_32f(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit_32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                  const Mox32f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc_32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                       const Mox32f* dlyLine);
MOX_API MoxStatus moxsFIRFree_32f(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize_32fc(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit_32fc(MoxsFIRState** state, const Mox32fc* taps, int tapsLen,
                                   const Mox32fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc_32fc(MoxsFIRState** state, const Mox32fc* taps, int tapsLen,
                                        const Mox32fc* dlyLine);
MOX_API MoxStatus moxsFIRFree_32fc(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize_32s(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit_32s(MoxsFIRState** state, const Mox32s* taps, int tapsLen,
                                  const Mox32s* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc_32s(MoxsFIRState** state, const Mox32s* taps, int tapsLen,
                                       const Mox32s* dlyLine);
MOX_API MoxStatus moxsFIRFree_32s(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize_64f(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit_64f(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                  const Mox64f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc_64f(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                       const Mox64f* dlyLine);
MOX_API MoxStatus moxsFIRFree_64f(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize_64fc(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit_64fc(MoxsFIRState** state, const Mox64fc* taps, int tapsLen,
                                   const Mox64fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc_64fc(MoxsFIRState** state, const Mox64fc* taps, int tapsLen,
                                        const Mox64fc* dlyLine);
MOX_API MoxStatus moxsFIRFree_64fc(MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetStateSize32s_16s32f(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit32s_16s32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                        const Mox16s* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc32s_16s32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                             const Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRGetStateSize32sc_16sc32fc(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit32sc_16sc32fc(MoxsFIRState** state, const Mox32fc* taps, int tapsLen,
                                           const Mox16sc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc32sc_16sc32fc(MoxsFIRState** state, const Mox32fc* taps,
                                                int tapsLen, const Mox16sc* dlyLine);
MOX_API MoxStatus moxsFIRStreamGetStateSize_16s(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRStreamGetStateSize_32f(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRStreamInit_16s(MoxsFIRState** state, const Mox16s* taps, int tapsLen,
                                        int tapsFactor, int rndMode, Mox8u* buffer);
MOX_API MoxStatus moxsFIRStreamInit_32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                        Mox8u* buffer);
MOX_API MoxStatus moxsFIRStreamInitAlloc_16s(MoxsFIRState** state, const Mox16s* taps, int tapsLen,
                                             int tapsFactor, int rndMode);
MOX_API MoxStatus moxsFIRStreamInitAlloc_32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen);
/** @} */

/** @defgroup fir_taps Taps of a filter
 * @ingroup topic_filters
 * Reads or replaces the `tapsLen` taps, tap 0 first. The delay line is left alone. Fixed-point taps
 * come as they are held, with their `tapsFactor`; `32s_16s32f` and `32sc_16sc32fc` give the held
 * ones times 2^tapsFactor, with the magnitude of the factor taken modulo 128. New ones are treated
 * as those of `Init` (@ref fir_fixed). `_32s` gives its taps truncated to integers and saturated.
 * @return ::moxErrNullPtr for a null argument, ::moxErrContext for a stream state or one of other
 * types.
 * @{ */
MOX_API MoxStatus moxsFIRGetTaps32f_16s(const MoxsFIRState* state, Mox32f* taps);
MOX_API MoxStatus moxsFIRSetTaps32f_16s(const Mox32f* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps32fc_16sc(const MoxsFIRState* state, Mox32fc* taps);
MOX_API MoxStatus moxsFIRSetTaps32fc_16sc(const Mox32fc* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps32s_16s(const MoxsFIRState* state, Mox32s* taps, int* tapsFactor);
MOX_API MoxStatus moxsFIRSetTaps32s_16s(const Mox32s* taps, MoxsFIRState* state, int tapsFactor);
MOX_API MoxStatus moxsFIRGetTaps32sc_16sc(const MoxsFIRState* state, Mox32sc* taps,
                                          int* tapsFactor);
MOX_API MoxStatus moxsFIRSetTaps32sc_16sc(const Mox32sc* taps, MoxsFIRState* state, int tapsFactor);
MOX_API MoxStatus moxsFIRGetTaps64f_16s(const MoxsFIRState* state, Mox64f* taps);
MOX_API MoxStatus moxsFIRSetTaps64f_16s(const Mox64f* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps64f_32f(const MoxsFIRState* state, Mox64f* taps);
MOX_API MoxStatus moxsFIRSetTaps64f_32f(const Mox64f* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps64f_32s(const MoxsFIRState* state, Mox64f* taps);
MOX_API MoxStatus moxsFIRSetTaps64f_32s(const Mox64f* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps64fc_16sc(const MoxsFIRState* state, Mox64fc* taps);
MOX_API MoxStatus moxsFIRSetTaps64fc_16sc(const Mox64fc* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps64fc_32fc(const MoxsFIRState* state, Mox64fc* taps);
MOX_API MoxStatus moxsFIRSetTaps64fc_32fc(const Mox64fc* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps64fc_32sc(const MoxsFIRState* state, Mox64fc* taps);
MOX_API MoxStatus moxsFIRSetTaps64fc_32sc(const Mox64fc* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps_16s(const MoxsFIRState* state, Mox16s* taps, int* tapsFactor);
MOX_API MoxStatus moxsFIRSetTaps_16s(const Mox16s* taps, MoxsFIRState* state, int tapsFactor);
MOX_API MoxStatus moxsFIRGetTaps_32f(const MoxsFIRState* state, Mox32f* taps);
MOX_API MoxStatus moxsFIRSetTaps_32f(const Mox32f* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps_32fc(const MoxsFIRState* state, Mox32fc* taps);
MOX_API MoxStatus moxsFIRSetTaps_32fc(const Mox32fc* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps_32s(const MoxsFIRState* state, Mox32s* taps);
MOX_API MoxStatus moxsFIRSetTaps_32s(const Mox32s* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps_64f(const MoxsFIRState* state, Mox64f* taps);
MOX_API MoxStatus moxsFIRSetTaps_64f(const Mox64f* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps_64fc(const MoxsFIRState* state, Mox64fc* taps);
MOX_API MoxStatus moxsFIRSetTaps_64fc(const Mox64fc* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps32s_16s32f(const MoxsFIRState* state, Mox32f* taps);
MOX_API MoxStatus moxsFIRSetTaps32s_16s32f(const Mox32f* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps32sc_16sc32fc(const MoxsFIRState* state, Mox32fc* taps);
MOX_API MoxStatus moxsFIRSetTaps32sc_16sc32fc(const Mox32fc* taps, MoxsFIRState* state);
/** @} */

/** @defgroup fir_dlyline Delay line of a filter
 * @ingroup topic_filters
 * Reads or replaces the last `tapsLen` samples, the newest first; of a multirate state the last
 * ceil(tapsLen / upFactor). A null `dlyLine` stands for silence in `SetDlyLine`.
 * @return ::moxErrNullPtr for a null argument, but for that one; ::moxErrContext for a stream state
 * or one of other types.
 * @{ */
MOX_API MoxStatus moxsFIRGetDlyLine32f_16s(const MoxsFIRState* state, Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine32f_16s(MoxsFIRState* state, const Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRGetDlyLine32fc_16sc(const MoxsFIRState* state, Mox16sc* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine32fc_16sc(MoxsFIRState* state, const Mox16sc* dlyLine);
MOX_API MoxStatus moxsFIRGetDlyLine32s_16s(const MoxsFIRState* state, Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine32s_16s(MoxsFIRState* state, const Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRGetDlyLine32sc_16sc(const MoxsFIRState* state, Mox16sc* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine32sc_16sc(MoxsFIRState* state, const Mox16sc* dlyLine);
MOX_API MoxStatus moxsFIRGetDlyLine64f_16s(const MoxsFIRState* state, Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine64f_16s(MoxsFIRState* state, const Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRGetDlyLine64f_32f(const MoxsFIRState* state, Mox32f* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine64f_32f(MoxsFIRState* state, const Mox32f* dlyLine);
MOX_API MoxStatus moxsFIRGetDlyLine64f_32s(const MoxsFIRState* state, Mox32s* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine64f_32s(MoxsFIRState* state, const Mox32s* dlyLine);
MOX_API MoxStatus moxsFIRGetDlyLine64fc_16sc(const MoxsFIRState* state, Mox16sc* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine64fc_16sc(MoxsFIRState* state, const Mox16sc* dlyLine);
MOX_API MoxStatus moxsFIRGetDlyLine64fc_32fc(const MoxsFIRState* state, Mox32fc* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine64fc_32fc(MoxsFIRState* state, const Mox32fc* dlyLine);
MOX_API MoxStatus moxsFIRGetDlyLine64fc_32sc(const MoxsFIRState* state, Mox32sc* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine64fc_32sc(MoxsFIRState* state, const Mox32sc* dlyLine);
MOX_API MoxStatus moxsFIRGetDlyLine_16s(const MoxsFIRState* state, Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine_16s(MoxsFIRState* state, const Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRGetDlyLine_32f(const MoxsFIRState* state, Mox32f* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine_32f(MoxsFIRState* state, const Mox32f* dlyLine);
MOX_API MoxStatus moxsFIRGetDlyLine_32fc(const MoxsFIRState* state, Mox32fc* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine_32fc(MoxsFIRState* state, const Mox32fc* dlyLine);
MOX_API MoxStatus moxsFIRGetDlyLine_64f(const MoxsFIRState* state, Mox64f* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine_64f(MoxsFIRState* state, const Mox64f* dlyLine);
MOX_API MoxStatus moxsFIRGetDlyLine_64fc(const MoxsFIRState* state, Mox64fc* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine_64fc(MoxsFIRState* state, const Mox64fc* dlyLine);
/** @} */

/** @defgroup fir FIR
 * @ingroup topic_filters
 * Filters a block of `len` samples (`FIR`) or a single one (`FIROne`), in any order on one state:
 * `dst[i] = sum of taps[k] * src[i - k]` over 0 <= k < tapsLen. Integer outputs of floating sums
 * are the sums times 2^-scaleFactor, rounded to nearest with ties to even and saturated; those of
 * fixed-point taps are told in @ref fir_fixed. In place or not, the outputs are the same but for
 * rounding. Arrays must not overlap otherwise. On a multirate state `FIR` runs `len` iterations
 * (@ref multirate_run).
 *
 * Blocks of `FIR` on a state with a spectrum (@ref fir_state) are filtered by overlap-save:
 *
 * | Block of n samples                | Method                                                 |
 * |-----------------------------------|--------------------------------------------------------|
 * | n < m = 512, of complex ones 256  | direct sums                                            |
 * | n >= m                            | overlap-save                                           |
 * | in place, data of the taps' type  | chunks of 4224, by overlap-save while m samples follow |
 * | in place, other data, n >= m      | chunks of 8448, all by overlap-save                    |
 *
 * The method is that of Stockham, "High-speed convolution and correlation", 1966.
 *
 * A stream state computes `dst[i] = sum of taps[k] * src[i + tapsLen - 1 - k]` directly and keeps
 * nothing; it can't filter in place, and there is no `FIROne`.
 *
 * @return ::moxErrNullPtr for a null argument; ::moxErrSize for `len` below 1; ::moxErrContext for
 * a state of other types, for a stream or multirate state in `FIROne`, and for a stream state in
 * place; ::moxErrMemAlloc in the one case that @ref multirate_run tells.
 * @note Direct sums: an output is off by at most tapsLen * u * sum of |taps[k] * x[i - k]|, with
 * the unit roundoff u of the taps' type, and by the rounding to the data's; twice that in `fc`. An
 * output of `FIR` has the same bits however the signal is cut into blocks; `FIROne` adds in another
 * order. Sums of fixed-point taps are exact modulo 2^32.
 * @note Overlap-save: an output is off by at most e * (3 |taps| |x| + |y|), where |.| is the L2
 * norm, e bounds the relative error of a transform of the length N (@ref fft_real, @ref
 * fft_complex), x are its N samples, and y is their circular convolution with the taps: small
 * outputs beside large ones lose digits.
 * @note Infinities and NaN reach only the outputs that depend on them in direct sums, but all of a
 * transform's. Where float taps make the sum of integer samples NaN, the output is the largest
 * integer.
 * @{ */
MOX_API MoxStatus moxsFIR_32f(const Mox32f* src, Mox32f* dst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR_32f_I(Mox32f* srcDst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR_32fc(const Mox32fc* src, Mox32fc* dst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR_32fc_I(Mox32fc* srcDst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR_64f(const Mox64f* src, Mox64f* dst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR_64f_I(Mox64f* srcDst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR_64fc(const Mox64fc* src, Mox64fc* dst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR_64fc_I(Mox64fc* srcDst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR64f_32f(const Mox32f* src, Mox32f* dst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR64f_32f_I(Mox32f* srcDst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR64fc_32fc(const Mox32fc* src, Mox32fc* dst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR64fc_32fc_I(Mox32fc* srcDst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR_16s_Sfs(const Mox16s* src, Mox16s* dst, int len, MoxsFIRState* state,
                                  int scaleFactor);
MOX_API MoxStatus moxsFIR_16s_ISfs(Mox16s* srcDst, int len, MoxsFIRState* state, int scaleFactor);
MOX_API MoxStatus moxsFIR_32s_Sfs(const Mox32s* src, Mox32s* dst, int len, MoxsFIRState* state,
                                  int scaleFactor);
MOX_API MoxStatus moxsFIR_32s_ISfs(Mox32s* srcDst, int len, MoxsFIRState* state, int scaleFactor);
MOX_API MoxStatus moxsFIR32f_16s_Sfs(const Mox16s* src, Mox16s* dst, int len, MoxsFIRState* state,
                                     int scaleFactor);
MOX_API MoxStatus moxsFIR32f_16s_ISfs(Mox16s* srcDst, int len, MoxsFIRState* state,
                                      int scaleFactor);
MOX_API MoxStatus moxsFIR32fc_16sc_Sfs(const Mox16sc* src, Mox16sc* dst, int len,
                                       MoxsFIRState* state, int scaleFactor);
MOX_API MoxStatus moxsFIR32fc_16sc_ISfs(Mox16sc* srcDst, int len, MoxsFIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsFIR32s_16s_Sfs(const Mox16s* src, Mox16s* dst, int len, MoxsFIRState* state,
                                     int scaleFactor);
MOX_API MoxStatus moxsFIR32s_16s_ISfs(Mox16s* srcDst, int len, MoxsFIRState* state,
                                      int scaleFactor);
MOX_API MoxStatus moxsFIR32sc_16sc_Sfs(const Mox16sc* src, Mox16sc* dst, int len,
                                       MoxsFIRState* state, int scaleFactor);
MOX_API MoxStatus moxsFIR32sc_16sc_ISfs(Mox16sc* srcDst, int len, MoxsFIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsFIR64f_16s_Sfs(const Mox16s* src, Mox16s* dst, int len, MoxsFIRState* state,
                                     int scaleFactor);
MOX_API MoxStatus moxsFIR64f_16s_ISfs(Mox16s* srcDst, int len, MoxsFIRState* state,
                                      int scaleFactor);
MOX_API MoxStatus moxsFIR64f_32s_Sfs(const Mox32s* src, Mox32s* dst, int len, MoxsFIRState* state,
                                     int scaleFactor);
MOX_API MoxStatus moxsFIR64f_32s_ISfs(Mox32s* srcDst, int len, MoxsFIRState* state,
                                      int scaleFactor);
MOX_API MoxStatus moxsFIR64fc_16sc_Sfs(const Mox16sc* src, Mox16sc* dst, int len,
                                       MoxsFIRState* state, int scaleFactor);
MOX_API MoxStatus moxsFIR64fc_16sc_ISfs(Mox16sc* srcDst, int len, MoxsFIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsFIR64fc_32sc_Sfs(const Mox32sc* src, Mox32sc* dst, int len,
                                       MoxsFIRState* state, int scaleFactor);
MOX_API MoxStatus moxsFIR64fc_32sc_ISfs(Mox32sc* srcDst, int len, MoxsFIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsFIROne_32f(Mox32f src, Mox32f* dst, MoxsFIRState* state);
MOX_API MoxStatus moxsFIROne_32fc(Mox32fc src, Mox32fc* dst, MoxsFIRState* state);
MOX_API MoxStatus moxsFIROne_64f(Mox64f src, Mox64f* dst, MoxsFIRState* state);
MOX_API MoxStatus moxsFIROne_64fc(Mox64fc src, Mox64fc* dst, MoxsFIRState* state);
MOX_API MoxStatus moxsFIROne64f_32f(Mox32f src, Mox32f* dst, MoxsFIRState* state);
MOX_API MoxStatus moxsFIROne64fc_32fc(Mox32fc src, Mox32fc* dst, MoxsFIRState* state);
MOX_API MoxStatus moxsFIROne_16s_Sfs(Mox16s src, Mox16s* dst, MoxsFIRState* state, int scaleFactor);
MOX_API MoxStatus moxsFIROne_32s_Sfs(Mox32s src, Mox32s* dst, MoxsFIRState* state, int scaleFactor);
MOX_API MoxStatus moxsFIROne32f_16s_Sfs(Mox16s src, Mox16s* dst, MoxsFIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsFIROne32fc_16sc_Sfs(Mox16sc src, Mox16sc* dst, MoxsFIRState* state,
                                          int scaleFactor);
MOX_API MoxStatus moxsFIROne32s_16s_Sfs(Mox16s src, Mox16s* dst, MoxsFIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsFIROne32sc_16sc_Sfs(Mox16sc src, Mox16sc* dst, MoxsFIRState* state,
                                          int scaleFactor);
MOX_API MoxStatus moxsFIROne64f_16s_Sfs(Mox16s src, Mox16s* dst, MoxsFIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsFIROne64f_32s_Sfs(Mox32s src, Mox32s* dst, MoxsFIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsFIROne64fc_16sc_Sfs(Mox16sc src, Mox16sc* dst, MoxsFIRState* state,
                                          int scaleFactor);
MOX_API MoxStatus moxsFIROne64fc_32sc_Sfs(Mox32sc src, Mox32sc* dst, MoxsFIRState* state,
                                          int scaleFactor);
/** @} */

#endif
