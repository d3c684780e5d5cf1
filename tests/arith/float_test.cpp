// Sums, differences, products and quotients of floats, to the bit.
#include <bit>

#include "support/float_environment.h"
#include "support/members.h"

namespace {

using namespace test;
using mox::Complex;

// How real arithmetic extends to complex elements.
const auto sum = []<class E>(E a, E b) {
  if constexpr (Complex<E>)
    return E{a.re + b.re, a.im + b.im};
  else
    return a + b;
};
const auto difference = []<class E>(E a, E b) {
  if constexpr (Complex<E>)
    return E{a.re - b.re, a.im - b.im};
  else
    return a - b;
};
const auto product = []<class A, class B>(A a, B b) {
  if constexpr (Complex<A>)
    return A{a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
  else if constexpr (Complex<B>)
    return B{a * b.re, a * b.im};
  else
    return a * b;
};
const auto reverseQuotient = []<class E>(E a, E b) {
  if constexpr (Complex<E>) {
    const auto n = a.re * a.re + a.im * a.im;
    return E{(b.re * a.re + b.im * a.im) / n, (b.im * a.re - b.re * a.im) / n};
  } else {
    return b / a;
  }
};
const auto subtracted = [](auto a, auto b) { return difference(b, a); };
const auto quotient = [](auto a, auto b) { return reverseQuotient(b, a); };

constexpr int len = 400;

// The first elements are zero, which is what divisors are warned of.
struct Terms {
  MoxStatus status = moxOk;
  std::vector<int> roundings = {std::begin(allRoundings), std::end(allRoundings)};
};
// The formula for complex quotients leaves open what is negated before it is rounded.
const Terms toNearest = {moxOk, {FE_TONEAREST}}, warned = {moxWarnDivByZero, {FE_TONEAREST}};

template <class A, class B, class D>
void expectTo(Member<const A*, const B*, D*, int> member, auto model, const Terms& terms = {}) {
  Random random;
  const auto a = random.specials<A>(len);
  const auto b = random.specials<B>(len);
  for (const int rounding : terms.roundings) {
    const UnderRounding mode(rounding);
    expectEach(run(member, a, b).warning(terms.status), model);
  }
}
template <class E>
void expectTo(Member<const E*, E, E*, int> member, auto model, const Terms& terms = {}) {
  Random random;
  const auto a = random.specials<E>(len);
  const auto val = random.value<E>();
  for (const int rounding : terms.roundings) {
    const UnderRounding mode(rounding);
    expectEach(run(member, a, val).warning(terms.status), [&](E x) { return model(x, val); });
  }
}

#define EXPECT_FLOATS_TO(name, ...)                                                     \
  expectTo(MEMBER(name##_32f), __VA_ARGS__), expectTo(MEMBER(name##_64f), __VA_ARGS__); \
  expectTo(MEMBER(name##_32fc), __VA_ARGS__), expectTo(MEMBER(name##_64fc), __VA_ARGS__)

TEST(FloatArithmetic, IsThatOfTheLanguage) {
  EXPECT_FLOATS_TO(Add, sum);
  EXPECT_FLOATS_TO(Sub, subtracted);
  EXPECT_FLOATS_TO(Mul, product);
  EXPECT_FLOATS_TO(AddC, sum);
  EXPECT_FLOATS_TO(SubC, difference);
  EXPECT_FLOATS_TO(SubCRev, subtracted);
  EXPECT_FLOATS_TO(MulC, product);
  expectTo(MEMBER(Mul_32f32fc), product);
  EXPECT_FLOATS_TO(Div, reverseQuotient, warned);
  expectTo(MEMBER(DivC_64f), quotient);
  expectTo(MEMBER(DivC_32fc), quotient, toNearest);
  expectTo(MEMBER(DivC_64fc), quotient, toNearest);
  expectTo(MEMBER(DivCRev_32f), reverseQuotient, warned);
  const auto byReciprocal = [](float x, float val) { return x * (1 / val); };
  expectTo(MEMBER(DivC_32f), byReciprocal, toNearest);
}

template <class E>
void expectProductAdded(Member<const E*, const E*, E*, int> member) {
  Random random;
  const auto a = random.specials<E>(len), b = random.specials<E>(len), c = random.specials<E>(len);
  expectEach(runOnto(member, a, b, c), [](E x, E y, E z) { return sum(z, product(x, y)); });
}

TEST(FloatArithmetic, ProductsAreRoundedBeforeTheyAreAdded) {
  expectProductAdded(MEMBER(AddProduct_32f)), expectProductAdded(MEMBER(AddProduct_64f));
  expectProductAdded(MEMBER(AddProduct_32fc)), expectProductAdded(MEMBER(AddProduct_64fc));
  Random random;
  const auto a = random.vector<float>(len), c = random.vector<float>(len);
  const auto call = [&](float* srcDst, int n) {
    return moxsAddProductC_32f(a.data(), 0.3f, srcDst, n);
  };
  expectEach(resultsOf("AddProductC_32f", c, call, a, c),
             [](float x, float z) { return z + x * 0.3f; });
}

// Constants that stand for no operation copy: -0 and a signalling NaN come through as they are.
TEST(FloatArithmetic, ConstantsThatChangeNothingCopyToTheBit) {
  std::vector<float> special(45, -0.0f);
  special[3] = special[20] = std::bit_cast<float>(0x7FA00001);
  const auto expectCopied = [](const auto& src, auto member, auto val) {
    EXPECT_TRUE(sameBits(run(member, src, val).values, src)) << member.name;
  };
  expectCopied(special, MEMBER(AddC_32f), 0), expectCopied(special, MEMBER(AddC_32f_I), 0);
  expectCopied(special, MEMBER(SubC_32f), -0.0f), expectCopied(special, MEMBER(DivC_32f), 1);
  expectCopied(special, MEMBER(MulC_32f), 1), expectCopied(special, MEMBER(MulC_32f_I), 1);
  expectCopied(std::vector<double>(45, -0.0), MEMBER(AddC_64f), 0);
}

TEST(FloatArithmetic, ZeroTimesAnythingIsZeroInSinglePrecisionAlone) {
  const std::vector<float> infinities(45, -INFINITY);
  const auto zero = [](float) { return 0.0f; };
  expectEach(run(MEMBER(MulC_32f), infinities, 0), zero);
  expectEach(run(MEMBER(MulC_32f_I), infinities, -0.0f), zero);
  expectEach(run(MEMBER(DivC_32f), infinities, INFINITY), zero);
  const std::vector<double> wide = {-1, INFINITY};
  expectEach(run(MEMBER(MulC_64f), wide, 0), [](double x) { return x * 0; });
  // In the others a constant of 0 is added like any number.
  const std::vector<Mox32fc> negative = {{-0.0f, -0.0f}};
  EXPECT_TRUE(sameBits(run(MEMBER(AddC_32fc), negative, {0, 0}).values[0], Mox32fc{0, 0}));
}

// So long that the stores bypass the cache, at any address.
TEST(FloatArithmetic, LargeArrays) {
  constexpr long large = (9 << 20) / 4 + 3;
  Random random;
  const auto a = random.vector<float>(large), b = random.vector<float>(large);
  expectEach(run(MEMBER(Sub_32f), a, b), subtracted);
  std::vector<std::byte> room(std::size_t(large * 4 + 1));
  auto* const odd = reinterpret_cast<float*>(room.data() + 1);
  ASSERT_OK(moxsSub_32f(a.data(), b.data(), odd, large));
  std::vector<float> dst(large);
  std::memcpy(dst.data(), odd, std::size_t(large) * 4);
  expectEach(Results<float, float, float>{"Sub_32f at an odd address", moxOk, dst, {a, b}},
             subtracted);
  const auto squares = random.vector<double>(2 << 20);
  expectEach(run(MEMBER(Sqr_64f), squares), [](double x) { return x * x; });
}

}  // namespace
