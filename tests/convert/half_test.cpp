#include <gtest/gtest.h>
#include <moxsp.h>

#include <bit>
#include <climits>
#include <cmath>
#include <vector>

#include "convert/exact_model.h"
#include "support/core_probe.h"
#include "support/float_environment.h"
#include "support/moxcore.h"
#include "support/random.h"

namespace {

// Runs a check with the instructions, where this processor has them, and in software.
template <class Check>
void onBothPaths(Check check) {
  if (ownGetFeature(mox::cpuHalfFloat)) check("instructions");
  CoreProbe probe;
  probe.fixFeatures(0);
  check("software");
}

// A half float from its definition.
Mox32u decoded(Mox16f half) {
  const Mox32u sign = half >> 15, exponent = half >> 10 & 31, fraction = half & 1023;
  if (exponent == 31) return sign << 31 | 0x7F800000 | fraction << 13 | (fraction ? 0x400000 : 0);
  const float value = exponent ? std::ldexp(1024.0f + fraction, int(exponent) - 25)
                               : std::ldexp(float(fraction), -24);
  return std::bit_cast<Mox32u>(value) | sign << 31;
}

// The magnitude in units of the half float's last place, rounded; exact in doubles.
Mox16f encoded(Mox32f x, bool nearest) {
  const Mox32u bits = std::bit_cast<Mox32u>(x);
  const Mox16f sign = Mox16f(bits >> 16 & 0x8000);
  if (std::isnan(x)) return Mox16f(sign | 0x7E00 | (bits >> 13 & 1023));
  if (std::isinf(x)) return Mox16f(sign | 0x7C00);
  int exponent;
  std::frexp(std::fabs(x), &exponent);  // in 2^(exponent - 1) to 2^exponent
  exponent = x == 0 ? -13 : std::max(exponent, -13);
  const double units = std::ldexp(std::fabs(double(x)), 11 - exponent);
  double whole = std::floor(units);
  const double rest = units - whole;
  if (nearest && (rest > 0.5 || (rest == 0.5 && std::fmod(whole, 2) == 1))) ++whole;
  // A carry out of the fraction raises the exponent by itself.
  const double code = (exponent + 13) * 1024.0 + whole;
  if (code >= 0x7C00) return Mox16f(sign | (nearest ? 0x7C00 : 0x7BFF));
  return Mox16f(sign | Mox16f(code));
}

std::vector<Mox16f> allHalves() {
  std::vector<Mox16f> halves(65536);
  for (int i = 0; i < 65536; ++i) halves[i] = Mox16f(i);
  return halves;
}

TEST(Half, AllPatternsWidenToTheBitOnBothPaths) {
  const auto src = allHalves();
  std::vector<Mox32f> dst(src.size());
  for (int rounding : test::allRoundings)
    onBothPaths([&](const char* path) {
      const test::UnderRounding environment(rounding);
      ASSERT_EQ(moxsConvert_16f32f(src.data(), dst.data(), int(src.size())), moxOk);
      for (std::size_t i = 0; i < src.size(); ++i)
        ASSERT_EQ(std::bit_cast<Mox32u>(dst[i]), decoded(src[i])) << path << " of " << src[i];
    });
}

// Every half float and its middle to the next, each with its neighbours; NaN of all kinds.
std::vector<Mox32f> floatsToEncode() {
  std::vector<Mox32f> values;
  for (Mox32u half = 0; half <= 0x7C01; ++half) {
    const Mox32u at = half < 0x7C00 ? decoded(Mox16f(half)) : 0x47800000 + (half - 0x7C00);
    for (Mox32u offset : {0u, 0x0FFFu, 0x1000u, 0x1001u, 0x1FFFu})
      for (Mox32u sign : {0u, 0x80000000u})
        values.push_back(std::bit_cast<Mox32f>((at + offset) | sign));
  }
  for (Mox32u bits : {0x7F800000u, 0x7F800001u, 0x7FBFFFFFu, 0x7FC00000u, 0x7FFFFFFFu, 0x7F7FFFFFu,
                      1u, 0x007FFFFFu, 0x33000000u, 0x33000001u, 0x32FFFFFFu})
    for (Mox32u sign : {0u, 0x80000000u}) values.push_back(std::bit_cast<Mox32f>(bits | sign));
  test::Random random;
  for (int i = 0; i < 20000; ++i) {
    values.push_back(random.anyFloat<Mox32f>());
    values.push_back(std::ldexp(random.value<Mox32f>(), int(random.below(45)) - 28));
  }
  return values;
}

TEST(Half, NarrowingRoundsByTheModeOnBothPaths) {
  SCOPED_TRACE(test::seedNote());
  const auto src = floatsToEncode();
  std::vector<Mox16f> dst(src.size());
  for (int rounding : test::allRoundings)
    for (int roundMode : {0, 1, 7, -1})
      onBothPaths([&](const char* path) {
        const test::UnderRounding environment(rounding);
        ASSERT_EQ(moxsConvert_32f16f(src.data(), dst.data(), int(src.size()), roundMode), moxOk);
        for (std::size_t i = 0; i < src.size(); ++i)
          ASSERT_EQ(dst[i], encoded(src[i], roundMode != 0))
              << path << " of " << src[i] << ", mode " << roundMode;
      });
}

TEST(Half, NoExceptionTrapsInSoftware) {
  CoreProbe probe;
  probe.fixFeatures(0);
  const Mox32f src[] = {1e-7f, std::numeric_limits<Mox32f>::signaling_NaN(), 1e30f};
  Mox16f dst[3];
  const unsigned word = _mm_getcsr();
  _mm_setcsr(word & ~(_MM_MASK_MASK | _MM_EXCEPT_MASK));
  const MoxStatus status = moxsConvert_32f16f(src, dst, 3, moxRoundNearEven);
  const unsigned after = _mm_getcsr();
  _mm_setcsr(word);
  EXPECT_EQ(status, moxOk);
  EXPECT_EQ(after & _MM_MASK_MASK, 0u);
  EXPECT_EQ(dst[0], 2);
  EXPECT_EQ(dst[2], 0x7C00);
}

TEST(Half, IntegersGoByWayOfFloats) {
  std::vector<Mox16s> integers(65536), back(65536);
  for (int i = 0; i < 65536; ++i) integers[i] = Mox16s(i - 32768);
  std::vector<Mox16f> halves(65536);
  for (int roundMode : {0, 1})
    onBothPaths([&](const char* path) {
      ASSERT_EQ(moxsConvert_16s16f(integers.data(), halves.data(), 65536, roundMode), moxOk);
      for (int i = 0; i < 65536; ++i)
        ASSERT_EQ(halves[i], encoded(integers[i], roundMode == 1)) << path << " of " << integers[i];
    });
  const auto all = allHalves();
  for (int factor : {INT_MIN, -40, -3, 0, 1, 5, 30, 200, INT_MAX})
    for (int roundMode : {0, 1, 7})
      onBothPaths([&](const char* path) {
        ASSERT_EQ(moxsConvert_16f16s_Sfs(all.data(), back.data(), 65536, roundMode, factor), moxOk);
        for (int i = 0; i < 65536; ++i) {
          const Mox32f x = std::bit_cast<Mox32f>(decoded(all[i]));
          const auto mode = test::Mode(std::min(roundMode, 2));
          ASSERT_EQ(back[i], std::isnan(x)
                                 ? 32767
                                 : int(test::scaledFloat(x, factor, test::rangeOf<Mox16s>, mode)))
              << path << " of " << x << ", mode " << roundMode << ", factor " << factor;
        }
      });
}

TEST(Half, HalfAwayIsRefusedAfterPointersAndLength) {
  const Mox32f x = 1;
  const Mox16s n = 1;
  Mox16f half = 77;
  Mox16s integer = 77;
  EXPECT_EQ(moxsConvert_32f16f(&x, nullptr, 0, 2), moxErrNullPtr);
  EXPECT_EQ(moxsConvert_32f16f(&x, &half, 0, 2), moxErrSize);
  EXPECT_EQ(moxsConvert_32f16f(&x, &half, 1, 2), moxErrRoundMode);
  EXPECT_EQ(moxsConvert_16s16f(&n, &half, 1, 2), moxErrRoundMode);
  EXPECT_EQ(moxsConvert_16f16s_Sfs(&half, &integer, 1, 2, 0), moxErrRoundMode);
  EXPECT_EQ(half, 77);
  EXPECT_EQ(integer, 77);
}

}  // namespace
