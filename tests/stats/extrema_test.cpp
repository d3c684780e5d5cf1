// Extrema against a scan in plain code: the first of equal elements wins, and a NaN counts only in
// front.
#include <bit>

#include "support/test.h"

namespace {

using namespace test;

template <class E>
using Limits = std::numeric_limits<E>;

// A search for one extreme, without its index and with it.
template <class E>
struct Search {
  MoxStatus (*alone)(const E*, int, E*);
  MoxStatus (*withIndex)(const E*, int, E*, int*);
};
// The members of one element type, which need not have all.
template <class E>
struct Members {
  MoxStatus (*minMax)(const E*, int, E*, E*);
  MoxStatus (*minMaxIndx)(const E*, int, E*, int*, E*, int*);
  Search<E> max{}, min{}, maxAbs{}, minAbs{};
};
#define BOTH(t) moxsMinMax_##t, moxsMinMaxIndx_##t
#define ONE(what, t) \
  { moxs##what##_##t, moxs##what##Indx_##t }
#define EACH(t) ONE(Max, t), ONE(Min, t)
#define EACH_ABS(t) ONE(MaxAbs, t), ONE(MinAbs, t)
constexpr Members<Mox8u> members(Mox8u) { return {BOTH(8u)}; }
constexpr Members<Mox16u> members(Mox16u) { return {BOTH(16u)}; }
constexpr Members<Mox32u> members(Mox32u) { return {BOTH(32u)}; }
constexpr Members<Mox32f> members(Mox32f) { return {BOTH(32f), EACH(32f)}; }
constexpr Members<Mox64f> members(Mox64f) { return {BOTH(64f), EACH(64f)}; }
constexpr Members<Mox16s> members(Mox16s) { return {BOTH(16s), EACH(16s), EACH_ABS(16s)}; }
constexpr Members<Mox32s> members(Mox32s) { return {BOTH(32s), EACH(32s), EACH_ABS(32s)}; }

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
E magnitude(E x) {
  if constexpr (std::is_signed_v<E>)
    return x == Limits<E>::min() ? Limits<E>::max() : E(std::abs(x));
  return x;
}
template <class E>
Extreme<E> plainScan(const std::vector<E>& v, bool isMost, bool ofMagnitudes = false) {
  Extreme<E> best{};
  for (int i = 0; i < int(v.size()); ++i) {
    const E x = ofMagnitudes ? magnitude(v[i]) : v[i];
    if (i == 0 || (isMost ? x > best.value : x < best.value)) best = {x, i};
  }
  return best;
}

template <class E>
void check(const std::vector<E>& v) {
  // At the end of a larger array, so that the address varies with the length.
  std::vector<E> memory(6000 - v.size());
  memory.insert(memory.end(), v.begin(), v.end());
  const int len = int(v.size());
  const E* const src = &memory[6000 - v.size()];

  const Members<E> m = members(E());
  const Extreme<E> most = plainScan(v, true), least = plainScan(v, false);
  Extreme<E> low{}, high{}, lowAlone{E(1), least.index}, highAlone{E(1), most.index};
  EXPECT_OK(m.minMaxIndx(src, len, &low.value, &low.index, &high.value, &high.index));
  EXPECT_OK(m.minMax(src, len, &lowAlone.value, &highAlone.value));
  EXPECT_TRUE(low == least && high == most);
  EXPECT_TRUE(lowAlone == least && highAlone == most) << "without index";

  const auto expect = [&](const Search<E>& search, const Extreme<E>& expected) {
    if (!search.alone) return;
    Extreme<E> found{}, alone{E(1), expected.index}, unwanted = alone;
    EXPECT_OK(search.withIndex(src, len, &found.value, &found.index));
    EXPECT_OK(search.alone(src, len, &alone.value));
    EXPECT_OK(search.withIndex(src, len, &unwanted.value, nullptr));
    EXPECT_EQ(found, expected);
    EXPECT_EQ(alone, expected) << "without index";
    EXPECT_EQ(unwanted, expected) << "with a null index";
  };
  expect(m.max, most);
  expect(m.min, least);
  expect(m.maxAbs, plainScan(v, true, true));
  expect(m.minAbs, plainScan(v, false, true));
}

template <class E>
class Extrema : public testing::Test {
 public:
  // Few values, many ties: the limits of the type, in floats zeros of both signs and NaN.
  E value() {
    using L = Limits<E>;
    const E values[] = {
        L::lowest(), L::max(), E(L::lowest() + 1), E(0),          E(-2), E(-1), E(1),
        E(2),        E(-0.0),  L::infinity(),      L::quiet_NaN()};
    return values[random.below(std::is_floating_point_v<E> ? 11 : 8)];
  }
  Random random;
};
using Elements = testing::Types<Mox8u, Mox16u, Mox16s, Mox32u, Mox32s, Mox32f, Mox64f>;
TYPED_TEST_SUITE(Extrema, Elements);

// Every element is drawn anew, or few of a constant vector are.
TYPED_TEST(Extrema, OfFewValues) {
  for (int len = 1; len < 6000; len += 1 + len / 50)
    for (const long step : {1, 90, 400}) {
      std::vector<TypeParam> v(len, this->value());
      for (long i = 0; i < len; i += 1 + this->random.below(step)) v[i] = this->value();
      check(v);
      ASSERT_FALSE(this->HasFailure()) << "length " << len;
    }
}

TYPED_TEST(Extrema, AtEveryPlace) {
  for (const int len : {33, 256, 530, 1030})
    for (int at = 0; at < len; ++at)
      for (const TypeParam extreme : {3, 9}) {
        std::vector<TypeParam> v(len, TypeParam(7));
        v[at] = v[at + (len - at) / 2] = extreme;
        check(v);
        if constexpr (std::is_floating_point_v<TypeParam>) {
          // Of equal zeros the first one counts, whatever its sign.
          for (TypeParam& e : v) e = extreme == 3 ? TypeParam(7) : TypeParam(-7);
          v[at] = extreme == 3 ? TypeParam(0) : TypeParam(-0.0);
          v[at + (len - at) / 2] = -v[at];
          check(v);
        }
        ASSERT_FALSE(this->HasFailure()) << "length " << len << ", at " << at;
      }
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
