/**
 * @file
 * The statuses as texts. Made from moxsp/types.h by `./run exports`.
 */
#ifndef MOXSP_STATUS_H
#define MOXSP_STATUS_H

#include <moxsp/types.h>

/** One line of text for a status, such as "a required pointer is null"; never a null pointer. */
static inline const char* moxsStatusText(MoxStatus status) {
  switch (status) {
    case moxOk:
      return "success";
    case moxWarnSqrtNegArg:
      return "square root of a negative element";
    case moxWarnInvZero:
      return "reciprocal of a zero element with level 0";
    case moxWarnEvenMedianMask:
      return "an even median mask was lowered by one";
    case moxWarnDivByZero:
      return "an element was divided by zero";
    case moxWarnLnZeroArg:
      return "logarithm of a zero element";
    case moxWarnLnNegArg:
      return "logarithm of a negative element";
    case moxWarnNaNFound:
      return "a NaN element was met";
    case moxWarnBitWidth:
      return "a bit width outside 0 to 32 was clamped";
    case moxErrBadArg:
      return "an argument is outside its allowed set";
    case moxErrSize:
      return "a length is not positive or above a limit";
    case moxErrZeroCrossingType:
      return "unknown kind of zero-crossing measure";
    case moxErrNullPtr:
      return "a required pointer is null";
    case moxErrMemAlloc:
      return "an allocation inside the library failed";
    case moxErrDivByZero:
      return "a constant divisor is zero";
    case moxErrCauchyConst:
      return "the Cauchy constant is not positive";
    case moxErrDataType:
      return "unsupported data-type selector";
    case moxErrIirTapFactor:
      return "negative scale word of IIR taps";
    case moxErrFftOrder:
      return "transform order out of range";
    case moxErrFftFlag:
      return "normalisation flag other than 1, 2, 4, 8";
    case moxErrContext:
      return "the object is not of the kind this function takes";
    case moxErrThreshOrder:
      return "lower threshold above the upper one";
    case moxErrThreshLevel:
      return "negative threshold on a magnitude";
    case moxErrDlyLineIndex:
      return "delay-line index out of range";
    case moxErrIirOrder:
      return "IIR order out of range";
    case moxErrFirLen:
      return "tap count out of range";
    case moxErrRelFreq:
      return "relative frequency out of range";
    case moxErrFirMrFactor:
      return "multirate factor out of range";
    case moxErrFirMrPhase:
      return "multirate phase out of range";
    case moxErrSamplePhase:
      return "sampling phase out of range";
    case moxErrSampleFactor:
      return "sampling factor out of range";
    case moxErrShift:
      return "negative shift count";
    case moxErrSumWindowLen:
      return "window of a running sum below 1";
    case moxErrWtOffset:
      return "wavelet filter offset below -1";
    case moxErrJaehneMagn:
      return "negative magnitude of a Jaehne signal";
    case moxErrKaiserAlpha:
      return "Kaiser parameter too large for the length";
    case moxErrTriangleAsym:
      return "triangle asymmetry out of range";
    case moxErrTrianglePhase:
      return "triangle phase out of range";
    case moxErrTriangleFreq:
      return "triangle frequency out of range";
    case moxErrTriangleMagn:
      return "triangle magnitude not positive";
    case moxErrTonePhase:
      return "tone phase out of range";
    case moxErrToneFreq:
      return "tone frequency out of range";
    case moxErrToneMagn:
      return "tone magnitude not positive";
    case moxErrChannelCount:
      return "channel count below 1 (moxsIIR64f_32s_PSfs)";
    case moxErrChannel:
      return "channel count below 1 (moxsIIR_32f_P)";
    case moxErrSparseTapPos:
      return "sparse tap positions not strictly increasing";
    case moxErrIirGenOrder:
      return "IIR design order outside 1 to 12";
    case moxErrIirGenFreq:
      return "IIR design cut-off outside 0 to 0.5";
    case moxErrIirGenRipple:
      return "IIR design ripple out of range";
    case moxErrRoundMode:
      return "rounding mode not offered here";
    case moxErrAlgType:
      return "unknown combination in an algorithm selector";
    default:
      return "unknown status";
  }
}

#endif
