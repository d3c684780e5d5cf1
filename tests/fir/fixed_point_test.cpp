// Filters with 16-bit taps, to the bit against a model in wider integers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "frame/elements.h"
#include "support/guarded_array.h"
#include "support/random.h"

#include <moxsp.h>

namespace {

using mox::Part, mox::parts, mox::partsPerElement;

enum class Rule { down, nearEven, halfAway, oddUp };

// sum * 2^shift as the functions round and saturate it.
Mox16s rounded(Mox32u wrapped, long shift, Rule rule) {
  const long s = std::clamp(shift, -31L, 31L);
  const long sum = Mox32s(wrapped);
  long r = sum;
  if (s > 0) {
    r = Mox32s(wrapped << s);
  } else if (s == 0) {
    if (rule == Rule::oddUp) r += sum & 1;
  } else {
    const long unit = 1L << -s, floor = sum >> -s, rest = sum - floor * unit;
    const bool up = rule == Rule::down       ? false
                    : 2 * rest != unit       ? 2 * rest > unit
                    : rule == Rule::halfAway ? sum > 0
                                             : floor & 1;
    r = floor + up;
  }
  return Mox16s(std::clamp(r, -32768L, 32767L));
}

struct Held {
  std::vector<long> taps;  // as parts
  int factor;
};

// Taps of integers: halved while the largest is above the limit.
template <class E>
Held heldTaps(const std::vector<E>& taps, int factor, long limit) {
  const auto* p = parts(taps.data());
  Held h{{p, p + taps.size() * partsPerElement<E>}, factor};
  const auto magnitude = [](long t) { return std::abs(t); };
  long largest = std::ranges::max(h.taps, {}, magnitude);
  for (largest = magnitude(largest); largest > limit; largest /= 2) {
    for (long& t : h.taps) t >>= 1;
    ++h.factor;
  }
  return h;
}

// Taps of floats: the power of two that the largest needs.
template <class E>
Held heldFloats(const std::vector<E>& taps) {
  const auto* p = parts(taps.data());
  const long n = long(taps.size()) * partsPerElement<E>;
  long double largest = 0;
  for (long i = 0; i < n; ++i) largest = std::max(largest, std::fabs((long double)p[i]));
  int factor = -33;
  while (factor < 33 && largest > std::ldexp(32767.0L, factor)) ++factor;
  Held h{{}, factor};
  for (long i = 0; i < n; ++i)
    h.taps.push_back(
        long(std::clamp(std::round(std::ldexp((long double)p[i], -factor)), -32767.0L, 32767.0L)));
  return h;
}

struct Rates {
  int up = 1, upPhase = 0, down = 1, downPhase = 0;
};

// The sums of all parts of all outputs, modulo 2^32; dlyLine holds x[-1], x[-2] ..
template <class D>
std::vector<Mox32u> sums(const Held& h, const std::vector<D>& dlyLine, const std::vector<D>& src,
                         const Rates& r = {}) {
  constexpr int width = partsPerElement<D>;
  std::vector<Mox32u> y(src.size() / r.down * r.up * width);
  for (long j = 0; j < long(y.size()) / width; ++j)
    for (long k = 0; k < long(h.taps.size()) / width; ++k) {
      const long place = r.down * j + r.downPhase - k - r.upPhase, i = place / r.up;
      if (place % r.up != 0 || i < -long(dlyLine.size())) continue;
      const D& d = i < 0 ? dlyLine[-1 - i] : src[i];
      const auto* x = parts(&d);
      const long* t = &h.taps[k * width];
      if constexpr (width == 1) {
        y[j] += Mox32u(t[0] * x[0]);
      } else {
        y[2 * j] += Mox32u(t[0] * x[0] - t[1] * x[1]);
        y[2 * j + 1] += Mox32u(t[0] * x[1] + t[1] * x[0]);
      }
    }
  return y;
}

#define FIXED(types, family, tapToken, dataToken, atMost)             \
  struct Fixed##types {                                               \
    using Tap = Mox##tapToken;                                        \
    using Data = Mox##dataToken;                                      \
    [[maybe_unused]] static constexpr long limit = atMost;            \
    static constexpr auto initAlloc = moxsFIRInitAlloc##types;        \
    static constexpr auto allocMultirate = moxsFIRMRInitAlloc##types; \
    static constexpr auto getTaps = moxsFIRGetTaps##types;            \
    static constexpr auto setTaps = moxsFIRSetTaps##types;            \
    static constexpr auto free = moxsFIRFree##family;                 \
    static constexpr auto getDlyLine = moxsFIRGetDlyLine##family;     \
    static constexpr auto run = moxsFIR##family##_Sfs;                \
    static constexpr auto runInPlace = moxsFIR##family##_ISfs;        \
    static constexpr auto one = moxsFIROne##family##_Sfs;             \
  }
