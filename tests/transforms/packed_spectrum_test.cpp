// Conj, MulPack, MulPerm and MulPackConj against models that go place by place.
#include <array>

#include "support/exact_model.h"
#include "support/values.h"
#include "transforms/packed.h"

namespace {

using test::Layout;

template <class P>
P negated(P p) {
  if constexpr (std::is_integral_v<P>)
    if (p == std::numeric_limits<P>::min()) return std::numeric_limits<P>::max();
  return P(-p);
}

// Lengths about the ends of vectors; the forms in place are compared with these for every function.
constexpr int lengths[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 15, 16, 17, 31, 32, 33, 64, 69, 70};

// The functions by layout.
template <class C, class P = mox::Part<C>>
void checkExpansions(const std::array<MoxStatus (*)(const P*, C*, int), 3>& expansions) {
  test::Random random;
  for (const Layout layout : {Layout::perm, Layout::pack, Layout::ccs})
    for (const int len : lengths) {
      SCOPED_TRACE(testing::Message() << layout << " len " << len);
      auto src = random.vector<P>(test::packedSize(layout, len));
      if (std::is_integral_v<P>) src[src.size() / 2] = std::numeric_limits<P>::min();
      std::vector<C> dst(len);
      ASSERT_OK(expansions[int(layout)](src.data(), dst.data(), len));
      for (int k = 0; k < len; ++k) {
        const int stored = k <= len / 2 ? k : len - k;
        const long place = test::realPlace(layout, len, stored);
        const P im = test::hasImaginaryPlace(layout, len, stored) ? src[place + 1] : P(0);
        EXPECT_EQ(dst[k].re, src[place]) << k;
        EXPECT_EQ(dst[k].im, k == stored ? im : negated(im)) << k;
      }
    }
}

TEST(ConjSpectrum, CompletesTheHalfOfEveryLayout) {
  checkExpansions<Mox32fc>({moxsConjPerm_32fc, moxsConjPack_32fc, moxsConjCcs_32fc});
  checkExpansions<Mox64fc>({moxsConjPerm_64fc, moxsConjPack_64fc, moxsConjCcs_64fc});
  checkExpansions<Mox16sc>({moxsConjPerm_16sc, moxsConjPack_16sc, moxsConjCcs_16sc});
}

// Written without std::complex, whose product treats infinities in its own way.
template <class E>
std::vector<E> product(Layout layout, bool conjugate, const E* x, const E* y, int len) {
  std::vector<E> result(len);
  for (int k = 0; k <= len / 2; ++k) {
    const long place = test::realPlace(layout, len, k);
    if (!test::hasImaginaryPlace(layout, len, k)) {
      result[place] = x[place] * y[place];
      continue;
    }
    const E a = x[place], b = x[place + 1], c = y[place], d = y[place + 1];
    result[place] = conjugate ? a * c + b * d : a * c - b * d;
    result[place + 1] = conjugate ? b * c - a * d : c * b + d * a;
  }
  return result;
}

template <class E, class... Factor>
using InPlace = MoxStatus (*)(const E*, E*, int, Factor...);

template <class E>
void checkProduct(Layout layout, bool conjugate, InPlace<E> multiply) {
  test::Random random;
  for (const int len : lengths) {
    const auto x = random.vector<E>(len);
    auto y = random.vector<E>(len);
    const auto expected = product(layout, conjugate, x.data(), y.data(), len);
    ASSERT_OK(multiply(x.data(), y.data(), len));
    EXPECT_TRUE(test::sameBits(y, expected)) << layout << (conjugate ? " conj" : "") << ' ' << len;
  }
}

TEST(MulSpectrum, IsExactInTheOrderOfOperations) {
  checkProduct(Layout::pack, false, moxsMulPack_32f_I);
  checkProduct(Layout::pack, false, moxsMulPack_64f_I);
  checkProduct(Layout::perm, false, moxsMulPerm_32f_I);
  checkProduct(Layout::perm, false, moxsMulPerm_64f_I);
  checkProduct(Layout::pack, true, moxsMulPackConj_32f_I);
  checkProduct(Layout::pack, true, moxsMulPackConj_64f_I);
}

TEST(MulSpectrum, ScaledIsExactAtTheExtremes) {
  test::Random random;
  const Mox16s extremes[] = {-32768, -32767, -1, 0, 1, 32766, 32767};
  const auto value = [&] {
    return random.below(3) ? extremes[random.below(7)] : random.value<Mox16s>();
  };
  const auto check = [&](Layout layout, InPlace<Mox16s, int> multiply, int len, int factor) {
    std::vector<Mox16s> x(len), y(len);
    std::generate(x.begin(), x.end(), value);
    std::generate(y.begin(), y.end(), value);
    if (len > 6) std::fill_n(x.begin(), len, -32768), std::fill_n(y.begin(), 5, -32768);
    const std::vector<Mox64s> wideX(x.begin(), x.end()), wideY(y.begin(), y.end());
    const auto exact = product(layout, false, wideX.data(), wideY.data(), len);
    ASSERT_OK(multiply(x.data(), y.data(), len, factor));
    for (int i = 0; i < len; ++i)
      ASSERT_EQ(y[i], test::scaledInteger(exact[i], factor, test::rangeOf<Mox16s>))
          << layout << " len " << len << " factor " << factor << " at " << i;
  };
  for (const int factor : test::allFactors())
    for (const int len : {1, 2, 3, 4, 9, 10, 11, 12, 63, 64}) {
      check(Layout::pack, moxsMulPack_16s_ISfs, len, factor);
      check(Layout::perm, moxsMulPerm_16s_ISfs, len, factor);
    }
}

}  // namespace
