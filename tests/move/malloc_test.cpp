#include "support/core_probe.h"
#include "support/test.h"

namespace {

struct Member {
  const char* name;
  void* (*allocate)(int len);
  std::size_t elementBytes;
};

#define MEMBER(t)                                                                          \
  {                                                                                        \
    "moxsMalloc_" #t, [](int len) -> void* { return moxsMalloc_##t(len); }, sizeof(Mox##t) \
  }
const Member members[] = {MEMBER(8u),  MEMBER(8s),   MEMBER(16u),  MEMBER(16s),  MEMBER(8sc),
                          MEMBER(32u), MEMBER(32s),  MEMBER(32f),  MEMBER(16sc), MEMBER(64s),
                          MEMBER(64f), MEMBER(32sc), MEMBER(32fc), MEMBER(64sc), MEMBER(64fc)};
#undef MEMBER

// The allocator is asked for `len` elements to the byte; the sanitizer watches the last one.
TEST(Malloc, GivesAlignedRoomForItsElements) {
  for (const Member& m : members)
    for (int len : {1, 2, 15, 16, 17, 1000}) {
      SCOPED_TRACE(m.name + std::string(" of ") + std::to_string(len));
      CoreProbe probe;
      void* p = m.allocate(len);
      ASSERT_NE(p, nullptr);
      EXPECT_EQ(probe.lastBytes(), long(len) * long(m.elementBytes));
      EXPECT_EQ(reinterpret_cast<std::uintptr_t>(p) % 64, 0u);
      std::memset(p, 1, std::size_t(len) * m.elementBytes);
      moxsFree(p);
      EXPECT_EQ(probe.live(), 0);
    }
}

TEST(Malloc, GivesNothingForLengthsBelowOneOrWhenMemoryIsShort) {
  for (const Member& m : members) {
    SCOPED_TRACE(m.name);
    CoreProbe probe;
    for (int len : {0, -1, INT_MIN}) EXPECT_EQ(m.allocate(len), nullptr) << len;
    EXPECT_EQ(probe.allocations(), 0);
    probe.failAllocation(1);
    EXPECT_EQ(m.allocate(8), nullptr);
    moxsFree(nullptr);
  }
}

}  // namespace
