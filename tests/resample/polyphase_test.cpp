// Resampling against the sums that define it, in long double.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <numeric>
#include <vector>

#include "support/random.h"

namespace {

using Real = long double;
constexpr Real pi = std::numbers::pi_v<Real>;

Real besselI0(Real x) {
  Real term = 1, sum = 1;
  for (int k = 1; term > 1e-21L * sum; ++k) sum += term *= x * x / 4 / (k * k);
  return sum;
}

// A wing of the response, its last point repeated, in single precision or not.
std::vector<Real> wingOf(long len, long step, Real rollf, Real alpha) {
  std::vector<Real> h(len + 1);
  h[0] = rollf;
  Real sum = rollf;
  for (long i = 1; i < len; ++i) {
    const Real x = pi * i / step, u = Real(i) / (len - 1);
    h[i] = std::sin(rollf * x) / x * besselI0(alpha * std::sqrt(std::max(1 - u * u, Real(0)))) /
           besselI0(alpha);
    if (i % step == 0) sum += 2 * h[i];
  }
  for (Real& e : h) e /= sum;
  h[len] = h[len - 1];
  return h;
}

// Output at position t of x, which the table is interpolated for.
Real interpolated(const std::vector<Real>& h, long step, double factor,
                  const std::function<Real(long)>& x, double t) {
  const double whole = std::floor(t), f = t - whole, points = std::min(factor, 1.0) * step;
  const long len = long(h.size()) - 1;
  Real sum = 0;
  for (const bool future : {false, true})
    for (long j = 0;; ++j) {
      const double start = (future ? 1 - f : f) * points;
      const double base = factor < 1 ? start + double(j) * points : start;
      long p = long(base + (factor < 1 ? 0 : 1e-5));
      const double d = base - double(p);
      if (factor >= 1) p += j * step;
      if (p >= len) break;
      sum += (h[p] * (1 - Real(d)) + h[p + 1] * Real(d)) * x(long(whole) + (future ? 1 + j : -j));
    }
  return sum * std::min(factor, 1.0);
}

// A state in memory at an odd address.
template <class State>
struct Memory {
  explicit Memory(int size) : bytes(size + 3) {}
  State* state() { return reinterpret_cast<State*>(bytes.data() + 3); }
  std::vector<Mox8u> bytes;
};

struct Variable {
  using State = MoxsResamplePolyphaseState;

  Variable(float window, int step, float rollf, float alpha) : memory(0) {
    int size = 0;
    EXPECT_EQ(moxsResamplePolyphaseGetSize_32f(window, step, &size, 0), moxOk);
    memory = Memory<State>(size);
    EXPECT_EQ(moxsResamplePolyphaseInit_32f(window, step, rollf, alpha, memory.state(), 0), moxOk);
  }
  Memory<State> memory;
};

struct Fixed {
  using State = MoxsResamplePolyphaseFixedState;

