/**
 * @file
 * Wavelet transforms.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   Mox32f x[6] = {1, 3, 5, 9, 2, 2}, low[3], high[3];
 *   moxsWTHaarFwd_32f(x, 6, low, high);
 *   for (int i = 0; i < 3; ++i) printf("%g ", low[i]);   // 2 7 2
 *   for (int i = 0; i < 3; ++i) printf("%g ", high[i]);  // 1 2 0
 *   moxsWTHaarInv_32f(low, high, x, 6);
 *   for (int i = 0; i < 6; ++i) printf("%g ", x[i]);  // 1 3 5 9 2 2
 * }
 * @endcode
 */
#ifndef MOXSP_WAVELET_H
#define MOXSP_WAVELET_H

#include <moxsp/types.h>

/** A forward filter bank: taps and delay lines. One thread at a time. */
typedef struct MoxWTFwdState MoxWTFwdState;
/** An inverse filter bank. */
typedef struct MoxWTInvState MoxWTInvState;

/** @defgroup haar WTHaarFwd, WTHaarInv
 * @ingroup topic_wavelets
 * One level of the Haar transform. `len` counts the elements of the signal; the low band has
 * (len + 1) / 2, the high band len / 2. With x0 = src[2k], x1 = src[2k + 1] and l, h in the bands:
 *
 * | Types    | Forward                                  | Inverse            |
 * |----------|------------------------------------------|--------------------|
 * | floats   | `h = (x1 - x0) / 2`, `l = x0 + h`        | `l - h`, `l + h`   |
 * | integers | `l = (x0 + x1) / 2`, `h = (x1 - x0) / 2` | `l - h`, `l + h`   |
 * | with Sfs | those of integers times 2^-scaleFactor   | likewise           |
 *
 * Floats are computed in their own type, operation by operation. Integers are exact before they are
 * rounded, once, to nearest with ties to even, and saturated. A signal of odd length has its last
 * element x in the low band as it is, in integers times 2^-scaleFactor, and the inverse likewise;
 * a single element is copied, whatever the factor.
 *
 * The inverse of integers gives back what the plain forward transform was given, or a neighbour of
 * it, one unit away. A forward transform with `scaleFactor` is undone by an inverse with
 * -scaleFactor, up to 2^scaleFactor, as far as nothing saturates.
 *
 * `moxsWTHaarFwd_32s` takes a pair with x0 below -2^31 + 2 and x1 above 2^31 - 3 as the pair of
 * both limits, of which h is 2^31 - 1 and l is 0.
 *
 * Results are defined to the bit. Destinations overlap no source.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsWTHaarFwd_8s(const Mox8s* src, int len, Mox8s* dstLow, Mox8s* dstHigh);
MOX_API MoxStatus moxsWTHaarFwd_8s_Sfs(const Mox8s* src, int len, Mox8s* dstLow, Mox8s* dstHigh,
                                       int scaleFactor);
MOX_API MoxStatus moxsWTHaarFwd_16s(const Mox16s* src, int len, Mox16s* dstLow, Mox16s* dstHigh);
MOX_API MoxStatus moxsWTHaarFwd_16s_Sfs(const Mox16s* src, int len, Mox16s* dstLow, Mox16s* dstHigh,
                                        int scaleFactor);
MOX_API MoxStatus moxsWTHaarFwd_32s(const Mox32s* src, int len, Mox32s* dstLow, Mox32s* dstHigh);
MOX_API MoxStatus moxsWTHaarFwd_32s_Sfs(const Mox32s* src, int len, Mox32s* dstLow, Mox32s* dstHigh,
                                        int scaleFactor);
MOX_API MoxStatus moxsWTHaarFwd_64s(const Mox64s* src, int len, Mox64s* dstLow, Mox64s* dstHigh);
MOX_API MoxStatus moxsWTHaarFwd_64s_Sfs(const Mox64s* src, int len, Mox64s* dstLow, Mox64s* dstHigh,
                                        int scaleFactor);
MOX_API MoxStatus moxsWTHaarFwd_32f(const Mox32f* src, int len, Mox32f* dstLow, Mox32f* dstHigh);
MOX_API MoxStatus moxsWTHaarFwd_64f(const Mox64f* src, int len, Mox64f* dstLow, Mox64f* dstHigh);
MOX_API MoxStatus moxsWTHaarInv_8s(const Mox8s* srcLow, const Mox8s* srcHigh, Mox8s* dst, int len);
MOX_API MoxStatus moxsWTHaarInv_8s_Sfs(const Mox8s* srcLow, const Mox8s* srcHigh, Mox8s* dst,
                                       int len, int scaleFactor);
MOX_API MoxStatus moxsWTHaarInv_16s(const Mox16s* srcLow, const Mox16s* srcHigh, Mox16s* dst,
                                    int len);
MOX_API MoxStatus moxsWTHaarInv_16s_Sfs(const Mox16s* srcLow, const Mox16s* srcHigh, Mox16s* dst,
                                        int len, int scaleFactor);
MOX_API MoxStatus moxsWTHaarInv_32s(const Mox32s* srcLow, const Mox32s* srcHigh, Mox32s* dst,
                                    int len);
MOX_API MoxStatus moxsWTHaarInv_32s_Sfs(const Mox32s* srcLow, const Mox32s* srcHigh, Mox32s* dst,
                                        int len, int scaleFactor);
MOX_API MoxStatus moxsWTHaarInv_64s(const Mox64s* srcLow, const Mox64s* srcHigh, Mox64s* dst,
                                    int len);
MOX_API MoxStatus moxsWTHaarInv_64s_Sfs(const Mox64s* srcLow, const Mox64s* srcHigh, Mox64s* dst,
                                        int len, int scaleFactor);
MOX_API MoxStatus moxsWTHaarInv_32f(const Mox32f* srcLow, const Mox32f* srcHigh, Mox32f* dst,
                                    int len);
MOX_API MoxStatus moxsWTHaarInv_64f(const Mox64f* srcLow, const Mox64f* srcHigh, Mox64f* dst,
                                    int len);
/** @} */

