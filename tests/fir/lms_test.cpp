// Adaptive filters against their rules: in double precision, normalised to the bit, and in integers
// that wrap around.
#include <array>
#include <numeric>

#include "support/filters.h"

namespace {

using namespace test;

// What differs between floats and 16-bit samples.
#define LMS(name, types, t, size, error)                            \
  struct name {                                                     \
    using Data = Mox##t;                                            \
    static constexpr double unit = size, tolerance = error;         \
    static constexpr auto initAlloc = moxsFIRLMSInitAlloc##types;   \
    static constexpr auto free = moxsFIRLMSFree##types;             \
    static constexpr auto getTaps = moxsFIRLMSGetTaps##types;       \
    static constexpr auto getDlyLine = moxsFIRLMSGetDlyLine##types; \
    static constexpr auto setDlyLine = moxsFIRLMSSetDlyLine##types; \
    static constexpr auto run = moxsFIRLMS##types;                  \
    static constexpr auto one = moxsFIRLMSOne_Direct##types;        \
  }
LMS(Floats, _32f, 32f, 1, 2e-5);
LMS(Words, 32f_16s, 16s, 8192, 0.7);

template <class F>
class Lms : public testing::Test {
 protected:
  using Sample = typename F::Data;

  std::vector<Sample> noise(long len) {
    std::vector<Sample> v(len);
    for (auto& x : v) x = Sample(F::unit * random.template value<float>());
    return v;
  }
  static void expectRing(MoxsFIRLMSState* s, const std::vector<Sample>& ring, int place) {
    std::vector<Sample> line(ring.size());
    int index = place + 1;
    ASSERT_OK(F::getDlyLine(s, line.data(), &index));
    ASSERT_TRUE(line == ring && index == place);
  }
  Random random{21};
};
using BothLms = testing::Types<Floats, Words>;
TYPED_TEST_SUITE(Lms, BothLms);

// Blocks cut at random, some in place, from a ring that starts at any place; and sample by sample
// with twice the step.
TYPED_TEST(Lms, FollowsTheRule) {
  using F = TypeParam;
  using D = typename F::Data;
  for (const int n : {1, 3, 4, 7, 8, 9, 15, 16, 17, 64, 79, 80, 200}) {
    const int len = 5000, place = int(this->random.below(n));
    const Mox32f mu = Mox32f(0.2 / n / (F::unit * F::unit));
    const auto src = this->noise(len), ref = this->noise(len), ring = this->noise(n);
    std::vector<Mox32f> taps = this->random.template vector<Mox32f>(n), direct = taps, got(n);
    std::vector<double> model(taps.begin(), taps.end()), window(n);
    for (int k = 0; k < n; ++k) window[k] = ring[(place + n - 1 - k) % n];
    std::vector<D> twice = ring;
    twice.insert(twice.end(), ring.begin(), ring.end());
    int index = place;
    MoxsFIRLMSState* s = nullptr;
    ASSERT_OK(F::initAlloc(&s, taps.data(), n, ring.data(), place - 3 * n));
    this->expectRing(s, ring, place - 3 * n);
    for (const auto& [way, count, start] : cut(this->random, len, 3 * n)) {
      std::vector<D> x(&src[start], &src[start + count]), r(&ref[start], &ref[start + count]),
          y = r;
      auto& out = way == Way::block ? y : way == Way::inPlace ? r : x;
      ASSERT_OK(F::run(x.data(), r.data(), out.data(), count, mu, s));
      for (long i = 0, at = start; i < count; ++i, ++at) {
        D one;
        ASSERT_OK(F::one(src[at], ref[at], &one, direct.data(), n, 2 * mu, twice.data(), &index));
        window.insert(window.begin(), src[at]);
        window.resize(n);
        const double sum = std::inner_product(model.begin(), model.end(), window.begin(), 0.0);
        for (int k = 0; k < n; ++k) model[k] += 2 * mu * (ref[at] - sum) * window[k];
        const double expected = double(inRange<D>(sum).real());
        ASSERT_NEAR(out[i], expected, F::tolerance) << n << " taps, output " << at;
        ASSERT_NEAR(one, expected, F::tolerance) << n << " taps, output " << at;
      }
    }
    ASSERT_OK(F::getTaps(s, got.data()));
    for (int k = 0; k < n; ++k) {
      ASSERT_NEAR(got[k], model[k], 2e-5);
      ASSERT_NEAR(direct[k], model[k], 2e-5);
      ASSERT_EQ(twice[(index + n - 1 - k) % n], src[len - 1 - k]);
    }
    this->expectRing(s, {src.end() - n, src.end()}, 0);
    EXPECT_EQ(F::one(0, 0, twice.data(), direct.data(), n, 0, twice.data(), &(index = n)),
              moxErrDlyLineIndex);
    ASSERT_OK(F::setDlyLine(s, ring.data(), -7));
    this->expectRing(s, ring, -7);
    ASSERT_OK(F::setDlyLine(s, nullptr, 0));
    this->expectRing(s, std::vector<D>(n), 0);
    F::free(s);
  }
}

// From zeros, in as many samples as the reference tells.
TYPED_TEST(Lms, FindsASystem) {
  using F = TypeParam;
  constexpr int n = 64, len = 2500;
  const auto wanted = this->random.template vector<Mox32f>(n);
  const auto x = this->noise(len);
  std::vector<typename F::Data> ref(len), y(len);
  for (int i = 0; i < len; ++i) {
    double sum = 0;
    for (int k = 0; k < std::min(n, i + 1); ++k) sum += wanted[k] * x[i - k] / 16;
    ref[i] = typename F::Data(sum);
  }
  MoxsFIRLMSState* s = nullptr;
  ASSERT_OK(F::initAlloc(&s, nullptr, n, nullptr, 0));
  const double power = F::unit * F::unit / 3;
  ASSERT_OK(F::run(x.data(), ref.data(), y.data(), len, Mox32f(0.25 / (n * power)), s));
  EXPECT_EQ(y[0], 0);
  std::vector<Mox32f> taps(n);
  ASSERT_OK(F::getTaps(s, taps.data()));
  for (int k = 0; k < n; ++k) EXPECT_NEAR(taps[k], wanted[k] / 16, 1e-4) << k;
  F::free(s);
}

TEST(LmsQ15, FollowsTheNormalisedRuleToTheBit) {
  Random random(22);
  for (const int n : {1, 2, 5, 15, 16, 64, 128, 129}) {
    std::vector<Mox32s> taps(n), expected(n);
    std::vector<Mox16s> ring(2 * n);
    std::vector<long> window(n);
    int index = 0;
    for (int i = 0; i < 300; ++i) {
      if (i % 4 == 0)
        for (int k = 0; k < n; ++k) taps[k] = expected[k] = random.value<Mox32s>() >> 4;
      const Mox16s x = i < n + 5 ? 0 : random.value<Mox16s>(), ref = random.value<Mox16s>();
      const Mox32s mu = random.value<Mox32s>() >> random.below(32);
      window.insert(window.begin(), x);
      window.resize(n);
      Mox16s y = 77;
      ASSERT_OK(moxsFIRLMSOne_DirectQ15_16s(x, ref, &y, taps.data(), n, mu, ring.data(), &index));
      ASSERT_EQ(index, (i + 1) % n);
      long c = 0, energy = 0;
      for (int k = 0; k < n; ++k)
        c += long(expected[k]) * window[k], energy += window[k] * window[k];
      if (std::abs(c) >= 1L << 53) break;  // no longer exact
      const double out = double(c) * 0x1p-15, gain = mu * (ref - out) / double(energy);
      ASSERT_EQ(y, energy ? std::clamp(std::rint(out), -32768.0, 32767.0) : 77);
      for (int k = 0; k < n && energy; ++k)
        expected[k] = Mox32s(
            std::clamp(std::rint(expected[k] + double(window[k]) * gain), -0x1p31, 0x1p31 - 1));
      ASSERT_EQ(taps, expected) << n << " taps, step " << i;
    }
  }
}

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

// Both parts modulo 2^32.
Exact wrapped(Exact z) {
  return eachPart(z, [](long double v) { return Mox32s(Mox64s(v)); });
}

TYPED_SUITE(LmsSteps, Steps32s_16s, Steps32sc_16sc);

TYPED_TEST(LmsSteps, WrapAround) {
  using F = TypeParam;
  using T = typename F::Tap;
  using D = typename F::Data;
  Random random(23);
  for (const auto& [n, step, delay] :
       {std::array{1, 1, 0}, {5, 1, 3}, {17, 1, 0}, {40, 1, 1}, {7, 3, 2}, {16, 2, 0}}) {
    const int ringLen = n * step + delay, place = int(random.below(ringLen));
    const auto firstTaps = random.vector<T>(n);
    const auto ring = random.vector<D>(ringLen);
    std::vector<Exact> taps, past;  // the newest sample first
    for (const T& tap : firstTaps) taps.push_back(exactly(tap));
    for (int i = 0; i < ringLen; ++i)
      past.push_back(exactly(ring[(place + 2 * ringLen - 1 - i) % ringLen]));
    MoxsFIRLMSMRState* s = nullptr;
    Mox32s mu = random.value<Mox32s>();
    ASSERT_OK(F::initAlloc(&s, firstTaps.data(), n, ring.data(), place, step, delay, mu));
    T y;
    D x;
    for (int i = 0; i < 200; ++i) {
      x = random.value<D>();
      past.insert(past.begin(), exactly(x));
      ASSERT_OK(i % 2 ? F::oneVal(x, &y, s) : F::putVal(x, s));
      ASSERT_OK(i % 2 ? moxOk : F::one(&y, s));
      Exact sum = 0;
      for (int k = 0; k < n; ++k)
        sum += eachPart(taps[k], [](auto v) { return std::floor(v / 65536); }) * past[k * step];
      ASSERT_EQ(exactly(y), wrapped(sum)) << n << " taps, step " << i;
      if (i % 50 == 0) {
        mu = random.value<Mox32s>() >> random.below(32);
        ASSERT_OK(F::setMu(s, mu));
      }
      const T err = random.value<T>();
      ASSERT_OK(F::updateTaps(err, s));
      Exact w = eachPart(exactly(err), [&](long double e) {
        return Mox32s(Mox32u(Mox64s(e)) * Mox32u(mu) + 16384) >> 15;
      });
      if (!mox::Complex<T>) w = w.real();
      for (int k = 0; k < n; ++k)
        taps[k] = wrapped(taps[k] + w * std::conj(past[k * step + delay]));
    }
    std::vector<T> got(n);
    T* inside = nullptr;
    ASSERT_OK(F::getTaps(s, got.data()));
    ASSERT_OK(F::getTapsPointer(s, &inside));
    for (int k = 0; k < n; ++k)
      ASSERT_TRUE(exactly(got[k]) == taps[k] && exactly(inside[n - 1 - k]) == taps[k]);
    std::vector<D> line(ringLen);
    int index = -1;
    ASSERT_OK(F::getDlyLine(s, line.data(), &index));
    EXPECT_EQ(index, (place + 200) % ringLen);
    for (int i = 0; i < ringLen; ++i) {
      const int at = (index + ringLen - 1 - i) % ringLen;
      ASSERT_OK(F::getDlyVal(s, &x, at));
      ASSERT_TRUE(exactly(x) == past[i] && exactly(line[at]) == past[i]);
    }
    EXPECT_EQ(F::getDlyVal(s, &x, ringLen), moxErrBadArg);
    ASSERT_OK(F::setTaps(s, nullptr));
    ASSERT_OK(F::setDlyLine(s, nullptr, INT_MIN));
    ASSERT_OK(F::oneVal(x, &y, s));
    EXPECT_EQ(exactly(y), Exact(0));
    F::free(s);
  }
}

// The ring has 5 places here; one of more than an int counts is too much memory.
TYPED_TEST(LmsSteps, ChecksTheRing) {
  MoxsFIRLMSMRState* s = nullptr;
  const auto init = TypeParam::initAlloc;
  EXPECT_EQ(init(&s, nullptr, 2, nullptr, 5, 2, 1, 1), moxErrSize);
  EXPECT_EQ(init(&s, nullptr, INT_MAX, nullptr, 0, INT_MAX, INT_MAX, 1), moxErrMemAlloc);
}

}  // namespace
