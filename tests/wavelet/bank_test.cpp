#include <gtest/gtest.h>
#include <moxsp.h>

#include <cmath>
#include <complex>
#include <functional>
#include <memory>
#include <numeric>

#include "support/random.h"

namespace {

using test::Random;
using Floats = std::vector<Mox32f>;

using Number = std::complex<long double>;

// The orthogonal filter by Daubechies with `zeros` zeros at -1. The others are the roots z within
// the unit circle of sum over k < zeros of binomial(zeros - 1 + k, k) y^k, where y = (2 - z - 1/z)
// / 4.
std::vector<double> daubechies(int zeros) {
  std::vector<Number> p = {1}, roots(zeros - 1), filter = {1};
  for (int k = 0; k + 1 < zeros; ++k) p.push_back(p[k] * (long double)(zeros + k) / (k + 1.0L));
  for (int i = 0; i + 1 < zeros; ++i) roots[i] = std::pow(Number(0.4L, 0.9L), i);
  for (int turn = 0; turn < 300; ++turn)  // Durand and Kerner
    for (Number& y : roots) {
      Number value = 0, rest = p.back();
      for (int k = zeros; k-- > 0;) value = value * y + p[k];
      for (const Number& other : roots) rest *= &other == &y ? 1 : y - other;
      y -= value / rest;
    }
  const auto multiplyBy = [&](Number root) {  // z - root
    filter.push_back(0);
    for (std::size_t i = filter.size(); i-- > 1;) filter[i] = filter[i - 1] - root * filter[i];
    filter[0] *= -root;
  };
  for (int k = 0; k < zeros; ++k) multiplyBy(-1);
  for (const Number& y : roots) {
    const Number half = 1.0L - 2.0L * y, root = std::sqrt(half * half - 1.0L);
    multiplyBy(std::abs(half + root) < 1 ? half + root : half - root);
  }
  const Number sum = std::accumulate(filter.begin(), filter.end(), Number());
  std::vector<double> taps;
  for (const Number& c : filter) taps.push_back(double((c / sum).real() * std::sqrt(2.0L)));
  return taps;
}

// The analysis and the synthesis filters of both channels.
struct Filters {
  std::string name;
  Floats low, high, inverseLow, inverseHigh;
  int delay;  // of a signal that comes back, with the offsets -1 and 0
};

// The high filters are the low ones of the other bank with every second sign turned.
Filters filtersFrom(const std::string& name, const std::vector<double>& analysis,
                    const std::vector<double>& synthesis) {
  const auto modulated = [](const std::vector<double>& h, int parity) {
    Floats taps;
    for (std::size_t k = 0; k < h.size(); ++k)
      taps.push_back(Mox32f((int(k) + parity) % 2 ? -h[k] : h[k]));
    return taps;
  };
  return {name,
          Floats(analysis.begin(), analysis.end()),
          modulated(synthesis, 0),
          Floats(synthesis.begin(), synthesis.end()),
          modulated(analysis, 1),
          int(analysis.size() + synthesis.size()) / 2 - 1};
}

std::vector<Filters> allFilters() {
  std::vector<Filters> all = {filtersFrom("Haar", {M_SQRT1_2, M_SQRT1_2}, {M_SQRT1_2, M_SQRT1_2})};
  for (int zeros = 2; zeros <= 10; ++zeros) {
    const auto h = daubechies(zeros);
    all.push_back(filtersFrom("Daubechies " + std::to_string(zeros),
                              std::vector<double>(h.rbegin(), h.rend()), h));
  }
  // The biorthogonal filters of 9 and 7 taps, with the energy of the orthogonal ones.
  const double a[] = {0.852698679009403, 0.377402855612654, -0.110624404418423, -0.023849465019380,
                      0.037828455506995},
               s[] = {0.788485616405664, 0.418092273222212, -0.040689417609558, -0.064538882628938};
  std::vector<double> nine, seven;
  for (int k = -4; k <= 4; ++k) nine.push_back(a[std::abs(k)]);
  for (int k = -3; k <= 3; ++k) seven.push_back(s[std::abs(k)]);
  all.push_back(filtersFrom("biorthogonal 9/7", nine, seven));
  return all;
}

struct Offsets {
  int low, high;
};

template <class D>
struct Api;
#define BANK_API(D, type, inverseType)                                    \
  template <>                                                             \
  struct Api<D> {                                                         \
    static constexpr auto forwardInit = moxsWTFwdInitAlloc_##type;        \
    static constexpr auto forward = moxsWTFwd_##type;                     \
    static constexpr auto forwardGet = moxsWTFwdGetDlyLine_##type;        \
    static constexpr auto forwardSet = moxsWTFwdSetDlyLine_##type;        \
    static constexpr auto forwardFree = moxsWTFwdFree_##type;             \
    static constexpr auto inverseInit = moxsWTInvInitAlloc_##inverseType; \
    static constexpr auto inverse = moxsWTInv_##inverseType;              \
    static constexpr auto inverseGet = moxsWTInvGetDlyLine_##inverseType; \
    static constexpr auto inverseSet = moxsWTInvSetDlyLine_##inverseType; \
    static constexpr auto inverseFree = moxsWTInvFree_##inverseType;      \
  }
BANK_API(Mox32f, 32f, 32f);
BANK_API(Mox8s, 8s32f, 32f8s);
BANK_API(Mox8u, 8u32f, 32f8u);
BANK_API(Mox16s, 16s32f, 32f16s);
BANK_API(Mox16u, 16u32f, 32f16u);

template <class State>
using Bank = std::unique_ptr<State, MoxStatus (*)(State*)>;

// The filters of a bank, and its state by the functions of one direction.
struct Filter {
  Floats low, high;
  Offsets offsets;

