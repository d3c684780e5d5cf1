// Conversions from floats to integers.
#include "convert/samples.h"
#include "support/values.h"

namespace {

using namespace test;

// Magnitudes around which something can go wrong, brought to the scale of the factor.
template <class F, class T>
std::vector<F> valuesFor(int factor) {
  using Limits = std::numeric_limits<F>;
  std::vector<F> values;
  for (const F x : {F(0), Limits::infinity(), Limits::quiet_NaN(), Limits::max(), Limits::min(),
                    Limits::denorm_min()})
    values.insert(values.end(), {x, -x});
  const auto add = [&](long double x) {
    const F f = F(std::ldexp(x, std::max(-5000, std::min(factor, 5000))));
    for (F near : {f, std::nextafter(f, F(INFINITY)), std::nextafter(f, F(-INFINITY))})
      values.insert(values.end(), {near, -near});
  };
  for (int k = 0; k < 6; ++k) add(k), add(k + 0.5L);
  for (const Int128 limit : {rangeOf<T>.max, rangeOf<T>.min, Int128(INT_MAX)})
    for (double d = -1.5; d <= 1.5; d += 0.5) add((long double)limit + d);
  for (int e : {22, 23, 24, 31, 32, 52, 53, 62, 63}) add(std::ldexp(1.0L, e) + 0.5L);
  Random random(factor);
  for (int i = 0; i < 40; ++i) {
    values.push_back(random.anyFloat<F>());
    add(random.value<double>() * std::ldexp(1.0, int(random.below(40))));
  }
  return values;
}

// With those about the exponents of floats and doubles.
std::vector<int> manyFactors() {
  auto f = allFactors();
  for (int edge : {126, 252, 1022, 2044, 2100})
    for (int near = -2; near <= 2; ++near) f.insert(f.end(), {edge + near, -edge - near});
  for (int n = 71; n <= 150; n += 7) f.insert(f.end(), {n, -n});
  return f;
}

// Modes beyond the three stand for the last of them.
template <class F, class T, class... A>
void expectExact(Member<A...> member, Int128 ofNaN = rangeOf<T>.max) {
  for (const int factor : manyFactors()) {
    const auto src = valuesFor<F, T>(factor);
    for (const int roundMode : {0, 1, 2, 7, -1}) {
      const Mode mode = roundMode == 0 || roundMode == 1 ? Mode(roundMode) : Mode::halfAway;
      SCOPED_TRACE(testing::Message() << "factor " << factor << ", mode " << roundMode);
      const auto model = [&](F x) {
        return long(std::isnan(x) ? ofNaN : scaledFloat(x, factor, rangeOf<T>, mode));
      };
      withCallsInAllRoundings(
          [&] { expectEach(convert<F, T>(member, src, roundMode, factor), model); });
    }
  }
}

TEST(ConvertToInteger, IsExactForEveryModeFactorAndRoundingInForce) {
  const auto expectAll =
      []<class... F, class... T>(Member<const F*, T*, int, int, int>... members) {
        (expectExact<F, T>(members), ...);
      };
  expectAll(MEMBER(Convert_32f8s_Sfs), MEMBER(Convert_32f8u_Sfs), MEMBER(Convert_32f16s_Sfs),
            MEMBER(Convert_32f16u_Sfs), MEMBER(Convert_32f32s_Sfs), MEMBER(Convert_64f16s_Sfs),
            MEMBER(Convert_64f32s_Sfs));
  expectExact<Mox32f, Sample24s>(MEMBER(Convert_32f24s_Sfs));
  expectExact<Mox32f, Sample24u>(MEMBER(Convert_32f24u_Sfs));
  expectExact<Mox64f, Mox64s>(MEMBER(Convert_64f64s_Sfs), LLONG_MIN);
}

// Long enough for the stores that bypass the cache.
TEST(ConvertLarge, LargeArraysAgreeWithSmallOnes) {
  const auto words = Random().vector<Mox16s>((9 << 20) / 2);
  const auto floats = run(MEMBER(Convert_16s32f), words);
  expectEach(floats, [](Mox16s x) { return x; });
  expectEach(run(MEMBER(Convert_32f16s_Sfs), floats.values, 1, 0), [](float x) { return x; });
}

}  // namespace
