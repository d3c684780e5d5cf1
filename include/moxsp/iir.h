/**
 * @file
 * IIR filters.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox32f taps[6] = {1, 0, 0, 1, -0.5f, 0};  // y[n] = x[n] + 0.5 y[n-1]
 *   Mox32f x[6] = {8, 0, 0, 0, 0, 0};
 *   MoxsIIRState* filter;
 *   if (moxsIIRInitAlloc_BiQuad_32f(&filter, taps, 1, NULL) != moxOk) return 1;
 *   moxsIIR_32f_I(x, 3, filter);                      // a stream may come in blocks of any length
 *   moxsIIR_32f_I(x + 3, 3, filter);                  // the state remembers what is still to come
 *   for (int i = 0; i < 6; ++i) printf("%g ", x[i]);  // 8 4 2 1 0.5 0.25
 *   moxsIIRFree_32f(filter);
 * }
 * @endcode
 */
#ifndef MOXSP_IIR_H
#define MOXSP_IIR_H

#include <moxsp/types.h>

/** An IIR filter: taps, what follows from them, delay line and scratch. One thread at a time. */
typedef struct MoxsIIRState MoxsIIRState;

/**
 * @page iir_names Names of the IIR families
 * A filter computes, with taps b[0] .. b[n] and a[0] .. a[n],
 *
 *     a[0] y[i] = sum of b[k] x[i - k] over 0 <= k <= n - sum of a[k] y[i - k] over 1 <= k <= n
 *
 * A name ends with the type of the taps and that of the data: `32f_16s` filters 16-bit samples with
 * float taps, `_32f` floats with floats. `32s_16s` takes integer taps in units of 2^-tapsFactor and
 * holds them as `Mox32f`, so that it is `32f_16s` on rounded taps; `32s_16s32f` is that filter with
 * its taps given as `Mox32f`. `32sc_16sc` and `32sc_16sc32fc` are the same of complex numbers.
 *
 * A filter without more in its name has any order n >= 1; its taps are `b[0] .. b[n], a[0] ..
 * a[n]`. `BiQuad` is a cascade of `numBq` sections of order 2, the output of each the input of the
 * next; its taps are `b[0], b[1], b[2], a[0], a[1], a[2]` of one section after the other. `DF1` is
 * such a cascade in direct form I.
 */

/** @defgroup iir_state States of IIR filters
 * @ingroup topic_filters
 * `GetStateSize` tells the bytes that `Init` needs, at any address. `Init` sets the filter up there
 * and stores the address of its state, which is inside `buffer`; `InitAlloc` takes the memory
 * itself. Taps (@ref iir_names) and delay line (@ref iir_dlyline) are copied; a null `dlyLine`
 * stands for zeros. `Free` releases what `InitAlloc` took and leaves other states as they are; its
 * names leave out `BiQuad`, `DF1`, and `32f` and `32fc` behind the types of integer taps.
 *
 * Taps are divided by a[0]: multiplied by its reciprocal in the type of the taps that the state
 * holds.
 *
 * @return ::moxErrNullPtr for a null argument other than `dlyLine`; ::moxErrIirOrder for `order` or
 * `numBq` below 1, and for more than a state of 2^31 - 1 bytes holds (of `InitAlloc`
 * ::moxErrMemAlloc); ::moxErrDivByZero for an a[0] that is zero, in a cascade also for a b[0] that
 * is; `InitAlloc`, and `Init` with integer taps, ::moxErrMemAlloc without memory; `Free`
 * ::moxErrContext for a state of other types. `Init` stores no state when it fails.
 * @{ */
