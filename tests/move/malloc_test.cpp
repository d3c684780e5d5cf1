#include "support/core_probe.h"
#include "support/test.h"

namespace {

struct Member {
  const char* name;
  void* (*allocate)(int len);
  std::size_t elementBytes;
};

#define MEMBER(type, token)                                                                      \
  {                                                                                              \
    "moxsMalloc_" #token, [](int len) -> void* { return moxsMalloc_##token(len); }, sizeof(type) \
  }
const Member members[] = {
    MEMBER(Mox8u, 8u),     MEMBER(Mox8s, 8s),     MEMBER(Mox16u, 16u),   MEMBER(Mox16s, 16s),
    MEMBER(Mox8sc, 8sc),   MEMBER(Mox32u, 32u),   MEMBER(Mox32s, 32s),   MEMBER(Mox32f, 32f),
    MEMBER(Mox16sc, 16sc), MEMBER(Mox64s, 64s),   MEMBER(Mox64f, 64f),   MEMBER(Mox32sc, 32sc),
    MEMBER(Mox32fc, 32fc), MEMBER(Mox64sc, 64sc), MEMBER(Mox64fc, 64fc),
};
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
  }
}

TEST(Malloc, FreeTakesNull) { moxsFree(nullptr); }

}  // namespace
