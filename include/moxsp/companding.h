/**
 * @file
 * A-law and mu-law companding (ITU-T G.711).
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox16s pcm[3] = {0, 1000, -32768};
 *   Mox8u code[3];
 *   Mox16s back[3];
 *   moxsLinToALaw_16s8u(pcm, code, 3);
 *   for (int i = 0; i < 3; ++i) printf("%02x ", code[i]);  // d5 fa 2a
 *   moxsALawToLin_8u16s(code, back, 3);
 *   for (int i = 0; i < 3; ++i) printf("%d ", back[i]);  // 8 1008 -32256
 * }
 * @endcode
 */
#ifndef MOXSP_COMPANDING_H
#define MOXSP_COMPANDING_H

#include <moxsp/types.h>

/** @defgroup companding Companding
 * @ingroup topic_conversion
 * Between linear samples and the 8-bit codes of ITU-T G.711, and between its two laws. Codes are
 * those on the line: A-law with every other bit inverted, mu-law with all bits inverted; bit 7 is
 * set for samples that aren't negative. `len` counts samples, 0 <= i < len. Arrays must not
 * overlap, except that `dst` of moxsALawToMuLaw_8u() and moxsMuLawToALaw_8u() may be `src`.
 *
 * Full scale is that of 16 bits: A-law codes stand for -32256 to 32256, mu-law codes for -32124 to
 * 32124, which is eight and four times the value that G.711 gives. Float samples have full scale
 * 1.0.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @note Results are defined to the bit.
 * @{ */

/** @name Expand
 * `dst[i]` is the value that the code `src[i]` stands for; in `8u32f` over 32768, which is exact.
 * @{ */
MOX_API MoxStatus moxsALawToLin_8u16s(const Mox8u* src, Mox16s* dst, int len);
MOX_API MoxStatus moxsALawToLin_8u32f(const Mox8u* src, Mox32f* dst, int len);
MOX_API MoxStatus moxsMuLawToLin_8u16s(const Mox8u* src, Mox16s* dst, int len);
MOX_API MoxStatus moxsMuLawToLin_8u32f(const Mox8u* src, Mox32f* dst, int len);
/** @} */

/** @name Compress
 * `dst[i]` is the code of the interval in which `src[i]` lies. A negative sample s is taken as the
 * code of -s - 1, but for the sign: the lower bound of an interval belongs to it on the positive
 * side, the upper one on the negative side. Coders that take the code of -s instead differ in
 * mu-law on those bounds alone, such as -128 or -4.
 *
 * The `32f8u` forms compress `32768 * src[i]` rounded to an integer, half away from zero (0.5
 * is added or subtracted and the sum truncated, all in `Mox32f` and the current rounding mode);
 * beyond the range of 16 bits samples count as the limit on their side, and NaN as 0. In mu-law the
 * sign is that of the sample before it is rounded: -1e-9 gives 0x7F, the code of minus zero.
 * @{ */
MOX_API MoxStatus moxsLinToALaw_16s8u(const Mox16s* src, Mox8u* dst, int len);
MOX_API MoxStatus moxsLinToALaw_32f8u(const Mox32f* src, Mox8u* dst, int len);
MOX_API MoxStatus moxsLinToMuLaw_16s8u(const Mox16s* src, Mox8u* dst, int len);
MOX_API MoxStatus moxsLinToMuLaw_32f8u(const Mox32f* src, Mox8u* dst, int len);
/** @} */

/** @name Translate
 * `dst[i]` is the code of the other law whose value is nearest to that of `src[i]`, of the same
 * sign and at the same level: G.711 has the largest A-law amplitude at 3.14 dBm0 and the largest
 * mu-law amplitude at 3.17 dBm0. These are the tables of G.711. Values are compared at that ratio,
 * not as samples: a translated code differs by up to one step from an expanded and compressed one.
 * @{ */
MOX_API MoxStatus moxsALawToMuLaw_8u(const Mox8u* src, Mox8u* dst, int len);
MOX_API MoxStatus moxsMuLawToALaw_8u(const Mox8u* src, Mox8u* dst, int len);
/** @} */
/** @} */

#endif
