/**
 * @file
 * Version, element types, the status of a call, and the small numbers that calls take.
 */
#ifndef MOXSP_TYPES_H
#define MOXSP_TYPES_H

#include <stdint.h>

#if defined(__cplusplus)
#define MOX_API extern "C" __attribute__((visibility("default")))
#else
#define MOX_API extern __attribute__((visibility("default")))
#endif

/** @defgroup headerversion Version of the headers
 * What a program is compiled against; moxsGetLibVersion() tells what it runs with. The library's
 * build reads its own version here.
 * @{ */
#define MOXSP_VERSION_MAJOR 1
#define MOXSP_VERSION_MINOR 0
#define MOXSP_VERSION_PATCH 0
/** A version as one number to compare: `#if MOXSP_VERSION >= MOXSP_MAKE_VERSION(1, 2, 0)`. */
#define MOXSP_MAKE_VERSION(major, minor, patch) ((major)*1000000 + (minor)*1000 + (patch))
/** The version of these headers as one number. */
#define MOXSP_VERSION \
  MOXSP_MAKE_VERSION(MOXSP_VERSION_MAJOR, MOXSP_VERSION_MINOR, MOXSP_VERSION_PATCH)
/** @} */

/** @defgroup elements Element types
 * Arrays are plain contiguous arrays of these; lengths count elements, a complex one as one. No
 * array needs to be aligned. Packed 24-bit samples (`24s`, `24u` in a name) are three bytes each,
 * least significant first, in arrays of ::Mox8u; `1u` names a bit string in an array of ::Mox8u.
 * @{ */
typedef uint8_t Mox8u;
typedef int8_t Mox8s;
typedef uint16_t Mox16u;
typedef int16_t Mox16s;
typedef uint32_t Mox32u;
typedef int32_t Mox32s;
typedef uint64_t Mox64u;
typedef int64_t Mox64s;
typedef uint16_t Mox16f; /**< IEEE 754 binary16, held as its 16 bits */
typedef float Mox32f;    /**< IEEE 754 binary32 */
typedef double Mox64f;   /**< IEEE 754 binary64 */

typedef struct {
  Mox8s re, im;
} Mox8sc;
typedef struct {
  Mox16s re, im;
} Mox16sc;
typedef struct {
  Mox32s re, im;
} Mox32sc;
typedef struct {
  Mox64s re, im;
} Mox64sc;
typedef struct {
  Mox32f re, im;
} Mox32fc;
typedef struct {
  Mox64f re, im;
} Mox64fc;
/** @} */

/**
 * The result of a call: 0 is success; a negative value an error, after which nothing has been
 * written; a positive value a warning, after which every element has been processed. The few
 * functions that may fail half-way say so.
 */
typedef int32_t MoxStatus;

/** The values of ::MoxStatus; moxsStatusText() gives each as a text. */
enum {
  moxOk = 0, /**< success */

  moxWarnSqrtNegArg = 3,     /**< square root of a negative element */
  moxWarnInvZero = 4,        /**< reciprocal of a zero element with level 0 */
  moxWarnEvenMedianMask = 5, /**< an even median mask was lowered by one */
  moxWarnDivByZero = 6,      /**< an element was divided by zero */
  moxWarnLnZeroArg = 7,      /**< logarithm of a zero element */
  moxWarnLnNegArg = 8,       /**< logarithm of a negative element */
  moxWarnNaNFound = 9,       /**< a NaN element was met */
  moxWarnBitWidth = 27,      /**< a bit width outside 0 to 32 was clamped */

