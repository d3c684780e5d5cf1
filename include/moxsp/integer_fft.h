/**
 * @file
 * The FFT of integers, computed in floats and rounded once.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox16s x[8] = {1, 2, 3, 4, 5, 6, 7, 8};
 *   Mox16s perm[8];
 *   MoxsFFTSpec* fft;
 *   if (moxsFFTInitAlloc_R_16s(&fft, 3, 8, 0) != moxOk) return 1;  // 2^3 samples, no factor 1/N
 *   moxsFFTFwd_RToPerm_16s_Sfs(x, perm, fft, 0, NULL);
 *   for (int k = 0; k < 8; ++k) printf("%d ", perm[k]);  // 36 -4 -4 10 -4 4 -4 2
 *   moxsFFTFree_R_16s(fft);
 * }
 * @endcode
 */
#ifndef MOXSP_INTEGER_FFT_H
#define MOXSP_INTEGER_FFT_H

#include <moxsp/transforms.h>

/** @defgroup integer_fft_objects Objects of the FFT of integers
 * @ingroup topic_transforms
 * As the @ref fft_objects of floats, with the same arguments, order of checks and statuses. The
 * kind behind `C_` tells how complex data lie, interleaved (`16sc`, `32sc`) or in an array of real
 * and one of imaginary parts (`16s`, `32s`); `R_` is for real data, `R_16s32s` for real samples of
 * 16 bits with spectra of 32 bits. Orders go from 0 to 28 (`C_16sc`, `C_16s`), 27 (`C_32sc`,
 * `C_32s`), 29 (`R_16s`, `R_16s32s`) and 28 (`R_32s`).
 *
 * @return As the objects of floats.
 * @{ */
MOX_API MoxStatus moxsFFTGetSize_C_16sc(int order, int flag, int hint, int* specSize, int* initSize,
                                        int* workSize);
