#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "support/guarded_array.h"
#include "support/random.h"

namespace {

// The rule in double precision, for the window of the last samples, the newest first.
struct Model {
  std::vector<double> taps, window;

  double step(double x, double ref, double mu) {
    window.insert(window.begin(), x);
    window.resize(taps.size());
    double y = 0;
    for (std::size_t k = 0; k < taps.size(); ++k) y += taps[k] * window[k];
    for (std::size_t k = 0; k < taps.size(); ++k) taps[k] += mu * (ref - y) * window[k];
    return y;
  }
};

// What differs between floats and 16-bit samples.
#define LMS(types, t)                                             \
  using Data = Mox##t;                                            \
  static constexpr auto initAlloc = moxsFIRLMSInitAlloc##types;   \
  static constexpr auto free = moxsFIRLMSFree##types;             \
  static constexpr auto getTaps = moxsFIRLMSGetTaps##types;       \
  static constexpr auto getDlyLine = moxsFIRLMSGetDlyLine##types; \
  static constexpr auto setDlyLine = moxsFIRLMSSetDlyLine##types; \
  static constexpr auto run = moxsFIRLMS##types;                  \
  static constexpr auto one = moxsFIRLMSOne_Direct##types
struct Floats {
  LMS(_32f, 32f);
  static constexpr double unit = 1, tolerance = 2e-5;
};
struct Words {
  LMS(32f_16s, 16s);
  static constexpr double unit = 8192, tolerance = 0.5 + 0.2;
};
#undef LMS

template <class F>
class Lms : public testing::Test {
 protected:
  using Sample = typename F::Data;

