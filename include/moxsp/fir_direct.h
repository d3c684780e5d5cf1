/**
 * @file
 * FIR filters without a state.
 *
 * @code{.c}
 * #include <moxsp.h>
 * #include <stdio.h>
 *
 * int main(void) {
 *   const Mox32f taps[3] = {0.25f, 0.5f, 0.25f};
 *   const Mox16s x[6] = {4, 0, 0, 8, 8, 8};
 *   Mox16s y[6], ring[6] = {0};
 *   int place = 0;
 *   if (moxsFIR32f_Direct_16s_Sfs(x, y, 6, taps, 3, ring, &place, 0) != moxOk) return 1;
 *   for (int i = 0; i < 6; ++i) printf("%d ", y[i]);  // 1 2 1 2 6 8
 * }
 * @endcode
 */
#ifndef MOXSP_FIR_DIRECT_H
#define MOXSP_FIR_DIRECT_H

#include <moxsp/types.h>

/** @defgroup fir_direct FIR without a state
 * @ingroup topic_filters
 * The sums of @ref fir sample by sample, with all memory the caller's: `dlyLine` is a ring of
 * `2 * tapsLen` samples that holds the last `tapsLen` twice, and `dlyLineIndex` its place, both 0
 * at first. Each sample is stored at that place and `tapsLen` behind it; then the place moves on,
 * modulo `tapsLen`. `dst` may be `src`.
 *
 * Fixed-point taps are treated as those of a state (@ref fir_fixed). In `moxsFIR_Direct_16s_Sfs`
 * they are fractions of 16 bits, that is with a `tapsFactor` of -15, and treated as those of
 * `32s_16s`; the block form makes a state for the call and leaves the ring with the place 0.
 *
 * @return in this order ::moxErrNullPtr for `src` or `dst`, ::moxErrSize for `len` below 1,
 * ::moxErrNullPtr for `taps`, ::moxErrFirLen for `tapsLen` below 1, ::moxErrNullPtr for `dlyLine`
 * or `dlyLineIndex`. With taps of `_16s` an index outside the ring is ::moxErrDlyLineIndex, and a
 * block for whose state there is no memory ::moxErrMemAlloc; the others take an index modulo
 * `tapsLen`.
 * @note `_32f` adds single-precision products in double precision and rounds the sum once; errors
 * are otherwise bounded as in @ref fir.
 * @{ */
