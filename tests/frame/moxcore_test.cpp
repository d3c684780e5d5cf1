#include "support/moxcore.h"
#include "support/test.h"

#include <cpuid.h>

#include <fstream>

namespace {

std::uintptr_t address(const void* p) { return reinterpret_cast<std::uintptr_t>(p); }

TEST(Core, TheLargestBlockIsThereOrRefused) {
  auto* p = static_cast<char*>(moxMalloc(INT_MAX));
  if (!p) GTEST_SKIP() << "no memory for a block of 2 GB";
  p[0] = p[INT_MAX - 1] = 1;
  EXPECT_EQ(address(p) % 64, 0u);
  moxFree(p);
}

TEST(Core, AlignPtrGivesTheFirstMultipleAtOrAfter) {
  char memory[256];
  for (int alignment = 1; alignment <= 64; alignment *= 2)
    for (int i = 0; i < 128; ++i) {
      const auto aligned = address(moxAlignPtr(memory + i, alignment));
      const auto multiple = std::uintptr_t(alignment);
      const auto expected = (address(memory + i) + multiple - 1) / multiple * multiple;
      ASSERT_EQ(aligned, expected) << "alignment " << alignment << ", byte " << i;
    }
}

TEST(Core, FeaturesAgreeWithTheProcessor) {
  unsigned eax, ebx, ecx, edx;
  ASSERT_TRUE(__get_cpuid(1, &eax, &ebx, &ecx, &edx));
  const std::uint64_t features = moxGetEnabledCpuFeatures();
  EXPECT_EQ((features & mox::cpuAvx) != 0, (ecx & bit_AVX) != 0);
  EXPECT_EQ((features & mox::cpuHalfFloat) != 0, (ecx & bit_F16C) != 0);
  EXPECT_TRUE(features & mox::cpuWideState) << "the tests themselves run on wide registers";
}

TEST(Core, AFeatureMaskNeedsAllItsBits) {
  const std::uint64_t features = moxGetEnabledCpuFeatures();
  constexpr std::uint64_t absent = std::uint64_t(1) << 40;
  ASSERT_FALSE(features & absent);
  EXPECT_TRUE(ownGetFeature(0));
  EXPECT_TRUE(ownGetFeature(features));
  EXPECT_FALSE(ownGetFeature(absent));
  EXPECT_FALSE(ownGetFeature(features | absent));
}

}  // namespace
