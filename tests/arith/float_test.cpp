// Sums, differences and products of floats, to the bit.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <cmath>
#include <functional>
#include <limits>

#include "arith/members.h"
#include "support/float_environment.h"

namespace {

using namespace test;

// Ordinary numbers, and among them zeros of both signs, infinities and subnormals. NaN is left to a
// test of its own: which of two is passed on is the processor's affair.
template <class F>
F number(Random& random) {
  switch (random.below(12)) {
    case 0:
      return F(-0.0);
    case 1:
      return std::numeric_limits<F>::denorm_min() * F(random.below(9) - 4);
    case 2:
      return std::numeric_limits<F>::infinity();
    default:
      return random.value<F>();
  }
}
const auto numbers = []<class E>(Random& random, E) {
  if constexpr (mox::Complex<E>) {
    const auto re = random.value<mox::Part<E>>();
    return E{re, random.value<mox::Part<E>>()};
  } else {
    return number<E>(random);
  }
};

// Sums of infinities of one sign only, so that no NaN arises.
const auto sum = []<class E>(E a, E b) {
  if constexpr (mox::Complex<E>)
    return E{a.re + b.re, a.im + b.im};
  else
    return a + b;
};
const auto difference = []<class E>(E a, E b) {
  if constexpr (mox::Complex<E>)
    return E{a.re - b.re, a.im - b.im};
  else
    return a - b;
};
const auto product = []<class A, class B>(A a, B b) {
  if constexpr (mox::Complex<A>)
    return A{a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
  else if constexpr (mox::Complex<B>)
    return B{a * b.re, a * b.im};
  else
    return a * b;
};
const auto subtracted = [](auto a, auto b) { return difference(b, a); };

const auto finite = []<class E>(Random& random, E) { return random.value<E>(); };

#define MEMBERS(name) moxs##name, moxs##name##_I

TEST(FloatArithmetic, PairsInEveryRoundingMode) {
  for (int rounding : allRoundings) {
    const UnderRounding mode(rounding);
    expectPairs(MEMBERS(Add_32f), sum, numbers);
    expectPairs(MEMBERS(Add_64f), sum, numbers);
    expectPairs(MEMBERS(Add_32fc), sum, finite);
    expectPairs(MEMBERS(Add_64fc), sum, finite);
    expectPairs(MEMBERS(Sub_32f), subtracted, finite);
    expectPairs(MEMBERS(Sub_64f), subtracted, finite);
    expectPairs(MEMBERS(Sub_32fc), subtracted, finite);
    expectPairs(MEMBERS(Sub_64fc), subtracted, finite);
    expectPairs(MEMBERS(Mul_32f), product, finite);
    expectPairs(MEMBERS(Mul_64f), product, finite);
    expectPairs(MEMBERS(Mul_32fc), product, finite);
    expectPairs(MEMBERS(Mul_64fc), product, finite);
    expectPairs(MEMBERS(Mul_32f32fc), product, finite);
  }
}

template <class E, class Model>
void expectConstant(ConstantMember<E, E> plain, ConstantInPlaceMember<E, E> inPlace, Model model) {
  Random random(1);
  expectConstants(plain, inPlace, random.value<E>(), model, finite);
}

TEST(FloatArithmetic, Constants) {
  expectConstant<Mox32f>(MEMBERS(AddC_32f), sum);
  expectConstant<Mox64f>(MEMBERS(AddC_64f), sum);
  expectConstant<Mox32fc>(MEMBERS(AddC_32fc), sum);
  expectConstant<Mox64fc>(MEMBERS(AddC_64fc), sum);
  expectConstant<Mox32f>(MEMBERS(SubC_32f), difference);
  expectConstant<Mox64f>(MEMBERS(SubC_64f), difference);
  expectConstant<Mox32fc>(MEMBERS(SubC_32fc), difference);
  expectConstant<Mox64fc>(MEMBERS(SubC_64fc), difference);
  expectConstant<Mox32f>(MEMBERS(SubCRev_32f), subtracted);
  expectConstant<Mox64f>(MEMBERS(SubCRev_64f), subtracted);
  expectConstant<Mox32fc>(MEMBERS(SubCRev_32fc), subtracted);
  expectConstant<Mox64fc>(MEMBERS(SubCRev_64fc), subtracted);
  expectConstant<Mox32f>(MEMBERS(MulC_32f), product);
  expectConstant<Mox64f>(MEMBERS(MulC_64f), product);
  expectConstant<Mox32fc>(MEMBERS(MulC_32fc), product);
  expectConstant<Mox64fc>(MEMBERS(MulC_64fc), product);
}

template <class E>
void expectAddProduct(PairMember<E, E, E> member) {
  Random random;
  atLengthsAndPlaces([&](long len, int slack) {
    const auto a = random.vector<E>(len), b = random.vector<E>(len), c = random.vector<E>(len);
    std::vector<E> expected(len);
    for (long i = 0; i < len; ++i) expected[i] = sum(c[i], product(a[i], b[i]));
    const Place<E> first(len, 0), second(len, 0), srcDst(len, slack);
    ASSERT_EQ(member(first.filled(a), second.filled(b), srcDst.filled(c), int(len)), moxOk);
    srcDst.expect(expected, "add product");
  });
}

TEST(FloatArithmetic, ProductsAreRoundedBeforeTheyAreAdded) {
  expectAddProduct<Mox32f>(moxsAddProduct_32f);
  expectAddProduct<Mox64f>(moxsAddProduct_64f);
  expectAddProduct<Mox32fc>(moxsAddProduct_32fc);
  expectAddProduct<Mox64fc>(moxsAddProduct_64fc);
  // 1 + 2^-12, squared and less its rounded square: a fused operation would leave 2^-24.
  for (int len : {1, 40}) {
    const float x = 1 + 0x1p-12f;
    std::vector<float> a(len, x), c(len, -x * x), d = c;
    ASSERT_EQ(moxsAddProductC_32f(a.data(), x, c.data(), len), moxOk);
    ASSERT_EQ(moxsAddProduct_32f(a.data(), a.data(), d.data(), len), moxOk);
    EXPECT_EQ(c, std::vector<float>(len, 0));
    EXPECT_EQ(d, std::vector<float>(len, 0));
  }
}

constexpr float inf = std::numeric_limits<float>::infinity();

TEST(FloatArithmetic, NoNumbersComeOutWhereTheyMust) {
  const float pairs[][2] = {{inf, -inf}, {NAN, 1}, {1, NAN}};
  for (const auto& [x, y] : pairs) {
    std::vector<float> a(40, x), b(40, y), d(40);
    ASSERT_EQ(moxsAdd_32f(a.data(), b.data(), d.data(), 40), moxOk);
    for (float e : d) EXPECT_TRUE(std::isnan(e));
  }
}

float signalling() {
  const Mox32u bits = 0x7FA00001;
  float f;
  std::memcpy(&f, &bits, sizeof f);
  return f;
}

// Constants that stand for no operation copy: -0 and a signalling NaN come through as they are.
TEST(FloatArithmetic, ConstantsThatChangeNothingCopyToTheBit) {
  std::vector<float> special(45, -0.0f);
  special[3] = signalling();
  special[20] = signalling();
  const Place<float> dst(45, 0);
  ASSERT_EQ(moxsAddC_32f(special.data(), 0, dst.data(), 45), moxOk);
  dst.expect(special, "AddC 0");
  ASSERT_EQ(moxsAddC_32f_I(0, dst.data(), 45), moxOk);
  dst.expect(special, "AddC 0 in place");
  ASSERT_EQ(moxsSubC_32f(special.data(), -0.0f, dst.data(), 45), moxOk);
  dst.expect(special, "SubC -0");
  ASSERT_EQ(moxsMulC_32f(special.data(), 1, dst.data(), 45), moxOk);
  dst.expect(special, "MulC 1");
  ASSERT_EQ(moxsMulC_32f_I(1, dst.data(), 45), moxOk);
  dst.expect(special, "MulC 1 in place");
  const std::vector<double> negativeZeros(45, -0.0);
  const Place<double> wide(45, 0);
  ASSERT_EQ(moxsAddC_64f(negativeZeros.data(), 0, wide.data(), 45), moxOk);
  wide.expect(negativeZeros, "AddC 0");
  // They are still calls with arguments to be checked.
  EXPECT_EQ(moxsAddC_32f_I(0, dst.data(), 0), moxErrSize);
  EXPECT_EQ(moxsMulC_32f_I(1, nullptr, 3), moxErrNullPtr);
  EXPECT_EQ(moxsMulC_32f(special.data(), 0, nullptr, 0), moxErrNullPtr);
}

TEST(FloatArithmetic, ZeroTimesAnythingIsZeroInSinglePrecisionAlone) {
  const std::vector<float> special(45, -inf);
  const Place<float> dst(45, 0);
  ASSERT_EQ(moxsMulC_32f(special.data(), 0, dst.data(), 45), moxOk);
  dst.expect(std::vector<float>(45, 0), "MulC 0");
  ASSERT_EQ(moxsMulC_32f_I(-0.0f, dst.filled(special), 45), moxOk);
  dst.expect(std::vector<float>(45, 0), "MulC -0 in place");
  const double wide[] = {-1, INFINITY};
  double r[2];
  ASSERT_EQ(moxsMulC_64f(wide, 0, r, 2), moxOk);
  EXPECT_TRUE(r[0] == 0 && std::signbit(r[0]));
  EXPECT_TRUE(std::isnan(r[1]));
  // In the others a constant of 0 is added like any number.
  Mox32fc z = {-0.0f, -0.0f};
  ASSERT_EQ(moxsAddC_32fc_I({0, 0}, &z, 1), moxOk);
  EXPECT_FALSE(std::signbit(z.re) || std::signbit(z.im));
}

// From 4 MiB on the stores bypass the cache.
TEST(FloatArithmetic, LargeArrays) {
  constexpr int len = (5 << 20) / 4 + 3;
  Random random;
  const auto a = random.vector<float>(len), b = random.vector<float>(len);
  std::vector<float> dst(len + 1), inPlace = b;
  for (int offset : {0, 1}) {
    ASSERT_EQ(moxsSub_32f(a.data(), b.data(), dst.data() + offset, len), moxOk);
    for (int i = 0; i < len; ++i) ASSERT_EQ(dst[i + offset], b[i] - a[i]) << i;
  }
  ASSERT_EQ(moxsSub_32f_I(a.data(), inPlace.data(), len), moxOk);
  EXPECT_TRUE(std::equal(inPlace.begin(), inPlace.end(), dst.begin() + 1));
}

}  // namespace
