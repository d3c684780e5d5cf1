// Quotients of integers.
#include <gmock/gmock.h>

#include <bit>
#include <cfenv>

#include "arith/exact_scaled.h"

namespace {

using namespace test;

// Zero and others as divisors of everything, and dividends whose quotients, at some factor, are
// ties or next to ties or integers.
template <class A, class B>
Pairs<A, B> manyPairs() {
  auto pairs = allPairs(lattice<A>(20), lattice<B>(20));
  Random random(3);
  for (int i = 0; i < 2000; ++i) {
    const A a = A(random.value<A>() >> random.below(8 * sizeof(A)));
    const int up = int(random.below(20));
    const Int128 halves = random.below(1L << (random.below(8 * sizeof(B)) + 1));
    for (int d = -1; d <= 1; ++d) pairs.add(a, B(halves * a / (Int128(2) << up) + d));
  }
  return pairs;
}

// Under every factor, with parameters before it.
template <class A, class B, class D, class... P, class... Before>
void expectExact(Member<const A*, const B*, D*, int, P...> member, Mode mode, Before... before) {
  const auto [a, b] = manyPairs<A, B>();
  forAllFactors([&, &a = a, &b = b](int factor) {
    expectEach(run(member, a, b, before..., factor).warning(moxWarnDivByZero),
               [&](A x, B y) { return scaledQuotient(y, x, factor, rangeOf<D>, mode); });
  });
}
template <class E, class... A>
void expectExactConstants(Member<A...> member) {
  auto elements = lattice<E>(60), constants = lattice<E>(20);
  std::erase(constants, E(0));
  forAllFactors([&](int factor) {
    for (const E val : constants)
      expectEach(run(member, elements, val, factor),
                 [&](E x) { return scaledQuotient(x, val, factor, rangeOf<E>); });
  });
}

TEST(Division, IsExact) {
  const auto toNearest = [](auto... members) { (expectExact(members, Mode::nearEven), ...); };
  toNearest(MEMBER(Div_8u_Sfs), MEMBER(Div_16u_Sfs), MEMBER(Div_32s_Sfs), MEMBER(Div_32s16s_Sfs));
  for (const Mode mode : {Mode::zero, Mode::nearEven, Mode::halfAway}) {
    expectExact(MEMBER(Div_Round_8u_Sfs), mode, int(mode));
    expectExact(MEMBER(Div_Round_16s_Sfs), mode, int(mode));
    expectExact(MEMBER(Div_Round_16u_Sfs), mode, int(mode));
  }
  expectExactConstants<Mox8u>(MEMBER(DivC_8u_Sfs));
  expectExactConstants<Mox16s>(MEMBER(DivC_16s_Sfs));
  expectExactConstants<Mox16u>(MEMBER(DivC_16u_Sfs));
  expectExactConstants<Mox64s>(MEMBER(DivC_64s_ISfs));
}

TEST(Division, ConstantsOverWords) {
  const auto words = lattice<Mox16u>(200);
  for (const Mox16u val : words)
    expectEach(run(MEMBER(DivCRev_16u), words, val).warning(moxWarnDivByZero),
               [&](Mox16u x) { return scaledQuotient(val, x, 0, rangeOf<Mox16u>); });
  Mox16u noZero[] = {1, 2};
  EXPECT_OK(moxsDivCRev_16u_I(0, noZero, 2));
}

// At factors below -5 a quotient is taken to 22 bits, downwards, and so may count as the tie below.
TEST(Division, QuotientsOf16sAtLowFactorsAreThoseOfSinglePrecision) {
  const auto [a, b] = manyPairs<Mox16s, Mox16s>();
  int different = 0;
  forAllFactors([&, &a = a, &b = b](int factor) {
    const auto model = [&](Mox16s x, Mox16s y) {
      const Int128 exact = scaledQuotient(y, x, factor, rangeOf<Mox16s>);
      if (factor >= -5 || factor < -30 || x == 0) return exact;
      const float q = float(std::ldexp(double(y), -factor) / double(x));
      const float shortened = std::bit_cast<float>(std::bit_cast<unsigned>(q) & ~3u);
      const Int128 r = saturated(Int128(std::nearbyint(shortened)), rangeOf<Mox16s>);
      different += r != exact;
      return r;
    };
    expectEach(run(MEMBER(Div_16s_Sfs), a, b, factor).warning(moxWarnDivByZero), model);
  });
  EXPECT_GT(different, 0);
}

// One part, with the sums of products as the quotient's two sides; below the lowest factor the sign
// decides.
Int128 complexPart(Int128 ofDividend, Int128 numerator, Int128 square, int factor, int lowest) {
  if (square == 0) numerator = ofDividend;
  return scaledQuotient(numerator, factor < lowest ? 0 : square, factor, rangeOf<Mox16s>);
}
Mox16sc complexQuotient(Mox16sc b, Mox16sc a, int factor, int lowest) {
  const WideComplex r = widened(b) * WideComplex{a.re, -Int128(a.im)};
  const Int128 square = Int128(a.re) * a.re + Int128(a.im) * a.im;
  return {Mox16s(complexPart(b.re, r.re, square, factor, lowest)),
          Mox16s(complexPart(b.im, r.im, square, factor, lowest))};
}

TEST(Division, ComplexIntegers) {
  auto values = lattice<Mox16sc>(40);
  for (const Mox16sc z : {Mox16sc{3, 0}, {0, -3}, {1, 1}, {0, 2}}) values.push_back(z);
  const auto [a, b] = allPairs(values, values);
  forAllFactors([&, &a = a, &b = b](int factor) {
    expectEach(run(MEMBER(Div_16sc_Sfs), a, b, factor).warning(moxWarnDivByZero),
               [&](Mox16sc x, Mox16sc y) { return complexQuotient(y, x, factor, -32); });
    for (const Mox16sc val : values)
      if (val.re != 0 || val.im != 0)
        expectEach(run(MEMBER(DivC_16sc_Sfs), values, val, factor),
                   [&](Mox16sc x) { return complexQuotient(x, val, factor, -16); });
  });
}

// A warning comes from a divisor in body, peel and tail.
template <class E, class... P>
void expectWarnings(Member<const E*, const E*, E*, int, P...> member, E zero, E other, P... p) {
  const std::vector<E> others(45, other);
  EXPECT_OK(run(member, others, others, p...).status) << member.name;
  for (std::size_t at = 0; at < others.size(); ++at) {
    auto divisors = others;
    divisors[at] = zero;
    EXPECT_EQ(run(member, divisors, others, p...).status, moxWarnDivByZero)
        << member.name << ", zero at " << at;
  }
}

TEST(Division, WarnsOfAZeroAtAnyPlace) {
  for (const int factor : {INT_MIN, -20, -8, 0, INT_MAX}) {
    expectWarnings<Mox8u>(MEMBER(Div_8u_Sfs), 0, 3, factor);
    expectWarnings<Mox16s>(MEMBER(Div_16s_Sfs), 0, -3, factor);
    expectWarnings<Mox16u>(MEMBER(Div_16u_Sfs), 0, 3, factor);
    expectWarnings<Mox32s>(MEMBER(Div_32s_Sfs), 0, -3, factor);
    expectWarnings<Mox16sc>(MEMBER(Div_16sc_Sfs), {0, 0}, {0, -3}, factor);
  }
  expectWarnings<Mox32f>(MEMBER(Div_32f), -0.0f, 3);
  expectWarnings<Mox64f>(MEMBER(Div_64f), 0, 3);
  expectWarnings<Mox32fc>(MEMBER(Div_32fc), {0, -0.0f}, {0, 1e-30f});
  expectWarnings<Mox64fc>(MEMBER(Div_64fc), {0, 0}, {-1, 0});
}

// The bits of both parts together would be those of a signalling NaN.
template <class E>
void expectNoException(MoxStatus (*divide)(const E*, const E*, E*, int), E a, E b) {
  std::vector<E> divisors(17, a), dividends(17, b), quotients(17);
  std::feclearexcept(FE_ALL_EXCEPT);
  EXPECT_OK(divide(divisors.data(), dividends.data(), quotients.data(), 17));
  EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT & ~FE_INEXACT), 0);
}

TEST(Division, ComplexNumbersRaiseNoException) {
  expectNoException<Mox32fc>(moxsDiv_32fc, {9.4375f, 1.1875f}, {58.5f, 33.5625f});
  expectNoException<Mox64fc>(moxsDiv_64fc, {1.1875, 2.3125}, {58.5, 33.5625});
}

}  // namespace