  template <class State, class Init>
  Bank<State> make(Init init, MoxStatus (*free)(State*)) const {
    State* state = nullptr;
    EXPECT_EQ(init(&state, low.data(), int(low.size()), offsets.low, high.data(), int(high.size()),
                   offsets.high),
              moxOk);
    return {state, free};
  }
  // Moves the delay lines to a new state, where they are what expected(i) tells of the sample i
  // before the next one.
  template <class State, class Init, class Expected>
  void renew(Bank<State>& bank, Init init, MoxStatus (*get)(State*, Mox32f*, Mox32f*),
             MoxStatus (*set)(State*, const Mox32f*, const Mox32f*), Expected expected) const {
    const auto dlyLen = [](const Floats& taps, int offset) {
      return std::max(long(taps.size()) - 1 + offset, 0L);
    };
    Floats lines[] = {Floats(dlyLen(low, offsets.low)), Floats(dlyLen(high, offsets.high))};
    for (Floats& line : lines) line.reserve(1);  // no null where there is none
    EXPECT_EQ(get(bank.get(), lines[0].data(), lines[1].data()), moxOk);
    for (const int band : {0, 1})
      for (long i = 1; i <= long(lines[band].size()); ++i)
        EXPECT_EQ(lines[band][lines[band].size() - i], expected(band, i));
    bank = make(init, bank.get_deleter());
    EXPECT_EQ(set(bank.get(), lines[0].data(), lines[1].data()), moxOk);
  }
};

struct Bands {
  Floats low, high;
};

// Runs block(k, n, isRenewed) over `len` samples of a band, at once or in random blocks.
void inBlocks(int len, Random* cuts, const std::function<void(int, int, bool)>& block) {
  for (int k = 0, n; k < len; k += n) {
    n = cuts ? int(std::min<long>(len - k, 1 + cuts->below(cuts->below(8) ? 20 : 1200))) : len;
    block(k, n, cuts && cuts->below(3) == 0);
  }
}

template <class D>
Bands analyse(const Filter& f, const std::vector<D>& x, Random* cuts = nullptr) {
  using A = Api<D>;
  auto bank = f.make<MoxWTFwdState>(A::forwardInit, A::forwardFree);
  const int len = int(x.size()) / 2;
  Bands bands = {Floats(len), Floats(len)};
  inBlocks(len, cuts, [&](int k, int n, bool isRenewed) {
    if (isRenewed)
      f.renew(bank, A::forwardInit, A::forwardGet, A::forwardSet,
              [&](int, long i) { return 2 * k >= i ? Mox32f(x[2 * k - i]) : 0; });
    EXPECT_EQ(A::forward(&x[2 * k], &bands.low[k], &bands.high[k], n, bank.get()), moxOk);
  });
  return bands;
}
template <class D>
std::vector<D> synthesise(const Filter& f, const Bands& bands, Random* cuts = nullptr) {
  using A = Api<D>;
  auto bank = f.make<MoxWTInvState>(A::inverseInit, A::inverseFree);
  const int len = int(bands.low.size());
  std::vector<D> y(2 * len);
  inBlocks(len, cuts, [&](int k, int n, bool isRenewed) {
    if (isRenewed)
      f.renew(bank, A::inverseInit, A::inverseGet, A::inverseSet, [&](int band, long i) {
        return i % 2 && 2 * k >= i ? (band ? bands.high : bands.low)[k - (i + 1) / 2] : 0;
      });
    EXPECT_EQ(A::inverse(&bands.low[k], &bands.high[k], n, &y[2 * k], bank.get()), moxOk);
  });
  return y;
}

// Both banks against their sums, at every offset, whole and in blocks.
TEST(FilterBank, FollowsItsFormulas) {
  Random random(1);
  for (const int lenLow : {1, 2, 3, 8, 33, 1500})
    for (const Offsets o : {Offsets{-1, -1}, {0, 0}, {-1, 3}, {6, 0}, {1, 1200}}) {
      SCOPED_TRACE(testing::Message() << lenLow << " taps, offsets " << o.low << ' ' << o.high);
      const int len = 2600;
      const auto low = random.vector<Mox32f>(lenLow), high = random.vector<Mox32f>(5);
      const auto x = random.vector<Mox32f>(2 * len);
      const Filter f = {low, high, o};
      const Bands bands = analyse(f, x), cut = analyse(f, x, &random);
      EXPECT_EQ(bands.low, cut.low);
      EXPECT_EQ(bands.high, cut.high);
      const auto y = synthesise<Mox32f>(f, bands);
      EXPECT_EQ(y, synthesise<Mox32f>(f, bands, &random));
      const double bound = 1e-6 * lenLow;
      const auto expectBand = [&](const Floats& taps, int offset, const Floats& band) {
        for (int k = 0; k < len; ++k) {
          long double sum = 0;
          for (int j = 0; j < int(taps.size()); ++j)
            if (const int i = 2 * k - offset - j; i >= 0) sum += (long double)taps[j] * x[i];
          ASSERT_NEAR(band[k], sum, bound) << k << "; " << test::seedNote();
        }
      };
      expectBand(low, o.low, bands.low);
      expectBand(high, o.high, bands.high);
      for (int n = 0; n < 2 * len; ++n) {
        long double sum = 0;
        const auto add = [&](const Floats& taps, int offset, const Floats& band) {
          for (int j = 0; j < int(taps.size()); ++j)
            if (const int twice = n - 1 - offset - j; twice >= 0 && twice % 2 == 0)
              sum += (long double)taps[j] * band[twice / 2];
        };
        add(low, o.low, bands.low);
        add(high, o.high, bands.high);
        ASSERT_NEAR(y[n], sum, bound * lenLow) << n << "; " << test::seedNote();
      }
      if (this->HasFailure()) return;
    }
}

template <class D>
class PerfectReconstruction : public testing::Test {};
using Types = testing::Types<Mox32f, Mox8s, Mox8u, Mox16s, Mox16u>;
TYPED_TEST_SUITE(PerfectReconstruction, Types);

TYPED_TEST(PerfectReconstruction, GivesTheSignalBack) {
  using D = TypeParam;
  Random random(2);
  for (const Filters& f : allFilters()) {
    SCOPED_TRACE(f.name);
    const auto x = random.vector<D>(5000);
    const Bands bands = analyse({f.low, f.high, {-1, -1}}, x, &random);
    const auto y = synthesise<D>({f.inverseLow, f.inverseHigh, {0, 0}}, bands, &random);
    for (int i = f.delay; i < 5000; ++i)
      ASSERT_NEAR(double(y[i]), double(x[i - f.delay]),
                  std::is_integral_v<D> ? (sizeof(D) > 1) : 2e-6)
          << i << "; " << test::seedNote();
  }
}

TEST(FilterBank, RefusesTapsInOrder) {
  MoxWTFwdState* state;
  const Mox32f taps[2] = {1, 1};
  EXPECT_EQ(moxsWTFwdInitAlloc_32f(&state, taps, 0, -2, nullptr, 0, -2), moxErrSize);
  EXPECT_EQ(moxsWTFwdInitAlloc_32f(&state, taps, 2, -2, nullptr, 0, -2), moxErrNullPtr);
  EXPECT_EQ(moxsWTFwdInitAlloc_32f(&state, taps, 2, -2, taps, 0, -2), moxErrSize);
  EXPECT_EQ(moxsWTFwdInitAlloc_32f(&state, taps, 2, 0, taps, 2, -2), moxErrWtOffset);
}

}  // namespace
