#include "frame/every/objects.h"

#include <algorithm>
#include <map>
#include <regex>

#include "frame/every/tables.h"

namespace every {
namespace {

// A family of objects is registered here by regular expressions: the names of its Init functions,
// and those of the functions that take the objects, with what the first expression has captured for
// $1, $2 and without the ends _I, _Sfs and _ISfs. The rest follows from names. InitAlloc goes
// before Init where there is one of that name, sizes come from the query called GetStateSize or
// GetSize in its place, and the function with Free in its name releases what InitAlloc made. Then
//  - shapes.cpp tells numbers and array lengths that no row for all functions tells already,
//  - refusals.cpp tells which values are refused, with which status, and in which order.
struct Row {
  const char* init;
  const char* users;
};
const Row rows[] = {
    {"FFTInit_([CR])_(.*)", "FFT((GetBufSize|Free)_$1|(Fwd|Inv)_($1To[A-Za-z]+|[A-Za-z]+To$1))_$2"},
    {"FFTInit_R_16s32s", "FFTInv_CCSToR_32s16s"},
    {"DCT(Fwd|Inv)Init_(.*)", "DCT$1(Free|GetBufSize)?_$2"},
    {"HilbertInitAlloc_(.*)", "Hilbert(Free)?_$1"},
    {"DFTOutOrdInitAlloc_C_(.*)", "DFTOutOrd((GetBufSize|Free)_C|(Fwd|Inv)_CToC)_$1"},
    {"DFTInitAlloc_([CR])_(.*)",
     "DFT((GetBufSize|Free)_$1|(Fwd|Inv)_($1To[A-Za-z]+|[A-Za-z]+To$1))_$2"},

    // Combinations that share their states.
    {"FIRInit(32sc?_16sc?)(32fc?)?", "FIR(One|[GS]etTaps|[GS]etDlyLine|Free)?$1(32fc?)?"},
    {"FIRMRInit(32sc?_16sc?)(32fc?)?", "FIR([GS]etTaps|[GS]etDlyLine|Free)?$1(32fc?)?"},
    {"FIRInit(64f_32s|_32s)", "FIR(One|[GS]etTaps|[GS]etDlyLine|Free)?(64f_32s|_32s)"},
    {"FIRMRInit(64f_32s|_32s)", "FIR([GS]etTaps|[GS]etDlyLine|Free)?(64f_32s|_32s)"},
    {"FIRInit((?!32sc?_|64f_32s|_32s).*)", "FIR(One|[GS]etTaps|[GS]etDlyLine|Free)?$1"},
    {"FIRMRInit((?!32sc?_|64f_32s|_32s).*)", "FIR([GS]etTaps|[GS]etDlyLine|Free)?$1"},
    {"FIR(MR)?StreamInit(.*)", "FIR(Free)?$2"},
    {"FIRLMSInitAlloc(.*)", "FIRLMS(Free|GetTaps|[GS]etDlyLine)?$1"},
    {"FIRLMSMRInitAlloc(.*)",
     "FIRLMSMR(Free|[GS]etTaps|GetTapsPointer|[GS]etDlyLine|GetDlyVal|SetMu|PutVal|One|OneVal|"
     "UpdateTaps)$1"},

    {"WT(Fwd|Inv)InitAlloc(.*)", "WT$1(Free|[GS]etDlyLine)?$2"},

    {"IIRInit([0-9a-z]*)_BiQuad_([0-9]+[a-z]+?)(32fc?)?",
     "IIR(One|SetTaps|[GS]etDlyLine|Free)?$1_$2(32fc?)?(_I?P)?"},
    {"IIRInit([0-9a-z]*)_([0-9]+[a-z]+?)(32fc?)?",
     "IIR(One|SetTaps|[GS]etDlyLine|Free)?$1_$2(32fc?)?"},
    {"IIRInit_BiQuad_DF1_32f", "IIR([GS]etDlyLine|Free)?_32f"},
    {"(Tone|Triangle)InitQ15_16s", "$1(Free|Q15_16s)"},
    {"Rand(Uniform|Gauss)Init_(.*)", "Rand$1(Free)?_$2"},

    {"IIRInit64f_BiQuad_DF1_32s", "IIR(Free)?64f_32s|moxsIIR[GS]etDlyLine64f_DF1_32s"},
    {"FIRSRInit(.*)", "FIRSR$1"},
    {"(FIR|IIR)SparseInit(.*)", "$1Sparse([GS]etDlyLine)?$2"},

    {"ResamplePolyphaseInit(.*)", "ResamplePolyphase$1"},
    {"ResamplePolyphaseFixedInit(.*)", "ResamplePolyphase(Fixed|[GS]etFixedFilter)$1"},
};

bool makesObjects(const Function& f) { return f.name.find("Init") != std::string::npos; }

// What a row says of a function that makes objects; empty when it says nothing.
std::string usersBy(const Row& row, const Function& f) {
  if (!makesObjects(f)) return {};
  const std::regex init(std::string("moxs") + row.init + "$");
  const auto allocates = [](const std::string& name) { return name.find("Alloc") != name.npos; };
  if (!std::regex_match(f.name, init) || allocates(f.name) != allocates(row.init)) return {};
  return "(?:" + std::regex_replace(f.name, init, std::string("moxs") + row.users) +
         ")(_I|_I?P?Sfs)?";
}

Kind kindFrom(const Function& init) {
  Kind kind = {&init, nullptr, nullptr, {}};
  const std::string alloc = std::regex_replace(init.name, std::regex("Init(Alloc)?"), "InitAlloc");
  kind.initAlloc = findFunction(alloc);
  for (const Row& row : rows)
    if (const std::string users = usersBy(row, init); !users.empty())
      for (const std::regex pattern(users); const Function& f : allFunctions())
        if ((objectParameter(f) >= 0 || objectRows(f) >= 0) && std::regex_match(f.name, pattern)) {
          kind.users.push_back(&f);
          if (f.name.find("Free") != std::string::npos) kind.free = &f;
        }
  return kind;
}

}  // namespace

int objectParameter(const Function& f) {
  for (int i = 0; i < f.count() && !makesObjects(f); ++i)
    if (f.type(i).form == Form::object) return i;
  return -1;
}

int objectRows(const Function& f) {
  for (int i = 0; i < f.count(); ++i)
    if (f.type(i).form == Form::rows && !f.type(i).element) return i;
  return -1;
}

bool Kind::isTakenBy(const Function& f) const {
  return std::find(users.begin(), users.end(), &f) != users.end();
}

const std::vector<Kind>& allKinds() {
  static const std::vector<Kind> kinds = [] {
    std::vector<Kind> all;
    for (const Function& f : allFunctions())
      for (const Row& row : rows)
        if (!usersBy(row, f).empty()) {
          all.push_back(kindFrom(f));
          break;
        }
    return all;
  }();
  return kinds;
}

const Kind* kindOf(const Function& f) {
  static std::map<std::string, const Kind*> found;
  const auto [at, isNew] = found.try_emplace(f.name, nullptr);
  if (isNew)
    for (const Kind& kind : allKinds())
      if (!at->second && (&f == kind.init || &f == kind.initAlloc || kind.isTakenBy(f)))
        at->second = &kind;
  return at->second;
}

Call& objectOf(const Kind& kind) {
  static std::map<const Kind*, std::unique_ptr<Call>> made;
  auto& call = made[&kind];
  if (!call) {
    call = std::make_unique<Call>(*kind.init, Setting{.length = 8});
    if (const MoxStatus status = call->run(); status != moxOk)
      throw Misbehaved("(" + kind.init->name + " answers " + std::to_string(status) + ")");
    call->takeAsInitial();
  }
  return *call;
}

// Each row makes objects, each function that takes one is a user, and each kind can be released.
std::vector<std::string> faultsOfObjects() {
  std::vector<std::string> faults;
  for (const Row& row : rows) {
    const auto makes = [&](const Function& f) { return !usersBy(row, f).empty(); };
    if (std::none_of(allFunctions().begin(), allFunctions().end(), makes))
      faults.push_back(std::string("objects: no function matches ") + row.init);
  }
  for (const Function& f : allFunctions())
    if (objectParameter(f) >= 0 && f.signature->returnsStatus && !kindOf(f))
      faults.push_back("objects: no row says what makes the object of " + f.name);
  for (const Kind& kind : allKinds())
    if (kind.users.empty() || (kind.initAlloc && !kind.free))
      faults.push_back("objects: no row says what takes or frees those of " + kind.init->name);
  return faults;
}

}  // namespace every
