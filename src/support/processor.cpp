#include <cpuid.h>

#include <atomic>

#include "support/moxcore.h"

namespace {

struct CpuidResult {
  unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
};

CpuidResult cpuid(unsigned leaf) {
  CpuidResult r;
  __get_cpuid(leaf, &r.eax, &r.ebx, &r.ecx, &r.edx);
  return r;
}

// Bits 1 and 2 of the extended control register stand for the two halves of the wide registers.
bool systemSavesWideState() {
  constexpr unsigned osxsave = 1u << 27;
  if (!(cpuid(1).ecx & osxsave)) return false;
  unsigned low, high;
  asm("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
  return (low & 6) == 6;
}

std::uint64_t findFeatures() {
  constexpr unsigned avx = 1u << 28, f16c = 1u << 29;
  if (!systemSavesWideState()) return 0;
  const unsigned has = cpuid(1).ecx;
  std::uint64_t features = mox::cpuWideState;
  if (has & avx) features |= mox::cpuAvx;
  if (has & f16c) features |= mox::cpuHalfFloat;
  return features;
}

// Under a hypervisor each CPUID instruction costs microseconds, so the answer is kept. Threads
// that race to fill it in write the same value; 0 is "not asked yet".
std::atomic<std::uint64_t> enabledFeatures = 0;
constexpr std::uint64_t featuresKnown = std::uint64_t(1) << 63;

}  // namespace

std::uint64_t moxGetEnabledCpuFeatures() {
  std::uint64_t features = enabledFeatures.load(std::memory_order_relaxed);
  if (features == 0)
    enabledFeatures.store(features = findFeatures() | featuresKnown, std::memory_order_relaxed);
  return features & ~featuresKnown;
}

int ownGetFeature(std::uint64_t mask) { return (moxGetEnabledCpuFeatures() & mask) == mask; }
