// Conversions from integers, and between floats.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <vector>

#include "convert/samples.h"
#include "support/float_environment.h"
#include "support/random.h"

namespace {

using test::Int128;

// All values of a narrow type; edges, powers of two and random values of a wide one.
template <class S>
std::vector<S> valuesOf() {
  constexpr test::Range range = test::rangeOfSample<S>;
  std::vector<S> values;
  const auto add = [&](Int128 x) {
    x = test::saturated(x, range);
    S s;
    std::memcpy(&s, &x, sizeof s);
    values.push_back(s);
  };
  if constexpr (sizeof(S) <= 2) {
    for (Int128 x = range.min; x <= range.max; ++x) add(x);
  } else {
    add(range.min), add(range.max);
    for (int bit = 0; bit < int(8 * sizeof(S)); ++bit)
      for (int near = -2; near <= 2; ++near)
        add((Int128(1) << bit) + near), add(near - (Int128(1) << bit));
    test::Random random;
    for (int i = 0; i < 500; ++i) add(Int128(std::int64_t(random.bits()) >> random.below(64)));
  }
  return values;
}

template <class S, class D, class Function>
void expectSameValue(const char* name, Function function) {
  SCOPED_TRACE(name);
  const auto src = valuesOf<S>();
  std::vector<D> dst(src.size());
  for (int rounding : test::allRoundings) {
    const test::UnderRounding environment(rounding);
    ASSERT_EQ(function(test::raw(src.data()), dst.data(), int(src.size())), moxOk);
    for (std::size_t i = 0; i < src.size(); ++i) {
      const volatile long value = long(src[i]);
      ASSERT_EQ(dst[i], D(value)) << value;
      ASSERT_FALSE(dst[i] == 0 && std::signbit((long double)(dst[i])));
    }
  }
}

TEST(ConvertIntegers, KeepTheirValueInWiderTypesAndFloats) {
#define CASE(S, D, name) expectSameValue<S, D>(#name, name)
  CASE(Mox8s, Mox16s, moxsConvert_8s16s);
  CASE(Mox8s, Mox32f, moxsConvert_8s32f);
  CASE(Mox8u, Mox32f, moxsConvert_8u32f);
  CASE(Mox16s, Mox32s, moxsConvert_16s32s);
  CASE(Mox16s, Mox32f, moxsConvert_16s32f);
  CASE(Mox16u, Mox32f, moxsConvert_16u32f);
  CASE(test::Sample24s, Mox32s, moxsConvert_24s32s);
  CASE(test::Sample24s, Mox32f, moxsConvert_24s32f);
  CASE(test::Sample24u, Mox32u, moxsConvert_24u32u);
  CASE(test::Sample24u, Mox32f, moxsConvert_24u32f);
  CASE(Mox32s, Mox32f, moxsConvert_32s32f);
  CASE(Mox32s, Mox64f, moxsConvert_32s64f);
  CASE(Mox64s, Mox64f, moxsConvert_64s64f);
#undef CASE
}

// The reference rounds where the destination's precision ends, in the mode in force.
template <class S, class D, class Function>
void expectScaledOnce(const char* name, Function function, int lowestFactor) {
  SCOPED_TRACE(name);
  const auto src = valuesOf<S>();
  std::vector<D> dst(src.size());
  std::vector<int> factors = {INT_MIN, INT_MAX, -1009, -1008, -993, -992, 1000, 1021, 1022, 1023,
                              1040,    1074,    1075,  2043,  2044, 2045, 1080, 1090, 1100};
  for (int n = -150; n <= 180; n += 3) factors.push_back(n), factors.push_back(n / 3);
  for (int rounding : {FE_TONEAREST, FE_UPWARD})
    for (int factor : factors) {
      const test::UnderRounding environment(rounding);
      ASSERT_EQ(function(src.data(), dst.data(), int(src.size()), factor), moxOk);
      const int used = std::min(std::max(factor, lowestFactor), 5000);
      for (std::size_t i = 0; i < src.size(); i += 1 + src.size() / 3000) {
        const volatile S value = src[i];
        const volatile long double scaled = std::ldexp((long double)(D(value)), -used);
        ASSERT_EQ(dst[i], D(scaled)) << +src[i] << ", factor " << factor;
        ASSERT_TRUE(std::isfinite(dst[i]));
      }
    }
}

TEST(ConvertIntegers, ToFloatsWithAFactorRoundOnce) {
  expectScaledOnce<Mox16s, Mox32f>("16s32f", moxsConvert_16s32f_Sfs, -112);
  expectScaledOnce<Mox32s, Mox32f>("32s32f", moxsConvert_32s32f_Sfs, -96);
  expectScaledOnce<Mox16s, Mox64f>("16s64f", moxsConvert_16s64f_Sfs, -1008);
  expectScaledOnce<Mox32s, Mox64f>("32s64f", moxsConvert_32s64f_Sfs, -992);
}

template <class S, class T, class Function>
void expectNarrowed(const char* name, Function function) {
  SCOPED_TRACE(name);
  const auto src = valuesOf<S>();
  std::vector<T> dst(src.size());
  for (int factor = -72; factor <= 72; ++factor) {
    const int n = factor == -72 ? INT_MIN : factor == 72 ? INT_MAX : factor;
    ASSERT_EQ(function(src.data(), test::raw(dst.data()), int(src.size()), n), moxOk);
    for (std::size_t i = 0; i < src.size(); ++i)
      ASSERT_EQ(long(dst[i]), long(test::scaledInteger(src[i], n, test::rangeOfSample<T>)))
          << src[i] << ", factor " << n;
  }
}

TEST(ConvertIntegers, ToNarrowerOnesObeyTheScaleRule) {
  expectNarrowed<Mox16s, Mox8s>("16s8s", moxsConvert_16s8s_Sfs);
  expectNarrowed<Mox32s, Mox16s>("32s16s", moxsConvert_32s16s_Sfs);
  expectNarrowed<Mox32s, test::Sample24s>("32s24s", moxsConvert_32s24s_Sfs);
  expectNarrowed<Mox32u, test::Sample24u>("32u24u", moxsConvert_32u24u_Sfs);
  expectNarrowed<Mox64s, Mox32s>("64s32s", moxsConvert_64s32s_Sfs);
  const Mox32s src[] = {INT_MIN, -32769, -32768, 0, 32767, 32768, INT_MAX};
  const Mox16s expected[] = {-32768, -32768, -32768, 0, 32767, 32767, 32767};
  Mox16s dst[7];
  ASSERT_EQ(moxsConvert_32s16s(src, dst, 7), moxOk);
  for (int i = 0; i < 7; ++i) EXPECT_EQ(dst[i], expected[i]);
}

template <class S, class D>
void expectFloatConversion(MoxStatus (*function)(const S*, D*, int)) {
  test::Random random;
  std::vector<S> src = {0.0, S(-0.0), S(INFINITY), S(-INFINITY), S(NAN), S(1e-45), S(3.5e38)};
  for (int i = 0; i < 2000; ++i) {
    src.push_back(random.anyFloat<S>());
    src.push_back(S(std::ldexp(random.value<double>(), int(random.below(320)) - 160)));
  }
  std::vector<D> dst(src.size());
  for (int rounding : test::allRoundings) {
    const test::UnderRounding environment(rounding);
    ASSERT_EQ(function(src.data(), dst.data(), int(src.size())), moxOk);
    for (std::size_t i = 0; i < src.size(); ++i) {
      const volatile S x = src[i];
      const D expected = D(x);
      ASSERT_EQ(std::memcmp(&dst[i], &expected, sizeof expected), 0) << src[i];
    }
  }
}

TEST(ConvertFloats, FollowIeeeConversionInTheRoundingModeInForce) {
  SCOPED_TRACE(test::seedNote());
  expectFloatConversion(moxsConvert_32f64f);
  expectFloatConversion(moxsConvert_64f32f);
}

}  // namespace
