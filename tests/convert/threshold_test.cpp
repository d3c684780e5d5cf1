// Thresholds on real elements: every relation on every special value, in all lanes and in the tail.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "support/accuracy.h"
#include "support/float_environment.h"
#include "support/random.h"

namespace {

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
std::vector<E> levels() {
  using Range = std::numeric_limits<E>;
  std::vector<E> v = {0, 1, -1, 100, -100, Range::max(), Range::lowest()};
  if constexpr (std::is_floating_point_v<E>)
    for (E x : {E(-0.0), Range::quiet_NaN(), Range::infinity(), -Range::infinity(),
                Range::denorm_min(), E(-2.5), E(2.5)})
      v.push_back(x);
  return v;
}

template <class E>
auto bitsOf(E x) {
  if constexpr (std::is_floating_point_v<E>)
    return std::bit_cast<std::conditional_t<sizeof(E) == 4, Mox32u, Mox64u>>(x);
  else
    return x;
}

template <class E, class... P>
struct Members {
  const char* name;
  MoxStatus (*plain)(const E*, E*, int, P...);
  MoxStatus (*inPlace)(E*, int, P...);
};

template <class E, class... P>
Members(const char*, MoxStatus (*)(const E*, E*, int, P...), MoxStatus (*)(E*, int, P...))
    -> Members<E, P...>;

// The function gives model(x) for every x among `values`, wherever in a vector or a tail x stands.
template <class E, class... P, class Model>
void expectRelation(Members<E, P...> member, const std::vector<E>& values, Model model,
                    std::type_identity_t<P>... parameters) {
  const auto note = [&] { return (std::to_string(parameters) + ... + " "); };
  for (const int len : {1, 7, 16, 71, 16 * int(values.size()) + 5}) {
    std::vector<E> src(len), dst(len);
    // One more value than there are places in a round, so that each wanders through all lanes.
    for (int i = 0; i < len; ++i) src[i] = values[i % values.size()];
    for (std::size_t turn = 0; turn < values.size(); ++turn) {
      ASSERT_EQ(member.plain(src.data(), dst.data(), len, parameters...), moxOk);
      for (int i = 0; i < len; ++i)
        ASSERT_EQ(bitsOf(dst[i]), bitsOf(model(src[i])))
            << member.name << " of " << src[i] << ", parameters " << note() << ", element " << i;
      std::vector<E> both = src;
      ASSERT_EQ(member.inPlace(both.data(), len, parameters...), moxOk);
      ASSERT_EQ(0, std::memcmp(both.data(), dst.data(), len * sizeof(E))) << member.name << "_I";
      std::rotate(src.begin(), src.begin() + 1, src.end());
      src.back() = values[(turn + len) % values.size()];
    }
  }
}

#define MEMBERS(name) \
  Members { #name, moxsThreshold_##name, moxsThreshold_##name##_I }

template <class E>
void expectLimits(Members<E, E> lt, Members<E, E> gt, Members<E, E> ltAbs, Members<E, E> gtAbs) {
  for (E level : levels<E>()) {
    const auto values = valuesAround(level);
    expectRelation(
        lt, values, [=](E x) { return x > level ? x : level; }, level);
    expectRelation(
        gt, values, [=](E x) { return x < level ? x : level; }, level);
    if (level < 0) continue;
    const E opposite = E(-level);
    const auto raised = [=](E x) {
      return level > std::fabs((long double)x) ? (x >= 0 ? level : opposite) : x;
    };
    const auto limited = [=](E x) { return x < opposite ? opposite : x < level ? x : level; };
    expectRelation(ltAbs, values, raised, level);
    expectRelation(gtAbs, values, limited, level);
  }
}

template <class E>
void expectValues(Members<E, E, E> lt, Members<E, E, E> gt, Members<E, E, int> byOperator) {
  for (E level : levels<E>())
    for (E value : {E(9), level}) {
      const auto values = valuesAround(level);
      expectRelation(
          lt, values, [=](E x) { return level <= x ? x : value; }, level, value);
      expectRelation(
          gt, values, [=](E x) { return level >= x ? x : value; }, level, value);
      expectRelation(
          byOperator, values, [=](E x) { return x > level ? x : level; }, level, moxThresholdLess);
      expectRelation(
          byOperator, values, [=](E x) { return x < level ? x : level; }, level,
          moxThresholdGreater);
    }
}

template <class E>
void expectTwoValues(Members<E, E, E, E, E> member) {
  for (E low : levels<E>())
    for (E high : levels<E>()) {
      if (low > high) continue;
      auto values = valuesAround(low);
      for (E x : valuesAround(high)) values.push_back(x);
      const auto model = [=](E x) { return x < low ? E(9) : x > high ? E(-9) : x; };
      expectRelation(member, values, model, low, E(9), high, E(-9));
    }
}

TEST(Threshold, EveryRelationAsWrittenOnEverySpecialValue) {
  expectLimits<Mox16s>(MEMBERS(LT_16s), MEMBERS(GT_16s), MEMBERS(LTAbs_16s), MEMBERS(GTAbs_16s));
  expectLimits<Mox32s>(MEMBERS(LT_32s), MEMBERS(GT_32s), MEMBERS(LTAbs_32s), MEMBERS(GTAbs_32s));
  expectLimits<Mox32f>(MEMBERS(LT_32f), MEMBERS(GT_32f), MEMBERS(LTAbs_32f), MEMBERS(GTAbs_32f));
  expectLimits<Mox64f>(MEMBERS(LT_64f), MEMBERS(GT_64f), MEMBERS(LTAbs_64f), MEMBERS(GTAbs_64f));
  expectValues<Mox16s>(MEMBERS(LTVal_16s), MEMBERS(GTVal_16s), MEMBERS(16s));
  expectValues<Mox32f>(MEMBERS(LTVal_32f), MEMBERS(GTVal_32f), MEMBERS(32f));
  expectValues<Mox64f>(MEMBERS(LTVal_64f), MEMBERS(GTVal_64f), MEMBERS(64f));
  expectTwoValues<Mox16s>(MEMBERS(LTValGTVal_16s));
  expectTwoValues<Mox32s>(MEMBERS(LTValGTVal_32s));
  expectTwoValues<Mox32f>(MEMBERS(LTValGTVal_32f));
  expectTwoValues<Mox64f>(MEMBERS(LTValGTVal_64f));
}

// Statuses come in the order of the checks, and a refused call writes nothing.
TEST(Threshold, ParametersAreRefusedInOrder) {
  Mox32f x[2] = {1, 2};
  Mox16s w[2] = {1, 2};
  Mox32fc z[2] = {{1, 2}, {3, 4}};
  Mox16sc c[2] = {{1, 2}, {3, 4}};
  Mox64f d[2] = {1, 2};
  EXPECT_EQ(moxsThreshold_16s_I(w, 2, 5, 1), moxErrBadArg);
  EXPECT_EQ(moxsThreshold_32f(x, x, 2, -5, 3), moxErrBadArg);
  EXPECT_EQ(moxsThreshold_32f(nullptr, x, 0, 5, 3), moxErrNullPtr);
  EXPECT_EQ(moxsThreshold_32f(x, x, 0, 5, 3), moxErrSize);
  EXPECT_EQ(moxsThreshold_32fc_I(z, 2, -1, 3), moxErrThreshLevel);
  EXPECT_EQ(moxsThreshold_32fc_I(z, 2, 1, 3), moxErrBadArg);
  EXPECT_EQ(moxsThreshold_16sc_I(c, 2, -1, 3), moxErrThreshLevel);
  EXPECT_EQ(moxsThreshold_16sc(c, c, 2, 9, -1), moxErrBadArg);
  EXPECT_EQ(moxsThreshold_GT_32fc_I(z, 2, -1), moxErrThreshLevel);
  EXPECT_EQ(moxsThreshold_LTVal_32fc_I(z, 2, -1, {0, 0}), moxErrThreshLevel);
  EXPECT_EQ(moxsThreshold_GTVal_16sc_I(c, 2, -1, {0, 0}), moxErrThreshLevel);
  EXPECT_EQ(moxsThreshold_LTAbs_16s_I(w, 2, -1), moxErrThreshLevel);
  EXPECT_EQ(moxsThreshold_GTAbs_32f_I(x, 2, -1), moxErrThreshLevel);
  EXPECT_EQ(moxsThreshold_LTInv_64f_I(d, 2, -1), moxErrThreshLevel);
  EXPECT_EQ(moxsThreshold_LTInv_32fc_I(z, 0, -1), moxErrSize);
  EXPECT_EQ(moxsThreshold_LTValGTVal_32f_I(x, 2, 3, 0, 2, 0), moxErrThreshOrder);
  EXPECT_EQ(moxsThreshold_LTValGTVal_16s_I(w, 2, 3, 0, 2, 0), moxErrThreshOrder);
  EXPECT_EQ(x[0] == 1 && x[1] == 2 && w[0] == 1 && d[1] == 2 && z[0].re == 1 && c[1].im == 4, true);
}

template <class F>
void expectReciprocals(Members<F, F> member, long double bound) {
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  using Range = std::numeric_limits<F>;
  for (F level : {F(0), F(0.25), Range::denorm_min(), F(1e30), Range::infinity()}) {
    std::vector<F> src = valuesAround(level);
    for (int i = 0; i < 3000; ++i)
      src.push_back(i % 2 ? random.anyFloat<F>() : random.value<F>() * F(i % 3 ? 1 : 1000));
    std::vector<long double> exact;
    for (F x : src) {
      const long double magnitude = std::isnan(x) ? x : std::fmax(std::fabs(x), level);
      exact.push_back(std::copysign(1 / magnitude, x));
      if (std::isinf(F(exact.back()))) exact.back() = F(exact.back());
    }
    for (int rounding : test::allRoundings) {
      const test::UnderRounding environment(rounding);
      std::vector<F> dst = src;
      ASSERT_EQ(member.inPlace(dst.data(), int(src.size()), level),
                level == 0 ? moxWarnInvZero : moxOk);
      for (std::size_t i = 0; i < src.size(); ++i) {
        // Where the estimate is 0 the result may be.
        const bool flushed = sizeof(F) == 4 && std::fabs(exact[i]) <= 0x1p-126L && dst[i] == 0;
        ASSERT_LE(flushed ? 0 : test::ulpError(dst[i], exact[i]), bound)
            << member.name << " of " << src[i] << ", level " << level << ", gives " << dst[i];
        ASSERT_EQ(std::signbit(dst[i]), std::signbit(src[i])) << src[i];
      }
    }
  }
}

TEST(Threshold, ReciprocalsOfRaisedMagnitudes) {
  expectReciprocals<Mox32f>(MEMBERS(LTInv_32f), 5);
  expectReciprocals<Mox64f>(MEMBERS(LTInv_64f), 0.5L);
}

TEST(Threshold, ReciprocalOfZeroIsAnInfinityAndAWarningInBlockAndTail) {
  for (int len : {1, 8, 33})
    for (int at = 0; at < len; ++at) {
      std::vector<Mox32f> x(len, 2.0f);
      EXPECT_EQ(moxsThreshold_LTInv_32f_I(x.data(), len, 0), moxOk);
      x[at] = at % 2 ? 0.0f : -0.0f;
      EXPECT_EQ(moxsThreshold_LTInv_32f_I(x.data(), len, 0), moxWarnInvZero);
      for (int i = 0; i < len; ++i) EXPECT_EQ(x[i], i != at ? 2 : at % 2 ? INFINITY : -INFINITY);
    }
}

}  // namespace
