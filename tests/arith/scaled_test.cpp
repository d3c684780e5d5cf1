// Integer sums, differences and products under the scale rule.
#include "arith/exact_scaled.h"

namespace {

using namespace test;

const auto sum = [](auto a, auto b) { return a + b; };
const auto difference = [](auto a, auto b) { return a - b; };
const auto subtracted = [](auto a, auto b) { return b - a; };
const auto product = [](auto a, auto b) { return a * b; };

// Every pair under every factor; of complex numbers (-32768, -32768) twice, the imaginary part of
// whose product needs 33 bits.
template <class A, class B, class D>
void expectOne(auto exact, Member<const A*, const B*, D*, int, int> member) {
  constexpr int randomCount = mox::Complex<A> ? 60 : 10;
  const auto [a, b] = allPairs(lattice<A>(randomCount), lattice<B>(randomCount));
  forAllFactors([&, &a = a, &b = b](int factor) {
    expectEach(run(member, a, b, factor),
               [&](A x, B y) { return scaled<D>(exact(widened(x), widened(y)), factor); });
  });
}

// Every element with every constant under every factor, in place or not.
template <class E, class... A>
void expectConstants(auto exact, Member<A...> member) {
  const auto values = lattice<E>(10);
  forAllFactors([&](int factor) {
    for (const E val : values)
      expectEach(run(member, values, val, factor),
                 [&](E x) { return scaled<E>(exact(widened(x), widened(val)), factor); });
  });
}
template <class E>
void expectOne(auto exact, Member<const E*, E, E*, int, int> member) {
  expectConstants<E>(exact, member);
}
// Without a factor: saturated, or as a float.
template <class D, class... S>
void expectUnscaled(auto exact, const Results<D, S...>& got) {
  expectEach(got, [&](S... x) {
    if constexpr (std::is_floating_point_v<D>)
      return exact(D(x)...);
    else
      return scaled<D>(exact(Int128(x)...), 0);
  });
}
template <class A, class B, class D>
void expectOne(auto exact, Member<const A*, const B*, D*, int> member) {
  const auto [a, b] = allPairs(lattice<A>(50), lattice<B>(50));
  expectUnscaled(exact, run(member, a, b));
}
template <class A, class D>
void expectOne(auto exact, Member<const A*, D*, int> inPlace) {
  const auto [a, b] = allPairs(lattice<A>(50), lattice<D>(50));
  expectUnscaled(exact, runOnto(inPlace, a, b));
}
void expectOne(auto exact, Member<Mox16s, Mox16s*, int> inPlace) {
  const auto words = lattice<Mox16s>(10);
  for (const Mox16s val : words)
    expectUnscaled([&](Int128 x) { return exact(x, Int128(val)); }, run(inPlace, words, val));
}
void expectExact(auto exact, auto... members) { (expectOne(exact, members), ...); }

#define SUMS_OF(t)                                                             \
  TEST(Scaled, SumsAndDifferencesOf_##t) {                                     \
    expectExact(sum, MEMBER(Add_##t##_Sfs), MEMBER(AddC_##t##_Sfs));           \
    expectExact(difference, MEMBER(SubC_##t##_Sfs));                           \
    expectExact(subtracted, MEMBER(Sub_##t##_Sfs), MEMBER(SubCRev_##t##_Sfs)); \
  }
SUMS_OF(8u)
SUMS_OF(16s)
SUMS_OF(16u)
SUMS_OF(32s)
SUMS_OF(16sc)
SUMS_OF(32sc)

TEST(Scaled, Products) {
  expectExact(product, MEMBER(Mul_8u_Sfs), MEMBER(Mul_16s_Sfs), MEMBER(Mul_16u_Sfs),
              MEMBER(Mul_16s32s_Sfs), MEMBER(Mul_16u16s_Sfs), MEMBER(Mul_Low_32s_Sfs),
              MEMBER(Mul_32s32sc_Sfs), MEMBER(Mul_16sc_Sfs), MEMBER(Mul_32sc_Sfs),
              MEMBER(MulC_8u_Sfs), MEMBER(MulC_16s_Sfs), MEMBER(MulC_16u_Sfs), MEMBER(MulC_32s_Sfs),
              MEMBER(MulC_16sc_Sfs), MEMBER(MulC_32sc_Sfs));
  expectConstants<Mox64s>(product, MEMBER(MulC_64s_ISfs));
}

// The sum of two vectors saturates to 64 bits before it is scaled: (2^63 - 1) / 2 to even is 2^62,
// although half the true sum of two maxima is 2^63 - 1.
TEST(Scaled, SumsOf64Bits) {
  const auto held = [](Int128 a, Int128 b) { return saturated(sum(a, b), rangeOf<Mox64s>); };
  expectExact(held, MEMBER(Add_64s_Sfs));
  expectExact(subtracted, MEMBER(Sub_64s_Sfs));
  expectExact(sum, MEMBER(AddC_64s_Sfs), MEMBER(AddC_64u_Sfs));
}

// Where the destination starts within a block behind a source, elements go one by one.
TEST(Scaled, DestinationsAheadOfASourceInBlocks) {
  constexpr int len = 40;
  for (int ahead = 1; ahead <= len; ++ahead) {
    std::vector<Mox16s> v(2 * len, 1), one(len, 1);
    ASSERT_OK(moxsAdd_16s_Sfs(v.data(), one.data(), v.data() + ahead, len, 0));
    for (int i = 0; i < ahead + len; ++i) ASSERT_EQ(v[i], 1 + i / ahead) << ahead << " at " << i;
  }
}

// Doubles with few digits are a fraction of integers that the model knows.
TEST(Scaled, DoublesTimes64Bits) {
  const auto member = MEMBER(MulC_64f64s_ISfs);
  const auto values = lattice<Mox64s>(20);
  for (const auto& [mantissa, exponent] :
       {std::pair(5L, -23), {-3L, 4}, {1L, 0}, {-1L, -63}, {(1L << 53) - 1, -52}, {0L, 0}})
    forAllFactors([&, &m = mantissa, &e = exponent](int factor) {
      expectEach(run(member, values, std::ldexp(double(m), e), factor), [&](Mox64s x) {
        return scaledInteger(Int128(m) * x, long(factor) - e, rangeOf<Mox64s>);
      });
    });
  const std::vector<Mox64s> few = {-1, 0, 7}, limits = {LLONG_MAX, 0, LLONG_MIN};
  EXPECT_EQ(run(member, few, -INFINITY, INT_MAX).values, limits);
  EXPECT_EQ(run(member, few, NAN, 0).values, std::vector<Mox64s>(3));
}

template <class D>
void expectSumWithProduct(Member<const Mox16s*, const Mox16s*, D*, int, int> member) {
  const auto words = lattice<Mox16s>(0);
  const auto [a, b] = allPairs(words, words);
  const auto sums = lattice<D>(10);
  std::vector<D> before;
  for (std::size_t i = 0; i < a.size(); ++i) before.push_back(sums[7 * i % sums.size()]);
  forAllFactors([&, &a = a, &b = b](int factor) {
    expectEach(runOnto(member, a, b, before, factor),
               [&](Mox16s x, Mox16s y, D c) { return scaled<D>(Int128(c) + x * y, factor); });
  });
}

TEST(Scaled, AddProductScalesTheWholeSum) {
  expectSumWithProduct(MEMBER(AddProduct_16s_Sfs));
  expectSumWithProduct(MEMBER(AddProduct_16s32s_Sfs));
}

TEST(Scaled, FormsWithoutAFactor) {
  expectExact(sum, MEMBER(Add_16s), MEMBER(Add_16u), MEMBER(Add_32u), MEMBER(Add_8u16u),
              MEMBER(Add_16s32s_I), MEMBER(AddC_16s_I), MEMBER(Add_16s32f));
  expectExact(difference, MEMBER(SubC_16s_I));
  expectExact(subtracted, MEMBER(Sub_16s), MEMBER(Sub_16s32s_I), MEMBER(SubCRev_16s_I),
              MEMBER(Sub_16s32f));
  expectExact(product, MEMBER(Mul_16s), MEMBER(Mul_8u16u), MEMBER(MulC_16s_I), MEMBER(Mul_16s32f));
}

}  // namespace
