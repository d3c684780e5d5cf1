#include <gtest/gtest.h>
#include <moxsp.h>

#include <cmath>
#include <functional>
#include <memory>

#include "support/random.h"

namespace {

using test::Random;
using Floats = std::vector<Mox32f>;

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

template <class D>
class FilterBank : public testing::Test {};
using Types = testing::Types<Mox32f, Mox8s, Mox8u, Mox16s, Mox16u>;
TYPED_TEST_SUITE(FilterBank, Types);

// Both banks against their sums, at every offset, whole and in blocks.
TYPED_TEST(FilterBank, FollowsItsFormulas) {
  using D = TypeParam;
  constexpr bool isInteger = std::is_integral_v<D>;
  const long double most = isInteger ? std::numeric_limits<D>::max() : 1;
  constexpr int len = 2600;
  SCOPED_TRACE(test::seedNote());
  Random random(1);
  for (const int lenLow : {1, 2, 3, 8, 33, 1500})
    for (const Offsets o : {Offsets{-1, -1}, {0, 0}, {-1, 3}, {6, 0}, {1, 1200}}) {
      SCOPED_TRACE(testing::Message() << lenLow << " taps, offsets " << o.low << ' ' << o.high);
      const Filter f = {random.vector<Mox32f>(lenLow), random.vector<Mox32f>(5), o};
      const auto x = random.vector<D>(2 * len);
      const Bands bands = analyse(f, x), cut = analyse(f, x, &random);
      EXPECT_EQ(bands.low, cut.low);
      EXPECT_EQ(bands.high, cut.high);
      const long double bound = 1e-6L * most;
      const auto expectBand = [&](const Floats& taps, int offset, const Floats& band) {
        for (int k = 0; k < len; ++k) {
          long double sum = 0;
          for (int j = 0; j < int(taps.size()); ++j)
            if (const int i = 2 * k - offset - j; i >= 0) sum += (long double)taps[j] * x[i];
          ASSERT_LE(std::fabs(band[k] - sum), bound * lenLow) << k;
        }
      };
      expectBand(f.low, o.low, bands.low);
      expectBand(f.high, o.high, bands.high);

      // Bands whose outputs reach a little beyond the range of the type.
      Bands in = {random.vector<Mox32f>(len), random.vector<Mox32f>(len)};
      for (Floats* band : {&in.low, &in.high})
        for (Mox32f& e : *band) e *= Mox32f(most / std::sqrt(lenLow));
      const auto y = synthesise<D>(f, in);
      EXPECT_EQ(y, synthesise<D>(f, in, &random));
      for (int n = 0; n < 2 * len; ++n) {
        long double sum = 0;
        const auto add = [&](const Floats& taps, int offset, const Floats& band) {
          for (int j = 0; j < int(taps.size()); ++j)
            if (const int twice = n - 1 - offset - j; twice >= 0 && twice % 2 == 0)
              sum += (long double)taps[j] * band[twice / 2];
        };
        add(f.low, o.low, in.low);
        add(f.high, o.high, in.high);
        if (isInteger) sum = std::clamp<long double>(sum, std::numeric_limits<D>::min(), most);
        ASSERT_LE(std::fabs(y[n] - sum), isInteger ? 0.5L + 4 * bound : 4 * bound) << n;
      }
      if (this->HasFailure()) return;
    }
}

TEST(FilterBankObject, RefusesTapsInOrder) {
  MoxWTFwdState* state;
  const Mox32f taps[2] = {1, 1};
  EXPECT_EQ(moxsWTFwdInitAlloc_32f(&state, taps, 0, -2, nullptr, 0, -2), moxErrSize);
  EXPECT_EQ(moxsWTFwdInitAlloc_32f(&state, taps, 2, -2, nullptr, 0, -2), moxErrNullPtr);
  EXPECT_EQ(moxsWTFwdInitAlloc_32f(&state, taps, 2, -2, taps, 0, -2), moxErrSize);
  EXPECT_EQ(moxsWTFwdInitAlloc_32f(&state, taps, 2, 0, taps, 2, -2), moxErrWtOffset);
}

}  // namespace
