// What surrounds a call: floating-point control words, errno, extreme scale factors, memory.
#include <immintrin.h>

#include <cerrno>
#include <climits>
#include <cstdint>

#include "frame/every/call.h"
#include "frame/every/checks.h"
#include "frame/every/contract.h"
#include "frame/every/sweep.h"
#include "support/core_probe.h"

namespace every {
namespace {

constexpr unsigned statusFlags = 0x3F;  // of the vector control word: raised by arithmetic
constexpr unsigned allMasked = 0x1F80, roundDown = 0x2000, roundToZero = 0x6000;
constexpr unsigned flushToZero = 0x8040;
constexpr unsigned trapInvalid = 0x80, trapZeroDivide = 0x200, trapOverflow = 0x400;
constexpr std::uint16_t x87Default = 0x037F, x87DoubleToZero = 0x0E7F;

struct ControlWords {
  unsigned vector;
  std::uint16_t x87;
};

ControlWords controlWords() {
  ControlWords words;
  words.vector = _mm_getcsr();
  asm volatile("fnstcw %0" : "=m"(words.x87));
  return words;
}

// Whatever the words have become, they are those of a new program behind the scope.
struct UnderControlWords {
  explicit UnderControlWords(ControlWords words) { set(words); }
  ~UnderControlWords() { set({allMasked, x87Default}); }
  static void set(ControlWords words) {
    _mm_setcsr(words.vector);
    asm volatile("fnclex\n\tfldcw %0" : : "m"(words.x87));
  }
};

// All eight registers of the x87 stack are free, as the calling convention wants them.
bool x87StackIsEmpty() {
  std::uint32_t environment[7];
  asm volatile("fnstenv %0\n\tfldenv %0" : "+m"(environment));
  return (environment[2] & 0xFFFF) == 0xFFFF;
}

}  // namespace

// Such a function shows nothing of how it computes: no flag is raised, no trap taken. Transforms
// and filters are none, for they keep floats.
bool hasIntegerResults(Call& call) {
  for (const char* kind :
       {"FIR", "IIR", "LMS", "FFT", "DFT", "DCTFwdInit", "DCTInvInit", "WTInv_", "Resample"})
    if (call.function().name.find(kind) != std::string::npos) return false;
  int integers = 0, floats = 0;
  for (const auto& array : call.arrays())
    if (!array->isConst && array->element) ++(array->element->isFloat ? floats : integers);
  return integers > 0 && floats == 0;
}

void checkControlWords(const Function& f, Position& at) {
  constexpr ControlWords settings[] = {
      {allMasked, x87Default},
      {allMasked | roundDown, x87DoubleToZero},
      {allMasked | roundToZero | flushToZero, x87Default},
      {allMasked & ~(trapInvalid | trapZeroDivide | trapOverflow), x87Default},
      {0, x87Default}};
  forLengths(f, at, [&](int length) {
    if (length % 8 != 1 && length > 2) return;
    for (const ControlWords& words : settings) {
      at.detail = "with vector control word " + std::to_string(words.vector);
      Call call(f, {.length = length});
      const bool hides = hasIntegerResults(call);
      if (words.vector == 0 && !hides) continue;
      // A trap loses what such a function has taken for the call.
      if ((words.vector & allMasked) != allMasked && deviation(f, Deviation::ownMemory)) continue;
      ControlWords after = words;
      bool emptyStack = true;
      errno = 0;
      try {
        const UnderControlWords scope(words);
        call.run();
        after = controlWords();
        emptyStack = x87StackIsEmpty();
      } catch (const FloatingPointTrap&) {
        // The caller asked for it; what a trap interrupts need not restore anything.
        if (hides) throw;
      }
      if ((after.vector ^ words.vector) & (hides ? ~0u : ~statusFlags))
        throw Misbehaved("leaves vector control word " + std::to_string(after.vector));
      if (after.x87 != words.x87)
        throw Misbehaved("leaves x87 control word " + std::to_string(after.x87));
      if (!emptyStack) throw Misbehaved("leaves values on the x87 stack");
      if (errno != 0) throw Misbehaved("sets errno");
    }
  });
}

bool hasScaleFactor(const Function& f) {
  const int i = f.indexOf("scaleFactor");
  return i >= 0 && f.type(i).form == Form::value;
}

void checkScaleFactors(const Function& f, Position& at) {
  const int rounding = f.indexOf("roundMode");
  forLengths(f, at, [&](int length) {
    if (length != 1 && length != 17 && length != 64) return;
    for (int mode = 0; mode <= (rounding < 0 ? 0 : 2); ++mode)
      for (const int factor : {INT_MIN, INT_MIN + 1, -1000,  -64, -63, -33, -32, -31, -16, -15, -1,
                               0,       1,           15,     16,  17,  31,  32,  33,  63,  64,  65,
                               1000,    INT_MAX - 1, INT_MAX}) {
        at.detail = "with scale factor " + std::to_string(factor);
        Setting setting{.length = length, .destination = {Edge::start, 0}};
        setting.numbers["scaleFactor"] = factor;
        if (rounding >= 0) setting.numbers["roundMode"] = mode;
        Call aligned(f, setting);
        setting.destination = {Edge::end, 1};
        Call misaligned(f, setting);
        const MoxStatus status = aligned.run();
        if (status < moxOk && status != moxErrRoundMode)
          throw Misbehaved("answers " + std::to_string(status));
        if (misaligned.run() != status) throw Misbehaved("gives another status when misaligned");
        misaligned.requireSameOutputs(aligned, roundingsOfSums(f, length));
      }
  });
}

// Each allocation fails once: the status says so, nothing changes, nothing is lost. Only what makes
// an object, and what may be given a work buffer, takes memory at all.
void checkAllocations(const Function& f, Position& at) {
  const bool keeps = f.name.find("InitAlloc") != std::string::npos;
  const bool hasBuffer = optionalPointer(f, "buffer"), own = deviation(f, Deviation::ownMemory);
  auto settings = otherNumbers(f);
  settings.push_back({});
  for (const Numbers& numbers : settings)
    for (const bool withoutBuffer : {false, true})
      for (int nth = 1; nth < 100; ++nth) {
        at.detail = "with allocation " + std::to_string(nth) + " failing";
        Setting setting;
        // Long enough for a transform that needs work memory, and for one that needs two blocks.
        setting.length = at.length = hasLength(f) && !keeps ? 64 : 4096;
        setting.nullOptional = withoutBuffer;
        setting.numbers = numbers;
        Call call(f, setting);
        CoreProbe probe;
        probe.failAllocation(nth);
        const MoxStatus status = call.run();
        if (probe.allocations() > 0 && !keeps && !own && (!hasBuffer || !withoutBuffer))
          throw Misbehaved("takes memory");
        if (probe.allocations() < nth) {
          if (status < moxOk) throw Misbehaved("answers " + std::to_string(status));
          if (!keeps && probe.live() > 0) throw Misbehaved("keeps memory");
          break;
        }
        if (status != moxErrMemAlloc) throw Misbehaved("answers " + std::to_string(status));
        if (probe.live() != 0) throw Misbehaved("loses memory");
        call.requireUntouched();
      }
}

}  // namespace every