MOX_API MoxStatus moxsFIR_Direct_32f(const Mox32f* src, Mox32f* dst, int len, const Mox32f* taps,
                                     int tapsLen, Mox32f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIR_Direct_32f_I(Mox32f* srcDst, int len, const Mox32f* taps, int tapsLen,
                                       Mox32f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIR_Direct_32fc(const Mox32fc* src, Mox32fc* dst, int len,
                                      const Mox32fc* taps, int tapsLen, Mox32fc* dlyLine,
                                      int* dlyLineIndex);
MOX_API MoxStatus moxsFIR_Direct_32fc_I(Mox32fc* srcDst, int len, const Mox32fc* taps, int tapsLen,
                                        Mox32fc* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIR_Direct_64f(const Mox64f* src, Mox64f* dst, int len, const Mox64f* taps,
                                     int tapsLen, Mox64f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIR_Direct_64f_I(Mox64f* srcDst, int len, const Mox64f* taps, int tapsLen,
                                       Mox64f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIR_Direct_64fc(const Mox64fc* src, Mox64fc* dst, int len,
                                      const Mox64fc* taps, int tapsLen, Mox64fc* dlyLine,
                                      int* dlyLineIndex);
MOX_API MoxStatus moxsFIR_Direct_64fc_I(Mox64fc* srcDst, int len, const Mox64fc* taps, int tapsLen,
                                        Mox64fc* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIR64f_Direct_32f(const Mox32f* src, Mox32f* dst, int len, const Mox64f* taps,
                                        int tapsLen, Mox32f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIR64f_Direct_32f_I(Mox32f* srcDst, int len, const Mox64f* taps, int tapsLen,
                                          Mox32f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIR64fc_Direct_32fc(const Mox32fc* src, Mox32fc* dst, int len,
                                          const Mox64fc* taps, int tapsLen, Mox32fc* dlyLine,
                                          int* dlyLineIndex);
MOX_API MoxStatus moxsFIR64fc_Direct_32fc_I(Mox32fc* srcDst, int len, const Mox64fc* taps,
                                            int tapsLen, Mox32fc* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIR32f_Direct_16s_Sfs(const Mox16s* src, Mox16s* dst, int len,
                                            const Mox32f* taps, int tapsLen, Mox16s* dlyLine,
                                            int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIR32f_Direct_16s_ISfs(Mox16s* srcDst, int len, const Mox32f* taps,
                                             int tapsLen, Mox16s* dlyLine, int* dlyLineIndex,
                                             int scaleFactor);
MOX_API MoxStatus moxsFIR32fc_Direct_16sc_Sfs(const Mox16sc* src, Mox16sc* dst, int len,
                                              const Mox32fc* taps, int tapsLen, Mox16sc* dlyLine,
                                              int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIR32fc_Direct_16sc_ISfs(Mox16sc* srcDst, int len, const Mox32fc* taps,
                                               int tapsLen, Mox16sc* dlyLine, int* dlyLineIndex,
                                               int scaleFactor);
MOX_API MoxStatus moxsFIR32s_Direct_16s_Sfs(const Mox16s* src, Mox16s* dst, int len,
                                            const Mox32s* taps, int tapsLen, int tapsFactor,
                                            Mox16s* dlyLine, int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIR32s_Direct_16s_ISfs(Mox16s* srcDst, int len, const Mox32s* taps,
                                             int tapsLen, int tapsFactor, Mox16s* dlyLine,
                                             int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIR32sc_Direct_16sc_Sfs(const Mox16sc* src, Mox16sc* dst, int len,
                                              const Mox32sc* taps, int tapsLen, int tapsFactor,
                                              Mox16sc* dlyLine, int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIR32sc_Direct_16sc_ISfs(Mox16sc* srcDst, int len, const Mox32sc* taps,
                                               int tapsLen, int tapsFactor, Mox16sc* dlyLine,
                                               int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIR64f_Direct_16s_Sfs(const Mox16s* src, Mox16s* dst, int len,
                                            const Mox64f* taps, int tapsLen, Mox16s* dlyLine,
                                            int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIR64f_Direct_16s_ISfs(Mox16s* srcDst, int len, const Mox64f* taps,
                                             int tapsLen, Mox16s* dlyLine, int* dlyLineIndex,
                                             int scaleFactor);
MOX_API MoxStatus moxsFIR64f_Direct_32s_Sfs(const Mox32s* src, Mox32s* dst, int len,
                                            const Mox64f* taps, int tapsLen, Mox32s* dlyLine,
                                            int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIR64f_Direct_32s_ISfs(Mox32s* srcDst, int len, const Mox64f* taps,
                                             int tapsLen, Mox32s* dlyLine, int* dlyLineIndex,
                                             int scaleFactor);
MOX_API MoxStatus moxsFIR64fc_Direct_16sc_Sfs(const Mox16sc* src, Mox16sc* dst, int len,
                                              const Mox64fc* taps, int tapsLen, Mox16sc* dlyLine,
                                              int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIR64fc_Direct_16sc_ISfs(Mox16sc* srcDst, int len, const Mox64fc* taps,
                                               int tapsLen, Mox16sc* dlyLine, int* dlyLineIndex,
                                               int scaleFactor);
MOX_API MoxStatus moxsFIR64fc_Direct_32sc_Sfs(const Mox32sc* src, Mox32sc* dst, int len,
                                              const Mox64fc* taps, int tapsLen, Mox32sc* dlyLine,
                                              int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIR64fc_Direct_32sc_ISfs(Mox32sc* srcDst, int len, const Mox64fc* taps,
                                               int tapsLen, Mox32sc* dlyLine, int* dlyLineIndex,
                                               int scaleFactor);
MOX_API MoxStatus moxsFIR_Direct_16s_Sfs(const Mox16s* src, Mox16s* dst, int len,
                                         const Mox16s* taps, int tapsLen, Mox16s* dlyLine,
                                         int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIR_Direct_16s_ISfs(Mox16s* srcDst, int len, const Mox16s* taps, int tapsLen,
                                          Mox16s* dlyLine, int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIROne_Direct_32f(Mox32f src, Mox32f* dst, const Mox32f* taps, int tapsLen,
                                        Mox32f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne_Direct_32f_I(Mox32f* srcDst, const Mox32f* taps, int tapsLen,
                                          Mox32f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne_Direct_32fc(Mox32fc src, Mox32fc* dst, const Mox32fc* taps,
                                         int tapsLen, Mox32fc* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne_Direct_32fc_I(Mox32fc* srcDst, const Mox32fc* taps, int tapsLen,
                                           Mox32fc* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne_Direct_64f(Mox64f src, Mox64f* dst, const Mox64f* taps, int tapsLen,
                                        Mox64f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne_Direct_64f_I(Mox64f* srcDst, const Mox64f* taps, int tapsLen,
                                          Mox64f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne_Direct_64fc(Mox64fc src, Mox64fc* dst, const Mox64fc* taps,
                                         int tapsLen, Mox64fc* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne_Direct_64fc_I(Mox64fc* srcDst, const Mox64fc* taps, int tapsLen,
                                           Mox64fc* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne64f_Direct_32f(Mox32f src, Mox32f* dst, const Mox64f* taps, int tapsLen,
                                           Mox32f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne64f_Direct_32f_I(Mox32f* srcDst, const Mox64f* taps, int tapsLen,
                                             Mox32f* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne64fc_Direct_32fc(Mox32fc src, Mox32fc* dst, const Mox64fc* taps,
                                             int tapsLen, Mox32fc* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne64fc_Direct_32fc_I(Mox32fc* srcDst, const Mox64fc* taps, int tapsLen,
                                               Mox32fc* dlyLine, int* dlyLineIndex);
MOX_API MoxStatus moxsFIROne32f_Direct_16s_Sfs(Mox16s src, Mox16s* dst, const Mox32f* taps,
                                               int tapsLen, Mox16s* dlyLine, int* dlyLineIndex,
                                               int scaleFactor);
MOX_API MoxStatus moxsFIROne32f_Direct_16s_ISfs(Mox16s* srcDst, const Mox32f* taps, int tapsLen,
                                                Mox16s* dlyLine, int* dlyLineIndex,
                                                int scaleFactor);
MOX_API MoxStatus moxsFIROne32fc_Direct_16sc_Sfs(Mox16sc src, Mox16sc* dst, const Mox32fc* taps,
                                                 int tapsLen, Mox16sc* dlyLine, int* dlyLineIndex,
                                                 int scaleFactor);
MOX_API MoxStatus moxsFIROne32fc_Direct_16sc_ISfs(Mox16sc* srcDst, const Mox32fc* taps, int tapsLen,
                                                  Mox16sc* dlyLine, int* dlyLineIndex,
                                                  int scaleFactor);
MOX_API MoxStatus moxsFIROne32s_Direct_16s_Sfs(Mox16s src, Mox16s* dst, const Mox32s* taps,
                                               int tapsLen, int tapsFactor, Mox16s* dlyLine,
                                               int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIROne32s_Direct_16s_ISfs(Mox16s* srcDst, const Mox32s* taps, int tapsLen,
                                                int tapsFactor, Mox16s* dlyLine, int* dlyLineIndex,
                                                int scaleFactor);
MOX_API MoxStatus moxsFIROne32sc_Direct_16sc_Sfs(Mox16sc src, Mox16sc* dst, const Mox32sc* taps,
                                                 int tapsLen, int tapsFactor, Mox16sc* dlyLine,
                                                 int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIROne32sc_Direct_16sc_ISfs(Mox16sc* srcDst, const Mox32sc* taps, int tapsLen,
                                                  int tapsFactor, Mox16sc* dlyLine,
                                                  int* dlyLineIndex, int scaleFactor);
MOX_API MoxStatus moxsFIROne64f_Direct_16s_Sfs(Mox16s src, Mox16s* dst, const Mox64f* taps,
                                               int tapsLen, Mox16s* dlyLine, int* dlyLineIndex,
                                               int scaleFactor);
MOX_API MoxStatus moxsFIROne64f_Direct_16s_ISfs(Mox16s* srcDst, const Mox64f* taps, int tapsLen,
                                                Mox16s* dlyLine, int* dlyLineIndex,
                                                int scaleFactor);
MOX_API MoxStatus moxsFIROne64f_Direct_32s_Sfs(Mox32s src, Mox32s* dst, const Mox64f* taps,
                                               int tapsLen, Mox32s* dlyLine, int* dlyLineIndex,
                                               int scaleFactor);
MOX_API MoxStatus moxsFIROne64f_Direct_32s_ISfs(Mox32s* srcDst, const Mox64f* taps, int tapsLen,
                                                Mox32s* dlyLine, int* dlyLineIndex,
                                                int scaleFactor);
MOX_API MoxStatus moxsFIROne64fc_Direct_16sc_Sfs(Mox16sc src, Mox16sc* dst, const Mox64fc* taps,
                                                 int tapsLen, Mox16sc* dlyLine, int* dlyLineIndex,
                                                 int scaleFactor);
MOX_API MoxStatus moxsFIROne64fc_Direct_16sc_ISfs(Mox16sc* srcDst, const Mox64fc* taps, int tapsLen,
                                                  Mox16sc* dlyLine, int* dlyLineIndex,
                                                  int scaleFactor);
MOX_API MoxStatus moxsFIROne64fc_Direct_32sc_Sfs(Mox32sc src, Mox32sc* dst, const Mox64fc* taps,
                                                 int tapsLen, Mox32sc* dlyLine, int* dlyLineIndex,
                                                 int scaleFactor);
MOX_API MoxStatus moxsFIROne64fc_Direct_32sc_ISfs(Mox32sc* srcDst, const Mox64fc* taps, int tapsLen,
                                                  Mox32sc* dlyLine, int* dlyLineIndex,
                                                  int scaleFactor);
MOX_API MoxStatus moxsFIROne_Direct_16s_Sfs(Mox16s src, Mox16s* dst, const Mox16s* taps,
                                            int tapsLen, Mox16s* dlyLine, int* dlyLineIndex,
                                            int scaleFactor);
MOX_API MoxStatus moxsFIROne_Direct_16s_ISfs(Mox16s* srcDst, const Mox16s* taps, int tapsLen,
                                             Mox16s* dlyLine, int* dlyLineIndex, int scaleFactor);
/** @} */

#endif
