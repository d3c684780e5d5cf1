/**
 * @file
 * Sample rates changed: samples inserted or removed, and band-limited interpolation.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * enum { history = 32, len = 441 };
 *
 * int main(void) {  // from 44.1 to 48 kHz; a constant stays one
 *   Mox32f x[history + len + history], y[500];
 *   MoxsResamplePolyphaseFixedState* state;
 *   Mox64f time = 0;
 *   int size, filterLen, filters, count;
 *   moxsSet_32f(0.5f, x, history + len + history);
 *   moxsResamplePolyphaseFixedGetSize_32f(44100, 48000, 2 * history, &size, &filterLen,
 *                                         &filters, 0);
 *   state = (MoxsResamplePolyphaseFixedState*)moxsMalloc_8u(size);
 *   moxsResamplePolyphaseFixedInit_32f(44100, 48000, 2 * history, 0.95f, 9, state, 0);
 *   moxsResamplePolyphaseFixed_32f(x + history, len, y, 1, &time, &count, state);
 *   printf("%d filters of %d: ", filters, filterLen);  // 160 filters of 64:
 *   printf("%d samples, %.3f", count, y[100]);         // 480 samples, 0.500
 *   moxsFree(state);
 * }
 * @endcode
 */
#ifndef MOXSP_RESAMPLING_H
#define MOXSP_RESAMPLING_H

#include <moxsp/types.h>

/** @defgroup sampling SampleUp and SampleDown
 * @ingroup topic_resampling
 * Samples inserted and removed, without a filter. Up: `dst` holds `srcLen * factor` elements,
 *
 *     dst[phase + factor * k] = src[k], all others 0, for 0 <= k < srcLen
 *
 * Down: as many as there are of
 *
 *     dst[k] = src[phase + factor * k], phase + factor * k < srcLen
 *
 * `dstLen` is where their number is stored. `phase` is read; Down replaces it by the one with which
 * the next block goes on. Down may run onto its source.
 *
 * @return ::moxErrNullPtr for a null pointer; ::moxErrSize for `srcLen` below 1;
 * ::moxErrSampleFactor for `factor` below 1; ::moxErrSamplePhase for a phase below 0, or not below
 * `factor`; ::moxErrSize where `srcLen * factor` passes 2^31 - 1.
 * @{ */
MOX_API MoxStatus moxsSampleUp_16s(const Mox16s* src, int srcLen, Mox16s* dst, int* dstLen,
                                   int factor, int* phase);
MOX_API MoxStatus moxsSampleUp_16sc(const Mox16sc* src, int srcLen, Mox16sc* dst, int* dstLen,
                                    int factor, int* phase);
MOX_API MoxStatus moxsSampleUp_32f(const Mox32f* src, int srcLen, Mox32f* dst, int* dstLen,
                                   int factor, int* phase);
MOX_API MoxStatus moxsSampleUp_32fc(const Mox32fc* src, int srcLen, Mox32fc* dst, int* dstLen,
                                    int factor, int* phase);
MOX_API MoxStatus moxsSampleUp_64f(const Mox64f* src, int srcLen, Mox64f* dst, int* dstLen,
                                   int factor, int* phase);
MOX_API MoxStatus moxsSampleUp_64fc(const Mox64fc* src, int srcLen, Mox64fc* dst, int* dstLen,
                                    int factor, int* phase);
MOX_API MoxStatus moxsSampleDown_16s(const Mox16s* src, int srcLen, Mox16s* dst, int* dstLen,
                                     int factor, int* phase);
MOX_API MoxStatus moxsSampleDown_16sc(const Mox16sc* src, int srcLen, Mox16sc* dst, int* dstLen,
                                      int factor, int* phase);
MOX_API MoxStatus moxsSampleDown_32f(const Mox32f* src, int srcLen, Mox32f* dst, int* dstLen,
                                     int factor, int* phase);
MOX_API MoxStatus moxsSampleDown_32fc(const Mox32fc* src, int srcLen, Mox32fc* dst, int* dstLen,
                                      int factor, int* phase);
MOX_API MoxStatus moxsSampleDown_64f(const Mox64f* src, int srcLen, Mox64f* dst, int* dstLen,
                                     int factor, int* phase);
MOX_API MoxStatus moxsSampleDown_64fc(const Mox64fc* src, int srcLen, Mox64fc* dst, int* dstLen,
                                      int factor, int* phase);
/** @} */

