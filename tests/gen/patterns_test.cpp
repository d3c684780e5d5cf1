// Lines and the Jaehne signal against their formulas.
#include <gmock/gmock.h>

#include "support/members.h"

namespace {

using namespace test;
using L = long double;

template <class D>
D awayFromZero(double v) {
  if constexpr (std::is_floating_point_v<D>) return D(v);
  using Limits = std::numeric_limits<D>;
  return D(std::clamp<double>(std::trunc(v + std::copysign(0.5, v)), Limits::min(), Limits::max()));
}

template <class D, class F>
void expectLine(Member<D*, int, F, F> member) {
  constexpr int len = 1003;
  for (const F offset : {F(0), F(-1e4), F(250.5), F(3e9), F(-0.25), F(1e12)})
    for (const F step : {F(0), F(0.5), F(-3.3), F(1e7), F(-1e10)}) {
      std::vector<D> got(len), want(len);
      for (int i = 0; i < len; ++i) want[i] = awayFromZero<D>(double(offset) + double(step) * i);
      ASSERT_OK(member.function(got.data(), len, offset, step));
      EXPECT_EQ(got, want) << member.name << ' ' << offset << ' ' << step;
    }
}

TEST(VectorRamp, IsTheRoundedLineAndSoIsVectorSlope) {
  const auto expectLines = [](auto... members) { (expectLine(members), ...); };
  expectLines(MEMBER(VectorRamp_8s), MEMBER(VectorRamp_8u), MEMBER(VectorRamp_16s),
              MEMBER(VectorRamp_16u), MEMBER(VectorRamp_32s), MEMBER(VectorRamp_32u),
              MEMBER(VectorRamp_32f), MEMBER(VectorRamp_64f));
  expectLines(MEMBER(VectorSlope_8s), MEMBER(VectorSlope_8u), MEMBER(VectorSlope_16s),
              MEMBER(VectorSlope_16u), MEMBER(VectorSlope_32s), MEMBER(VectorSlope_32u),
              MEMBER(VectorSlope_32f), MEMBER(VectorSlope_64f));
}

// The angles are those of double precision; the sine of large ones is exact.
template <class D>
void expectJaehne(Member<D*, int, D> member, D magn) {
  // The angles of the longest leave the range of the quick sine.
  for (const int len : {1, 2, 17, 1000, std::is_same_v<D, Mox64f> ? 700000 : 1001}) {
    std::vector<D> got(len);
    ASSERT_OK(member.function(got.data(), len, magn));
    const double h = 1.5707963267948966 / len,
                 amplitude = std::is_unsigned_v<D> ? 0.5 * magn : magn;
    std::vector<L> want(len);
    for (int i = 0; i < len; ++i) want[i] = amplitude * std::sin(L(i * h * i));
    L tolerance = amplitude * 2 * L(std::numeric_limits<D>::epsilon()), lowest = 0;
    if (std::is_integral_v<D>) tolerance = 0.5L + amplitude * 0x1p-52L;
    if (std::is_unsigned_v<D>) {  // both roundings
      lowest = *std::min_element(want.begin(), want.end());
      tolerance *= 2;
      EXPECT_EQ(*std::min_element(got.begin(), got.end()), 0) << member.name;
    }
    for (int i = 0; i < len; ++i)
      ASSERT_LE(std::fabs(got[i] - (want[i] - lowest)), tolerance)
          << member.name << ' ' << i << " of " << len;
  }
}

TEST(VectorJaehne, IsASineOfGrowingFrequency) {
  for (const int percent : {100, 37}) {
    const auto part = [&](auto magn) { return decltype(magn)(double(magn) * percent / 100); };
    expectJaehne(MEMBER(VectorJaehne_8s), part(Mox8s(127)));
    expectJaehne(MEMBER(VectorJaehne_8u), part(Mox8u(255)));
    expectJaehne(MEMBER(VectorJaehne_16s), part(Mox16s(32767)));
    expectJaehne(MEMBER(VectorJaehne_16u), part(Mox16u(65535)));
    expectJaehne(MEMBER(VectorJaehne_32s), part(Mox32s(2147483647)));
    expectJaehne(MEMBER(VectorJaehne_32u), part(Mox32u(4294967294)));
    expectJaehne(MEMBER(VectorJaehne_32f), part(5.5f));
    expectJaehne(MEMBER(VectorJaehne_64f), part(5.5));
  }
}

}  // namespace