  std::vector<Sample> noise(long len) {
    std::vector<Sample> v(len);
    for (auto& x : v) x = Sample(F::unit * random.template value<float>());
    return v;
  }
  test::Random random{21};
};
using BothLms = testing::Types<Floats, Words>;
TYPED_TEST_SUITE(Lms, BothLms);

// Blocks cut at random, some in place, from a ring that starts at any place; and sample by sample
// with twice the step.
TYPED_TEST(Lms, FollowsTheRule) {
  using F = TypeParam;
  using D = typename F::Data;
  SCOPED_TRACE(test::seedNote());
  for (const int n : {1, 3, 4, 7, 8, 9, 15, 16, 17, 64, 79, 80, 200}) {
    const int len = 5000, place = int(this->random.below(n));
    const double mu = 0.2 / n / (F::unit * F::unit);
    const auto src = this->noise(len), ref = this->noise(len), ring = this->noise(n);
    std::vector<Mox32f> taps = this->random.template vector<Mox32f>(n), direct = taps, got(n);
    Model model{{taps.begin(), taps.end()}, std::vector<double>(n)};
    for (int k = 0; k < n; ++k) model.window[k] = ring[(place + n - 1 - k) % n];
    MoxsFIRLMSState* s = nullptr;
    ASSERT_EQ(F::initAlloc(&s, taps.data(), n, ring.data(), place - 3 * n), moxOk);
    std::vector<D> ring2(2 * n);
    for (int i = 0; i < 2 * n; ++i) ring2[i] = ring[i % n];
    int index = place;
    for (int at = 0; at < len;) {
      const int count = int(std::min<long>(1 + this->random.below(3 * n), len - at));
      const test::GuardedArray<D> x(count), r(count), y(count);
      std::copy_n(&src[at], count, x.begin());
      std::copy_n(&ref[at], count, r.begin());
      const auto& out = at % 2 ? y : at % 4 ? r : x;
      ASSERT_EQ(F::run(x.data(), r.data(), out.data(), count, Mox32f(mu), s), moxOk);
      for (int i = 0; i < count; ++i, ++at) {
        D single;
        ASSERT_EQ(F::one(src[at], ref[at], &single, direct.data(), n, Mox32f(2 * mu), ring2.data(),
                         &index),
                  moxOk);
        const double y0 = model.step(src[at], ref[at], 2 * Mox32f(mu));
        const double expected = std::is_integral_v<D> ? std::clamp(y0, -32768.0, 32767.0) : y0;
        ASSERT_NEAR(out[i], expected, F::tolerance) << n << " taps, output " << at;
        ASSERT_NEAR(single, expected, F::tolerance) << n << " taps, output " << at;
      }
    }
    ASSERT_EQ(F::getTaps(s, got.data()), moxOk);
    for (int k = 0; k < n; ++k) {
      ASSERT_NEAR(got[k], model.taps[k], 2e-5);
      ASSERT_NEAR(direct[k], model.taps[k], 2e-5);
    }
    std::vector<D> line(n);
    int start = -1;
    ASSERT_EQ(F::getDlyLine(s, line.data(), &start), moxOk);
    for (int k = 0; k < n; ++k) {
      ASSERT_EQ(line[(start + n - 1 - k) % n], src[len - 1 - k]);
      ASSERT_EQ(ring2[(index + n - 1 - k) % n], src[len - 1 - k]);
    }
    for (int outside : {-1, n})
      EXPECT_EQ(F::one(0, 0, line.data(), direct.data(), n, 0, ring2.data(), &outside),
                moxErrDlyLineIndex);
    ASSERT_EQ(F::setDlyLine(s, ring.data(), -7), moxOk);
    ASSERT_EQ(F::getDlyLine(s, line.data(), &start), moxOk);
    EXPECT_EQ(line, ring);
    EXPECT_EQ(start, -7);
    ASSERT_EQ(F::setDlyLine(s, nullptr, 0), moxOk);
    ASSERT_EQ(F::getDlyLine(s, line.data(), &start), moxOk);
    EXPECT_EQ(line, std::vector<D>(n));
    F::free(s);
  }
}

// With taps and samples of 0 the first output is 0, and the first step takes the taps to the
// sample.
TYPED_TEST(Lms, BeginsWithZeros) {
  using F = TypeParam;
  const auto x = typename F::Data(F::unit), ref = typename F::Data(F::unit / 2);
  MoxsFIRLMSState* s = nullptr;
  ASSERT_EQ(F::initAlloc(&s, nullptr, 3, nullptr, 0), moxOk);
  typename F::Data y = 1;
  ASSERT_EQ(F::run(&x, &ref, &y, 1, Mox32f(0.25 / (F::unit * F::unit)), s), moxOk);
  EXPECT_EQ(y, 0);
  std::vector<Mox32f> taps(3, 1);
  ASSERT_EQ(F::getTaps(s, taps.data()), moxOk);
  EXPECT_EQ(taps, (std::vector<Mox32f>{0.25, 0, 0}));
  F::free(s);
}

TEST(LmsQ15, FollowsTheNormalisedRuleToTheBit) {
  test::Random random(22);
  SCOPED_TRACE(test::seedNote());
  for (const int n : {1, 2, 5, 15, 16, 64, 128, 129}) {
    std::vector<Mox32s> taps(n);
    for (auto& t : taps) t = Mox32s(random.bits()) >> 4;
    auto expected = taps;
    std::vector<Mox16s> ring(2 * n);
    std::vector<long> window(n);
    int index = 0;
    for (int i = 0; i < 300; ++i) {
      const Mox16s x = i < n + 5 ? 0 : random.value<Mox16s>(), ref = random.value<Mox16s>();
      const Mox32s mu = Mox32s(random.bits()) >> random.below(32);
      window.insert(window.begin(), x);
      window.resize(n);
      Mox16s y = 77;
      ASSERT_EQ(moxsFIRLMSOne_DirectQ15_16s(x, ref, &y, taps.data(), n, mu, ring.data(), &index),
                moxOk);
      ASSERT_EQ(index, (i + 1) % n);
      long c = 0, energy = 0;
      for (int k = 0; k < n; ++k)
        c += long(expected[k]) * window[k], energy += window[k] * window[k];
      if (energy == 0) {
        ASSERT_EQ(y, 77);
        ASSERT_EQ(taps, expected);
        continue;
      }
      if (std::abs(c) >= 1L << 53) break;  // no longer exact
      const double out = double(c) * 0x1p-15, gain = mu * (ref - out) / double(energy);
      ASSERT_EQ(y, std::clamp(std::rint(out), -32768.0, 32767.0));
      for (int k = 0; k < n; ++k)
        expected[k] = Mox32s(
            std::clamp(std::rint(expected[k] + double(window[k]) * gain), -0x1p31, 0x1p31 - 1));
      ASSERT_EQ(taps, expected) << n << " taps, step " << i;
      if (i % 4 == 0)
        for (int k = 0; k < n; ++k) taps[k] = expected[k] = Mox32s(random.bits()) >> 4;
    }
  }
}

// The fixed-point steps in wrapping integers, parts apart.
#define STEPS(types, t, d)                                                    \
  struct Steps##types {                                                       \
    using Tap = Mox##t;                                                       \
    using Data = Mox##d;                                                      \
    static constexpr auto initAlloc = moxsFIRLMSMRInitAlloc##types;           \
    static constexpr auto free = moxsFIRLMSMRFree##types;                     \
    static constexpr auto getTaps = moxsFIRLMSMRGetTaps##types;               \
    static constexpr auto setTaps = moxsFIRLMSMRSetTaps##types;               \
    static constexpr auto getTapsPointer = moxsFIRLMSMRGetTapsPointer##types; \
    static constexpr auto getDlyLine = moxsFIRLMSMRGetDlyLine##types;         \
    static constexpr auto setDlyLine = moxsFIRLMSMRSetDlyLine##types;         \
    static constexpr auto getDlyVal = moxsFIRLMSMRGetDlyVal##types;           \
    static constexpr auto putVal = moxsFIRLMSMRPutVal##types;                 \
    static constexpr auto setMu = moxsFIRLMSMRSetMu##types;                   \
    static constexpr auto one = moxsFIRLMSMROne##types;                       \
    static constexpr auto oneVal = moxsFIRLMSMROneVal##types;                 \
    static constexpr auto updateTaps = moxsFIRLMSMRUpdateTaps##types;         \
  }