  template <class Init>
  Fixed(int in, int out, int len, float rollf, float alpha, int hint, Init init) : memory(0) {
    int size = 0;
    EXPECT_EQ(
        moxsResamplePolyphaseFixedGetSize_32f(in, out, len, &size, &filterLen, &filters, hint),
        moxOk);
    memory = Memory<State>(size);
    EXPECT_EQ(init(in, out, len, rollf, alpha, memory.state(), hint), moxOk);
  }
  Memory<State> memory;
  int filterLen = 0, filters = 0;
};

constexpr int margin = 400, len = 700;

template <class E>
std::vector<E> noise() {
  return test::Random().vector<E>(len + 2 * margin);
}

TEST(ResamplePolyphase, IsTheSumOfItsInterpolatedTable) {
  const auto x = noise<Mox32f>();
  const auto x16 = noise<Mox16s>();
  for (const double factor : {1.0, 160.0 / 147, 2.5, 7.0, 0.5, 147.0 / 160, 0.083})
    for (const auto& [window, step, alpha] :
         {std::tuple(24.0f, 32, 6.0f), {7.3f, 5, 1.0f}, {0.4f, 5, 2.0f}, {40.0f, 100, 30.0f}}) {
      Variable filter(window, step, 0.9f, alpha);
      const auto h = wingOf(long(window * 0.5f * float(step)) + 1, step, 0.9f, alpha);
      std::vector<Mox32f> y(len * factor + 2);
      std::vector<Mox16s> y16(y.size());
      double time = 0.3, time16 = 0.3;
      int count = 0, count16 = 0;
      ASSERT_EQ(moxsResamplePolyphase_32f(&x[margin], len, y.data(), factor, 0.8f, &time, &count,
                                          filter.memory.state()),
                moxOk);
      ASSERT_EQ(moxsResamplePolyphase_16s(&x16[margin], len, y16.data(), factor, 0.8f, &time16,
                                          &count16, filter.memory.state()),
                moxOk);
      ASSERT_EQ(count, int(std::ceil((len - 0.3) * factor)));
      ASSERT_EQ(count16, count);
      ASSERT_NEAR(time, 0.3 + count / factor, 1e-9);
      for (int k = 0; k < count; ++k) {
        const auto sum = [&, step = step](const auto& in) {
          return 0.8f *
                 interpolated(
                     h, step, factor, [&](long i) { return in[margin + i]; }, 0.3 + k / factor);
        };
        ASSERT_NEAR(y[k], double(sum(x)), 2e-6) << k << " by " << factor << ", step " << step;
        const double exact = std::clamp(double(sum(x16)), -32768.0, 32767.0);
        ASSERT_NEAR(y16[k], exact, 0.51 + 0.05 * step / 100) << k << " by " << factor;
      }
    }
}

// The same points without interpolation.
template <class Data>
void checkFixed(auto init, auto resample, int hint, double perSample) {
  const auto x = noise<Data>();
  for (const auto& [in, out] : {std::pair(44100, 48000), {48000, 44100}, {3, 1}, {1, 6}, {5, 5}})
    for (const int taps : {3, 40, 64}) {
      Fixed filter(in, out, taps, 0.9f, 7, hint, init);
      const int common = std::gcd(in, out), a = in / common, b = out / common;
      ASSERT_EQ(filter.filterLen, (taps + 3) / 4 * 4);
      ASSERT_EQ(filter.filters, b);
      const long half = filter.filterLen / 2;
      const auto h = wingOf(half * b + 1, std::max(a, b), 0.9f, 7);
      const int start = std::min(1, b - 1);
      std::vector<Data> y(len * 6L + 1);
      double time = double(start) / b;
      int count = 0;
      ASSERT_EQ(resample(&x[margin], len, y.data(), 0.8f, &time, &count, filter.memory.state()),
                moxOk);
      ASSERT_EQ(count, (len * b - start + a - 1) / a);
      ASSERT_NEAR(time, (start + double(count) * a) / b, 1e-9);
      for (int k = 0; k < count; ++k) {
        const long at = start + long(k) * a;
        Real sum = 0, size = 0;
        for (long i = at / b - half; i <= at / b + half; ++i) {
          if (std::abs(i * b - at) > half * b) continue;
          sum += h[std::abs(i * b - at)] * x[margin + i];
          size += std::abs(Real(x[margin + i]));
        }
        const double exact = double(sum) * 0.8f * std::min(1.0, double(b) / a);
        const double limit = std::numeric_limits<Data>::max();
        ASSERT_NEAR(y[k], std::clamp(exact, -limit - 1, limit),
                    perSample * double(size) + (std::is_integral_v<Data> ? 0.51 : 0))
            << k << ", " << in << " to " << out << ", " << taps << " taps";
      }
    }
}

TEST(ResamplePolyphaseFixed, IsADotProductWithTheFilterOfThePhase) {
  for (const int hint : {moxHintFast, moxHintAccurate}) {
    checkFixed<Mox32f>(moxsResamplePolyphaseFixedInit_32f, moxsResamplePolyphaseFixed_32f, hint,
                       1e-7);
    checkFixed<Mox16s>(moxsResamplePolyphaseFixedInit_16s, moxsResamplePolyphaseFixed_16s, hint,
                       0x1p-16);
  }
}

// Runs a signal in blocks, `src` moved on by whole samples.
template <class Resample>
std::vector<Mox32f> inBlocks(const std::vector<Mox32f>& x, Resample resample, bool random) {
  test::Random draws(random);
  std::vector<Mox32f> y(len * 3);
  double time = 0;
  long from = 0, made = 0;
  while (from < len) {
    const long block = random ? std::min(1 + draws.below(90), len - from) : len;
    int count = 0;
    EXPECT_EQ(resample(&x[margin + from], int(block), &y[made], &time, &count), moxOk);
    made += count;
    from += long(time), time -= std::floor(time);
  }
  y.resize(made);
  return y;
}

TEST(ResamplePolyphase, OfBlocksIsThatOfTheWhole) {
  const auto x = noise<Mox32f>();
  Variable filter(16, 64, 0.9f, 7);
  for (const double factor : {160.0 / 147, 0.7}) {
    const auto run = [&](auto* src, int n, auto* dst, auto* time, int* count) {
      return moxsResamplePolyphase_32f(src, n, dst, factor, 1, time, count, filter.memory.state());
    };
    const auto whole = inBlocks(x, run, false), cut = inBlocks(x, run, true);
    for (std::size_t k = 0; k < std::min(whole.size(), cut.size()); ++k)
      ASSERT_NEAR(cut[k], whole[k], 1e-6);
  }
  for (const auto& [in, out] : {std::pair(147, 160), {3, 1}, {1, 2}, {7, 2}}) {
    Fixed fixed(in, out, 32, 0.9f, 7, 0, moxsResamplePolyphaseFixedInit_32f);
    const auto run = [&](auto* src, int n, auto* dst, auto* time, int* count) {
      return moxsResamplePolyphaseFixed_32f(src, n, dst, 1, time, count, fixed.memory.state());
    };
    auto whole = inBlocks(x, run, false), cut = inBlocks(x, run, true);
    whole.resize(std::min(whole.size(), cut.size()));
    cut.resize(whole.size());
    ASSERT_EQ(cut, whole) << in << " to " << out;
  }
}

template <class Tap>
void checkFilters(auto init, auto get, auto set, auto resample) {
  Fixed filter(2, 3, 8, 1, 5, 0, init);
  std::vector<Tap> rows(3 * 12), again(rows.size(), 1);
  ASSERT_EQ(get(rows.data(), 12, 3, filter.memory.state()), moxOk);
  std::vector<Tap> changed = rows;
  std::ranges::reverse(changed);
  ASSERT_EQ(set(changed.data(), 12, 3, filter.memory.state()), moxOk);
  ASSERT_EQ(get(again.data(), 12, 3, filter.memory.state()), moxOk);
  EXPECT_EQ(again, changed);
  // Only the tap on the sample before the output.
  std::ranges::fill(changed, Tap(0));
  constexpr Tap half = std::is_integral_v<Tap> ? Tap(16384) : Tap(0.5);
  changed[4] = changed[12 + 3] = changed[24 + 3] = half;
  ASSERT_EQ(set(changed.data(), 12, 3, filter.memory.state()), moxOk);
  std::vector<Tap> x(2 * margin), y(100);
  for (int i = 0; i < 2 * margin; ++i) x[i] = Tap(i * 2);
  double time = 0;
  int count;
  ASSERT_EQ(resample(&x[margin], 40, y.data(), 1, &time, &count, filter.memory.state()), moxOk);
  for (int k = 0; k < count; ++k) ASSERT_EQ(y[k], Tap(margin + k * 2 / 3)) << k;
}

TEST(ResamplePolyphaseFixed, HandsOutItsFiltersAndTakesOthers) {
  checkFilters<Mox32f>(moxsResamplePolyphaseFixedInit_32f, moxsResamplePolyphaseGetFixedFilter_32f,
                       moxsResamplePolyphaseSetFixedFilter_32f, moxsResamplePolyphaseFixed_32f);
  checkFilters<Mox16s>(moxsResamplePolyphaseFixedInit_16s, moxsResamplePolyphaseGetFixedFilter_16s,
                       moxsResamplePolyphaseSetFixedFilter_16s, moxsResamplePolyphaseFixed_16s);
}

TEST(ResamplePolyphase, RefusesTimesThatAreNoPosition) {
  Variable filter(4, 8, 0.9f, 3);
  Mox32f x[64] = {}, y[64];
  int count;
  for (double time : {std::nan(""), 1e300, -std::numeric_limits<double>::infinity()})
    EXPECT_EQ(moxsResamplePolyphase_32f(x + 32, 4, y, 1, 1, &time, &count, filter.memory.state()),
              moxErrBadArg);
}

}  // namespace
