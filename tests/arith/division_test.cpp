// Quotients of integers and floats.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <moxsp.h>

#include <bit>
#include <cmath>

#include "arith/scaled_members.h"
#include "support/float_environment.h"

namespace {

using namespace test;
__extension__ typedef unsigned __int128 UInt128;

constexpr Mode modes[] = {Mode::zero, Mode::nearEven, Mode::halfAway};

// b / a * 2^-factor. It stops doubling where the quotient is larger than any range.
Int128 roundedQuotient(Int128 b, Int128 a, int factor, Range range, Mode mode = Mode::nearEven) {
  if (a == 0) return b == 0 ? 0 : b < 0 ? range.min : range.max;
  UInt128 n = UInt128(b < 0 ? -b : b), d = UInt128(a < 0 ? -a : a);
  if (factor > 64) return 0;
  if (factor > 0) d <<= factor;
  for (; factor < 0 && n != 0 && n >> 126 == 0; ++factor) n <<= 1;
  const UInt128 whole = n / d, rest = n % d, restAbove = d - rest;
  const bool up = mode == Mode::halfAway   ? rest >= restAbove
                  : mode == Mode::nearEven ? rest > restAbove || (rest == restAbove && whole & 1)
                                           : false;
  const Int128 magnitude = Int128(std::min<UInt128>(whole + up, UInt128(1) << 100));
  return saturated((b < 0) != (a < 0) ? -magnitude : magnitude, range);
}

// Every pair under every factor.
template <class D, class A, class B, class Plain, class InPlace, class Model>
void expectQuotients(Plain plain, InPlace inPlace, const Pairs<A, B>& data, Model model) {
  const int len = int(data.first.size());
  std::vector<D> dst(len);
  for (const int factor : allFactors()) {
    const auto check = [&](const char* form) {
      for (int i = 0; i < len; ++i)
        ASSERT_EQ(dst[i], D(model(data.second[i], data.first[i], factor)))
            << form << ": " << long(data.second[i]) << " / " << long(data.first[i]) << ", factor "
            << factor << " in " << __PRETTY_FUNCTION__;
    };
    ASSERT_EQ(plain(data.first.data(), data.second.data(), dst.data(), len, factor),
              moxWarnDivByZero);
    ASSERT_NO_FATAL_FAILURE(check("plain"));
    if constexpr (std::is_same_v<B, D>) {
      dst = data.second;
      ASSERT_EQ(inPlace(data.first.data(), dst.data(), len, factor), moxWarnDivByZero);
      ASSERT_NO_FATAL_FAILURE(check("in place"));
    }
  }
}

template <class D>
auto exactly(Mode mode = Mode::nearEven) {
  return [mode](Int128 b, Int128 a, int factor) {
    return roundedQuotient(b, a, factor, rangeOf<D>, mode);
  };
}

// Dividends whose quotients, at some factor, are ties or next to ties or integers.
template <class A, class B>
void addNearTies(Pairs<A, B>& pairs, int count) {
  Random random(3);
  for (int i = 0; i < count; ++i) {
    const A a = A(random.value<A>() >> random.below(8 * sizeof(A)));
    const int up = int(random.below(20));
    const Int128 halves = random.below(1L << (random.below(8 * sizeof(B)) + 1));
    const Int128 b = halves * a / (Int128(2) << up);
    for (int d = -1; d <= 1; ++d) pairs.first.push_back(a), pairs.second.push_back(B(b + d));
  }
}

template <class A, class B>
Pairs<A, B> densePairs() {
  auto pairs = allPairs(lattice<A>(20), lattice<B>(20));
  addNearTies(pairs, 2000);
  return pairs;
}

#define SCALED(name) moxs##name##_Sfs, moxs##name##_ISfs

TEST(Division, AllPairsOfBytes) {
  constexpr int len = 1 << 16;
  std::vector<Mox8u> a(len), b(len), dst(len), expected(len);
  for (int i = 0; i < len; ++i) a[i] = Mox8u(i >> 8), b[i] = Mox8u(i);
  for (const int factor : allFactors()) {
    const auto check = [&](MoxStatus status, const char* form) {
      ASSERT_EQ(status, moxWarnDivByZero) << form;
      for (int i = 0; i < len; ++i)
        ASSERT_EQ(dst[i], expected[i])
            << form << ": " << int(b[i]) << " / " << int(a[i]) << ", factor " << factor;
    };
    for (const Mode mode : modes) {
      for (int i = 0; i < len; ++i)
        expected[i] = Mox8u(roundedQuotient(b[i], a[i], factor, rangeOf<Mox8u>, mode));
      check(moxsDiv_Round_8u_Sfs(a.data(), b.data(), dst.data(), len, int(mode), factor), "Round");
      if (HasFatalFailure()) return;
      if (mode != Mode::nearEven) continue;
      check(moxsDiv_8u_Sfs(a.data(), b.data(), dst.data(), len, factor), "Div");
      dst = b;
      check(moxsDiv_8u_ISfs(a.data(), dst.data(), len, factor), "Div in place");
      for (int val = 1; val < 256; ++val)
        ASSERT_EQ(moxsDivC_8u_Sfs(b.data(), Mox8u(val), &dst[256 * val], 256, factor), moxOk);
      check(moxWarnDivByZero, "DivC");
      if (HasFatalFailure()) return;
    }
  }
}

TEST(Division, ExactQuotientsOfWords) {
  expectQuotients<Mox16u>(SCALED(Div_16u), densePairs<Mox16u, Mox16u>(), exactly<Mox16u>());
  expectQuotients<Mox32s>(SCALED(Div_32s), densePairs<Mox32s, Mox32s>(), exactly<Mox32s>());
  expectQuotients<Mox16s>(moxsDiv_32s16s_Sfs, nullptr, densePairs<Mox16s, Mox32s>(),
                          exactly<Mox16s>());
}

// At factors below -5 a quotient is taken to 22 bits, downwards, and so may count as the tie below.
TEST(Division, QuotientsOf16sAtLowFactorsAreThoseOfSinglePrecision) {
  int different = 0;
  expectQuotients<Mox16s>(
      SCALED(Div_16s), densePairs<Mox16s, Mox16s>(), [&](Int128 b, Int128 a, int factor) {
        const Int128 exact = roundedQuotient(b, a, factor, rangeOf<Mox16s>);
        if (factor >= -5 || factor < -30 || a == 0) return exact;
        const float q = float(std::ldexp(double(b), -factor) / double(a));
        const float shortened = std::bit_cast<float>(std::bit_cast<unsigned>(q) & ~3u);
        const Int128 r = saturated(Int128(std::nearbyint(shortened)), rangeOf<Mox16s>);
        different += r != exact;
        return r;
      });
  EXPECT_GT(different, 0);
  const Mox16s a[] = {4, 4, 0, 0, 0, -2, -2}, b[] = {10, 14, 7, -7, 0, 3, 0};
  Mox16s q[7];
  EXPECT_EQ(moxsDiv_16s_Sfs(a, b, q, 7, 0), moxWarnDivByZero);
  EXPECT_THAT(q, testing::ElementsAre(2, 4, 32767, -32768, 0, -2, 0));
  EXPECT_EQ(moxsDiv_16s_Sfs(a, b, q, 7, -31), moxWarnDivByZero);
  EXPECT_THAT(q, testing::ElementsAre(32767, 32767, 32767, -32768, 0, -32768, 0));
  EXPECT_EQ(moxsDiv_16s_Sfs(a, b, q, 2, 16), moxOk);
  EXPECT_THAT(q, testing::ElementsAre(0, 0, 32767, -32768, 0, -32768, 0));
}

template <class E, class Plain, class InPlace>
void expectRounded(Plain plain, InPlace inPlace) {
  for (const Mode mode : modes)
    expectQuotients<E>([=](const E* a, const E* b, E* d, int len,
                           int factor) { return plain(a, b, d, len, int(mode), factor); },
                       [=](const E* a, E* d, int len, int factor) {
                         return inPlace(a, d, len, int(mode), factor);
                       },
                       densePairs<E, E>(), exactly<E>(mode));
}

TEST(Division, RoundingModesOfWords) {
  expectRounded<Mox16s>(SCALED(Div_Round_16s));
  expectRounded<Mox16u>(SCALED(Div_Round_16u));
}

template <class E>
void expectConstants(ScaledConstantMember<E, E> plain, ScaledConstantInPlaceMember<E, E> inPlace) {
  auto elements = lattice<E>(60), constants = lattice<E>(20);
  std::erase(constants, E(0));
  const int len = int(elements.size());
  for (const int factor : allFactors())
    for (const E val : constants) {
      std::vector<E> dst(len), both = elements;
      if (plain) {
        ASSERT_EQ(plain(elements.data(), val, dst.data(), len, factor), moxOk);
      }
      ASSERT_EQ(inPlace(val, both.data(), len, factor), moxOk);
      for (int i = 0; i < len; ++i) {
        const E expected = E(roundedQuotient(elements[i], val, factor, rangeOf<E>));
        ASSERT_EQ(both[i], expected)
            << long(elements[i]) << " / " << long(val) << ", factor " << factor;
        if (plain) {
          ASSERT_EQ(dst[i], expected);
        }
      }
    }
}

TEST(Division, Constants) {
  expectConstants<Mox16s>(SCALED(DivC_16s));
  expectConstants<Mox16u>(SCALED(DivC_16u));
  expectConstants<Mox64s>(nullptr, moxsDivC_64s_ISfs);
}

TEST(Division, ConstantsOverWords) {
  const auto elements = lattice<Mox16u>(200);
  const int len = int(elements.size());
  for (const Mox16u val : elements) {
    std::vector<Mox16u> dst(len), both = elements;
    ASSERT_EQ(moxsDivCRev_16u(elements.data(), val, dst.data(), len), moxWarnDivByZero);
    ASSERT_EQ(moxsDivCRev_16u_I(val, both.data(), len), moxWarnDivByZero);
    ASSERT_EQ(dst, both);
    for (int i = 0; i < len; ++i)
      ASSERT_EQ(dst[i], roundedQuotient(val, elements[i], 0, rangeOf<Mox16u>));
  }
  Mox16u noZero[] = {1, 2};
  EXPECT_EQ(moxsDivCRev_16u_I(0, noZero, 2), moxOk);
  EXPECT_THAT(noZero, testing::Each(0));
}

// One part, with the sums of products as the quotient's two sides.
Mox16s complexPart(Int128 ofDividend, Int128 numerator, Int128 square, int factor, int lowest) {
  if (square == 0) numerator = ofDividend;
  if (factor < lowest) square = numerator == 0 ? 1 : 0;  // the sign decides
  return Mox16s(roundedQuotient(numerator, square, factor, rangeOf<Mox16s>));
}
Mox16sc complexQuotient(Mox16sc b, Mox16sc a, int factor, int lowest) {
  const WideComplex r = widened(b) * WideComplex{a.re, -Int128(a.im)};
  const Int128 square = Int128(a.re) * a.re + Int128(a.im) * a.im;
  return {complexPart(b.re, r.re, square, factor, lowest),
          complexPart(b.im, r.im, square, factor, lowest)};
}

TEST(Division, ComplexIntegers) {
  auto values = lattice<Mox16sc>(40);
  for (const Mox16sc z : {Mox16sc{3, 0}, {0, -3}, {1, 1}, {0, 2}}) values.push_back(z);
  const auto pairs = allPairs(values, values);
  const int len = int(pairs.first.size()), count = int(values.size());
  std::vector<Mox16sc> dst(len), row(count);
  for (const int factor : allFactors()) {
    ASSERT_EQ(moxsDiv_16sc_Sfs(pairs.first.data(), pairs.second.data(), dst.data(), len, factor),
              moxWarnDivByZero);
    for (int i = 0; i < len; ++i)
      ASSERT_TRUE(same(dst[i], complexQuotient(pairs.second[i], pairs.first[i], factor, -32)))
          << pairs.second[i].re << ", " << pairs.second[i].im << " / " << pairs.first[i].re << ", "
          << pairs.first[i].im << ", factor " << factor;
    for (const Mox16sc val : values) {
      if (val.re == 0 && val.im == 0) continue;
      ASSERT_EQ(moxsDivC_16sc_Sfs(values.data(), val, row.data(), count, factor), moxOk);
      for (int i = 0; i < count; ++i)
        ASSERT_TRUE(same(row[i], complexQuotient(values[i], val, factor, -16)))
            << "constant, factor " << factor;
    }
  }
}

// A warning comes from a divisor at any place; the lengths show body, peel and tail.
template <class E, class Div>
void expectWarnings(Div div, E zero, E other) {
  for (const int len : {1, 15, 16, 17, 40})
    for (int at = -1; at < len; ++at) {
      std::vector<E> a(len, other), b(len, other), dst(len);
      if (at >= 0) a[at] = zero;
      ASSERT_EQ(div(a.data(), b.data(), dst.data(), len), at < 0 ? moxOk : moxWarnDivByZero)
          << "at " << at << " of " << len;
    }
}

TEST(Division, WarnsOfAZeroAtAnyPlace) {
  const auto with = []<class E>(MoxStatus (*member)(const E*, const E*, E*, int, int), int factor) {
    return [=](const E* a, const E* b, E* d, int len) { return member(a, b, d, len, factor); };
  };
  for (const int factor : {INT_MIN, -40, -20, -8, 0, 40, INT_MAX}) {
    expectWarnings(with(moxsDiv_8u_Sfs, factor), Mox8u(0), Mox8u(3));
    expectWarnings(with(moxsDiv_16s_Sfs, factor), Mox16s(0), Mox16s(-3));
    expectWarnings(with(moxsDiv_16u_Sfs, factor), Mox16u(0), Mox16u(3));
    expectWarnings(with(moxsDiv_32s_Sfs, factor), Mox32s(0), Mox32s(-3));
    expectWarnings(with(moxsDiv_16sc_Sfs, factor), Mox16sc{0, 0}, Mox16sc{0, -3});
  }
  expectWarnings(moxsDiv_32f, -0.0f, 3.0f);
  expectWarnings(moxsDiv_64f, 0.0, 3.0);
  expectWarnings(moxsDiv_32fc, Mox32fc{0, -0.0f}, Mox32fc{0, 1e-30f});
  expectWarnings(moxsDiv_64fc, Mox64fc{0, 0}, Mox64fc{-1, 0});
  expectWarnings(
      [](const float* a, const float*, float* d, int len) { return moxsDivCRev_32f(a, 0, d, len); },
      0.0f, 3.0f);
}

// Integer results do not follow the rounding mode in force, floats do.
TEST(Division, UnderEveryRoundingMode) {
  const auto pairs = densePairs<Mox16s, Mox16s>();
  const auto z = lattice<Mox16sc>(100);
  const int len = int(pairs.first.size()), count = int(z.size());
  std::vector<std::vector<Mox16s>> results;
  for (const int mode : allRoundings) {
    const UnderRounding scope(mode);
    std::vector<Mox16s> all, dst(len);
    const auto gather = [&](MoxStatus status) {
      ASSERT_TRUE(status == moxOk || status == moxWarnDivByZero);
      all.insert(all.end(), dst.begin(), dst.end());
    };
    auto* const complexDst = reinterpret_cast<Mox16sc*>(dst.data());
    for (const int factor : {3, 0, -5, -12}) {
      gather(moxsDiv_16s_Sfs(pairs.first.data(), pairs.second.data(), dst.data(), len, factor));
      for (Mox16s val = 1; val < 100; val += 7) {
        gather(moxsDivC_16s_Sfs(pairs.second.data(), val, dst.data(), len, factor));
        gather(moxsDivC_16sc_Sfs(z.data(), {val, 3}, complexDst, count, factor));
      }
    }
    results.push_back(all);
    volatile float one = 1, three = 3;
    const float a[] = {three}, b[] = {one};
    float q;
    moxsDiv_32f(a, b, &q, 1);
    EXPECT_EQ(q, one / three);
  }
  for (const auto& other : results) EXPECT_EQ(other, results[0]);
}

// Numbers that leave no doubt about the NaN of a quotient.
const auto numbers = []<class E>(Random& random, E) {
  const auto number = [&] {
    using F = mox::Part<E>;
    return random.below(9) ? random.value<F>() : std::numeric_limits<F>::denorm_min();
  };
  if constexpr (mox::Complex<E>) {
    const auto re = number();
    return E{re, number()};
  } else {
    return number();
  }
};
const auto quotient = []<class E>(E a, E b) {
  if constexpr (mox::Complex<E>) {
    const auto n = a.re * a.re + a.im * a.im;
    return E{(b.re * a.re + b.im * a.im) / n, (b.im * a.re - b.re * a.im) / n};
  } else {
    return b / a;
  }
};
const auto reversed = [](auto a, auto b) { return quotient(b, a); };

TEST(Division, Floats) {
  expectPairs<Mox32f, Mox32f, Mox32f>(moxsDiv_32f, moxsDiv_32f_I, quotient, numbers);
  expectPairs<Mox64f, Mox64f, Mox64f>(moxsDiv_64f, moxsDiv_64f_I, quotient, numbers);
  expectPairs<Mox64fc, Mox64fc, Mox64fc>(moxsDiv_64fc, moxsDiv_64fc_I, quotient, numbers);
  test::expectConstants<Mox64f, Mox64f>(moxsDivC_64f, moxsDivC_64f_I, 3, reversed, numbers);
  test::expectConstants<Mox32fc, Mox32fc>(moxsDivC_32fc, moxsDivC_32fc_I, {3, -7}, reversed,
                                          numbers);
  test::expectConstants<Mox64fc, Mox64fc>(moxsDivC_64fc, moxsDivC_64fc_I, {0, 3}, reversed,
                                          numbers);
  test::expectConstants<Mox32f, Mox32f>(moxsDivCRev_32f, moxsDivCRev_32f_I, 3, quotient, numbers);
}

TEST(Division, FloatsOverZero) {
  const float inf = INFINITY, a[] = {0, -0.0f, 0, 0, 2}, b[] = {1, 1, -1, 0, 1};
  float q[5];
  EXPECT_EQ(moxsDiv_32f(a, b, q, 5), moxWarnDivByZero);
  EXPECT_THAT(q, testing::ElementsAre(inf, -inf, -inf, testing::IsNan(), 0.5f));
  const Mox32fc z[] = {{0, 0}};
  Mox32fc w[] = {{1, 2}};
  EXPECT_EQ(moxsDiv_32fc_I(z, w, 1), moxWarnDivByZero);
  EXPECT_TRUE(std::isnan(w[0].re) && std::isnan(w[0].im));
}

// It isn't a division, and has the early outs of the product.
TEST(Division, AFloatConstantMultipliesByItsReciprocal) {
  Random random;
  int different = 0;
  for (int i = 0; i < 1000; ++i) {
    const float val = random.value<float>(), x[] = {random.value<float>()};
    float q;
    ASSERT_EQ(moxsDivC_32f(x, val, &q, 1), moxOk);
    ASSERT_EQ(q, x[0] * (1 / val));
    different += q != x[0] / val;
  }
  EXPECT_GT(different, 100);
  const unsigned signalling = 0x7FA00000;
  float x[] = {std::bit_cast<float>(signalling), -0.0f};
  EXPECT_EQ(moxsDivC_32f_I(1, x, 2), moxOk);
  EXPECT_EQ(std::bit_cast<unsigned>(x[0]), signalling);
  EXPECT_EQ(moxsDivC_32f_I(INFINITY, x, 2), moxOk);
  EXPECT_EQ(std::bit_cast<unsigned>(x[0]) | std::bit_cast<unsigned>(x[1]), 0u);
}

TEST(Division, ArgumentsAreCheckedInOrder) {
  Mox16s a[] = {1, 2}, d[] = {7, 7};
  float f[] = {7, 7};
  for (const int factor : {0, 17, 100, INT_MAX, -6, INT_MIN}) {
    EXPECT_EQ(moxsDivC_16s_Sfs(a, 0, nullptr, 0, factor), moxErrNullPtr);
    EXPECT_EQ(moxsDivC_16s_Sfs(a, 0, d, 0, factor), moxErrSize);
    EXPECT_EQ(moxsDivC_16s_Sfs(a, 0, d, 2, factor), moxErrDivByZero);
    EXPECT_EQ(moxsDivC_16s_ISfs(0, d, 2, factor), moxErrDivByZero);
    EXPECT_EQ(moxsDiv_Round_16s_Sfs(a, a, nullptr, 0, 3, factor), moxErrNullPtr);
    EXPECT_EQ(moxsDiv_Round_16s_Sfs(a, a, d, 0, 3, factor), moxErrSize);
    EXPECT_EQ(moxsDiv_Round_16s_Sfs(a, a, d, 2, 3, factor), moxErrRoundMode);
    EXPECT_EQ(moxsDiv_Round_16s_ISfs(a, d, 2, -1, factor), moxErrRoundMode);
  }
  EXPECT_EQ(moxsDivC_32f_I(-0.0f, f, 2), moxErrDivByZero);
  EXPECT_EQ(moxsDivC_32f_I(-0.0f, f, 0), moxErrSize);
  EXPECT_EQ(d[0], 7);
  EXPECT_EQ(f[0], 7);
}

}  // namespace
