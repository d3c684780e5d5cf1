/**
 * @file
 * Convolution and correlation.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox32f here[4] = {0, 1, 2, 1}, there[6] = {0, 0, 0, 1, 2, 1};
 *   Mox32f y[9];
 *   moxsConv_32f(here, 4, there, 6, y);
 *   for (int i = 0; i < 9; ++i) printf("%g ", y[i]);  // 0 0 0 0 1 4 6 4 1
 *   moxsCrossCorr_32f(here, 4, there, 6, y, 4, 0);    // at the lags 0 to 3
 *   for (int i = 0; i < 4; ++i) printf("%g ", y[i]);  // 1 4 6 4
 * }
 * @endcode
 */
#ifndef MOXSP_CORR_H
#define MOXSP_CORR_H

#include <moxsp/types.h>

/**
 * @page corr_methods Sums and transforms
 * Convolutions and correlations are sums of products, or they go by FFT:
 *
 * | Function         | By FFT where                                                             |
 * |------------------|--------------------------------------------------------------------------|
 * | Conv, Convolve   | the shorter signal has 64 elements or more, and the result 512 or more   |
 * | AutoCorr         | 856 lags or more are below `srcLen`; 152 in `32fc`, 368 in `64fc`        |
 * | CrossCorr        | shorter * lags / longer is 384 or more; 256 in `32fc`, 512 in doubles    |
 * | CrossCorr_16s64s | never                                                                    |
 *
 * For CrossCorr, lags at which the signals don't overlap don't count, and the quotient is one of
 * `Mox32f`.
 *
 * Signals of which the longer has 3 times the elements of the shorter, or more, are transformed
 * section by section, by 2^(s + 1) points where 2^s is at least twice the shorter; others whole.
 *
 * `algType` of Convolve, AutoCorrNorm and CrossCorrNorm chooses: ::moxAlgAuto by the table,
 * ::moxAlgDirect or ::moxAlgFft. They compute in a `buffer` that the caller has, at any address;
 * the other functions take memory for each call that goes by FFT, and for 16-bit signals.
 *
 * Errors of the sums, with n terms, are below `(n + 2) u sum of |terms|`, where u is 2^-24 or
 * 2^-53. Those of transforms of N points are of the order of `u log2(N)` times the product of the
 * norms of both signals, in each output, however small it is. Terms beyond the ends of a
 * signal are left out by sums, while a transform spreads NaN and infinity over all outputs.
 *
 * 16-bit signals become `Mox32f`, and results are those of `32f`, times 2^-scaleFactor, rounded to
 * nearest with ties to even, and saturated. They are exact before they are scaled as long as the
 * sum of the magnitudes of the terms is at most 2^24 and no transform runs.
 */

/** @defgroup conv Conv
 * @ingroup topic_corr
 * Linear convolution, `dst[n] = sum over k of src1[k] * src2[n - k]`, for 0 <= n < len1 + len2 - 1.
 * `dst` overlaps neither source. Convolve is the same in a buffer of the caller's
 * (@ref corr_methods); ConvolveGetBufferSize tells its bytes.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for a length below 1, then
 * ::moxErrAlgType for `algType` above 2, then ::moxErrDataType for `dataType` other than
 * ::moxType32f and ::moxType64f, in which case the size becomes 0. ::moxErrFftOrder where the
 * signals are too long for a transform, with the size 0, too. Conv: ::moxErrMemAlloc without
 * memory.
 * @{ */
MOX_API MoxStatus moxsConv_32f(const Mox32f* src1, int len1, const Mox32f* src2, int len2,
                               Mox32f* dst);
MOX_API MoxStatus moxsConv_64f(const Mox64f* src1, int len1, const Mox64f* src2, int len2,
                               Mox64f* dst);
MOX_API MoxStatus moxsConv_16s_Sfs(const Mox16s* src1, int len1, const Mox16s* src2, int len2,
                                   Mox16s* dst, int scaleFactor);
MOX_API MoxStatus moxsConvolve_32f(const Mox32f* src1, int len1, const Mox32f* src2, int len2,
                                   Mox32f* dst, Mox8u algType, Mox8u* buffer);
MOX_API MoxStatus moxsConvolve_64f(const Mox64f* src1, int len1, const Mox64f* src2, int len2,
                                   Mox64f* dst, Mox8u algType, Mox8u* buffer);
MOX_API MoxStatus moxsConvolveGetBufferSize(int len1, int len2, int dataType, Mox8u algType,
                                            int* bufferSize);
/** @} */

/** @defgroup convbiased ConvBiased
 * @ingroup topic_corr
 * `dstLen` elements of a linear convolution from `bias` on, which may be below 0 or beyond its end:
 * `dst[n] = sum over k of src1[k] * src2[n + bias - k]`, where terms outside of the signals are
 * left out. Always a sum of products, see @ref corr_methods.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for a length below 1.
 * @{ */
MOX_API MoxStatus moxsConvBiased_32f(const Mox32f* src1, int len1, const Mox32f* src2, int len2,
                                     Mox32f* dst, int dstLen, int bias);
