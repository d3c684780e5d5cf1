#include "frame/every/contract.h"

#include "frame/every/tables.h"

namespace every {
namespace {

struct Row {
  Claim claim;
  const char* reason;
};

constexpr Claim whole(const char* functions, Deviation kind) {
  return {functions, nullptr, int(kind)};
}

const Table<Row> deviations = {
    "deviations",
    {{whole("Malloc_* Free GetLibVersion", Deviation::noStatus),
      "they return memory, nothing, and the version record"},

     {whole("SwapBytes_24* Copy?([LB]E)_1u", Deviation::notOntoSource),
      "elements meet inside one vector"},
     {whole("SumWindow_* ConjPack_* ConjPerm_* ConjCcs_* SortRadixIndex*",
            Deviation::notOntoSource),
      "an output depends on inputs at other places"},
     {whole("JoinScaled_* SplitScaled_*", Deviation::notOntoSource),
      "rows and interleaved samples stand at other places"},

     {whole("Flip_* ConjFlip_* ConjPack_* ConjPerm_* ConjCcs_* MulPack_* MulPackConj_* MulPerm_* "
            "Sort* FindNearest_*",
            Deviation::notElementwise),
      "the length decides what an element is"},
     {whole("CartToPolar_*", Deviation::outputsApart),
      "magnitudes are computed, then phases: a failure of the first leaves the second"},
     {whole("IIR*_?(I)P?(Sfs)", Deviation::outputsApart),
      "channels before one that is refused have been filtered"},
     {whole("IIRInit32s*_16s?(c) IIRSetTaps32s*_16s?(c)", Deviation::ownMemory),
      "integer taps become floats there"},
     {whole("IIR_?(BiQuad)Direct_16s* FIR?(One)_Direct_16s* FIRMR*_Direct_*", Deviation::ownMemory),
      "a state is made for the call"},
     {whole("Hilbert_*", Deviation::ownMemory), "the transforms have no buffer of the caller's"},
     {whole("IIR*", Deviation::notElementwise), "the length decides where stretches begin"},
     {whole("FIRMR*_Direct_* FIRLMS*", Deviation::notOntoSource),
      "an output depends on inputs at other places"},

     {whole("@(Sum|Mean|StdDev|MeanStdDev)_@(32|64)f* @(Norm|NormDiff)_*_@(32|64)f* SumLn_*",
            Deviation::alignedSums),
      "lanes are summed from the first aligned element on, so that the last bits may differ"}}};

const Table<Row> optionalPointers = {
    "optional pointers",
    {{{"@(FFT|DFT|DCT)@(Fwd|Inv)_*", "buffer"}, "the call takes memory and releases it"},
     {{"FFTInit_* DCT*Init_*", "initBuf"}, "tables of small lengths need none"},
     {{"FIR*Init* IIR*Init*", "dlyLine"}, "the delay line starts cleared"},
     {{"FIR*SetDlyLine* IIRSetDlyLine*", "dlyLine"}, "the delay line is cleared"},
     {{"FIRLMS*InitAlloc*", "taps"}, "the taps start at zero"},
     {{"FIRLMSMRSetTaps*", "taps"}, "the taps are cleared"},
     {{"@(Max|Min)?(Abs)Indx_*", "index"}, "the index is not wanted"},
     {{"RealToCplx_*", "srcRe srcIm"}, "that part is zero"}}};

const Table<Row> scratchMemory = {"scratch memory",
                                  {{{"*", "buffer initBuf tmpIdx"}, "work memory"},
                                   {{"*", "specMem"}, "the object holds addresses"}}};

}  // namespace

const char* deviation(const Function& function, Deviation kind) {
  for (const Row* row : deviations.all(function))
    if (row->claim.kind == int(kind)) return row->reason;
  return nullptr;
}

bool optionalPointer(const Function& function, const std::string& parameter) {
  return optionalPointers.first(function, parameter);
}

bool scratch(const Function& function, const std::string& parameter) {
  return scratchMemory.first(function, parameter);
}

std::vector<std::string> faultsOfContract() {
  auto faults = deviations.faults();
  for (const auto& table : {optionalPointers.faults(), scratchMemory.faults()})
    faults.insert(faults.end(), table.begin(), table.end());
  return faults;
}

}  // namespace every