/** The filter of a resampler for any factor. It holds addresses: it must not move. */
typedef struct MoxsResamplePolyphaseState MoxsResamplePolyphaseState;
/** The filters of a resampler for a ratio of whole numbers. It must not move. */
typedef struct MoxsResamplePolyphaseFixedState MoxsResamplePolyphaseFixedState;

/** @defgroup resample_state States of ResamplePolyphase
 * @ingroup topic_resampling
 * `GetSize` tells the bytes of memory, at any address, that `Init` makes a state of. Nothing has to
 * be released. Both element types share one state. `hint` has no effect here.
 *
 * The response is a sinc under a Kaiser window, a table of `nStep` points to an input sample:
 *
 *     h[i] = sin(pi rollf i / nStep) / (pi i / nStep)
 *            * I0(alpha sqrt(1 - (i / (n - 1))^2)) / I0(alpha)
 *     h[0] = rollf, n = trunc(window / 2 * nStep) + 1, 0 <= i < n
 *
 * times what makes h[0] + 2 (h[nStep] + h[2 nStep] + ...) one. `window` is its length in input
 * samples, `rollf` where it cuts off relative to half the sample rate, above 0 and up to 1, `alpha`
 * from 1 on the parameter of the window: side lobes are about 8.7 alpha dB down, and the band
 * between pass and stop is about 2 alpha / (pi window) sample rates wide. Between the points the
 * table is interpolated by straight lines, whose error falls with the square of `nStep`.
 *
 * @return ::moxErrNullPtr for a null pointer; ::moxErrSize for `nStep` below 1; ::moxErrBadArg for
 * `window` below 2 / nStep, or so large that no `int` tells the size, and for `rollf` and `alpha`
 * out of range.
 * @note Points are computed in double precision and held as `Mox32f`.
 * @{ */
MOX_API MoxStatus moxsResamplePolyphaseGetSize_32f(Mox32f window, int nStep, int* size, int hint);
MOX_API MoxStatus moxsResamplePolyphaseGetSize_16s(Mox32f window, int nStep, int* size, int hint);
MOX_API MoxStatus moxsResamplePolyphaseInit_32f(Mox32f window, int nStep, Mox32f rollf,
                                                Mox32f alpha, MoxsResamplePolyphaseState* state,
                                                int hint);
MOX_API MoxStatus moxsResamplePolyphaseInit_16s(Mox32f window, int nStep, Mox32f rollf,
                                                Mox32f alpha, MoxsResamplePolyphaseState* state,
                                                int hint);
/** @} */

/** @defgroup resample ResamplePolyphase
 * @ingroup topic_resampling
 * Output k stands at the position t[k] = time + k / factor of the input, for all t[k] below
 * len + trunc(time):
 *
 *     dst[k] = norm * sum of src[i] h((t[k] - i) nStep)                         factor >= 1
 *     dst[k] = norm * factor * sum of src[i] h((t[k] - i) factor nStep)         factor < 1
 *
 * over all i within the response, which is stretched where the rate falls. So `src` must have
 * samples before and behind those positions: window / 2 on either side, divided by `factor` where
 * that is below 1. `outLen` is where the number of outputs is stored, and `time` where the next
 * position is. Signals come in blocks by moving `src` on by `len` and lowering `time` as much.
 *
 * @return ::moxErrNullPtr for a null pointer; ::moxErrSize for `len` below 1, for `factor` not
 * above 0 or below 2^-31, and where `len * factor` passes 2^31 - 1; ::moxErrBadArg for a `time`
 * that is no number or beyond 2^30 either way.
 * @note Products are rounded to `Mox32f`, and summed in double precision; 16-bit outputs are
 * rounded to nearest and saturated. A signal cut into blocks gives the same to rounding. Quality
 * and speed stand in docs/resampling.md.
 * @{ */
MOX_API MoxStatus moxsResamplePolyphase_32f(const Mox32f* src, int len, Mox32f* dst, Mox64f factor,
                                            Mox32f norm, Mox64f* time, int* outLen,
                                            const MoxsResamplePolyphaseState* state);
MOX_API MoxStatus moxsResamplePolyphase_16s(const Mox16s* src, int len, Mox16s* dst, Mox64f factor,
                                            Mox32f norm, Mox64f* time, int* outLen,
                                            const MoxsResamplePolyphaseState* state);
/** @} */

