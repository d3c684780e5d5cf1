/**
 * @file
 * Signal generators: tones, triangles, random numbers, test patterns.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   Mox32f x[4], phase = 0;
 *   moxsTone_Direct_32f(x, 2, 3, 0.25f, &phase, moxHintAccurate);
 *   moxsTriangle_Direct_32f(x + 2, 2, 3, 0.25f, 0, &phase);  // goes on at the phase of the tone
 *   for (int i = 0; i < 4; ++i) printf("%.1f ", x[i]);       // 3.0 0.0 -3.0 0.0
 * }
 * @endcode
 */
#ifndef MOXSP_GENERATORS_H
#define MOXSP_GENERATORS_H

#include <moxsp/types.h>

/** A tone of 16 bits, its parameters and its place. One thread at a time. */
typedef struct MoxToneState MoxToneState;
/** A triangle of 16 bits. One thread at a time. */
typedef struct MoxTriangleState MoxTriangleState;
/** A sequence of uniform random numbers. One thread at a time. */
typedef struct MoxRandUniformState MoxRandUniformState;
/** A sequence of normal random numbers. One thread at a time. */
typedef struct MoxRandGaussState MoxRandGaussState;

/** @defgroup tone Tone
 * @ingroup topic_generators
 * Sinusoids: `dst[n] = magn * cos(2 pi rFreq n + phase)`, of complex elements the real part, with
 * `magn * sin(2 pi rFreq n + phase)` as the imaginary part. On return `phase` is that of the sample
 * behind the last, from 0 to 2 pi, so that the next call goes on without a seam. `hint` is
 * ::moxHintFast for the fast path, in single precision but for `64f` and `64fc`; any other value
 * takes the accurate one.
 *
 * @return In this order: ::moxErrNullPtr for a null `phase`; ::moxErrToneMagn for `magn` not above
 * 0; ::moxErrToneFreq for `rFreq` below 0 or not below 0.5; ::moxErrTonePhase for a phase below 0
 * or not below 2 pi; ::moxErrNullPtr for a null `dst`; ::moxErrSize for `len` below 1.
 * @note Phases are exact to double precision at every 1024th sample, and turn by products in
 * between. So there is no drift: beside the rounding of the type the error is within
 * (1e-14 + 4e-19 n) `magn`, or, on the fast path, within 4e-7 `magn`. Integers are rounded to
 * nearest, ties away from zero.
 * @{ */
MOX_API MoxStatus moxsTone_Direct_16s(Mox16s* dst, int len, Mox16s magn, Mox32f rFreq,
                                      Mox32f* phase, int hint);
MOX_API MoxStatus moxsTone_Direct_16sc(Mox16sc* dst, int len, Mox16s magn, Mox32f rFreq,
                                       Mox32f* phase, int hint);
MOX_API MoxStatus moxsTone_Direct_32f(Mox32f* dst, int len, Mox32f magn, Mox32f rFreq,
                                      Mox32f* phase, int hint);
MOX_API MoxStatus moxsTone_Direct_32fc(Mox32fc* dst, int len, Mox32f magn, Mox32f rFreq,
                                       Mox32f* phase, int hint);
MOX_API MoxStatus moxsTone_Direct_64f(Mox64f* dst, int len, Mox64f magn, Mox64f rFreq,
                                      Mox64f* phase, int hint);
MOX_API MoxStatus moxsTone_Direct_64fc(Mox64fc* dst, int len, Mox64f magn, Mox64f rFreq,
                                       Mox64f* phase, int hint);
/** @} */

/** @defgroup triangle Triangle
 * @ingroup topic_generators
 * Triangles: from `magn` at phase 0 in a straight line to -magn at phase pi + asym, and back to
 * `magn` at 2 pi; the phase of sample n is 2 pi rFreq n + phase. The imaginary part of complex
 * elements is the same wave a quarter of a period later. On return `phase` is that of the sample
 * behind the last, from 0 to 2 pi.
 *
 * @return In this order: ::moxErrNullPtr for a null `phase`; ::moxErrTriangleMagn for `magn` not
 * above 0; ::moxErrTriangleFreq for `rFreq` below 0 or not below 0.5; ::moxErrTriangleAsym for
 * `asym` below -pi or not below pi; ::moxErrTrianglePhase for a phase below 0 or not below 2 pi;
 * ::moxErrNullPtr for a null `dst`; ::moxErrSize for `len` below 1.
 * @note The phase of each sample is exact within 1e-12, for every n, so that values are within that
 * times the slope, and the rounding of the type. Integers are rounded to nearest, ties away from
 * zero.
 * @{ */
