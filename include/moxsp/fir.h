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
 * array of `tapsLen` samples, the newest first; the last of them has no effect on any output.
 */

/** @defgroup fir_state States of FIR filters
 * @ingroup topic_filters
 * `GetStateSize` tells the bytes that `Init` needs, at any address. `Init` sets the filter up there
 * and stores the address of its state, which is inside `buffer`; `InitAlloc` takes the memory
 * itself. `dlyLine` holds the samples before the first one; null stands for silence. Taps and
 * delay line are copied. `Free` releases what `InitAlloc` took and leaves other states as they are.
 *
 * A `Stream` state has no delay line: moxsFIR_32f() then reads `len + tapsLen - 1` samples.
 *
 * From 64 taps on (16 in `_32fc`, 32 in `_64fc`) a filter holds its taps' spectrum, too, for long
 * blocks of samples: 2^(s+1) points, where s is the least integer with 2^s > tapsLen. It does so as
 * long as the whole state stays below 2^31 bytes: up to about 50 million taps of `32f` and
 * `32f_16s`, 25 million of `32fc` and `64f`, 12.5 million of `64fc`. Longer filters are summed
 * directly.
 *
 * @return ::moxErrNullPtr for a null argument other than `dlyLine`; ::moxErrFirLen for `tapsLen`
 * below 1 or a state of 2^31 bytes or more; `InitAlloc` ::moxErrMemAlloc without memory; `Free`
 * ::moxErrContext for a state of other types.
 * @{ */