/** @} */

/** @defgroup convcyclic ConvCyclic
 * @ingroup topic_corr
 * Cyclic convolution of 8 or 4 elements, `y[n] = sum over k of x[k] * h[(n - k) mod N]`. `y` may be
 * `x` or `h`. Floats are summed in the order of k. Those of 16 bits are summed modulo 2^32, into
 * the range of a signed integer, times 2^-scaleFactor, where `scaleFactor` is taken as -31 to 31,
 * rounded to nearest with ties to even, and saturated.
 *
 * @return ::moxErrNullPtr for a null pointer.
 * @{ */
MOX_API MoxStatus moxsConvCyclic8x8_32f(const Mox32f* x, const Mox32f* h, Mox32f* y);
MOX_API MoxStatus moxsConvCyclic8x8_16s_Sfs(const Mox16s* x, const Mox16s* h, Mox16s* y,
                                            int scaleFactor);
MOX_API MoxStatus moxsConvCyclic4x4_32f32fc(const Mox32f* x, const Mox32fc* h, Mox32fc* y);
/** @} */

/** @defgroup autocorr AutoCorr
 * @ingroup topic_corr
 * Autocorrelation, `dst[n] = sum over k of conj(src[k]) * src[k + n]`, for 0 <= n < dstLen. Terms
 * outside of the signal are left out; from `srcLen` on outputs are 0. NormA divides by `srcLen`:
 * it multiplies by 1 / srcLen. NormB divides by the number of terms, srcLen - n. `dst` doesn't
 * overlap `src`. How sums are made and 16-bit signals handled is told in @ref corr_methods.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for a length below 1;
 * ::moxErrFftOrder where the signal is too long for a transform, ::moxErrMemAlloc without memory.
 * @{ */
MOX_API MoxStatus moxsAutoCorr_32f(const Mox32f* src, int srcLen, Mox32f* dst, int dstLen);
MOX_API MoxStatus moxsAutoCorr_32fc(const Mox32fc* src, int srcLen, Mox32fc* dst, int dstLen);
MOX_API MoxStatus moxsAutoCorr_64f(const Mox64f* src, int srcLen, Mox64f* dst, int dstLen);
MOX_API MoxStatus moxsAutoCorr_64fc(const Mox64fc* src, int srcLen, Mox64fc* dst, int dstLen);
MOX_API MoxStatus moxsAutoCorr_16s_Sfs(const Mox16s* src, int srcLen, Mox16s* dst, int dstLen,
                                       int scaleFactor);
MOX_API MoxStatus moxsAutoCorr_NormA_32f(const Mox32f* src, int srcLen, Mox32f* dst, int dstLen);
MOX_API MoxStatus moxsAutoCorr_NormA_32fc(const Mox32fc* src, int srcLen, Mox32fc* dst, int dstLen);
MOX_API MoxStatus moxsAutoCorr_NormA_64f(const Mox64f* src, int srcLen, Mox64f* dst, int dstLen);
MOX_API MoxStatus moxsAutoCorr_NormA_64fc(const Mox64fc* src, int srcLen, Mox64fc* dst, int dstLen);
MOX_API MoxStatus moxsAutoCorr_NormA_16s_Sfs(const Mox16s* src, int srcLen, Mox16s* dst, int dstLen,
                                             int scaleFactor);
MOX_API MoxStatus moxsAutoCorr_NormB_32f(const Mox32f* src, int srcLen, Mox32f* dst, int dstLen);
MOX_API MoxStatus moxsAutoCorr_NormB_32fc(const Mox32fc* src, int srcLen, Mox32fc* dst, int dstLen);
MOX_API MoxStatus moxsAutoCorr_NormB_64f(const Mox64f* src, int srcLen, Mox64f* dst, int dstLen);
MOX_API MoxStatus moxsAutoCorr_NormB_64fc(const Mox64fc* src, int srcLen, Mox64fc* dst, int dstLen);
MOX_API MoxStatus moxsAutoCorr_NormB_16s_Sfs(const Mox16s* src, int srcLen, Mox16s* dst, int dstLen,
                                             int scaleFactor);
/** @} */

/** @defgroup autocorrnorm AutoCorrNorm
 * @ingroup topic_corr
 * AutoCorr with the method and the normalisation in `algType`, such as `moxAlgFft | moxAlgNormB`,
 * in a buffer of the caller's, whose bytes GetBufferSize tells (@ref corr_methods).
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for a length below 1, then
 * ::moxErrAlgType for a low byte of `algType` above 2. A second byte other than 0, 1 and 2 gives
 * ::moxErrAlgType as well: GetBufferSize stores nothing then, but AutoCorrNorm has stored the sums
 * by that time. ::moxErrFftOrder where the signal is too long for a transform. GetBufferSize:
 * ::moxErrDataType for `dataType` other than ::moxType32f, ::moxType32fc, ::moxType64f and
 * ::moxType64fc.
 * @{ */
