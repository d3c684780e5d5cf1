// Scale factors and integers that tests of the scale rule run through.
#pragma once

#include "support/float_environment.h"
#include "support/members.h"
#include "support/test.h"

namespace test {

inline std::vector<int> allFactors() {
  std::vector<int> f = {INT_MIN, INT_MIN + 1, -1001, -1000, 1000, INT_MAX};
  for (int n = -70; n <= 70; ++n) f.push_back(n);
  return f;
}

// Calls are made in the directed rounding modes in turn, which integer results must not follow.
void forAllFactors(auto check) {
  int turn = 0;
  for (const int factor : allFactors()) {
    SCOPED_TRACE("factor " + std::to_string(factor));
    const CallsUnderRounding scope(allRoundings[1 + turn++ % 3]);
    check(factor);
    if (testing::Test::HasFailure()) return;
  }
}

// All values of 8 bits. Of wider types the limits, zero, powers of two, the neighbours of all
// these, and random values of all sizes.
template <class E>
std::vector<E> lattice(int randomCount) {
  std::vector<E> v;
  if constexpr (mox::Complex<E>) {
    using T = mox::Part<E>;
    const auto values = lattice<T>(4);
    const T low = std::numeric_limits<T>::min(), high = std::numeric_limits<T>::max();
    for (const T re : {low, high, T(0), T(-1)})
      for (const T im : {low, high, T(0), T(1)}) v.push_back({re, im});
    Random random(7);
    const auto any = [&] { return values[std::size_t(random.below(long(values.size())))]; };
    for (int i = 0; i < randomCount; ++i) v.push_back({any(), any()});
  } else {
    constexpr int width = 8 * sizeof(E);
    if constexpr (width == 8)
      for (int e = 0; e < 256; ++e) v.push_back(E(e));
    else
      for (const E edge : {E(0), std::numeric_limits<E>::min(), std::numeric_limits<E>::max()})
        for (int near = -2; near <= 3; ++near) v.push_back(E(Mox64u(edge) + Mox64u(near)));
    for (int bit = 2; bit < width && width > 8; bit += width > 16 ? 3 : 1) {
      const Mox64u power = Mox64u(1) << bit;
      for (const Mox64u e : {power, power - 1, power + 1, -power}) v.push_back(E(e));
    }
    Random random(width);
    for (int i = 0; i < randomCount && width > 8; ++i)
      v.push_back(E(random.value<E>() >> random.below(width)));
  }
  return v;
}

// All values of up to 16 bits, and many of wider types.
template <class E>
std::vector<E> allOrMany() {
  if (sizeof(E) != 2) return lattice<E>(1000);
  std::vector<E> v;
  for (int e = 0; e < 65536; ++e) v.push_back(E(e));
  return v;
}

template <class A, class B>
struct Pairs {
  std::vector<A> first;
  std::vector<B> second;

  void add(A a, B b) { first.push_back(a), second.push_back(b); }
};
template <class A, class B>
Pairs<A, B> allPairs(const std::vector<A>& a, const std::vector<B>& b) {
  Pairs<A, B> pairs;
  for (A x : a)
    for (B y : b) pairs.add(x, y);
  // The extremes stand first, where single steps take them; once more for the blocks.
  for (std::size_t i = 0; i < 48 && i < a.size() * b.size(); ++i)
    pairs.add(pairs.first[i], pairs.second[i]);
  return pairs;
}

}  // namespace test
