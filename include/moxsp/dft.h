/**
 * @file
 * Discrete Fourier transforms of any length.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox32f x[6] = {1};  // an impulse
 *   Mox32f spectrum[8];       // CCS: 6 / 2 + 1 complex numbers
 *   MoxsDFTSpec* dft;
 *   if (moxsDFTInitAlloc_R_32f(&dft, 6, 8, 0) != moxOk) return 1;  // 6 samples, no scaling
 *   moxsDFTFwd_RToCCS_32f(x, spectrum, dft, NULL);
 *   for (int k = 0; k < 4; ++k) printf("%g ", spectrum[2 * k]);  // 1 1 1 1
 *   moxsDFTFree_R_32f(dft);
 * }
 * @endcode
 */
#ifndef MOXSP_DFT_H
#define MOXSP_DFT_H

#include <moxsp/types.h>

/** A DFT of any length: method, normalisation and tables. Read-only during runs. */
typedef struct MoxsDFTSpec MoxsDFTSpec;

/** @defgroup dft_objects Objects of the DFT
 * @ingroup topic_transforms
 * A transform of `len` >= 1 samples. The kind behind `C_` tells how complex data lie, interleaved
 * (`32fc`, `64fc`, `16sc`) or in an array of real and one of imaginary parts (`32f`, `64f`, `16s`);
 * `R_` is for real data. The length alone decides the method:
 *
 * | Length                                       | Method                      |
 * |----------------------------------------------|-----------------------------|
 * | 1 to 16                                      | one straight-line transform |
 * | a power of two                               | the FFT (@ref fft_objects)  |
 * | a product of primes up to 50 (`64`: 90)      | passes of mixed radices     |
 * | any other up to 50 (`64`: 90)                | sums over a table of roots  |
 * | any other, up to 0x3FFFFFF (`64`: 0x1FFFFFF) | convolution with a chirp    |
 *
 * The largest prime of a product may go to 150 where 4 divides the length.
 * A real transform of an even length above 16 takes the method of half its length, but for powers
 * of two. Products go to 0x7FFFFFF (`64`: 0x3FFFFFF), powers of two to the limits of the FFT. A
 * plan whose memory would pass 0x7FFFFFFF bytes is refused.
 *
 * `moxsDFTGetSize` tells the bytes of the object, of the scratch memory that its initialisation
 * needs, and of the work buffer of a run, each with the slack for its alignment to 64 bytes.
 * `moxsDFTInit` sets the object up in `specMem`; runs take `specMem` itself, cast to
 * `MoxsDFTSpec*`. `initBuf` may be released when it returns, and may be null where its size is 0:
 * up to length 16, and for powers of two up to 1024. `moxsDFTInitAlloc` takes the memory itself;
 * end with `moxsDFTFree`. `moxsDFTGetBufSize` tells the bytes of the work buffer of a run without
 * the slack: they serve at a multiple of 64 bytes, and elsewhere 64 more do.
 *
 * `flag` says where results are scaled: 1 the forward transform by 1/`len`, 2 the inverse by
 * 1/`len`, 4 both by 1/sqrt(`len`), 8 neither. `hint` is stored and has no effect.
 *
 * The object is only read by runs: threads may share it, each with a work buffer of its own.
 *
 * @return ::moxErrNullPtr, ::moxErrSize for a length below 1, ::moxErrFftFlag, ::moxErrSize above
 * the limits, ::moxErrFftOrder for a power of two above those of the FFT; `moxsDFTInit`
 * ::moxErrNullPtr for an `initBuf` that is needed, `moxsDFTInitAlloc` ::moxErrMemAlloc.
 * `moxsDFTFree` and `moxsDFTGetBufSize`: ::moxErrNullPtr, ::moxErrContext for an object of another
 * kind or one that was freed.
 * @{ */
MOX_API MoxStatus moxsDFTGetSize_C_32fc(int len, int flag, int hint, int* specSize, int* initSize,
                                        int* workSize);
