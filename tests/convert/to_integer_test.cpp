#include <gtest/gtest.h>
#include <moxsp.h>

#include <climits>
#include <cmath>
#include <vector>

#include "convert/samples.h"
#include "support/float_environment.h"
#include "support/guarded_array.h"
#include "support/random.h"

namespace {

using test::Int128;
using test::Mode;

Mode modeOf(int roundMode) { return Mode(roundMode == 0 || roundMode == 1 ? roundMode : 2); }

// Magnitudes around which something can go wrong, brought to the scale of the factor.
template <class F, class T>
std::vector<F> valuesFor(int factor) {
  std::vector<F> values = {F(0.0), F(-0.0), INFINITY, -INFINITY, NAN, -NAN};
  using limits = std::numeric_limits<F>;
  for (F x : {limits::max(), limits::min(), limits::denorm_min()})
    values.insert(values.end(), {x, -x});
  const auto add = [&](long double x) {
    const F f = F(std::ldexp(x, std::max(-5000, std::min(factor, 5000))));
    for (F near : {f, std::nextafter(f, F(INFINITY)), std::nextafter(f, F(-INFINITY))})
      values.insert(values.end(), {near, -near});
  };
  for (int k = 0; k < 6; ++k) add(k), add(k + 0.5L);
  for (Int128 limit : {test::rangeOfSample<T>.max, test::rangeOfSample<T>.min, Int128(INT_MAX)})
    for (double d : {-1.5, -1.0, -0.5, 0.0, 0.5, 1.0, 1.5}) add((long double)limit + d);
  for (int e : {22, 23, 24, 31, 32, 52, 53, 62, 63}) add(std::ldexp(1.0L, e) + 0.5L);
  test::Random random(factor);
  for (int i = 0; i < 40; ++i) {
    values.push_back(random.anyFloat<F>());
    add(random.value<double>() * std::ldexp(1.0, int(random.below(40))));
  }
  return values;
}

std::vector<int> factors() {
  std::vector<int> f = {INT_MIN, INT_MIN + 1, INT_MAX - 1, INT_MAX, -2200,
                        -2100,   -1100,       1100,        2100};
  for (int edge : {126, 252, 1022, 2044})
    for (int near = -2; near <= 2; ++near) f.insert(f.end(), {edge + near, -edge - near});
  for (int n = -150; n <= 150; n += n >= -71 && n < 70 ? 1 : 7) f.push_back(n);
  return f;
}

template <class F, class T, class Function>
void expectExact(const char* name, Function function, bool nanIsMinimum = false) {
  SCOPED_TRACE(name);
  constexpr test::Range range = test::rangeOfSample<T>;
  for (int rounding : test::allRoundings)
    for (int factor : factors()) {
      const auto src = valuesFor<F, T>(factor);
      std::vector<T> dst(src.size());
      for (int roundMode : {0, 1, 2, 7, -1}) {
        const test::UnderRounding environment(rounding);
        ASSERT_EQ(function(src.data(), test::raw(dst.data()), int(src.size()), roundMode, factor),
                  moxOk);
        for (std::size_t i = 0; i < src.size(); ++i) {
          const Int128 expected = std::isnan(src[i])
                                      ? (nanIsMinimum ? range.min : range.max)
                                      : test::scaledFloat(src[i], factor, range, modeOf(roundMode));
          ASSERT_EQ(long(dst[i]), long(expected))
              << src[i] << ", mode " << roundMode << ", factor " << factor << ", element " << i;
        }
      }
    }
}

TEST(ConvertToInteger, IsExactForEveryModeFactorAndRoundingInForce) {
  SCOPED_TRACE(test::seedNote());
#define CASE(F, T, name) expectExact<F, T>(#name, name)
  CASE(Mox32f, Mox8s, moxsConvert_32f8s_Sfs);
  CASE(Mox32f, Mox8u, moxsConvert_32f8u_Sfs);
  CASE(Mox32f, Mox16s, moxsConvert_32f16s_Sfs);
  CASE(Mox32f, Mox16u, moxsConvert_32f16u_Sfs);
  CASE(Mox32f, test::Sample24s, moxsConvert_32f24s_Sfs);
  CASE(Mox32f, test::Sample24u, moxsConvert_32f24u_Sfs);
  CASE(Mox32f, Mox32s, moxsConvert_32f32s_Sfs);
  CASE(Mox64f, Mox16s, moxsConvert_64f16s_Sfs);
  CASE(Mox64f, Mox32s, moxsConvert_64f32s_Sfs);
#undef CASE
  expectExact<Mox64f, Mox64s>("moxsConvert_64f64s_Sfs", moxsConvert_64f64s_Sfs, true);
}

TEST(ConvertToInteger, HalvesGoWhereTheModeSends) {
  const Mox32f src[] = {2.5f, -2.5f, 3.5f, 1e9f, -1e9f, 0.49999997f};
  const Mox16s expected[3][6] = {
      {2, -2, 3, 32767, -32768, 0}, {2, -2, 4, 32767, -32768, 0}, {3, -3, 4, 32767, -32768, 0}};
  for (int mode = 0; mode < 3; ++mode) {
    Mox16s dst[6];
    ASSERT_EQ(moxsConvert_32f16s_Sfs(src, dst, 6, mode, 0), moxOk);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(dst[i], expected[mode][i]) << "mode " << mode;
  }
  const Mox64f belowHalf = 0.49999999999999994;
  Mox64s wide = -1;
  ASSERT_EQ(moxsConvert_64f64s_Sfs(&belowHalf, &wide, 1, 2, 0), moxOk);
  EXPECT_EQ(wide, 0);
}

TEST(ConvertToInteger, SixtyFourBitsTakeTheLengthAsUnsigned) {
  Mox64f x = 1;
  Mox64s y = 5;
  EXPECT_EQ(moxsConvert_64f64s_Sfs(nullptr, &y, 0, 0, 0), moxErrNullPtr);
  EXPECT_EQ(moxsConvert_64f64s_Sfs(&x, &y, 0, 0, 0), moxErrSize);
  EXPECT_EQ(y, 5);
  const test::GuardedArray<Mox64f> src(100);
  const test::GuardedArray<Mox64s> dst(100);
  EXPECT_DEATH(moxsConvert_64f64s_Sfs(src.data(), dst.data(), -1, 0, 0), "");
}

// Long enough for the stores that bypass the cache, from an address that is no vector boundary.
TEST(ConvertLarge, LargeArraysAgreeWithSmallOnes) {
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
