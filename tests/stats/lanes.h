// Partial sums in plain scalar code.
#pragma once

#include <vector>

namespace test {

template <class F>
using Lanes = std::vector<F>;

inline const auto plus = [](auto a, auto b) { return a + b; };
// The second one beside a NaN.
inline const auto larger = [](auto a, auto b) { return a > b ? a : b; };

// The upper half of the lanes onto the lower one until `left` are left.
template <class F, class Op = decltype(plus)>
Lanes<F> foldHalves(Lanes<F> lane, std::size_t left, Op op = plus) {
  while (lane.size() > left) {
    const std::size_t half = lane.size() / 2;
    for (std::size_t j = 0; j < half; ++j) lane[j] = op(lane[j], lane[j + half]);
    lane.resize(half);
  }
  return lane;
}

template <class F>
Lanes<double> widen(const Lanes<F>& lane) {
  return {lane.begin(), lane.end()};
}

template <class F>
void addEach(Lanes<F>& to, const Lanes<F>& from) {
  for (std::size_t j = 0; j < to.size(); ++j) to[j] += from[j];
}

// Four lanes as pairs, then the two.
template <class F>
F foldPairs(const Lanes<F>& lane) {
  return (lane[0] + lane[1]) + (lane[2] + lane[3]);
}

// Single precision within blocks of 8192 terms, doubles beyond: four double lanes of the terms
// from `peel` on, which follow those in `peeled`. x(i) is a float.
template <class Term>
Lanes<double> fastBlocks(long n, long i, const Lanes<double>& peeled, Term x) {
  Lanes<double> total = peeled;
  const auto take = [&](Lanes<float>& f, long count) {
    for (long j = 0; j < count; ++j) f[j % f.size()] += x(i + j);
    i += count;
  };
  while (n - i >= 8192) {
    Lanes<float> f(32);
    take(f, 8192);
    addEach(total, foldHalves(widen(foldHalves(f, 8)), 4));
  }
  Lanes<float> f(32);
  take(f, (n - i) / 32 * 32);
  for (const long odd : {16, 8}) {
    f = foldHalves(f, odd);
    if (n - i >= odd) take(f, odd);
  }
  for (const long odd : {4, 2, 1})
    if (n - i >= odd) take(f, odd);
  addEach(total, foldHalves(widen(f), 4));
  return total;
}

}  // namespace test
