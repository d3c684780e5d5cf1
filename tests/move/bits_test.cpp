#include "support/guarded_array.h"
#include "support/test.h"

namespace {

using namespace test;

using BitCopy = MoxStatus (*)(const Mox8u*, int, Mox8u*, int, int);

enum class Order { highestFirst, lowestFirst };

int bit(const Mox8u* p, long i, Order order) {
  return p[i / 8] >> (order == Order::highestFirst ? 7 - i % 8 : i % 8) & 1;
}
void setBit(Mox8u* p, long i, Order order, int value) {
  const Mox8u mask = order == Order::highestFirst ? 0x80 >> i % 8 : 1 << i % 8;
  p[i / 8] = Mox8u(value ? p[i / 8] | mask : p[i / 8] & ~mask);
}

void checkBitCopy(BitCopy copy, Order order, Random& random, int srcOffset, int dstOffset,
                  int len) {
  // Arrays of just the bytes that the strings touch.
  GuardedArray<Mox8u> src((srcOffset + len + 7) / 8), dst((dstOffset + len + 7) / 8);
  for (Mox8u& b : src) b = Mox8u(random.bits());
  for (Mox8u& b : dst) b = Mox8u(random.bits());
  std::vector<Mox8u> expected(dst.begin(), dst.end());
  for (long i = 0; i < len; ++i)
    setBit(expected.data(), dstOffset + i, order, bit(src.data(), srcOffset + i, order));
  // What an offset has above its low three bits is of no account.
  ASSERT_OK(copy(src.data(), srcOffset + 8 * int(random.below(3)), dst.data(), dstOffset + 8, len));
  ASSERT_EQ(std::memcmp(dst.data(), expected.data(), dst.size()), 0)
      << "offsets " << srcOffset << ' ' << dstOffset << " len " << len;
}

void checkBitCopies(BitCopy copy, Order order) {
  Random random;
  for (int srcOffset = 0; srcOffset < 8; ++srcOffset)
    for (int dstOffset = 0; dstOffset < 8; ++dstOffset) {
      for (int len = 1; len <= 210; ++len)
        checkBitCopy(copy, order, random, srcOffset, dstOffset, len);
      checkBitCopy(copy, order, random, srcOffset, dstOffset, 4001);
    }
}

TEST(BitCopy, HighestBitFirst) {
  checkBitCopies(moxsCopy_1u, Order::highestFirst);
  checkBitCopies(moxsCopyLE_1u, Order::highestFirst);
}

TEST(BitCopy, LowestBitFirst) { checkBitCopies(moxsCopyBE_1u, Order::lowestFirst); }

void checkPacking(Random& random, int len, int offset, int lowest, int widest) {
  GuardedArray<Mox32u> src(len);
  GuardedArray<int> widths(len);
  int total = 0;
  bool clamped = false;
  for (int i = 0; i < len; ++i) {
    src[i] = Mox32u(random.bits());
    widths[i] = lowest + int(random.below(widest - lowest + 1));
    total += std::clamp(widths[i], 0, 32);
    clamped |= widths[i] < 0 || widths[i] > 32;
  }
  GuardedArray<Mox8u> dst(std::max(1, (offset + total + 7) / 8));
  for (Mox8u& b : dst) b = Mox8u(random.bits());
  std::vector<Mox8u> expected(dst.begin(), dst.end());
  long at = offset;
  for (int i = 0; i < len; ++i)
    for (int k = std::clamp(widths[i], 0, 32) - 1; k >= 0; --k)
      setBit(expected.data(), at++, Order::highestFirst, src[i] >> k & 1);
  int written = -1;
  ASSERT_EQ(moxsPackBits_32u8u(src.data(), widths.data(), len, dst.data(), offset + 16, &written),
            clamped ? moxWarnBitWidth : moxOk);
  ASSERT_EQ(written, total);
  ASSERT_EQ(std::memcmp(dst.data(), expected.data(), dst.size()), 0)
      << "len " << len << " offset " << offset << " widths " << lowest << " to " << widest;
}

TEST(PackBits, AgreesWithSingleBits) {
  Random random;
  for (int offset = 0; offset < 8; ++offset)
    for (int len = 1; len < 40; ++len)
      for (const auto& [lowest, widest] :
           {std::pair(0, 0), {0, 3}, {1, 1}, {0, 32}, {7, 9}, {31, 32}, {32, 32}, {-2, 35}})
        checkPacking(random, len, offset, lowest, widest);
}

TEST(PackBits, ALengthBeyondIntIsTheLargest) {
  const std::vector<int> widths((1 << 26) + 1, 32);
  std::vector<Mox8u> dst(4 * widths.size());
  int bits = 0;
  const auto* src = reinterpret_cast<const Mox32u*>(widths.data());
  EXPECT_OK(moxsPackBits_32u8u(src, widths.data(), int(widths.size()), dst.data(), 0, &bits));
  EXPECT_EQ(bits, std::numeric_limits<int>::max());
}

}  // namespace
