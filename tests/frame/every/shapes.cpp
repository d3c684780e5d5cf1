#include "frame/every/shapes.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <functional>
#include <map>
#include <regex>
#include <utility>

namespace every {
namespace {

// All tables are read from the top. Functions and parameters are shell patterns.
template <class T>
struct Row {
  const char* functions;
  const char* parameters;
  std::function<T(const Call&)> value;
};

auto fixed(long value) {
  return [value](const Call&) { return value; };
}
auto real(double value) {
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
long transformLength(const Call& c) { return 1L << c("order"); }
long ccsLength(const Call& c) { return transformLength(c) / 2 * 2 + 2; }

// What the size query that belongs to an Init function reports.
auto sizeFrom(const char* queryWord, const char* output) {
  return [=](const Call& c) {
    const std::string name = std::regex_replace(c.function().name, std::regex("Init"), queryWord,
                                                std::regex_constants::format_first_only);
    return query(name, c.setting(), output);
  };
}
long workBufferSize(const Call& c) {
  const std::string init = *makerOf(c.function().name);
  return query(std::regex_replace(init, std::regex("Init(Alloc)?"), "GetBufSize"), c.setting(),
               "size");
}

// Convolution and correlation: the query wants the element type as a number.
long convolutionBuffer(const Call& c) {
  const ElementType& e = *c.function().type(0).element;
  Setting setting = c.setting();
  setting.numbers["dataType"] = 13 + 6 * (e.partBytes == 8) + (e.bytes > e.partBytes);
  const std::string& name = c.function().name;
  return query(name.substr(0, name.find('_')) + "GetBufferSize", setting, "bufferSize");
}

constexpr long packWidth = 11;

// Numbers, and arrays whose every element must have a certain value.
const Row<double> numberRows[] = {
    {"moxsFFT*", "order", [](const Call& c) { return std::bit_width(unsigned(c.length())) - 1; }},
    {"moxsPackBits_*", "bitWidths", real(packWidth)},
    {"moxsSortRadixIndex*", "srcStrideBytes",
     [](const Call& c) { return c.function().type(0).element->bytes; }},
    {"moxsThreshold_*", "levelGT", real(5)},
    {"moxsRand*", "high", real(90)},
    {"moxsIIR*Direct_16s*", "taps", real(3)},           // among them the shift
    {"moxsIIR_32f_?(I)P", "numChannels", real(7)},      // side by side
    {"moxs@(FIR|IIR)*One*", "@(src|srcDst)", real(7)},  // one sample, by value or in place
    {"moxs@(StdDev|MeanStdDev)_*", "len", [](const Call& c) { return std::max(c.length(), 2); }},

    {"*", "@(len|srcLen|dstLen|len1|numIters|numStates|tableLen)",
     [](const Call& c) { return c.length(); }},
    {"*", "@(tapsLen|lenLow|lenHigh)", [](const Call& c) { return c.length() % 23 + 1; }},
    {"*", "len2", real(5)},
    {"*", "lowLag", real(-2)},
    {"*", "order", real(4)},
    {"*", "flag", real(8)},
    {"*", "@(numBq|channels|numChannels|srcBitOffset|dstBitOffset|maskSize|upFactor)", real(3)},
    {"*", "@(downFactor|factor)", real(2)},
    {"*", "@(scaleFactor|tapsFactor|roundMode|rndMode|upPhase|offsLow|offsHigh|shift)", real(1)},
    {"*", "@(downPhase|phase|phaseQ15|dlyLineIndex|hint|asym|asymQ15|relOp|zcType)", real(0)},
    {"*", "@(algType|doNormal|winType|updateDly|index|bias)", real(0)},
    {"*", "dataType", real(13)},
    {"*", "@(rFreq|relFreq|rLowFreq|mu|slope)", real(0.125)},
    {"*", "@(rHighFreq|alpha)", real(0.25)},
    {"*", "@(rFreqQ15|relFreqQ15|muQ15|alphaQ15)", real(4096)},
    {"*", "@(val|value|level|levelLT|valueLT|valueGT|sub|div|c|err|ref|seed|dlyStep)", real(3)},
    {"*", "@(magn|offset|low|mean|stdDev)", real(3)},
    {"*", "lowerBound", real(-100)},
    {"*", "upperBound", real(100)},
};

const Row<long> countRows[] = {
    // Packed 24-bit samples are three bytes each, in arrays of bytes.
    {"moxsConvert_24*", "src", times(3, "len")},
    {"moxsConvert_?*24[su]*", "dst", times(3, "len")},
    {"moxsSwapBytes_24*", "@(src|dst|srcDst)", times(3, "len")},
    {"moxsJoinScaled_*24*", "dst", interleaved(3)},
    {"moxsJoinScaled_*", "dst", interleaved(1)},
    {"moxsSplitScaled_24*", "src", interleaved(3)},
    {"moxsSplitScaled_*", "src", interleaved(1)},

    {"moxsCopy*_1u", "src", bits("srcBitOffset", 1)},
    {"moxsCopy*_1u", "dst", bits("dstBitOffset", 1)},
    {"moxsPackBits_*", "dst", bits("dstBitOffset", packWidth)},

    {"moxsFFTFwd_RToCCS_*", "@(dst|srcDst)", ccsLength},
    {"moxsFFTInv_CCSToR_*", "@(src|srcDst)", ccsLength},
    {"moxsFFT@(Fwd|Inv)_*", "@(src|dst)*", transformLength},
    {"moxs@(FFT|DFT|DCT)@(Fwd|Inv)_*", "buffer", workBufferSize},
    {"moxs@(FFT|DFT|DCT)*Init_*", "specMem", sizeFrom("GetSize", "specSize")},
    {"moxs@(FFT|DFT|DCT)*Init_*", "initBuf", sizeFrom("GetSize", "initSize")},
    {"moxsConjCcs_*", "src", [](const Call& c) { return c("len") / 2 * 2 + 2; }},

    {"moxs@(Convolve|AutoCorrNorm|CrossCorrNorm)_*", "buffer", convolutionBuffer},
    {"moxs@(FIR|IIR)*Init*", "buffer", sizeFrom("GetStateSize", "size")},
    {"moxs@(Tone|Triangle)Init*", "state", sizeFrom("GetStateSize", "size")},
    {"moxsRand@(Uniform|Gauss)Init*", "state", sizeFrom("GetSize", "size")},
    {"moxsFIRMR*Init*", "dlyLine",
     [](const Call& c) { return (c("tapsLen") + c("upFactor") - 1) / c("upFactor"); }},
    {"moxs@(FIR|IIR)One*", "@(dst|srcDst)", fixed(1)},
    {"moxsFIRMR*_Direct_*", "src", [](const Call& c) { return c("numIters") * c("downFactor"); }},
    {"moxsFIRMR*_Direct_*", "dst", [](const Call& c) { return c("numIters") * c("upFactor"); }},
    {"moxsFIRMR*_Direct_*", "srcDst",
     [](const Call& c) { return c("numIters") * std::max(c("downFactor"), c("upFactor")); }},
    {"moxsWT*", "tapsLow", argument("lenLow")},
    {"moxsWT*", "tapsHigh", argument("lenHigh")},
    {"moxsFIR*_Direct_*", "dlyLine", times(2, "tapsLen")},
    {"moxsFIR*", "@(taps|dlyLine)", argument("tapsLen")},
    {"moxsIIR64f_32s_?(I)PSfs", "scaleFactor", argument("numChannels")},
    {"moxsIIR*_DF1_*", "dlyLine", times(4, "numBq")},
    {"moxsIIR*_BiQuad*", "taps", times(6, "numBq")},
    {"moxsIIR*_BiQuad*", "dlyLine", times(2, "numBq")},
    {"moxsIIR*", "taps", [](const Call& c) { return 2 * (c("order") + 1); }},
    {"moxsIIR*", "dlyLine", argument("order")},

    {"moxs@(Conv|Convolve)_*", "dst", [](const Call& c) { return c("len1") + c("len2") - 1; }},
    {"moxs@(ConvBiased|AutoCorr|AutoCorrNorm|CrossCorr|CrossCorrNorm)_*", "dst",
     argument("dstLen")},
    {"moxs@(Conv|CrossCorr)*", "src1", argument("len1")},
    {"moxs@(Conv|CrossCorr)*", "src2", argument("len2")},
    {"moxsAutoCorr*", "src", argument("srcLen")},
    {"moxsConvCyclic4x4_*", "[xhy]", fixed(16)},
    {"moxsConvCyclic8x8_*", "[xhy]", fixed(64)},
    {"moxsSumWindow_*", "src", [](const Call& c) { return c("len") + c("maskSize") - 1; }},
    {"moxsUpdate*", "srcDst", fixed(1)},
    {"moxsGoertzTwo*", "@(dst|relFreq|relFreqQ15)", fixed(2)},
    {"moxsGoertz*", "dst", fixed(1)},
    {"moxsWTHaar*", "@(dst|src)Low", [](const Call& c) { return (c("len") + 1) / 2; }},
    {"moxsWTHaar*", "@(dst|src)High", [](const Call& c) { return c("len") / 2; }},

    {"*", "@(size|specSize|initSize|workSize|bufferSize|dstBitLen|tapsFactor|dlyLineIndex)",
     fixed(1)},
    {"*", "@(sum|mean|stdDev|norm|dp|result|index|min|max|minIndex|maxIndex|order)", fixed(1)},
    {"*", "@(phase|time|outVal|outIndex|seed|counts|dstLen|outLen|dlyPoint)", fixed(1)},
    {"*", "table", argument("tableLen")},
    {"*", "@(src|src1|src2|srcRe|srcIm|srcMagn|srcPhase|srcLow|srcHigh|srcRows|bitWidths|ref)",
     argument("len")},
    {"*", "@(dst|dst2|dstRe|dstIm|dstMagn|dstPhase|dstIdx|dstRows|tmpIdx|outVals|outIndices)",
     argument("len")},
    {"*", "@(srcDst|srcDstRe|srcDstIm|buffer)", argument("len")},
};

struct Maker {
  const char* functions;  // a regular expression
  const char* init;       // with what the expression has captured
};
const Maker makers[] = {
    {"moxsFFT(?:Fwd|Inv)_CToC_([0-9]+[a-z]+)(_.*)?", "moxsFFTInit_C_$1"},
    {"moxsFFT(?:Fwd|Inv)_[A-Za-z]+_([0-9]+[a-z]+)(_.*)?", "moxsFFTInit_R_$1"},
    {"moxsDFT(?:Fwd|Inv)_CToC_([0-9]+[a-z]+)(_.*)?", "moxsDFTInit_C_$1"},
    {"moxsDFT(?:Fwd|Inv)_[A-Za-z]+_([0-9]+[a-z]+)(_.*)?", "moxsDFTInit_R_$1"},
    {"moxs([A-Za-z]+)GetBufSize_(.*)", "moxs$1Init_$2"},
    {"moxs(DCTFwd|DCTInv)_([0-9]+[a-z]+)(_.*)?", "moxs$1Init_$2"},
    {"moxs(Hilbert)(?:_|Free_)(.*)", "moxs$1InitAlloc_$2"},
    {"moxs(FIR|IIR|FIRLMS|FIRLMSMR|FFT|DFT|DCTFwd|DCTInv|WTFwd|WTInv)Free(.*)",
     "moxs$1InitAlloc$2"},
    {"moxsIIR([0-9a-z]*)_(32[fs])_I?P(?:Sfs)?", "moxsIIRInit$1_BiQuad_$2"},
    {"moxsIIR[GS]etDlyLine64f_DF1_32s", "moxsIIRInit64f_BiQuad_DF1_32s"},
    {"moxs(FIR|IIR)(?:One|GetTaps|SetTaps|GetDlyLine|SetDlyLine)?([0-9a-z]*_(?:BiQuad_|DF1_)?"
     "[0-9]+[a-z]+(?:32f|32fc)?)(_.*)?",
     "moxs$1Init$2"},
    {"moxs(WTFwd|WTInv)(?:GetDlyLine|SetDlyLine)?_([0-9]+[a-z]+)", "moxs$1InitAlloc_$2"},
    {"moxs(Rand(?:Uniform|Gauss))(_.*)", "moxs$1Init$2"},
    {"moxsRand(Uniform|Gauss)Free(_.*)", "moxsRand$1InitAlloc$2"},
    {"moxs(Tone|Triangle)Free", "moxs$1InitAllocQ15_16s"},
    {"moxs(Tone|Triangle)(Q15_.*)", "moxs$1Init$2"},
};

const LengthRule lengthRules[] = {
    {"moxsFFT*", "order", moxErrFftOrder, {-1, INT_MIN, INT_MAX}},
    {"moxsIIR*", "order", moxErrIirOrder, {-1, INT_MIN}},
    {"moxsIIR_32f_*", "numChannels", moxErrChannel, {0, -1, INT_MIN}},
    {"moxsIIR64f_32s_*", "numChannels", moxErrChannelCount, {0, -1, INT_MIN}},
    {"moxsIIR*", "numBq", moxErrIirOrder, {0, -1, INT_MIN}},
    {"moxs@(FIRLMS|FIRGen)*", "tapsLen", moxErrSize, {0, -1, INT_MIN}},
    {"moxsFIR*", "tapsLen", moxErrFirLen, {0, -1, INT_MIN}},
    {"moxs@(StdDev|MeanStdDev)_*", "len", moxErrSize, {1, 0, -1, INT_MIN}},
    {"*",
     "@(len|srcLen|dstLen|len1|len2|numIters|channels|tableLen)",
     moxErrSize,
     {0, -1, INT_MIN}},
};

// A sweep asks the same questions again and again.
template <class T>
std::optional<T> lookUp(const auto& rows, const Call& call, int parameter) {
  static std::map<std::pair<const Function*, int>, const Row<T>*> found;
  const auto [at, isNew] = found.try_emplace({&call.function(), parameter}, nullptr);
  if (isNew)
    for (const Row<T>& row : rows)
      if (!at->second && matches(row.functions, call.function().name) &&
          matches(row.parameters, call.function().parameters[std::size_t(parameter)]))
        at->second = &row;
  return at->second ? std::optional<T>(at->second->value(call)) : std::nullopt;
}

}  // namespace

std::optional<double> numberFor(const Call& call, int parameter) {
  return lookUp<double>(numberRows, call, parameter);
}

std::optional<long> countFor(const Call& call, int parameter) {
  return lookUp<long>(countRows, call, parameter);
}

std::optional<std::string> makerOf(const std::string& function) {
  static std::map<std::string, std::optional<std::string>> found;
  const auto [at, isNew] = found.try_emplace(function);
  if (isNew)
    for (const Maker& maker : makers)
      if (std::regex functions(maker.functions);
          !at->second && std::regex_match(function, functions))
        at->second = std::regex_replace(function, functions, maker.init);
  return at->second;
}

const LengthRule* lengthRuleFor(const std::string& function, const std::string& parameter) {
  for (const LengthRule& rule : lengthRules)
    if (matches(rule.functions, function) && matches(rule.parameters, parameter)) return &rule;
  return nullptr;
}

}  // namespace every
