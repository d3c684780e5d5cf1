// Peels, blocks and tails: each function at every length and alignment against itself, one element
// at a time.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <cstring>
#include <functional>
#include <vector>

#include "support/core_probe.h"
#include "support/guarded_array.h"
#include "support/random.h"

namespace {

using Call = std::function<MoxStatus(const std::byte*, std::byte*, int)>;

// Results stand between bytes that must not change, against a page that must not be touched, in
// front of it and behind it.
void expectElementwise(const char* name, int srcBytes, int dstBytes, const Call& call) {
  SCOPED_TRACE(name);
  constexpr int longest = 70, room = 1024;
  test::Random random;
  std::vector<std::byte> source(longest * srcBytes), expected(longest * dstBytes);
  for (std::byte& b : source) b = std::byte(random.bits());
  for (int i = 0; i < longest; ++i)
    ASSERT_EQ(call(source.data() + i * srcBytes, expected.data() + i * dstBytes, 1), moxOk);
  for (const auto side : {test::Guard::before, test::Guard::after}) {
    const test::GuardedBytes src(room, side), dst(room, side);
    for (int len = 1; len <= longest; ++len)
      for (int offset = 0; offset < 32; ++offset) {
        const auto place = [&](std::byte* base, int from, int bytes) {
          return base + (side == test::Guard::before ? from : room - from - bytes);
        };
        std::byte* const from = place(src.data(), offset * 5 % 32, len * srcBytes);
        std::byte* const to = place(dst.data(), offset, len * dstBytes);
        std::memcpy(from, source.data(), len * srcBytes);
        std::vector<std::byte> all(room, std::byte(0xA5));
        std::memcpy(dst.data(), all.data(), room);
        std::memcpy(all.data() + (to - dst.data()), expected.data(), len * dstBytes);
        ASSERT_EQ(call(from, to, len), moxOk);
        ASSERT_EQ(std::memcmp(dst.data(), all.data(), room), 0)
            << "len " << len << ", offset " << offset;
      }
  }
}

template <class S, class D, class... P, class... A>
void sweep(const char* name, int srcBytes, int dstBytes, MoxStatus (*f)(const S*, D*, int, P...),
           A... parameters) {
  expectElementwise(name, srcBytes, dstBytes, [=](const std::byte* src, std::byte* dst, int len) {
    return f(reinterpret_cast<const S*>(src), reinterpret_cast<D*>(dst), len, parameters...);
  });
}

#define SWEEP(srcBytes, dstBytes, name, ...) \
  sweep(#name, srcBytes, dstBytes, moxsConvert_##name __VA_OPT__(, ) __VA_ARGS__)

TEST(ConvertAlignment, WideningAgreesWithSingleElements) {
  SWEEP(1, 2, 8s16s);
  SWEEP(1, 4, 8s32f);
  SWEEP(1, 4, 8u32f);
  SWEEP(2, 4, 16s32s);
  SWEEP(2, 4, 16s32f);
  SWEEP(2, 4, 16u32f);
  SWEEP(3, 4, 24s32s);
  SWEEP(3, 4, 24s32f);
  SWEEP(3, 4, 24u32u);
  SWEEP(3, 4, 24u32f);
  SWEEP(4, 4, 32s32f);
  SWEEP(4, 8, 32s64f);
  SWEEP(4, 8, 32f64f);
  SWEEP(8, 8, 64s64f);
  SWEEP(8, 4, 64f32f);
  for (int factor : {3, 130, 1025}) {
    SWEEP(2, 4, 16s32f_Sfs, factor);
    SWEEP(2, 8, 16s64f_Sfs, factor);
    SWEEP(4, 4, 32s32f_Sfs, factor);
    SWEEP(4, 8, 32s64f_Sfs, factor);
  }
}

TEST(ConvertAlignment, NarrowingAgreesWithSingleElements) {
  for (int factor : {0, 5, -5}) {
    SWEEP(2, 1, 16s8s_Sfs, factor);
    SWEEP(4, 2, 32s16s_Sfs, factor);
    SWEEP(4, 3, 32s24s_Sfs, factor);
    SWEEP(4, 3, 32u24u_Sfs, factor);
    SWEEP(8, 4, 64s32s_Sfs, factor);
  }
  SWEEP(4, 2, 32s16s);
  for (int mode : {0, 1, 2})
    for (int factor : {0, 140}) {
      SWEEP(4, 1, 32f8s_Sfs, mode, factor);
      SWEEP(4, 1, 32f8u_Sfs, mode, factor);
      SWEEP(4, 2, 32f16s_Sfs, mode, factor);
      SWEEP(4, 2, 32f16u_Sfs, mode, factor);
      SWEEP(4, 3, 32f24s_Sfs, mode, factor);
      SWEEP(4, 3, 32f24u_Sfs, mode, factor);
      SWEEP(4, 4, 32f32s_Sfs, mode, factor);
      SWEEP(8, 2, 64f16s_Sfs, mode, factor);
      SWEEP(8, 4, 64f32s_Sfs, mode, factor);
      SWEEP(8, 8, 64f64s_Sfs, mode, factor);
    }
}

TEST(ConvertAlignment, HalfFloatsAgreeWithSingleElementsOnBothPaths) {
  const auto sweepAll = [] {
    SWEEP(2, 4, 16f32f);
    for (int mode : {0, 1}) {
      SWEEP(4, 2, 32f16f, mode);
      SWEEP(2, 2, 16s16f, mode);
      SWEEP(2, 2, 16f16s_Sfs, mode, -2);
    }
  };
  sweepAll();
  CoreProbe probe;
  probe.fixFeatures(0);
  sweepAll();
}

// Long enough for the stores that bypass the cache, from an address that is no vector boundary.
TEST(ConvertAlignment, LargeArraysAgreeWithSmallOnes) {
  constexpr int len = (9 << 20) / 2;
  test::Random random;
  std::vector<Mox16s> src(len), back(len + 1);
  for (Mox16s& x : src) x = random.value<Mox16s>();
  std::vector<Mox32f> wide(len + 1);
  ASSERT_EQ(moxsConvert_16s32f(src.data(), wide.data() + 1, len), moxOk);
  for (int i = 0; i < len; ++i) ASSERT_EQ(wide[i + 1], src[i]);
  ASSERT_EQ(moxsConvert_32f16s_Sfs(wide.data() + 1, back.data() + 1, len, 1, 0), moxOk);
  for (int i = 0; i < len; ++i) ASSERT_EQ(back[i + 1], src[i]);
}

}  // namespace