MOX_API MoxStatus moxsTriangle_Direct_16s(Mox16s* dst, int len, Mox16s magn, Mox32f rFreq,
                                          Mox32f asym, Mox32f* phase);
MOX_API MoxStatus moxsTriangle_Direct_16sc(Mox16sc* dst, int len, Mox16s magn, Mox32f rFreq,
                                           Mox32f asym, Mox32f* phase);
MOX_API MoxStatus moxsTriangle_Direct_32f(Mox32f* dst, int len, Mox32f magn, Mox32f rFreq,
                                          Mox32f asym, Mox32f* phase);
MOX_API MoxStatus moxsTriangle_Direct_32fc(Mox32fc* dst, int len, Mox32f magn, Mox32f rFreq,
                                           Mox32f asym, Mox32f* phase);
MOX_API MoxStatus moxsTriangle_Direct_64f(Mox64f* dst, int len, Mox64f magn, Mox64f rFreq,
                                          Mox64f asym, Mox64f* phase);
MOX_API MoxStatus moxsTriangle_Direct_64fc(Mox64fc* dst, int len, Mox64f magn, Mox64f rFreq,
                                           Mox64f asym, Mox64f* phase);
/** @} */

/** @defgroup tone_q15 Tones and triangles with a state
 * @ingroup topic_generators
 * The same waves of 16 bits, with `rFreqQ15`, `phaseQ15` and `asymQ15` in units of 2^-15.
 * `GetStateSize` tells the bytes that `Init` needs, at any address; `InitAlloc` takes the memory
 * itself, and `Free` releases it and leaves other states as they are. A run goes on where the last
 * one ended, however long that is. `Direct` starts at `phaseQ15`, and has no state.
 *
 * @return ::moxErrNullPtr for a null pointer, ::moxErrSize for `len` below 1; then, with the names
 * of the wave, ::moxErrToneMagn for `magn` below 1, ::moxErrToneFreq for `rFreqQ15` outside 0 to
 * 16383, ::moxErrTonePhase for `phaseQ15` outside 0 to 205886, ::moxErrTriangleAsym for `asymQ15`
 * outside -102943 to 102943. Runs and `Free` ::moxErrContext for another object, `InitAlloc`
 * ::moxErrMemAlloc without memory.
 * @note Rounded to nearest, ties away from zero, from values within 1e-12 times `magn`, times the
 * slope of a triangle.
 * @{ */
MOX_API MoxStatus moxsToneGetStateSizeQ15_16s(int* size);
MOX_API MoxStatus moxsToneInitQ15_16s(MoxToneState* state, Mox16s magn, Mox16s rFreqQ15,
                                      Mox32s phaseQ15);
MOX_API MoxStatus moxsToneInitAllocQ15_16s(MoxToneState** stateOut, Mox16s magn, Mox16s rFreqQ15,
                                           Mox32s phaseQ15);
MOX_API MoxStatus moxsToneFree(MoxToneState* state);
MOX_API MoxStatus moxsToneQ15_16s(Mox16s* dst, int len, MoxToneState* state);
MOX_API MoxStatus moxsToneQ15_Direct_16s(Mox16s* dst, int len, Mox16s magn, Mox16s rFreqQ15,
                                         Mox32s phaseQ15);
MOX_API MoxStatus moxsTriangleGetStateSizeQ15_16s(int* size);
MOX_API MoxStatus moxsTriangleInitQ15_16s(MoxTriangleState* state, Mox16s magn, Mox16s rFreqQ15,
                                          Mox32s phaseQ15, Mox32s asymQ15);
MOX_API MoxStatus moxsTriangleInitAllocQ15_16s(MoxTriangleState** stateOut, Mox16s magn,
                                               Mox16s rFreqQ15, Mox32s phaseQ15, Mox32s asymQ15);