FIXED(_16s, _16s, 16s, 16s, 32767);
FIXED(32s_16s, 32s_16s, 32s, 16s, 32766);
FIXED(32sc_16sc, 32sc_16sc, 32sc, 16sc, 32766);
FIXED(32s_16s32f, 32s_16s, 32f, 16s, 0);
FIXED(32sc_16sc32fc, 32sc_16sc, 32fc, 16sc, 0);
#undef FIXED

template <class F>
constexpr bool takesFactor = std::is_integral_v<Part<typename F::Tap>>;

template <class F>
Held held(const std::vector<typename F::Tap>& taps, int factor) {
  if constexpr (takesFactor<F>)
    return heldTaps(taps, factor, F::limit);
  else
    return heldFloats(taps);
}
template <class F>
MoxsFIRState* make(const std::vector<typename F::Tap>& taps, int factor,
                   const typename F::Data* dly) {
  MoxsFIRState* s = nullptr;
  if constexpr (takesFactor<F>)
    EXPECT_EQ(F::initAlloc(&s, taps.data(), int(taps.size()), factor, dly), moxOk);
  else
    EXPECT_EQ(F::initAlloc(&s, taps.data(), int(taps.size()), dly), moxOk);
  return s;
}
template <class F>
void expectTaps(const MoxsFIRState* s, const Held& h) {
  std::vector<typename F::Tap> got(h.taps.size() / partsPerElement<typename F::Tap>);
  int factor = h.factor;
  if constexpr (takesFactor<F>)
    ASSERT_EQ(F::getTaps(s, got.data(), &factor), moxOk);
  else
    ASSERT_EQ(F::getTaps(s, got.data()), moxOk);
  EXPECT_EQ(factor, h.factor);
  for (std::size_t i = 0; i < h.taps.size(); ++i)
    ASSERT_EQ(
        (long double)parts(got.data())[i],
        takesFactor<F> ? (long double)h.taps[i] : std::ldexp((long double)h.taps[i], h.factor));
}

// Taps of any size up to one that is drawn.
template <class E>
std::vector<E> someTaps(test::Random& random, long n) {
  auto taps = random.vector<E>(n);
  const int places = int(random.below(8 * sizeof(Part<E>)));
  for (long i = 0; i < n * partsPerElement<E>; ++i)
    if constexpr (std::is_integral_v<Part<E>>)
      parts(taps.data())[i] >>= places;
    else
      parts(taps.data())[i] *= std::ldexp(1.0f, 2 * places - 20);
  return taps;
}

template <class F>
class FixedPoint : public testing::Test {
 protected:
  void expectOutputs(const std::vector<Mox32u>& sum, const typename F::Data* got, long shift,
                     Rule rule) {
    for (std::size_t i = 0; i < sum.size(); ++i)
      ASSERT_EQ(parts(got)[i], rounded(sum[i], shift, rule)) << "part " << i << ", shift " << shift;
  }
  static constexpr Rule block = std::is_same_v<F, Fixed_16s> ? Rule::oddUp : Rule::nearEven;
  test::Random random{11};
};
using AllFixed =
    testing::Types<Fixed_16s, Fixed32s_16s, Fixed32sc_16sc, Fixed32s_16s32f, Fixed32sc_16sc32fc>;
TYPED_TEST_SUITE(FixedPoint, AllFixed);

