#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <cstring>

#include "support/guarded_array.h"
#include "support/random.h"

namespace {

using test::Guard;
using test::GuardedBytes;

template <class E>
struct Functions {
  MoxStatus (*plain)(const E*, E*, int);
  MoxStatus (*inPlace)(E*, int);
};

// Guarded memory for many arrays, each `offset` bytes away from the inaccessible page.
class Room {
 public:
  explicit Room(Guard side) : side_(side), memory_(capacity, side) {}

  std::byte* at(int offset, int bytes) const {
    return side_ == Guard::before ? memory_.data() + offset
                                  : memory_.data() + capacity - bytes - offset;
  }

 private:
  static constexpr int capacity = 8192;
  Guard side_;
  GuardedBytes memory_;
};

// Against a loop over elements of `size` bytes, at every length and offset. `place(i, len, k)` is
// the byte of the source that belongs at byte k of element i.
template <class E, class Place>
void check(Functions<E> f, int size, Place place) {
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  for (const Guard side : {Guard::before, Guard::after}) {
    const Room srcRoom(side), dstRoom(side);
    for (int len = 1; len <= 200; len += 1 + len / 90)
      for (int offset = 0; offset < 33; offset += 1 + offset / 9) {
        const int bytes = len * size;
        std::byte* const src = srcRoom.at(0, bytes);
        std::byte* const dst = dstRoom.at(offset, bytes);
        // The byte on the side that no page guards.
        std::byte* const beside = side == Guard::before ? dst + bytes : dst - 1;
        std::vector<std::byte> expected(bytes);
        for (int i = 0; i < bytes; ++i) src[i] = std::byte(random.bits());
        for (int i = 0; i < len; ++i)
          for (int k = 0; k < size; ++k) expected[i * size + k] = src[place(i, len, k)];
        *beside = std::byte(0x5A);
        const auto holds = [&](const std::byte* bytesThere) {
          return std::memcmp(dst, bytesThere, bytes) == 0 && *beside == std::byte(0x5A);
        };
        E* const array = reinterpret_cast<E*>(dst);
        ASSERT_EQ(f.plain(reinterpret_cast<E*>(src), array, len), moxOk);
        ASSERT_TRUE(holds(expected.data())) << "len " << len << " offset " << offset;
        std::memcpy(dst, src, bytes);
        ASSERT_EQ(f.inPlace(array, len), moxOk);
        ASSERT_TRUE(holds(expected.data())) << "in place, len " << len << " offset " << offset;
        ASSERT_EQ(f.plain(array, array, len), moxOk);  // and back
        ASSERT_TRUE(holds(src)) << "equal arrays, len " << len << " offset " << offset;
      }
  }
  E e[2] = {};
  EXPECT_EQ(f.plain(nullptr, nullptr, 0), moxErrNullPtr);
  EXPECT_EQ(f.plain(nullptr, e, 1), moxErrNullPtr);
  EXPECT_EQ(f.plain(e, nullptr, 1), moxErrNullPtr);
  EXPECT_EQ(f.plain(e, e, 0), moxErrSize);
  EXPECT_EQ(f.plain(e, e + 1, -1), moxErrSize);
  EXPECT_EQ(f.inPlace(nullptr, 0), moxErrNullPtr);
  EXPECT_EQ(f.inPlace(e, 0), moxErrSize);
}

template <class E>
void checkFlip(Functions<E> f) {
  constexpr int size = sizeof(E);
  check(f, size, [](int i, int len, int k) { return (len - 1 - i) * size + k; });
}

TEST(Flip, ReversesTheElements) {
  checkFlip<Mox8u>({moxsFlip_8u, moxsFlip_8u_I});
  checkFlip<Mox16u>({moxsFlip_16u, moxsFlip_16u_I});
  checkFlip<Mox32f>({moxsFlip_32f, moxsFlip_32f_I});
  checkFlip<Mox32fc>({moxsFlip_32fc, moxsFlip_32fc_I});
  checkFlip<Mox64f>({moxsFlip_64f, moxsFlip_64f_I});
  checkFlip<Mox64fc>({moxsFlip_64fc, moxsFlip_64fc_I});
}

template <class E>
void checkSwap(Functions<E> f, int size) {
  check(f, size, [size](int i, int, int k) { return i * size + size - 1 - k; });
}

TEST(SwapBytes, ReversesTheBytesOfEachElement) {
  checkSwap<Mox16u>({moxsSwapBytes_16u, moxsSwapBytes_16u_I}, 2);
  checkSwap<Mox8u>({moxsSwapBytes_24u, moxsSwapBytes_24u_I}, 3);
  checkSwap<Mox32u>({moxsSwapBytes_32u, moxsSwapBytes_32u_I}, 4);
  checkSwap<Mox64u>({moxsSwapBytes_64u, moxsSwapBytes_64u_I}, 8);
}

}  // namespace
