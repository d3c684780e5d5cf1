// Thresholds on real elements: every relation on every special value, in all lanes and in the tail.
#include "support/accuracy.h"

namespace {

using namespace test;

// Numbers of type E around `level` and its opposite, and those at the ends of the type.
template <class E>
std::vector<E> valuesAround(E level) {
  using Range = std::numeric_limits<E>;
  std::vector<E> v = {0, 1, -1, Range::max(), Range::lowest()};
  if constexpr (std::is_floating_point_v<E>) {
    for (E x : {Range::quiet_NaN(), E(0), Range::infinity(), Range::denorm_min(), Range::min()})
      v.push_back(x), v.push_back(-x);
    for (E x : {level, -level})
      for (E to : {x, std::nextafter(x, Range::infinity()), std::nextafter(x, -Range::infinity())})
        v.push_back(to);
  } else {
    for (long x : {long(level), -long(level)})
      for (long to : {x - 1, x, x + 1}) v.push_back(E(to));
  }
  return v;
}

template <class E>
const std::vector<E> levels = valuesAround<E>(100);

// The function gives model(x), to the bit, for every x among `values` in every lane.
template <class E, class... P>
void expectRelation(const std::vector<E>& values, auto model,
                    Member<const E*, E*, int, P...> member, Given<P>... parameters) {
  std::vector<E> src;
  for (std::size_t round = 0; round < values.size(); ++round)
    for (std::size_t lane = 0; lane < 64; ++lane)
      src.push_back(values[(round + lane) % values.size()]);
  const auto got = run(member, src, parameters...).values;
  for (std::size_t i = 0; i < src.size(); ++i)
    ASSERT_TRUE(sameBits(got[i], E(model(src[i]))))
        << member.name << " of " << text(src[i]) << " with " << ((text(parameters) + ' ') + ...)
        << "gives " << text(got[i]);
}

template <class E>
using Limit = Member<const E*, E*, int, E>;
template <class E>
void expectLimits(Limit<E> lt, Limit<E> gt, Limit<E> ltAbs, Limit<E> gtAbs,
                  Member<const E*, E*, int, E, E, E, E> ltValGtVal) {
  for (const E level : levels<E>) {
    const auto values = valuesAround(level);
    expectRelation(
        values, [=](E x) { return x > level ? x : level; }, lt, level);
    expectRelation(
        values, [=](E x) { return x < level ? x : level; }, gt, level);
    if (level < 0) continue;
    const E opposite = E(-level);
    const auto raised = [=](E x) {
      return level > std::fabs((long double)x) ? (x >= 0 ? level : opposite) : x;
    };
    const auto limited = [=](E x) { return x < opposite ? opposite : x < level ? x : level; };
    expectRelation(values, raised, ltAbs, level);
    expectRelation(values, limited, gtAbs, level);
  }
  for (const E low : levels<E>)
    for (const E high : levels<E>) {
      if (low > high) continue;
      auto values = valuesAround(low);
      for (const E x : valuesAround(high)) values.push_back(x);
      const auto model = [=](E x) { return x < low ? E(9) : x > high ? E(-9) : x; };
      expectRelation(values, model, ltValGtVal, low, E(9), high, E(-9));
    }
}

template <class E>
void expectValues(Member<const E*, E*, int, E, E> lt, Member<const E*, E*, int, E, E> gt,
                  Member<const E*, E*, int, E, int> by) {
  for (const E level : levels<E>) {
    const auto values = valuesAround(level);
    for (const E value : {E(9), level}) {
      expectRelation(
          values, [=](E x) { return level <= x ? x : value; }, lt, level, value);
      expectRelation(
          values, [=](E x) { return level >= x ? x : value; }, gt, level, value);
    }
    const auto raised = [=](E x) { return x > level ? x : level; };
    const auto lowered = [=](E x) { return x < level ? x : level; };
    expectRelation(values, raised, by, level, moxThresholdLess);
    expectRelation(values, lowered, by, level, moxThresholdGreater);
  }
}

#define EXPECT_LIMITS_OF(t)                                                                     \
  expectLimits(MEMBER(Threshold_LT_##t), MEMBER(Threshold_GT_##t), MEMBER(Threshold_LTAbs_##t), \
               MEMBER(Threshold_GTAbs_##t), MEMBER(Threshold_LTValGTVal_##t))
#define EXPECT_VALUES_OF(t) \
  expectValues(MEMBER(Threshold_LTVal_##t), MEMBER(Threshold_GTVal_##t), MEMBER(Threshold_##t))

TEST(Threshold, EveryRelationAsWrittenOnEverySpecialValue) {
  EXPECT_LIMITS_OF(16s);
  EXPECT_LIMITS_OF(32s);
  EXPECT_LIMITS_OF(32f);
  EXPECT_LIMITS_OF(64f);
  EXPECT_VALUES_OF(16s);
  EXPECT_VALUES_OF(32f);
  EXPECT_VALUES_OF(64f);
}

template <class F>
void expectReciprocals(Member<const F*, F*, int, F> member, long double bound) {
  using Limits = std::numeric_limits<F>;
  Random random;
  for (const F level : {F(0), F(0.25), Limits::denorm_min(), F(1e30), Limits::infinity()}) {
    std::vector<F> src = valuesAround(level);
    for (int i = 0; i < 3000; ++i)
      src.push_back(i % 2 ? random.anyFloat<F>() : random.value<F>() * F(i % 3 ? 1 : 1000));
    withCallsInAllRoundings([&] {
      const auto got = run(member, src, level);
      const auto exactAt = [&](std::size_t i) -> long double {
        if (std::isnan(src[i])) return src[i];
        const long double exact = std::copysign(1.0L / std::fmax(std::fabs(src[i]), level), src[i]);
        // Where the estimate is 0 the result may be.
        const bool flushed = sizeof(F) == 4 && std::fabs(exact) <= 0x1p-126L && got.values[i] == 0;
        return flushed ? std::copysign(0, exact) : exact;
      };
      EXPECT_EQ(got.status, level == 0 ? moxWarnInvZero : moxOk);
      expectWithinUlps(got, bound, 0, exactAt);
    });
  }
}

TEST(Threshold, ReciprocalsOfRaisedMagnitudes) {
  expectReciprocals(MEMBER(Threshold_LTInv_32f), 5);
  expectReciprocals(MEMBER(Threshold_LTInv_64f), 0.5L);
}

TEST(Threshold, ReciprocalOfZeroIsAnInfinityAndAWarningAtAnyPlace) {
  expectEverywhere(MEMBER(Threshold_LTInv_32f), moxWarnInvZero, {{0, INFINITY}, {-0.0f, -INFINITY}},
                   0.0f);
}

}  // namespace
