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

// Against a loop over elements of `size` bytes, at every length and offset, with an inaccessible
// page on either side. `place(i, len, k)` is the byte of the source that belongs at byte k of
// element i.
template <class E, class Place>
void check(Functions<E> f, int size, Place place) {
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  for (int len = 1; len <= 200; len += 1 + len / 90)
    for (int offset = 0; offset < 33; offset += 1 + offset / 9)
      for (const Guard side : {Guard::before, Guard::after}) {
        const int bytes = len * size, at = side == Guard::after ? 0 : offset;
        const GuardedBytes src(bytes, side), dst(bytes + offset, side), both(bytes + offset, side);
        const auto array = [&](const GuardedBytes& memory) {
          return reinterpret_cast<E*>(memory.data() + at);
        };
        std::vector<std::byte> expected(bytes);
        for (int i = 0; i < bytes; ++i) src.data()[i] = std::byte(random.bits());
        for (int i = 0; i < len; ++i)
          for (int k = 0; k < size; ++k) expected[i * size + k] = src.data()[place(i, len, k)];
        ASSERT_EQ(f.plain(reinterpret_cast<E*>(src.data()), array(dst), len), moxOk);
        ASSERT_EQ(std::memcmp(array(dst), expected.data(), bytes), 0)
            << "len " << len << " offset " << offset;
        std::memcpy(array(both), src.data(), bytes);
        ASSERT_EQ(f.inPlace(array(both), len), moxOk);
        ASSERT_EQ(std::memcmp(array(both), expected.data(), bytes), 0)
            << "in place, len " << len << " offset " << offset;
        ASSERT_EQ(f.plain(array(both), array(both), len), moxOk);  // and back
        ASSERT_EQ(std::memcmp(array(both), src.data(), bytes), 0) << "equal arrays, len " << len;
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
