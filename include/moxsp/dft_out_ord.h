/**
 * @file
 * Discrete Fourier transforms whose spectra stay in the order in which they arise.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   Mox32fc x[6] = {{1, 0}, {2, 0}, {3, 0}}, y[6] = {{1, 0}, {0, 0}, {0, 0}, {10, 0}};
 *   MoxsDFTOutOrdSpec* dft;
 *   if (moxsDFTOutOrdInitAlloc_C_32fc(&dft, 6, 2, 0) != moxOk) return 1;
 *   moxsDFTOutOrdFwd_CToC_32fc(x, x, dft, NULL);
 *   moxsDFTOutOrdFwd_CToC_32fc(y, y, dft, NULL);
 *   moxsMul_32fc_I(y, x, 6);  // bins of one frequency stand at one place
 *   moxsDFTOutOrdInv_CToC_32fc(x, x, dft, NULL);
 *   for (int n = 0; n < 6; ++n) printf("%.0f ", x[n].re);  // 1 2 3 10 20 30
 *   moxsDFTOutOrdFree_C_32fc(dft);
 * }
 * @endcode
 */
#ifndef MOXSP_DFT_OUT_ORD_H
#define MOXSP_DFT_OUT_ORD_H

#include <moxsp/types.h>

/** An out-of-order DFT of one length: normalisation and tables. Read-only during runs. */
typedef struct MoxsDFTOutOrdSpec MoxsDFTOutOrdSpec;

/** @defgroup dft_out_ord Out-of-order DFT
 * @ingroup topic_transforms
 * The complex DFT of any length (@ref dft_complex) for those who do not care where a bin stands:
 * filters, convolution, correlation. `moxsDFTOutOrdFwd` takes natural order and leaves the spectrum
 * in the order below; `moxsDFTOutOrdInv` takes that order and gives natural order. Spectra of one
 * length agree place by place, whatever the flag, the hint and the element type.
 *
 * Let f1 <= f2 <= ... <= fm be the prime factors of `len` up to 13, with repetition, and q the rest
 * of `len`. Bin k = d1 + f1 (d2 + f2 (... (dm + fm d))), where 0 <= di < fi and 0 <= d < q, stands
 * at d1 len / f1 + d2 len / (f1 f2) + ... + dm q + d: its digits are reversed. So powers of two are
 * in bit-reversed order, length 6 is 0 2 4 1 3 5, length 12 is 0 4 8 2 6 10 1 5 9 3 7 11. Without a
 * factor up to 13 the order is natural. Bin 0 stands at 0.
 *
 * `moxsDFTOutOrdInitAlloc` takes `len`, `flag` and `hint` as moxsDFTInitAlloc does
 * (@ref dft_objects): up to 0x7FFFFFF samples (`64fc`: 0x3FFFFFF), where a q that goes by a chirp
 * may be up to half of that. `moxsDFTOutOrdFree` releases the object. `moxsDFTOutOrdGetBufSize`
 * tells the bytes of the work buffer of a run: it has that size and lies on a multiple of 64, or 64
 * bytes more at any address. Without one, a null pointer, a run takes memory and releases it. The
 * size is 0 where q is 1, and a run then needs none. `dst` may be `src`; they must not overlap
 * otherwise. Threads may share an object, each with a work buffer of its own.
 *
 * @return `moxsDFTOutOrdInitAlloc`: ::moxErrNullPtr, ::moxErrSize for a length below 1,
 * ::moxErrFftFlag, ::moxErrSize for a length beyond the limits, ::moxErrMemAlloc.
 * `moxsDFTOutOrdFree` and `moxsDFTOutOrdGetBufSize`: ::moxErrNullPtr, ::moxErrContext for an object
 * of another kind or one that was freed. Runs: ::moxErrNullPtr for a null `spec`, ::moxErrContext,
 * ::moxErrNullPtr for a null array, ::moxErrMemAlloc when there is no memory for a work buffer.
 * @note The relative L2 error is below 4 u sqrt(1 + log2 len), four times that where q is not 1;
 * u is 2^-24 in single, 2^-53 in double precision.
 * @note Only powers of two from 1024 on gain time. The time of both directions in natural order,
 * divided by that of both here, in place on one processor (above 1 these functions are faster):
 *
 * | Length                                | `32fc`       | `64fc`       |
 * |---------------------------------------|--------------|--------------|
 * | 2 to 16, any without a factor up to 13| 0.90 to 1.00 | 0.95 to 1.02 |
 * | 32                                    | 0.64 to 0.73 | 0.64 to 0.74 |
 * | 64 to 512, powers of two              | 0.79 to 0.98 | 0.79 to 1.08 |
 * | 1024 to 2^20, powers of two           | 1.00 to 1.41 | 1.11 to 1.50 |
 * | 360, 1000, 5040, 10080                | 0.80 to 0.87 | 0.84 to 0.90 |
 * | 17 to 1000, products of factors to 13 | 0.70 to 1.02 | 0.72 to 0.97 |
 * | 17 to 1000, q not 1                   | 0.78 to 1.51 | 0.68 to 1.63 |
 *
 * Other lengths range from 0.54 to 1.94.
 * @see Gentleman and Sande, Fast Fourier transforms: for fun and profit, 1966.
 * @{ */
MOX_API MoxStatus moxsDFTOutOrdInitAlloc_C_32fc(MoxsDFTOutOrdSpec** spec, int len, int flag,
                                                int hint);
MOX_API MoxStatus moxsDFTOutOrdInitAlloc_C_64fc(MoxsDFTOutOrdSpec** spec, int len, int flag,
                                                int hint);
MOX_API MoxStatus moxsDFTOutOrdFree_C_32fc(MoxsDFTOutOrdSpec* spec);
MOX_API MoxStatus moxsDFTOutOrdFree_C_64fc(MoxsDFTOutOrdSpec* spec);
MOX_API MoxStatus moxsDFTOutOrdGetBufSize_C_32fc(const MoxsDFTOutOrdSpec* spec, int* size);
MOX_API MoxStatus moxsDFTOutOrdGetBufSize_C_64fc(const MoxsDFTOutOrdSpec* spec, int* size);
MOX_API MoxStatus moxsDFTOutOrdFwd_CToC_32fc(const Mox32fc* src, Mox32fc* dst,
                                             const MoxsDFTOutOrdSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsDFTOutOrdInv_CToC_32fc(const Mox32fc* src, Mox32fc* dst,
                                             const MoxsDFTOutOrdSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsDFTOutOrdFwd_CToC_64fc(const Mox64fc* src, Mox64fc* dst,
                                             const MoxsDFTOutOrdSpec* spec, Mox8u* buffer);
MOX_API MoxStatus moxsDFTOutOrdInv_CToC_64fc(const Mox64fc* src, Mox64fc* dst,
                                             const MoxsDFTOutOrdSpec* spec, Mox8u* buffer);
/** @} */

#endif