MOX_API MoxStatus moxsTriangleFree(MoxTriangleState* state);
MOX_API MoxStatus moxsTriangleQ15_16s(Mox16s* dst, int len, MoxTriangleState* state);
MOX_API MoxStatus moxsTriangleQ15_Direct_16s(Mox16s* dst, int len, Mox16s magn, Mox16s rFreqQ15,
                                             Mox32s phaseQ15, Mox32s asymQ15);
/** @} */

/** @defgroup randuniform RandUniform
 * @ingroup topic_generators
 * Uniform random numbers: (low + high) / 2 + (high - low) 2^-32 u, with u of a sequence of 32-bit
 * integers from -2^31 to 2^31 - 1, so that results lie from `low` to `high`, which may stand in
 * either order. Integers are truncated toward zero.
 *
 * `GetSize` tells the bytes that `Init` needs, at any address; `InitAlloc` takes the memory itself,
 * and `Free` releases it and leaves other states as they are. States with the same seed give the
 * same sequence, however it is cut into calls. The `Direct` forms start at `seed` in each call, and
 * leave there a seed for the next one.
 *
 * The sequence, modulo 2^32: c[0] = 1131199209, d[0] = `seed`, d[-1] = f(d[0]), d[-2] = f(d[-1])
 * with f(x) = 69069 x + 1013904243. Then t = d[n-2] - d[n-3] - k, where k is 1 for n = 1, later 1
 * where the last t as a signed integer was below 0, else 0; d[n] = t, less 18 where t is below 0;
 * c[n] = f(c[n-1]); u[n] = c[n] + d[n]. `Direct` leaves the last d.
 *
 * @return ::moxErrNullPtr for a null pointer, ::moxErrSize for `len` below 1; runs and `Free`
 * ::moxErrContext for another object; `InitAlloc` ::moxErrMemAlloc without memory.
 * @note To the bit: products and sums are rounded to double precision, then the result to its type;
 * in `32f` low + high and high - low are rounded to single precision. Source of the sequence:
 * Marsaglia and Zaman, Some portable very-long-period random number generators, Computers in
 * Physics 8 (1994).
 * @{ */
MOX_API MoxStatus moxsRandUniformGetSize_8u(int* size);
MOX_API MoxStatus moxsRandUniformInit_8u(MoxRandUniformState* state, Mox8u low, Mox8u high,
                                         Mox32u seed);
MOX_API MoxStatus moxsRandUniformInitAlloc_8u(MoxRandUniformState** stateOut, Mox8u low, Mox8u high,
                                              Mox32u seed);
MOX_API MoxStatus moxsRandUniformFree_8u(MoxRandUniformState* state);
MOX_API MoxStatus moxsRandUniform_8u(Mox8u* dst, int len, MoxRandUniformState* state);
MOX_API MoxStatus moxsRandUniformGetSize_16s(int* size);
MOX_API MoxStatus moxsRandUniformInit_16s(MoxRandUniformState* state, Mox16s low, Mox16s high,
                                          Mox32u seed);
MOX_API MoxStatus moxsRandUniformInitAlloc_16s(MoxRandUniformState** stateOut, Mox16s low,
                                               Mox16s high, Mox32u seed);
MOX_API MoxStatus moxsRandUniformFree_16s(MoxRandUniformState* state);
MOX_API MoxStatus moxsRandUniform_16s(Mox16s* dst, int len, MoxRandUniformState* state);
MOX_API MoxStatus moxsRandUniformGetSize_32f(int* size);
MOX_API MoxStatus moxsRandUniformInit_32f(MoxRandUniformState* state, Mox32f low, Mox32f high,
                                          Mox32u seed);
MOX_API MoxStatus moxsRandUniformInitAlloc_32f(MoxRandUniformState** stateOut, Mox32f low,
                                               Mox32f high, Mox32u seed);
MOX_API MoxStatus moxsRandUniformFree_32f(MoxRandUniformState* state);
MOX_API MoxStatus moxsRandUniform_32f(Mox32f* dst, int len, MoxRandUniformState* state);
MOX_API MoxStatus moxsRandUniform_Direct_16s(Mox16s* dst, int len, Mox16s low, Mox16s high,
                                             Mox32u* seed);
