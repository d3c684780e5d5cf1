#include <random>

#include "support/test.h"

namespace {

using Points = std::vector<Mox16sc>;

constexpr int pitch = 256;

// Both points of a subset lie on the diagonals of the table.
std::vector<Mox8u> subsetTable() {
  std::vector<Mox8u> table;
  for (int y = 0; y < 4; ++y)
    for (int x = 0; x < 4; ++x)
      table.push_back(Mox8u(x % 2 + 2 * (y % 2) + 4 * ((x / 2) ^ (y / 2))));
  return table;
}

// A code whose next state has the last two branches in it.
struct Code {
  explicit Code(int numStates)
      : states(numStates), branches(numStates / 4), subsets(numStates == 16 ? 4 : 8) {
    for (int s = 0; s < states; ++s)
      for (int b = 0; b < branches; ++b) next.push_back(Mox8u((s * branches + b) % states));
  }
  int states, branches, subsets;
  std::vector<Mox8u> next;
  std::vector<Mox8u> table = subsetTable();
};

// Any point of a subset.
Mox16sc pointOf(const Code& code, int subset, test::Random& random) {
  for (;;) {
    const int x = int(random.below(40)) - 20, y = int(random.below(40)) - 20;
    if (code.table[4 * ((y + 2) & 3) + ((x + 2) & 3)] % code.subsets == subset)
      return {Mox16s(128 + pitch * x), Mox16s(128 + pitch * y)};
  }
}

// Random branches, and within their sets random symbols.
Points encoded(const Code& code, int symbols, test::Random& random) {
  Points points;
  for (int t = 0, s = 0; t < symbols; ++t) {
    const int b = int(random.below(code.branches)), sets = 2 * code.branches;
    const int pairs = code.subsets * code.subsets;
    const int pair = 2 * b + s % 2 + sets * int(random.below(pairs / sets));
    const int first = pair / code.subsets;
    points.push_back(pointOf(code, first, random));
    points.push_back(pointOf(code, (pair + first) % code.subsets, random));
    s = code.next[s * code.branches + b];
  }
  return points;
}

Mox16sc moved(Mox16sc reference, int candidate) {
  constexpr int steps[12][2] = {{0, 0},  {1, 0},  {1, 1}, {0, 1},  {2, 0}, {2, 1},
                                {-1, 0}, {-1, 1}, {0, 2}, {0, -1}, {1, 2}, {1, -1}};
  return {Mox16s(reference.re + pitch * steps[candidate][0]),
          Mox16s(reference.im + pitch * steps[candidate][1])};
}

Points decoded(const Code& code, const Points& received) {
  const int symbols = int(received.size()) / 2, states = code.states;
  std::vector<Mox16u> metrics(states, 20000), next(states);
  metrics[0] = 0;
  Points path(symbols * states), references(received.size()), table(2 * code.subsets),
      branches(2 * code.branches);
  Mox8u best = 0;
  for (int t = 0; t < symbols; ++t) {
    for (int i = 0; i < 2; ++i)
      moxsGetVarPointDV_16sc(&received[2 * t + i], &references[2 * t + i], &table[code.subsets * i],
                             code.table.data(), states);
    moxsBuildSymblTableDV4D_16sc(table.data(), branches.data(), states, 0);
    next.assign(states, 65535);
    moxsCalcStatesDV_16sc(metrics.data(), code.next.data(), next.data(), branches.data(),
                          path.data(), states, t * states);
    Mox16u least;
    moxsUpdatePathMetricsDV_16u(next.data(), &least, &best, metrics.data(), states);
  }
  Points points(received.size());
  for (int t = symbols - 1, s = best; t >= 0; --t) {
    const Mox16sc step = path[t * states + s];
    points[2 * t] = moved(references[2 * t], step.re & 255);
    points[2 * t + 1] = moved(references[2 * t + 1], step.re >> 8);
    s = step.im;
  }
  return points;
}

// Noise that brings some points nearer to others.
TEST(ViterbiSteps, DecodeThroughNoise) {
  test::Random random(1);
  std::mt19937 engine{unsigned(test::seed())};
  std::normal_distribution<double> noise(0, 36);
  for (const int states : {16, 32, 64}) {
    SCOPED_TRACE(testing::Message() << states << " states; " << test::seedNote());
    const Code code(states);
    const Points sent = encoded(code, 5000, random);
    Points received = sent;
    int far = 0;
    for (Mox16sc& point : received) {
      const long x = std::lround(noise(engine)), y = std::lround(noise(engine));
      point = {Mox16s(point.re + x), Mox16s(point.im + y)};
      far += std::max(std::abs(x), std::abs(y)) > pitch / 2;
    }
    EXPECT_GT(far, 0);
    Points found = decoded(code, received);
    // The last symbols have no others behind them that tell paths apart.
    std::copy(sent.end() - 10, sent.end(), found.end() - 10);
    EXPECT_TRUE(test::sameBits(found, sent));
  }
}

// Against the distances to all points around.
TEST(ViterbiSteps, FindTheNearestPointOfEachSubset) {
  test::Random random(2);
  const auto table = subsetTable();
  for (int turn = 0; turn < 2000; ++turn) {
    const Mox16sc z = {Mox16s(random.below(3000) - 1500), Mox16s(random.below(3000) - 1500)};
    for (const int states : {16, 32, 64}) {
      const int subsets = states == 16 ? 4 : 8;
      Mox16sc reference, found[8];
      moxsGetVarPointDV_16sc(&z, &reference, found, table.data(), states);
      for (int subset = 0; subset < subsets; ++subset) {
        int least = 1 << 30;
        for (int y = -9; y < 9; ++y)
          for (int x = -9; x < 9; ++x) {
            const int dx = z.re - (128 + pitch * x), dy = z.im - (128 + pitch * y);
            if (table[4 * ((y + 2) & 3) + ((x + 2) & 3)] % subsets == subset)
              least = std::min(least, (dx * dx >> 4) + (dy * dy >> 4));
          }
        ASSERT_EQ(found[subset].re, least) << z.re << ' ' << z.im;
        const Mox16sc point = moved(reference, found[subset].im);
        const int dx = z.re - point.re, dy = z.im - point.im;
        ASSERT_EQ((dx * dx >> 4) + (dy * dy >> 4), least);
      }
    }
  }
  // Around the middle of four points both farther ones of a subset are equally far.
  const Mox16sc middle = {256, 256};
  Mox16sc reference, found[8];
  moxsGetVarPointDV_16sc(&middle, &reference, found, table.data(), 32);
  for (int subset = 4; subset < 8; ++subset)
    EXPECT_EQ(found[subset].im >= 8, found[subset].re != found[0].re) << subset;
}

TEST(ViterbiSteps, UpdateFromTheFirstLeastMetric) {
  std::vector<Mox16u> metrics(64, 700), expected(64, 577);
  metrics[40] = metrics[9] = 123, expected[40] = expected[9] = 0;
  Mox16u least;
  Mox8u index;
  moxsUpdatePathMetricsDV_16u(metrics.data(), &least, &index, metrics.data(), 64);
  EXPECT_EQ(least, 123);
  EXPECT_EQ(index, 9);
  EXPECT_EQ(metrics, expected);
}

}  // namespace