MOX_API MoxStatus moxsDFTInit_C_32fc(int len, int flag, int hint, Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsDFTInitAlloc_C_32fc(MoxsDFTSpec** spec, int len, int flag, int hint);
MOX_API MoxStatus moxsDFTFree_C_32fc(MoxsDFTSpec* spec);
MOX_API MoxStatus moxsDFTGetBufSize_C_32fc(const MoxsDFTSpec* spec, int* size);
MOX_API MoxStatus moxsDFTGetSize_C_32f(int len, int flag, int hint, int* specSize, int* initSize,
                                       int* workSize);
MOX_API MoxStatus moxsDFTInit_C_32f(int len, int flag, int hint, Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsDFTInitAlloc_C_32f(MoxsDFTSpec** spec, int len, int flag, int hint);
MOX_API MoxStatus moxsDFTFree_C_32f(MoxsDFTSpec* spec);
MOX_API MoxStatus moxsDFTGetBufSize_C_32f(const MoxsDFTSpec* spec, int* size);
MOX_API MoxStatus moxsDFTGetSize_C_64fc(int len, int flag, int hint, int* specSize, int* initSize,
                                        int* workSize);
MOX_API MoxStatus moxsDFTInit_C_64fc(int len, int flag, int hint, Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsDFTInitAlloc_C_64fc(MoxsDFTSpec** spec, int len, int flag, int hint);
MOX_API MoxStatus moxsDFTFree_C_64fc(MoxsDFTSpec* spec);
MOX_API MoxStatus moxsDFTGetBufSize_C_64fc(const MoxsDFTSpec* spec, int* size);
MOX_API MoxStatus moxsDFTGetSize_C_64f(int len, int flag, int hint, int* specSize, int* initSize,
                                       int* workSize);
MOX_API MoxStatus moxsDFTInit_C_64f(int len, int flag, int hint, Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsDFTInitAlloc_C_64f(MoxsDFTSpec** spec, int len, int flag, int hint);
MOX_API MoxStatus moxsDFTFree_C_64f(MoxsDFTSpec* spec);
MOX_API MoxStatus moxsDFTGetBufSize_C_64f(const MoxsDFTSpec* spec, int* size);
MOX_API MoxStatus moxsDFTGetSize_R_32f(int len, int flag, int hint, int* specSize, int* initSize,
                                       int* workSize);
MOX_API MoxStatus moxsDFTInit_R_32f(int len, int flag, int hint, Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsDFTInitAlloc_R_32f(MoxsDFTSpec** spec, int len, int flag, int hint);
MOX_API MoxStatus moxsDFTFree_R_32f(MoxsDFTSpec* spec);
MOX_API MoxStatus moxsDFTGetBufSize_R_32f(const MoxsDFTSpec* spec, int* size);
MOX_API MoxStatus moxsDFTGetSize_R_64f(int len, int flag, int hint, int* specSize, int* initSize,
                                       int* workSize);
MOX_API MoxStatus moxsDFTInit_R_64f(int len, int flag, int hint, Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsDFTInitAlloc_R_64f(MoxsDFTSpec** spec, int len, int flag, int hint);
MOX_API MoxStatus moxsDFTFree_R_64f(MoxsDFTSpec* spec);
MOX_API MoxStatus moxsDFTGetBufSize_R_64f(const MoxsDFTSpec* spec, int* size);
/** @} */

/** @defgroup dft_integer_objects Objects of the integer DFT
 * @ingroup topic_transforms
 * Objects of @ref dft_integer, as those of single precision (@ref dft_objects), in memory of the
 * library's only. The work buffer holds the data as floats besides.
 *
 * @return As for @ref dft_objects.
 * @{ */
MOX_API MoxStatus moxsDFTInitAlloc_C_16sc(MoxsDFTSpec** spec, int len, int flag, int hint);
MOX_API MoxStatus moxsDFTFree_C_16sc(MoxsDFTSpec* spec);
MOX_API MoxStatus moxsDFTGetBufSize_C_16sc(const MoxsDFTSpec* spec, int* size);
MOX_API MoxStatus moxsDFTInitAlloc_C_16s(MoxsDFTSpec** spec, int len, int flag, int hint);
MOX_API MoxStatus moxsDFTFree_C_16s(MoxsDFTSpec* spec);
MOX_API MoxStatus moxsDFTGetBufSize_C_16s(const MoxsDFTSpec* spec, int* size);
MOX_API MoxStatus moxsDFTInitAlloc_R_16s(MoxsDFTSpec** spec, int len, int flag, int hint);
MOX_API MoxStatus moxsDFTFree_R_16s(MoxsDFTSpec* spec);
MOX_API MoxStatus moxsDFTGetBufSize_R_16s(const MoxsDFTSpec* spec, int* size);
/** @} */

/** @defgroup dft_complex Complex DFT
 * @ingroup topic_transforms
 * Forward: `X[k] = sum of x[n] exp(-2 pi i n k / N)` over 0 <= n < N, for 0 <= k < N; inverse: the
 * same with `+2 pi i`. Where the object's flag asks for it, the result is multiplied by 1/N or
 * 1/sqrt(N). Arrays hold N elements; the destination may be the source. Where parts have arrays of
 * their own, `dstRe` may be `srcRe` and `dstIm` `srcIm`, but not crosswise.
 *
 * `buffer` has the size that moxsDFTGetBufSize tells and lies on a multiple of 64, or 64 bytes more
 * at any address. Without one, a null pointer, a run takes memory and releases it, unless it needs
 * none: up to length 16, and for the powers of two up to 64.
 *
 * @return ::moxErrNullPtr for a null `spec`, ::moxErrContext for an object of another kind,
 * ::moxErrNullPtr for a null array, ::moxErrMemAlloc when there is no memory for a work buffer.
 * @note The relative L2 error is below 3e-7 sqrt(log2 N) in single, 6e-16 sqrt(log2 N) in double
 * precision for N > 2, and below four times that where a chirp is used. Infinities and NaN spread
 * over all results.
 * @see Stockham, High-speed convolution and correlation, 1966; Good, The interaction algorithm and
 * practical Fourier analysis, 1958; Rader, Discrete Fourier transforms when the number of data
 * samples is prime, 1968; Bluestein, A linear filtering approach to the computation of discrete
 * Fourier transform, 1970.
 * @{ */
MOX_API MoxStatus moxsDFTFwd_CToC_32fc(const Mox32fc* src, Mox32fc* dst, const MoxsDFTSpec* spec,
                                       Mox8u* buffer);
MOX_API MoxStatus moxsDFTInv_CToC_32fc(const Mox32fc* src, Mox32fc* dst, const MoxsDFTSpec* spec,
                                       Mox8u* buffer);
MOX_API MoxStatus moxsDFTFwd_CToC_64fc(const Mox64fc* src, Mox64fc* dst, const MoxsDFTSpec* spec,
                                       Mox8u* buffer);
MOX_API MoxStatus moxsDFTInv_CToC_64fc(const Mox64fc* src, Mox64fc* dst, const MoxsDFTSpec* spec,
                                       Mox8u* buffer);
MOX_API MoxStatus moxsDFTFwd_CToC_32f(const Mox32f* srcRe, const Mox32f* srcIm, Mox32f* dstRe,
                                      Mox32f* dstIm, const MoxsDFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsDFTInv_CToC_32f(const Mox32f* srcRe, const Mox32f* srcIm, Mox32f* dstRe,
                                      Mox32f* dstIm, const MoxsDFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsDFTFwd_CToC_64f(const Mox64f* srcRe, const Mox64f* srcIm, Mox64f* dstRe,
                                      Mox64f* dstIm, const MoxsDFTSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsDFTInv_CToC_64f(const Mox64f* srcRe, const Mox64f* srcIm, Mox64f* dstRe,
                                      Mox64f* dstIm, const MoxsDFTSpec* spec, Mox8u* buffer);
/** @} */

/** @defgroup dft_real Real DFT
 * @ingroup topic_transforms
 * Forward: X[k] = sum of x[n] * exp(-2 pi i n k / N) over 0 <= n < N, as a packed spectrum
 * (@ref packed_spectra). Inverse: x[n] = sum of X[k] * exp(2 pi i n k / N) over the whole spectrum
 * that the packed one stands for; of a CCS spectrum the imaginary parts of X[0] and X[N/2] are not
 * read. Each is scaled as the flag of the object says.
 *
 * Arrays have N places, those with a CCS spectrum N + 2, or N + 1 for odd N; `dst` may be `src`.
 * `buffer` as for @ref dft_complex.
 *
 * @return As for @ref dft_complex.
 * @note Relative error in the L2 norm as for @ref dft_complex.
 * @see Sorensen and others, Real-valued fast Fourier transform algorithms, 1987; Hartley, A more
 * symmetrical Fourier analysis applied to transmission problems, 1942.
 * @{ */
MOX_API MoxStatus moxsDFTFwd_RToPerm_32f(const Mox32f* src, Mox32f* dst, const MoxsDFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsDFTFwd_RToPerm_64f(const Mox64f* src, Mox64f* dst, const MoxsDFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsDFTFwd_RToPack_32f(const Mox32f* src, Mox32f* dst, const MoxsDFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsDFTFwd_RToPack_64f(const Mox64f* src, Mox64f* dst, const MoxsDFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsDFTFwd_RToCCS_32f(const Mox32f* src, Mox32f* dst, const MoxsDFTSpec* spec,
                                        Mox8u* buffer);
MOX_API MoxStatus moxsDFTFwd_RToCCS_64f(const Mox64f* src, Mox64f* dst, const MoxsDFTSpec* spec,
                                        Mox8u* buffer);
MOX_API MoxStatus moxsDFTInv_PermToR_32f(const Mox32f* src, Mox32f* dst, const MoxsDFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsDFTInv_PermToR_64f(const Mox64f* src, Mox64f* dst, const MoxsDFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsDFTInv_PackToR_32f(const Mox32f* src, Mox32f* dst, const MoxsDFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsDFTInv_PackToR_64f(const Mox64f* src, Mox64f* dst, const MoxsDFTSpec* spec,
                                         Mox8u* buffer);
MOX_API MoxStatus moxsDFTInv_CCSToR_32f(const Mox32f* src, Mox32f* dst, const MoxsDFTSpec* spec,
                                        Mox8u* buffer);
MOX_API MoxStatus moxsDFTInv_CCSToR_64f(const Mox64f* src, Mox64f* dst, const MoxsDFTSpec* spec,
                                        Mox8u* buffer);
/** @} */

/** @defgroup dft_integer Integer DFT
 * @ingroup topic_transforms
 * The transforms of @ref dft_complex and @ref dft_real on 16-bit integers: the result in single
 * precision, scaled as the flag says, times 2^-scaleFactor, rounded to nearest with ties to even
 * and saturated. Any `scaleFactor` is legal; from 64 on results are 0. The destination may be the
 * source.
 *
 * @return As for @ref dft_complex.
 * @note With X the exact result and s the whole factor, each part is within
 * 0.5 + 16 * 2^-24 * s * (sqrt(log2 N) * |src| + max |X|) of s * X, saturated; |src| is the
 * Euclidean norm, for the inverse of real kinds that of the whole spectrum. N = 1, 2 and 4 are
 * exact with the flags 1, 2 and 8.
 * @{ */
MOX_API MoxStatus moxsDFTFwd_CToC_16sc_Sfs(const Mox16sc* src, Mox16sc* dst,
                                           const MoxsDFTSpec* spec, int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsDFTInv_CToC_16sc_Sfs(const Mox16sc* src, Mox16sc* dst,
                                           const MoxsDFTSpec* spec, int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsDFTFwd_CToC_16s_Sfs(const Mox16s* srcRe, const Mox16s* srcIm, Mox16s* dstRe,
                                          Mox16s* dstIm, const MoxsDFTSpec* spec, int scaleFactor,
                                          Mox8u* buffer);
MOX_API MoxStatus moxsDFTInv_CToC_16s_Sfs(const Mox16s* srcRe, const Mox16s* srcIm, Mox16s* dstRe,
                                          Mox16s* dstIm, const MoxsDFTSpec* spec, int scaleFactor,
                                          Mox8u* buffer);
MOX_API MoxStatus moxsDFTFwd_RToPerm_16s_Sfs(const Mox16s* src, Mox16s* dst,
                                             const MoxsDFTSpec* spec, int scaleFactor,
                                             Mox8u* buffer);
MOX_API MoxStatus moxsDFTFwd_RToPack_16s_Sfs(const Mox16s* src, Mox16s* dst,
                                             const MoxsDFTSpec* spec, int scaleFactor,
                                             Mox8u* buffer);
MOX_API MoxStatus moxsDFTFwd_RToCCS_16s_Sfs(const Mox16s* src, Mox16s* dst, const MoxsDFTSpec* spec,
                                            int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsDFTInv_PermToR_16s_Sfs(const Mox16s* src, Mox16s* dst,
                                             const MoxsDFTSpec* spec, int scaleFactor,
                                             Mox8u* buffer);
MOX_API MoxStatus moxsDFTInv_PackToR_16s_Sfs(const Mox16s* src, Mox16s* dst,
                                             const MoxsDFTSpec* spec, int scaleFactor,
                                             Mox8u* buffer);
MOX_API MoxStatus moxsDFTInv_CCSToR_16s_Sfs(const Mox16s* src, Mox16s* dst, const MoxsDFTSpec* spec,
                                            int scaleFactor, Mox8u* buffer);
/** @} */

#endif
