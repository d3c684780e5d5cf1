/**
 * @file
 * Steps of demodulators and decoders, and of front ends.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox16s re[4] = {1000, 0, -1000, 0}, im[4] = {0, 1000, 0, -1000};
 *   Mox16sc before = {0, -1000};
 *   Mox16s turns[4];
 *   moxsDemodulateFM_CToR_16s(re, im, turns, 4, &before);  // a quarter of a turn each
 *   for (int i = 0; i < 4; ++i) printf("%d ", turns[i]);  // 16384 16384 16384 16384
 *   Mox32f x[3] = {1, 2, 4};
 *   moxsPreemphasize_32f(x, 3, 1);
 *   for (int i = 0; i < 3; ++i) printf("%g ", x[i]);  // 1 1 2
 * }
 * @endcode
 */
#ifndef MOXSP_CHANNEL_H
#define MOXSP_CHANNEL_H

#include <moxsp/types.h>

/** @defgroup viterbi GetVarPointDV, BuildSymblTableDV4D, CalcStatesDV, UpdatePathMetricsDV
 * @ingroup topic_channel
 * The steps of a Viterbi decoder for a trellis code over four-dimensional symbols. A symbol is two
 * points of a grid of pitch 256 with points at 128, 128. The caller keeps metrics and paths.
 *
 * | `numStates`        | Subsets of points | Sets of symbols | Branches from a state |
 * |--------------------|-------------------|-----------------|-----------------------|
 * | 16                 | 4                 | 8               | 4                     |
 * | 32                 | 8                 | 16              | 8                     |
 * | other, meaning 64  | 8                 | 32              | 16                    |
 *
 * 1. **GetVarPointDV**, for each of both points. `dstPoint` is the reference point, the next one of
 *    the grid that lies to the left of the received point and below it (at most on it). `table`
 *    holds the subset of each point of the grid, by rows of 4 from -512 on, and repeats in both
 *    directions. `dstVar[subset]` becomes `{distance, candidate}` of the subset's nearest point,
 *    where the distance is the sum of `v * v >> 4` for both coordinates v. Candidates, in steps of
 *    the pitch from the reference point: 0 to 3 are (0, 0), (1, 0), (1, 1), (0, 1); of 8 subsets
 *    the others have two each, 4 to 7 (2, 0), (2, 1), (-1, 0), (-1, 1), or, where these are not
 *    nearer, 8 to 11 (0, 2), (0, -1), (1, 2), (1, -1). The table has both in one subset.
 * 2. **BuildSymblTableDV4D**. `src` is `dstVar` of the first point, then that of the second.
 *    `dst[k]` becomes `{candidates, distance}` of the nearest symbol of the set k: the sum of both
 *    distances, and the candidate of the second point times 256 plus that of the first. With n
 *    subsets, set k has the pairs numbered k, k + sets, k + 2 sets .. below n * n. A pair with the
 *    number e, all of whose bits are turned that are set in `flag`, has the subsets e / n and
 *    (e + e / n) mod n. Of equal distances the first one counts.
 * 3. **CalcStatesDV**. Branch b of the state s leads to `nextStates[branches * s + b]` and takes
 *    the symbol `branch[2 * b + s % 2]`. Where the sum of its distance and `metric[s]`, modulo
 *    2^16, is less than `dst` of the next state, `dst` takes the sum, and `path[offset + next]`
 *    becomes `{candidates, s}`. `dst` is to be set to 65535 before. States of the table count
 *    modulo the number of states.
 * 4. **UpdatePathMetricsDV** subtracts the least metric, which goes to `minMetric`, from all.
 *    `minIndex` is the first state that has it. `dst` may be `src`.
 *
 * The sets follow the partition of L.-F. Wei, Trellis-Coded Modulation with Multidimensional
 * Constellations, IEEE Trans. Information Theory 33 (1987), 483-501.
 *
 * @return ::moxErrNullPtr for a null pointer.
 * @{ */
MOX_API MoxStatus moxsGetVarPointDV_16sc(const Mox16sc* src, Mox16sc* dstPoint, Mox16sc* dstVar,
                                         const Mox8u* table, int numStates);
MOX_API MoxStatus moxsBuildSymblTableDV4D_16sc(const Mox16sc* src, Mox16sc* dst, int numStates,
                                               int flag);
MOX_API MoxStatus moxsCalcStatesDV_16sc(const Mox16u* metric, const Mox8u* nextStates, Mox16u* dst,
                                        const Mox16sc* branch, Mox16sc* path, int numStates,
                                        int offset);
MOX_API MoxStatus moxsUpdatePathMetricsDV_16u(const Mox16u* src, Mox16u* minMetric, Mox8u* minIndex,
                                              Mox16u* dst, int numStates);
/** @} */

/** @defgroup preemphasize Preemphasize
 * @ingroup topic_channel
 * `y[n] = x[n] - val * x[n - 1]` in place; the first element stays. Floats have each product and
 * each difference rounded. 16-bit results are computed in double precision, where products are
 * exact, rounded to nearest with ties to even, and saturated.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsPreemphasize_32f(Mox32f* srcDst, int len, Mox32f val);
MOX_API MoxStatus moxsPreemphasize_16s(Mox16s* srcDst, int len, Mox32f val);
/** @} */

/** @defgroup cauchy Cauchy, CauchyD, CauchyDD2
 * @ingroup topic_channel
 * The Cauchy loss `ln(1 + (x / c)^2) / 2` in place, its first derivative `x / (c^2 + x^2)`, and
 * that with the second derivative `(c^2 - x^2) / (c^2 + x^2)^2` in `dst2`. The loss is computed as
 * 1 + t * t with t = x * (1 / c), the logarithm of moxsLn_32f() and half of that; CauchyDD2 as
 * r = 1 / (c * c + x * x), x * r and r * r * (c * c - x * x); each operation is rounded.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 1, then
 * ::moxErrCauchyConst for `c` not above 0.
 * @{ */
MOX_API MoxStatus moxsCauchy_32f_I(Mox32f* srcDst, int len, Mox32f c);
MOX_API MoxStatus moxsCauchyD_32f_I(Mox32f* srcDst, int len, Mox32f c);
MOX_API MoxStatus moxsCauchyDD2_32f_I(Mox32f* srcDst, Mox32f* dst2, int len, Mox32f c);
/** @} */

/** @defgroup demodulatefm DemodulateFM
 * @ingroup topic_channel
 * The frequency of a complex signal: the angle from each point to the next in units of
 * pi / 2^15, saturated, so that 32767 is half the sampling rate. `dlyPoint` is the point before the
 * first one and becomes the last one: a stream may be cut anywhere. The angle from or to 0 is 0.
 * Results are within 0.51 of exact ones, and depend on the processor's estimate of 1 / x. `dst`
 * overlaps no source.
 *
 * @return ::moxErrNullPtr for a null pointer, then ::moxErrSize for `len` below 1.
 * @{ */
MOX_API MoxStatus moxsDemodulateFM_CToR_16s(const Mox16s* srcRe, const Mox16s* srcIm, Mox16s* dst,
                                            int len, Mox16sc* dlyPoint);
/** @} */

#endif
