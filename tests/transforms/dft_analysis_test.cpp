// The choice of the method by the length, against its rules in other words.
#include "transforms/dft_analysis.h"
#include "support/test.h"

namespace {

using namespace mox::transforms;

TEST(DftAnalysis, Examples) {
  const auto method = [](int len) { return analyseDft<Mox32f>(len, false).method; };
  EXPECT_EQ(method(16), DftMethod::small);
  EXPECT_EQ(method(17), DftMethod::direct);
  EXPECT_EQ(method(0x8000000), DftMethod::fft);
  EXPECT_EQ(method(106), DftMethod::chirp);
  EXPECT_EQ(method(212), DftMethod::mixed);
  for (const auto& [len, points] :
       {std::pair(53, 128), {65, 144}, {4096, 8192}, {4097, 16384}, {8194, 32768}})
    EXPECT_EQ(dftConvLength(len), points) << len;
}

template <class F>
void expectRules(int len) {
  std::vector<int> odd;
  int rest = len, twos = 0;
  for (; rest % 2 == 0; rest /= 2) ++twos;
  for (int p = 3; rest > 1; p += 2)
    for (; rest % p == 0; rest /= p) odd.push_back(p);
  const int most = sizeof(F) == 4 ? 50 : 90;
  const bool isProduct = twos + odd.size() > 1 && (odd.size() < 2 || odd[odd.size() - 2] <= most) &&
                         odd.back() <= (twos > 1 ? 150 : most);
  const DftFactors factors = dftFactors<F>(len);
  ASSERT_EQ(factors.levels > 0, isProduct);
  ASSERT_EQ((analyseDft<F>(len, false).method), isProduct     ? DftMethod::mixed
                                                : len <= most ? DftMethod::direct
                                                              : DftMethod::chirp);
  if (!isProduct) return;
  // The odd primes and the fours; the leaf takes what is even, or is the largest prime.
  std::vector<int> expected = odd, all(factors.radix, factors.radix + factors.levels);
  const bool six = twos == 1 && odd[0] == 3;
  if (six) expected.erase(expected.begin());
  for (int t = twos; t > 4; t -= 2) expected.push_back(4);
  if (twos > 0) expected.push_back(six ? 6 : twos > 2 ? (twos % 2 ? 8 : 16) : 1 << twos);
  ASSERT_EQ(factors.leaf, expected.back());
  all.push_back(factors.leaf);
  std::ranges::sort(all), std::ranges::sort(expected);
  ASSERT_EQ(all, expected);
}

TEST(DftAnalysis, RulesHoldForEveryLength) {
  for (int len = 1; len <= 16; ++len)
    EXPECT_EQ((analyseDft<Mox32f>(len, false).method), DftMethod::small);
  for (int len = 17; len <= 20000; ++len) {
    SCOPED_TRACE(len);
    const auto real = analyseDft<Mox32f>(2 * len, true), half = analyseDft<Mox32f>(len, false);
    ASSERT_EQ(real.method, half.method);
    ASSERT_EQ(real.core, std::has_single_bit(unsigned(len)) ? 2 * len : len);
    if (std::has_single_bit(unsigned(len))) continue;
    expectRules<Mox32f>(len);
    expectRules<Mox64f>(len);
  }
}

}  // namespace
