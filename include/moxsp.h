/**
 * @file
 * moxSP, signal-processing primitives on plain arrays: all public declarations.
 *
 * What holds for all functions, unless their group tells otherwise:
 *
 * - A status below 0 is an error, after which nothing has been written; one above 0 is a warning,
 *   and every element has been processed. Both are tested at once by `status < 0`.
 * - The rounding mode and the other control bits of the floating-point units are unchanged after
 *   a call. Float results are those of the rounding mode in force; bounds in ulps hold for
 *   rounding to nearest.
 * - A function whose arrays all hold integers raises no floating-point exception that its caller
 *   sees, but for filters and transforms, which may compute integers in floats. Any other may set
 *   every exception flag of IEEE 754, and stop a program that traps the exception, even where no
 *   result shows a cause, since kernels compute more than they keep.
 * - Where a result is NaN, its sign and payload are open. Functions that only move elements, or
 *   change their signs, keep both.
 * - Results are the same for every address of the arrays, but for sums of floats
 *   (moxsp/reductions.h), and on every processor, but for those that rest on the processor's
 *   estimates of 1 / x and 1 / sqrt(x), within the bounds that are given: DemodulateFM, and in
 *   single precision Cubrt, Arctan, Phase, CartToPolar, Threshold of complex elements and with
 *   LTInv, the L1 norm of complex elements, and DCT of the lengths below 36 that are not powers of
 *   two.
 */
#ifndef MOXSP_H
#define MOXSP_H

#include <moxsp/adaptive.h>
#include <moxsp/arith.h>
#include <moxsp/channel.h>
#include <moxsp/companding.h>
#include <moxsp/complex.h>
#include <moxsp/convert.h>
#include <moxsp/corr.h>
#include <moxsp/dct.h>
#include <moxsp/dft.h>
#include <moxsp/dft_out_ord.h>
#include <moxsp/division.h>
#include <moxsp/elementary.h>
#include <moxsp/extrema.h>
#include <moxsp/fir.h>
#include <moxsp/fir_design.h>
#include <moxsp/fir_direct.h>
#include <moxsp/fir_sr.h>
#include <moxsp/generators.h>
#include <moxsp/goertzel.h>
#include <moxsp/hilbert.h>
#include <moxsp/iir.h>
#include <moxsp/iir_design.h>
#include <moxsp/integer_fft.h>
#include <moxsp/logic.h>
#include <moxsp/measures.h>
#include <moxsp/median.h>
#include <moxsp/move.h>
#include <moxsp/multirate.h>
#include <moxsp/reductions.h>
#include <moxsp/resampling.h>
#include <moxsp/sorting.h>
#include <moxsp/sparse.h>
#include <moxsp/stats.h>
#include <moxsp/status.h>
#include <moxsp/threshold.h>
#include <moxsp/transforms.h>
#include <moxsp/types.h>
#include <moxsp/wavelet.h>
#include <moxsp/windows.h>

#endif
