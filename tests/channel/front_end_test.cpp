#include "support/filters.h"

namespace {

using test::Random;

TEST(Preemphasize, SubtractsTheElementBefore) {
  Random random(1);
  for (const Mox32f val : {0.97f, -3.25f, 0.0f}) {
    const auto x = random.vector<Mox32f>(100);
    const auto n = random.vector<Mox16s>(100);
    auto y = x;
    auto m = n;
    ASSERT_OK(moxsPreemphasize_32f(y.data(), 100, val));
    ASSERT_OK(moxsPreemphasize_16s(m.data(), 100, val));
    for (int i = 1; i < 100; ++i) {
      const Mox32f product = val * x[i - 1];
      EXPECT_EQ(y[i], x[i] - product);
      const double exact = std::nearbyint(n[i] - double(val) * n[i - 1]);
      EXPECT_EQ(m[i], std::min(std::max(exact, -32768.0), 32767.0));
    }
    EXPECT_EQ(y[0], x[0]);
    EXPECT_EQ(m[0], n[0]);
  }
}

TEST(Cauchy, IsTheLossAndItsDerivatives) {
  Random random(2);
  for (const Mox32f c : {0.01f, 1.0f, 40.0f}) {
    auto x = random.vector<Mox32f>(5000);
    x[0] = 0, x[1] = c;
    auto loss = x, first = x, both = x, second = x;
    ASSERT_OK(moxsCauchy_32f_I(loss.data(), 5000, c));
    ASSERT_OK(moxsCauchyD_32f_I(first.data(), 5000, c));
    ASSERT_OK(moxsCauchyDD2_32f_I(both.data(), second.data(), 5000, c));
    for (int i = 0; i < 5000; ++i) {
      const double e = x[i], square = double(c) * c, sum = square + e * e;
      // 1 + t * t loses what is below the last place of 1.
      ASSERT_NEAR(loss[i], 0.5 * std::log1p(e * e / square), 4e-7 * (1 + std::log(sum / square)));
      ASSERT_NEAR(first[i], e / sum, 3e-7 * std::abs(e / sum));
      ASSERT_NEAR(both[i], e / sum, 4e-7 * std::abs(e / sum));
      ASSERT_NEAR(second[i], (square - e * e) / (sum * sum), 6e-7 / sum);
    }
    EXPECT_EQ(loss[0], 0);
    EXPECT_EQ(second[1], 0);
    EXPECT_FLOAT_EQ(first[1], 1 / (2 * c));
  }
}

// A sweep from minus half the sampling rate up to half of it.
TEST(DemodulateFM, FollowsAChirp) {
  constexpr int len = 20000;
  std::vector<Mox16s> re(len), im(len), y(len);
  double phase = 0;
  for (int i = 0; i < len; ++i) {
    phase += M_PI * (2.0 * i / len - 1);
    re[i] = Mox16s(std::lround(32000 * std::cos(phase)));
    im[i] = Mox16s(std::lround(32000 * std::sin(phase)));
  }
  Mox16sc point = {32000, 0};
  ASSERT_OK(moxsDemodulateFM_CToR_16s(re.data(), im.data(), y.data(), len, &point));
  // Roundings of the points are up to 0.7 of 32000, from both ends of an angle.
  for (int i = 1; i < len; ++i) ASSERT_NEAR(y[i], 65536.0 * i / len - 32768, 1.5) << i;
}

// Of any points, in blocks of any length.
TEST(DemodulateFM, IsTheAngleBetweenAnyPoints) {
  constexpr int len = 4000;
  Random random(4);
  auto re = random.vector<Mox16s>(len), im = random.vector<Mox16s>(len);
  for (int i = 0; i < 100; ++i) re[i] = Mox16s(re[i] % 3), im[i] = Mox16s(im[i] % 3);
  for (int i = 100; i < 200; ++i) re[i] = im[i] = -32768;
  std::vector<Mox16s> y(len);
  Mox16sc point = {1, 0};
  for (const auto& [way, n, at] : test::cut(random, len, 100)) {
    ASSERT_OK(moxsDemodulateFM_CToR_16s(&re[at], &im[at], &y[at], n, &point));
    ASSERT_TRUE(point.re == re[at + n - 1] && point.im == im[at + n - 1]);
  }
  for (int i = 1; i < len; ++i) {
    const double a = re[i], b = im[i], c = re[i - 1], d = im[i - 1];
    const double angle = std::atan2(b * c - a * d, a * c + b * d) / M_PI * 32768;
    const double error = std::abs(y[i] - std::min(angle, 32767.0));
    ASSERT_LE(std::min(error, 65536 - error), y[i] == 32767 ? 1.01 : 0.51) << i;
  }
}

}  // namespace
