#include "frame/rounding.h"

#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "frame/map_scaled.h"
#include "support/exact_model.h"
#include "support/float_environment.h"
#include "support/random.h"

namespace {

using test::Int128;

std::vector<int> factors() {
  std::vector<int> f = {INT_MIN, INT_MIN + 1, -1001, -1000, -128, -127, 127, 128, 1000, INT_MAX};
  for (int n = -70; n <= 70; ++n) f.push_back(n);
  return f;
}

// Both limits of the magnitude, powers of two and their neighbours, and random values of all sizes.
std::vector<Int128> valuesUpTo(int magnitude, bool limitIncluded) {
  const Int128 limit = (Int128(1) << magnitude) - !limitIncluded;
  std::vector<Int128> values = {limit, -limit, -limit - !limitIncluded};
  for (int bit = 0; bit < magnitude; ++bit)
    for (int near = -1; near <= 1; ++near)
      for (int sign : {1, -1}) values.push_back(sign * ((Int128(1) << bit) + near));
  test::Random random(magnitude);
  for (int i = 0; i < 200; ++i) {
    const Int128 r = Int128(random.bits()) << 64 | random.bits();
    values.push_back(r >> (127 - random.below(magnitude)));
  }
  return values;
}

template <class T, int magnitude>
void expectScalarsExact() {
  for (int factor : factors())
    for (Int128 r : valuesUpTo(magnitude, magnitude != 31 && magnitude != 63))
      ASSERT_EQ((mox::Scale<T, magnitude>(factor).apply(r)),
                T(test::scaledInteger(r, factor, test::rangeOf<T>)))
          << "magnitude " << magnitude << ", value " << long(r) << ", factor " << factor;
}

TEST(ScaleRule, ScalarsOfEveryWidthAreExactForEveryFactor) {
  expectScalarsExact<Mox8u, 9>();
  expectScalarsExact<Mox8s, 16>();
  expectScalarsExact<Mox16s, 16>();
  expectScalarsExact<Mox16s, 30>();
  expectScalarsExact<Mox16u, 31>();
  expectScalarsExact<Mox32s, 32>();
  expectScalarsExact<Mox32s, 62>();
  expectScalarsExact<Mox32s, 63>();
  expectScalarsExact<Mox64s, 64>();
  expectScalarsExact<Mox64u, 65>();
}

// Pairs whose sum or product meets the limits, through vectors and scalars at once.
template <int magnitude, class T, class S, class Op>
void expectPairsExact(Op op) {
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  std::vector<S> a, b;
  const S edges[] = {0, 1, 2, S(-1), std::numeric_limits<S>::min(), std::numeric_limits<S>::max()};
  for (S x : edges)
    for (S y : edges) a.push_back(x), b.push_back(y);
  for (int i = 0; i < 300; ++i) {
    const int shift = int(random.below(8 * sizeof(S)));
    a.push_back(S(random.value<S>() >> shift)), b.push_back(S(random.value<S>() >> shift));
  }
  std::vector<T> dst(a.size());
  for (int rounding : test::allRoundings)
    for (int factor : factors()) {
      const test::UnderRounding mode(rounding);
      mox::mapScaled<magnitude>(factor, op, dst.data(), long(a.size()), a.data(), b.data());
      for (std::size_t i = 0; i < a.size(); ++i)
        ASSERT_EQ(dst[i],
                  T(test::scaledInteger(op(Int128(a[i]), Int128(b[i])), factor, test::rangeOf<T>)))
            << +a[i] << " and " << +b[i] << ", factor " << factor;
    }
}

constexpr auto sum = [](auto x, auto y) { return x + y; };
constexpr auto product = [](auto x, auto y) { return x * y; };

TEST(ScaleRule, VectorsAreExactForEveryFactorUnderEveryRoundingMode) {
  expectPairsExact<9, Mox8u, Mox8u>(sum);
  expectPairsExact<16, Mox8u, Mox8u>(product);
  expectPairsExact<16, Mox8s, Mox8s>(product);
  expectPairsExact<16, Mox16s, Mox16s>(sum);
  expectPairsExact<17, Mox16u, Mox16u>(sum);
  expectPairsExact<30, Mox16s, Mox16s>(product);
  expectPairsExact<30, Mox32s, Mox16s>(product);
  expectPairsExact<32, Mox16u, Mox16u>(product);
  expectPairsExact<32, Mox32s, Mox32s>(sum);
  expectPairsExact<62, Mox32s, Mox32s>(product);
  expectPairsExact<64, Mox64s, Mox64s>(sum);
}

TEST(ScaleRule, AllBitsOfAVectorLaneMayBeInUse) {
  const auto values = valuesUpTo(31, false);
  const std::vector<Mox32s> src(values.begin(), values.end());
  std::vector<Mox16s> dst(src.size());
  for (int factor : factors()) {
    mox::mapScaled<31>(
        factor, [](auto r) { return r; }, dst.data(), long(src.size()), src.data());
    for (std::size_t i = 0; i < src.size(); ++i)
      ASSERT_EQ(dst[i], test::scaledInteger(src[i], factor, test::rangeOf<Mox16s>))
          << src[i] << ", factor " << factor;
  }
}

}  // namespace