MOX_API MoxStatus moxsIIRGetStateSize32f_16s(int order, int* size);
MOX_API MoxStatus moxsIIRInit32f_16s(MoxsIIRState** state, const Mox32f* taps, int order,
                                     const Mox32f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc32f_16s(MoxsIIRState** state, const Mox32f* taps, int order,
                                          const Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize32f_BiQuad_16s(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit32f_BiQuad_16s(MoxsIIRState** state, const Mox32f* taps, int numBq,
                                            const Mox32f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc32f_BiQuad_16s(MoxsIIRState** state, const Mox32f* taps,
                                                 int numBq, const Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRFree32f_16s(MoxsIIRState* state);
MOX_API MoxStatus moxsIIRGetStateSize32fc_16sc(int order, int* size);
MOX_API MoxStatus moxsIIRInit32fc_16sc(MoxsIIRState** state, const Mox32fc* taps, int order,
                                       const Mox32fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc32fc_16sc(MoxsIIRState** state, const Mox32fc* taps, int order,
                                            const Mox32fc* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize32fc_BiQuad_16sc(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit32fc_BiQuad_16sc(MoxsIIRState** state, const Mox32fc* taps, int numBq,
                                              const Mox32fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc32fc_BiQuad_16sc(MoxsIIRState** state, const Mox32fc* taps,
                                                   int numBq, const Mox32fc* dlyLine);
MOX_API MoxStatus moxsIIRFree32fc_16sc(MoxsIIRState* state);
MOX_API MoxStatus moxsIIRGetStateSize32s_16s(int order, int* size);
MOX_API MoxStatus moxsIIRInit32s_16s(MoxsIIRState** state, const Mox32s* taps, int order,
                                     int tapsFactor, const Mox32f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc32s_16s(MoxsIIRState** state, const Mox32s* taps, int order,
                                          int tapsFactor, const Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize32s_BiQuad_16s(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit32s_BiQuad_16s(MoxsIIRState** state, const Mox32s* taps, int numBq,
                                            int tapsFactor, const Mox32f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc32s_BiQuad_16s(MoxsIIRState** state, const Mox32s* taps,
                                                 int numBq, int tapsFactor, const Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRFree32s_16s(MoxsIIRState* state);
MOX_API MoxStatus moxsIIRGetStateSize32sc_16sc(int order, int* size);
MOX_API MoxStatus moxsIIRInit32sc_16sc(MoxsIIRState** state, const Mox32sc* taps, int order,
                                       int tapsFactor, const Mox32fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc32sc_16sc(MoxsIIRState** state, const Mox32sc* taps, int order,
                                            int tapsFactor, const Mox32fc* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize32sc_BiQuad_16sc(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit32sc_BiQuad_16sc(MoxsIIRState** state, const Mox32sc* taps, int numBq,
                                              int tapsFactor, const Mox32fc* dlyLine,
                                              Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc32sc_BiQuad_16sc(MoxsIIRState** state, const Mox32sc* taps,
                                                   int numBq, int tapsFactor,
                                                   const Mox32fc* dlyLine);
MOX_API MoxStatus moxsIIRFree32sc_16sc(MoxsIIRState* state);
MOX_API MoxStatus moxsIIRGetStateSize64f_16s(int order, int* size);
MOX_API MoxStatus moxsIIRInit64f_16s(MoxsIIRState** state, const Mox64f* taps, int order,
                                     const Mox64f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc64f_16s(MoxsIIRState** state, const Mox64f* taps, int order,
                                          const Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize64f_BiQuad_16s(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit64f_BiQuad_16s(MoxsIIRState** state, const Mox64f* taps, int numBq,
                                            const Mox64f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc64f_BiQuad_16s(MoxsIIRState** state, const Mox64f* taps,
                                                 int numBq, const Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRFree64f_16s(MoxsIIRState* state);
MOX_API MoxStatus moxsIIRGetStateSize64f_32f(int order, int* size);
MOX_API MoxStatus moxsIIRInit64f_32f(MoxsIIRState** state, const Mox64f* taps, int order,
                                     const Mox64f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc64f_32f(MoxsIIRState** state, const Mox64f* taps, int order,
                                          const Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize64f_BiQuad_32f(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit64f_BiQuad_32f(MoxsIIRState** state, const Mox64f* taps, int numBq,
                                            const Mox64f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc64f_BiQuad_32f(MoxsIIRState** state, const Mox64f* taps,
                                                 int numBq, const Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRFree64f_32f(MoxsIIRState* state);
MOX_API MoxStatus moxsIIRGetStateSize64f_32s(int order, int* size);
MOX_API MoxStatus moxsIIRInit64f_32s(MoxsIIRState** state, const Mox64f* taps, int order,
                                     const Mox64f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc64f_32s(MoxsIIRState** state, const Mox64f* taps, int order,
                                          const Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize64f_BiQuad_32s(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit64f_BiQuad_32s(MoxsIIRState** state, const Mox64f* taps, int numBq,
                                            const Mox64f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc64f_BiQuad_32s(MoxsIIRState** state, const Mox64f* taps,
                                                 int numBq, const Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRFree64f_32s(MoxsIIRState* state);
MOX_API MoxStatus moxsIIRGetStateSize64fc_16sc(int order, int* size);
MOX_API MoxStatus moxsIIRInit64fc_16sc(MoxsIIRState** state, const Mox64fc* taps, int order,
                                       const Mox64fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc64fc_16sc(MoxsIIRState** state, const Mox64fc* taps, int order,
                                            const Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize64fc_BiQuad_16sc(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit64fc_BiQuad_16sc(MoxsIIRState** state, const Mox64fc* taps, int numBq,
                                              const Mox64fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc64fc_BiQuad_16sc(MoxsIIRState** state, const Mox64fc* taps,
                                                   int numBq, const Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRFree64fc_16sc(MoxsIIRState* state);
MOX_API MoxStatus moxsIIRGetStateSize64fc_32fc(int order, int* size);
MOX_API MoxStatus moxsIIRInit64fc_32fc(MoxsIIRState** state, const Mox64fc* taps, int order,
                                       const Mox64fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc64fc_32fc(MoxsIIRState** state, const Mox64fc* taps, int order,
                                            const Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize64fc_BiQuad_32fc(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit64fc_BiQuad_32fc(MoxsIIRState** state, const Mox64fc* taps, int numBq,
                                              const Mox64fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc64fc_BiQuad_32fc(MoxsIIRState** state, const Mox64fc* taps,
                                                   int numBq, const Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRFree64fc_32fc(MoxsIIRState* state);
MOX_API MoxStatus moxsIIRGetStateSize64fc_32sc(int order, int* size);
MOX_API MoxStatus moxsIIRInit64fc_32sc(MoxsIIRState** state, const Mox64fc* taps, int order,
                                       const Mox64fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc64fc_32sc(MoxsIIRState** state, const Mox64fc* taps, int order,
                                            const Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize64fc_BiQuad_32sc(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit64fc_BiQuad_32sc(MoxsIIRState** state, const Mox64fc* taps, int numBq,
                                              const Mox64fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc64fc_BiQuad_32sc(MoxsIIRState** state, const Mox64fc* taps,
                                                   int numBq, const Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRFree64fc_32sc(MoxsIIRState* state);
MOX_API MoxStatus moxsIIRGetStateSize_32f(int order, int* size);
MOX_API MoxStatus moxsIIRInit_32f(MoxsIIRState** state, const Mox32f* taps, int order,
                                  const Mox32f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc_32f(MoxsIIRState** state, const Mox32f* taps, int order,
                                       const Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize_BiQuad_32f(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit_BiQuad_32f(MoxsIIRState** state, const Mox32f* taps, int numBq,
                                         const Mox32f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc_BiQuad_32f(MoxsIIRState** state, const Mox32f* taps, int numBq,
                                              const Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRFree_32f(MoxsIIRState* state);
MOX_API MoxStatus moxsIIRGetStateSize_32fc(int order, int* size);
MOX_API MoxStatus moxsIIRInit_32fc(MoxsIIRState** state, const Mox32fc* taps, int order,
                                   const Mox32fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc_32fc(MoxsIIRState** state, const Mox32fc* taps, int order,
                                        const Mox32fc* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize_BiQuad_32fc(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit_BiQuad_32fc(MoxsIIRState** state, const Mox32fc* taps, int numBq,
                                          const Mox32fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc_BiQuad_32fc(MoxsIIRState** state, const Mox32fc* taps, int numBq,
                                               const Mox32fc* dlyLine);
MOX_API MoxStatus moxsIIRFree_32fc(MoxsIIRState* state);
MOX_API MoxStatus moxsIIRGetStateSize_64f(int order, int* size);
MOX_API MoxStatus moxsIIRInit_64f(MoxsIIRState** state, const Mox64f* taps, int order,
                                  const Mox64f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc_64f(MoxsIIRState** state, const Mox64f* taps, int order,
                                       const Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize_BiQuad_64f(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit_BiQuad_64f(MoxsIIRState** state, const Mox64f* taps, int numBq,
                                         const Mox64f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc_BiQuad_64f(MoxsIIRState** state, const Mox64f* taps, int numBq,
                                              const Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRFree_64f(MoxsIIRState* state);
MOX_API MoxStatus moxsIIRGetStateSize_64fc(int order, int* size);
MOX_API MoxStatus moxsIIRInit_64fc(MoxsIIRState** state, const Mox64fc* taps, int order,
                                   const Mox64fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc_64fc(MoxsIIRState** state, const Mox64fc* taps, int order,
                                        const Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize_BiQuad_64fc(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit_BiQuad_64fc(MoxsIIRState** state, const Mox64fc* taps, int numBq,
                                          const Mox64fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc_BiQuad_64fc(MoxsIIRState** state, const Mox64fc* taps, int numBq,
                                               const Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRFree_64fc(MoxsIIRState* state);
MOX_API MoxStatus moxsIIRGetStateSize32s_16s32f(int order, int* size);
MOX_API MoxStatus moxsIIRInit32s_16s32f(MoxsIIRState** state, const Mox32f* taps, int order,
                                        const Mox32f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc32s_16s32f(MoxsIIRState** state, const Mox32f* taps, int order,
                                             const Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize32s_BiQuad_16s32f(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit32s_BiQuad_16s32f(MoxsIIRState** state, const Mox32f* taps, int numBq,
                                               const Mox32f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc32s_BiQuad_16s32f(MoxsIIRState** state, const Mox32f* taps,
                                                    int numBq, const Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize32sc_16sc32fc(int order, int* size);
MOX_API MoxStatus moxsIIRInit32sc_16sc32fc(MoxsIIRState** state, const Mox32fc* taps, int order,
                                           const Mox32fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc32sc_16sc32fc(MoxsIIRState** state, const Mox32fc* taps,
                                                int order, const Mox32fc* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize32sc_BiQuad_16sc32fc(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit32sc_BiQuad_16sc32fc(MoxsIIRState** state, const Mox32fc* taps,
                                                  int numBq, const Mox32fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc32sc_BiQuad_16sc32fc(MoxsIIRState** state, const Mox32fc* taps,
                                                       int numBq, const Mox32fc* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize_BiQuad_DF1_32f(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit_BiQuad_DF1_32f(MoxsIIRState** state, const Mox32f* taps, int numBq,
                                             const Mox32f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc_BiQuad_DF1_32f(MoxsIIRState** state, const Mox32f* taps,
                                                  int numBq, const Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRGetStateSize64f_BiQuad_DF1_32s(int numBq, int* size);
MOX_API MoxStatus moxsIIRInit64f_BiQuad_DF1_32s(MoxsIIRState** state, const Mox64f* taps, int numBq,
                                                const Mox32s* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsIIRInitAlloc64f_BiQuad_DF1_32s(MoxsIIRState** state, const Mox64f* taps,
                                                     int numBq, const Mox32s* dlyLine);
/** @} */

/** @defgroup iir_taps Taps of an IIR filter
 * @ingroup topic_filters
 * Replaces the taps, as many as the state has, in the order of @ref iir_names; those of a cascade
 * section by section. The delay line is left alone. States in direct form I keep their taps.
 * @return ::moxErrNullPtr for a null argument; ::moxErrContext for a state of other types or in
 * direct form I; ::moxErrMemAlloc without memory for integer taps; ::moxErrDivByZero for an a[0]
 * that is zero, in a cascade also for a b[0] that is: sections before that one have their new taps,
 * it and those behind it their old ones. NaN is a tap like any other.
 * @{ */
MOX_API MoxStatus moxsIIRSetTaps32f_16s(const Mox32f* taps, MoxsIIRState* state);
MOX_API MoxStatus moxsIIRSetTaps32fc_16sc(const Mox32fc* taps, MoxsIIRState* state);
MOX_API MoxStatus moxsIIRSetTaps32s_16s(const Mox32s* taps, MoxsIIRState* state, int tapsFactor);
MOX_API MoxStatus moxsIIRSetTaps32sc_16sc(const Mox32sc* taps, MoxsIIRState* state, int tapsFactor);
MOX_API MoxStatus moxsIIRSetTaps64f_16s(const Mox64f* taps, MoxsIIRState* state);
MOX_API MoxStatus moxsIIRSetTaps64f_32f(const Mox64f* taps, MoxsIIRState* state);
MOX_API MoxStatus moxsIIRSetTaps64f_32s(const Mox64f* taps, MoxsIIRState* state);
MOX_API MoxStatus moxsIIRSetTaps64fc_16sc(const Mox64fc* taps, MoxsIIRState* state);
MOX_API MoxStatus moxsIIRSetTaps64fc_32fc(const Mox64fc* taps, MoxsIIRState* state);
MOX_API MoxStatus moxsIIRSetTaps64fc_32sc(const Mox64fc* taps, MoxsIIRState* state);
MOX_API MoxStatus moxsIIRSetTaps_32f(const Mox32f* taps, MoxsIIRState* state);
MOX_API MoxStatus moxsIIRSetTaps_32fc(const Mox32fc* taps, MoxsIIRState* state);
MOX_API MoxStatus moxsIIRSetTaps_64f(const Mox64f* taps, MoxsIIRState* state);
MOX_API MoxStatus moxsIIRSetTaps_64fc(const Mox64fc* taps, MoxsIIRState* state);
MOX_API MoxStatus moxsIIRSetTaps32s_16s32f(const Mox32f* taps, MoxsIIRState* state);
MOX_API MoxStatus moxsIIRSetTaps32sc_16sc32fc(const Mox32fc* taps, MoxsIIRState* state);
/** @} */

/** @defgroup iir_dlyline Delay line of an IIR filter
 * @ingroup topic_filters
 * Reads or replaces what a filter remembers: of each section, the first one first, the sums that
 * past samples add to its next n outputs, in the type of the held taps. With x[-1], y[-1] the last
 * input and output,
 *
 *     d[i] = sum of b[k] x[i - k] - a[k] y[i - k] over i < k <= n, with taps divided by a[0]
 *
 * In direct form I the delay line holds samples, of each section x[-2], x[-1], y[-2], y[-1]: in
 * `_32f`, whose `GetDlyLine` and `SetDlyLine` serve both forms, as they are; in `DF1_32s` as
 * integers that are rounded to nearest, ties to even, and saturated. A null `dlyLine` stands for
 * zeros in `SetDlyLine`.
 * @return ::moxErrNullPtr for a null argument, but for that one; ::moxErrContext for a state of
 * other types or, but for `_32f`, of the other form.
 * @{ */
MOX_API MoxStatus moxsIIRGetDlyLine32f_16s(const MoxsIIRState* state, Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRSetDlyLine32f_16s(MoxsIIRState* state, const Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRGetDlyLine32fc_16sc(const MoxsIIRState* state, Mox32fc* dlyLine);
MOX_API MoxStatus moxsIIRSetDlyLine32fc_16sc(MoxsIIRState* state, const Mox32fc* dlyLine);
MOX_API MoxStatus moxsIIRGetDlyLine32s_16s(const MoxsIIRState* state, Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRSetDlyLine32s_16s(MoxsIIRState* state, const Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRGetDlyLine32sc_16sc(const MoxsIIRState* state, Mox32fc* dlyLine);
MOX_API MoxStatus moxsIIRSetDlyLine32sc_16sc(MoxsIIRState* state, const Mox32fc* dlyLine);
MOX_API MoxStatus moxsIIRGetDlyLine64f_16s(const MoxsIIRState* state, Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRSetDlyLine64f_16s(MoxsIIRState* state, const Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRGetDlyLine64f_32f(const MoxsIIRState* state, Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRSetDlyLine64f_32f(MoxsIIRState* state, const Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRGetDlyLine64f_32s(const MoxsIIRState* state, Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRSetDlyLine64f_32s(MoxsIIRState* state, const Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRGetDlyLine64fc_16sc(const MoxsIIRState* state, Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRSetDlyLine64fc_16sc(MoxsIIRState* state, const Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRGetDlyLine64fc_32fc(const MoxsIIRState* state, Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRSetDlyLine64fc_32fc(MoxsIIRState* state, const Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRGetDlyLine64fc_32sc(const MoxsIIRState* state, Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRSetDlyLine64fc_32sc(MoxsIIRState* state, const Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRGetDlyLine_32f(const MoxsIIRState* state, Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRSetDlyLine_32f(MoxsIIRState* state, const Mox32f* dlyLine);
MOX_API MoxStatus moxsIIRGetDlyLine_32fc(const MoxsIIRState* state, Mox32fc* dlyLine);
MOX_API MoxStatus moxsIIRSetDlyLine_32fc(MoxsIIRState* state, const Mox32fc* dlyLine);
MOX_API MoxStatus moxsIIRGetDlyLine_64f(const MoxsIIRState* state, Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRSetDlyLine_64f(MoxsIIRState* state, const Mox64f* dlyLine);
MOX_API MoxStatus moxsIIRGetDlyLine_64fc(const MoxsIIRState* state, Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRSetDlyLine_64fc(MoxsIIRState* state, const Mox64fc* dlyLine);
MOX_API MoxStatus moxsIIRGetDlyLine64f_DF1_32s(const MoxsIIRState* state, Mox32s* dlyLine);
MOX_API MoxStatus moxsIIRSetDlyLine64f_DF1_32s(MoxsIIRState* state, const Mox32s* dlyLine);
/** @} */

/** @defgroup iir IIR
 * @ingroup topic_filters
 * Filters a block of `len` samples (`IIR`) or a single one (`IIROne`), in any order on one state.
 * Integer outputs are the results times 2^-scaleFactor, rounded to nearest with ties to even and
 * saturated. Every factor is valid. What the filter remembers is neither scaled nor rounded. In
 * place or not, outputs have the same bits; arrays may not overlap otherwise.
 *
 * `IIROne`, short blocks and the ends of others compute the transposed direct form II, from left to
 * right:
 *
 *     y = b[0] x + d[0];  d[i] = b[i+1] x - a[i+1] y + d[i+1];  d[n-1] = b[n] x - a[n] y
 *
 * in `DF1` `y = b[0] x + b[1] x[-1] + b[2] x[-2] - a[2] y[-2] - a[1] y[-1]`. The rest of a block is
 * cut into stretches, as many as registers have lanes: 16 in `Mox32f`, 8 in `Mox64f` and `Mox32fc`,
 * 4 in `Mox64fc`, of at least 8 and n, at most 256 samples. All are filtered at once as if nothing
 * had come out before them; then the responses to the outputs before each stretch are added. (Block
 * methods for recursive filters: Burrus, "Block realization of digital filters", 1972.) Stretches
 * end where the weight of a past output exceeds 2^32 and, for other orders than 2, where the sum of
 * the weights exceeds 16 times that of the first output. Filters that allow fewer than 8 or n
 * samples, and orders above 128, run step by step: among them filters of high order with poles
 * close to each other, which are better made as cascades.
 *
 * @return ::moxErrNullPtr for a null argument; ::moxErrSize for `len` below 1; ::moxErrContext for
 * a state of other types, and for one in direct form I in `IIROne`.
 * @note Errors are those of the recursion: a rounding error of the size u |y|, with the unit
 * roundoff u, enters with each sample and is filtered by 1 / A(z). That of blocks was at most 2.4
 * times that of single steps, in sections and in filters of order 4 to 8 with poles of radius 0.9
 * to 0.9999 at angles of 0.01 to 3.
 * @note How the signal is cut into blocks changes the last bits. NaN and infinities stay in the
 * delay line until it is set. Where a result is NaN, an integer output is the largest value.
 * @note On silence an output decays until it is subnormal, and arithmetic on subnormal numbers
 * takes longer on many processors. On an AMD EPYC of 2022 blocks took up to 1.6 times as long as on
 * signals and single steps up to 2.1 times. No call changes the processor's treatment of such
 * numbers; a caller may set flush-to-zero and denormals-are-zero, or clear the delay line.
 * @{ */
MOX_API MoxStatus moxsIIR_32f(const Mox32f* src, Mox32f* dst, int len, MoxsIIRState* state);
MOX_API MoxStatus moxsIIR_32f_I(Mox32f* srcDst, int len, MoxsIIRState* state);
MOX_API MoxStatus moxsIIR_32fc(const Mox32fc* src, Mox32fc* dst, int len, MoxsIIRState* state);
MOX_API MoxStatus moxsIIR_32fc_I(Mox32fc* srcDst, int len, MoxsIIRState* state);
MOX_API MoxStatus moxsIIR_64f(const Mox64f* src, Mox64f* dst, int len, MoxsIIRState* state);
MOX_API MoxStatus moxsIIR_64f_I(Mox64f* srcDst, int len, MoxsIIRState* state);
MOX_API MoxStatus moxsIIR_64fc(const Mox64fc* src, Mox64fc* dst, int len, MoxsIIRState* state);
MOX_API MoxStatus moxsIIR_64fc_I(Mox64fc* srcDst, int len, MoxsIIRState* state);
MOX_API MoxStatus moxsIIR64f_32f(const Mox32f* src, Mox32f* dst, int len, MoxsIIRState* state);
MOX_API MoxStatus moxsIIR64f_32f_I(Mox32f* srcDst, int len, MoxsIIRState* state);
MOX_API MoxStatus moxsIIR64fc_32fc(const Mox32fc* src, Mox32fc* dst, int len, MoxsIIRState* state);
MOX_API MoxStatus moxsIIR64fc_32fc_I(Mox32fc* srcDst, int len, MoxsIIRState* state);
MOX_API MoxStatus moxsIIR32f_16s_Sfs(const Mox16s* src, Mox16s* dst, int len, MoxsIIRState* state,
                                     int scaleFactor);
MOX_API MoxStatus moxsIIR32f_16s_ISfs(Mox16s* srcDst, int len, MoxsIIRState* state,
                                      int scaleFactor);
MOX_API MoxStatus moxsIIR32fc_16sc_Sfs(const Mox16sc* src, Mox16sc* dst, int len,
                                       MoxsIIRState* state, int scaleFactor);
MOX_API MoxStatus moxsIIR32fc_16sc_ISfs(Mox16sc* srcDst, int len, MoxsIIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsIIR32s_16s_Sfs(const Mox16s* src, Mox16s* dst, int len, MoxsIIRState* state,
                                     int scaleFactor);
MOX_API MoxStatus moxsIIR32s_16s_ISfs(Mox16s* srcDst, int len, MoxsIIRState* state,
                                      int scaleFactor);
MOX_API MoxStatus moxsIIR32sc_16sc_Sfs(const Mox16sc* src, Mox16sc* dst, int len,
                                       MoxsIIRState* state, int scaleFactor);
MOX_API MoxStatus moxsIIR32sc_16sc_ISfs(Mox16sc* srcDst, int len, MoxsIIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsIIR64f_16s_Sfs(const Mox16s* src, Mox16s* dst, int len, MoxsIIRState* state,
                                     int scaleFactor);
MOX_API MoxStatus moxsIIR64f_16s_ISfs(Mox16s* srcDst, int len, MoxsIIRState* state,
                                      int scaleFactor);
MOX_API MoxStatus moxsIIR64f_32s_Sfs(const Mox32s* src, Mox32s* dst, int len, MoxsIIRState* state,
                                     int scaleFactor);
MOX_API MoxStatus moxsIIR64f_32s_ISfs(Mox32s* srcDst, int len, MoxsIIRState* state,
                                      int scaleFactor);
MOX_API MoxStatus moxsIIR64fc_16sc_Sfs(const Mox16sc* src, Mox16sc* dst, int len,
                                       MoxsIIRState* state, int scaleFactor);
MOX_API MoxStatus moxsIIR64fc_16sc_ISfs(Mox16sc* srcDst, int len, MoxsIIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsIIR64fc_32sc_Sfs(const Mox32sc* src, Mox32sc* dst, int len,
                                       MoxsIIRState* state, int scaleFactor);
MOX_API MoxStatus moxsIIR64fc_32sc_ISfs(Mox32sc* srcDst, int len, MoxsIIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsIIROne_32f(Mox32f src, Mox32f* dst, MoxsIIRState* state);
MOX_API MoxStatus moxsIIROne_32fc(Mox32fc src, Mox32fc* dst, MoxsIIRState* state);
MOX_API MoxStatus moxsIIROne_64f(Mox64f src, Mox64f* dst, MoxsIIRState* state);
MOX_API MoxStatus moxsIIROne_64fc(Mox64fc src, Mox64fc* dst, MoxsIIRState* state);
MOX_API MoxStatus moxsIIROne64f_32f(Mox32f src, Mox32f* dst, MoxsIIRState* state);
MOX_API MoxStatus moxsIIROne64fc_32fc(Mox32fc src, Mox32fc* dst, MoxsIIRState* state);
MOX_API MoxStatus moxsIIROne32f_16s_Sfs(Mox16s src, Mox16s* dst, MoxsIIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsIIROne32fc_16sc_Sfs(Mox16sc src, Mox16sc* dst, MoxsIIRState* state,
                                          int scaleFactor);
MOX_API MoxStatus moxsIIROne32s_16s_Sfs(Mox16s src, Mox16s* dst, MoxsIIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsIIROne32sc_16sc_Sfs(Mox16sc src, Mox16sc* dst, MoxsIIRState* state,
                                          int scaleFactor);
MOX_API MoxStatus moxsIIROne64f_16s_Sfs(Mox16s src, Mox16s* dst, MoxsIIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsIIROne64f_32s_Sfs(Mox32s src, Mox32s* dst, MoxsIIRState* state,
                                        int scaleFactor);
MOX_API MoxStatus moxsIIROne64fc_16sc_Sfs(Mox16sc src, Mox16sc* dst, MoxsIIRState* state,
                                          int scaleFactor);
MOX_API MoxStatus moxsIIROne64fc_32sc_Sfs(Mox32sc src, Mox32sc* dst, MoxsIIRState* state,
                                          int scaleFactor);
/** @} */

/** @defgroup iir_channels IIR on channels
 * @ingroup topic_filters
 * Filters `len` samples of each channel as `IIR` does: `src[c]` to `dst[c]` with `state[c]` and
 * `scaleFactor[c]`. States must not occur twice. Where the first state of moxsIIR_32f_P() is a
 * cascade that is not in direct form I, all must be. Such cascades go in pairs, and six to sixteen
 * of them with the same number of sections are filtered side by side, a lane for each: the
 * recursion of direct form I, without stretches. Errors are bounded as in @ref iir.
 * @return in this order ::moxErrNullPtr for a null array, ::moxErrSize for `len` below 1,
 * ::moxErrChannel (`_32f`) or ::moxErrChannelCount (`64f_32s`) for `numChannels` below 1,
 * ::moxErrNullPtr for a null first state; then by channel ::moxErrNullPtr for a null pointer and
 * ::moxErrContext for a state of other types: the channels before that one, in cascades the pairs
 * before its pair, have been filtered.
 * @note Arrays that all begin at the same place of a page, as large ones from an allocator do, meet
 * in the same lines of the cache: on an AMD EPYC of 2022 sixteen channels side by side took 1.3 to
 * 1.6 times as long then. It helps to let each begin some cache lines further on than the last one.
 * @{ */
MOX_API MoxStatus moxsIIR_32f_P(const Mox32f* const* src, Mox32f* const* dst, int len,
                                int numChannels, MoxsIIRState* const* state);
MOX_API MoxStatus moxsIIR_32f_IP(Mox32f* const* srcDst, int len, int numChannels,
                                 MoxsIIRState* const* state);
MOX_API MoxStatus moxsIIR64f_32s_PSfs(const Mox32s* const* src, Mox32s* const* dst, int len,
                                      int numChannels, MoxsIIRState* const* state,
                                      const int* scaleFactor);
MOX_API MoxStatus moxsIIR64f_32s_IPSfs(Mox32s* const* srcDst, int len, int numChannels,
                                       MoxsIIRState* const* state, const int* scaleFactor);
/** @} */

/** @defgroup iir_direct IIR without a state
 * @ingroup topic_filters
 * Filters 16-bit samples with all memory the caller's. The taps are `b[0] .. b[n], s, a[1] ..
 * a[n]`, in a cascade six words `b[0], b[1], b[2], s, a[1], a[2]` of each section, in units of
 * 2^-s; s >= 0 takes the place of a[0]. `dlyLine` holds n numbers, of each section 2, in units of
 * 2^-s: the sums of @ref iir_dlyline. `dst` may be `src`.
 *
 * Single samples are filtered in 32-bit arithmetic that wraps, with arithmetic shifts, whose counts
 * are taken modulo 32:
 *
 *     sum = b[0] x + d[0]
 *     y = (sum + ((sum >> s) & 1) + (1 << (s - 1)) - 1) >> s    half to even
 *     d[i] = b[i+1] x - a[i+1] y + d[i+1], without d[n] in the last one
 *
 * For s = 0 that adds 2^31 - 1 and the lowest bit of the sum. y is the input of the next section;
 * the last one is saturated to 16 bits. These results are to the bit.
 *
 * Blocks are filtered by a `32f_16s` state (@ref iir) that exists for the call: taps and delay line
 * are converted to `Mox32f`, outputs and delay line rounded to nearest and saturated. So blocks and
 * single samples round differently.
 *
 * @return in this order ::moxErrIirOrder for `order` or `numBq` below 1; ::moxErrNullPtr for a null
 * argument; ::moxErrIirTapFactor for an s below 0; ::moxErrSize for `len` below 1; in blocks
 * ::moxErrMemAlloc without memory and ::moxErrDivByZero for a b[0] that is zero in a cascade.
 * A single sample meets the s of each section in turn: the sections before a negative one have
 * taken it in.
 * @{ */
MOX_API MoxStatus moxsIIR_Direct_16s(const Mox16s* src, Mox16s* dst, int len, const Mox16s* taps,
                                     int order, Mox32s* dlyLine);
MOX_API MoxStatus moxsIIR_Direct_16s_I(Mox16s* srcDst, int len, const Mox16s* taps, int order,
                                       Mox32s* dlyLine);
MOX_API MoxStatus moxsIIROne_Direct_16s(Mox16s src, Mox16s* dst, const Mox16s* taps, int order,
                                        Mox32s* dlyLine);
MOX_API MoxStatus moxsIIROne_Direct_16s_I(Mox16s* srcDst, const Mox16s* taps, int order,
                                          Mox32s* dlyLine);
MOX_API MoxStatus moxsIIR_BiQuadDirect_16s(const Mox16s* src, Mox16s* dst, int len,
                                           const Mox16s* taps, int numBq, Mox32s* dlyLine);
MOX_API MoxStatus moxsIIR_BiQuadDirect_16s_I(Mox16s* srcDst, int len, const Mox16s* taps, int numBq,
                                             Mox32s* dlyLine);
MOX_API MoxStatus moxsIIROne_BiQuadDirect_16s(Mox16s src, Mox16s* dst, const Mox16s* taps,
                                              int numBq, Mox32s* dlyLine);
MOX_API MoxStatus moxsIIROne_BiQuadDirect_16s_I(Mox16s* srcDst, const Mox16s* taps, int numBq,
                                                Mox32s* dlyLine);
/** @} */

#endif
