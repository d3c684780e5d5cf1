// Bad arguments: each gives its status, of two the one of lower rank, and nothing is written.
#include <climits>
#include <cmath>

#include "frame/every/call.h"
#include "frame/every/checks.h"
#include "frame/every/contract.h"
#include "frame/every/objects.h"
#include "frame/every/shapes.h"
#include "frame/every/tables.h"

namespace every {
namespace {

// When arguments are looked at. What has the same rank may be looked at in any order.
enum Rank { first, object, pointer, length, behindLength, number, level, last };

// Bad values of pointers; those of other parameters are numbers, and so are those of "*phase", to
// which the pointer `phase` points.
constexpr double null = 0, cleared = 1;

struct Row {
  Claim claim;
  MoxStatus status;
  Rank rank;
  std::vector<double> values;
};

// Rows of one parameter differ in status or rank. Besides, null is refused in the rank of pointers
// wherever a pointer is neither optional nor the subject of a row with null.
Row row(const char* functions, const char* parameters, std::vector<double> values, MoxStatus status,
        Rank rank) {
  return {{functions, parameters, 100 * -status + rank}, status, rank, std::move(values)};
}
const std::vector<double> belowOne = {0, -1, INT_MIN}, negative = {-1, INT_MIN};

const Table<Row> refusals = {
    "refusals",
    {row("*", "len len1 len2 srcLen lenLow tableLen", belowOne, moxErrSize, length),
     row("*", "channels numIters nStep inRate outRate", belowOne, moxErrSize, length),
     row("Conv* *Corr* WTFwd_*", "dstLen", belowOne, moxErrSize, length),
     row("@(StdDev|MeanStdDev)_*", "len", {1, 0, -1, INT_MIN}, moxErrSize, length),
     // A complex sum is the real one of twice the length, which is reckoned first.
     row("@(Add|Sub)_*c?(_I) @(Add|Sub)_*sc_?(I)Sfs MaxOrder_*", "len", belowOne, moxErrSize,
         first),
     // A length of 64 bits without a sign, no pairs, and no element at all.
     row("Win!(BlackmanOpt*|Kaiser*)", "len", {2, 0, -1, INT_MIN}, moxErrSize, length),
     row("WinBlackmanOpt*", "len", {3, 0, -1, INT_MIN}, moxErrSize, first),
     row("WinKaiser_*", "alpha", {1000, -1000}, moxErrKaiserAlpha, number),
     row("WinKaiserQ15_*", "alphaQ15", {INT_MAX, INT_MIN}, moxErrKaiserAlpha, number),
     row("Convert_64f64s_Sfs ZeroCrossing_* @(Max|Min)Every_*", "len", {0}, moxErrSize, length),

     row("@(FIR|Tone|Triangle|Rand)!(*Init*|Sparse*|*_Direct_*) IIR!(*Init*|*P|*PSfs|Sparse*)",
         "state", {cleared}, moxErrContext, last),
     row("Convolve* *CorrNorm*", "algType", {3, 255}, moxErrAlgType, number),
     row("Convolve* *CorrNorm*", "dataType", {0, 12, 21}, moxErrDataType, last),

     row("Copy*_1u", "srcBitOffset dstBitOffset", negative, moxErrSize, length),
     row("PackBits_*", "dstBitOffset", negative, moxErrSize, length),
     row("SortRadixIndex*", "srcStrideBytes", {0, -2, INT_MIN}, moxErrSize, length),
     row("SortRadixIndex*_@(16|32)*", "srcStrideBytes", {1}, moxErrSize, behindLength),
     row("SplitScaled_*", "dstRows", {null}, moxErrNullPtr, behindLength),
     row("JoinScaled_*", "srcRows", {null}, moxErrNullPtr, behindLength),

     row("CartToPolar_*", "dstPhase", {null}, moxErrNullPtr, behindLength),

     row("DivC_* Normalize_*", "val div", {0, -0.0}, moxErrDivByZero, number),
     row("Normalize_@(32|64)f*", "div", {1e-39, -1e-39}, moxErrDivByZero, last),
     row("Div_Round_*", "rndMode", {3, -1}, moxErrRoundMode, number),
     row("Convert_32f16f Convert_16s16f Convert_16f16s_Sfs", "roundMode", {2}, moxErrRoundMode,
         number),
     row("@(L|R)ShiftC_*", "val", negative, moxErrShift, number),
     row("Cauchy*", "c", {0, -1, NAN}, moxErrCauchyConst, number),
     row("Sample@(Up|Down)_*", "factor", belowOne, moxErrSampleFactor, number),
     row("Sample@(Up|Down)_*", "*phase", {3, -1, INT_MIN, INT_MAX}, moxErrSamplePhase, level),
     row("ResamplePolyphase@(GetSize|Init)_*", "window", {0, -1, 0.124, 1e30}, moxErrBadArg,
         number),
     row("ResamplePolyphase*Init_*", "rollf", {0, -1, 1.01}, moxErrBadArg, number),
     row("ResamplePolyphase*Init_*", "alpha", {0.99, -3}, moxErrBadArg, number),
     row("ResamplePolyphase_*", "factor", {0, -1, 1e-10, 1e30}, moxErrSize, length),
     row("ResamplePolyphase?(Fixed)_*", "*time", {NAN, 1e300, -INFINITY}, moxErrBadArg, last),
     row("ResamplePolyphase[GS]etFixedFilter_*", "step height", belowOne, moxErrSize, length),
     row("ResamplePolyphase[GS]etFixedFilter_*", "height", {INT_MAX}, moxErrSize, last),
     row("FIRGen*", "tapsLen", {4, 0, -1, INT_MIN}, moxErrSize, length),
     row("FIRGen*", "rFreq rLowFreq rHighFreq", {0, 0.5, 1, -0.1, NAN}, moxErrSize, number),
     row("FIRGenBand*", "rLowFreq", {0.3, 0.4}, moxErrSize, last),
     row("FilterMedian_*", "maskSize", belowOne, moxErrSize, number),
     row("SumWindow_*", "maskSize", belowOne, moxErrSumWindowLen, number),
     row("ZeroCrossing_*", "zcType", {3, -1, INT_MIN}, moxErrZeroCrossingType, number),
     row("Threshold_@(LTAbs|GTAbs|LTInv)_* Threshold_?(LT_|GT_|LTVal_|GTVal_)*c?(_I)", "level",
         {-1}, moxErrThreshLevel, level),
     row("Threshold_LTValGTVal_*", "levelLT", {6}, moxErrThreshOrder, level),
     row("Threshold_*", "relOp", {3, -1}, moxErrBadArg, last),

     row("Goertz_*", "relFreq", {-1e-9, 1, NAN}, moxErrRelFreq, number),
     row("GoertzTwo_*", "*relFreq", {-0.1, 1, NAN, -0.1}, moxErrRelFreq, number),
     row("GoertzQ15_*", "relFreqQ15", {-1, -32768}, moxErrRelFreq, first),
     row("GoertzTwoQ15_*", "relFreqQ15", {null}, moxErrNullPtr, first),
     row("GoertzTwoQ15_*", "*relFreqQ15", {-1, -32768}, moxErrRelFreq, object),

     row("FFTGetSize_*", "order", {-1, 31, INT_MIN, INT_MAX}, moxErrFftOrder, first),
     row("FFTGetSize_*", "order", {30}, moxErrFftOrder, last),
     row("FFTInit_*", "spec", {null}, moxErrNullPtr, first),
     row("FFTInit_*", "order", {-1, 30, 31, INT_MIN, INT_MAX}, moxErrFftOrder, object),
     row("FFTInitAlloc_*", "order", {-1, 31, INT_MIN, INT_MAX}, moxErrFftOrder, behindLength),
     row("FFTInitAlloc_*", "order", {30}, moxErrFftOrder, last),
     row("@(FFT|DFT)*", "flag", {0, 3, 16, -8}, moxErrFftFlag, number),
     row("@(FFT|DFT?(OutOrd))@(Fwd|Inv)_*", "spec", {null}, moxErrNullPtr, first),
     row("@(FFT|DFT?(OutOrd))@(Fwd|Inv)_*", "spec", {cleared}, moxErrContext, object),
     row("@(FFT|DFT?(OutOrd))@(GetBufSize|Free)_*", "spec", {cleared}, moxErrContext, behindLength),
     row("DFTInit_*", "initBuf", {null}, moxErrNullPtr, last),
     row("DFT@(GetSize|Init)*", "len", {INT_MAX}, moxErrSize, last),
     row("DFTOutOrdInit*", "len", {INT_MAX, 0x8000000}, moxErrSize, last),
     row("DFT@(GetSize|Init)*", "len", {1 << 30}, moxErrFftOrder, last),

     row("DCT*GetSize_* DCT*Init_*", "len", belowOne, moxErrSize, first),
     row("DCT*GetSize_* DCT*Init*", "len", {INT_MAX, 0x10000000}, moxErrSize, last),
     row("DCT*InitAlloc_*", "len", belowOne, moxErrSize, length),
     row("DCT!(*Init*) Hilbert!(Init*)", "spec", {cleared}, moxErrContext, behindLength),

     row("FIR!(LMS*|SR*)@(Init|GetStateSize)*", "tapsLen", {0, -1, INT_MIN, INT_MAX}, moxErrFirLen,
         length),
     row("FIR!(MR*|LMS*)_Direct_*", "taps", {null}, moxErrNullPtr, behindLength),
     row("FIR!(MR*|LMS*)_Direct_*", "tapsLen", belowOne, moxErrFirLen, number),
     row("FIR!(MR*|LMS*)_Direct_*", "dlyLine dlyLineIndex", {null}, moxErrNullPtr, last),
     row("FIR?(One)_Direct_16s* FIRLMSOne_Direct*", "*dlyLineIndex", {-1, INT_MAX},
         moxErrDlyLineIndex, last),
     row("FIR*StreamInit*_16s", "rndMode", {3, -1}, moxErrRoundMode, last),

     row("FIRMR*_Direct_*", "tapsLen", belowOne, moxErrFirLen, behindLength),
     row("FIRMR*GetStateSize*", "upFactor downFactor", belowOne, moxErrFirMrPhase, number),
     row("FIRMR*Init* FIRMR*_Direct_*", "upFactor downFactor", belowOne, moxErrFirMrFactor, number),
     row("FIRMR*Init* FIRMR*_Direct_*", "upPhase downPhase", {-1, 7, INT_MIN, INT_MAX},
         moxErrFirMrPhase, level),

     row("FIRLMSInitAlloc* FIRLMSMRInitAlloc* FIRLMSOne_Direct*", "tapsLen", belowOne, moxErrSize,
         length),
     row("FIRLMSMRInitAlloc*", "dlyStep", belowOne, moxErrSize, number),
     row("FIRLMSMRInitAlloc*", "updateDly", negative, moxErrSize, number),
     row("FIRLMSMRInitAlloc*", "dlyLineIndex", {-1, INT_MAX}, moxErrSize, level),
     row("FIRLMSMRGetDlyVal*", "index", {-1, INT_MAX}, moxErrBadArg, last),

     row("IIR!(Sparse*)@(Init|GetStateSize)*", "order numBq", belowOne, moxErrIirOrder, length),
     row("IIRGetStateSize*", "order numBq", {INT_MAX}, moxErrIirOrder, last),
     // The phase's own pointer comes first, the array last.
     row("@(Tone|Triangle)_Direct_*", "phase", {null}, moxErrNullPtr, first),
     row("Tone_Direct_*", "magn", {0, -1}, moxErrToneMagn, object),
     row("Triangle_Direct_*", "magn", {0, -1}, moxErrTriangleMagn, object),
     row("Tone_Direct_*", "rFreq", {-0.1, 0.5}, moxErrToneFreq, pointer),
     row("Triangle_Direct_*", "rFreq", {-0.1, 0.5}, moxErrTriangleFreq, pointer),
     row("Triangle_Direct_*", "asym", {-3.15, 3.15}, moxErrTriangleAsym, length),
     row("Tone_Direct_*", "*phase", {-1e-9, 6.2831854, NAN}, moxErrTonePhase, behindLength),
     row("Triangle_Direct_*", "*phase", {-1e-9, 6.2831854, NAN}, moxErrTrianglePhase, behindLength),
     row("@(Tone|Triangle)_Direct_*", "dst", {null}, moxErrNullPtr, number),
     row("@(Tone|Triangle)_Direct_*", "len", belowOne, moxErrSize, level),
     row("Tone*Q15*", "magn", {0, -1}, moxErrToneMagn, number),
     row("Triangle*Q15*", "magn", {0, -1}, moxErrTriangleMagn, number),
     row("Tone*Q15*", "rFreqQ15", {-1, 16384}, moxErrToneFreq, level),
     row("Triangle*Q15*", "rFreqQ15", {-1, 16384}, moxErrTriangleFreq, level),
     row("Tone*Q15*", "phaseQ15", {-1, 205887}, moxErrTonePhase, last),
     row("Triangle*Q15*", "phaseQ15", {-1, 205887}, moxErrTrianglePhase, last),
     row("Triangle*Q15*", "asymQ15", {-102944, 102944}, moxErrTriangleAsym, last),

     row("VectorJaehne_*[sf]", "magn", {-1}, moxErrJaehneMagn, number),
     row("WT@(Fwd|Inv)!(InitAlloc*)", "state", {null}, moxErrNullPtr, first),
     row("WT@(Fwd|Inv)!(InitAlloc*)", "state", {cleared}, moxErrContext, object),
     row("WTInv_*", "dst", {null}, moxErrNullPtr, behindLength),
     row("WT*InitAlloc*", "tapsHigh", {null}, moxErrNullPtr, behindLength),
     row("WT*InitAlloc*", "lenHigh", belowOne, moxErrSize, number),
     row("WT*InitAlloc*", "offsLow offsHigh", {-2, INT_MIN}, moxErrWtOffset, level),

     row("IIR*Direct_16s*", "order numBq", belowOne, moxErrIirOrder, first),
     row("FIRSRInit_*", "tapsLen", {0, -1, INT_MIN, INT_MAX}, moxErrSize, first),
     row("FIRSRInit_*", "algType", {3, 0x101, -1}, moxErrAlgType, last),
     row("FIRSRGetSize", "tapsLen", belowOne, moxErrSize, first),
     row("FIRSRGetSize", "tapsLen", {INT_MAX, 1 << 25}, moxErrSize, last),
     row("FIRSRGetSize", "dataType", {0, 14, -1}, moxErrDataType, object),
     row("FIRSparse*", "nzTapsLen", belowOne, moxErrFirLen, length),
     row("FIRSparseGetStateSize_*", "order", {INT_MAX}, moxErrSize, last),
     row("IIRSparse*", "nzTapsLen1 nzTapsLen2", belowOne, moxErrIirOrder, length),
     row("IIRGen*", "order", {0, -1, 13, INT_MIN, INT_MAX}, moxErrIirGenOrder, length),
     row("IIRGen*", "rFreq", {0, 0.5, -0.1, NAN}, moxErrIirGenFreq, behindLength),
     row("IIRGen*", "filterType", {2, -1}, moxErrBadArg, number),
     row("IIRGen*", "ripple", {0, 60.5, -1, NAN}, moxErrIirGenRipple, level),

     row("IIR_32f_*", "numChannels", belowOne, moxErrChannel, number),
     row("IIR64f_32s_*", "numChannels", belowOne, moxErrChannelCount, number)}};

bool isPointer(const Function& f, int i) { return f.type(i).form != Form::value; }

struct Refusal {
  int parameter;
  Row row;
  bool ofTarget = false;
};

std::vector<Refusal> refusalsOf(const Function& f) {
  std::vector<Refusal> all;
  for (int i = 0; i < f.count(); ++i) {
    const std::string& name = f.parameters[i];
    bool nullIsKnown = !isPointer(f, i) || optionalPointer(f, name);
    for (const Row* r : refusals.all(f, name)) {
      all.push_back({i, *r});
      nullIsKnown |= r->status == moxErrNullPtr;
    }
    for (const Row* r : refusals.all(f, '*' + name)) all.push_back({i, *r, true});
    if (!nullIsKnown) all.push_back({i, row("", "", {null}, moxErrNullPtr, pointer)});
  }
  return all;
}

alignas(64) std::byte clearedMemory[8192];

// Spoils an argument by the k-th bad value, and says how. Of an array it is one element.
std::string spoil(Call& call, const Refusal& refusal, std::size_t k = 0) {
  const int parameter = refusal.parameter;
  const std::string& name = call.function().parameters[parameter];
  const double value = refusal.row.values[k];
  if (refusal.ofTarget) {
    const Array& a = *call.array(parameter);
    auto content = a.initial;
    a.element->store(&content[k * std::size_t(a.element->bytes) % a.bytes], value);
    call.fill(parameter, content);
    return '*' + name + " = " + std::to_string(value);
  }
  if (!isPointer(call.function(), parameter)) {
    call.setNumber(parameter, value);
    return name + " = " + std::to_string(value);
  }
  call.setPointer(parameter, value == null ? nullptr : clearedMemory);
  return (value == null ? "a null '" : "cleared memory as '") + name + "'";
}

std::string text(const Numbers& numbers) {
  std::string all;
  for (const auto& [name, value] : numbers) all += ", " + name + " = " + std::to_string(value);
  return all;
}

// What is refused with one number is refused with all others, scale factors among them.
std::vector<Numbers> numbersToRefuseWith(const Function& f) {
  auto all = otherNumbers(f);
  all.insert(all.begin(), Numbers());
  if (hasScaleFactor(f))
    for (const int factor : {0, 17, 100, INT_MAX, -6, -16, -31, INT_MIN})
      all.push_back({{"scaleFactor", factor}});
  return all;
}

void requireRefusal(Call& call, MoxStatus status) {
  if (const MoxStatus got = call.run(); got != status)
    throw Misbehaved("answers " + std::to_string(got) + " instead of " + std::to_string(status));
  if (!deviation(call.function(), Deviation::outputsApart)) call.requireUntouched();
  for (const std::byte b : clearedMemory)
    if (b != std::byte(0)) throw Misbehaved("writes to an object that it refuses");
}

void checkNullRows(const Function& f, int parameter, Position& at) {
  for (int row = 0; row < Call(f, {}).rowCount(parameter); ++row) {
    at.detail = "with row " + std::to_string(row) + " null";
    Call call(f, {});
    call.setRowNull(parameter, row);
    requireRefusal(call, moxErrNullPtr);
  }
}

}  // namespace

bool canBeRefused(const Function& f) { return !refusalsOf(f).empty(); }

void checkRefusals(const Function& f, Position& at) {
  const auto all = refusalsOf(f);
  at.length = Setting().length;
  for (const Numbers& numbers : numbersToRefuseWith(f)) {
    const Setting setting{.numbers = numbers};
    for (const Refusal& one : all) {
      for (std::size_t k = 0; k < one.row.values.size(); ++k) {
        Call call(f, setting);
        at.detail = "with " + spoil(call, one, k) + text(numbers);
        requireRefusal(call, one.row.status);
      }
      for (const Refusal& other : all) {
        if (other.row.rank <= one.row.rank || other.parameter == one.parameter) continue;
        Call call(f, setting);
        at.detail = "with " + spoil(call, one) + " and " + spoil(call, other) + text(numbers);
        requireRefusal(call, one.row.status);
      }
    }
  }
  for (int i = 0; i < f.count(); ++i) {
    if (f.type(i).form == Form::rows) checkNullRows(f, i, at);
    if (!isPointer(f, i) || !optionalPointer(f, f.parameters[i])) continue;
    at.detail = "with a null '" + f.parameters[i] + "', which may be";
    Call call(f, {});
    call.setPointer(i, nullptr);
    if (const MoxStatus status = call.run(); status < moxOk)
      throw Misbehaved("answers " + std::to_string(status));
  }
}

bool takesObject(const Function& f) { return objectParameter(f) >= 0; }

bool hasIdentifier(const Kind& kind) {
  return !deviation(*kind.users.front(), Deviation::unidentified);
}

// Objects of all kinds but those that the function takes. What has no identifier may begin with
// anything.
void checkForeignObjects(const Function& f, Position& at) {
  if (deviation(f, Deviation::unidentified)) return;
  for (const Kind& kind : allKinds()) {
    if (kind.isTakenBy(f) || !hasIdentifier(kind)) continue;
    at.detail = "with an object of " + kind.init->name;
    Call& foreign = objectOf(kind);
    Call call(f, {});
    call.setPointer(objectParameter(f), foreign.object());
    requireRefusal(call, moxErrContext);
    foreign.requireUntouched();
  }
}

}  // namespace every
