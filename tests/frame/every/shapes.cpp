#include "frame/every/shapes.h"

#include <moxsp/threshold.h>

#include <algorithm>
#include <bit>
#include <functional>
#include <regex>

#include "frame/every/objects.h"
#include "frame/every/tables.h"

namespace every {
namespace {

auto fixed(auto value) {
  return [value](const Call&) { return value; };
}
auto times(long factor, const char* name) {
  return [=](const Call& c) { return factor * c(name); };
}
auto argument(const char* name) { return times(1, name); }
auto interleaved(long bytes) {
  return [=](const Call& c) { return bytes * c("len") * c("channels"); };
}
auto bits(const char* offset, long width) {
  return [=](const Call& c) { return (c(offset) + width * c("len") + 7) / 8; };
}
long length(const Call& c) { return c.length(); }
long elementBytes(const Call& c) { return c.function().type(0).element->bytes; }
long transformLength(const Call& c) { return 1L << c("order"); }
auto ccsOf(const char* length) {
  return [=](const Call& c) { return c(length) / 2 * 2 + 2; };
}
long ccsLength(const Call& c) { return transformLength(c) / 2 * 2 + 2; }

// What the size query that belongs to an Init function stores there.
auto sizeOfObject(const char* output) {
  return [=](const Call& c) {
    for (const char* queryWord : {"GetStateSize", "GetSize"}) {
      const std::string name = std::regex_replace(c.function().name, std::regex("Init"), queryWord,
                                                  std::regex_constants::format_first_only);
      if (findFunction(name)) return query(name, c.setting(), output);
    }
    throw Unknown(c.function().name + " has no size query");
  };
}
auto sizeOfFirSr(const char* output) {
  return [=](const Call& c) { return query("moxsFIRSRGetSize", c.setting(), output); };
}
long sizeOfDesign(const Call& c) {
  return query("moxsIIRGenGetBufferSize", c.setting(), "bufferSize");
}
long workBufferSize(const Call& c) {
  const std::string init = kindOf(c.function())->init->name;
  return query(std::regex_replace(init, std::regex("Init(Alloc)?"), "GetBufSize"), c.setting(),
               "size");
}
// The DFT tells the bytes at a multiple of 64.
long dftBufferSize(const Call& c) {
  const long bytes = workBufferSize(c);
  return bytes > 0 ? bytes + 64 : 0;
}

// What the size query of a convolution or correlation stores for the lengths and the type.
long corrBufferSize(const Call& c) {
  const ElementType& element = *c.function().type(0).element;
  Setting setting = c.setting();
  setting.numbers["dataType"] = element.bytes == 4       ? moxType32f
                                : element.bytes == 16    ? moxType64fc
                                : element.partBytes == 8 ? moxType64f
                                                         : moxType32fc;
  const std::string& name = c.function().name;
  return query(name.substr(0, name.rfind('_')) + "GetBufferSize", setting, "bufferSize");
}

// Of an IIR filter: whether it is a cascade of sections, and its delay line.
const Function& initOf(const Call& c) {
  const Kind* kind = kindOf(c.function());
  return kind ? *kind->init : c.function();
}
bool isCascade(const Call& c) { return initOf(c).indexOf("numBq") >= 0; }
long iirDelayLine(const Call& c) {
  const bool isDirectForm1 = initOf(c).name.find("DF1") != std::string::npos;
  return isDirectForm1 ? 4 * c("numBq") : isCascade(c) ? 2 * c("numBq") : c("order");
}

constexpr long packWidth = 11;

// Where resampled signals begin in their arrays, and what is read behind them.
constexpr long resampledFrom = 40, resampledBehind = 7;

// Numbers, and arrays whose every element must have a certain value. `others` are values with which
// the function goes another way.
struct NumberRow {
  Claim claim;
  std::function<double(const Call&)> value;
  std::vector<long> others = {};
};
const Table<NumberRow> numberRows = {
    "numbers",
    {{{"FFT*", "order"}, [](const Call& c) { return std::bit_width(unsigned(c.length())) - 1; }},
     {{"Sample@(Up|Down)_*", "srcLen"}, length},
     {{"Sample@(Up|Down)_*", "factor"}, fixed(3), {1, 2}},
     {{"Sample@(Up|Down)_*", "phase"}, fixed(0)},
     {{"ResamplePolyphase_*", "factor"}, [](const Call&) { return 0.75; }, {1, 2}},
     {{"ResamplePolyphase*", "time"}, fixed(resampledFrom)},
     {{"ResamplePolyphase*", "window"}, fixed(8)},
     {{"ResamplePolyphase*", "nStep"}, fixed(16)},
     {{"ResamplePolyphase*", "rollf norm"}, fixed(1)},
     {{"ResamplePolyphase*", "inRate"}, fixed(3), {1}},
     {{"ResamplePolyphase*", "outRate"}, fixed(2), {5}},
     {{"ResamplePolyphaseFixed@(GetSize|Init)_*", "len"}, fixed(8)},
     {{"ResamplePolyphase[GS]etFixedFilter_*", "step"}, fixed(12), {5, 17}},
     {{"ResamplePolyphase[GS]etFixedFilter_*", "height"}, fixed(2), {1}},
     {{"FIRGen*", "rFreq rHighFreq"}, fixed(0.3)},
     {{"FIRGen*", "rLowFreq"}, fixed(0.1)},
     {{"FIRGen*", "tapsLen"}, [](const Call& c) { return c.length() + 4; }},
     {{"FIRGen*", "winType"}, fixed(0), {1, 2, 3, 4}},
     {{"FIRGen*", "doNormal"}, fixed(0), {1}},
     {{"FilterMedian_*", "maskSize"}, fixed(5), {1, 4, 3, 7, 9, 13, 101}},
     {{"FFT* DFT*", "flag"}, fixed(8), {1, 2, 4}},
     {{"DFT@(GetSize|Init)_* DFTOutOrdInit*", "len"},
      [](const Call& c) { return 3 * c.length() + 15; }},  // has tables
     {{"FIR!(Gen*)", "tapsLen"}, [](const Call& c) { return c.length() % 23 + 1; }, {70, 131}},
     {{"FIRMR*", "upFactor"}, fixed(3), {1}},
     {{"FIRMR*", "downFactor"}, fixed(2), {5}},
     {{"FIRMR*", "upPhase downPhase"}, fixed(0)},
     {{"FIRMR*", "numIters"}, length},
     {{"FIRLMS!(MR*)", "mu"}, fixed(0)},
     {{"FIRLMSMR*", "mu err"}, fixed(100)},
     {{"FIRLMSOne*", "src ref muQ15"}, fixed(7)},
     {{"FIRLMSMR*", "dlyStep"}, fixed(2), {1}},
     {{"FIRLMSMR*", "updateDly"}, fixed(0), {3}},
     {{"FIRLMSMR*", "index"}, fixed(0)},
     {{"FIROne* IIROne*", "src srcDst"}, fixed(7)},  // one sample, by value or in place
     {{"WTFwd_* WTInv_*", "dstLen srcLen"}, length},
     {{"WT*InitAlloc*", "lenLow"}, fixed(8), {1, 2, 33}},
     {{"WT*InitAlloc*", "lenHigh"}, fixed(5)},
     {{"WT*InitAlloc*", "offsLow"}, fixed(-1), {0, 12}},
     {{"WT*InitAlloc*", "offsHigh"}, fixed(0), {-1}},
     {{"*DV*", "numStates"}, fixed(16), {32, 64}},
     {{"BuildSymblTable*", "flag"}, fixed(0), {5, -1}},
     {{"CalcStates*", "offset"}, fixed(0), {3}},
     {{"Cauchy*", "c"}, fixed(3)},
     {{"IIR*", "order"}, fixed(4), {1, 2}},
     {{"IIRGen*", "rFreq"}, fixed(0.2)},
     {{"IIRGen*", "ripple filterType"}, fixed(1)},
     {{"FIRSR*", "algType"}, fixed(0), {1, 2}},
     {{"FIRSR*", "dataType"}, fixed(moxType64f)},
     {{"FIRSparse*", "order"}, fixed(5)},
     {{"@(FIR|IIR)Sparse*", "nzTapsLen nzTapsLen1 nzTapsLen2"}, fixed(1)},
     {{"@(FIR|IIR)Sparse*", "nzTapPos"}, fixed(5)},
     {{"IIR*", "numBq"}, fixed(3), {1}},
     {{"IIR*", "taps"}, fixed(3)},  // a shift, and what must not be 0, is among them
     {{"IIR*", "numChannels"}, fixed(7), {1}},
     {{"Tone* Triangle*", "magn"}, fixed(1000)},
     {{"Tone* Triangle*", "rFreq"}, [](const Call&) { return 0.1; }},
     {{"Tone* Triangle*", "phase"}, [](const Call&) { return 1.5; }},
     {{"Triangle*", "asym"}, fixed(1), {-3}},
     {{"Tone*Q15* Triangle*Q15*", "rFreqQ15 phaseQ15 asymQ15"}, fixed(3000)},
     {{"VectorJaehne*", "magn"}, fixed(100)},
     {{"Vector@(Ramp|Slope)*", "offset"}, fixed(-20)},
     {{"Vector@(Ramp|Slope)*", "slope"}, fixed(3), {0}},
     {{"Rand*", "seed"}, fixed(12345)},
     {{"RandUniform*", "low"}, fixed(-100)},
     {{"RandUniform*", "high"}, fixed(100)},
     {{"RandGauss*", "mean"}, fixed(10)},
     {{"RandGauss*", "stdDev"}, fixed(20)},
     {{"Win!(BlackmanOpt*)", "len"}, [](const Call& c) { return std::max(c.length(), 3); }},
     {{"WinBlackmanOpt*", "len"}, [](const Call& c) { return std::max(c.length(), 4); }},
     {{"WinKaiser_*", "alpha"}, [](const Call& c) { return 20.0 / c.length(); }, {0}},
     {{"Win*Q15*", "alphaQ15"}, [](const Call& c) { return (20 << 15) / c.length(); }, {0}},
     {{"Conv* *Corr*", "len1 srcLen"}, length},
     {{"Conv* *Corr*", "len2"}, [](const Call& c) { return c.length() / 8 + 1; }, {3, 70}},
     {{"ConvBiased* *Corr*", "dstLen"}, fixed(9), {1, 80}},
     {{"ConvBiased* CrossCorr*", "bias lowLag"}, fixed(0), {-7, 5, -70}},
     {{"Convolve* AutoCorrNorm*", "algType"}, fixed(moxAlgAuto), {moxAlgDirect, moxAlgFft}},
     {{"CrossCorrNorm*", "algType"}, fixed(moxAlgAuto), {moxAlgNormB}},  // without the buffer, too
     {{"Convolve* *CorrNorm*", "dataType"}, fixed(moxType32f), {moxType64f}},
     {{"PackBits_*", "bitWidths"}, fixed(packWidth)},
     {{"SortRadixIndex*", "srcStrideBytes"}, elementBytes},
     {{"@(StdDev|MeanStdDev)_*", "len"}, [](const Call& c) { return std::max(c.length(), 2); }},
     {{"@(StdDev|MeanStdDev)_*", "hint"},
      fixed(0)},  // with 1 differences cancel what rounding left
     {{"Threshold_*", "relOp"}, fixed(moxThresholdLess), {moxThresholdGreater}},
     {{"Threshold_LTInv_*", "level"}, fixed(3), {0}},
     {{"Threshold_LTValGTVal_*", "levelGT"}, fixed(5)},
     {{"DivC* Normalize_*", "val div"}, fixed(3), {1}},
     {{"Goertz*", "relFreq"}, [](const Call&) { return 0.3; }, {0}},
     {{"Goertz*", "relFreqQ15"}, fixed(9830), {0}},

     {{"*", "len tableLen"}, length},
     {{"*", "channels maskSize"}, fixed(3), {1}},
     {{"*", "srcBitOffset dstBitOffset"}, fixed(3), {0}},
     {{"*", "scaleFactor shift tapsFactor"}, fixed(1)},
     {{"*", "roundMode rndMode"}, fixed(1), {0}},
     {{"*", "hint dlyLineIndex"}, fixed(0), {1}},
     {{"*", "zcType"}, fixed(0), {1, 2}},
     {{"*", "val"}, fixed(3), {0, 1}},
     {{"*", "value level levelLT valueLT valueGT sub alpha"}, fixed(3)},
     {{"*", "lowerBound"}, fixed(-100)},
     {{"*", "upperBound"}, fixed(100)}}};

struct CountRow {
  Claim claim;
  std::function<long(const Call&)> count;
};
const Table<CountRow> countRows = {
    "array lengths",
    {// Packed 24-bit samples are three bytes each, in arrays of bytes.
     {{"Convert_24*", "src"}, times(3, "len")},
     {{"Convert_?*24[su]*", "dst"}, times(3, "len")},
     {{"SwapBytes_24*", "src dst srcDst"}, times(3, "len")},
     {{"JoinScaled_*24s*", "dst"}, interleaved(3)},
     {{"JoinScaled_*16s*", "dst"}, interleaved(1)},
     {{"SplitScaled_24s*", "src"}, interleaved(3)},
     {{"SplitScaled_16s*", "src"}, interleaved(1)},

     {{"Copy*_1u", "src"}, bits("srcBitOffset", 1)},
     {{"Copy*_1u", "dst"}, bits("dstBitOffset", 1)},
     {{"PackBits_*", "dst"}, bits("dstBitOffset", packWidth)},

     {{"FFTFwd_RToCCS_*", "dst srcDst"}, ccsLength},
     {{"FFTInv_CCSToR_*", "src srcDst"}, ccsLength},
     {{"FFTFwd_RToCCS_*", "src"}, transformLength},
     {{"FFTInv_CCSToR_*", "dst"}, transformLength},
     {{"FFT@(Fwd_CToC|Inv_CToC|Fwd_RToPack|Fwd_RToPerm|Inv_PackToR|Inv_PermToR)_*",
       "src dst srcDst srcRe srcIm dstRe dstIm srcDstRe srcDstIm"},
      transformLength},
     {{"FFT@(Fwd|Inv)_* DCT@(Fwd|Inv)_*", "buffer"}, workBufferSize},
     {{"@(FFT|DFT)Init_* DCT*Init_*", "specMem"}, sizeOfObject("specSize")},
     {{"@(FFT|DFT)Init_* DCT*Init_*", "initBuf"}, sizeOfObject("initSize")},
     {{"DCT@(Fwd|Inv)_* Hilbert_*", "src dst srcDst"}, length},
     {{"DFT?(OutOrd)@(Fwd|Inv)_*", "buffer"}, dftBufferSize},
     {{"DFTFwd_RToCCS_*", "dst"}, ccsOf("len")},
     {{"DFTInv_CCSToR_*", "src"}, ccsOf("len")},
     {{"ConjCcs_*", "src"}, ccsOf("len")},

     {{"FIR*Init* IIR*Init*", "buffer"}, sizeOfObject("size")},
     {{"FIROne* FIRLMS*One* IIROne*", "dst srcDst"}, fixed(1)},
     {{"FIR!(MR*)_Direct_* FIRLMSOne_Direct*", "dlyLine"}, times(2, "tapsLen")},
     {{"FIR?(Stream)Init* FIR[GS]etDlyLine* FIRLMSInitAlloc* FIRLMS[GS]etDlyLine*", "dlyLine"},
      argument("tapsLen")},
     {{"FIRMR*", "dlyLine"},
      [](const Call& c) { return (c("tapsLen") + c("upFactor") - 1) / c("upFactor"); }},
     {{"FIRMR*_Direct_*", "src"}, [](const Call& c) { return c("numIters") * c("downFactor"); }},
     {{"FIRMR*_Direct_*", "dst"}, [](const Call& c) { return c("numIters") * c("upFactor"); }},
     {{"FIRMR*_Direct_*", "srcDst"},
      [](const Call& c) { return c("numIters") * std::max(c("downFactor"), c("upFactor")); }},
     {{"FIRLMSMR*", "dlyLine"},
      [](const Call& c) { return c("tapsLen") * c("dlyStep") + c("updateDly"); }},
     {{"FIRLMSMRGetDlyVal*", "val"}, fixed(1)},
     {{"FIRLMSMRGetTapsPointer*", "pointer"}, fixed(1)},
     {{"FIR*", "taps"}, argument("tapsLen")},

     {{"FIRSRInit*", "spec"}, sizeOfFirSr("specSize")},
     {{"FIRSR_*", "buffer"}, sizeOfFirSr("bufSize")},
     {{"FIRSR_*", "dlySrc dlyDst"}, [](const Call& c) { return c("tapsLen") - 1; }},
     {{"FIRSparse*", "nzTaps nzTapPos"}, argument("nzTapsLen")},
     {{"FIRSparse*", "dlyLine"}, fixed(5)},
     {{"IIRSparse*", "nzTaps nzTapPos"},
      [](const Call& c) { return c("nzTapsLen1") + c("nzTapsLen2"); }},
     {{"IIRSparse*", "dlyLine"}, fixed(10)},
     {{"IIRGen*", "buffer"}, sizeOfDesign},

     {{"IIR*", "taps"},
      [](const Call& c) { return isCascade(c) ? 6 * c("numBq") : 2 * c("order") + 2; }},
     {{"IIR!(Sparse*)", "dlyLine"}, iirDelayLine},
     {{"IIR*", "scaleFactor"}, argument("numChannels")},

     {{"Conv* *Corr*", "src1"}, argument("len1")},
     {{"Conv* *Corr*", "src2"}, argument("len2")},
     {{"*Corr*", "src"}, argument("srcLen")},
     {{"Conv_* Convolve_*", "dst"}, [](const Call& c) { return c("len1") + c("len2") - 1; }},
     {{"ConvBiased* *Corr*", "dst"}, argument("dstLen")},
     {{"Convolve_* *CorrNorm_*", "buffer"}, corrBufferSize},
     {{"ConvCyclic8x8_*", "x h y"}, fixed(8)},
     {{"ConvCyclic4x4_*", "x h y"}, fixed(4)},
     {{"Tone* Triangle*", "phase"}, fixed(1)},
     {{"Rand*", "seed"}, fixed(1)},
     {{"ToneInitQ15* TriangleInitQ15* Rand*Init_*", "state"}, sizeOfObject("size")},

     {{"GetVarPoint*", "src dstPoint"}, fixed(1)},
     {{"GetVarPoint*", "table"}, fixed(16)},
     {{"GetVarPoint*", "dstVar"}, [](const Call& c) { return c("numStates") == 16 ? 4 : 8; }},
     {{"BuildSymblTable*", "src"}, [](const Call& c) { return c("numStates") == 16 ? 8 : 16; }},
     {{"BuildSymblTable*", "dst"}, [](const Call& c) { return c("numStates") / 2; }},
     {{"CalcStates*", "branch"}, [](const Call& c) { return c("numStates") / 2; }},
     {{"CalcStates*", "nextStates"},
      [](const Call& c) { return c("numStates") * c("numStates") / 4; }},
     {{"CalcStates*", "path"}, [](const Call& c) { return c("offset") + c("numStates"); }},
     {{"CalcStates* UpdatePath*", "src dst metric"}, argument("numStates")},
     {{"UpdatePath*", "minMetric"}, fixed(1)},
     {{"DemodulateFM*", "dlyPoint"}, fixed(1)},
     {{"CauchyDD2*", "dst2"}, argument("len")},
     {{"WTFwd_*", "src"}, times(2, "dstLen")},
     {{"WTFwd_*", "dstLow dstHigh"}, argument("dstLen")},
     {{"WTInv_*", "srcLow srcHigh"}, argument("srcLen")},
     {{"WTInv_*", "dst"}, times(2, "srcLen")},
     {{"WT*InitAlloc*", "tapsLow"}, argument("lenLow")},
     {{"WT*InitAlloc*", "tapsHigh"}, argument("lenHigh")},
     {{"WT*", "dlyLow"},
      [](const Call& c) { return std::max(c("lenLow") - 1 + c("offsLow"), 0L); }},
     {{"WT*", "dlyHigh"},
      [](const Call& c) { return std::max(c("lenHigh") - 1 + c("offsHigh"), 0L); }},
     {{"WTHaarFwd_*", "dstLow"}, [](const Call& c) { return (c("len") + 1) / 2; }},
     {{"WTHaarInv_*", "srcLow"}, [](const Call& c) { return (c("len") + 1) / 2; }},
     {{"WTHaarFwd_*", "dstHigh"}, [](const Call& c) { return c("len") / 2; }},
     {{"WTHaarInv_*", "srcHigh"}, [](const Call& c) { return c("len") / 2; }},

     {{"Sample@(Up|Down)_*", "src"}, argument("srcLen")},
     {{"SampleUp_*", "dst"}, [](const Call& c) { return c("srcLen") * c("factor"); }},
     {{"SampleDown_*", "dst"},
      [](const Call& c) { return (c("srcLen") + c("factor") - 1) / c("factor"); }},
     {{"Sample@(Up|Down)_*", "dstLen phase"}, fixed(1)},
     {{"ResamplePolyphase?(Fixed)_*", "src"},
      [](const Call& c) { return c("len") + resampledFrom + resampledBehind; }},
     {{"ResamplePolyphase_*", "dst"}, times(2, "len")},
     {{"ResamplePolyphaseFixed_*", "dst"}, times(5, "len")},
     {{"ResamplePolyphase*", "time outLen filterLen numFilters"}, fixed(1)},
     {{"ResamplePolyphase*Init_*", "state"}, sizeOfObject("size")},
     {{"ResamplePolyphase[GS]etFixedFilter_*", "src dst"},
      [](const Call& c) { return c("step") * c("height"); }},

     {{"SumWindow_*", "src"}, [](const Call& c) { return c("len") + c("maskSize") - 1; }},
     {{"Update*", "srcDst"}, fixed(1)},
     {{"Goertz@(_|Q15)*", "dst"}, fixed(1)},
     {{"GoertzTwo*", "dst relFreq relFreqQ15"}, fixed(2)},

     {{"*", "size specSize initSize workSize bufSize bufferSize dstBitLen"}, fixed(1)},
     {{"*", "dlyLineIndex tapsFactor"}, fixed(1)},
     {{"*", "sum mean stdDev norm dp result index min max minIndex maxIndex order"}, fixed(1)},
     {{"*", "outVal outIndex counts"}, fixed(1)},
     {{"*", "table"}, argument("tableLen")},
     {{"*", "src srcRe srcIm srcMagn srcPhase srcRows bitWidths"}, argument("len")},
     {{"*", "dst dstRe dstIm dstMagn dstPhase dstIdx dstRows"}, argument("len")},
     {{"*", "src1 src2 tmpIdx outVals outIndices srcDst buffer ref"}, argument("len")}}};

}  // namespace

std::optional<double> numberFor(const Call& call, int parameter) {
  const Function& f = call.function();
  const NumberRow* row = numberRows.first(f, f.parameters[std::size_t(parameter)]);
  return row ? std::optional(row->value(call)) : std::nullopt;
}

std::optional<long> countFor(const Call& call, int parameter) {
  const Function& f = call.function();
  const CountRow* row = countRows.first(f, f.parameters[std::size_t(parameter)]);
  return row ? std::optional(row->count(call)) : std::nullopt;
}

bool hasLength(const Function& f) {
  const Call shorter(f, {.length = 2}), longer(f, {.length = 64});
  for (int i = 0; i < f.count(); ++i)
    if (f.type(i).form == Form::value && numberFor(shorter, i) != numberFor(longer, i)) return true;
  return false;
}

std::vector<Numbers> otherNumbers(const Function& f) {
  std::vector<Numbers> all;
  const auto add = [&](const Function& of) {
    for (int i = 0; i < of.count(); ++i)
      if (const std::string& name = of.parameters[std::size_t(i)]; of.type(i).form == Form::value)
        if (const NumberRow* row = numberRows.first(of, name))
          for (const long value : row->others) all.push_back({{name, value}});
  };
  add(f);
  if (objectParameter(f) >= 0) add(*kindOf(f)->init);
  return all;
}

std::vector<std::string> faultsOfShapes() {
  auto faults = numberRows.faults();
  for (const std::string& fault : countRows.faults()) faults.push_back(fault);
  return faults;
}

}  // namespace every