/** @defgroup resample_fixed_state States of ResamplePolyphaseFixed
 * @ingroup topic_resampling
 * As @ref resample_state, for the ratio of two rates, of which common factors are taken out. Each
 * of the `outRate` phases has a filter of its own: `GetSize` stores their number at `numFilters`
 * and at `filterLen` the length, `len` rounded up to a multiple of 4. Where the rate falls, the
 * same number of taps cuts off at half the rate of the outputs, so that `len` wants to grow by
 * inRate / outRate. With `hint` ::moxHintAccurate outputs are summed in double precision.
 *
 * `GetFixedFilter` copies the first `height` filters to rows `step` elements apart,
 * `SetFixedFilter` takes them from there: min(filterLen + 4, step) elements of each. Tap k of
 * filter p meets the sample k - filterLen / 2 + 1 behind the one at or before the output, and in
 * filter 0, which has one tap more, k - filterLen / 2. In the `16s` forms taps are
 * multiples of 2^-15.
 *
 * @return ::moxErrNullPtr for a null pointer; ::moxErrSize for a rate or `len` below 1, for `step`
 * or `height` below 1, and for more rows than there are filters; ::moxErrBadArg for `rollf` and
 * `alpha` out of range, and where no `int` tells the size.
 * @{ */
MOX_API MoxStatus moxsResamplePolyphaseFixedGetSize_32f(int inRate, int outRate, int len, int* size,
                                                        int* filterLen, int* numFilters, int hint);
MOX_API MoxStatus moxsResamplePolyphaseFixedGetSize_16s(int inRate, int outRate, int len, int* size,
                                                        int* filterLen, int* numFilters, int hint);
MOX_API MoxStatus moxsResamplePolyphaseFixedInit_32f(int inRate, int outRate, int len, Mox32f rollf,
                                                     Mox32f alpha,
                                                     MoxsResamplePolyphaseFixedState* state,
                                                     int hint);
MOX_API MoxStatus moxsResamplePolyphaseFixedInit_16s(int inRate, int outRate, int len, Mox32f rollf,
                                                     Mox32f alpha,
                                                     MoxsResamplePolyphaseFixedState* state,
                                                     int hint);
MOX_API MoxStatus moxsResamplePolyphaseGetFixedFilter_32f(
    Mox32f* dst, int step, int height, const MoxsResamplePolyphaseFixedState* state);
MOX_API MoxStatus moxsResamplePolyphaseGetFixedFilter_16s(
    Mox16s* dst, int step, int height, const MoxsResamplePolyphaseFixedState* state);
MOX_API MoxStatus moxsResamplePolyphaseSetFixedFilter_32f(const Mox32f* src, int step, int height,
                                                          MoxsResamplePolyphaseFixedState* state);
MOX_API MoxStatus moxsResamplePolyphaseSetFixedFilter_16s(const Mox16s* src, int step, int height,
                                                          MoxsResamplePolyphaseFixedState* state);
/** @} */

/** @defgroup resample_fixed ResamplePolyphaseFixed
 * @ingroup topic_resampling
 * Resampling by a fixed ratio: an output is one dot product. With w = floor(time) and
 * p = trunc((time - w) outRate + 1/2), where `inRate` and `outRate` are free of common factors:
 *
 *     output k stands at w + (p + k inRate) / outRate, for all below w + len
 *
 * It reads filterLen / 2 samples on either side. `norm` multiplies the outputs. `outLen` is where
 * their number is stored, and `time` where the next position is, *counted from sample w*: with
 * `time` below 1, a block goes on where the last one ended by moving `src` on by the whole samples
 * of `time`, and lowering `time` as much.
 *
 * @return ::moxErrNullPtr for a null pointer; ::moxErrSize for `len` below 1 and for more than
 * 2^31 - 1 outputs; ::moxErrBadArg for a `time` that is no number or beyond 2^30 either way.
 * @note 16-bit outputs are rounded to nearest and saturated. A signal cut into blocks gives the
 * same bits. Quality and speed stand in docs/resampling.md.
 * @{ */
MOX_API MoxStatus moxsResamplePolyphaseFixed_32f(const Mox32f* src, int len, Mox32f* dst,
                                                 Mox32f norm, Mox64f* time, int* outLen,
                                                 const MoxsResamplePolyphaseFixedState* state);
MOX_API MoxStatus moxsResamplePolyphaseFixed_16s(const Mox16s* src, int len, Mox16s* dst,
                                                 Mox32f norm, Mox64f* time, int* outLen,
                                                 const MoxsResamplePolyphaseFixedState* state);
/** @} */

#endif
