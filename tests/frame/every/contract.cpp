#include "frame/every/contract.h"

#include "frame/every/tables.h"

namespace every {
namespace {

struct Row {
  Claim claim;
  const char* reason;
};

Claim whole(const char* functions, Deviation kind) { return {functions, "", int(kind)}; }

const Table<Row> deviations = {
    "deviations",
    {{whole("Malloc_* Free GetLibVersion", Deviation::noStatus),
      "they return memory, nothing, and the version record"},

     {whole("SwapBytes_24* Copy?([LB]E)_1u", Deviation::notOntoSource),
      "elements meet inside one vector"},
     {whole("SumWindow_* ConjPack_* ConjPerm_* ConjCcs_* SortRadixIndex*",
            Deviation::notOntoSource),
      "an output depends on inputs at other places"},
     {whole("Conv_* Convolve_* ConvBiased_* *Corr* BuildSymblTable*", Deviation::notOntoSource),
      "an output depends on inputs at other places"},
     {whole("ConvolveGetBufferSize", Deviation::outputsApart),
      "where it answers that the type is none of its own it has stored 0"},
     {whole("JoinScaled_* SplitScaled_*", Deviation::notOntoSource),
      "rows and interleaved samples stand at other places"},

     {whole("Flip_* ConjFlip_* ConjPack_* ConjPerm_* ConjCcs_* MulPack_* MulPackConj_* MulPerm_* "
            "Sort* FindNearest_*",
            Deviation::notElementwise),
      "the length decides what an element is"},
     {whole("Tone_Direct_* Triangle_Direct_*", Deviation::notElementwise),
      "the phase on return depends on the length"},
     {whole("Rand*_Direct_*", Deviation::notElementwise),
      "the seed on return depends on the length"},
     {whole("Win* VectorJaehne_*", Deviation::notElementwise),
      "the length decides what a weight or an angle is"},
     {whole("CartToPolar_*", Deviation::outputsApart),
      "magnitudes are computed, then phases: a failure of the first leaves the second"},
     {whole("WT*InitAlloc*", Deviation::clearsObject), "so that nobody takes it for a bank"},
     {whole("IIR*_?(I)P?(Sfs)", Deviation::outputsApart),
      "channels before one that is refused have been filtered"},
     {whole("ResamplePolyphase_* ResamplePolyphaseFixed_* ResamplePolyphase[GS]etFixedFilter_*",
            Deviation::unidentified),
      "callers hold memory, not an object"},
     {whole("SampleUp_* SampleDown_* ResamplePolyphase*", Deviation::notOntoSource),
      "outputs stand at other places"},
     {whole("SampleUp_* SampleDown_*", Deviation::notElementwise),
      "phases go on from call to call"},
     {whole("FilterMedian_*", Deviation::notElementwise), "an output depends on its neighbours"},
     {whole("FilterMedian_*", Deviation::ownMemory), "large windows are sorted apart"},
     {whole("IIRInit32s*_16s?(c) IIRSetTaps32s*_16s?(c)", Deviation::ownMemory),
      "integer taps become floats there"},
     {whole("IIR_?(BiQuad)Direct_16s* FIR?(One)_Direct_16s* FIRMR*_Direct_*", Deviation::ownMemory),
      "a state is made for the call"},
     {whole("Conv_16s* AutoCorr_*16s* CrossCorr_16s_*", Deviation::ownMemory),
      "signals become floats there"},
     {whole("WTHaarInv_*", Deviation::notElementwise), "an odd length ends with a single element"},
     {whole("Conv_* Convolve_*", Deviation::notElementwise),
      "an output depends on inputs at other places"},
     {whole("Hilbert_*", Deviation::ownMemory), "the transforms have no buffer of the caller's"},
     {whole("IIR*", Deviation::notElementwise), "the length decides where stretches begin"},
     {whole("FIRSR_* @(FIR|IIR)Sparse_* @(FIR|IIR)Sparse[GS]etDlyLine_*", Deviation::unidentified),
      "filters whose states are small"},
     {whole("FIRMR*_Direct_* FIRLMS*", Deviation::notOntoSource),
      "an output depends on inputs at other places"},

     {whole("@(Sum|Mean|StdDev|MeanStdDev)_@(32|64)f* @(Norm|NormDiff)_*_@(32|64)f* SumLn_*",
            Deviation::alignedSums),
      "lanes are summed from the first aligned element on, so that the last bits may differ"}}};

const Table<Row> optionalPointers = {
    "optional pointers",
    {{{"@(FFT|DFT|DFTOutOrd|DCT)@(Fwd|Inv)_*", "buffer"}, "the call takes memory and releases it"},
     {{"CrossCorrNorm_*", "buffer"}, "sums need none"},
     {{"FFTInit_* DCT*Init_*", "initBuf"}, "tables of small lengths need none"},
     {{"FIR*Init* IIR*Init*", "dlyLine"}, "the delay line starts cleared"},
     {{"FIR*SetDlyLine* IIR*SetDlyLine*", "dlyLine"}, "the delay line is cleared"},
     {{"FIRSR_*", "dlySrc"}, "the history is silence"},
     {{"FIRSR_*", "dlyDst"}, "the history is not wanted"},
     {{"FIRLMS*InitAlloc*", "taps"}, "the taps start at zero"},
     {{"FIRLMSMRSetTaps*", "taps"}, "the taps are cleared"},
     {{"@(Max|Min)?(Abs)Indx_*", "index"}, "the index is not wanted"},
     {{"RealToCplx_*", "srcRe srcIm"}, "that part is zero"}}};

const Table<Row> scratchMemory = {
    "scratch memory",
    {{{"ResamplePolyphase*Init_*", "state"}, "the object holds addresses"},
     {{"*", "buffer initBuf tmpIdx"}, "work memory"},
     {{"FIRSRInit_*", "spec"}, "the object holds addresses"},
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

}  // namespace every
