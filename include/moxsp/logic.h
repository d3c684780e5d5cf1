/**
 * @file
 * Bitwise logic and shifts.
 *
 * `dst` may be one of the sources; where arrays overlap otherwise the results are undefined. A name
 * ending in `_I` writes its result over the source `srcDst`.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   Mox16u word[3] = {0x1234, 0x8001, 0x00ff};
 *   moxsRShiftC_16u_I(4, word, 3);
 *   moxsAndC_16u_I(0xff, word, 3);                         // bits 4 to 11 of each
 *   for (int i = 0; i < 3; ++i) printf("%02x ", word[i]);  // 23 00 0f
 * }
 * @endcode
 */
#ifndef MOXSP_LOGIC_H
#define MOXSP_LOGIC_H

#include <moxsp/types.h>

/** @defgroup logic Logic
 * @ingroup topic_bits
 * Bitwise operations: `dst[i] = src1[i] op src2[i]`, in place `srcDst[i] = src[i] op srcDst[i]`;
 * with a constant `dst[i] = src[i] op val`, in place `srcDst[i] = srcDst[i] op val`; Not:
 * `dst[i] = ~src[i]`, in place `srcDst[i] = ~srcDst[i]`.
 *
 * @return ::moxErrNullPtr for a null array, then ::moxErrSize for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsAnd_8u(const Mox8u* src1, const Mox8u* src2, Mox8u* dst, int len);
MOX_API MoxStatus moxsAnd_8u_I(const Mox8u* src, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsAnd_16u(const Mox16u* src1, const Mox16u* src2, Mox16u* dst, int len);
MOX_API MoxStatus moxsAnd_16u_I(const Mox16u* src, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsAnd_32u(const Mox32u* src1, const Mox32u* src2, Mox32u* dst, int len);
MOX_API MoxStatus moxsAnd_32u_I(const Mox32u* src, Mox32u* srcDst, int len);
MOX_API MoxStatus moxsOr_8u(const Mox8u* src1, const Mox8u* src2, Mox8u* dst, int len);
MOX_API MoxStatus moxsOr_8u_I(const Mox8u* src, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsOr_16u(const Mox16u* src1, const Mox16u* src2, Mox16u* dst, int len);
MOX_API MoxStatus moxsOr_16u_I(const Mox16u* src, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsOr_32u(const Mox32u* src1, const Mox32u* src2, Mox32u* dst, int len);
MOX_API MoxStatus moxsOr_32u_I(const Mox32u* src, Mox32u* srcDst, int len);
MOX_API MoxStatus moxsXor_8u(const Mox8u* src1, const Mox8u* src2, Mox8u* dst, int len);
MOX_API MoxStatus moxsXor_8u_I(const Mox8u* src, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsXor_16u(const Mox16u* src1, const Mox16u* src2, Mox16u* dst, int len);
MOX_API MoxStatus moxsXor_16u_I(const Mox16u* src, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsXor_32u(const Mox32u* src1, const Mox32u* src2, Mox32u* dst, int len);
MOX_API MoxStatus moxsXor_32u_I(const Mox32u* src, Mox32u* srcDst, int len);
MOX_API MoxStatus moxsAndC_8u(const Mox8u* src, Mox8u val, Mox8u* dst, int len);
MOX_API MoxStatus moxsAndC_8u_I(Mox8u val, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsAndC_16u(const Mox16u* src, Mox16u val, Mox16u* dst, int len);
MOX_API MoxStatus moxsAndC_16u_I(Mox16u val, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsAndC_32u(const Mox32u* src, Mox32u val, Mox32u* dst, int len);
MOX_API MoxStatus moxsAndC_32u_I(Mox32u val, Mox32u* srcDst, int len);
MOX_API MoxStatus moxsOrC_8u(const Mox8u* src, Mox8u val, Mox8u* dst, int len);
MOX_API MoxStatus moxsOrC_8u_I(Mox8u val, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsOrC_16u(const Mox16u* src, Mox16u val, Mox16u* dst, int len);
MOX_API MoxStatus moxsOrC_16u_I(Mox16u val, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsOrC_32u(const Mox32u* src, Mox32u val, Mox32u* dst, int len);
MOX_API MoxStatus moxsOrC_32u_I(Mox32u val, Mox32u* srcDst, int len);
MOX_API MoxStatus moxsXorC_8u(const Mox8u* src, Mox8u val, Mox8u* dst, int len);
MOX_API MoxStatus moxsXorC_8u_I(Mox8u val, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsXorC_16u(const Mox16u* src, Mox16u val, Mox16u* dst, int len);
MOX_API MoxStatus moxsXorC_16u_I(Mox16u val, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsXorC_32u(const Mox32u* src, Mox32u val, Mox32u* dst, int len);
MOX_API MoxStatus moxsXorC_32u_I(Mox32u val, Mox32u* srcDst, int len);
MOX_API MoxStatus moxsNot_8u(const Mox8u* src, Mox8u* dst, int len);
MOX_API MoxStatus moxsNot_8u_I(Mox8u* srcDst, int len);
MOX_API MoxStatus moxsNot_16u(const Mox16u* src, Mox16u* dst, int len);
MOX_API MoxStatus moxsNot_16u_I(Mox16u* srcDst, int len);
MOX_API MoxStatus moxsNot_32u(const Mox32u* src, Mox32u* dst, int len);
MOX_API MoxStatus moxsNot_32u_I(Mox32u* srcDst, int len);
/** @} */

