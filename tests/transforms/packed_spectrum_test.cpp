// Conj, MulPack, MulPerm and MulPackConj against models that go place by place.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <cstring>
#include <limits>

#include "support/guarded_array.h"
#include "support/random.h"
#include "transforms/packed.h"

namespace {

using test::GuardedArray;
using test::Layout;

template <class C>
struct Expand {
  using P = mox::Part<C>;
  Layout layout;
  MoxStatus (*run)(const P*, C*, int);
  MoxStatus (*runInPlace)(C*, int);
};

template <class C>
const Expand<C> expansions[3];
template <>
const Expand<Mox32fc> expansions<Mox32fc>[3] = {
    {Layout::perm, moxsConjPerm_32fc, moxsConjPerm_32fc_I},
    {Layout::pack, moxsConjPack_32fc, moxsConjPack_32fc_I},
    {Layout::ccs, moxsConjCcs_32fc, moxsConjCcs_32fc_I}};
template <>
const Expand<Mox64fc> expansions<Mox64fc>[3] = {
    {Layout::perm, moxsConjPerm_64fc, moxsConjPerm_64fc_I},
    {Layout::pack, moxsConjPack_64fc, moxsConjPack_64fc_I},
    {Layout::ccs, moxsConjCcs_64fc, moxsConjCcs_64fc_I}};
template <>
const Expand<Mox16sc> expansions<Mox16sc>[3] = {
    {Layout::perm, moxsConjPerm_16sc, moxsConjPerm_16sc_I},
    {Layout::pack, moxsConjPack_16sc, moxsConjPack_16sc_I},
    {Layout::ccs, moxsConjCcs_16sc, moxsConjCcs_16sc_I}};

template <class P>
P negated(P p) {
  if constexpr (std::is_integral_v<P>)
    if (p == std::numeric_limits<P>::min()) return std::numeric_limits<P>::max();
  return P(-p);
}

template <class C>
struct ConjSpectrum : testing::Test {};
using ComplexTypes = testing::Types<Mox32fc, Mox64fc, Mox16sc>;
TYPED_TEST_SUITE(ConjSpectrum, ComplexTypes);

TYPED_TEST(ConjSpectrum, EveryLengthAndLayoutOutOfPlaceAndInPlace) {
  using P = mox::Part<TypeParam>;
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  for (const auto& [layout, run, runInPlace] : expansions<TypeParam>)
    for (int len = 1; len <= 70; ++len) {
      SCOPED_TRACE(testing::Message() << layout << " len " << len);
      const long size = test::packedSize(layout, len);
      GuardedArray<P> src(size);
      for (P& p : src) p = random.value<P>();
      if (std::is_integral_v<P>) src[size / 2] = std::numeric_limits<P>::min();
      GuardedArray<TypeParam> dst(len), inPlace(std::max<long>(len, (size + 1) / 2));
      std::memcpy(inPlace.data(), src.data(), size * sizeof(P));

      ASSERT_EQ(run(src.data(), dst.data(), len), moxOk);
      ASSERT_EQ(runInPlace(inPlace.data(), len), moxOk);
      for (int k = 0; k < len; ++k) {
        const int stored = k <= len / 2 ? k : len - k;
        const long place = test::realPlace(layout, len, stored);
        const P im = test::hasImaginaryPlace(layout, len, stored) ? src[place + 1] : P(0);
        EXPECT_EQ(dst[k].re, src[place]) << k;
        EXPECT_EQ(dst[k].im, k == stored ? im : negated(im)) << k;
      }
      EXPECT_EQ(std::memcmp(dst.data(), inPlace.data(), len * sizeof(TypeParam)), 0);
    }
}

template <class E>
struct Multiply {
  Layout layout;
  bool conjugate;
  MoxStatus (*run)(const E*, const E*, E*, int);  // null where there is only the form in place
  MoxStatus (*runInPlace)(const E*, E*, int);
};

template <class E>
const Multiply<E> products[3];
template <>
const Multiply<Mox32f> products<Mox32f>[3] = {
    {Layout::pack, false, moxsMulPack_32f, moxsMulPack_32f_I},
    {Layout::perm, false, moxsMulPerm_32f, moxsMulPerm_32f_I},
    {Layout::pack, true, nullptr, moxsMulPackConj_32f_I}};
template <>
const Multiply<Mox64f> products<Mox64f>[3] = {
    {Layout::pack, false, moxsMulPack_64f, moxsMulPack_64f_I},
    {Layout::perm, false, moxsMulPerm_64f, moxsMulPerm_64f_I},
    {Layout::pack, true, nullptr, moxsMulPackConj_64f_I}};

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

template <class E>
struct MulSpectrum : testing::Test {};
using FloatTypes = testing::Types<Mox32f, Mox64f>;
TYPED_TEST_SUITE(MulSpectrum, FloatTypes);

TYPED_TEST(MulSpectrum, EveryLengthIsExactInTheOrderOfOperations) {
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  for (const auto& [layout, conjugate, run, runInPlace] : products<TypeParam>)
    for (int len = 1; len <= 70; ++len) {
      SCOPED_TRACE(testing::Message() << layout << (conjugate ? " conj" : "") << " len " << len);
      GuardedArray<TypeParam> x(len), y(len), dst(len);
      for (auto& e : x) e = random.value<TypeParam>();
      for (auto& e : y) e = random.value<TypeParam>();
      const auto expected = product(layout, conjugate, x.data(), y.data(), len);
      const auto same = [&](const TypeParam* got) {
        return std::memcmp(got, expected.data(), len * sizeof(TypeParam)) == 0;
      };

      if (run) {
        ASSERT_EQ(run(x.data(), y.data(), dst.data(), len), moxOk);
        EXPECT_TRUE(same(dst.data()));
        std::copy(x.begin(), x.end(), dst.begin());
        ASSERT_EQ(run(dst.data(), y.data(), dst.data(), len), moxOk);
        EXPECT_TRUE(same(dst.data())) << "over the first source";
      }
      std::copy(y.begin(), y.end(), dst.begin());
      ASSERT_EQ(runInPlace(x.data(), dst.data(), len), moxOk);
      EXPECT_TRUE(same(dst.data())) << "in place";
    }
}

// An exact model of the scale rule in 64 bits.
Mox16s scaled(Mox64s exact, int factor) {
  const auto saturated = [](Mox64s r) { return Mox16s(std::clamp<Mox64s>(r, -32768, 32767)); };
  if (factor <= 0) return saturated(exact * (Mox64s(1) << std::min(-(Mox64s)factor, Mox64s(20))));
  if (factor > 33) return 0;
  const Mox64s whole = exact >> factor, rest = exact - whole * (Mox64s(1) << factor);
  const Mox64s half = Mox64s(1) << (factor - 1);
  return saturated(whole + (rest > half || (rest == half && whole % 2 != 0)));
}

TEST(MulSpectrumScaled, EveryFactorIsExactAtTheExtremes) {
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  const struct {
    Layout layout;
    MoxStatus (*run)(const Mox16s*, const Mox16s*, Mox16s*, int, int);
    MoxStatus (*runInPlace)(const Mox16s*, Mox16s*, int, int);
  } forms[] = {{Layout::pack, moxsMulPack_16s_Sfs, moxsMulPack_16s_ISfs},
               {Layout::perm, moxsMulPerm_16s_Sfs, moxsMulPerm_16s_ISfs}};
  std::vector<int> factors = {std::numeric_limits<int>::min(), -1000, 1000,
                              std::numeric_limits<int>::max()};
  for (int f = -33; f <= 35; ++f) factors.push_back(f);
  const Mox16s extremes[] = {-32768, -32767, -1, 0, 1, 32766, 32767};
  const auto value = [&] {
    return random.below(3) ? extremes[random.below(7)] : random.value<Mox16s>();
  };
  for (const auto& [layout, run, runInPlace] : forms)
    for (const int factor : factors)
      for (const int len : {1, 2, 3, 4, 9, 10, 11, 12, 63, 64}) {
        SCOPED_TRACE(testing::Message() << layout << " len " << len << " factor " << factor);
        GuardedArray<Mox16s> x(len), y(len), dst(len);
        std::generate(x.begin(), x.end(), value);
        std::generate(y.begin(), y.end(), value);
        if (len > 6) std::fill_n(x.begin(), len, -32768), std::fill_n(y.begin(), 5, -32768);
        const std::vector<Mox64s> wideX(x.begin(), x.end()), wideY(y.begin(), y.end());
        const auto exact = product(layout, false, wideX.data(), wideY.data(), len);
        ASSERT_EQ(run(x.data(), y.data(), dst.data(), len, factor), moxOk);
        ASSERT_EQ(runInPlace(x.data(), y.data(), len, factor), moxOk);
        for (int i = 0; i < len; ++i) ASSERT_EQ(dst[i], scaled(exact[i], factor)) << i;
        for (int i = 0; i < len; ++i) ASSERT_EQ(y[i], dst[i]) << "in place " << i;
      }
}

}  // namespace