MOX_API MoxStatus moxsFFTInit_C_16sc(MoxsFFTSpec** spec, int order, int flag, int hint,
                                     Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsFFTInitAlloc_C_16sc(MoxsFFTSpec** spec, int order, int flag, int hint);
MOX_API MoxStatus moxsFFTFree_C_16sc(MoxsFFTSpec* spec);
MOX_API MoxStatus moxsFFTGetBufSize_C_16sc(const MoxsFFTSpec* spec, int* size);
MOX_API MoxStatus moxsFFTGetSize_C_16s(int order, int flag, int hint, int* specSize, int* initSize,
                                       int* workSize);
MOX_API MoxStatus moxsFFTInit_C_16s(MoxsFFTSpec** spec, int order, int flag, int hint,
                                    Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsFFTInitAlloc_C_16s(MoxsFFTSpec** spec, int order, int flag, int hint);
MOX_API MoxStatus moxsFFTFree_C_16s(MoxsFFTSpec* spec);
MOX_API MoxStatus moxsFFTGetBufSize_C_16s(const MoxsFFTSpec* spec, int* size);
MOX_API MoxStatus moxsFFTGetSize_R_16s(int order, int flag, int hint, int* specSize, int* initSize,
                                       int* workSize);
MOX_API MoxStatus moxsFFTInit_R_16s(MoxsFFTSpec** spec, int order, int flag, int hint,
                                    Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsFFTInitAlloc_R_16s(MoxsFFTSpec** spec, int order, int flag, int hint);
MOX_API MoxStatus moxsFFTFree_R_16s(MoxsFFTSpec* spec);
MOX_API MoxStatus moxsFFTGetBufSize_R_16s(const MoxsFFTSpec* spec, int* size);
MOX_API MoxStatus moxsFFTGetSize_C_32sc(int order, int flag, int hint, int* specSize, int* initSize,
                                        int* workSize);
MOX_API MoxStatus moxsFFTInit_C_32sc(MoxsFFTSpec** spec, int order, int flag, int hint,
                                     Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsFFTInitAlloc_C_32sc(MoxsFFTSpec** spec, int order, int flag, int hint);
MOX_API MoxStatus moxsFFTFree_C_32sc(MoxsFFTSpec* spec);
MOX_API MoxStatus moxsFFTGetBufSize_C_32sc(const MoxsFFTSpec* spec, int* size);
MOX_API MoxStatus moxsFFTGetSize_C_32s(int order, int flag, int hint, int* specSize, int* initSize,
                                       int* workSize);
MOX_API MoxStatus moxsFFTInit_C_32s(MoxsFFTSpec** spec, int order, int flag, int hint,
                                    Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsFFTInitAlloc_C_32s(MoxsFFTSpec** spec, int order, int flag, int hint);
MOX_API MoxStatus moxsFFTFree_C_32s(MoxsFFTSpec* spec);
MOX_API MoxStatus moxsFFTGetBufSize_C_32s(const MoxsFFTSpec* spec, int* size);
MOX_API MoxStatus moxsFFTGetSize_R_32s(int order, int flag, int hint, int* specSize, int* initSize,
                                       int* workSize);
MOX_API MoxStatus moxsFFTInit_R_32s(MoxsFFTSpec** spec, int order, int flag, int hint,
                                    Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsFFTInitAlloc_R_32s(MoxsFFTSpec** spec, int order, int flag, int hint);
MOX_API MoxStatus moxsFFTFree_R_32s(MoxsFFTSpec* spec);
MOX_API MoxStatus moxsFFTGetBufSize_R_32s(const MoxsFFTSpec* spec, int* size);
MOX_API MoxStatus moxsFFTGetSize_R_16s32s(int order, int flag, int hint, int* specSize,
                                          int* initSize, int* workSize);
MOX_API MoxStatus moxsFFTInit_R_16s32s(MoxsFFTSpec** spec, int order, int flag, int hint,
                                       Mox8u* specMem, Mox8u* initBuf);
MOX_API MoxStatus moxsFFTInitAlloc_R_16s32s(MoxsFFTSpec** spec, int order, int flag, int hint);
MOX_API MoxStatus moxsFFTFree_R_16s32s(MoxsFFTSpec* spec);
MOX_API MoxStatus moxsFFTGetBufSize_R_16s32s(const MoxsFFTSpec* spec, int* size);
/** @} */

/** @defgroup integer_fft_complex Complex FFT of integers
 * @ingroup topic_transforms
 * The transforms of @ref fft_complex with the factor that the object's flag asks for, times
 * 2^-scaleFactor, rounded to nearest, ties to even, and saturated. Any `int` is a valid factor;
 * from 64 on results are 0. `dst` may be `src`, `dstRe` `srcRe` and `dstIm` `srcIm`.
 *
 * `buffer` has the size that moxsFFTGetBufSize tells and lies at any address. Without one, a null
 * pointer, a run takes memory and releases it.
 *
 * @return ::moxErrNullPtr for a null `spec`, ::moxErrContext for an object of another kind,
 * ::moxErrNullPtr for a null array, ::moxErrMemAlloc when there is no memory for a work buffer;
 * that is so at the largest order of each kind, whose numbers as floats no block of memory holds.
 * @note With X the exact result, s the factors, and eps 2^-24 for 16-bit and 2^-53 for 32-bit data,
 * a part of the result is within 1/2 + 4 eps s (sqrt(order) |src| + max |X|) of the exact one,
 * |src| being the L2 norm. Orders 0 to 2 are exact but for order 1 with flag 4,
 * and with flag 8 the transform of an impulse at 0 is.
 * @{ */
MOX_API MoxStatus moxsFFTFwd_CToC_16sc_Sfs(const Mox16sc* src, Mox16sc* dst,
                                           const MoxsFFTSpec* spec, int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_CToC_16sc_ISfs(Mox16sc* srcDst, const MoxsFFTSpec* spec,
                                            int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_CToC_32sc_Sfs(const Mox32sc* src, Mox32sc* dst,
                                           const MoxsFFTSpec* spec, int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_CToC_32sc_ISfs(Mox32sc* srcDst, const MoxsFFTSpec* spec,
                                            int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_CToC_16s_Sfs(const Mox16s* srcRe, const Mox16s* srcIm, Mox16s* dstRe,
                                          Mox16s* dstIm, const MoxsFFTSpec* spec, int scaleFactor,
                                          Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_CToC_16s_ISfs(Mox16s* srcDstRe, Mox16s* srcDstIm,
                                           const MoxsFFTSpec* spec, int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_CToC_32s_Sfs(const Mox32s* srcRe, const Mox32s* srcIm, Mox32s* dstRe,
                                          Mox32s* dstIm, const MoxsFFTSpec* spec, int scaleFactor,
                                          Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_CToC_32s_ISfs(Mox32s* srcDstRe, Mox32s* srcDstIm,
                                           const MoxsFFTSpec* spec, int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_16sc_Sfs(const Mox16sc* src, Mox16sc* dst,
                                           const MoxsFFTSpec* spec, int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_16sc_ISfs(Mox16sc* srcDst, const MoxsFFTSpec* spec,
                                            int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_32sc_Sfs(const Mox32sc* src, Mox32sc* dst,
                                           const MoxsFFTSpec* spec, int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_32sc_ISfs(Mox32sc* srcDst, const MoxsFFTSpec* spec,
                                            int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_16s_Sfs(const Mox16s* srcRe, const Mox16s* srcIm, Mox16s* dstRe,
                                          Mox16s* dstIm, const MoxsFFTSpec* spec, int scaleFactor,
                                          Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_16s_ISfs(Mox16s* srcDstRe, Mox16s* srcDstIm,
                                           const MoxsFFTSpec* spec, int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_32s_Sfs(const Mox32s* srcRe, const Mox32s* srcIm, Mox32s* dstRe,
                                          Mox32s* dstIm, const MoxsFFTSpec* spec, int scaleFactor,
                                          Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CToC_32s_ISfs(Mox32s* srcDstRe, Mox32s* srcDstIm,
                                           const MoxsFFTSpec* spec, int scaleFactor, Mox8u* buffer);
/** @} */

/** @defgroup integer_fft_real Real FFT of integers
 * @ingroup topic_transforms
 * The transforms of @ref fft_real likewise, to and from packed spectra (@ref packed_spectra); those
 * of 32 bits are in CCS layout, N/2 + 1 numbers ::Mox32sc. The imaginary parts of X[0] and X[N/2]
 * are written as 0 and not read. Arrays have N places, those with a CCS spectrum N + 2 (2 for
 * N = 1); `dst` may be `src`.
 *
 * @return As the complex transforms of integers.
 * @note The bound of the complex transforms holds, with the norm of the whole spectrum for the
 * inverse. `32s16s` rounds the parts of the spectrum to ::Mox32f first.
 * @{ */
MOX_API MoxStatus moxsFFTFwd_RToPerm_16s_Sfs(const Mox16s* src, Mox16s* dst,
                                             const MoxsFFTSpec* spec, int scaleFactor,
                                             Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToPerm_16s_ISfs(Mox16s* srcDst, const MoxsFFTSpec* spec,
                                              int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_PermToR_16s_Sfs(const Mox16s* src, Mox16s* dst,
                                             const MoxsFFTSpec* spec, int scaleFactor,
                                             Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_PermToR_16s_ISfs(Mox16s* srcDst, const MoxsFFTSpec* spec,
                                              int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToPack_16s_Sfs(const Mox16s* src, Mox16s* dst,
                                             const MoxsFFTSpec* spec, int scaleFactor,
                                             Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToPack_16s_ISfs(Mox16s* srcDst, const MoxsFFTSpec* spec,
                                              int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_PackToR_16s_Sfs(const Mox16s* src, Mox16s* dst,
                                             const MoxsFFTSpec* spec, int scaleFactor,
                                             Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_PackToR_16s_ISfs(Mox16s* srcDst, const MoxsFFTSpec* spec,
                                              int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToCCS_16s_Sfs(const Mox16s* src, Mox16s* dst, const MoxsFFTSpec* spec,
                                            int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToCCS_16s_ISfs(Mox16s* srcDst, const MoxsFFTSpec* spec,
                                             int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CCSToR_16s_Sfs(const Mox16s* src, Mox16s* dst, const MoxsFFTSpec* spec,
                                            int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CCSToR_16s_ISfs(Mox16s* srcDst, const MoxsFFTSpec* spec,
                                             int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToCCS_32s_Sfs(const Mox32s* src, Mox32s* dst, const MoxsFFTSpec* spec,
                                            int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToCCS_32s_ISfs(Mox32s* srcDst, const MoxsFFTSpec* spec,
                                             int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CCSToR_32s_Sfs(const Mox32s* src, Mox32s* dst, const MoxsFFTSpec* spec,
                                            int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CCSToR_32s_ISfs(Mox32s* srcDst, const MoxsFFTSpec* spec,
                                             int scaleFactor, Mox8u* buffer);
MOX_API MoxStatus moxsFFTFwd_RToCCS_16s32s_Sfs(const Mox16s* src, Mox32s* dst,
                                               const MoxsFFTSpec* spec, int scaleFactor,
                                               Mox8u* buffer);
MOX_API MoxStatus moxsFFTInv_CCSToR_32s16s_Sfs(const Mox32s* src, Mox16s* dst,
                                               const MoxsFFTSpec* spec, int scaleFactor,
                                               Mox8u* buffer);
/** @} */

#endif
