/**
 * @file
 * Window functions.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   Mox32f x[5] = {1, 1, 1, 1, 1};
 *   moxsWinHann_32f_I(x, 5);
 *   for (int i = 0; i < 5; ++i) printf("%g ", x[i]);  // 0 0.5 1 0.5 0
 * }
 * @endcode
 */
#ifndef MOXSP_WINDOWS_H
#define MOXSP_WINDOWS_H

#include <moxsp/types.h>

/**
 * @page windows About all windows
 * A window multiplies the elements n and `len - 1 - n` by the weight w(n), for n from 0 to
 * `len / 2 - 1`; both parts of a complex element by the same. The element in the middle of an odd
 * length is copied. Below, N = `len` and t = 2 pi / (N - 1). Each call computes the weights anew
 * and allocates nothing. `dst` may be `src`, as in the `_I` forms.
 *
 * With a `len` of 3 the first and the last element become 0, except under Hamming and Kaiser.
 *
 * Weights are in `Mox64f` for `64f` and `64fc`, else in `Mox32f`. The cosines are those of the
 * angles n t within 40 * 2^-53, for every length: they come from a rotation that starts anew every
 * 1024 elements. Products of 16-bit elements are rounded to nearest with ties to even, and
 * saturated.
 */

/** @defgroup winbartlett WinBartlett
 * @ingroup topic_windows
 * The triangle w(n) = 2 n / (N - 1). See @ref windows.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 3.
 * @note The weights are sums of equal steps: in each lane of a register of 32 bytes one step for
 * every such register. They are within 2^-24 (4 + 0.08 N) of the formula, in double precision
 * within 2^-53 (4 + 0.08 N).
 * @{ */
