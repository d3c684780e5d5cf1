/**
 * @file
 * Fourier-family transforms and operations on packed spectra.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox32f x[8] = {1, 0, -1, 0, 1, 0, -1, 0};  // two periods of a cosine
 *   Mox32fc spectrum[5];                             // CCS: 8 / 2 + 1 complex numbers
 *   MoxsFFTSpec* fft;
 *   if (moxsFFTInitAlloc_R_32f(&fft, 3, 8, 0) != moxOk) return 1;  // 2^3 samples, no scaling
 *   moxsFFTFwd_RToCCS_32f(x, &spectrum[0].re, fft, NULL);
 *   for (int k = 0; k < 5; ++k) printf("%g ", spectrum[k].re);  // 0 0 4 0 0
 *   moxsFFTFree_R_32f(fft);
 * }
 * @endcode
 */
#ifndef MOXSP_TRANSFORMS_H
#define MOXSP_TRANSFORMS_H

#include <moxsp/types.h>

/** A power-of-two transform: length, normalisation and tables. Read-only during runs. */
typedef struct MoxsFFTSpec MoxsFFTSpec;

/** @defgroup packed_spectra Packed spectra
 * @ingroup topic_transforms
 * How the transforms of real signals keep their result. The spectrum X[k] = R[k] + i I[k] of n real
 * samples is conjugate-symmetric, X[n - k] = conj(X[k]), so half of it tells it all; X[0] is real
 * and so is X[n/2] for even n. With pairs R[k], I[k] for 0 < k < n/2:
 *
 * | Layout | even n                                  | odd n                     | Reals    |
 * |--------|-----------------------------------------|---------------------------|----------|
 * | Perm   | R[0], R[n/2], R[1], I[1], R[2], I[2] .. | R[0], R[1], I[1] ..       | n        |
 * | Pack   | R[0], R[1], I[1], R[2], I[2] .. R[n/2]  | R[0], R[1], I[1] ..       | n        |
 * | CCS    | R[0], 0, R[1], I[1] .. R[n/2], 0        | R[0], 0, R[1], I[1] ..    | n/2+1 pairs |
 */

/** @defgroup fft_objects Objects of the FFT
 * @ingroup topic_transforms
 * A transform of N = 2^order samples. The kind behind `C_` tells how complex data lie, interleaved
 * (`32fc`, `64fc`) or in an array of real and one of imaginary parts (`32f`, `64f`); `R_` is for
 * real data. Orders go from 0 to 28 (`C_32fc`, `C_32f`), 27 (`C_64fc`, `C_64f`), 29 (`R_32f`) and
 * 28 (`R_64f`).
 *
 * `moxsFFTGetSize` tells the bytes of the object, of the scratch memory that its initialisation
 * needs, and of the work buffer of a run, each with the slack for its alignment to 64 bytes.
 * `moxsFFTInit` sets the object up in `specMem` and stores its address, which is inside `specMem`,
 * in `spec`; `initBuf` may be released when it returns, and may be null below order 11.
 * `moxsFFTInitAlloc` takes the memory itself; end with `moxsFFTFree`, which only invalidates an
 * object that lies in the caller's memory. `moxsFFTGetBufSize` tells the bytes of the work buffer
 * of a run once more.
 *
 * `flag` says where results are scaled: 1 the forward transform by 1/N, 2 the inverse by 1/N,
 * 4 both by 1/sqrt(N), 8 neither. `hint` is stored and has no effect.
 *
 * The object is only read by runs: threads may share it, each with a work buffer of its own.
 *
 * @return `moxsFFTGetSize`: ::moxErrFftOrder for an order outside 0 to 30, ::moxErrNullPtr,
 * ::moxErrFftFlag, then ::moxErrFftOrder beyond the limit of the type. `moxsFFTInit`:
 * ::moxErrNullPtr for `spec`, ::moxErrFftOrder, ::moxErrNullPtr for `specMem`, ::moxErrFftFlag,
 * ::moxErrNullPtr for an `initBuf` that is needed. `moxsFFTInitAlloc`: ::moxErrNullPtr, those of
 * `moxsFFTGetSize`, ::moxErrMemAlloc. `moxsFFTFree` and `moxsFFTGetBufSize`: ::moxErrNullPtr,
 * ::moxErrContext for an object of another kind or one that was freed. A `moxsFFTInit` that refuses
 * the flag or a missing `initBuf` has cleared the head of `specMem`, and there is no object.
 * @{ */