// Blocks, in place and not, and single samples, at shifts within the clamp and beyond.
TYPED_TEST(FixedPoint, SumsAndRoundsToTheBit) {
  using F = TypeParam;
  using D = typename F::Data;
  SCOPED_TRACE(test::seedNote());
  for (const int n : {1, 2, 3, 4, 7, 8, 9, 15, 16, 31, 33, 64, 65, 300})
    for (long shift = -34; shift <= 34; ++shift) {
      const int factor = int(this->random.below(40)) - 20;
      const auto taps = someTaps<typename F::Tap>(this->random, n);
      const Held h = held<F>(taps, factor);
      const int scale = int(h.factor - shift);
      const int len = shift % 7 ? 1 + int(this->random.below(90)) : 2200;
      const auto dly = this->random.template vector<D>(n),
                 src = this->random.template vector<D>(len);
      const auto expected = sums(h, dly, src);
      MoxsFIRState* s = make<F>(taps, factor, dly.data());
      expectTaps<F>(s, h);
      const test::GuardedArray<D> in(len), out(len);
      std::copy(src.begin(), src.end(), in.begin());
      const int cut = int(this->random.below(len + 1));
      if (cut > 0) {
        ASSERT_EQ(F::run(in.data(), out.data(), cut, s, scale), moxOk);
      }
      if (cut < len) {
        ASSERT_EQ(F::runInPlace(in.data() + cut, len - cut, s, scale), moxOk);
      }
      std::copy(in.begin() + cut, in.end(), out.begin() + cut);
      this->expectOutputs(expected, out.data(), shift, this->block);
      std::vector<D> kept(n), single(len);
      ASSERT_EQ(F::getDlyLine(s, kept.data()), moxOk);
      for (int k = 0; k < n; ++k)
        ASSERT_EQ(0, std::memcmp(&kept[k], k < len ? &src[len - 1 - k] : &dly[k - len], sizeof(D)));
      F::free(s);
      s = make<F>(taps, factor, dly.data());
      for (int i = 0; i < len; ++i) ASSERT_EQ(F::one(src[i], &single[i], s, scale), moxOk);
      this->expectOutputs(expected, single.data(), shift, Rule::nearEven);
      F::free(s);
      if (this->HasFatalFailure()) return;
    }
}

TYPED_TEST(FixedPoint, ChangesTheRate) {
  using F = TypeParam;
  using D = typename F::Data;
  for (int up = 1; up <= 5; ++up)
    for (int down = 1 + (up == 1); down <= 5; ++down) {
      const Rates r{up, int(this->random.below(up)), down, int(this->random.below(down))};
      const int n = 1 + int(this->random.below(50)), len = 1 + int(this->random.below(700));
      const auto taps = someTaps<typename F::Tap>(this->random, n);
      const Held h = held<F>(taps, -3);
      const auto dly = this->random.template vector<D>((n + up - 1) / up),
                 src = this->random.template vector<D>(long(len) * down);
      MoxsFIRState* s = nullptr;
      if constexpr (takesFactor<F>)
        ASSERT_EQ(
            F::allocMultirate(&s, taps.data(), n, -3, up, r.upPhase, down, r.downPhase, dly.data()),
            moxOk);
      else
        ASSERT_EQ(
            F::allocMultirate(&s, taps.data(), n, up, r.upPhase, down, r.downPhase, dly.data()),
            moxOk);
      std::vector<D> y(long(len) * up);
      const int shift = int(this->random.below(20)) - 16;
      ASSERT_EQ(F::run(src.data(), y.data(), len, s, h.factor - shift), moxOk);
      this->expectOutputs(sums(h, dly, src, r), y.data(), shift, this->block);
      F::free(s);
      if (this->HasFatalFailure()) return;
    }
}

// What makes taps fit, at its limits; new taps replace the factor.
TYPED_TEST(FixedPoint, MakesTapsFit) {
  using F = TypeParam;
  using E = Part<typename F::Tap>;
  const double limits[] = {0, 1, 32766, 32767, 32768, 65533, 0x1p31 - 1, 1e-30, 0.4999, 1e9, 1e38};
  for (const double limit : limits)
    for (const double sign : {1.0, -1.0}) {
      const double value =
          std::clamp<double>(sign * limit, double(std::numeric_limits<E>::lowest()),
                             double(std::numeric_limits<E>::max()));
      std::vector<typename F::Tap> taps(3);
      parts(taps.data())[1] = E(value), parts(taps.data())[2] = E(value / 3);
      MoxsFIRState* s = make<F>(std::vector<typename F::Tap>(3), 5, nullptr);
      if constexpr (takesFactor<F>)
        ASSERT_EQ(F::setTaps(taps.data(), s, std::numeric_limits<int>::max() - 20), moxOk);
      else
        ASSERT_EQ(F::setTaps(taps.data(), s), moxOk);
      expectTaps<F>(s, held<F>(taps, std::numeric_limits<int>::max() - 20));
      F::free(s);
    }
}