/** @defgroup wt_state WTFwdInitAlloc, WTInvInitAlloc
 * @ingroup topic_wavelets
 * Filter banks of two channels, whose taps are copied, and whose delay lines start with silence.
 * A name ends with the type of the signal, and `32f` for the bands. An offset of -1 or above delays
 * a channel, see @ref wt. `Free` releases a bank.
 *
 * @return InitAlloc: ::moxErrNullPtr for a null `stateOut` or `tapsLow`, then ::moxErrSize for
 * `lenLow` below 1, then the same for `tapsHigh` and `lenHigh`, then ::moxErrWtOffset for an offset
 * below -1, then ::moxErrMemAlloc without memory, where `stateOut` becomes null. Free:
 * ::moxErrNullPtr for a null state, ::moxErrContext for one of another type.
 * @{ */
MOX_API MoxStatus moxsWTFwdInitAlloc_32f(MoxWTFwdState** stateOut, const Mox32f* tapsLow,
                                         int lenLow, int offsLow, const Mox32f* tapsHigh,
                                         int lenHigh, int offsHigh);
MOX_API MoxStatus moxsWTFwdFree_32f(MoxWTFwdState* state);
MOX_API MoxStatus moxsWTFwdInitAlloc_8s32f(MoxWTFwdState** stateOut, const Mox32f* tapsLow,
                                           int lenLow, int offsLow, const Mox32f* tapsHigh,
                                           int lenHigh, int offsHigh);
MOX_API MoxStatus moxsWTFwdFree_8s32f(MoxWTFwdState* state);
MOX_API MoxStatus moxsWTFwdInitAlloc_8u32f(MoxWTFwdState** stateOut, const Mox32f* tapsLow,
                                           int lenLow, int offsLow, const Mox32f* tapsHigh,
                                           int lenHigh, int offsHigh);
MOX_API MoxStatus moxsWTFwdFree_8u32f(MoxWTFwdState* state);
MOX_API MoxStatus moxsWTFwdInitAlloc_16s32f(MoxWTFwdState** stateOut, const Mox32f* tapsLow,
                                            int lenLow, int offsLow, const Mox32f* tapsHigh,
                                            int lenHigh, int offsHigh);
MOX_API MoxStatus moxsWTFwdFree_16s32f(MoxWTFwdState* state);
MOX_API MoxStatus moxsWTFwdInitAlloc_16u32f(MoxWTFwdState** stateOut, const Mox32f* tapsLow,
                                            int lenLow, int offsLow, const Mox32f* tapsHigh,
                                            int lenHigh, int offsHigh);