MOX_API MoxStatus moxsAutoCorrNorm_32f(const Mox32f* src, int srcLen, Mox32f* dst, int dstLen,
                                       int algType, Mox8u* buffer);
MOX_API MoxStatus moxsAutoCorrNorm_32fc(const Mox32fc* src, int srcLen, Mox32fc* dst, int dstLen,
                                        int algType, Mox8u* buffer);
MOX_API MoxStatus moxsAutoCorrNorm_64f(const Mox64f* src, int srcLen, Mox64f* dst, int dstLen,
                                       int algType, Mox8u* buffer);
MOX_API MoxStatus moxsAutoCorrNorm_64fc(const Mox64fc* src, int srcLen, Mox64fc* dst, int dstLen,
                                        int algType, Mox8u* buffer);
MOX_API MoxStatus moxsAutoCorrNormGetBufferSize(int srcLen, int dstLen, int dataType, int algType,
                                                int* bufferSize);
/** @} */

/** @defgroup crosscorr CrossCorr
 * @ingroup topic_corr
 * Cross-correlation, `dst[n] = sum over k of conj(src1[k]) * src2[k + n + lowLag]`, for
 * 0 <= n < dstLen. Terms outside of the signals are left out; where there is none the output is 0.
 * `dst` overlaps neither source. How sums are made and 16-bit signals handled is told in
 * @ref corr_methods. `16s64s` is exact.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for a length below 1;
 * ::moxErrFftOrder where the signals are too long for a transform, ::moxErrMemAlloc without memory.
 * @{ */
MOX_API MoxStatus moxsCrossCorr_32f(const Mox32f* src1, int len1, const Mox32f* src2, int len2,
                                    Mox32f* dst, int dstLen, int lowLag);
MOX_API MoxStatus moxsCrossCorr_32fc(const Mox32fc* src1, int len1, const Mox32fc* src2, int len2,
                                     Mox32fc* dst, int dstLen, int lowLag);
MOX_API MoxStatus moxsCrossCorr_64f(const Mox64f* src1, int len1, const Mox64f* src2, int len2,
                                    Mox64f* dst, int dstLen, int lowLag);
MOX_API MoxStatus moxsCrossCorr_64fc(const Mox64fc* src1, int len1, const Mox64fc* src2, int len2,
                                     Mox64fc* dst, int dstLen, int lowLag);
MOX_API MoxStatus moxsCrossCorr_16s_Sfs(const Mox16s* src1, int len1, const Mox16s* src2, int len2,
                                        Mox16s* dst, int dstLen, int lowLag, int scaleFactor);
MOX_API MoxStatus moxsCrossCorr_16s64s(const Mox16s* src1, int len1, const Mox16s* src2, int len2,
                                       Mox64s* dst, int dstLen, int lowLag);
/** @} */

/** @defgroup crosscorrnorm CrossCorrNorm
 * @ingroup topic_corr
 * CrossCorr with the method and the normalisation in `algType`, such as `moxAlgFft | moxAlgNormA`,
 * in a buffer of the caller's, whose bytes GetBufferSize tells (@ref corr_methods). Where it tells
 * 0, `buffer` may be null. ::moxAlgNormA divides by the length of the shorter signal, as a product
 * with its reciprocal. ::moxAlgNormB divides by the number of terms: where that is the length of
 * the shorter signal, again as a product.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for a length below 1, then
 * ::moxErrAlgType for a low byte of `algType` above 2, then ::moxErrNullPtr for a null buffer where
 * bytes are needed. A second byte other than 0, 1 and 2 gives ::moxErrAlgType as well:
 * GetBufferSize stores nothing then, but CrossCorrNorm has stored the sums by that time.
 * ::moxErrFftOrder where the signals are too long for a transform. GetBufferSize: ::moxErrDataType
 * for `dataType` other than ::moxType32f, ::moxType32fc, ::moxType64f and ::moxType64fc.
 * @{ */
MOX_API MoxStatus moxsCrossCorrNorm_32f(const Mox32f* src1, int len1, const Mox32f* src2, int len2,
                                        Mox32f* dst, int dstLen, int lowLag, int algType,
                                        Mox8u* buffer);
MOX_API MoxStatus moxsCrossCorrNorm_32fc(const Mox32fc* src1, int len1, const Mox32fc* src2,
                                         int len2, Mox32fc* dst, int dstLen, int lowLag,
                                         int algType, Mox8u* buffer);
MOX_API MoxStatus moxsCrossCorrNorm_64f(const Mox64f* src1, int len1, const Mox64f* src2, int len2,
                                        Mox64f* dst, int dstLen, int lowLag, int algType,
                                        Mox8u* buffer);
MOX_API MoxStatus moxsCrossCorrNorm_64fc(const Mox64fc* src1, int len1, const Mox64fc* src2,
                                         int len2, Mox64fc* dst, int dstLen, int lowLag,
                                         int algType, Mox8u* buffer);
MOX_API MoxStatus moxsCrossCorrNormGetBufferSize(int len1, int len2, int dstLen, int lowLag,
                                                 int dataType, int algType, int* bufferSize);
/** @} */

#endif
