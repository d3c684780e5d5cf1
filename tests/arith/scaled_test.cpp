// Integer sums, differences and products under the scale rule.
#include <gtest/gtest.h>
#include <moxsp.h>

#include "arith/scaled_members.h"

namespace {

using namespace test;

const auto sum = [](auto a, auto b) { return a + b; };
const auto difference = [](auto a, auto b) { return a - b; };
const auto subtracted = [](auto a, auto b) { return b - a; };
const auto product = [](auto a, auto b) { return a * b; };

#define SCALED(name) moxs##name##_Sfs, moxs##name##_ISfs

// All pairs of bytes. The model is tabled, for it is slower than what it checks.
template <class Exact>
void expectAllBytes(ScaledMember<Mox8u, Mox8u, Mox8u> pair,
                    ScaledInPlaceMember<Mox8u, Mox8u> pairInPlace,
                    ScaledConstantMember<Mox8u, Mox8u> constant,
                    ScaledConstantInPlaceMember<Mox8u, Mox8u> constantInPlace, Exact exact) {
  constexpr int len = 1 << 16, lowest = -255, highest = 255 * 255;
  std::vector<Mox8u> a(len), b(len), dst(len), table(highest - lowest + 1);
  for (int i = 0; i < len; ++i) a[i] = Mox8u(i), b[i] = Mox8u(i >> 8);
  for (int factor : allFactors()) {
    for (int r = lowest; r <= highest; ++r) table[r - lowest] = scaled<Mox8u>(Int128(r), factor);
    const auto expected = [&](int i) { return table[exact(int(a[i]), int(b[i])) - lowest]; };
    const auto check = [&](const char* form) {
      for (int i = 0; i < len; ++i)
        ASSERT_EQ(dst[i], expected(i))
            << form << ": " << int(a[i]) << ", " << int(b[i]) << ", factor " << factor;
    };
    if (pair) {
      ASSERT_EQ(pair(a.data(), b.data(), dst.data(), len, factor), moxOk);
      ASSERT_NO_FATAL_FAILURE(check("pair"));
      dst = b;
      ASSERT_EQ(pairInPlace(a.data(), dst.data(), len, factor), moxOk);
      ASSERT_NO_FATAL_FAILURE(check("pair in place"));
    }
    dst = a;
    for (int val = 0; val < 256; ++val) {
      Mox8u* const row = dst.data() + 256 * val;
      ASSERT_EQ(constantInPlace(Mox8u(val), row, 256, factor), moxOk);
    }
    ASSERT_NO_FATAL_FAILURE(check("constant in place"));
    for (int val = 0; val < 256; ++val)
      ASSERT_EQ(constant(a.data(), Mox8u(val), dst.data() + 256 * val, 256, factor), moxOk);
    ASSERT_NO_FATAL_FAILURE(check("constant"));
  }
}

TEST(Scaled, AllPairsOfBytes) {
  expectAllBytes(SCALED(Add_8u), SCALED(AddC_8u), sum);
  expectAllBytes(SCALED(Sub_8u), SCALED(SubCRev_8u), subtracted);
  expectAllBytes(nullptr, nullptr, SCALED(SubC_8u), difference);
  expectAllBytes(SCALED(Mul_8u), SCALED(MulC_8u), product);
}

template <class A, class B, class D, class Exact>
void expectLattice(ScaledMember<A, B, D> plain, ScaledInPlaceMember<A, D> inPlace, Exact exact,
                   int randomCount = 10) {
  SCOPED_TRACE(testing::UnitTest::GetInstance()->current_test_info()->name());
  expectScaled<A, B, D>(plain, inPlace, exact,
                        allPairs(lattice<A>(randomCount), lattice<B>(randomCount)));
}
template <class E, class Exact>
void expectConstantLattice(ScaledConstantMember<E, E> plain,
                           ScaledConstantInPlaceMember<E, E> inPlace, Exact exact) {
  const auto values = lattice<E>(10);
  expectScaledConstants<E>(plain, inPlace, exact, values, values);
}

// Members that exist for pairs of signed and unsigned words alike, for both parts of complex ones,
// and with a constant.
#define SUMS_OF(t)                                             \
  TEST(Scaled, SumsAndDifferencesOf_##t) {                     \
    using E = Mox##t;                                          \
    expectLattice<E, E, E>(SCALED(Add_##t), sum);              \
    expectLattice<E, E, E>(SCALED(Sub_##t), subtracted);       \
    expectConstantLattice<E>(SCALED(AddC_##t), sum);           \
    expectConstantLattice<E>(SCALED(SubC_##t), difference);    \
    expectConstantLattice<E>(SCALED(SubCRev_##t), subtracted); \
  }
SUMS_OF(16s)
SUMS_OF(16u)
SUMS_OF(32s)
SUMS_OF(16sc)
SUMS_OF(32sc)
#undef SUMS_OF

TEST(Scaled, Products) {
  expectLattice<Mox16s, Mox16s, Mox16s>(SCALED(Mul_16s), product);
  expectLattice<Mox16u, Mox16u, Mox16u>(SCALED(Mul_16u), product);
  expectLattice<Mox16s, Mox16s, Mox32s>(moxsMul_16s32s_Sfs, nullptr, product);
  expectLattice<Mox16u, Mox16s, Mox16s>(moxsMul_16u16s_Sfs, nullptr, product);
  expectLattice<Mox32s, Mox32s, Mox32s>(moxsMul_Low_32s_Sfs, nullptr, product);
  expectLattice<Mox32s, Mox32sc, Mox32sc>(SCALED(Mul_32s32sc), product);
  expectConstantLattice<Mox16s>(SCALED(MulC_16s), product);
  expectConstantLattice<Mox16u>(SCALED(MulC_16u), product);
  expectConstantLattice<Mox32s>(SCALED(MulC_32s), product);
}

// The lattice holds (-32768, -32768) twice, the imaginary part of whose product needs 33 bits.
TEST(Scaled, ComplexProducts) {
  expectLattice<Mox16sc, Mox16sc, Mox16sc>(SCALED(Mul_16sc), product, 60);
  expectLattice<Mox32sc, Mox32sc, Mox32sc>(SCALED(Mul_32sc), product, 60);
  expectConstantLattice<Mox16sc>(SCALED(MulC_16sc), product);
  expectConstantLattice<Mox32sc>(SCALED(MulC_32sc), product);
}

// The sum saturates to 64 bits before it is scaled: (2^63 - 1) / 2 to even is 2^62, although half
// the true sum of two maxima is 2^63 - 1.
TEST(Scaled, SumsOf64BitsSaturateFirst) {
  const auto held = [](auto op) {
    return [op](Int128 a, Int128 b) { return saturated(op(a, b), rangeOf<Mox64s>); };
  };
  expectLattice<Mox64s, Mox64s, Mox64s>(moxsAdd_64s_Sfs, nullptr, held(sum));
  expectLattice<Mox64s, Mox64s, Mox64s>(moxsSub_64s_Sfs, nullptr, held(subtracted));
  const auto unsignedSum = [](Int128 a, Int128 b) { return saturated(a + b, rangeOf<Mox64u>); };
  const auto expectConstant = []<class E, class Exact>(ScaledConstantMember<E, E> member,
                                                       Exact exact, E) {
    const auto values = lattice<E>(10);
    std::vector<E> dst(values.size());
    for (int factor : allFactors())
      for (E val : values) {
        ASSERT_EQ(member(values.data(), val, dst.data(), int(dst.size()), factor), moxOk);
        for (std::size_t i = 0; i < dst.size(); ++i)
          ASSERT_EQ(dst[i], scaled<E>(exact(values[i], val), factor)) << "factor " << factor;
      }
  };
  expectConstant(&moxsAddC_64s_Sfs, held(sum), Mox64s());
  expectConstant(&moxsAddC_64u_Sfs, unsignedSum, Mox64u());
  const Mox64s most = LLONG_MAX;
  Mox64s r;
  ASSERT_EQ(moxsAdd_64s_Sfs(&most, &most, &r, 1, 1), moxOk);
  EXPECT_EQ(r, Mox64s(1) << 62);
}

TEST(Scaled, ConstantsOf64Bits) {
  const auto values = lattice<Mox64s>(20);
  expectScaledConstants<Mox64s>(nullptr, moxsMulC_64s_ISfs, product, values, values);
  // Doubles with few digits are a fraction of integers that the model knows.
  const int len = int(values.size());
  for (const auto& [mantissa, exponent] :
       {std::pair(5L, -23), {-3L, 4}, {1L, 0}, {-1L, -63}, {(1L << 53) - 1, -52}, {0L, 0}})
    for (int factor = -40; factor <= 40; ++factor) {
      auto v = values;
      ASSERT_EQ(moxsMulC_64f64s_ISfs(std::ldexp(double(mantissa), exponent), v.data(), len, factor),
                moxOk);
      for (int i = 0; i < len; ++i)
        ASSERT_EQ(v[i], scaled<Mox64s>(Int128(mantissa) * values[i], factor - exponent))
            << values[i] << " by " << mantissa << " * 2^" << exponent << ", factor " << factor;
    }
  Mox64s v[] = {-1, 0, 7};
  ASSERT_EQ(moxsMulC_64f64s_ISfs(-INFINITY, v, 3, INT_MAX), moxOk);
  EXPECT_EQ(v[0], LLONG_MAX);
  EXPECT_EQ(v[1], 0);
  EXPECT_EQ(v[2], LLONG_MIN);
  ASSERT_EQ(moxsMulC_64f64s_ISfs(NAN, v, 3, 0), moxOk);
  EXPECT_EQ(v[0], 0);
}

TEST(Scaled, AddProductScalesTheWholeSum) {
  const auto expectSum = []<class D>(ScaledMember<Mox16s, Mox16s, D> member, D) {
    const auto words = lattice<Mox16s>(0);
    const auto pairs = allPairs(words, words);
    const auto sums = lattice<D>(10);
    const int len = int(pairs.first.size());
    for (int factor : allFactors()) {
      std::vector<D> before(len);
      for (int i = 0; i < len; ++i)
        before[i] = sums[std::size_t(i * 7L + factor + 1000000) % sums.size()];
      auto dst = before;
      ASSERT_EQ(member(pairs.first.data(), pairs.second.data(), dst.data(), len, factor), moxOk);
      for (int i = 0; i < len; ++i)
        ASSERT_EQ(dst[i], scaled<D>(Int128(before[i]) + pairs.first[i] * pairs.second[i], factor))
            << "element " << i << ", factor " << factor;
    }
  };
  expectSum(&moxsAddProduct_16s_Sfs, Mox16s());
  expectSum(&moxsAddProduct_16s32s_Sfs, Mox32s());
}

// Without a factor.
template <class A, class B, class D, class Exact>
void expectSaturated(PairMember<A, B, D> plain, PairInPlaceMember<A, D> inPlace, Exact exact) {
  const auto as = lattice<A>(50);
  const auto bs = lattice<B>(50);
  Random random;
  atLengthsAndPlaces([&](long len, int slack) {
    std::vector<A> a(len);
    std::vector<B> b(len);
    std::vector<D> expected(len);
    for (long i = 0; i < len; ++i) {
      a[i] = as[random.below(long(as.size()))];
      b[i] = bs[random.below(long(bs.size()))];
      expected[i] = scaled<D>(exact(Int128(a[i]), Int128(b[i])), 0);
    }
    const Place<D> dst(len, slack);
    if (plain) {
      ASSERT_EQ(plain(a.data(), b.data(), dst.data(), int(len)), moxOk);
      dst.expect(expected, "plain");
    }
    if constexpr (std::is_same_v<B, D>) {
      if (!inPlace) return;
      ASSERT_EQ(inPlace(a.data(), dst.filled(b), int(len)), moxOk);
      dst.expect(expected, "in place");
    }
  });
}

TEST(Saturated, FormsWithoutAFactor) {
  expectSaturated<Mox16s, Mox16s, Mox16s>(moxsAdd_16s, moxsAdd_16s_I, sum);
  expectSaturated<Mox16s, Mox16s, Mox16s>(moxsSub_16s, moxsSub_16s_I, subtracted);
  expectSaturated<Mox16s, Mox16s, Mox16s>(moxsMul_16s, moxsMul_16s_I, product);
  expectSaturated<Mox16u, Mox16u, Mox16u>(moxsAdd_16u, nullptr, sum);
  expectSaturated<Mox32u, Mox32u, Mox32u>(moxsAdd_32u, nullptr, sum);
  expectSaturated<Mox8u, Mox8u, Mox16u>(moxsAdd_8u16u, nullptr, sum);
  expectSaturated<Mox8u, Mox8u, Mox16u>(moxsMul_8u16u, nullptr, product);
  expectSaturated<Mox16s, Mox32s, Mox32s>(nullptr, moxsAdd_16s32s_I, sum);
  expectSaturated<Mox16s, Mox32s, Mox32s>(nullptr, moxsSub_16s32s_I, subtracted);
  const auto words = lattice<Mox16s>(10);
  for (Mox16s val : words) {
    const auto expectConstant = [&](ConstantInPlaceMember<Mox16s, Mox16s> member, auto exact) {
      auto v = words;
      ASSERT_EQ(member(val, v.data(), int(v.size())), moxOk);
      for (std::size_t i = 0; i < v.size(); ++i)
        ASSERT_EQ(v[i], scaled<Mox16s>(exact(Int128(words[i]), Int128(val)), 0));
    };
    expectConstant(moxsAddC_16s_I, sum);
    expectConstant(moxsSubC_16s_I, difference);
    expectConstant(moxsSubCRev_16s_I, subtracted);
    expectConstant(moxsMulC_16s_I, product);
  }
}

TEST(Saturated, WordsToFloat) {
  const auto words = lattice<Mox16s>(10);
  const auto pairs = allPairs(words, words);
  const int len = int(pairs.first.size());
  std::vector<float> r(len);
  const auto expectFloat = [&](PairMember<Mox16s, Mox16s, Mox32f> member, auto exact) {
    ASSERT_EQ(member(pairs.first.data(), pairs.second.data(), r.data(), len), moxOk);
    for (int i = 0; i < len; ++i)
      ASSERT_EQ(r[i], float(exact(long(pairs.first[i]), long(pairs.second[i]))));
  };
  expectFloat(moxsAdd_16s32f, sum);
  expectFloat(moxsSub_16s32f, subtracted);
  expectFloat(moxsMul_16s32f, product);
}

TEST(Scaled, ArgumentsAreCheckedAtEveryFactor) {
  Mox16s a[] = {1, 2}, d[] = {7, 7};
  Mox16sc* const noComplex = nullptr;
  for (int factor : {0, 1, 17, 100, INT_MAX, -16, INT_MIN}) {
    EXPECT_EQ(moxsAdd_16s_Sfs(a, a, nullptr, 2, factor), moxErrNullPtr);
    EXPECT_EQ(moxsAdd_16s_Sfs(nullptr, a, d, 0, factor), moxErrNullPtr);
    EXPECT_EQ(moxsAdd_16s_Sfs(a, a, d, 0, factor), moxErrSize);
    EXPECT_EQ(moxsMulC_16s_Sfs(a, 0, nullptr, 2, factor), moxErrNullPtr);
    EXPECT_EQ(moxsMulC_16s_ISfs(1, d, -1, factor), moxErrSize);
    EXPECT_EQ(moxsAdd_16sc_Sfs(noComplex, noComplex, noComplex, 0, factor), moxErrSize);
    EXPECT_EQ(moxsSub_16sc_ISfs(noComplex, noComplex, 0, factor), moxErrSize);
    EXPECT_EQ(moxsSub_16sc_ISfs(noComplex, noComplex, 1, factor), moxErrNullPtr);
    EXPECT_EQ(moxsMul_16sc_Sfs(noComplex, noComplex, noComplex, 0, factor), moxErrNullPtr);
  }
  EXPECT_EQ(d[0], 7);
}

}  // namespace