STEPS(32s_16s, 32s, 16s);
STEPS(32sc_16sc, 32sc, 16sc);
#undef STEPS

struct Z {
  long re, im;
};
template <class E>
Z parts(E e) {
  if constexpr (mox::Complex<E>)
    return {e.re, e.im};
  else
    return {e, 0};
}
template <class E>
E wrapped(Z z) {
  if constexpr (mox::Complex<E>)
    return {Mox32s(z.re), Mox32s(z.im)};
  else
    return Mox32s(z.re);
}

template <class F>
class LmsSteps : public testing::Test {};
using BothSteps = testing::Types<Steps32s_16s, Steps32sc_16sc>;
TYPED_TEST_SUITE(LmsSteps, BothSteps);

TYPED_TEST(LmsSteps, WrapAround) {
  using F = TypeParam;
  using T = typename F::Tap;
  using D = typename F::Data;
  SCOPED_TRACE(test::seedNote());
  test::Random random(23);
  for (const auto& [n, step, delay] :
       {std::array{1, 1, 0}, {5, 1, 3}, {17, 1, 0}, {40, 1, 1}, {7, 3, 2}, {16, 2, 0}}) {
    const int ringLen = n * step + delay, place = int(random.below(ringLen));
    auto taps = random.vector<T>(n);
    const auto ring = random.vector<D>(ringLen);
    std::vector<D> past(ringLen);  // the newest first
    for (int i = 0; i < ringLen; ++i) past[i] = ring[(place + 2 * ringLen - 1 - i) % ringLen];
    MoxsFIRLMSMRState* s = nullptr;
    Mox32s mu = random.value<Mox32s>();
    ASSERT_EQ(F::initAlloc(&s, taps.data(), n, ring.data(), place, step, delay, mu), moxOk);
    for (int i = 0; i < 200; ++i) {
      const D x = random.value<D>();
      past.insert(past.begin(), x);
      T got;
      if (i % 2) {
        ASSERT_EQ(F::oneVal(x, &got, s), moxOk);
      } else {
        ASSERT_EQ(F::putVal(x, s), moxOk);
        ASSERT_EQ(F::one(&got, s), moxOk);
      }
      Z y{};
      for (int k = 0; k < n; ++k) {
        const Z t = parts(taps[k]), d = parts(past[k * step]);
        y.re += (t.re >> 16) * d.re - (t.im >> 16) * d.im;
        y.im += (t.re >> 16) * d.im + (t.im >> 16) * d.re;
      }
      const T expected = wrapped<T>(y);
      ASSERT_EQ(std::memcmp(&got, &expected, sizeof got), 0) << n << " taps, step " << i;
      if (i % 50 == 0) {
        mu = random.value<Mox32s>() >> random.below(32);
        ASSERT_EQ(F::setMu(s, mu), moxOk);
      }
      const T err = random.value<T>();
      ASSERT_EQ(F::updateTaps(err, s), moxOk);
      const auto weight = [&](long e) {
        return long(Mox32s(Mox32u(e) * Mox32u(mu) + 16384) >> 15);
      };
      const Z e = parts(err), w = {weight(e.re), mox::Complex<T> ? weight(e.im) : 0};
      for (int k = 0; k < n; ++k) {
        const Z t = parts(taps[k]), d = parts(past[k * step + delay]);
        taps[k] = wrapped<T>({t.re + d.re * w.re + d.im * w.im, t.im + d.re * w.im - d.im * w.re});
      }
    }
    std::vector<T> gotTaps(n);
    T* inside = nullptr;
    ASSERT_EQ(F::getTaps(s, gotTaps.data()), moxOk);
    ASSERT_EQ(F::getTapsPointer(s, &inside), moxOk);
    EXPECT_EQ(std::memcmp(gotTaps.data(), taps.data(), n * sizeof(T)), 0);
    EXPECT_EQ(std::memcmp(&inside[n - 1], &taps[0], sizeof(T)), 0);
    std::vector<D> line(ringLen);
    int index = -1;
    ASSERT_EQ(F::getDlyLine(s, line.data(), &index), moxOk);
    EXPECT_EQ(index, (place + 200) % ringLen);
    D value;
    for (int i = 0; i < ringLen; ++i) {
      ASSERT_EQ(F::getDlyVal(s, &value, (index + ringLen - 1 - i) % ringLen), moxOk);
      EXPECT_EQ(std::memcmp(&value, &past[i], sizeof value), 0);
    }
    EXPECT_EQ(F::getDlyVal(s, &value, ringLen), moxErrBadArg);
    EXPECT_EQ(F::getDlyVal(s, &value, -1), moxErrBadArg);
    ASSERT_EQ(F::setTaps(s, nullptr), moxOk);
    ASSERT_EQ(F::setDlyLine(s, nullptr, std::numeric_limits<int>::min()), moxOk);
    T silent;
    ASSERT_EQ(F::oneVal(value, &silent, s), moxOk);
    EXPECT_EQ(parts(silent).re, 0);
    F::free(s);
  }
}

// The ring has 5 places here; one of more than an int counts is too much memory.
TYPED_TEST(LmsSteps, ChecksTheRing) {
  constexpr int most = std::numeric_limits<int>::max();
  MoxsFIRLMSMRState* s = nullptr;
  EXPECT_EQ(TypeParam::initAlloc(&s, nullptr, 2, nullptr, 5, 2, 1, 1), moxErrSize);
  EXPECT_EQ(TypeParam::initAlloc(&s, nullptr, most, nullptr, 0, most, most, 1), moxErrMemAlloc);
}

}  // namespace
