/**
 * @file
 * FIR filters that change the sample rate.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox32f taps[3] = {0.5f, 1, 0.5f};  // three samples for two, by straight lines
 *   const Mox32f x[4] = {2, 4, 6, 0};
 *   Mox32f y[6];
 *   MoxsFIRState* filter;
 *   if (moxsFIRMRInitAlloc_32f(&filter, taps, 3, 2, 0, 1, 0, NULL) != moxOk) return 1;
 *   moxsFIR_32f(x, y, 3, filter);                     // each iteration takes 1 sample and makes 2
 *   for (int i = 0; i < 6; ++i) printf("%g ", y[i]);  // 1 2 3 4 5 6
 *   moxsFIRFree_32f(filter);
 * }
 * @endcode
 */
#ifndef MOXSP_MULTIRATE_H
#define MOXSP_MULTIRATE_H

#include <moxsp/fir.h>

/** @defgroup multirate_state States of multirate filters
 * @ingroup topic_filters
 * As @ref fir_state, with the factors and phases of the rates: `upPhase` below `upFactor`,
 * `downPhase` below `downFactor`, none of them negative. `dlyLine` holds
 * ceil(tapsLen / upFactor) samples, the newest first. Both factors 1 make a single-rate state.
 * Taps, delay line and `Free` are those of fir.h for the same types.
 *
 * @return ::moxErrNullPtr for a null argument other than `dlyLine`; ::moxErrFirLen for `tapsLen`
 * below 1 or a state of 2^31 bytes or more; ::moxErrFirMrFactor for a factor below 1, but
 * ::moxErrFirMrPhase from `GetStateSize`; ::moxErrFirMrPhase for a phase out of range;
 * ::moxErrRoundMode for `rndMode` other than 0, 1, 2; `InitAlloc` ::moxErrMemAlloc without memory.
 * @{ */
MOX_API MoxStatus moxsFIRMRGetStateSize32f_16s(int tapsLen, int upFactor, int downFactor,
                                               int* size);
