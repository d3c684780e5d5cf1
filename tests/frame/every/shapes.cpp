#include "frame/every/shapes.h"

#include <moxsp/threshold.h>

#include <algorithm>
#include <bit>
#include <cctype>
#include <functional>
#include <regex>
#include <sstream>

#include "frame/every/objects.h"
#include "frame/every/tables.h"

namespace every {
namespace {

auto fixed(auto value) {
  return [value](const Call&) { return value; };
}
auto times(long factor, const std::string& name) {
  return [=](const Call& c) { return factor * c(name); };
}
auto argument(const std::string& name) { return times(1, name); }
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

// What a parameter is; of numbers `others` are values with which the function goes another way.
struct Row {
  Claim claim;
  std::function<double(const Call&)> value;
  std::vector<long> others = {};
};

// Rows in short, "NAME=VALUE,OTHER,OTHER" for each parameter; a value may be that of an argument.
std::vector<Row> rows(const std::vector<std::pair<const char*, const char*>>& inShort,
                      std::vector<Row> all) {
  for (const auto& [functions, parameters] : inShort)
    for (const std::string& parameter : words(parameters)) {
      const std::size_t at = parameter.find('=');
      std::istringstream values(parameter.substr(at + 1));
      std::string value, other;
      std::getline(values, value, ',');
      Row row = {{functions, parameter.substr(0, at)}, argument(value)};
      if (!std::isalpha(value[0])) row.value = fixed(std::stod(value));
      while (std::getline(values, other, ',')) row.others.push_back(std::stol(other));
      all.push_back(row);
    }
  return all;
}

// Numbers, and arrays whose every element must have a certain value.
const Table<Row> numberRows = {
    "numbers",
    rows(
        {{"Sample@(Up|Down)_*", "factor=3,1,2 phase=0"},
         {"ResamplePolyphase*", "window=8 nStep=16 rollf=1 norm=1 inRate=3,1 outRate=2,5"},
         {"ResamplePolyphase_*", "factor=0.75,1,2"},
         {"ResamplePolyphaseFixed@(GetSize|Init)_*", "len=8"},
         {"ResamplePolyphase[GS]etFixedFilter_*", "step=12,5,17 height=2,1"},
         {"FIRGen*", "rFreq=0.3 rHighFreq=0.3 rLowFreq=0.1 winType=0,1,2,3,4 doNormal=0,1"},
         {"FilterMedian_*", "maskSize=5,1,4,3,7,9,13,101"},
         {"FFT* DFT*", "flag=8,1,2,4"},
         {"FIRMR*", "upFactor=3,1 downFactor=2,5 upPhase=0 downPhase=0"},
         {"FIRLMS!(MR*)", "mu=0"},
         {"FIRLMSMR*", "mu=100 err=100 dlyStep=2,1 updateDly=0,3 index=0"},
         {"FIRLMSOne*", "src=7 ref=7 muQ15=7"},
         {"FIROne* IIROne*", "src=7 srcDst=7"},  // one sample, by value or in place
         {"WT*InitAlloc*", "lenLow=8,1,2,33 lenHigh=5 offsLow=-1,0,12 offsHigh=0,-1"},
         {"*DV*", "numStates=16,32,64"},
         {"BuildSymblTable*", "flag=0,5,-1"},
         {"CalcStates*", "offset=0,3"},
         {"Cauchy*", "c=3"},
         // A shift, and what must not be 0, is among the taps.
         {"IIR*", "order=4,1,2 numBq=3,1 numChannels=7,1 taps=3"},
         {"IIRGen*", "rFreq=0.2 ripple=1 filterType=1"},
         {"FIRSR*", "algType=0,1,2"},
         {"FIRSparse*", "order=5 nzTapsLen=1"},
         {"IIRSparse*", "nzTapsLen1=1 nzTapsLen2=1"},
         {"@(FIR|IIR)Sparse*", "nzTapPos=5"},
         {"Tone* Triangle*", "magn=1000 rFreq=0.1 phase=1.5"},
         {"Tone*Q15* Triangle*Q15*", "rFreqQ15=3000 phaseQ15=3000"},
         {"Triangle*", "asym=1,-3 asymQ15=3000"},
         {"VectorJaehne*", "magn=100"},
         {"Vector@(Ramp|Slope)*", "offset=-20 slope=3,0"},
         {"Rand*", "seed=12345"},
         {"RandUniform*", "low=-100 high=100"},
         {"RandGauss*", "mean=10 stdDev=20"},
         {"ConvBiased* *Corr*", "dstLen=9,1,80"},
         {"ConvBiased*", "bias=0,-7,5,-70"},
         {"CrossCorr*", "lowLag=0,-7,5,-70"},
         {"@(StdDev|MeanStdDev)_*", "hint=0"},  // with 1 differences cancel what rounding left
         {"Threshold_LTInv_*", "level=3,0"},
         {"Threshold_LTValGTVal_*", "levelGT=5"},
         {"DivC*", "val=3,1"},
         {"Normalize_*", "div=3,1"},
         {"Goertz*", "relFreq=0.3,0 relFreqQ15=9830,0"},
         {"*", "channels=3,1 maskSize=3,1 srcBitOffset=3,0 dstBitOffset=3,0 scaleFactor=1 shift=1"},
         {"*", "tapsFactor=1 roundMode=1,0 rndMode=1,0 hint=0,1 dlyLineIndex=0,1 zcType=0,1,2"},
         {"*", "val=3,0,1 value=3 level=3 levelLT=3 valueLT=3 valueGT=3 sub=3 alpha=3"},
         {"*", "lowerBound=-100 upperBound=100"}},
        {{{"FFT*", "order"},
          [](const Call& c) { return std::bit_width(unsigned(c.length())) - 1; }},
         {{"DFT@(GetSize|Init)_* DFTOutOrdInit*", "len"},
          [](const Call& c) { return 3 * c.length() + 15; }},  // has tables
         {{"FIRGen*", "tapsLen"}, [](const Call& c) { return c.length() + 4; }},
         {{"FIR!(Gen*)", "tapsLen"}, [](const Call& c) { return c.length() % 23 + 1; }, {70, 131}},
         {{"FIRMR*", "numIters"}, length},
         {{"FIRSR*", "dataType"}, fixed(moxType64f)},
         {{"Sample@(Up|Down)_*", "srcLen"}, length},
         {{"ResamplePolyphase*", "time"}, fixed(resampledFrom)},
         {{"WTFwd_* WTInv_*", "dstLen srcLen"}, length},
         {{"Win!(BlackmanOpt*)", "len"}, [](const Call& c) { return std::max(c.length(), 3); }},
         {{"WinBlackmanOpt*", "len"}, [](const Call& c) { return std::max(c.length(), 4); }},
         {{"WinKaiser_*", "alpha"}, [](const Call& c) { return 20.0 / c.length(); }, {0}},
         {{"Win*Q15*", "alphaQ15"}, [](const Call& c) { return (20 << 15) / c.length(); }, {0}},
         {{"Conv* *Corr*", "len1 srcLen"}, length},
         {{"Conv* *Corr*", "len2"}, [](const Call& c) { return c.length() / 8 + 1; }, {3, 70}},
         {{"Convolve* AutoCorrNorm*", "algType"}, fixed(moxAlgAuto), {moxAlgDirect, moxAlgFft}},
         {{"CrossCorrNorm*", "algType"},
          fixed(moxAlgAuto),
          {moxAlgNormB}},  // without the buffer, too
         {{"Convolve* *CorrNorm*", "dataType"}, fixed(moxType32f), {moxType64f}},
         {{"PackBits_*", "bitWidths"}, fixed(packWidth)},
         {{"SortRadixIndex*", "srcStrideBytes"}, elementBytes},
         {{"@(StdDev|MeanStdDev)_*", "len"}, [](const Call& c) { return std::max(c.length(), 2); }},
         {{"Threshold_*", "relOp"}, fixed(moxThresholdLess), {moxThresholdGreater}},
         {{"*", "len tableLen"}, length}})};

const Table<Row> countRows = {
    "array lengths",
    rows(
        {{"FIROne* FIRLMS*One* IIROne*", "dst=1"},
         {"FIROne* IIROne*", "srcDst=1"},
         {"FIR?(Stream)Init* FIR[GS]etDlyLine* FIRLMSInitAlloc* FIRLMS[GS]etDlyLine*",
          "dlyLine=tapsLen"},
         {"FIRLMSMRGetDlyVal*", "val=1"},
         {"FIRLMSMRGetTapsPointer*", "pointer=1"},
         {"FIR*", "taps=tapsLen"},
         {"FIRSparse*", "nzTaps=nzTapsLen nzTapPos=nzTapsLen dlyLine=5"},
         {"IIRSparse*", "dlyLine=10"},
         {"IIR*", "scaleFactor=numChannels"},
         {"Conv* *Corr*", "src1=len1 src2=len2"},
         {"*Corr*", "src=srcLen"},
         {"ConvBiased* *Corr*", "dst=dstLen"},
         {"ConvCyclic8x8_*", "x=8 h=8 y=8"},
         {"ConvCyclic4x4_*", "x=4 h=4 y=4"},
         {"Tone* Triangle*", "phase=1"},
         {"Rand*", "seed=1"},
         {"GetVarPoint*", "src=1 dstPoint=1 table=16"},
         {"UpdatePath*", "minMetric=1"},
         {"DemodulateFM*", "dlyPoint=1"},
         {"CauchyDD2*", "dst2=len"},
         {"WTFwd_*", "dstLow=dstLen dstHigh=dstLen"},
         {"WTInv_*", "srcLow=srcLen srcHigh=srcLen"},
         {"WT*InitAlloc*", "tapsLow=lenLow tapsHigh=lenHigh"},
         {"Sample@(Up|Down)_*", "src=srcLen dstLen=1 phase=1"},
         {"ResamplePolyphase*", "time=1 outLen=1 filterLen=1 numFilters=1"},
         {"Update*", "srcDst=1"},
         {"Goertz@(_|Q15)*", "dst=1"},
         {"GoertzTwo*", "dst=2 relFreq=2 relFreqQ15=2"},
         {"*", "table=tableLen"}},
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
         {{"FIR!(MR*)_Direct_* FIRLMSOne_Direct*", "dlyLine"}, times(2, "tapsLen")},
         {{"FIRMR*", "dlyLine"},
          [](const Call& c) { return (c("tapsLen") + c("upFactor") - 1) / c("upFactor"); }},
         {{"FIRMR*_Direct_*", "src"},
          [](const Call& c) { return c("numIters") * c("downFactor"); }},
         {{"FIRMR*_Direct_*", "dst"}, [](const Call& c) { return c("numIters") * c("upFactor"); }},
         {{"FIRMR*_Direct_*", "srcDst"},
          [](const Call& c) { return c("numIters") * std::max(c("downFactor"), c("upFactor")); }},
         {{"FIRLMSMR*", "dlyLine"},
          [](const Call& c) { return c("tapsLen") * c("dlyStep") + c("updateDly"); }},

         {{"FIRSRInit*", "spec"}, sizeOfFirSr("specSize")},
         {{"FIRSR_*", "buffer"}, sizeOfFirSr("bufSize")},
         {{"FIRSR_*", "dlySrc dlyDst"}, [](const Call& c) { return c("tapsLen") - 1; }},
         {{"IIRSparse*", "nzTaps nzTapPos"},
          [](const Call& c) { return c("nzTapsLen1") + c("nzTapsLen2"); }},
         {{"IIRGen*", "buffer"}, sizeOfDesign},

         {{"IIR*", "taps"},
          [](const Call& c) { return isCascade(c) ? 6 * c("numBq") : 2 * c("order") + 2; }},
         {{"IIR!(Sparse*)", "dlyLine"}, iirDelayLine},

         {{"Conv_* Convolve_*", "dst"}, [](const Call& c) { return c("len1") + c("len2") - 1; }},
         {{"Convolve_* *CorrNorm_*", "buffer"}, corrBufferSize},
         {{"ToneInitQ15* TriangleInitQ15* Rand*Init_*", "state"}, sizeOfObject("size")},

         {{"GetVarPoint*", "dstVar"}, [](const Call& c) { return c("numStates") == 16 ? 4 : 8; }},
         {{"BuildSymblTable*", "src"}, [](const Call& c) { return c("numStates") == 16 ? 8 : 16; }},
         {{"BuildSymblTable*", "dst"}, [](const Call& c) { return c("numStates") / 2; }},
         {{"CalcStates*", "branch"}, [](const Call& c) { return c("numStates") / 2; }},
         {{"CalcStates*", "nextStates"},
          [](const Call& c) { return c("numStates") * c("numStates") / 4; }},
         {{"CalcStates*", "path"}, [](const Call& c) { return c("offset") + c("numStates"); }},
         {{"CalcStates* UpdatePath*", "src dst metric"}, argument("numStates")},
         {{"WTFwd_*", "src"}, times(2, "dstLen")},
         {{"WTInv_*", "dst"}, times(2, "srcLen")},
         {{"WT*", "dlyLow"},
          [](const Call& c) { return std::max(c("lenLow") - 1 + c("offsLow"), 0L); }},
         {{"WT*", "dlyHigh"},
          [](const Call& c) { return std::max(c("lenHigh") - 1 + c("offsHigh"), 0L); }},
         {{"WTHaarFwd_*", "dstLow"}, [](const Call& c) { return (c("len") + 1) / 2; }},
         {{"WTHaarInv_*", "srcLow"}, [](const Call& c) { return (c("len") + 1) / 2; }},
         {{"WTHaarFwd_*", "dstHigh"}, [](const Call& c) { return c("len") / 2; }},
         {{"WTHaarInv_*", "srcHigh"}, [](const Call& c) { return c("len") / 2; }},

         {{"SampleUp_*", "dst"}, [](const Call& c) { return c("srcLen") * c("factor"); }},
         {{"SampleDown_*", "dst"},
          [](const Call& c) { return (c("srcLen") + c("factor") - 1) / c("factor"); }},
         {{"ResamplePolyphase?(Fixed)_*", "src"},
          [](const Call& c) { return c("len") + resampledFrom + resampledBehind; }},
         {{"ResamplePolyphase_*", "dst"}, times(2, "len")},
         {{"ResamplePolyphaseFixed_*", "dst"}, times(5, "len")},
         {{"ResamplePolyphase*Init_*", "state"}, sizeOfObject("size")},
         {{"ResamplePolyphase[GS]etFixedFilter_*", "src dst"},
          [](const Call& c) { return c("step") * c("height"); }},

         {{"SumWindow_*", "src"}, [](const Call& c) { return c("len") + c("maskSize") - 1; }},

         {{"*", "size specSize initSize workSize bufSize bufferSize dstBitLen"}, fixed(1)},
         {{"*", "dlyLineIndex tapsFactor"}, fixed(1)},
         {{"*", "sum mean stdDev norm dp result index min max minIndex maxIndex order"}, fixed(1)},
         {{"*", "outVal outIndex counts"}, fixed(1)},
         {{"*", "src srcRe srcIm srcMagn srcPhase srcRows bitWidths"}, argument("len")},
         {{"*", "dst dstRe dstIm dstMagn dstPhase dstIdx dstRows"}, argument("len")},
         {{"*", "src1 src2 tmpIdx outVals outIndices srcDst buffer ref"}, argument("len")}})};

}  // namespace

std::optional<double> numberFor(const Call& call, int parameter) {
  const Function& f = call.function();
  const Row* row = numberRows.first(f, f.parameters[parameter]);
  return row ? std::optional(row->value(call)) : std::nullopt;
}

std::optional<long> countFor(const Call& call, int parameter) {
  const Function& f = call.function();
  const Row* row = countRows.first(f, f.parameters[parameter]);
  return row ? std::optional(long(row->value(call))) : std::nullopt;
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
      if (const std::string& name = of.parameters[i]; of.type(i).form == Form::value)
        if (const Row* row = numberRows.first(of, name))
          for (const long value : row->others) all.push_back({{name, value}});
  };
  add(f);
  if (objectParameter(f) >= 0) add(*kindOf(f)->init);
  return all;
}

}  // namespace every
