// The steps of a Viterbi decoder, each against its definition.
#include "support/test.h"

namespace {

using test::Random;
using Points = std::vector<Mox16sc>;

constexpr int pitch = 256;
constexpr int allStates[] = {16, 32, 64};
int subsetsOf(int states) { return states == 16 ? 4 : 8; }

// Against the distances to all points around. Both points of a subset lie on the diagonals of the
// table.
TEST(ViterbiSteps, FindTheNearestPointOfEachSubset) {
  Random random(2);
  Mox8u table[4][4];
  for (int y = 0; y < 4; ++y)
    for (int x = 0; x < 4; ++x) table[y][x] = Mox8u(x % 2 + 2 * (y % 2) + 4 * ((x / 2) ^ (y / 2)));
  constexpr int steps[12][2] = {{0, 0},  {1, 0},  {1, 1}, {0, 1},  {2, 0}, {2, 1},
                                {-1, 0}, {-1, 1}, {0, 2}, {0, -1}, {1, 2}, {1, -1}};
  for (int turn = 0; turn < 2000; ++turn) {
    // Around the middle of four points both farther ones of a subset are equally far.
    const auto part = [&] { return Mox16s(turn ? random.below(3000) - 1500 : 256); };
    const Mox16sc z = {part(), part()};
    for (const int states : allStates) {
      Mox16sc reference, found[8];
      moxsGetVarPointDV_16sc(&z, &reference, found, table[0], states);
      const auto distanceTo = [&](int re, int im) {
        return ((z.re - re) * (z.re - re) >> 4) + ((z.im - im) * (z.im - im) >> 4);
      };
      for (int subset = 0; subset < subsetsOf(states); ++subset) {
        int least = 1 << 30;
        for (int y = -9; y < 9; ++y)
          for (int x = -9; x < 9; ++x)
            if (table[(y + 2) & 3][(x + 2) & 3] % subsetsOf(states) == subset)
              least = std::min(least, distanceTo(128 + pitch * x, 128 + pitch * y));
        const auto [distance, candidate] = found[subset];
        ASSERT_EQ(distance, least) << z.re << ' ' << z.im;
        const auto [x, y] = steps[candidate];
        ASSERT_EQ(distanceTo(reference.re + pitch * x, reference.im + pitch * y), least);
        ASSERT_TRUE(turn || candidate < 4 || candidate >= 8) << "of equal ones the last";
      }
    }
  }
}

// Few distances, so that many are equal.
TEST(ViterbiSteps, FindTheNearestSymbolOfEachSet) {
  Random random(1);
  for (const int states : allStates)
    for (const int flag : {0, 5, 9, -1}) {
      const int subsets = subsetsOf(states), sets = states / 2;
      Points points, symbols(sets);
      for (int i = 0; i < 2 * subsets; ++i)
        points.push_back({Mox16s(random.below(9) + 32764), Mox16s(random.below(12))});
      moxsBuildSymblTableDV4D_16sc(points.data(), symbols.data(), states, flag);
      for (int k = 0; k < sets; ++k) {
        std::vector<std::pair<int, int>> all;  // distances and candidates
        for (int pair = k; pair < subsets * subsets; pair += sets) {
          const int e = (pair ^ flag) & (subsets * subsets - 1), first = e / subsets;
          const Mox16sc a = points[first], b = points[subsets + (e + first) % subsets];
          all.emplace_back(Mox16u(a.re) + Mox16u(b.re), 256 * b.im + a.im);
        }
        const auto least = *std::ranges::min_element(all, {}, &std::pair<int, int>::first);
        ASSERT_EQ(Mox16u(symbols[k].im), Mox16u(least.first)) << "set " << k << " of " << states;
        ASSERT_EQ(symbols[k].re, least.second) << "set " << k << " of " << states;
      }
    }
}

TEST(ViterbiSteps, KeepTheLeastWayToEachState) {
  Random random(3);
  for (const int states : allStates) {
    const int branches = states / 4, offset = 7;
    auto metrics = random.vector<Mox16u>(states);
    const auto next = random.vector<Mox8u>(states * branches);
    auto symbols = random.vector<Mox16sc>(2 * branches);
    for (Mox16sc& symbol : symbols) symbol.im %= 4;
    for (Mox16u& metric : metrics) metric = metric % 4 ? metric % 5 : metric;
    std::vector<Mox16u> sums(states, 65535), expected = sums;
    Points path(offset + states), ways = path;
    for (int s = 0; s < states; ++s)
      for (int b = 0; b < branches; ++b) {
        const int to = next[branches * s + b] % states;
        const auto [candidates, distance] = symbols[2 * b + s % 2];
        const Mox16u sum = Mox16u(metrics[s] + distance);
        if (sum < expected[to]) expected[to] = sum, ways[offset + to] = {candidates, Mox16s(s)};
      }
    moxsCalcStatesDV_16sc(metrics.data(), next.data(), sums.data(), symbols.data(), path.data(),
                          states, offset);
    EXPECT_EQ(sums, expected) << states;
    EXPECT_TRUE(test::sameBits(path, ways)) << states;
  }
}

TEST(ViterbiSteps, UpdateFromTheFirstLeastMetric) {
  for (const auto& [first, another] : {std::pair(9, 40), {0, 63}}) {
    std::vector<Mox16u> metrics(64, 700), expected(64, 577);
    metrics[first] = metrics[another] = 123, expected[first] = expected[another] = 0;
    Mox16u least;
    Mox8u index;
    moxsUpdatePathMetricsDV_16u(metrics.data(), &least, &index, metrics.data(), 64);
    EXPECT_TRUE(least == 123 && index == first);
    EXPECT_EQ(metrics, expected);
  }
}

}  // namespace
