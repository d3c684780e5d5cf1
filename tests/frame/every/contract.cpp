#include "frame/every/contract.h"

#include <algorithm>

#include "frame/every/tables.h"

namespace every {
namespace {

struct Row {
  Claim claim;
};

Row row(Deviation kind, const char* functions) { return {{functions, "", int(kind)}}; }
using enum Deviation;

const Table<Row> deviations = {
    "deviations",
    {row(noStatus, "Malloc_* Free GetLibVersion"),

     // Elements meet inside one vector, or outputs stand at other places than the inputs that they
     // depend on.
     row(notOntoSource,
         "SwapBytes_24* Copy?([LB]E)_1u SumWindow_* ConjPack_* ConjPerm_* ConjCcs_* "
         "SortRadixIndex* Conv_* Convolve_* ConvBiased_* *Corr* BuildSymblTable* "
         "FIRMR*_Direct_* FIRLMS* JoinScaled_* SplitScaled_* SampleUp_* SampleDown_* "
         "ResamplePolyphase*"),

     // The length decides what an element is, or the phase or seed on return.
     row(notElementwise,
         "Flip_* ConjFlip_* ConjPack_* ConjPerm_* ConjCcs_* MulPack_* MulPackConj_* MulPerm_* "
         "Sort* FindNearest_* Win* VectorJaehne_* Tone_Direct_* Triangle_Direct_* Rand*_Direct_* "
         "SampleUp_* SampleDown_*"),
     // Outputs depend on inputs at other places, or the length decides where stretches begin.
     row(notElementwise, "FilterMedian_* Conv_* Convolve_* WTHaarInv_* IIR*"),

     // The size is 0 where the type is none of its own; a failure of the magnitudes leaves the
     // phases; channels before one that is refused have been filtered.
     row(outputsApart, "ConvolveGetBufferSize CartToPolar_* IIR*_?(I)P?(Sfs)"),
     // So that nobody takes it for a bank.
     row(clearsObject, "WT*InitAlloc*"),

     // Callers hold memory, not an object.
     row(unidentified,
         "ResamplePolyphase_* ResamplePolyphaseFixed_* ResamplePolyphase[GS]etFixedFilter_* "
         "FIRSR_* @(FIR|IIR)Sparse_* @(FIR|IIR)Sparse[GS]etDlyLine_*"),

     // Large windows are sorted apart, integers become floats, a state is made for the call, or
     // transforms have no buffer of the caller's.
     row(ownMemory,
         "FilterMedian_* IIRInit32s*_16s?(c) IIRSetTaps32s*_16s?(c) Conv_16s* AutoCorr_*16s* "
         "CrossCorr_16s_* IIR_?(BiQuad)Direct_16s* FIR?(One)_Direct_16s* FIRMR*_Direct_* "
         "Hilbert_*"),

     // Lanes are summed from the first aligned element on, so that the last bits may differ.
     row(alignedSums,
         "@(Sum|Mean|StdDev|MeanStdDev)_@(32|64)f* @(Norm|NormDiff)_*_@(32|64)f* SumLn_*")}};

const Table<Row> optionalPointers = {
    "optional pointers",
    {// The call takes memory and releases it, or needs none.
     {{"@(FFT|DFT|DFTOutOrd|DCT)@(Fwd|Inv)_* CrossCorrNorm_*", "buffer"}},
     {{"FFTInit_* DCT*Init_*", "initBuf"}},
     // Delay lines and taps start cleared, or are cleared.
     {{"FIR*Init* IIR*Init* FIR*SetDlyLine* IIR*SetDlyLine*", "dlyLine"}},
     {{"FIRLMS*InitAlloc* FIRLMSMRSetTaps*", "taps"}},
     {{"FIRSR_*", "dlySrc dlyDst"}},
     {{"@(Max|Min)?(Abs)Indx_*", "index"}},
     {{"RealToCplx_*", "srcRe srcIm"}}}};

// Work memory, and objects that hold addresses.
const Table<Row> scratchMemory = {"scratch memory",
                                  {{{"*", "buffer initBuf tmpIdx specMem"}},
                                   {{"ResamplePolyphase*Init_*", "state"}},
                                   {{"FIRSRInit_*", "spec"}}}};

}  // namespace

bool deviation(const Function& function, Deviation kind) {
  const auto& rows = deviations.all(function);
  return std::ranges::any_of(rows, [=](auto* row) { return row->claim.kind == int(kind); });
}

bool optionalPointer(const Function& function, const std::string& parameter) {
  return optionalPointers.first(function, parameter);
}

bool scratch(const Function& function, const std::string& parameter) {
  return scratchMemory.first(function, parameter);
}

}  // namespace every