MOX_API MoxStatus moxsWTFwdFree_16u32f(MoxWTFwdState* state);
MOX_API MoxStatus moxsWTInvInitAlloc_32f(MoxWTInvState** stateOut, const Mox32f* tapsLow,
                                         int lenLow, int offsLow, const Mox32f* tapsHigh,
                                         int lenHigh, int offsHigh);
MOX_API MoxStatus moxsWTInvFree_32f(MoxWTInvState* state);
MOX_API MoxStatus moxsWTInvInitAlloc_32f8s(MoxWTInvState** stateOut, const Mox32f* tapsLow,
                                           int lenLow, int offsLow, const Mox32f* tapsHigh,
                                           int lenHigh, int offsHigh);
MOX_API MoxStatus moxsWTInvFree_32f8s(MoxWTInvState* state);
MOX_API MoxStatus moxsWTInvInitAlloc_32f8u(MoxWTInvState** stateOut, const Mox32f* tapsLow,
                                           int lenLow, int offsLow, const Mox32f* tapsHigh,
                                           int lenHigh, int offsHigh);
MOX_API MoxStatus moxsWTInvFree_32f8u(MoxWTInvState* state);
MOX_API MoxStatus moxsWTInvInitAlloc_32f16s(MoxWTInvState** stateOut, const Mox32f* tapsLow,
                                            int lenLow, int offsLow, const Mox32f* tapsHigh,
                                            int lenHigh, int offsHigh);
MOX_API MoxStatus moxsWTInvFree_32f16s(MoxWTInvState* state);
MOX_API MoxStatus moxsWTInvInitAlloc_32f16u(MoxWTInvState** stateOut, const Mox32f* tapsLow,
                                            int lenLow, int offsLow, const Mox32f* tapsHigh,
                                            int lenHigh, int offsHigh);
MOX_API MoxStatus moxsWTInvFree_32f16u(MoxWTInvState* state);
/** @} */

/** @defgroup wt WTFwd, WTInv
 * @ingroup topic_wavelets
 * One stage of a wavelet transform. The forward bank makes `dstLen` samples of each band from
 * 2 dstLen of the signal x; the inverse bank makes 2 srcLen of the signal y from `srcLen` of each
 * band. With h = `tapsLow`, o = `offsLow`, and the same with the high band:
 *
 * - Forward: `low[k] = sum over j of h[j] * x[2k - o - j]`
 * - Inverse: `y[n] = sum over k of h[n - 1 - o - 2k] * low[k]`, plus that of the high band
 *
 * Samples before the first one of a block are those of the blocks before it; a stream may be cut
 * anywhere. Where the filters of both banks, of even lengths L, reconstruct perfectly, the signal
 * comes back L + o + o' samples later, where o and o' are the offsets of the forward and the
 * inverse bank: with -1 and 0, L - 1 samples. Common filters: I. Daubechies, Ten Lectures on
 * Wavelets, SIAM 1992, chapters 6 and 8.
 *
 * Sums are floats, added in the order of the taps, so that outputs don't depend on where a stream
 * is cut. The error of an output is below `(n + 2) 2^-24 sum of |terms|` with n terms. Signals of
 * integers are converted exactly; the inverse rounds to nearest, ties to even, and saturates.
 *
 * @return ::moxErrNullPtr for a null state, then ::moxErrContext for one of another type, then
 * ::moxErrNullPtr for another null pointer, then ::moxErrSize for a length below 1; but the inverse
 * tests `dst` last.
 * @{ */
MOX_API MoxStatus moxsWTFwd_32f(const Mox32f* src, Mox32f* dstLow, Mox32f* dstHigh, int dstLen,
                                MoxWTFwdState* state);
MOX_API MoxStatus moxsWTFwd_8s32f(const Mox8s* src, Mox32f* dstLow, Mox32f* dstHigh, int dstLen,
                                  MoxWTFwdState* state);
MOX_API MoxStatus moxsWTFwd_8u32f(const Mox8u* src, Mox32f* dstLow, Mox32f* dstHigh, int dstLen,
                                  MoxWTFwdState* state);
MOX_API MoxStatus moxsWTFwd_16s32f(const Mox16s* src, Mox32f* dstLow, Mox32f* dstHigh, int dstLen,
                                   MoxWTFwdState* state);
