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

auto fixed(long value) {
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
     {{"FFT* DFT*", "flag"}, fixed(8), {1, 2, 4}},
     {{"DFT@(GetSize|Init)_*", "len"},
      [](const Call& c) { return 3 * c.length() + 15; }},  // has tables
     {{"FIR*", "tapsLen"}, [](const Call& c) { return c.length() % 23 + 1; }, {70, 131}},
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
     {{"IIR*", "order"}, fixed(4), {1, 2}},
     {{"IIR*", "numBq"}, fixed(3), {1}},
     {{"IIR*", "taps"}, fixed(3)},  // a shift, and what must not be 0, is among them
     {{"IIR*", "numChannels"}, fixed(7), {1}},
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
     {{"FFTInit_* DCT*Init_*", "specMem"}, sizeOfObject("specSize")},
     {{"FFTInit_* DCT*Init_*", "initBuf"}, sizeOfObject("initSize")},
     {{"DCT@(Fwd|Inv)_* Hilbert_*", "src dst srcDst"}, length},
     {{"DFT@(Fwd|Inv)_*", "buffer"}, dftBufferSize},
     {{"DFTInit_*", "specMem"}, sizeOfObject("specSize")},
     {{"DFTInit_*", "initBuf"}, sizeOfObject("initSize")},
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

     {{"IIR*", "taps"},
      [](const Call& c) { return isCascade(c) ? 6 * c("numBq") : 2 * c("order") + 2; }},
     {{"IIR*", "dlyLine"}, iirDelayLine},
     {{"IIR*", "scaleFactor"}, argument("numChannels")},

     {{"SumWindow_*", "src"}, [](const Call& c) { return c("len") + c("maskSize") - 1; }},
     {{"Update*", "srcDst"}, fixed(1)},
     {{"Goertz@(_|Q15)*", "dst"}, fixed(1)},
     {{"GoertzTwo*", "dst relFreq relFreqQ15"}, fixed(2)},

     {{"*", "size specSize initSize workSize dstBitLen dlyLineIndex tapsFactor"}, fixed(1)},
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
