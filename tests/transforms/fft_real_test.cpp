// Real transforms of all orders, layouts, flags and placements against defining sums, closed forms
// and each other.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <numbers>

#include "support/accuracy.h"
#include "support/random.h"
#include "transforms/fft_real_api.h"

namespace {

using test::Layout;
using test::RealFft;
using test::RealSpec;
using Complex = std::complex<long double>;

std::vector<Complex> unitRoots(long n) {
  std::vector<Complex> roots(n);
  for (long i = 0; i < n; ++i)
    roots[i] = std::polar(1.0L, -2 * std::numbers::pi_v<long double> * i / n);
  return roots;
}

std::vector<Complex> definingSums(const std::vector<Mox32f>& x) {
  const long n = x.size();
  const auto roots = unitRoots(n);
  std::vector<Complex> half(n / 2 + 1);
  for (long k = 0; k <= n / 2; ++k)
    for (long i = 0; i < n; ++i) half[k] += (long double)x[i] * roots[i * k & (n - 1)];
  return half;
}

template <class E, class R>
long double relativeError(const E* got, const R* exact, long count, long double factor = 1) {
  test::RelativeError error;
  for (long i = 0; i < count; ++i) error.add(got[i], factor * exact[i]);
  return error.value();
}

template <class F>
long double bound(int order) {
  return RealFft<F>::bound * std::sqrt(std::max(order, 1));
}

template <class F>
struct RealFftTest : testing::Test {};
using FloatTypes = testing::Types<Mox32f, Mox64f>;
TYPED_TEST_SUITE(RealFftTest, FloatTypes);

struct Flag {
  int value;
  bool forward, inverse;
  double power;  // the factor is N to this power
};
constexpr Flag flags[] = {
    {8, false, false, 0}, {1, true, false, -1}, {2, false, true, -1}, {4, true, true, -0.5}};

// Places for `count` elements at an address that is off every alignment by `offset` bytes, and
// a mark behind them that a call must leave alone.
template <class F>
class Offset {
 public:
  Offset(long count, int offset) : bytes_(count * sizeof(F) + 128, mark), count_(count) {
    first_ = bytes_.data() + (-reinterpret_cast<std::uintptr_t>(bytes_.data()) & 63) + offset;
  }
  F* data() { return reinterpret_cast<F*>(first_); }
  void set(const F* values, long count) { std::memcpy(first_, values, count * sizeof(F)); }
  std::vector<F> get(long count) const {
    std::vector<F> v(count);
    std::memcpy(v.data(), first_, count * sizeof(F));
    return v;
  }
  bool marked() const { return first_[count_ * sizeof(F)] == mark; }

