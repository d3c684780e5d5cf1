#include <sys/mman.h>
#include <unistd.h>
#include <x86intrin.h>

#include "support/guarded_array.h"
#include "support/test.h"

namespace {

using namespace test;

using Bytes = std::vector<Mox8u>;

// Each array ends so far before an inaccessible page.
void checkCopy(Random& random, int len, int srcOffset, int dstOffset) {
  const GuardedArray<Mox8u> from(len + srcOffset), to(len + dstOffset + 32);
  for (Mox8u& b : from) b = Mox8u(random.bits());
  std::fill(to.begin(), to.end(), 0x5A);
  Bytes expected(to.begin(), to.end());
  std::copy_n(from.begin(), len, expected.begin() + 32);
  ASSERT_OK(moxsCopy_8u(from.data(), to.data() + 32, len));
  ASSERT_EQ(std::memcmp(to.data(), expected.data(), to.size()), 0)
      << "len " << len << " offsets " << srcOffset << ' ' << dstOffset;
}

// Around the string move, for each distance modulo 4 and where loads and stores share a page line,
// and so long that stores may bypass the cache. Every function is tested at short lengths.
TEST(Copy, LongLengthsAtEveryDistanceOfAlignment) {
  Random random;
  for (const int len : {32767, 32768, 32769, 40003, 40004, 40005, 40006})
    for (int srcOffset = 0; srcOffset < 4; ++srcOffset)
      for (const int dstOffset : {0, 1, 2, 3, 66, 130})
        checkCopy(random, len, srcOffset, dstOffset);
  for (const int dstOffset : {0, 1}) checkCopy(random, 34 << 20 | 13, 2, dstOffset);
}

TEST(Copy, DirectionFlagIsIgnoredAndKept) {
  const Bytes src(50000, 7);
  Bytes dst(50000);
  asm volatile("std");
  const MoxStatus status = moxsCopy_8u(src.data(), dst.data(), 50000);
  const bool kept = __readeflags() >> 10 & 1;
  asm volatile("cld");
  EXPECT_OK(status);
  EXPECT_TRUE(kept);
  EXPECT_EQ(dst, src);
}

// 2 GiB of addresses over one MiB of memory, but for the last page.
constexpr std::size_t chunk = 1 << 20, page = 4096, huge = (std::size_t(2) << 30) + page;
Mox8u* hugeArray() {
  const int file = memfd_create("huge", 0), access = PROT_READ | PROT_WRITE;
  if (ftruncate(file, chunk + page)) throw std::bad_alloc();
  constexpr int reserved = MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE;
  Mox8u* const base = static_cast<Mox8u*>(mmap(nullptr, huge, PROT_NONE, reserved, -1, 0));
  for (std::size_t at = 0; at + chunk < huge; at += chunk)
    mmap(base + at, chunk, access, MAP_SHARED | MAP_FIXED, file, 0);
  mmap(base + huge - page, page, access, MAP_SHARED | MAP_FIXED, file, chunk);
  close(file);
  return base;
}

TEST(Copy, ByteCountsBeyondAnInt) {
  Mox8u *const src = hugeArray(), *const dst = hugeArray();
  std::memset(src, 3, chunk);
  src[huge - 1] = 9;
  ASSERT_OK(moxsCopy_64fc(reinterpret_cast<Mox64fc*>(src), reinterpret_cast<Mox64fc*>(dst),
                          int(huge / sizeof(Mox64fc))));
  EXPECT_EQ(std::memcmp(src, dst, chunk), 0);
  EXPECT_EQ(dst[huge - 1], 9);
  munmap(src, huge), munmap(dst, huge);
}

void checkMove(const Bytes& before, int src, int dst, int len) {
  Bytes after = before, expected = before;
  ASSERT_OK(moxsMove_8u(after.data() + src, after.data() + dst, len));
  for (int i = 0; i < len; ++i) expected[dst + i] = before[src + i];
  ASSERT_EQ(after, expected) << "from " << src << " to " << dst << " len " << len;
}

TEST(Move, Overlaps) {
  const Bytes few = Random().vector<Mox8u>(160), more = Random().vector<Mox8u>(1500),
              many = Random().vector<Mox8u>(110100);
  for (int len = 1; len <= 80; ++len)
    for (int src = 0; src < 80; src += 1 + src / 20)
      for (int dst = 0; dst < 80; ++dst) checkMove(few, src, dst, len);
  for (const int len : {128, 129, 255, 256, 257, 288, 289, 320, 511, 700, 1001})
    for (int src = 200; src < 233; src += 3)
      for (int dst = 0; dst < 430; dst += 1 + (dst % 7 == 0)) checkMove(more, src, dst, len);
  for (const int len : {32767, 32768, 100000})
    for (const int distance : {-5000, -4096, -4092, -64, -33, -32, -4, -3,  -2,   -1,   0,
                               1,     2,     3,     4,   31,  32,  64, 100, 4095, 4100, 5000})
      checkMove(many, 5001, 5001 + distance, len);
}

}  // namespace