MOX_API MoxStatus moxsFIRGetStateSize32f_16s(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRInit32f_16s(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                     const Mox16s* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRInitAlloc32f_16s(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                          const Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRFree32f_16s(MoxsFIRState* state);
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
MOX_API MoxStatus moxsFIRStreamGetStateSize_32f(int tapsLen, int* size);
MOX_API MoxStatus moxsFIRStreamInit_32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                        Mox8u* buffer);
MOX_API MoxStatus moxsFIRStreamInitAlloc_32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen);
/** @} */

/** @defgroup fir_taps Taps of a filter
 * @ingroup topic_filters
 * Reads or replaces the `tapsLen` taps, tap 0 first. The delay line is left alone.
 * @return ::moxErrNullPtr for a null argument, ::moxErrContext for a stream state or one of other
 * types.
 * @{ */
MOX_API MoxStatus moxsFIRGetTaps32f_16s(const MoxsFIRState* state, Mox32f* taps);
MOX_API MoxStatus moxsFIRSetTaps32f_16s(const Mox32f* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps_32f(const MoxsFIRState* state, Mox32f* taps);
MOX_API MoxStatus moxsFIRSetTaps_32f(const Mox32f* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps_32fc(const MoxsFIRState* state, Mox32fc* taps);
MOX_API MoxStatus moxsFIRSetTaps_32fc(const Mox32fc* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps_64f(const MoxsFIRState* state, Mox64f* taps);
MOX_API MoxStatus moxsFIRSetTaps_64f(const Mox64f* taps, MoxsFIRState* state);
MOX_API MoxStatus moxsFIRGetTaps_64fc(const MoxsFIRState* state, Mox64fc* taps);
MOX_API MoxStatus moxsFIRSetTaps_64fc(const Mox64fc* taps, MoxsFIRState* state);
/** @} */

/** @defgroup fir_dlyline Delay line of a filter
 * @ingroup topic_filters
 * Reads or replaces the last `tapsLen` samples, the newest first. A null `dlyLine` stands for
 * silence in `SetDlyLine`.
 * @return ::moxErrNullPtr for a null argument, but for that one; ::moxErrContext for a stream state
 * or one of other types.
 * @{ */
MOX_API MoxStatus moxsFIRGetDlyLine32f_16s(const MoxsFIRState* state, Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRSetDlyLine32f_16s(MoxsFIRState* state, const Mox16s* dlyLine);
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
 * `dst[i] = sum of taps[k] * src[i - k]` over 0 <= k < tapsLen. Integer outputs are the sums times
 * 2^-scaleFactor, rounded to nearest with ties to even and saturated. In place or not, the outputs
 * are the same but for rounding; arrays may not overlap otherwise.
 *
 * Blocks of `FIR` on a state with a spectrum (@ref fir_state) are filtered by overlap-save:
 *
 * | Block of n samples               | Method                                                  |
 * |----------------------------------|---------------------------------------------------------|
 * | n < m = 512, of complex ones 256 | direct sums                                             |
 * | n >= m                           | overlap-save                                            |
 * | floats in place                  | chunks of 4224, by overlap-save while m samples follow  |
 * | 16-bit integers in place, n >= m | chunks of 8448, all by overlap-save                     |
 *
 * The method is that of Stockham, "High-speed convolution and correlation", 1966.
 *
 * A stream state computes `dst[i] = sum of taps[k] * src[i + tapsLen - 1 - k]` directly and keeps
 * nothing; it can't filter in place, and there is no `FIROne`.
 *
 * @return ::moxErrNullPtr for a null argument; ::moxErrSize for `len` below 1; ::moxErrContext for
 * a state of other types, for a stream state in `FIROne`, and for one in place.
 * @note Direct sums: an output is off by at most tapsLen * u * sum of |taps[k] * x[i - k]|, with
 * the unit roundoff u; twice that in `fc`. An output of `FIR` has the same bits however the signal
 * is cut into blocks; `FIROne` adds in another order.
 * @note Overlap-save: an output is off by at most e * (3 |taps| |x| + |y|), where |.| is the L2
 * norm, e bounds the relative error of a transform of the length N (@ref fft_real, @ref
 * fft_complex), x are its N samples, and y is their circular convolution with the taps: small
 * outputs beside large ones lose digits.
 * @note Infinities and NaN reach only the outputs that depend on them in direct sums, but all of a
 * transform's. Where taps make the sum of 16-bit samples NaN, the output is 32767.
 * @{ */
MOX_API MoxStatus moxsFIR_32f(const Mox32f* src, Mox32f* dst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR_32f_I(Mox32f* srcDst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR_32fc(const Mox32fc* src, Mox32fc* dst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR_32fc_I(Mox32fc* srcDst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR_64f(const Mox64f* src, Mox64f* dst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR_64f_I(Mox64f* srcDst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR_64fc(const Mox64fc* src, Mox64fc* dst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR_64fc_I(Mox64fc* srcDst, int len, MoxsFIRState* state);
MOX_API MoxStatus moxsFIR32f_16s_Sfs(const Mox16s* src, Mox16s* dst, int len, MoxsFIRState* state,
                                     int scaleFactor);
MOX_API MoxStatus moxsFIR32f_16s_ISfs(Mox16s* srcDst, int len, MoxsFIRState* state,
                                      int scaleFactor);
MOX_API MoxStatus moxsFIROne_32f(Mox32f src, Mox32f* dst, MoxsFIRState* state);
MOX_API MoxStatus moxsFIROne_32fc(Mox32fc src, Mox32fc* dst, MoxsFIRState* state);
MOX_API MoxStatus moxsFIROne_64f(Mox64f src, Mox64f* dst, MoxsFIRState* state);
MOX_API MoxStatus moxsFIROne_64fc(Mox64fc src, Mox64fc* dst, MoxsFIRState* state);
MOX_API MoxStatus moxsFIROne32f_16s_Sfs(Mox16s src, Mox16s* dst, MoxsFIRState* state,
                                        int scaleFactor);
/** @} */

/** @defgroup fir_direct FIR without a state
 * @ingroup topic_filters
 * The same sums sample by sample, with all memory the caller's: `dlyLine` is a ring of
 * `2 * tapsLen` samples that holds the last `tapsLen` twice, and `dlyLineIndex` its place, both 0
 * at first. Each sample is stored at that place and `tapsLen` behind it; then the place moves on,
 * modulo `tapsLen`. `dst` may be `src`.
 *
 * @return in this order ::moxErrNullPtr for `src` or `dst`, ::moxErrSize for `len` below 1,
 * ::moxErrNullPtr for `taps`, ::moxErrFirLen for `tapsLen` below 1, ::moxErrNullPtr for `dlyLine`
 * or `dlyLineIndex`. An index outside the ring is taken modulo `tapsLen`.
 * @note `_32f` adds single-precision products in double precision and rounds the sum once; errors
 * are otherwise bounded as in @ref fir.
 * @{ */
MOX_API MoxStatus moxsFIR_Direct_32f(const Mox32f* src, Mox32f* dst, int len, const Mox32f* taps,
                                     int tapsLen, Mox32f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIR_Direct_32f_I(Mox32f* srcDst, int len, const Mox32f* taps, int tapsLen,
                                       Mox32f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIR_Direct_32fc(const Mox32fc* src, Mox32fc* dst, int len,
                                      const Mox32fc* taps, int tapsLen, Mox32fc* dlyLine,
                                      int* dlyLineIndex);
MOX_API MoxStatus moxsFIR_Direct_32fc_I(Mox32fc* srcDst, int len, const Mox32fc* taps, int tapsLen,
                                        Mox32fc* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIR_Direct_64f(const Mox64f* src, Mox64f* dst, int len, const Mox64f* taps,
                                     int tapsLen, Mox64f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIR_Direct_64f_I(Mox64f* srcDst, int len, const Mox64f* taps, int tapsLen,
                                       Mox64f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIR_Direct_64fc(const Mox64fc* src, Mox64fc* dst, int len,
                                      const Mox64fc* taps, int tapsLen, Mox64fc* dlyLine,
                                      int* dlyLineIndex);
MOX_API MoxStatus moxsFIR_Direct_64fc_I(Mox64fc* srcDst, int len, const Mox64fc* taps, int tapsLen,
                                        Mox64fc* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIR32f_Direct_16s_Sfs(const Mox16s* src, Mox16s* dst, int len,
                                            const Mox32f* taps, int tapsLen, Mox16s* dlyLine,
                                            int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIR32f_Direct_16s_ISfs(Mox16s* srcDst, int len, const Mox32f* taps,
                                             int tapsLen, Mox16s* dlyLine, int* dlyLineIndex,
                                             int scaleFactor);
MOX_API MoxStatus moxsFIROne_Direct_32f(Mox32f src, Mox32f* dst, const Mox32f* taps, int tapsLen,
                                        Mox32f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne_Direct_32f_I(Mox32f* srcDst, const Mox32f* taps, int tapsLen,
                                          Mox32f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne_Direct_32fc(Mox32fc src, Mox32fc* dst, const Mox32fc* taps,
                                         int tapsLen, Mox32fc* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne_Direct_32fc_I(Mox32fc* srcDst, const Mox32fc* taps, int tapsLen,
                                           Mox32fc* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne_Direct_64f(Mox64f src, Mox64f* dst, const Mox64f* taps, int tapsLen,
                                        Mox64f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne_Direct_64f_I(Mox64f* srcDst, const Mox64f* taps, int tapsLen,
                                          Mox64f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne_Direct_64fc(Mox64fc src, Mox64fc* dst, const Mox64fc* taps,
                                         int tapsLen, Mox64fc* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne_Direct_64fc_I(Mox64fc* srcDst, const Mox64fc* taps, int tapsLen,
                                           Mox64fc* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne32f_Direct_16s_Sfs(Mox16s src, Mox16s* dst, const Mox32f* taps,
                                               int tapsLen, Mox16s* dlyLine, int* dlyLineIndex,
                                               int scaleFactor);
MOX_API MoxStatus moxsFIROne32f_Direct_16s_ISfs(Mox16s* srcDst, const Mox32f* taps, int tapsLen,
                                                Mox16s* dlyLine, int* dlyLineIndex,
                                                int scaleFactor);
/** @} */

#endif
