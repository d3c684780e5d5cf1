// The tools that objects are made of: layout, work memory, identifier.
#include "frame/object.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "frame/arena.h"
#include "frame/work_buffer.h"
#include "support/core_probe.h"

namespace {

using mox::Arena;
using mox::WorkBuffer;

struct Parts {
  Mox8u* bytes;
  Mox64f* table;
  Mox32f* line;
};

std::size_t layOut(Arena arena, int n, Parts& parts) {
  parts.bytes = arena.place<Mox8u>(std::size_t(n));
  parts.table = arena.place<Mox64f>(std::size_t(n));
  parts.line = arena.place<Mox32f>(std::size_t(n), 32);
  return arena.used();
}

TEST(Arena, MeasuresWhatItPlaces) {
  alignas(64) std::byte memory[2048];
  for (int n = 0; n < 70; ++n) {
    Parts measured, placed;
    const std::size_t size = layOut(Arena(), n, measured);
    EXPECT_EQ(layOut(Arena(memory), n, placed), size) << n;
    EXPECT_EQ(measured.table, nullptr);

    const auto offset = [&](const void* p) { return std::size_t((const std::byte*)p - memory); };
    EXPECT_EQ(offset(placed.bytes), 0u);
    EXPECT_EQ(offset(placed.table) % alignof(Mox64f), 0u);
    EXPECT_EQ(offset(placed.line) % 32, 0u);
    EXPECT_GE(offset(placed.table), std::size_t(n)) << "parts overlap";
    EXPECT_GE(offset(placed.line), offset(placed.table) + 8 * std::size_t(n)) << "parts overlap";
    EXPECT_EQ(size, offset(placed.line) + 4 * std::size_t(n));
  }
}

TEST(WorkBuffer, UsesTheCallersMemoryAligned) {
  alignas(64) std::byte memory[192];
  CoreProbe probe;
  for (int i = 0; i <= 64; ++i) {
    const WorkBuffer work(memory + i, 64);
    ASSERT_FALSE(work.failed());
    EXPECT_EQ(work.as<std::byte>(), memory + (i + 63) / 64 * 64);
  }
  EXPECT_EQ(probe.allocations(), 0);
}

TEST(WorkBuffer, TakesMemoryForItsScope) {
  CoreProbe probe;
  {
    const WorkBuffer work(nullptr, 1000);
    ASSERT_FALSE(work.failed());
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(work.as<void>()) % WorkBuffer::alignment, 0u);
    std::memset(work.as<void>(), 1, 1000);
    EXPECT_EQ(probe.live(), 1);
  }
  EXPECT_EQ(probe.live(), 0);
}

TEST(WorkBuffer, NeedsNothingForNoBytes) {
  CoreProbe probe;
  const WorkBuffer work(nullptr, 0);
  EXPECT_FALSE(work.failed());
  EXPECT_EQ(work.as<void>(), nullptr);
  EXPECT_EQ(probe.allocations(), 0);
}

TEST(WorkBuffer, SaysWhenThereIsNoMemory) {
  CoreProbe probe;
  probe.failAllocation(1);
  const WorkBuffer work(nullptr, 64);
  EXPECT_TRUE(work.failed());
  EXPECT_EQ(probe.live(), 0);
}

TEST(Identifier, ReadsAsFourCharacters) {
  EXPECT_EQ(mox::objectWord("FI", 1), 0x46493031);   // "FI01"
  EXPECT_EQ(mox::objectWord("FI", 34), 0x46493334);  // "FI34"
}

TEST(Identifier, AcceptsOneOfSeveralAndNoOther) {
  struct {
    Mox32s id;
  } object{mox::objectWord("FI", 7)};
  EXPECT_EQ(mox::requireId(&object, mox::objectWord("FI", 3), mox::objectWord("FI", 7)), moxOk);
  EXPECT_EQ(mox::requireId(&object, mox::objectWord("FI", 3)), moxErrContext);
  object.id = 0;
  EXPECT_EQ(mox::requireId(&object, mox::objectWord("FI", 7)), moxErrContext);
}

}  // namespace
