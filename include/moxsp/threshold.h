/**
 * @file
 * Thresholds: elements compared with a level, and replaced where the comparison holds.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   Mox32f x[5] = {-3, -0.2f, 0, 0.4f, 9};
 *   moxsThreshold_GTAbs_32f_I(x, 5, 1);               // limited to the range from -1 to 1
 *   for (int i = 0; i < 5; ++i) printf("%g ", x[i]);  // -1 -0.2 0 0.4 1
 *   moxsThreshold_LTVal_32f_I(x, 5, 0.3f, 0);         // what is below 0.3 becomes 0
 *   for (int i = 0; i < 5; ++i) printf("%g ", x[i]);  // 0 0 0 0.4 1
 * }
 * @endcode
 */
#ifndef MOXSP_THRESHOLD_H
#define MOXSP_THRESHOLD_H

#include <moxsp/types.h>

/** @defgroup threshold Threshold
 * @ingroup topic_levels
 * Elements compared with a level, and replaced where the comparison holds, for 0 <= i < len. Each
 * relation is given as an expression of a real element x, and it stands as written: it tells what
 * becomes of NaN, of an element equal to the level, and of zeros of either sign. Names ending in
 * `_I` replace the elements of `srcDst`; in the others `dst` may be `src`.
 *
 * Complex elements are compared by magnitude. A real `level` stands against re^2 + im^2 as
 * level^2; both are formed in the precision of the parts, in a wider one where they would leave its
 * range, and without error for `16sc`. A magnitude that is NaN compares false with all levels.
 *
 * @return ::moxErrNullPtr for a null array, ::moxErrSize for `len` below 1, then, on complex
 * elements and in LTAbs, GTAbs and LTInv, ::moxErrThreshLevel for a `level` below 0; last what the
 * relation refuses by itself.
 * @note Results are defined to the bit, except where a relation allows an error.
 * @{ */

/** The relations that `relOp` selects. */
enum {
  moxThresholdLess = 0,   /**< as in the LT names */
  moxThresholdGreater = 4 /**< as in the GT names */
};

/** @name LT: elements below a level are raised to it
 * `x > level ? x : level`. NaN gives `level`.
 *
 * A complex element with a magnitude below `level` takes the magnitude `level` and keeps its phase;
 * one that is zero becomes `level` on the real axis. Other elements are copied, and with a `level`
 * of 0 all are.
 *
 * @note The parts of a complex element that changes are within 8 units in the last place (`32fc`),
 * 4 units (`64fc`) of the exact ones; for `16sc` they are the nearest integers, where a part less
 * than 2^-36 from the middle between two may become either. Those of `32fc` depend on the
 * processor's estimate of 1 / sqrt(x), and were seen to differ by 4 ulps between processors.
 * @{ */
