// Runs integer members with a scale factor against an exact model, in arithmetic of 128 bits.
#pragma once

#include <climits>

#include "arith/members.h"
#include "convert/exact_model.h"
#include "frame/elements.h"

namespace test {

// Complex numbers of 128 bits.
struct WideComplex {
  Int128 re, im;
};
inline WideComplex operator+(WideComplex a, WideComplex b) { return {a.re + b.re, a.im + b.im}; }
inline WideComplex operator-(WideComplex a, WideComplex b) { return {a.re - b.re, a.im - b.im}; }
inline WideComplex operator*(WideComplex a, WideComplex b) {
  return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
inline WideComplex operator*(Int128 a, WideComplex b) { return {a * b.re, a * b.im}; }

template <class E>
auto widened(E e) {
  if constexpr (mox::Complex<E>)
    return WideComplex{e.re, e.im};
  else
    return Int128(e);
}

template <class D>
D scaled(Int128 r, int factor) {
  return D(scaledInteger(r, factor, rangeOf<D>));
}
template <class D>
D scaled(WideComplex r, int factor) {
  using T = mox::Part<D>;
  return {scaled<T>(r.re, factor), scaled<T>(r.im, factor)};
}

inline std::vector<int> allFactors() {
  std::vector<int> f = {INT_MIN, INT_MIN + 1, -1001, -1000, 1000, INT_MAX};
  for (int n = -70; n <= 70; ++n) f.push_back(n);
  return f;
}

// The limits, zero, powers of two, the neighbours of all these, and random values of all sizes.
template <class E>
std::vector<E> lattice(int randomCount) {
  std::vector<E> v;
  if constexpr (mox::Complex<E>) {
    const auto values = lattice<mox::Part<E>>(4);
    Random random(7);
    using T = mox::Part<E>;
    const T low = std::numeric_limits<T>::min(), high = std::numeric_limits<T>::max();
    for (T re : {low, high, T(0), T(-1)})
      for (T im : {low, high, T(0), T(1)}) v.push_back({re, im});
    for (int i = 0; i < randomCount; ++i)
      v.push_back({values[random.below(values.size())], values[random.below(values.size())]});
  } else {
    constexpr int width = 8 * sizeof(E);
    constexpr E low = std::numeric_limits<E>::min(), high = std::numeric_limits<E>::max();
    v = {low, E(low + 1), E(low + 2), 0, 1, 2, 3, high, E(high - 1), E(high - 2), E(-1), E(-2)};
    for (int bit = 2; bit<width; bit += width> 16 ? 3 : 1) {
      const E power = E(Mox64u(1) << bit);
      for (E e : {power, E(power - 1), E(power + 1), E(-power)}) v.push_back(e);
    }
    Random random(width);
    for (int i = 0; i < randomCount; ++i) v.push_back(E(random.value<E>() >> random.below(width)));
  }
  return v;
}

template <class A, class B>
struct Pairs {
  std::vector<A> first;
  std::vector<B> second;
};
template <class A, class B>
Pairs<A, B> allPairs(const std::vector<A>& a, const std::vector<B>& b) {
  Pairs<A, B> pairs;
  for (A x : a)
    for (B y : b) pairs.first.push_back(x), pairs.second.push_back(y);
  return pairs;
}

template <class A, class B, class D>
using ScaledMember = MoxStatus (*)(const A*, const B*, D*, int, int);
template <class A, class D>
using ScaledInPlaceMember = MoxStatus (*)(const A*, D*, int, int);
template <class E, class C>
using ScaledConstantMember = MoxStatus (*)(const E*, C, E*, int, int);
template <class E, class C>
using ScaledConstantInPlaceMember = MoxStatus (*)(C, E*, int, int);

template <class D>
bool same(const D& a, const D& b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

// Every pair under every factor; a null `inPlace` is no member.
template <class A, class B, class D, class Exact>
void expectScaled(ScaledMember<A, B, D> plain, ScaledInPlaceMember<A, D> inPlace, Exact exact,
                  const Pairs<A, B>& data) {
  const int len = int(data.first.size());
  std::vector<D> dst(len);
  for (int factor : allFactors()) {
    if (plain) {
      ASSERT_EQ(plain(data.first.data(), data.second.data(), dst.data(), len, factor), moxOk);
      for (int i = 0; i < len; ++i)
        ASSERT_TRUE(
            same(dst[i], scaled<D>(exact(widened(data.first[i]), widened(data.second[i])), factor)))
            << __PRETTY_FUNCTION__ << ": pair " << i << ", factor " << factor;
    }
    if constexpr (std::is_same_v<B, D>) {
      if (!inPlace) continue;
      std::vector<D> both = data.second;
      ASSERT_EQ(inPlace(data.first.data(), both.data(), len, factor), moxOk);
      for (int i = 0; i < len; ++i)
        ASSERT_TRUE(same(both[i],
                         scaled<D>(exact(widened(data.first[i]), widened(data.second[i])), factor)))
            << "in place, pair " << i << ", factor " << factor;
    }
  }
}

// One factor of every kind of kernel, at lengths around the blocks.
// Every element with every constant under every factor, through both forms.
template <class E, class Exact>
void expectScaledConstants(ScaledConstantMember<E, E> plain,
                           ScaledConstantInPlaceMember<E, E> inPlace, Exact exact,
                           const std::vector<E>& elements, const std::vector<E>& constants) {
  const int len = int(elements.size());
  std::vector<E> dst(len);
  for (int factor : allFactors())
    for (E val : constants) {
      std::vector<E> both = elements;
      if (plain) {
        ASSERT_EQ(plain(elements.data(), val, dst.data(), len, factor), moxOk);
      }
      ASSERT_EQ(inPlace(val, both.data(), len, factor), moxOk);
      for (int i = 0; i < len; ++i) {
        const E expected = scaled<E>(exact(widened(elements[i]), widened(val)), factor);
        ASSERT_TRUE((!plain || same(dst[i], expected)) && same(both[i], expected))
            << "element " << i << ", factor " << factor;
      }
    }
}

}  // namespace test
