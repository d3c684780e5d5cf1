#include "frame/every/contract.h"

#include "frame/every/tables.h"

namespace every {
namespace {

struct Row {
  Claim claim;
  const char* reason;
};

Row row(Deviation kind, const char* functions, const char* reason) {
  return {{functions, "", int(kind)}, reason};
}
using enum Deviation;

const Table<Row> deviations = {
    "deviations",
    {row(noStatus, "Malloc_* Free GetLibVersion", "memory, nothing, and the version record"),

     row(notOntoSource, "SwapBytes_24* Copy?([LB]E)_1u", "elements meet inside one vector"),
     row(notOntoSource,
         "SumWindow_* ConjPack_* ConjPerm_* ConjCcs_* SortRadixIndex* Conv_* Convolve_* "
         "ConvBiased_* "
         "*Corr* BuildSymblTable* FIRMR*_Direct_* FIRLMS*",
         "an output depends on inputs at other places"),
     row(notOntoSource, "JoinScaled_* SplitScaled_* SampleUp_* SampleDown_* ResamplePolyphase*",
         "outputs stand at other places"),

     row(notElementwise,
         "Flip_* ConjFlip_* ConjPack_* ConjPerm_* ConjCcs_* MulPack_* MulPackConj_* MulPerm_* "
         "Sort* "
         "FindNearest_* Win* VectorJaehne_*",
         "the length decides what an element is"),
     row(notElementwise, "Tone_Direct_* Triangle_Direct_* Rand*_Direct_* SampleUp_* SampleDown_*",
         "the phase or the seed on return depends on the length"),
     row(notElementwise, "FilterMedian_* Conv_* Convolve_*",
         "an output depends on inputs at other places"),
     row(notElementwise, "WTHaarInv_*", "an odd length ends with a single element"),
     row(notElementwise, "IIR*", "the length decides where stretches begin"),

     row(outputsApart, "ConvolveGetBufferSize",
         "where it answers that the type is none of its own it has stored 0"),
     row(outputsApart, "CartToPolar_*",
         "magnitudes are computed, then phases: a failure of the first leaves the second"),
     row(outputsApart, "IIR*_?(I)P?(Sfs)",
         "channels before one that is refused have been filtered"),
     row(clearsObject, "WT*InitAlloc*", "so that nobody takes it for a bank"),

     row(unidentified,
         "ResamplePolyphase_* ResamplePolyphaseFixed_* ResamplePolyphase[GS]etFixedFilter_* "
         "FIRSR_* "
         "@(FIR|IIR)Sparse_* @(FIR|IIR)Sparse[GS]etDlyLine_*",
         "callers hold memory, not an object"),

     row(ownMemory, "FilterMedian_*", "large windows are sorted apart"),
     row(ownMemory,
         "IIRInit32s*_16s?(c) IIRSetTaps32s*_16s?(c) Conv_16s* AutoCorr_*16s* CrossCorr_16s_*",
         "integers become floats there"),
     row(ownMemory, "IIR_?(BiQuad)Direct_16s* FIR?(One)_Direct_16s* FIRMR*_Direct_*",
         "a state is made for the call"),
     row(ownMemory, "Hilbert_*", "the transforms have no buffer of the caller's"),

     row(alignedSums,
         "@(Sum|Mean|StdDev|MeanStdDev)_@(32|64)f* @(Norm|NormDiff)_*_@(32|64)f* SumLn_*",
         "lanes are summed from the first aligned element on, so that the last bits may differ")}};

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
