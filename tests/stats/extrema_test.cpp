// Extrema against a scan in plain code: the first of equal elements wins, and a NaN counts only in
// front.
#include <bit>

#include "support/test.h"

namespace {

using namespace test;

template <class E>
using Limits = std::numeric_limits<E>;

template <class E>
struct Extreme {
  E value;
  int index;
  bool operator==(const Extreme& o) const { return sameBits(value, o.value) && index == o.index; }
  friend void PrintTo(const Extreme& e, std::ostream* out) {
    *out << +e.value << " at " << e.index;
  }
};

template <class E>
Extreme<E> plainScan(const std::vector<E>& v, bool isMost, bool ofMagnitudes) {
  Extreme<E> best{};
  for (int i = 0; i < int(v.size()); ++i) {
    E x = v[i];
    if constexpr (std::is_signed_v<E>)
      if (ofMagnitudes) x = x == Limits<E>::min() ? Limits<E>::max() : E(std::abs(x));
    if (i == 0 || (isMost ? x > best.value : x < best.value)) best = {x, i};
  }
  return best;
}

// Vectors of few values with many ties: the limits of the type, in floats zeros of both signs and
// NaN. Every element is drawn, or few of a constant vector are, or one and another behind it.
template <class E>
void forVectors(auto check) {
  using L = Limits<E>;
  std::vector<E> few = {L::lowest(), L::max(), E(L::lowest() + 1), 0, E(-2), E(-1), 1, 2};
  if (std::is_floating_point_v<E>) few.insert(few.end(), {E(-0.0), L::infinity(), L::quiet_NaN()});
  Random random;
  const auto value = [&] { return few[random.below(long(few.size()))]; };
  for (int len = 1; len < 6000; len += 1 + len / 50)
    for (const long step : {1, 90, 400}) {
      std::vector<E> v(len, value());
      for (long i = 0; i < len; i += 1 + random.below(step)) v[i] = value();
      check(v);
    }
  for (const int len : {33, 256, 530, 1030})
    for (int at = 0; at < len; ++at)
      // Of equal zeros the first one counts, whatever its sign.
      for (const auto& [rest, x] : {std::pair(7, 3.0), {7, 9.0}, {7, 0.0}, {-7, -0.0}}) {
        std::vector<E> v(len, E(rest));
        v[at] = E(x), v[at + (len - at) / 2] = E(x == 0 ? -x : x);
        check(v);
      }
}

template <class E>
void expectSearch(bool isMost, bool ofMagnitudes, auto withIndex, auto... alone) {
  forVectors<E>([&](const std::vector<E>& v) {
    // At the end of a larger array, so that the address varies with the length.
    std::vector<E> memory(6000 - v.size());
    memory.insert(memory.end(), v.begin(), v.end());
    const int len = int(v.size());
    const E* const src = &memory[6000 - v.size()];
    const auto expected = plainScan(v, isMost, ofMagnitudes);
    Extreme<E> found{};
    ASSERT_OK(withIndex(src, len, &found.value, &found.index));
    ASSERT_EQ(found, expected) << "length " << len;
    const auto expectAlone = [&](auto f) {
      found.value = E(1);
      ASSERT_OK(f(src, len, &found.value));
      ASSERT_EQ(found, expected) << "length " << len << ", without index";
    };
    (expectAlone(alone), ...);
  });
}

// A search for one extreme, and for both at once.
template <class E>
void expectOne(MoxStatus (*alone)(const E*, int, E*),
               MoxStatus (*withIndex)(const E*, int, E*, int*), bool isMost,
               bool ofMagnitudes = false) {
  expectSearch<E>(isMost, ofMagnitudes, withIndex, alone, [=](const E* src, int len, E* value) {
    return withIndex(src, len, value, nullptr);
  });
}
template <class E>
void expectBoth(MoxStatus (*alone)(const E*, int, E*, E*),
                MoxStatus (*withIndex)(const E*, int, E*, int*, E*, int*)) {
  E other;
  int at;
  expectSearch<E>(
      false, false,
      [&](auto* src, int len, E* value, int* i) {
        return withIndex(src, len, value, i, &other, &at);
      },
      [&](auto* src, int len, E* value) { return alone(src, len, value, &other); });
  expectSearch<E>(
      true, false,
      [&](auto* src, int len, E* value, int* i) {
        return withIndex(src, len, &other, &at, value, i);
      },
      [&](auto* src, int len, E* value) { return alone(src, len, &other, value); });
}

#define EXPECT_BOTH(t) expectBoth(moxsMinMax_##t, moxsMinMaxIndx_##t)
#define EXPECT_EACH(t)                           \
  EXPECT_BOTH(t);                                \
  expectOne(moxsMax_##t, moxsMaxIndx_##t, true); \
  expectOne(moxsMin_##t, moxsMinIndx_##t, false)
#define EXPECT_ABS(t)                                        \
  expectOne(moxsMaxAbs_##t, moxsMaxAbsIndx_##t, true, true); \
  expectOne(moxsMinAbs_##t, moxsMinAbsIndx_##t, false, true)

TEST(Extrema, AreThoseOfAScan) {
  EXPECT_BOTH(8u);
  EXPECT_BOTH(16u);
  EXPECT_BOTH(32u);
  EXPECT_EACH(16s);
  EXPECT_EACH(32s);
  EXPECT_EACH(32f);
  EXPECT_EACH(64f);
  EXPECT_ABS(16s);
  EXPECT_ABS(32s);
}

// All pairs of special values, through vectors and the tail; a negative length is no element.
template <class E>
void checkEvery(MoxStatus (*max)(const E*, E*, int), MoxStatus (*min)(const E*, E*, int)) {
  std::vector<E> special = {Limits<E>::lowest(), E(0), E(1), Limits<E>::max(), E(-1)};
  if constexpr (std::is_floating_point_v<E>)
    for (const E x : {E(-0.0), E(NAN), Limits<E>::infinity(), Limits<E>::denorm_min()})
      special.push_back(x);
  std::vector<E> a, b, mosts, leasts;
  for (const E x : special)
    for (const E y : special) {
      a.push_back(x), b.push_back(y);
      mosts.push_back(x > y ? x : y), leasts.push_back(x < y ? x : y);
    }
  for (const bool isMost : {false, true}) {
    auto dst = b;
    EXPECT_OK((isMost ? max : min)(a.data(), dst.data(), -3));
    EXPECT_TRUE(sameBits(dst, b));
    EXPECT_OK((isMost ? max : min)(a.data(), dst.data(), int(a.size())));
    EXPECT_TRUE(sameBits(dst, isMost ? mosts : leasts)) << (isMost ? "greatest" : "least");
  }
}

TEST(MaxEvery, OfAllPairs) {
  checkEvery(moxsMaxEvery_8u_I, moxsMinEvery_8u_I);
  checkEvery(moxsMaxEvery_16u_I, moxsMinEvery_16u_I);
  checkEvery(moxsMaxEvery_16s_I, moxsMinEvery_16s_I);
  checkEvery(moxsMaxEvery_32s_I, moxsMinEvery_32s_I);
  checkEvery(moxsMaxEvery_32f_I, moxsMinEvery_32f_I);
  checkEvery(moxsMaxEvery_64f_I, moxsMinEvery_64f_I);
}

template <class E>
int orderOf(E x) {
  if constexpr (std::is_integral_v<E>) return std::bit_width(std::uint64_t(std::abs(long(x))));
  int order = 0;
  std::frexp(x, &order);
  return std::max(order, Limits<E>::min_exponent - 1);
}

// `x` among smaller elements of either sign, at every place.
template <class E>
void checkOrder(MoxStatus (*maxOrder)(const E*, int, int*), std::vector<E> special) {
  for (const E x : special)
    for (const int len : {1, 2, 40, 300})
      for (int at = 0; at < len; ++at) {
        std::vector<E> v(len);
        v[(at + len / 2) % len] = E(x / 3);
        v[at] = x;
        int order = -1;
        ASSERT_OK(maxOrder(v.data(), len, &order));
        ASSERT_EQ(order, x == 0 ? 0 : orderOf(x)) << +x << " at " << at << " of " << len;
        if constexpr (std::is_floating_point_v<E>)
          for (const E noNumber : {E(NAN), E(-NAN), E(INFINITY), E(-INFINITY)}) {
            v[(at + 1) % len] = noNumber;
            ASSERT_EQ(maxOrder(v.data(), len, &order), moxWarnNaNFound);
            ASSERT_EQ(order, x == 0 || len == 1 ? 0 : orderOf(x));
          }
      }
}

TEST(MaxOrder, OfSpecialValues) {
  checkOrder<Mox16s>(moxsMaxOrder_16s, {0, 1, -1, 2, 3, 4, -255, 256, 32767, -32767, -32768});
  checkOrder<Mox32s>(moxsMaxOrder_32s, {0, 1, -1, 7, -8, 65536, 2147483647, -2147483647 - 1});
  checkOrder<Mox32f>(moxsMaxOrder_32f, {0, -0.0f, 1, 0.5f, -3, 4, 0.25f, 3.4028235e38f, 1.2e-38f,
                                        Limits<Mox32f>::min(), Limits<Mox32f>::denorm_min()});
  checkOrder<Mox64f>(moxsMaxOrder_64f, {0, -0.0, 1, 0.5, -3, 4, 0.25, Limits<Mox64f>::max(),
                                        Limits<Mox64f>::min(), Limits<Mox64f>::denorm_min()});
}

}  // namespace
