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

/** @defgroup iir_LIFE x @{ */
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

/** @defgroup iir_TAPS x @{ */
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

/** @defgroup iir_DLY x @{ */
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

/** @defgroup iir_RUN x @{ */
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

/** @defgroup iir_CHAN x @{ */
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

/** @defgroup iir_DIRECT x @{ */
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
