// Transforms of all forms against the defining sum, closed forms and what holds for any spectrum.
#include <gtest/gtest.h>

#include <cstring>

#include "transforms/fft_data.h"

namespace {

using test::Complex;
using test::Fft;
using test::Flag;
using test::flags;
using test::largeOrder;
using test::Room;
using test::signalError;
using test::spectrumError;
using test::turn;

template <class T>
class FftForm : public testing::Test {};
TYPED_TEST_SUITE(FftForm, test::Forms);

// In the L2 norm, for each doubling.
template <class F>
long double bound(int order) {
  return (sizeof(F) == 4 ? 3e-7L : 6e-16L) * std::sqrt(order + 1.0L);
}

// Up to order 12 with every flag; a sparse choice of those above, where other stages run.
TYPED_TEST(FftForm, FollowsTheDefiningSumWithEveryFlagAtAnyAddress) {
  using T = TypeParam;
  using F = typename T::F;
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  std::vector<int> orders = {14, 17, largeOrder<F> - 1, largeOrder<F>, largeOrder<F> + 1};
  for (int order = 0; order <= 12; ++order) orders.push_back(order);
  for (const int order : orders) {
    const long n = 1L << order, numbers = T::numbers(n);
    const auto x = random.vector<F>(T::parts * n);
    std::vector<Complex> samples(n);
    for (long i = 0; i < n; ++i)
      samples[i] = {x[T::place(n, i, 0)], T::parts > 1 ? x[T::place(n, i, 1)] : 0};
    const auto exact = test::exactTransform(samples);
    for (const Flag& flag : flags)
      for (const long slack : {0L, long(sizeof(F)), 1L}) {
        if (order > 12 && (&flag != &flags[order % 4] || slack != 1)) continue;
        SCOPED_TRACE(testing::Message()
                     << "order " << order << " flag " << flag.value << " slack " << slack);
        Fft fft(T::kind, order, flag.value);
        const long double up = std::pow((long double)n, flag.forward);
        const long double back = std::pow((long double)n, 1 + flag.forward + flag.inverse);
        const Room<F> src(x, T::parts * n, slack), dst({}, numbers, slack), both(x, numbers, slack),
            again({}, T::parts * n, slack);

        ASSERT_EQ(T::run(true, src.data(), dst.data(), n, fft, nullptr), moxOk);
        const auto spectrum = dst.numbers();
        ASSERT_LE(spectrumError<T>(spectrum.data(), n, 1, [&](long k) { return up * exact[k]; }),
                  bound<F>(order));
        if (T::kind.real) {
          ASSERT_EQ(T::bin(spectrum.data(), n, 0).imag(), 0);
          ASSERT_EQ(T::bin(spectrum.data(), n, n / 2).imag(), 0);
        }
        ASSERT_EQ(T::runInPlace(true, both.data(), n, fft, fft.buffer()), moxOk);
        ASSERT_EQ(both.numbers(), spectrum);

        ASSERT_EQ(T::run(false, dst.data(), again.data(), n, fft, fft.buffer()), moxOk);
        const auto signal = again.numbers();
        ASSERT_LE(signalError(signal.data(), x, back), bound<F>(order));
        ASSERT_EQ(dst.numbers(), spectrum) << "the source has changed";
        ASSERT_EQ(T::runInPlace(false, both.data(), n, fft, nullptr), moxOk);
        ASSERT_EQ(std::memcmp(both.data(), signal.data(), signal.size() * sizeof(F)), 0);
      }
  }
}

// A few impulses have a spectrum that is known at every frequency, at any length.
template <class T>
void expectTurnsOfImpulses(int firstOrder, int lastOrder) {
  using F = typename T::F;
  SCOPED_TRACE(test::seedNote());
  test::Random random(1);
  for (int order = firstOrder; order <= lastOrder; ++order) {
    SCOPED_TRACE(testing::Message() << "order " << order);
    const long n = 1L << order;
    std::vector<F> x(T::parts * n), spectrum(T::numbers(n));
    std::vector<std::pair<long, Complex>> impulses;
    for (const int part : {0, 1, 0, 1}) {
      const long at = random.below(n);
      F& number = x[T::place(n, at, part)];
      if (number != 0) continue;
      number = random.value<F>();
      impulses.emplace_back(at, part < T::parts && part == 1 ? Complex(0, number) : number);
    }
    Fft fft(T::kind, order, 8);
    ASSERT_EQ(T::run(true, x.data(), spectrum.data(), n, fft, nullptr), moxOk);
    const auto exact = [&](long k) {
      Complex sum = 0;
      for (const auto& [at, weight] : impulses) sum += weight * turn(at * k, n);
      return sum;
    };
    EXPECT_LE(spectrumError<T>(spectrum.data(), n, 31, exact), bound<F>(order));
    ASSERT_EQ(T::runInPlace(false, spectrum.data(), n, fft, fft.buffer()), moxOk);
    EXPECT_LE(signalError(spectrum.data(), x, n), bound<F>(order));
  }
}

TYPED_TEST(FftForm, ImpulsesGiveTheirTurnsAtLargeOrders) {
  using T = TypeParam;
  expectTurnsOfImpulses<T>(13, test::hugeOrder<typename T::F> + T::kind.real);
}

TYPED_TEST(FftForm, DISABLED_ImpulsesGiveTheirTurnsAtTheLargestOrders) {
  expectTurnsOfImpulses<TypeParam>(TypeParam::kind.maxOrder - 1, TypeParam::kind.maxOrder);
}

// Of arrays of parts one may be shared, the other not.
TYPED_TEST(FftForm, OneArrayOfPartsMayBeShared) {
  using T = TypeParam;
  using F = typename T::F;
  if constexpr (T::split)
    for (const int order : {3, 8, largeOrder<F>}) {
      const long n = 1L << order;
      const auto x = test::Random(3).vector<F>(2 * n);
      Fft fft(T::kind, order, 8);
      auto apart = x, shared = x;
      std::vector<F> im(n);
      ASSERT_EQ(T::runInPlace(true, apart.data(), n, fft, nullptr), moxOk);
      const auto run = [&](F* dstRe, F* dstIm) {
        shared = x;
        ASSERT_EQ(T::runSplit(shared.data(), shared.data() + n, dstRe, dstIm, fft), moxOk);
      };
      run(shared.data(), im.data());
      EXPECT_TRUE(std::equal(im.begin(), im.end(), apart.begin() + n));
      EXPECT_TRUE(std::equal(apart.begin(), apart.begin() + n, shared.begin()));
      run(im.data(), shared.data() + n);
      EXPECT_TRUE(std::equal(im.begin(), im.end(), apart.begin()));
      EXPECT_TRUE(std::equal(apart.begin() + n, apart.end(), shared.begin() + n));
    }
}

}  // namespace