MOX_API MoxStatus moxsRandUniform_Direct_32f(Mox32f* dst, int len, Mox32f low, Mox32f high,
                                             Mox32u* seed);
MOX_API MoxStatus moxsRandUniform_Direct_64f(Mox64f* dst, int len, Mox64f low, Mox64f high,
                                             Mox32u* seed);
/** @} */

/** @defgroup randgauss RandGauss
 * @ingroup topic_generators
 * Normal random numbers with a mean and a standard deviation, from the sequence of
 * @ref randuniform "RandUniform" by the polar method: two numbers p and q in turn, u 2^-31, until
 * 0 < s < 1 for s = p p + q q; then `mean + stdDev q f` and `mean + stdDev p f` with
 * f = sqrt(-2 ln(s) / s). States, seeds and the `Direct` forms are as there; a state keeps the
 * second number of a pair for its next call, `Direct` drops it. Integers are truncated toward
 * zero, and saturated.
 *
 * @return ::moxErrNullPtr for a null pointer, ::moxErrSize for `len` below 1; runs and `Free`
 * ::moxErrContext for another object; `InitAlloc` ::moxErrMemAlloc without memory.
 * @note `stdDev q f` is within 3 * 2^-52 of itself of the exact value, before it is rounded to
 * single precision in `32f` and the mean is added. Source: Marsaglia and Bray, A convenient method
 * for generating normal variables, SIAM Review 6 (1964).
 * @{ */
MOX_API MoxStatus moxsRandGaussGetSize_8u(int* size);
MOX_API MoxStatus moxsRandGaussInit_8u(MoxRandGaussState* state, Mox8u mean, Mox8u stdDev,
                                       Mox32u seed);
MOX_API MoxStatus moxsRandGaussInitAlloc_8u(MoxRandGaussState** stateOut, Mox8u mean, Mox8u stdDev,
                                            Mox32u seed);
MOX_API MoxStatus moxsRandGaussFree_8u(MoxRandGaussState* state);
MOX_API MoxStatus moxsRandGauss_8u(Mox8u* dst, int len, MoxRandGaussState* state);
MOX_API MoxStatus moxsRandGaussGetSize_16s(int* size);
MOX_API MoxStatus moxsRandGaussInit_16s(MoxRandGaussState* state, Mox16s mean, Mox16s stdDev,
                                        Mox32u seed);
MOX_API MoxStatus moxsRandGaussInitAlloc_16s(MoxRandGaussState** stateOut, Mox16s mean,
                                             Mox16s stdDev, Mox32u seed);
MOX_API MoxStatus moxsRandGaussFree_16s(MoxRandGaussState* state);
MOX_API MoxStatus moxsRandGauss_16s(Mox16s* dst, int len, MoxRandGaussState* state);
MOX_API MoxStatus moxsRandGaussGetSize_32f(int* size);
MOX_API MoxStatus moxsRandGaussInit_32f(MoxRandGaussState* state, Mox32f mean, Mox32f stdDev,
                                        Mox32u seed);
MOX_API MoxStatus moxsRandGaussInitAlloc_32f(MoxRandGaussState** stateOut, Mox32f mean,
                                             Mox32f stdDev, Mox32u seed);
MOX_API MoxStatus moxsRandGaussFree_32f(MoxRandGaussState* state);
MOX_API MoxStatus moxsRandGauss_32f(Mox32f* dst, int len, MoxRandGaussState* state);
MOX_API MoxStatus moxsRandGauss_Direct_16s(Mox16s* dst, int len, Mox16s mean, Mox16s stdDev,
                                           Mox32u* seed);
MOX_API MoxStatus moxsRandGauss_Direct_32f(Mox32f* dst, int len, Mox32f mean, Mox32f stdDev,
                                           Mox32u* seed);
MOX_API MoxStatus moxsRandGauss_Direct_64f(Mox64f* dst, int len, Mox64f mean, Mox64f stdDev,
                                           Mox32u* seed);
/** @} */