/** @defgroup shift Shifts
 * @ingroup topic_bits
 * Shifts by `val` bits: `dst[i] = src[i] << val` and `dst[i] = src[i] >> val`. A left shift drops
 * the high bits, without saturation; a right shift of signed elements brings in copies of the sign.
 * From the width of the element on, all bits are shifted out: the results are 0, or the sign (0 or
 * -1) where signed elements move right.
 *
 * @return ::moxErrNullPtr for a null array, ::moxErrSize for `len` below 1, then ::moxErrShift for
 * a negative `val`.
 * @{ */
MOX_API MoxStatus moxsLShiftC_8u(const Mox8u* src, int val, Mox8u* dst, int len);
MOX_API MoxStatus moxsLShiftC_8u_I(int val, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsLShiftC_16u(const Mox16u* src, int val, Mox16u* dst, int len);
MOX_API MoxStatus moxsLShiftC_16u_I(int val, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsLShiftC_16s(const Mox16s* src, int val, Mox16s* dst, int len);
MOX_API MoxStatus moxsLShiftC_16s_I(int val, Mox16s* srcDst, int len);
MOX_API MoxStatus moxsLShiftC_32s(const Mox32s* src, int val, Mox32s* dst, int len);
MOX_API MoxStatus moxsLShiftC_32s_I(int val, Mox32s* srcDst, int len);
MOX_API MoxStatus moxsRShiftC_8u(const Mox8u* src, int val, Mox8u* dst, int len);
MOX_API MoxStatus moxsRShiftC_8u_I(int val, Mox8u* srcDst, int len);
MOX_API MoxStatus moxsRShiftC_16u(const Mox16u* src, int val, Mox16u* dst, int len);
MOX_API MoxStatus moxsRShiftC_16u_I(int val, Mox16u* srcDst, int len);
MOX_API MoxStatus moxsRShiftC_16s(const Mox16s* src, int val, Mox16s* dst, int len);
MOX_API MoxStatus moxsRShiftC_16s_I(int val, Mox16s* srcDst, int len);
MOX_API MoxStatus moxsRShiftC_32s(const Mox32s* src, int val, Mox32s* dst, int len);
MOX_API MoxStatus moxsRShiftC_32s_I(int val, Mox32s* srcDst, int len);
/** @} */

#endif
