#include <cpuid.h>

#include <atomic>

#include "support/moxcore.h"

namespace {

struct CpuidResult {
  unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
};

CpuidResult cpuid(unsigned leaf) {
  CpuidResult r;
  __get_cpuid_count(leaf, 0, &r.eax, &r.ebx, &r.ecx, &r.edx);
  return r;
}

// What the system saves when it changes threads: bits 1 and 2 stand for the two halves of registers
// of 32 bytes, bits 5 to 7 for those of 64 bytes and their masks.
unsigned savedState() {
  constexpr unsigned osxsave = 1u << 27;
  if (!(cpuid(1).ecx & osxsave)) return 0;
  unsigned low, high;
  asm("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
  return low;
}

std::uint64_t findFeatures() {
  constexpr unsigned avx = 1u << 28, f16c = 1u << 29;
  constexpr unsigned avx2 = 1u << 5, avx512 = 1u << 16 | 1u << 17 | 1u << 30 | 1u << 31;
  const unsigned saved = savedState(), has = cpuid(1).ecx, hasMore = cpuid(7).ebx;
  if ((saved & 6) != 6) return 0;
  std::uint64_t features = mox::cpuWideState;
  if (has & avx) features |= mox::cpuAvx;
  if (has & f16c) features |= mox::cpuHalfFloat;
  if (hasMore & avx2) features |= mox::cpuAvx2;
  if ((hasMore & avx512) == avx512 && (saved & 0xE0) == 0xE0) features |= mox::cpuAvx512;
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