MOX_API MoxStatus moxsFIRMRInit32f_16s(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                       int upFactor, int upPhase, int downFactor, int downPhase,
                                       const Mox16s* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc32f_16s(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                            int upFactor, int upPhase, int downFactor,
                                            int downPhase, const Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize32fc_16sc(int tapsLen, int upFactor, int downFactor,
                                                 int* size);
MOX_API MoxStatus moxsFIRMRInit32fc_16sc(MoxsFIRState** state, const Mox32fc* taps, int tapsLen,
                                         int upFactor, int upPhase, int downFactor, int downPhase,
                                         const Mox16sc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc32fc_16sc(MoxsFIRState** state, const Mox32fc* taps,
                                              int tapsLen, int upFactor, int upPhase,
                                              int downFactor, int downPhase,
                                              const Mox16sc* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize32s_16s(int tapsLen, int upFactor, int downFactor,
                                               int* size);
MOX_API MoxStatus moxsFIRMRInit32s_16s(MoxsFIRState** state, const Mox32s* taps, int tapsLen,
                                       int tapsFactor, int upFactor, int upPhase, int downFactor,
                                       int downPhase, const Mox16s* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc32s_16s(MoxsFIRState** state, const Mox32s* taps, int tapsLen,
                                            int tapsFactor, int upFactor, int upPhase,
                                            int downFactor, int downPhase, const Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize32s_16s32f(int tapsLen, int upFactor, int downFactor,
                                                  int* size);
MOX_API MoxStatus moxsFIRMRInit32s_16s32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                          int upFactor, int upPhase, int downFactor, int downPhase,
                                          const Mox16s* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc32s_16s32f(MoxsFIRState** state, const Mox32f* taps,
                                               int tapsLen, int upFactor, int upPhase,
                                               int downFactor, int downPhase,
                                               const Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize32sc_16sc(int tapsLen, int upFactor, int downFactor,
                                                 int* size);
MOX_API MoxStatus moxsFIRMRInit32sc_16sc(MoxsFIRState** state, const Mox32sc* taps, int tapsLen,
                                         int tapsFactor, int upFactor, int upPhase, int downFactor,
                                         int downPhase, const Mox16sc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc32sc_16sc(MoxsFIRState** state, const Mox32sc* taps,
                                              int tapsLen, int tapsFactor, int upFactor,
                                              int upPhase, int downFactor, int downPhase,
                                              const Mox16sc* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize32sc_16sc32fc(int tapsLen, int upFactor, int downFactor,
                                                     int* size);
MOX_API MoxStatus moxsFIRMRInit32sc_16sc32fc(MoxsFIRState** state, const Mox32fc* taps, int tapsLen,
                                             int upFactor, int upPhase, int downFactor,
                                             int downPhase, const Mox16sc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc32sc_16sc32fc(MoxsFIRState** state, const Mox32fc* taps,
                                                  int tapsLen, int upFactor, int upPhase,
                                                  int downFactor, int downPhase,
                                                  const Mox16sc* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize64f_16s(int tapsLen, int upFactor, int downFactor,
                                               int* size);
MOX_API MoxStatus moxsFIRMRInit64f_16s(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                       int upFactor, int upPhase, int downFactor, int downPhase,
                                       const Mox16s* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc64f_16s(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                            int upFactor, int upPhase, int downFactor,
                                            int downPhase, const Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize64f_32f(int tapsLen, int upFactor, int downFactor,
                                               int* size);
MOX_API MoxStatus moxsFIRMRInit64f_32f(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                       int upFactor, int upPhase, int downFactor, int downPhase,
                                       const Mox32f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc64f_32f(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                            int upFactor, int upPhase, int downFactor,
                                            int downPhase, const Mox32f* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize64f_32s(int tapsLen, int upFactor, int downFactor,
                                               int* size);
MOX_API MoxStatus moxsFIRMRInit64f_32s(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                       int upFactor, int upPhase, int downFactor, int downPhase,
                                       const Mox32s* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc64f_32s(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                            int upFactor, int upPhase, int downFactor,
                                            int downPhase, const Mox32s* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize64fc_16sc(int tapsLen, int upFactor, int downFactor,
                                                 int* size);
MOX_API MoxStatus moxsFIRMRInit64fc_16sc(MoxsFIRState** state, const Mox64fc* taps, int tapsLen,
                                         int upFactor, int upPhase, int downFactor, int downPhase,
                                         const Mox16sc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc64fc_16sc(MoxsFIRState** state, const Mox64fc* taps,
                                              int tapsLen, int upFactor, int upPhase,
                                              int downFactor, int downPhase,
                                              const Mox16sc* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize64fc_32fc(int tapsLen, int upFactor, int downFactor,
                                                 int* size);
MOX_API MoxStatus moxsFIRMRInit64fc_32fc(MoxsFIRState** state, const Mox64fc* taps, int tapsLen,
                                         int upFactor, int upPhase, int downFactor, int downPhase,
                                         const Mox32fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc64fc_32fc(MoxsFIRState** state, const Mox64fc* taps,
                                              int tapsLen, int upFactor, int upPhase,
                                              int downFactor, int downPhase,
                                              const Mox32fc* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize64fc_32sc(int tapsLen, int upFactor, int downFactor,
                                                 int* size);
MOX_API MoxStatus moxsFIRMRInit64fc_32sc(MoxsFIRState** state, const Mox64fc* taps, int tapsLen,
                                         int upFactor, int upPhase, int downFactor, int downPhase,
                                         const Mox32sc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc64fc_32sc(MoxsFIRState** state, const Mox64fc* taps,
                                              int tapsLen, int upFactor, int upPhase,
                                              int downFactor, int downPhase,
                                              const Mox32sc* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize_16s(int tapsLen, int upFactor, int downFactor, int* size);
MOX_API MoxStatus moxsFIRMRInit_16s(MoxsFIRState** state, const Mox16s* taps, int tapsLen,
                                    int tapsFactor, int upFactor, int upPhase, int downFactor,
                                    int downPhase, const Mox16s* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc_16s(MoxsFIRState** state, const Mox16s* taps, int tapsLen,
                                         int tapsFactor, int upFactor, int upPhase, int downFactor,
                                         int downPhase, const Mox16s* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize_32f(int tapsLen, int upFactor, int downFactor, int* size);
MOX_API MoxStatus moxsFIRMRInit_32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                    int upFactor, int upPhase, int downFactor, int downPhase,
                                    const Mox32f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc_32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                         int upFactor, int upPhase, int downFactor, int downPhase,
                                         const Mox32f* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize_32fc(int tapsLen, int upFactor, int downFactor, int* size);
MOX_API MoxStatus moxsFIRMRInit_32fc(MoxsFIRState** state, const Mox32fc* taps, int tapsLen,
                                     int upFactor, int upPhase, int downFactor, int downPhase,
                                     const Mox32fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc_32fc(MoxsFIRState** state, const Mox32fc* taps, int tapsLen,
                                          int upFactor, int upPhase, int downFactor, int downPhase,
                                          const Mox32fc* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize_64f(int tapsLen, int upFactor, int downFactor, int* size);
MOX_API MoxStatus moxsFIRMRInit_64f(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                    int upFactor, int upPhase, int downFactor, int downPhase,
                                    const Mox64f* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc_64f(MoxsFIRState** state, const Mox64f* taps, int tapsLen,
                                         int upFactor, int upPhase, int downFactor, int downPhase,
                                         const Mox64f* dlyLine);
MOX_API MoxStatus moxsFIRMRGetStateSize_64fc(int tapsLen, int upFactor, int downFactor, int* size);
MOX_API MoxStatus moxsFIRMRInit_64fc(MoxsFIRState** state, const Mox64fc* taps, int tapsLen,
                                     int upFactor, int upPhase, int downFactor, int downPhase,
                                     const Mox64fc* dlyLine, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRInitAlloc_64fc(MoxsFIRState** state, const Mox64fc* taps, int tapsLen,
                                          int upFactor, int upPhase, int downFactor, int downPhase,
                                          const Mox64fc* dlyLine);
MOX_API MoxStatus moxsFIRMRStreamGetStateSize_16s(int tapsLen, int upFactor, int downFactor,
                                                  int* size);
MOX_API MoxStatus moxsFIRMRStreamGetStateSize_32f(int tapsLen, int upFactor, int downFactor,
                                                  int* size);
MOX_API MoxStatus moxsFIRMRStreamInit_16s(MoxsFIRState** state, const Mox16s* taps, int tapsLen,
                                          int tapsFactor, int upFactor, int upPhase, int downFactor,
                                          int downPhase, int rndMode, Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRStreamInit_32f(MoxsFIRState** state, const Mox32f* taps, int tapsLen,
                                          int upFactor, int upPhase, int downFactor, int downPhase,
                                          Mox8u* buffer);
MOX_API MoxStatus moxsFIRMRStreamInitAlloc_16s(MoxsFIRState** state, const Mox16s* taps,
                                               int tapsLen, int tapsFactor, int upFactor,
                                               int upPhase, int downFactor, int downPhase,
                                               int rndMode);
MOX_API MoxStatus moxsFIRMRStreamInitAlloc_32f(MoxsFIRState** state, const Mox32f* taps,
                                               int tapsLen, int upFactor, int upPhase,
                                               int downFactor, int downPhase);
/** @} */

/** @defgroup multirate_run Running a multirate filter
 * @ingroup topic_filters
 * @ref fir "FIR" on a multirate state runs `len` iterations, each of which takes `downFactor`
 * samples and makes `upFactor` outputs:
 *
 *     u[upFactor * i + upPhase] = x[i], all other u = 0
 *     z[n] = sum of taps[k] * u[n - k]
 *     y[j] = z[downFactor * j + downPhase]
 *
 * An output costs the products of its phase, about tapsLen / upFactor; no inserted zero is
 * multiplied. `FIRMR_Direct` does the same without a state: `dlyLine` holds ceil(tapsLen /
 * upFactor) samples, the newest first, and on return the last ones of this call. It makes a state
 * for the call.
 *
 * In place the array has room for inputs and outputs; with `upFactor` above `downFactor` the inputs
 * are copied first, to memory that is taken for the call.
 *
 * A stream state keeps nothing. The samples before the first one are in the array: sample x[0] is
 * src[h], h = ceil(tapsLen / upFactor) - 1, and one more where upPhase > downPhase. It reads
 * `h + len * downFactor` samples.
 *
 * Outputs are rounded as those of a single rate (@ref fir). An output has the same bits however the
 * signal is cut.
 *
 * The scheme is that of Crochiere and Rabiner, "Multirate Digital Signal Processing", 1983.
 *
 * @return of `FIRMR_Direct`: ::moxErrNullPtr for a null argument; ::moxErrSize for `numIters` below
 * 1; ::moxErrFirLen, ::moxErrFirMrFactor and ::moxErrFirMrPhase as from `Init`; ::moxErrMemAlloc
 * without memory for the state, or for the copy of the inputs in place, before anything is written.
 * @{ */
MOX_API MoxStatus moxsFIRMR_Direct_32f(const Mox32f* src, Mox32f* dst, int numIters,
                                       const Mox32f* taps, int tapsLen, int upFactor, int upPhase,
                                       int downFactor, int downPhase, Mox32f* dlyLine);
MOX_API MoxStatus moxsFIRMR_Direct_32f_I(Mox32f* srcDst, int numIters, const Mox32f* taps,
                                         int tapsLen, int upFactor, int upPhase, int downFactor,
                                         int downPhase, Mox32f* dlyLine);
MOX_API MoxStatus moxsFIRMR_Direct_32fc(const Mox32fc* src, Mox32fc* dst, int numIters,
                                        const Mox32fc* taps, int tapsLen, int upFactor, int upPhase,
                                        int downFactor, int downPhase, Mox32fc* dlyLine);
MOX_API MoxStatus moxsFIRMR_Direct_32fc_I(Mox32fc* srcDst, int numIters, const Mox32fc* taps,
                                          int tapsLen, int upFactor, int upPhase, int downFactor,
                                          int downPhase, Mox32fc* dlyLine);
MOX_API MoxStatus moxsFIRMR_Direct_64f(const Mox64f* src, Mox64f* dst, int numIters,
                                       const Mox64f* taps, int tapsLen, int upFactor, int upPhase,
                                       int downFactor, int downPhase, Mox64f* dlyLine);
MOX_API MoxStatus moxsFIRMR_Direct_64f_I(Mox64f* srcDst, int numIters, const Mox64f* taps,
                                         int tapsLen, int upFactor, int upPhase, int downFactor,
                                         int downPhase, Mox64f* dlyLine);
MOX_API MoxStatus moxsFIRMR_Direct_64fc(const Mox64fc* src, Mox64fc* dst, int numIters,
                                        const Mox64fc* taps, int tapsLen, int upFactor, int upPhase,
                                        int downFactor, int downPhase, Mox64fc* dlyLine);
MOX_API MoxStatus moxsFIRMR_Direct_64fc_I(Mox64fc* srcDst, int numIters, const Mox64fc* taps,
                                          int tapsLen, int upFactor, int upPhase, int downFactor,
                                          int downPhase, Mox64fc* dlyLine);
MOX_API MoxStatus moxsFIRMR64f_Direct_32f(const Mox32f* src, Mox32f* dst, int numIters,
                                          const Mox64f* taps, int tapsLen, int upFactor,
                                          int upPhase, int downFactor, int downPhase,
                                          Mox32f* dlyLine);
MOX_API MoxStatus moxsFIRMR64f_Direct_32f_I(Mox32f* srcDst, int numIters, const Mox64f* taps,
                                            int tapsLen, int upFactor, int upPhase, int downFactor,
                                            int downPhase, Mox32f* dlyLine);
MOX_API MoxStatus moxsFIRMR64fc_Direct_32fc(const Mox32fc* src, Mox32fc* dst, int numIters,
                                            const Mox64fc* taps, int tapsLen, int upFactor,
                                            int upPhase, int downFactor, int downPhase,
                                            Mox32fc* dlyLine);
MOX_API MoxStatus moxsFIRMR64fc_Direct_32fc_I(Mox32fc* srcDst, int numIters, const Mox64fc* taps,
                                              int tapsLen, int upFactor, int upPhase,
                                              int downFactor, int downPhase, Mox32fc* dlyLine);
MOX_API MoxStatus moxsFIRMR32f_Direct_16s_Sfs(const Mox16s* src, Mox16s* dst, int numIters,
                                              const Mox32f* taps, int tapsLen, int upFactor,
                                              int upPhase, int downFactor, int downPhase,
                                              Mox16s* dlyLine, int scaleFactor);
MOX_API MoxStatus moxsFIRMR32f_Direct_16s_ISfs(Mox16s* srcDst, int numIters, const Mox32f* taps,
                                               int tapsLen, int upFactor, int upPhase,
                                               int downFactor, int downPhase, Mox16s* dlyLine,
                                               int scaleFactor);
MOX_API MoxStatus moxsFIRMR32fc_Direct_16sc_Sfs(const Mox16sc* src, Mox16sc* dst, int numIters,
                                                const Mox32fc* taps, int tapsLen, int upFactor,
                                                int upPhase, int downFactor, int downPhase,
                                                Mox16sc* dlyLine, int scaleFactor);
MOX_API MoxStatus moxsFIRMR32fc_Direct_16sc_ISfs(Mox16sc* srcDst, int numIters, const Mox32fc* taps,
                                                 int tapsLen, int upFactor, int upPhase,
                                                 int downFactor, int downPhase, Mox16sc* dlyLine,
                                                 int scaleFactor);
MOX_API MoxStatus moxsFIRMR32s_Direct_16s_Sfs(const Mox16s* src, Mox16s* dst, int numIters,
                                              const Mox32s* taps, int tapsLen, int tapsFactor,
                                              int upFactor, int upPhase, int downFactor,
                                              int downPhase, Mox16s* dlyLine, int scaleFactor);
MOX_API MoxStatus moxsFIRMR32s_Direct_16s_ISfs(Mox16s* srcDst, int numIters, const Mox32s* taps,
                                               int tapsLen, int tapsFactor, int upFactor,
                                               int upPhase, int downFactor, int downPhase,
                                               Mox16s* dlyLine, int scaleFactor);
MOX_API MoxStatus moxsFIRMR32sc_Direct_16sc_Sfs(const Mox16sc* src, Mox16sc* dst, int numIters,
                                                const Mox32sc* taps, int tapsLen, int tapsFactor,
                                                int upFactor, int upPhase, int downFactor,
                                                int downPhase, Mox16sc* dlyLine, int scaleFactor);
MOX_API MoxStatus moxsFIRMR32sc_Direct_16sc_ISfs(Mox16sc* srcDst, int numIters, const Mox32sc* taps,
                                                 int tapsLen, int tapsFactor, int upFactor,
                                                 int upPhase, int downFactor, int downPhase,
                                                 Mox16sc* dlyLine, int scaleFactor);
MOX_API MoxStatus moxsFIRMR64f_Direct_16s_Sfs(const Mox16s* src, Mox16s* dst, int numIters,
                                              const Mox64f* taps, int tapsLen, int upFactor,
                                              int upPhase, int downFactor, int downPhase,
                                              Mox16s* dlyLine, int scaleFactor);
MOX_API MoxStatus moxsFIRMR64f_Direct_16s_ISfs(Mox16s* srcDst, int numIters, const Mox64f* taps,
                                               int tapsLen, int upFactor, int upPhase,
                                               int downFactor, int downPhase, Mox16s* dlyLine,
                                               int scaleFactor);
MOX_API MoxStatus moxsFIRMR64f_Direct_32s_Sfs(const Mox32s* src, Mox32s* dst, int numIters,
                                              const Mox64f* taps, int tapsLen, int upFactor,
                                              int upPhase, int downFactor, int downPhase,
                                              Mox32s* dlyLine, int scaleFactor);
MOX_API MoxStatus moxsFIRMR64f_Direct_32s_ISfs(Mox32s* srcDst, int numIters, const Mox64f* taps,
                                               int tapsLen, int upFactor, int upPhase,
                                               int downFactor, int downPhase, Mox32s* dlyLine,
                                               int scaleFactor);
MOX_API MoxStatus moxsFIRMR64fc_Direct_16sc_Sfs(const Mox16sc* src, Mox16sc* dst, int numIters,
                                                const Mox64fc* taps, int tapsLen, int upFactor,
                                                int upPhase, int downFactor, int downPhase,
                                                Mox16sc* dlyLine, int scaleFactor);
MOX_API MoxStatus moxsFIRMR64fc_Direct_16sc_ISfs(Mox16sc* srcDst, int numIters, const Mox64fc* taps,
                                                 int tapsLen, int upFactor, int upPhase,
                                                 int downFactor, int downPhase, Mox16sc* dlyLine,
                                                 int scaleFactor);
MOX_API MoxStatus moxsFIRMR64fc_Direct_32sc_Sfs(const Mox32sc* src, Mox32sc* dst, int numIters,
                                                const Mox64fc* taps, int tapsLen, int upFactor,
                                                int upPhase, int downFactor, int downPhase,
                                                Mox32sc* dlyLine, int scaleFactor);
MOX_API MoxStatus moxsFIRMR64fc_Direct_32sc_ISfs(Mox32sc* srcDst, int numIters, const Mox64fc* taps,
                                                 int tapsLen, int upFactor, int upPhase,
                                                 int downFactor, int downPhase, Mox32sc* dlyLine,
                                                 int scaleFactor);
/** @} */

#endif