MOX_API MoxStatus moxsFFTGetSize_C_32fc(int order, int flag, int hint, int* specSize, int* initSize,
                                        int* workSize);
MOX_API MoxStatus moxsFFTInit_C_32fc(MoxsFFTSpec** spec, int order, int flag, int hint,
                                     Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsFFTInitAlloc_C_32fc(MoxsFFTSpec** spec, int order, int flag, int hint);
MOX_API MoxStatus moxsFFTFree_C_32fc(MoxsFFTSpec* spec);
MOX_API MoxStatus moxsFFTGetBufSize_C_32fc(const MoxsFFTSpec* spec, int* size);
MOX_API MoxStatus moxsFFTGetSize_C_32f(int order, int flag, int hint, int* specSize, int* initSize,
                                       int* workSize);
MOX_API MoxStatus moxsFFTInit_C_32f(MoxsFFTSpec** spec, int order, int flag, int hint,
                                    Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsFFTInitAlloc_C_32f(MoxsFFTSpec** spec, int order, int flag, int hint);
MOX_API MoxStatus moxsFFTFree_C_32f(MoxsFFTSpec* spec);
MOX_API MoxStatus moxsFFTGetBufSize_C_32f(const MoxsFFTSpec* spec, int* size);
MOX_API MoxStatus moxsFFTGetSize_C_64fc(int order, int flag, int hint, int* specSize, int* initSize,
                                        int* workSize);
MOX_API MoxStatus moxsFFTInit_C_64fc(MoxsFFTSpec** spec, int order, int flag, int hint,
                                     Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsFFTInitAlloc_C_64fc(MoxsFFTSpec** spec, int order, int flag, int hint);
MOX_API MoxStatus moxsFFTFree_C_64fc(MoxsFFTSpec* spec);
MOX_API MoxStatus moxsFFTGetBufSize_C_64fc(const MoxsFFTSpec* spec, int* size);
MOX_API MoxStatus moxsFFTGetSize_C_64f(int order, int flag, int hint, int* specSize, int* initSize,
                                       int* workSize);
MOX_API MoxStatus moxsFFTInit_C_64f(MoxsFFTSpec** spec, int order, int flag, int hint,
                                    Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsFFTInitAlloc_C_64f(MoxsFFTSpec** spec, int order, int flag, int hint);
MOX_API MoxStatus moxsFFTFree_C_64f(MoxsFFTSpec* spec);
MOX_API MoxStatus moxsFFTGetBufSize_C_64f(const MoxsFFTSpec* spec, int* size);
MOX_API MoxStatus moxsFFTGetSize_R_32f(int order, int flag, int hint, int* specSize, int* initSize,
                                       int* workSize);
MOX_API MoxStatus moxsFFTInit_R_32f(MoxsFFTSpec** spec, int order, int flag, int hint,
                                    Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsFFTInitAlloc_R_32f(MoxsFFTSpec** spec, int order, int flag, int hint);
MOX_API MoxStatus moxsFFTFree_R_32f(MoxsFFTSpec* spec);
MOX_API MoxStatus moxsFFTGetBufSize_R_32f(const MoxsFFTSpec* spec, int* size);
MOX_API MoxStatus moxsFFTGetSize_R_64f(int order, int flag, int hint, int* specSize, int* initSize,
                                       int* workSize);
MOX_API MoxStatus moxsFFTInit_R_64f(MoxsFFTSpec** spec, int order, int flag, int hint,
                                    Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsFFTInitAlloc_R_64f(MoxsFFTSpec** spec, int order, int flag, int hint);
MOX_API MoxStatus moxsFFTFree_R_64f(MoxsFFTSpec* spec);
MOX_API MoxStatus moxsFFTGetBufSize_R_64f(const MoxsFFTSpec* spec, int* size);
/** @} */

/** @defgroup fft_complex Complex FFT
 * @ingroup topic_transforms
 * Forward: `X[k] = sum of x[n] exp(-2 pi i n k / N)` over 0 <= n < N, for 0 <= k < N; inverse: the
 * same with `+2 pi i`. Where the object's flag asks for it, the result is multiplied by 1/N or
 * 1/sqrt(N); an inverse after a forward transform gives the input back with the flags 1, 2 and 4,
 * and N times the input with 8. Arrays hold N elements; the destination may be the source.
 * Where parts have arrays of their own, `dstRe` may be `srcRe` and `dstIm` `srcIm`, but not
 * crosswise.
 *
 * `buffer` has the size that moxsFFTGetBufSize tells and lies at any address. Without one, a null
 * pointer, a run takes memory and releases it, unless it needs none: up to order 6.
 *
 * @return ::moxErrNullPtr for a null `spec`, ::moxErrContext for an object of another kind,
 * ::moxErrNullPtr for a null array, ::moxErrMemAlloc when there is no memory for a work buffer.
 * @note The relative L2 error is below 3e-7 sqrt(order) in single, 6e-16 sqrt(order) in double
 * precision. Infinities and NaN spread as in plain arithmetic.
 * @see Cooley and Tukey, An algorithm for the machine calculation of complex Fourier series, 1965;
 * Bailey, FFTs in external or hierarchical memory, 1990.
 * @{ */
MOX_API MoxStatus moxsFFTFwd_CToC_32fc(const Mox32fc* src, Mox32fc* dst, const MoxsFFTSpec* spec,
                                       Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_CToC_32fc_I(Mox32fc* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_32fc(const Mox32fc* src, Mox32fc* dst, const MoxsFFTSpec* spec,
                                       Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_32fc_I(Mox32fc* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_CToC_64fc(const Mox64fc* src, Mox64fc* dst, const MoxsFFTSpec* spec,
                                       Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_CToC_64fc_I(Mox64fc* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_64fc(const Mox64fc* src, Mox64fc* dst, const MoxsFFTSpec* spec,
                                       Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_64fc_I(Mox64fc* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_CToC_32f(const Mox32f* srcRe, const Mox32f* srcIm, Mox32f* dstRe,
                                      Mox32f* dstIm, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_CToC_32f_I(Mox32f* srcDstRe, Mox32f* srcDstIm, const MoxsFFTSpec* spec,
                                        Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_32f(const Mox32f* srcRe, const Mox32f* srcIm, Mox32f* dstRe,
                                      Mox32f* dstIm, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_32f_I(Mox32f* srcDstRe, Mox32f* srcDstIm, const MoxsFFTSpec* spec,
                                        Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_CToC_64f(const Mox64f* srcRe, const Mox64f* srcIm, Mox64f* dstRe,
                                      Mox64f* dstIm, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_CToC_64f_I(Mox64f* srcDstRe, Mox64f* srcDstIm, const MoxsFFTSpec* spec,
                                        Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_64f(const Mox64f* srcRe, const Mox64f* srcIm, Mox64f* dstRe,
                                      Mox64f* dstIm, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_64f_I(Mox64f* srcDstRe, Mox64f* srcDstIm, const MoxsFFTSpec* spec,
                                        Mox8u* buffer);
/** @} */

/** @defgroup fft_real Real FFT
 * @ingroup topic_transforms
 * Forward: X[k] = sum of x[n] * exp(-2 pi i n k / N) over 0 <= n < N, as a packed spectrum
 * (@ref packed_spectra). Inverse: x[n] = sum of X[k] * exp(2 pi i n k / N) over the whole spectrum
 * that the packed one stands for. Each is scaled as the flag of the object says: without scaling a
 * forward and an inverse transform together give N * x.
 *
 * Arrays have N places, those with a CCS spectrum N + 2; `dst` may be `src`, and neither need be
 * aligned. `buffer` has the bytes that the object asks for, or is null: then the call takes the
 * memory and releases it, unless it needs none: up to order 7.
 *
 * Method: a complex transform of half the length over pairs of samples, and a pass that separates
 * the spectra of the even and the odd samples (Cooley, Lewis, Welch, "The fast Fourier transform
 * algorithm: programming considerations in the calculation of sine, cosine and Laplace transforms",
 * J. Sound Vib. 12, 1970).
 *
 * @return ::moxErrNullPtr for a null object, ::moxErrContext for one of another kind or one that
 * was freed, ::moxErrNullPtr for a null array, ::moxErrMemAlloc when there is no `buffer` and no
 * memory.
 * @note Relative error, in the L2 norm: below 3e-7 * sqrt(order) for `_32f` and
 * 6e-16 * sqrt(order) for `_64f`. Infinities and NaN spread as in the arithmetic; no status tells.
 * @{ */
MOX_API MoxStatus moxsFFTFwd_RToPerm_32f(const Mox32f* src, Mox32f* dst, const MoxsFFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToPerm_64f(const Mox64f* src, Mox64f* dst, const MoxsFFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToPerm_32f_I(Mox32f* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToPerm_64f_I(Mox64f* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToPack_32f(const Mox32f* src, Mox32f* dst, const MoxsFFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToPack_64f(const Mox64f* src, Mox64f* dst, const MoxsFFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToPack_32f_I(Mox32f* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToPack_64f_I(Mox64f* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToCCS_32f(const Mox32f* src, Mox32f* dst, const MoxsFFTSpec* spec,
                                        Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToCCS_64f(const Mox64f* src, Mox64f* dst, const MoxsFFTSpec* spec,
                                        Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToCCS_32f_I(Mox32f* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToCCS_64f_I(Mox64f* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_PermToR_32f(const Mox32f* src, Mox32f* dst, const MoxsFFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_PermToR_64f(const Mox64f* src, Mox64f* dst, const MoxsFFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_PermToR_32f_I(Mox32f* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_PermToR_64f_I(Mox64f* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_PackToR_32f(const Mox32f* src, Mox32f* dst, const MoxsFFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_PackToR_64f(const Mox64f* src, Mox64f* dst, const MoxsFFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_PackToR_32f_I(Mox32f* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_PackToR_64f_I(Mox64f* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CCSToR_32f(const Mox32f* src, Mox32f* dst, const MoxsFFTSpec* spec,
                                        Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CCSToR_64f(const Mox64f* src, Mox64f* dst, const MoxsFFTSpec* spec,
                                        Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CCSToR_32f_I(Mox32f* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CCSToR_64f_I(Mox64f* srcDst, const MoxsFFTSpec* spec, Mox8u* buffer);
/** @} */

/** @defgroup conj_spectrum Conj of packed spectra
 * @ingroup topic_transforms
 * Writes a packed spectrum of `len` real samples (@ref packed_spectra) out as all `len` complex
 * values: `dst[k]` = X[k] for 0 <= k <= len/2 and `dst[len - k]` = conj(X[k]) above. The imaginary
 * parts of X[0] and X[len/2] become 0, while those that a CCS spectrum holds are copied. In place
 * `srcDst` holds the packed form in its first reals and has room for `len` complex values.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @note Copies and sign changes, exact to the bit; the conjugate of a 16-bit -32768 is 32767.
 * @{ */
MOX_API MoxStatus moxsConjPack_32fc(const Mox32f* src, Mox32fc* dst, int len);
MOX_API MoxStatus moxsConjPack_64fc(const Mox64f* src, Mox64fc* dst, int len);
MOX_API MoxStatus moxsConjPack_16sc(const Mox16s* src, Mox16sc* dst, int len);
MOX_API MoxStatus moxsConjPack_32fc_I(Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsConjPack_64fc_I(Mox64fc* srcDst, int len);
MOX_API MoxStatus moxsConjPack_16sc_I(Mox16sc* srcDst, int len);
MOX_API MoxStatus moxsConjPerm_32fc(const Mox32f* src, Mox32fc* dst, int len);
MOX_API MoxStatus moxsConjPerm_64fc(const Mox64f* src, Mox64fc* dst, int len);
MOX_API MoxStatus moxsConjPerm_16sc(const Mox16s* src, Mox16sc* dst, int len);
MOX_API MoxStatus moxsConjPerm_32fc_I(Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsConjPerm_64fc_I(Mox64fc* srcDst, int len);
MOX_API MoxStatus moxsConjPerm_16sc_I(Mox16sc* srcDst, int len);
MOX_API MoxStatus moxsConjCcs_32fc(const Mox32f* src, Mox32fc* dst, int len);
MOX_API MoxStatus moxsConjCcs_64fc(const Mox64f* src, Mox64fc* dst, int len);
MOX_API MoxStatus moxsConjCcs_16sc(const Mox16s* src, Mox16sc* dst, int len);
MOX_API MoxStatus moxsConjCcs_32fc_I(Mox32fc* srcDst, int len);
MOX_API MoxStatus moxsConjCcs_64fc_I(Mox64fc* srcDst, int len);
MOX_API MoxStatus moxsConjCcs_16sc_I(Mox16sc* srcDst, int len);
/** @} */

/** @defgroup mul_spectrum MulPack, MulPerm, MulPackConj
 * @ingroup topic_transforms
 * Product of two packed spectra of `len` real samples in the layout that the name tells
 * (@ref packed_spectra), in that layout: the spectrum of their circular convolution.
 * `dst` = `src1` * `src2`, in place `srcDst` = `src` * `srcDst`. The real ends are plain products;
 * of pairs (a, b) and (c, d) comes (a * c - b * d, c * b + d * a). MulPackConj multiplies by the
 * conjugate of `srcDst`, as a circular correlation does: `srcDst` = `src` * conj(`srcDst`), which
 * is (a * c + b * d, b * c - a * d) in the pairs. `dst` may be one of the sources.
 *
 * The integer forms compute the exact value, scale it by 2^-scaleFactor, round to nearest with ties
 * to even and saturate.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @note Floats: each product and each sum is one IEEE 754 operation of the element type, to the
 * bit. Integers are exact to the bit for every scale factor.
 * @{ */
MOX_API MoxStatus moxsMulPack_32f(const Mox32f* src1, const Mox32f* src2, Mox32f* dst, int len);
MOX_API MoxStatus moxsMulPack_32f_I(const Mox32f* src, Mox32f* srcDst, int len);
MOX_API MoxStatus moxsMulPack_64f(const Mox64f* src1, const Mox64f* src2, Mox64f* dst, int len);
MOX_API MoxStatus moxsMulPack_64f_I(const Mox64f* src, Mox64f* srcDst, int len);
MOX_API MoxStatus moxsMulPack_16s_Sfs(const Mox16s* src1, const Mox16s* src2, Mox16s* dst, int len,
                                      int scaleFactor);
MOX_API MoxStatus moxsMulPack_16s_ISfs(const Mox16s* src, Mox16s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMulPerm_32f(const Mox32f* src1, const Mox32f* src2, Mox32f* dst, int len);
MOX_API MoxStatus moxsMulPerm_32f_I(const Mox32f* src, Mox32f* srcDst, int len);
MOX_API MoxStatus moxsMulPerm_64f(const Mox64f* src1, const Mox64f* src2, Mox64f* dst, int len);
MOX_API MoxStatus moxsMulPerm_64f_I(const Mox64f* src, Mox64f* srcDst, int len);
MOX_API MoxStatus moxsMulPerm_16s_Sfs(const Mox16s* src1, const Mox16s* src2, Mox16s* dst, int len,
                                      int scaleFactor);
MOX_API MoxStatus moxsMulPerm_16s_ISfs(const Mox16s* src, Mox16s* srcDst, int len, int scaleFactor);
MOX_API MoxStatus moxsMulPackConj_32f_I(const Mox32f* src, Mox32f* srcDst, int len);
MOX_API MoxStatus moxsMulPackConj_64f_I(const Mox64f* src, Mox64f* srcDst, int len);
/** @} */

#endif
