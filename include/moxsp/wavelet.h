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

#endif