  moxErrBadArg = -5,           /**< an argument is outside its allowed set */
  moxErrSize = -6,             /**< a length is not positive or above a limit */
  moxErrZeroCrossingType = -7, /**< unknown kind of zero-crossing measure */
  moxErrNullPtr = -8,          /**< a required pointer is null */
  moxErrMemAlloc = -9,         /**< an allocation inside the library failed */
  moxErrDivByZero = -10,       /**< a constant divisor is zero */
  moxErrCauchyConst = -11,     /**< the Cauchy constant is not positive */
  moxErrDataType = -12,        /**< unsupported data-type selector */
  moxErrIirTapFactor = -13,    /**< negative scale word of IIR taps */
  moxErrFftOrder = -15,        /**< transform order out of range */
  moxErrFftFlag = -16,         /**< normalisation flag other than 1, 2, 4, 8 */
  moxErrContext = -17,         /**< the object is not of the kind this function takes */
  moxErrThreshOrder = -18,     /**< lower threshold above the upper one */
  moxErrThreshLevel = -19,     /**< negative threshold on a magnitude */
  moxErrDlyLineIndex = -24,    /**< delay-line index out of range */
  moxErrIirOrder = -25,        /**< IIR order out of range */
  moxErrFirLen = -26,          /**< tap count out of range */
  moxErrRelFreq = -27,         /**< relative frequency out of range */
  moxErrFirMrFactor = -28,     /**< multirate factor out of range */
  moxErrFirMrPhase = -29,      /**< multirate phase out of range */
  moxErrSamplePhase = -30,     /**< sampling phase out of range */
  moxErrSampleFactor = -31,    /**< sampling factor out of range */
  moxErrShift = -32,           /**< negative shift count */
  moxErrSumWindowLen = -33,    /**< window of a running sum below 1 */
  moxErrWtOffset = -35,        /**< wavelet filter offset below -1 */
  moxErrJaehneMagn = -38,      /**< negative magnitude of a Jaehne signal */
  moxErrKaiserAlpha = -39,     /**< Kaiser parameter too large for the length */
  moxErrTriangleAsym = -40,    /**< triangle asymmetry out of range */
  moxErrTrianglePhase = -41,   /**< triangle phase out of range */
  moxErrTriangleFreq = -42,    /**< triangle frequency out of range */
  moxErrTriangleMagn = -43,    /**< triangle magnitude not positive */
  moxErrTonePhase = -44,       /**< tone phase out of range */
  moxErrToneFreq = -45,        /**< tone frequency out of range */
  moxErrToneMagn = -46,        /**< tone magnitude not positive */
  moxErrChannelCount = -47,    /**< channel count below 1 (`moxsIIR64f_32s_PSfs`) */
  moxErrChannel = -53,         /**< channel count below 1 (`moxsIIR_32f_P`) */
  moxErrSparseTapPos = -194,   /**< sparse tap positions not strictly increasing */
  moxErrIirGenOrder = -206,    /**< IIR design order outside 1 to 12 */
  moxErrIirGenFreq = -208,     /**< IIR design cut-off outside 0 to 0.5 */
  moxErrIirGenRipple = -209,   /**< IIR design ripple out of range */
  moxErrRoundMode = -213,      /**< rounding mode not offered here */
  moxErrAlgType = -228         /**< unknown combination in an algorithm selector */
};

/** How a float becomes an integer. */
enum {
  moxRoundZero = 0,     /**< toward zero */
  moxRoundNearEven = 1, /**< to nearest, ties to the even integer */
  moxRoundHalfAway = 2  /**< to nearest, ties away from zero */
};

/** Normalisation of a pair of transforms of length N: the argument `flag`. */
enum {
  moxNormForward = 1, /**< forward by 1/N */
  moxNormInverse = 2, /**< inverse by 1/N: it then undoes the forward transform */
  moxNormBoth = 4,    /**< both by 1/sqrt(N): energy is kept */
  moxNormNone = 8     /**< neither: inverse after forward gives N times the input */
};

/** What the argument `hint` asks of a function that has a fast and an accurate path. */
enum {
  moxHintNone = 0,    /**< no wish, which gives the accurate path */
  moxHintFast = 1,    /**< the fast path */
  moxHintAccurate = 2 /**< the accurate path */
};

/** The type of elements that a size query is asked about: the argument `dataType`. */
enum {
  moxType32f = 13,  /**< `Mox32f` */
  moxType32fc = 14, /**< `Mox32fc` */
  moxType64f = 19,  /**< `Mox64f` */
  moxType64fc = 20  /**< `Mox64fc` */
};

/** How convolutions and correlations are computed: the argument `algType`. */
enum {
  moxAlgAuto = 0,      /**< directly or by transform, by the lengths */
  moxAlgDirect = 1,    /**< sums of products */
  moxAlgFft = 2,       /**< by transform */
  moxAlgNormA = 0x100, /**< added: divided by the length */
  moxAlgNormB = 0x200  /**< added: divided by the number of terms */
};

/** What moxsGetLibVersion() returns. */
typedef struct {
  Mox32s major;
  Mox32s minor;
  Mox32s update;
  Mox32s build;          /**< revision number of the source */
  char targetCode[4];    /**< two characters and two zero bytes */
  const char* name;      /**< name and target of this build */
  const char* version;   /**< such as "1.0.0 (r12)" */
  const char* buildDate; /**< such as "Nov 24 2026" */
} moxLibraryVersion;

#endif
