// The only door to the platform: memory and facts about the processor.
#pragma once

#include <cstdint>

extern "C" {

// A block aligned to 64 bytes, or null: also for a count that is not positive.
void* moxMalloc(int bytes);
// Releases a block of moxMalloc; a null pointer is fine.
void moxFree(void* p);
// `p` rounded up to a multiple of `alignment`, a power of two.
void* moxAlignPtr(void* p, int alignment);
// What the processor has and the system lets us use.
std::uint64_t moxGetEnabledCpuFeatures();
// Non-zero when all features of the mask are enabled.
int ownGetFeature(std::uint64_t mask);
}

namespace mox {

// Bits of the feature mask.
constexpr std::uint64_t cpuAvx = 0x10;
constexpr std::uint64_t cpuWideState = 0x20;  // the system saves the 32-byte registers
constexpr std::uint64_t cpuHalfFloat = 0x4000;
constexpr std::uint64_t cpuAvx2 = 0x40;
constexpr std::uint64_t cpuAvx512 = 0x80;  // F, BW, DQ and VL, and the system saves the registers

}  // namespace mox