MOX_API MoxStatus moxsWinBartlett_16s(const Mox16s* src, Mox16s* dst, int len);
MOX_API MoxStatus moxsWinBartlett_16s_I(Mox16s* srcDst, int len);
MOX_API MoxStatus moxsWinBartlett_16sc(const Mox16sc* src, Mox16sc* dst, int len);
MOX_API MoxStatus moxsWinBartlett_16sc_I(Mox16sc* srcDst, int len);
MOX_API MoxStatus moxsWinBartlett_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsWinBartlett_32f_I(Mox32f* srcDst, int len);
MOX_API MoxStatus moxsWinBartlett_32fc(const Mox32fc* src, Mox32fc* dst, int len);
MOX_API MoxStatus moxsWinBartlett_32fc_I(Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsWinBartlett_64f(const Mox64f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsWinBartlett_64f_I(Mox64f* srcDst, int len);
MOX_API MoxStatus moxsWinBartlett_64fc(const Mox64fc* src, Mox64fc* dst, int len);
MOX_API MoxStatus moxsWinBartlett_64fc_I(Mox64fc* srcDst, int len);
/** @} */

/** @defgroup winhann WinHann and WinHamming
 * @ingroup topic_windows
 * Hann: w(n) = 0.5 - 0.5 cos(n t). Hamming: w(n) = 0.54 - 0.46 cos(n t). See @ref windows.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 3.
 * @note The weights are within 40 * 2^-53 of the formula, before they are rounded to their type. Of
 * 16 bits, the constants, the products with the cosines and the differences are each rounded to
 * `Mox32f`, which makes weights within 1.3 * 2^-24.
 * @{ */
MOX_API MoxStatus moxsWinHamming_16s(const Mox16s* src, Mox16s* dst, int len);
MOX_API MoxStatus moxsWinHamming_16s_I(Mox16s* srcDst, int len);
MOX_API MoxStatus moxsWinHamming_16sc(const Mox16sc* src, Mox16sc* dst, int len);
MOX_API MoxStatus moxsWinHamming_16sc_I(Mox16sc* srcDst, int len);
MOX_API MoxStatus moxsWinHamming_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsWinHamming_32f_I(Mox32f* srcDst, int len);
MOX_API MoxStatus moxsWinHamming_32fc(const Mox32fc* src, Mox32fc* dst, int len);
MOX_API MoxStatus moxsWinHamming_32fc_I(Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsWinHamming_64f(const Mox64f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsWinHamming_64f_I(Mox64f* srcDst, int len);
MOX_API MoxStatus moxsWinHamming_64fc(const Mox64fc* src, Mox64fc* dst, int len);
MOX_API MoxStatus moxsWinHamming_64fc_I(Mox64fc* srcDst, int len);
MOX_API MoxStatus moxsWinHann_16s(const Mox16s* src, Mox16s* dst, int len);
MOX_API MoxStatus moxsWinHann_16s_I(Mox16s* srcDst, int len);
MOX_API MoxStatus moxsWinHann_16sc(const Mox16sc* src, Mox16sc* dst, int len);
MOX_API MoxStatus moxsWinHann_16sc_I(Mox16sc* srcDst, int len);
MOX_API MoxStatus moxsWinHann_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsWinHann_32f_I(Mox32f* srcDst, int len);
MOX_API MoxStatus moxsWinHann_32fc(const Mox32fc* src, Mox32fc* dst, int len);
MOX_API MoxStatus moxsWinHann_32fc_I(Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsWinHann_64f(const Mox64f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsWinHann_64f_I(Mox64f* srcDst, int len);
MOX_API MoxStatus moxsWinHann_64fc(const Mox64fc* src, Mox64fc* dst, int len);
MOX_API MoxStatus moxsWinHann_64fc_I(Mox64fc* srcDst, int len);
/** @} */

/** @defgroup winblackman WinBlackman
 * @ingroup topic_windows
 * w(n) = (alpha + 1) / 2 - 0.5 cos(n t) - alpha / 2 cos(2 n t). `Std` has alpha = -0.16, and `Opt`
 * the alpha with which side lobes fall fastest, -(0.5 / cos(t / 2))^2, rounded to the type of the
 * weights. `Q15` takes alpha in units of 2^-15. The `Sfs` form multiplies all elements, that in the
 * middle too, by 2^-scaleFactor before they are rounded; every factor is valid. See @ref windows.
 *
 * In `32f` and `32fc` the first and the last element become 0, whatever they were.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 3. `Opt` looks first
 * at the length: ::moxErrSize for `len` below 4.
 * @note With s = 1 + 4 |alpha| the weights are within 40 * 2^-53 s of the formula for `64f` and
 * `64fc`, and within 2^-24 (4 s - 1) for the others; for `32f` and `32fc` of more than 1025
 * elements they are in double precision, and the product is rounded once. With `Sfs` the one in the
 * middle of three has ties away from zero.
 * @{ */
MOX_API MoxStatus moxsWinBlackman_16s(const Mox16s* src, Mox16s* dst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinBlackman_16s_I(Mox16s* srcDst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinBlackman_16sc(const Mox16sc* src, Mox16sc* dst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinBlackman_16sc_I(Mox16sc* srcDst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinBlackman_32f(const Mox32f* src, Mox32f* dst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinBlackman_32f_I(Mox32f* srcDst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinBlackman_32fc(const Mox32fc* src, Mox32fc* dst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinBlackman_32fc_I(Mox32fc* srcDst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinBlackman_64f(const Mox64f* src, Mox64f* dst, int len, Mox64f alpha);
MOX_API MoxStatus moxsWinBlackman_64f_I(Mox64f* srcDst, int len, Mox64f alpha);
MOX_API MoxStatus moxsWinBlackman_64fc(const Mox64fc* src, Mox64fc* dst, int len, Mox64f alpha);
MOX_API MoxStatus moxsWinBlackman_64fc_I(Mox64fc* srcDst, int len, Mox64f alpha);
MOX_API MoxStatus moxsWinBlackmanStd_16s(const Mox16s* src, Mox16s* dst, int len);
MOX_API MoxStatus moxsWinBlackmanStd_16s_I(Mox16s* srcDst, int len);
MOX_API MoxStatus moxsWinBlackmanStd_16sc(const Mox16sc* src, Mox16sc* dst, int len);
MOX_API MoxStatus moxsWinBlackmanStd_16sc_I(Mox16sc* srcDst, int len);
MOX_API MoxStatus moxsWinBlackmanStd_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsWinBlackmanStd_32f_I(Mox32f* srcDst, int len);
MOX_API MoxStatus moxsWinBlackmanStd_32fc(const Mox32fc* src, Mox32fc* dst, int len);
MOX_API MoxStatus moxsWinBlackmanStd_32fc_I(Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsWinBlackmanStd_64f(const Mox64f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsWinBlackmanStd_64f_I(Mox64f* srcDst, int len);
MOX_API MoxStatus moxsWinBlackmanStd_64fc(const Mox64fc* src, Mox64fc* dst, int len);
MOX_API MoxStatus moxsWinBlackmanStd_64fc_I(Mox64fc* srcDst, int len);
MOX_API MoxStatus moxsWinBlackmanOpt_16s(const Mox16s* src, Mox16s* dst, int len);
MOX_API MoxStatus moxsWinBlackmanOpt_16s_I(Mox16s* srcDst, int len);
MOX_API MoxStatus moxsWinBlackmanOpt_16sc(const Mox16sc* src, Mox16sc* dst, int len);
MOX_API MoxStatus moxsWinBlackmanOpt_16sc_I(Mox16sc* srcDst, int len);
MOX_API MoxStatus moxsWinBlackmanOpt_32f(const Mox32f* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsWinBlackmanOpt_32f_I(Mox32f* srcDst, int len);
MOX_API MoxStatus moxsWinBlackmanOpt_32fc(const Mox32fc* src, Mox32fc* dst, int len);
MOX_API MoxStatus moxsWinBlackmanOpt_32fc_I(Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsWinBlackmanOpt_64f(const Mox64f* src, Mox64f* dst, int len);
MOX_API MoxStatus moxsWinBlackmanOpt_64f_I(Mox64f* srcDst, int len);
MOX_API MoxStatus moxsWinBlackmanOpt_64fc(const Mox64fc* src, Mox64fc* dst, int len);
MOX_API MoxStatus moxsWinBlackmanOpt_64fc_I(Mox64fc* srcDst, int len);
MOX_API MoxStatus moxsWinBlackmanQ15_16s(const Mox16s* src, Mox16s* dst, int len, int alphaQ15);
MOX_API MoxStatus moxsWinBlackmanQ15_16s_I(Mox16s* srcDst, int len, int alphaQ15);
MOX_API MoxStatus moxsWinBlackmanQ15_16sc(const Mox16sc* src, Mox16sc* dst, int len, int alphaQ15);
MOX_API MoxStatus moxsWinBlackmanQ15_16sc_I(Mox16sc* srcDst, int len, int alphaQ15);
MOX_API MoxStatus moxsWinBlackmanQ15_16s_ISfs(Mox16s* srcDst, int len, int alphaQ15,
                                              int scaleFactor);
/** @} */

/** @defgroup winkaiser WinKaiser
 * @ingroup topic_windows
 * w(n) = I0(alpha sqrt(n (N - 1 - n))) / I0(p) with p = |alpha| (N - 1) / 2 and the modified Bessel
 * function I0. `Q15` takes alpha in units of 2^-15. With one element the window is a copy. An
 * alpha that is NaN is not refused, and leaves the result open. See @ref windows.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1, then
 * ::moxErrKaiserAlpha for p above 38 in `32f` and `32fc`, above 308 in the others.
 * @note The weights are within 2^-24 (3 + 2.5 p) of the formula in `32f`, `32fc` and 16 bits, but
 * within 2e-6 in 16 bits for p above 38; in double precision within 6e-6, by which the series of I0
 * is off for arguments from 4 to 5. Source: Abramowitz and Stegun, Handbook of Mathematical
 * Functions, 9.8.1 and 9.8.2.
 * @{ */
MOX_API MoxStatus moxsWinKaiser_16s(const Mox16s* src, Mox16s* dst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinKaiser_16s_I(Mox16s* srcDst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinKaiser_16sc(const Mox16sc* src, Mox16sc* dst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinKaiser_16sc_I(Mox16sc* srcDst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinKaiser_32f(const Mox32f* src, Mox32f* dst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinKaiser_32f_I(Mox32f* srcDst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinKaiser_32fc(const Mox32fc* src, Mox32fc* dst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinKaiser_32fc_I(Mox32fc* srcDst, int len, Mox32f alpha);
MOX_API MoxStatus moxsWinKaiser_64f(const Mox64f* src, Mox64f* dst, int len, Mox64f alpha);
MOX_API MoxStatus moxsWinKaiser_64f_I(Mox64f* srcDst, int len, Mox64f alpha);
MOX_API MoxStatus moxsWinKaiser_64fc(const Mox64fc* src, Mox64fc* dst, int len, Mox64f alpha);
MOX_API MoxStatus moxsWinKaiser_64fc_I(Mox64fc* srcDst, int len, Mox64f alpha);
MOX_API MoxStatus moxsWinKaiserQ15_16s(const Mox16s* src, Mox16s* dst, int len, int alphaQ15);
MOX_API MoxStatus moxsWinKaiserQ15_16s_I(Mox16s* srcDst, int len, int alphaQ15);
MOX_API MoxStatus moxsWinKaiserQ15_16sc(const Mox16sc* src, Mox16sc* dst, int len, int alphaQ15);
MOX_API MoxStatus moxsWinKaiserQ15_16sc_I(Mox16sc* srcDst, int len, int alphaQ15);
/** @} */

#endif
