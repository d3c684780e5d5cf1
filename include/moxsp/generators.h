/**
 * @file
 * Signal generators: tones, triangles.
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

/** @defgroup tone Tone
 * @ingroup topic_generators
 * Sinusoids: `dst[n] = magn * cos(2 pi rFreq n + phase)`, of complex elements the real part, with
 * `magn * sin(2 pi rFreq n + phase)` as the imaginary part. On return `phase` is that of the sample
 * behind the last, from 0 to 2 pi, so that the next call goes on without a seam. `hint` is
 * ::moxHintFast for the fast path, in single precision but for `64f` and `64fc`; any other value
 * takes the accurate one.
 *
 * @return In this order: ::moxErrNullPtr for a null `phase`; ::moxErrToneMagn for `magn` not above
 * 0; ::moxErrToneFreq for `rFreq` below 0 or not below 0.5; ::moxErrTonePhase for a phase below 0 or
 * not below 2 pi; ::moxErrNullPtr for a null `dst`; ::moxErrSize for `len` below 1.
 * @note Phases are exact to double precision at every 1024th sample, and turn by products in
 * between. So there is no drift: beside the rounding of the type the error is within
 * (1e-14 + 4e-19 n) `magn`, or, on the fast path, within 4e-7 `magn`. Integers are rounded to nearest, ties away
 * from zero.
 * @{ */
MOX_API MoxStatus moxsTone_Direct_16s(Mox16s* dst, int len, Mox16s magn, Mox32f rFreq, Mox32f* phase, int hint);
MOX_API MoxStatus moxsTone_Direct_16sc(Mox16sc* dst, int len, Mox16s magn, Mox32f rFreq, Mox32f* phase, int hint);
MOX_API MoxStatus moxsTone_Direct_32f(Mox32f* dst, int len, Mox32f magn, Mox32f rFreq, Mox32f* phase, int hint);
MOX_API MoxStatus moxsTone_Direct_32fc(Mox32fc* dst, int len, Mox32f magn, Mox32f rFreq, Mox32f* phase, int hint);
MOX_API MoxStatus moxsTone_Direct_64f(Mox64f* dst, int len, Mox64f magn, Mox64f rFreq, Mox64f* phase, int hint);
MOX_API MoxStatus moxsTone_Direct_64fc(Mox64fc* dst, int len, Mox64f magn, Mox64f rFreq, Mox64f* phase, int hint);
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
MOX_API MoxStatus moxsTriangle_Direct_16s(Mox16s* dst, int len, Mox16s magn, Mox32f rFreq, Mox32f asym, Mox32f* phase);
MOX_API MoxStatus moxsTriangle_Direct_16sc(Mox16sc* dst, int len, Mox16s magn, Mox32f rFreq, Mox32f asym, Mox32f* phase);
MOX_API MoxStatus moxsTriangle_Direct_32f(Mox32f* dst, int len, Mox32f magn, Mox32f rFreq, Mox32f asym, Mox32f* phase);
MOX_API MoxStatus moxsTriangle_Direct_32fc(Mox32fc* dst, int len, Mox32f magn, Mox32f rFreq, Mox32f asym, Mox32f* phase);
MOX_API MoxStatus moxsTriangle_Direct_64f(Mox64f* dst, int len, Mox64f magn, Mox64f rFreq, Mox64f asym, Mox64f* phase);
MOX_API MoxStatus moxsTriangle_Direct_64fc(Mox64fc* dst, int len, Mox64f magn, Mox64f rFreq, Mox64f asym, Mox64f* phase);
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
MOX_API MoxStatus moxsToneInitQ15_16s(MoxToneState* state, Mox16s magn, Mox16s rFreqQ15, Mox32s phaseQ15);
MOX_API MoxStatus moxsToneInitAllocQ15_16s(MoxToneState** stateOut, Mox16s magn, Mox16s rFreqQ15, Mox32s phaseQ15);
MOX_API MoxStatus moxsToneFree(MoxToneState* state);
MOX_API MoxStatus moxsToneQ15_16s(Mox16s* dst, int len, MoxToneState* state);
MOX_API MoxStatus moxsToneQ15_Direct_16s(Mox16s* dst, int len, Mox16s magn, Mox16s rFreqQ15, Mox32s phaseQ15);
MOX_API MoxStatus moxsTriangleGetStateSizeQ15_16s(int* size);
MOX_API MoxStatus moxsTriangleInitQ15_16s(MoxTriangleState* state, Mox16s magn, Mox16s rFreqQ15, Mox32s phaseQ15, Mox32s asymQ15);
MOX_API MoxStatus moxsTriangleInitAllocQ15_16s(MoxTriangleState** stateOut, Mox16s magn, Mox16s rFreqQ15, Mox32s phaseQ15, Mox32s asymQ15);
MOX_API MoxStatus moxsTriangleFree(MoxTriangleState* state);
MOX_API MoxStatus moxsTriangleQ15_16s(Mox16s* dst, int len, MoxTriangleState* state);
MOX_API MoxStatus moxsTriangleQ15_Direct_16s(Mox16s* dst, int len, Mox16s magn, Mox16s rFreqQ15, Mox32s phaseQ15, Mox32s asymQ15);
/** @} */

#endif