/** @defgroup vectorramp VectorRamp and VectorSlope
 * @ingroup topic_generators
 * Straight lines: `dst[i] = offset + slope * i`. Both names give the same.
 *
 * @return ::moxErrNullPtr for a null `dst`, then ::moxErrSize for `len` below 1.
 * @note To the bit: the product and the sum are rounded to double precision, and the result to its
 * type. Integers are rounded to nearest with ties away from zero, and saturated.
 * @{ */
MOX_API MoxStatus moxsVectorRamp_8s(Mox8s* dst, int len, Mox32f offset, Mox32f slope);
MOX_API MoxStatus moxsVectorSlope_8s(Mox8s* dst, int len, Mox32f offset, Mox32f slope);
MOX_API MoxStatus moxsVectorRamp_8u(Mox8u* dst, int len, Mox32f offset, Mox32f slope);
MOX_API MoxStatus moxsVectorSlope_8u(Mox8u* dst, int len, Mox32f offset, Mox32f slope);
MOX_API MoxStatus moxsVectorRamp_16s(Mox16s* dst, int len, Mox32f offset, Mox32f slope);
MOX_API MoxStatus moxsVectorSlope_16s(Mox16s* dst, int len, Mox32f offset, Mox32f slope);
MOX_API MoxStatus moxsVectorRamp_16u(Mox16u* dst, int len, Mox32f offset, Mox32f slope);
MOX_API MoxStatus moxsVectorSlope_16u(Mox16u* dst, int len, Mox32f offset, Mox32f slope);
MOX_API MoxStatus moxsVectorRamp_32s(Mox32s* dst, int len, Mox32f offset, Mox32f slope);
MOX_API MoxStatus moxsVectorSlope_32s(Mox32s* dst, int len, Mox32f offset, Mox32f slope);
MOX_API MoxStatus moxsVectorRamp_32u(Mox32u* dst, int len, Mox32f offset, Mox32f slope);
MOX_API MoxStatus moxsVectorSlope_32u(Mox32u* dst, int len, Mox32f offset, Mox32f slope);
MOX_API MoxStatus moxsVectorRamp_32f(Mox32f* dst, int len, Mox32f offset, Mox32f slope);
MOX_API MoxStatus moxsVectorSlope_32f(Mox32f* dst, int len, Mox32f offset, Mox32f slope);
MOX_API MoxStatus moxsVectorRamp_64f(Mox64f* dst, int len, Mox64f offset, Mox64f slope);
MOX_API MoxStatus moxsVectorSlope_64f(Mox64f* dst, int len, Mox64f offset, Mox64f slope);
/** @} */

/** @defgroup vectorjaehne VectorJaehne
 * @ingroup topic_generators
 * A sine whose frequency grows evenly from 0 to a half: `dst[n] = magn * sin(n h n)` with
 * h = pi / (2 len). Unsigned forms hold 0.5 `magn` sin(n h n) as signed integers, and raise all
 * elements by the lowest of them, which so becomes 0.
 *
 * @return ::moxErrNullPtr for a null `dst`, ::moxErrSize for `len` below 1, ::moxErrJaehneMagn for
 * a negative `magn`.
 * @note The angle n h n is rounded to double precision, twice; the sine is within an ulp of that.
 * Integers are rounded to nearest, ties away from zero.
 * @{ */
MOX_API MoxStatus moxsVectorJaehne_8s(Mox8s* dst, int len, Mox8s magn);
MOX_API MoxStatus moxsVectorJaehne_8u(Mox8u* dst, int len, Mox8u magn);
MOX_API MoxStatus moxsVectorJaehne_16s(Mox16s* dst, int len, Mox16s magn);
MOX_API MoxStatus moxsVectorJaehne_16u(Mox16u* dst, int len, Mox16u magn);
MOX_API MoxStatus moxsVectorJaehne_32s(Mox32s* dst, int len, Mox32s magn);
MOX_API MoxStatus moxsVectorJaehne_32u(Mox32u* dst, int len, Mox32u magn);
MOX_API MoxStatus moxsVectorJaehne_32f(Mox32f* dst, int len, Mox32f magn);
MOX_API MoxStatus moxsVectorJaehne_64f(Mox64f* dst, int len, Mox64f magn);
/** @} */

#endif
