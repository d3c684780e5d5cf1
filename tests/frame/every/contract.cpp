#include "frame/every/contract.h"

#include "frame/every/functions.h"

namespace every {
namespace {

struct Row {
  const char* functions;
  Deviation kind;
  const char* reason;
};

constexpr Row rows[] = {
    {"moxs@(Malloc_*|Free|GetLibVersion)", Deviation::noStatus,
     "they return memory, nothing, and the version record"},

    {"moxs@(Add|Sub)_*c?(_I)", Deviation::lengthFirst,
     "a complex form is the real form on twice the length, which it has to reckon first"},
    {"moxs@(Add|Sub)_*sc_?(I)Sfs", Deviation::lengthFirst,
     "a complex form is the real form on twice the length, which it has to reckon first"},
    {"moxsMaxOrder_*", Deviation::lengthFirst, "the orders of argument checks differ by family"},
    {"moxsDCT@(Fwd|Inv)@(GetSize|Init)_*", Deviation::lengthFirst,
     "the length decides which pointers matter"},

    {"moxsConvert_64f64s_Sfs", Deviation::onlyZeroRefused,
     "its length is unsigned: a negative one is a very long array"},
    {"moxsZeroCrossing_*", Deviation::onlyZeroRefused, "a negative length has no pairs"},
    {"moxs@(Max|Min)Every_*", Deviation::onlyZeroRefused, "a negative length is no element at all"},

    {"moxsSwapBytes_24*", Deviation::notOntoSource,
     "elements of three bytes meet inside one vector"},
    {"moxs@(Copy?([LB]E)_1u|Conv*|*Corr*|SumWindow*|FilterMedian*|ConjPack*|ConjPerm*|ConjCcs*)",
     Deviation::notOntoSource, "an output depends on inputs at other places"},
    {"moxs@(SortRadixIndex|WTHaar|WTFwd|WTInv|Sample|Resample|FIRMR|FIRLMS|GetVarPoint)*",
     Deviation::notOntoSource, "an output depends on inputs at other places"},
    {"moxs@(JoinScaled|SplitScaled)_*", Deviation::notOntoSource,
     "rows and interleaved samples stand at other places"},

    {"moxs@(Flip|ConjFlip|ConjPack|ConjPerm|ConjCcs|MulPack|MulPackConj|MulPerm|Win*|Sort*|"
     "FindNearest)_*",
     Deviation::notElementwise, "the length decides what an element is"},
    {"moxsCartToPolar_*", Deviation::outputsApart,
     "magnitudes are computed, then phases: a failure of the first leaves the second"},

    {"moxsIIR*P?(Sfs)", Deviation::outputsApart,
     "channels are checked one after the other: those before a bad one have been filtered"},
    {"moxsIIRInit32s*_16s?(c)", Deviation::ownMemory, "integer taps become floats there"},
    {"moxsIIR*", Deviation::notElementwise, "the length decides where stretches begin"},

    {"moxs@(Sum|Mean|StdDev|MeanStdDev)_@(32|64)f*", Deviation::alignedSums,
     "lanes are summed from the first aligned element on, so that the last bits may differ"},
    {"moxs@(Norm|NormDiff)_*_@(32|64)f*", Deviation::alignedSums,
     "lanes are summed from the first aligned element on, so that the last bits may differ"},
    {"moxs@(SumLn|Goertz|GoertzTwo)_*", Deviation::alignedSums,
     "lanes are summed from the first aligned element on, so that the last bits may differ"},

};

struct Pointer {
  const char* functions;
  const char* parameter;
  const char* reason;
};

constexpr Pointer optionalPointers[] = {
    {"moxs@(FFT|DFT|DCT)@(Fwd|Inv)_*", "buffer", "the call takes memory and releases it"},
    {"moxs@(FIR|FIRMR|IIR|FIRLMS|FIRLMSMR)*Init*", "dlyLine", "the delay line starts cleared"},
    {"moxs@(FIR|IIR|FIRLMSMR|FIRLMS)SetDlyLine*", "dlyLine", "the delay line is cleared"},
    {"moxs@(Max|Min)?(Abs)Indx_*", "index", "the index is not wanted"},
    {"moxsFIRLMS*InitAlloc*", "taps", "the taps start at zero"},
    {"moxs@(FFT|DFT|DCT)*Init_*", "initBuf", "tables of small lengths need none"},
    {"moxsRealToCplx_*", "srcRe", "that part is zero"},
    {"moxsRealToCplx_*", "srcIm", "that part is zero"},
};

constexpr Pointer scratchMemory[] = {
    {"*", "buffer", "work memory"},          {"*", "initBuf", "work memory"},
    {"*", "tmpIdx", "work memory"},          {"*Init*", "specMem", "the object holds addresses"},
    {"*Init*", "state", "a private record"},
};

template <class Rows>
bool hasRow(const Rows& table, const std::string& function, const std::string& parameter) {
  for (const Pointer& row : table)
    if (parameter == row.parameter && matches(row.functions, function)) return true;
  return false;
}

}  // namespace

const char* deviation(const std::string& function, Deviation kind) {
  for (const Row& row : rows)
    if (row.kind == kind && matches(row.functions, function)) return row.reason;
  return nullptr;
}

bool optionalPointer(const std::string& function, const std::string& parameter) {
  return hasRow(optionalPointers, function, parameter);
}

bool scratch(const std::string& function, const std::string& parameter) {
  return hasRow(scratchMemory, function, parameter);
}

}  // namespace every
