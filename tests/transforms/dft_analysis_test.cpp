// The choice of the method by the length, against its rules in other words.
#include "transforms/dft_analysis.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using namespace mox::transforms;

std::vector<int> levelsOf(const DftFactors& f) { return {f.radix, f.radix + f.levels}; }

TEST(DftAnalysis, Examples) {
  const struct {
    int len;
    std::vector<int> levels;
    int leaf;
  } products[] = {{18, {3}, 6},          {51, {3}, 17},
                  {100, {5, 5}, 4},      {212, {}, 0},
                  {2000, {5, 5, 5}, 16}, {2002, {13, 7, 11}, 2},
                  {30, {5}, 6},          {24, {3}, 8},
                  {96, {3, 4}, 8},       {10080, {7, 4, 3, 3, 5}, 8}};
  for (const auto& [len, levels, leaf] : products) {
    if (leaf == 0) continue;
    EXPECT_EQ(levelsOf(dftFactors<Mox32f>(len)), levels) << len;
    EXPECT_EQ(dftFactors<Mox32f>(len).leaf, leaf) << len;
  }
  const auto method = [](int len) { return analyseDft<Mox32f>(len, false).method; };
  EXPECT_EQ(method(16), DftMethod::small);
  EXPECT_EQ(method(17), DftMethod::direct);
  EXPECT_EQ(method(32), DftMethod::fft);
  EXPECT_EQ(method(53), DftMethod::chirp);
  EXPECT_EQ(method(106), DftMethod::chirp);
  EXPECT_EQ(method(212), DftMethod::mixed);
  EXPECT_EQ((analyseDft<Mox64f>(106, false).method), DftMethod::mixed);
  EXPECT_EQ((analyseDft<Mox64f>(53, false).method), DftMethod::direct);
  EXPECT_EQ(method(8194), DftMethod::chirp);
  EXPECT_EQ(dftConvLength(53), 128);
  EXPECT_EQ(dftConvLength(65), 144);
  EXPECT_EQ(dftConvLength(4096), 8192);
  EXPECT_EQ(dftConvLength(4097), 16384);
  EXPECT_EQ(dftConvLength(8194), 32768);
  EXPECT_EQ((analyseDft<Mox32f>(26, true).method), DftMethod::small);
  EXPECT_EQ((analyseDft<Mox32f>(26, true).core), 13);
}

std::vector<int> primesOf(int n) {
  std::vector<int> primes;
  for (int p = 2; n > 1; ++p)
    for (; n % p == 0; n /= p) primes.push_back(p);
  return primes;
}

template <class F>
void expectRules(int len) {
  const std::vector<int> primes = primesOf(len);
  const int twos = int(std::count(primes.begin(), primes.end(), 2));
  const std::vector<int> odd(primes.begin() + twos, primes.end());
  const int most = sizeof(F) == 4 ? 50 : 90;
  const bool isProduct = primes.size() > 1 && (odd.size() < 2 || odd[odd.size() - 2] <= most) &&
                         odd.back() <= (twos > 1 ? 150 : most);
  const DftFactors factors = dftFactors<F>(len);
  ASSERT_EQ(factors.levels > 0, isProduct) << len;
  const DftMethod method = analyseDft<F>(len, false).method;
  if (isProduct) {
    ASSERT_EQ(method, DftMethod::mixed) << len;
    // Levels are the odd primes and fours; the leaf is the largest prime, or takes what is even.
    std::vector<int> expected = odd, levels = levelsOf(factors);
    const bool six = twos == 1 && odd[0] == 3;
    const int leaf = six ? 6 : twos > 2 ? (twos % 2 ? 8 : 16) : twos > 0 ? 1 << twos : odd.back();
    if (six) expected.erase(expected.begin());
    if (twos == 0) expected.pop_back();
    for (int t = twos; t > 4; t -= 2) expected.push_back(4);
    std::sort(expected.begin(), expected.end());
    std::sort(levels.begin(), levels.end());
    ASSERT_EQ(levels, expected) << len;
    ASSERT_EQ(factors.leaf, leaf) << len;
  } else {
    ASSERT_EQ(method, len <= most ? DftMethod::direct : DftMethod::chirp) << len;
    const int length = dftConvLength(len);
    ASSERT_GE(length, 2 * len - 1);
    ASSERT_LT(length, len < 65 ? 129 : 4 * len);
  }
}

TEST(DftAnalysis, RulesHoldForEveryLength) {
  for (int len = 17; len <= 20000; ++len) {
    if ((len & (len - 1)) == 0) continue;
    expectRules<Mox32f>(len);
    expectRules<Mox64f>(len);
    const auto real = analyseDft<Mox32f>(2 * len, true), half = analyseDft<Mox32f>(len, false);
    ASSERT_EQ(real.method, half.method);
    ASSERT_EQ(real.core, len);
  }
}

}  // namespace