TEST(FixedPoint16s, HoldsTheStreamToItsRoundings) {
  test::Random random(12);
  constexpr Rule rules[] = {Rule::down, Rule::nearEven, Rule::halfAway};
  for (const Rates& r : {Rates{}, {2, 0, 5, 0}, {3, 2, 2, 0}})
    for (const int n : {1, 2, 16, 33, 64})
      for (long shift = -33; shift <= 33; shift += 3)
        for (int mode = 0; mode < 3; ++mode) {
          const bool single = r.up == 1;
          const int len = 1 + int(random.below(600));
          const int history = (n + r.up - 1) / r.up - (r.downPhase >= r.upPhase);
          const auto taps = random.vector<Mox16s>(n);
          const Held h = heldTaps(taps, 4, 32767);
          int size = 0;
          ASSERT_EQ(single ? moxsFIRStreamGetStateSize_16s(n, &size)
                           : moxsFIRMRStreamGetStateSize_16s(n, r.up, r.down, &size),
                    moxOk);
          const int fixed = n == 64 ? 1136 : n == 16 ? 384 : 0;
          if (single) {
            ASSERT_EQ(size, ((2 * n + 15) & ~15) + fixed + 96);
          }
          const int slack = int(random.below(16));
          const test::GuardedArray<Mox8u> memory(size + slack);
          const test::GuardedArray<Mox16s> src(len * r.down + history), y(len * r.up);
          for (auto& x : src) x = random.value<Mox16s>();
          MoxsFIRState* s = nullptr;
          Mox8u* const buffer = memory.data() + slack;
          ASSERT_EQ(single ? moxsFIRStreamInit_16s(&s, taps.data(), n, 4, mode, buffer)
                           : moxsFIRMRStreamInit_16s(&s, taps.data(), n, 4, r.up, r.upPhase, r.down,
                                                     r.downPhase, mode, buffer),
                    moxOk);
          ASSERT_EQ(moxsFIR_16s_Sfs(src.data(), y.data(), len, s, int(h.factor - shift)), moxOk);
          const std::vector<Mox16s> dly(std::reverse_iterator(src.begin() + history),
                                        std::reverse_iterator(src.begin())),
              x(src.begin() + history, src.end());
          const auto sum = sums(h, dly, x, r);
          for (std::size_t i = 0; i < sum.size(); ++i)
            ASSERT_EQ(y[i], rounded(sum[i], shift, rules[mode])) << n << ' ' << shift;
          EXPECT_EQ(moxsFIR_16s_ISfs(y.data(), 1, s, 0), moxErrContext);
          EXPECT_EQ(moxsFIRFree_16s(s), moxOk);
        }
  MoxsFIRState* s = nullptr;
  const Mox16s tap = 1;
  EXPECT_EQ(moxsFIRStreamInitAlloc_16s(&s, &tap, 1, 0, 3), moxErrRoundMode);
  EXPECT_EQ(moxsFIRStreamInitAlloc_16s(&s, &tap, 0, 0, 3), moxErrFirLen);
}