MOX_API MoxStatus moxsThreshold_LT_16s(const Mox16s* src, Mox16s* dst, int len, Mox16s level);
MOX_API MoxStatus moxsThreshold_LT_16sc(const Mox16sc* src, Mox16sc* dst, int len, Mox16s level);
MOX_API MoxStatus moxsThreshold_LT_32s(const Mox32s* src, Mox32s* dst, int len, Mox32s level);
MOX_API MoxStatus moxsThreshold_LT_32f(const Mox32f* src, Mox32f* dst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_LT_32fc(const Mox32fc* src, Mox32fc* dst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_LT_64f(const Mox64f* src, Mox64f* dst, int len, Mox64f level);
MOX_API MoxStatus moxsThreshold_LT_64fc(const Mox64fc* src, Mox64fc* dst, int len, Mox64f level);
MOX_API MoxStatus moxsThreshold_LT_16s_I(Mox16s* srcDst, int len, Mox16s level);
MOX_API MoxStatus moxsThreshold_LT_16sc_I(Mox16sc* srcDst, int len, Mox16s level);
MOX_API MoxStatus moxsThreshold_LT_32s_I(Mox32s* srcDst, int len, Mox32s level);
MOX_API MoxStatus moxsThreshold_LT_32f_I(Mox32f* srcDst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_LT_32fc_I(Mox32fc* srcDst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_LT_64f_I(Mox64f* srcDst, int len, Mox64f level);
MOX_API MoxStatus moxsThreshold_LT_64fc_I(Mox64fc* srcDst, int len, Mox64f level);
/** @} */

/** @name GT: elements above a level are lowered to it
 * `x < level ? x : level`. NaN gives `level`.
 *
 * A complex element with a magnitude above `level` takes the magnitude `level` and keeps its phase,
 * as under LT and as exactly. Other elements are copied. A `level` of 0 clears all elements.
 * @{ */
MOX_API MoxStatus moxsThreshold_GT_16s(const Mox16s* src, Mox16s* dst, int len, Mox16s level);
MOX_API MoxStatus moxsThreshold_GT_16sc(const Mox16sc* src, Mox16sc* dst, int len, Mox16s level);
MOX_API MoxStatus moxsThreshold_GT_32s(const Mox32s* src, Mox32s* dst, int len, Mox32s level);
MOX_API MoxStatus moxsThreshold_GT_32f(const Mox32f* src, Mox32f* dst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_GT_32fc(const Mox32fc* src, Mox32fc* dst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_GT_64f(const Mox64f* src, Mox64f* dst, int len, Mox64f level);
MOX_API MoxStatus moxsThreshold_GT_64fc(const Mox64fc* src, Mox64fc* dst, int len, Mox64f level);
MOX_API MoxStatus moxsThreshold_GT_16s_I(Mox16s* srcDst, int len, Mox16s level);
MOX_API MoxStatus moxsThreshold_GT_16sc_I(Mox16sc* srcDst, int len, Mox16s level);
MOX_API MoxStatus moxsThreshold_GT_32s_I(Mox32s* srcDst, int len, Mox32s level);
MOX_API MoxStatus moxsThreshold_GT_32f_I(Mox32f* srcDst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_GT_32fc_I(Mox32fc* srcDst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_GT_64f_I(Mox64f* srcDst, int len, Mox64f level);
MOX_API MoxStatus moxsThreshold_GT_64fc_I(Mox64fc* srcDst, int len, Mox64f level);
/** @} */

/** @name Threshold: LT or GT by an argument
 * As LT with ::moxThresholdLess, as GT with ::moxThresholdGreater.
 *
 * @return After all else, ::moxErrBadArg for any other `relOp`.
 * @{ */
MOX_API MoxStatus moxsThreshold_16s(const Mox16s* src, Mox16s* dst, int len, Mox16s level,
                                    int relOp);
MOX_API MoxStatus moxsThreshold_16sc(const Mox16sc* src, Mox16sc* dst, int len, Mox16s level,
                                     int relOp);
MOX_API MoxStatus moxsThreshold_32f(const Mox32f* src, Mox32f* dst, int len, Mox32f level,
                                    int relOp);
MOX_API MoxStatus moxsThreshold_32fc(const Mox32fc* src, Mox32fc* dst, int len, Mox32f level,
                                     int relOp);
MOX_API MoxStatus moxsThreshold_64f(const Mox64f* src, Mox64f* dst, int len, Mox64f level,
                                    int relOp);
MOX_API MoxStatus moxsThreshold_64fc(const Mox64fc* src, Mox64fc* dst, int len, Mox64f level,
                                     int relOp);
MOX_API MoxStatus moxsThreshold_16s_I(Mox16s* srcDst, int len, Mox16s level, int relOp);
MOX_API MoxStatus moxsThreshold_16sc_I(Mox16sc* srcDst, int len, Mox16s level, int relOp);
MOX_API MoxStatus moxsThreshold_32f_I(Mox32f* srcDst, int len, Mox32f level, int relOp);
MOX_API MoxStatus moxsThreshold_32fc_I(Mox32fc* srcDst, int len, Mox32f level, int relOp);
MOX_API MoxStatus moxsThreshold_64f_I(Mox64f* srcDst, int len, Mox64f level, int relOp);
MOX_API MoxStatus moxsThreshold_64fc_I(Mox64fc* srcDst, int len, Mox64f level, int relOp);
/** @} */

/** @name LTVal: elements below a level become a value
 * `level <= x ? x : value`. NaN gives `value`. On complex elements x is the magnitude in the
 * comparison, the element in the result.
 * @{ */
MOX_API MoxStatus moxsThreshold_LTVal_16s(const Mox16s* src, Mox16s* dst, int len, Mox16s level,
                                          Mox16s value);
MOX_API MoxStatus moxsThreshold_LTVal_16sc(const Mox16sc* src, Mox16sc* dst, int len, Mox16s level,
                                           Mox16sc value);
MOX_API MoxStatus moxsThreshold_LTVal_32f(const Mox32f* src, Mox32f* dst, int len, Mox32f level,
                                          Mox32f value);
MOX_API MoxStatus moxsThreshold_LTVal_32fc(const Mox32fc* src, Mox32fc* dst, int len, Mox32f level,
                                           Mox32fc value);
MOX_API MoxStatus moxsThreshold_LTVal_64f(const Mox64f* src, Mox64f* dst, int len, Mox64f level,
                                          Mox64f value);
MOX_API MoxStatus moxsThreshold_LTVal_64fc(const Mox64fc* src, Mox64fc* dst, int len, Mox64f level,
                                           Mox64fc value);
MOX_API MoxStatus moxsThreshold_LTVal_16s_I(Mox16s* srcDst, int len, Mox16s level, Mox16s value);
MOX_API MoxStatus moxsThreshold_LTVal_16sc_I(Mox16sc* srcDst, int len, Mox16s level, Mox16sc value);
MOX_API MoxStatus moxsThreshold_LTVal_32f_I(Mox32f* srcDst, int len, Mox32f level, Mox32f value);
MOX_API MoxStatus moxsThreshold_LTVal_32fc_I(Mox32fc* srcDst, int len, Mox32f level, Mox32fc value);
MOX_API MoxStatus moxsThreshold_LTVal_64f_I(Mox64f* srcDst, int len, Mox64f level, Mox64f value);
MOX_API MoxStatus moxsThreshold_LTVal_64fc_I(Mox64fc* srcDst, int len, Mox64f level, Mox64fc value);
/** @} */

/** @name GTVal: elements above a level become a value
 * `level >= x ? x : value`. NaN gives `value`. On complex elements x is the magnitude in the
 * comparison, the element in the result.
 * @{ */
MOX_API MoxStatus moxsThreshold_GTVal_16s(const Mox16s* src, Mox16s* dst, int len, Mox16s level,
                                          Mox16s value);
MOX_API MoxStatus moxsThreshold_GTVal_16sc(const Mox16sc* src, Mox16sc* dst, int len, Mox16s level,
                                           Mox16sc value);
MOX_API MoxStatus moxsThreshold_GTVal_32f(const Mox32f* src, Mox32f* dst, int len, Mox32f level,
                                          Mox32f value);
MOX_API MoxStatus moxsThreshold_GTVal_32fc(const Mox32fc* src, Mox32fc* dst, int len, Mox32f level,
                                           Mox32fc value);
MOX_API MoxStatus moxsThreshold_GTVal_64f(const Mox64f* src, Mox64f* dst, int len, Mox64f level,
                                          Mox64f value);
MOX_API MoxStatus moxsThreshold_GTVal_64fc(const Mox64fc* src, Mox64fc* dst, int len, Mox64f level,
                                           Mox64fc value);
MOX_API MoxStatus moxsThreshold_GTVal_16s_I(Mox16s* srcDst, int len, Mox16s level, Mox16s value);
MOX_API MoxStatus moxsThreshold_GTVal_16sc_I(Mox16sc* srcDst, int len, Mox16s level, Mox16sc value);
MOX_API MoxStatus moxsThreshold_GTVal_32f_I(Mox32f* srcDst, int len, Mox32f level, Mox32f value);
MOX_API MoxStatus moxsThreshold_GTVal_32fc_I(Mox32fc* srcDst, int len, Mox32f level, Mox32fc value);
MOX_API MoxStatus moxsThreshold_GTVal_64f_I(Mox64f* srcDst, int len, Mox64f level, Mox64f value);
MOX_API MoxStatus moxsThreshold_GTVal_64fc_I(Mox64fc* srcDst, int len, Mox64f level, Mox64fc value);
/** @} */

/** @name LTValGTVal: elements outside of two levels become values
 * `x < levelLT ? valueLT : x > levelGT ? valueGT : x`. NaN stays.
 *
 * @return ::moxErrThreshOrder for `levelLT` above `levelGT`.
 * @{ */
MOX_API MoxStatus moxsThreshold_LTValGTVal_16s(const Mox16s* src, Mox16s* dst, int len,
                                               Mox16s levelLT, Mox16s valueLT, Mox16s levelGT,
                                               Mox16s valueGT);
MOX_API MoxStatus moxsThreshold_LTValGTVal_32s(const Mox32s* src, Mox32s* dst, int len,
                                               Mox32s levelLT, Mox32s valueLT, Mox32s levelGT,
                                               Mox32s valueGT);
MOX_API MoxStatus moxsThreshold_LTValGTVal_32f(const Mox32f* src, Mox32f* dst, int len,
                                               Mox32f levelLT, Mox32f valueLT, Mox32f levelGT,
                                               Mox32f valueGT);
MOX_API MoxStatus moxsThreshold_LTValGTVal_64f(const Mox64f* src, Mox64f* dst, int len,
                                               Mox64f levelLT, Mox64f valueLT, Mox64f levelGT,
                                               Mox64f valueGT);
MOX_API MoxStatus moxsThreshold_LTValGTVal_16s_I(Mox16s* srcDst, int len, Mox16s levelLT,
                                                 Mox16s valueLT, Mox16s levelGT, Mox16s valueGT);
MOX_API MoxStatus moxsThreshold_LTValGTVal_32s_I(Mox32s* srcDst, int len, Mox32s levelLT,
                                                 Mox32s valueLT, Mox32s levelGT, Mox32s valueGT);
MOX_API MoxStatus moxsThreshold_LTValGTVal_32f_I(Mox32f* srcDst, int len, Mox32f levelLT,
                                                 Mox32f valueLT, Mox32f levelGT, Mox32f valueGT);
MOX_API MoxStatus moxsThreshold_LTValGTVal_64f_I(Mox64f* srcDst, int len, Mox64f levelLT,
                                                 Mox64f valueLT, Mox64f levelGT, Mox64f valueGT);
/** @} */

/** @name LTAbs: magnitudes below a level are raised to it
 * `level > |x| ? (x >= 0 ? level : -level) : x`. NaN stays; a zero of either sign becomes `level`.
 * @{ */
MOX_API MoxStatus moxsThreshold_LTAbs_16s(const Mox16s* src, Mox16s* dst, int len, Mox16s level);
MOX_API MoxStatus moxsThreshold_LTAbs_32s(const Mox32s* src, Mox32s* dst, int len, Mox32s level);
MOX_API MoxStatus moxsThreshold_LTAbs_32f(const Mox32f* src, Mox32f* dst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_LTAbs_64f(const Mox64f* src, Mox64f* dst, int len, Mox64f level);
MOX_API MoxStatus moxsThreshold_LTAbs_16s_I(Mox16s* srcDst, int len, Mox16s level);
MOX_API MoxStatus moxsThreshold_LTAbs_32s_I(Mox32s* srcDst, int len, Mox32s level);
MOX_API MoxStatus moxsThreshold_LTAbs_32f_I(Mox32f* srcDst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_LTAbs_64f_I(Mox64f* srcDst, int len, Mox64f level);
/** @} */

/** @name GTAbs: magnitudes above a level are lowered to it
 * `-level > y ? -level : y` with `y = x < level ? x : level`: x limited to the range from -level to
 * level. NaN gives `level`.
 * @{ */
MOX_API MoxStatus moxsThreshold_GTAbs_16s(const Mox16s* src, Mox16s* dst, int len, Mox16s level);
MOX_API MoxStatus moxsThreshold_GTAbs_32s(const Mox32s* src, Mox32s* dst, int len, Mox32s level);
MOX_API MoxStatus moxsThreshold_GTAbs_32f(const Mox32f* src, Mox32f* dst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_GTAbs_64f(const Mox64f* src, Mox64f* dst, int len, Mox64f level);
MOX_API MoxStatus moxsThreshold_GTAbs_16s_I(Mox16s* srcDst, int len, Mox16s level);
MOX_API MoxStatus moxsThreshold_GTAbs_32s_I(Mox32s* srcDst, int len, Mox32s level);
MOX_API MoxStatus moxsThreshold_GTAbs_32f_I(Mox32f* srcDst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_GTAbs_64f_I(Mox64f* srcDst, int len, Mox64f level);
/** @} */

/** @name LTInv: reciprocals, where magnitudes below a level count as the level
 * `1 / (level > |x| ? (x with the magnitude level) : x)`, where the sign of a zero counts. NaN
 * stays, an infinity gives zero. With a `level` of 0 a zero gives the infinity of its sign.
 *
 * A complex element gives `1 / z`, where z is the element with its magnitude raised to `level` as
 * under LT; with a `level` of 0 a zero gives plus infinity on the real axis.
 *
 * @return ::moxWarnInvZero where `level` is 0 and an element is zero; all elements are done.
 * @note To nearest, whatever the rounding mode in force: in `64f` one IEEE 754 division to the bit;
 * within 5 units in the last place of the exact value in `32f`, where a magnitude of 2^126 or more
 * may give 0; within 3 units in the parts of `32fc` and `64fc`. Those of `32f` depend on the
 * processor's estimate of 1 / x, and were seen to differ by 2 ulps between processors.
 * @{ */
MOX_API MoxStatus moxsThreshold_LTInv_32f(const Mox32f* src, Mox32f* dst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_LTInv_32fc(const Mox32fc* src, Mox32fc* dst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_LTInv_64f(const Mox64f* src, Mox64f* dst, int len, Mox64f level);
MOX_API MoxStatus moxsThreshold_LTInv_64fc(const Mox64fc* src, Mox64fc* dst, int len, Mox64f level);
MOX_API MoxStatus moxsThreshold_LTInv_32f_I(Mox32f* srcDst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_LTInv_32fc_I(Mox32fc* srcDst, int len, Mox32f level);
MOX_API MoxStatus moxsThreshold_LTInv_64f_I(Mox64f* srcDst, int len, Mox64f level);
MOX_API MoxStatus moxsThreshold_LTInv_64fc_I(Mox64fc* srcDst, int len, Mox64f level);
/** @} */
/** @} */

#endif
