#include <cpuid.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>

#include "support/moxcore.h"

namespace {

struct CpuidResult {
  unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
};

CpuidResult cpuid(unsigned leaf, unsigned subleaf = 0) {
  CpuidResult r;
  __get_cpuid_count(leaf, subleaf, &r.eax, &r.ebx, &r.ecx, &r.edx);
  return r;
}

// The leaf of deterministic cache parameters: one subleaf a cache, an entry of type 0 ends it.
long largestCache(unsigned leaf) {
  enum { none = 0, data = 1, unified = 3 };
  long largest = 0;
  for (unsigned i = 0; i < 16; ++i) {
    const CpuidResult r = cpuid(leaf, i);
    const unsigned type = r.eax & 31;
    if (type == none) break;
    if (type != data && type != unified) continue;
    const long ways = (r.ebx >> 22) + 1, partitions = (r.ebx >> 12 & 1023) + 1;
    const long line = (r.ebx & 4095) + 1, sets = long(r.ecx) + 1;
    largest = std::max(largest, ways * partitions * line * sets);
  }
  return largest;
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

long findMaxCacheSize() {
  long size = std::max(largestCache(4), largestCache(0x8000001Du));
  for (int level : {_SC_LEVEL3_CACHE_SIZE, _SC_LEVEL2_CACHE_SIZE, _SC_LEVEL1_DCACHE_SIZE})
    if (size <= 0) size = sysconf(level);
  return std::clamp(size, -1L, 0x7FFFFFFFL);
}

// Under a hypervisor each CPUID instruction costs microseconds, so the answers are kept. Threads
// that race to fill them in write the same value; 0 is "not asked yet".
std::atomic<long> maxCacheSize = 0;
std::atomic<std::uint64_t> enabledFeatures = 0;
constexpr std::uint64_t featuresKnown = std::uint64_t(1) << 63;

}  // namespace

int moxGetMaxCacheSizeB(int* bytes) {
  long size = maxCacheSize.load(std::memory_order_relaxed);
  if (size == 0) maxCacheSize.store(size = findMaxCacheSize(), std::memory_order_relaxed);
  if (size <= 0) return -1;
  *bytes = int(size);
  return 0;
}

std::uint64_t moxGetEnabledCpuFeatures() {
  std::uint64_t features = enabledFeatures.load(std::memory_order_relaxed);
  if (features == 0)
    enabledFeatures.store(features = findFeatures() | featuresKnown, std::memory_order_relaxed);
  return features & ~featuresKnown;
}

int ownGetFeature(std::uint64_t mask) { return (moxGetEnabledCpuFeatures() & mask) == mask; }