 private:
  static constexpr char mark = 0x55;
  std::vector<char> bytes_;
  char* first_;
  long count_;
};

TYPED_TEST(RealFftTest, AllOrdersLayoutsFlagsAndPlacementsFollowTheDefiningSum) {
  using F = TypeParam;
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  for (int order = 0; order <= 12; ++order) {
    const long n = 1L << order;
    const auto samples = random.vector<Mox32f>(n);
    const auto exact = definingSums(samples);
    const std::vector<F> x(samples.begin(), samples.end());
    for (const Flag& flag : flags) {
      const RealSpec<F> spec(order, flag.value);
      const long double factor = std::pow((long double)n, flag.power);
      const long double up = flag.forward ? factor : 1, back = up * (flag.inverse ? factor : 1) * n;
      for (const auto& run : RealFft<F>::runs)
        for (const int offset : {0, int(sizeof(F)), 1}) {
          SCOPED_TRACE(testing::Message() << run.layout << " order " << order << " flag "
                                          << flag.value << " offset " << offset);
          const long size = test::packedSize(run.layout, n);
          const auto packed = test::packed<long double>(run.layout, exact, n);
          Offset<F> src(n, offset), dst(size, offset), both(size, offset), result(n, offset);
          std::vector<Mox8u> buffer(sizeof(F) * n + 192);
          src.set(x.data(), n);
          both.set(x.data(), n);

          ASSERT_EQ(run.forward(src.data(), dst.data(), spec, nullptr), moxOk);
          const auto spectrum = dst.get(size);
          ASSERT_LE(relativeError(spectrum.data(), packed.data(), size, up), bound<F>(order));
          ASSERT_EQ(run.forwardInPlace(both.data(), spec, buffer.data() + offset), moxOk);
          ASSERT_EQ(both.get(size), spectrum);

          ASSERT_EQ(run.inverse(dst.data(), result.data(), spec, buffer.data()), moxOk);
          const auto again = result.get(n);
          ASSERT_LE(relativeError(again.data(), x.data(), n, back), bound<F>(order));
          ASSERT_EQ(dst.get(size), spectrum);  // the source stays
          ASSERT_EQ(run.inverseInPlace(both.data(), spec, nullptr), moxOk);
          ASSERT_EQ(both.get(n), again);
          ASSERT_TRUE(dst.marked() && both.marked() && result.marked());
        }
    }
  }
}

TYPED_TEST(RealFftTest, EndsOfCcsSpectraHaveZeroImaginaryParts) {
  using F = TypeParam;
  for (const int order : {0, 1, 4, 5, 8}) {
    const long n = 1L << order;
    std::vector<F> x(n, F(3)), ccs(n / 2 * 2 + 2, F(9));
    ASSERT_EQ(RealFft<F>::runs[2].forward(x.data(), ccs.data(), RealSpec<F>(order), nullptr),
              moxOk);
    EXPECT_EQ(ccs[1], 0);
    EXPECT_EQ(ccs.back(), 0);
  }
}

// Sums of impulses have their spectrum in closed form at any size; the large path and both forms of
// the twiddle tables are reached.
template <class F>
void compareWithImpulses(int order) {
  SCOPED_TRACE(testing::Message() << "order " << order);
  test::Random random(order);
  const long n = 1L << order;
  std::vector<F> x(n), spectrum(n);
  struct Impulse {
    long place;
    F weight;
  };
  std::vector<Impulse> impulses;
  for (int i = 0; i < 3; ++i) {
    impulses.push_back({random.below(n), random.value<F>()});
    x[impulses.back().place] += impulses.back().weight;
  }
  const RealSpec<F> spec(order);
  ASSERT_EQ(RealFft<F>::runs[0].forward(x.data(), spectrum.data(), spec, nullptr), moxOk);
  test::RelativeError error;
  const auto value = [&](long k) {
    Complex sum = 0;
    for (const auto& [place, weight] : impulses) {
      const double angle = -2 * std::numbers::pi * double(place * k & (n - 1)) / double(n);
      sum += (long double)weight * Complex(std::cos(angle), std::sin(angle));
    }
    return sum;
  };
  error.add(spectrum[0], value(0).real());
  error.add(spectrum[1], value(n / 2).real());
  const long step = std::max(1L, n >> 19);
  for (long k = 1; k < n / 2; k += step + (k & 1)) {
    const Complex exact = value(k);
    error.add(spectrum[2 * k], exact.real());
    error.add(spectrum[2 * k + 1], exact.imag());
  }
  EXPECT_LE(error.value(), bound<F>(order));

  ASSERT_EQ(RealFft<F>::runs[0].inverseInPlace(spectrum.data(), spec, nullptr), moxOk);
  EXPECT_LE(relativeError(spectrum.data(), x.data(), n, n), bound<F>(order));
}

TEST(RealFftLarge, SingleImpulses) {
  for (const int order : {13, 16, 17, 18, 19, 20, 21, 22, 23, 24})
    compareWithImpulses<Mox32f>(order);
}
TEST(RealFftLarge, DoubleImpulses) {
  for (const int order : {13, 16, 17, 18, 19, 20, 21, 22, 23}) compareWithImpulses<Mox64f>(order);
}

// Random data: Parseval's sum, the round trip in place and out of place, and single against double.
template <class F>
void compareEnergies(int order, const std::vector<F>& x, std::vector<F>& spectrum) {
  const long n = 1L << order;
  const auto& perm = RealFft<F>::runs[0];
  const RealSpec<F> spec(order, 2);
  spectrum.resize(n);
  ASSERT_EQ(perm.forward(x.data(), spectrum.data(), spec, nullptr), moxOk);
  long double samples = 0, bins = 0;
  for (const long double v : x) samples += v * v;
  for (const long double v : spectrum) bins += 2 * v * v;
  for (const long double v : {spectrum[0], spectrum[1]}) bins -= v * v;
  EXPECT_NEAR(bins / n / samples, 1, 2 * bound<F>(order));

  std::vector<F> back(n);
  ASSERT_EQ(perm.inverse(spectrum.data(), back.data(), spec, nullptr), moxOk);
  EXPECT_LE(relativeError(back.data(), x.data(), n), bound<F>(order));
  std::vector<F> inPlace = x;
  ASSERT_EQ(perm.forwardInPlace(inPlace.data(), spec, nullptr), moxOk);
  EXPECT_LE(relativeError(inPlace.data(), spectrum.data(), n), bound<F>(order));
}

TEST(RealFftLarge, EnergyRoundTripAndPrecisionsAgree) {
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  for (const int order : {13, 14, 15, 16, 17, 18, 19, 20, 21, 22}) {
    SCOPED_TRACE(testing::Message() << "order " << order);
    const auto single = random.vector<Mox32f>(1L << order);
    const std::vector<Mox64f> wide(single.begin(), single.end());
    std::vector<Mox32f> singleSpectrum;
    std::vector<Mox64f> wideSpectrum;
    compareEnergies(order, single, singleSpectrum);
    compareEnergies(order, wide, wideSpectrum);
    EXPECT_LE(relativeError(singleSpectrum.data(), wideSpectrum.data(), 1L << order),
              bound<Mox32f>(order));
  }
}

// A delay of one sample turns bin k by k / N of a circle.
TYPED_TEST(RealFftTest, LinearityAndShift) {
  using F = TypeParam;
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  for (const int order : {5, 9, 14, 18}) {
    SCOPED_TRACE(testing::Message() << "order " << order);
    const long n = 1L << order;
    const auto x = random.vector<F>(n), y = random.vector<F>(n);
    std::vector<F> sum(n), delayed(n), fx(n), fy(n), fsum(n), fdelayed(n);
    for (long i = 0; i < n; ++i) sum[i] = 2 * x[i] - 3 * y[i], delayed[(i + 1) % n] = x[i];
    const RealSpec<F> spec(order);
    const auto forward = RealFft<F>::runs[0].forward;
    ASSERT_EQ(forward(x.data(), fx.data(), spec, nullptr), moxOk);
    ASSERT_EQ(forward(y.data(), fy.data(), spec, nullptr), moxOk);
    ASSERT_EQ(forward(sum.data(), fsum.data(), spec, nullptr), moxOk);
    ASSERT_EQ(forward(delayed.data(), fdelayed.data(), spec, nullptr), moxOk);
    test::RelativeError linear, shift;
    for (long i = 0; i < n; ++i)
      linear.add(fsum[i], 2 * (long double)fx[i] - 3 * (long double)fy[i]);
    const auto turned = test::halfSpectrum<long double>(Layout::perm, fdelayed.data(), n);
    const auto still = test::halfSpectrum<long double>(Layout::perm, fx.data(), n);
    for (long k = 0; k <= n / 2; ++k) {
      const Complex exact =
          still[k] * std::polar(1.0L, -2 * std::numbers::pi_v<long double> * k / n);
      shift.add(turned[k].real(), exact.real());
      if (k != 0 && 2 * k != n) shift.add(turned[k].imag(), exact.imag());
    }
    EXPECT_LE(linear.value(), 2 * bound<F>(order));
    EXPECT_LE(shift.value(), 2 * bound<F>(order));
  }
}

}  // namespace
