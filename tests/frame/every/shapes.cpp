#include "frame/every/shapes.h"

#include <moxsp/threshold.h>

#include <algorithm>
#include <bit>
#include <cctype>
#include <cmath>
#include <functional>
#include <regex>
#include <sstream>

#include "frame/every/objects.h"
#include "frame/every/tables.h"

namespace every {
namespace {

using Value = std::function<double(const Call&)>;

Value fixed(double value) {
  return [value](const Call&) { return value; };
}
// "3*len+15", computed from left to right. Words are arguments, but for the length of the setting
// and the points of a transform; a > b is the greater one, a / b a whole number.
Value formula(const std::string& text) {
  struct Term {
    char sign;
    std::string word;
    double number;
  };
  std::vector<Term> terms;
  static const std::regex pattern("([-+*/>]?)([^-+*/>]+)");
  for (std::sregex_iterator at(text.begin(), text.end(), pattern), end; at != end; ++at) {
    const std::string sign = (*at)[1], word = (*at)[2];
    const bool isWord = std::isalpha(word[0]);
    terms.push_back({sign.empty() ? '+' : sign[0], isWord ? word : "", isWord ? 0 : stod(word)});
  }
  return [terms](const Call& c) {
    double value = 0;
    for (const auto& [sign, word, number] : terms) {
      const double x = word.empty()       ? number
                       : word == "length" ? c.length()
                       : word == "points" ? double(1L << c("order"))
                                          : double(c(word));
      value = sign == '+'   ? value + x
              : sign == '-' ? value - x
              : sign == '*' ? value * x
              : sign == '/' ? std::floor(value / x)
                            : std::max(value, x);
    }
    return value;
  };
}

long elementBytes(const Call& c) { return c.function().type(0).element->bytes; }

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

// What a parameter is; of numbers `others` are values with which the function goes another way.
struct Row {
  Claim claim;
  Value value;
  std::vector<long> others = {};
};

// Rows in short, "NAME=FORMULA,OTHER,OTHER" or "NAME|NAME=FORMULA" between spaces.
std::vector<Row> rows(const std::vector<std::pair<const char*, const char*>>& inShort,
                      std::vector<Row> all) {
  for (const auto& [functions, parameters] : inShort)
    for (const std::string& parameter : words(parameters)) {
      std::istringstream parts(parameter);
      std::string names, value, other;
      std::getline(std::getline(parts, names, '='), value, ',');
      std::ranges::replace(names, '|', ' ');
      Row row = {{functions, names}, formula(value)};
      while (std::getline(parts, other, ',')) row.others.push_back(std::stol(other));
      all.push_back(row);
    }
  return all;
}

// Numbers, and arrays whose every element must have a certain value.
const Table<Row> numberRows = {
    "numbers",
    rows(
        {{"DFT@(GetSize|Init)_* DFTOutOrdInit*", "len=3*length+15"},  // has tables
         {"Sample@(Up|Down)_*", "srcLen=length factor=3,1,2 phase=0"},
         {"ResamplePolyphase*", "window=8 nStep=16 rollf=1 norm=1 inRate=3,1 outRate=2,5 time=40"},
         {"ResamplePolyphase_*", "factor=0.75,1,2"},
         {"ResamplePolyphaseFixed@(GetSize|Init)_*", "len=8"},
         {"ResamplePolyphase[GS]etFixedFilter_*", "step=12,5,17 height=2,1"},
         {"FIRGen*", "tapsLen=length+4 winType=0,1,2,3,4 doNormal=0,1"},
         {"FIRGen*", "rFreq=0.3 rHighFreq=0.3 rLowFreq=0.1"},
         {"FilterMedian_*", "maskSize=5,1,4,3,7,9,13,101"},
         {"FFT* DFT*", "flag=8,1,2,4"},
         {"FIRMR*", "numIters=length upFactor=3,1 downFactor=2,5 upPhase=0 downPhase=0"},
         {"FIRLMS!(MR*)", "mu=0"},
         {"FIRLMSMR*", "mu=100 err=100 dlyStep=2,1 updateDly=0,3 index=0"},
         {"FIRLMSOne*", "src=7 ref=7 muQ15=7"},
         {"FIROne* IIROne*", "src=7 srcDst=7"},  // one sample, by value or in place
         {"WT*InitAlloc*", "lenLow=8,1,2,33 lenHigh=5 offsLow=-1,0,12 offsHigh=0,-1"},
         {"WTFwd_* WTInv_*", "dstLen|srcLen=length"},
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
         {"Win!(BlackmanOpt*)", "len=length>3"},
         {"WinBlackmanOpt*", "len=length>4"},
         {"Win*Q15*", "alphaQ15=655360/length,0"},
         {"Conv* *Corr*", "len1|srcLen=length len2=length/8+1,3,70"},
         {"ConvBiased* *Corr*", "dstLen=9,1,80"},
         {"ConvBiased*", "bias=0,-7,5,-70"},
         {"CrossCorr*", "lowLag=0,-7,5,-70"},
         // With hint 1 differences cancel what rounding left.
         {"@(StdDev|MeanStdDev)_*", "len=length>2 hint=0"},
         {"PackBits_*", "bitWidths=11"},
         {"Threshold_LTInv_*", "level=3,0"},
         {"Threshold_LTValGTVal_*", "levelGT=5"},
         {"DivC*", "val=3,1"},
         {"Normalize_*", "div=3,1"},
         {"Goertz*", "relFreq=0.3,0 relFreqQ15=9830,0"},
         {"*", "channels=3,1 maskSize=3,1 srcBitOffset=3,0 dstBitOffset=3,0 scaleFactor=1 shift=1"},
         {"*", "tapsFactor=1 roundMode=1,0 rndMode=1,0 hint=0,1 dlyLineIndex=0,1 zcType=0,1,2"},
         {"*", "val=3,0,1 value=3 level=3 levelLT=3 valueLT=3 valueGT=3 sub=3 alpha=3"},
         {"*", "len|tableLen=length lowerBound=-100 upperBound=100"}},
        {{{"FFT*", "order"},
          [](const Call& c) { return std::bit_width(unsigned(c.length())) - 1; }},
         {{"FIR!(Gen*)", "tapsLen"}, [](const Call& c) { return c.length() % 23 + 1; }, {70, 131}},
         {{"FIRSR*", "dataType"}, fixed(moxType64f)},
         {{"WinKaiser_*", "alpha"}, [](const Call& c) { return 20.0 / c.length(); }, {0}},
         {{"Convolve* AutoCorrNorm*", "algType"}, fixed(moxAlgAuto), {moxAlgDirect, moxAlgFft}},
         // Without the buffer, too.
         {{"CrossCorrNorm*", "algType"}, fixed(moxAlgAuto), {moxAlgNormB}},
         {{"Convolve* *CorrNorm*", "dataType"}, fixed(moxType32f), {moxType64f}},
         {{"SortRadixIndex*", "srcStrideBytes"}, elementBytes},
         {{"Threshold_*", "relOp"}, fixed(moxThresholdLess), {moxThresholdGreater}}})};

const Table<Row> countRows = {
    "array lengths",
    rows(
        {// Packed 24-bit samples are three bytes each, in arrays of bytes.
         {"Convert_24*", "src=3*len"},
         {"Convert_?*24[su]*", "dst=3*len"},
         {"SwapBytes_24*", "src|dst|srcDst=3*len"},
         {"JoinScaled_*24s*", "dst=3*len*channels"},
         {"JoinScaled_*16s*", "dst=len*channels"},
         {"SplitScaled_24s*", "src=3*len*channels"},
         {"SplitScaled_16s*", "src=len*channels"},
         {"Copy*_1u", "src=len+srcBitOffset+7/8 dst=len+dstBitOffset+7/8"},
         {"PackBits_*", "dst=11*len+dstBitOffset+7/8"},

         {"FFTFwd_RToCCS_*", "src=points dst|srcDst=points/2*2+2"},
         {"FFTInv_CCSToR_*", "src|srcDst=points/2*2+2 dst=points"},
         {"FFT@(Fwd_CToC|Inv_CToC|Fwd_RToPack|Fwd_RToPerm|Inv_PackToR|Inv_PermToR)_*",
          "src|dst|srcDst|srcRe|srcIm|dstRe|dstIm|srcDstRe|srcDstIm=points"},
         {"DCT@(Fwd|Inv)_* Hilbert_*", "src|dst|srcDst=length"},
         {"DFTFwd_RToCCS_*", "dst=len/2*2+2"},
         {"DFTInv_CCSToR_* ConjCcs_*", "src=len/2*2+2"},

         {"FIROne* FIRLMS*One* IIROne*", "dst=1"},
         {"FIROne* IIROne*", "srcDst=1"},
         {"FIR?(Stream)Init* FIR[GS]etDlyLine* FIRLMSInitAlloc* FIRLMS[GS]etDlyLine*",
          "dlyLine=tapsLen"},
         {"FIR!(MR*)_Direct_* FIRLMSOne_Direct*", "dlyLine=2*tapsLen"},
         {"FIRMR*", "dlyLine=tapsLen+upFactor-1/upFactor"},
         {"FIRMR*_Direct_*", "src=numIters*downFactor dst=numIters*upFactor"},
         {"FIRMR*_Direct_*", "srcDst=downFactor>upFactor*numIters"},
         {"FIRLMSMR*", "dlyLine=tapsLen*dlyStep+updateDly"},
         {"FIRLMSMRGetDlyVal*", "val=1"},
         {"FIRLMSMRGetTapsPointer*", "pointer=1"},
         {"FIR*", "taps=tapsLen"},
         {"FIRSR_*", "dlySrc|dlyDst=tapsLen-1"},
         {"FIRSparse*", "nzTaps|nzTapPos=nzTapsLen dlyLine=5"},
         {"IIRSparse*", "nzTaps|nzTapPos=nzTapsLen1+nzTapsLen2 dlyLine=10"},
         {"IIR*", "scaleFactor=numChannels"},
         {"Conv* *Corr*", "src1=len1 src2=len2"},
         {"*Corr*", "src=srcLen"},
         {"Conv_* Convolve_*", "dst=len1+len2-1"},
         {"ConvBiased* *Corr*", "dst=dstLen"},
         {"ConvCyclic8x8_*", "x|h|y=8"},
         {"ConvCyclic4x4_*", "x|h|y=4"},
         {"Tone* Triangle*", "phase=1"},
         {"Rand*", "seed=1"},
         {"GetVarPoint*", "src|dstPoint=1 table=16"},
         {"BuildSymblTable*", "dst=numStates/2"},
         {"CalcStates*", "branch=numStates/2 nextStates=numStates*numStates/4"},
         {"CalcStates*", "path=offset+numStates"},
         {"CalcStates* UpdatePath*", "src|dst|metric=numStates"},
         {"UpdatePath*", "minMetric=1"},
         {"DemodulateFM*", "dlyPoint=1"},
         {"CauchyDD2*", "dst2=len"},
         {"WTFwd_*", "src=2*dstLen dstLow|dstHigh=dstLen"},
         {"WTInv_*", "srcLow|srcHigh=srcLen dst=2*srcLen"},
         {"WT*InitAlloc*", "tapsLow=lenLow tapsHigh=lenHigh"},
         {"WT*", "dlyLow=lenLow-1+offsLow>0 dlyHigh=lenHigh-1+offsHigh>0"},
         {"WTHaarFwd_*", "dstLow=len+1/2 dstHigh=len/2"},
         {"WTHaarInv_*", "srcLow=len+1/2 srcHigh=len/2"},
         {"Sample@(Up|Down)_*", "src=srcLen dstLen|phase=1"},
         {"SampleUp_*", "dst=srcLen*factor"},
         {"SampleDown_*", "dst=srcLen+factor-1/factor"},
         {"ResamplePolyphase*", "time|outLen|filterLen|numFilters=1"},
         {"ResamplePolyphase?(Fixed)_*", "src=len+47"},  // from the time on, and 7 behind
         {"ResamplePolyphase_*", "dst=2*len"},
         {"ResamplePolyphaseFixed_*", "dst=5*len"},
         {"ResamplePolyphase[GS]etFixedFilter_*", "src|dst=step*height"},
         {"Update*", "srcDst=1"},
         {"Goertz@(_|Q15)*", "dst=1"},
         {"GoertzTwo*", "dst|relFreq|relFreqQ15=2"},
         {"SumWindow_*", "src=len+maskSize-1"},
         {"*", "size|specSize|initSize|workSize|bufSize|bufferSize|dstBitLen=1"},
         {"*", "dlyLineIndex|tapsFactor|outVal|outIndex|counts=1"},
         {"*", "sum|mean|stdDev|norm|dp|result|index|min|max|minIndex|maxIndex|order=1"},
         {"*", "src|srcRe|srcIm|srcMagn|srcPhase|srcRows|bitWidths=len"},
         {"*", "dst|dstRe|dstIm|dstMagn|dstPhase|dstIdx|dstRows=len"},
         {"*", "src1|src2|tmpIdx|outVals|outIndices|srcDst|buffer|ref=len table=tableLen"}},
        {{{"FFT@(Fwd|Inv)_* DCT@(Fwd|Inv)_*", "buffer"}, workBufferSize},
         {{"DFT?(OutOrd)@(Fwd|Inv)_*", "buffer"}, dftBufferSize},
         {{"@(FFT|DFT)Init_* DCT*Init_*", "specMem"}, sizeOfObject("specSize")},
         {{"@(FFT|DFT)Init_* DCT*Init_*", "initBuf"}, sizeOfObject("initSize")},
         {{"FIR*Init* IIR*Init*", "buffer"}, sizeOfObject("size")},
         {{"ToneInitQ15* TriangleInitQ15* Rand*Init_* ResamplePolyphase*Init_*", "state"},
          sizeOfObject("size")},
         {{"FIRSRInit*", "spec"}, sizeOfFirSr("specSize")},
         {{"FIRSR_*", "buffer"}, sizeOfFirSr("bufSize")},
         {{"IIRGen*", "buffer"}, sizeOfDesign},
         {{"IIR*", "taps"},
          [](const Call& c) { return isCascade(c) ? 6 * c("numBq") : 2 * c("order") + 2; }},
         {{"IIR!(Sparse*)", "dlyLine"}, iirDelayLine},
         {{"Convolve_* *CorrNorm_*", "buffer"}, corrBufferSize},
         {{"GetVarPoint*", "dstVar"}, [](const Call& c) { return c("numStates") == 16 ? 4 : 8; }},
         {{"BuildSymblTable*", "src"},
          [](const Call& c) { return c("numStates") == 16 ? 8 : 16; }}})};

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
