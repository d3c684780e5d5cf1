// Conversions from integers, and between floats.
#include "convert/samples.h"
#include "support/values.h"

namespace {

using namespace test;

// Floats round in the mode in force, and so does the model.
template <class S, class D, class... A>
void expectSameValues(const std::vector<S>& src, Member<A...> member) {
  for (const int rounding : allRoundings) {
    const UnderRounding mode(rounding);
    expectEach(convert<S, D>(member, src), [](S x) {
      const volatile auto value = +x;
      return D(value);
    });
  }
}
template <class S, class D, class... A>
void expectSameValue(Member<A...> member) {
  std::vector<S> src;
  if constexpr (sizeof(S) == 3)
    for (const Mox32s v : lattice<Mox32s>(1000)) src.emplace_back(v), src.emplace_back(v >> 8);
  else
    src = allOrMany<S>();
  expectSameValues<S, D>(src, member);
}
template <class S, class D>
void expectSame(Member<const S*, D*, int> member) {
  expectSameValue<S, D>(member);
}

TEST(ConvertIntegers, KeepTheirValueInWiderTypesAndFloats) {
  const auto expectAll = [](auto... members) { (expectSame(members), ...); };
  expectAll(MEMBER(Convert_8s16s), MEMBER(Convert_8s32f), MEMBER(Convert_8u32f),
            MEMBER(Convert_16s32s), MEMBER(Convert_16s32f), MEMBER(Convert_16u32f),
            MEMBER(Convert_32s32f), MEMBER(Convert_32s64f), MEMBER(Convert_64s64f));
  expectSameValue<Sample24s, Mox32s>(MEMBER(Convert_24s32s));
  expectSameValue<Sample24s, Mox32f>(MEMBER(Convert_24s32f));
  expectSameValue<Sample24u, Mox32u>(MEMBER(Convert_24u32u));
  expectSameValue<Sample24u, Mox32f>(MEMBER(Convert_24u32f));
}

TEST(ConvertFloats, FollowIeeeConversionInTheRoundingModeInForce) {
  Random random;
  auto floats = random.specials<Mox32f>(2000);
  auto doubles = random.specials<Mox64f>(2000);
  for (int i = 0; i < 2000; ++i)
    doubles.push_back(std::ldexp(random.value<double>(), int(random.below(320)) - 160));
  expectSameValues<Mox32f, Mox64f>(floats, MEMBER(Convert_32f64f));
  expectSameValues<Mox64f, Mox32f>(doubles, MEMBER(Convert_64f32f));
}

// The reference rounds where the destination's precision ends, in the mode in force. Below the
// lowest factor none counts.
template <class S, class D>
void expectScaledOnce(Member<const S*, D*, int, int> member, int lowestFactor) {
  const auto src = lattice<S>(300);
  std::vector<int> factors = {INT_MIN, INT_MAX, 2043, 2044, 2045};
  for (const int edge : {-1008, -992, 1021, 1040, 1075, 1090, 0, -50, 60, 140})
    for (int near = -18; near <= 18; ++near) factors.push_back(edge + near);
  for (int n = -150; n <= 180; n += 3) factors.push_back(n);
  for (const int rounding : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD})
    for (const int factor : factors) {
      SCOPED_TRACE(factor);
      const UnderRounding mode(rounding);
      const int used = std::min(std::max(factor, lowestFactor), 5000);
      expectEach(run(member, src, factor), [&](S x) {
        const volatile S value = x;
        const volatile long double scaled = std::ldexp((long double)(D(value)), -used);
        return D(scaled);
      });
    }
}

TEST(ConvertIntegers, ToFloatsWithAFactorRoundOnce) {
  expectScaledOnce(MEMBER(Convert_16s32f_Sfs), -112);
  expectScaledOnce(MEMBER(Convert_32s32f_Sfs), -96);
  expectScaledOnce(MEMBER(Convert_16s64f_Sfs), -1008);
  expectScaledOnce(MEMBER(Convert_32s64f_Sfs), -992);
}

template <class S, class T, class... A>
void expectNarrowed(Member<A...> member) {
  const auto src = allOrMany<S>();
  forAllFactors([&](int factor) {
    expectEach(convert<S, T>(member, src, factor),
               [&](S x) { return long(scaledInteger(x, factor, rangeOf<T>)); });
  });
}

TEST(ConvertIntegers, ToNarrowerOnesObeyTheScaleRule) {
  expectNarrowed<Mox16s, Mox8s>(MEMBER(Convert_16s8s_Sfs));
  expectNarrowed<Mox32s, Mox16s>(MEMBER(Convert_32s16s_Sfs));
  expectNarrowed<Mox32s, Sample24s>(MEMBER(Convert_32s24s_Sfs));
  expectNarrowed<Mox32u, Sample24u>(MEMBER(Convert_32u24u_Sfs));
  expectNarrowed<Mox64s, Mox32s>(MEMBER(Convert_64s32s_Sfs));
  const auto src = allOrMany<Mox32s>();
  expectEach(run(MEMBER(Convert_32s16s), src),
             [](Mox32s x) { return std::clamp(x, -32768, 32767); });
}

}  // namespace
