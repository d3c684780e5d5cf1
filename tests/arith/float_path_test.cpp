// Integer members whose contract is floating-point arithmetic.
#include <gmock/gmock.h>

#include "arith/exact_scaled.h"

namespace {

using namespace test;
using testing::ElementsAre;

Mox32s clampedToNearest(double t) {
  return Mox32s(std::nearbyint(std::fmax(-2147483648.0, std::fmin(2147483647.0, t))));
}

// Products above 2^53, whose last bit the double path and the exact rule see differently, come with
// the lattice's random values.
Pairs<Mox32s, Mox32s> manyPairs(int randomCount) {
  const auto values = lattice<Mox32s>(randomCount);
  auto pairs = allPairs(values, values);
  // 2^53 + 1 is a tie for a double, and its rest decides a tie of the scaled product.
  pairs.add(6361 * 69431, 20394401), pairs.add(1 << 30, 3);
  return pairs;
}

TEST(DoublePath, ProductsOf32BitsAreRoundedInEveryStep) {
  const auto [a, b] = manyPairs(60);
  int unlikeExact = 0;
  forAllFactors([&, &a = a, &b = b](int factor) {
    const auto model = [&](Mox32s x, Mox32s y) {
      const Mox32s exact = scaled<Mox32s>(Int128(x) * y, factor);
      if (factor == 0 || factor < -31 || factor > 62) return exact;
      const Mox32s r = clampedToNearest(x * std::ldexp(1, -factor) * y);
      unlikeExact += r != exact;
      return r;
    };
    expectEach(run(MEMBER(Mul_32s_Sfs), a, b, factor), model);
  });
  EXPECT_GT(unlikeExact, 0) << "no product told the two paths apart";
}

TEST(DoublePath, AddProductScalesTheProductAloneBetweenItsLimits) {
  const auto [a, b] = manyPairs(20);
  const auto values = lattice<Mox32s>(20);
  std::vector<Mox32s> before;
  for (std::size_t i = 0; i < a.size(); ++i)
    before.push_back(values[(i * 31 + i / 50) % values.size()]);
  forAllFactors([&, &a = a, &b = b](int factor) {
    const auto model = [&](Mox32s x, Mox32s y, Mox32s c) {
      const Int128 r = c + Int128(x) * y;
      if (factor > 62) return 0;
      if (factor <= -31) return r > 0 ? INT_MAX : r < 0 ? INT_MIN : 0;
      return factor == 0 ? scaled<Mox32s>(r, 0)
                         : clampedToNearest(x * std::ldexp(1, -factor) * y + c);
    };
    expectEach(runOnto(MEMBER(AddProduct_32s_Sfs), a, b, before, factor), model);
  });
}

TEST(FloatConstant, IsRoundedInTheModeInForce) {
  const auto words = lattice<Mox16s>(30);
  for (const int rounding : allRoundings)
    for (const float val : {1.0f, 0.3f, -2.7f, 1e-3f, 1.5f, 0.0f})
      for (int factor = -12; factor <= 12; ++factor) {
        SCOPED_TRACE(testing::Message() << "factor " << factor << ", rounding " << rounding);
        const UnderRounding mode(rounding);
        const auto model = [&](Mox16s x) {
          const volatile float unscaled = float(x) * val;
          const float t = std::ldexp(unscaled, -factor);
          return std::nearbyint(std::fmax(-32768.0f, std::fmin(32767.0f, t)));
        };
        expectEach(run(MEMBER(MulC_32f16s_Sfs), words, val, factor), model);
        if (factor == 0) expectEach(run(MEMBER(MulC_Low_32f16s), words, val), model);
      }
}

TEST(FloatConstant, ExtremesSaturateBySign) {
  const auto at = [](float val, int factor) {
    const std::vector<Mox16s> words = {-5, 0, 9};
    return run(MEMBER(MulC_32f16s_Sfs), words, val, factor).values;
  };
  EXPECT_THAT(at(1, INT_MIN), ElementsAre(-32768, 0, 32767));
  EXPECT_THAT(at(1, -200), ElementsAre(-32768, 0, 32767));
  EXPECT_THAT(at(1, INT_MAX), ElementsAre(0, 0, 0));
  EXPECT_THAT(at(-INFINITY, 0), ElementsAre(32767, 0, -32768));
  // A constant near the largest float, brought down by its factor, doesn't overflow on the way.
  EXPECT_THAT(at(0x1p127f, 127), ElementsAre(-5, 0, 9));
}

}  // namespace