// All forms without a state; those with 16-bit taps are fractions.
template <class T, class D, class Block, class One>
void expectDirect(long limit, Block block, One one) {
  test::Random random(13);
  for (const int n : {1, 2, 5, 8, 16, 37, 100})
    for (long shift = -20; shift <= 4; ++shift) {
      const int factor = sizeof(Part<T>) == 2 ? -15 : 3, len = 40;
      const auto taps = someTaps<T>(random, n);
      const Held h = heldTaps(taps, factor, limit);
      const auto dly = random.vector<D>(n), src = random.vector<D>(len);
      for (const bool singly : {false, true}) {
        const test::GuardedArray<D> ring(2 * n);
        int place = int(random.below(n));
        for (int k = 0; k < 2 * n; ++k) ring[(place + 2 * n - 1 - k) % (2 * n)] = dly[k % n];
        std::vector<D> y(len);
        const int scale = int(h.factor - shift);
        if (singly)
          for (int i = 0; i < len; ++i)
            ASSERT_EQ(one(src[i], &y[i], taps.data(), n, factor, ring.data(), &place, scale),
                      moxOk);
        else
          ASSERT_EQ(
              block(src.data(), y.data(), len, taps.data(), n, factor, ring.data(), &place, scale),
              moxOk);
        const auto sum = sums(h, dly, src);
        for (std::size_t i = 0; i < sum.size(); ++i)
          ASSERT_EQ(parts(y.data())[i], rounded(sum[i], shift, Rule::nearEven))
              << n << ' ' << shift;
        for (int k = 0; k < 2 * n; ++k)
          ASSERT_EQ(
              0, std::memcmp(&ring[(place + 2 * n - 1 - k) % (2 * n)],
                             k % n < len ? &src[len - 1 - k % n] : &dly[k % n - len], sizeof(D)));
      }
    }
}

TEST(FixedPointDirect, FollowsTheRulesOfStates) {
  expectDirect<Mox32s, Mox16s>(32766, moxsFIR32s_Direct_16s_Sfs, moxsFIROne32s_Direct_16s_Sfs);
  expectDirect<Mox32sc, Mox16sc>(32766, moxsFIR32sc_Direct_16sc_Sfs,
                                 moxsFIROne32sc_Direct_16sc_Sfs);
  expectDirect<Mox16s, Mox16s>(
      32766,
      [](auto* x, auto* y, int len, auto* t, int n, int, auto* d, int* i, int scale) {
        return moxsFIR_Direct_16s_Sfs(x, y, len, t, n, d, i, scale);
      },
      [](auto x, auto* y, auto* t, int n, int, auto* d, int* i, int scale) {
        return moxsFIROne_Direct_16s_Sfs(x, y, t, n, d, i, scale);
      });
  const Mox16s tap = 1;
  Mox16s y = 0, ring[2] = {};
  for (int place : {-1, 1}) {
    EXPECT_EQ(moxsFIR_Direct_16s_Sfs(&y, &y, 1, &tap, 1, ring, &place, 0), moxErrDlyLineIndex);
    EXPECT_EQ(moxsFIROne_Direct_16s_Sfs(1, &y, &tap, 1, ring, &place, 0), moxErrDlyLineIndex);
  }
}

// The states of integer taps that are held as doubles: exact here, and with no spectrum in the
// caller's memory.
TEST(Fir32s, SumsInDoublePrecision) {
  test::Random random(14);
  for (const int n : {1, 31, 32, 100}) {
    std::vector<Mox32s> taps(n), src(600), y(600), got(n);
    for (auto& t : taps) t = Mox32s(random.below(2001)) - 1000;
    for (auto& x : src) x = Mox32s(random.below(20001)) - 10000;
    int size = 0;
    ASSERT_EQ(moxsFIRGetStateSize_32s(n, &size), moxOk);
    std::vector<Mox8u> memory(size);
    MoxsFIRState *direct = nullptr, *byFft = nullptr;
    ASSERT_EQ(moxsFIRInit_32s(&direct, taps.data(), n, nullptr, memory.data()), moxOk);
    ASSERT_EQ(moxsFIRInitAlloc_32s(&byFft, taps.data(), n, nullptr), moxOk);
    ASSERT_EQ(moxsFIRGetTaps_32s(direct, got.data()), moxOk);
    EXPECT_EQ(got, taps);
    for (MoxsFIRState* s : {direct, byFft}) {
      ASSERT_EQ(moxsFIR_32s_Sfs(src.data(), y.data(), 600, s, 0), moxOk);
      for (int i = 0; i < 600; ++i) {
        long sum = 0;
        for (int k = 0; k <= std::min(i, n - 1); ++k) sum += long(taps[k]) * src[i - k];
        ASSERT_EQ(y[i], sum) << n << " taps, output " << i;
      }
      ASSERT_EQ(moxsFIROne_32s_Sfs(src[0], y.data(), s, 0), moxOk);
      EXPECT_EQ(moxsFIRFree_32s(s), moxOk);
    }
  }
}

}  // namespace