MOX_API MoxStatus moxsWTFwd_16u32f(const Mox16u* src, Mox32f* dstLow, Mox32f* dstHigh, int dstLen,
                                   MoxWTFwdState* state);
MOX_API MoxStatus moxsWTInv_32f(const Mox32f* srcLow, const Mox32f* srcHigh, int srcLen,
                                Mox32f* dst, MoxWTInvState* state);
MOX_API MoxStatus moxsWTInv_32f8s(const Mox32f* srcLow, const Mox32f* srcHigh, int srcLen,
                                  Mox8s* dst, MoxWTInvState* state);
MOX_API MoxStatus moxsWTInv_32f8u(const Mox32f* srcLow, const Mox32f* srcHigh, int srcLen,
                                  Mox8u* dst, MoxWTInvState* state);
MOX_API MoxStatus moxsWTInv_32f16s(const Mox32f* srcLow, const Mox32f* srcHigh, int srcLen,
                                   Mox16s* dst, MoxWTInvState* state);
MOX_API MoxStatus moxsWTInv_32f16u(const Mox32f* srcLow, const Mox32f* srcHigh, int srcLen,
                                   Mox16u* dst, MoxWTInvState* state);
/** @} */

/** @defgroup wt_dlyline WTFwdGetDlyLine, WTInvGetDlyLine and Set
 * @ingroup topic_wavelets
 * The delay lines of both channels: where they are set from those of another bank with the same
 * filters, the stream goes on as there. A channel of n taps and offset o has
 * max(n - 1 + o, 0) samples at the rate of the signal, the newest last. For the inverse that is the
 * band with a zero before each of its samples; what stands in the place of a zero is not looked at.
 *
 * @return ::moxErrNullPtr for a null state, then ::moxErrContext for one of another type, then
 * ::moxErrNullPtr for another null pointer.
 * @{ */
MOX_API MoxStatus moxsWTFwdGetDlyLine_32f(MoxWTFwdState* state, Mox32f* dlyLow, Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTFwdSetDlyLine_32f(MoxWTFwdState* state, const Mox32f* dlyLow,
                                          const Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTFwdGetDlyLine_8s32f(MoxWTFwdState* state, Mox32f* dlyLow, Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTFwdSetDlyLine_8s32f(MoxWTFwdState* state, const Mox32f* dlyLow,
                                            const Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTFwdGetDlyLine_8u32f(MoxWTFwdState* state, Mox32f* dlyLow, Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTFwdSetDlyLine_8u32f(MoxWTFwdState* state, const Mox32f* dlyLow,
                                            const Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTFwdGetDlyLine_16s32f(MoxWTFwdState* state, Mox32f* dlyLow, Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTFwdSetDlyLine_16s32f(MoxWTFwdState* state, const Mox32f* dlyLow,
                                             const Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTFwdGetDlyLine_16u32f(MoxWTFwdState* state, Mox32f* dlyLow, Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTFwdSetDlyLine_16u32f(MoxWTFwdState* state, const Mox32f* dlyLow,
                                             const Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTInvGetDlyLine_32f(MoxWTInvState* state, Mox32f* dlyLow, Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTInvSetDlyLine_32f(MoxWTInvState* state, const Mox32f* dlyLow,
                                          const Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTInvGetDlyLine_32f8s(MoxWTInvState* state, Mox32f* dlyLow, Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTInvSetDlyLine_32f8s(MoxWTInvState* state, const Mox32f* dlyLow,
                                            const Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTInvGetDlyLine_32f8u(MoxWTInvState* state, Mox32f* dlyLow, Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTInvSetDlyLine_32f8u(MoxWTInvState* state, const Mox32f* dlyLow,
                                            const Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTInvGetDlyLine_32f16s(MoxWTInvState* state, Mox32f* dlyLow, Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTInvSetDlyLine_32f16s(MoxWTInvState* state, const Mox32f* dlyLow,
                                             const Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTInvGetDlyLine_32f16u(MoxWTInvState* state, Mox32f* dlyLow, Mox32f* dlyHigh);
MOX_API MoxStatus moxsWTInvSetDlyLine_32f16u(MoxWTInvState* state, const Mox32f* dlyLow,
                                             const Mox32f* dlyHigh);
/** @} */

#endif
