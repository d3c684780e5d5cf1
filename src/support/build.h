// The instruction set that this build is made for, and what it needs of a processor.
#pragma once

#include "support/moxcore.h"

#if defined MOXSP_AVX512
#define MOX_BUILD_NAME "AVX-512"
#define MOX_BUILD_CODE "v9"
#elif defined MOXSP_AVX2
#define MOX_BUILD_NAME "AVX2"
#define MOX_BUILD_CODE "v8"
#else
#define MOX_BUILD_NAME "AVX"
#define MOX_BUILD_CODE "v7"
#endif

namespace mox {

#if defined MOXSP_AVX512
constexpr std::uint64_t cpuNeeded = cpuAvx | cpuWideState | cpuAvx2 | cpuAvx512;
#elif defined MOXSP_AVX2
constexpr std::uint64_t cpuNeeded = cpuAvx | cpuWideState | cpuAvx2;
#else
constexpr std::uint64_t cpuNeeded = cpuAvx | cpuWideState;
#endif

}  // namespace mox
